// What is found by looking at a whole grammar, held against the obvious way to find it and against
// what the engine makes of random texts.

#include "EdgeCycles.h"
#include "GrammarFindings.h"
#include "RivalRules.h"
#include "TranslateSupport.h"

#include "Bytes.h"
#include "Literal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using Grammar::Finding;
using Grammar::UsableRule;
using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;

/// Grammars with few labels, features and values, in which most rules have something to say about
/// the same paths.
class DenseGrammar {
 public:
  explicit DenseGrammar(unsigned Seed) : Numbers(Seed) {}

  std::string Text() {
    std::string Result;
    for (const char* const Word : {"a", "b", "c"}) {
      Result += Entry(Word) + Entry(Word);
    }
    for (std::size_t Count = 3 + Below(4); Count > 0; --Count) {
      Result += Phrase();
    }
    return Result;
  }

  std::string Words() {
    std::string Result;
    for (std::size_t Count = 1 + Below(3); Count > 0; --Count) {
      Result += std::string(1, "abc"[Below(3)]) + ' ';
    }
    return Result;
  }

  std::string Type() { return std::string(1, "ABCS"[Below(4)]); }
  std::size_t Below(std::size_t Limit) { return Numbers() % Limit; }

 private:
  std::string Value() {
    const std::string One(1, "uvw"[Below(3)]);
    const std::string Other(1, "uvw"[Below(3)]);
    const std::size_t Kind = Below(8);
    return Kind > 1 ? One : (Kind == 0 ? "(*OR* " : "(*NOT* ") + One + ' ' + Other + ')';
  }

  std::string Path(std::size_t Node) {
    const char* const Features[] = {"f", "f", "f", "g", "g", "f g"};
    return "(x" + std::to_string(Node) + ' ' + Features[Below(6)] + ')';
  }

  std::string Entry(const std::string& Word) {
    const std::string Label = Type();
    std::string Text =
        Label + "::" + Label + " [\"" + Word + "\"] -> [\"" + Word + "\"]\n(X1::Y1)\n";
    Text += Below(5) > 0 ? "((x0 f) = " + Value() + ")\n" : "";
    Text += Below(3) > 0 ? "((x0 g) = " + Value() + ")\n" : "";
    return Text;
  }

  std::string Equation(std::size_t Components) {
    const std::size_t Node = Below(Components + 1);
    const std::size_t Other = 1 + Below(Components);
    switch (Below(5)) {
      case 0:
        return "(x0 = x" + std::to_string(Other) + ")\n";
      case 1:
      case 2:
        return '(' + Path(Node) + " = " + Path(Other) + ")\n";
      default:
        return '(' + Path(Node) + " = " + Value() + ")\n";
    }
  }

  std::string Phrase() {
    const std::string Label = Type();
    const std::size_t Components = 1 + Below(2);
    std::string Labels;
    std::string Pairs;
    for (std::size_t Index = 1; Index <= Components; ++Index) {
      Labels += (Index == 1 ? "" : " ") + Type();
      Pairs += "(X" + std::to_string(Index) + "::Y" + std::to_string(Index) + ")\n";
    }
    std::string Text = Label + "::" + Label + " [" + Labels + "] -> [" + Labels + "]\n" + Pairs;
    for (std::size_t Count = Below(4); Count > 0; --Count) {
      Text += Equation(Components);
    }
    return Text;
  }

  std::mt19937 Numbers;
};

/// The shapes of the rules of a grammar.
class ReadShapes {
 public:
  explicit ReadShapes(const ReadGrammar& Read) {
    Grammar::OutlineMaker Maker;
    Grammar::SourceRule Lines;
    for (const Grammar::RuleText& Text : Read.Texts) {
      Grammar::RuleOutline Outline;
      Lines.Read(Text);
      Maker.Make(Lines, Outline);
      Shapes.Add(Text, Outline);
      Rivals.Check(Text, Outline, vRivals);
    }
    Shapes.Finish();
  }

  Grammar::GrammarShapes Shapes;
  Grammar::RivalRules Rivals;
  std::vector<Finding> vRivals;
};

