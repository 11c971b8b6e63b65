#pragma once

#include "PlaceSources.h"
#include "SourceRule.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Grammar {

/// What of a rule counts beside the other rules of its grammar: its types, the components of its
/// source side and its equations between those. Literals are all alike here: what their words
/// are decides about texts, and not about which rules can work together.
///
/// The key says all of it, in capitals, each part on a line. For the rule
///
///   NP::NP : ["the" N] -> [N]
///   ( (X2::Y1) ((x2 num) = sg) ((x0 num) = (x2 num)) ((y0 gen) = (y1 gen)) )
///
/// it is NP, NP, ", pN, wN, +2 NUM, aSG, =0 NUM, 2 NUM.
struct RuleOutline {
  std::string Key;           ///< empty if the types cannot be read
  std::uint64_t KeySum = 0;  ///< two sums of the key
  std::uint64_t OtherKeySum = 0;
  std::size_t RuleLine = 0;             ///< from 0 within the rule
  std::vector<std::uint32_t> vColumns;  ///< of the places in the key, from 1
  std::vector<std::uint32_t> vLines;    ///< of the equations in the key, from 0 within the rule

  /// Two sums of the source side with its words, in capitals, and of its equations in any order.
  std::uint64_t SourceSum = 0;
  std::uint64_t OtherSourceSum = 0;
  std::uint64_t RestSum = 0;  ///< a sum of all else, but for header and comments
  bool IsUsable = false;
};

/// Makes outlines, on one thread each.
///
///   OutlineMaker Maker;
///   RuleOutline Outline;
///   Maker.Make(Record.Lines(), Outline);
class OutlineMaker {
 public:
  /// Of a rule that cannot be used, only the types and labels count.
  /// @param OutlineReturn has to be new
  void Make(const SourceRule& Rule, RuleOutline& OutlineReturn);

 private:
  void AddTypes(const SourceRule& Rule, RuleOutline& OutlineReturn);
  void AddComponents(const SourceRule& Rule, RuleOutline& OutlineReturn);
  void AddEquations(const SourceRule& Rule, RuleOutline& OutlineReturn);
  void SumSource(const SourceRule& Rule, std::size_t ComponentsEnd, RuleOutline& OutlineReturn);
  void SumRest(const SourceRule& Rule, RuleOutline& OutlineReturn);

  PlaceSources Places;
  std::vector<std::string_view> vWanted;
  std::string Scratch;
  std::vector<std::size_t> vEquationEnds;
};

}  // namespace Grammar
