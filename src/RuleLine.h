#pragma once

#include "Splitter.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// Parsing the rule line: "NP::NP : [DET ADJ N] -> [DET N ADJ]".

namespace TrRuleInternal {

/// The parts of a rule line, as views of the line.
struct RuleLineParts {
  std::string_view SLType;
  std::string_view TLType;
  std::string_view SLLabels;  ///< the text between the brackets
  std::string_view TLLabels;
};

/// Parses a rule line in its common form: types and labels without brackets, braces, colons,
/// semicolons, equals signs and angle brackets, and no white space but blanks. Linear.
///
/// @code
///   RuleLineParts Parts;
///   ParseCommonRuleLine("NP::NP : [DET N] -> [N DET]", Parts);  // true
///   Parts.TLLabels;                                             // "N DET"
/// @endcode
///
/// @return whether the line is in the common form; if not, the parts are unspecified
bool ParseCommonRuleLine(std::string_view Line, RuleLineParts& PartsReturn);

/// What is wrong with a rule line, or `None`.
enum class RuleLineFault { None, Types, SourceSide, TargetSide };

/// Parses a rule line as far as possible, into the same parts as the library's reader. Linear.
/// @param Code a line that contains "] -> [", without its comment
RuleLineFault ParseRuleLine(std::string_view Code, RuleLineParts& PartsReturn);

/// The types at the front of a source part, by the lenient rules of the library's reader. Linear.
///
/// @code
///   ReadTypes("NP::VP : [DET N]")->First;   // "NP"
///   ReadTypes("NP::VP : [DET N]")->Second;  // "VP"
/// @endcode
///
/// @return nothing where the first word is not two types with "::" between them
std::optional<FieldPair> ReadTypes(std::string_view Part);

/// What stands between the first "[" and the last "]" of a part, by the same rules: "[]" gives "]",
/// which is a label. Linear.
/// @return an empty text where there is no sequence
std::string_view ReadSequence(std::string_view Part);

/// The labels of a sequence in its common form, in capitals. Linear.
/// @code
///   UpperLabels("det n");  // {"DET", "N"}
/// @endcode
std::vector<std::string> UpperLabels(std::string_view Sequence);

/// The labels of any sequence, without its brackets: the fields between blanks, trimmed, without
/// the empty ones. Linear.
std::vector<std::string> ParseLabels(std::string_view Sequence);

}  // namespace TrRuleInternal
