// Sections: widths, places, shapes, the whole.

#include "TreeLayout.h"

#include <algorithm>

namespace Picture {

namespace {

constexpr std::size_t Source = 0;
constexpr std::size_t Target = 1;

}  // namespace

// ---- Widths -----------------------------------------------------------------------------------

int TreeLayout::BoxWidth(std::size_t Side, std::size_t Constituent) const {
  const TreeConstituent& Shown = Pair->vConstituents[Constituent];
  int Width = std::max(Units.WidthOf(Shown.Types[Side], TextRole::Label),
                       Units.WidthOf(vsNames[Constituent], TextRole::Index));
  for (const std::string& sNote : Shown.Notes[Side]) {
    Width = std::max(Width, Units.WidthOf(sNote, TextRole::Value));
  }
  return Width + 2 * Units.PadX;
}

/// An item is as wide as its own text, or as all that is below it. Children come after parents.
void TreeLayout::MeasureItems(std::size_t Side) {
  const std::vector<TreeItem>& vItems = Pair->Items[Side];
  std::vector<Place>& vPlaces = Places[Side];
  vPlaces.assign(vItems.size(), Place());
  Depths[Side] = 1;
  for (std::size_t Item = 1; Item < vItems.size(); ++Item) {
    vPlaces[Item].Depth = vPlaces[vItems[Item].Parent].Depth + 1;
    Depths[Side] = std::max(Depths[Side], vPlaces[Item].Depth + (vItems[Item].IsWord ? 0 : 1));
  }
  for (std::size_t Item = vItems.size(); Item-- > 0;) {
    const TreeItem& Current = vItems[Item];
    Place& Here = vPlaces[Item];
    if (Current.IsWord) {
      Here.Own = std::max(Units.WidthOf(Current.Word, TextRole::Literal), Units.PortStep);
    } else {
      Here.Own = BoxWidth(Side, Current.Constituent);
    }
    // Even, so that what stands above each other has one middle.
    Here.Own += Here.Own % 2;
    Here.Width = std::max(Here.Own, Here.Below);
    if (Current.Parent != TreeItem::NoParent) {
      Place& Above = vPlaces[Current.Parent];
      Above.Below += Here.Width + (Above.Below > 0 ? Units.Gap : 0);
    }
  }
}

// ---- Places -----------------------------------------------------------------------------------

/// Children share the stretch of their parent, around its middle.
void TreeLayout::PlaceItems(std::size_t Side, int Width) {
  std::vector<Place>& vPlaces = Places[Side];
  for (std::size_t Item = 0; Item < vPlaces.size(); ++Item) {
    Place& Here = vPlaces[Item];
    if (Item == 0) {
      Here.Left = Units.Margin + (Width - Here.Width) / 2;
    } else {
      Place& Above = vPlaces[Pair->Items[Side][Item].Parent];
      Here.Left = Above.NextLeft;
      Above.NextLeft += Here.Width + Units.Gap;
    }
    Here.NextLeft = Here.Left + (Here.Width - Here.Below) / 2;
  }
}

/// All levels of a tree are as high as the one with the most notes needs.
void TreeLayout::MeasureLevels(std::size_t Side) {
  std::size_t Most = 0;
  for (const TreeConstituent& Current : Pair->vConstituents) {
    Most = std::max(Most, Current.Notes[Side].size());
  }
  Levels[Side] = Units.LevelHeight + static_cast<int>(Most) * Units.TagHeight;
}

int TreeLayout::HeightOf(std::size_t Side, const TreeItem& Item) const {
  if (Item.IsWord) {
    return Units.LabelHeight;
  }
  const std::size_t Notes = Pair->vConstituents[Item.Constituent].Notes[Side].size();
  return 2 * Units.PadY + Units.LabelHeight + Units.IndexHeight +
         static_cast<int>(Notes) * Units.TagHeight;
}

/// Words stand in one row; the target tree is turned upside down.
int TreeLayout::TopOf(std::size_t Side, std::size_t Item) const {
  const TreeItem& Current = Pair->Items[Side][Item];
  const std::size_t Level = Current.IsWord ? Depths[Side] : Places[Side][Item].Depth;
  const int Top = Units.Margin + static_cast<int>(Level) * Levels[Side];
  return Side == Source ? Top : Height - Top - HeightOf(Side, Current);
}

// ---- Shapes -----------------------------------------------------------------------------------

/// A branch is slanted between its parent and the next level, and goes straight on from there.
void TreeLayout::AddBranch(std::size_t Side, std::size_t Item) {
  const TreeItem& Current = Pair->Items[Side][Item];
  if (Current.Parent == TreeItem::NoParent) {
    return;
  }
  const TreeItem& Above = Pair->Items[Side][Current.Parent];
  const int Down = Side == Source ? 1 : -1;
  const int From = TopOf(Side, Current.Parent) + (Side == Source ? HeightOf(Side, Above) : 0);
  const int Turn = From + Down * (Levels[Side] - HeightOf(Side, Above));
  const int To = TopOf(Side, Item) + (Side == Source ? 0 : HeightOf(Side, Current));
  const int X = Places[Side][Item].Centre();
  Line New;
  New.Points[0] = {Places[Side][Current.Parent].Centre(), From};
  New.Points[1] = {X, Turn};
  New.Points[2] = {X, To};
  New.Size = 3;
  Result->vLines.push_back(New);
}

/// The second frame of a box, within it.
void TreeLayout::AddFrame(Box Around) {
  Around.Corner.X += Units.FrameInset;
  Around.Corner.Y += Units.FrameInset;
  Around.Width -= 2 * Units.FrameInset;
  Around.Height -= 2 * Units.FrameInset;
  Around.Shape = BoxShape::Frame;
  Result->vBoxes.push_back(Around);
}

void TreeLayout::AddBox(std::size_t Side, std::size_t Item) {
  const TreeItem& Current = Pair->Items[Side][Item];
  const Place& Here = Places[Side][Item];
  const int Left = Here.Centre() - Here.Own / 2;
  const int Top = TopOf(Side, Item);
  if (Current.IsWord) {
    Result->vTexts.push_back(
        {Current.Word, {Left, Top}, Here.Own, Units.LabelHeight, TextRole::Literal, true});
    return;
  }
  const TreeConstituent& Shown = Pair->vConstituents[Current.Constituent];
  Box New;
  New.Corner = {Left, Top};
  New.Width = Here.Own;
  New.Height = HeightOf(Side, Current);
  New.IsDashed = Shown.IsDashed;
  Result->vBoxes.push_back(New);
  if (Shown.IsMarked) {
    AddFrame(New);
  }
  int Line = Top + Units.PadY;
  const auto AddText = [&](const std::string& Words, TextRole Role, int LineHeight) {
    Result->vTexts.push_back({Words, {Left, Line}, Here.Own, LineHeight, Role, true});
    Line += LineHeight;
  };
  AddText(Shown.Types[Side], TextRole::Label, Units.LabelHeight);
  AddText(vsNames[Current.Constituent], TextRole::Index, Units.IndexHeight);
  for (const std::string& sNote : Shown.Notes[Side]) {
    AddText(sNote, TextRole::Value, Units.TagHeight);
  }
}

void TreeLayout::AddItems(std::size_t Side) {
  for (std::size_t Item = 0; Item < Pair->Items[Side].size(); ++Item) {
    const TreeItem& Current = Pair->Items[Side][Item];
    Subject Shown;
    Shown.Kind = SubjectKind::Constituent;
    Shown.Line = Current.Constituent + 1;
    Shown.Code =
        Current.IsWord ? std::string_view() : Pair->vConstituents[Current.Constituent].Details;
    Result->Begin(Shown);
    AddBranch(Side, Item);
    AddBox(Side, Item);
  }
}

/// Joins the words of each constituent that is nothing but words: the middle of those above with
/// the middle of those below, as often as they are written there.
void TreeLayout::AddJoints() {
  std::vector<int> vTops(Pair->vConstituents.size(), -1);
  for (std::size_t Item = 0; Item < Pair->Items[Source].size(); ++Item) {
    const TreeItem& Current = Pair->Items[Source][Item];
    if (!Current.IsWord && !Pair->vConstituents[Current.Constituent].HasParts) {
      vTops[Current.Constituent] = Places[Source][Item].Centre();
    }
  }
  for (std::size_t Item = 0; Item < Pair->Items[Target].size(); ++Item) {
    const TreeItem& Current = Pair->Items[Target][Item];
    const bool HasWords = Places[Target][Item].Below > 0;
    if (Current.IsWord || !HasWords || vTops[Current.Constituent] < 0) {
      continue;
    }
    Subject Shown;
    Shown.Kind = SubjectKind::Constituent;
    Shown.Line = Current.Constituent + 1;
    Result->Begin(Shown);
    const int Words = Units.Margin + static_cast<int>(Depths[Source]) * Levels[Source];
    Line New;
    New.Points[0] = {vTops[Current.Constituent], Words + Units.LabelHeight};
    New.Points[1] = {Places[Target][Item].Centre(),
                     Height - Units.Margin - static_cast<int>(Depths[Target]) * Levels[Target] -
                         Units.LabelHeight};
    New.Size = 2;
    New.IsDashed = true;
    Result->vLines.push_back(New);
  }
}

// ---- The whole --------------------------------------------------------------------------------

void TreeLayout::Draw(const TreePair& Trees, Drawing& DrawingReturn) {
  Pair = &Trees;
  Result = &DrawingReturn;
  Result->Clear();
  vsNames.clear();
  for (const TreeConstituent& Current : Trees.vConstituents) {
    vsNames.push_back(std::to_string(vsNames.size() + 1) + ' ' + Current.Rule);
  }
  int Width = 0;
  for (const std::size_t Side : {Source, Target}) {
    MeasureItems(Side);
    MeasureLevels(Side);
    Width = std::max(Width, Places[Side].front().Width);
  }
  Height = 2 * (Units.Margin + Units.LabelHeight) + Units.MinZone;
  for (const std::size_t Side : {Source, Target}) {
    Height += static_cast<int>(Depths[Side]) * Levels[Side];
  }
  for (const std::size_t Side : {Source, Target}) {
    PlaceItems(Side, Width);
    AddItems(Side);
  }
  AddJoints();
  Result->End();
  Result->Width = Width + 2 * Units.Margin;
  Result->Height = Height;
}

}  // namespace Picture
