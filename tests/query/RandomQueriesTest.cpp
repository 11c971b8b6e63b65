// Random queries on random rules, against an evaluator that tries everything.
//
//   TRRULE_TEST_QUERIES=100000 trrule-query-tests --gtest_filter='RandomQueries.*'

#include "QuerySupport.h"

#include "Bytes.h"
#include "support/RandomInput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

// ---- Rules ------------------------------------------------------------------------------------

struct Path {
  char Side = 'x';
  int Index = 0;
  Strings vsFeatures;
};

struct Equation {
  Path Left;
  std::string Kind;  // "path", "value", "or", "not"
  Path Right;
  Strings vsValues;
};

/// A rule as plain data, all in capitals but for its literals.
struct PlainRule {
  std::string Types[2];
  Strings Labels[2];
  std::vector<std::pair<int, int>> vPairs;
  std::vector<Equation> vEquations;
  Strings vsComments;
  int Count = 1;
};

std::string Joined(const Strings& vsWords, const std::string& Between) {
  std::string Text;
  for (const std::string& sWord : vsWords) {
    Text += (Text.empty() ? "" : Between) + sWord;
  }
  return Text;
}

std::string TextOf(const Path& Current) {
  const std::string Node = Current.Side + std::to_string(Current.Index);
  return Current.vsFeatures.empty() ? Node
                                    : '(' + Node + ' ' + Joined(Current.vsFeatures, " ") + ')';
}

std::string TextOf(const Equation& Current) {
  const std::string Right = Current.Kind == "path"    ? TextOf(Current.Right)
                            : Current.Kind == "value" ? Current.vsValues[0]
                            : Current.Kind == "or"
                                ? "(*OR* " + Joined(Current.vsValues, " ") + ")"
                                : "(*NOT* " + Joined(Current.vsValues, " ") + ")";
  return '(' + TextOf(Current.Left) + " = " + Right + ")\n";
}

std::string TextOf(const PlainRule& Rule) {
  std::string Text;
  for (const std::string& sComment : Rule.vsComments) {
    Text += ";; " + sComment + '\n';
  }
  Text += Rule.Types[0] + "::" + Rule.Types[1] + " : [" + Joined(Rule.Labels[0], " ") + "] -> [" +
          Joined(Rule.Labels[1], " ") + "]\n";
  for (const auto& [X, Y] : Rule.vPairs) {
    Text += "(X" + std::to_string(X) + "::Y" + std::to_string(Y) + ")\n";
  }
  for (const Equation& Current : Rule.vEquations) {
    Text += TextOf(Current);
  }
  return Text;
}

const Strings SomeLabels{"A", "B", "C", "\"a\"", "\"b\""};
const Strings SomeWords{"NUM", "GEN", "AGR"};
const Strings SomeValues{"SG", "PL", "+"};

class RuleMaker {
 public:
  explicit RuleMaker(RandomInput& RandomPassIn) : Random(RandomPassIn) {}

  PlainRule Make() {
    PlainRule Rule;
    for (const int Side : {0, 1}) {
      Rule.Types[Side] = Random.Pick(Strings{"NP", "VP", "n"});
      Rule.Labels[Side] = Some(SomeLabels, 1, 5);
    }
    do {
      const int X = 1 + Number(Rule.Labels[0].size());
      Rule.vPairs.emplace_back(X, 1 + Number(Rule.Labels[1].size()));
    } while (Random.Below(3) != 0);
    while (Random.Below(3) != 0) {
      Rule.vEquations.push_back(MakeEquation(Rule));
    }
    Rule.vsComments = Some({"SL: red car", "note", "Red CAR", "car: x"}, 0, 3);
    if (Random.Below(2) == 0) {
      Rule.Count = 1 + Number(4);
      Rule.vsComments.push_back("Score:" + std::to_string(Rule.Count));
    }
    return Rule;
  }

 private:
  int Number(std::size_t Limit) { return static_cast<int>(Random.Below(Limit)); }

