// Reads many rules from one text. Each begins at its header, with the comments directly above it.
//
// The library reads one rule at a time, so the program splits the text. The rules stay in a deque
// that only grows at its end, since a copy of a rule has no comments and no header type.

#include <TrRule.h>

#include <algorithm>
#include <deque>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view Grammar =
    ";; SL: the red car\n"
    ";; TL: el auto rojo\n"
    "{NP,1}\n"
    "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y3)\n"
    "(X3::Y2)\n"
    "((y1 num) = (y2 num))\n"
    ")\n"
    "\n"
    ";; SL: the car\n"
    ";; TL: el auto\n"
    "{NP,2}\n"
    "NP::NP : [DET N] -> [DET N]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y2)\n"
    "(x0 = x2))\n";

/// Takes the first line off a text, with its line feed.
std::string_view TakeLine(std::string_view& TextReturn) {
  const std::size_t Size = std::min(TextReturn.find('\n'), TextReturn.size() - 1) + 1;
  const std::string_view Line = TextReturn.substr(0, Size);
  TextReturn.remove_prefix(Size);
  return Line;
}

std::vector<std::string> CutIntoRules(std::string_view Text) {
  std::vector<std::string> vsRules;
  std::string Above;  // comments and blank lines that may belong to the next rule
  while (!Text.empty()) {
    const std::string_view Line = TakeLine(Text);
    const std::size_t First = Line.find_first_not_of(" \t\r\n");
    if (First == std::string_view::npos || Line[First] == ';') {
      Above += Line;
      continue;
    }
    if (Line[First] == '{' || vsRules.empty()) {
      vsRules.emplace_back();
    }
    vsRules.back().append(Above).append(Line);
    Above.clear();
  }
  return vsRules;
}

}  // namespace

int main() {
  std::deque<TrRule> Rules;
  for (const std::string& sText : CutIntoRules(Grammar)) {
    Rules.emplace_back();
    if (!Rules.back().SetTrRuleFromString(sText)) {
      Rules.pop_back();  // the library has printed the error on std::cerr
    }
  }
  std::cout << Rules.size() << " rules\n";
  for (TrRule& Rule : Rules) {
    std::cout << '\n';
    Rule.Print();
  }
}
