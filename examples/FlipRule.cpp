// Turns a rule round, so that it translates in the other direction.

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

  // The constraints stay as they are, on the sides on which they stand: a rule that is to be used
  // in the other direction needs its own.
  Rule.FlipRuleNoConstraints();
  Rule.ClearConstraints();
  Rule.SetConstraint("((y1 tense) = (x1 tense))");
  Rule.SetConstraint("((y2 num) = (x3 num))");
  std::cout << "flipped: " << Rule.GetAlignmentStr() << '\n';

  // The pairs still stand where they stood; setting them anew puts them in order.
  Rule.SetAlignment(Rule.GetAlignmentStr());
  std::cout << "ordered: " << Rule.GetAlignmentStr() << "\n\n";
  std::cout << Rule.ReturnAsStringForPrint() << '\n';
}
