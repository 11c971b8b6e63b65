#include "QuickCheck.h"

#include <algorithm>

namespace Translate {

namespace {

/// The atoms that a part has at a path before anything is unified.
std::optional<AtomSetId> AtomsOfPart(const StructureStore& Store, const Program& Which,
                                     const ProgramPath& Path,
                                     const std::vector<ProgramNode>& vParts,
                                     const std::vector<StructureId>& vStructures) {
  for (std::size_t Part = 0; Part < vParts.size(); ++Part) {
    if (vParts[Part].Node == Path.Node) {
      return Store.AtomsAt(vStructures[Part], Which.vFeatures.data() + Path.FirstFeature,
                           Path.FeatureCount);
    }
  }
  return std::nullopt;
}

}  // namespace

bool QuickCheck::AreDisjoint(std::optional<AtomSetId> Left, std::optional<AtomSetId> Right) {
  return Left && Right && *Left != *Right && !Atoms.Intersect(*Left, *Right);
}

bool QuickCheck::FailsAt(const Failure& Step, const Program& Which,
                         const std::vector<StructureId>& vSources,
                         const std::vector<StructureId>& vTargets) {
  const bool IsSource = Step.Kind == StepKind::AnalysisValue || Step.Kind == StepKind::AnalysisLink;
  const auto AtomsAt = [&](const ProgramPath& Path) {
    return IsSource ? AtomsOfPart(Store, Which, Path, Which.vSourceParts, vSources)
                    : AtomsOfPart(Store, Which, Path, Which.vTargetParts, vTargets);
  };
  if (Step.Kind == StepKind::AnalysisValue || Step.Kind == StepKind::GenerationValue) {
    const ValueStep& Value =
        (IsSource ? Which.vAnalysisValues : Which.vGenerationValues)[Step.Index];
    return AreDisjoint(AtomsAt(Value.Path), Value.Atoms);
  }
  const LinkStep& Link = (IsSource ? Which.vAnalysisLinks : Which.vGenerationLinks)[Step.Index];
  return AreDisjoint(AtomsAt(Link.Left), AtomsAt(Link.Right));
}

bool QuickCheck::Fails(std::uint32_t Program, const std::vector<StructureId>& vSources,
                       const std::vector<StructureId>& vTargets) {
  if (Program >= vOfProgram.size() || vOfProgram[Program].empty()) {
    return false;
  }
  Failure& First = vOfProgram[Program].front();
  if (!FailsAt(First, Rules.ProgramAt(Program), vSources, vTargets)) {
    return false;
  }
  ++First.Times;
  return true;
}

void QuickCheck::Learn(std::uint32_t Program, const std::vector<StructureId>& vSources,
                       const std::vector<StructureId>& vTargets) {
  if (Program >= vOfProgram.size()) {
    vOfProgram.resize(Program + 1);
  }
  std::vector<Failure>& vFailures = vOfProgram[Program];
  const Translate::Program& Which = Rules.ProgramAt(Program);
  const auto Look = [&](StepKind Kind, std::size_t Count) {
    for (std::uint32_t Index = 0; Index < Count; ++Index) {
      const Failure New{Kind, Index, 1};
      if (!FailsAt(New, Which, vSources, vTargets)) {
        continue;
      }
      const auto Found = std::find_if(vFailures.begin(), vFailures.end(), [&](const Failure& Old) {
        return Old.Kind == Kind && Old.Index == Index;
      });
      if (Found == vFailures.end()) {
        vFailures.push_back(New);
      } else {
        ++Found->Times;
      }
    }
  };
  Look(StepKind::AnalysisValue, Which.vAnalysisValues.size());
  Look(StepKind::AnalysisLink, Which.vAnalysisLinks.size());
  Look(StepKind::GenerationValue, Which.vGenerationValues.size());
  Look(StepKind::GenerationLink, Which.vGenerationLinks.size());
  const auto First = std::max_element(
      vFailures.begin(), vFailures.end(),
      [](const Failure& Left, const Failure& Right) { return Left.Times < Right.Times; });
  if (First != vFailures.end()) {
    std::iter_swap(vFailures.begin(), First);
  }
}

}  // namespace Translate
