#pragma once

#include "Chart.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Examples {

/// Compares what two charts of one text make of their goals, whatever else is in them, and whatever
/// the structures are. It is far quicker than to work the derivations out.
///
/// @code
/// Translate::Chart Other(Rules);
/// Other.Parse("the red car", Translate::ChartLimits(), Equations);  // true
/// const std::uint32_t Phrase = Parsed.Constituents()[Whole].FirstWay;
/// const std::uint32_t Word = Parsed.Constituents()[0].FirstWay;
/// DerivationMatch(Parsed, Other).AreSame({Phrase}, {Phrase});  // true
/// DerivationMatch(Parsed, Other).AreSame({Phrase}, {Word});    // false
/// @endcode
class DerivationMatch {
 public:
  DerivationMatch(const Translate::Chart& LeftPassIn, const Translate::Chart& RightPassIn)
      : Left(LeftPassIn), Right(RightPassIn) {}

  /// Whether the derivations that begin with some ways are the same. Where the same parts were
  /// found in another order, it says that they are not.
  bool AreSame(const std::vector<std::uint32_t>& vLeftWays,
               const std::vector<std::uint32_t>& vRightWays);

 private:
  enum class Kind : std::uint8_t { Constituent, Item, Group };

  /// Parts of both charts that have to be made in the same ways.
  struct Pair {
    Kind What;
    std::uint32_t Left;
    std::uint32_t Right;
  };

  bool Add(Kind What, std::uint32_t LeftPart, std::uint32_t RightPart);
  bool AddWay(std::uint32_t LeftWay, std::uint32_t RightWay);
  bool AddParts(const Pair& Which);
  bool AddWays(std::uint32_t LeftWay, std::uint32_t RightWay);
  bool AddSteps(std::uint32_t LeftItem, std::uint32_t RightItem);
  bool AddMembers(const Translate::Chart::Group& LeftGroup,
                  const Translate::Chart::Group& RightGroup);

  const Translate::Chart& Left;
  const Translate::Chart& Right;
  std::unordered_map<std::uint32_t, std::uint32_t> Partners[3];  // of the left parts, by kind
  std::vector<Pair> vOpen;
};

}  // namespace Examples