  Strings Some(const Strings& vsWords, std::size_t Least, std::size_t Most) {
    Strings vsTaken(Least + Random.Below(Most - Least + 1));
    for (std::string& sWord : vsTaken) {
      sWord = Random.Pick(vsWords);
    }
    return vsTaken;
  }

  Path MakePath(const PlainRule& Rule) {
    Path New;
    New.Side = Random.Pick(std::string("xy"));
    New.Index = Number(Rule.Labels[New.Side == 'x' ? 0 : 1].size() + 1);
    New.vsFeatures = Some(SomeWords, 0, 2);
    return New;
  }

  Equation MakeEquation(const PlainRule& Rule) {
    Equation New;
    New.Left = MakePath(Rule);
    New.Kind = Random.Pick(Strings{"path", "value", "or", "not"});
    if (New.Left.vsFeatures.empty()) {
      New.Kind = "path";
    }
    New.Right = MakePath(Rule);
    New.vsValues = Some(SomeValues, 1, 2);
    return New;
  }

  RandomInput& Random;
};

// ---- The evaluator that tries everything ------------------------------------------------------

/// Items: "*", "?", or names with "|" between them.
bool FitsItem(const std::string& Item, const std::string& Element) {
  return Item == "?" || ('|' + Item + '|').find('|' + Element + '|') != std::string::npos;
}

bool FitsAll(const Strings& vsItems, std::size_t Item, const Strings& vsElements,
             std::size_t Element) {
  if (Item == vsItems.size()) {
    return Element == vsElements.size();
  }
  const bool IsRun = vsItems[Item] == "*";
  if (IsRun && FitsAll(vsItems, Item + 1, vsElements, Element)) {
    return true;
  }
  return Element < vsElements.size() && (IsRun || FitsItem(vsItems[Item], vsElements[Element])) &&
         FitsAll(vsItems, IsRun ? Item : Item + 1, vsElements, Element + 1);
}

/// Whether a path fits "x", "x2", "*:num" and the like.
struct PathAsked {
  std::string Side;   // "*", "x" or "y"
  std::string Index;  // a number, or empty
  Strings vsItems;

  std::string Text() const {
    return Side + (Side == "*" ? "" : Index) + (vsItems.empty() ? "" : ":") + Joined(vsItems, ":");
  }
  bool Fits(const Path& Current) const {
    return (Side == "*" || (Side[0] == Current.Side &&
                            (Index.empty() || Index == std::to_string(Current.Index)))) &&
           FitsAll(vsItems, 0, Current.vsFeatures, 0);
  }
};

bool HasTrait(const PlainRule& Rule, const std::string& Trait) {
  std::set<std::string> ssTraits{"monotone"};
  for (const auto& [X, Y] : Rule.vPairs) {
    for (const auto& [OtherX, OtherY] : Rule.vPairs) {
      if (X < OtherX && Y > OtherY) {
        ssTraits = {"crossing"};
      }
    }
  }
  for (const int Side : {0, 1}) {
    for (std::size_t Begin = 1; Begin <= Rule.Labels[Side].size(); ++Begin) {
      std::set<int> Groups[2];
      Groups[Side].insert(static_cast<int>(Begin));
      for (std::size_t Round = 0; Round < Rule.vPairs.size(); ++Round) {
        for (const auto& [X, Y] : Rule.vPairs) {
          if (Groups[0].count(X) + Groups[1].count(Y) > 0) {
            Groups[0].insert(X);
            Groups[1].insert(Y);
          }
        }
      }
      const auto Name = [](const std::set<int>& Group) { return Group.size() == 1 ? "1" : "n"; };
      ssTraits.insert(Groups[1 - Side].empty()
                          ? "unaligned"
                          : std::string(Name(Groups[0])) + ":" + Name(Groups[1]));
    }
  }
  return ssTraits.count(Trait) > 0;
}

// ---- Queries ----------------------------------------------------------------------------------

