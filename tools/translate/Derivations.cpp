#include "Derivations.h"

#include <algorithm>
#include <unordered_set>

namespace Translate {

void Derivations::Clear() {
  Trees.Clear();
  Lists.Clear();
  vTreeScores.clear();
  vListScores.assign(1, 0);
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
void Derivations::Descend(ListId Left, ListId Right, TreeId& LeftReturn,
                          TreeId& RightReturn) const {
  while (Before(Left) != Before(Right)) {
    Left = Before(Left);
    Right = Before(Right);
  }
  LeftReturn = Last(Left);
  RightReturn = Last(Right);
}

int Derivations::CompareTrees(TreeId Left, TreeId Right) const {
  if (Left == Right) {
    return 0;
  }
  // Rules of one number have equally many parts.
  while (Rule(Left) == Rule(Right)) {
    Descend(Parts(Left), Parts(Right), Left, Right);
  }
  return Rule(Left) < Rule(Right) ? -1 : 1;
}

int Derivations::CompareLists(ListId Left, ListId Right) const {
  if (Left == Right) {
    return 0;
  }
  TreeId One = 0;
  TreeId Other = 0;
  Descend(Left, Right, One, Other);
  return CompareTrees(One, Other);
}

}  // namespace Translate
