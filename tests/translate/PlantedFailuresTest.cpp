// Ten thousand failures are planted in random grammars and texts that had a translation: a word is
// changed or taken out, a label is changed, a value is changed. The cause that is named is the
// planted one, and undoing what is named lets the rule come further, or make its constituent.

#include "Bytes.h"
#include "RandomGrammar.h"
#include "WhyAnswers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;
using Translate::BeginFacts;
using Translate::TreeNode;

Strings SplitWords(const std::string& Text) {
  Strings vsWords;
  for (std::size_t At = 0; At < Text.size();) {
    const std::size_t End = std::min(Text.find(' ', At), Text.size());
    vsWords.push_back(Text.substr(At, End - At));
    At = End + 1;
  }
  return vsWords;
}

std::string JoinWords(const Strings& vsWords) {
  std::string Text;
  for (const std::string& sEach : vsWords) {
    Text += Text.empty() ? "" : " ";
    Text += sEach;
  }
  return Text;
}

/// A grammar and a text, with its best derivation.
class Planting {
 public:
  explicit Planting(unsigned Seed) : Random(Seed), vRules(Random.Rules()), Why(TextOf(vRules)) {
    Why.Options.Limits.MaxConstituents = 500;
    vsText = SplitWords(Random.Text("abc"));
    Text = JoinWords(vsText);
    const Translate::TextResult Result = Why.Engine.Engine.Translate(Text, Why.Options);
    if (!Result.vTranslations.empty()) {
      vNodes = Why.Engine.Engine.NodesOf(Result.vTranslations.front().Tree, 0);
    }
  }

  /// Plants what can be planted. @return how many failures there were
  std::size_t Plant() {
    std::size_t Planted = 0;
    for (std::size_t Node = 0; Node < vNodes.size(); ++Node) {
      const std::vector<std::size_t> vStarts = StartsOf(Node);
      for (std::size_t Component = 1; Component <= vStarts.size(); ++Component) {
        Planted += PlantLabel(Node, Component, vStarts[Component - 1]);
        Planted += PlantWord(Node, Component, vStarts[Component - 1]);
      }
      Planted += PlantValues(Node);
    }
    return Planted;
  }

 private:
  const Translate::RuleSet& Set() const { return Why.Engine.Set(); }

  /// Which of all rules a node's is.
  std::size_t RuleOf(std::size_t Node) const { return Set().At(vNodes[Node].Rule).Number - 1; }

  std::size_t SizeBelow(std::size_t Node) const {
    std::size_t End = Node + 1;
    for (std::uint32_t Part = 0; Part < vNodes[Node].Parts; ++Part) {
      End += SizeBelow(End);
    }
    return End - Node;
  }

  /// Where each component of a node's rule begins.
  std::vector<std::size_t> StartsOf(std::size_t Node) const {
    std::vector<std::size_t> vStarts;
    std::size_t At = vNodes[Node].Start;
    std::size_t Part = Node + 1;
    for (const Translate::SourceSymbol Symbol : Set().SymbolsOf(Set().At(vNodes[Node].Rule))) {
      vStarts.push_back(At);
      if ((Symbol & Translate::SourceTrie::LiteralMark) != 0) {
        ++At;
      } else {
        At = vNodes[Part].End;
        Part += SizeBelow(Part);
      }
    }
    return vStarts;
  }

  static std::optional<BeginFacts> FactsOf(WhyAnswers& Answers, std::uint32_t Rule,
                                           const std::string& Words, std::size_t Begin) {
    Answers.MaxListed = 100;
    Answers.Options.Limits.MaxConstituents = 2000;
    std::optional<BeginFacts> Found;
    Answers.ForEachBegin(Rule, Words, [&](Translate::RuleDiagnosis&, const BeginFacts& Facts) {
      if (Facts.Begin == Begin) {
        Found = Facts;
      }
    });
    return Found;
  }

  static bool HasPosition(const Translate::Stop& Stop, std::size_t Position) {
    return std::any_of(
        Stop.vPlaces.begin(), Stop.vPlaces.end(),
        [&](const Translate::StopPlace& Place) { return Place.Position == Position; });
  }

