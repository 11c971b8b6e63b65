// The reader of rule texts: what makes a line a comment, a header, a rule line, an alignment or a
// constraint, what each of them sets, which texts are rejected with which messages, and that
// nothing read before an error is undone.

#include "TrRule.h"

#include "RuleChecks.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/ReferenceReader.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <vector>

using std::string_literals::operator""s;

namespace {

/// A rule in one line: comments, header, rule line, alignment string and the constraints in key
/// order. Removes the constraints from the rule, since not every set of constraints can be printed.
std::string Brief(TrRule& Rule) {
  std::string Constraints;
  for (const std::string& sConstraint : Rule.GetConstraints()) {
    Constraints += " | " + sConstraint;
  }
  Rule.ClearConstraints();
  std::string Text = Printed(Rule);
  Text.resize(Text.find("\n(\n"));
  return StringUtils::ReplaceAll(Text, "\n", " | ") + " | " + Rule.GetAlignmentStr() + Constraints;
}

/// The members of a rule without its printed form.
std::string Members(TrRule& Rule) {
  const std::string Text = Dump(Rule);
  return Text.substr(Text.find("SLWords: "));
}

Strings AllAlignments(const TrRule& Rule) {
  Strings vsSLSents;
  Strings vsTLSents;
  Strings vsAlignments;
  Strings vsCStructures;
  std::vector<std::map<int, int>> vmiiSL;
  std::vector<std::map<int, int>> vmiiTL;
  std::vector<Strings> vvsSL;
  std::vector<Strings> vvsTL;
  Rule.GetAllAlts(vsSLSents, vsTLSents, vsAlignments, vsCStructures, vmiiSL, vmiiTL, vvsSL, vvsTL);
  return vsAlignments;
}

struct Reading {
  bool Result = false;
  Written Streams;
};

Reading Read(TrRule& Rule, const std::string& Text) {
  Reading Read;
  Read.Streams = WrittenBy([&] { Read.Result = Rule.SetTrRuleFromString(Text); });
  return Read;
}

/// A text, and the result of reading it into a new rule.
struct Case {
  std::string Text;
  std::string Brief;
  std::string Err{};
  std::string Out{};
};

/// Reads each text after and before the given ones. A text is rejected exactly if the last message
/// is one of the reader.
void ExpectReadings(const std::string& Before, const std::vector<Case>& vCases,
                    const std::string& After) {
  const std::string ReaderError = "Error in SetTrRuleFromStr: ";
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.Text.substr(0, 80));
    TrRule Rule;
    const Reading Result = Read(Rule, Before + Row.Text + After);
    const bool Expected = Row.Err.find(ReaderError) == std::string::npos;
    EXPECT_EQ(Result.Result, Expected);
    EXPECT_EQ(Result.Streams, (Written{Row.Out, Row.Err}));
    EXPECT_EQ(AllAlignments(Rule), Expected ? Strings{Rule.GetAlignmentStr()} : Strings{});
    EXPECT_EQ(Rule.GetWordLevelSLPOS(), Rule.GetSLPOS());
    EXPECT_EQ(Rule.GetWordLevelTLPOS(), Rule.GetTLPOS());
    EXPECT_EQ(Brief(Rule), Row.Brief);
  }
}

const std::string Duplicate =
    "Error in SetTrRuleFromStr: duplicate type and const seq information.\n";
const std::string BadTypes = "Error in SetTrRuleFromStr: missing or incorrect type information.\n";
const std::string BadSL =
    "Error in SetTrRuleFromStr: missing or incorrect sl const seq information.\n";
const std::string BadTL =
    "Error in SetTrRuleFromStr: missing or incorrect tl const seq information.\n";
const std::string Missing = "Error in SetTrRuleFromStr: Couldn't set rule -- something missing.\n";

std::string BadAlignment(const std::string& Line) {
  return "Error in SetTrRuleFromStr: Alignment couldn't be set:" + Line + "\n";
}

std::string BadConstraint(const std::string& Line) {
  return "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|" + Line +
         "|\n";
}

/// The shortest complete rule, and its brief form.
const std::string Whole = "A::B [C] -> [D]\n(X1::Y1)\n";
const std::string WholeBrief = "{,-1} | A::B [C] -> [D] | ((1,1))";

/// Expects the same result, output and members from the reader and from the reference reader.
void ExpectAsReference(const std::string& Text) {
  SCOPED_TRACE(Text);
  TrRule Rule;
  const Reading Result = Read(Rule, Text);
  TrRule Other;
  Reading Expected;
  Expected.Streams = WrittenBy([&] { Expected.Result = ReferenceReader(Other).Read(Text); });
  EXPECT_EQ(Result.Result, Expected.Result);
  EXPECT_EQ(Result.Streams, Expected.Streams);
  EXPECT_EQ(MembersOf(Rule), MembersOf(Other));
}

}  // namespace

// ---- Whole texts ------------------------------------------------------------------------------

