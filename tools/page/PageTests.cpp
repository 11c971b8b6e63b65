// Sections: derivations, examples, coverage, the run.

#include "PageTests.h"

#include "Characters.h"
#include "DerivationTrees.h"
#include "Details.h"
#include "HtmlPage.h"
#include "PairFile.h"
#include "PicturePacking.h"
#include "RuleEntry.h"
#include "SvgWriter.h"
#include "TestRun.h"
#include "Translator.h"
#include "TreeLayout.h"

#include <algorithm>

namespace Page {

using Examples::Example;
using Examples::ExampleResult;
using Examples::Outcome;
using Examples::TestedGrammar;

// ---- Derivations ------------------------------------------------------------------------------

namespace {

/// Draws the derivations by which examples have come out as they have.
class ExampleDerivations {
 public:
  explicit ExampleDerivations(const Translate::RuleSet& RulesPassIn)
      : Rules(RulesPassIn),
        Engine(RulesPassIn),
        Structures(RulesPassIn, Engine.Structures(), Engine.Atoms()),
        Trees(RulesPassIn, Structures),
        Layout(Picture::SvgMeasures()) {
    Options.AllDerivations = true;
    Options.HasStarts = true;
  }

  /// Appends what is shown on demand; nothing where no derivation has the words and the root, or
  /// where it is too large to be drawn.
  void Append(const Example& Given, const ExampleResult& Result, std::string& HtmlReturn) {
    if (!ReadTrees(Given, Result)) {
      return;
    }
    Layout.Draw(Trees.Trees(), Shapes);
    Shapes.Title = Picture::ShownText(Given.Source + " -> " + *Result.Best);
    Shapes.Description = Trees.Description();
    Svg.clear();
    Picture::AppendSvg(Shapes, {true, Shapes.Title}, Svg);
    HtmlReturn += "<details class=\"derivation\"><summary>Derivation</summary>\n<div data-svg=\"";
    AppendPackedAttribute(Svg, HtmlReturn);
    HtmlReturn += "\"></div>\n";
    Picture::AppendDetails("Rules and structures", Trees.Details(), HtmlReturn);
    HtmlReturn += "</details>\n";
  }

 private:
  /// Reads the derivation that has been judged. Mostly it is the best one.
  bool ReadTrees(const Example& Given, const ExampleResult& Result) {
    return Result.Best && Result.BestRule != Examples::NoRule &&
           (ReadAmong(1, Given, Result) ||
            ReadAmong(Examples::ExampleParse::MaxTexts, Given, Result));
  }

  /// Reads it if it is among so many of the best derivations.
  bool ReadAmong(std::uint64_t Count, const Example& Given, const ExampleResult& Result) {
    Options.Translations = Count;
    Options.vStarts = {Rules.At(Result.BestRule).SourceType};
    const Translate::TextResult Found = Engine.Translate(Given.Source, Options);
    for (const Translate::Translation& Current : Found.vTranslations) {
      const std::vector<Translate::TreeNode> vNodes = Engine.NodesOf(Current.Tree, 0);
      if (Current.Target == *Result.Best && vNodes.front().Rule == Result.BestRule) {
        return Trees.Read(vNodes, Engine.ParsedChart().Tokens());
      }
    }
    return false;
  }

