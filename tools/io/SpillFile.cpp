#include "SpillFile.h"

#include "Environment.h"
#include "RunError.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace Grammar {

namespace {

std::string TemporaryFolder() {
  const std::string_view Folder = EnvironmentVariable("TMPDIR");
  return std::string(Folder.empty() ? "/tmp" : Folder);
}

int OpenWithoutName(const std::string& Folder) {
  const int Descriptor = open(Folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (Descriptor >= 0) {
    return Descriptor;
  }
  // Not every file system has files without a name; on the others the name goes at once.
  std::string Name = Folder + "/trrule-XXXXXX";
  const int Named = mkostemp(Name.data(), O_CLOEXEC);
  if (Named < 0) {
    throw SystemError("cannot make a temporary file in " + Folder);
  }
  unlink(Name.c_str());
  return Named;
}

}  // namespace

SpillFile::SpillFile() : Folder(TemporaryFolder()) {
  Descriptor = OpenWithoutName(Folder);
  Buffer.reserve(BufferSize);
}

SpillFile::~SpillFile() {
  close(Descriptor);
}

void SpillFile::Append(std::string_view Bytes) {
  if (Buffer.size() + Bytes.size() > BufferSize) {
    Flush();
  }
  if (Bytes.size() > BufferSize) {
    WriteAll(Bytes);
  } else {
    Buffer.append(Bytes);
  }
}

void SpillFile::Flush() {
  WriteAll(Buffer);
  Buffer.clear();
}

void SpillFile::WriteAll(std::string_view Bytes) {
  while (!Bytes.empty()) {
    const ssize_t Count = write(Descriptor, Bytes.data(), Bytes.size());
    if (Count >= 0) {
      Bytes.remove_prefix(static_cast<std::size_t>(Count));
      Written += static_cast<std::uint64_t>(Count);
    } else if (errno != EINTR) {
      throw SystemError("cannot write a temporary file in " + Folder);
    }
  }
}

std::size_t SpillFile::Read(std::uint64_t Offset, char* Into, std::size_t Count) const {
  std::size_t Done = 0;
  while (Done < Count) {
    const ssize_t Got =
        pread(Descriptor, Into + Done, Count - Done, static_cast<off_t>(Offset + Done));
    if (Got == 0) {
      break;
    }
    if (Got > 0) {
      Done += static_cast<std::size_t>(Got);
    } else if (errno != EINTR) {
      throw SystemError("cannot read a temporary file in " + Folder);
    }
  }
  return Done;
}

}  // namespace Grammar
