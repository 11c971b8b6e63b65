#pragma once

#include "Drawing.h"
#include "RuleLayout.h"
#include "RuleParts.h"

#include <string>
#include <string_view>

namespace Picture {

/// Makes pictures of rules, one after the other; the storage of one serves the next.
///
/// @code
/// RulePicture Picture;
/// Picture.Read(Lines);  // true
/// Picture.Title();      // "Rule {NP,8}, NP::NP"
/// std::string Svg;
/// Picture.AppendSvg(false, Svg);
/// Svg.substr(0, 4);  // "<svg"
/// @endcode
class RulePicture {
 public:
  /// @param Lines its text has to outlive the picture, or its next reading
  /// @return false where there is no rule line that can be read, and so nothing to draw
  bool Read(const Grammar::SourceRule& Lines);

  /// Appends the picture as SVG.
  /// @param IsInline whether it stands within a page
  void AppendSvg(bool IsInline, std::string& TextReturn);

  /// Appends the picture in lines of text of at most that many columns, at least `LeastWidth`. A
  /// wider rule is described instead, a sentence a line.
  void AppendText(int MaxWidth, bool IsAscii, std::string& TextReturn);

  static constexpr int LeastWidth = 20;

  /// "Rule {NP,8}, NP::NP"
  std::string Title() const { return "Rule " + Parts.Name + ", " + Parts.Types; }

  /// "{NP,8}", or "np.trr:5" without a header.
  const std::string& Name() const { return Parts.Name; }

  /// "np.trr:5"
  const std::string& Place() const { return RulePlace; }

 private:
  void AppendSentences(int MaxWidth, std::string& TextReturn) const;

  RuleParts Parts;
  std::string RulePlace;
  Drawing Shapes;
  RuleLayout InSvg{SvgMeasures()};
  RuleLayout InCells{TerminalMeasures()};
};

}  // namespace Picture