/// The line of the rule that a line belongs to.
std::size_t RuleLineOf(const ReadGrammar& Read, std::size_t Line) {
  std::size_t Found = 0;
  for (const UsableRule& Rule : Read.vRules) {
    Found = Rule.Line <= Line ? Rule.Line : Found;
  }
  return Found;
}

/// The derivations of a text, as JSON.
std::string DerivationsOf(TestEngine& Engine, const std::string& Text,
                          const std::vector<std::uint32_t>* vStarts = nullptr) {
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Translations = 3000;
  if (vStarts != nullptr) {
    Options.HasStarts = true;
    Options.vStarts = *vStarts;
  }
  Translate::WriterOptions Form;
  Form.Format = Translate::TextFormat::Json;
  return Engine.Written(Text, Options, Form);
}

std::string MarkOf(std::size_t RuleLine) {
  return "\"rule\":\"a.trr:" + std::to_string(RuleLine) + '"';
}

std::string TypesOf(const UsableRule& Rule) {
  return Grammar::Upper(Rule.X.Type) + "::" + Grammar::Upper(Rule.Y.Type);
}

/// What each source place of a rule wants: "N::DET", or "N" where it is not translated.
std::map<std::size_t, std::string> WantsOf(const UsableRule& Rule) {
  std::map<std::size_t, std::string> mWants;
  for (std::size_t Index = 0; Index < Rule.X.vLabels.size(); ++Index) {
    if (!Grammar::IsLiteral(Rule.X.vLabels[Index])) {
      mWants[Index] = Grammar::Upper(Rule.X.vLabels[Index]);
    }
  }
  std::set<std::size_t> ssSeen;
  for (std::size_t Target = 0; Target < Rule.Y.vLabels.size(); ++Target) {
    const std::size_t Source = Rule.Places.Sources()[Target];
    if (mWants.count(Source) == 1 && ssSeen.insert(Source).second) {
      mWants[Source] += "::" + Grammar::Upper(Rule.Y.vLabels[Target]);
    }
  }
  return mWants;
}

bool Fills(const UsableRule& Rule, const std::string& Wanted) {
  return Wanted == Grammar::Upper(Rule.X.Type) || Wanted == TypesOf(Rule);
}

bool IsProvided(const ReadGrammar& Read, const std::string& Wanted) {
  return std::any_of(Read.vRules.begin(), Read.vRules.end(),
                     [&](const UsableRule& Rule) { return Fills(Rule, Wanted); });
}

}  // namespace

// ---- Values -----------------------------------------------------------------------------------

TEST(WholeGrammar, RulesWithAValueThatNoRuleSuppliesAreInNoDerivation) {
  std::size_t Found = 0;
  std::size_t Derived = 0;
  for (unsigned Seed = 0; Seed < 1500; ++Seed) {
    DenseGrammar Random(Seed);
    const std::string Text = Random.Text();
    TestEngine Engine(Text);
    ReadShapes Read(Engine.Read);
    Grammar::GrammarFindings Whole(Read.Shapes);
    Whole.AddUnsuppliedValues();
    const std::vector<Finding> vFindings = Whole.Take();
    Found += vFindings.size();
    for (int Count = 0; Count < 6 && !vFindings.empty(); ++Count) {
      const std::string Json = DerivationsOf(Engine, Random.Words());
      Derived += Json.find("\"rule\"") != std::string::npos ? 1 : 0;
      for (const Finding& Reported : vFindings) {
        ASSERT_EQ(Json.find(MarkOf(RuleLineOf(Engine.Read, Reported.Line))), std::string::npos)
            << Reported.Line << ": " << Reported.Message << '\n'
            << Text << Json;
      }
    }
  }
  EXPECT_GT(Found, 100U);
  EXPECT_GT(Derived, 300U);
}

