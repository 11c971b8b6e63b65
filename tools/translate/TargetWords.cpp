// Sections: lengths, writing.

#include "TargetWords.h"

#include <algorithm>

namespace Translate {

// ---- Lengths ----------------------------------------------------------------------------------

std::string LengthError() {
  return "a translation has more than " + std::to_string(TargetWords::MaxBytes) + " bytes";
}

/// Adds up the text of the first derivation whose length is not known. Its parts are known, since
/// they have smaller numbers.
std::uint32_t TargetWords::NextSize() {
  const auto Tree = static_cast<Derivations::TreeId>(vKnown.size());
  Trees.PartsOf(Tree, vParts);
  std::uint64_t Size = 0;
  for (const TargetItem& Item : Rules.TargetsOf(Rules.At(Trees.Rule(Tree)))) {
    const std::uint64_t Added =
        Item.IsLiteral ? Rules.WordName(Item.Value).size() : vKnown[vParts[Item.Value]].Size;
    Size += Added + (Size > 0 && Added > 0 ? 1 : 0);
  }
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(Size, MaxBytes + 1));
}

std::uint32_t TargetWords::SizeOf(Derivations::TreeId Tree) {
  while (vKnown.size() <= Tree) {
    vKnown.push_back({NextSize(), 0});
  }
  return vKnown[Tree].Size;
}

// ---- Writing ----------------------------------------------------------------------------------

/// What is noted of an earlier text is found to be wrong here, so nobody has to take it back.
bool TargetWords::HasCopy(Derivations::TreeId Tree) const {
  const std::uint32_t Which = vKnown[Tree].Copy;
  return Which < vCopies.size() && vCopies[Which].Tree == Tree;
}

void TargetWords::Enter(Derivations::TreeId Tree, const std::string& Text) {
  vFrames.push_back({Tree, 0, vOpenParts.size(), Text.empty() ? 0 : Text.size() + 1});
  Trees.PartsOf(Tree, vParts);
  vOpenParts.insert(vOpenParts.end(), vParts.begin(), vParts.end());
}

void TargetWords::Leave() {
  const Frame& Top = vFrames.back();
  vKnown[Top.Tree].Copy = static_cast<std::uint32_t>(vCopies.size());
  vCopies.push_back({Top.Tree, Top.Start});
  vOpenParts.resize(Top.FirstPart);
  vFrames.pop_back();
}

/// Copies a part that stands in the text already; another one is the next to be written.
void TargetWords::AppendPart(Derivations::TreeId Tree, std::string& TextReturn) {
  if (vKnown[Tree].Size == 0) {
    return;
  }
  if (!HasCopy(Tree)) {
    Enter(Tree, TextReturn);
    return;
  }
  TextReturn += ' ';
  TextReturn.append(TextReturn, vCopies[vKnown[Tree].Copy].Start, vKnown[Tree].Size);
}

std::optional<std::string> TargetWords::Text(Derivations::TreeId Tree) {
  if (SizeOf(Tree) > MaxBytes) {
    return std::nullopt;
  }
  std::string Text;
  Text.reserve(SizeOf(Tree));
  vCopies.clear();
  Enter(Tree, Text);
  while (!vFrames.empty()) {
    Frame& Top = vFrames.back();
    const auto Targets = Rules.TargetsOf(Rules.At(Trees.Rule(Top.Tree)));
    if (Top.NextItem == Targets.size()) {
      Leave();
      continue;
    }
    const TargetItem& Item = Targets.First[Top.NextItem++];
    if (Item.IsLiteral) {
      Text.append(Text.empty() ? "" : " ").append(Rules.WordName(Item.Value));
    } else {
      AppendPart(vOpenParts[Top.FirstPart + Item.Value], Text);
    }
  }
  return Text;
}

}  // namespace Translate
