// What is said of rules and texts: stops, clashes, what was made, chains, rules that are left out,
// each with its whole text. Sections: answers, tables, JSON, names.

#include "DiagnosisWriter.h"
#include "RuleDescription.h"
#include "RuleDiagnosis.h"
#include "TranslateSupport.h"
#include "WhyAnswers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// ---- Answers ----------------------------------------------------------------------------------

/// A word, its type, and a line of constraints each.
std::string Word(const std::string& Type, const std::string& Source, const std::string& Target,
                 const std::string& Constraints = "") {
  return Type + "::" + Type + " : [\"" + Source + "\"] -> [\"" + Target + "\"]\n(\n(X1::Y1)\n" +
         Constraints + ")\n";
}

/// The rule that is asked about stands first, on line 2.
std::string Np(const std::string& Constraints = "((x1 num) = (x2 num))\n") {
  return "{NP,4}\nNP::NP : [ADJ N] -> [N ADJ]\n(\n(X1::Y2)\n(X2::Y1)\n" + Constraints + ")\n";
}

const std::string Words = Word("ADJ", "red", "rojo", "((x0 num) = pl)\n") +
                          Word("N", "car", "auto", "((x0 num) = sg)\n") +
                          Word("N", "cars", "autos", "((x0 num) = pl)\n");

struct Case {
  std::string Grammar;
  std::string Text;
  std::string Expected;
};

void ExpectAll(const std::vector<Case>& Cases) {
  for (const Case& Row : Cases) {
    EXPECT_EQ(WhyAnswers(Row.Grammar).Plain(0, Row.Text), Row.Expected) << Row.Grammar << Row.Text;
  }
}

// ---- Tables -----------------------------------------------------------------------------------

TEST(Why, NamesTheUnmatchedComponentAndWhatBeginsThere) {
  const std::string Verb = Word("V", "runs", "corre");
  ExpectAll({
      {Np() + Words, "red", "NP,4 fits x1 at \"red\"; x2 wants N::N, and the text ends there\n"},
      {Np() + Words + Verb, "red runs",
       "NP,4 fits x1 at \"red\"; x2 wants N::N, and at \"runs\" begins V::V \"runs\"\n"
       "NP,4 does not begin at \"runs\"; x1 wants ADJ::ADJ, and at \"runs\" begins V::V \"runs\"\n"},
      {Np() + Words, "red bus",
       "NP,4 fits x1 at \"red\"; x2 wants N::N, and no constituent begins at \"bus\"\n"
       "NP,4 does not begin at \"bus\"; x1 wants ADJ::ADJ, and no constituent begins at \"bus\"\n"},
      // A literal; and a place whose constituent is not translated, so that its target is free.
      {"P::P : [A \"of\" N] -> [N]\n(X3::Y1)\n" + Word("A", "b", "x"), "b on",
       "a.trr:1 fits x1 at \"b\"; x2 wants the word \"OF\", and no constituent begins at \"on\"\n"
       "a.trr:1 does not begin at \"on\"; x1 wants A, and no constituent begins at \"on\"\n"},
      // Several positions.
      {"P::P : [A N] -> [N]\n(X2::Y1)\nA::A : [\"b\" \"c\"] -> [\"x\"]\n(X1::Y1)\n" +
           Word("A", "b", "x") + Word("C", "c", "x"),
       "b c d",
       "a.trr:1 fits x1 at \"b\" and \"b c\"; x2 wants N::N, and at \"c\" begins C::C \"c\" and no "
       "constituent begins at \"d\"\n"
       "a.trr:1 does not begin at \"c\"; x1 wants A, and at \"c\" begins C::C \"c\"\n"
       "a.trr:1 does not begin at \"d\"; x1 wants A, and no constituent begins at \"d\"\n"},
  });
}

