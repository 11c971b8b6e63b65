#include "AlignmentShape.h"

#include <algorithm>

namespace Grammar {

std::string_view NameOf(ShapeTrait Trait) {
  switch (Trait) {
    case ShapeTrait::Monotone:
      return "monotone";
    case ShapeTrait::Crossing:
      return "crossing";
    case ShapeTrait::Unaligned:
      return "unaligned";
    case ShapeTrait::OneToOne:
      return "1:1";
    case ShapeTrait::OneToMany:
      return "1:n";
    case ShapeTrait::ManyToOne:
      return "n:1";
    case ShapeTrait::ManyToMany:
      break;
  }
  return "n:n";
}

void AlignmentShape::Read(const SourceRule& RulePassIn) {
  vPairs.clear();
  for (const SourceRule::AlignmentLine& Line : RulePassIn.Alignments()) {
    vPairs.emplace_back(Line.Parts.X, Line.Parts.Y);
  }
  ReadPairs(RulePassIn.SLLabels().size(), RulePassIn.TLLabels().size());
}

void AlignmentShape::Read(std::size_t SLSize, std::size_t TLSize,
                          const std::vector<Pair>& vPairsPassIn) {
  vPairs = vPairsPassIn;
  ReadPairs(SLSize, TLSize);
}

void AlignmentShape::ReadPairs(std::size_t SLSize, std::size_t TLSize) {
  const auto IsThere = [](int Component, std::size_t Size) {
    return Component >= 1 && static_cast<std::size_t>(Component) <= Size;
  };
  const auto NamesNothing = [&](const Pair& Current) {
    return !IsThere(Current.first, SLSize) || !IsThere(Current.second, TLSize);
  };
  vPairs.erase(std::remove_if(vPairs.begin(), vPairs.end(), NamesNothing), vPairs.end());
  std::sort(vPairs.begin(), vPairs.end());
  vPairs.erase(std::unique(vPairs.begin(), vPairs.end()), vPairs.end());
  Traits = 0;
  ReadCrossings();
  ReadGroups(SLSize, TLSize);
}

/// In the order of the source components, a crossing is a pair whose target component comes before
/// that of a pair with an earlier source component.
void AlignmentShape::ReadCrossings() {
  int LastBefore = 0;  // of the target components of earlier source components
  bool IsCrossing = false;
  for (auto First = vPairs.cbegin(); First != vPairs.cend();) {
    const auto Last = std::find_if(
        First, vPairs.cend(), [&](const Pair& Current) { return Current.first != First->first; });
    IsCrossing = IsCrossing || First->second < LastBefore;
    LastBefore = std::max(LastBefore, std::prev(Last)->second);
    First = Last;
  }
  Add(IsCrossing ? ShapeTrait::Crossing : ShapeTrait::Monotone);
}

void AlignmentShape::ReadGroups(std::size_t SLSize, std::size_t TLSize) {
  vGroups.resize(SLSize + TLSize);
  for (std::size_t At = 0; At < vGroups.size(); ++At) {
    vGroups[At] = {At, {At < SLSize ? std::size_t{1} : 0, At < SLSize ? 0 : std::size_t{1}}};
  }
  for (const Pair& Current : vPairs) {
    Unite(static_cast<std::size_t>(Current.first) - 1,
          SLSize + static_cast<std::size_t>(Current.second) - 1);
  }
  for (std::size_t At = 0; At < vGroups.size(); ++At) {
    const Group& Current = vGroups[At];
    if (Current.Parent != At) {
      continue;
    }
    if (Current.Sizes[0] == 0 || Current.Sizes[1] == 0) {
      Add(ShapeTrait::Unaligned);
    } else if (Current.Sizes[0] == 1) {
      Add(Current.Sizes[1] == 1 ? ShapeTrait::OneToOne : ShapeTrait::OneToMany);
    } else {
      Add(Current.Sizes[1] == 1 ? ShapeTrait::ManyToOne : ShapeTrait::ManyToMany);
    }
  }
}

/// The group of a component. The way to it becomes shorter each time.
std::size_t AlignmentShape::Find(std::size_t Component) {
  while (vGroups[Component].Parent != Component) {
    vGroups[Component].Parent = vGroups[vGroups[Component].Parent].Parent;
    Component = vGroups[Component].Parent;
  }
  return Component;
}

/// The smaller group goes into the larger one, so that no way becomes long.
void AlignmentShape::Unite(std::size_t Left, std::size_t Right) {
  const auto SizeOf = [](const Group& Current) { return Current.Sizes[0] + Current.Sizes[1]; };
  std::size_t Into = Find(Left);
  std::size_t From = Find(Right);
  if (Into == From) {
    return;
  }
  if (SizeOf(vGroups[Into]) < SizeOf(vGroups[From])) {
    std::swap(Into, From);
  }
  vGroups[From].Parent = Into;
  vGroups[Into].Sizes[0] += vGroups[From].Sizes[0];
  vGroups[Into].Sizes[1] += vGroups[From].Sizes[1];
}

std::string AlignmentShape::Text() const {
  std::string Names;
  for (const ShapeTrait Trait : ShapeTraits) {
    if (Has(Trait)) {
      Names += Names.empty() ? "" : " ";
      Names += NameOf(Trait);
    }
  }
  return Names;
}

}  // namespace Grammar
