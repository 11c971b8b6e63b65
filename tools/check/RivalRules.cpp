#include "RivalRules.h"

#include "RuleFindings.h"

namespace Grammar {

void RivalRules::Check(const RuleText& Text, const RuleOutline& Outline,
                       std::vector<Finding>& vFindingsReturn) {
  if (!Outline.IsUsable) {
    return;
  }
  if (vsFiles.empty() || vsFiles.back() != Text.File) {
    vsFiles.push_back(Text.File);
  }
  const auto [Found, IsNew] = Places.try_emplace(
      Outline.SourceSum,
      Place{Outline.OtherSourceSum, Outline.RestSum, static_cast<std::uint32_t>(vsFiles.size() - 1),
            static_cast<std::uint32_t>(Text.FirstLine + Outline.RuleLine)});
  const Place& First = Found->second;
  if (IsNew || First.OtherSum != Outline.OtherSourceSum || First.RestSum == Outline.RestSum) {
    return;
  }
  RuleFindings Findings(Text, vFindingsReturn);
  Finding& New =
      Findings.Add("TR054", Outline.RuleLine, Text.Parts(Outline.RuleLine).Code,
                   "only the target of this rule differs from that of another one: the source does "
                   "not decide between them");
  New.OtherFile = vsFiles[First.File];
  New.OtherLine = First.Line;
}

}  // namespace Grammar
