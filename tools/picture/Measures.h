#pragma once

#include "Drawing.h"

#include <string>
#include <string_view>
#include <vector>

namespace Picture {

/// The units of a drawing: those of an SVG picture, or the cells of a terminal.
struct Measures {
  bool IsGrid = false;  ///< lines run along cells, and the edge of a box is within it
  int LabelHeight = 0;
  int IndexHeight = 0;
  int TagHeight = 0;
  int TagGap = 0;  ///< above a tag, of its height
  int FeatureHeight = 0;
  int CaptionHeight = 0;
  int PadX = 0;        ///< between a box and the texts in it
  int PadY = 0;        ///< the same above and below them
  int Gap = 0;         ///< between boxes, at least
  int OwnGap = 0;      ///< added after the box of the constituent itself
  int PortStep = 0;    ///< between lines that end at one box
  int FirstLane = 0;   ///< between boxes and the lowest lane
  int LaneHeight = 0;  ///< between lanes
  int TextGap = 0;     ///< between a line and the text on it
  int FrameInset = 0;  ///< between the two frames of the head
  int Margin = 0;
  int CaptionGap = 0;  ///< above the caption
  int MinZone = 0;     ///< the height between the rows in which lines cross, at least
  int MaxZone = 0;
  int LevelHeight = 0;  ///< from one level of a tree to the next

  /// The room that a text needs from the left to the right.
  int WidthOf(std::string_view Words, TextRole Role) const;

  /// Cuts a text into lines of that width, at blanks where there are some. Linear.
  std::vector<std::string> Wrapped(std::string_view Words, TextRole Role, int MaxWidth) const;
};

const Measures& SvgMeasures();
const Measures& TerminalMeasures();

/// The size of the font of a text in SVG.
int FontSize(TextRole Role);

}  // namespace Picture