/// What a rule that wants one value of one feature gets, worked out for entries alone.
TEST(WholeGrammar, ValuesThatOnlyEntriesSupplyAreFoundExactly) {
  std::size_t Found = 0;
  for (unsigned Seed = 0; Seed < 500; ++Seed) {
    std::mt19937 Numbers(Seed);
    std::string Text;
    StringSet ssValues;
    bool IsOpen = false;
    for (std::size_t Count = 1 + Numbers() % 3; Count > 0; --Count) {
      const std::string Value(1, "uvw"[Numbers() % 3]);
      const bool HasValue = Numbers() % 6 > 0;
      IsOpen = IsOpen || !HasValue;
      ssValues.insert(Value);
      Text += "N::N [\"a\"] -> [\"" + Value + "\"]\n(X1::Y1)\n" +
              (HasValue ? "((x0 f) = " + Value + ")\n" : "");
    }
    const std::string Wanted(1, "uvw"[Numbers() % 3]);
    Text += "S::S [N] -> [N]\n(X1::Y1)\n((x1 f) = " + Wanted + ")\n";
    TestEngine Engine(Text);
    ReadShapes Read(Engine.Read);
    Grammar::GrammarFindings Whole(Read.Shapes);
    Whole.AddUnsuppliedValues();
    const bool IsMissing = !IsOpen && ssValues.count(Wanted) == 0;
    ASSERT_EQ(Whole.Take().size(), IsMissing ? 1U : 0U) << Text;
    const std::string Mark = MarkOf(Engine.Read.vRules.back().Line);
    ASSERT_EQ(DerivationsOf(Engine, "a").find(Mark) == std::string::npos, IsMissing) << Text;
    Found += IsMissing ? 1 : 0;
  }
  EXPECT_GT(Found, 50U);
}

// ---- Labels -----------------------------------------------------------------------------------

TEST(WholeGrammar, LabelsWithoutRulesAreThoseThatNoRuleFills) {
  std::size_t Found = 0;
  for (unsigned Seed = 0; Seed < 400; ++Seed) {
    DenseGrammar Random(Seed);
    // Without the first entries, so that labels are missing.
    std::string Text = Random.Text();
    for (int Count = 0; Count < 4; ++Count) {
      Text.erase(0, Text.find(" [\"", Text.find('[')) - 4);
    }
    TestEngine Engine(Text);
    ReadShapes Read(Engine.Read);
    Grammar::GrammarFindings Whole(Read.Shapes);
    Whole.AddUnprovidedLabels();
    StringSet ssFound;
    for (const Finding& Reported : Whole.Take()) {
      const std::size_t Begin = Reported.Message.find('"') + 1;
      ssFound.insert(Reported.Message.substr(Begin, Reported.Message.find('"', Begin) - Begin));
    }
    StringSet ssExpected;
    StringSet ssMissing;
    for (const UsableRule& Rule : Engine.Read.vRules) {
      for (const auto& [Index, sWanted] : WantsOf(Rule)) {
        const std::string Label = sWanted.substr(0, sWanted.find(':'));
        if (!IsProvided(Engine.Read, sWanted)) {
          ssExpected.insert(IsProvided(Engine.Read, Label) ? sWanted : Label);
          ssMissing.insert(MarkOf(Rule.Line));
        }
      }
    }
    ASSERT_EQ(ssFound, ssExpected) << Text;
    const std::string Json = DerivationsOf(Engine, Random.Words());
    for (const std::string& sMark : ssMissing) {
      ASSERT_EQ(Json.find(sMark), std::string::npos) << Text;
    }
    Found += ssFound.size();
  }
  EXPECT_GT(Found, 100U);
}

// ---- Start types ------------------------------------------------------------------------------

namespace {

/// The types of all rules that a start type leads to, by going through all rules until nothing is
/// new.
StringSet SlowReach(const ReadGrammar& Read, const std::string& Start) {
  StringSet ssReached;
  for (const UsableRule& Rule : Read.vRules) {
    if (Grammar::Upper(Rule.X.Type) == Start) {
      ssReached.insert(TypesOf(Rule));
    }
  }
  for (std::size_t Before = 0; Before < ssReached.size();) {
    Before = ssReached.size();
    for (const UsableRule& Above : Read.vRules) {
      for (const auto& [Index, sWanted] : WantsOf(Above)) {
        for (const UsableRule& Below : Read.vRules) {
          if (ssReached.count(TypesOf(Above)) == 1 && Fills(Below, sWanted)) {
            ssReached.insert(TypesOf(Below));
          }
        }
      }
    }
  }
  return ssReached;
}

}  // namespace

