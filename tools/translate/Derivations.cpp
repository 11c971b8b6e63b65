#include "Derivations.h"

#include <algorithm>
#include <unordered_set>

namespace Translate {

void Derivations::Clear() {
  Trees.Clear();
  Lists.Clear();
  vTreeScores.clear();
  vListScores.assign(1, 0);
  Compared.Clear();
  vResults.clear();
}

Derivations::TreeId Derivations::Tree(std::uint32_t Rule, ListId Parts, std::int64_t Weight) {
  const TreeId Which = Trees.Intern(Rule, Parts);
  if (Which == vTreeScores.size()) {
    vTreeScores.push_back(vListScores[Parts] + Weight);
  }
  return Which;
}

Derivations::ListId Derivations::List(ListId Before, TreeId Last) {
  const ListId Which = Lists.Intern(Before, Last) + 1;
  if (Which == vListScores.size()) {
    vListScores.push_back(vListScores[Before] + vTreeScores[Last]);
  }
  return Which;
}

void Derivations::PartsOf(TreeId Which, std::vector<TreeId>& vPartsReturn) const {
  vPartsReturn.clear();
  for (ListId List = Parts(Which); List != NoList; List = Before(List)) {
    vPartsReturn.push_back(Last(List));
  }
  std::reverse(vPartsReturn.begin(), vPartsReturn.end());
}

std::vector<std::uint32_t> Derivations::RulesOf(TreeId Which) const {
  std::vector<std::uint32_t> vRules;
  std::vector<TreeId> vStack{Which};
  std::unordered_set<TreeId> sSeen;
  while (!vStack.empty()) {
    const TreeId Tree = vStack.back();
    vStack.pop_back();
    if (!sSeen.insert(Tree).second) {
      continue;
    }
    vRules.push_back(Rule(Tree));
    for (ListId Part = Parts(Tree); Part != NoList; Part = Before(Part)) {
      vStack.push_back(Last(Part));
    }
  }
  std::sort(vRules.begin(), vRules.end());
  vRules.erase(std::unique(vRules.begin(), vRules.end()), vRules.end());
  return vRules;
}

/// Finds the first difference of two lists that are not the same.
void Derivations::Descend(ListId Left, ListId Right, TreePair& PairReturn) const {
  while (Before(Left) != Before(Right)) {
    Left = Before(Left);
    Right = Before(Right);
  }
  PairReturn = {Last(Left), Last(Right)};
}

/// How two trees compared before; 0 if that is not known.
int Derivations::Remembered(const TreePair& Pair) const {
  const auto [First, Second] = std::minmax(Pair.Left, Pair.Right);
  const std::uint32_t Number = Compared.Find(First, Second);
  if (Number == Grammar::NoEntry) {
    return 0;
  }
  return Pair.Left == First ? vResults[Number] : -vResults[Number];
}

void Derivations::Remember(const TreePair& Pair, int Result) const {
  const auto [First, Second] = std::minmax(Pair.Left, Pair.Right);
  const std::uint32_t Number = Compared.Intern(First, Second);
  if (Number == vResults.size()) {
    vResults.push_back(static_cast<std::int8_t>(Pair.Left == First ? Result : -Result));
  }
}

int Derivations::CompareTrees(TreeId Left, TreeId Right) const {
  if (Left == Right) {
    return 0;
  }
  // A pair in so many is looked up and remembered, since most differ near their roots.
  constexpr std::size_t Stride = 16;
  vPassed.clear();
  TreePair Pair{Left, Right};
  int Result = 0;
  for (std::size_t Depth = 0; Result == 0; ++Depth) {
    if (Depth % Stride == Stride - 1) {
      Result = Remembered(Pair);
      vPassed.push_back(Pair);
    }
    if (Result == 0 && Rule(Pair.Left) != Rule(Pair.Right)) {
      Result = Rule(Pair.Left) < Rule(Pair.Right) ? -1 : 1;
    } else if (Result == 0) {
      // Rules of one number have equally many parts.
      Descend(Parts(Pair.Left), Parts(Pair.Right), Pair);
    }
  }
  if (!vPassed.empty()) {
    Remember({Left, Right}, Result);
  }
  for (const TreePair& Passed : vPassed) {
    Remember(Passed, Result);
  }
  return Result;
}

int Derivations::CompareLists(ListId Left, ListId Right) const {
  if (Left == Right) {
    return 0;
  }
  TreePair Pair{};
  Descend(Left, Right, Pair);
  return CompareTrees(Pair.Left, Pair.Right);
}

}  // namespace Translate
