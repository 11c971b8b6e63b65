// The command as people meet it: its statuses, its one-line complaints, how it ends when somebody
// stops it, and that its help, its manual and its completions know the same options.

#include "ConsolePage.h"
#include "Finding.h"
#include "FindingCodes.h"
#include "GrammarPaths.h"
#include "ProgramRun.h"
#include "RuleGenerator.h"
#include "TestFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;

const Strings Commands{"check", "print", "sort", "unique", "head", "sample", "json", "from-json"};
const Strings AllCommands{"check", "print",   "sort", "unique",    "head",      "sample",
                          "split", "stats",   "json", "from-json", "translate", "why",
                          "test",  "draw",    "html", "find",      "diff",      "patch",
                          "merge", "explain", "help", "version"};

std::string ReadSource(const std::string& Path) {
  std::ifstream File(std::string(GrammarPaths::SourceFolder) + "/" + Path, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

TEST(TrruleProgram, EndsWithStatus2AndOneLineWhenTheRunFails) {
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"sort", "/no/such/file"}, "cannot read /no/such/file: No such file or directory"},
      {{"sort", "/"}, "cannot read /: Is a directory"},
      {{"sort", "-o", "/no/such/file"}, "cannot write /no/such/file: No such file or directory"},
      {{"sort", "-o", "/dev/full", "/dev/null"}, ""},
      {{"chekc", "a.trr"}, "unknown command \"chekc\"; did you mean check?"},
      {{"CHECK", "a.trr"}, "unknown command \"CHECK\"; did you mean check?"},
      {{"Srot"}, "unknown command \"Srot\"; did you mean sort?"},
      {{"HELP"}, "unknown command \"HELP\"; did you mean help?"},
      {{"fromjson"}, "unknown command \"fromjson\"; did you mean from-json?"},
      {{"frob"}, "unknown command \"frob\"; trrule help lists the commands"},
      {{"a.trr"}, "unknown command \"a.trr\"; trrule help lists the commands"},
      {{""}, "unknown command \"\"; trrule help lists the commands"},
      {{"--frob", "check"}, "unknown option \"--frob\"; trrule help lists the options"},
      {{"help", "srot"}, "unknown command \"srot\"; did you mean sort?"},
      {{"check", "--only", "TR35"}, "unknown code \"TR35\"; did you mean TR035?"},
      {{"check", "--except", "TR009,tr036x"}, "unknown code \"tr036x\"; did you mean TR036?"},
      {{"check", "--only", "TR9x"}, "unknown code \"TR9x\"; trrule check --help lists the codes"},
      {{"check", "--only", ""}, "unknown code \"\"; trrule check --help lists the codes"},
      {{"check", "--severity", "notes"}, "--severity: notes not in {error,warning,note}"},
      {{"check", "--statistics", "--format", "sarif"},
       "--statistics has no form in SARIF; json is one of the others"},
      {{"explain", "TR35"}, "unknown code \"TR35\"; did you mean TR035?"},
      {{"explain", "TR001", "TR9x"}, "unknown code \"TR9x\"; trrule explain lists the codes"},
      {{"sort", "--frob"}, "The following argument was not expected: --frob"},
      {{"sort", "--memory", "3Q"}, "--memory: invalid size 3Q; use a size such as 64M, 2G or 50%"},
      {{"unique", "--memory", "0"}, "--memory: invalid size 0; use a size such as 64M, 2G or 50%"},
      {{"unique", "--examples", "-1"},
       "--examples: invalid number -1; use a number of examples such as 0 or 3"},
      {{"unique", "--examples", "x"},
       "--examples: invalid number x; use a number of examples such as 0 or 3"},
      {{"unique", "--examples", "99999999999999999999"},
       "--examples: invalid number 99999999999999999999; use a number of examples such as 0 or 3"},
      {{"sort", "--by", "size"}, "--by: size not in {index,type,count,length}"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    const ChildEnd Expected =
        sMessage.empty() ? ChildEnd{0, "", ""} : ChildEnd{2, "", "trrule: " + sMessage + "\n"};
    EXPECT_EQ(RunTrrule(vsArguments), Expected);
  }
}

