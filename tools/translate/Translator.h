#pragma once

#include "BestDerivations.h"
#include "Chart.h"
#include "DerivationTree.h"
#include "Evaluator.h"
#include "RuleSet.h"
#include "TargetWords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

/// What is wanted of each text.
struct TextOptions {
  std::uint64_t Translations = 1;      ///< how many, at most
  bool AllDerivations = false;         ///< also those whose target text has been given already
  bool IsPartial = false;              ///< cut a text without translation into pieces
  bool WantsCount = false;             ///< how many derivations there are
  bool HasStarts = false;              ///< only `vStarts` are start types; otherwise all types are
  std::vector<std::uint32_t> vStarts;  ///< labels
  std::uint64_t MaxDerivations = 100000;
  ChartLimits Limits;
};

/// A derivation that translates a text.
struct Translation {
  std::string Target;
  std::int64_t Score;
  Derivations::TreeId Tree;
};

/// A part of a text that is only translated in part.
struct Piece {
  std::size_t Start;
  std::size_t End;
  std::string Target;
  std::optional<Derivations::TreeId> Tree;  ///< nothing for a token that is copied
};

/// What has become of a text.
struct TextResult {
  std::vector<Translation> vTranslations;
  std::vector<Piece> vPieces;
  bool HasPieces = false;                    ///< whether pieces were wanted, and are all there is
  std::optional<std::uint64_t> Derivations;  ///< how many; nothing if that does not fit
  std::string Error;                         ///< empty if there is none
};

/// Translates texts, one after the other. One for each thread; all can use the same rules.
///
/// @code
/// Translator Engine(Rules);
/// const TextResult Result = Engine.Translate("the red car", TextOptions());
/// Result.vTranslations.front().Target;  // "el auto rojo"
/// @endcode
class Translator {
 public:
  explicit Translator(const RuleSet& RulesPassIn)
      : Rules(RulesPassIn),
        Equations(RulesPassIn),
        Parsed(RulesPassIn),
        Best(Parsed),
        Words(RulesPassIn, Best.Trees()) {}

  Translator(const Translator&) = delete;
  Translator& operator=(const Translator&) = delete;

  /// Translates a text.
  /// @param Text has to outlive what is asked about it
  TextResult Translate(std::string_view Text, const TextOptions& Options);

  // About the last text:

  const Chart& ParsedChart() const { return Parsed; }
  const StructureStore& Structures() const { return Equations.Structures(); }
  const AtomSets& Atoms() const { return Equations.Atoms(); }

  /// The constituents of a derivation that begins at a token, root first and parts in order.
  std::vector<TreeNode> NodesOf(Derivations::TreeId Tree, std::size_t Start);

  /// The constituents whose derivations translate the text.
  std::vector<std::uint32_t> Goals(const TextOptions& Options) const;

 private:
  void AddTranslations(const TextOptions& Options, TextResult& ResultReturn);
  void AddPieces(TextResult& ResultReturn);
  std::optional<Piece> MakePiece(std::size_t Start, std::size_t End);

  const RuleSet& Rules;
  Evaluator Equations;
  Chart Parsed;
  BestDerivations Best;
  TargetWords Words;
};

}  // namespace Translate
