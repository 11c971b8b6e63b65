#pragma once

#include "Finding.h"
#include "SourceRule.h"
#include "UsableRule.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

/// A rule as its author knows it: where it stands, and how it is written. What is needed to talk of
/// it, and outlives the text that it was read from.
struct RuleDescription {
  /// An equation of one line, or of several that are alternatives of each other.
  struct Equation {
    std::string Text;                 ///< as the first line has it
    std::vector<std::size_t> vLines;  ///< in the file, ascending
  };

  std::string File;
  std::size_t Line = 0;                       ///< that the rule is named by
  std::string Header;                         ///< "NP,8"; empty if none can be read
  std::string Sequence;                       ///< the rule line; empty if there is none
  std::optional<std::uint32_t> Index;         ///< in the rule set; nothing if it is left out
  std::vector<Grammar::Finding> vFindings;    ///< why it is left out
  std::map<std::size_t, Equation> Equations;  ///< by first line

  /// "g.trr:5".
  std::string Place() const { return File + ':' + std::to_string(Line); }
  /// The header, or the place where there is none.
  std::string Name() const { return Header.empty() ? Place() : Header; }
};

/// Describes a rule.
///
/// @code
/// const RuleDescription Phrase = DescribeRule(Lines, nullptr);
/// Phrase.Name();   // "NP,8"
/// Phrase.Place();  // "a.trr:2"
/// @endcode
///
/// @param Rule what the lines mean; null for a rule that is left out
RuleDescription DescribeRule(const Grammar::SourceRule& Lines, const Grammar::UsableRule* Rule);

/// The header of a rule, "NP,8"; empty if there is none that can be read.
std::string HeaderTextOf(const Grammar::SourceRule& Lines);

/// Whether a rule is meant by "NP,8", its header, capitals and leading zeros aside, or by
/// "g.trr:5", its file as it was named and one of its lines.
///
/// @code
/// IsRuleMeant("np,08", Lines);    // true
/// IsRuleMeant("a.trr:3", Lines);  // true
/// IsRuleMeant("a.trr:6", Lines);  // false
/// @endcode
bool IsRuleMeant(std::string_view Name, const Grammar::SourceRule& Lines);

/// Whether a name can be a header: a type, a comma and digits.
bool IsHeaderName(std::string_view Name);

/// The file of "g.trr:5"; nothing if the name does not end in a colon and digits.
std::optional<std::string_view> FileOfPlace(std::string_view Name);

}  // namespace Translate
