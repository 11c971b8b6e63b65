#pragma once

#include "Drawing.h"
#include "Measures.h"
#include "TreePair.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Picture {

/// Finds a place for two trees face to face.
///
///          NP             the source tree grows down
///        /    .
///      DET     N
///       |      |
///      the    car
///       |      |           words of one constituent are joined
///       el    auto
///       |      |
///      DET     N
///        .    /
///          NP             the target tree grows up
///
/// Each item has a stretch of its own from the left to the right, which those below it share. So
/// boxes never overlap, and lines reach their boxes without crossing others.
class TreeLayout {
 public:
  explicit TreeLayout(const Measures& UnitsPassIn) : Units(UnitsPassIn) {}

  /// Draws a derivation; what the drawing held before is gone. Linear.
  /// @param Trees have to outlive the drawing
  void Draw(const TreePair& Trees, Drawing& DrawingReturn);

 private:
  /// Where an item of one tree stands.
  struct Place {
    int Own = 0;       ///< the width of its box or word
    int Width = 0;     ///< of its stretch
    int Below = 0;     ///< of the stretches of its children, with gaps
    int Left = 0;      ///< of its stretch
    int NextLeft = 0;  ///< of its next child
    std::size_t Depth = 0;

    int Centre() const { return Left + Width / 2; }
  };

  int BoxWidth(std::size_t Side, std::size_t Constituent) const;
  void MeasureItems(std::size_t Side);
  void MeasureLevels(std::size_t Side);
  void PlaceItems(std::size_t Side, int Width);
  int TopOf(std::size_t Side, std::size_t Item) const;
  int HeightOf(std::size_t Side, const TreeItem& Item) const;
  void AddItems(std::size_t Side);
  void AddBranch(std::size_t Side, std::size_t Item);
  void AddFrame(Box Around);
  void AddBox(std::size_t Side, std::size_t Item);
  void AddJoints();

  const Measures& Units;
  const TreePair* Pair = nullptr;
  Drawing* Result = nullptr;
  std::array<std::vector<Place>, 2> Places;
  std::array<std::size_t, 2> Depths{};  ///< of the words
  std::array<int, 2> Levels{};          ///< the height of a level
  int Height = 0;
  std::vector<std::string> vsNames;  ///< of the constituents, by number
};

}  // namespace Picture
