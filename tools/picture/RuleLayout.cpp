// Sections: widths, arcs, links, places, shapes, caption, the whole.

#include "RuleLayout.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace Picture {

namespace {

constexpr std::size_t Source = 0;
constexpr std::size_t Target = 1;

constexpr int Even(int Number) {
  return Number + Number % 2;
}

constexpr int Half(int Number) {
  return (Number + 1) / 2;
}

}  // namespace

// ---- Widths -----------------------------------------------------------------------------------

void RuleLayout::MeasureBoxes() {
  vSlots.assign(std::max(Rule->Components[Source].size(), Rule->Components[Target].size()), Slot());
  for (const std::size_t Side : {Source, Target}) {
    std::size_t MostTags = 0;
    const std::vector<Component>& vComponents = Rule->Components[Side];
    for (std::size_t Index = 0; Index < vComponents.size(); ++Index) {
      const Component& Current = vComponents[Index];
      int Width = std::max(
          Units.WidthOf(Current.Label, Current.IsLiteral ? TextRole::Literal : TextRole::Label),
          Units.WidthOf(Current.Name, TextRole::Index));
      for (const Tag& CurrentTag : Current.vTags) {
        Width = std::max(Width, Units.WidthOf(CurrentTag.Words, TextRole::Value) +
                                    (Units.IsGrid ? 0 : Units.PadX));
      }
      vSlots[Index].Width[Side] = Even(Width + 2 * Units.PadX);
      MostTags = std::max(MostTags, Current.vTags.size());
    }
    BoxHeights[Side] = 2 * Units.PadY + Units.LabelHeight + Units.IndexHeight +
                       static_cast<int>(MostTags) * Units.TagHeight;
  }
}

// ---- Arcs -------------------------------------------------------------------------------------

/// The arcs of a side, short ones first, and their lanes: each arc is above all that it covers and
/// that come before it.
void RuleLayout::FindArcs(std::size_t Side) {
  const std::vector<Tie>& vTies = Rule->Agreements[Side];
  vOrder.resize(vTies.size());
  for (std::uint32_t Index = 0; Index < vOrder.size(); ++Index) {
    vOrder[Index] = Index;
  }
  const auto Span = [&](std::uint32_t Index) { return vTies[Index].Second - vTies[Index].First; };
  std::stable_sort(vOrder.begin(), vOrder.end(),
                   [&](std::uint32_t One, std::uint32_t Other) { return Span(One) < Span(Other); });
  vHeights.assign(vSlots.size(), 0);
  vArcs[Side].clear();
  Lanes[Side] = 0;
  for (const std::uint32_t Index : vOrder) {
    const Tie& Current = vTies[Index];
    Arc& New = vArcs[Side].emplace_back();
    New.Agreement = &Current;
    New.Width = Units.WidthOf(Current.Words, TextRole::Feature);
    New.Gap = (Current.First + Current.Second - 1) / 2;
    const auto First = vHeights.begin() + Current.First;
    const auto Last = vHeights.begin() + Current.Second;
    New.Lane = *std::max_element(First, Last);
    std::fill(First, Last, New.Lane + 1);
    Lanes[Side] = std::max(Lanes[Side], New.Lane + 1);
  }
}

/// Gives each end of an arc its port, counted from the centre of its slot. At a box, arcs that come
/// from the left end first, short ones before long ones; then those begin that go to the right,
/// long ones first.
void RuleLayout::OrderArcs(std::size_t Side) {
  vEnds.clear();
  for (std::uint32_t Index = 0; Index < vArcs[Side].size(); ++Index) {
    const Tie& Ends = *vArcs[Side][Index].Agreement;
    const std::uint32_t Span = Ends.Second - Ends.First;
    vEnds.push_back({Ends.First, true, Span, Index});
    vEnds.push_back({Ends.Second, false, Span, Index});
  }
  std::sort(vEnds.begin(), vEnds.end(), [](const ArcEnd& One, const ArcEnd& Other) {
    if (One.Slot != Other.Slot || One.IsLeft != Other.IsLeft) {
      return std::tie(One.Slot, One.IsLeft) < std::tie(Other.Slot, Other.IsLeft);
    }
    const ArcEnd& Short = One.IsLeft ? Other : One;
    const ArcEnd& Long = One.IsLeft ? One : Other;
    return std::tie(Short.Span, Short.Arc) < std::tie(Long.Span, Long.Arc);
  });
  for (std::size_t Begin = 0; Begin < vEnds.size();) {
    Slot& At = vSlots[vEnds[Begin].Slot];
    std::size_t End = Begin;
    while (End < vEnds.size() && vEnds[End].Slot == vEnds[Begin].Slot) {
      ++End;
    }
    const int Reach = Half(static_cast<int>(End - Begin - 1) * Units.PortStep);
    for (std::size_t Current = Begin; Current < End; ++Current) {
      Arc& Ended = vArcs[Side][vEnds[Current].Arc];
      (vEnds[Current].IsLeft ? Ended.LeftPort : Ended.RightPort) =
          static_cast<int>(Current - Begin) * Units.PortStep - Reach;
    }
    At.ArcReach[Side] = Reach;
    At.Width[Side] = std::max(At.Width[Side], Even(2 * Reach + 2 * Units.PadX));
    Begin = End;
  }
}

