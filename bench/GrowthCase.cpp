#include "GrowthCase.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>

/// The work that is counted; a name that the counting can find.
extern "C" __attribute__((noinline, visibility("default"))) void MeasuredWork(
    const Growth::Work& Work) {
  Work();
}

namespace Growth {

int RunCases(int ArgumentCount, char** Arguments, const std::vector<Case>& vCases) {
  if (ArgumentCount != 3) {
    for (const Case& Row : vCases) {
      std::cout << Row.Name << '\t' << Row.Size << '\t' << Row.Limit << '\n';
    }
    return 0;
  }
  const std::string Name = Arguments[1];
  const int Size = std::atoi(Arguments[2]);
  const auto Found =
      std::find_if(vCases.begin(), vCases.end(), [&](const Case& Row) { return Row.Name == Name; });
  if (Found == vCases.end() || Size <= 0) {
    std::cerr << "No such case: " << Name << '\n';
    return 2;
  }
  MeasuredWork(Found->Prepare(Size));
  return 0;
}

}  // namespace Growth
