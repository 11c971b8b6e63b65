// Adds constraints to a rule, lists some of them, and erases one.

#include <TrRule.h>

#include <iostream>

namespace {

void PrintAll(const char* Title, const std::vector<std::string>& vsConstraints) {
  std::cout << Title << '\n';
  for (const std::string& sConstraint : vsConstraints) {
    std::cout << "  " << sConstraint << '\n';
  }
}

void PrintFeatures(const char* Title, const TrRule& Rule, int Index) {
  std::cout << Title << '\n';
  for (const auto& [Feature, Values] : Rule.GetConstraintsForInd(Index, {1, 2, 3, 4})) {
    std::cout << "  " << Feature << ": value " << Values.first << ", agrees with " << Values.second
              << '\n';
  }
}

}  // namespace

int main() {
  TrRule Rule;

  // From text: letters are upper-cased, and the text determines the category.
  Rule.SetConstraint("(x0 = x3)");
  Rule.SetConstraint("((y1 gen) = (y2 gen))");
  Rule.SetConstraint("((y2 num) = (x3 num))");
  Rule.SetConstraint("((y2 def) = +)");

  // From values: stored unchanged, so they must be in capitals to match those from text. The
  // arguments are index, feature, value, agreed value, rank and category; "empty" means no value.
  Rule.SetConstraint(1, "NUM", "empty", "(Y2", -1, 4);
  Rule.SetConstraint(1, "DEF", "+", "empty", -1, 4);
  PrintAll("All constraints, in the order of their keys:", Rule.GetConstraints());
  PrintAll("Constraints on target-side nodes:", Rule.GetConstraints(5));
  PrintFeatures("Constraints on y1, by feature:", Rule, 1);

  // A second value for a feature merges with the first; the library reports that on standard
  // output.
  Rule.SetConstraint("((y1 def) = -)");

  // Erase a constraint only if its value is known.
  const bool IsErased = Rule.EraseConstraint(1, "GEN", "empty", "(Y2", {4});
  std::cout << "erased: " << std::boolalpha << IsErased << '\n';
  Rule.EraseCategoryConstraints(1);
  PrintAll("Remaining constraints:", Rule.GetConstraints());
}
