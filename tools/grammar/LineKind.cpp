#include "LineKind.h"

#include "Bytes.h"

#include <LineScan.h>

#include <algorithm>
#include <cstddef>

namespace Grammar {

namespace {

LineKind KindOfCode(std::string_view Code, const TrRuleInternal::LineMarks& Found) {
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
  const TrRuleInternal::ScannedLine Scan = TrRuleInternal::ScanLine(Start);
  Parts.Code = WithoutTrailingSpace(Start.substr(0, Scan.CommentBegin));
  Parts.Comment = WithoutReturns(Start.substr(Scan.CommentBegin));
  Parts.Kind = KindOfCode(Parts.Code, Scan.Code);
  Parts.HasQuotes = Scan.HasQuotes;
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
