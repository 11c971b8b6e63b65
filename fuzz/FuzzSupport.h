#pragma once

#include "support/HaltGuard.h"

#include <cstddef>
#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

/// @file
/// Shared by the fuzz targets: failing, silencing the library, surviving halts, and reading the
/// input.

/// Ends the program if a condition does not hold. The fuzzer reports that, like the errors that the
/// sanitizers detect.
void Require(bool Holds, const std::string& What);

/// Discards what is written to std::cout and std::cerr while it exists.
class SilentStreams {
 public:
  SilentStreams();
  ~SilentStreams();

  SilentStreams(const SilentStreams&) = delete;
  SilentStreams& operator=(const SilentStreams&) = delete;

 private:
  /// A buffer that discards bytes.
  class Nowhere : public std::streambuf {
   protected:
    int_type overflow(int_type Byte) override { return traits_type::not_eof(Byte); }
    std::streamsize xsputn(const char* /*Text*/, std::streamsize Size) override { return Size; }
  };

  Nowhere Sink;
  std::streambuf* OldOut;
  std::streambuf* OldErr;
};

/// The outcome of an operation: its result, or the reason and the message of its halt.
///
///   Outcome<std::string> Text = OutcomeOf([&] { return Rule.ReturnAsStringForPrint(); });
template <typename ResultT>
struct Outcome {
  ResultT Result{};
  std::optional<Halted> Halt;

  friend bool operator==(const Outcome& Left, const Outcome& Right) {
    return Left.Result == Right.Result && Left.Halt == Right.Halt;
  }
};

/// Runs an operation that may halt. An input that ends the process by design, or a call that never
/// returns, is not an error: the halt is returned, and the rule stays valid.
template <typename CodeT>
auto OutcomeOf(CodeT Code) {
  Outcome<decltype(Code())> Given;
  Given.Halt = HaltOf([&] { Given.Result = Code(); });
  return Given;
}

/// Reads the fuzzer's bytes as numbers and texts. After the end, all numbers are 0 and all texts
/// are empty.
class ByteReader {
 public:
  ByteReader(const std::uint8_t* DataPassIn, std::size_t SizePassIn)
      : Data(DataPassIn), Size(SizePassIn) {}

  bool IsEmpty() const { return Position == Size; }

  /// A number below the limit, which is at most 256; takes one byte.
  std::size_t Below(std::size_t Limit);

  bool Bool() { return Below(2) == 1; }

  /// Mostly a small number, such as an index or a category; sometimes any number.
  int Int();

  /// Mostly one of the given texts, sometimes any bytes.
  std::string Text(const std::vector<std::string>& vsTexts);

 private:
  std::uint8_t Byte();
  std::string Bytes(std::size_t Count);

  const std::uint8_t* Data;
  std::size_t Size;
  std::size_t Position = 0;
};

/// The lines of an input, including empty ones; without a line feed, there is one line.
std::vector<std::string> LinesOf(const std::uint8_t* Data, std::size_t Size);