TEST(Why, NamesEquationsThatClashAndWhereTheirValuesComeFrom) {
  const std::string After =
      "NP,4 does not begin at \"car\"; x1 wants ADJ::ADJ, and at \"car\" begins N::N \"car\"\n";
  const std::string Fails = "NP,4 fits x1–x2 at \"red car\"; it fails at ";
  ExpectAll({
      {Np() + Words, "red car",
       Fails + "((x1 num) = (x2 num)), line 6: x1 has PL from a.trr:11, x2 has SG from a.trr:16\n" +
           After},
      {Np("((x1 num) = du)\n((x1 num) = tr)\n((x2 num) = pl)\n") + Words, "red car",
       Fails +
           "((x1 num) = du), lines 6 and 7: (x1 NUM) has PL from a.trr:13, and DU|TR is wanted; "
           "and at ((x2 num) = pl), line 8: (x2 NUM) has SG from a.trr:18, and PL is wanted\n" +
           After},
      {Np("(x1 = x2)\n") + Words, "red car",
       Fails + "(x1 = x2), line 6: (x1 NUM) has PL from a.trr:11, (x2 NUM) has SG from a.trr:16\n" +
           After},
      {Np("((x2 num f) = p)\n") + Words, "red car",
       Fails + "((x2 num f) = p), line 6: (x2 NUM) has SG from a.trr:16, and no features\n" +
           After},
      {Np("((y0 num) = (x1 num))\n((y0 num) = sg)\n") + Words, "red car",
       Fails + "((y0 num) = sg), line 7: (y0 NUM) has PL from a.trr:12, and SG is wanted\n" +
           After},
      {Np("((y0 num) = (x1 num))\n((y0 num) = (x2 num))\n") + Words, "red car",
       Fails +
           "((y0 num) = (x2 num)), line 7: y0 has PL from a.trr:12, x2 brings SG from a.trr:17\n" +
           After},
      {Np("((x0 a) = x0)\n") + Words, "red car",
       Fails +
           "((x0 a) = x0), line 6: a structure would contain itself: (x0 A) has [], x0 has []\n" +
           After},
  });
}

TEST(Why, ListsTheFirstTenCombinationsInTheOrderOfRules) {
  std::string Many = Np("((x1 num) = (x2 num))\n") + Word("N", "car", "auto", "((x0 num) = sg)\n");
  std::string Expected;
  for (int Count = 0; Count < 12; ++Count) {
    Many += Word("ADJ", "red", "rojo", "((x0 num) = pl)\n");
    if (Count < 10) {
      const std::string Line = std::to_string(13 + 5 * Count);
      Expected += "NP,4 fits x1–x2 at \"red car\" with a.trr:" + Line +
                  " and a.trr:8; it fails at ((x1 num) = (x2 num)), line 6: x1 has PL from a.trr:" +
                  std::to_string(16 + 5 * Count) + ", x2 has SG from a.trr:11\n";
    }
  }
  EXPECT_EQ(WhyAnswers(Many).Plain(0, "red car"),
            Expected +
                "  and 2 more fail\n"
                "NP,4 does not begin at \"car\"; x1 wants ADJ::ADJ, and at \"car\" begins N::N "
                "\"car\"\n");
}

TEST(Why, ReportsWhatWasBuiltAndWhetherItIsUsed) {
  const std::string Rule = "{N,1}\n" + Word("N", "car", "auto", "((x0 num) = sg)\n");
  const std::string Made = "N,1 makes N::N of \"car\": [NUM=SG] -> [], words \"auto\"; it is in ";
  const std::string NoRun =
      "N,1 does not begin at \"bus\"; x1 wants the word \"CAR\", and no "
      "constituent begins at \"bus\"\n";
  ExpectAll({
      {Rule, "car", Made + "the best derivation\n"},
      {Rule + ";;Score: 9\n" + Word("N", "car", "coche"), "car",
       Made + "a derivation of the text, but not in the best\n"},
      {Rule, "car bus",
       Made + "no derivation of the text: no rule has a place for N::N \"car\"\n" + NoRun},
      {Rule + "{P,1}\nP::P : [N V] -> [N V]\n(X1::Y1)\n(X2::Y2)\n", "car bus",
       Made +
           "no derivation of the text: above N::N \"car\" P,1 could take it as x1, but x2 wants "
           "V::V at \"bus\"\n" +
           NoRun},
      {Rule + "{P,1}\nP::P : [V N] -> [V N]\n(X1::Y1)\n(X2::Y2)\n", "car bus",
       Made +
           "no derivation of the text: above N::N \"car\" P,1 could take it as x2, but x1 wants "
           "V::V before \"car\"\n" +
           NoRun},
      {Rule + "{P,1}\nP::P : [N] -> [N]\n(X1::Y1)\n((x1 num) = pl)\n", "car bus",
       Made +
           "no derivation of the text: above N::N \"car\" P,1 could take it as x1, but its "
           "equations clash\n" +
           NoRun},
      // What is made of it is what lacks something.
      {Rule + "{P,1}\nP::P : [N] -> [N]\n(X1::Y1)\n", "car bus",
       Made + "no derivation of the text: no rule has a place for P::P \"car\"\n" + NoRun},
  });
}

