// The object of a rule has what the library's record holds, and what the normal form says besides.

#include "RuleJson.h"

#include "GrammarSupport.h"
#include "JsonReader.h"
#include "JsonText.h"
#include "RuleGenerator.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

using JsonValue = nlohmann::json;

/// Rules that the library's record holds less of than the normal form.
const std::vector<std::string> OddRules{
    SampleText,
    "NP::NP : [\"el\" N] -> [N \"the\"]\n(\n(X01::Y2)\n(X2::Y1)\n(X1::Y2)\n"
    "((x2 agr gen) = (y1 gen agr))\n((x2 num) = (*NOT* sg pl))\n((y1 def) = NEXT)\n)\n",
    "; a\n;; SL:  a  b\tc \n;;TL: d\n;; C-Structure: (NP)\n;;Score: 12 or so\n{no header}\n"
    "np::VP : [a\tb] -> [c]\n(X1::Y1)\n((x1 num) = sg)\n((x1 num) = pl)\n((x0 a) = (x1 b))\n"
    "((x0 a) = (x1 a))\n(y1 = (y0 det))\n",
    "{NP,-3}\nNP::NP : [N] -> [N]\n(X1::Y1)\n((x1 a__b) = c)\n((x1 a) = d)\n",
    "\xC3\xA9::NP : [\"caf\xE9\"] -> [N]\n(X1::Y1)\n((x1 num) = \"\xEF\x9E\x80\x01\\ \")\n",
};

/// Rules from the generator and the odd ones, each with what the record holds of it.
template <typename UseT>
void ForEachRule(UseT Use) {
  std::vector<std::string> vsRules = GeneratedRules(3, 300);
  vsRules.insert(vsRules.end(), OddRules.begin(), OddRules.end());
  for (const std::string& sRule : vsRules) {
    SCOPED_TRACE(sRule);
    OwnedRecord Record;
    std::vector<Grammar::Finding> vFindings;
    ASSERT_TRUE(Record.ReadFirst(sRule, vFindings));
    std::string Line;
    AppendJson(Record, Line);
    Use(Record, Line);
  }
}

using Fields = std::tuple<int, int, std::string, std::string, int, bool>;

std::multiset<Fields> ConstraintsOf(const TrRule& Rule) {
  std::multiset<Fields> Result;
  for (const int Category : {-1, 1, 2, 3, 4}) {
    for (const Constraint& Stored : Rule.GetConstraintsAsSetC(Category)) {
      Result.emplace(Stored.GetCategory(), Stored.GetConstrainedIndex(),
                     Grammar::ToUnicode(Stored.GetFeature()),
                     Grammar::ToUnicode(Stored.GetFeatValue()), Stored.GetRankInCategory(),
                     Stored.IsValueConstraint());
    }
  }
  return Result;
}

std::multiset<Fields> ConstraintsOf(const JsonValue& Object) {
  std::multiset<Fields> Result;
  for (const JsonValue& Value : Object.at("constraints")) {
    Result.emplace(Value.at("category"), Value.at("index"), Value.at("feature"), Value.at("value"),
                   Value.at("rank"), Value.at("isValue"));
  }
  return Result;
}

JsonValue TextsOf(const Strings& vsTexts) {
  JsonValue Result = JsonValue::array();
  for (const std::string& sText : vsTexts) {
    Result.push_back(Grammar::ToUnicode(sText));
  }
  return Result;
}

JsonValue PairsOf(const std::map<int, int>& miiPairs) {
  JsonValue Result = JsonValue::array();
  for (const auto& [Word, Component] : miiPairs) {
    Result.push_back({Word, Component});
  }
  return Result;
}

/// All of the record that has a member of its own and does not differ in the normal form.
JsonValue MembersOf(const TrRule& Rule) {
  return {{"ruleIndex", Rule.GetRuleIndex()},
          {"slType", Grammar::ToUnicode(Rule.GetSLType())},
          {"tlType", Grammar::ToUnicode(Rule.GetTLType())},
          {"alignments", Rule.GetAlignmentStr()},
          {"count", Rule.GetNumTrExamples()},
          {"slWords", TextsOf(Rule.GetSLWords())},
          {"tlWords", TextsOf(Rule.GetTLWords())},
          {"cStructure", Grammar::ToUnicode(Rule.GetCStructure())},
          {"slWordLabels", TextsOf(Rule.GetWordLevelSLPOS())},
          {"tlWordLabels", TextsOf(Rule.GetWordLevelTLPOS())},
          {"slParseLabels", TextsOf(Rule.GetSLPOSFromParse())},
          {"tlParseLabels", TextsOf(Rule.GetTLPOSFromParseAfterFlipping())},
          {"wordAlignments", Rule.GetsWordLevelAl()},
          {"slWordToComponent", PairsOf(Rule.GetSLWord2Comp())},
          {"tlWordToComponent", PairsOf(Rule.GetTLWord2Comp())},
          {"numbers", Rule.GetCSet()},
          {"headIndex", Rule.GetHeadIndex()},
          {"xHeadIndex", Rule.GetXHeadIndex()},
          {"yHeadIndex", Rule.GetYHeadIndex()}};
}

