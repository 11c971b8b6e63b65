#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What a layout makes and a writer writes: boxes, lines and texts, in units that only the measures
/// know. x goes to the right and y goes down, from 0.

namespace Picture {

struct Point {
  int X = 0;
  int Y = 0;
};

enum class BoxShape : std::uint8_t {
  Component,  ///< of a sequence
  Own,        ///< the constituent itself, x0 or y0
  Frame,      ///< the second frame of the head
  Tag,        ///< around a value
  Bar,        ///< filled, as long as a count is great
};

struct Box {
  Point Corner;  ///< above and left
  int Width = 0;
  int Height = 0;
  BoxShape Shape = BoxShape::Component;
  bool IsDashed = false;
};

/// Up to four points, joined by straight lines.
struct Line {
  Point Points[4];
  std::uint8_t Size = 0;
  bool IsDashed = false;
  bool IsArc = false;  ///< its corners are round
};

enum class TextRole : std::uint8_t {
  Label,
  Literal,
  Index,    ///< "x1"
  Value,    ///< "NUM: SG"
  Feature,  ///< on an arc, or beside an alignment
  Caption,
  Note,  ///< what cannot be drawn
};

/// A text within the room that is kept for it.
struct Text {
  std::string Words;
  Point Corner;
  int Width = 0;
  int Height = 0;
  TextRole Role = TextRole::Label;
  bool IsCentred = true;  ///< otherwise it begins on the left
};

enum class SubjectKind : std::uint8_t { Caption, Component, Alignment, Constraint, Constituent };

/// What a group of shapes stands for.
struct Subject {
  SubjectKind Kind = SubjectKind::Caption;
  std::size_t Line = 0;   ///< of an alignment or a constraint, in its file; the number of a
                          ///< constituent; from 1
  std::string_view Code;  ///< the line, as written; of a component its name, "x1"; of a constituent
                          ///< what is shown on demand
};

/// Shapes that belong together. Each group's begin where those of the group before end.
struct Group {
  Subject Shown;
  std::size_t BoxEnd = 0;
  std::size_t LineEnd = 0;
  std::size_t TextEnd = 0;
};

/// A picture.
struct Drawing {
  int Width = 0;
  int Height = 0;
  std::string Title;
  std::string Description;  ///< reads it aloud
  std::vector<Group> vGroups;
  std::vector<Box> vBoxes;
  std::vector<Line> vLines;
  std::vector<Text> vTexts;

  /// Starts a group: what is added up to the next call stands for this.
  void Begin(const Subject& Shown) {
    End();
    vGroups.push_back({Shown, 0, 0, 0});
  }

  /// To be called after the last group.
  void End() {
    if (!vGroups.empty()) {
      vGroups.back().BoxEnd = vBoxes.size();
      vGroups.back().LineEnd = vLines.size();
      vGroups.back().TextEnd = vTexts.size();
    }
  }

  void Clear() {
    vGroups.clear();
    vBoxes.clear();
    vLines.clear();
    vTexts.clear();
    Width = Height = 0;
  }
};

}  // namespace Picture
