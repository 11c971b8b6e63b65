// One rule that survives the inputs that would end its program.
//
// Two of the nine are missing because no input causes them: only private code can look up a label
// on a side other than 1 and 2 (LexicalizedType), and category 2 is ordered by index, which cannot
// fail (Category2Order). The handler would handle both.

#include <TrRule.h>

#include <iostream>
#include <stdexcept>

namespace {

template <typename InputT>
void Survive(const char* What, InputT Input) {
  try {
    Input();
  } catch (const std::runtime_error& Error) {
    std::cout << "survived " << What << ":\n" << Error.what() << '\n';
  }
}

}  // namespace

int main() {
  SetHaltHandler([](HaltReason, const std::string& Message) { throw std::runtime_error(Message); });
  std::cerr.rdbuf(nullptr);  // the handler receives the messages
  TrRule Rule;
  Survive("AlignmentFormat", [&] { Rule.SetAlignment("1,1"); });
  Rule.SetAlignment("()");
  Survive("ReversedAlignmentFormat", [&] { Rule.FlipRuleNoConstraints(); });
  Survive("ComplexAgreement", [&] { Rule.SetConstraint("((Y1 NUM) = (Y2 NUM))", 1, 4); });
  Survive("CategoryRange", [&] { Rule.SetConstraint(1, "NUM", "SG", "empty", 1, 5); });
  Rule.SetConstraint("(x0 = n)");
  Survive("AgreedIndex", [&] { Rule.ReturnAsStringForPrint(); });
  Rule.EraseConstraint(0, "all", "empty", "N", {1});
  Rule.SetTrRuleFromString("(y1 = y2)\n(y2 = y1)\n");
  Survive("Category3and4Order", [&] { Rule.ReturnAsStringForPrint(); });
  Rule.SetTrRuleFromString("(x1 = x2)\n(x2 = x1)\n");
  Survive("Category1Order", [&] { Rule.ReturnAsStringForPrint(); });
  Rule.ClearConstraints();
  Rule.Print();
}
