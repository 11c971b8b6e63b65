#pragma once

#include <cstdint>
#include <vector>

namespace Grammar {

/// The atoms that are possible at a path: some, or all but some.
struct AtomRange {
  bool IsNegated = true;
  std::vector<std::uint32_t> vAtoms;  ///< ascending, none twice

  bool IsAnything() const { return IsNegated && vAtoms.empty(); }
  bool IsNothing() const { return !IsNegated && vAtoms.empty(); }
};

/// What two ranges have in common.
///
/// @code
/// Common({false, {1, 2}}, {true, {2, 3}}).vAtoms;       // {1}
/// Common({false, {1}}, {false, {2}}).IsNothing();       // true
/// @endcode
AtomRange Common(const AtomRange& Left, const AtomRange& Right);

/// Leaves of a range what is among some atoms. Where it is a few atoms already,
/// the size of the others hardly matters.
/// @param vAtoms ascending
void Narrow(AtomRange& RangeReturn, const std::vector<std::uint32_t>& vAtoms);

/// Sorts atoms, and drops repetitions.
void Tidy(std::vector<std::uint32_t>& vAtomsReturn);

}  // namespace Grammar
