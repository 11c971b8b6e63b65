#include "LineKind.h"

#include "Bytes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Grammar {

namespace {

/// What the code of a line holds, and where it ends.
struct Marks {
  bool HasBrace = false;
  bool HasArrow = false;
  bool HasColons = false;
  bool HasEquals = false;
  bool HasQuotes = false;
  std::size_t End = 0;
};

/// The bytes that a mark begins with, as a table: most bytes of a line are none.
constexpr std::array<bool, 256> MarkBytes() {
  std::array<bool, 256> Table{};
  for (const char Byte : {';', '"', '{', ']', ':', '='}) {
    Table[static_cast<unsigned char>(Byte)] = true;
  }
  return Table;
}

/// Whether a text goes on with another one at a place.
bool ContinuesWith(std::string_view Text, std::size_t At, std::string_view Part) {
  return Text.compare(At, Part.size(), Part) == 0;
}

bool HasByteAt(std::string_view Text, std::size_t At, char Byte) {
  return At < Text.size() && Text[At] == Byte;
}

/// Looks at each byte up to the comment once. Double quotes hide a ";;", as long as there is one to
/// close them.
Marks MarksOf(std::string_view Line) {
  static constexpr std::array<bool, 256> IsMark = MarkBytes();
  Marks Found;
  std::size_t QuotesEnd = 0;
  std::size_t At = 0;
  for (; At < Line.size(); ++At) {
    const char Byte = Line[At];
    if (!IsMark[static_cast<unsigned char>(Byte)]) {
      continue;
    }
    if (Byte == '=') {
      Found.HasEquals = true;
    } else if (Byte == ':') {
      Found.HasColons = Found.HasColons || HasByteAt(Line, At + 1, ':');
    } else if (Byte == ']') {
      Found.HasArrow = Found.HasArrow || ContinuesWith(Line, At, "] -> [");
    } else if (Byte == '{') {
      Found.HasBrace = true;
    } else if (Byte == '"') {
      Found.HasQuotes = true;
      // Without another one, the search gives npos, which makes the end 0.
      QuotesEnd = At < QuotesEnd ? QuotesEnd : Line.find('"', At + 1) + 1;
    } else if (At >= QuotesEnd && HasByteAt(Line, At + 1, ';')) {
      break;
    }
  }
  Found.End = At;
  return Found;
}

LineKind KindOfCode(std::string_view Code, const Marks& Found) {
  if (Code.empty()) {
    return LineKind::Blank;
  }
  if (Found.HasArrow) {
    return LineKind::Sequence;
  }
  if (Code.front() == '{') {
    return LineKind::Header;
  }
  if (Found.HasColons) {
    return LineKind::Alignment;
  }
  if (Found.HasEquals) {
    return LineKind::Constraint;
  }
  if (Found.HasBrace) {
    return LineKind::Header;
  }
  return Code == "(" ? LineKind::Open : Code == ")" ? LineKind::Close : LineKind::Other;
}

std::string_view WithoutReturns(std::string_view Text) {
  while (!Text.empty() && Text.back() == '\r') {
    Text.remove_suffix(1);
  }
  return Text;
}

}  // namespace

LineParts PartsOf(std::string_view Line) {
  LineParts Parts;
  const std::string_view Start = WithoutLeadingSpace(Line);
  if (!Start.empty() && Start.front() == ';' && !StartsWith(Start, ";--;")) {
    Parts.Kind = LineKind::Comment;
    Parts.Comment = WithoutReturns(Start);
    return Parts;
  }
  const Marks Found = MarksOf(Start);
  Parts.Code = WithoutTrailingSpace(Start.substr(0, Found.End));
  Parts.Comment = WithoutReturns(Start.substr(Found.End));
  Parts.Kind = KindOfCode(Parts.Code, Found);
  Parts.HasQuotes = Found.HasQuotes;
  return Parts;
}

bool ClosesBody(std::string_view Code) {
  const std::size_t Size = Code.size();
  if (Size < 2 || Code[Size - 1] != ')' || (Code[Size - 2] != ')' && !IsSpace(Code[Size - 2]))) {
    return false;
  }
  return std::count(Code.begin(), Code.end(), ')') > std::count(Code.begin(), Code.end(), '(');
}

}  // namespace Grammar
