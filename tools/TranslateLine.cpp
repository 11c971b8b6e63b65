#include "ChoiceOption.h"
#include "CommandLine.h"
#include "EngineOptions.h"
#include "TranslateCommand.h"

#include <cstdint>
#include <string>

namespace {

struct TranslateLine {
  Translate::TranslateOptions Options;
  std::vector<std::string> vsLexicon;
};

constexpr const char* Footer =
    "Each line of standard input is a text, or the one after --text; its words stand between\n"
    "blanks. It gets the words of its best derivation, on a line of its own; a text without\n"
    "translation gets an empty line, and is reported on standard error. So are rules that are left\n"
    "out.\n"
    "\n"
    "-k N and --all-derivations give a line for each translation, with its score before it, and an\n"
    "empty line after each text. --format json gives an object a line, with the derivation and\n"
    "its feature structures, and --format tree draws it. --format svg draws the best derivation of\n"
    "one text as a picture, --format html all translations on a page.\n"
    "\n"
    "Exit status: 0 all translated, 1 something was reported, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule translate np.trr --lexicon words.trr --text 'the red car'\n"
    "  trrule translate --start S -k 3 grammar.trr <sentences.txt\n";

void AddInputs(CLI::App& CommandReturn, TranslateLine& LineReturn) {
  Translate::TranslateOptions& Options = LineReturn.Options;
  CommandReturn.add_option("FILE", Options.vsGrammars, "the grammars; - needs --text")->required();
  CommandReturn.add_option("--lexicon", LineReturn.vsLexicon, "more grammars")
      ->type_name("FILE ...");
  CommandReturn.add_option("--text", Options.Text, "translate this text, not standard input")
      ->type_name("TEXT");
  CommandReturn.add_option("-o,--output", Options.Output,
                           "write to this file, which appears whole or not at all");
  CommandReturn.add_flag("-q,--quiet", Options.Quiet, "show no progress at a terminal");
  AddRuleSetOptions(CommandReturn, Options.Rules);
}

void AddWanted(CLI::App& CommandReturn, Translate::TranslateOptions& OptionsReturn) {
  AddNumber(CommandReturn, "-k", 1, "write this number of translations of each text",
            [&](std::uint64_t Number) { OptionsReturn.Translations = Number; });
  CommandReturn.add_flag("--all-derivations", OptionsReturn.Texts.AllDerivations,
                         "also those with a text that was given already");
  CommandReturn.add_option("--start", OptionsReturn.Starts, "translate only as one of these types")
      ->type_name("TYPE,...");
  CommandReturn.add_flag("--partial", OptionsReturn.Texts.IsPartial,
                         "cut a text without translation into pieces");
  AddChoice<Translate::TextFormat>(CommandReturn, "--format",
                                   {{"plain", Translate::TextFormat::Plain},
                                    {"json", Translate::TextFormat::Json},
                                    {"tree", Translate::TextFormat::Tree},
                                    {"svg", Translate::TextFormat::Svg},
                                    {"html", Translate::TextFormat::Html}},
                                   OptionsReturn.Format.Format, "plain, json, tree, svg or html")
      ->type_name("FORM");
  CommandReturn.add_flag("--count", OptionsReturn.Texts.WantsCount,
                         "report the number of derivations in JSON");
  CommandReturn.add_flag("--origins", OptionsReturn.Format.HasOrigins,
                         "report in JSON which constraints gave the values");
}

void AddLimits(CLI::App& CommandReturn, Translate::TranslateOptions& OptionsReturn) {
  AddChartLimits(CommandReturn, OptionsReturn.Texts.Limits);
  AddNumber(CommandReturn, "--max-derivations", 0,
            "give up after more skipped derivations; 100000 by default",
            [&](std::uint64_t Number) { OptionsReturn.Texts.MaxDerivations = Number; });
  AddTextThreads(CommandReturn, "translate this number of texts at once; all cores by default",
                 OptionsReturn.Threads);
}

int Run(const TranslateLine& Line) {
  Translate::TranslateOptions Options = Line.Options;
  Options.vsGrammars.insert(Options.vsGrammars.end(), Line.vsLexicon.begin(), Line.vsLexicon.end());
  return RunTranslate(Options);
}

}  // namespace

void AddTranslateCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("translate", "Translate texts by the rules of a grammar");
  const auto Line = std::make_shared<TranslateLine>();
  AddInputs(*Command, *Line);
  AddWanted(*Command, Line->Options);
  AddLimits(*Command, Line->Options);
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] { ActionReturn = [Line] { return Run(*Line); }; });
}