TEST(Why, ReportsATypeThatIsNotAStartType) {
  WhyAnswers Why("{N,1}\n" + Word("N", "car", "auto") + Word("S", "bus", "bus"));
  Why.Options.HasStarts = true;
  Why.Options.vStarts = {Why.Engine.Set().FindSourceType("S")};
  EXPECT_EQ(Why.Plain(0, "car"),
            "N,1 makes N::N of \"car\": [] -> [], words \"auto\"; it is in no derivation of the "
            "text: N::N \"car\" is the whole text, and its type is not a start type\n");
}

TEST(Why, ReportsWhatChainsOfUnaryRulesPrevent) {
  const std::string Grammar = "{A,1}\nA::A : [A] -> [A]\n(X1::Y1)\n{A,2}\n" + Word("A", "a", "x") +
                              "{A,3}\nA::A : [A] -> [A]\n(X1::Y1)\n";
  const std::string Chain = "A,1 fits x1 at \"a\" with ";
  WhyAnswers Why(Grammar);
  Why.Options.Limits.MaxChain = 1;
  EXPECT_EQ(Why.Plain(0, "a"),
            "A,1 makes A::A of \"a\" with A,2: [] -> [], words \"x\"; it is in a derivation of the "
            "text, but not in the best\n" +
                Chain +
                "A,1; it makes nothing of it, since it is used in this chain of unary rules "
                "already\n" +
                Chain +
                "A,3; it makes nothing of it, since this chain of unary rules is at its "
                "longest\n");
}

TEST(Why, NamesTheSidesAsWrittenInReverse) {
  Translate::RuleSetOptions Reversed;
  Reversed.IsReversed = true;
  WhyAnswers Why(Np("((y1 num) = (y2 num))\n") + Word("ADJ", "red", "rojo", "((y0 num) = pl)\n") +
                     Word("N", "car", "auto", "((y0 num) = sg)\n"),
                 Reversed);
  EXPECT_EQ(
      Why.Plain(0, "auto rojo"),
      "NP,4 fits y1–y2 at \"auto rojo\"; it fails at ((y1 num) = (y2 num)), line 6: y1 has SG "
      "from a.trr:16, y2 has PL from a.trr:11\n"
      "NP,4 does not begin at \"rojo\"; y1 wants N::N, and at \"rojo\" begins ADJ::ADJ "
      "\"rojo\"\n");
}

TEST(Why, NamesTheFurthestCauseOnOneLine) {
  EXPECT_EQ(WhyAnswers(Np() + Words).FurthestCause(0, "car red cars red"),
            "NP,4 makes NP::NP of \"red cars\" with a.trr:8 and a.trr:18: [] -> [], words \"autos "
            "rojo\"; it is in no derivation of the text: no rule has a place for NP::NP \"red "
            "cars\"");
  EXPECT_EQ(WhyAnswers(Np() + Words).FurthestCause(0, "bus red"),
            "NP,4 fits x1 at \"red\"; x2 wants N::N, and the text ends there");
  EXPECT_EQ(WhyAnswers(Np() + Words).FurthestCause(0, ""), "the text has no words");
}

// ---- JSON -------------------------------------------------------------------------------------

TEST(Why, LeavesOutWordsThatAreTooLong) {
  WhyAnswers Why(
      "T::T : [S] -> [\"short\"]\n(X1::Y1)\nS::S : [\"a\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\n"
      "S::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n");
  Why.Options.HasStarts = true;
  Why.Options.vStarts = {Why.Engine.Set().FindSourceType("T")};
  Why.MaxListed = 1;
  std::string Text = "a";
  std::string Rules;
  for (int Count = 1; Count < 25; ++Count) {
    Text += " a";
    Rules += Count < 24 ? "\"a.trr:3\"," : "";
  }
  const std::string Plain = Why.Plain(1, Text);
  EXPECT_EQ(Plain.substr(0, Plain.find('\n')),
            "a.trr:3 makes S::S of \"" + Text +
                "\" with a.trr:3: [] -> [], words that are too long to be written; it is in the "
                "best derivation");
  const std::string Json = Why.Json(1, Text);
  EXPECT_EQ(
      Json.substr(0, Json.find('\n')),
      "{\"rule\":\"a.trr:3\",\"header\":null,\"begin\":0,\"stop\":null,\"clashes\":[],"
      "\"moreClashes\":0,\"made\":[{\"span\":[0,25],\"parts\":[{\"component\":2,\"span\":[1,25],"
      "\"rules\":[" +
          Rules +
          "\"a.trr:6\"]}],\"source\":{},\"target\":{},\"words\":null,\"derivation\":\"best\","
          "\"missing\":null}],\"moreMade\":23,\"used\":[],\"moreUsed\":0,\"longest\":[],"
          "\"moreLongest\":0}");
}

