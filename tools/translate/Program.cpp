#include "Program.h"

#include "Literal.h"

#include <algorithm>
#include <utility>

namespace Translate {

using Grammar::HashOf;
using Grammar::Mixed;
using Grammar::NoEntry;
using Grammar::Pair;

ProgramPath ProgramCompiler::AddPath(const NodePath& Path, Program& ProgramReturn) {
  ProgramPath New;
  New.Node = Path.Index;
  New.FirstFeature = static_cast<std::uint32_t>(ProgramReturn.vFeatures.size());
  New.FeatureCount = static_cast<std::uint32_t>(Path.vFeatures.size());
  for (const std::string_view Text : Path.vFeatures) {
    ProgramReturn.vFeatures.push_back(Features.InternUpper(Text));
  }
  std::uint32_t& Max = Path.OnSide == Side::X ? ProgramReturn.MaxX : ProgramReturn.MaxY;
  Max = std::max(Max, Path.Index);
  return New;
}

void ProgramCompiler::AddLink(const Equation& Current, Program& ProgramReturn) {
  const bool IsTurned = Current.Left.OnSide == Side::Y && Current.Right.OnSide == Side::X;
  LinkStep New;
  New.Left = AddPath(IsTurned ? Current.Right : Current.Left, ProgramReturn);
  New.Right = AddPath(IsTurned ? Current.Left : Current.Right, ProgramReturn);
  const auto Line = static_cast<std::uint32_t>(Current.Line);
  if (Current.Left.OnSide != Current.Right.OnSide) {
    ProgramReturn.vTransfers.push_back(New);
    LinesOf(StepKind::Transfer).push_back(Line);
  } else if (Current.Left.OnSide == Side::X) {
    ProgramReturn.vAnalysisLinks.push_back(New);
    LinesOf(StepKind::AnalysisLink).push_back(Line);
  } else {
    ProgramReturn.vGenerationLinks.push_back(New);
    LinesOf(StepKind::GenerationLink).push_back(Line);
  }
}

std::vector<std::uint32_t> ProgramCompiler::AtomsOf(const Equation& Current) {
  std::vector<std::uint32_t> vAtoms;
  for (const std::string_view Atom : Current.vAtoms) {
    vAtoms.push_back(AtomNames.InternUpper(Atom));
  }
  return vAtoms;
}

void ProgramCompiler::AddSet(Side OnSide, const ValueStep& Step, std::uint32_t Line,
                             Program& ProgramReturn) {
  if (OnSide == Side::X) {
    ProgramReturn.vAnalysisValues.push_back(Step);
    LinesOf(StepKind::AnalysisValue).push_back(Line);
  } else {
    ProgramReturn.vGenerationValues.push_back(Step);
    LinesOf(StepKind::GenerationValue).push_back(Line);
  }
}

namespace {

/// A hash of a side and a path.
std::uint64_t HashOfPath(Side OnSide, const ProgramPath& Path, const Program& In) {
  return HashOf(In.vFeatures.data() + Path.FirstFeature, Path.FeatureCount) ^
         Mixed(Pair(OnSide == Side::X ? 0 : 1, Path.Node));
}

bool IsSamePath(const ProgramPath& Left, const ProgramPath& Right, const Program& In) {
  const auto First = In.vFeatures.begin() + Left.FirstFeature;
  const auto Other = In.vFeatures.begin() + Right.FirstFeature;
  return Left.Node == Right.Node &&
         std::equal(First, First + Left.FeatureCount, Other, Other + Right.FeatureCount);
}

}  // namespace

/// Values of one written path are alternatives; a negation holds for itself.
void ProgramCompiler::AddValue(const Equation& Current, Program& ProgramReturn) {
  const auto Line = static_cast<std::uint32_t>(Current.Line);
  const ProgramPath Path = AddPath(Current.Left, ProgramReturn);
  std::vector<std::uint32_t> vAtoms = AtomsOf(Current);
  if (Current.Kind == EquationKind::None) {
    AddSet(Current.Left.OnSide, {Path, Atoms.Intern({true, std::move(vAtoms)})}, Line,
           ProgramReturn);
    return;
  }
  const auto HashOfOne = [&](std::uint32_t Which) {
    return HashOfPath(vAlternatives[Which].OnSide, vAlternatives[Which].Path, ProgramReturn);
  };
  std::uint32_t& Slot = AlternativesIndex.Find(
      HashOfPath(Current.Left.OnSide, Path, ProgramReturn), [&](std::uint32_t Other) {
        return vAlternatives[Other].OnSide == Current.Left.OnSide &&
               IsSamePath(vAlternatives[Other].Path, Path, ProgramReturn);
      });
  if (Slot != NoEntry) {
    ProgramReturn.vFeatures.resize(Path.FirstFeature);
    std::vector<std::uint32_t>& vAll = vAlternatives[Slot].vAtoms;
    vAll.insert(vAll.end(), vAtoms.begin(), vAtoms.end());
    return;
  }
  Slot = static_cast<std::uint32_t>(vAlternatives.size());
  vAlternatives.push_back({Path, Current.Left.OnSide, std::move(vAtoms), Line});
  AlternativesIndex.NoteAdded(HashOfOne);
}

/// Which nodes begin as copies of what the parts have; those that no equation names do not count.
void ProgramCompiler::AddParts(const UsableRule& Rule, Program& ProgramReturn) const {
  std::vector<bool> vIsNamedX(Rule.X.vLabels.size() + 1);
  std::vector<bool> vIsNamedY(Rule.Y.vLabels.size() + 1);
  for (const Equation& Current : Rule.vEquations) {
    (Current.Left.OnSide == Side::X ? vIsNamedX : vIsNamedY)[Current.Left.Index] = true;
    if (Current.Kind == EquationKind::Path) {
      (Current.Right.OnSide == Side::X ? vIsNamedX : vIsNamedY)[Current.Right.Index] = true;
    }
  }
  std::vector<std::uint32_t> vPlaces;
  std::uint32_t Places = 0;
  for (std::size_t Index = 0; Index < Rule.X.vLabels.size(); ++Index) {
    const bool IsPlace = !Grammar::IsLiteral(Rule.X.vLabels[Index]);
    if (IsPlace && vIsNamedX[Index + 1]) {
      ProgramReturn.vSourceParts.push_back({static_cast<std::uint32_t>(Index + 1), Places});
    }
    vPlaces.push_back(Places);
    Places += IsPlace ? 1 : 0;
  }
  const std::vector<std::uint32_t>& vSources = Rule.Places.Sources();
  for (std::size_t Index = 0; Index < vSources.size(); ++Index) {
    if (vSources[Index] != Grammar::PlaceSources::None && vIsNamedY[Index + 1]) {
      ProgramReturn.vTargetParts.push_back(
          {static_cast<std::uint32_t>(Index + 1), vPlaces[vSources[Index]]});
    }
  }
}

Program ProgramCompiler::Compile(const UsableRule& Rule, std::vector<std::uint32_t>& vLinesReturn) {
  Program New;
  vAlternatives.clear();
  AlternativesIndex.Clear();
  vLinesReturn.clear();
  if (Rule.vEquations.empty()) {
    return New;
  }
  for (std::vector<std::uint32_t>& vEach : vLines) {
    vEach.clear();
  }
  for (const Equation& Current : Rule.vEquations) {
    if (Current.Kind == EquationKind::Path) {
      AddLink(Current, New);
    } else {
      AddValue(Current, New);
    }
  }
  for (Alternatives& Current : vAlternatives) {
    AddSet(Current.OnSide, {Current.Path, Atoms.Intern({false, std::move(Current.vAtoms)})},
           Current.Line, New);
  }
  AddParts(Rule, New);
  for (const std::vector<std::uint32_t>& vEach : vLines) {
    vLinesReturn.insert(vLinesReturn.end(), vEach.begin(), vEach.end());
  }
  return New;
}

namespace {

class KeyWriter {
 public:
  void Add(std::uint32_t Number) {
    for (int Byte = 0; Byte < 4; ++Byte) {
      Text += static_cast<char>(static_cast<unsigned char>(Number >> (8 * Byte)));
    }
  }
  void Add(std::size_t Number) { Add(static_cast<std::uint32_t>(Number)); }
  void Add(const ProgramPath& Path) {
    Add(Path.Node);
    Add(Path.FirstFeature);
    Add(Path.FeatureCount);
  }
  void Add(const ValueStep& Step) {
    Add(Step.Path);
    Add(Step.Atoms);
  }
  void Add(const LinkStep& Step) {
    Add(Step.Left);
    Add(Step.Right);
  }
  void Add(const ProgramNode& Node) {
    Add(Node.Node);
    Add(Node.Place);
  }
  template <typename ElementT>
  void Add(const std::vector<ElementT>& vElements) {
    Add(vElements.size());
    for (const ElementT& Element : vElements) {
      Add(Element);
    }
  }

  std::string Text;
};

}  // namespace

std::string KeyOf(const Program& Which) {
  KeyWriter Key;
  Key.Add(Which.vFeatures);
  Key.Add(Which.vAnalysisValues);
  Key.Add(Which.vAnalysisLinks);
  Key.Add(Which.vTransfers);
  Key.Add(Which.vGenerationValues);
  Key.Add(Which.vGenerationLinks);
  Key.Add(Which.vSourceParts);
  Key.Add(Which.vTargetParts);
  return std::move(Key.Text);
}

}  // namespace Translate