  /// A rule with another label in the place of one of the source side's.
  static RandomRule WithLabel(RandomRule Rule, std::size_t Component, const std::string& Label) {
    std::size_t At = Rule.Head.find(" : [") + 4;
    for (std::size_t Current = 1; Current < Component; ++Current) {
      At = Rule.Head.find(' ', At) + 1;
    }
    Rule.Head.replace(At, Rule.Head.find_first_of(" ]", At) - At, Label);
    return Rule;
  }

  /// What each component of a rule wants: a word, or a source and a target type.
  static Strings WantedBy(const Translate::RuleSet& Rules, std::uint32_t Rule) {
    Strings vsWanted;
    for (const Translate::SourceSymbol Symbol : Rules.SymbolsOf(Rules.At(Rule))) {
      if ((Symbol & Translate::SourceTrie::LiteralMark) != 0) {
        vsWanted.push_back('"' + Rules.LiteralName(Symbol) + '"');
      } else {
        const std::uint32_t Target = Rules.SlotWanted(Symbol);
        vsWanted.push_back(Rules.LabelName(Rules.SlotLabel(Symbol)) + "::" +
                           (Target == Translate::RuleSet::None ? "" : Rules.LabelName(Target)));
      }
    }
    return vsWanted;
  }

  std::string GrammarWith(const std::vector<RandomRule>& vMore) const {
    return TextOf(vRules) + TextOf(vMore);
  }

  /// A label becomes one that nothing has: the rule stops there, and goes on with what is wanted.
  std::size_t PlantLabel(std::size_t Node, std::size_t Component, std::size_t At) {
    const bool IsWord = Random.OneIn(2);
    const RandomRule Changed = WithLabel(vRules[RuleOf(Node)], Component, IsWord ? "\"zz\"" : "ZZ");
    WhyAnswers Answers(GrammarWith({Changed}));
    if (Answers.vDescriptions.size() != Set().Size() + 1) {
      return 0;  // a target component has lost its source
    }
    const auto Asked = static_cast<std::uint32_t>(Set().Size());
    // Where a target component had two sources, another one may now have to give it.
    const Strings vsBefore = WantedBy(Set(), vNodes[Node].Rule);
    const Strings vsNow = WantedBy(Answers.Engine.Set(), Asked);
    if (!std::equal(vsNow.begin(), vsNow.begin() + static_cast<std::ptrdiff_t>(Component) - 1,
                    vsBefore.begin())) {
      return 0;
    }
    const std::size_t Begin = vNodes[Node].Start;
    const std::optional<BeginFacts> Facts = FactsOf(Answers, Asked, Text, Begin);
    const bool IsNamed = Facts && Facts->Stopped && Facts->Stopped->Component == Component &&
                         HasPosition(*Facts->Stopped, At);
    EXPECT_TRUE(IsNamed) << Changed.Text() << Text;
    if (IsNamed) {
      ExpectFurther(Answers, Changed, *Facts->Stopped, Begin, At);
    }
    return 1;
  }

  /// Adds what is wanted at a position.
  void ExpectFurther(const WhyAnswers& Before, const RandomRule& Changed,
                     const Translate::Stop& Stop, std::size_t Begin, std::size_t At) {
    const Translate::RuleSet& Rules = Before.Engine.Set();
    Strings vsWords = vsText;
    std::vector<RandomRule> vMore{Changed};
    if ((Stop.Wanted & Translate::SourceTrie::LiteralMark) != 0) {
      vsWords[At] = Rules.LiteralName(Stop.Wanted);
    } else {
      const std::uint32_t Target = Rules.SlotWanted(Stop.Wanted);
      vMore.push_back({Rules.LabelName(Rules.SlotLabel(Stop.Wanted)) + "::" +
                           (Target == Translate::RuleSet::None ? "Z" : Rules.LabelName(Target)) +
                           " : [\"" + vsText[At] + "\"] -> [\"q\"]\n",
                       "(X1::Y1)\n",
                       {}});
    }
    WhyAnswers After(GrammarWith(vMore));
    const std::optional<BeginFacts> Facts =
        FactsOf(After, static_cast<std::uint32_t>(Rules.Size() - 1), JoinWords(vsWords), Begin);
    EXPECT_TRUE(Facts && (!Facts->Stopped || Facts->Stopped->Component > Stop.Component))
        << GrammarWith(vMore) << JoinWords(vsWords);
  }