// ---- Links ------------------------------------------------------------------------------------

/// One link for each alignment, and one for all that passes between two nodes.
void RuleLayout::FindLinks() {
  vLinks.clear();
  StackSize = 0;
  for (const Tie& Current : Rule->vAlignments) {
    Link& New = vLinks.emplace_back();
    New.X = Current.First;
    New.Y = Current.Second;
    New.Alignment = &Current;
  }
  vTransfers = Rule->vTransfers;
  std::stable_sort(vTransfers.begin(), vTransfers.end(), [](const Tie& One, const Tie& Other) {
    return std::tie(One.First, One.Second) < std::tie(Other.First, Other.Second);
  });
  for (std::size_t Begin = 0; Begin < vTransfers.size();) {
    Link& New = vLinks.emplace_back();
    New.X = vTransfers[Begin].First;
    New.Y = vTransfers[Begin].Second;
    New.Begin = New.End = Begin;
    while (New.End < vTransfers.size() && vTransfers[New.End].First == New.X &&
           vTransfers[New.End].Second == New.Y) {
      New.TextWidth =
          std::max(New.TextWidth, Units.WidthOf(vTransfers[New.End].Words, TextRole::Feature));
      ++New.End;
    }
    StackSize = std::max(StackSize, New.End - New.Begin);
    Begin = New.End;
  }
}

/// Gives each end of a link its port, counted from the centre of its slot. Below a text the ports
/// lie further apart.
void RuleLayout::OrderLinks() {
  const auto Place = [&](std::size_t Side, std::size_t Begin, std::size_t End) {
    const std::uint32_t At = Side == Source ? vLinks[Begin].X : vLinks[Begin].Y;
    int Width = 0;
    for (std::size_t Current = Begin; Current < End; ++Current) {
      Link& Placed = vLinks[Current];
      (Side == Source ? Placed.TopPort : Placed.BottomPort) = Width;
      if (Current + 1 < End) {
        Width +=
            Units.PortStep +
            (Side == Target && Placed.TextWidth > 0 ? Even(Placed.TextWidth + Units.TextGap) : 0);
      } else if (Side == Target && Placed.TextWidth > 0) {
        vSlots[At].LinkText = Placed.TextWidth + Units.TextGap;
      }
    }
    const int Reach = Even(Half(Width));
    for (std::size_t Current = Begin; Current < End; ++Current) {
      (Side == Source ? vLinks[Current].TopPort : vLinks[Current].BottomPort) -= Reach;
    }
    vSlots[At].LinkReach[Side] = Reach;
    vSlots[At].Width[Side] = std::max(vSlots[At].Width[Side], Even(2 * Reach + 2 * Units.PadX));
  };
  for (const std::size_t Side : {Source, Target}) {
    std::stable_sort(vLinks.begin(), vLinks.end(), [&](const Link& One, const Link& Other) {
      return Side == Source ? std::tie(One.X, One.Y) < std::tie(Other.X, Other.Y)
                            : std::tie(One.Y, One.X) < std::tie(Other.Y, Other.X);
    });
    for (std::size_t Begin = 0; Begin < vLinks.size();) {
      std::size_t End = Begin + 1;
      while (End < vLinks.size() && (Side == Source ? vLinks[End].X == vLinks[Begin].X
                                                    : vLinks[End].Y == vLinks[Begin].Y)) {
        ++End;
      }
      Place(Side, Begin, End);
      Begin = End;
    }
  }
}

// ---- Places -----------------------------------------------------------------------------------

