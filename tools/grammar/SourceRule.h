#pragma once

#include "RuleText.h"

#include <AlignmentLine.h>
#include <ConstraintFormat.h>
#include <HeaderLine.h>
#include <RuleLine.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace Grammar {

/// The text of a rule, its lines parsed once. What checks, prints, sorts or converts a rule
/// reads these parts; nobody reads a line a second time.
///
/// @code
/// SourceRule Rule;
/// Rule.Read(Text);
/// Rule.IsWhole();                                // true
/// Rule.SLLabels().front();                       // "\"the\""
/// Rule.Constraints().front().Parts.Left.Index;  // 0
/// @endcode
///
/// All views point into the text that was read, which has to outlive them. Lines count from 0
/// within the text.
class SourceRule {
 public:
  struct HeaderLine {
    std::size_t Line = 0;
    std::optional<TrRuleInternal::HeaderParts> Parts;  ///< nothing if it cannot be read
  };

  struct RuleLine {
    std::size_t Line = 0;
    TrRuleInternal::RuleLineFault Fault{};
    TrRuleInternal::RuleLineParts Parts;  ///< as far as it can be read
  };

  struct AlignmentLine {
    std::size_t Line = 0;
    TrRuleInternal::AlignmentParts Parts;
  };

  struct ConstraintLine {
    std::size_t Line = 0;
    TrRuleInternal::ConstraintParts Parts;
    bool IsCommon = false;  ///< whether it is in the common form
  };

  /// A line of the body that is not in the format.
  struct BrokenLine {
    std::size_t Line = 0;
    LineKind Kind{};                      ///< `Alignment` or `Constraint`
    TrRuleInternal::ConstraintStop Stop;  ///< of a constraint
  };

  /// Parses the lines of a rule; what was read before is gone. Linear.
  void Read(const RuleText& TextPassIn);

  const RuleText& Text() const { return *Source; }

  // Each in the order of the lines.
  const std::vector<HeaderLine>& Headers() const { return vHeaders; }
  const std::vector<RuleLine>& RuleLines() const { return vRuleLines; }
  const std::vector<AlignmentLine>& Alignments() const { return vAlignments; }
  const std::vector<ConstraintLine>& Constraints() const { return vConstraints; }
  const std::vector<BrokenLine>& BrokenLines() const { return vBroken; }

  /// The labels of the first rule line, without white space at their ends; none if that line is
  /// not whole.
  const std::vector<std::string_view>& SLLabels() const { return vSLLabels; }
  const std::vector<std::string_view>& TLLabels() const { return vTLLabels; }

  /// The same for the side 'X' or 'Y'.
  const std::vector<std::string_view>& LabelsOf(char Side) const {
    return Side == 'X' ? vSLLabels : vTLLabels;
  }

  /// A line without its comment.
  std::string_view CodeOf(std::size_t Line) const { return Source->Parts(Line).Code; }

  /// What the library reads from a constraint line: a reference after a doubled equals sign is
  /// none for its reader, and stays one here.
  TrRuleInternal::ConstraintFields FieldsOf(const ConstraintLine& Constraint) const;

  /// Whether there is an alignment line, in the format or not.
  bool HasAlignmentLine() const;

  /// Whether all that makes a rule is there and in the format: one rule line, an alignment, and no
  /// broken line.
  bool IsWhole() const;

 private:
  void ReadRuleLine(std::size_t Line, std::string_view Code);
  void ReadAlignment(std::size_t Line, std::string_view Code);
  void ReadConstraint(std::size_t Line, std::string_view Code);

  const RuleText* Source = nullptr;
  std::vector<HeaderLine> vHeaders;
  std::vector<RuleLine> vRuleLines;
  std::vector<std::string_view> vSLLabels;
  std::vector<std::string_view> vTLLabels;
  std::vector<AlignmentLine> vAlignments;
  std::vector<ConstraintLine> vConstraints;
  std::vector<BrokenLine> vBroken;
};

}  // namespace Grammar
