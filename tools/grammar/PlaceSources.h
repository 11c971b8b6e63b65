#pragma once

#include "SourceRule.h"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace Grammar {

/// Finds out where the target places of a rule get their constituents from.
///
/// Each needs one source place: the one that it is aligned with or, of several, the only one with
/// its own label. A source place may be written several times, which then bear one label.
/// Alignments with literals mean nothing. For the rule
///
///   NP::NP : [ADJ N] -> ["el" N ADJ]
///   ( (X1::Y3) (X2::Y2) )
///
/// the sources are `None`, 1 and 0.
///
/// @code
/// PlaceSources Places;
/// Places.Find(Lines, false);  // true
/// Places.Sources();           // {PlaceSources::None, 2, 1}
/// @endcode
class PlaceSources {
 public:
  static constexpr std::uint32_t None = 0xFFFFFFFFU;

  enum class Fault : std::uint8_t {
    NoSource,       ///< a target place is aligned with no source place
    ManySources,    ///< with several, and not exactly one of them has its label
    SeveralLabels,  ///< a source place is written with different labels
  };

  /// What keeps a place without source.
  struct Mismatch {
    Fault What;
    std::string_view Label;  ///< of the component at fault, in the rule line
  };

  /// Looks at a rule; what was found before is gone. n log n.
  /// @param RulePassIn has to be whole, and its alignments have to name components that are there
  /// @param IsReversed whether source and target change places
  /// @return whether each target place has its source
  bool Find(const SourceRule& RulePassIn, bool IsReversed);

  /// For each target component the index, from 0, of the source component that it gets its
  /// constituent from; `None` for a literal.
  const std::vector<std::uint32_t>& Sources() const { return vSources; }

  /// In the order of the rule line.
  const std::vector<Mismatch>& Mismatches() const { return vMismatches; }

 private:
  using Labels = std::vector<std::string_view>;
  using Pair = std::pair<std::uint32_t, std::uint32_t>;  // target and source component, from 0

  void ReadPairs(const SourceRule& RulePassIn, bool IsReversed, const Labels& vFrom,
                 const Labels& vTo);
  void FindSource(std::vector<Pair>::const_iterator First, std::vector<Pair>::const_iterator Last,
                  std::uint32_t Target, const Labels& vFrom, const Labels& vTo);
  void CheckLabels(const Labels& vFrom, const Labels& vTo);

  std::vector<Pair> vPairs;  // of places, ascending, none twice
  std::vector<std::uint32_t> vSources;
  std::vector<Mismatch> vMismatches;
};

}  // namespace Grammar