TEST(WholeGrammar, RulesThatNoStartTypeReachesAreInNoDerivation) {
  std::size_t Found = 0;
  for (unsigned Seed = 0; Seed < 400; ++Seed) {
    DenseGrammar Random(Seed);
    const std::string Text = Random.Text();
    const std::string Start = Random.Type();
    TestEngine Engine(Text);
    ReadShapes Read(Engine.Read);
    Grammar::GrammarFindings Whole(Read.Shapes);
    Whole.AddUnreachableRules({Start});
    StringSet ssFound;
    for (const Finding& Reported : Whole.Take()) {
      const std::size_t Begin = Reported.Message.find('"') + 1;
      ssFound.insert(Reported.Message.substr(Begin, Reported.Message.find('"', Begin) - Begin));
    }
    const StringSet ssReached = SlowReach(Engine.Read, Start);
    StringSet ssExpected;
    for (const UsableRule& Rule : Engine.Read.vRules) {
      if (ssReached.count(TypesOf(Rule)) == 0) {
        ssExpected.insert(TypesOf(Rule));
      }
    }
    ASSERT_EQ(ssFound, ssExpected) << Text;
    std::vector<std::uint32_t> vStarts;
    if (Engine.Set().FindSourceType(Start) != Translate::RuleSet::None) {
      vStarts.push_back(Engine.Set().FindSourceType(Start));
    }
    const std::string Json = DerivationsOf(Engine, Random.Words(), &vStarts);
    for (const UsableRule& Rule : Engine.Read.vRules) {
      if (ssFound.count(TypesOf(Rule)) == 1) {
        ASSERT_EQ(Json.find(MarkOf(Rule.Line)), std::string::npos) << Text;
      }
    }
    Found += ssFound.size();
  }
  EXPECT_GT(Found, 100U);
}

// ---- Unary rules ------------------------------------------------------------------------------

namespace {

/// Whether unary rules lead in a cycle: one that can stand above itself, by way of others or not.
bool HasUnaryCycle(const ReadGrammar& Read) {
  const std::size_t Size = Read.vRules.size();
  std::vector<std::vector<bool>> vStandsAbove(Size, std::vector<bool>(Size));
  for (std::size_t Above = 0; Above < Size; ++Above) {
    const auto mWants = WantsOf(Read.vRules[Above]);
    const bool IsUnary = Read.vRules[Above].X.vLabels.size() == 1 && mWants.size() == 1;
    for (std::size_t Below = 0; IsUnary && Below < Size; ++Below) {
      vStandsAbove[Above][Below] = Fills(Read.vRules[Below], mWants.begin()->second);
    }
  }
  for (std::size_t Middle = 0; Middle < Size; ++Middle) {
    for (std::size_t Above = 0; Above < Size; ++Above) {
      for (std::size_t Below = 0; Below < Size; ++Below) {
        vStandsAbove[Above][Below] = vStandsAbove[Above][Below] ||
                                     (vStandsAbove[Above][Middle] && vStandsAbove[Middle][Below]);
      }
    }
  }
  for (std::size_t Current = 0; Current < Size; ++Current) {
    if (vStandsAbove[Current][Current]) {
      return true;
    }
  }
  return false;
}

}  // namespace

TEST(WholeGrammar, CyclesOfUnaryRulesAreFound) {
  std::size_t Found = 0;
  for (unsigned Seed = 0; Seed < 800; ++Seed) {
    const std::string Text = DenseGrammar(Seed).Text();
    const TestEngine Engine(Text);
    ReadShapes Read(Engine.Read);
    Grammar::GrammarFindings Whole(Read.Shapes);
    Whole.AddUnaryCycles();
    const std::vector<Finding> vFindings = Whole.Take();
    ASSERT_EQ(!vFindings.empty(), HasUnaryCycle(Engine.Read)) << Text;
    Found += vFindings.empty() ? 0 : 1;
  }
  EXPECT_GT(Found, 50U);
}