TEST(TrRuleReader, ReadsTheSample) {
  TrRule Rule;
  const Reading Result = Read(Rule, SampleText);
  EXPECT_TRUE(Result.Result);
  EXPECT_EQ(Result.Streams, (Written{"", ""}));
  EXPECT_EQ(Rule.GetNumConstraints(), 7);
  EXPECT_EQ(Dump(Rule), "Print:\n" + SamplePrinted +
                            "SLWords: { }\nvsAllSLSents: { }\n"
                            "SLPOS: { <DET> <ADJ> <N> }\nWordLevelSLPOS: { <DET> <ADJ> <N> }\n"
                            "SLPOSFromParse: { }\nTLPOSFromParse: { }\nvvsAllWordLevelSLPOSs: { }\n"
                            "TLWords: { }\nvsAllTLSents: { }\n"
                            "TLPOS: { <DET> <N> <ADJ> }\nWordLevelTLPOS: { <DET> <N> <ADJ> }\n"
                            "vvsAllWordLevelTLPOSs: { }\n"
                            "AlignmentString: <((1,1),(2,3),(3,2))>\nsWordLevelAl: <>\n"
                            "vsAllAlignments: { <((1,1),(2,3),(3,2))> }\n"
                            "CStructure: <>\nvsAllCStructures: { }\nSLType: <NP>\nTLType: <NP>\n"
                            "Constraint: <((X0 DET) = X1) category 1 rank -1>\n"
                            "Constraint: <((X0 MOD) = X2) category 1 rank -1>\n"
                            "Constraint: <(X0 = X3) category 1 rank -1>\n"
                            "Constraint: <(Y0 = X0) category 3 rank -1>\n"
                            "Constraint: <(Y1 = (Y0 DET) category 4 rank -1>\n"
                            "Constraint: <(Y2 = Y0) category 4 rank -1>\n"
                            "Constraint: <(Y3 = (Y0 MOD) category 4 rank -1>\n"
                            "RuleIndex: 8\nCSet: { }\nSLWord2Comp: { }\nvmiiAllSLWord2Comps: { }\n"
                            "TLWord2Comp: { }\nvmiiAllTLWord2Comps: { }\nNumTrExamples: 1\n"
                            "HeadIndex: -1\nXHeadIndex: -1\nYHeadIndex: -1\n");
}

TEST(TrRuleReader, RejectsTextsWithoutARuleLineOrAlignment) {
  const std::string Nothing = "{,-1} | :: [] -> [] | ";
  ExpectReadings("",
                 {{"", Nothing, Missing},
                  {"\n", Nothing, Missing},
                  {"\r\n\r\n", Nothing, Missing},
                  {"\0"s, Nothing, Missing},
                  {"junk", Nothing, Missing},
                  {";; c", ";; c | {,-1} | :: [] -> [] | ", Missing},
                  {"{NP,8}", "{NP,8} | :: [] -> [] | ", Missing},
                  {"A::B [C] -> [D]", "{,-1} | A::B [C] -> [D] | ", Missing},
                  {"(X1::Y1)", "{,-1} | :: [] -> [] | ((1,1))", Missing},
                  {"(x0 = x3)", "{,-1} | :: [] -> [] |  | (X0 = X3)", Missing},
                  {"=", "{,-1} | :: [] -> [] |  | ((Y-1 ) = )", BadConstraint("=") + Missing},
                  {Whole, WholeBrief}},
                 "");
}

TEST(TrRuleReader, ReadsTheConstraintsBeforeItReportsMissingAlignments) {
  const std::string Alignments = "(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n";
  ExpectReadings(
      "",
      {{StringUtils::ReplaceAll(SampleText, Alignments, ""),
        ";; SL: I see the red car | ;; TL: veo el auto rojo | ;; Users: 2 | {NP,8} | "
        "NP::NP [DET ADJ N] -> [DET N ADJ] |  | ((X0 DET) = X1) | ((X0 MOD) = X2) | (X0 = X3) | "
        "(Y0 = X0) | (Y1 = (Y0 DET) | (Y2 = Y0) | (Y3 = (Y0 MOD)",
        Missing}},
      "");
}

TEST(TrRuleReader, StopsAtASecondRuleLine) {
  const std::string TypeLine = "NP::NP : [DET ADJ N] -> [DET N ADJ]\n";
  ExpectReadings(
      "",
      {{StringUtils::ReplaceAll(SampleText, TypeLine, TypeLine + TypeLine),
        ";; SL: I see the red car | ;; TL: veo el auto rojo | ;; Users: 2 | {NP,8} | "
        "NP::NP [DET ADJ N] -> [DET N ADJ] | ",
        Duplicate},
       {Whole + "E::F [G] -> [H]\n(X2::Y2)", WholeBrief, Duplicate},
       {"[C] -> [D]\n(X1::Y1)\n[G] -> [H]", "{,-1} | :: [] -> [D] | ((1,1))", Duplicate}},
      "");
}

TEST(TrRuleReader, ReadsTheKindsOfLineInEveryOrder) {
  Strings vsLines{"(X1::Y1)", "(x0 = x3)", ";; c", "A::B [C] -> [D]", "{NP,8}"};
  std::sort(vsLines.begin(), vsLines.end());
  int Orders = 0;
  do {
    std::string Text;
    for (const std::string& sLine : vsLines) {
      Text += sLine + '\n';
    }
    ExpectReadings("", {{Text, ";; c | {NP,8} | A::B [C] -> [D] | ((1,1)) | (X0 = X3)"}}, "");
    ++Orders;
  } while (std::next_permutation(vsLines.begin(), vsLines.end()));
  EXPECT_EQ(Orders, 120);
}

TEST(TrRuleReader, ReadsEveryPrefixOfTheSample) {
  const std::string Windows = StringUtils::ReplaceAll(SampleText, "\n", "\r\n");
  for (const std::string& sText : {SampleText, Windows}) {
    for (std::size_t Size = 0; Size <= sText.size(); ++Size) {
      ExpectAsReference(sText.substr(0, Size));
    }
  }
}

TEST(TrRuleReader, ReadsTheSampleWithAnyByteChanged) {
  for (std::size_t Place = 0; Place < SampleText.size(); ++Place) {
    for (const char Byte : "{},;:[]()=-> \n\r\xFF"s + '\0') {
      std::string Text = SampleText;
      Text[Place] = Byte;
      ExpectAsReference(Text);
    }
  }
}

