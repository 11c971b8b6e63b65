#pragma once

#include "Chart.h"
#include "RuleSet.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Examples {

/// A component of a rule's source side by name, so that it means the same in another grammar.
struct SourceComponent {
  bool IsLiteral = false;
  std::string Name;    ///< the word as tokens are compared with it, or the source type
  std::string Target;  ///< the target type that is wanted with it; empty for any

  friend bool operator<(const SourceComponent& Left, const SourceComponent& Right);
  friend bool operator==(const SourceComponent& Left, const SourceComponent& Right);
};

/// The components of a rule.
std::vector<SourceComponent> SourceComponentsOf(const Translate::RuleSet& Rules,
                                                const Translate::RuleSet::Rule& Rule);

/// What stands where in a text: its tokens, and the types of its constituents. It outlives the
/// chart and the grammar, and finds which rules of a changed grammar can reach the text: as long as
/// none that is new or gone finds all of its components side by side, the chart stays as it is.
///
/// @code
/// const ChartOutline Outline(Parsed);
/// Outline.Fits(SourceComponentsOf(Rules, Rules.At(2)));  // true
/// Outline.Fits({{true, "RED", ""}, {false, "N", "N"}});  // true
/// Outline.Fits({{true, "THE", ""}, {false, "N", "N"}});  // false
/// Outline.HasType("NP");                                 // true
/// @endcode
class ChartOutline {
 public:
  ChartOutline() = default;
  explicit ChartOutline(const Translate::Chart& Parsed);

  /// Whether components stand side by side anywhere in the text.
  bool Fits(const std::vector<SourceComponent>& vComponents) const;

  /// Whether some constituent is of a source type.
  bool HasType(const std::string& SourceType) const;

 private:
  struct Span {
    std::size_t Start;
    std::size_t End;
    std::string SourceType;
    std::string TargetType;
  };

  std::vector<std::string> vsTokens;  // as literals are compared with them
  std::vector<Span> vSpans;           // by start, each once
};

}  // namespace Examples