/// Puts the slots side by side, so far apart that the texts between them have room.
void RuleLayout::PlaceSlots() {
  // Of the texts of the arcs after each slot, by side.
  std::vector<std::array<int, 2>> vTextWidths(vSlots.size());
  for (const std::size_t Side : {Source, Target}) {
    for (const Arc& Current : vArcs[Side]) {
      int& Width = vTextWidths[Current.Gap][Side];
      Width = std::max(Width, Current.Width + 4 * Units.TextGap);
    }
  }
  const auto HalfWidth = [&](const Slot& Place) {
    return Half(std::max(Place.Width[0], Place.Width[1]));
  };
  vSlots.front().Centre = Units.Margin + Even(HalfWidth(vSlots.front()));
  for (std::size_t Index = 1; Index < vSlots.size(); ++Index) {
    const Slot& Before = vSlots[Index - 1];
    const Slot& Here = vSlots[Index];
    int Distance =
        HalfWidth(Before) + HalfWidth(Here) + Units.Gap + (Index == 1 ? Units.OwnGap : 0);
    for (const std::size_t Side : {Source, Target}) {
      Distance = std::max(
          Distance, Before.ArcReach[Side] + vTextWidths[Index - 1][Side] + Here.ArcReach[Side]);
    }
    Distance = std::max(Distance, Before.LinkReach[Target] + Before.LinkText + 2 * Units.PortStep +
                                      Here.LinkReach[Target]);
    vSlots[Index].Centre = Before.Centre + Even(Distance);
  }
  const Slot& Last = vSlots.back();
  Right = Last.Centre + HalfWidth(Last) + (Units.IsGrid ? 1 : 0);
  for (const Slot& Current : vSlots) {
    Right = std::max(
        Right, Current.Centre + Current.LinkReach[Target] + Current.LinkText + Units.PortStep);
  }
}

/// Counts all ports from the left edge. On a grid no two links share a column, unless one begins
/// right above its end: those of the source side are even, those of the target side odd.
void RuleLayout::ShiftPorts() {
  for (const std::size_t Side : {Source, Target}) {
    for (Arc& Current : vArcs[Side]) {
      Current.LeftPort += vSlots[Current.Agreement->First].Centre;
      Current.RightPort += vSlots[Current.Agreement->Second].Centre;
    }
  }
  for (Link& Current : vLinks) {
    Current.TopPort += vSlots[Current.X].Centre;
    Current.BottomPort += vSlots[Current.Y].Centre;
    if (Units.IsGrid && Current.TopPort != Current.BottomPort) {
      ++Current.BottomPort;
    }
  }
}

/// On a grid each link that does not go straight down has a row in which it goes to the side.
void RuleLayout::FindTracks() {
  TrackCount = 0;
  if (!Units.IsGrid) {
    return;
  }
  vHeights.assign(static_cast<std::size_t>(Right) + 2, 0);
  for (Link& Current : vLinks) {
    if (Current.TopPort == Current.BottomPort) {
      continue;
    }
    const auto First = vHeights.begin() + std::min(Current.TopPort, Current.BottomPort);
    const auto Last = vHeights.begin() + std::max(Current.TopPort, Current.BottomPort) + 1;
    const std::uint32_t Track = *std::max_element(First, Last);
    std::fill(First, Last, Track + 1);
    Current.Track = static_cast<int>(Track);
    TrackCount = std::max(TrackCount, Current.Track + 1);
  }
}

void RuleLayout::FindHeights() {
  const auto ArcHeight = [&](std::size_t Side) {
    return Lanes[Side] == 0
               ? 0
               : Units.FirstLane + static_cast<int>(Lanes[Side] - 1) * Units.LaneHeight +
                     Units.FeatureHeight / 2;
  };
  int Widest = 0;
  for (const Link& Current : vLinks) {
    Widest = std::max(Widest, std::abs(Current.TopPort - Current.BottomPort));
  }
  Zone = Units.IsGrid ? std::max(TrackCount, Units.MinZone)
                      : std::min(std::max(Widest / 4, Units.MinZone), Units.MaxZone);
  Tops[Source] = Units.Margin + ArcHeight(Source);
  const int Stack = static_cast<int>(StackSize) * Units.FeatureHeight;
  const int Pads = Units.IsGrid || StackSize == 0 ? 0 : Units.TextGap;
  Tops[Target] = Tops[Source] + BoxHeights[Source] + Zone + Stack + Pads;
  Result->Height = Tops[Target] + BoxHeights[Target] + ArcHeight(Target);
}

// ---- Shapes -----------------------------------------------------------------------------------

void RuleLayout::AddText(std::string_view Words, Point Corner, int Width, int Height, TextRole Role,
                         bool IsCentred) {
  Result->vTexts.push_back({std::string(Words), Corner, Width, Height, Role, IsCentred});
}

