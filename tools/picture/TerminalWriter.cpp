// Sections: cells, lines, texts, the whole.

#include "TerminalWriter.h"

#include "Characters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace Picture {

// ---- Cells ------------------------------------------------------------------------------------

namespace {

/// Where lines leave a cell, and what they look like.
enum CellBits : std::uint8_t {
  Up = 1,
  Down = 2,
  Left = 4,
  Right = 8,
  Directions = 15,
  Dashed = 16,
  Round = 32,
  Double = 64,
};

using Signs = std::array<std::string_view, 16>;

constexpr Signs PlainSigns{" ", "│", "│", "│", "─", "┘", "┐", "┤",
                           "─", "└", "┌", "├", "─", "┴", "┬", "┼"};
constexpr Signs RoundSigns{" ", "│", "│", "│", "─", "╯", "╮", "┤",
                           "─", "╰", "╭", "├", "─", "┴", "┬", "┼"};
constexpr Signs DoubleSigns{" ", "║", "║", "║", "═", "╝", "╗", "╢",
                            "═", "╚", "╔", "╟", "═", "╧", "╤", "┼"};
constexpr Signs AsciiSigns{" ", "|", "|", "|", "-", "+", "+", "+",
                           "-", "+", "+", "+", "-", "+", "+", "+"};
constexpr Signs AsciiDoubleSigns{" ", "#", "#", "#", "=", "#", "#", "#",
                                 "=", "#", "#", "#", "=", "#", "#", "#"};

/// Corners and crossings are never dashed.
std::string_view SignOf(std::uint8_t Cell, bool IsAscii) {
  const auto Leaving = static_cast<std::uint8_t>(Cell & Directions);
  if ((Cell & Dashed) != 0 && Leaving == (Up | Down)) {
    return IsAscii ? ":" : "┊";
  }
  if ((Cell & Dashed) != 0 && Leaving == (Left | Right)) {
    return IsAscii ? "." : "╌";
  }
  if ((Cell & Double) != 0) {
    return (IsAscii ? AsciiDoubleSigns : DoubleSigns)[Leaving];
  }
  if (IsAscii) {
    return AsciiSigns[Leaving];
  }
  return ((Cell & Round) != 0 ? RoundSigns : PlainSigns)[Leaving];
}

}  // namespace

// ---- Lines ------------------------------------------------------------------------------------

namespace {

/// The cells of a drawing, row by row.
class Canvas {
 public:
  explicit Canvas(const Drawing& Picture)
      : Width(static_cast<std::size_t>(Picture.Width)),
        vCells(Width * static_cast<std::size_t>(Picture.Height), 0) {}

  std::uint8_t At(int Row, int Column) const { return vCells[Place({Column, Row})]; }

  /// Draws a straight line, both ends included.
  void Draw(Point From, Point To, std::uint8_t Look) {
    const bool IsLevel = From.Y == To.Y;
    if (From.X > To.X || From.Y > To.Y) {
      std::swap(From, To);
    }
    for (Point Here = From; Here.X < To.X || Here.Y < To.Y;) {
      Add(Here, static_cast<std::uint8_t>((IsLevel ? Right : Down) | Look));
      (IsLevel ? Here.X : Here.Y) += 1;
      Add(Here, static_cast<std::uint8_t>((IsLevel ? Left : Up) | Look));
    }
  }

  void Draw(const Line& Which) {
    const std::uint8_t Look = Which.IsDashed ? Dashed | Round : Round;
    for (int At = 1; At < Which.Size; ++At) {
      Draw(Which.Points[At - 1], Which.Points[At], Look);
    }
  }

  void Draw(const Box& Which) {
    const Point Begin = Which.Corner;
    const Point End{Begin.X + Which.Width - 1, Begin.Y + Which.Height - 1};
    const std::uint8_t Look = static_cast<std::uint8_t>(
        (Which.IsDashed ? Dashed : 0) | (Which.Shape == BoxShape::Own ? Round : 0) |
        (Which.Shape == BoxShape::Frame ? Double : 0));
    Draw(Begin, {End.X, Begin.Y}, Look);
    Draw({Begin.X, End.Y}, End, Look);
    Draw(Begin, {Begin.X, End.Y}, Look);
    Draw({End.X, Begin.Y}, End, Look);
  }

 private:
  std::size_t Place(Point Where) const {
    return static_cast<std::size_t>(Where.Y) * Width + static_cast<std::size_t>(Where.X);
  }

  void Add(Point To, std::uint8_t Bits) {
    std::uint8_t& Cell = vCells[Place(To)];
    Cell = static_cast<std::uint8_t>(Cell | Bits);
  }

  std::size_t Width;
  std::vector<std::uint8_t> vCells;
};

}  // namespace

// ---- Texts ------------------------------------------------------------------------------------

namespace {

/// The texts of a drawing, row by row and from the left to the right.
std::vector<const Text*> OrderedTexts(const Drawing& Picture) {
  std::vector<const Text*> vOrdered;
  for (const Text& Current : Picture.vTexts) {
    vOrdered.push_back(&Current);
  }
  std::sort(vOrdered.begin(), vOrdered.end(), [](const Text* One, const Text* Other) {
    return One->Corner.Y != Other->Corner.Y ? One->Corner.Y < Other->Corner.Y
                                            : One->Corner.X < Other->Corner.X;
  });
  return vOrdered;
}

/// A mark on either side keeps words that run from the right to the left from turning what stands
/// beside them.
void AppendWords(const std::string& Words, std::string& TextReturn) {
  constexpr std::string_view LeftToRight = "\xE2\x80\x8E";
  const bool IsTurned = IsRightToLeft(Words);
  TextReturn += IsTurned ? LeftToRight : "";
  TextReturn += Words;
  TextReturn += IsTurned ? LeftToRight : "";
}

}  // namespace

// ---- The whole --------------------------------------------------------------------------------

void AppendToTerminal(const Drawing& Picture, bool IsAscii, std::string& TextReturn) {
  Canvas Cells(Picture);
  for (const Box& Current : Picture.vBoxes) {
    Cells.Draw(Current);
  }
  for (const Line& Current : Picture.vLines) {
    Cells.Draw(Current);
  }
  const std::vector<const Text*> vTexts = OrderedTexts(Picture);
  auto Next = vTexts.begin();
  for (int Row = 0; Row < Picture.Height; ++Row) {
    for (int Column = 0; Column < Picture.Width;) {
      const bool IsText = Next != vTexts.end() && (*Next)->Corner.Y == Row;
      const int Width = IsText ? WidthAtTerminal((*Next)->Words) : 0;
      const int Indent = IsText && (*Next)->IsCentred ? ((*Next)->Width - Width) / 2 : 0;
      if (IsText && (*Next)->Corner.X + Indent == Column) {
        AppendWords((*Next)->Words, TextReturn);
        Column += Width;
        ++Next;
      } else {
        TextReturn += SignOf(Cells.At(Row, Column), IsAscii);
        ++Column;
      }
    }
    TextReturn.erase(TextReturn.find_last_not_of(' ') + 1);
    TextReturn += '\n';
  }
}

}  // namespace Picture
