#include "FileNames.h"

#include "Bytes.h"

#include <cctype>

namespace Grammar {

namespace {

/// The letters and digits, with one "-" for all bytes between two of them.
std::string PlainName(std::string_view Thing) {
  std::string Name;
  bool IsApart = false;
  for (const char Byte : Thing) {
    if (std::isalnum(static_cast<unsigned char>(Byte)) == 0) {
      IsApart = !Name.empty();
    } else if (Name.size() < FileNames::MaxSize - 1) {
      Name.append(IsApart ? "-" : "").append(1, Byte);
      IsApart = false;
    }
  }
  return Name;
}

}  // namespace

std::string FileNames::NewName(std::string_view Thing) {
  const std::string Base = PlainName(Thing);
  std::string Free = Base;
  while (Free.empty() || !ssTaken.insert(Upper(Free)).second) {
    const std::size_t Number = ++ssRepetitions[Upper(Base)] + 1;
    Free = (Base.empty() ? Otherwise : Base) + '-' + std::to_string(Number);
  }
  return Free;
}

}  // namespace Grammar
