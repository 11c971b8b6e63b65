// Sections: names, atoms, knots, the walk.

#include "StructureText.h"

#include "JsonText.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace Translate {

// ---- Names ------------------------------------------------------------------------------------

namespace {

/// The letter that stands for a control character behind a backslash; 0 where there is none.
char ShortEscape(char Byte) {
  switch (Byte) {
    case '\b':
      return 'b';
    case '\f':
      return 'f';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\t':
      return 't';
    case '"':
    case '\\':
      return Byte;
    default:
      return 0;
  }
}

}  // namespace

void AppendJsonString(std::string_view Text, std::string& JsonReturn) {
  JsonReturn += '"';
  for (const char Byte : Grammar::ToUnicode(Text)) {
    const char Letter = ShortEscape(Byte);
    if (Letter != 0) {
      JsonReturn += '\\';
      JsonReturn += Letter;
    } else if (static_cast<unsigned char>(Byte) < ' ') {
      std::array<char, 8> Escape{};
      std::snprintf(Escape.data(), Escape.size(), "\\u%04x", static_cast<unsigned>(Byte));
      JsonReturn += Escape.data();
    } else {
      JsonReturn += Byte;
    }
  }
  JsonReturn += '"';
}

void StructureText::AppendName(const std::string& Name) {
  if (IsJson) {
    AppendJsonString(Name, *Text);
  } else {
    Text->append(Name);
  }
}

// ---- Atoms ------------------------------------------------------------------------------------

void StructureText::AppendAtoms(const AtomSet& Set) {
  std::vector<const std::string*> vNames;
  for (const std::uint32_t Atom : Set.vAtoms) {
    vNames.push_back(&Rules.AtomName(Atom));
  }
  std::sort(vNames.begin(), vNames.end(),
            [](const std::string* Left, const std::string* Right) { return *Left < *Right; });
  const bool IsList = Set.IsNegated || vNames.size() > 1;
  if (IsJson && IsList) {
    Text->append(Set.IsNegated ? "{\"*NOT*\":[" : "{\"*OR*\":[");
  } else if (Set.IsNegated) {
    Text->append("!");
  }
  for (std::size_t Index = 0; Index < vNames.size(); ++Index) {
    Text->append(Index == 0 ? "" : IsJson ? "," : "|");
    AppendName(*vNames[Index]);
  }
  Text->append(IsJson && IsList ? "]}" : "");
}

// ---- Knots ------------------------------------------------------------------------------------

/// Finds the locals of a knot, and how many features lead to each.
std::size_t StructureText::AddKnot(StructureId Structure) {
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
    for (std::uint32_t Each = 0; Each < Arcs; ++Each, At += 2) {
      if (StructureStore::IsLocal(New.Words[At + 1])) {
        ++New.vArrivals[StructureStore::Unmarked(New.Words[At + 1])];
      }
    }
  }
  vKnots.push_back(std::move(New));
  return vKnots.size() - 1;
}

/// Begins the features of a local, which are written one by one after that.
void StructureText::OpenFeatures(std::size_t Which, std::uint32_t Local, bool IsNumbered) {
  const std::uint32_t* Words = vKnots[Which].Words + vKnots[Which].vLocals[Local];
  Frame New{Which, {}, 0, IsNumbered};
  for (std::uint32_t Index = 0; Index < Words[0]; ++Index) {
    New.vArcs.push_back({Words[1 + 2 * Index], Words[2 + 2 * Index]});
  }
  std::sort(New.vArcs.begin(), New.vArcs.end(), [&](const Arc& Left, const Arc& Right) {
    return Rules.FeatureName(Left.Feature) < Rules.FeatureName(Right.Feature);
  });
  Text->append(IsJson ? "{" : "[");
  vFrames.push_back(std::move(New));
}

// ---- The walk ---------------------------------------------------------------------------------

void StructureText::AppendNumbered(std::uint32_t Number, bool IsFirst) {
  Text->append(IsJson ? "{\"#\":" : "#").append(std::to_string(Number));
  if (IsFirst) {
    Text->append(IsJson ? ",\"is\":" : ":");
  } else {
    Text->append(IsJson ? "}" : "");
  }
}

void StructureText::AppendStructure(StructureId Structure, bool IsNumbered) {
  if (Store.IsComplex(Structure)) {
    OpenFeatures(AddKnot(Structure), 0, IsNumbered);
    return;
  }
  if (Store.IsOpen(Structure)) {
    Text->append(IsJson ? "{}" : "[]");
  } else {
    AppendAtoms(Atoms.Set(Store.Atoms(Structure)));
  }
  Text->append(IsNumbered && IsJson ? "}" : "");
}

void StructureText::AppendLocal(std::size_t Which, std::uint32_t Local) {
  const bool IsNumbered = vKnots[Which].vArrivals[Local] > 1;
  if (IsNumbered) {
    std::uint32_t& Number = vKnots[Which].vNumbers[Local];
    const bool IsFirst = Number == 0;
    Number = IsFirst ? ++LastNumber : Number;
    AppendNumbered(Number, IsFirst);
    if (!IsFirst) {
      return;
    }
  }
  const std::uint32_t Head = vKnots[Which].Words[vKnots[Which].vLocals[Local]];
  if (StructureStore::IsAlias(Head)) {
    AppendStructure(StructureStore::Unmarked(Head), IsNumbered);
  } else {
    OpenFeatures(Which, Local, IsNumbered);
  }
}

void StructureText::Append(StructureId Structure) {
  LastNumber = 0;
  vKnots.clear();
  AppendStructure(Structure, false);
  while (!vFrames.empty()) {
    Frame& Top = vFrames.back();
    if (Top.Next == Top.vArcs.size()) {
      Text->append(IsJson ? "}" : "]").append(IsJson && Top.IsNumbered ? "}" : "");
      vFrames.pop_back();
      continue;
    }
    const Arc Each = Top.vArcs[Top.Next++];
    const std::size_t Which = Top.Knot;
    Text->append(Top.Next == 1 ? "" : IsJson ? "," : " ");
    AppendName(Rules.FeatureName(Each.Feature));
    Text->append(IsJson ? ":" : "=");
    if (StructureStore::IsLocal(Each.Target)) {
      AppendLocal(Which, StructureStore::Unmarked(Each.Target));
    } else {
      AppendStructure(Each.Target, false);
    }
  }
}

void StructureText::AppendJson(StructureId Structure, std::string& TextReturn) {
  IsJson = true;
  Text = &TextReturn;
  Append(Structure);
}

void StructureText::AppendShort(StructureId Structure, std::string& TextReturn) {
  IsJson = false;
  Text = &TextReturn;
  Append(Structure);
}

}  // namespace Translate
