#include "TestedGrammar.h"

#include "Bytes.h"
#include "TranslateCommand.h"

#include <RuleLine.h>

#include <iostream>
#include <string_view>
#include <utility>

namespace Examples {

namespace {

/// The type of the wanted side of a rule that was left out, from its first rule line; empty if
/// it cannot be read.
std::string ReadSourceType(const Grammar::RuleText& Text, bool IsReversed) {
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const Grammar::LineParts Parts = Text.Parts(Line);
    if (Parts.Kind == Grammar::LineKind::Sequence) {
      TrRuleInternal::RuleLineParts Rule;
      const bool HasTypes =
          TrRuleInternal::ParseRuleLine(Parts.Code, Rule) != TrRuleInternal::RuleLineFault::Types;
      return std::string(!HasTypes ? std::string_view() : IsReversed ? Rule.TLType : Rule.SLType);
    }
  }
  return "";
}

/// What the lines of a rule say, however they are indented, and what counts in its comments.
std::string LinesOf(const Grammar::RuleText& Text, const Grammar::UsableRule* Rule) {
  std::string Lines = Rule == nullptr ? "" : std::to_string(Rule->Count);
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const std::string_view Code = Grammar::Trimmed(Text.Parts(Line).Code);
    if (!Code.empty()) {
      Lines.append(1, '\n').append(Code);
    }
  }
  return Lines;
}

std::string PlaceOfLine(std::string_view File, std::size_t Line) {
  return std::string(File) + ':' + std::to_string(Line);
}

}  // namespace

void TestedGrammar::Load(const std::vector<std::string>& vsGrammars, bool Quiet) {
  Counts = Translate::LoadRules(
      vsGrammars, Quiet, Set,
      [this](const Grammar::SourceRule& Lines, Grammar::UsableRule* Rule,
             const std::vector<Grammar::Finding>& vFindings) { AddRule(Lines, Rule, vFindings); });
  vFirstConstraint.push_back(vConstraints.size());
  SetSourceTypes();
}

void TestedGrammar::AddRule(const Grammar::SourceRule& Lines, Grammar::UsableRule* Rule,
                            const std::vector<Grammar::Finding>& vFindings) {
  const Grammar::RuleText& Text = Lines.Text();
  const auto Number = static_cast<std::uint32_t>(vRules.size());
  TestedRule& New = vRules.emplace_back();
  New.Place = PlaceOfLine(Text.File, Grammar::LineOfRule(Text));
  if (Rule != nullptr) {
    New.Usable = static_cast<std::uint32_t>(Set.Size() - 1);
    AddVariants(Text, *Rule);
  } else {
    vsTypes.push_back(ReadSourceType(Text, Set.Settings().IsReversed));
    New.Finding = vFindings.front().Code + ": " + vFindings.front().Message;
  }
  if (KeepsLines) {
    New.Lines = LinesOf(Text, Rule);
  }
  const std::size_t ExamplesBefore = vExamples.size();
  AddExamples(Text);
  if (Rule != nullptr && (DescribesAll || vExamples.size() > ExamplesBefore)) {
    Translate::RuleDescription& Own = Descriptions[Number];
    Own = Translate::DescribeRule(Lines, Rule);
    Own.Index = New.Usable;
  }
}

/// Adds the rule that was added last without each of its equations.
void TestedGrammar::AddVariants(const Grammar::RuleText& Text, Grammar::UsableRule& Rule) {
  vFirstConstraint.push_back(vConstraints.size());
  for (std::size_t Index = 0; WantsVariants && Index < Rule.vEquations.size(); ++Index) {
    const auto At = Rule.vEquations.begin() + static_cast<std::ptrdiff_t>(Index);
    Grammar::Equation Taken = std::move(*At);
    vConstraints.push_back({PlaceOfLine(Text.File, Taken.Line),
                            std::string(Text.Parts(Taken.Line - Text.FirstLine).Code)});
    Rule.vEquations.erase(At);
    Set.AddVariant(Rule);
    Rule.vEquations.insert(Rule.vEquations.begin() + static_cast<std::ptrdiff_t>(Index),
                           std::move(Taken));
  }
}

/// Seen from the other side, the two of a pair change places, and nothing is known of what is to be
/// rejected.
void TestedGrammar::AddExamples(const Grammar::RuleText& Text) {
  const bool IsReversed = Set.Settings().IsReversed;
  CommentExamples Found = ReadExamples(Text);
  const auto Rule = static_cast<std::uint32_t>(vRules.size() - 1);
  for (CommentExamples::Pair& Current : Found.vPairs) {
    if (IsReversed) {
      std::swap(Current.Source, Current.Target);
    }
    AddExample({Rule, vRules.back().Place, std::move(Current.Source), std::move(Current.Target)});
  }
  for (std::string& sEach : Found.vsRefused) {
    if (!IsReversed) {
      AddExample({Rule, vRules.back().Place, std::move(sEach), std::nullopt});
    }
  }
  for (const std::string& sEach : Found.vsMessages) {
    std::cerr << sEach << '\n';
  }
}

/// Types have numbers only when all rules are there.
void TestedGrammar::SetSourceTypes() {
  std::size_t LeftOut = 0;
  for (TestedRule& Rule : vRules) {
    Rule.SourceType = Rule.Usable != NoRule ? Set.At(Rule.Usable).SourceType
                                            : Set.FindSourceType(vsTypes[LeftOut++]);
  }
}

}  // namespace Examples
