#pragma once

#include <vector>

/// @file
/// Ordering numbers by what they refer to.
///
/// For example the references 1 to 2, 2 to 3 and 4 to 4 give the order 2, 4, 1: 2 and 4 wait for
/// nothing (3 is no key, and what is no key is settled), 1 waits for 2.

namespace TrRuleInternal {

/// A key, and a number that it refers to and so comes after.
struct Reference {
  int Key;
  int Target;
};

/// Orders the keys of some references by levels: a key comes one level after the last key that it
/// refers to, ascending within a level. A key does not wait for itself, nor for a number that is no
/// key. n log n in the references.
/// @param vReferences the references, in any order; one key may have several
/// @param vOrderReturn gets each key once, in order; those that wait for themselves in a cycle, or
///        for such a key, are left out
/// @return true when every key has its place, false when there is a cycle
bool OrderByDependency(std::vector<Reference> vReferences, std::vector<int>& vOrderReturn);

}  // namespace TrRuleInternal
