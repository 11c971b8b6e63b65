#include <TrRule.h>

#include <iostream>
#include <string>

// A user's program: includes one header, reads a rule, edits it and prints it.
int main() {
  TrRule Rule;
  const bool Read = Rule.SetTrRuleFromString(
      ";; SL: the old house\n"
      "{NP,3}\n"
      "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
      "(\n"
      "(X1::Y1)\n"
      "(X2::Y3)\n"
      "(X3::Y2)\n"
      "(x0 = x3)\n"
      ")\n");
  std::cout << "read: " << Read << '\n';
  Rule.SetConstraint("((y2 num) = pl)");
  Rule.Print();
  std::cout << "level: " << GlobalParams::DebuggingLevel << '\n';
  std::cout << "alone: " << Constraint("((y1 num) = sg)").ReturnAsString() << '\n';
}
