#pragma once

#include "BestDerivations.h"
#include "Chart.h"
#include "Evaluator.h"
#include "Outcome.h"
#include "TargetWords.h"
#include "TestedGrammar.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Examples {

/// What bounds the work on an example, and what a pair of a file may begin with.
struct ParseOptions {
  Translate::ChartLimits Limits;
  std::uint64_t MaxDerivations = 100000;  ///< looked at in vain
  bool HasStarts = false;  ///< pairs of a file have one of `vStarts`; otherwise any type
  std::vector<std::uint32_t> vStarts;
  bool WantsCauses = false;  ///< find out why examples fail
};

/// Whether a pair of a file may be of a type, a label.
bool IsStartOfPairs(const ParseOptions& Options, std::uint32_t Type);

/// Whether two texts have the same words but for ASCII capitals.
bool HaveSameWords(std::string_view Left, std::string_view Right);

/// The derivations of an example's text, and what they make of the example.
///
/// @code
/// const ParseOptions Options;
/// Translate::Evaluator Unified(Tested.Rules());
/// ExampleParse Parse(Tested, Options, Unified);
/// const Example& First = Tested.AllExamples().front();
/// Parse.Begin(First);
/// Parse.Judge(First).What;  // Outcome::Passes
/// Parse.Texts();            // {"un auto"}
/// @endcode
class ExampleParse {
 public:
  /// How many texts of an example count where a grammar is compared with itself.
  static constexpr std::size_t MaxTexts = 100;

  /// @param EquationsPassIn may serve several parses
  ExampleParse(const TestedGrammar& TestedPassIn, const ParseOptions& OptionsPassIn,
               Translate::Evaluator& EquationsPassIn)
      : Tested(TestedPassIn),
        Options(OptionsPassIn),
        Equations(EquationsPassIn),
        Parsed(TestedPassIn.Rules()),
        Best(Parsed),
        Words(TestedPassIn.Rules(), Best.Trees()) {}

  /// Takes a variant for its rule, from the next text on.
  void Replace(const Translate::RuleSet::Variant& Variant) { Parsed.Replace(Variant); }

  /// Parses the text of an example, which has to outlive what is asked about it.
  void Begin(const Example& Given);

  /// The outcome of the example.
  ExampleResult Judge(const Example& Given);

  /// Whether the text has one derivation of the wanted types, or none.
  bool HasOneDerivation();

  /// Whether another parse of the same example has the same derivations. That it says so is
  /// certain; that it does not, is not.
  bool HasSameDerivations(const ExampleParse& Other) const;

  /// The texts that the example's text is translated to, in order, each once.
  std::vector<std::string> Texts();
  /// Whether they are these.
  bool HasTexts(const std::vector<std::string>& vsTexts);

  const Translate::Chart& ParsedChart() const { return Parsed; }

 private:
  using TreeId = Translate::Derivations::TreeId;

  bool IsStart(const Example& Given, std::uint32_t Type) const;
  void FindWays(const Example& Given);
  std::vector<std::uint32_t> AllWays() const;
  std::optional<TreeId> BestOf(const std::vector<std::uint32_t>& vWays);
  std::optional<TreeId> FindFit(const std::vector<std::uint32_t>& vWays, const std::string& Wanted,
                                bool& IsTooManyReturn);
  ExampleResult ResultOf(Outcome What, std::optional<TreeId> Tree);
  ExampleResult JudgePair(const std::string& Wanted);
  template <typename TakeT>
  void ForEachText(TakeT Take);

  const TestedGrammar& Tested;
  const ParseOptions& Options;
  Translate::Evaluator& Equations;
  Translate::Chart Parsed;
  Translate::BestDerivations Best;
  Translate::TargetWords Words;
  bool IsWhole = false;                   // whether all constituents are there
  std::vector<std::uint32_t> vRootWays;   // that span the text, with the example's rule …
  std::vector<std::uint32_t> vOtherWays;  // … and with other rules, of a start type
};

}  // namespace Examples
