// Why an example fails where its text is the reason.

#include "CauseFinder.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Examples::Example;

TEST(CauseFinder, NamesWhatIsWrongWithTheText) {
  const TestFolder Folder;
  const std::string Name = Folder.Write("a.trr",
                                        ";;SL: red car\n;;TL: auto rojo\n"
                                        "NP::NP : [\"red\" N] -> [N \"rojo\"]\n(X2::Y1)\n"
                                        "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
  Examples::TestedGrammar Tested(Translate::RuleSetOptions{}, true);
  Tested.Load({Name}, true);
  const struct {
    std::string Source;
    std::size_t MaxConstituents;
    std::string Cause;
  } Cases[] = {
      {"", 100, "the text has no words"},
      {" \t", 100, "the text has no words"},
      {"red car", 1, "there are more than 1 constituents"},
  };
  for (const auto& Case : Cases) {
    Examples::ParseOptions Options;
    Options.Limits.MaxConstituents = Case.MaxConstituents;
    Examples::CauseFinder Causes(Tested, Options);
    Example Given = Tested.AllExamples().front();
    Given.Source = Case.Source;
    EXPECT_EQ(Causes.CauseOf(Given), Case.Cause) << '"' << Case.Source << '"';
    Given.Rule = Examples::NoRule;
    EXPECT_EQ(Causes.CauseOf(Given), Case.Cause) << '"' << Case.Source << '"';
  }
}

}  // namespace