void RuleLayout::AddBoxes(std::size_t Side) {
  for (std::size_t Index = 0; Index < Rule->Components[Side].size(); ++Index) {
    AddBox(Side, Index);
  }
}

void RuleLayout::AddBox(std::size_t Side, std::size_t Index) {
  const Component& Current = Rule->Components[Side][Index];
  const int Width = vSlots[Index].Width[Side];
  Box New;
  New.Corner = {vSlots[Index].Centre - Width / 2, Tops[Side]};
  New.Width = Width + (Units.IsGrid ? 1 : 0);
  New.Height = BoxHeights[Side];
  New.Shape = Index == 0 ? BoxShape::Own : BoxShape::Component;
  New.IsDashed = Current.IsUnaligned;
  const int Inner = New.Width - 2 * Units.PadX;
  const Point Inside{New.Corner.X + Units.PadX, New.Corner.Y + Units.PadY};
  Result->Begin({SubjectKind::Component, 0, Current.Name});
  Result->vBoxes.push_back(New);
  AddText(Current.Label, Inside, Inner, Units.LabelHeight,
          Current.IsLiteral ? TextRole::Literal : TextRole::Label);
  AddText(Current.Name, {Inside.X, Inside.Y + Units.LabelHeight}, Inner, Units.IndexHeight,
          TextRole::Index);
  if (Current.IsHead) {
    Result->Begin({SubjectKind::Constraint, Current.HeadFrom.Line, Current.HeadFrom.Code});
    const int Inset = Units.FrameInset;
    New.Shape = BoxShape::Frame;
    New.Corner = {New.Corner.X + Inset, New.Corner.Y + Inset};
    New.Width -= 2 * Inset;
    New.Height -= 2 * Inset;
    Result->vBoxes.push_back(New);
  }
  AddTags(Current, {Inside.X, Inside.Y + Units.LabelHeight + Units.IndexHeight}, Inner);
}

void RuleLayout::AddTags(const Component& Owner, Point Corner, int Width) {
  for (const Tag& Current : Owner.vTags) {
    Result->Begin({SubjectKind::Constraint, Current.From.Line, Current.From.Code});
    if (!Units.IsGrid) {
      Box Around;
      Around.Corner = {Corner.X, Corner.Y + Units.TagGap};
      Around.Width = Width;
      Around.Height = Units.TagHeight - Units.TagGap;
      Around.Shape = BoxShape::Tag;
      Result->vBoxes.push_back(Around);
    }
    AddText(Current.Words, {Corner.X, Corner.Y + Units.TagGap}, Width,
            Units.TagHeight - Units.TagGap, TextRole::Value);
    Corner.Y += Units.TagHeight;
  }
}

/// An arc goes from a box into its lane, up to its text, and from there to the other box.
void RuleLayout::AddArcs(std::size_t Side) {
  const int Edge = Side == Source ? Tops[Source] : BottomEdge(Target);
  const int Up = Side == Source ? -1 : 1;
  for (const Arc& Current : vArcs[Side]) {
    const int Lane =
        Edge + Up * (Units.FirstLane + static_cast<int>(Current.Lane) * Units.LaneHeight);
    const int Begin = vSlots[Current.Gap].Centre + vSlots[Current.Gap].ArcReach[Side];
    const int End = vSlots[Current.Gap + 1].Centre - vSlots[Current.Gap + 1].ArcReach[Side];
    const int Left = (Begin + End - Current.Width) / 2;
    const int After = Left + Current.Width;
    Result->Begin(
        {SubjectKind::Constraint, Current.Agreement->From.Line, Current.Agreement->From.Code});
    // On a grid, lines end within their last cell.
    const int Near = Units.TextGap - (Units.IsGrid ? 1 : 0);
    Result->vLines.push_back(
        {{{Current.LeftPort, Edge}, {Current.LeftPort, Lane}, {Left - Units.TextGap, Lane}, {}},
         3,
         false,
         true});
    Result->vLines.push_back(
        {{{Current.RightPort, Edge}, {Current.RightPort, Lane}, {After + Near, Lane}, {}},
         3,
         false,
         true});
    AddText(Current.Agreement->Words, {Left, Lane - Units.FeatureHeight / 2}, Current.Width,
            Units.FeatureHeight, TextRole::Feature);
  }
}

