#pragma once

#include <functional>
#include <vector>

/// What script/growth counts the instructions of: something that is done to an input of a size.
///
/// script/growth runs each case at its first size and at four times that, counts the instructions
/// inside `MeasuredWork`, and fails if they grow by more than the limit. Linear work grows 4 times,
/// n log n work about 4.7 times, more or less if a buffer happens to double. Where the result or
/// the output grows with the square, so must the work, and the limit allows it.
namespace Growth {

constexpr double None = 1.1;
constexpr double Linear = 6;
constexpr double StrictlyLinear = 5;
constexpr double Quadratic = 20;
constexpr double Cubic = 70;

using Work = std::function<void()>;

struct Case {
  const char* Name;
  int Size;  ///< the first of the sizes
  double Limit;
  Work (*Prepare)(int Size);
};

/// Lists the cases, name, first size and limit; or, with a name and a size, prepares that input and
/// does the work in `MeasuredWork`.
/// @return the status of the program
int RunCases(int ArgumentCount, char** Arguments, const std::vector<Case>& vCases);

}  // namespace Growth