TEST(TrRuleReader, ReadsEveryPairOfLines) {
  const Strings vsLines{"",
                        "\r",
                        " ",
                        "(",
                        "junk",
                        "\0\xFF"s,
                        ";; c",
                        ";; {VP,3}",
                        ";; (X2::Y2)",
                        ";; (x0 = x3)",
                        ";; a::b",
                        ";; [E] -> [F]",
                        "{NP,8}",
                        "{NP,}",
                        "  {ADJP,12}",
                        "{NP,8} (X3::Y1)",
                        "{NP,8} (x0 = x1)",
                        "A::B [C] -> [D]",
                        "A::B : [C] -> [D] \r",
                        "[C] -> [D]",
                        "A:: B [C] -> [D]",
                        "A::B C] -> [D]",
                        "A::B [C] -> [D",
                        "A::B [] -> []",
                        "(X1::Y1)",
                        "(x2::y1)\r",
                        "(1::Y1)",
                        "(X1::Z1)",
                        "::",
                        "((x1 num) = sg)",
                        "((x1 num) = pl)",
                        "(y0 = x0))",
                        "="};
  for (const std::string& sFirst : vsLines) {
    for (const std::string& sSecond : vsLines) {
      ExpectAsReference(sFirst + '\n' + sSecond);
      ExpectAsReference(sFirst + '\n' + sSecond + '\n' + Whole);
      ExpectAsReference(Whole + sFirst + '\n' + sSecond);
    }
  }
}

// ---- Lines ------------------------------------------------------------------------------------

TEST(TrRuleReader, ClassifiesLinesByWhatTheyContain) {
  ExpectReadings("",
                 {{";; c", ";; c | " + WholeBrief},
                  {" \t ;; c  ", " \t ;; c   | " + WholeBrief},
                  {"c;;d", "c;;d | " + WholeBrief},
                  {"; c", WholeBrief},
                  {"{NP,8}", "{NP,8} | A::B [C] -> [D] | ((1,1))"},
                  {"c {NP,8} d", "{NP,8} | A::B [C] -> [D] | ((1,1))"},
                  {"(X2::Y2)", WholeBrief.substr(0, WholeBrief.size() - 1) + ",(2,2))"},
                  {" (x2::y2) ;", "{,-1} | A::B [C] -> [D] | ((1,1),(2,2))"},
                  {"(X0::Y1)", "{,-1} | A::B [C] -> [D] | ((0,1),(1,1))"},
                  {"(x0 = x3)", WholeBrief + " | (X0 = X3)"},
                  {" (x0==x3) ", WholeBrief + " | (X0 = X3)"},
                  {"(y2 = y0))", WholeBrief + " | (Y2 = Y0)"},
                  {"((x1 num) = sg)", WholeBrief + " | ((X1 NUM) = SG)"}},
                 "\n" + Whole);
}

TEST(TrRuleReader, SkipsLinesOfNoKind) {
  for (const std::string& sLine :
       {""s, "("s, ")"s, " "s, " \t\v\f"s, "junk"s, ":"s, "->"s, "] -> "s, " -> ["s, "[A] ->[B]"s,
        "}"s, "\0"s, "\xFF\x80"s, "\r"s, "\r\r"s}) {
    ExpectReadings("", {{sLine + '\n' + Whole, WholeBrief}, {Whole + sLine, WholeBrief}}, "");
  }
}

TEST(TrRuleReader, ReadsCommentsAsLinesOfOtherKindsToo) {
  const std::string Nothing = " | {,-1} | :: [] -> [] | ";
  ExpectReadings("",
                 {{";; {VP,3}", ";; {VP,3} | {VP,3} | A::B [C] -> [D] | ((1,1))"},
                  {";; (X2::Y2)", ";; (X2::Y2) | {,-1} | A::B [C] -> [D] | ((1,1),(2,2))"},
                  {";; (x0 = x3)", ";; (x0 = x3) | " + WholeBrief + " | (X0 = X3)"},
                  {";; a =", ";; a = | " + WholeBrief + " | ((Y-1 ) = )", BadConstraint(";; A =")},
                  {";; a::b", ";; a::b" + Nothing, BadAlignment(";; a::b")},
                  {";; a::b = c", ";; a::b = c" + Nothing, BadAlignment(";; a::b = c")},
                  {";; (1::Y1)", ";; (1::Y1)" + Nothing, BadAlignment(";; (1::Y1)"),
                   "ERROR in TrRule::AddAlignment: x information missing or incorrect.\n"},
                  {";; [E] -> [F]", ";; [E] -> [F] | {,-1} | :: [] -> [F] | ", Duplicate},
                  {";; A::B [C] -> [D]", ";; A::B [C] -> [D]" + Nothing, BadTypes}},
                 "\n" + Whole);
}

TEST(TrRuleReader, ReadsACommentAsTheRuleLine) {
  ExpectReadings("", {{";; [E] -> [F]", ";; [E] -> [F] | {,-1} | :: [] -> [F] | ((1,1))"}},
                 "\n(X1::Y1)");
}

TEST(TrRuleReader, ReadsALineAsAHeaderAndAsOneOtherKind) {
  ExpectReadings(
      "",
      {{"{VP,3} (X2::Y2)", "{VP,3} | A::B [C] -> [D] | ((1,1),(2,2))"},
       {"{VP,3} (x0 = x3)", "{VP,3} | A::B [C] -> [D] | ((1,1)) | (X0 = X3)"},
       {"{VP,3} (X2::Y2) =", "{VP,3} | A::B [C] -> [D] | ((1,1),(2,2))"},
       {";;{VP,3} (X2::Y2) =", ";;{VP,3} (X2::Y2) = | {VP,3} | A::B [C] -> [D] | ((1,1),(2,2))"},
       {"{VP,3} A::B [C] -> [D]", "{VP,3} | :: [] -> [] | ", BadTypes}},
      "\n" + Whole);
}

