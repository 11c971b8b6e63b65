// Flips a rule, so that it translates in the other direction.

#include <TrRule.h>

#include <iostream>

int main() {
  TrRule Rule;
  Rule.SetTrRuleFromString(
      ";; a verb, its object and an adverb\n"
      "{VP,2}\n"
      "VP::VP : [V NP ADV] -> [V ADV NP]\n"
      "(\n"
      "(X1::Y1)\n"
      "(X2::Y3)\n"
      "(X3::Y2)\n"
      "((y1 tense) = (x1 tense))\n"
      "((y3 num) = (x2 num))\n"
      ")\n");
  Rule.SetSLWords("reads books daily");
  Rule.SetTLWords("lee diariamente libros");
  std::cout << Rule.ReturnAsStringForPrint() << "\n\n";

  // Flipping does not change the constraints: a rule for the other direction needs new ones.
  Rule.FlipRuleNoConstraints();
  Rule.ClearConstraints();
  Rule.SetConstraint("((y1 tense) = (x1 tense))");
  Rule.SetConstraint("((y2 num) = (x3 num))");
  std::cout << "flipped: " << Rule.GetAlignmentStr() << '\n';

  // The pairs keep their order; setting the string again puts it in canonical order.
  Rule.SetAlignment(Rule.GetAlignmentStr());
  std::cout << "ordered: " << Rule.GetAlignmentStr() << "\n\n";
  std::cout << Rule.ReturnAsStringForPrint() << '\n';
}
