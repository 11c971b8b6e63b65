#include "PageSupport.h"
#include "PageTests.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Page;

const char* const Rules =
    ";;SL: the red car\n;;TL: el auto rojo\n;;SL: the red red car\n;;TL: <x>\n;;*SL: the car\n"
    "{NP,1}\nNP::NP : [\"the\" A N] -> [\"el\" N A]\n(X2::Y3)\n(X3::Y2)\n((x3 num) = sg)\n\n"
    "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n\n"
    "{A,1}\nA::A : [\"red\"] -> [\"rojo\"]\n(X1::Y1)\n\n"
    "{A,2}\nA::A : [\"big\"] -> [\"gran\"]\n(X1::Y1)\n";

/// A part of the page without the packed pictures and the folder of its files.
std::string Shown(std::string Html, const TestFolder& Folder) {
  const std::string Place = Folder.Path("");
  for (std::size_t At = 0; (At = Html.find(Place, At)) != std::string::npos;) {
    Html.erase(At, Place.size());
  }
  for (const std::string& sPacked : AllBetween(Html, "data-svg=\"", "\"")) {
    Html.replace(Html.find(sPacked), sPacked.size(), "…");
  }
  return Html;
}

TEST(PageTests, ShowOutcomesAndWhatIsNotCovered) {
  const TestFolder Folder;
  const std::string File = Folder.Write("a.trr", Rules);
  for (const unsigned Threads : {1U, 2U}) {
    const PageTests Tests = RunPageTests({File}, {}, Threads, true);
    EXPECT_EQ(Tests.Totals, "3 examples: 2 pass, 1 fails");
    EXPECT_EQ(Tests.Covered, "covered: 3 of 4 rules, 0 of 2 constraints");
    EXPECT_EQ(Tests.Others, "");
    EXPECT_TRUE(Tests.HasFailure);
    ASSERT_EQ(Tests.vRules.size(), 4U);
    EXPECT_TRUE(Tests.vRules[0].HasFailure);
    EXPECT_FALSE(Tests.vRules[1].HasFailure);
    EXPECT_TRUE(Tests.vRules[0].IsUncovered);
    EXPECT_FALSE(Tests.vRules[2].IsUncovered);
    EXPECT_EQ(Shown(Tests.vRules[0].Html, Folder), R"(<h4>Examples</h4>
<ul class="examples">
<li class="good"><b>passes</b>: <bdi>the red car</bdi> → <bdi>el auto rojo</bdi>
<details class="derivation"><summary>Derivation</summary>
<div data-svg="…"></div>
<details><summary>Rules and structures</summary>
<ol>
<li>a.trr:7</li>
<li>a.trr:18</li>
<li>a.trr:13 [NUM=SG] -&gt; []</li>
</ol>
</details>
</details>
</li>
<li class="bad"><b>fails</b>: <bdi>the red red car</bdi> → <bdi>&lt;x&gt;</bdi>
<dl>
<dt>wanted</dt><dd><bdi>&lt;x&gt;</bdi></dd>
<dt>cause</dt><dd><bdi>NP,1 fits x1–x2 at &quot;the red&quot;; x3 wants N::N, and at &quot;red&quot; begins A::A &quot;red&quot;</bdi></dd>
</dl>
</li>
<li class="good"><b>passes</b>: <bdi>the car</bdi> (to be rejected)
</li>
</ul>
<h4>Not covered</h4>
<ul class="uncovered">
<li><b>no example needs</b> <code>((x3 num) = sg)</code></li>
</ul>
)");
    EXPECT_EQ(Tests.vRules[2].Html, "");
    EXPECT_EQ(Tests.vRules[3].Html,
              "<h4>Not covered</h4>\n<ul class=\"uncovered\">\n"
              "<li><b>no passing example uses this rule</b></li>\n</ul>\n");
  }
}

TEST(PageTests, DrawTheDerivationOfAnExample) {
  const TestFolder Folder;
  const PageTests Tests = RunPageTests({Folder.Write("a.trr", Rules)}, {}, 1, true);
  const std::vector<std::string> vsPacked =
      AllBetween(Tests.vRules[0].Html, "data-svg=\"", "\"></div>");
  ASSERT_EQ(vsPacked.size(), 1U);
  const std::string Svg = Unpacked(Unescaped(vsPacked.front()));
  EXPECT_EQ(
      AllBetween(Svg, "-desc\">", "</desc>").front(),
      "1: NP becomes NP by {NP,1}, of 2 3. 2: A becomes A by {A,1}. 3: N becomes N by {N,1}.");
}

TEST(PageTests, DrawTheDerivationThatWasJudgedAlsoWhereAnotherIsBetter) {
  const TestFolder Folder;
  const PageTests Tests = RunPageTests(
      {Folder.Write("a.trr",
                    "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n\n"
                    ";;SL: car\n;;TL: coche\n{N,2}\nN::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n")},
      {}, 1, true);
  EXPECT_EQ(Tests.vRules[0].Html.find("data-svg"), std::string::npos);
  const std::vector<std::string> vsPacked =
      AllBetween(Tests.vRules[1].Html, "data-svg=\"", "\"></div>");
  ASSERT_EQ(vsPacked.size(), 1U);
  const std::string Svg = Unpacked(Unescaped(vsPacked.front()));
  EXPECT_EQ(AllBetween(Svg, "-desc\">", "</desc>").front(), "1: N becomes N by {N,2}.");
}

TEST(PageTests, ListTheExamplesOfFiles) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Rules);
  const std::string Pairs = Folder.Write("pairs.txt", "big\tgran\nbig\tgrande\n*red\n");
  const PageTests Tests = RunPageTests({Grammar}, {Pairs}, 1, true);
  EXPECT_EQ(Tests.Totals, "6 examples: 3 pass, 1 differs, 2 fail");
  EXPECT_EQ(Shown(Tests.Others, Folder),
            R"(<li class="good"><b>passes</b>: <bdi>big</bdi> → <bdi>gran</bdi>
<details class="derivation"><summary>Derivation</summary>
<div data-svg="…"></div>
<details><summary>Rules and structures</summary>
<ol>
<li>a.trr:22</li>
</ol>
</details>
</details>
</li>
<li class="bad"><b>differs</b>: <bdi>big</bdi> → <bdi>grande</bdi>
<dl>
<dt>wanted</dt><dd><bdi>grande</bdi></dd>
<dt>given</dt><dd><bdi>gran</bdi></dd>
</dl>
<details class="derivation"><summary>Derivation</summary>
<div data-svg="…"></div>
<details><summary>Rules and structures</summary>
<ol>
<li>a.trr:22</li>
</ol>
</details>
</details>
</li>
<li class="bad"><b>fails</b>: <bdi>red</bdi> (to be rejected)
<dl>
<dt>wanted</dt><dd><bdi>no analysis</bdi></dd>
<dt>given</dt><dd><bdi>rojo</bdi></dd>
</dl>
<details class="derivation"><summary>Derivation</summary>
<div data-svg="…"></div>
<details><summary>Rules and structures</summary>
<ol>
<li>a.trr:18</li>
</ol>
</details>
</details>
</li>
)");
}

}  // namespace