TEST(TrruleProgram, ExplainsItself) {
  const std::string Help = RunTrrule({"--help"}).Out;
  EXPECT_EQ(Help.substr(0, Help.find('\n', Help.find('\n') + 1)),
            "Checks, prints, sorts and converts files of transfer rules.\n"
            "Usage: trrule [OPTIONS] SUBCOMMAND");
  EXPECT_EQ(RunTrrule({"-h"}), (ChildEnd{0, Help, ""}));
  EXPECT_EQ(RunTrrule({"help"}), (ChildEnd{0, Help, ""}));
  // Nothing was done, and scripts should see that.
  EXPECT_EQ(RunTrrule({}), (ChildEnd{2, "", Help}));
  const ChildEnd Version = RunTrrule({"--version"});
  EXPECT_EQ(Version.Status, 0);
  EXPECT_EQ(Version.Out.substr(0, 7), "trrule ");
  EXPECT_EQ(RunTrrule({"version"}), Version);
}

TEST(TrruleProgram, ExplainsEachCommandInBothWays) {
  for (const std::string& sCommand : AllCommands) {
    const ChildEnd Help = RunTrrule({sCommand, "--help"});
    EXPECT_EQ(Help.Status, 0) << sCommand;
    EXPECT_EQ(RunTrrule({"help", sCommand}), Help);
  }
  ExpectConsolesHold("tests/grammar/help.md", AllCommands.size());
}

TEST(TrruleProgram, ExplainsEachCodeInWords) {
  ExpectConsolesHold("tests/grammar/explanations.md", Grammar::AllCodes().size() + 1);
}

TEST(TrruleProgram, AcceptsCodesInAnyCase) {
  const TestFolder Folder;
  Folder.Write("a.trr", "{ADJP,12}\nADJP::NP : [N] -> [N]\n(X1::Y1)\n");
  const std::string Number =
      "a.trr:1:7: note TR022: the library's reader keeps the last digit of this number, 2; "
      "trrule keeps all of it\n  {ADJP,12}\n        ^~\n";
  for (const Strings& vsOptions : {Strings{"--only", "tr022"}, Strings{"--only", "TR001, Tr022 "},
                                   Strings{"--severity", "note", "--except=tr021,tr050"}}) {
    Strings vsArguments{"check", "a.trr"};
    vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
    EXPECT_EQ(RunTrrule(vsArguments, Folder.Path("")),
              (ChildEnd{1, Number, "0 errors, 0 warnings, 1 note\n"}))
        << vsOptions[0];
  }
}

TEST(TrruleProgram, ListsAndExplainsCodes) {
  constexpr std::size_t LevelWidth = 9;
  std::string Expected;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    const std::string Level(NameOf(Info.Level));
    Expected.append(Info.Code).append("  ").append(Level);
    Expected.append(LevelWidth - Level.size(), ' ').append(Info.Title).append("\n");
  }
  EXPECT_EQ(RunTrrule({"explain"}), (ChildEnd{0, Expected, ""}));
  EXPECT_EQ(Expected.substr(0, Expected.find('\n')), "TR001  error    the rule has no rule line");
  const std::string First = RunTrrule({"explain", "TR001"}).Out;
  const std::string Second = RunTrrule({"explain", "tr002"}).Out;
  EXPECT_EQ(RunTrrule({"explain", "TR001", "TR002"}), (ChildEnd{0, First + "\n" + Second, ""}));
}

/// What a command of the shell writes to a terminal.
std::string ShownAtTerminal(const std::string& Command, const std::string& Folder) {
  return RunInChild([&] {
           if (chdir(Folder.c_str()) == 0 && dup2(open("/dev/null", O_RDONLY), STDIN_FILENO) >= 0) {
             execlp("script", "script", "-qec", Command.c_str(), "/dev/null", nullptr);
           }
         })
      .Out;
}

