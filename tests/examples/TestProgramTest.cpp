// The command as people meet it: whole outputs, both streams and the status.

#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

ChildEnd RunTest(const TestFolder& Folder, Strings vsArguments) {
  vsArguments.insert(vsArguments.begin(), "test");
  return RunTrrule(vsArguments, Folder.Path(""));
}

/// One example of each outcome, but for an error.
const std::string Nouns =
    ";;SL: car\n;;TL: auto\n;;SL: car\n;;TL: coche\n;;*SL: cars\n"
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    ";;SL: Cars\n;;TL: coches\n;;SL: bus\n;;TL: bus\n;;*SL: cars\n"
    "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n"
    "N::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n"
    ";;SL: car\n;;TL: auto\nN::N : [\"car\"] -> [\"auto\" N]\n(X1::Y1)\n";

TEST(TestProgram, ShowsFailuresAndMissingCoverage) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns);
  EXPECT_EQ(RunTest(Folder, {"a.trr"}),
            (ChildEnd{1,
                      "a.trr:6: passes by another rule: car\n"
                      "  by:     a.trr:16\n"
                      "a.trr:14: differs: Cars\n"
                      "  wanted: coches\n"
                      "  given:  autos\n"
                      "a.trr:14: fails: bus\n"
                      "  wanted: bus\n"
                      "  cause:  a.trr:14 does not begin at \"bus\"; x1 wants the word \"CARS\", "
                      "and no constituent begins at \"bus\"\n"
                      "a.trr:14: fails: cars\n"
                      "  wanted: no analysis\n"
                      "  given:  autos\n"
                      "a.trr:20: passes by another rule: car\n"
                      "  by:     a.trr:6\n"
                      "not covered: rule a.trr:14\n"
                      "not covered: rule a.trr:20\n"
                      "not covered: constraint a.trr:8: ((x0 num) = sg)\n"
                      "7 examples: 2 pass, 2 pass by another rule, 1 differs, 2 fail\n"
                      "covered: 2 of 4 rules, 0 of 1 constraints\n",
                      "a.trr:20:27: error TR015: the target component has no source to come "
                      "from\n1 of 4 rules was left out\n"}));
}

TEST(TestProgram, ShowsWhatKeptAnExampleFromBeingTranslated) {
  struct Case {
    std::string Rule;
    std::vector<std::string> vsArguments;
    ChildEnd End;
  };
  const Case Cases[] = {
      {"N::N : [\"car\"] -> [\"auto\" N]\n(X1::Y1)\n",
       {"a.trr", "--no-coverage"},
       {1,
        "a.trr:3: fails: car\n"
        "  wanted: auto\n"
        "  cause:  the rule was left out: TR015: the target component has no source to come from\n"
        "1 example: 1 fails\n",
        "a.trr:3:27: error TR015: the target component has no source to come from\n"
        "1 of 1 rule was left out\n"}},
      {"N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n",
       {"a.trr", "--max-constituents", "0"},
       {1,
        "a.trr:3: error: car\n"
        "  wanted: auto\n"
        "  cause:  there are more than 0 constituents\n"
        "not covered: rule a.trr:3\n"
        "1 example: 1 reached a limit\n"
        "covered: 0 of 1 rules, 0 of 0 constraints\n",
        ""}}};
  for (const Case& Row : Cases) {
    const TestFolder Folder;
    Folder.Write("a.trr", ";;SL: car\n;;TL: auto\n" + Row.Rule);
    EXPECT_EQ(RunTest(Folder, Row.vsArguments), Row.End) << Row.Rule;
  }
}

TEST(TestProgram, WritesJsonWithCoverageLast) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns);
  Folder.Write("b.trr",
               "\xEF\xBB\xBF;;SL: \xE9\"\n;;TL: x\nN::N : [\"\xE9\"\"] -> [\"x\"]\n(X1::Y1)\n");
  const std::string Messages =
      "a.trr:20:27: error TR015: the target component has no source to come from\n"
      "1 of 5 rules was left out\n";
  const std::string Expected =
      R"({"rule":"a.trr:6","source":"car","wanted":"auto","outcome":"passes","best":"auto"}
{"rule":"a.trr:6","source":"car","wanted":"coche","outcome":"passes by another rule","best":"coche"}
{"rule":"a.trr:6","source":"cars","wanted":null,"outcome":"passes","best":null}
{"rule":"a.trr:14","source":"Cars","wanted":"coches","outcome":"differs","best":"autos"}
{"rule":"a.trr:14","source":"bus","wanted":"bus","outcome":"fails","best":null}
{"rule":"a.trr:14","source":"cars","wanted":null,"outcome":"fails","best":"autos"}
{"rule":"a.trr:20","source":"car","wanted":"auto","outcome":"passes by another rule","best":"auto"}
{"rule":"b.trr:3","source":"\"","wanted":"x","outcome":"passes","best":"x"}
{"uncovered":{"rules":["a.trr:14","a.trr:20"],"constraints":["a.trr:8"]}}
)";
  EXPECT_EQ(RunTest(Folder, {"a.trr", "b.trr", "--format", "json"}),
            (ChildEnd{1, Expected, Messages}));
}

