#pragma once

#include "Drawing.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Picture {

/// Draws counts as bars, one below the other: its label, a bar as long as its share of the greatest
/// count, and the count itself.
///
/// @code
/// Histogram Lengths("Components of a rule");
/// Lengths.Add("1", 12);
/// Lengths.Add("2", 30);
/// Drawing Bars;
/// Lengths.Draw(Bars);
/// Bars.Title;          // "Components of a rule"
/// Bars.Description;    // "1: 12. 2: 30."
/// Bars.vBoxes.size();  // 2
/// @endcode
class Histogram {
 public:
  explicit Histogram(std::string_view TitlePassIn);

  /// Adds a bar below those before it. Bytes of a label that cannot be shown become U+FFFD.
  void Add(std::string_view Label, std::size_t Count);

  /// Draws the bars; what the drawing held before is gone. Only a count of 0 has no bar. Linear.
  void Draw(Drawing& DrawingReturn) const;

 private:
  struct Bar {
    std::string Label;
    std::size_t Count = 0;
  };

  int LabelWidth() const;
  std::string Description() const;

  std::string Title;
  std::vector<Bar> vBars;
  std::size_t Greatest = 0;
};

}  // namespace Picture
