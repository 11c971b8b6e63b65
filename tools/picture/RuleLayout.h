#pragma once

#include "Drawing.h"
#include "Measures.h"
#include "RuleParts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Picture {

/// Finds a place for everything that a picture of a rule shows.
///
/// @code
/// RuleParts Parts;
/// ReadParts(Lines, Parts);
/// RuleLayout Layout(SvgMeasures());
/// Drawing Shapes;
/// Layout.Draw(Parts, Shapes, 0);  // true
/// Shapes.vBoxes.size();           // 8
/// @endcode
///
/// The source row stands above, the target row below, and the components of a number one below the
/// other. Each line that ends at a box has a *port* there, a column of its own:
///
///        ╭───── NUM ─────╮        lanes: arcs of agreement, short ones near the boxes
///     ┌──┴──┐         ┌──┴──┐
///     │ DET │         │  N  │
///     └──┬──┘         └─┬─┬─┘     the zone, in which lines cross
///        │              │ ┊
///        │              │ ┊ NUM   stubs: lines go straight down, and have their texts beside them
///     ┌──┴──┐         ┌─┴─┴─┐
///
/// The texts of arcs stand between the ports of two boxes, where no other line can be, and those of
/// transfers between two ports. So nothing but lines crosses a line, and no line a text.
class RuleLayout {
 public:
  explicit RuleLayout(const Measures& UnitsPassIn) : Units(UnitsPassIn) {}

  /// Draws a rule; what the drawing held before is gone. n log n in the rule, and for each arc the
  /// components below it.
  /// @param Parts have to outlive the drawing
  /// @param MaxWidth 0 for any
  /// @return false where the drawing would be wider, and nothing has been drawn
  bool Draw(const RuleParts& Parts, Drawing& DrawingReturn, int MaxWidth = 0);

 private:
  /// The same place in both rows.
  struct Slot {
    int Centre = 0;
    std::array<int, 2> Width{};     ///< of the boxes
    std::array<int, 2> ArcReach{};  ///< of the ports of arcs, on either side of the centre
    std::array<int, 2>
        LinkReach{};   ///< the same of links; on the right of the target with its text
    int LinkText = 0;  ///< of that, the text of the last link
  };

  /// An agreement, with its ports.
  struct Arc {
    const Tie* Agreement = nullptr;
    int LeftPort = 0;
    int RightPort = 0;
    std::uint32_t Lane = 0;
    int Width = 0;          ///< of its text
    std::uint32_t Gap = 0;  ///< the text stands after this slot
  };

  /// An end of an arc, in the order of ports.
  struct ArcEnd {
    std::uint32_t Slot;
    bool IsLeft;
    std::uint32_t Span;
    std::uint32_t Arc;
  };

  /// A line from row to row: an alignment, or what passes between two nodes.
  struct Link {
    std::uint32_t X = 0;
    std::uint32_t Y = 0;
    const Tie* Alignment = nullptr;
    std::size_t Begin = 0;  ///< of a transfer, in `vTransfers`
    std::size_t End = 0;
    int TextWidth = 0;
    int TopPort = 0;
    int BottomPort = 0;
    int Track = 0;
  };

  void MeasureBoxes();
  void FindArcs(std::size_t Side);
  void OrderArcs(std::size_t Side);
  void FindLinks();
  void OrderLinks();
  void PlaceSlots();
  void ShiftPorts();
  void FindTracks();
  void FindHeights();

  void AddBoxes(std::size_t Side);
  void AddBox(std::size_t Side, std::size_t Index);
  void AddTags(const Component& Owner, Point Corner, int Width);
  void AddArcs(std::size_t Side);
  void AddLinks();
  void AddLinkTexts(const Link& Owner, int Port);
  void AddCaption();
  void AddWrapped(const Subject& Shown, std::string_view Words, TextRole Role, int MaxWidth,
                  int& TopReturn);
  void AddText(std::string_view Words, Point Corner, int Width, int Height, TextRole Role,
               bool IsCentred = true);

  int BottomEdge(std::size_t Side) const {
    return Tops[Side] + BoxHeights[Side] - (Units.IsGrid ? 1 : 0);
  }

  const Measures& Units;
  const RuleParts* Rule = nullptr;
  Drawing* Result = nullptr;
  int Limit = 0;
  std::vector<Slot> vSlots;
  std::array<std::vector<Arc>, 2> vArcs;
  std::array<std::uint32_t, 2> Lanes{};
  std::vector<Tie> vTransfers;  // by their nodes
  std::vector<Link> vLinks;     // by target node, then source node
  std::size_t StackSize = 0;    // the most texts beside one link
  int TrackCount = 0;
  int Right = 0;  // of all rows
  std::array<int, 2> Tops{};
  std::array<int, 2> BoxHeights{};
  int Zone = 0;  // its height
  std::vector<ArcEnd> vEnds;
  std::vector<std::uint32_t> vOrder;
  std::vector<std::uint32_t> vHeights;
};

}  // namespace Picture