// ---- Forms for other programs -----------------------------------------------------------------

/// The text with a number in the place of each time.
std::string WithoutTimes(std::string Text) {
  const std::string Head = "time=\"";
  for (std::size_t At = Text.find(Head); At != std::string::npos; At = Text.find(Head, At)) {
    At += Head.size();
    Text.replace(At, Text.find('"', At) - At, "T");
  }
  return Text;
}

const std::string Odd =
    ";;SL: <a> & \"b\"\x01\xE9\n;;TL: #x\\\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";

TEST(TestProgram, WritesJunitXml) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns.substr(0, Nouns.find(";;SL: Cars")));
  Folder.Write("b.trr", Odd);
  ChildEnd End = RunTest(Folder, {"a.trr", "b.trr", "--format", "junit"});
  End.Out = WithoutTimes(End.Out);
  EXPECT_EQ(End, (ChildEnd{1,
                           R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites tests="4" failures="2" errors="0" time="T">
  <testsuite name="a.trr" tests="3" failures="1" errors="0" time="T">
    <testcase classname="a.trr" name="a.trr:6: car" time="T"/>
    <testcase classname="a.trr" name="a.trr:6: car" time="T">
      <failure type="differs" message="wanted: coche; given: auto"/>
    </testcase>
    <testcase classname="a.trr" name="a.trr:6: cars" time="T"/>
  </testsuite>
  <testsuite name="b.trr" tests="1" failures="1" errors="0" time="T">
    <testcase classname="b.trr" name="b.trr:3: &lt;a&gt; &amp; &quot;b&quot;)"
                           "\xEF\xBF\xBD\xEF\x9F\xA9"
                           R"(" time="T">
      <failure type="fails" message="wanted: #x\; cause: b.trr:3 does not begin at &quot;&lt;a&gt;&quot;; x1 wants the word &quot;CAR&quot;, and no constituent begins at &quot;&lt;a&gt;&quot;"/>
    </testcase>
  </testsuite>
</testsuites>
)",
                           ""}));
}

TEST(TestProgram, CountsLimitsAsErrorsInJunitXml) {
  const TestFolder Folder;
  Folder.Write("a.trr", ";;SL: car\n;;TL: auto\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
  ChildEnd End = RunTest(Folder, {"a.trr", "--format", "junit", "--max-constituents", "0"});
  End.Out = WithoutTimes(End.Out);
  EXPECT_EQ(End, (ChildEnd{1, R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites tests="1" failures="0" errors="1" time="T">
  <testsuite name="a.trr" tests="1" failures="0" errors="1" time="T">
    <testcase classname="a.trr" name="a.trr:3: car" time="T">
      <error type="error" message="wanted: auto; cause: there are more than 0 constituents"/>
    </testcase>
  </testsuite>
</testsuites>
)",
                           ""}));
}

TEST(TestProgram, WritesTap) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns.substr(0, Nouns.find(";;SL: Cars")));
  Folder.Write("b.trr", ";;SL: a # b\n;;TL: #x\\\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
  EXPECT_EQ(RunTest(Folder, {"a.trr", "b.trr", "--format", "tap"}), (ChildEnd{1, R"(TAP version 13
1..4
ok 1 - a.trr:6: car
not ok 2 - a.trr:6: car
  ---
  outcome: "differs"
  wanted: "coche"
  given: "auto"
  ...
ok 3 - a.trr:6: cars
not ok 4 - b.trr:3: a \# b
  ---
  outcome: "fails"
  wanted: "#x\\"
  cause: "b.trr:3 does not begin at \"a\"; x1 wants the word \"CAR\", and no constituent begins at \"a\""
  ...
# not covered: rule b.trr:3
# not covered: constraint a.trr:8: ((x0 num) = sg)
)",
                                                                              ""}));
}

