#include "ChoiceOption.h"
#include "CommandLine.h"
#include "FindCommand.h"
#include "GroupCounts.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

struct FindLine {
  Grammar::RunOptions Run;
  Grammar::FindOptions Options;
};

constexpr const char* Footer =
    "Conditions, which and, or, not and parentheses connect:\n"
    "  [DET * N]                 components that follow each other, on either side\n"
    "  source [^ DET|PRON ? $]   on one side; ^ and $ are its ends, ? is one component,\n"
    "                            * any number of them, | separates alternatives\n"
    "  [\"la\" N]                  a literal, as it is written\n"
    "  NP::NP  NP|VP::*          types\n"
    "  crossing  monotone  unaligned  1:1  1:n  n:1  n:n\n"
    "                            the shape of the alignments\n"
    "  y:num = *                 a constraint on a feature, of any node of y\n"
    "  x1:agr:num = sg|pl        with one of these values\n"
    "  y2:num = *not* pl         with a negation or, by *or*, a list that has these values\n"
    "  x0 = x3  x:num = y:num    agreement, in whichever order\n"
    "  passes num                agreement of x and y on a feature\n"
    "  count > 10                the number of examples; also components, source components,\n"
    "                            target components, alignments, constraints, comments\n"
    "  comment \"red car\"         a comment with this text\n"
    "  comment /^SL:.*car/i      or with a match of a regular expression\n"
    "  line /NP,8/               the same of any line\n"
    "Labels, types, features and values are compared without regard to case.\n"
    "\n"
    "Rules are written as they stand, with their comments. Rules that cannot be read are reported\n"
    "on standard error and not found. --count-by counts rules by what they have in common: type,\n"
    "sequence, source, target, label, literal, feature, shape, size, count or file.\n"
    "\n"
    "Exit status: 0 some rule was found, 1 none was, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule find 'NP::NP and [DET * N] and not crossing' np.trr\n"
    "  trrule find 'passes num' --count-by shape np.trr vp.trr\n";

void AddFormat(CLI::App& CommandReturn, Grammar::FindOptions& OptionsReturn) {
  using Grammar::FindFormat;
  AddChoice<std::optional<FindFormat>>(CommandReturn, "--format",
                                       {{"rules", FindFormat::Rules},
                                        {"json", FindFormat::Json},
                                        {"count", FindFormat::Count},
                                        {"svg", FindFormat::Svg}},
                                       OptionsReturn.Format, "rules, json, count or svg")
      ->type_name("FORM");
}

void AddCountBy(CLI::App& CommandReturn, Grammar::FindOptions& OptionsReturn) {
  using Query::GroupBy;
  std::vector<std::pair<std::string, std::optional<GroupBy>>> vChoices;
  for (const GroupBy By : {GroupBy::Type, GroupBy::Sequence, GroupBy::Source, GroupBy::Target,
                           GroupBy::Label, GroupBy::Literal, GroupBy::Feature, GroupBy::Shape,
                           GroupBy::Size, GroupBy::Count, GroupBy::File}) {
    vChoices.emplace_back(NameOf(By), By);
  }
  AddChoice<std::optional<GroupBy>>(CommandReturn, "--count-by", std::move(vChoices),
                                    OptionsReturn.CountBy, "count the rules of each group")
      ->type_name("KEY");
}

}  // namespace

void AddFindCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("find", "Find rules by what they say");
  const auto Line = std::make_shared<FindLine>();
  Command->add_option("QUERY", Line->Options.Query, "what is asked of the rules")
      ->required()
      ->type_name("");
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddFormat(*Command, Line->Options);
  AddCountBy(*Command, Line->Options);
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunFind(Line->Run, Line->Options); };
  });
}
