// Linked into a second driver: reports each rule that is released, in place of the destructor. The
// linker's option --wrap sends the calls here; see tests/CMakeLists.txt.

#include "TrRule.h"

namespace {

void Report() {
  std::cerr << "a rule was released\n";
}

/// Shows that the watch works: this one is released at the end.
const TrRule Control;

}  // namespace

// The destructor of whole objects, and that of base classes, which some compilers call for both.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" void __wrap__ZN6TrRuleD1Ev(TrRule* /*Released*/) {
  Report();
}

extern "C" void __wrap__ZN6TrRuleD2Ev(TrRule* /*Released*/) {
  Report();
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