JsonValue AlternativesOf(const TrRule& Rule) {
  Strings vsSLSents, vsTLSents, vsAlignments, vsStructures;
  std::vector<std::map<int, int>> vmiiSL, vmiiTL;
  std::vector<Strings> vvsSL, vvsTL;
  Rule.GetAllAlts(vsSLSents, vsTLSents, vsAlignments, vsStructures, vmiiSL, vmiiTL, vvsSL, vvsTL);
  return {{"slSentences", vsSLSents},    {"tlSentences", vsTLSents},
          {"alignments", vsAlignments},  {"cStructures", vsStructures},
          {"slWordToComponent", vmiiSL}, {"tlWordToComponent", vmiiTL},
          {"slWordLabels", vvsSL},       {"tlWordLabels", vvsTL}};
}

TEST(RuleJson, HasTheMembersOfTheRecord) {
  ForEachRule([](const OwnedRecord& Record, const std::string& Line) {
    const TrRule Rule = Record.Rule();
    const JsonValue Object = JsonValue::parse(Line);
    const JsonValue Expected = MembersOf(Rule);
    for (const auto& [Name, Value] : Expected.items()) {
      EXPECT_EQ(Object.at(Name), Value) << Name;
    }
    EXPECT_EQ(Object.at("alternatives"), AlternativesOf(Rule));
    EXPECT_EQ(ConstraintsOf(Object), ConstraintsOf(Rule));
  });
}

std::string JoinedTexts(const JsonValue& Texts, const std::string& Separator) {
  std::string Joined;
  for (const JsonValue& Value : Texts) {
    Joined += (Joined.empty() ? "" : Separator) + Grammar::ToBytes(Value.get<std::string>());
  }
  return Joined;
}

TEST(RuleJson, HasTheLabelsAndConstraintLinesOfTheNormalForm) {
  ForEachRule([](const OwnedRecord& Record, const std::string& Line) {
    const JsonValue Object = JsonValue::parse(Line);
    const std::string Block = Record.Block();
    const std::string Head = Grammar::ToBytes(Object.at("slType").get<std::string>()) +
                             "::" + Grammar::ToBytes(Object.at("tlType").get<std::string>()) +
                             " [" + JoinedTexts(Object.at("slLabels"), " ") + "] -> [" +
                             JoinedTexts(Object.at("tlLabels"), " ") + "]\n";
    std::string Lines;
    for (const JsonValue& Value : Object.at("constraints")) {
      Lines += JoinedTexts(Value.at("lines"), "\n") + "\n";
    }
    EXPECT_EQ(Block.substr(0, Head.size()), Head);
    const std::string End = Lines + ")";
    ASSERT_GE(Block.size(), End.size());
    EXPECT_EQ(Block.substr(Block.size() - End.size()), End);
  });
}

TEST(RuleJson, IsReadBackAsTheNormalForm) {
  Grammar::JsonReader Reader;
  ForEachRule([&](const OwnedRecord& Record, const std::string& Line) {
    std::string Form;
    AppendNormalForm(Record, {}, Form);
    const Grammar::RuleFromJson Back = Reader.Read(Line.substr(0, Line.size() - 1));
    EXPECT_EQ(Back.Text, Form);
    EXPECT_EQ(Back.vsProblems, Strings());
    EXPECT_TRUE(Back.IsRead && Back.IsRule);
    // Whatever the order of its members.
    const Grammar::RuleFromJson Sorted = Reader.Read(JsonValue::parse(Line).dump());
    EXPECT_EQ(Sorted.Text, Form);
    EXPECT_EQ(Sorted.vsProblems, Strings());
  });
}

TEST(RuleJson, IsEmptyForATruncatedRule) {
  Grammar::JsonReader Reader;
  ForEachRule([&](const OwnedRecord&, const std::string& Line) {
    for (std::size_t Size = 0; Size + 1 < Line.size(); Size += 7) {
      EXPECT_FALSE(Reader.Read(Line.substr(0, Size)).IsRead) << Size;
    }
  });
}

}  // namespace
