#include "InputFile.h"

#include "RunError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <streambuf>

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

/// Passes out what a descriptor gives. The standard library's files do not say why they fail.
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

}  // namespace Grammar
