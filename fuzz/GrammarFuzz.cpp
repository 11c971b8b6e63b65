// A text goes through the grammar reader, the checks of each rule, the normal form and back.

#include "Finding.h"
#include "FuzzSupport.h"
#include "LibraryText.h"
#include "LineKind.h"
#include "NormalForm.h"
#include "RuleChecker.h"
#include "RuleReader.h"
#include "RuleRecord.h"
#include "StrayText.h"
#include "support/NormalFormMeaning.h"
#include "support/StreamCapture.h"

#include <algorithm>
#include <sstream>

namespace {

using Grammar::Finding;
using Grammar::LineKind;
using Grammar::RuleRecord;
using Grammar::RuleText;

std::vector<RuleText> RulesOf(const std::string& Text) {
  std::istringstream Stream(Text);
  Grammar::RuleReader Reader(Stream, "-");
  std::vector<RuleText> vRules;
  for (RuleText Rule; Reader.Next(Rule);) {
    vRules.push_back(Rule);
  }
  return vRules;
}

/// Every byte is in one rule, and every line is where it says that it is.
void RequireAllBytes(const std::vector<RuleText>& vRules, const std::string& Text) {
  std::string All;
  std::size_t Line = 1;
  for (const RuleText& Rule : vRules) {
    Require(Rule.FirstLine == Line, "a rule begins on the line after the one before it");
    All += Rule.Text;
    Line += Rule.vLines.size();
  }
  Require(All == Text, "every byte is in one rule");
}

bool HasFindingOn(const std::vector<Finding>& vFindings, std::size_t Line) {
  return std::any_of(vFindings.begin(), vFindings.end(),
                     [&](const Finding& Found) { return Found.Line == Line; });
}

/// A line of a rule that was read is in the record, or it is reported of.
void RequireLinesAccountedFor(const RuleText& Rule, const RuleRecord& Record,
                              const std::vector<Finding>& vFindings) {
  std::size_t Comments = 0;
  for (std::size_t Line = 0; Line < Rule.vLines.size(); ++Line) {
    const Grammar::LineParts Parts = Grammar::PartsOf(Rule.Line(Line));
    const std::size_t Strays = Grammar::StrayTexts(Parts).size();
    Comments += Strays + (Parts.Comment.empty() ? 0 : 1);
    Require(Parts.Kind != LineKind::Other || Strays == 1, "a line that means nothing is stray");
    Require(Strays == 0 || HasFindingOn(vFindings, Rule.FirstLine + Line),
            "stray text is reported");
  }
  Require(Record.Comments().size() == Comments, "every comment and every stray text is kept");
}

void RequirePlaces(const RuleText& Rule, const std::vector<Finding>& vFindings) {
  for (const Finding& Found : vFindings) {
    Require(Found.Line >= Rule.FirstLine && Found.Line < Rule.FirstLine + Rule.vLines.size(),
            "a finding is on a line of its rule");
    const std::size_t Size = Rule.Line(Found.Line - Rule.FirstLine).size();
    Require(Found.Column >= 1 && Found.Column <= Size + 1, "a finding is in its line");
    Require(Found.Length >= 1 && Found.Column + Found.Length <= std::max<std::size_t>(Size, 1) + 1,
            "a finding ends in its line");
  }
}

/// A line that is replaced by what was suggested for it has no finding any more.
void RequireSuggestionsMend(const RuleText& Rule, const std::vector<Finding>& vFindings) {
  for (const Finding& Found : vFindings) {
    if (Found.Suggestion.empty()) {
      continue;
    }
    const RuleText::Span& Place = Rule.vLines[Found.Line - Rule.FirstLine];
    std::string Text = Rule.Text;
    Text.replace(Place.Begin, Place.End - Place.Begin, Found.Suggestion);
    RuleRecord Record;
    std::vector<Finding> vAfter;
    for (const RuleText& Part : RulesOf(Text)) {
      Grammar::CheckRule(Part, Record, vAfter);
    }
    Require(!HasFindingOn(vAfter, Found.Line - Rule.FirstLine + 1),
            "a suggestion corrects its line");
  }
}

std::string NormalFormOf(const RuleRecord& Record, bool OneLine) {
  Grammar::FormOptions Options;
  Options.OneLine = OneLine;
  std::string Text;
  AppendNormalForm(Record, Options, Text);
  return Text;
}

/// What is written is one rule, and is written the same when it is read again.
void RequireStable(const RuleRecord& Record) {
  const std::string Once = NormalFormOf(Record, false);
  const std::vector<RuleText> vRules = RulesOf(Once);
  Require(vRules.size() == 1, "the normal form is one rule");
  RuleRecord Again;
  std::vector<Finding> vFindings;
  Require(ReadRule(vRules[0], Again, vFindings), "the normal form can be read");
  Require(vFindings.empty(), "the normal form has no stray text");
  Require(NormalFormOf(Again, false) == Once, "the normal form stays as it is");
  const std::string Folded = NormalFormOf(Record, true);
  Require(std::count(Folded.begin(), Folded.end(), '\n') == 1, "one line is one line");
  std::string Unfolded;
  Grammar::AppendUnfolded(Folded, Unfolded);
  Require(Unfolded == Once, "one line can be unfolded");
}

/// What the library reads from the normal form is what it reads from the rule.
void RequireMeaning(const RuleText& Rule, const RuleRecord& Record) {
  Require(IsReadOtherwise(Record.Lines()) || ReadsTheSame(Rule.Text, NormalFormOf(Record, false)),
          "the library reads the same from the normal form");
}

void RequireFlips(RuleRecord& Record) {
  const std::string Before = NormalFormOf(Record, false);
  Record.Flip();
  Record.Flip();
  Require(NormalFormOf(Record, false) == Before, "flipping twice changes nothing");
}

/// What the library writes of a text that it reads, and writes without ending the process.
std::string LibraryTextOf(const std::string& Text) {
  StreamCapture Streams;
  TrRule Rule;
  bool IsRead = false;
  std::string Printed;
  HaltOf([&] {
    IsRead = Rule.SetTrRuleFromString(Text);
    Streams.TakeOut();
    Rule.Print();
    Printed = Streams.TakeOut();
  });
  return IsRead ? Printed : "";
}

void RequireLibraryText(const RuleText& Rule) {
  std::string Text;
  Grammar::AppendLibraryText(Rule.Text, Text);
  Require(Text == LibraryTextOf(Rule.Text), "a text is that of the library");
}

void RequireRule(const RuleText& Rule) {
  RuleRecord Record;
  std::vector<Finding> vFindings;
  const bool IsRead = Grammar::CheckRule(Rule, Record, vFindings);
  RequirePlaces(Rule, vFindings);
  RequireLibraryText(Rule);
  RequireSuggestionsMend(Rule, vFindings);
  const bool HasErrors = std::any_of(vFindings.begin(), vFindings.end(), [](const Finding& Found) {
    return Found.Level == Grammar::Severity::Error;
  });
  Require(IsRead || HasErrors || !Rule.HasRule || Rule.Continues,
          "a rule that cannot be read has an error");
  if (IsRead) {
    RequireLinesAccountedFor(Rule, Record, vFindings);
    RequireStable(Record);
    RequireMeaning(Rule, Record);
    RequireFlips(Record);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string Text(Data, Data + Size);
  StreamCapture Streams;
  const std::vector<RuleText> vRules = RulesOf(Text);
  RequireAllBytes(vRules, Text);
  for (const RuleText& Rule : vRules) {
    RequireRule(Rule);
  }
  Require(Streams.TakeOut().empty() && Streams.TakeErr().empty(),
          "nothing of the library reaches the streams");
  return 0;
}
