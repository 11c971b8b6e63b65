// Linked into a second driver: reports each rule that is destroyed, instead of the destructor. The
// linker option --wrap redirects the calls; see tests/CMakeLists.txt.

#include "TrRule.h"

namespace {

void Report() {
  std::cerr << "a rule was released\n";
}

/// Shows that the watch works: this rule is destroyed at the end.
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