TEST(TestProgram, TreatsPassingByAnotherRuleAsAFailureIfStrict) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns.substr(0, Nouns.find("(X1::Y1)")) + "(X1::Y1)\n" +
                            "N::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n");
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--format", "tap", "--strict", "--no-coverage"}),
            (ChildEnd{1, R"(TAP version 13
1..3
ok 1 - a.trr:6: car
not ok 2 - a.trr:6: car
  ---
  outcome: "passes by another rule"
  by: "a.trr:8"
  ...
ok 3 - a.trr:6: cars
)",
                      ""}));
}

// ---- Pairs of files ---------------------------------------------------------------------------

const std::string Phrases =
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n"
    "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";

TEST(TestProgram, RunsThePairsOfFiles) {
  const TestFolder Folder;
  Folder.Write("a.trr", Phrases);
  Folder.Write("pairs", "the car\tel auto\r\n\n*car the\n* car\nthe car\tla auto\nbus\tbus\n");
  const auto Line = [](const std::string& Number, const std::string& Rest) {
    return "{\"rule\":\"pairs:" + Number + "\",\"source\":" + Rest + "}\n";
  };
  const std::string First =
      Line("1", R"("the car","wanted":"el auto","outcome":"passes","best":"el auto")") +
      Line("3", R"("car the","wanted":null,"outcome":"passes","best":null)");
  const std::string Last =
      Line("5", R"("the car","wanted":"la auto","outcome":"differs","best":"el auto")") +
      Line("6", R"("bus","wanted":"bus","outcome":"fails","best":null)");
  const Strings vsRun{"a.trr", "--examples", "pairs", "--format", "json", "--no-coverage"};
  EXPECT_EQ(
      RunTest(Folder, vsRun),
      (ChildEnd{1,
                First + Line("4", R"("car","wanted":null,"outcome":"fails","best":"auto")") + Last,
                ""}));
  Strings vsStart = vsRun;
  vsStart.insert(vsStart.end(), {"--start", "np, S"});
  EXPECT_EQ(
      RunTest(Folder, vsStart),
      (ChildEnd{1,
                First + Line("4", R"("car","wanted":null,"outcome":"passes","best":null)") + Last,
                "trrule: --start: no usable rule has the type \"S\"\n"}));
}

TEST(TestProgram, ExchangesThePairsOfFilesWithTheSides) {
  const TestFolder Folder;
  Folder.Write("a.trr", Phrases);
  Folder.Write("pairs", "*car\nthe car\tel auto\n");
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--examples", "pairs", "--format", "json", "--reverse"}),
            (ChildEnd{0,
                      "{\"rule\":\"pairs:2\",\"source\":\"el auto\",\"wanted\":\"the car\","
                      "\"outcome\":\"passes\",\"best\":\"the car\"}\n"
                      "{\"uncovered\":{\"rules\":[],\"constraints\":[]}}\n",
                      ""}));
}

TEST(TestProgram, ReportsWhyAPairHasNoTranslation) {
  const TestFolder Folder;
  Folder.Write("a.trr", Phrases);
  Folder.Write("pairs", "bus\tbus\n");
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--examples", "pairs", "--no-coverage"}),
            (ChildEnd{1,
                      "pairs:1: fails: bus\n"
                      "  wanted: bus\n"
                      "  cause:  no rule has the word \"bus\"\n"
                      "1 example: 1 fails\n",
                      ""}));
}

TEST(TestProgram, ShowsTheFurthestCauseOfWhatFails) {
  const std::string Words =
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
      "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = pl)\n";
  const std::string Rule = "NP::NP : [\"a\" N] -> [\"un\" N]\n(X2::Y2)\n((x2 num) = sg)\n";
  struct Case {
    std::string Source;
    std::string Cause;
  };
  const std::vector<Case> vCases{
      {"a cars",
       "a.trr:9 fits x1–x2 at \"a cars\"; it fails at ((x2 num) = sg), line 11: (x2 NUM) has PL "
       "from a.trr:6, and SG is wanted"},
      {"cars a", "a.trr:9 fits x1 at \"a\"; x2 wants N::N, and the text ends there"},
      // What was made lies further than what clashed.
      {"a car and a cars",
       "a.trr:9 makes NP::NP of \"a car\" with a.trr:1: [] -> [], words \"un auto\"; it is in no "
       "derivation of the text: no rule has a place for NP::NP \"a car\""},
      {"the car",
       "a.trr:9 does not begin at \"the\"; x1 wants the word \"A\", and no constituent begins at "
       "\"the\""},
  };
  for (const Case& Current : vCases) {
    const TestFolder Folder;
    Folder.Write("a.trr", Words + ";;SL: " + Current.Source + "\n;;TL: x\n" + Rule);
    EXPECT_EQ(RunTest(Folder, {"a.trr", "--no-coverage"}),
              (ChildEnd{1,
                        "a.trr:9: fails: " + Current.Source +
                            "\n  wanted: x\n  cause:  " + Current.Cause + "\n1 example: 1 fails\n",
                        ""}));
  }
}

