#include "support/ChildProcess.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>

namespace {

struct CloseFile {
  void operator()(std::FILE* File) const { std::fclose(File); }
};
using TemporaryFile = std::unique_ptr<std::FILE, CloseFile>;

TemporaryFile MakeTemporary() {
  return TemporaryFile(std::tmpfile());
}

std::string ReadAll(std::FILE* File) {
  std::string Text;
  std::rewind(File);
  for (int Byte = std::fgetc(File); Byte != EOF; Byte = std::fgetc(File)) {
    Text += static_cast<char>(Byte);
  }
  return Text;
}

/// A child process that runs code with its standard streams redirected to files.
class Child {
 public:
  explicit Child(const std::function<void()>& Code)
      : OutFile(MakeTemporary()), ErrFile(MakeTemporary()) {
    std::cout.flush();
    std::fflush(stdout);
    Pid = fork();
    if (Pid == 0) {
      dup2(fileno(OutFile.get()), STDOUT_FILENO);
      dup2(fileno(ErrFile.get()), STDERR_FILENO);
      Code();
      std::cout.flush();
      _exit(RanToItsEnd);
    }
  }

  int WaitForEnd() const {
    int Status = 0;
    waitpid(Pid, &Status, 0);
    return WIFEXITED(Status) ? WEXITSTATUS(Status) : -WTERMSIG(Status);
  }

  bool IsAlive() const { return waitpid(Pid, nullptr, WNOHANG) == 0; }

  long ResidentPages() const {
    std::ifstream File("/proc/" + std::to_string(Pid) + "/statm");
    long Total = 0;
    long Resident = 0;
    File >> Total >> Resident;
    return Resident;
  }

  /// Kills the process and returns the processor time that it used, in microseconds.
  long KillAndGetTime() const {
    kill(Pid, SIGKILL);
    rusage Usage{};
    int Status = 0;
    wait4(Pid, &Status, 0, &Usage);
    return (Usage.ru_utime.tv_sec + Usage.ru_stime.tv_sec) * 1000000L + Usage.ru_utime.tv_usec +
           Usage.ru_stime.tv_usec;
  }

  std::string Out() const { return ReadAll(OutFile.get()); }
  std::string Err() const { return ReadAll(ErrFile.get()); }

 private:
  TemporaryFile OutFile;
  TemporaryFile ErrFile;
  pid_t Pid = -1;
};

}  // namespace

ChildEnd RunInChild(const std::function<void()>& Code) {
  const Child Process(Code);
  const int Status = Process.WaitForEnd();
  return {Status, Process.Out(), Process.Err()};
}

ChildWait WatchInChild(const std::function<void()>& Code) {
  constexpr auto SettleTime = std::chrono::milliseconds(150);
  constexpr auto WatchTime = std::chrono::milliseconds(150);
  constexpr long MaxGrownPages = 16;
  constexpr long MaxMicroseconds = 100000;
  const Child Process(Code);
  std::this_thread::sleep_for(SettleTime);
  const long PagesBefore = Process.ResidentPages();
  std::this_thread::sleep_for(WatchTime);
  const long PagesAfter = Process.ResidentPages();
  ChildWait Wait{};
  Wait.Alive = Process.IsAlive();
  if (Wait.Alive) {
    Wait.KeptMemory = PagesAfter - PagesBefore <= MaxGrownPages;
    Wait.KeptProcessor = Process.KillAndGetTime() <= MaxMicroseconds;
  }
  Wait.Out = Process.Out();
  Wait.Err = Process.Err();
  return Wait;
}
