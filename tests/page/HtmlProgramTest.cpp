// The command as a program: statuses, messages, threads, and how the page grows.

#include "PageSupport.h"
#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const char* const CleanRule = "{NP,1}\nNP::NP : [\"a\" N] -> [N \"b\"]\n(X2::Y1)\n";

/// A folder in which the command runs.
class Workplace {
 public:
  ChildEnd Run(Strings vsArguments, const std::string& Input = "/dev/null") {
    vsArguments.insert(vsArguments.begin(), "html");
    return RunTrrule(vsArguments, Folder.Path(""), Input);
  }

  /// Runs the command and expects what it says and how it ends.
  void Expect(const Strings& vsArguments, int Status, const std::string& Err) {
    const ChildEnd End = Run(vsArguments);
    EXPECT_EQ(End.Status, Status);
    EXPECT_EQ(End.Out, "");
    EXPECT_EQ(End.Err, Err);
  }

  TestFolder Folder;
};

TEST(HtmlProgram, WritesThePageOfAGrammar) {
  Workplace Here;
  Here.Folder.Write("a.trr", CleanRule);
  Here.Folder.Write("b.trr", "{NP,2}\nNP::NP : [N] -> [N]\n(X1::Y1)\n(X1::Y1)\n");
  Here.Expect({"-o", "a.html", "a.trr"}, 0, "");
  Here.Expect({"-o", "ab.html", "a.trr", "b.trr"}, 1, "");
  const auto TitleOf = [&](const std::string& Page) {
    return AllBetween(Page, "<h1>", "</h1>").at(0);
  };
  EXPECT_EQ(TitleOf(Here.Folder.Read("a.html")), "Grammar a.trr");
  EXPECT_EQ(TitleOf(Here.Folder.Read("ab.html")), "Grammar a.trr and 1 other");
  EXPECT_EQ(Here.Run({"a.trr"}).Out, Here.Folder.Read("a.html"));
  const ChildEnd Standard = Here.Run({}, Here.Folder.Path("a.trr"));
  EXPECT_EQ(TitleOf(Standard.Out), "Grammar");
  EXPECT_EQ(AllBetween(Standard.Out, "<span class=\"place\">", "</span>"), Strings{"-:2"});
}

TEST(HtmlProgram, EndsWithStatus1WhereThePageShowsAProblem) {
  Workplace Here;
  Here.Folder.Write("good.trr", std::string(";;SL: x\n;;TL: y\n") +
                                    "{X,1}\nX::X : [\"x\"] -> [\"y\"]\n(X1::Y1)\n");
  Here.Folder.Write("bad.trr", std::string(";;SL: x\n;;TL: z\n") +
                                   "{X,1}\nX::X : [\"x\"] -> [\"y\"]\n(X1::Y1)\n");
  Here.Folder.Write("pairs.txt", "x\tw\n");
  Here.Expect({"--with-tests", "-o", "page.html", "good.trr"}, 0, "");
  Here.Expect({"--with-tests", "-o", "page.html", "bad.trr"}, 1, "");
  Here.Expect({"-o", "page.html", "bad.trr"}, 0, "");
  Here.Expect({"--with-tests", "--examples", "pairs.txt", "-o", "page.html", "good.trr"}, 1, "");
  EXPECT_NE(Here.Folder.Read("page.html").find("<summary>Examples of files</summary>"),
            std::string::npos);
}

TEST(HtmlProgram, ReportsOnlyRulesThatTheTestsLeaveOut) {
  Workplace Here;
  Here.Folder.Write("bad.trr", "NP::NP : [N] -> [N\n(X1::Y1)\n");
  Here.Expect({"-o", "page.html", "bad.trr"}, 1, "");
  const std::string Err = RunTrrule({"test", "bad.trr"}, Here.Folder.Path("")).Err;
  Here.Expect({"--with-tests", "-o", "page.html", "bad.trr"}, 1,
              Err.substr(0, Err.rfind("1 of 1 rule was left out")));
}

