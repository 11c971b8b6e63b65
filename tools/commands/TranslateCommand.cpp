// Sections: grammars, start types, texts, the run.

#include "TranslateCommand.h"

#include "DerivationPictures.h"
#include "HtmlPage.h"
#include "InputFile.h"
#include "OrderedTexts.h"
#include "OutputFile.h"
#include "Progress.h"
#include "RuleFiles.h"
#include "RuleUse.h"
#include "RunError.h"
#include "StartTypes.h"
#include "StructureText.h"
#include "ThreadCount.h"

#include <algorithm>
#include <atomic>
#include <iostream>
#include <limits>
#include <string_view>
#include <utility>

namespace Translate {

// ---- Grammars ---------------------------------------------------------------------------------

Grammar::RunTally LoadRules(const std::vector<std::string>& vsGrammars, bool Quiet,
                            RuleSet& RulesReturn, const LoadedRuleVisitor& Visit) {
  Grammar::RuleFiles Files(vsGrammars, Quiet);
  // With a part of the grammar, texts would mean something else.
  Files.ReportFailuresTo([](const std::string& Message) { throw Grammar::RunError(Message); });
  std::vector<Grammar::Finding> vFindings;
  Grammar::SourceRule Lines;
  UsableRule Rule;
  Grammar::RunTally Tally;
  for (Grammar::RuleText Text; Files.Next(Text);) {
    if (!Text.HasRule || Text.Continues) {
      continue;
    }
    ++Tally.Rules;
    vFindings.clear();
    const bool IsUsable =
        ReadUsableRule(Text, RulesReturn.Settings().IsReversed, Lines, Rule, vFindings);
    if (IsUsable) {
      RulesReturn.Add(Rule, static_cast<std::uint32_t>(Tally.Rules));
    } else {
      Grammar::Report(vFindings);
      ++Tally.LeftOut;
    }
    if (Visit) {
      Visit(Lines, IsUsable ? &Rule : nullptr, vFindings);
    }
  }
  RulesReturn.Finish();
  Tally.HasFindings = Tally.LeftOut > 0;
  return Tally;
}

// ---- Start types ------------------------------------------------------------------------------

std::vector<std::uint32_t> FindStarts(const std::string& Written, const RuleSet& Rules) {
  std::vector<std::uint32_t> vStarts;
  for (const std::string& sType : Grammar::ParseStartTypes(Written)) {
    const std::uint32_t Label = Rules.FindSourceType(sType);
    if (Label == RuleSet::None) {
      std::cerr << Grammar::MissingStartText(sType) + '\n';
    } else {
      vStarts.push_back(Label);
    }
  }
  return vStarts;
}

void SetStarts(const std::optional<std::string>& Starts, const RuleSet& Rules,
               TextOptions& OptionsReturn) {
  OptionsReturn.HasStarts = Starts.has_value();
  if (Starts) {
    OptionsReturn.vStarts = FindStarts(*Starts, Rules);
  }
}

namespace {

TextOptions TextOptionsOf(const TranslateOptions& Options, const RuleSet& Rules) {
  TextOptions Texts = Options.Texts;
  Texts.Translations = Options.Translations.value_or(
      Texts.AllDerivations ? std::numeric_limits<std::uint64_t>::max() : 1);
  SetStarts(Options.Starts, Rules, Texts);
  return Texts;
}

WriterOptions WriterOptionsOf(const TranslateOptions& Options) {
  WriterOptions Format = Options.Format;
  Format.IsList = Options.Texts.AllDerivations || Options.Translations.value_or(1) > 1;
  Format.HasCount = Options.Texts.WantsCount;
  Format.Colours = Grammar::WantsColours(Options.Output);
  return Format;
}

// ---- Texts ------------------------------------------------------------------------------------

/// The texts of a run: the one that was given, or the lines of standard input.
class TextSource {
 public:
  explicit TextSource(const TranslateOptions& Options)
      : Given(Options.Text), Shown(Options.Quiet || Given.has_value(), Grammar::TotalSize({"-"})) {
    if (!Given) {
      Input = std::make_unique<Grammar::InputFile>("-");
    }
  }

  bool Next(std::string& TextReturn) {
    if (Given) {
      TextReturn = std::move(*Given);
      const bool IsFirst = !IsDone;
      IsDone = true;
      return IsFirst;
    }
    if (!std::getline(Input->Stream(), TextReturn)) {
      return false;
    }
    Shown.Advance(TextReturn.size() + 1);
    if (!Input->Stream().eof() && !TextReturn.empty() && TextReturn.back() == '\r') {
      TextReturn.pop_back();
    }
    return true;
  }

  /// What messages name a text by.
  static std::string Place(std::size_t Line, bool IsGiven) {
    return (IsGiven ? "--text:" : "-:") + std::to_string(Line);
  }

