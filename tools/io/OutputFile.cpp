#include "OutputFile.h"

#include "Environment.h"
#include "RunError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace Grammar {

namespace {

/// The permissions that a new file gets. The mask can only be read by setting it; meanwhile nobody
/// else is let at what another thread creates.
mode_t NewFileMode() {
  const mode_t Mask = umask(S_IRWXG | S_IRWXO);
  umask(Mask);
  return 0666U & ~Mask;
}

/// The file that a name leads to, over symbolic links; the name itself where there is none yet.
std::string Resolved(const std::string& Path) {
  const std::unique_ptr<char, decltype(&std::free)> Real(realpath(Path.c_str(), nullptr),
                                                         &std::free);
  return Real == nullptr ? Path : Real.get();
}

bool IsStandardOutput(std::string_view Path) {
  return Path.empty() || Path == "-";
}

}  // namespace

OutputFile::OutputFile(const std::string& Path) {
  Buffer.reserve(BufferSize);
  if (IsStandardOutput(Path)) {
    Name = "standard output";
    Descriptor = STDOUT_FILENO;
  } else {
    Name = Path;
    OpenFile(Path);
  }
}

void OutputFile::OpenFile(const std::string& Path) {
  struct stat Status {};
  const bool Exists = stat(Path.c_str(), &Status) == 0;
  if (Exists && !S_ISREG(Status.st_mode)) {
    Descriptor = open(Path.c_str(), O_WRONLY | O_CLOEXEC);
    OwnsDescriptor = true;
    if (Descriptor < 0) {
      throw SystemError("cannot write " + Path);
    }
    return;
  }
  if (Exists && access(Path.c_str(), W_OK) != 0) {
    throw SystemError("cannot write " + Path);
  }
  Target = Resolved(Path);
  Unfinished = std::make_unique<UnfinishedFile>(Target);
  Descriptor = Unfinished->Descriptor();
  fchmod(Descriptor, Exists ? Status.st_mode & 07777U : NewFileMode());
}

OutputFile::~OutputFile() {
  if (OwnsDescriptor && Descriptor >= 0) {
    close(Descriptor);
  }
}

void OutputFile::Flush() {
  std::string_view Rest = Buffer;
  while (!Rest.empty()) {
    const ssize_t Written = write(Descriptor, Rest.data(), Rest.size());
    if (Written >= 0) {
      Rest.remove_prefix(static_cast<std::size_t>(Written));
    } else if (errno == EPIPE) {
      throw ClosedOutput();
    } else if (errno != EINTR) {
      throw SystemError("cannot write " + Name);
    }
  }
  Buffer.clear();
}

void OutputFile::Finish() {
  Flush();
  if (Unfinished != nullptr) {
    // A disk may report only now that it is full.
    if (fsync(Descriptor) != 0 && errno != EINVAL) {
      throw SystemError("cannot write " + Name);
    }
    Unfinished->RenameTo(Target);
  }
}

bool WantsColours(const std::string& Path) {
  return IsStandardOutput(Path) && isatty(STDOUT_FILENO) != 0 &&
         EnvironmentVariable("NO_COLOR").empty();
}

}  // namespace Grammar
