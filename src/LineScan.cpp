#include "LineScan.h"

#include "Ascii.h"

#include <array>

namespace TrRuleInternal {

namespace {

/// A table of the bytes that begin a mark. Most bytes of a line do not.
constexpr std::array<bool, 256> MarkBytes() {
  std::array<bool, 256> Table{};
  for (const char Byte : {';', '"', '{', ']', ':', '='}) {
    Table[static_cast<unsigned char>(Byte)] = true;
  }
  return Table;
}

/// Records the mark at the front of a text, if there is one.
void RecordMark(std::string_view Rest, LineMarks& MarksReturn) {
  switch (Rest.front()) {
    case '{':
      MarksReturn.HasBrace = true;
      break;
    case '=':
      MarksReturn.HasEquals = true;
      break;
    case ':':
      MarksReturn.HasColons = MarksReturn.HasColons || StartsWith(Rest, "::");
      break;
    case ']':
      MarksReturn.HasArrow = MarksReturn.HasArrow || StartsWith(Rest, "] -> [");
      break;
    default:
      MarksReturn.HasComment = MarksReturn.HasComment || StartsWith(Rest, ";;");
      break;
  }
}

/// The position of the next byte that may begin a mark; the size of the line if there is none.
std::size_t FindMark(std::string_view Line, std::size_t From) {
  static constexpr std::array<bool, 256> IsMark = MarkBytes();
  while (From < Line.size() && !IsMark[static_cast<unsigned char>(Line[From])]) {
    ++From;
  }
  return From;
}

/// The end of the quoted text that begins here; 0 if the quote is never closed.
std::size_t EndOfQuotes(std::string_view Line, std::size_t Open) {
  // Without a closing quote, the search returns npos, which makes the end 0.
  return Line.find('"', Open + 1) + 1;
}

}  // namespace

ScannedLine ScanLine(std::string_view Line) {
  ScannedLine Scan;
  Scan.CommentBegin = Line.size();
  std::size_t QuotesEnd = 0;
  bool InCode = true;
  for (std::size_t At = FindMark(Line, 0); At < Line.size(); At = FindMark(Line, At + 1)) {
    const std::string_view Rest = Line.substr(At);
    if (InCode && Rest.front() == '"') {
      Scan.HasQuotes = true;
      QuotesEnd = At < QuotesEnd ? QuotesEnd : EndOfQuotes(Line, At);
    } else if (InCode && At >= QuotesEnd && StartsWith(Rest, ";;")) {
      InCode = false;
      Scan.CommentBegin = At;
      Scan.Code = Scan.Whole;
    }
    RecordMark(Rest, Scan.Whole);
  }
  if (InCode) {
    Scan.Code = Scan.Whole;
  }
  return Scan;
}

}  // namespace TrRuleInternal
