// Sections: names, atoms, structures.

#include "StructureText.h"

#include "JsonText.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace Translate {

// ---- Names ------------------------------------------------------------------------------------

namespace {

/// The letter that stands for a control character after a backslash; 0 if there is none.
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
      static_cast<void>(
          std::snprintf(Escape.data(), Escape.size(), "\\u%04x", static_cast<unsigned>(Byte)));
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

const AtomSet& StructureText::SetAt(StructureId Structure) const {
  const AtomSetId Number = Walk.Structures().Atoms(Structure);
  return Traced == nullptr ? Plain->Set(Number) : Traced->Set(Number);
}

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

// ---- Structures -------------------------------------------------------------------------------

void StructureText::AppendNumber(std::uint32_t Number, bool IsFirst) {
  Text->append(IsJson ? "{\"#\":" : "#").append(std::to_string(Number));
  if (IsFirst) {
    Text->append(IsJson ? ",\"is\":" : ":");
  } else {
    Text->append(IsJson ? "}" : "");
  }
}

/// The text before a structure: the feature that leads to it, and its number.
void StructureText::Begin(const StructureWalk::Event& Current) {
  if (Current.Feature != NoEntry) {
    Text->append(Current.IsFirst ? "" : IsJson ? "," : " ");
    AppendName(Rules.FeatureName(Current.Feature));
    Text->append(IsJson ? ":" : "=");
  }
  if (Current.Number != 0) {
    AppendNumber(Current.Number, Current.What != StructureWalk::Kind::Again);
  }
}

void StructureText::End(const StructureWalk::Event& Current) {
  Text->append(Current.Number != 0 && IsJson ? "}" : "");
}

StructureTooLarge TooLongToWrite() {
  return StructureTooLarge("a structure takes more than " +
                           std::to_string(StructureText::MaxBytes) + " bytes");
}

void StructureText::Append(StructureId Structure) {
  using Kind = StructureWalk::Kind;
  const std::size_t Start = Text->size();
  StructureWalk::Event Current;
  for (Walk.Start(Structure); Walk.Next(Current);) {
    if (Text->size() - Start > MaxBytes) {
      throw TooLongToWrite();
    }
    switch (Current.What) {
      case Kind::Open:
        Begin(Current);
        Text->append(IsJson ? "{}" : "[]");
        End(Current);
        break;
      case Kind::Atoms:
        Begin(Current);
        AppendAtoms(SetAt(Current.Structure));
        End(Current);
        break;
      case Kind::Complex:
        Begin(Current);
        Text->append(IsJson ? "{" : "[");
        break;
      case Kind::End:
        Text->append(IsJson ? "}" : "]");
        End(Current);
        break;
      case Kind::Again:
        Begin(Current);
        break;
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
