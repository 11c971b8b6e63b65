#include "Measures.h"

#include "Characters.h"

#include <algorithm>

namespace Picture {

const Measures& SvgMeasures() {
  static const Measures Units = [] {
    Measures New;
    New.LabelHeight = 22;
    New.IndexHeight = 15;
    New.TagHeight = 22;
    New.TagGap = 2;
    New.FeatureHeight = 16;
    New.CaptionHeight = 20;
    New.PadX = 12;
    New.PadY = 7;
    New.Gap = 20;
    New.OwnGap = 14;
    New.PortStep = 12;
    New.FirstLane = 16;
    New.LaneHeight = 20;
    New.TextGap = 5;
    New.FrameInset = 3;
    New.Margin = 12;
    New.CaptionGap = 16;
    New.MinZone = 48;
    New.MaxZone = 160;
    New.LevelHeight = 84;
    return New;
  }();
  return Units;
}

const Measures& TerminalMeasures() {
  static const Measures Units = [] {
    Measures New;
    New.IsGrid = true;
    New.LabelHeight = 1;
    New.IndexHeight = 1;
    New.TagHeight = 1;
    New.FeatureHeight = 1;
    New.CaptionHeight = 1;
    New.PadX = 2;
    New.PadY = 1;
    New.Gap = 2;
    New.OwnGap = 1;
    New.PortStep = 2;
    New.FirstLane = 1;
    New.LaneHeight = 1;
    New.TextGap = 2;
    New.CaptionGap = 1;
    New.MinZone = 1;
    return New;
  }();
  return Units;
}

int FontSize(TextRole Role) {
  switch (Role) {
    case TextRole::Label:
    case TextRole::Literal:
      return 16;
    case TextRole::Index:
      return 11;
    case TextRole::Value:
    case TextRole::Feature:
      return 12;
    case TextRole::Caption:
    case TextRole::Note:
      break;
  }
  return 13;
}

int Measures::WidthOf(std::string_view Words, TextRole Role) const {
  if (IsGrid) {
    return WidthAtTerminal(Words);
  }
  // One part in eight more, for fonts that are wider still.
  constexpr int Hundred = 100;
  const int Width = WidthInFont(Words) * FontSize(Role);
  return (Width + Width / 8 + Hundred - 1) / Hundred;
}

std::vector<std::string> Measures::Wrapped(std::string_view Words, TextRole Role,
                                           int MaxWidth) const {
  constexpr std::size_t ShortText = 1000;
  std::vector<std::string> vsLines;
  while (!Words.empty()) {
    if (Words.size() <= ShortText && WidthOf(Words, Role) <= MaxWidth) {
      vsLines.emplace_back(Words);
      break;
    }
    std::string_view Rest = Words;
    std::size_t Fitting = 0;
    std::size_t Blank = 0;
    for (int Width = 0; !Rest.empty(); Fitting = Words.size() - Rest.size()) {
      const std::string_view Before = Rest;
      TakeCharacter(Rest);
      Width += WidthOf(Before.substr(0, Before.size() - Rest.size()), Role);
      if (Before.front() == ' ') {
        Blank = Fitting;
      } else if (Width > MaxWidth && Fitting > 0) {
        break;
      }
    }
    const bool IsLast = Fitting == Words.size();
    const std::size_t Cut = IsLast ? Fitting : Blank > 0 ? Blank : Fitting;
    const std::string_view Line = Words.substr(0, Cut);
    vsLines.emplace_back(Line.substr(0, Line.find_last_not_of(' ') + 1));
    Words.remove_prefix(Cut);
    Words.remove_prefix(std::min(Words.find_first_not_of(' '), Words.size()));
  }
  return vsLines;
}

}  // namespace Picture