TEST(TestProgram, SaysHowFarAllRulesComeWithAPairOfAFile) {
  const std::string Rules =
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
      "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = pl)\n"
      "NP::NP : [\"a\" N] -> [\"un\" N]\n(X2::Y2)\n((x2 num) = sg)\n";
  const std::vector<std::pair<std::string, std::string>> vCases{
      {"the cars are", "no rule has the word \"the\", \"are\""},
      {"cars", "the whole text is of the type N, which is not a start type"},
      {"a cars",
       "a.trr:7 fits x1–x2 at \"a cars\"; it fails at ((x2 num) = sg), line 9: (x2 NUM) has PL "
       "from a.trr:6, and SG is wanted"},
      {"a car cars", "no rule joins \"a car\", \"cars\""},
      {"a", "no rule takes \"a\""},
  };
  for (const auto& [sSource, sCause] : vCases) {
    const TestFolder Folder;
    Folder.Write("a.trr", Rules);
    Folder.Write("pairs", sSource + "\tx\n");
    EXPECT_EQ(RunTest(Folder, {"a.trr", "--examples", "pairs", "--start", "NP", "--no-coverage"}),
              (ChildEnd{1,
                        "pairs:1: fails: " + sSource + "\n  wanted: x\n  cause:  " + sCause +
                            "\n1 example: 1 fails\n",
                        ""}));
  }
}

// ---- Thresholds and baselines -----------------------------------------------------------------

TEST(TestProgram, EndsWithStatus1IfTooLittleIsCovered) {
  const TestFolder Folder;
  Folder.Write("a.trr", ";;SL: car\n;;TL: auto\n" + Phrases + "((x2 num) = sg)\n");
  const auto Run = [&](const char* Percent) {
    return RunTest(Folder, {"a.trr", "--fail-under", Percent, "--format", "tap"});
  };
  const std::string Out =
      "TAP version 13\n1..1\nok 1 - a.trr:3: car\n# not covered: rule a.trr:5\n"
      "# not covered: constraint a.trr:7: ((x2 num) = sg)\n";
  EXPECT_EQ(Run("0"), (ChildEnd{0, Out, ""}));
  EXPECT_EQ(Run("50"),
            (ChildEnd{1, Out, "trrule: --fail-under: 0 of 1 constraints are less than 50 %\n"}));
  EXPECT_EQ(Run("51"), (ChildEnd{1, Out,
                                 "trrule: --fail-under: 1 of 2 rules are less than 51 %\n"
                                 "trrule: --fail-under: 0 of 1 constraints are less than 51 %\n"}));
}

TEST(TestProgram, ShowsChangesSinceTheBaseline) {
  const TestFolder Folder;
  const auto Word = [](const std::string& Source, const std::string& Wanted,
                       const std::string& Target) {
    return ";;SL: " + Source + "\n;;TL: " + Wanted + "\nN::N : [\"" + Source + "\"] -> [\"" +
           Target + "\"]\n(X1::Y1)\n";
  };
  Folder.Write("a.trr", Word("a", "x", "x") + Word("b", "x", "y") + Word("c", "x", "y") +
                            Word("d", "x", "y") + ";;*SL: e\n" + Word("e", "x", "x"));
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--baseline", "accepted", "--accept"}),
            (ChildEnd{0, "accepted: 6 examples: 2 pass, 3 differ, 1 fails\n", ""}));
  EXPECT_EQ(Folder.Read("accepted"),
            "a.trr\ta\t= x\tpasses\tx\n"
            "a.trr\tb\t= x\tdiffers\ty\n"
            "a.trr\tc\t= x\tdiffers\ty\n"
            "a.trr\td\t= x\tdiffers\ty\n"
            "a.trr\te\t*\tfails\tx\n"
            "a.trr\te\t= x\tpasses\tx\n");
  // Known failures do not fail the run.
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--baseline", "accepted"}),
            (ChildEnd{0, "0 examples changed\n", ""}));
  // Rules in another order are not a change.
  Folder.Write("a.trr", Word("c", "x", "z") + Word("b", "x", "x") + Word("f", "x", "x") +
                            Word("d", "x", "y") + ";;*SL: e\n" + Word("e", "x", "x"));
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--baseline", "accepted"}),
            (ChildEnd{0,
                      "other translation: a.trr:3: c\n"
                      "  wanted: x\n"
                      "  given:  z\n"
                      "newly passing: a.trr:7: b\n"
                      "  given:  x\n"
                      "new: a.trr:11: f\n"
                      "  given:  x\n"
                      "gone: a.trr: a\n"
                      "4 examples changed\n",
                      ""}));
  Folder.Write("a.trr", Word("a", "x", "z") + Word("b", "x", "y") + Word("c", "x", "y") +
                            Word("d", "x", "y") + ";;*SL: e\n" + Word("e", "x", "x"));
  const std::string Failing =
      "newly failing: a.trr:3: a\n  wanted: x\n  given:  z\n1 example changed\n";
  EXPECT_EQ(RunTest(Folder, {"a.trr", "--baseline", "accepted"}), (ChildEnd{1, Failing, ""}));
}