TEST(TrruleProgram, HasColoursAndShowsProgressAtATerminal) {
  const TestFolder Folder;
  Folder.Write("a.trr", "NP::NP : [N] -> [N]\n(X1::Y1)\n((x1 num) = (x3 num))\n");
  const std::string Check = std::string(GrammarPaths::Program) + " check a.trr";
  const std::string Count = "1 error, 0 warnings, 0 notes\r\n";
  EXPECT_EQ(
      ShownAtTerminal(Check, Folder.Path("")),
      "\x1b[1ma.trr:3:14: \x1b[0m\x1b[1;31merror TR009\x1b[0m: there is no x3: the source side has "
      "1 component\r\n  ((x1 num) = (x3 num))\r\n  \x1b[32m             ^~\x1b[0m\r\n" +
          Count + "\r\x1b[K");
  EXPECT_EQ(ShownAtTerminal("NO_COLOR=1 " + Check + " --quiet", Folder.Path("")),
            "a.trr:3:14: error TR009: there is no x3: the source side has 1 component\r\n"
            "  ((x1 num) = (x3 num))\r\n               ^~\r\n" +
                Count);
}

TEST(TrruleProgram, HasNothingToDoOnAnEmptyGrammar) {
  for (const std::string& sCommand : Commands) {
    EXPECT_EQ(RunTrrule({sCommand}), (ChildEnd{0, "", ""})) << sCommand;
    EXPECT_EQ(RunTrrule({sCommand, "--quiet", "-"}), (ChildEnd{0, "", ""})) << sCommand;
  }
}

TEST(TrruleProgram, ReturnsTheStatusOfARunWithABadRule) {
  const TestFolder Folder;
  const std::string Bad = Folder.Write("bad.trr", "NP::NP : [N -> [N]\n(X1::Y1)\n");
  for (const Strings& vsArguments :
       {Strings{"print", Bad}, Strings{"sort", Bad}, Strings{"unique", Bad}, Strings{"json", Bad},
        Strings{"from-json", Bad}}) {
    const ChildEnd End = RunTrrule(vsArguments);
    EXPECT_EQ(End.Status, 1) << vsArguments.front();
    EXPECT_EQ(End.Out, "") << vsArguments.front();
    EXPECT_NE(End.Err, "") << vsArguments.front();
  }
  EXPECT_EQ(RunTrrule({"check", Bad}).Status, 1);
}

/// A grammar that takes a while.
std::string LargeGrammar() {
  std::string Text;
  for (const std::string& sRule : GeneratedRules(5, 4000)) {
    Text += sRule;
  }
  return Text;
}

TEST(TrruleProgram, ReplacesTheFileThatItReads) {
  const TestFolder Folder;
  const std::string Path = Folder.Write("a.trr", "NP::NP : [n] -> [n]\n(x1::y1)\n");
  EXPECT_EQ(RunTrrule({"sort", "-o", Path, Path}), (ChildEnd{0, "", ""}));
  EXPECT_EQ(Folder.Read("a.trr"), "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n");
}

/// Many rules as JSON.
std::string LargeJson() {
  std::string Text;
  for (int Number = 0; Number < 20000; ++Number) {
    Text += R"j({"slType":"NP","tlType":"NP","slLabels":["N"],"tlLabels":["N"],)j";
    Text += R"j("alignments":"((1,1))"})j";
    Text += '\n';
  }
  return Text;
}