TEST(TrRuleReader, ReadsARuleLineOnlyAsAHeaderToo) {
  ExpectReadings(
      "",
      {{"(X2::Y2) = [C] -> [D]", "{,-1} | (X2::Y2) [C] -> [D] | ((1,1))"},
       {"A::B [C] -> [D] {NP,8}", "{NP,8} | A::B [C] -> [D] | ((1,1))"},
       {"A::B [C] -> [D] ;; =", "A::B [C] -> [D] ;; = | {,-1} | A::B [C] -> [D] | ((1,1))"}},
      "\n(X1::Y1)");
}

TEST(TrRuleReader, DropsOneCarriageReturnAtTheEndOfALine) {
  TrRule Plain;
  TrRule Windows;
  TrRule Other;
  Other.SetTrRuleFromString(Whole);
  EXPECT_TRUE(Read(Plain, SampleText).Result);
  ASSERT_NE(Dump(Windows), Dump(Plain));
  EXPECT_TRUE(Read(Windows, StringUtils::ReplaceAll(SampleText, "\n", "\r\n")).Result);
  EXPECT_EQ(Dump(Windows), Dump(Plain));
  EXPECT_NE(Dump(Other), Dump(Plain));
  ExpectReadings("",
                 {{";; c\r", ";; c | " + WholeBrief},
                  {";; c\r\r", ";; c\r | " + WholeBrief},
                  {";; c\r ", ";; c\r  | " + WholeBrief},
                  {";;\rc\r", ";;\rc | " + WholeBrief},
                  {"(x0 = x3)\r\r", WholeBrief + " | (X0 = X3)"}},
                 "\n" + Whole);
  ExpectReadings("", {{"a::b\r", "{,-1} | :: [] -> [] | ", BadAlignment("a::b")}}, "\n");
}

TEST(TrRuleReader, KeepsNulAndBytesOver127) {
  ExpectReadings("",
                 {{"A\0\xFF::\x80 [\xC3\xA4 \0b] -> [D]\n(X1::Y1)\n"
                   ";; \0\xE9\n{\0\xC3Q,8}\n((x1 \xE4) = \0\xFF)"s,
                   ";; \0\xE9 | {\0\xC3,8} | A\0\xFF::\x80 [\xC3\xA4 \0B] -> [D] | ((1,1))"
                   " | ((X1 \xE4) = \0\xFF)"s}},
                 "");
}

TEST(TrRuleReader, IgnoresErrorsInConstraints) {
  ExpectReadings(
      "",
      {{"((x1 num) = sg)\n((x1 num) = pl)", WholeBrief + " | ((X1 NUM) = (*OR* SG PL))", "",
        "OldFeat:|SG|\nInsertFeat:|PL|\nNewKey is now:1__1__NUM__(*OR* SG PL)\n"},
       {"(x0 = x3)\n(X0 = X3)", WholeBrief + " | (X0 = X3)"},
       {"x = y = z", WholeBrief + " | ((Y-1 ) = )", BadConstraint("X = Y = Z")},
       {"(y1 =\n(y2 = y0)", WholeBrief + " | ((Y-1 ) = ) | (Y2 = Y0)", BadConstraint("(Y1 =")}},
      "\n" + Whole);
}

// ---- Header -----------------------------------------------------------------------------------

TEST(TrRuleReader, TruncatesTheTypeAndTheNumberOfAHeader) {
  struct HeaderCase {
    std::string Line;
    std::string Header;
  };
  const std::string Unchanged = "{QQ,7}";
  const std::vector<HeaderCase> vCases{
      {"{NP,8}", "{NP,8}"},
      {"{N,8}", "{N,8}"},
      {"{,8}", "{,8}"},
      {"{ADJP,8}", "{AD,8}"},
      {"{ NP,8}", "{ N,8}"},
      {"{NP , 8}", "{NP,8}"},
      {"x{ADJP,8}", "{ADJ,8}"},
      {"  {ADJP,8}", "{ADJP,8}"},
      {"1234{NP,8}", "{NP,8}"},
      {"{{NP,8}", "{{N,8}"},
      {"{A\xC3\x84,8}", "{A\xC3,8}"},
      {"{NP,12}", "{NP,2}"},
      {"{NP,0}", "{NP,0}"},
      {"{NP,-1}", "{NP,1}"},
      {"{NP,x}", "{NP,0}"},
      {"{NP,8 }", "{NP,0}"},
      {"{NP,-}", "{NP,0}"},
      {"{NP,\xB2}", "{NP,0}"},
      {"{NP,\0}"s, "{NP,0}"},
      {"{NP,8}9}", "{NP,8}"},
      {"{NP,8} junk", "{NP,8}"},
      {"{NP,{9}", "{NP,9}"},
      {",{NP,,8}", "{NP,8}"},
      // An unreadable header leaves type and number unchanged.
      {"{", Unchanged},
      {"{NP", Unchanged},
      {"{NP}", Unchanged},
      {"{NP 8}", Unchanged},
      {"{,", Unchanged},
      {"{NP,", Unchanged},
      {"{NP,8", Unchanged},
      {"{NP,}", Unchanged},
      {"{NP,}8}", Unchanged},
      {"{NP, ,8}", Unchanged},
      {"{NP,8,}", Unchanged},
      {"{NP,8,9}", Unchanged},
      {"{NP},8", Unchanged},
      {",{", Unchanged},
      {"NP,{8}", Unchanged},
      {"NP,8}", Unchanged},
  };
  for (const HeaderCase& Row : vCases) {
    ExpectReadings("{QQ,7}\n", {{Row.Line, Row.Header + WholeBrief.substr(5)}}, "\n" + Whole);
  }
}

TEST(TrRuleReader, OverwritesAnEarlierHeader) {
  ExpectReadings("",
                 {{"{NP,8}\n{VP,9}", "{VP,9} | A::B [C] -> [D] | ((1,1))"},
                  {"{NP,8}\n{,9}", "{,9} | A::B [C] -> [D] | ((1,1))"},
                  {"{NP,8}\n;; {VP,9}", ";; {VP,9} | {VP,9} | A::B [C] -> [D] | ((1,1))"}},
                 "\n" + Whole);
}

