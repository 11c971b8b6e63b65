#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// How grave a finding is, ascending.
enum class Severity {
  Note,     ///< concerns only programs that use the library's own reader or writer
  Warning,  ///< the rule can be used, but probably says something else than it was meant to
  Error,    ///< keeps the rule from being used
};

/// "note", "warning" or "error".
std::string_view NameOf(Severity Which);

/// What is known of each code: it keeps its number and its meaning for ever.
struct CodeInfo {
  std::string_view Code;         ///< "TR001"
  Severity Level;                ///< the gravest that its findings have
  std::string_view Title;        ///< a few words
  std::string_view Explanation;  ///< what it means and why it matters: one paragraph on one line
  std::string_view Wrong;        ///< lines with such a finding, the last one without its end
  std::string_view Right;        ///< the same without any
  bool IsBody = true;  ///< whether the examples are lines of a rule's body; see `WholeExample`
};

/// All codes, ascending.
const std::vector<CodeInfo>& AllCodes();

/// What is known of a code; null if there is no such code.
///
/// @code
/// FindCode("TR001")->Title;  // "the rule has no rule line"
/// @endcode
const CodeInfo* FindCode(std::string_view Code);

/// Whether findings with a code keep their rule from being applied to texts. The other errors only
/// keep the library from writing it.
bool KeepsFromUse(std::string_view Code);

/// The code of a text that a person has written: in any case, with white space around it. Throws
/// `RunError` where there is none.
/// @param WhereToLook names the command that lists the codes
const CodeInfo& KnownCode(const std::string& Written, const std::string& WhereToLook);

/// The rule line around the examples that are lines of a body.
extern const std::string_view ExampleRuleLine;

/// An example as the text of a grammar: lines of a body get a rule around them, and a line "..." is
/// replaced by that many copies of the line before it that the rule is too long for the library.
std::string WholeExample(const CodeInfo& Info, std::string_view Example);

/// What `trrule explain` prints of a code: title, meaning, and both examples.
std::string Explanation(const CodeInfo& Info);

}  // namespace Grammar
