#pragma once

#include "Example.h"
#include "Finding.h"
#include "RuleDescription.h"
#include "RuleRun.h"
#include "RuleSet.h"
#include "UsableRule.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Examples {

/// A rule of the grammar, one that was left out included.
struct TestedRule {
  std::string Place;  ///< "np.trr:5"
  /// Among the rules that can be used; `NoRule` for one that was left out.
  std::uint32_t Usable = NoRule;
  /// The type of its source side, as a label; `NoRule` where it cannot be read, or where no rule
  /// that can be used has it.
  std::uint32_t SourceType = NoRule;
  std::string Finding;  ///< why it was left out: "TR015: the target component has no source …"
  std::string Lines;    ///< what its lines say without comments, and its count; where that is kept
};

/// A line with a constraint of a rule that can be used.
struct ConstraintLine {
  std::string Place;  ///< "np.trr:7"
  std::string Text;   ///< "((x1 num) = sg)"
};

/// A grammar with the examples in its comments.
///
/// @code
/// TestedGrammar Grammar(Translate::RuleSetOptions(), true);
/// Grammar.Load({"np.trr"}, true);
/// Grammar.AllExamples().front().Source;  // "a car"
/// Grammar.AllExamples().front().Wanted;  // "un auto"
/// Grammar.Constraints().front().Place;   // "np.trr:8"
/// @endcode
class TestedGrammar {
 public:
  /// @param WantsVariants whether each rule is wanted without each of its constraint lines, too
  TestedGrammar(const Translate::RuleSetOptions& Options, bool WantsVariantsPassIn)
      : Set(Options), WantsVariants(WantsVariantsPassIn) {}

  TestedGrammar(const TestedGrammar&) = delete;
  TestedGrammar& operator=(const TestedGrammar&) = delete;

  /// Keeps the descriptions of all rules, not only of those with examples. Before `Load`.
  void DescribeAllRules() { DescribesAll = true; }

  /// Keeps the lines of all rules. Before `Load`.
  void KeepLines() { KeepsLines = true; }

  /// Reads grammars. Rules that are left out, and comments without partner, are reported on
  /// standard error. Throws `Grammar::RunError`. To be called once.
  void Load(const std::vector<std::string>& vsGrammars, bool Quiet);

  const Translate::RuleSet& Rules() const { return Set; }

  /// All rules in the order of the input.
  const std::vector<TestedRule>& AllRules() const { return vRules; }
  /// The place of a rule by its number among those that can be used.
  const std::string& PlaceOf(std::uint32_t Usable) const {
    return vRules[Set.At(Usable).Number - 1].Place;
  }
  /// How a rule that can be used is written, by its number among all rules.
  const Translate::RuleDescription& DescriptionOf(std::uint32_t Rule) const {
    return Descriptions.at(Rule);
  }
  /// How many rules there are, and how many of them were left out.
  const Grammar::RunTally& Tally() const { return Counts; }

  /// The pairs of each rule, then its texts to be rejected, rules in order.
  const std::vector<Example>& AllExamples() const { return vExamples; }
  void AddExample(Example New) { vExamples.push_back(std::move(New)); }

  /// The constraint lines of all rules that can be used, in order; the n-th is the one that the
  /// n-th variant of the rule set does without.
  const std::vector<ConstraintLine>& Constraints() const { return vConstraints; }
  /// The first constraint line of a rule that can be used, or of those after it.
  std::size_t FirstConstraint(std::uint32_t Usable) const { return vFirstConstraint[Usable]; }

 private:
  void AddRule(const Grammar::SourceRule& Lines, Grammar::UsableRule* Rule,
               const std::vector<Grammar::Finding>& vFindings);
  void AddVariants(const Grammar::RuleText& Text, Grammar::UsableRule& Rule);
  void AddExamples(const Grammar::RuleText& Text);
  void SetSourceTypes();

  Translate::RuleSet Set;
  bool WantsVariants;
  bool DescribesAll = false;
  bool KeepsLines = false;
  Grammar::RunTally Counts;
  std::vector<TestedRule> vRules;
  std::unordered_map<std::uint32_t, Translate::RuleDescription> Descriptions;
  std::vector<std::string> vsTypes;  // of rules that are left out, in the order of their coming
  std::vector<Example> vExamples;
  std::vector<ConstraintLine> vConstraints;
  std::vector<std::size_t> vFirstConstraint;  // and one after the last rule
};

}  // namespace Examples
