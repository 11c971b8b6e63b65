#pragma once

#include "AlignmentShape.h"
#include "NameCounts.h"
#include "RuleRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>

namespace Grammar {

/// What there is in the rules of a grammar, and how often. Names are in the normal form: in
/// capitals, except literal words.
///
/// @code
/// RuleSurvey Survey;
/// Survey.Add(Record);
/// Survey.Rules();               // 1
/// Survey.Literals(0).Sum();     // 1
/// Survey.Features().Size();     // 1
/// @endcode
///
/// Surveys of parts of a grammar make that of the whole, in any order.
class RuleSurvey {
 public:
  /// How many examples and texts to be rejected the comments of a rule have.
  struct Examples {
    std::uint64_t Pairs = 0;
    std::uint64_t Rejected = 0;
  };

  /// Categories of constraints, from 1.
  static constexpr std::size_t Categories = 4;

  /// What stands for the value where the value is a feature of another node.
  static constexpr std::string_view Reference = "(reference)";

  /// Adds a rule that has been read.
  void Add(const RuleRecord& Record);

  /// Adds another survey.
  void Add(const RuleSurvey& Other);

  std::uint64_t Rules() const { return RuleCount; }

  /// Pairs of types, "NP::NP".
  const NameCounts& Types() const { return TypeCounts; }

  // Of the source side for 0 and the target side for 1.
  const NameCounts& Labels(std::size_t Index) const { return Sides[Index].Labels; }
  const NameCounts& Literals(std::size_t Index) const { return Sides[Index].Literals; }
  /// How many rules have that many components.
  const std::map<std::size_t, std::uint64_t>& Lengths(std::size_t Index) const {
    return Sides[Index].mLengths;
  }

  /// By `AlignmentShape::Text`.
  const NameCounts& Shapes() const { return ShapeCounts; }

  /// How many lines name a feature, and with which values, by the number of the feature. A list
  /// counts for each of its words.
  const NameCounts& Features() const { return FeatureCounts; }
  const NameCounts& Values(std::uint32_t Feature) const { return Valued[Feature]; }

  /// How many constraints the library's record holds of a category, from 1.
  std::uint64_t Constraints(std::size_t Category) const { return CategoryCounts[Category - 1]; }

  std::uint64_t RulesWithExamples() const { return ExampleRules; }
  const Examples& AllExamples() const { return ExampleCounts; }

  /// How many rules stand for that many examples (;;Score:).
  const std::map<int, std::uint64_t>& Counts() const { return mCounts; }

  /// The count that at least so many of a thousand rules do not exceed; there has to be a rule.
  int Quantile(std::uint64_t PerThousand) const;

 private:
  struct Side {
    NameCounts Labels;
    NameCounts Literals;
    std::map<std::size_t, std::uint64_t> mLengths;
  };

  void AddSide(const std::vector<std::string_view>& vLabels, Side& SideReturn);
  void AddConstraints(const RuleRecord& Record);
  void AddFeatures(const TrRuleInternal::ConstraintParts& Parts);
  void AddExamples(const RuleRecord& Record);
  std::uint32_t AddFeature(std::string_view Written, std::uint64_t Count);
  void AddWords(std::string_view Words, std::string_view Before, NameCounts& ValuesReturn);

  std::uint64_t RuleCount = 0;
  NameCounts TypeCounts;
  std::array<Side, 2> Sides;
  NameCounts ShapeCounts;
  NameCounts FeatureCounts;
  std::deque<NameCounts> Valued;  // by feature
  std::array<std::uint64_t, Categories> CategoryCounts{};
  std::uint64_t ExampleRules = 0;
  Examples ExampleCounts;
  std::map<int, std::uint64_t> mCounts;
  AlignmentShape Shape;
  std::string Scratch;
};

}  // namespace Grammar
