// Sections: texts, shapes, groups, the whole.

#include "SvgWriter.h"

#include "Characters.h"
#include "Measures.h"

#include <array>
#include <cstdint>
#include <initializer_list>

namespace Picture {

// ---- Texts ------------------------------------------------------------------------------------

void AppendEscaped(std::string_view Words, std::string& TextReturn) {
  for (std::size_t At = Words.find_first_of("&<>\""); At != std::string_view::npos;
       At = Words.find_first_of("&<>\"")) {
    TextReturn += Words.substr(0, At);
    const char Sign = Words[At];
    TextReturn += Sign == '&' ? "&amp;" : Sign == '<' ? "&lt;" : Sign == '>' ? "&gt;" : "&quot;";
    Words.remove_prefix(At + 1);
  }
  TextReturn += Words;
}

namespace {

void AppendNumber(std::string_view Before, std::int64_t Number, std::string& TextReturn) {
  TextReturn.append(Before).append(std::to_string(Number));
}

void AppendPoint(std::string_view Before, Point At, std::string& TextReturn) {
  AppendNumber(Before, At.X, TextReturn);
  AppendNumber(" ", At.Y, TextReturn);
}

/// Words of other languages than those of the rule format may run from the right to the left.
bool IsTurned(const Text& Which) {
  const bool CanBe = Which.Role == TextRole::Label || Which.Role == TextRole::Literal ||
                     Which.Role == TextRole::Caption;
  return CanBe && IsRightToLeft(Which.Words);
}

void AppendText(const Text& Which, std::string& TextReturn) {
  const int Size = FontSize(Which.Role);
  const bool Turned = IsTurned(Which);
  AppendNumber("<text x=\"", Which.Corner.X + (Which.IsCentred ? Which.Width / 2 : 0), TextReturn);
  // Letters stand on a line a third of their size below the middle.
  AppendNumber("\" y=\"", Which.Corner.Y + Which.Height / 2 + (Size + 1) / 3, TextReturn);
  AppendNumber("\" font-size=\"", Size, TextReturn);
  TextReturn += Which.IsCentred ? "\" text-anchor=\"middle" : Turned ? "\" text-anchor=\"end" : "";
  TextReturn += Turned ? "\" direction=\"rtl" : "";
  TextReturn += Which.Role == TextRole::Literal ? "\" font-style=\"italic" : "";
  TextReturn += "\" fill=\"currentColor\" stroke=\"none\">";
  AppendEscaped(Which.Words, TextReturn);
  TextReturn += "</text>";
}

}  // namespace

// ---- Shapes -----------------------------------------------------------------------------------

namespace {

constexpr std::string_view Dashes = "\" stroke-dasharray=\"5 4";

int RadiusOf(const Box& Which) {
  switch (Which.Shape) {
    case BoxShape::Component:
      return 3;
    case BoxShape::Own:
      return 14;
    case BoxShape::Frame:
    case BoxShape::Bar:
      return 2;
    case BoxShape::Tag:
      break;
  }
  return 9;
}

void AppendBox(const Box& Which, std::string& TextReturn) {
  AppendNumber("<rect x=\"", Which.Corner.X, TextReturn);
  AppendNumber("\" y=\"", Which.Corner.Y, TextReturn);
  AppendNumber("\" width=\"", Which.Width, TextReturn);
  AppendNumber("\" height=\"", Which.Height, TextReturn);
  AppendNumber("\" rx=\"", RadiusOf(Which), TextReturn);
  TextReturn += Which.Shape == BoxShape::Tag ? "\" stroke-width=\"0.7" : "";
  TextReturn += Which.Shape == BoxShape::Bar ? "\" fill=\"currentColor" : "";
  TextReturn += Which.IsDashed ? Dashes : "";
  TextReturn += "\"/>";
}

/// A point on the way to another one, that far before it.
Point Before(Point To, Point From, int Distance) {
  const auto Step = [&](int There, int Here) {
    return There == Here ? 0 : There > Here ? -Distance : Distance;
  };
  return {To.X + Step(To.X, From.X), To.Y + Step(To.Y, From.Y)};
}

void AppendLine(const Line& Which, std::string& TextReturn) {
  constexpr int Radius = 6;
  AppendPoint("<path d=\"M", Which.Points[0], TextReturn);
  for (int At = 1; At < Which.Size; ++At) {
    const Point& Here = Which.Points[At];
    if (Which.IsArc && At + 1 < Which.Size) {
      AppendPoint("L", Before(Here, Which.Points[At - 1], Radius), TextReturn);
      AppendPoint("Q", Here, TextReturn);
      AppendPoint(" ", Before(Here, Which.Points[At + 1], Radius), TextReturn);
    } else {
      AppendPoint("L", Here, TextReturn);
    }
  }
  TextReturn += Which.IsDashed ? Dashes : "";
  TextReturn += "\"/>";
}

}  // namespace

// ---- Groups -----------------------------------------------------------------------------------

namespace {

/// The colours of constituents: dark ones on light, light ones on dark. Each is at least 4.5 times
/// as dark, or as light, as the ground.
constexpr std::array<std::string_view, 6> Dark{"#1d4ed8", "#9a3412", "#166534",
                                               "#7e22ce", "#9d174d", "#115e59"};
constexpr std::array<std::string_view, 6> Light{"#93c5fd", "#fdba74", "#86efac",
                                                "#d8b4fe", "#f9a8d4", "#5eead4"};

/// A constituent has its number and its colour in both trees.
void BeginConstituent(const Subject& Shown, std::string& TextReturn) {
  AppendNumber("<g data-constituent=\"", static_cast<std::int64_t>(Shown.Line), TextReturn);
  AppendNumber("\" class=\"c", static_cast<std::int64_t>(Shown.Line % Dark.size()), TextReturn);
  TextReturn += "\" stroke=\"currentColor\">";
  if (!Shown.Code.empty()) {
    TextReturn += "<title>";
    AppendEscaped(Shown.Code, TextReturn);
    TextReturn += "</title>";
  }
}

void AppendColours(const std::array<std::string_view, 6>& Colours, std::string_view Id,
                   std::string& TextReturn) {
  for (std::size_t At = 0; At < Colours.size(); ++At) {
    TextReturn.append("#").append(Id);
    AppendNumber(" .c", static_cast<std::int64_t>(At), TextReturn);
    TextReturn.append("{color:").append(Colours[At]).append("}");
  }
}

void BeginGroup(const Subject& Shown, std::string& TextReturn) {
  switch (Shown.Kind) {
    case SubjectKind::Caption:
      TextReturn += "<g>";
      return;
    case SubjectKind::Component:
      TextReturn += "<g data-component=\"";
      TextReturn += Shown.Code;
      TextReturn += "\">";
      return;
    case SubjectKind::Constituent:
      BeginConstituent(Shown, TextReturn);
      return;
    case SubjectKind::Alignment:
      TextReturn += "<g data-alignment=\"";
      break;
    case SubjectKind::Constraint:
      TextReturn += "<g data-constraint=\"";
      break;
  }
  if (IsShown(Shown.Code)) {
    AppendEscaped(Shown.Code, TextReturn);
  } else {
    AppendEscaped(ShownText(Shown.Code), TextReturn);
  }
  AppendNumber("\" data-line=\"", static_cast<std::int64_t>(Shown.Line), TextReturn);
  TextReturn += "\">";
}

void AppendGroups(const Drawing& Picture, std::string& TextReturn) {
  Group Last;
  for (const Group& Current : Picture.vGroups) {
    BeginGroup(Current.Shown, TextReturn);
    for (std::size_t At = Last.BoxEnd; At < Current.BoxEnd; ++At) {
      AppendBox(Picture.vBoxes[At], TextReturn);
    }
    for (std::size_t At = Last.LineEnd; At < Current.LineEnd; ++At) {
      AppendLine(Picture.vLines[At], TextReturn);
    }
    for (std::size_t At = Last.TextEnd; At < Current.TextEnd; ++At) {
      AppendText(Picture.vTexts[At], TextReturn);
    }
    TextReturn += "</g>\n";
    Last = Current;
  }
}

}  // namespace

// ---- The whole --------------------------------------------------------------------------------

namespace {

void AddToHash(std::string_view Words, std::uint64_t& HashReturn) {
  for (const char Byte : Words) {
    HashReturn = (HashReturn ^ static_cast<unsigned char>(Byte)) * 0x100000001B3U;
  }
}

/// "p" and sixteen digits, from what the picture says.
std::string IdentifierOf(const Drawing& Picture, std::string_view Place) {
  std::uint64_t Hash = 0xCBF29CE484222325U;
  AddToHash(Place, Hash);
  AddToHash(Picture.Title, Hash);
  AddToHash(Picture.Description, Hash);
  std::string Identifier = "p";
  for (int Shift = 60; Shift >= 0; Shift -= 4) {
    Identifier += "0123456789abcdef"[(Hash >> static_cast<unsigned>(Shift)) & 15U];
  }
  return Identifier;
}

constexpr std::string_view Look =
    " font-family=\"sans-serif\" fill=\"none\" stroke=\"currentColor\" stroke-width=\"1.3\"";

void AppendAll(std::initializer_list<std::string_view> Words, std::string& TextReturn) {
  for (const std::string_view Current : Words) {
    TextReturn += Current;
  }
}

/// Within a page, only what the page cannot know: the colours of constituents.
void AppendStyle(const Drawing& Picture, bool IsInline, std::string_view Id,
                 std::string& TextReturn) {
  const bool HasConstituents =
      !Picture.vGroups.empty() && Picture.vGroups.front().Shown.Kind == SubjectKind::Constituent;
  if (IsInline && !HasConstituents) {
    return;
  }
  TextReturn += "<style>";
  if (!IsInline) {
    AppendAll({"#", Id, "{color:#222}"}, TextReturn);
  }
  if (HasConstituents) {
    AppendColours(Dark, Id, TextReturn);
  }
  TextReturn += "@media (prefers-color-scheme:dark){";
  if (!IsInline) {
    AppendAll({"#", Id, "{color:#ddd}"}, TextReturn);
  }
  if (HasConstituents) {
    AppendColours(Light, Id, TextReturn);
  }
  TextReturn += "}</style>\n";
}

}  // namespace

void AppendSvg(const Drawing& Picture, const SvgOptions& Options, std::string& TextReturn) {
  const std::string Id = IdentifierOf(Picture, Options.Place);
  AppendAll({"<svg xmlns=\"http://www.w3.org/2000/svg\" id=\"", Id}, TextReturn);
  AppendNumber("\" width=\"", Picture.Width, TextReturn);
  AppendNumber("\" height=\"", Picture.Height, TextReturn);
  AppendNumber("\" viewBox=\"0 0 ", Picture.Width, TextReturn);
  AppendNumber(" ", Picture.Height, TextReturn);
  AppendAll({"\" role=\"img\" aria-labelledby=\"", Id, "-title ", Id, "-desc\"", Look,
             ">\n<title id=\"", Id, "-title\">"},
            TextReturn);
  AppendEscaped(Picture.Title, TextReturn);
  AppendAll({"</title>\n<desc id=\"", Id, "-desc\">"}, TextReturn);
  AppendEscaped(Picture.Description, TextReturn);
  TextReturn += "</desc>\n";
  AppendStyle(Picture, Options.IsInline, Id, TextReturn);
  AppendGroups(Picture, TextReturn);
  TextReturn += "</svg>\n";
}

}  // namespace Picture