TEST(TestProgram, FailsWithNewFailuresAndKeepsTheBaseline) {
  const TestFolder Folder;
  Folder.Write("a.trr", Phrases);
  Folder.Write("accepted", "");
  Folder.Write("pairs", "car\tauto\nbus\tbus\ncar\tauto\n");
  const Strings vsRun{"a.trr", "--examples", "pairs", "--baseline", "accepted"};
  EXPECT_EQ(RunTest(Folder, vsRun), (ChildEnd{1,
                                              "new: pairs:1: car\n  given:  auto\n"
                                              "new: pairs:2: bus\n  wanted: bus\n"
                                              "  cause:  no rule has the word \"bus\"\n"
                                              "new: pairs:3: car\n  given:  auto\n"
                                              "3 examples changed\n",
                                              ""}));
  EXPECT_EQ(Folder.Read("accepted"), "");
}

// ---- The end ----------------------------------------------------------------------------------

TEST(TestProgram, EndsWithStatus0IfAllPassAndNoRuleWasSkipped) {
  const TestFolder Folder;
  const std::string Good = ";;SL: car\n;;TL: auto\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";
  Folder.Write("a.trr", Good);
  Folder.Write("none.trr", "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
  const std::string Expected = "1 example: 1 passes\ncovered: 1 of 1 rules, 0 of 0 constraints\n";
  EXPECT_EQ(RunTest(Folder, {"a.trr"}), (ChildEnd{0, Expected, ""}));
  EXPECT_EQ(RunTest(Folder, {"none.trr", "--no-coverage"}), (ChildEnd{0, "0 examples\n", ""}));
  EXPECT_EQ(RunTest(Folder, {"a.trr", "-o", "report"}), (ChildEnd{0, "", ""}));
  EXPECT_EQ(Folder.Read("report"), Expected);
  EXPECT_EQ(RunTrrule({"test", "-"}, Folder.Path(""), Folder.Path("a.trr")),
            (ChildEnd{0, Expected, ""}));
}

TEST(TestProgram, EndsWithStatus2AndOneLineWhenTheRunFails) {
  const TestFolder Folder;
  Folder.Write("a.trr", Nouns);
  Folder.Write("tab", "a\tb\n\tc\n");
  const std::vector<std::pair<Strings, std::string>> vCases{
      {{}, "FILE is required"},
      {{"missing.trr"}, "cannot read missing.trr: No such file or directory"},
      {{"a.trr", "-o", "no/where"}, "cannot write no/where: No such file or directory"},
      {{"a.trr", "--max-chain", "x"}, "--max-chain: invalid number x; use a number from 0 on"},
      {{"a.trr", "--threads", "0"}, "--threads: invalid number 0; use a number from 1 on"},
      {{"a.trr", "--accept"}, "--accept requires --baseline"},
      {{"a.trr", "--fail-under", "1", "--no-coverage"}, "--no-coverage excludes --fail-under"},
      {{"a.trr", "--baseline", "missing"}, "cannot read missing: No such file or directory"},
      {{"a.trr", "--baseline", "a.trr"}, "a.trr:1: invalid line of a baseline"},
      {{"a.trr", "--examples", "missing"}, "cannot read missing: No such file or directory"},
      {{"a.trr", "--examples", "a.trr"}, "a.trr:1: there is no tab between source and target"},
      {{"a.trr", "--examples", "tab"}, "tab:2: there is no source text"},
  };
  for (const auto& [vsArguments, Message] : vCases) {
    const ChildEnd End = RunTest(Folder, vsArguments);
    EXPECT_EQ(End.Status, 2) << Message;
    EXPECT_EQ(End.Out, "") << Message;
    EXPECT_EQ(End.Err.substr(End.Err.rfind("trrule: ")), "trrule: " + Message + '\n');
  }
}

}  // namespace
