#pragma once

#include "Finding.h"
#include "RulePicture.h"
#include "SourceRule.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Page {

/// What a page shows of one rule, but for its tests and its number.
struct RuleEntry {
  std::string File;
  std::size_t FirstLine = 1;  ///< from 1
  std::size_t LastLine = 1;
  std::string Name;        ///< "{NP,8}", or "np.trr:5" without a header
  std::string SourceType;  ///< in capitals; empty where the rule line cannot be read
  std::string TargetType;
  std::vector<std::string> vsLabels;    ///< types and labels in capitals, each once, in order
  std::vector<std::string> vsLiterals;  ///< words of literals, the same
  std::vector<std::string> vsFeatures;  ///< words of paths in capitals, the same
  std::size_t Components = 0;           ///< of the source side
  std::size_t Alignments = 0;
  std::size_t Constraints = 0;
  std::size_t Examples = 0;
  std::string Heading;  ///< HTML: what stands after the name, types and place
  std::string Picture;  ///< HTML: the picture, packed; empty where nothing can be drawn
  std::string Lines;    ///< HTML: the rule as written, its labels as links
  std::vector<Grammar::Finding> vFindings;
};

/// Makes entries, one after the other, on one thread each.
///
/// @code
/// RuleEntryMaker Maker;
/// RuleEntry Entry;
/// Maker.Make(Lines, Entry);
/// Entry.Name;        // "{NP,8}"
/// Entry.vsLabels;    // {"ADJ", "N", "NP"}
/// Entry.vsLiterals;  // {"el", "the"}
/// Entry.vsFeatures;  // {"NUM"}
/// @endcode
class RuleEntryMaker {
 public:
  /// Makes all of an entry but its findings. n log n.
  void Make(const Grammar::SourceRule& Lines, RuleEntry& EntryReturn);

 private:
  void Draw(const Grammar::SourceRule& Lines, RuleEntry& EntryReturn);

  Picture::RulePicture Drawn;
  std::string Svg;
};

/// The place of a label on the page, "label-NP", for any label in capitals.
std::string LabelPlace(std::string_view Label);

/// Appends a text for people: bytes that are not characters become U+FFFD, tabs stay, and what
/// means something in HTML is escaped.
void AppendShown(std::string_view Text, std::string& HtmlReturn);

}  // namespace Page
