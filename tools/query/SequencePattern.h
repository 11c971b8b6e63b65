#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Query {

/// A label, a word of a feature or a value, as a query names it.
struct Name {
  std::string Text;        ///< of a literal, without its quotes
  bool IsLiteral = false;  ///< whether it was written in quotes
};

/// One element of a pattern.
struct PatternItem {
  enum class Kind : std::uint8_t {
    Run,   ///< "*": any number of elements, also none
    Any,   ///< "?": exactly one
    Names  ///< "DET|PRON": one of these
  };

  Kind What = Kind::Any;
  std::vector<Name> vNames;  ///< at least one for `Names`, otherwise none
};

/// Whether an item, which is not a run, fits a component: a label in any case, a literal as it is
/// written. Linear.
bool FitsComponent(const PatternItem& Item, std::string_view Component);

/// Whether an item, which is not a run, fits a word in which case does not count, quotes included.
bool FitsWord(const PatternItem& Item, std::string_view Word);

/// A pattern of components, such as "[^ DET|PRON * N]".
///
/// @code
/// SequencePattern Pattern;
/// Pattern.IsFromStart = true;
/// Pattern.vItems = {{PatternItem::Kind::Names, {{"det", false}}}, {PatternItem::Kind::Run, {}}};
/// Pattern.Fits({"DET", "N"});  // true
/// Pattern.Fits({"ADJ", "N"});  // false
/// @endcode
struct SequencePattern {
  bool IsFromStart = false;  ///< "^": begins at the first component
  bool IsToEnd = false;      ///< "$": ends at the last one
  std::vector<PatternItem> vItems;

  /// Whether some stretch of components fits. At most components times items.
  bool Fits(const std::vector<std::string_view>& vComponents) const;
};

/// A pattern of the words of a feature, such as "agr:*". All words have to fit.
struct FeaturePattern {
  std::vector<PatternItem> vItems;  ///< none for a whole node

  /// @param Feature words with white space between them
  bool Fits(std::string_view Feature) const;
};

}  // namespace Query
