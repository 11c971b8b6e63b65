#include "JunitReport.h"

#include "Details.h"
#include "JsonText.h"

#include <cstdio>
#include <utility>

namespace Examples {

// ---- Text -------------------------------------------------------------------------------------

namespace {

/// The reference for a byte that cannot stand for itself; empty if it can. White space has one,
/// since attributes would not keep it.
std::string_view ReferenceOf(char Byte) {
  switch (Byte) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      break;
  }
  return static_cast<unsigned char>(Byte) < ' ' ? "\xEF\xBF\xBD" : "";
}

}  // namespace

void AppendXmlText(std::string_view Text, std::string& OutReturn) {
  const std::string Unicode = Grammar::ToUnicode(Text);
  for (std::size_t At = 0; At < Unicode.size(); ++At) {
    const std::string_view Next = std::string_view(Unicode).substr(At, 3);
    const std::string_view Reference = ReferenceOf(Unicode[At]);
    if (Next == "\xEF\xBF\xBE" || Next == "\xEF\xBF\xBF") {
      OutReturn.append("\xEF\xBF\xBD");
      At += 2;
    } else if (!Reference.empty()) {
      OutReturn.append(Reference);
    } else {
      OutReturn += Unicode[At];
    }
  }
}

// ---- The report -------------------------------------------------------------------------------

namespace {

void AppendAttribute(std::string_view Name, std::string_view Value, std::string& OutReturn) {
  OutReturn.append(1, ' ').append(Name).append("=\"");
  AppendXmlText(Value, OutReturn);
  OutReturn += '"';
}

std::string SecondsText(double Seconds) {
  char Digits[40];
  const int Size = std::snprintf(Digits, sizeof Digits, "%.6f", Seconds);
  return {Digits, static_cast<std::size_t>(Size)};
}

/// What the head of a suite, or of all, says of its cases.
struct Totals {
  std::size_t Tests = 0;
  std::size_t Failures = 0;
  std::size_t Errors = 0;
  double Seconds = 0;

  void Add(const ExampleResult& Result, double SecondsPassIn, bool IsStrict) {
    ++Tests;
    const bool IsError = Result.What == Outcome::Error;
    Errors += IsError ? 1 : 0;
    Failures += !IsError && !IsAccepted(Result.What, IsStrict) ? 1 : 0;
    Seconds += SecondsPassIn;
  }

  void Append(std::string& OutReturn) const {
    AppendAttribute("tests", std::to_string(Tests), OutReturn);
    AppendAttribute("failures", std::to_string(Failures), OutReturn);
    AppendAttribute("errors", std::to_string(Errors), OutReturn);
    AppendAttribute("time", SecondsText(Seconds), OutReturn);
    OutReturn.append(">\n");
  }
};

std::string FileOf(const Example& Current) {
  return Current.Place.substr(0, Current.Place.rfind(':'));
}

void AppendCase(const TestedGrammar& Tested, const TestResults& Results, std::size_t Index,
                bool IsStrict, std::string& OutReturn) {
  const Example& Current = Tested.AllExamples()[Index];
  const ExampleResult& Result = Results.vResults[Index];
  OutReturn.append("    <testcase");
  AppendAttribute("classname", FileOf(Current), OutReturn);
  AppendAttribute("name", Current.Place + ": " + Current.Source, OutReturn);
  AppendAttribute("time", SecondsText(Results.vSeconds[Index]), OutReturn);
  if (IsAccepted(Result.What, IsStrict)) {
    OutReturn.append("/>\n");
    return;
  }
  std::string Message;
  for (const Detail& Part : DetailsOf(Tested, Current, Result)) {
    Message.append(Message.empty() ? "" : "; ").append(Part.Name).append(": ").append(Part.Text);
  }
  OutReturn.append(Result.What == Outcome::Error ? ">\n      <error" : ">\n      <failure");
  AppendAttribute("type", NameOf(Result.What), OutReturn);
  AppendAttribute("message", Message, OutReturn);
  OutReturn.append("/>\n    </testcase>\n");
}

}  // namespace

void AppendJunitReport(const TestedGrammar& Tested, const TestResults& Results, bool IsStrict,
                       std::string& OutReturn) {
  const std::vector<Example>& vExamples = Tested.AllExamples();
  std::string Suites;
  Totals All;
  for (std::size_t Index = 0; Index < vExamples.size();) {
    const std::string File = FileOf(vExamples[Index]);
    std::string Cases;
    Totals OfFile;
    for (; Index < vExamples.size() && FileOf(vExamples[Index]) == File; ++Index) {
      OfFile.Add(Results.vResults[Index], Results.vSeconds[Index], IsStrict);
      All.Add(Results.vResults[Index], Results.vSeconds[Index], IsStrict);
      AppendCase(Tested, Results, Index, IsStrict, Cases);
    }
    Suites.append("  <testsuite");
    AppendAttribute("name", File, Suites);
    OfFile.Append(Suites);
    Suites.append(Cases).append("  </testsuite>\n");
  }
  OutReturn.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites");
  All.Append(OutReturn);
  OutReturn.append(Suites).append("</testsuites>\n");
}

}  // namespace Examples
