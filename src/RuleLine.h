#pragma once

#include <string>
#include <string_view>
#include <vector>

/// @file
/// Taking the rule line apart: "NP::NP : [DET ADJ N] -> [DET N ADJ]".

namespace TrRuleInternal {

/// A rule line, taken apart. All views point into the line.
struct RuleLineParts {
  std::string_view SLType;
  std::string_view TLType;
  std::string_view SLLabels;  ///< what stands between the brackets
  std::string_view TLLabels;
};

/// Takes a rule line in its common form apart: types and labels without brackets, braces, colons,
/// semicolons, equals signs and angle brackets, with no white space but blanks. Linear.
///
///   ParseCommonRuleLine("NP::NP : [DET N] -> [N DET]", Parts);  // Parts.TLLabels is "N DET"
///
/// @return whether the line is in the common form; if not, the parts mean nothing
bool ParseCommonRuleLine(std::string_view Line, RuleLineParts& PartsReturn);

/// What is wrong with a rule line; `None` where it is whole.
enum class RuleLineFault { None, Types, SourceSide, TargetSide };

/// Takes a rule line apart as far as it can be read. The library's reader understands the same.
/// Linear.
/// @param Code a line with "] -> [" in it, without its comment
RuleLineFault ParseRuleLine(std::string_view Code, RuleLineParts& PartsReturn);

/// The labels of a sequence in its common form, in capitals. Linear.
std::vector<std::string> UpperLabels(std::string_view Sequence);

/// The labels of any sequence, without the brackets around it: what stands between blanks, without
/// the white space at its ends, unless that leaves nothing. Linear.
std::vector<std::string> ParseLabels(std::string_view Sequence);

}  // namespace TrRuleInternal