 private:
  std::optional<std::string> Given;
  std::unique_ptr<Grammar::InputFile> Input;
  Grammar::Progress Shown;
  bool IsDone = false;
};

/// What a thread needs.
struct Workplace {
  Workplace(const RuleSet& Rules, const WriterOptions& Format)
      : Engine(Rules),
        Writer(Rules, Engine, Format),
        Pictures(Rules, Engine, Format.Format == TextFormat::Html) {}

  Translator Engine;
  TranslationWriter Writer;
  DerivationPictures Pictures;
};

std::string MessageOf(const TextResult& Result, const std::string& Error,
                      const std::string& Place) {
  if (!Error.empty()) {
    return Place + ": error: " + Error + '\n';
  }
  return Result.vTranslations.empty() ? Place + ": error: there is no translation\n" : "";
}

}  // namespace

// ---- Pictures ---------------------------------------------------------------------------------

namespace {

/// Draws a text. @return what is wrong with it; empty if nothing is
std::string DrawText(const std::string& Text, const TextResult& Result,
                     DerivationPictures& Pictures, std::string& OutReturn) {
  const std::size_t Size = OutReturn.size();
  try {
    const bool AreDrawn = Pictures.Append(Text, Result, OutReturn);
    return AreDrawn || !Result.Error.empty() ? Result.Error : PictureSizeError();
  } catch (const StructureTooLarge& TooLarge) {
    OutReturn.resize(Size);
    return TooLarge.what();
  }
}

void RequireOnePicture(TextFormat Format, std::size_t Line) {
  if (Format == TextFormat::Svg && Line > 1) {
    throw Grammar::RunError(
        "a file holds one picture in SVG: give one text, or choose --format html");
  }
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

namespace {

/// Standard input cannot be a grammar and the texts.
void RequireTexts(const TranslateOptions& Options) {
  const auto IsInput = [](const std::string& sName) { return sName == "-"; };
  if (!Options.Text && std::any_of(Options.vsGrammars.begin(), Options.vsGrammars.end(), IsInput)) {
    throw Grammar::RunError("standard input holds the texts: a grammar from there needs --text");
  }
}

/// A text, translated and written.
TextOutput OutputOf(const std::string& Text, std::size_t Line, const TextOptions& Texts,
                    TextFormat Format, bool IsGiven, Workplace& Place) {
  TextOutput Made;
  const TextResult Result = Place.Engine.Translate(Text, Texts);
  std::string Error;
  if (IsPicture(Format)) {
    RequireOnePicture(Format, Line);
    Error = DrawText(Text, Result, Place.Pictures, Made.Out);
  } else {
    Error = Place.Writer.Append(Text, Result, Made.Out);
  }
  Made.Messages = MessageOf(Result, Error, TextSource::Place(Line, IsGiven));
  return Made;
}

/// Translates all texts. @return whether something was reported of one
bool TranslateTexts(const TranslateOptions& Options, const RuleSet& Rules,
                    Grammar::OutputFile& Output) {
  const TextOptions Texts = TextOptionsOf(Options, Rules);
  const WriterOptions Format = WriterOptionsOf(Options);
  const bool IsGiven = Options.Text.has_value();
  TextSource Source(Options);
  bool HasMessages = false;
  OrderedTexts Run(
      IsGiven ? 1 : Grammar::ThreadCount(Options.Threads),
      [&](std::string& Text) { return Source.Next(Text); },
      [&](const TextOutput& Result, bool IsWaiting) {
        Output.Write(Result.Out);
        // What is reported about a text comes after its translation, and after those before it.
        if (IsWaiting || !Result.Messages.empty()) {
          Output.Flush();
        }
        std::cerr << Result.Messages;
        HasMessages = HasMessages || !Result.Messages.empty();
      });
  Run.Run([&]() -> OrderedTexts::Worker {
    const auto Place = std::make_shared<Workplace>(Rules, Format);
    return [&, Place](const std::string& Text, std::size_t Line) {
      return OutputOf(Text, Line, Texts, Format.Format, IsGiven, *Place);
    };
  });
  return HasMessages;
}

}  // namespace

int RunTranslate(const TranslateOptions& Options) {
  RequireTexts(Options);
  RuleSet Rules(Options.Rules);
  const Grammar::RunTally Tally = LoadRules(Options.vsGrammars, Options.Quiet, Rules);
  Grammar::OutputFile Output(Options.Output);
  const bool IsPage = Options.Format.Format == TextFormat::Html;
  if (IsPage) {
    std::string Begin;
    Picture::BeginPage("Translations", Begin);
    Output.Write(Begin);
  }
  const bool HasMessages = TranslateTexts(Options, Rules, Output);
  if (IsPage) {
    std::string End;
    Picture::EndPage(End);
    Output.Write(End);
  }
  Grammar::ReportLeftOut(Tally);
  Output.Finish();
  return Tally.HasFindings || HasMessages ? Grammar::StatusFindings : Grammar::StatusClean;
}

}  // namespace Translate