/// Runs a command with much input and then stops it by a signal.
void ExpectNothingLeftBy(int Signal, std::vector<std::string> vsCommand, const std::string& Text) {
  const TestFolder Folder;
  Folder.Write("out", "before");
  int Input[2] = {};
  ASSERT_EQ(pipe(Input), 0);
  const pid_t Child = fork();
  if (Child == 0) {
    dup2(Input[0], STDIN_FILENO);
    close(Input[1]);
    signal(Signal, SIG_DFL);
    setenv("TMPDIR", Folder.Path("").c_str(), 1);
    vsCommand.insert(vsCommand.end(), {"-o", Folder.Path("out")});
    ExecuteTrrule(vsCommand);
    _exit(1);
  }
  close(Input[0]);
  // When all of this has been taken, the output file is open and much has been read.
  for (std::size_t Done = 0; Done < Text.size();) {
    const ssize_t Count = write(Input[1], Text.data() + Done, Text.size() - Done);
    ASSERT_GT(Count, 0);
    Done += static_cast<std::size_t>(Count);
  }
  EXPECT_EQ(Folder.Names().size(), 2U);
  kill(Child, Signal);
  int Status = 0;
  waitpid(Child, &Status, 0);
  close(Input[1]);
  EXPECT_TRUE(WIFSIGNALED(Status) && WTERMSIG(Status) == Signal);
  EXPECT_EQ(Folder.Names(), StringSet{"out"});
  EXPECT_EQ(Folder.Read("out"), "before");
}

TEST(TrruleProgram, LeavesNothingBehindWhenItIsInterrupted) {
  for (const int Signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    ExpectNothingLeftBy(Signal, {"sort", "--memory", "1K"}, LargeGrammar());
    ExpectNothingLeftBy(Signal, {"from-json", "--threads", "2"}, LargeJson());
  }
}

TEST(TrruleProgram, EndsQuietlyOnAClosedPipe) {
  const TestFolder Folder;
  const std::string Path = Folder.Write("a.trr", LargeGrammar());
  for (const bool IsIgnored : {false, true}) {
    EXPECT_EQ(RunInChild([&] {
                int Ends[2] = {};
                signal(SIGPIPE, IsIgnored ? SIG_IGN : SIG_DFL);
                if (pipe(Ends) == 0 && close(Ends[0]) == 0 && dup2(Ends[1], STDOUT_FILENO) >= 0) {
                  ExecuteTrrule({"print", Path});
                }
              }),
              (ChildEnd{IsIgnored ? 2 : -SIGPIPE, "", ""}));
  }
}

/// The long options in a text, in whatever form it has them.
StringSet OptionsIn(std::string Text) {
  for (std::size_t At = Text.find("\\-"); At != std::string::npos; At = Text.find("\\-")) {
    Text.erase(At, 1);
  }
  StringSet ssOptions;
  for (std::size_t At = Text.find("--"); At != std::string::npos; At = Text.find("--", At + 2)) {
    const std::size_t End = Text.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", At + 2);
    if (End != At + 2) {
      ssOptions.insert(Text.substr(At, End - At));
    }
  }
  return ssOptions;
}

TEST(TrruleProgram, HasHelpWithAnExampleForEachCommand) {
  for (const std::string& sCommand : Commands) {
    const ChildEnd Help = RunTrrule({sCommand, "--help"});
    EXPECT_EQ(Help.Status, 0);
    EXPECT_EQ(Help.Err, "");
    EXPECT_NE(Help.Out.find("\nExample:\n  trrule "), std::string::npos) << sCommand;
  }
}

TEST(TrruleProgram, DocumentsTheSameOptionsInHelpManualAndCompletions) {
  StringSet ssOptions = OptionsIn(RunTrrule({"--help"}).Out);
  for (const char* Command : {"split", "stats", "translate", "why", "test", "draw", "html", "find",
                              "diff", "patch", "merge"}) {
    ssOptions.merge(OptionsIn(RunTrrule({Command, "--help"}).Out));
  }
  for (const std::string& sCommand : Commands) {
    ssOptions.merge(OptionsIn(RunTrrule({sCommand, "--help"}).Out));
  }
  EXPECT_EQ(ssOptions.count("--memory"), 1U);
  EXPECT_EQ(OptionsIn(ReadSource("docs/trrule.1")), ssOptions);
  EXPECT_EQ(OptionsIn(ReadSource("tools/completion/trrule.bash")), ssOptions);
  EXPECT_EQ(OptionsIn(ReadSource("tools/completion/_trrule")), ssOptions);
}