TEST(TrRuleReader, NeedsNoHeader) {
  TrRule Rule;
  EXPECT_TRUE(Read(Rule, Whole).Result);
  EXPECT_EQ(Rule.GetRuleIndex(), -1);
}

// ---- Types and sequences ----------------------------------------------------------------------

TEST(TrRuleReader, ReadsTypesAndSequences) {
  ExpectReadings("",
                 {{"NP::NP : [DET ADJ N] -> [DET N ADJ]",
                   "{,-1} | NP::NP [DET ADJ N] -> [DET N ADJ] | ((1,1))"},
                  {"Np::vp [Det] -> [n]", "{,-1} | Np::vp [DET] -> [N] | ((1,1))"},
                  {"  A::B [C] -> [D]", "{,-1} | A::B [C] -> [D] | ((1,1))"},
                  {"A::B[C] -> [D]", "{,-1} | A::B[C] [C] -> [D] | ((1,1))"},
                  {"[A::B] -> [D]", "{,-1} | [A::B] [A::B] -> [D] | ((1,1))"},
                  {"::A::::B:: [C] -> [D]", "{,-1} | A::B [C] -> [D] | ((1,1))"},
                  {"A:B::C [C] -> [D]", "{,-1} | A:B::C [C] -> [D] | ((1,1))"},
                  {"A::B junk ] [C] -> [D] junk", "{,-1} | A::B [C] -> [D] | ((1,1))"},
                  {"A::B E::F [C] -> [D]", "{,-1} | A::B [C] -> [D] | ((1,1))"},
                  {"A::B [ C  D\t \tE ] -> [\tF\tG]", "{,-1} | A::B [C D E] -> [F\tG] | ((1,1))"},
                  {"A::B [\"le\" N] -> [\"N\"]", "{,-1} | A::B [\"LE\" N] -> [\"N\"] | ((1,1))"},
                  {"A::B [[C]] -> [[D]]", "{,-1} | A::B [[C]] -> [[D]] | ((1,1))"},
                  {"A::B [C] [D] -> [E] F]", "{,-1} | A::B [C] [D] -> [E] F] | ((1,1))"},
                  {"A::B [] -> []", "{,-1} | A::B []] -> []] | ((1,1))"},
                  {"A::B [ ] -> [ ]", "{,-1} | A::B [] -> [] | ((1,1))"}},
                 "\n(X1::Y1)");
}

TEST(TrRuleReader, OverwritesAnEarlierPartOfTheSameSide) {
  ExpectReadings("",
                 {{"A::B [C] -> [D] -> [E]", "{,-1} | A::B [C] -> [E] | ((1,1))"},
                  {"A::B [C] -> F::G [D] -> [E]", "{,-1} | F::G [D] -> [E] | ((1,1))"},
                  {"A::B [C] -> [D] -> F::G [E]", "{,-1} | F::G [E] -> [D] | ((1,1))"},
                  {" -> A::B [C] -> [D] -> ", "{,-1} | A::B [C] -> [D] | ((1,1))"}},
                 "\n(X1::Y1)");
}

TEST(TrRuleReader, ReadsPartsWithoutTypesAsTheTargetSide) {
  ExpectReadings("",
                 {{"[A B] -> [B A]", "{,-1} | :: [] -> [B A] | ((1,1))"},
                  {"[A] -> [B] -> C::D [E]", "{,-1} | C::D [E] -> [B] | ((1,1))"}},
                 "\n(X1::Y1)");
}

TEST(TrRuleReader, RejectsAnyNumberOfTypesButTwo) {
  std::vector<Case> vCases;
  for (const char* Line :
       {"NP:: NP [A] -> [B]", "::NP [A] -> [B]", ":: [A] -> [B]", "A::B::C [A] -> [B]",
        "NP [A::B] -> [B]", "x NP::NP [A] -> [B]", "\tx NP::NP [A] -> [B]"}) {
    vCases.push_back({Line, "{,-1} | :: [] -> [] | ", BadTypes});
  }
  vCases.push_back({"[A] -> [B] -> ::", "{,-1} | :: [] -> [B] | ", BadTypes});
  vCases.push_back({"A::B [C] -> [D] -> E:: [F]", "{,-1} | A::B [C] -> [D] | ", BadTypes});
  ExpectReadings("", vCases, "\n(X1::Y1)");
}

TEST(TrRuleReader, RejectsASourceSideWithoutASequence) {
  std::vector<Case> vCases;
  for (const char* Line : {"A::B C] -> [D]", "A::B ] -> [D]", "A::B [C -> [D] -> [E]",
                           "A::B [ -> [D] -> [E]", "A::B -> [D] -> [E]", "A::B ] [ -> [D] -> [E]",
                           "A::B ] [C -> [D] -> [E]", "A::B ][[ -> [D] -> [E]"}) {
    vCases.push_back({Line, "{,-1} | A::B [] -> [] | ", BadSL});
  }
  vCases.push_back({"[C] -> [D] -> A::B C]", "{,-1} | A::B [] -> [D] | ", BadSL});
  ExpectReadings("", vCases, "\n(X1::Y1)");
}

TEST(TrRuleReader, RejectsATargetSideWithoutASequence) {
  std::vector<Case> vCases;
  for (const char* Line : {"A::B [C] -> [D", "A::B [C] -> [", "A::B [C] -> D] -> [E]",
                           "A::B [C] -> ][ -> [D] -> [E]", "A::B [C] -> ] [D -> [D] -> [E]"}) {
    vCases.push_back({Line, "{,-1} | A::B [C] -> [] | ", BadTL});
  }
  vCases.push_back({"A::B [C] -> [D] -> E", "{,-1} | A::B [C] -> [D] | ", BadTL});
  vCases.push_back({"A] -> [B]", "{,-1} | :: [] -> [] | ", BadTL});
  ExpectReadings("", vCases, "\n(X1::Y1)");
}

