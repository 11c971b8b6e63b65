#include "JsonReport.h"

#include "StructureText.h"

#include <optional>
#include <string_view>

namespace Examples {

namespace {

void AppendOptional(const std::optional<std::string>& Text, std::string& OutReturn) {
  if (Text) {
    Translate::AppendJsonString(*Text, OutReturn);
  } else {
    OutReturn.append("null");
  }
}

void AppendExample(const Example& Current, const ExampleResult& Result, std::string& OutReturn) {
  OutReturn.append("{\"rule\":");
  Translate::AppendJsonString(Current.Place, OutReturn);
  OutReturn.append(",\"source\":");
  Translate::AppendJsonString(Current.Source, OutReturn);
  OutReturn.append(",\"wanted\":");
  AppendOptional(Current.Wanted, OutReturn);
  OutReturn.append(",\"outcome\":");
  Translate::AppendJsonString(NameOf(Result.What), OutReturn);
  OutReturn.append(",\"best\":");
  AppendOptional(Result.Best, OutReturn);
  OutReturn.append("}\n");
}

/// Appends the places of some of a list's elements, between commas.
template <typename IndexT, typename ElementT>
void AppendPlaces(const std::vector<IndexT>& vIndices, const std::vector<ElementT>& vElements,
                  std::string& OutReturn) {
  std::string_view Before = "";
  for (const IndexT Index : vIndices) {
    OutReturn.append(Before);
    Translate::AppendJsonString(vElements[Index].Place, OutReturn);
    Before = ",";
  }
}

}  // namespace

void AppendJsonReport(const TestedGrammar& Tested, const TestResults& Results,
                      std::string& OutReturn) {
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    AppendExample(Tested.AllExamples()[Index], Results.vResults[Index], OutReturn);
  }
  if (Results.Covered.IsKnown) {
    OutReturn.append("{\"uncovered\":{\"rules\":[");
    AppendPlaces(Results.Covered.vUncoveredRules, Tested.AllRules(), OutReturn);
    OutReturn.append("],\"constraints\":[");
    AppendPlaces(Results.Covered.vUncoveredConstraints, Tested.Constraints(), OutReturn);
    OutReturn.append("]}}\n");
  }
}

}  // namespace Examples
