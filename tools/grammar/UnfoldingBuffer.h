#pragma once

#include <array>
#include <istream>
#include <streambuf>
#include <string>

namespace Grammar {

/// Reads rules that stand on one line each, and gives their lines.
///
///   UnfoldingBuffer Buffer(Input);
///   std::istream Lines(&Buffer);
class UnfoldingBuffer : public std::streambuf {
 public:
  /// @param InputPassIn has to outlive the buffer
  explicit UnfoldingBuffer(std::istream& InputPassIn) : Input(InputPassIn) {}

 protected:
  int_type underflow() override;

 private:
  static constexpr std::size_t BlockSize = 1U << 16U;

  std::istream& Input;
  std::array<char, BlockSize> Block{};
  std::string Text;
  bool HasBackslash = false;  ///< the block before ended with one that is not yet understood
};

}  // namespace Grammar
