#include "DerivationMatch.h"

namespace Examples {

using Translate::Chart;

/// Notes parts that have to be alike. A part that is like two others is not worth the trouble.
bool DerivationMatch::Add(Kind What, std::uint32_t LeftPart, std::uint32_t RightPart) {
  if (LeftPart == Chart::None || RightPart == Chart::None) {
    return LeftPart == RightPart;
  }
  const auto [Found, IsNew] = Partners[static_cast<std::size_t>(What)].emplace(LeftPart, RightPart);
  if (IsNew) {
    vOpen.push_back({What, LeftPart, RightPart});
  }
  return Found->second == RightPart;
}

bool DerivationMatch::AddWay(std::uint32_t LeftWay, std::uint32_t RightWay) {
  const Chart::Way& One = Left.Ways()[LeftWay];
  const Chart::Way& Other = Right.Ways()[RightWay];
  return One.Rule == Other.Rule && One.IsUnary() == Other.IsUnary() &&
         Add(One.IsUnary() ? Kind::Constituent : Kind::Item, One.Part(), Other.Part());
}

bool DerivationMatch::AddWays(std::uint32_t LeftWay, std::uint32_t RightWay) {
  for (; LeftWay != Chart::None && RightWay != Chart::None;
       LeftWay = Left.Ways()[LeftWay].Next, RightWay = Right.Ways()[RightWay].Next) {
    if (!AddWay(LeftWay, RightWay)) {
      return false;
    }
  }
  return LeftWay == RightWay;
}

bool DerivationMatch::AddSteps(std::uint32_t LeftItem, std::uint32_t RightItem) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> vSteps;
  Left.ForEachStep(LeftItem, [&](std::uint32_t Before, std::uint32_t Group) {
    vSteps.emplace_back(Before, Group);
  });
  std::size_t Next = 0;
  bool IsSame = true;
  Right.ForEachStep(RightItem, [&](std::uint32_t Before, std::uint32_t Group) {
    IsSame = IsSame && Next < vSteps.size() && Add(Kind::Item, vSteps[Next].first, Before) &&
             Add(Kind::Group, vSteps[Next].second, Group);
    ++Next;
  });
  return IsSame && Next == vSteps.size() &&
         Left.Items()[LeftItem].Node == Right.Items()[RightItem].Node;
}

bool DerivationMatch::AddMembers(const Chart::Group& LeftGroup, const Chart::Group& RightGroup) {
  bool IsSame = LeftGroup.Count == RightGroup.Count;
  for (std::uint32_t Index = 0; IsSame && Index < LeftGroup.Count; ++Index) {
    IsSame = Add(Kind::Constituent, Left.Members()[LeftGroup.First + Index],
                 Right.Members()[RightGroup.First + Index]);
  }
  return IsSame;
}

bool DerivationMatch::AddParts(const Pair& Which) {
  switch (Which.What) {
    case Kind::Constituent:
      return AddWays(Left.Constituents()[Which.Left].FirstWay,
                     Right.Constituents()[Which.Right].FirstWay);
    case Kind::Item:
      return AddSteps(Which.Left, Which.Right);
    case Kind::Group:
      break;
  }
  return AddMembers(Left.Groups()[Which.Left], Right.Groups()[Which.Right]);
}

bool DerivationMatch::AreSame(const std::vector<std::uint32_t>& vLeftWays,
                              const std::vector<std::uint32_t>& vRightWays) {
  bool IsSame = vLeftWays.size() == vRightWays.size();
  for (std::size_t Index = 0; IsSame && Index < vLeftWays.size(); ++Index) {
    IsSame = AddWay(vLeftWays[Index], vRightWays[Index]);
  }
  while (IsSame && !vOpen.empty()) {
    const Pair Which = vOpen.back();
    vOpen.pop_back();
    IsSame = AddParts(Which);
  }
  return IsSame;
}

}  // namespace Examples