  /// A word that stands there once becomes another one, or is taken out.
  std::size_t PlantWord(std::size_t Node, std::size_t Component, std::size_t At) {
    const Translate::SourceSymbol Symbol =
        Set().SymbolsOf(Set().At(vNodes[Node].Rule)).First[Component - 1];
    const auto IsSame = [&](const std::string& sEach) {
      return Grammar::Upper(sEach) == Grammar::Upper(vsText[At]);
    };
    if ((Symbol & Translate::SourceTrie::LiteralMark) == 0 ||
        std::count_if(vsText.begin(), vsText.end(), IsSame) != 1) {
      return 0;
    }
    Strings vsChanged = vsText;
    if (Random.OneIn(2)) {
      vsChanged.erase(vsChanged.begin() + static_cast<std::ptrdiff_t>(At));
    } else {
      vsChanged[At] = "zz";
    }
    const std::size_t Begin = vNodes[Node].Start;
    if (Begin == vsChanged.size()) {
      return 0;
    }
    const std::optional<BeginFacts> Facts =
        FactsOf(Why, vNodes[Node].Rule, JoinWords(vsChanged), Begin);
    EXPECT_TRUE(Facts && Facts->Stopped && Facts->Stopped->Component == Component &&
                HasPosition(*Facts->Stopped, At) &&
                Set().LiteralName(Facts->Stopped->Wanted) == Grammar::Upper(vsText[At]))
        << TextOf(vRules) << Text << " -> " << JoinWords(vsChanged);
    return 1;
  }

  /// The line of a constraint in the text of all rules.
  std::size_t LineOf(std::size_t Rule, std::size_t Constraint) const {
    std::string Before =
        TextOf({vRules.begin(), vRules.begin() + static_cast<std::ptrdiff_t>(Rule)});
    Before += vRules[Rule].Head + "(\n" + vRules[Rule].Alignments;
    return static_cast<std::size_t>(std::count(Before.begin(), Before.end(), '\n')) + Constraint +
           1;
  }

  /// Each value that has no alternative becomes an atom that nothing else has.
  std::size_t PlantValues(std::size_t Node) {
    const std::size_t Rule = RuleOf(Node);
    const std::vector<RandomConstraint>& vConstraints = vRules[Rule].vConstraints;
    std::size_t Planted = 0;
    for (std::size_t Current = 0; Current < vConstraints.size(); ++Current) {
      const auto IsSame = [&](const RandomConstraint& Other) {
        return Other.Path == vConstraints[Current].Path;
      };
      if (!vConstraints[Current].Path.empty() &&
          std::count_if(vConstraints.begin(), vConstraints.end(), IsSame) == 1) {
        Planted += PlantValue(Rule, Current);
      }
    }
    return Planted;
  }

  std::size_t PlantValue(std::size_t Rule, std::size_t Constraint) {
    std::vector<RandomRule> vChanged = vRules;
    std::string& Changed = vChanged[Rule].vConstraints[Constraint].Text;
    Changed = Changed.substr(0, Changed.find('=')) + "= zz)";
    WhyAnswers Answers(TextOf(vChanged));
    if (Answers.vDescriptions.size() != Set().Size()) {
      return 0;
    }
    // The first that is not made any more, parts before what is made of them.
    for (std::size_t Node = vNodes.size(); Node-- > 0;) {
      const std::size_t Outcome = CheckNode(Answers, vChanged, Node, LineOf(Rule, Constraint));
      if (Outcome != Made) {
        return Outcome == Clashed ? 1 : 0;
      }
    }
    return 0;
  }

  enum : std::size_t { Made, Clashed, NotListed };

  bool IsNodesWay(const Translate::Combination& Way, std::size_t Node) const {
    std::size_t At = Node + 1;
    for (const Translate::PartFacts& Part : Way.vParts) {
      for (const TreeNode& Below : Part.vNodes) {
        if (At == vNodes.size() || vNodes[At].Rule != Below.Rule) {
          return false;
        }
        ++At;
      }
    }
    return Way.End == vNodes[Node].End && At == Node + SizeBelow(Node);
  }

