// What the commands make of files: JSON of rules, and rules of JSON.

#include "FromJsonCommand.h"
#include "GrammarPaths.h"
#include "JsonCommand.h"
#include "PrintCommand.h"
#include "RuleGenerator.h"
#include "TestFolder.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace {

using Grammar::RunOptions;

const std::string Filled =
    "; a comment\n"
    ";;SL:THE RED CAR\n"
    ";;TL:EL AUTO ROJO\n"
    ";;C-Structure:(NP (DET) (ADJ) (N))\n"
    ";;Score:4\n"
    "{ADJP,12}\n"
    "ADJP::NP [\"of\" ADJ N] -> [DET N ADJ]\n"
    "(\n"
    ";--;(X1::Y1)\n"
    "(X2::Y3)\n"
    "((X1 NUM) = (*NOT* SG))\n"
    "((Y1 AGR TENSE) = NEXT)\n"
    "(X0 = X3)\n"
    "((X2 NUM) = (X3 GEN))\n"
    "((X2 NUM) = (X3 NUM))\n"
    "(Y1 = (Y0 DET))\n"
    ")\n";

const std::string FilledJson =
    R"j({"header":{"type":"ADJP"},"ruleIndex":12,)j"
    R"j("comments":["; a comment",";;SL:THE RED CAR",";;TL:EL AUTO ROJO",)j"
    R"j(";;C-Structure:(NP (DET) (ADJ) (N))",";;Score:4"],)j"
    R"j("slType":"ADJP","tlType":"NP","slLabels":["\"of\"","ADJ","N"],"tlLabels":["DET","N","ADJ"],)j"
    R"j("alignments":"((1,1),(2,3))","constraints":[)j"
    R"j({"category":1,"index":1,"feature":"NUM","value":"(*NOT* SG","rank":-1,"isValue":true,)j"
    R"j("lines":["((X1 NUM) = (*NOT* SG))"]},)j"
    R"j({"category":2,"index":1,"feature":"AGRTENSE","value":"NEXT","rank":-1,"isValue":true,)j"
    R"j("lines":["((Y1 AGR TENSE) = NEXT)"]},)j"
    R"j({"category":1,"index":0,"feature":"all","value":"X3","rank":-1,"isValue":false,)j"
    R"j("lines":["(X0 = X3)"]},)j"
    R"j({"category":1,"index":2,"feature":"NUM","value":"(X3","rank":-1,"isValue":false,)j"
    R"j("lines":["((X2 NUM) = (X3 GEN))","((X2 NUM) = (X3 NUM))"]},)j"
    R"j({"category":4,"index":1,"feature":"all","value":"(Y0 DET","rank":-1,"isValue":false,)j"
    R"j("lines":["(Y1 = (Y0 DET))"]}],)j"
    R"j("count":4,"slWords":["THE","RED","CAR"],"tlWords":["EL","AUTO","ROJO"],)j"
    R"j("cStructure":"(NP (DET) (ADJ) (N))","slWordLabels":["\"OF\"","ADJ","N"],)j"
    R"j("tlWordLabels":["DET","N","ADJ"],"slParseLabels":[],"tlParseLabels":[],)j"
    R"j("wordAlignments":"","slWordToComponent":[],"tlWordToComponent":[],"numbers":[],)j"
    R"j("headIndex":-1,"xHeadIndex":-1,"yHeadIndex":-1,"alternatives":{"slSentences":[],)j"
    R"j("tlSentences":[],"alignments":["((1,1),(2,3))"],"cStructures":[],)j"
    R"j("slWordToComponent":[],"tlWordToComponent":[],"slWordLabels":[],"tlWordLabels":[]}})j"
    "\n";

/// What one of the commands makes of a text.
struct Result {
  int Status;
  std::string Out;
  std::string Err;
};

template <typename RunT>
Result ResultOf(const std::string& Text, RunT Run) {
  const TestFolder Folder;
  RunOptions Options;
  Options.vsFiles = {Folder.Write("in", Text)};
  Options.Output = Folder.Path("out");
  Options.KeepBad = true;
  StreamCapture Streams;
  const int Status = Run(Options);
  return {Status, Folder.Read("out"), Streams.TakeErr()};
}

Result ToJson(const std::string& Text) {
  return ResultOf(Text, Grammar::RunJson);
}

Result FromJson(const std::string& Text) {
  return ResultOf(Text, Grammar::RunFromJson);
}

std::string PrintedText(const std::string& Text) {
  return ResultOf(Text, [](const RunOptions& Run) { return Grammar::RunPrint(Run, {}); }).Out;
}

TEST(JsonCommand, WritesEveryMember) {
  const Result Json = ToJson(Filled);
  EXPECT_EQ(Json.Out, FilledJson);
  EXPECT_EQ(Json.Err, "");
  EXPECT_EQ(Json.Status, 0);
}

using JsonValue = nlohmann::json;

std::set<std::string> NamesIn(const JsonValue& Object) {
  std::set<std::string> ssNames;
  for (const auto& [Name, Value] : Object.items()) {
    ssNames.insert(Name);
  }
  return ssNames;
}

TEST(JsonCommand, WritesTheMembersThatTheSchemaDescribes) {
  std::ifstream File(std::string(GrammarPaths::SourceFolder) + "/docs/trrule-schema.json");
  const JsonValue Kinds = JsonValue::parse(File).at("$defs");
  const JsonValue Members = Kinds.at("rule").at("properties");
  const JsonValue Rule = JsonValue::parse(FilledJson);
  EXPECT_EQ(NamesIn(Rule), NamesIn(Members));
  EXPECT_EQ(NamesIn(Rule.at("constraints").at(0)),
            NamesIn(Kinds.at("constraint").at("properties")));
  EXPECT_EQ(NamesIn(Rule.at("alternatives")), NamesIn(Members.at("alternatives").at("properties")));
  EXPECT_EQ(NamesIn(Rule.at("header")),
            NamesIn(Members.at("header").at("oneOf").at(1).at("properties")));
}

TEST(JsonCommand, LosesNothingInARoundTrip) {
  std::string Generated;
  for (const std::string& sRule : GeneratedRules(3, 500)) {
    Generated += sRule;
  }
  const std::vector<std::string> vsTexts{
      "",
      Filled,
      SampleText,
      Filled + SampleText,
      Generated,
      "NP::NP : [N] -> [N]\n(X1::Y1)\n",
      "{no header}\nNP::NP : [N] -> [N]\n(X1::Y1)\n",
      ";; caf\xE9 and caf\xC3\xA9 and \xEF\x9E\x80\n{NP,1}\nNP::NP : [\"caf\xE9\"] -> [N]\n(X1::Y1)\n"};
  for (const std::string& sText : vsTexts) {
    const Result Json = ToJson(sText);
    EXPECT_EQ(Json.Status, 0);
    const Result Back = FromJson(Json.Out);
    EXPECT_EQ(Back.Out, PrintedText(sText));
    EXPECT_EQ(Back.Err, "");
    EXPECT_EQ(Back.Status, 0);
    EXPECT_EQ(ToJson(Back.Out).Out, Json.Out);
  }
}

TEST(JsonCommand, KeepsTextThatIsNotARule) {
  const std::string Bad = "{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n";
  const Result Json = ToJson(Bad + "{NP,1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n");
  EXPECT_EQ(Json.Status, 1);
  EXPECT_EQ(Json.Out.substr(0, Json.Out.find('\n')),
            R"j({"text":"{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n"})j");
  EXPECT_EQ(FromJson(Json.Out).Out, Bad + "{NP,1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n");
  EXPECT_EQ(FromJson("{\"text\":\"; no end\"}\n" + FilledJson).Out, "; no end\n" + Filled);
  EXPECT_EQ(FromJson("{\"text\":\"in \"}\n{\"text\":\"pieces\"}\n").Out, "in pieces");
  EXPECT_EQ(ToJson("; no end").Out, "{\"text\":\"; no end\\n\"}\n");
}

}  // namespace
