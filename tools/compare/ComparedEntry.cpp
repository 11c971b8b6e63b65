#include "ComparedEntry.h"

#include "Bytes.h"
#include "HeaderText.h"

namespace Grammar {

ComparedEntry EntryOf(const RuleRecord& RecordPassIn, std::string& TextReturn) {
  ComparedEntry Entry;
  Entry.IsRule = true;
  TextReturn.clear();
  RecordPassIn.AppendComments(TextReturn);
  Entry.HeaderBegin = TextReturn.size();
  AppendHeader(RecordPassIn.Header(), TextReturn);
  Entry.BlockBegin = TextReturn.size();
  RecordPassIn.Form().AppendBlock(TextReturn);
  TextReturn += '\n';
  Entry.Text = TextReturn;
  return Entry;
}

ComparedEntry EntryOf(std::string_view TextPassIn, std::string& TextReturn) {
  TextReturn.clear();
  std::size_t End = 0;  // after the last line that is not blank
  while (!TextPassIn.empty()) {
    const std::size_t Size = std::min(TextPassIn.find('\n'), TextPassIn.size());
    std::string_view Line = TextPassIn.substr(0, Size);
    TextPassIn.remove_prefix(std::min(Size + 1, TextPassIn.size()));
    while (!Line.empty() && Line.back() == '\r') {
      Line.remove_suffix(1);
    }
    const bool IsBlank = Trimmed(Line).empty();
    if (!IsBlank || End > 0) {
      TextReturn.append(Line).append(1, '\n');
      End = IsBlank ? End : TextReturn.size();
    }
  }
  TextReturn.resize(End);
  ComparedEntry Entry;
  Entry.Text = TextReturn;
  return Entry;
}

}  // namespace Grammar