TEST(Why, WritesJson) {
  EXPECT_EQ(WhyAnswers(Np() + Words).Json(0, "red car"),
            std::string(R"j({"rule":"a.trr:2","header":"NP,4","begin":0,"stop":null,)j") +
                R"j("clashes":[{"span":[0,2],"parts":[{"component":1,"span":[0,1],)j" +
                R"j("rules":["a.trr:8"]},{"component":2,"span":[1,2],"rules":["a.trr:13"]}],)j" +
                R"j("equations":[{"lines":[6],"text":"((x1 num) = (x2 num))",)j" +
                R"j("step":"analysis","cycle":false,"conflicts":[)j" +
                R"j({"there":{"path":"(x1 NUM)","value":"PL","from":["a.trr:11"]},)j" +
                R"j("came":{"path":"(x2 NUM)","value":"SG","from":["a.trr:16"]}}]}]}],)j" +
                R"j("moreClashes":0,"made":[],"moreMade":0,"used":[],"moreUsed":0,"longest":[],)j" +
                R"j("moreLongest":0})j" + "\n" +
                R"j({"rule":"a.trr:2","header":"NP,4","begin":1,"stop":{"component":1,)j" +
                R"j("wanted":{"word":null,"source":"ADJ","target":"ADJ"},"at":[{"position":1,)j" +
                R"j("token":"car","constituents":[{"types":["N","N"],"span":[1,2]}]}]},)j" +
                R"j("clashes":[],"moreClashes":0,"made":[],"moreMade":0,"used":[],"moreUsed":0,)j" +
                R"j("longest":[],"moreLongest":0})j" + "\n");
  EXPECT_EQ(
      WhyAnswers(Word("N", "car", "auto", "((x0 num) = sg)\n")).Json(0, "car"),
      std::string(R"j({"rule":"a.trr:1","header":null,"begin":0,"stop":null,"clashes":[],)j") +
          R"j("moreClashes":0,"made":[{"span":[0,1],"parts":[],"source":{"NUM":"SG"},)j" +
          R"j("target":{},"words":"auto","derivation":"best","missing":null}],"moreMade":0,)j" +
          R"j("used":[],"moreUsed":0,"longest":[],"moreLongest":0})j" + "\n");
}

TEST(Why, WritesTheRulesThatCouldTakeAConstituentAsJson) {
  const std::string Car = Word("N", "car", "auto", "((x0 num) = sg)\n");  // lines 1 to 5
  const std::string Taker = R"j({"rule":"a.trr:6","component":)j";
  const std::vector<Case> Cases{
      {"S::S : [N V] -> [N V]\n(X1::Y1)\n(X2::Y2)\n", "car on",
       Taker + R"j(1,"because":"after","missing":2,)j" +
           R"j("wanted":{"word":null,"source":"V","target":"V"},"at":[1]}],"moreTakers":0)j"},
      {"S::S : [N \"of\"] -> [N]\n(X1::Y1)\n", "car on",
       Taker + R"j(1,"because":"after","missing":2,)j" +
           R"j("wanted":{"word":"OF","source":null,"target":null},"at":[1]}],"moreTakers":0)j"},
      {"S::S : [N V] -> [N]\n(X1::Y1)\n", "car on",
       Taker + R"j(1,"because":"after","missing":2,)j" +
           R"j("wanted":{"word":null,"source":"V","target":null},"at":[1]}],"moreTakers":0)j"},
      {"S::S : [N V] -> [N]\n(X1::Y1)\n((x1 num) = du)\n" + Word("V", "on", "en"), "car on off",
       Taker + R"j(1,"because":"clash"}],"moreTakers":0)j"},
      {"Q::Q : [N] -> [N]\n(X1::Y1)\nN::N : [Q] -> [Q]\n(X1::Y1)\n", "car on",
       Taker + R"j(1,"because":"chain"}],"moreTakers":0)j"},
      {"S::S : [N \"a\"] -> [N]\n(X1::Y1)\nS::S : [N \"b\"] -> [N]\n(X1::Y1)\n" +
           std::string("S::S : [N \"c\"] -> [N]\n(X1::Y1)\n"),
       "car on",
       Taker + R"j(1,"because":"after","missing":2,)j" +
           R"j("wanted":{"word":"A","source":null,"target":null},"at":[1]}],"moreTakers":2)j"}};
  for (const Case& Row : Cases) {
    WhyAnswers Why(Car + Row.Grammar);
    Why.MaxListed = 1;
    const std::string Json = Why.Json(0, Row.Text);
    EXPECT_EQ(Json.substr(0, Json.find('\n')),
              R"j({"rule":"a.trr:1","header":null,"begin":0,"stop":null,"clashes":[],)j"
              R"j("moreClashes":0,"made":[{"span":[0,1],"parts":[],"source":{"NUM":"SG"},)j"
              R"j("target":{},"words":"auto","derivation":null,"missing":{"span":[0,1],)j"
              R"j("types":["N","N"],"whole":false,"takers":[)j" +
                  Row.Expected +
                  R"j(}}],"moreMade":0,"used":[],"moreUsed":0,"longest":[],"moreLongest":0})j")
        << Row.Grammar;
  }
}

