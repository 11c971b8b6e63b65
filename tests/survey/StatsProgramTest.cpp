// `stats` as a program: its three formats, whole, and that threads and memory change nothing.

#include "ProgramRun.h"
#include "RuleGenerator.h"
#include "TestFolder.h"
#include "support/RandomInput.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace std::string_literals;

using Strings = std::vector<std::string>;

const std::string SomeRules =
    ";;SL: the car\n;;TL: el auto\n;;Score:5\n{NP,1}\nNP::NP : [\"the\" N] -> [\"el\" N]\n"
    "(X2::Y2)\n((x2 num) = (*or* sg pl))\n((y2 num) = (x2 num))\n"
    "{NP,2}\nNP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n(x0 = x2)\n"
    "{NP,3}\nNP::NP : [adj n] -> [n adj]\n(X2::Y1)\n(X1::Y2)\n(x0 = x2)\n"
    "{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n";
const std::string Report =
    "a.trr:20:12: error TR001: the rule has no rule line: the \"] -> [\" of this line is "
    "misspelt\n1 of 4 rules was left out\n";

ChildEnd Stats(const TestFolder& Folder, Strings vsArguments) {
  vsArguments.insert(vsArguments.begin(), "stats");
  return RunTrrule(vsArguments, Folder.Path(""));
}

TEST(StatsProgram, WritesATable) {
  const TestFolder Folder;
  Folder.Write("a.trr", SomeRules);
  EXPECT_EQ(Stats(Folder, {"a.trr"}), (ChildEnd{1, R"(4  rules
1  unreadable rules
1  duplicates
4  constraints
1  examples
0  texts to be rejected
1  rules with examples
7  sum of counts

quantiles of the counts
1  least
1  10%
1  25%
1  50%
5  75%
5  90%
5  99%
5  greatest

types: 1
3  100.0%  NP::NP

source labels: 2
3   60.0%  N
2   40.0%  ADJ

target labels: 2
3   60.0%  N
2   40.0%  ADJ

source literals: 1
1  100.0%  the

target literals: 1
1  100.0%  el

source components
3  100.0%  2

target components
3  100.0%  2

shapes of alignments: 2
2   66.7%  crossing 1:1
1   33.3%  monotone 1:1 unaligned

features: 1
2  100.0%  NUM
1   33.3%    (reference)
1   33.3%    PL
1   33.3%    SG

constraints by category
3   75.0%  1: of the source side
1   25.0%  2: from the source side to the target side
0    0.0%  3: of y0
0    0.0%  4: of the target side

counts
2   66.7%  1
0    0.0%  2-3
1   33.3%  4-7
)",
                                                Report}));
}

TEST(StatsProgram, ShowsTheMostFrequentNames) {
  const TestFolder Folder;
  Folder.Write("a.trr", SomeRules);
  const std::string Whole = Stats(Folder, {"a.trr"}).Out;
  const std::string Top = Stats(Folder, {"--top", "1", "a.trr"}).Out;
  const std::string Features = Top.substr(Top.find("features"));
  EXPECT_EQ(Features.substr(0, Features.find("\n\n")),
            "features: 1\n2  100.0%  NUM\n1   33.3%    (reference)\n             2 more");
  const std::string None = Stats(Folder, {"--top", "0", "a.trr"}).Out;
  EXPECT_EQ(None.substr(None.find("types"), 28), "types: 1\n           1 more\n\n");
}

TEST(StatsProgram, WritesOneObjectOfJson) {
  const TestFolder Folder;
  Folder.Write("a.trr", SomeRules);
  EXPECT_EQ(
      Stats(Folder, {"--format", "json", "--top", "1", "a.trr"}),
      (ChildEnd{
          1,
          R"j({"rules":4,"unreadable":1,"duplicates":1,"constraints":4,"examples":1,"rejected":0,"rulesWithExamples":1,"sumOfCounts":7,"quantiles":{"min":1,"p10":1,"p25":1,"p50":1,"p75":5,"p90":5,"p99":5,"max":5},"types":[{"name":"NP::NP","count":3}],"slLabels":[{"name":"N","count":3},{"name":"ADJ","count":2}],"tlLabels":[{"name":"N","count":3},{"name":"ADJ","count":2}],"slLiterals":[{"name":"the","count":1}],"tlLiterals":[{"name":"el","count":1}],"slLengths":[{"name":"2","count":3}],"tlLengths":[{"name":"2","count":3}],"shapes":[{"name":"crossing 1:1","count":2},{"name":"monotone 1:1 unaligned","count":1}],"features":[{"name":"NUM","count":2,"values":[{"name":"(reference)","count":1},{"name":"PL","count":1},{"name":"SG","count":1}]}],"categories":[{"name":"1: of the source side","count":3},{"name":"2: from the source side to the target side","count":1},{"name":"3: of y0","count":0},{"name":"4: of the target side","count":0}],"counts":[{"name":"1","count":2},{"name":"2-3","count":0},{"name":"4-7","count":1}]}
)j",
          Report}));
  Folder.Write("b.trr", "NP::NP : [\"\xE9\"] -> [\"\\\"]\n(X1::Y1)\n");
  const std::string Json = Stats(Folder, {"--format", "json", "b.trr"}).Out;
  EXPECT_EQ(Json.substr(Json.find("\"slLiterals"), 79),
            "\"slLiterals\":[{\"name\":\"\xEF\x9F\xA9\",\"count\":1}],"
            "\"tlLiterals\":[{\"name\":\"\\\\\",\"count\":1}],");
}

