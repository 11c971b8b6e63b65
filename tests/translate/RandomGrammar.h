#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// A constraint of a random rule. Values of one path are alternatives of each other.
struct RandomConstraint {
  std::string Text;
  std::string Path;  ///< of a value that may have alternatives, whatever its case; empty otherwise
};

/// A random rule, its lines apart so that they can be put in another order or taken out.
struct RandomRule {
  std::string Head;  ///< comments and the rule line
  std::string Alignments;
  std::vector<RandomConstraint> vConstraints;

  std::string Text() const;
};

/// The text of all rules.
std::string TextOf(const std::vector<RandomRule>& vRules);

/// Small grammars and texts with much in common: few labels, words, features and atoms, so that
/// rules fit, and equations clash, often. Now and then a rule that has to be left out, a rule that
/// is there twice, labels in other cases, and structures in which much is shared. The same seed
/// gives the same everywhere.
///
///   RandomGrammar Random(7);
///   const std::string Grammar = TextOf(Random.Rules());
///   const std::string Text = Random.Text("ab");  // "b A a"
class RandomGrammar {
 public:
  explicit RandomGrammar(unsigned Seed) : Numbers(Seed) {}

  std::vector<RandomRule> Rules();
  RandomRule PhraseRule();
  /// A text of one to four of these words.
  std::string Text(const std::string& Letters);

  /// A number from 0, less than the limit.
  std::size_t Below(std::size_t Limit) { return Numbers() % Limit; }
  bool OneIn(std::size_t Chances) { return Below(Chances) == 0; }

  /// Puts a list in another order.
  template <typename ElementT>
  void Shuffle(std::vector<ElementT>& vElementsReturn) {
    for (std::size_t Left = vElementsReturn.size(); Left > 1; --Left) {
      std::swap(vElementsReturn[Left - 1], vElementsReturn[Below(Left)]);
    }
  }

 private:
  using Sizes = std::pair<std::size_t, std::size_t>;  // of both sides

  std::string LetterOf(const std::string& Letters);
  std::string AnyCase(std::string Text);
  RandomRule LexicalRule();
  std::string Sequence(std::size_t Size, bool IsSource, std::string& KindsReturn);
  std::string Alignments(const std::string& Source, const std::string& Target);
  std::string Features();
  std::string Node(char Side, std::size_t Index);
  std::string Path(const Sizes& Counts);
  std::string Atom();
  std::string Atoms();
  RandomConstraint Value(const Sizes& Counts);
  RandomConstraint Constraint(const Sizes& Counts);
  void AddCarriers(const Sizes& Counts, RandomRule& RuleReturn);
  void AddSharing(const Sizes& Counts, RandomRule& RuleReturn);
  void AddConstraints(const Sizes& Counts, std::size_t Count, RandomRule& RuleReturn);

  std::mt19937 Numbers;
};