/// A query, and what it means.
struct Asked {
  std::string Text;
  std::function<bool(const PlainRule&)> Fits;
};

class QueryMaker {
 public:
  explicit QueryMaker(RandomInput& RandomPassIn) : Random(RandomPassIn) {}

  Asked Make(int Depth = 3) {
    const std::size_t Form = Depth == 0 ? 3 : Random.Below(6);
    if (Form > 2) {
      return MakeCondition();
    }
    const Asked Left = Make(Depth - 1);
    if (Form == 2) {
      return {"not (" + Left.Text + ")",
              [Left](const PlainRule& Rule) { return !Left.Fits(Rule); }};
    }
    const Asked Right = Make(Depth - 1);
    const bool IsAnd = Form == 0;
    return {'(' + Left.Text + (IsAnd ? ") and (" : ") or (") + Right.Text + ')',
            [=](const PlainRule& Rule) {
              return IsAnd ? Left.Fits(Rule) && Right.Fits(Rule)
                           : Left.Fits(Rule) || Right.Fits(Rule);
            }};
  }

 private:
  Asked MakeCondition() {
    switch (Random.Below(7)) {
      case 0:
        return MakeSequence();
      case 1:
        return MakeTypes();
      case 2:
        return MakeShape();
      case 3:
        return MakeConstraint();
      case 4:
        return MakePassing();
      case 5:
        return MakeNumber();
      default:
        return MakeComment();
    }
  }

  /// Items between blanks or colons.
  Strings Items(const Strings& vsNames, std::size_t Most, bool HasRuns) {
    Strings vsItems(Random.Below(Most + 1));
    for (std::string& sItem : vsItems) {
      const std::size_t Form = Random.Below(6);
      sItem = Form == 0 && HasRuns ? "*" : Form == 1 ? "?" : Random.Pick(vsNames);
      if (Form == 2) {
        sItem += '|' + Random.Pick(vsNames);
      }
    }
    return vsItems;
  }

  Asked MakeSequence() {
    const bool IsFromStart = Random.Below(3) == 0;
    const bool IsToEnd = Random.Below(3) == 0;
    const std::size_t Sides = Random.Below(3);
    Strings vsItems = Items(SomeLabels, 4, true);
    const std::string Text = std::string(Sides == 0   ? ""
                                         : Sides == 1 ? "source "
                                                      : "target ") +
                             (IsFromStart ? "[^ " : "[") + Joined(vsItems, " ") +
                             (IsToEnd ? " $]" : "]");
    if (!IsFromStart) {
      vsItems.insert(vsItems.begin(), "*");
    }
    if (!IsToEnd) {
      vsItems.emplace_back("*");
    }
    return {Text, [=](const PlainRule& Rule) {
              return (Sides != 2 && FitsAll(vsItems, 0, Rule.Labels[0], 0)) ||
                     (Sides != 1 && FitsAll(vsItems, 0, Rule.Labels[1], 0));
            }};
  }

  Asked MakeTypes() {
    const Strings vsTypes{"NP", "VP", "n", "NP|n", "?"};
    const std::string Source = Random.Pick(vsTypes);
    const std::string Target = Random.Pick(vsTypes);
    return {Source + "::" + (Target == "?" ? "*" : Target), [=](const PlainRule& Rule) {
              return FitsItem(Source, Rule.Types[0]) && FitsItem(Target, Rule.Types[1]);
            }};
  }

  Asked MakeShape() {
    const std::string Trait =
        Random.Pick(Strings{"monotone", "crossing", "unaligned", "1:1", "1:n", "n:1", "n:n"});
    return {Trait, [=](const PlainRule& Rule) { return HasTrait(Rule, Trait); }};
  }

  PathAsked MakePath() {
    PathAsked New;
    New.Side = Random.Pick(Strings{"x", "y", "*"});
    New.Index = Random.Pick(Strings{"", "0", "1", "2"});
    New.vsItems = Items(SomeWords, 2, true);
    return New;
  }

