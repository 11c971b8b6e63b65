// What holds of every picture: nothing lies on anything else, and each alignment and each
// constraint is there exactly once.

#include "Characters.h"
#include "Measures.h"
#include "PictureSupport.h"
#include "RandomRules.h"
#include "RuleLayout.h"
#include "SvgReading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace Picture;

struct Area {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
};

Area AreaOf(const Box& Which) {
  return {Which.Corner.X, Which.Corner.Y, Which.Corner.X + Which.Width,
          Which.Corner.Y + Which.Height};
}

Area AreaOf(const Text& Which) {
  return {Which.Corner.X, Which.Corner.Y, Which.Corner.X + Which.Width,
          Which.Corner.Y + Which.Height};
}

bool Overlap(const Area& One, const Area& Other) {
  return One.Left < Other.Right && Other.Left < One.Right && One.Top < Other.Bottom &&
         Other.Top < One.Bottom;
}

bool IsWithin(const Area& Inner, const Area& Outer) {
  return Inner.Left >= Outer.Left && Inner.Right <= Outer.Right && Inner.Top >= Outer.Top &&
         Inner.Bottom <= Outer.Bottom;
}

/// Whether a straight line passes through an area. On a grid it fills the cells of both ends.
bool Overlap(Point From, Point To, const Area& Other, bool IsGrid) {
  const int Filled = IsGrid ? 1 : 0;
  if (From.X == To.X || From.Y == To.Y) {
    const Area Covered{std::min(From.X, To.X), std::min(From.Y, To.Y),
                       std::max(From.X, To.X) + Filled, std::max(From.Y, To.Y) + Filled};
    return IsGrid ? Overlap(Covered, Other)
                  : Covered.Left < Other.Right && Covered.Right > Other.Left &&
                        Covered.Top < Other.Bottom && Covered.Bottom > Other.Top;
  }
  // A slanted one is walked along, row by row.
  for (int Y = Other.Top + 1; Y < Other.Bottom; ++Y) {
    if (Y > std::min(From.Y, To.Y) && Y < std::max(From.Y, To.Y)) {
      const double X = From.X + double(To.X - From.X) * (Y - From.Y) / (To.Y - From.Y);
      if (X > Other.Left && X < Other.Right) {
        return true;
      }
    }
  }
  return false;
}

void ExpectApart(const std::vector<Area>& vAreas, const char* What) {
  for (std::size_t One = 0; One < vAreas.size(); ++One) {
    for (std::size_t Other = 0; Other < One; ++Other) {
      EXPECT_FALSE(Overlap(vAreas[One], vAreas[Other])) << What << ' ' << Other << ' ' << One;
    }
  }
}

bool IsBetweenRows(const Text& Which) {
  return Which.Role == TextRole::Feature || Which.Role == TextRole::Caption ||
         Which.Role == TextRole::Note;
}

void ExpectTextsInPlace(const Drawing& Shapes, const Measures& Units,
                        const std::vector<Area>& vBoxes) {
  const Area All{0, 0, Shapes.Width, Shapes.Height};
  for (const Text& Current : Shapes.vTexts) {
    const Area Here = AreaOf(Current);
    EXPECT_GE(Current.Width, Units.WidthOf(Current.Words, Current.Role)) << Current.Words;
    EXPECT_TRUE(IsWithin(Here, All)) << Current.Words;
    const auto IsAround = [&](const Area& Outer) { return IsWithin(Here, Outer); };
    const auto IsHit = [&](const Area& Other) { return Overlap(Here, Other); };
    EXPECT_EQ(std::any_of(vBoxes.begin(), vBoxes.end(), IsHit), !IsBetweenRows(Current));
    EXPECT_EQ(std::any_of(vBoxes.begin(), vBoxes.end(), IsAround), !IsBetweenRows(Current));
    for (const Line& Other : Shapes.vLines) {
      for (int At = 1; At < Other.Size; ++At) {
        EXPECT_FALSE(Overlap(Other.Points[At - 1], Other.Points[At], Here, Units.IsGrid))
            << Current.Words;
      }
    }
  }
}

/// No two lines run along each other: the arcs of one lane, or lines on a grid.
void ExpectLinesApart(const Drawing& Shapes, bool IsGrid) {
  std::vector<Area> vLevel;
  std::vector<Area> vUpright;
  for (const Line& Current : Shapes.vLines) {
    for (int At = 1; At < Current.Size; ++At) {
      const Point& From = Current.Points[At - 1];
      const Point& To = Current.Points[At];
      if (From.Y == To.Y && (Current.IsArc || IsGrid)) {
        vLevel.push_back({std::min(From.X, To.X), From.Y, std::max(From.X, To.X) + 1, From.Y + 1});
      } else if (From.X == To.X) {
        vUpright.push_back({From.X, std::min(From.Y, To.Y), From.X + 1, std::max(From.Y, To.Y)});
      }
    }
  }
  ExpectApart(vLevel, "level lines");
  ExpectApart(vUpright, "upright lines");
}

