// Sections: arguments, rules, answers, the run.

#include "WhyCommand.h"

#include "DiagnosisPictures.h"
#include "DiagnosisWriter.h"
#include "HtmlPage.h"
#include "OutputFile.h"
#include "RuleDescription.h"
#include "RuleDiagnosis.h"
#include "RuleNames.h"
#include "RunError.h"
#include "TranslateCommand.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

namespace Translate {

// ---- Arguments --------------------------------------------------------------------------------

namespace {

bool IsFile(std::string_view Name) {
  std::error_code Error;
  return std::filesystem::exists(std::filesystem::path(Name), Error);
}

/// Whether an argument names a rule: a header, or a line of a file that is there.
bool CanNameRule(const std::string& sArgument) {
  if (IsFile(sArgument)) {
    return false;
  }
  const std::optional<std::string_view> File = FileOfPlace(sArgument);
  return IsHeaderName(sArgument) || (File && (*File == "-" || IsFile(*File)));
}

}  // namespace

void SplitRuleNames(const std::vector<std::string>& vsArguments, std::vector<std::string>& vsNames,
                    std::vector<std::string>& vsGrammars) {
  auto Split = vsArguments.begin() + (vsArguments.empty() ? 0 : 1);
  Split = std::find_if_not(Split, vsArguments.end(), CanNameRule);
  vsNames.assign(vsArguments.begin(), Split);
  vsGrammars.assign(Split, vsArguments.end());
}

// ---- Rules ------------------------------------------------------------------------------------

namespace {

/// The rules that are asked about, in the order of the input.
struct AskedRules {
  RuleNames Names;
  std::vector<RuleDescription> vRules;
};

void TakeRule(const Grammar::SourceRule& Lines, const UsableRule* Rule,
              const std::vector<Grammar::Finding>& vFindings, std::uint32_t Index,
              AskedRules& AskedReturn) {
  if (AskedReturn.Names.Take(Lines)) {
    RuleDescription& New = AskedReturn.vRules.emplace_back(DescribeRule(Lines, Rule));
    New.vFindings = vFindings;
    if (Rule != nullptr) {
      New.Index = Index;
    }
  }
}

// ---- Answers ----------------------------------------------------------------------------------

std::string PlaceOf(const Grammar::Finding& Which) {
  return Which.File + ':' + std::to_string(Which.Line) + ':' + std::to_string(Which.Column);
}

/// Appends lines that are to be read, on a page as paragraphs.
void AppendLines(WhyFormat Format, std::string_view Lines, std::string& OutReturn) {
  if (Format != WhyFormat::Html) {
    OutReturn += Lines;
    return;
  }
  for (std::size_t End; !Lines.empty(); Lines.remove_prefix(End + 1)) {
    End = Lines.find('\n');
    Picture::AppendParagraph(Lines.substr(0, End), OutReturn);
  }
}

/// The findings of a rule that is left out, as an object.
void AppendFindings(const RuleDescription& Rule, std::string& OutReturn) {
  AppendRuleName(Rule, OutReturn);
  OutReturn += ",\"findings\":[";
  for (const Grammar::Finding& Found : Rule.vFindings) {
    OutReturn += &Found == &Rule.vFindings.front() ? "{\"place\":" : ",{\"place\":";
    AppendJsonString(PlaceOf(Found), OutReturn);
    OutReturn += ",\"code\":";
    AppendJsonString(Found.Code, OutReturn);
    OutReturn += ",\"message\":";
    AppendJsonString(Found.Message, OutReturn);
    OutReturn += '}';
  }
  OutReturn += "]}\n";
}

/// What is said of a rule that is left out.
void AppendLeftOut(const RuleDescription& Rule, WhyFormat Format, std::string& OutReturn) {
  if (Format == WhyFormat::Json) {
    AppendFindings(Rule, OutReturn);
    return;
  }
  for (const Grammar::Finding& Found : Rule.vFindings) {
    AppendLines(Format,
                Rule.Name() + " is left out: " + PlaceOf(Found) + ": " +
                    std::string(NameOf(Found.Level)) + ' ' + Found.Code + ": " + Found.Message +
                    '\n',
                OutReturn);
  }
}

/// What is said of a rule that is used.
void AppendFacts(const RuleDescription& Rule, WhyFormat Format, RuleDiagnosis& Why,
                 std::string& OutReturn) {
  DiagnosisText Plain(Why, Rule);
  DiagnosisJson Json(Why, Rule);
  DiagnosisPictures Pictures(Why, Rule);
  for (std::size_t Begin = 0; Begin < Why.Size(); ++Begin) {
    const BeginFacts Facts = Why.FactsAt(*Rule.Index, Begin);
    switch (Format) {
      case WhyFormat::Plain:
        Plain.Append(Facts, OutReturn);
        break;
      case WhyFormat::Json:
        Json.Append(Facts, OutReturn);
        OutReturn += '\n';
        break;
      case WhyFormat::Html:
        Pictures.Append(Facts, OutReturn);
        break;
    }
  }
  if (Why.Size() == 0 && Format != WhyFormat::Json) {
    AppendLines(Format, Rule.Name() + " has nothing to do: the text has no words\n", OutReturn);
  }
}

/// What is said of a rule where the text has reached a limit.
void AppendError(const RuleDescription& Rule, WhyFormat Format, const std::string& Error,
                 std::string& OutReturn) {
  if (Format != WhyFormat::Json) {
    AppendLines(Format, "nothing is known of " + Rule.Name() + ": " + Error + '\n', OutReturn);
    return;
  }
  AppendRuleName(Rule, OutReturn);
  OutReturn += ",\"error\":";
  AppendJsonString(Error, OutReturn);
  OutReturn += "}\n";
}

/// @return false where what is to be said has a structure that is too large
bool AppendFactsOrError(const RuleDescription& Rule, WhyFormat Format, RuleDiagnosis& Why,
                        std::string& OutReturn) {
  const std::size_t Size = OutReturn.size();
  try {
    AppendFacts(Rule, Format, Why, OutReturn);
    return true;
  } catch (const StructureTooLarge& TooLarge) {
    OutReturn.resize(Size);
    std::cerr << "--text:1: error: " << TooLarge.what() << '\n';
    AppendError(Rule, Format, TooLarge.what(), OutReturn);
    return false;
  }
}

/// A line about the rule itself is before all that is said of it; JSON names it in each object.
void AppendHeading(const RuleDescription& Rule, WhyFormat Format, std::string& OutReturn) {
  std::string Heading = Rule.Place() + ':';
  Heading += Rule.Header.empty() ? "" : " {" + Rule.Header + '}';
  Heading += Rule.Sequence.empty() ? "" : ' ' + Rule.Sequence;
  switch (Format) {
    case WhyFormat::Json:
      return;
    case WhyFormat::Html:
      Picture::AppendHeading(Heading, OutReturn);
      return;
    case WhyFormat::Plain:
      OutReturn += (OutReturn.empty() ? "" : "\n") + Heading + '\n';
      return;
  }
}

/// All answers. @return whether the text has reached no limit
bool AppendAnswers(const WhyOptions& Options, const RuleSet& Rules, const AskedRules& Asked,
                   std::string& OutReturn) {
  TextOptions Texts = Options.Texts;
  SetStarts(Options.Starts, Rules, Texts);
  Translator Engine(Rules);
  const TextResult Result = Engine.Translate(Options.Text, Texts);
  std::optional<RuleDiagnosis> Why;
  if (Result.Error.empty()) {
    Why.emplace(Rules, Engine, Result, Texts);
  } else {
    std::cerr << "--text:1: error: " << Result.Error << '\n';
  }
  bool IsWhole = Result.Error.empty();
  for (const RuleDescription& Rule : Asked.vRules) {
    AppendHeading(Rule, Options.Format, OutReturn);
    if (!Rule.Index) {
      AppendLeftOut(Rule, Options.Format, OutReturn);
    } else if (Why) {
      IsWhole = AppendFactsOrError(Rule, Options.Format, *Why, OutReturn) && IsWhole;
    } else {
      AppendError(Rule, Options.Format, Result.Error, OutReturn);
    }
  }
  return IsWhole;
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

int RunWhy(const WhyOptions& Options) {
  RuleSet Rules(Options.Rules);
  AskedRules Asked{RuleNames(Options.vsNames), {}};
  const Grammar::RunTally Tally = LoadRules(
      Options.vsGrammars, Options.Quiet, Rules,
      [&](const Grammar::SourceRule& Lines, const UsableRule* Rule,
          const std::vector<Grammar::Finding>& vFindings) {
        const auto Index = static_cast<std::uint32_t>(Rules.Size() - (Rule == nullptr ? 0 : 1));
        TakeRule(Lines, Rule, vFindings, Index, Asked);
      });
  const bool AllFit = Asked.Names.Report();
  Grammar::OutputFile Output(Options.Output);
  std::string Out;
  const bool IsPage = Options.Format == WhyFormat::Html;
  if (IsPage) {
    Picture::BeginPage("What rules do with \"" + Options.Text + '"', Out);
  }
  const bool HasFacts = AppendAnswers(Options, Rules, Asked, Out);
  if (IsPage) {
    Picture::EndPage(Out);
  }
  Output.Write(Out);
  Grammar::ReportLeftOut(Tally);
  Output.Finish();
  const bool IsClean = AllFit && HasFacts && !Tally.HasFindings;
  return IsClean ? Grammar::StatusClean : Grammar::StatusFindings;
}

}  // namespace Translate