// ---- Alignments -------------------------------------------------------------------------------

TEST(TrRuleReader, RejectsInvalidAlignments) {
  const std::string BadX = "ERROR in TrRule::AddAlignment: x information missing or incorrect.\n";
  const std::string BadY = "ERROR in TrRule::AddAlignment, y information missing or incorrect.\n";
  struct AlignmentCase {
    const char* Line;
    std::string Out;
  };
  for (const AlignmentCase& Row : std::vector<AlignmentCase>{{"::", ""},
                                                             {"X1::Y1", ""},
                                                             {"(X1::Y1", ""},
                                                             {"X1::Y1)", ""},
                                                             {")X1::Y1(", ""},
                                                             {"(X1::)", BadY},
                                                             {"(::Y1)", BadX},
                                                             {"(X1::Y1::Y2)", ""},
                                                             {"(1::Y1)", BadX},
                                                             {"(X::Y1)", BadX},
                                                             {"(Y1::X1)", BadX},
                                                             {"(X1::Z1)", BadY},
                                                             {"(X1::Y)", BadY},
                                                             {"\xFF::\x80", ""}}) {
    ExpectReadings(
        "{NP,8}\n" + Whole,
        {{Row.Line, "{NP,8} | A::B [C] -> [D] | ((1,1))", BadAlignment(Row.Line), Row.Out}},
        "\n(X2::Y2)\n{VP,9}\n(x0 = x3)");
  }
}

TEST(TrRuleReader, OrdersAlignments) {
  ExpectReadings(
      "A::B [C] -> [D]\n",
      {{"(X3::Y2)\n(x1::y1)\n(X2::Y3)\n(X1::Y1)", "{,-1} | A::B [C] -> [D] | ((1,1),(2,3),(3,2))"}},
      "");
}

// ---- Long texts -------------------------------------------------------------------------------

TEST(TrRuleReader, ReadsAHundredThousandBytesAfterTheFirstLine) {
  const std::string Start = "A::B [C] -> [D]\n";
  const std::string Lines = "(X1::Y1)\n";
  const std::string Last = "\n(x0 = x3)";
  const std::string Fill(100000 - Lines.size() - Last.size(), '.');
  ASSERT_EQ((Lines + Fill + Last).size(), 100000U);
  const std::string First(200000, '.');
  ExpectReadings(
      "",
      {{Start + Lines + Fill + Last, WholeBrief + " | (X0 = X3)"},
       {Start + Lines + Fill + Last + "\n(x0 = x4)", WholeBrief + " | (X0 = X3)"},
       {Start + Lines + Fill + "." + Last, WholeBrief + " | (X0 = )"},
       {Start + Lines + Fill + std::string(4, '.') + Last, WholeBrief + " | ((Y-1 ) = )",
        BadConstraint("(X0 =")},
       {Start + Lines + Fill + std::string(10, '.') + Last, WholeBrief},
       {Start + std::string(100000, '.') + "\n" + Lines, "{,-1} | A::B [C] -> [D] | ", Missing},
       {First + "\n" + Whole, WholeBrief},
       {";;" + First + "\n" + Whole, ";;" + First + " | " + WholeBrief},
       // An empty line counts as the first line, too.
       {"\n" + Start + Lines + std::string(100000, '.') + Last, WholeBrief},
       {First, "{,-1} | :: [] -> [] | ", Missing}},
      "");
}

TEST(TrRuleReader, ReadsALineAtTheLimitInPart) {
  const std::string Start = "A::B [C] -> [D]\n";
  const auto WithLastLine = [&](const std::string& Kept, const std::string& Lost) {
    const std::string Lines = "(X1::Y1)\n";
    const std::string Fill(100000 - Lines.size() - 1 - Kept.size(), '.');
    return Start + Lines + Fill + "\n" + Kept + Lost;
  };
  ExpectReadings("",
                 {{WithLastLine("(X2::Y3)", ""), "{,-1} | A::B [C] -> [D] | ((1,1),(2,3))"},
                  {WithLastLine("(X2::Y3", ")"), WholeBrief, BadAlignment("(X2::Y3")},
                  {WithLastLine("(X2::", "Y3)"), WholeBrief, BadAlignment("(X2::")},
                  {WithLastLine("(X2:", ":Y3)"), WholeBrief},
                  {WithLastLine("((y1 num) = sg)", ""), WholeBrief + " | ((Y1 NUM) = SG)"},
                  {WithLastLine("((y1 num) = sg", ")"), WholeBrief + " | ((Y1 NUM) = )"},
                  {WithLastLine("((y1 num) = s", "g)"), WholeBrief + " | ((Y1 NUM) = )"},
                  {WithLastLine("((y1 num) =", " sg)"), WholeBrief + " | ((Y-1 ) = )",
                   BadConstraint("((Y1 NUM) =")},
                  {WithLastLine("((y1 num) ", "= sg)"), WholeBrief},
                  {WithLastLine("(x0 = x3", ")"), WholeBrief + " | (X0 = )"}},
                 "");
  // The last constraint now refers to nothing, which is only noticed when the rule is written.
  TrRule Rule;
  ASSERT_TRUE(Read(Rule, WithLastLine("(x0 = x3", ")")).Result);
  EXPECT_EQ(RunInChild([&] { Rule.ReturnAsStringForPrint(); }),
            (ChildEnd{1, "",
                      "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for "
                      "constraint (X0 = )\n"}));
}

