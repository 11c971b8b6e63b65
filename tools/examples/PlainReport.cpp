#include "PlainReport.h"

namespace Examples {

void AppendDetails(const std::vector<Detail>& vDetails, std::string& OutReturn) {
  constexpr std::size_t Width = 8;
  for (const Detail& Current : vDetails) {
    std::string Head(Current.Name);
    Head += ':';
    Head.resize(Width, ' ');
    OutReturn.append("  ").append(Head).append(Current.Text).append(1, '\n');
  }
}

void AppendPlainReport(const TestedGrammar& Tested, const TestResults& Results,
                       std::string& OutReturn) {
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    const Example& Current = Tested.AllExamples()[Index];
    const ExampleResult& Result = Results.vResults[Index];
    if (Result.What != Outcome::Passes) {
      OutReturn.append(Current.Place).append(": ").append(NameOf(Result.What));
      OutReturn.append(": ").append(Current.Source).append(1, '\n');
      AppendDetails(DetailsOf(Tested, Current, Result), OutReturn);
    }
  }
  for (const std::string& sLine : UncoveredLines(Tested, Results.Covered)) {
    OutReturn.append(sLine).append(1, '\n');
  }
  OutReturn.append(TotalsOf(Results.vResults)).append(1, '\n');
  if (Results.Covered.IsKnown) {
    OutReturn.append(CoveredLine(Tested, Results.Covered)).append(1, '\n');
  }
}

}  // namespace Examples
