// A line of JSON becomes the text of a rule, and what a rule cannot hold is reported.

#include "JsonReader.h"
#include "RuleGenerator.h"
#include "RuleJson.h"
#include "RuleReader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Grammar::JsonReader;
using Grammar::RuleFromJson;
using Texts = std::vector<std::string>;

struct Case {
  std::string Json;
  std::string Text;
  Texts vsProblems;
};

const std::string Small =
    R"j("slType":"NP","tlType":"NP","slLabels":["N"],"tlLabels":["N"],"alignments":"((1,1))")j";

/// The rule of `Small` with other lines.
std::string SmallWith(const std::string& Lines) {
  return "NP::NP [N] -> [N]\n(\n(X1::Y1)\n" + Lines + ")\n";
}

const std::string SmallText = SmallWith("");

void ExpectRead(const std::vector<Case>& Cases) {
  JsonReader Reader;
  for (const Case& Row : Cases) {
    const RuleFromJson Read = Reader.Read(Row.Json);
    EXPECT_TRUE(Read.IsRead) << Row.Json;
    EXPECT_EQ(Read.Text, Row.Text) << Row.Json;
    EXPECT_EQ(Read.vsProblems, Row.vsProblems) << Row.Json;
  }
}

TEST(JsonReader, FillsInMissingMembersAndReportsInvalidOnes) {
  ExpectRead({
      {"{" + Small + "}", SmallText, {}},
      {"{" + Small + R"j(,"header":null,"ruleIndex":-1})j", SmallText, {}},
      {"{" + Small + R"j(,"header":{"type":"XP"},"ruleIndex":30})j", "{XP,30}\n" + SmallText, {}},
      {"{" + Small + R"j(,"ruleIndex":3})j",
       SmallText,
       {"ruleIndex: a grammar cannot hold it as it is given"}},
      {"{" + Small + R"j(,"slWords":["A","CAR"],"count":2,"cStructure":"(NP)"})j",
       ";;SL: A CAR\n;;C-Structure:(NP)\n;;Score:2\n" + SmallText,
       {}},
      {"{" + Small + R"j(,"comments":[";; SL: a car"],"slWords":["A","CAR"]})j",
       ";; SL: a car\n" + SmallText,
       {}},
      {"{" + Small + R"j(,"comments":[";; SL: a car"],"slWords":["A"]})j",
       ";;SL: A\n" + SmallText,
       {}},
      {"{" + Small + R"j(,"comments":[";; SL: a car"],"slWords":["MY","CAR"]})j",
       ";;SL: MY CAR\n" + SmallText,
       {}},
      {"{" + Small + R"j(,"comments":["no comment"," ; one"]})j",
       ";; not read: no comment\n; one\n" + SmallText,
       {"comments: a grammar cannot hold it as it is given"}},
      {"{" + Small + R"j(,"numbers":[3],"headIndex":1,"nonsense":0})j",
       SmallText,
       {"numbers: a grammar cannot hold it as it is given",
        "headIndex: a grammar cannot hold it as it is given", "nonsense: unknown member"}},
      {"{" + Small + R"j(,"slType":"VP"})j",
       SmallText,
       {"slType: a grammar cannot hold it as it is given"}},
      {R"j({"text":"anything"})j", "anything", {}},
      {R"j({"text":"caf\uF7E9\n"})j", "caf\xE9\n", {}},
  });
}

/// The object of `Small` with constraints.
std::string WithConstraints(const std::string& Constraints) {
  return "{" + Small + ",\"constraints\":[" + Constraints + "]}";
}

