// Sections: texts of rules, outputs, the run.

#include "FindCommand.h"

#include "GroupCounts.h"
#include "Histogram.h"
#include "PictureOutput.h"
#include "QueryParser.h"
#include "RuleJson.h"
#include "RulePicture.h"
#include "RuleQuery.h"
#include "RunError.h"
#include "SvgWriter.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string_view>

namespace Grammar {

// ---- Texts of rules ---------------------------------------------------------------------------

namespace {

/// Appends a rule as it is written, without blank lines at its ends, and with an end of its last
/// line.
void AppendAsWritten(const RuleText& Text, std::string& TextReturn) {
  const auto IsBlank = [](const RuleText::Span& Line) { return Line.Kind == LineKind::Blank; };
  const auto First = std::find_if_not(Text.vLines.begin(), Text.vLines.end(), IsBlank);
  const auto AfterLast = std::find_if_not(Text.vLines.rbegin(), Text.vLines.rend(), IsBlank).base();
  const std::size_t End = AfterLast == Text.vLines.end() ? Text.Text.size() : AfterLast->Begin;
  TextReturn.append(Text.Text, First->Begin, End - First->Begin);
  if (AfterLast == Text.vLines.end() && Text.LacksFinalNewline) {
    TextReturn += '\n';
  }
}

}  // namespace

// ---- Outputs ----------------------------------------------------------------------------------

namespace {

/// Finds rules. What has a key has been found.
class Finder : public RuleVisitor {
 public:
  explicit Finder(const Query::QueryNode& QueryPassIn) : Asked(QueryPassIn) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    if (Fits(Asked, Record.Lines())) {
      KeyReturn += '+';
      Describe(Record, KeyReturn, TextReturn);
    }
    return true;
  }

  void TakeRule(std::string_view Key, std::string_view Text) override {
    if (!Key.empty()) {
      ++Found;
      Take(Key.substr(1), Text);
    }
  }

  /// Text without a rule is never found.
  void TakeText(std::string_view /*Text*/) override {}

  /// Puts what is written in its place. @return the status of the run, whatever was found
  virtual int Finish(const RunTally& Tally) = 0;

  std::uint64_t Count() const { return Found; }

 private:
  /// Makes of a rule that was found what `Take` gets. Several threads at once, as `PrepareRule`.
  virtual void Describe(RuleRecord& Record, std::string& KeyReturn,
                        std::string& TextReturn) const = 0;
  virtual void Take(std::string_view Key, std::string_view Text) = 0;

  const Query::QueryNode& Asked;
  std::uint64_t Found = 0;
};

/// Finders that write one text.
class TextFinder : public Finder {
 public:
  TextFinder(const RunOptions& RunPassIn, const Query::QueryNode& QueryPassIn)
      : Finder(QueryPassIn), Output(RunPassIn.Output), Run(RunPassIn) {}

  int Finish(const RunTally& Tally) override {
    WriteEnd();
    return FinishRun(Run, Tally, Output, false);
  }

 protected:
  virtual void WriteEnd() {}

  OutputFile Output;

 private:
  const RunOptions& Run;
};

class RuleFinder : public TextFinder {
 public:
  using TextFinder::TextFinder;

 private:
  void Describe(RuleRecord& Record, std::string& /*KeyReturn*/,
                std::string& TextReturn) const override {
    AppendAsWritten(Record.Lines().Text(), TextReturn);
  }

  void Take(std::string_view /*Key*/, std::string_view Text) override {
    if (Count() > 1) {
      Output.Write("\n");
    }
    Output.Write(Text);
  }
};

class JsonFinder : public TextFinder {
 public:
  using TextFinder::TextFinder;

 private:
  void Describe(RuleRecord& Record, std::string& /*KeyReturn*/,
                std::string& TextReturn) const override {
    AppendJson(Record, TextReturn);
  }

  void Take(std::string_view /*Key*/, std::string_view Text) override { Output.Write(Text); }
};

class CountFinder : public TextFinder {
 public:
  using TextFinder::TextFinder;

 private:
  void Describe(RuleRecord& /*Record*/, std::string& /*KeyReturn*/,
                std::string& /*TextReturn*/) const override {}
  void Take(std::string_view /*Key*/, std::string_view /*Text*/) override {}

