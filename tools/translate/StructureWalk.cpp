// Sections: knots, events.

#include "StructureWalk.h"

#include <algorithm>
#include <utility>

namespace Translate {

// ---- Knots ------------------------------------------------------------------------------------

/// Finds the locals of a knot, and how many features lead to each.
std::size_t StructureWalk::AddKnot(StructureId Structure) {
  Knot New;
  New.Words = Store.Knot(Structure);
  const std::uint32_t Locals = New.Words[0];
  New.vArrivals.assign(Locals, 0);
  New.vNumbers.assign(Locals, 0);
  std::uint32_t At = 1;
  for (std::uint32_t Local = 0; Local < Locals; ++Local) {
    New.vLocals.push_back(At);
    const std::uint32_t Head = New.Words[At++];
    const std::uint32_t Arcs = StructureStore::IsAlias(Head) ? 0 : Head;
    for (std::uint32_t Index = 0; Index < Arcs; ++Index, At += 2) {
      if (StructureStore::IsLocal(New.Words[At + 1])) {
        ++New.vArrivals[StructureStore::Unmarked(New.Words[At + 1])];
      }
    }
  }
  vKnots.push_back(std::move(New));
  return vKnots.size() - 1;
}

/// Begins the features of a local, which are gone through one by one after that. Where values come
/// from is not a feature that anybody has written.
void StructureWalk::OpenFeatures(std::size_t Which, std::uint32_t Local, std::uint32_t Number) {
  const std::uint32_t* Words = vKnots[Which].Words + vKnots[Which].vLocals[Local];
  Frame New{Which, {}, 0, Number, Local == 0};
  for (std::uint32_t Index = 0; Index < Words[0]; ++Index) {
    if (Words[1 + 2 * Index] != StructureStore::OriginFeature) {
      New.vArcs.push_back({Words[1 + 2 * Index], Words[2 + 2 * Index]});
    }
  }
  std::sort(New.vArcs.begin(), New.vArcs.end(), [&](const Arc& Left, const Arc& Right) {
    return Rules.FeatureName(Left.Feature) < Rules.FeatureName(Right.Feature);
  });
  vFrames.push_back(std::move(New));
}

// ---- Events -----------------------------------------------------------------------------------

void StructureWalk::Start(StructureId Structure) {
  Root = Structure;
  IsAtRoot = true;
  LastNumber = 0;
  vKnots.clear();
  vFrames.clear();
}

bool StructureWalk::Next(Event& EventReturn) {
  EventReturn = Event();
  if (IsAtRoot) {
    IsAtRoot = false;
    Visit(Root, EventReturn);
    return true;
  }
  if (vFrames.empty()) {
    return false;
  }
  Frame& Top = vFrames.back();
  if (Top.Next == Top.vArcs.size()) {
    EventReturn.What = Kind::End;
    EventReturn.Number = Top.Number;
    if (Top.IsRoot) {
      vKnots.pop_back();
    }
    vFrames.pop_back();
    return true;
  }
  const Arc Link = Top.vArcs[Top.Next++];
  EventReturn.Feature = Link.Feature;
  EventReturn.IsFirst = Top.Next == 1;
  if (StructureStore::IsLocal(Link.Target)) {
    VisitLocal(Top.Knot, StructureStore::Unmarked(Link.Target), EventReturn);
  } else {
    Visit(Link.Target, EventReturn);
  }
  return true;
}

void StructureWalk::Visit(StructureId Structure, Event& EventReturn) {
  EventReturn.Structure = Structure;
  if (Store.IsComplex(Structure)) {
    EventReturn.What = Kind::Complex;
    OpenFeatures(AddKnot(Structure), 0, EventReturn.Number);
  } else {
    EventReturn.What = Store.IsOpen(Structure) ? Kind::Open : Kind::Atoms;
  }
}

void StructureWalk::VisitLocal(std::size_t Which, std::uint32_t Local, Event& EventReturn) {
  Knot& In = vKnots[Which];
  if (In.vArrivals[Local] > 1) {
    const bool IsFirst = In.vNumbers[Local] == 0;
    In.vNumbers[Local] = IsFirst ? ++LastNumber : In.vNumbers[Local];
    EventReturn.Number = In.vNumbers[Local];
    if (!IsFirst) {
      EventReturn.What = Kind::Again;
      return;
    }
  }
  const std::uint32_t Head = In.Words[In.vLocals[Local]];
  if (StructureStore::IsAlias(Head)) {
    Visit(StructureStore::Unmarked(Head), EventReturn);
  } else {
    EventReturn.What = Kind::Complex;
    OpenFeatures(Which, Local, EventReturn.Number);
  }
}

std::vector<std::uint32_t> StructureWalk::Path() const {
  std::vector<std::uint32_t> vPath;
  for (const Frame& Current : vFrames) {
    if (Current.Next > 0) {
      vPath.push_back(Current.vArcs[Current.Next - 1].Feature);
    }
  }
  return vPath;
}

}  // namespace Translate
