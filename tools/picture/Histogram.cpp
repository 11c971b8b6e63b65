// Sections: bars, drawing.

#include "Histogram.h"

#include "Characters.h"
#include "Measures.h"

#include <algorithm>

namespace Picture {

// ---- Bars -------------------------------------------------------------------------------------

Histogram::Histogram(std::string_view TitlePassIn) : Title(ShownText(TitlePassIn)) {}

void Histogram::Add(std::string_view Label, std::size_t Count) {
  vBars.push_back({ShownText(Label), Count});
  Greatest = std::max(Greatest, Count);
}

// ---- Drawing ----------------------------------------------------------------------------------

namespace {

constexpr int MaxLabelWidth = 280;  // a longer label takes several lines
constexpr int MaxBarWidth = 240;
constexpr int RowGap = 4;
constexpr int BarInset = 3;  // a bar is lower than its row

int WidthOf(std::string_view Words) {
  return SvgMeasures().WidthOf(Words, TextRole::Caption);
}

/// The share of the greatest count, at least one unit.
int BarWidth(std::size_t Count, std::size_t Greatest) {
  const double Share = static_cast<double>(Count) / static_cast<double>(Greatest);
  return std::max(1, static_cast<int>(Share * MaxBarWidth));
}

void AddText(std::string_view Words, Point Corner, Drawing& DrawingReturn) {
  Text& New = DrawingReturn.vTexts.emplace_back();
  New.Words = Words;
  New.Corner = Corner;
  New.Width = WidthOf(Words);
  New.Height = SvgMeasures().CaptionHeight;
  New.Role = TextRole::Caption;
  New.IsCentred = false;
  DrawingReturn.Width = std::max(DrawingReturn.Width, Corner.X + New.Width);
}

}  // namespace

int Histogram::LabelWidth() const {
  int Width = 0;
  for (const Bar& Current : vBars) {
    Width = std::max(Width, WidthOf(Current.Label));
  }
  return std::min(Width, MaxLabelWidth);
}

std::string Histogram::Description() const {
  std::string Words;
  for (const Bar& Current : vBars) {
    Words.append(Words.empty() ? "" : " ").append(Current.Label);
    Words.append(": ").append(std::to_string(Current.Count)).append(".");
  }
  return Words;
}

void Histogram::Draw(Drawing& DrawingReturn) const {
  const Measures& Units = SvgMeasures();
  DrawingReturn.Clear();
  DrawingReturn.Width = Units.Margin;
  DrawingReturn.Title = Title;
  DrawingReturn.Description = Description();
  const int Width = LabelWidth();
  Point Row{Units.Margin, Units.Margin};
  DrawingReturn.Begin({SubjectKind::Caption, 0, {}});
  for (const Bar& Current : vBars) {
    Point Next = Row;
    for (const std::string& sLine :
         Units.Wrapped(Current.Label, TextRole::Caption, MaxLabelWidth)) {
      AddText(sLine, Next, DrawingReturn);
      Next.Y += Units.CaptionHeight;
    }
    Next.Y = std::max(Next.Y, Row.Y + Units.CaptionHeight);
    Point Free{Row.X + Width + Units.PadX, Row.Y};
    if (Current.Count > 0) {
      Box New{{Free.X, Row.Y + BarInset}, BarWidth(Current.Count, Greatest), 0, BoxShape::Bar};
      New.Height = Units.CaptionHeight - 2 * BarInset;
      DrawingReturn.vBoxes.push_back(New);
      Free.X += New.Width + Units.PadX / 2;
    }
    AddText(std::to_string(Current.Count), Free, DrawingReturn);
    Row.Y = Next.Y + RowGap;
  }
  DrawingReturn.End();
  DrawingReturn.Width += Units.Margin;
  DrawingReturn.Height = Row.Y - (vBars.empty() ? 0 : RowGap) + Units.Margin;
}

}  // namespace Picture