  void WriteEnd() override { Output.Write(std::to_string(Count()) + '\n'); }
};

class GroupFinder : public TextFinder {
 public:
  GroupFinder(const RunOptions& RunPassIn, const Query::QueryNode& QueryPassIn,
              Query::GroupBy ByPassIn, FindFormat FormatPassIn)
      : TextFinder(RunPassIn, QueryPassIn), By(ByPassIn), Format(FormatPassIn) {}

 private:
  void Describe(RuleRecord& Record, std::string& /*KeyReturn*/,
                std::string& TextReturn) const override {
    for (const std::string& sKey : Query::GroupKeys(Record.Lines(), By)) {
      TextReturn.append(sKey).append(1, '\n');
    }
  }

  void Take(std::string_view /*Key*/, std::string_view Text) override {
    for (std::size_t End = 0; !Text.empty(); Text.remove_prefix(End + 1)) {
      End = Text.find('\n');
      Groups.Add(Text.substr(0, End));
    }
  }

  void WriteEnd() override {
    std::string Text;
    if (Format == FindFormat::Json) {
      Groups.AppendJson(By, Text);
    } else if (Format == FindFormat::Svg) {
      AppendBars(Text);
    } else {
      Groups.AppendTable(Text);
    }
    Output.Write(Text);
  }

  void AppendBars(std::string& TextReturn) const {
    Picture::Histogram Bars("Rules by " + std::string(Query::NameOf(By)));
    for (const auto& [Key, Rules] : Groups.Groups()) {
      Bars.Add(Key, Rules);
    }
    Picture::Drawing Shapes;
    Bars.Draw(Shapes);
    Picture::AppendSvg(Shapes, {}, TextReturn);
  }

  Query::GroupBy By;
  FindFormat Format;
  Query::GroupCounts Groups;
};

class PictureFinder : public Finder {
 public:
  PictureFinder(const RunOptions& RunPassIn, const Query::QueryNode& QueryPassIn)
      : Finder(QueryPassIn),
        Output(MakePictureOutput(RunPassIn, DrawFormat::Svg, "give -o a folder")) {}

  int Finish(const RunTally& Tally) override { return Output->Finish(Tally); }

 private:
  void Describe(RuleRecord& Record, std::string& KeyReturn,
                std::string& TextReturn) const override {
    Picture::RulePicture Drawn;
    Drawn.Read(Record.Lines());
    KeyReturn += Drawn.Name();
    Drawn.AppendSvg(false, TextReturn);
  }

  void Take(std::string_view Key, std::string_view Text) override {
    Output->Take(std::string(Key), Text);
  }

  std::unique_ptr<PictureOutput> Output;
};

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

namespace {

std::unique_ptr<Finder> MakeFinder(const RunOptions& Run, const FindOptions& Options,
                                   const Query::QueryNode& Asked) {
  if (Options.CountBy) {
    return std::make_unique<GroupFinder>(Run, Asked, *Options.CountBy,
                                         Options.Format.value_or(FindFormat::Count));
  }
  switch (Options.Format.value_or(FindFormat::Rules)) {
    case FindFormat::Rules:
      return std::make_unique<RuleFinder>(Run, Asked);
    case FindFormat::Json:
      return std::make_unique<JsonFinder>(Run, Asked);
    case FindFormat::Count:
      return std::make_unique<CountFinder>(Run, Asked);
    case FindFormat::Svg:
      break;
  }
  return std::make_unique<PictureFinder>(Run, Asked);
}

}  // namespace

int RunFind(const RunOptions& Run, const FindOptions& Options) {
  Query::QueryNode Asked;
  Query::QueryFault Fault;
  if (!Query::ParseQuery(Options.Query, Asked, Fault)) {
    std::cerr << "trrule: " << Query::ShownFault(Options.Query, Fault);
    return StatusFailed;
  }
  const bool WritesRules = Options.Format.value_or(FindFormat::Rules) == FindFormat::Rules;
  if (Options.CountBy && Options.Format && WritesRules) {
    throw RunError("--count-by writes no rules: choose --format count, json or svg");
  }
  const std::unique_ptr<Finder> Found = MakeFinder(Run, Options, Asked);
  RunTally Tally = VisitRules(Run, *Found);
  // An input that is replaced by some of its rules loses the others.
  Tally.HasLostText = true;
  if (Found->Finish(Tally) == StatusFailed) {
    return StatusFailed;
  }
  return Found->Count() > 0 ? StatusClean : StatusFindings;
}

}  // namespace Grammar
