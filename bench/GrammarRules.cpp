// Used by script/bench-grammar: many rules, the time and the instructions that the library takes
// for them, and the time and memory that a program takes.

#include "RuleGenerator.h"
#include "TrRule.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sstream>
#include <string>

// Names that the counting of instructions can find.

/// Reads a rule and frees its memory.
extern "C" __attribute__((noinline, visibility("default"))) std::size_t MeasuredReading(
    const std::string& Text) {
  TrRule Record;
  return Record.SetTrRuleFromString(Text) ? 1 : 0;
}

/// Reads a rule, writes it to a string and frees its memory.
extern "C" __attribute__((noinline, visibility("default"))) std::size_t MeasuredReadingAndWriting(
    const std::string& Text) {
  TrRule Record;
  Record.SetTrRuleFromString(Text);
  return Record.ReturnAsStringForPrint().size();
}

namespace {

constexpr std::uint64_t Seed = 7;

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point Start) {
  return std::chrono::duration<double>(Clock::now() - Start).count();
}

void PrintFigures(double Seconds, double Processor, long Kilobytes) {
  std::printf("%8.2f s %8.2f s processor %8.1f MB\n", Seconds, Processor,
              static_cast<double>(Kilobytes) / 1024);
}

int WriteRules(long Count) {
  RuleGenerator Generator(Seed);
  for (long Rule = 0; Rule < Count; ++Rule) {
    const std::string Text = Generator.NextRule();
    std::fwrite(Text.data(), 1, Text.size(), stdout);
  }
  return std::fflush(stdout) == 0 ? 0 : 2;
}

using Measured = std::size_t (*)(const std::string&);

/// Passes each rule to the library; generating the rules is not measured.
int MeasureLibrary(long Count, Measured Work) {
  std::ostringstream Ignored;
  std::streambuf* OldOut = std::cout.rdbuf(Ignored.rdbuf());
  RuleGenerator Generator(Seed);
  double Seconds = 0;
  std::size_t Size = 0;
  for (long Rule = 0; Rule < Count; ++Rule) {
    const std::string Text = Generator.NextRule();
    const Clock::time_point Start = Clock::now();
    Size += Work(Text);
    Seconds += SecondsSince(Start);
    Ignored.str("");
  }
  std::cout.rdbuf(OldOut);
  rusage Usage{};
  getrusage(RUSAGE_SELF, &Usage);
  PrintFigures(Seconds, Seconds, Usage.ru_maxrss);
  return Size > 0 ? 0 : 2;
}

double Seconds(const timeval& Time) {
  return static_cast<double>(Time.tv_sec) + static_cast<double>(Time.tv_usec) / 1e6;
}

/// Runs a program without its messages and reports its time and memory.
int MeasureProgram(char** Command) {
  const Clock::time_point Start = Clock::now();
  const pid_t Child = fork();
  if (Child == 0) {
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execvp(Command[0], Command);
    _exit(127);
  }
  int Status = 0;
  rusage Usage{};
  wait4(Child, &Status, 0, &Usage);
  PrintFigures(SecondsSince(Start), Seconds(Usage.ru_utime) + Seconds(Usage.ru_stime),
               Usage.ru_maxrss);
  return WIFEXITED(Status) && WEXITSTATUS(Status) < 2 ? 0 : 2;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  if (ArgumentCount > 2 && std::strcmp(Arguments[1], "write") == 0) {
    return WriteRules(std::atol(Arguments[2]));
  }
  if (ArgumentCount > 2 && std::strcmp(Arguments[1], "library") == 0) {
    return MeasureLibrary(std::atol(Arguments[2]), MeasuredReadingAndWriting);
  }
  if (ArgumentCount > 2 && std::strcmp(Arguments[1], "read") == 0) {
    return MeasureLibrary(std::atol(Arguments[2]), MeasuredReading);
  }
  if (ArgumentCount > 2 && std::strcmp(Arguments[1], "run") == 0) {
    return MeasureProgram(Arguments + 2);
  }
  std::fputs(
      "usage: trrule-grammar-rules write COUNT | read COUNT | library COUNT | run PROGRAM "
      "ARGUMENT...\n",
      stderr);
  return 2;
}
