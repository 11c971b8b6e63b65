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
      const Component& Each = vComponents[Index];
      int Width =
          std::max(Units.WidthOf(Each.Label, Each.IsLiteral ? TextRole::Literal : TextRole::Label),
                   Units.WidthOf(Each.Name, TextRole::Index));
      for (const Tag& EachTag : Each.vTags) {
        Width = std::max(
            Width, Units.WidthOf(EachTag.Words, TextRole::Value) + (Units.IsGrid ? 0 : Units.PadX));
      }
      vSlots[Index].Width[Side] = Even(Width + 2 * Units.PadX);
      MostTags = std::max(MostTags, Each.vTags.size());
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
    const Tie& Each = vTies[Index];
    Arc& New = vArcs[Side].emplace_back();
    New.Of = &Each;
    New.Width = Units.WidthOf(Each.Words, TextRole::Feature);
    New.Gap = (Each.First + Each.Second - 1) / 2;
    const auto First = vHeights.begin() + Each.First;
    const auto Last = vHeights.begin() + Each.Second;
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
    const Tie& Of = *vArcs[Side][Index].Of;
    const std::uint32_t Span = Of.Second - Of.First;
    vEnds.push_back({Of.First, true, Span, Index});
    vEnds.push_back({Of.Second, false, Span, Index});
  }
  std::sort(vEnds.begin(), vEnds.end(), [](const ArcEnd& One, const ArcEnd& Other) {
    if (One.Slot != Other.Slot || One.IsLeft != Other.IsLeft) {
      return std::tie(One.Slot, One.IsLeft) < std::tie(Other.Slot, Other.IsLeft);
    }
    return (std::tie(One.Span, One.Arc) < std::tie(Other.Span, Other.Arc)) != One.IsLeft;
  });
  for (std::size_t Begin = 0; Begin < vEnds.size();) {
    Slot& At = vSlots[vEnds[Begin].Slot];
    std::size_t End = Begin;
    while (End < vEnds.size() && vEnds[End].Slot == vEnds[Begin].Slot) {
      ++End;
    }
    const int Reach = Half(static_cast<int>(End - Begin - 1) * Units.PortStep);
    for (std::size_t Each = Begin; Each < End; ++Each) {
      Arc& Of = vArcs[Side][vEnds[Each].Arc];
      (vEnds[Each].IsLeft ? Of.LeftPort : Of.RightPort) =
          static_cast<int>(Each - Begin) * Units.PortStep - Reach;
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
  for (const Tie& Each : Rule->vAlignments) {
    Link& New = vLinks.emplace_back();
    New.X = Each.First;
    New.Y = Each.Second;
    New.Alignment = &Each;
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
    for (std::size_t Each = Begin; Each < End; ++Each) {
      Link& Of = vLinks[Each];
      (Side == Source ? Of.TopPort : Of.BottomPort) = Width;
      if (Each + 1 < End) {
        Width += Units.PortStep +
                 (Side == Target && Of.TextWidth > 0 ? Even(Of.TextWidth + Units.TextGap) : 0);
      } else if (Side == Target && Of.TextWidth > 0) {
        vSlots[At].LinkText = Of.TextWidth + Units.TextGap;
      }
    }
    const int Reach = Even(Half(Width));
    for (std::size_t Each = Begin; Each < End; ++Each) {
      (Side == Source ? vLinks[Each].TopPort : vLinks[Each].BottomPort) -= Reach;
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
  std::vector<int> vTextWidths(vSlots.size() * 2, 0);  // of the arcs behind each slot, by side
  for (const std::size_t Side : {Source, Target}) {
    for (const Arc& Each : vArcs[Side]) {
      int& Width = vTextWidths[Each.Gap * 2 + Side];
      Width = std::max(Width, Each.Width + 4 * Units.TextGap);
    }
  }
  const auto HalfWidth = [&](const Slot& Of) { return Half(std::max(Of.Width[0], Of.Width[1])); };
  vSlots.front().Centre = Units.Margin + Even(HalfWidth(vSlots.front()));
  for (std::size_t Index = 1; Index < vSlots.size(); ++Index) {
    const Slot& Before = vSlots[Index - 1];
    const Slot& Here = vSlots[Index];
    int Distance =
        HalfWidth(Before) + HalfWidth(Here) + Units.Gap + (Index == 1 ? Units.OwnGap : 0);
    for (const std::size_t Side : {Source, Target}) {
      Distance = std::max(Distance, Before.ArcReach[Side] + vTextWidths[(Index - 1) * 2 + Side] +
                                        Here.ArcReach[Side]);
    }
    Distance = std::max(Distance, Before.LinkReach[Target] + Before.LinkText + 2 * Units.PortStep +
                                      Here.LinkReach[Target]);
    vSlots[Index].Centre = Before.Centre + Even(Distance);
  }
  const Slot& Last = vSlots.back();
  Right = Last.Centre + HalfWidth(Last) + (Units.IsGrid ? 1 : 0);
  for (const Slot& Each : vSlots) {
    Right = std::max(Right, Each.Centre + Each.LinkReach[Target] + Each.LinkText + Units.PortStep);
  }
}

/// Counts all ports from the left edge. On a grid no two links share a column, unless one begins
/// right above its end: those of the source side are even, those of the target side odd.
void RuleLayout::ShiftPorts() {
  for (const std::size_t Side : {Source, Target}) {
    for (Arc& Each : vArcs[Side]) {
      Each.LeftPort += vSlots[Each.Of->First].Centre;
      Each.RightPort += vSlots[Each.Of->Second].Centre;
    }
  }
  for (Link& Each : vLinks) {
    Each.TopPort += vSlots[Each.X].Centre;
    Each.BottomPort += vSlots[Each.Y].Centre;
    if (Units.IsGrid && Each.TopPort != Each.BottomPort) {
      ++Each.BottomPort;
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
  for (Link& Each : vLinks) {
    if (Each.TopPort == Each.BottomPort) {
      continue;
    }
    const auto First = vHeights.begin() + std::min(Each.TopPort, Each.BottomPort);
    const auto Last = vHeights.begin() + std::max(Each.TopPort, Each.BottomPort) + 1;
    const std::uint32_t Track = *std::max_element(First, Last);
    std::fill(First, Last, Track + 1);
    Each.Track = static_cast<int>(Track);
    TrackCount = std::max(TrackCount, Each.Track + 1);
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
  for (const Link& Each : vLinks) {
    Widest = std::max(Widest, std::abs(Each.TopPort - Each.BottomPort));
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
  const Component& Each = Rule->Components[Side][Index];
  const int Width = vSlots[Index].Width[Side];
  Box New;
  New.Corner = {vSlots[Index].Centre - Width / 2, Tops[Side]};
  New.Width = Width + (Units.IsGrid ? 1 : 0);
  New.Height = BoxHeights[Side];
  New.Shape = Index == 0 ? BoxShape::Own : BoxShape::Component;
  New.IsDashed = Each.LacksPartner;
  const int Inner = New.Width - 2 * Units.PadX;
  const Point Inside{New.Corner.X + Units.PadX, New.Corner.Y + Units.PadY};
  Result->Begin({SubjectKind::Component, 0, Each.Name});
  Result->vBoxes.push_back(New);
  AddText(Each.Label, Inside, Inner, Units.LabelHeight,
          Each.IsLiteral ? TextRole::Literal : TextRole::Label);
  AddText(Each.Name, {Inside.X, Inside.Y + Units.LabelHeight}, Inner, Units.IndexHeight,
          TextRole::Index);
  if (Each.IsHead) {
    Result->Begin({SubjectKind::Constraint, Each.HeadFrom.Line, Each.HeadFrom.Code});
    const int Inset = Units.FrameInset;
    New.Shape = BoxShape::Frame;
    New.Corner = {New.Corner.X + Inset, New.Corner.Y + Inset};
    New.Width -= 2 * Inset;
    New.Height -= 2 * Inset;
    Result->vBoxes.push_back(New);
  }
  AddTags(Each, {Inside.X, Inside.Y + Units.LabelHeight + Units.IndexHeight}, Inner);
}

void RuleLayout::AddTags(const Component& Of, Point Corner, int Width) {
  for (const Tag& Each : Of.vTags) {
    Result->Begin({SubjectKind::Constraint, Each.From.Line, Each.From.Code});
    if (!Units.IsGrid) {
      Box Around;
      Around.Corner = {Corner.X, Corner.Y + Units.TagGap};
      Around.Width = Width;
      Around.Height = Units.TagHeight - Units.TagGap;
      Around.Shape = BoxShape::Tag;
      Result->vBoxes.push_back(Around);
    }
    AddText(Each.Words, {Corner.X, Corner.Y + Units.TagGap}, Width, Units.TagHeight - Units.TagGap,
            TextRole::Value);
    Corner.Y += Units.TagHeight;
  }
}

/// An arc goes from a box into its lane, up to its text, and from there to the other box.
void RuleLayout::AddArcs(std::size_t Side) {
  const int Edge = Side == Source ? Tops[Source] : BottomEdge(Target);
  const int Up = Side == Source ? -1 : 1;
  for (const Arc& Each : vArcs[Side]) {
    const int Lane = Edge + Up * (Units.FirstLane + static_cast<int>(Each.Lane) * Units.LaneHeight);
    const int Begin = vSlots[Each.Gap].Centre + vSlots[Each.Gap].ArcReach[Side];
    const int End = vSlots[Each.Gap + 1].Centre - vSlots[Each.Gap + 1].ArcReach[Side];
    const int Left = (Begin + End - Each.Width) / 2;
    const int After = Left + Each.Width;
    Result->Begin({SubjectKind::Constraint, Each.Of->From.Line, Each.Of->From.Code});
    // On a grid, lines end within their last cell.
    const int Near = Units.TextGap - (Units.IsGrid ? 1 : 0);
    Result->vLines.push_back(
        {{{Each.LeftPort, Edge}, {Each.LeftPort, Lane}, {Left - Units.TextGap, Lane}, {}},
         3,
         false,
         true});
    Result->vLines.push_back(
        {{{Each.RightPort, Edge}, {Each.RightPort, Lane}, {After + Near, Lane}, {}},
         3,
         false,
         true});
    AddText(Each.Of->Words, {Left, Lane - Units.FeatureHeight / 2}, Each.Width, Units.FeatureHeight,
            TextRole::Feature);
  }
}

void RuleLayout::AddLinkTexts(const Link& Of, int Port) {
  int Top = BottomEdge(Source) + Zone + (Units.IsGrid ? 1 : 0);
  for (std::size_t Each = Of.Begin; Each < Of.End; ++Each) {
    const Tie& Transfer = vTransfers[Each];
    if (Each > Of.Begin) {
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
  for (const Link& Each : vLinks) {
    const Origin& From =
        Each.Alignment != nullptr ? Each.Alignment->From : vTransfers[Each.Begin].From;
    Result->Begin({Each.Alignment != nullptr ? SubjectKind::Alignment : SubjectKind::Constraint,
                   From.Line, From.Code});
    Line New;
    New.IsDashed = Each.Alignment == nullptr;
    const auto Add = [&](int X, int Y) { New.Points[New.Size++] = {X, Y}; };
    Add(Each.TopPort, Top);
    if (Each.TopPort != Each.BottomPort) {
      const int Turn = Top + (Units.IsGrid ? 1 + Each.Track : Zone);
      if (Units.IsGrid) {
        Add(Each.TopPort, Turn);
      }
      Add(Each.BottomPort, Turn);
    }
    if (Units.IsGrid || StackSize > 0 || Each.TopPort == Each.BottomPort) {
      Add(Each.BottomPort, Bottom);
    }
    Result->vLines.push_back(New);
    AddLinkTexts(Each, Each.BottomPort);
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

void RuleLayout::AddWrapped(const Subject& Of, std::string_view Words, TextRole Role, int MaxWidth,
                            int& TopReturn) {
  Result->Begin(Of);
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
  for (const Note& Each : Rule->vNotes) {
    AddWrapped({Each.IsConstraint ? SubjectKind::Constraint : SubjectKind::Alignment,
                Each.From.Line, Each.From.Code},
               Each.Words, TextRole::Note, MaxWidth, Top);
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