TEST(TrRuleReader, ReadsAHundredThousandBytesAfterACutInsideALine) {
  const std::string Fill(99998, 'x');
  ExpectReadings("",
                 {{"{NP," + Fill + "8}", "{NP,8} | A::B [C] -> [D] | ((1,1))"},
                  {"{NP," + Fill + "x8}", WholeBrief}},
                 "\n" + Whole);
  ExpectReadings("",
                 {{"A::B [C] -> [D]" + Fill.substr(3), WholeBrief},
                  {"A::B [C] -> " + Fill + "x[] -> [D]", "{,-1} | A::B [C] -> [] | ", BadTL}},
                 "\n(X1::Y1)");
}

// ---- Filled rules -----------------------------------------------------------------------------

TEST(TrRuleReader, AddsToTheContentsOfTheRule) {
  TrRule Rule;
  EXPECT_TRUE(Read(Rule,
                   ";; a\n{NP,8}\nNP::VP [DET N] -> [N DET]\n(X2::Y1)\n(x0 = x3)\n"
                   "((x1 num) = sg)")
                  .Result);
  const Reading Again = Read(Rule, ";; b\nS::S [V] -> [V]\n(X1::Y2)\n(y0 = x0)\n((x1 num) = pl)");
  EXPECT_TRUE(Again.Result);
  EXPECT_EQ(
      Again.Streams,
      (Written{"OldFeat:|SG|\nInsertFeat:|PL|\nNewKey is now:1__1__NUM__(*OR* SG PL)\n", ""}));
  EXPECT_EQ(AllAlignments(Rule), (Strings{"((2,1))", "((1,2),(2,1))"}));
  EXPECT_EQ(Brief(Rule),
            ";; a | ;; b | {NP,8} | S::S [V] -> [V] | ((1,2),(2,1)) | (X0 = X3) | "
            "((X1 NUM) = (*OR* SG PL)) | (Y0 = X0)");
}

TEST(TrRuleReader, ReadsTheSampleTwiceIntoOneRule) {
  TrRule Rule;
  EXPECT_TRUE(Read(Rule, SampleText).Result);
  const Reading Again = Read(Rule, SampleText);
  EXPECT_TRUE(Again.Result);
  EXPECT_EQ(Again.Streams, (Written{"", ""}));
  EXPECT_EQ(AllAlignments(Rule), (Strings{"((1,1),(2,3),(3,2))", "((1,1),(2,3),(3,2))"}));
  const std::string Comments = SamplePrinted.substr(0, SamplePrinted.find('{'));
  EXPECT_EQ(Printed(Rule), Comments + SamplePrinted);
}

TEST(TrRuleReader, LeavesOtherMembersUnchanged) {
  TrRule Rule;
  Rule.SetSLWords("le chat");
  Rule.SetTLWords("the cat");
  Rule.AddAlterTrInfo("sl", "tl", "al", "cs", {{1, 2}}, {{3, 4}}, {"a"}, {"b"});
  Rule.SetSLPOSFromParse("P Q");
  Rule.SetsWordLevelAl("((1,1))");
  Rule.SetCStructure("(S)");
  Rule.SetCSet({1, 2});
  Rule.SetNumTrExamples(5);
  Rule.SetHeadIndex(6);
  Rule.SetXHeadIndex(7);
  Rule.SetYHeadIndex(8);
  EXPECT_TRUE(Read(Rule, "{NP,3}\nA::B [C D] -> [E]\n(X1::Y1)\n(x0 = x3)").Result);
  EXPECT_EQ(Members(Rule),
            "SLWords: { <LE> <CHAT> }\nvsAllSLSents: { <sl> }\nSLPOS: { <C> <D> }\n"
            "WordLevelSLPOS: { <C> <D> }\nSLPOSFromParse: { <P> <Q> }\nTLPOSFromParse: { }\n"
            "vvsAllWordLevelSLPOSs: { { <a> } }\nTLWords: { <THE> <CAT> }\n"
            "vsAllTLSents: { <tl> }\nTLPOS: { <E> }\nWordLevelTLPOS: { <E> }\n"
            "vvsAllWordLevelTLPOSs: { { <b> } }\nAlignmentString: <((1,1))>\n"
            "sWordLevelAl: <((1,1))>\nvsAllAlignments: { <al> <((1,1))> }\nCStructure: <(S)>\n"
            "vsAllCStructures: { <cs> }\nSLType: <A>\nTLType: <B>\n"
            "Constraint: <(X0 = X3) category 1 rank -1>\nRuleIndex: 3\nCSet: { 1 2 }\n"
            "SLWord2Comp: { 0->0 1->1 }\nvmiiAllSLWord2Comps: { { 1->2 } }\n"
            "TLWord2Comp: { }\nvmiiAllTLWord2Comps: { { 3->4 } }\nNumTrExamples: 5\n"
            "HeadIndex: 6\nXHeadIndex: 7\nYHeadIndex: 8\n");
}

TEST(TrRuleReader, UndoesNothingOnFailure) {
  TrRule Rule;
  EXPECT_TRUE(Read(Rule, SampleText).Result);
  EXPECT_FALSE(Read(Rule, ";; d\n{VP,9}\n(X1::Y2)\n(x0 = x1)\nS::S [V] -> [V\n(X9::Y9)").Result);
  EXPECT_EQ(AllAlignments(Rule), Strings{"((1,1),(2,3),(3,2))"});
  EXPECT_EQ(Brief(Rule),
            ";; SL: I see the red car | ;; TL: veo el auto rojo | ;; Users: 2 | ;; d | {VP,9} | "
            "S::S [V] -> [DET N ADJ] | ((1,1),(1,2),(2,3),(3,2)) | ((X0 DET) = X1) | "
            "((X0 MOD) = X2) | (X0 = X1) | (X0 = X3) | (Y0 = X0) | (Y1 = (Y0 DET) | (Y2 = Y0) | "
            "(Y3 = (Y0 MOD)");
}

