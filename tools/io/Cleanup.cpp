#include "Cleanup.h"

#include "RunError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace Grammar {

namespace {

constexpr std::array<int, 5> EndingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE};

// A handler may look at lock-free atomics and at little else, hence no container.
std::array<std::atomic<const char*>, 8> UnfinishedNames{};
static_assert(std::atomic<const char*>::is_always_lock_free);

extern "C" void RemoveFilesAndEnd(int Signal) {
  for (const auto& Current : UnfinishedNames) {
    const char* Name = Current.load();
    if (Name != nullptr) {
      unlink(Name);
    }
  }
  // The handler was installed to work once: now the signal does what it does without it.
  static_cast<void>(raise(Signal));
}

/// Holds the ending signals back for a scope, so that none comes between making a file and
/// noting it.
class SignalsHeldBack {
 public:
  SignalsHeldBack() {
    sigset_t Held;
    sigemptyset(&Held);
    for (const int Signal : EndingSignals) {
      sigaddset(&Held, Signal);
    }
    pthread_sigmask(SIG_BLOCK, &Held, &Before);
  }

  ~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &Before, nullptr); }

  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

 private:
  sigset_t Before{};
};

/// The place where a name was noted; nothing if there is none free.
std::optional<std::size_t> Note(const char* Name) {
  for (std::size_t Slot = 0; Slot < UnfinishedNames.size(); ++Slot) {
    const char* Free = nullptr;
    if (UnfinishedNames[Slot].compare_exchange_strong(Free, Name)) {
      return Slot;
    }
  }
  return std::nullopt;
}

}  // namespace

void RemoveUnfinishedFilesOnSignals() {
  for (const int Signal : EndingSignals) {
    struct sigaction Action {};
    if (sigaction(Signal, nullptr, &Action) == 0 && Action.sa_handler != SIG_IGN) {
      Action.sa_handler = RemoveFilesAndEnd;
      Action.sa_flags = static_cast<int>(SA_RESETHAND);
      sigemptyset(&Action.sa_mask);
      sigaction(Signal, &Action, nullptr);
    }
  }
}

UnfinishedFile::UnfinishedFile(const std::string& Target) : Name(Target + ".XXXXXX") {
  const SignalsHeldBack Held;
  File = mkostemp(Name.data(), O_CLOEXEC);
  if (File < 0) {
    throw SystemError("cannot write " + Target);
  }
  const std::optional<std::size_t> Free = Note(Name.c_str());
  if (!Free) {
    unlink(Name.c_str());
    close(File);
    throw RunError("too many output files at once");
  }
  Slot = *Free;
}

UnfinishedFile::~UnfinishedFile() {
  if (!Name.empty()) {
    unlink(Name.c_str());
    Forget();
  }
  close(File);
}

void UnfinishedFile::Forget() {
  UnfinishedNames[Slot].store(nullptr);
  Name.clear();
}

void UnfinishedFile::RenameTo(const std::string& Target) {
  const SignalsHeldBack Held;
  if (std::rename(Name.c_str(), Target.c_str()) != 0) {
    throw SystemError("cannot write " + Target);
  }
  Forget();
}

}  // namespace Grammar
