#include "LineTexts.h"

#include "Bytes.h"

#include <algorithm>

namespace Grammar {

namespace {

/// What stands between the first "[" and the last "]"; nothing where that is no label. The reader
/// would take "[]" for the label "]".
std::string_view LabelsIn(std::string_view Part) {
  const std::size_t Open = Part.find('[');
  const std::size_t Close = Part.rfind(']');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close <= Open) {
    return {};
  }
  return Trimmed(Part.substr(Open + 1, Close - Open - 1));
}

/// Types = SLType "::" TLType, without "[", which would be taken for that of the sequence when the
/// line has been written
bool ParseTypes(std::string_view Word, SequenceText& TextReturn) {
  const std::size_t Sign = Word.find("::");
  if (Sign == std::string_view::npos) {
    return false;
  }
  TextReturn.SLType = Word.substr(0, Sign);
  TextReturn.TLType = Word.substr(Sign + 2);
  return !TextReturn.SLType.empty() && !TextReturn.TLType.empty() &&
         !Contains(TextReturn.TLType, "::") && !Contains(Word, "[");
}

}  // namespace

// SequenceLine = Types blank any "[" Labels "] -> [" Labels "]" any
SequenceFault ParseSequenceLine(std::string_view Code, SequenceText& TextReturn) {
  constexpr std::string_view Arrow = " -> ";
  const std::size_t Cut = Code.find(Arrow);
  const std::string_view Left = Code.substr(0, Cut);
  const std::string_view Right = Code.substr(Cut + Arrow.size());
  if (!ParseTypes(Left.substr(0, Left.find(' ')), TextReturn)) {
    return SequenceFault::Types;
  }
  TextReturn.SLLabels = LabelsIn(Left);
  if (TextReturn.SLLabels.empty()) {
    return SequenceFault::SourceSide;
  }
  TextReturn.TLLabels = LabelsIn(Right);
  // Another arrow makes a third part, and a "::" turns a part into a source side.
  if (TextReturn.TLLabels.empty() || Contains(Right, Arrow) || Contains(Right, "::")) {
    return SequenceFault::TargetSide;
  }
  return SequenceFault::None;
}

namespace {

/// Node = Side Digit { Digit }
bool ParseNode(std::string_view Text, char Side, int& IndexReturn) {
  constexpr std::size_t MaxSize = 10;
  if (Text.size() < 2 || Text.size() > MaxSize || ToUpper(Text.front()) != Side ||
      !std::all_of(Text.begin() + 1, Text.end(), IsDigit)) {
    return false;
  }
  IndexReturn = 0;
  for (const char Digit : Text.substr(1)) {
    IndexReturn = IndexReturn * 10 + (Digit - '0');
  }
  return true;
}

}  // namespace

// AlignmentLine = any "(" XNode space "::" space YNode ")" any
std::optional<AlignmentLine> ParseAlignmentLine(std::string_view Code) {
  const std::size_t Open = Code.find('(');
  const std::size_t Close = Code.rfind(')');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close < Open) {
    return std::nullopt;
  }
  const std::string_view Inner = Code.substr(Open + 1, Close - Open - 1);
  const std::size_t Sign = Inner.find("::");
  if (Sign == std::string_view::npos) {
    return std::nullopt;
  }
  AlignmentLine Line;
  Line.XText = WithoutTrailingSpace(Inner.substr(0, Sign));
  Line.YText = Trimmed(Inner.substr(Sign + 2));
  if (!ParseNode(Line.XText, 'X', Line.X) || !ParseNode(Line.YText, 'Y', Line.Y)) {
    return std::nullopt;
  }
  return Line;
}

}  // namespace Grammar
