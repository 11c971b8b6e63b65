#include "TargetTexts.h"

#include <optional>
#include <string>

namespace Translate {

/// The number of a derivation's text. Texts that are not kept have numbers from the upper half.
std::uint32_t TargetTexts::NumberOf(Derivations::TreeId Which) {
  constexpr std::uint32_t Unkept = 0x80000000U;
  constexpr std::uint32_t TooLong = NoEntry - 1;
  const std::optional<std::string> Text = Words.Text(Which);
  if (!Text) {
    return TooLong;
  }
  if (Text->size() > MaxBytes - Bytes) {
    return Unkept | Which;
  }
  const std::size_t Size = Texts->Size();
  const std::uint32_t Number = Texts->Intern(*Text);
  Bytes += Texts->Size() > Size ? Text->size() : 0;
  return Number;
}

std::uint32_t TargetTexts::OfTree(Derivations::TreeId Which) {
  if (Which >= vOfTree.size()) {
    vOfTree.resize(Which + 1, NoEntry);
  }
  if (vOfTree[Which] == NoEntry) {
    vOfTree[Which] = NumberOf(Which);
  }
  return vOfTree[Which];
}

std::uint32_t TargetTexts::OfList(Derivations::ListId Which) {
  std::uint32_t Number = NoEntry;
  for (; Which != Derivations::NoList; Which = Trees.Before(Which)) {
    Number = Lists.Intern(Number, OfTree(Trees.Last(Which)));
  }
  return Number;
}

void TargetTexts::Clear() {
  Words.Clear();
  Texts = std::make_unique<SymbolTable>();
  Bytes = 0;
  Lists.Clear();
  vOfTree.clear();
}

}  // namespace Translate
