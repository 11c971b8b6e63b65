#pragma once

#include <vector>

/// @file
/// Ordering numbers by what they refer to.
///
/// In this example 2 and 4 wait for nothing, since 3 is not a key, and 1 waits for 2:
/// @code
///   std::vector<int> vOrder;
///   OrderByDependency({{1, 2}, {2, 3}, {4, 4}}, vOrder);  // true
///   vOrder;                                               // {2, 4, 1}
/// @endcode

namespace TrRuleInternal {

/// A key, and a number that it refers to and is ordered after.
struct Reference {
  int Key;
  int Target;
};

/// Orders the keys of references by levels: a key is placed one level after the last key that it
/// refers to; within a level, keys ascend. A key waits neither for itself nor for a number that is
/// not a key. n log n in the references.
/// @param vReferences the references, in any order; one key may have several
/// @param vOrderReturn receives each key once, in order, without the keys that are in a cycle or
///        wait for one that is
/// @return whether there is no cycle
bool OrderByDependency(std::vector<Reference> vReferences, std::vector<int>& vOrderReturn);

}  // namespace TrRuleInternal
