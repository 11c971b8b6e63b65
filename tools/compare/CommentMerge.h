#pragma once

#include <string>
#include <vector>

namespace Grammar {

/// The comments of a rule in three versions, merged: those of ours, without what theirs has removed
/// and with what it has added. An example, with all of its lines, is one comment; what both have
/// added is added once. The count becomes that of the base and what both have added to it.
///
/// @code
/// const std::vector<std::string> vsTheirs = {";;Score:4", "; new"};
/// MergedComments({";;Score:3"}, {";;Score:5"}, vsTheirs, 3);  // {";;Score:6", "; new"}
/// @endcode
///
/// @param BaseCountPassIn the count of the base; 0 if it does not have the rule
std::vector<std::string> MergedComments(const std::vector<std::string>& vsBase,
                                        const std::vector<std::string>& vsOurs,
                                        const std::vector<std::string>& vsTheirs,
                                        int BaseCountPassIn);

}  // namespace Grammar
