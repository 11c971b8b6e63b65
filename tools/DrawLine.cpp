#include "ChoiceOption.h"
#include "CommandLine.h"
#include "DrawCommand.h"
#include "RulePicture.h"

#include <optional>

namespace {

struct DrawLine {
  Grammar::RunOptions Run;
  Grammar::DrawOptions Options;
};

constexpr const char* Footer =
    "The source row stands above, the target row below. Solid lines are alignments, dashed lines\n"
    "what passes from x to y; arcs are agreement on one side. Values stand in the box of their\n"
    "component. The frame of the head is double, that of an unaligned place dashed.\n"
    "\n"
    "A rule is named by its header, TYPE,NUMBER, or by its file and one of its lines, FILE:LINE.\n"
    "Without --rule all rules are drawn. Where -o names a folder, or ends in /, each picture becomes\n"
    "a file in it. Without --format the name of the output says the form, and otherwise it is text.\n"
    "A rule that is too wide for text is described in sentences.\n"
    "\n"
    "Constraints and alignments that cannot be drawn are listed below the picture.\n"
    "\n"
    "Exit status: 0 all drawn, 1 no rule fits or something was reported of a rule, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule draw --rule NP,8 np.trr\n"
    "  trrule draw -o pictures/ np.trr vp.trr\n";

void AddInputs(CLI::App& CommandReturn, DrawLine& LineReturn) {
  Grammar::RunOptions& Run = LineReturn.Run;
  CommandReturn.add_option("FILE", Run.vsFiles, "the files to read; - or none: standard input")
      ->type_name("");
  CommandReturn
      .add_option("--rule", LineReturn.Options.vsRules,
                  "draw this rule; may be given several times")
      ->type_name("RULE")
      ->allow_extra_args(false);
  CommandReturn
      .add_option("-o,--output", Run.Output,
                  "write to this file, which appears whole or not at all, or into this folder")
      ->type_name("FILE");
  CommandReturn.add_flag("--force", Run.Force, "write although a file could not be read");
  CommandReturn.add_flag("-q,--quiet", Run.Quiet, "show no progress at a terminal");
}

void AddForm(CLI::App& CommandReturn, Grammar::DrawOptions& OptionsReturn) {
  using Grammar::DrawFormat;
  AddChoice<std::optional<DrawFormat>>(
      CommandReturn, "--format",
      {{"svg", DrawFormat::Svg}, {"html", DrawFormat::Html}, {"text", DrawFormat::Text}},
      OptionsReturn.Format, "svg, html or text")
      ->type_name("FORM");
  CommandReturn.add_flag("--ascii", OptionsReturn.IsAscii,
                         "text: use only ASCII for frames and lines");
  CommandReturn
      .add_option("--width", OptionsReturn.Width,
                  "text: the number of columns; by default those of the terminal, or 80")
      ->type_name("N")
      ->check(CLI::Range(Picture::RulePicture::LeastWidth, 10000));
}

}  // namespace

void AddDrawCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("draw", "Draw pictures of rules");
  const auto Line = std::make_shared<DrawLine>();
  AddInputs(*Command, *Line);
  AddForm(*Command, Line->Options);
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunDraw(Line->Run, Line->Options); };
  });
}
