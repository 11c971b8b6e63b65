// Sections: signals, watching, waiting.

#include "FileWatch.h"

#include "RunError.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <filesystem>

namespace Grammar {

// ---- Signals ----------------------------------------------------------------------------------

namespace {

constexpr std::array<int, 4> EndingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

// A handler may look at lock-free atomics and at little else.
std::atomic<int> SignalEnd{-1};

extern "C" void NoteSignal(int Signal) {
  const int Before = errno;
  const auto Byte = static_cast<unsigned char>(Signal);
  const ssize_t Ignored = write(SignalEnd.load(), &Byte, 1);
  static_cast<void>(Ignored);
  errno = Before;
}

}  // namespace

struct EndSignals::Saved {
  std::array<int, 2> Pipe{-1, -1};
  std::array<struct sigaction, EndingSignals.size()> Actions{};
};

EndSignals::EndSignals() : Before(std::make_unique<Saved>()) {
  if (pipe2(Before->Pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    throw SystemError("cannot make a pipe");
  }
  SignalEnd.store(Before->Pipe[1]);
  for (std::size_t Index = 0; Index < EndingSignals.size(); ++Index) {
    struct sigaction& Old = Before->Actions[Index];
    if (sigaction(EndingSignals[Index], nullptr, &Old) == 0 && Old.sa_handler != SIG_IGN) {
      struct sigaction New {};
      New.sa_handler = NoteSignal;
      New.sa_flags = SA_RESTART;
      sigemptyset(&New.sa_mask);
      sigaction(EndingSignals[Index], &New, nullptr);
    }
  }
}

EndSignals::~EndSignals() {
  for (std::size_t Index = 0; Index < EndingSignals.size(); ++Index) {
    sigaction(EndingSignals[Index], &Before->Actions[Index], nullptr);
  }
  const int Left = Take();
  SignalEnd.store(-1);
  close(Before->Pipe[0]);
  close(Before->Pipe[1]);
  if (Left != 0) {
    static_cast<void>(raise(Left));
  }
}

int EndSignals::Take() {
  unsigned char Signal = 0;
  return read(Before->Pipe[0], &Signal, 1) == 1 ? Signal : 0;
}

int EndSignals::Descriptor() const {
  return Before->Pipe[0];
}

// ---- Watching ---------------------------------------------------------------------------------

FileWatch::FileWatch(std::vector<std::string> vsFilesPassIn) : vsFiles(std::move(vsFilesPassIn)) {
  Events = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  if (Events < 0) {
    throw SystemError("cannot watch files");
  }
  try {
    for (std::size_t Index = 0; Index < vsFiles.size(); ++Index) {
      WatchFolder(vsFiles[Index], Index);
      // What a symbolic link points to is written in another folder.
      std::error_code Error;
      const std::filesystem::path Real = std::filesystem::canonical(vsFiles[Index], Error);
      if (!Error) {
        WatchFolder(Real.string(), Index);
      }
    }
  } catch (...) {
    close(Events);
    throw;
  }
}

FileWatch::~FileWatch() {
  close(Events);
}

void FileWatch::WatchFolder(const std::string& File, std::size_t Index) {
  const std::filesystem::path Path(File);
  const std::string Folder = Path.has_parent_path() ? Path.parent_path().string() : ".";
  const int Watched =
      inotify_add_watch(Events, Folder.c_str(),
                        IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ONLYDIR);
  if (Watched < 0) {
    throw SystemError("cannot watch " + Folder);
  }
  vEntries.push_back({Watched, Path.filename().string(), Index});
}

// ---- Waiting ----------------------------------------------------------------------------------

/// Notes the file of an event. Where events were lost, every file may have changed.
void FileWatch::NoteEvent(int Folder, bool IsLost, const std::string& Name,
                          std::vector<bool>& vHasChangedReturn) const {
  for (const Entry& Watched : vEntries) {
    if (IsLost || (Watched.Folder == Folder && Watched.Name == Name)) {
      vHasChangedReturn[Watched.File] = true;
    }
  }
}

/// Takes the events that have come.
void FileWatch::ReadEvents(std::vector<bool>& vHasChangedReturn) const {
  constexpr std::size_t MaxEvent = sizeof(inotify_event) + NAME_MAX + 1;
  std::vector<char> vBuffer(64 * MaxEvent);
  for (ssize_t Size = 0; (Size = read(Events, vBuffer.data(), vBuffer.size())) > 0;) {
    for (std::size_t At = 0; At < static_cast<std::size_t>(Size);) {
      inotify_event Event{};
      std::memcpy(&Event, vBuffer.data() + At, sizeof Event);
      // The name ends with a null byte, or several.
      const char* Name = Event.len > 0 ? vBuffer.data() + At + sizeof Event : "";
      NoteEvent(Event.wd, (Event.mask & IN_Q_OVERFLOW) != 0, Name, vHasChangedReturn);
      At += sizeof Event + Event.len;
    }
  }
}

std::vector<std::string> FileWatch::Wait(EndSignals& SignalsReturn) {
  std::vector<bool> vHasChanged(vsFiles.size());
  bool IsChanging = false;
  for (;;) {
    std::array<pollfd, 2> Ready{{{Events, POLLIN, 0}, {SignalsReturn.Descriptor(), POLLIN, 0}}};
    const int Count = poll(Ready.data(), Ready.size(), IsChanging ? QuietMilliseconds : -1);
    if (Count < 0 && errno != EINTR) {
      throw SystemError("cannot watch files");
    }
    if (Count > 0 && SignalsReturn.Take() != 0) {
      return {};
    }
    if (Count == 0) {
      break;
    }
    if (Count > 0) {
      ReadEvents(vHasChanged);
      IsChanging = std::find(vHasChanged.begin(), vHasChanged.end(), true) != vHasChanged.end();
    }
  }
  std::vector<std::string> vsChanged;
  for (std::size_t Index = 0; Index < vsFiles.size(); ++Index) {
    if (vHasChanged[Index]) {
      vsChanged.push_back(vsFiles[Index]);
    }
  }
  return vsChanged;
}

}  // namespace Grammar