TEST(HtmlProgram, SaysWhyItFails) {
  Workplace Here;
  Here.Folder.Write("a.trr", CleanRule);
  const std::string Missing = "trrule: cannot read none.trr: No such file or directory\n";
  Here.Expect({"-o", "a.trr", "a.trr"}, 2,
              "trrule: did not replace a.trr: it is an input, and no page\n");
  Here.Expect(
      {"-o", "page.html", "none.trr", "a.trr"}, 2,
      Missing +
          "trrule: did not write page.html: not all inputs could be read (--force writes it all "
          "the same)\n");
  Here.Expect({"--force", "-o", "page.html", "none.trr", "a.trr"}, 2, Missing);
  Here.Expect({"--with-tests", "-o", "page.html", "-"}, 2,
              "trrule: --with-tests reads the grammar twice: name its files\n");
  Here.Expect({"--with-tests", "-o", "page.html"}, 2,
              "trrule: --with-tests reads the grammar twice: name its files\n");
  Here.Expect({"--examples", "pairs.txt", "a.trr"}, 2,
              "trrule: --examples requires --with-tests\n");
  EXPECT_EQ(Here.Folder.Read("a.trr"), CleanRule);
}

TEST(HtmlProgram, HasThePicturesThatAreDrawn) {
  Workplace Here;
  const std::string Spanish =
      std::string(GrammarPaths::SourceFolder) + "/examples/grammar/spanish/grammar.trr";
  Here.Run({"-o", "page.html", Spanish});
  const ChildEnd Drawn = RunTrrule({"draw", "--format", "html", Spanish});
  const Strings vsDrawn = AllBetween(Drawn.Out, "<figure tabindex=\"0\">\n", "</figure>");
  Strings vsMade;
  for (const std::string& sPacked :
       AllBetween(Here.Folder.Read("page.html"), "px\" data-svg=\"", "\"></figure>")) {
    vsMade.push_back(Unpacked(Unescaped(sPacked)));
  }
  EXPECT_GT(vsMade.size(), 50U);
  EXPECT_EQ(vsMade, vsDrawn);
}

TEST(HtmlProgram, WritesTheSameWithAnyNumberOfThreads) {
  Workplace Here;
  std::string Rules;
  for (int Number = 1; Number <= 3000; ++Number) {
    Rules += ";;SL: a b\n;;TL: b\n{NP," + std::to_string(Number % 2900) +
             "}\nNP::NP : [\"a\" N] -> [N \"b\"]\n(X2::Y1)\n((x2 f" + std::to_string(Number) +
             ") = v)\n";
  }
  Here.Folder.Write("many.trr", Rules);
  EXPECT_EQ(Here.Run({"--threads", "1", "-o", "one.html", "many.trr"}).Status, 1);
  EXPECT_EQ(Here.Run({"--threads", "4", "-o", "four.html", "many.trr"}).Status, 1);
  EXPECT_EQ(Here.Folder.Read("one.html"), Here.Folder.Read("four.html"));
}

TEST(HtmlProgram, GrowsWithTheGrammarAlone) {
  Workplace Here;
  const auto SizeFor = [&](int Count) {
    std::string Rules;
    for (int Number = 10001; Number <= 10000 + Count; ++Number) {
      Rules += "{NP," + std::to_string(Number) + "}\nNP::NP : [DET \"w" + std::to_string(Number) +
               "\" N] -> [DET N]\n(X1::Y1)\n(X3::Y2)\n((y1 num) = (y2 num))\n";
    }
    Here.Folder.Write("rules.trr", Rules);
    EXPECT_EQ(Here.Run({"-o", "page.html", "rules.trr"}).Status, 0);
    return Here.Folder.Read("page.html").size();
  };
  const std::size_t Empty = SizeFor(1);
  const std::size_t Thousand = SizeFor(1000) - Empty;
  const std::size_t TenThousand = SizeFor(10000) - Empty;
  EXPECT_LT(TenThousand, Thousand * 10 + Thousand);
  EXPECT_LT(TenThousand, 20000000U);
}

TEST(HtmlProgram, AsksTheNetworkForNothing) {
  Workplace Here;
  Here.Folder.Write("a.trr", CleanRule);
  const std::string Page = Here.Run({"a.trr"}).Out;
  for (const char* Attribute : {" src=", " srcset=", " action=", "@import", "url("}) {
    EXPECT_EQ(Page.find(Attribute), std::string::npos) << Attribute;
  }
  for (const std::string& sTarget : AllBetween(Page, "href=\"", "\"")) {
    EXPECT_TRUE(sTarget.front() == '#' || sTarget == "data:,") << sTarget;
  }
}

}  // namespace
