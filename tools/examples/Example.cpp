#include "Example.h"

#include "RuleRecord.h"

#include <algorithm>
#include <string_view>

namespace Examples {

namespace {

/// The text after a label, and on which line of the file.
struct Labelled {
  std::size_t Line;
  std::string_view Text;
};

/// Says of all comments from a position on that there is nothing for them on the other side.
void ReportAlone(const std::string& File, const std::vector<Labelled>& vComments, std::size_t From,
                 std::string_view Label, std::string_view Partner,
                 std::vector<std::string>& vsMessagesReturn) {
  for (std::size_t Index = From; Index < vComments.size(); ++Index) {
    std::string& sNew = vsMessagesReturn.emplace_back(File);
    sNew.append(1, ':').append(std::to_string(vComments[Index].Line)).append(": warning: the ");
    sNew.append(Label).append(" has no ").append(Partner).append(", and so is not an example");
  }
}

}  // namespace

CommentExamples ReadExamples(const Grammar::RuleText& Text) {
  CommentExamples Found;
  std::vector<Labelled> vSources;
  std::vector<Labelled> vTargets;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const std::string_view Comment = Text.Parts(Line).Comment;
    std::string_view Rest;
    if (Grammar::TakeLabel(Comment, "SL:", Rest)) {
      vSources.push_back({Text.FirstLine + Line, Rest});
    } else if (Grammar::TakeLabel(Comment, "TL:", Rest)) {
      vTargets.push_back({Text.FirstLine + Line, Rest});
    } else if (Grammar::TakeLabel(Comment, "*SL:", Rest) && !Rest.empty()) {
      Found.vsRefused.emplace_back(Rest);
    }
  }
  const std::size_t Pairs = std::min(vSources.size(), vTargets.size());
  for (std::size_t Index = 0; Index < Pairs; ++Index) {
    if (!vSources[Index].Text.empty()) {
      Found.vPairs.push_back(
          {std::string(vSources[Index].Text), std::string(vTargets[Index].Text)});
    }
  }
  ReportAlone(Text.File, vSources, Pairs, ";;SL:", ";;TL:", Found.vsMessages);
  ReportAlone(Text.File, vTargets, Pairs, ";;TL:", ";;SL:", Found.vsMessages);
  return Found;
}

}  // namespace Examples
