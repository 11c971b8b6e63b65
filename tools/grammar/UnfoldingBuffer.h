#pragma once

#include <array>
#include <istream>
#include <streambuf>
#include <string>

namespace Grammar {

/// Reads rules that stand on one line each, and gives their lines.
///
/// @code
/// std::istringstream Input("{NP,8}\tNP::NP : [N] -> [N]\n");
/// UnfoldingBuffer Buffer(Input);
/// std::istream Unfolded(&Buffer);
/// std::string First;
/// std::getline(Unfolded, First);
/// First;  // "{NP,8}"
/// @endcode
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
