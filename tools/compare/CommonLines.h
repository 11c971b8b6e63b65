#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace Grammar {

/// Which lines of two lists are in both, in the same order: what both begin and end with, and of
/// the rest a longest common part. Where that would take more than a million comparisons, the rest
/// has nothing in common.
///
/// @code
/// const std::string Old = "abcd";
/// const std::string New = "axcd";
/// const CommonLines Common(4, 4, [&](std::size_t At, std::size_t Other) {
///   return Old[At] == New[Other];
/// });
/// Common.HasOld(0);  // true
/// Common.HasOld(1);  // false
/// Common.HasNew(1);  // false
/// @endcode
class CommonLines {
 public:
  using SamenessTest = std::function<bool(std::size_t Old, std::size_t New)>;

  CommonLines(std::size_t OldSizePassIn, std::size_t NewSizePassIn,
              const SamenessTest& IsSamePassIn);

  /// Whether both lists have a line of the old one.
  bool HasOld(std::size_t Old) const { return vHasOld[Old]; }

  /// Whether both lists have a line of the new one.
  bool HasNew(std::size_t New) const { return vHasNew[New]; }

 private:
  void Keep(std::size_t Old, std::size_t New);
  void KeepCommon(std::size_t Begin, std::size_t OldEnd, std::size_t NewEnd,
                  const SamenessTest& IsSame);

  std::vector<bool> vHasOld;
  std::vector<bool> vHasNew;
};

}  // namespace Grammar
