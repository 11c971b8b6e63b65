#pragma once

#include <optional>
#include <string_view>

namespace Grammar {

/// A sequence line, taken apart: "NP::NP : [DET N] -> [N DET]".
struct SequenceText {
  std::string_view SLType;
  std::string_view TLType;
  std::string_view SLLabels;  ///< what stands between the brackets
  std::string_view TLLabels;
};

/// What is wrong with a sequence line; the codes of the findings say the same.
enum class SequenceFault { None, Types, SourceSide, TargetSide };

/// Takes a sequence line apart as far as it can be read. The library must understand the same.
SequenceFault ParseSequenceLine(std::string_view Code, SequenceText& TextReturn);

/// An alignment line, taken apart: "(X1::Y2)".
struct AlignmentLine {
  int X = 0;
  int Y = 0;
  std::string_view XText;  ///< "X1", also in small letters
  std::string_view YText;
};

/// Nothing where the line is no alignment of two numbered components.
std::optional<AlignmentLine> ParseAlignmentLine(std::string_view Code);

}  // namespace Grammar
