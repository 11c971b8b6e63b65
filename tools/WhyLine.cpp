#include "ChoiceOption.h"
#include "CommandLine.h"
#include "EngineOptions.h"
#include "RunError.h"
#include "WhyCommand.h"

#include <string>
#include <vector>

namespace {

struct WhyLine {
  Translate::WhyOptions Options;
  std::vector<std::string> vsArguments;
  std::vector<std::string> vsLexicon;
};

constexpr const char* Footer =
    "A rule is named by its header, TYPE,NUMBER, or by its file and one of its lines, FILE:LINE. The\n"
    "first argument is such a name, and so are those after it that look like one and are not files.\n"
    "All rules that fit are explained.\n"
    "\n"
    "For each word at which a rule can begin the answer says how far it comes: which component it stops\n"
    "at and what there is instead; which equations clash, with both values and the constraints that\n"
    "gave them; or what it makes, and whether the best derivation uses that. --format html makes a\n"
    "page that shows each of these as a picture, with the node that fails marked.\n"
    "\n"
    "Exit status: 0 answered, 1 no rule fits or something was reported of a rule, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule why NP,4 grammar.trr words.trr --text 'the red cars'\n";

void AddInputs(CLI::App& CommandReturn, WhyLine& LineReturn) {
  Translate::WhyOptions& Options = LineReturn.Options;
  CommandReturn.add_option("RULE", LineReturn.vsArguments, "the rules, then the grammars")
      ->required()
      ->type_name("... FILE ...");
  CommandReturn.add_option("--lexicon", LineReturn.vsLexicon, "more grammars")
      ->type_name("FILE ...");
  CommandReturn.add_option("--text", Options.Text, "the text to apply the rules to")
      ->required()
      ->type_name("TEXT");
  CommandReturn.add_option("-o,--output", Options.Output,
                           "write to this file, which appears whole or not at all");
  CommandReturn.add_flag("-q,--quiet", Options.Quiet, "show no progress at a terminal");
  AddChoice<Translate::WhyFormat>(CommandReturn, "--format",
                                  {{"plain", Translate::WhyFormat::Plain},
                                   {"json", Translate::WhyFormat::Json},
                                   {"html", Translate::WhyFormat::Html}},
                                  Options.Format, "plain, json or html")
      ->type_name("FORM");
}

void AddMeaning(CLI::App& CommandReturn, Translate::WhyOptions& OptionsReturn) {
  CommandReturn.add_option("--start", OptionsReturn.Starts, "translate only as one of these types")
      ->type_name("TYPE,...");
  AddRuleSetOptions(CommandReturn, OptionsReturn.Rules);
  AddChartLimits(CommandReturn, OptionsReturn.Texts.Limits);
  AddNumber(CommandReturn, "--max-derivations", 0, "taken for translate's sake; changes nothing",
            [&](std::uint64_t Number) { OptionsReturn.Texts.MaxDerivations = Number; });
}

int Run(const WhyLine& Line) {
  Translate::WhyOptions Options = Line.Options;
  Translate::SplitRuleNames(Line.vsArguments, Options.vsNames, Options.vsGrammars);
  Options.vsGrammars.insert(Options.vsGrammars.end(), Line.vsLexicon.begin(), Line.vsLexicon.end());
  if (Options.vsGrammars.empty()) {
    throw Grammar::RunError("no grammar is named after the rules");
  }
  return RunWhy(Options);
}

}  // namespace

void AddWhyCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("why", "Explain what rules do with a text, and why no more");
  const auto Line = std::make_shared<WhyLine>();
  AddInputs(*Command, *Line);
  AddMeaning(*Command, Line->Options);
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] { ActionReturn = [Line] { return Run(*Line); }; });
}