// ---- Traces -----------------------------------------------------------------------------------

TEST(TrRuleReader, TracesAtLevelOneAndTheOrderOfAlignmentsAtLevelFour) {
  const std::string Text = ";; c\n{NP,8}\nA::B : [C] -> [D E]\n(x1::y1);\n(x0 = x3)\n";
  const std::string Print = ";; c\n{NP,8}\nA::B [C] -> [D E]\n(\n(X1::Y1)\n(X0 = X3)\n)\n";
  const Strings vsOutAtLevel{"",
                             "TrRule::SetTrRuleFromString: TypeAndConstSeq part is A::B : [C]\n"
                             "Setting SL type:A\n"
                             "Setting TL type:B\n"
                             "Now printing inited SLWord2Comp map.\n0--0\n"
                             "Now printing inited SLWord2Comp map (from SetSLPOS).\n0--0\n"
                             "Now printing inited SLWord2Comp map.\n0--0\n"
                             "Now printing inited SLWord2Comp map (from SetWordLevelSLPOS).\n0--0\n"
                             "TrRule::SetTrRuleFromString: TypeAndConstSeq part is [D E]\n"
                             "Now printing inited TLWord2Comp map.\n"
                             "Now printing inited TLWord2Comp map (from SetTLPOS).\n"
                             "Now printing inited TLWord2Comp map.\n"
                             "Now printing inited TLWord2Comp map (from SetWordLevelTLPOS).\n"
                             "In TrRule::AddAlignment, string is:|(X1::Y1);|\n"
                             "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
                             "At the end of AddAlignment, AlignmentString is:((1,1))\n"
                             "Successfully read in a transfer rule from a string:\n" +
                                 Print,
                             "",
                             "",
                             "In ReorderAlignments, AlignmentString is:((1,1))"
                             "At the end of ReorderAlignments, AlignmentString is:((1,1))\n",
                             ""};
  for (std::size_t Level = 0; Level < vsOutAtLevel.size(); ++Level) {
    SCOPED_TRACE(Level);
    TrRule Rule;
    Rule.SetSLWords("le");
    const DebugLevel Set(static_cast<int>(Level));
    const Reading Result = Read(Rule, Text);
    EXPECT_TRUE(Result.Result);
    EXPECT_EQ(Result.Streams, (Written{vsOutAtLevel[Level], ""}));
    const DebugLevel Quiet(0);
    EXPECT_EQ(Printed(Rule), Print);
  }
}

TEST(TrRuleReader, TracesUpToTheErrorAtLevelOneAndReportsItAtEveryLevel) {
  const std::string Part = "TrRule::SetTrRuleFromString: TypeAndConstSeq part is ";
  const std::string Types = "Setting SL type:A\nSetting TL type:B\n";
  const std::string SLMaps =
      "Now printing inited SLWord2Comp map.\n"
      "Now printing inited SLWord2Comp map (from SetSLPOS).\n"
      "Now printing inited SLWord2Comp map.\n"
      "Now printing inited SLWord2Comp map (from SetWordLevelSLPOS).\n";
  const std::vector<Case> vCases{
      {"A::B::C [C] -> [D]", "", BadTypes, Part + "A::B::C [C]\n"},
      {"A::B C] -> [D]", "", BadSL, Part + "A::B C]\n" + Types},
      {"A::B [C] -> [D", "", BadTL, Part + "A::B [C]\n" + Types + SLMaps + Part + "[D\n"},
      {"a::b)", "", BadAlignment("a::b)"), "In TrRule::AddAlignment, string is:|A::B)|\n"},
      {"(x0 = x3)", "", Missing, ""}};
  for (const Case& Row : vCases) {
    for (const int Level : {0, 1, 2, 3, 4}) {
      SCOPED_TRACE(Row.Text + " at level " + std::to_string(Level));
      TrRule Rule;
      const DebugLevel Set(Level);
      const Reading Result = Read(Rule, Row.Text);
      EXPECT_FALSE(Result.Result);
      EXPECT_EQ(Result.Streams, (Written{Level == 1 ? Row.Out : "", Row.Err}));
    }
  }
}

TEST(TrRuleReader, EndsTheProcessOnlyWhenItsTraceCannotPrintTheRule) {
  const std::string Text =
      "{NP,8}\n[C] -> [D]\n(X1::Y1)\n((x1 num) = (x2 num))\n((x2 num) = (x1 num))\n";
  TrRule Rule;
  const Reading Quiet = Read(Rule, Text);
  EXPECT_TRUE(Quiet.Result);
  EXPECT_EQ(Quiet.Streams, (Written{"", ""}));
  const ChildEnd End = RunInChild([&] {
    const DebugLevel Set(1);
    TrRule Other;
    Other.SetTrRuleFromString(Text);
  });
  const std::string TLMaps =
      "Now printing inited TLWord2Comp map.\n"
      "Now printing inited TLWord2Comp map (from SetTLPOS).\n"
      "Now printing inited TLWord2Comp map.\n"
      "Now printing inited TLWord2Comp map (from SetWordLevelTLPOS).\n";
  EXPECT_EQ(End,
            (ChildEnd{1,
                      "TrRule::SetTrRuleFromString: TypeAndConstSeq part is [C]\n" + TLMaps +
                          "TrRule::SetTrRuleFromString: TypeAndConstSeq part is [D]\n" + TLMaps +
                          "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
                          "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
                          "At the end of AddAlignment, AlignmentString is:((1,1))\n"
                          "Successfully read in a transfer rule from a string:\n"
                          "{NP,8}\n:: [] -> [D]\n(\n(X1::Y1)\n",
                      "TrRule::IsLexicalized called with invalid x index:1, where there are "
                      "0 indices.\n"
                      "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve "
                      "Category1 order.\n"}));
}