  std::size_t CheckNode(WhyAnswers& Answers, const std::vector<RandomRule>& vChanged,
                        std::size_t Node, std::size_t Line) {
    std::size_t Outcome = NotListed;
    Strings vsLines;
    std::vector<std::size_t> vLines;
    Answers.MaxListed = 100;
    Answers.Options.Limits.MaxConstituents = 2000;
    Answers.ForEachBegin(vNodes[Node].Rule, Text,
                         [&](Translate::RuleDiagnosis& Diagnosis, const BeginFacts& Facts) {
                           if (Facts.Begin != vNodes[Node].Start) {
                             return;
                           }
                           for (const Translate::MadeFacts& Current : Facts.Made.vFirst) {
                             Outcome = IsNodesWay(Current.Way, Node) ? std::size_t{Made} : Outcome;
                           }
                           for (const Translate::ClashFacts& Current : Facts.Clashes.vFirst) {
                             if (IsNodesWay(Current.Way, Node)) {
                               Outcome = Clashed;
                               EXPECT_TRUE(NamesLine(Diagnosis, Current.vEquations, Line))
                                   << TextOf(vChanged) << Text << "\nline " << Line;
                               for (const Translate::EquationClash& Equation : Current.vEquations) {
                                 vLines.push_back(Equation.Line);
                               }
                             }
                           }
                         });
    if (Outcome == Clashed) {
      ExpectMadeWithout(Answers, vChanged, Node, vLines);
    }
    return Outcome;
  }

  /// Whether each equation clashes by a value from a line, or is that line.
  static bool NamesLine(const Translate::RuleDiagnosis& Diagnosis,
                        const std::vector<Translate::EquationClash>& vEquations, std::size_t Line) {
    const auto IsFrom = [&](Translate::StructureId Value) {
      const auto vOrigins = Diagnosis.Trace().Origins(Value);
      return std::any_of(vOrigins.begin(), vOrigins.end(),
                         [&](const Translate::Origin& Current) { return Current.Line == Line; });
    };
    return std::all_of(
        vEquations.begin(), vEquations.end(), [&](const Translate::EquationClash& Clash) {
          return Clash.Line == Line || std::any_of(Clash.vConflicts.begin(), Clash.vConflicts.end(),
                                                   [&](const Translate::Conflict& Conflict) {
                                                     return IsFrom(Conflict.There) ||
                                                            IsFrom(Conflict.Came);
                                                   });
        });
  }

  /// The rule makes the constituent where the equations that clash are taken out.
  void ExpectMadeWithout(const WhyAnswers& Answers, const std::vector<RandomRule>& vChanged,
                         std::size_t Node, const std::vector<std::size_t>& vLines) {
    const std::size_t Rule = RuleOf(Node);
    RandomRule Without = vChanged[Rule];
    const auto& Equations = Answers.vDescriptions[vNodes[Node].Rule].Equations;
    std::vector<std::size_t> vOut;
    for (const std::size_t Line : vLines) {
      const std::vector<std::size_t>& vAll = Equations.at(Line).vLines;
      vOut.insert(vOut.end(), vAll.begin(), vAll.end());
    }
    for (std::size_t Current = Without.vConstraints.size(); Current-- > 0;) {
      if (std::find(vOut.begin(), vOut.end(), LineOf(Rule, Current)) != vOut.end()) {
        Without.vConstraints.erase(Without.vConstraints.begin() +
                                   static_cast<std::ptrdiff_t>(Current));
      }
    }
    WhyAnswers After(TextOf(vChanged) + Without.Text());
    const std::optional<BeginFacts> Facts =
        FactsOf(After, static_cast<std::uint32_t>(Set().Size()), Text, vNodes[Node].Start);
    const auto IsWay = [&](const Translate::MadeFacts& Listed) {
      return IsNodesWay(Listed.Way, Node);
    };
    EXPECT_TRUE(Facts && std::any_of(Facts->Made.vFirst.begin(), Facts->Made.vFirst.end(), IsWay))
        << TextOf(vChanged) << Without.Text() << Text;
  }

  RandomGrammar Random;
  std::vector<RandomRule> vRules;
  WhyAnswers Why;
  Strings vsText;
  std::string Text;
  std::vector<TreeNode> vNodes;
};

class PlantedFailures : public testing::TestWithParam<unsigned> {};

TEST_P(PlantedFailures, AreNamedAndCanBeUndone) {
  std::size_t Planted = 0;
  for (unsigned Seed = GetParam() * 100000; Planted < 1000 && !HasFailure(); ++Seed) {
    Planted += Planting(Seed).Plant();
  }
}

INSTANTIATE_TEST_SUITE_P(TenThousand, PlantedFailures, testing::Range(0U, 10U));

}  // namespace