TEST(Why, CountsTheRulesThatCouldTakeAConstituentBeyondThoseListed) {
  WhyAnswers Why("{N,1}\n" + Word("N", "car", "auto") +
                 "{S,1}\nS::S : [N \"a\"] -> [N]\n(X1::Y1)\n{S,2}\nS::S : [N \"b\"] -> [N]\n"
                 "(X1::Y1)\n{S,3}\nS::S : [N \"c\"] -> [N]\n(X1::Y1)\n");
  Why.MaxListed = 1;
  EXPECT_EQ(Why.Plain(0, "car bus"),
            "N,1 makes N::N of \"car\": [] -> [], words \"auto\"; it is in no derivation of the "
            "text: above N::N \"car\" S,1 could take it as x1, but x2 wants the word \"A\" at "
            "\"bus\"; 2 more rules could\n"
            "N,1 does not begin at \"bus\"; x1 wants the word \"CAR\", and no constituent begins "
            "at \"bus\"\n");
}

TEST(Why, NamesARuleAboveThatNoChainAllowsTwice) {
  WhyAnswers Why("{N,1}\n" + Word("N", "car", "auto") +
                 "{Q,1}\nQ::Q : [N] -> [N]\n(X1::Y1)\n{N,2}\nN::N : [Q] -> [Q]\n(X1::Y1)\n");
  EXPECT_EQ(Why.Plain(0, "car bus"),
            "N,1 makes N::N of \"car\": [] -> [], words \"auto\"; it is in no derivation of the "
            "text: above N::N \"car\" Q,1 could take it as x1, but not in this chain of unary "
            "rules\n"
            "N,1 does not begin at \"bus\"; x1 wants the word \"CAR\", and no constituent begins "
            "at \"bus\"\n");
}

// ---- Names ------------------------------------------------------------------------------------

TEST(Why, DistinguishesNamesOfRulesFromFiles) {
  EXPECT_TRUE(Translate::IsHeaderName("NP,8"));
  EXPECT_TRUE(Translate::IsHeaderName("a b,08"));
  EXPECT_FALSE(Translate::IsHeaderName("NP,"));
  EXPECT_FALSE(Translate::IsHeaderName(",8"));
  EXPECT_FALSE(Translate::IsHeaderName("NP,8a"));
  EXPECT_EQ(Translate::FileOfPlace("a.trr:5"), "a.trr");
  EXPECT_EQ(Translate::FileOfPlace("a:b:5"), "a:b");
  EXPECT_EQ(Translate::FileOfPlace("a.trr:"), std::nullopt);
  EXPECT_EQ(Translate::FileOfPlace("a.trr"), std::nullopt);
}

TEST(Why, FindsARuleByAnyOfItsLinesAndByItsHeaderInAnyCase) {
  const WhyAnswers Why(";; first\n{Np,04}\nNP::NP : [\"a\"] -> [\"b\"]\n(X1::Y1)\n{V,1}\n" +
                       Word("V", "a", "b"));
  const auto IsFirst = [&](const std::string& Name) { return Why.IsMeant(Name, 0); };
  for (const char* Name : {"NP,4", "np,004", "a.trr:1", "a.trr:3", "a.trr:04"}) {
    EXPECT_TRUE(IsFirst(Name)) << Name;
  }
  for (const char* Name :
       {"NP,40", "V,1", "N,4", "a.trr:5", "b.trr:3", "a.trr:0", "a.trr:99999999999999999999"}) {
    EXPECT_FALSE(IsFirst(Name)) << Name;
  }
}

}  // namespace
