#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// The name that was probably meant by one that there is not; empty if that cannot be said.
///
/// The distance between two texts is the number of bytes to insert, delete, replace, or exchange
/// with a neighbour, in whatever case they are. The nearest name is meant where it is the only one
/// so near, and at most two such steps and less than half of the written name away.
///
/// @code
/// NearestName("Chekc", {"check", "sort"});  // "check"
/// @endcode
std::string NearestName(std::string_view Written, const std::vector<std::string>& vsNames);

/// The end of a message on a name that there is not: "; did you mean check?", or, where no name is
/// near, what to look at.
std::string AdviceOn(std::string_view Written, const std::vector<std::string>& vsNames,
                     const std::string& WhereToLook);

}  // namespace Grammar
