#include "FuzzSupport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>

void Require(bool Holds, const std::string& What) {
  if (!Holds) {
    // The C++ streams are silenced, the C streams are not.
    std::fprintf(stderr, "does not hold: %s\n", What.c_str());
    std::abort();
  }
}

SilentStreams::SilentStreams() : OldOut(std::cout.rdbuf(&Sink)), OldErr(std::cerr.rdbuf(&Sink)) {}

SilentStreams::~SilentStreams() {
  std::cout.rdbuf(OldOut);
  std::cerr.rdbuf(OldErr);
}

std::uint8_t ByteReader::Byte() {
  return IsEmpty() ? std::uint8_t{0} : Data[Position++];
}

std::string ByteReader::Bytes(std::size_t Count) {
  std::string Text(std::min(Count, Size - Position), '\0');
  for (char& Letter : Text) {
    Letter = static_cast<char>(Byte());
  }
  return Text;
}

std::size_t ByteReader::Below(std::size_t Limit) {
  return Byte() % Limit;
}

int ByteReader::Int() {
  constexpr int First = -2;
  constexpr std::size_t SmallNumbers = 15;
  const std::size_t Number = Below(SmallNumbers + 1);
  if (Number < SmallNumbers) {
    return static_cast<int>(Number) + First;
  }
  std::uint32_t Whole = 0;
  for (int Left = 4; Left > 0; --Left) {
    Whole = Whole << 8U | Byte();
  }
  return static_cast<int>(Whole);
}

std::string ByteReader::Text(const std::vector<std::string>& vsTexts) {
  const std::size_t Number = Below(vsTexts.size() + 1);
  return Number < vsTexts.size() ? vsTexts[Number] : Bytes(Below(64));
}

std::vector<std::string> LinesOf(const std::uint8_t* Data, std::size_t Size) {
  std::vector<std::string> vsLines(1);
  for (std::size_t Position = 0; Position < Size; ++Position) {
    if (Data[Position] == '\n') {
      vsLines.emplace_back();
    } else {
      vsLines.back() += static_cast<char>(Data[Position]);
    }
  }
  return vsLines;
}
