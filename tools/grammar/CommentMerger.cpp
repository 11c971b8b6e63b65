#include "CommentMerger.h"

#include "RuleRecord.h"

#include <array>
#include <bitset>
#include <string_view>

namespace Grammar {

namespace {

constexpr std::array<std::string_view, 3> ExampleLabels{"SL:", "TL:", "C-Structure:"};
bool HasLabel(std::string_view Comment, std::string_view Label) {
  std::string_view Rest;
  return TakeLabel(Comment, Label, Rest);
}

/// The label of a line of an example; their number if it has none.
std::size_t LabelOf(std::string_view Comment) {
  std::size_t Label = 0;
  while (Label < ExampleLabels.size() && !HasLabel(Comment, ExampleLabels[Label])) {
    ++Label;
  }
  return Label;
}

}  // namespace

ExampleLines::ExampleLines(const std::vector<std::string>& vsComments) {
  std::bitset<ExampleLabels.size()> Had;
  for (const std::string& sComment : vsComments) {
    const std::size_t Label = LabelOf(sComment);
    if (Label == ExampleLabels.size()) {
      vExampleOf.push_back(NoExample);
      continue;
    }
    if (vsTexts.empty() || Had[Label]) {
      vsTexts.emplace_back();
      Had.reset();
    }
    Had.set(Label);
    vsTexts.back() += sComment + '\n';
    vExampleOf.push_back(vsTexts.size() - 1);
  }
}

/// The first rule keeps what it says twice; only a limit takes something of it.
bool CommentMerger::IsKept(const std::string& Text, bool IsExample) {
  const bool IsNew = ssSeen.insert(Text).second || IsFirst;
  if (!IsExample || !IsNew) {
    return IsNew;
  }
  ++Examples;
  return Examples <= MaxExamples;
}

void CommentMerger::Add(const std::vector<std::string>& vsComments) {
  const ExampleLines Own(vsComments);
  std::vector<bool> vIsKept;
  for (const std::string& sText : Own.vsTexts) {
    vIsKept.push_back(IsKept(sText, true));
  }
  for (std::size_t Line = 0; Line < vsComments.size(); ++Line) {
    const std::size_t Example = Own.vExampleOf[Line];
    const bool IsCount = HasLabel(vsComments[Line], "Score:");
    const bool Kept = Example != ExampleLines::NoExample ? vIsKept[Example]
                      : IsCount                          ? IsFirst
                                                         : IsKept(vsComments[Line], false);
    if (Kept) {
      vsMerged.push_back(vsComments[Line]);
    }
  }
  IsFirst = false;
}

}  // namespace Grammar
