// Sections: words, types and components, equations, the rest of the rule, the outline.

#include "RuleOutline.h"

#include "Bytes.h"
#include "Literal.h"
#include "UsableRule.h"

#include <algorithm>

namespace Grammar {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

void RuleOutline::Clear() {
  HasTypes = false;
  IsUsable = false;
  LacksSources = false;
  ComponentCount = 0;
  vPlaces.clear();
  vEquations.clear();
  vWords.clear();
  Key = SumPair();
  Source = SumPair();
  Rest = 0;
}

// ---- Words ------------------------------------------------------------------------------------

namespace {

RuleOutline::Word Summed(std::string_view Text) {
  return {Text, SumInCapitals(Text)};
}

/// Adds the words of a text, which stand between white space.
RuleOutline::Words AddWords(std::string_view Text, RuleOutline& OutlineReturn,
                            SumPair& SumsReturn) {
  const std::size_t First = OutlineReturn.vWords.size();
  while (!(Text = WithoutLeadingSpace(Text)).empty()) {
    const auto* const End = std::find_if(Text.begin(), Text.end(), IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    OutlineReturn.vWords.push_back(Summed(Text.substr(0, Size)));
    SumsReturn.Add(OutlineReturn.vWords.back().Sum);
    Text.remove_prefix(Size);
  }
  const std::size_t Count = OutlineReturn.vWords.size() - First;
  SumsReturn.Add(Count);
  return {static_cast<std::uint32_t>(First), static_cast<std::uint32_t>(Count)};
}

}  // namespace

// ---- Types and components ---------------------------------------------------------------------

/// A source place wants the target type of the places that it is written at.
void OutlineMaker::AddComponents(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  vWanted.assign(Rule.SLLabels().size(), {});
  for (std::size_t Target = 0; OutlineReturn.IsUsable && Target < Rule.TLLabels().size();
       ++Target) {
    const std::uint32_t Source = Sources.Sources()[Target];
    if (Source != PlaceSources::None) {
      vWanted[Source] = Rule.TLLabels()[Target];
    }
  }
  const std::string_view Line = Rule.Text().Line(OutlineReturn.RuleLine);
  for (const std::string_view Label : Rule.SLLabels()) {
    const RuleOutline::Word Word = Summed(Label);
    OutlineReturn.Source.Add(Word.Sum);
    const std::uint32_t Component = ++OutlineReturn.ComponentCount;
    if (IsLiteral(Label)) {
      OutlineReturn.Key.Add(0);
      continue;
    }
    OutlineReturn.vPlaces.push_back({Component,
                                     static_cast<std::uint32_t>(OffsetIn(Line, Label) + 1), Word,
                                     Summed(vWanted[Component - 1])});
    OutlineReturn.Key.Add(Word.Sum);
    OutlineReturn.Key.Add(OutlineReturn.vPlaces.back().Wanted.Sum);
  }
}

// ---- Equations --------------------------------------------------------------------------------

namespace {

bool IsOfAnalysis(const ConstraintParts& Parts) {
  return Parts.Left.Side == 'X' && (!Parts.RightNode || Parts.RightNode->Side == 'X');
}

RuleOutline::Path AddPath(const NodeText& Node, std::string_view Features,
                          RuleOutline& OutlineReturn, SumPair& SumsReturn) {
  const auto Component = static_cast<std::uint32_t>(Node.Index);
  SumsReturn.Add(Component);
  return {Component, AddWords(Features, OutlineReturn, SumsReturn)};
}

/// Adds the words of a constraint. Where several words are one value, they are one word.
RuleOutline::Equation ReadEquation(const ConstraintParts& Parts, RuleOutline& OutlineReturn,
                                   SumPair& SumsReturn) {
  using Kind = RuleOutline::Kind;
  RuleOutline::Equation New;
  New.What = Parts.RightNode ? Kind::Link : Parts.Kind == RightKind::Not ? Kind::Not : Kind::Any;
  SumsReturn.Add(static_cast<std::uint64_t>(New.What));
  New.Left = AddPath(Parts.Left, Parts.Feature, OutlineReturn, SumsReturn);
  if (Parts.RightNode) {
    New.Right = AddPath(*Parts.RightNode, Parts.RightFeature, OutlineReturn, SumsReturn);
  } else if (Parts.Kind == RightKind::Value) {
    New.Atoms = {static_cast<std::uint32_t>(OutlineReturn.vWords.size()), 1};
    OutlineReturn.vWords.push_back(Summed(Trimmed(Parts.Value)));
    SumsReturn.Add(OutlineReturn.vWords.back().Sum);
    SumsReturn.Add(1);
  } else {
    New.Atoms = AddWords(Parts.Value, OutlineReturn, SumsReturn);
  }
  return New;
}

/// Adds the equations between the components of the source; the others only count for the rest.
void AddEquations(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  for (const SourceRule::ConstraintLine& Line : Rule.Constraints()) {
    SumPair Sums;
    if (IsOfAnalysis(Line.Parts)) {
      OutlineReturn.vEquations.push_back(ReadEquation(Line.Parts, OutlineReturn, Sums));
      OutlineReturn.vEquations.back().Line = static_cast<std::uint32_t>(Line.Line);
      OutlineReturn.Key.Add(Sums);
      OutlineReturn.Source.AddUnordered(Sums);
      continue;
    }
    const std::size_t Before = OutlineReturn.vWords.size();
    Sums.Add(static_cast<unsigned char>(Line.Parts.Left.Side));
    Sums.Add(Line.Parts.RightNode ? static_cast<unsigned char>(Line.Parts.RightNode->Side) : 0U);
    ReadEquation(Line.Parts, OutlineReturn, Sums);
    OutlineReturn.vWords.resize(Before);
    OutlineReturn.Rest += Sums.Hash();
  }
}

// ---- The rest of the rule ---------------------------------------------------------------------

/// The words of the target count as they are written; alignments in any order.
void SumRest(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  SumPair Sums;
  Sums.Add(OutlineReturn.TLType.Sum);
  for (const std::string_view Label : Rule.TLLabels()) {
    if (IsLiteral(Label)) {
      Sums.AddText(Label);
    } else {
      Sums.Add(SumInCapitals(Label));
    }
  }
  OutlineReturn.Rest += Sums.Hash();
  for (const SourceRule::AlignmentLine& Line : Rule.Alignments()) {
    OutlineReturn.Rest += Mixed(
        Pair(static_cast<std::uint32_t>(Line.Parts.X), static_cast<std::uint32_t>(Line.Parts.Y)));
  }
}

}  // namespace

// ---- The outline ------------------------------------------------------------------------------

void OutlineMaker::Make(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  OutlineReturn.Clear();
  OutlineReturn.HasTypes = HasReadableTypes(Rule);
  if (!OutlineReturn.HasTypes) {
    return;
  }
  const bool HasLines = HasUsableLines(Rule);
  OutlineReturn.IsUsable = HasLines && Sources.Find(Rule, false);
  OutlineReturn.LacksSources = HasLines && !OutlineReturn.IsUsable;
  const SourceRule::RuleLine& Line = Rule.RuleLines().front();
  OutlineReturn.RuleLine = Line.Line;
  OutlineReturn.SLType = Summed(Line.Parts.SLType);
  OutlineReturn.TLType = Summed(Line.Parts.TLType);
  OutlineReturn.Source.Add(OutlineReturn.SLType.Sum);
  OutlineReturn.Key.Add(OutlineReturn.IsUsable ? 1 : 0);
  OutlineReturn.Key.Add(OutlineReturn.SLType.Sum);
  OutlineReturn.Key.Add(OutlineReturn.TLType.Sum);
  AddComponents(Rule, OutlineReturn);
  OutlineReturn.Key.Add(OutlineReturn.ComponentCount);
  if (OutlineReturn.IsUsable) {
    AddEquations(Rule, OutlineReturn);
    SumRest(Rule, OutlineReturn);
  }
}

}  // namespace Grammar
