#include "CommandLine.h"
#include "FindingCodes.h"
#include "RunError.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

std::string ListOfCodes() {
  constexpr std::size_t LevelWidth = 9;
  std::string Text;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    Text.append(Info.Code).append("  ").append(NameOf(Info.Level));
    Text.append(LevelWidth - NameOf(Info.Level).size(), ' ').append(Info.Title).append("\n");
  }
  return Text;
}

int Run(const std::vector<std::string>& vsCodes) {
  std::string Text = vsCodes.empty() ? ListOfCodes() : "";
  for (const std::string& sCode : vsCodes) {
    const Grammar::CodeInfo& Info = Grammar::KnownCode(sCode, "trrule explain");
    Text.append(Text.empty() ? "" : "\n").append(Explanation(Info));
  }
  std::cout << Text;
  return Grammar::StatusClean;
}

}  // namespace

void AddExplainCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("explain", "Explain codes of findings");
  const auto vsCodes = std::make_shared<std::vector<std::string>>();
  Command->add_option("CODE", *vsCodes, "the codes to explain, in any case; none lists all")
      ->type_name("");
  Command->footer("Example:\n  trrule explain TR011\n");
  Command->callback(
      [vsCodes, &ActionReturn] { ActionReturn = [vsCodes] { return Run(*vsCodes); }; });
}
