// A rule text goes through the reader, which loads lines in their common form, and through the
// reference reader, which has no common form. Each line also goes to a loader by itself, and its
// parts are compared with those that a regular expression finds.

#include "FuzzSupport.h"
#include "LineScan.h"
#include "RuleChecks.h"
#include "support/LineLoading.h"
#include "support/ReferenceReader.h"
#include "support/StreamCapture.h"

namespace {

/// The outcome of reading: the result, the output and the rule.
struct Reading {
  Outcome<bool> Result;
  Written Streams;
  std::string Members;
};

template <typename ReadT>
Reading ReadInto(const TrRule& Rule, ReadT Read) {
  Reading Made;
  Made.Streams = WrittenBy([&] { Made.Result = OutcomeOf(Read); });
  Made.Members = MembersOf(Rule);
  return Made;
}

void RequireSame(const Reading& Given, const Reading& Expected, const std::string& What) {
  Require(Given.Result == Expected.Result, What + " returns the expected result");
  Require(Given.Streams == Expected.Streams, What + " prints the expected output");
  Require(Given.Members == Expected.Members, What + " makes the expected rule");
}

/// Reads the text twice: into a new rule, and then again into the same rule.
void RequireReading(const std::string& Text) {
  TrRule Rule;
  TrRule Expected;
  for (const char* Which : {"the first reading", "the second reading"}) {
    const Reading Given = ReadInto(Rule, [&] { return Rule.SetTrRuleFromString(Text); });
    const Reading Reference =
        ReadInto(Expected, [&] { return ReferenceReader(Expected).Read(Text); });
    RequireSame(Given, Reference, Which);
  }
}

/// A line in its common form, loaded into two rules: a new one and a filled one.
void RequireLoading(const std::string& Line) {
  for (const char* Start : {"", "A::B [c] -> [d]\n(X2::Y2)\n((y1 num) = sg)\n((x1 num) = sg)\n"}) {
    TrRule Rule;
    TrRule Expected;
    Rule.SetTrRuleFromString(Start);
    Expected.SetTrRuleFromString(Start);
    bool IsLoaded = false;
    const Reading Given = ReadInto(Rule, [&] {
      TrRuleInternal::RuleLoader Loader(Rule);
      IsLoaded = LoadCommonLine(Line, Loader);
      return true;
    });
    if (IsLoaded) {
      RequireSame(Given,
                  ReadInto(Expected, [&] { return ReferenceReader(Expected).ReadLine(Line); }),
                  "loading a line");
    } else {
      Require(Given.Members == MembersOf(Expected), "a line that is not loaded changes nothing");
    }
  }
}

/// Whether a production accepts exactly the expected lines. Regular expressions suit only short
/// texts.
void RequireForms(const std::string& Line) {
  constexpr std::size_t MaxSize = 200;
  if (Line.size() > MaxSize) {
    return;
  }
  TrRuleInternal::HeaderParts Header;
  TrRuleInternal::RuleLineParts RuleLine;
  TrRuleInternal::AlignmentParts Alignment;
  TrRuleInternal::ConstraintParts Constraint;
  const std::optional<Strings> vsHeader = Reference::HeaderParts(Line);
  const std::optional<Strings> vsRuleLine = Reference::RuleLineParts(Line);
  const std::optional<Strings> vsAlignment = Reference::AlignmentParts(Line);
  const std::optional<Strings> vsConstraint = Reference::ConstraintParts(Line);
  Require(ParseCommonHeader(Line, Header) == vsHeader.has_value() &&
              (!vsHeader || (Header.Type == vsHeader->at(0) && Header.Number == vsHeader->at(1))),
          "a header is taken apart as it should");
  Require(ParseCommonRuleLine(Line, RuleLine) == vsRuleLine.has_value() &&
              (!vsRuleLine ||
               (RuleLine.SLLabels == vsRuleLine->at(2) && RuleLine.TLLabels == vsRuleLine->at(3))),
          "a rule line is taken apart as it should");
  Require(ParseCommonAlignment(Line, Alignment) == vsAlignment.has_value() &&
              (!vsAlignment ||
               (Alignment.XText == vsAlignment->at(0) && Alignment.YText == vsAlignment->at(1))),
          "an alignment line is taken apart as it should");
  Require(ParseCommonForm(Line, Constraint) == vsConstraint.has_value() &&
              (!vsConstraint || Constraint.Right == vsConstraint->at(4)),
          "a constraint is taken apart as it should");
}

void RequireScan(const std::string& Line) {
  const TrRuleInternal::ScannedLine Scan = TrRuleInternal::ScanLine(Line);
  Require(Scan.CommentBegin == Reference::CommentBegin(Line), "the comment is found");
  const auto Marks = [](const TrRuleInternal::LineMarks& Found) {
    return std::vector<bool>{Found.HasComment, Found.HasBrace, Found.HasArrow, Found.HasColons,
                             Found.HasEquals};
  };
  const auto Expected = [](const std::string& Text) {
    std::vector<bool> vFound;
    for (const char* Mark : {";;", "{", "] -> [", "::", "="}) {
      vFound.push_back(Reference::Holds(Text, Mark));
    }
    return vFound;
  };
  Require(Marks(Scan.Whole) == Expected(Line), "the marks of a line are found");
  Require(Marks(Scan.Code) == Expected(Line.substr(0, Scan.CommentBegin)),
          "and those before its comment");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const SilentStreams Silence;
  RequireReading(std::string(Data, Data + Size));
  for (const std::string& sLine : LinesOf(Data, Size)) {
    RequireLoading(sLine);
    RequireForms(sLine);
    RequireScan(sLine);
  }
  return 0;
}
