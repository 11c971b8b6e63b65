// Sections: examples, counts, coverage.

#include "Details.h"

#include <array>

namespace Examples {

// ---- Examples ---------------------------------------------------------------------------------

std::vector<Detail> DetailsOf(const TestedGrammar& Tested, const Example& Current,
                              const ExampleResult& Result) {
  if (Result.What == Outcome::Passes) {
    return {};
  }
  if (Result.What == Outcome::PassesByAnotherRule) {
    return {{"by", Tested.PlaceOf(Result.BestRule)}};
  }
  std::vector<Detail> vDetails{{"wanted", Current.Wanted ? *Current.Wanted : "no analysis"}};
  if (Result.What == Outcome::Error) {
    vDetails.push_back({"cause", Result.Error});
  } else if (Result.Best) {
    vDetails.push_back({"given", *Result.Best});
  } else {
    vDetails.push_back({"cause", Result.Cause});
  }
  return vDetails;
}

// ---- Counts -----------------------------------------------------------------------------------

namespace {

/// A number and the right form of a verb or noun: "1 passes", "2 pass".
std::string Counted(std::size_t Count, std::string_view One, std::string_view Several) {
  return std::to_string(Count).append(1, ' ').append(Count == 1 ? One : Several);
}

}  // namespace

std::string TotalsOf(const std::vector<ExampleResult>& vResults) {
  struct Form {
    Outcome What;
    std::string_view One;
    std::string_view Several;
  };
  constexpr std::array<Form, 5> Forms{
      {{Outcome::Passes, "passes", "pass"},
       {Outcome::PassesByAnotherRule, "passes by another rule", "pass by another rule"},
       {Outcome::Differs, "differs", "differ"},
       {Outcome::Fails, "fails", "fail"},
       {Outcome::Error, "reached a limit", "reached a limit"}}};
  std::array<std::size_t, Forms.size()> Counts{};
  for (const ExampleResult& Result : vResults) {
    ++Counts[static_cast<std::size_t>(Result.What)];
  }
  std::string Text = Counted(vResults.size(), "example", "examples");
  std::string_view Before = ": ";
  for (const Form& Current : Forms) {
    const std::size_t Count = Counts[static_cast<std::size_t>(Current.What)];
    if (Count > 0) {
      Text.append(Before).append(Counted(Count, Current.One, Current.Several));
      Before = ", ";
    }
  }
  return Text;
}

// ---- Coverage ---------------------------------------------------------------------------------

std::vector<std::string> UncoveredLines(const TestedGrammar& Tested, const Coverage& Covered) {
  std::vector<std::string> vsLines;
  for (const std::uint32_t Number : Covered.vUncoveredRules) {
    vsLines.push_back("not covered: rule " + Tested.AllRules()[Number].Place);
  }
  for (const std::size_t Index : Covered.vUncoveredConstraints) {
    const ConstraintLine& Line = Tested.Constraints()[Index];
    vsLines.push_back("not covered: constraint " + Line.Place + ": " + Line.Text);
  }
  return vsLines;
}

std::string CoveredLine(const TestedGrammar& Tested, const Coverage& Covered) {
  const auto Share = [](std::size_t Missing, std::size_t All) {
    return std::to_string(All - Missing) + " of " + std::to_string(All);
  };
  return "covered: " + Share(Covered.vUncoveredRules.size(), Tested.AllRules().size()) +
         " rules, " + Share(Covered.vUncoveredConstraints.size(), Tested.Constraints().size()) +
         " constraints";
}

}  // namespace Examples
