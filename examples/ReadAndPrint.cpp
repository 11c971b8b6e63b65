// Reads a rule from its text, edits it and prints it.

#include <TrRule.h>

int main() {
  TrRule Rule;
  const bool IsWhole = Rule.SetTrRuleFromString(
      ";; SL: the red cars\n"
      ";; TL: los autos rojos\n"
      "{NP,4}\n"
      "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
      "(\n"
      "(X1::Y1)\n"
      "(X2::Y3)\n"
      "(x0 = x3)\n"
      "((y2 num) = (x3 num))\n"
      ")\n");
  Rule.AddAlignment("(X3::Y2)");
  Rule.SetConstraint("((y1 num) = (y2 num))");
  Rule.SetConstraint("((y3 num) = (y2 num))");
  Rule.EraseConstraint(0, "all", "empty", "X3", {1});
  Rule.Print();
  return IsWhole ? 0 : 1;
}
