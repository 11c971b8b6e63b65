#include "TapReport.h"

#include "Details.h"
#include "StructureText.h"

#include <string_view>

namespace Examples {

namespace {

/// The text after a "#" would be a directive.
void AppendDescription(std::string_view Text, std::string& OutReturn) {
  for (const char Byte : Text) {
    OutReturn.append(Byte == '#' || Byte == '\\' ? "\\" : "").append(1, Byte);
  }
}

/// A line of the details; a JSON string is one in YAML, too.
void AppendDetail(std::string_view Name, std::string_view Text, std::string& OutReturn) {
  OutReturn.append("  ").append(Name).append(": ");
  Translate::AppendJsonString(Text, OutReturn);
  OutReturn += '\n';
}

}  // namespace

void AppendTapReport(const TestedGrammar& Tested, const TestResults& Results, bool IsStrict,
                     std::string& OutReturn) {
  OutReturn.append("TAP version 13\n1..").append(std::to_string(Results.vResults.size()));
  OutReturn += '\n';
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    const Example& Current = Tested.AllExamples()[Index];
    const ExampleResult& Result = Results.vResults[Index];
    const bool IsGood = IsAccepted(Result.What, IsStrict);
    OutReturn.append(IsGood ? "ok " : "not ok ").append(std::to_string(Index + 1)).append(" - ");
    AppendDescription(Current.Place + ": " + Current.Source, OutReturn);
    OutReturn += '\n';
    if (!IsGood) {
      OutReturn.append("  ---\n");
      AppendDetail("outcome", NameOf(Result.What), OutReturn);
      for (const Detail& Part : DetailsOf(Tested, Current, Result)) {
        AppendDetail(Part.Name, Part.Text, OutReturn);
      }
      OutReturn.append("  ...\n");
    }
  }
  for (const std::string& sLine : UncoveredLines(Tested, Results.Covered)) {
    OutReturn.append("# ").append(sLine).append(1, '\n');
  }
}

}  // namespace Examples
