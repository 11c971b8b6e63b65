// The demonstration driver: reads a sample rule, prints it, adds constraints, queries and erases
// some, and prints it again. The script and its banners are fixed; programs compare its output.

#include "TrRule.h"

#include <iostream>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr const char* SampleRule =
    ";; SL: I see the red car\n"
    ";; TL: veo el auto rojo\n"
    ";; Users: 2\n"
    "{NP,8}\n"
    "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y3)\n"
    "(X3::Y2)\n"
    "((x0 det) = x1)\n"
    "((x0 mod) = x2)\n"
    "(x0 = x3)\n"
    "(y0 = x0)\n"
    "(y1 == (y0 det))\n"
    "(y3 == (y0 mod))\n"
    "(y2 = y0))\n";

void PrintFramed(const std::string& Banner, TrRule& R1) {
  std::cout << Banner << std::endl;
  R1.Print();
  std::cout << "----------- Done printing Rule 1 (R1) -----------------" << std::endl;
}

void AddConstraints(TrRule& R1) {
  R1.SetConstraint(3, "agr gen", "empty", "(Y2", -1, 4);
  R1.SetConstraint(4, 2, "all", "(Y0 DET", -1, false);
  R1.SetConstraint(1, "num", "sg", "", -1, 4);
  R1.SetConstraint(1, "num", "empty", "(X3", -1, 1);
  R1.SetConstraint(1, "all", "empty", "X1", -1, 3);
}

void ListCategory4(const TrRule& R1) {
  std::cout << "---------- 3) Getting All Constraints of category 4\n";
  for (const std::string& sConstraint : R1.GetConstraints(4)) {
    std::cout << sConstraint << std::endl;
  }
  std::cout << "---------- End of Getting All Constraints of category 4\n";
}

void ListIndex1(const TrRule& R1, const std::set<int>& siCategories) {
  const std::map<std::string, std::pair<std::string, std::string>> mspConstraints =
      R1.GetConstraintsForInd(1, siCategories);
  std::cout << "---------- Getting Constraints with ConstraintIndex 1 and of category 1, 3 and 4\n";
  for (const auto& [Feature, Values] : mspConstraints) {
    std::cout << "string (1arg in map): " << Feature << std::endl;
    std::cout << "first of pair: " << Values.first << "; second of pair: " << Values.second
              << std::endl;
  }
  std::cout << "---------- Done Getting Constraints with ConstraintIndex 1 and of category 3\n"
               "This is not right... would need to debug it if I decide to go with this "
               "implementation\n\n";
}

void EraseTwo(TrRule& R1, const std::set<int>& siCategories) {
  for (const int Category : siCategories) {
    std::cout << Category << std::endl;
  }
  R1.EraseConstraint(1, "num", "sg", "empty", siCategories);
  if (R1.EraseConstraint(0, "all", "empty", "X0", siCategories)) {
    std::cout << "The constraint (Y0 = X0) has been successfully deleted\n";
  }
}

}  // namespace

int main() {
  // The rule lasts as long as the process: it is never released.
  static TrRule& R1 = *new TrRule;
  R1.SetTrRuleFromString(SampleRule);
  PrintFramed("----------- 1) Now printing Rule 1 (R1) ------------------", R1);
  AddConstraints(R1);
  PrintFramed(
      "----------- 2) Adding constraints to R1: ((y3 agr gen) = (y2 agr gen)) + (y2 == (y0 DET)) + "
      "((y1 num) = sg) + ((x1 num) = (x3 num))------------------",
      R1);
  ListCategory4(R1);
  std::set<int> siCategories{1, 3, 4};
  ListIndex1(R1, siCategories);
  siCategories.erase(1);
  siCategories.erase(3);
  EraseTwo(R1, siCategories);
  PrintFramed("----------- 3) Now printing Rule 1 (R1) + NewConstraint + Erased ------------------",
              R1);
  return 0;
}
