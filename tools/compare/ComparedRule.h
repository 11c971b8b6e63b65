#pragma once

#include "RuleRecord.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// A rule in the normal form, taken apart into what can differ by itself.
///
/// @code
/// const auto Rule = ComparedRule::Of("{NP,8}\nNP::NP : [DET N] -> [N]\n(X2::Y1)\n(x0 = x2)\n");
/// Rule->Header;                        // "{NP,8}"
/// Rule->Labels[ComparedRule::Source];  // {"DET", "N"}
/// Rule->vsAlignments;                  // {"(X2::Y1)"}
/// Rule->vsConstraints;                 // {"(X0 = X2)"}
/// Rule->Text();  // "{NP,8}\nNP::NP [DET N] -> [N]\n(\n(X2::Y1)\n(X0 = X2)\n)\n"
/// @endcode
struct ComparedRule {
  static constexpr std::size_t Source = 0;
  static constexpr std::size_t Target = 1;

  std::vector<std::string> vsComments;  ///< in their order, the count among them
  std::string Header;                   ///< "" where there is none
  std::array<std::string, 2> Types;     ///< by side
  std::array<std::vector<std::string>, 2> Labels;
  std::vector<std::string> vsAlignments;   ///< "(X1::Y1)", in order
  std::vector<std::string> vsConstraints;  ///< "(X0 = X2)", in print order

  /// The parts of a rule that has been read.
  static ComparedRule Of(const RuleRecord& RecordPassIn);

  /// The parts of a rule text. @return nothing if the text is not one rule that can be read
  static std::optional<ComparedRule> Of(std::string_view TextPassIn);

  /// The rule in the normal form, with a line end after the last line.
  /// @return nothing if it would not be a rule: without alignments, or with constraints that cannot
  ///         be ordered
  std::optional<std::string> Text() const;
};

}  // namespace Grammar
