#pragma once

#include "SourceRule.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Grammar {

/// What can be said of the alignments of a rule.
///
/// Components that are aligned, directly or over others, are a group; its kind is the number of its
/// source components and that of its target components, each one or many.
enum class ShapeTrait : std::uint8_t {
  Monotone,    ///< no two alignments cross
  Crossing,    ///< some two do
  Unaligned,   ///< some component has no partner
  OneToOne,    ///< some group has one component on each side
  OneToMany,   ///< some group has one source component and several target components
  ManyToOne,   ///< the reverse
  ManyToMany,  ///< some group has several components on both sides
};

/// All of them, in the order in which they are written.
constexpr std::array<ShapeTrait, 7> ShapeTraits = {
    ShapeTrait::Monotone,  ShapeTrait::Crossing,   ShapeTrait::OneToOne, ShapeTrait::OneToMany,
    ShapeTrait::ManyToOne, ShapeTrait::ManyToMany, ShapeTrait::Unaligned};

/// The name of a trait, such as "crossing" or "1:n".
std::string_view NameOf(ShapeTrait Trait);

/// The shape of the alignments of a rule. For
///
///   NP::NP : ["the" ADJ N] -> ["el" N ADJ]
///   (X2::Y3)
///   (X3::Y2)
///
/// @code
/// AlignmentShape Shape;
/// Shape.Read(Lines);
/// Shape.Text();                    // "crossing 1:1 unaligned"
/// Shape.Has(ShapeTrait::Monotone);  // false
/// @endcode
class AlignmentShape {
 public:
  /// A source and a target component, from 1.
  using Pair = std::pair<int, int>;

  /// Looks at a rule; what was read before is gone. n log n.
  /// @param RulePassIn without a whole rule line it has no components
  void Read(const SourceRule& RulePassIn);

  /// The same for a number of components and the pairs of them that are aligned, in any order. A
  /// pair that names a component that is not there, or that was there before, counts for nothing.
  void Read(std::size_t SLSize, std::size_t TLSize, const std::vector<Pair>& vPairsPassIn);

  bool Has(ShapeTrait Trait) const { return (Traits & BitOf(Trait)) != 0; }

  /// The names of what the shape has, in the order of `ShapeTraits`, with blanks between them.
  std::string Text() const;

  /// Shapes with the same traits have the same number, below 128.
  std::uint8_t Number() const { return Traits; }

 private:
  struct Group {
    std::size_t Parent = 0;  // the group that this one has gone into, or itself
    std::size_t Sizes[2] = {};
  };

  static std::uint8_t BitOf(ShapeTrait Trait) {
    return static_cast<std::uint8_t>(1U << static_cast<unsigned>(Trait));
  }

  void ReadPairs(std::size_t SLSize, std::size_t TLSize);
  void ReadCrossings();
  void ReadGroups(std::size_t SLSize, std::size_t TLSize);
  std::size_t Find(std::size_t Component);
  void Unite(std::size_t Left, std::size_t Right);
  void Add(ShapeTrait Trait) { Traits = static_cast<std::uint8_t>(Traits | BitOf(Trait)); }

  std::vector<Pair> vPairs;    // ascending, none twice
  std::vector<Group> vGroups;  // by component, the source components first
  std::uint8_t Traits = 0;
};

}  // namespace Grammar
