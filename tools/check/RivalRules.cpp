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
  std::uint32_t& Slot = Index.Find(Outline.Source.Hash(), [&](std::uint32_t Number) {
    return vPlaces[Number].Source == Outline.Source;
  });
  if (Slot == NoEntry) {
    Slot = static_cast<std::uint32_t>(vPlaces.size());
    vPlaces.push_back({Outline.Source, Outline.Rest, static_cast<std::uint32_t>(vsFiles.size() - 1),
                       static_cast<std::uint32_t>(Text.FirstLine + Outline.RuleLine)});
    Index.NoteAdded([&](std::uint32_t Number) { return vPlaces[Number].Source.Hash(); });
    return;
  }
  const Place& First = vPlaces[Slot];
  if (First.Rest == Outline.Rest) {
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
