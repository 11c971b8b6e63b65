// Which bytes are reported as slips in the types and labels of a rule line: every one is tried.

#include "LineSlips.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Grammar::FindNameSlips;
using Grammar::NameSlip;

std::vector<std::string> Shown(const std::vector<NameSlip>& vSlips) {
  std::vector<std::string> vsShown;
  for (const NameSlip& Slip : vSlips) {
    vsShown.push_back(std::string(Slip.IsType ? "type " : "label ") + std::string(Slip.Name) + ' ' +
                      std::string(Slip.Sign));
  }
  return vsShown;
}

TEST(LineSlips, AreAllSignsThatNamesDoNotHave) {
  const std::string Signs = ",;\"[](){}<>=|\t\v\f\r";
  for (int Value = 0; Value < 256; ++Value) {
    const auto Byte = static_cast<char>(Value);
    if (Byte == ' ') {
      continue;
    }
    SCOPED_TRACE(Value);
    const std::string Name = std::string("A") + Byte + 'B';
    const bool IsSign = Signs.find(Byte) != std::string::npos;
    std::vector<std::string> vsExpected;
    if (IsSign || Byte == ':') {
      vsExpected.push_back("type " + Name + ' ' + Byte);
    }
    if (IsSign) {
      vsExpected.push_back("label " + Name + ' ' + Byte);
    }
    EXPECT_EQ(Shown(FindNameSlips({Name, "NP", "DET " + Name, "N"})), vsExpected);
  }
}

TEST(LineSlips, AreOneForEachNameInTheOrderOfTheLine) {
  EXPECT_EQ(Shown(FindNameSlips({"A:,", "B=:", "C|(D \"e,f\" \"g\"h", "'I ' J"})),
            (std::vector<std::string>{"type A:, :", "type B=: =", "label C|(D |", "label \"g\"h \"",
                                      "label 'I '"}));
}

}  // namespace