TEST(JsonReader, ReadsAConstraintByItsLinesOrItsOtherMembers) {
  const std::string Lost = "constraints: a grammar cannot hold it as it is given";
  const std::string Differ =
      "constraints: the lines differ from the other members, which are written";
  const std::string Fields =
      R"j("category":1,"index":1,"feature":"NUM","value":"SG","isValue":true)j";
  ExpectRead({
      {WithConstraints("{" + Fields + "}"), SmallWith("((X1 NUM) = SG)\n"), {}},
      {WithConstraints("{" + Fields + R"j(,"lines":[]})j"), SmallWith("((X1 NUM) = SG)\n"), {Lost}},
      {WithConstraints("{" + Fields + R"j(,"lines":["((X1 NUM) = SG)"]})j"),
       SmallWith("((X1 NUM) = SG)\n"),
       {}},
      {WithConstraints(R"j({"lines":["((X1 NUM) = SG)"]})j"), SmallWith("((X1 NUM) = SG)\n"), {}},
      {WithConstraints(R"j({"lines":["((x1 num) = sg)"]})j"),
       SmallWith("((X1 NUM) = SG)\n"),
       {Lost}},
      // One constraint, which two lines say.
      {WithConstraints(R"j({"lines":["((X0 NUM) = (X1 GEN))","((X0 NUM) = (X1 NUM))"]})j"),
       SmallWith("((X0 NUM) = (X1 GEN))\n((X0 NUM) = (X1 NUM))\n"),
       {}},
      // What the library has dropped is not there to be kept.
      {WithConstraints(
           R"j({"category":1,"index":1,"feature":"AGRGEN","value":"(*NOT* SG","isValue":true})j"),
       SmallWith("((X1 AGRGEN) = (*NOT* SG))\n"),
       {}},
      // Someone has edited one and not the other.
      {WithConstraints("{" + Fields + R"j(,"lines":["((X1 NUM) = PL)"]})j"),
       SmallWith("((X1 NUM) = SG)\n"),
       {Differ}},
      {WithConstraints("{" + Fields + R"j(,"lines":["((X1 NUM) = PL)"]},)j" +
                       R"j({"lines":["((X1 GEN) = (*NOT* F))"]})j"),
       SmallWith("((X1 GEN) = (*NOT* F))\n((X1 NUM) = SG)\n"),
       {Differ}},
      {WithConstraints(R"j({"value":"SG","lines":["((X1 NUM) = PL)"]})j"),
       SmallWith("((X1 NUM) = PL)\n"),
       {Lost}},
      // Two values of a feature become one.
      {WithConstraints(R"j({"lines":["((X1 NUM) = SG)"]},{"lines":["((X1 NUM) = PL)"]})j"),
       SmallWith("((X1 NUM) = (*OR* SG PL))\n"),
       {Lost}},
      {WithConstraints("{" + Fields + "},{" + Fields + "}"),
       SmallWith("((X1 NUM) = SG)\n"),
       {Lost}},
      {WithConstraints("{" + Fields + R"j(,"rank":2})j"), SmallWith("((X1 NUM) = SG)\n"), {Lost}},
      {WithConstraints("{" + Fields + R"j(,"nonsense":2})j"),
       SmallWith("((X1 NUM) = SG)\n"),
       {Lost}},
      {WithConstraints(
           R"j({"category":1,"index":0,"feature":"all","value":"X1","isValue":false})j"),
       SmallWith("(X0 = X1)\n"),
       {}},
  });
}

TEST(JsonReader, RejectsWhatIsNotARule) {
  const std::string NoRule = "what is written cannot be read as one rule";
  const std::string BadAlignments = "alignments: should be a text such as ((1,1),(2,3))";
  const std::vector<Case> Cases{
      {"", "", {"not JSON, from byte 1 on"}},
      {"{\"slType\":", "", {"not JSON, from byte 11 on"}},
      {"\"\xFF\"", "", {"not JSON, from byte 2 on"}},
      {std::string("{}\0{}", 5), "", {"not JSON, from byte 3 on"}},
      {"{} {}", "", {"not JSON, from byte 4 on"}},
      {"[]", "", {"should be an object"}},
      {std::string(3000, '['), "", {"not JSON, from byte 3001 on"}},
      {std::string(1000000, '['), "", {"not JSON, from byte 1000001 on"}},
      {"{}", "", {NoRule}},
      {"{\"slType\":1}", "", {"slType: should be a text"}},
      {"{\"slType\":\"a\\nb\"}", "", {"slType: should not contain a line end"}},
      {"{\"slLabels\":\"N\"}", "", {"slLabels: should be a list of texts"}},
      {"{\"slLabels\":[1]}", "", {"slLabels: should be a list of texts"}},
      {"{\"ruleIndex\":1,\"header\":[]}", "", {"header: should be an object or null"}},
      {"{\"count\":2147483648}", "", {"count: should be a number"}},
      {"{\"count\":1.0}", "", {"count: should be a number"}},
      {"{\"constraints\":1}", "", {"constraints: should be a list"}},
      {"{\"constraints\":[1]}", "", {"constraints: should be a list of objects"}},
      {"{\"constraints\":[{}]}", "", {"category: should be a number"}},
      {WithConstraints("{}"), "", {"category: should be a number"}},
      {WithConstraints(R"j({"category":1,"index":1,"feature":"A","value":"B"})j"),
       "",
       {"isValue: should be true or false"}},
      {WithConstraints(R"j({"lines":["((x1 num = sg)"]})j"), "", {NoRule}},
      {WithConstraints(R"j({"lines":["(x1 = x0)","(x0 = x1)"]})j"), "", {NoRule}},
      {WithConstraints(R"j({"lines":["a\nb"]})j"), "", {"lines: should not contain a line end"}},
      {"{\"alignments\":\"1,1\"}", "", {BadAlignments}},
      {"{\"alignments\":\"((1,1)\"}", "", {BadAlignments}},
      {"{\"alignments\":\"((1,))\"}", "", {BadAlignments}},
      {"{\"alignments\":\"((1,1),)\"}", "", {BadAlignments}},
      {"{\"alignments\":\"()\"}", "", {BadAlignments}},
      {"{\"slType\":\"N\",\"tlType\":\"N\",\"alignments\":\"\"}", "", {NoRule}},
  };
  JsonReader Reader;
  for (const Case& Row : Cases) {
    const RuleFromJson Read = Reader.Read(Row.Json);
    EXPECT_FALSE(Read.IsRead) << Row.Json.substr(0, 100);
    EXPECT_EQ(Read.Text, "") << Row.Json.substr(0, 100);
    EXPECT_EQ(Read.vsProblems, Row.vsProblems) << Row.Json.substr(0, 100);
  }
}

/// The objects of generated rules, and of some with signs that JSON writes in another way.
Texts WrittenObjects() {
  constexpr int Count = 300;
  RuleGenerator Generator(11);
  std::string Rules =
      "{NP,1}\n;; a \"b\" \\ c\nNP::NP [\"el\" N] -> [\"a\\\\\"]\n(\n(X1::Y1)\n)\n"
      "{no header\n;; \xC3\xA9 \x01 \xFF\nN::N [N] -> [N]\n(\n(X1::Y1)\n)\n";
  for (int Rule = 0; Rule < Count; ++Rule) {
    Rules += Generator.NextRule();
  }
  Texts vsObjects;
  Grammar::RuleReader Reader(Rules);
  Grammar::RuleText Text;
  Grammar::RuleRecord Record;
  while (Reader.Next(Text)) {
    if (Record.Read(Text)) {
      Grammar::AppendJson(Record, vsObjects.emplace_back());
      vsObjects.back().pop_back();
    }
  }
  return vsObjects;
}

/// White space at the end makes an object one that has not been written by the program.
void ExpectReadAsAnyOther(const std::string& Object) {
  JsonReader Reader;
  const RuleFromJson Read = Reader.Read(Object);
  const RuleFromJson Other = Reader.Read(Object + " ");
  ASSERT_EQ(Read.IsRead, Other.IsRead) << Object;
  if (Read.IsRead) {
    EXPECT_EQ(Read.IsRule, Other.IsRule) << Object;
    EXPECT_EQ(Read.Text, Other.Text) << Object;
    EXPECT_EQ(Read.vsProblems, Other.vsProblems) << Object;
  }
}

TEST(JsonReader, ReadsAWrittenObjectAsAnyOther) {
  std::mt19937 Random(5);
  const Texts vsObjects = WrittenObjects();
  ASSERT_GT(vsObjects.size(), 200U);
  for (const std::string& sObject : vsObjects) {
    ExpectReadAsAnyOther(sObject);
    std::string sDamaged = sObject;
    sDamaged[Random() % sDamaged.size()] = static_cast<char>(' ' + Random() % 95);
    ExpectReadAsAnyOther(sDamaged);
  }
}

}  // namespace
