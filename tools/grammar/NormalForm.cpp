#include "NormalForm.h"

#include "Bytes.h"
#include "LibraryScope.h"

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
  TextReturn.append(Record.Block());
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

namespace {

/// The comment with the label of the other side, where it has one of the two.
std::string Turned(const std::string& sComment) {
  std::string_view Rest;
  const bool IsSource = TakeLabel(sComment, "SL:", Rest);
  if (!IsSource && !TakeLabel(sComment, "TL:", Rest)) {
    return sComment;
  }
  std::string sTurned = sComment;
  sTurned[sTurned.find(IsSource ? "SL:" : "TL:")] = IsSource ? 'T' : 'S';
  return sTurned;
}

}  // namespace

bool Flip(RuleRecord& RecordReturn, std::string& WhyReturn) {
  TrRule& Rule = RecordReturn.Rule();
  try {
    const LibraryScope Scope;
    Rule.FlipRuleNoConstraints();
    // Turning leaves the pairs where they stood; setting them puts them in order.
    Rule.SetAlignment(Rule.GetAlignmentStr());
  } catch (const LibraryHalt& Halt) {
    WhyReturn = Halt.what();
    return false;
  }
  std::vector<std::string> vsTurned;
  for (const std::string& sComment : RecordReturn.Comments()) {
    vsTurned.push_back(Turned(sComment));
  }
  RecordReturn.SetComments(std::move(vsTurned));
  return RecordReturn.Renew(WhyReturn);
}

}  // namespace Grammar
