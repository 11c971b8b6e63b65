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

}  // namespace

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
    RecordPassIn.AppendLines(OptionsPassIn.NoComments, Lines);
    AppendFolded(Lines, TextReturn);
  } else {
    RecordPassIn.AppendLines(OptionsPassIn.NoComments, TextReturn);
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
