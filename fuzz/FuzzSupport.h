#pragma once

#include "support/HaltGuard.h"

#include <cstddef>
#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

/// @file
/// What the fuzz targets share: how they fail, how they keep the library quiet and alive, and how
/// they read their input.

/// Ends the program where something that must hold does not. This is what the fuzzer takes for a
/// finding, besides what the sanitizers see.
void Require(bool Holds, const std::string& What);

/// Drops what is written to std::cout and std::cerr while it lives.
class SilentStreams {
 public:
  SilentStreams();
  ~SilentStreams();

  SilentStreams(const SilentStreams&) = delete;
  SilentStreams& operator=(const SilentStreams&) = delete;

 private:
  /// A place where bytes vanish.
  class Nowhere : public std::streambuf {
   protected:
    int_type overflow(int_type Byte) override { return traits_type::not_eof(Byte); }
    std::streamsize xsputn(const char* /*Text*/, std::streamsize Size) override { return Size; }
  };

  Nowhere Sink;
  std::streambuf* OldOut;
  std::streambuf* OldErr;
};

/// What an operation gave: its result, or the reason and the message with which it halted.
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

/// Runs an operation that may halt. An input that ends the process by rights, or a call that never
/// returns, is no finding: it comes back as such, and the rule lives on.
template <typename CodeT>
auto OutcomeOf(CodeT Code) {
  Outcome<decltype(Code())> Given;
  Given.Halt = HaltOf([&] { Given.Result = Code(); });
  return Given;
}

/// Reads the fuzzer's bytes as numbers and texts. Behind the end, all numbers are 0 and all texts
/// empty.
class ByteReader {
 public:
  ByteReader(const std::uint8_t* DataPassIn, std::size_t SizePassIn)
      : Data(DataPassIn), Size(SizePassIn) {}

  bool IsEmpty() const { return Position == Size; }

  /// A number below the limit, which is at most 256; takes one byte.
  std::size_t Below(std::size_t Limit);

  bool Bool() { return Below(2) == 1; }

  /// Mostly a small number, such as an index or a category; sometimes one of all.
  int Int();

  /// Mostly one of the given texts, sometimes bytes as they are.
  std::string Text(const std::vector<std::string>& vsTexts);

 private:
  std::uint8_t Byte();
  std::string Bytes(std::size_t Count);

  const std::uint8_t* Data;
  std::size_t Size;
  std::size_t Position = 0;
};

/// The lines of an input, empty ones included; without a line feed there is one line.
std::vector<std::string> LinesOf(const std::uint8_t* Data, std::size_t Size);