/// What bash offers for the last of some words.
std::string OfferedByBash(const std::string& Words, int Position) {
  return RunInChild([&] {
           const std::string Script = "source '" + std::string(GrammarPaths::SourceFolder) +
                                      "/tools/completion/trrule.bash'; COMP_WORDS=(" + Words +
                                      "); COMP_CWORD=" + std::to_string(Position) +
                                      "; _trrule; echo \"${COMPREPLY[*]}\"";
           execlp("bash", "bash", "-c", Script.c_str(), nullptr);
         })
      .Out;
}

TEST(TrruleProgram, IsCompletedByBash) {
  EXPECT_EQ(
      OfferedByBash("trrule ''", 1),
      "check print sort unique head sample split stats json from-json translate why test draw html find diff patch merge explain help version -h --help --version\n");
  EXPECT_EQ(
      OfferedByBash("trrule help ''", 2),
      "check print sort unique head sample split stats json from-json translate why test draw html find diff patch merge explain help version\n");
  EXPECT_EQ(OfferedByBash("trrule p", 1), "print patch\n");
  EXPECT_EQ(OfferedByBash("trrule sort --r", 2), "--reverse\n");
  EXPECT_EQ(OfferedByBash("trrule check --s", 2), "--severity --start --statistics\n");
  EXPECT_EQ(OfferedByBash("trrule check --severity ''", 3), "error warning note\n");
  EXPECT_EQ(OfferedByBash("trrule explain --", 2), "--help\n");
  EXPECT_EQ(OfferedByBash("trrule sort --by ''", 3), "index type count length\n");
  EXPECT_EQ(OfferedByBash("trrule unique --ex", 2), "--examples\n");
  EXPECT_EQ(OfferedByBash("trrule unique --examples ''", 3), "\n");
}

TEST(TrruleProgram, HasItsCodesCompletedByBash) {
  const std::string Check = "'" + std::string(GrammarPaths::Program) + "' check ";
  std::string All;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    All.append(All.empty() ? "" : " ").append(Info.Code);
  }
  EXPECT_EQ(OfferedByBash(Check + "--only ''", 3), All + "\n");
  EXPECT_EQ(OfferedByBash(Check + "--except TR01", 3),
            "TR010 TR011 TR012 TR013 TR014 TR015 TR016 TR017\n");
  EXPECT_EQ(OfferedByBash(Check + "--except tr01", 3),
            "TR010 TR011 TR012 TR013 TR014 TR015 TR016 TR017\n");
  EXPECT_EQ(OfferedByBash(Check + "--only TR001,TR03", 3).substr(0, 23), "TR001,TR030 TR001,TR031");
  EXPECT_EQ(OfferedByBash(Check + "--only TR001,TR002,TR010", 3), "TR001,TR002,TR010\n");
  EXPECT_EQ(OfferedByBash(Check + "--only = TR01", 4),
            "TR010 TR011 TR012 TR013 TR014 TR015 TR016 TR017\n");
  EXPECT_EQ(OfferedByBash(Check + "--only =", 3), All + "\n");
  EXPECT_EQ(OfferedByBash("/no/such/trrule check --only ''", 3), "\n");
  const std::string Explain = "'" + std::string(GrammarPaths::Program) + "' explain ";
  EXPECT_EQ(OfferedByBash(Explain + "tr01", 2),
            "TR010 TR011 TR012 TR013 TR014 TR015 TR016 TR017\n");
  EXPECT_EQ(OfferedByBash(Explain + "TR001 TR04", 3),
            "TR040 TR041 TR042 TR043 TR044 TR045 TR046 TR047 TR048 TR049\n");
}

}  // namespace
