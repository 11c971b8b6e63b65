// Scanning a line: the marks in the whole line and before the comment, the start of the comment,
// and quotes before it.

#include "LineScan.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::LineMarks;
using TrRuleInternal::ScanLine;
using TrRuleInternal::ScannedLine;

namespace {

/// A scanned line, in a form that can be compared and printed.
struct Found {
  Strings vsWhole;
  Strings vsCode;
  std::size_t CommentBegin = 0;
  bool HasQuotes = false;

  friend bool operator==(const Found& Left, const Found& Right) {
    return Left.vsWhole == Right.vsWhole && Left.vsCode == Right.vsCode &&
           Left.CommentBegin == Right.CommentBegin && Left.HasQuotes == Right.HasQuotes;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Found& Scan) {
    Stream << "whole " << testing::PrintToString(Scan.vsWhole) << ", code "
           << testing::PrintToString(Scan.vsCode);
    return Stream << ", comment at " << Scan.CommentBegin << (Scan.HasQuotes ? ", quotes" : "");
  }
};

Strings NamesOf(const LineMarks& Marks) {
  Strings vsNames;
  const std::pair<bool, const char*> All[] = {{Marks.HasComment, ";;"},
                                              {Marks.HasBrace, "{"},
                                              {Marks.HasArrow, "] -> ["},
                                              {Marks.HasColons, "::"},
                                              {Marks.HasEquals, "="}};
  for (const auto& [IsThere, Name] : All) {
    if (IsThere) {
      vsNames.emplace_back(Name);
    }
  }
  return vsNames;
}

Found Scan(const std::string& Line) {
  const ScannedLine Scanned = ScanLine(Line);
  return {NamesOf(Scanned.Whole), NamesOf(Scanned.Code), Scanned.CommentBegin, Scanned.HasQuotes};
}

Found ReferenceScan(const std::string& Line) {
  const std::size_t Comment = Reference::CommentBegin(Line);
  const std::string Code = Line.substr(0, Comment);
  return {Reference::MarksIn(Line), Reference::MarksIn(Code), Comment,
          Reference::Holds(Code, "\"")};
}

}  // namespace

TEST(LineScan, FindsTheMarks) {
  struct Case {
    std::string Line;
    Found Expected;
  };
  const std::vector<Case> vCases = {
      {"", {{}, {}, 0, false}},
      {"(", {{}, {}, 1, false}},
      {";", {{}, {}, 1, false}},
      {":", {{}, {}, 1, false}},
      {": :", {{}, {}, 3, false}},
      {"] -> (", {{}, {}, 6, false}},
      {"] -> ", {{}, {}, 5, false}},
      {";;", {{";;"}, {}, 0, false}},
      {";;;;", {{";;"}, {}, 0, false}},
      {"; ;;", {{";;"}, {}, 2, false}},
      {"{NP,8}", {{"{"}, {"{"}, 6, false}},
      {"A::B [C] -> [D]", {{"] -> [", "::"}, {"] -> [", "::"}, 15, false}},
      {"] -> ] -> [", {{"] -> ["}, {"] -> ["}, 11, false}},
      {"(X1::Y1)", {{"::"}, {"::"}, 8, false}},
      {":::", {{"::"}, {"::"}, 3, false}},
      {"(x0 = x3)", {{"="}, {"="}, 9, false}},
      {"(X1::Y1) ;; was x2 = y2", {{";;", "::", "="}, {"::"}, 9, false}},
      {";; {] -> [::=", {{";;", "{", "] -> [", "::", "="}, {}, 0, false}},
      {"\0;;\xFF="s, {{";;", "="}, {}, 1, false}},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Scan(Row.Line), Row.Expected) << Row.Line;
  }
}

TEST(LineScan, HidesOnlyCommentsInQuotes) {
  struct Case {
    std::string Line;
    Found Expected;
  };
  const std::vector<Case> vCases = {
      {"\"", {{}, {}, 1, true}},
      {"\";;\"", {{";;"}, {";;"}, 4, true}},
      {"\";;", {{";;"}, {}, 1, true}},
      {"\"a\";;", {{";;"}, {}, 3, true}},
      {"\"a\" \";;", {{";;"}, {}, 5, true}},
      {"\"a;;\";;\"b\"", {{";;"}, {";;"}, 5, true}},
      {";;\"a\"", {{";;"}, {}, 0, false}},
      {"\"a;\";", {{}, {}, 5, true}},
      {"[\"::\" \"=\"] \"{\"", {{"{", "::", "="}, {"{", "::", "="}, 14, true}},
      {"\"\";;", {{";;"}, {}, 2, true}},
      {"\"\"\";;\"", {{";;"}, {";;"}, 6, true}},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Scan(Row.Line), Row.Expected) << Row.Line;
  }
}

TEST(LineScan, ScansEveryPrefixLikeTheReference) {
  const std::string Line = "A::\";;\" : [\"=\" C] -> [{D}] = :: ;; \"e\" ] -> [ :: = {";
  for (std::size_t Size = 0; Size <= Line.size(); ++Size) {
    const std::string Prefix = Line.substr(0, Size);
    EXPECT_EQ(Scan(Prefix), ReferenceScan(Prefix)) << Prefix;
  }
}

TEST(LineScan, ScansRandomLinesLikeTheReference) {
  RandomInput Random;
  const Strings vsWords = {";;", ";",  "\"", "{", "] -> [", "] -> ",
                           "]",  "::", ":",  "=", " a",     "\xFF"};
  int Hidden = 0;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Line =
        Case % 2 == 0 ? Random.WordsOf(vsWords, 12) : Random.TextOf(";;\"\"{]->[::= \0"s, 24);
    ASSERT_EQ(Scan(Line), ReferenceScan(Line)) << Line;
    Hidden += Line.find(";;") < Reference::CommentBegin(Line) ? 1 : 0;
  }
  EXPECT_GT(Hidden, 300);
}