TEST(WholeGrammar, EdgesOfACycleFollowEachOther) {
  for (unsigned Seed = 0; Seed < 500; ++Seed) {
    std::mt19937 Numbers(Seed);
    std::vector<Grammar::GraphEdge> vEdges;
    for (std::size_t Count = Numbers() % 12; Count > 0; --Count) {
      const int From = static_cast<int>(Numbers() % 6);
      vEdges.push_back({From, static_cast<int>(Numbers() % 6), Count});
    }
    std::stable_sort(vEdges.begin(), vEdges.end(),
                     [](const Grammar::GraphEdge& Left, const Grammar::GraphEdge& Right) {
                       return Left.From < Right.From;
                     });
    std::set<std::size_t> ssUsed;
    for (const std::vector<Grammar::GraphEdge>& vCycle : Grammar::FindEdgeCycles(vEdges)) {
      for (std::size_t Index = 0; Index < vCycle.size(); ++Index) {
        EXPECT_EQ(vCycle[Index].To, vCycle[(Index + 1) % vCycle.size()].From);
        EXPECT_TRUE(ssUsed.insert(vCycle[Index].Line).second);
      }
    }
  }
}

// ---- Rivals -----------------------------------------------------------------------------------

namespace {

/// What two rules have in common that are alike but for their target side; and all else.
std::pair<std::string, std::string> SourceAndRest(const Grammar::RuleText& Text) {
  StringSet ssSource;
  std::multiset<std::string> ssRest;
  std::string Source;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const std::string Code = Grammar::Upper(Text.Parts(Line).Code);
    const std::size_t Arrow = Code.find("->");
    if (Arrow != std::string::npos) {
      Source =
          Code.substr(0, Code.find("::")) + Code.substr(Code.find('['), Arrow - Code.find('['));
      ssRest.insert(Code.substr(Code.find("::"), Code.find('[') - Code.find("::")) +
                    std::string(Text.Line(Line)).substr(Arrow));
    } else if (Code.find('Y') != std::string::npos) {
      ssRest.insert(Code);
    } else if (!Code.empty()) {
      Source += Code;
    }
  }
  std::string Rest;
  for (const std::string& sEach : ssRest) {
    Rest += sEach + '\n';
  }
  return {Source, Rest};
}

}  // namespace

TEST(WholeGrammar, RivalsAreTheRulesWithTheSourceSideOfAnEarlierOne) {
  std::size_t Found = 0;
  for (unsigned Seed = 0; Seed < 300; ++Seed) {
    std::mt19937 Numbers(Seed);
    std::string Text;
    for (int Count = 0; Count < 8; ++Count) {
      const std::string Type(1, "AB"[Numbers() % 2]);
      const std::string Label(1, "NV"[Numbers() % 2]);
      const std::string Word(1, "xyX"[Numbers() % 3]);
      Text += Type + "::" + "AB"[Numbers() % 2] + " [\"w\" " + Label + "] -> [" + Label + " \"" +
              Word + "\"]\n(X2::Y1)\n";
      Text += Numbers() % 2 == 0 ? "((x2 f) = v)\n" : "";
      Text += Numbers() % 2 == 0 ? "((y1 f) = v)\n" : "";
    }
    const ReadGrammar Rules(Text);
    const ReadShapes Read(Rules);
    std::map<std::string, std::pair<std::string, std::size_t>> mFirst;
    Strings vsExpected;
    for (const Grammar::RuleText& Rule : Rules.Texts) {
      const auto [sSource, sRest] = SourceAndRest(Rule);
      const auto& [sFirstRest, Line] =
          mFirst.emplace(sSource, std::pair(sRest, Grammar::LineOfRule(Rule))).first->second;
      if (sFirstRest != sRest) {
        vsExpected.push_back(std::to_string(Grammar::LineOfRule(Rule)) + ' ' +
                             std::to_string(Line));
      }
    }
    Strings vsFound;
    for (const Finding& Reported : Read.vRivals) {
      vsFound.push_back(std::to_string(Reported.Line) + ' ' + std::to_string(Reported.OtherLine));
    }
    ASSERT_EQ(vsFound, vsExpected) << Text;
    Found += vsFound.size();
  }
  EXPECT_GT(Found, 200U);
}