  const Translate::RuleSet& Rules;
  Translate::Translator Engine;
  Translate::StructureText Structures;
  Translate::DerivationTrees Trees;
  Picture::TreeLayout Layout;
  Picture::Drawing Shapes;
  std::string Svg;
  Translate::TextOptions Options;
};

// ---- Examples ---------------------------------------------------------------------------------

std::string_view LookOf(Outcome What) {
  return What == Outcome::Passes ? "good" : Examples::IsPassing(What) ? "odd" : "bad";
}

/// Words keep their own direction, whatever stands around them.
void AppendWords(std::string_view Words, std::string& HtmlReturn) {
  HtmlReturn += "<bdi>";
  AppendShown(Words, HtmlReturn);
  HtmlReturn += "</bdi>";
}

void AppendExample(const TestedGrammar& Tested, const Example& Given, const ExampleResult& Result,
                   ExampleDerivations& Drawn, std::string& HtmlReturn) {
  HtmlReturn.append("<li class=\"").append(LookOf(Result.What)).append("\"><b>");
  HtmlReturn.append(NameOf(Result.What)).append("</b>: ");
  AppendWords(Given.Source, HtmlReturn);
  if (Given.Wanted) {
    HtmlReturn += " → ";
    AppendWords(*Given.Wanted, HtmlReturn);
  } else {
    HtmlReturn += " (to be rejected)";
  }
  HtmlReturn += '\n';
  std::string Details;
  for (const Examples::Detail& Current : DetailsOf(Tested, Given, Result)) {
    Details.append("<dt>").append(Current.Name).append("</dt><dd>");
    AppendWords(Current.Text, Details);
    Details += "</dd>\n";
  }
  if (!Details.empty()) {
    HtmlReturn.append("<dl>\n").append(Details).append("</dl>\n");
  }
  Drawn.Append(Given, Result, HtmlReturn);
  HtmlReturn += "</li>\n";
}

/// Appends the examples to their rules, and those without a rule to a list of their own.
void AddExamples(const TestedGrammar& Tested, const Examples::TestResults& Results,
                 PageTests& TestsReturn) {
  ExampleDerivations Drawn(Tested.Rules());
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    const Example& Given = Tested.AllExamples()[Index];
    const bool HasFailed = !Examples::IsPassing(Results.vResults[Index].What);
    const bool HasRule = Given.Rule != Examples::NoRule;
    AppendExample(Tested, Given, Results.vResults[Index], Drawn,
                  HasRule ? TestsReturn.vRules[Given.Rule].Html : TestsReturn.Others);
    TestsReturn.HasFailure = TestsReturn.HasFailure || HasFailed;
    if (HasRule && HasFailed) {
      TestsReturn.vRules[Given.Rule].HasFailure = true;
    }
  }
}

void AddList(std::string_view Heading, std::string_view Class, std::string& HtmlReturn) {
  if (!HtmlReturn.empty()) {
    std::string List = "<h4>";
    List.append(Heading).append("</h4>\n<ul class=\"").append(Class).append("\">\n");
    HtmlReturn.insert(0, List);
    HtmlReturn += "</ul>\n";
  }
}

}  // namespace

// ---- Coverage ---------------------------------------------------------------------------------

namespace {

void AddCoverage(const TestedGrammar& Tested, const Examples::Coverage& Covered,
                 PageTests& TestsReturn) {
  std::vector<std::string> vsLists(TestsReturn.vRules.size());
  for (const std::uint32_t Rule : Covered.vUncoveredRules) {
    vsLists[Rule] += "<li><b>no passing example uses this rule</b></li>\n";
  }
  for (std::uint32_t Rule = 0; Rule < Tested.AllRules().size(); ++Rule) {
    const std::uint32_t Usable = Tested.AllRules()[Rule].Usable;
    if (Usable == Examples::NoRule) {
      continue;
    }
    const auto& vMissing = Covered.vUncoveredConstraints;
    auto Next = std::lower_bound(vMissing.begin(), vMissing.end(), Tested.FirstConstraint(Usable));
    for (; Next != vMissing.end() && *Next < Tested.FirstConstraint(Usable + 1); ++Next) {
      vsLists[Rule] += "<li><b>no example needs</b> <code>";
      AppendShown(Tested.Constraints()[*Next].Text, vsLists[Rule]);
      vsLists[Rule] += "</code></li>\n";
    }
  }
  for (std::size_t Rule = 0; Rule < vsLists.size(); ++Rule) {
    TestsReturn.vRules[Rule].IsUncovered = !vsLists[Rule].empty();
    AddList("Not covered", "uncovered", vsLists[Rule]);
    TestsReturn.vRules[Rule].Html += vsLists[Rule];
  }
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

PageTests RunPageTests(const std::vector<std::string>& vsGrammars,
                       const std::vector<std::string>& vsPairs, unsigned Threads, bool Quiet) {
  TestedGrammar Tested(Translate::RuleSetOptions(), true);
  if (!vsPairs.empty()) {
    Tested.DescribeAllRules();
  }
  Tested.Load(vsGrammars, Quiet);
  for (const std::string& sFile : vsPairs) {
    Examples::AddPairs(sFile, Tested);
  }
  Examples::ParseOptions Parse;
  Parse.WantsCauses = true;
  const Examples::TestResults Results = RunExamples(Tested, Parse, Threads, true);
  PageTests Tests;
  Tests.vRules.resize(Tested.AllRules().size());
  AddExamples(Tested, Results, Tests);
  for (RuleTests& Current : Tests.vRules) {
    AddList("Examples", "examples", Current.Html);
  }
  AddCoverage(Tested, Results.Covered, Tests);
  Tests.Totals = Examples::TotalsOf(Results.vResults);
  Tests.Covered = Examples::CoveredLine(Tested, Results.Covered);
  return Tests;
}

}  // namespace Page
