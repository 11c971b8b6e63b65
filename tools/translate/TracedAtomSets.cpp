#include "TracedAtomSets.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Translate {

TracedAtomSets::TracedAtomSets(const AtomSets& SetsPassIn)
    : Sets(SetsPassIn), AllAtoms(Sets.Intern({true, {}})) {}

TracedAtomSets::OriginsId TracedAtomSets::Only(Origin Which) {
  return OriginSets.Intern({false, {Places.Intern(Which.File, Which.Line)}});
}

std::optional<AtomSetId> TracedAtomSets::Intersect(AtomSetId Left, AtomSetId Right) {
  const std::optional<AtomSetId> Both = Sets.Intersect(Traced.First(Left), Traced.First(Right));
  if (!Both) {
    return std::nullopt;
  }
  AtomSet Union = OriginSets.Set(Traced.Second(Left));
  const AtomSet& Other = OriginSets.Set(Traced.Second(Right));
  Union.vAtoms.insert(Union.vAtoms.end(), Other.vAtoms.begin(), Other.vAtoms.end());
  return Intern(*Both, OriginSets.Intern(std::move(Union)));
}

std::vector<Origin> TracedAtomSets::Origins(AtomSetId Number) const {
  std::vector<Origin> vOrigins;
  for (const std::uint32_t Place : OriginSets.Set(Traced.Second(Number)).vAtoms) {
    vOrigins.push_back({Places.First(Place), Places.Second(Place)});
  }
  std::sort(vOrigins.begin(), vOrigins.end(), [](const Origin& Left, const Origin& Right) {
    return std::tie(Left.File, Left.Line) < std::tie(Right.File, Right.Line);
  });
  return vOrigins;
}

}  // namespace Translate
