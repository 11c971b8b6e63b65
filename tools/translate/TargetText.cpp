#include "TargetText.h"

#include <vector>

namespace Translate {

std::string TargetTextOf(const RuleSet& Rules, const Derivations& Trees, Derivations::TreeId Tree) {
  struct Frame {
    std::uint32_t Rule;
    std::uint32_t NextItem;
    std::size_t FirstPart;
  };
  std::string Text;
  std::vector<Frame> vFrames;
  std::vector<Derivations::TreeId> vParts;
  std::vector<Derivations::TreeId> vNewParts;
  const auto Enter = [&](Derivations::TreeId Which) {
    vFrames.push_back({Trees.Rule(Which), 0, vParts.size()});
    Trees.PartsOf(Which, vNewParts);
    vParts.insert(vParts.end(), vNewParts.begin(), vNewParts.end());
  };
  Enter(Tree);
  while (!vFrames.empty()) {
    Frame& Top = vFrames.back();
    const auto Targets = Rules.TargetsOf(Rules.At(Top.Rule));
    if (Top.NextItem == Targets.size()) {
      vParts.resize(Top.FirstPart);
      vFrames.pop_back();
      continue;
    }
    const TargetItem& Item = Targets.First[Top.NextItem++];
    if (!Item.IsLiteral) {
      Enter(vParts[Top.FirstPart + Item.Value]);
      continue;
    }
    Text.append(Text.empty() ? "" : " ").append(Rules.WordName(Item.Value));
  }
  return Text;
}

std::uint32_t TargetTexts::OfTree(Derivations::TreeId Which) {
  if (Which >= vOfTree.size()) {
    vOfTree.resize(Which + 1, NoEntry);
  }
  if (vOfTree[Which] == NoEntry) {
    vOfTree[Which] = Texts->Intern(TargetTextOf(Rules, Trees, Which));
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
  Texts = std::make_unique<SymbolTable>();
  Lists.Clear();
  vOfTree.clear();
}

}  // namespace Translate
