#include "ChoiceOption.h"
#include "CommandLine.h"
#include "EngineOptions.h"
#include "TestCommand.h"
#include "WatchCommand.h"

#include <string>

namespace {

constexpr const char* Footer =
    "The comments of a rule are its examples: \";;SL:\" a text and \";;TL:\" what it becomes, and\n"
    "\";;*SL:\" a text that the rule must not analyse. Each is tried with the whole grammar. An\n"
    "example passes when a derivation with its rule at the root gives the wanted words, and by\n"
    "another rule when only others do.\n"
    "\n"
    "What does not pass is shown with what was wanted and what came; then the rules that no passing\n"
    "example uses, and the constraints that could be taken out without any example's noticing.\n"
    "\n"
    "Exit status: 0 all pass, 1 some do not, or a rule was left out, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule test np.trr words.trr\n"
    "  trrule test --format junit --strict np.trr --examples sentences.txt\n"
    "  trrule test --baseline accepted.txt np.trr\n"
    "  trrule test --watch np.trr words.trr\n";

void AddInputs(CLI::App& CommandReturn, Examples::TestOptions& OptionsReturn) {
  CommandReturn.add_option("FILE", OptionsReturn.vsGrammars, "the grammars; - for standard input")
      ->type_name("")
      ->required();
  CommandReturn
      .add_option("--examples", OptionsReturn.vsPairs,
                  "more examples: source, tab, target; * before a source to be rejected")
      ->type_name("FILE")
      ->allow_extra_args(false);
  CommandReturn
      .add_option("--start", OptionsReturn.Starts,
                  "those are of one of these types; of any by default")
      ->type_name("TYPE,...");
  CommandReturn
      .add_option("-o,--output", OptionsReturn.Output,
                  "write to this file, which appears whole or not at all")
      ->type_name("FILE");
  CommandReturn.add_flag("-q,--quiet", OptionsReturn.Quiet, "show no progress at a terminal");
  AddRuleSetOptions(CommandReturn, OptionsReturn.Rules);
}

void AddWanted(CLI::App& CommandReturn, Examples::TestOptions& OptionsReturn) {
  AddChoice<Examples::ReportFormat>(CommandReturn, "--format",
                                    {{"plain", Examples::ReportFormat::Plain},
                                     {"json", Examples::ReportFormat::Json},
                                     {"junit", Examples::ReportFormat::Junit},
                                     {"tap", Examples::ReportFormat::Tap}},
                                    OptionsReturn.Format, "plain, json, junit or tap")
      ->type_name("FORM");
  CommandReturn.add_flag("--strict", OptionsReturn.IsStrict,
                         "passing by another rule is not enough");
  CommandReturn.add_flag_callback(
      "--no-coverage", [&] { OptionsReturn.WantsCoverage = false; },
      "do not look for what no example holds in place");
}

void AddThresholds(CLI::App& CommandReturn, Examples::TestOptions& OptionsReturn) {
  CommandReturn
      .add_option("--fail-under", OptionsReturn.FailUnder,
                  "status 1 if less of the rules, or of the constraints, is covered")
      ->type_name("PERCENT")
      ->check(CLI::Range(0, 100))
      ->excludes("--no-coverage");
  CLI::Option* Baseline =
      CommandReturn
          .add_option(
              "--baseline", OptionsReturn.Baseline,
              "show what has changed since the state in this file, whose failures are known")
          ->type_name("FILE");
  CommandReturn.add_flag("--accept", OptionsReturn.Accepts, "write that file")->needs(Baseline);
}

/// A report that follows another is for people, and has no place in a file.
void AddWatch(CLI::App& CommandReturn, Examples::TestOptions& OptionsReturn) {
  CLI::Option* Watch = CommandReturn.add_flag(
      "--watch", OptionsReturn.Watches,
      "run again what a change reaches when a file changes, without coverage");
  for (const char* Other : {"--format", "--output", "--fail-under", "--baseline"}) {
    Watch->excludes(Other);
  }
}

}  // namespace

void AddTestCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("test", "Run the examples in the comments of rules");
  const auto Options = std::make_shared<Examples::TestOptions>();
  AddInputs(*Command, *Options);
  AddWanted(*Command, *Options);
  AddThresholds(*Command, *Options);
  AddChartLimits(*Command, Options->Parse.Limits);
  AddNumber(*Command, "--max-derivations", 0,
            "give up an example after more failed attempts; 100000 by default",
            [Options](std::uint64_t Number) { Options->Parse.MaxDerivations = Number; });
  // After the options that it excludes.
  AddWatch(*Command, *Options);
  AddTextThreads(*Command, "run this number of examples at once; all cores by default",
                 Options->Threads);
  Command->footer(Footer);
  Command->callback([Options, &ActionReturn] {
    ActionReturn = [Options] { return Options->Watches ? RunWatch(*Options) : RunTest(*Options); };
  });
}
