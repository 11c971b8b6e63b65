// How findings are written for people.

#include "FindingWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Grammar::Finding;
using Grammar::Severity;

/// A finding as it is shown to people.
std::string TextOf(const Finding& Found, bool Colours) {
  std::string Text = "before\n";
  AppendTextOf(Found, Colours, Text);
  EXPECT_EQ(Text.substr(0, 7), "before\n");
  return Text.substr(7);
}

TEST(FindingWriter, PutsCaretsBelowTheFinding) {
  Finding Current{
      "a b", 3, 4, 2, Severity::Warning, "TR024", "doubled", "\t\xC3\xA9==", "=", "b", 7, "e"};
  EXPECT_EQ(TextOf(Current, false),
            "a b:3:4: warning TR024: doubled\n  \t\xC3\xA9==\n  \t ^~\n  instead: =\n"
            "  for example: e\n  see b:7\n");
  EXPECT_EQ(TextOf(Current, true),
            "\x1b[1ma b:3:4: \x1b[0m\x1b[1;35mwarning TR024\x1b[0m: doubled\n  \t\xC3\xA9==\n  "
            "\x1b[32m\t ^~\x1b[0m\n  instead: =\n  for example: e\n  see b:7\n");
}

TEST(FindingWriter, ColoursEachSeverity) {
  Finding Current;
  Current.File = "a";
  Current.Line = 1;
  Current.Column = 1;
  Current.Code = "TR031";
  Current.Message = "m";
  const auto ColouredAs = [&](Severity Level) {
    Current.Level = Level;
    return TextOf(Current, true);
  };
  const std::string Rest = " TR031\x1b[0m: m\n  \n  \x1b[32m^\x1b[0m\n";
  EXPECT_EQ(ColouredAs(Severity::Note), "\x1b[1ma:1:1: \x1b[0m\x1b[1;36mnote" + Rest);
  EXPECT_EQ(ColouredAs(Severity::Warning), "\x1b[1ma:1:1: \x1b[0m\x1b[1;35mwarning" + Rest);
  EXPECT_EQ(ColouredAs(Severity::Error), "\x1b[1ma:1:1: \x1b[0m\x1b[1;31merror" + Rest);
}

TEST(FindingWriter, EscapesControlBytes) {
  const Finding Current{"a\x1b", 1,  9, 5, Severity::Error, "TR008", "m\x7F", "\x1b[1m\r",
                        "",      "", 0, ""};
  EXPECT_EQ(TextOf(Current, false), "a?:1:9: error TR008: m?\n  ?[1m?\n       ^\n");
}

TEST(FindingWriter, ShortensLongLinesAroundTheFinding) {
  const Finding Current{"a", 1,  501, 2, Severity::Error, "TR008", "m", std::string(1000, 'x'),
                        "",  "", 0,   ""};
  EXPECT_EQ(TextOf(Current, false), "a:1:501: error TR008: m\n  " + std::string(160, 'x') + "\n  " +
                                        std::string(40, ' ') + "^~\n");
}

}  // namespace
