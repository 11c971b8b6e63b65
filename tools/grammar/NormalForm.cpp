#include "NormalForm.h"

#include <utility>
#include <vector>

namespace Grammar {

namespace {

/// Appends what fits on a line without a line end.
void AppendFolded(std::string_view Line, std::string& TextReturn) {
  for (const char Byte : Line) {
    if (Byte == '\t') {
      TextReturn += "\\t";
    } else if (Byte == '\\') {
      TextReturn += "\\\\";
    } else {
      TextReturn += Byte == '\n' ? '\t' : Byte;
    }
  }
}

void AppendHeader(const RuleHeader& Header, std::string& TextReturn) {
  if (!Header.IsReadable) {
    TextReturn.append(Header.Type).append(1, '\n');
  } else if (Header.IsPresent) {
    TextReturn.append("{").append(Header.Type).append(",").append(Header.Number).append("}\n");
  }
}

void AppendLines(const RuleRecord& Record, bool NoComments, std::string& TextReturn) {
  if (!NoComments) {
    for (const std::string& sComment : Record.Comments()) {
      TextReturn.append(sComment).append(1, '\n');
    }
  }
  AppendHeader(Record.Header(), TextReturn);
  Record.Form().AppendBlock(TextReturn);
}

}  // namespace

std::string HeaderLine(const RuleHeader& Header) {
  std::string Line;
  AppendHeader(Header, Line);
  return Line;
}

std::string Folded(std::string_view LinesPassIn) {
  if (!LinesPassIn.empty() && LinesPassIn.back() == '\n') {
    LinesPassIn.remove_suffix(1);
  }
  std::string Line;
  AppendFolded(LinesPassIn, Line);
  return Line;
}

void AppendNormalForm(const RuleRecord& RecordPassIn, const FormOptions& OptionsPassIn,
                      std::string& TextReturn) {
  if (OptionsPassIn.OneLine) {
    std::string Lines;
    AppendLines(RecordPassIn, OptionsPassIn.NoComments, Lines);
    AppendFolded(Lines, TextReturn);
  } else {
    AppendLines(RecordPassIn, OptionsPassIn.NoComments, TextReturn);
  }
  TextReturn += '\n';
}

void AppendUnfolded(std::string_view FoldedPassIn, std::string& TextReturn) {
  for (std::size_t Position = 0; Position < FoldedPassIn.size(); ++Position) {
    const char Byte = FoldedPassIn[Position];
    const char Next = Position + 1 < FoldedPassIn.size() ? FoldedPassIn[Position + 1] : '\0';
    if (Byte == '\\' && (Next == '\\' || Next == 't')) {
      TextReturn += Next == 't' ? '\t' : '\\';
      ++Position;
    } else {
      TextReturn += Byte == '\t' ? '\n' : Byte;
    }
  }
}

}  // namespace Grammar