  Asked MakeConstraint() {
    const PathAsked Left = MakePath();
    const PathAsked Right = MakePath();
    const std::string Value = Random.Pick(Strings{"SG", "PL", "+", "SG|PL", "?"});
    const std::string Other = Random.Pick(Strings{"", "SG", "PL|+"});
    const auto Has = [](const Equation& Current, const std::string& Item) {
      return Item.empty() ||
             std::any_of(Current.vsValues.begin(), Current.vsValues.end(),
                         [&](const std::string& sValue) { return FitsItem(Item, sValue); });
    };
    std::size_t Form = Random.Below(5);
    if (Right.Text() == "*") {
      Form = 0;  // A "*" alone is any right side, not any node.
    }
    const std::string Texts[] = {"*", Right.Text(), Value, "*or* " + Value + ' ' + Other,
                                 "*not* " + Value + ' ' + Other};
    const auto FitsOne = [=](const Equation& Current) {
      const bool IsPath = Current.Kind == "path";
      const bool IsLeft = Left.Fits(Current.Left);
      const bool IsRight = IsPath && Left.Fits(Current.Right);
      const bool IsOr = Current.Kind == "or";
      const bool HasBoth = Has(Current, Value) && Has(Current, Other);
      return Form == 0   ? IsLeft || IsRight
             : Form == 1 ? IsPath && ((IsLeft && Right.Fits(Current.Right)) ||
                                      (IsRight && Right.Fits(Current.Left)))
             : Form == 2 ? IsLeft && (IsOr || Current.Kind == "value") && FitsOneOf(Current, Value)
             : Form == 3 ? IsLeft && IsOr && HasBoth
                         : IsLeft && Current.Kind == "not" && HasBoth;
    };
    return {Left.Text() + " = " + Texts[Form], [=](const PlainRule& Rule) {
              return std::any_of(Rule.vEquations.begin(), Rule.vEquations.end(), FitsOne);
            }};
  }

  /// A single value is written without the others that the equation has.
  static bool FitsOneOf(const Equation& Current, const std::string& Item) {
    const std::size_t Size = Current.Kind == "value" ? 1 : Current.vsValues.size();
    return std::any_of(Current.vsValues.begin(),
                       Current.vsValues.begin() + static_cast<std::ptrdiff_t>(Size),
                       [&](const std::string& sValue) { return FitsItem(Item, sValue); });
  }

  Asked MakePassing() {
    Strings vsItems = Items(SomeWords, 2, true);
    if (vsItems.empty()) {
      vsItems = {"*"};
    }
    return {"passes " + Joined(vsItems, ":"), [=](const PlainRule& Rule) {
              return std::any_of(
                  Rule.vEquations.begin(), Rule.vEquations.end(), [&](const Equation& Current) {
                    return Current.Kind == "path" && Current.Left.Side != Current.Right.Side &&
                           (FitsAll(vsItems, 0, Current.Left.vsFeatures, 0) ||
                            FitsAll(vsItems, 0, Current.Right.vsFeatures, 0));
                  });
            }};
  }

  Asked MakeNumber() {
    const Strings vsMeasures{"count",      "components",  "source components", "target components",
                             "alignments", "constraints", "comments"};
    const Strings vsSigns{"=", "!=", "<", "<=", ">", ">="};
    const std::string Measure = Random.Pick(vsMeasures);
    const std::string Sign = Random.Pick(vsSigns);
    const std::size_t Number = Random.Below(7);
    return {Measure + ' ' + Sign + ' ' + std::to_string(Number), [=](const PlainRule& Rule) {
              const std::size_t Sizes[] = {Rule.Labels[0].size(), Rule.Labels[1].size()};
              const std::size_t Value = Measure == "count"         ? std::size_t(Rule.Count)
                                        : Measure == "components"  ? Sizes[0] + Sizes[1]
                                        : Measure == vsMeasures[2] ? Sizes[0]
                                        : Measure == vsMeasures[3] ? Sizes[1]
                                        : Measure == "alignments"  ? Rule.vPairs.size()
                                        : Measure == "constraints" ? Rule.vEquations.size()
                                                                   : Rule.vsComments.size();
              return (Sign != "!=" && Sign.find('=') != std::string::npos && Value == Number) ||
                     (Sign == "!=" && Value != Number) || (Sign[0] == '<' && Value < Number) ||
                     (Sign[0] == '>' && Value > Number);
            }};
  }