TEST(StatsProgram, WritesAPageOfHistograms) {
  const TestFolder Folder;
  Folder.Write("a.trr", SomeRules);
  EXPECT_EQ(Stats(Folder, {"--format", "html", "-o", "a.html", "a.trr"}),
            (ChildEnd{1, "", Report}));
  const std::string Page = Folder.Read("a.html");
  const std::size_t Heading = Page.find("<h1>");
  EXPECT_EQ(Page.substr(Heading, Page.find("<h2>types") - Heading), R"j(<h1>Rules in numbers</h1>
<h2>all rules</h2>
<table>
<tr><th scope="row" align="left">rules</th><td align="right">4</td></tr>
<tr><th scope="row" align="left">unreadable rules</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">duplicates</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">constraints</th><td align="right">4</td></tr>
<tr><th scope="row" align="left">examples</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">texts to be rejected</th><td align="right">0</td></tr>
<tr><th scope="row" align="left">rules with examples</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">sum of counts</th><td align="right">7</td></tr>
</table>
<h2>quantiles of the counts</h2>
<table>
<tr><th scope="row" align="left">least</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">10%</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">25%</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">50%</th><td align="right">1</td></tr>
<tr><th scope="row" align="left">75%</th><td align="right">5</td></tr>
<tr><th scope="row" align="left">90%</th><td align="right">5</td></tr>
<tr><th scope="row" align="left">99%</th><td align="right">5</td></tr>
<tr><th scope="row" align="left">greatest</th><td align="right">5</td></tr>
</table>
)j");
  std::string Titles;
  for (std::size_t At = Page.find("<h2>"); At != std::string::npos;
       At = Page.find("<h2>", At + 1)) {
    Titles += Page.substr(At + 4, Page.find("</h2>", At) - At - 4) + '\n';
  }
  EXPECT_EQ(
      Titles,
      "all rules\nquantiles of the counts\ntypes\nsource labels\ntarget labels\nsource literals\n"
      "target literals\nsource components\ntarget components\nshapes of alignments\n"
      "features\nvalues of NUM\nconstraints by category\ncounts\n");
  const std::string Shapes = Page.substr(Page.find("<h2>shapes"));
  const std::size_t Begin = Shapes.find('>', Shapes.find("<desc")) + 1;
  EXPECT_EQ(Shapes.substr(Begin, Shapes.find("</desc>") - Begin),
            "crossing 1:1: 2. monotone 1:1 unaligned: 1.");
}

TEST(StatsProgram, HasNothingToCountInAnEmptyGrammar) {
  const TestFolder Folder;
  Folder.Write("comments", "; nothing else");
  const std::string Zeros =
      "0  rules\n0  unreadable rules\n0  duplicates\n0  constraints\n0  examples\n"
      "0  texts to be rejected\n0  rules with examples\n0  sum of counts\n";
  EXPECT_EQ(Stats(Folder, {}), (ChildEnd{0, Zeros, ""}));
  EXPECT_EQ(Stats(Folder, {"comments"}), (ChildEnd{0, Zeros, ""}));
}

TEST(StatsProgram, WritesTheSameForAnyNumberOfThreadsAndAnyMemory) {
  const TestFolder Folder;
  RandomInput Random;
  std::string Text;
  const Strings vsRules = GeneratedRules(9, 1500);
  for (const std::string& sRule : vsRules) {
    Text += Random.Below(8) == 0 ? Random.Damaged(sRule, "\n\r\0 ();:{}[]>-\xFF"s) : sRule;
    Text += Random.Below(8) == 0 ? vsRules[Random.Below(vsRules.size())] : "";
  }
  Folder.Write("a.trr", Text);
  for (const char* Format : {"text", "json", "html"}) {
    const ChildEnd Expected = Stats(Folder, {"--format", Format, "--threads", "1", "a.trr"});
    EXPECT_EQ(Expected.Status, 1);
    for (const Strings& vsOptions : {Strings{"--threads", "2"}, Strings{"--threads", "7"},
                                     Strings{"--memory", "1", "--threads", "3"}}) {
      Strings vsArguments{"--format", Format, "a.trr"};
      vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
      EXPECT_TRUE(Stats(Folder, vsArguments) == Expected) << Format;
    }
  }
}

TEST(StatsProgram, CountsTheDuplicatesThatUniqueMerges) {
  const TestFolder Folder;
  std::string Text;
  const Strings vsRules = GeneratedRules(9, 300);
  for (std::size_t Number = 0; Number < vsRules.size(); ++Number) {
    Text += vsRules[Number] + (Number % 3 == 0 ? vsRules[Number / 2] : "");
  }
  Folder.Write("a.trr", Text);
  EXPECT_EQ(RunTrrule({"unique", "-o", "once", "a.trr"}, Folder.Path("")), (ChildEnd{0, "", ""}));
  const auto NumbersIn = [&](const std::string& File) {
    const std::string Out = Stats(Folder, {File}).Out;
    const std::size_t Second = Out.find('\n', Out.find('\n') + 1) + 1;
    return std::pair(std::stoi(Out), std::stoi(Out.substr(Second)));
  };
  const auto [Rules, Duplicates] = NumbersIn("a.trr");
  EXPECT_GE(Duplicates, 100);
  EXPECT_EQ(NumbersIn("once"), std::pair(Rules - Duplicates, 0));
}

TEST(StatsProgram, ReportsWhatItCannotDo) {
  const TestFolder Folder;
  Folder.Write("a.trr", SomeRules);
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"-o", "a.trr", "a.trr"}, "did not replace a.trr: it is an input, and no statistics"},
      {{"--format", "xml"}, "--format: xml not in {text,json,html}"},
      {{"--top", "x"}, "--top: invalid number x; use a number from 0 on"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    EXPECT_EQ(Stats(Folder, vsArguments), (ChildEnd{2, "", "trrule: " + sMessage + "\n"}));
  }
  EXPECT_EQ(Folder.Read("a.trr"), SomeRules);
}

}  // namespace
