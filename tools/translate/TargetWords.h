#pragma once

#include "Derivations.h"
#include "RuleSet.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Translate {

/// Writes the words that derivations give, joined by blanks. Nothing recurses, however deep they
/// are.
///
/// A rule may write a place twice, and so may the rule below it: the words of a short text can
/// double at each level. How long a text becomes is added up before it is written, and what it
/// repeats is copied from where it stands first. So it takes no longer than its length and the
/// number of its different parts.
///
/// @code
/// Derivations Trees;
/// const auto Red = Trees.Tree(0, Derivations::NoList, 0);
/// const auto Car = Trees.Tree(1, Derivations::NoList, 0);
/// const auto Phrase = Trees.Tree(2, Trees.List(Trees.List(Derivations::NoList, Red), Car), 0);
/// TargetWords Words(Rules, Trees);
/// Words.Text(Phrase).value();  // "el auto rojo"
/// @endcode
class TargetWords {
 public:
  /// The length of the longest text that is written.
  static constexpr std::uint32_t MaxBytes = 1U << 24U;

  TargetWords(const RuleSet& RulesPassIn, const Derivations& TreesPassIn)
      : Rules(RulesPassIn), Trees(TreesPassIn) {}

  /// The words of a derivation; nothing where the text would be longer than `MaxBytes`.
  std::optional<std::string> Text(Derivations::TreeId Tree);

  /// To be called when the derivations are gone.
  void Clear() { vKnown.clear(); }

 private:
  /// What is known of a derivation.
  struct Known {
    std::uint32_t Size;  ///< of its text; one more than `MaxBytes` for all that is longer
    std::uint32_t Copy;  ///< where it may stand among the copies
  };

  /// A derivation that the present text has in it already.
  struct Copy {
    Derivations::TreeId Tree;
    std::size_t Start;
  };

  /// A derivation that is being written.
  struct Frame {
    Derivations::TreeId Tree;
    std::uint32_t NextItem;
    std::size_t FirstPart;  ///< in the list of open parts
    std::size_t Start;
  };

  std::uint32_t SizeOf(Derivations::TreeId Tree);
  std::uint32_t NextSize();
  bool HasCopy(Derivations::TreeId Tree) const;
  void Enter(Derivations::TreeId Tree, const std::string& Text);
  void Leave();
  void AppendPart(Derivations::TreeId Tree, std::string& TextReturn);

  const RuleSet& Rules;
  const Derivations& Trees;
  std::vector<Known> vKnown;  // of the first derivations
  std::vector<Copy> vCopies;
  std::vector<Frame> vFrames;
  std::vector<Derivations::TreeId> vOpenParts;
  std::vector<Derivations::TreeId> vParts;
};

/// What to say of a text with words that are not written.
std::string LengthError();

}  // namespace Translate