  Asked MakeComment() {
    using Test = bool (*)(const std::string&);
    const std::pair<const char*, Test> Forms[] = {
        {"\"car\"", [](const std::string& s) { return s.find("car") != std::string::npos; }},
        {"/^SL/", [](const std::string& s) { return s.rfind("SL", 0) == 0; }},
        {"/car$/i",
         [](const std::string& s) {
           return s.size() >= 3 && Grammar::Upper(s.substr(s.size() - 3)) == "CAR";
         }},
        {"/n.t|x/",
         [](const std::string& s) {
           return s.find("not") != std::string::npos || s.find('x') != std::string::npos;
         }},
    };
    const auto& [Text, Fits] = Forms[Random.Below(4)];
    const Test IsFit = Fits;
    return {std::string("comment ") + Text, [=](const PlainRule& Rule) {
              return std::any_of(Rule.vsComments.begin(), Rule.vsComments.end(), IsFit);
            }};
  }

  RandomInput& Random;
};

/// How many rules: TRRULE_TEST_QUERIES, or what takes two seconds.
int CountOfRules() {
  const char* Given = std::getenv("TRRULE_TEST_QUERIES");
  return Given == nullptr ? 1000 : std::atoi(Given);
}

}  // namespace

TEST(RandomQueries, HaveTheirMeaningAndComeBackFromTheirText) {
  RandomInput Random;
  RuleMaker Rules(Random);
  QueryMaker Queries(Random);
  for (int Count = CountOfRules(); Count > 0 && !HasFailure(); --Count) {
    const PlainRule Rule = Rules.Make();
    const ReadRuleText Read(TextOf(Rule));
    ASSERT_TRUE(Read.Rule().IsWhole()) << TextOf(Rule);
    for (int Asking = 0; Asking < 5; ++Asking) {
      const Asked Query = Queries.Make();
      const Query::QueryNode Tree = TreeOf(Query.Text);
      EXPECT_EQ(Query::Fits(Tree, Read.Rule()), Query.Fits(Rule)) << Query.Text << '\n'
                                                                  << TextOf(Rule);
      std::string Written;
      Query::AppendQuery(Tree, Written);
      EXPECT_EQ(Rewritten(Written), Written) << Query.Text;
      EXPECT_EQ(Query::Fits(TreeOf(Written), Read.Rule()), Query.Fits(Rule)) << Written;
    }
  }
}

TEST(RandomQueries, AreReadOrRefusedUpToEachPlaceAndWhenDamaged) {
  RandomInput Random;
  QueryMaker Queries(Random);
  for (int Count = CountOfRules() / 10; Count > 0 && !HasFailure(); --Count) {
    const std::string Whole = Queries.Make().Text;
    Strings vsTexts{Random.Damaged(Whole, "[](){}*:=|\"/\\ ^$?<>!x1\xC3\n"),
                    Random.Damaged(Whole, "andort1:n")};
    for (std::size_t Size = 0; Size < Whole.size(); ++Size) {
      vsTexts.push_back(Whole.substr(0, Size));
    }
    for (const std::string& sText : vsTexts) {
      Query::QueryNode Tree;
      Query::QueryFault Fault;
      if (Query::ParseQuery(sText, Tree, Fault)) {
        std::string Written;
        Query::AppendQuery(Tree, Written);
        EXPECT_EQ(Rewritten(Written), Written) << sText;
      } else {
        EXPECT_LE(Fault.Place, sText.size()) << sText;
        EXPECT_FALSE(Fault.Message.empty()) << sText;
      }
    }
  }
}