void RuleLayout::AddLinkTexts(const Link& Owner, int Port) {
  int Top = BottomEdge(Source) + Zone + (Units.IsGrid ? 1 : 0);
  for (std::size_t Current = Owner.Begin; Current < Owner.End; ++Current) {
    const Tie& Transfer = vTransfers[Current];
    if (Current > Owner.Begin) {
      Result->Begin({SubjectKind::Constraint, Transfer.From.Line, Transfer.From.Code});
    }
    AddText(Transfer.Words, {Port + Units.TextGap, Top},
            Units.WidthOf(Transfer.Words, TextRole::Feature), Units.FeatureHeight,
            TextRole::Feature, false);
    Top += Units.FeatureHeight;
  }
}

void RuleLayout::AddLinks() {
  const int Top = BottomEdge(Source);
  const int Bottom = Tops[Target];
  for (const Link& Current : vLinks) {
    const Origin& From =
        Current.Alignment != nullptr ? Current.Alignment->From : vTransfers[Current.Begin].From;
    Result->Begin({Current.Alignment != nullptr ? SubjectKind::Alignment : SubjectKind::Constraint,
                   From.Line, From.Code});
    Line New;
    New.IsDashed = Current.Alignment == nullptr;
    const auto Add = [&](int X, int Y) { New.Points[New.Size++] = {X, Y}; };
    Add(Current.TopPort, Top);
    if (Current.TopPort != Current.BottomPort) {
      const int Turn = Top + (Units.IsGrid ? 1 + Current.Track : Zone);
      if (Units.IsGrid) {
        Add(Current.TopPort, Turn);
      }
      Add(Current.BottomPort, Turn);
    }
    if (Units.IsGrid || StackSize > 0 || Current.TopPort == Current.BottomPort) {
      Add(Current.BottomPort, Bottom);
    }
    Result->vLines.push_back(New);
    AddLinkTexts(Current, Current.BottomPort);
  }
}

// ---- Caption ----------------------------------------------------------------------------------

namespace {

std::string CaptionOf(const RuleParts& Rule) {
  std::string Caption = Rule.Name + ", " + Rule.Types;
  if (Rule.Count > 1) {
    Caption += ", " + std::to_string(Rule.Count) + " examples";
  }
  return Caption;
}

}  // namespace

void RuleLayout::AddWrapped(const Subject& Shown, std::string_view Words, TextRole Role,
                            int MaxWidth, int& TopReturn) {
  Result->Begin(Shown);
  for (const std::string& sLine : Units.Wrapped(Words, Role, MaxWidth)) {
    const int Width = Units.WidthOf(sLine, Role);
    AddText(sLine, {Units.Margin, TopReturn}, Width, Units.CaptionHeight, Role, false);
    Right = std::max(Right, Units.Margin + Width);
    TopReturn += Units.CaptionHeight;
  }
}

/// What cannot be drawn stands below the caption, each in a line of its own.
void RuleLayout::AddCaption() {
  constexpr int UsualWidth = 480;
  const int MaxWidth =
      Limit > 0 ? Limit - 2 * Units.Margin : std::max(Right - Units.Margin, UsualWidth);
  int Top = Result->Height + Units.CaptionGap;
  const Subject Caption;
  AddWrapped(Caption, CaptionOf(*Rule), TextRole::Caption, MaxWidth, Top);
  for (const std::string* sExample : {&Rule->SourceExample, &Rule->TargetExample}) {
    if (!sExample->empty()) {
      AddWrapped(Caption, *sExample, TextRole::Caption, MaxWidth, Top);
    }
  }
  for (const Note& Current : Rule->vNotes) {
    AddWrapped({Current.IsConstraint ? SubjectKind::Constraint : SubjectKind::Alignment,
                Current.From.Line, Current.From.Code},
               Current.Words, TextRole::Note, MaxWidth, Top);
  }
  Result->Height = Top + Units.Margin;
}

// ---- The whole --------------------------------------------------------------------------------

bool RuleLayout::Draw(const RuleParts& Parts, Drawing& DrawingReturn, int MaxWidth) {
  Rule = &Parts;
  Result = &DrawingReturn;
  Limit = MaxWidth;
  Result->Clear();
  MeasureBoxes();
  for (const std::size_t Side : {Source, Target}) {
    FindArcs(Side);
    OrderArcs(Side);
  }
  FindLinks();
  OrderLinks();
  PlaceSlots();
  if (MaxWidth > 0 && Right + Units.Margin > MaxWidth) {
    return false;
  }
  ShiftPorts();
  FindTracks();
  FindHeights();
  AddArcs(Source);
  AddBoxes(Source);
  AddLinks();
  AddBoxes(Target);
  AddArcs(Target);
  AddCaption();
  Result->End();
  Result->Width = Right + Units.Margin;
  return true;
}

}  // namespace Picture