void ExpectNothingOverlaps(const Drawing& Shapes, const Measures& Units) {
  std::vector<Area> vBoxes;
  std::vector<Area> vTags;
  for (const Box& Current : Shapes.vBoxes) {
    if (Current.Shape == BoxShape::Component || Current.Shape == BoxShape::Own) {
      vBoxes.push_back(AreaOf(Current));
    } else if (Current.Shape == BoxShape::Tag) {
      vTags.push_back(AreaOf(Current));
    }
  }
  std::vector<Area> vTexts;
  for (const Text& Current : Shapes.vTexts) {
    vTexts.push_back(AreaOf(Current));
  }
  ExpectApart(vBoxes, "boxes");
  ExpectApart(vTags, "tags");
  ExpectApart(vTexts, "texts");
  ExpectTextsInPlace(Shapes, Units, vBoxes);
  ExpectLinesApart(Shapes, Units.IsGrid);
}

/// The alignments and constraints of a rule, by line and text.
using Lines = std::vector<std::pair<std::string, std::string>>;

Lines LinesOf(const Grammar::SourceRule& Rule, bool AreConstraints) {
  Lines vLines;
  const auto Add = [&](std::size_t Line) {
    vLines.emplace_back(std::to_string(Rule.Text().FirstLine + Line), ShownText(Rule.CodeOf(Line)));
  };
  if (AreConstraints) {
    for (const auto& Current : Rule.Constraints()) {
      Add(Current.Line);
    }
  } else {
    for (const auto& Current : Rule.Alignments()) {
      Add(Current.Line);
    }
  }
  for (const auto& Current : Rule.BrokenLines()) {
    if ((Current.Kind == Grammar::LineKind::Constraint) == AreConstraints) {
      Add(Current.Line);
    }
  }
  std::sort(vLines.begin(), vLines.end());
  return vLines;
}

/// The same, read back from the picture. Each has something to see.
Lines LinesOf(const XmlElement& Svg, const std::string& Attribute) {
  Lines vLines;
  for (const XmlElement* Current : ElementsOf(Svg, "g")) {
    const auto Code = Current->ssAttributes.find(Attribute);
    if (Code != Current->ssAttributes.end()) {
      vLines.emplace_back(Current->ssAttributes.at("data-line"), Code->second);
      EXPECT_FALSE(Current->vChildren.empty()) << Code->second;
    }
  }
  std::sort(vLines.begin(), vLines.end());
  return vLines;
}

void ExpectWholePicture(const Grammar::SourceRule& Rule) {
  RulePicture Drawn;
  ASSERT_TRUE(Drawn.Read(Rule));
  std::string Written;
  Drawn.AppendSvg(false, Written);
  const XmlElement Svg = ReadXml(Written);
  EXPECT_EQ(UnknownIn(Svg), std::vector<std::string>{});
  EXPECT_EQ(LinesOf(Svg, "data-constraint"), LinesOf(Rule, true));
  EXPECT_EQ(LinesOf(Svg, "data-alignment"), LinesOf(Rule, false));
}

/// How many rules: TRRULE_TEST_PICTURES, or what takes two seconds.
int CountOfRules() {
  const char* Given = std::getenv("TRRULE_TEST_PICTURES");
  return Given == nullptr ? 1000 : std::atoi(Given);
}

}  // namespace

TEST(RandomPictures, HaveEachLineOnceAndNothingOverlaps) {
  RandomInput Random;
  RuleLayout InSvg(SvgMeasures());
  RuleLayout InCells(TerminalMeasures());
  Drawing Shapes;
  for (int Count = CountOfRules(); Count > 0 && !HasFailure(); --Count) {
    const std::string Text = RandomRuleText(Random);
    SCOPED_TRACE(Text);
    const ReadRuleText Rule(Text);
    const RuleParts Parts = Rule.Parts();
    ASSERT_TRUE(InSvg.Draw(Parts, Shapes));
    ExpectNothingOverlaps(Shapes, SvgMeasures());
    ASSERT_TRUE(InCells.Draw(Parts, Shapes, 4000));
    ExpectNothingOverlaps(Shapes, TerminalMeasures());
    ExpectWholePicture(Rule.Rule());
  }
}

TEST(RandomPictures, AreNeverWiderThanTheTerminal) {
  RandomInput Random;
  for (int Count = CountOfRules(); Count > 0 && !HasFailure(); --Count) {
    const std::string Text = RandomRuleText(Random);
    SCOPED_TRACE(Text);
    const int Width = 20 + static_cast<int>(Random.Below(100));
    std::string Drawn = TextPictureOf(Text, Width, Random.Below(2) == 0);
    ASSERT_FALSE(Drawn.empty());
    while (!Drawn.empty()) {
      const std::size_t End = Drawn.find('\n');
      const std::string Line = Drawn.substr(0, End);
      EXPECT_LE(WidthAtTerminal(Line), Width) << Line;
      EXPECT_TRUE(Line.empty() || Line.back() != ' ') << Line;
      Drawn.erase(0, End + 1);
    }
  }
}
