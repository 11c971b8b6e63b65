#pragma once

#include "Finding.h"
#include "RuleText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// "\"text\""
std::string Quoted(std::string_view Text);

/// "there is no x4: the source side has 3 components"
/// @param Name the component as it is named
/// @param Side 'X' or 'Y'
/// @param Count how many components that side has
std::string MissingComponent(std::string_view Name, char Side, std::size_t Count);

/// How the findings of a constraint begin that goes wrong somewhere.
constexpr std::string_view NotInFormat = "the constraint is not in the format from here on";

/// A text with a part of it replaced.
std::string Replaced(std::string_view Text, std::string_view Part, std::string_view By);

/// What to write in the place of a part of a line; nothing, where that is empty.
struct Correction {
  std::string_view Part;
  std::string By;
};

/// The codes of notes that were found and not written out, in no order.
using HiddenNotes = std::vector<const CodeInfo*>;

/// Collects what is found in one rule.
///
/// @code
/// RuleFindings Findings(Text, vFindings);
/// Findings.Add("TR036", 3, Text.Line(3), "this alignment is repeated");
/// vFindings.back().LineText;  // "(X3::Y2)"
/// @endcode
///
/// Most findings in a grammar are notes, and hardly anybody wants to see them: a note is added only
/// where `TakesNote` says so.
///
/// Lines count from 0 within the rule; a part is a view into its line, or empty.
class RuleFindings {
 public:
  /// @param TextPassIn, vFindingsPassIn have to outlive the collection
  /// @param HiddenPassIn receives the codes of notes; null if notes are wanted
  RuleFindings(const RuleText& TextPassIn, std::vector<Finding>& vFindingsPassIn,
               HiddenNotes* HiddenPassIn = nullptr);

  /// Whether a note that was found has to be added; otherwise it is counted.
  bool TakesNote(std::string_view Code);

  Finding& Add(std::string_view Code, std::size_t Line, std::string_view Part, std::string Message,
               const Correction& Corrected = {});

  /// For a line that cannot be read: where it holds a look-alike, that is the reason.
  /// @param Corrected to be written instead of the line without its comment; empty if nothing is
  Finding& AddFault(std::string_view Code, std::size_t Line, std::string_view Part,
                    const std::string& Message, std::string Corrected = {});

  /// Whether some byte of the rule is not one of ASCII.
  bool HasBytesBeyond() const { return HasOthers; }

  /// Whether a look-alike on the line has been reported, or whatever else explains it.
  bool IsExplained(std::size_t Line) const { return ExplainedLine == Line; }
  void SetExplained(std::size_t Line) { ExplainedLine = Line; }

 private:
  const RuleText& Text;
  std::vector<Finding>& vFindings;
  HiddenNotes* Hidden;
  bool HasOthers;
  std::optional<std::size_t> ExplainedLine;
};

}  // namespace Grammar
