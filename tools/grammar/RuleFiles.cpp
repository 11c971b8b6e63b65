#include "RuleFiles.h"

#include "RunError.h"
#include "UnfoldingBuffer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <streambuf>
#include <utility>

namespace Grammar {

namespace {

std::string Shown(const std::string& Name) {
  return Name == "-" ? "standard input" : Name;
}

}  // namespace

std::vector<std::string> OrStandardInput(std::vector<std::string> vsNames) {
  if (vsNames.empty()) {
    vsNames.emplace_back("-");
  }
  return vsNames;
}

std::uint64_t TotalSize(const std::vector<std::string>& vsNames) {
  std::uint64_t Total = 0;
  for (const std::string& sName : vsNames) {
    struct stat Status {};
    const int Result = sName == "-" ? fstat(STDIN_FILENO, &Status) : stat(sName.c_str(), &Status);
    if (Result != 0 || !S_ISREG(Status.st_mode)) {
      return 0;
    }
    Total += static_cast<std::uint64_t>(Status.st_size);
  }
  return Total;
}

/// Hands out what a descriptor gives. The standard library's files do not tell why they fail.
class InputFile::Buffer : public std::streambuf {
 public:
  explicit Buffer(const std::string& NamePassIn) : Name(NamePassIn), vBytes(std::size_t{1} << 17) {
    Descriptor = Name == "-" ? STDIN_FILENO : open(Name.c_str(), O_RDONLY | O_CLOEXEC);
    if (Descriptor < 0) {
      throw InputError(SystemError("cannot read " + Name).what());
    }
  }

  ~Buffer() override {
    if (Descriptor != STDIN_FILENO) {
      close(Descriptor);
    }
  }

  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;

 protected:
  int_type underflow() override {
    ssize_t Count = -1;
    do {
      Count = read(Descriptor, vBytes.data(), vBytes.size());
    } while (Count < 0 && errno == EINTR);
    if (Count < 0) {
      throw InputError(SystemError("cannot read " + Shown(Name)).what());
    }
    setg(vBytes.data(), vBytes.data(), vBytes.data() + Count);
    return Count == 0 ? traits_type::eof() : traits_type::to_int_type(vBytes.front());
  }

 private:
  std::string Name;
  std::vector<char> vBytes;
  int Descriptor = -1;
};

InputFile::InputFile(const std::string& Name)
    : Bytes(std::make_unique<Buffer>(Name)), Input(Bytes.get()) {
  // What the buffer throws goes on to the caller.
  Input.exceptions(std::ios::badbit);
}

InputFile::~InputFile() = default;

/// A file of rules on one line each, as a stream of their lines.
struct RuleFiles::Unfolded {
  explicit Unfolded(std::istream& Input) : Bytes(Input), Stream(&Bytes) {
    Stream.exceptions(std::ios::badbit);
  }

  UnfoldingBuffer Bytes;
  std::istream Stream;
};

RuleFiles::RuleFiles(std::vector<std::string> vsNamesPassIn, bool Quiet, bool FoldedPassIn)
    : vsNames(OrStandardInput(std::move(vsNamesPassIn))),
      IsFolded(FoldedPassIn),
      Shown(Quiet, TotalSize(vsNames)),
      Sink(ReportFailure) {}

RuleFiles::~RuleFiles() = default;

void RuleFiles::Fail(const std::string& Message) {
  Failed = true;
  Sink(Message);
}

void RuleFiles::Open(const std::string& Name) {
  File = std::make_unique<InputFile>(Name);
  if (IsFolded) {
    Lines = std::make_unique<Unfolded>(File->Stream());
  }
  Reader = std::make_unique<RuleReader>(IsFolded ? Lines->Stream : File->Stream(), Name);
}

/// Opens the next file that can be opened. @return false where there is none
bool RuleFiles::OpenNext() {
  Reader = nullptr;
  Lines = nullptr;
  File = nullptr;
  while (Reader == nullptr && NextName < vsNames.size()) {
    try {
      Open(vsNames[NextName++]);
    } catch (const InputError& Error) {
      Fail(Error.what());
    }
  }
  return Reader != nullptr;
}

/// The next rule of the open file. What a file gives before it fails has been handed out by then.
bool RuleFiles::ReadNext(RuleText& TextReturn) {
  try {
    return Reader->Next(TextReturn);
  } catch (const InputError& Error) {
    Fail(Error.what());
    return false;
  }
}

bool RuleFiles::NextInFile(RuleText& TextReturn) {
  const bool IsRead = ReadNext(TextReturn);
  if (IsRead) {
    Shown.Advance(TextReturn.Text.size());
  }
  return IsRead;
}

bool RuleFiles::Next(RuleText& TextReturn) {
  while (Reader != nullptr || OpenNext()) {
    if (NextInFile(TextReturn)) {
      return true;
    }
    if (!OpenNext()) {
      break;
    }
  }
  return false;
}

}  // namespace Grammar
