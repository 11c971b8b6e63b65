// Sections: sums, lines of the key, types and components, equations, the outline.

#include "RuleOutline.h"

#include "Bytes.h"
#include "Literal.h"
#include "UsableRule.h"

#include <algorithm>
#include <functional>

namespace Grammar {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

// ---- Sums -------------------------------------------------------------------------------------

namespace {

/// A second sum that has nothing in common with the standard library's.
std::uint64_t SecondSum(std::string_view Text) {
  std::uint64_t Sum = 0xCBF29CE484222325U;
  for (const char Byte : Text) {
    Sum = (Sum ^ static_cast<unsigned char>(Byte)) * 0x100000001B3U;
  }
  return Sum;
}

// ---- Lines of the key -------------------------------------------------------------------------

void AppendUpper(std::string_view Part, std::string& TextReturn) {
  const std::size_t Begin = TextReturn.size();
  TextReturn.append(Part);
  const auto First = TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin);
  std::transform(First, TextReturn.end(), First, ToUpper);
}

void AppendLine(std::string_view Part, std::string& TextReturn) {
  AppendUpper(Part, TextReturn);
  TextReturn += '\n';
}

/// @param Before goes in front of each word
/// @param After goes after it
void AppendWords(std::string_view Words, std::string_view Before, std::string_view After,
                 std::string& TextReturn) {
  while (!(Words = WithoutLeadingSpace(Words)).empty()) {
    const auto* const End = std::find_if(Words.begin(), Words.end(), IsSpace);
    const auto Size = static_cast<std::size_t>(End - Words.begin());
    TextReturn.append(Before);
    AppendUpper(Words.substr(0, Size), TextReturn);
    TextReturn.append(After);
    Words.remove_prefix(Size);
  }
}

void AppendPath(const NodeText& Node, std::string_view Features, std::string& TextReturn) {
  TextReturn.append(std::to_string(Node.Index));
  AppendWords(Features, " ", "", TextReturn);
  TextReturn += '\n';
}

bool IsOfAnalysis(const ConstraintParts& Parts) {
  return Parts.Left.Side == 'X' && (!Parts.RightNode || Parts.RightNode->Side == 'X');
}

}  // namespace

// ---- Types and components ---------------------------------------------------------------------

void OutlineMaker::AddTypes(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  const SourceRule::RuleLine& Line = Rule.RuleLines().front();
  OutlineReturn.RuleLine = Line.Line;
  OutlineReturn.Key.append(OutlineReturn.IsUsable ? "" : "!");
  AppendLine(Line.Parts.SLType, OutlineReturn.Key);
  AppendLine(Line.Parts.TLType, OutlineReturn.Key);
}

/// A source place wants the target type of the places that it is written at.
void OutlineMaker::AddComponents(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  vWanted.assign(Rule.SLLabels().size(), {});
  for (std::size_t Target = 0; OutlineReturn.IsUsable && Target < Rule.TLLabels().size();
       ++Target) {
    const std::uint32_t Source = Places.Sources()[Target];
    if (Source != PlaceSources::None) {
      vWanted[Source] = Rule.TLLabels()[Target];
    }
  }
  const std::string_view Line = Rule.Text().Line(OutlineReturn.RuleLine);
  for (std::size_t Index = 0; Index < vWanted.size(); ++Index) {
    const std::string_view Label = Rule.SLLabels()[Index];
    if (IsLiteral(Label)) {
      OutlineReturn.Key.append("\"\n");
      continue;
    }
    OutlineReturn.vColumns.push_back(static_cast<std::uint32_t>(OffsetIn(Line, Label) + 1));
    OutlineReturn.Key.append(1, 'p');
    AppendLine(Label, OutlineReturn.Key);
    OutlineReturn.Key.append(1, 'w');
    AppendLine(vWanted[Index], OutlineReturn.Key);
  }
}

// ---- Equations --------------------------------------------------------------------------------

namespace {

void AppendEquation(const ConstraintParts& Parts, std::string& KeyReturn) {
  if (Parts.RightNode) {
    KeyReturn += '=';
    AppendPath(Parts.Left, Parts.Feature, KeyReturn);
    AppendPath(*Parts.RightNode, Parts.RightFeature, KeyReturn);
    return;
  }
  KeyReturn += Parts.Kind == RightKind::Not ? '-' : '+';
  AppendPath(Parts.Left, Parts.Feature, KeyReturn);
  if (Parts.Kind == RightKind::Value) {
    KeyReturn += 'a';
    AppendLine(Trimmed(Parts.Value), KeyReturn);
  } else {
    AppendWords(Parts.Value, "a", "\n", KeyReturn);
  }
}

}  // namespace

void OutlineMaker::AddEquations(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  vEquationEnds.clear();
  for (const SourceRule::ConstraintLine& Line : Rule.Constraints()) {
    if (IsOfAnalysis(Line.Parts)) {
      AppendEquation(Line.Parts, OutlineReturn.Key);
      OutlineReturn.vLines.push_back(static_cast<std::uint32_t>(Line.Line));
      vEquationEnds.push_back(OutlineReturn.Key.size());
    }
  }
}

// ---- The outline ------------------------------------------------------------------------------

void OutlineMaker::SumSource(const SourceRule& Rule, std::size_t ComponentsEnd,
                             RuleOutline& OutlineReturn) {
  Scratch.clear();
  AppendLine(Rule.RuleLines().front().Parts.SLType, Scratch);
  for (const std::string_view Label : Rule.SLLabels()) {
    AppendLine(Label, Scratch);
  }
  OutlineReturn.SourceSum = std::hash<std::string_view>()(Scratch);
  OutlineReturn.OtherSourceSum = SecondSum(Scratch);
  std::size_t Begin = ComponentsEnd;
  for (const std::size_t End : vEquationEnds) {
    const std::string_view Equation =
        std::string_view(OutlineReturn.Key).substr(Begin, End - Begin);
    OutlineReturn.SourceSum += std::hash<std::string_view>()(Equation);
    OutlineReturn.OtherSourceSum += SecondSum(Equation);
    Begin = End;
  }
}

/// The words of the target count as they are written; alignments and equations in any order.
void OutlineMaker::SumRest(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  Scratch.clear();
  AppendLine(Rule.RuleLines().front().Parts.TLType, Scratch);
  for (const std::string_view Label : Rule.TLLabels()) {
    if (IsLiteral(Label)) {
      Scratch.append(Label).append(1, '\n');
    } else {
      AppendLine(Label, Scratch);
    }
  }
  OutlineReturn.RestSum = SecondSum(Scratch);
  for (const SourceRule::AlignmentLine& Line : Rule.Alignments()) {
    Scratch = std::to_string(Line.Parts.X) + ':' + std::to_string(Line.Parts.Y);
    OutlineReturn.RestSum += SecondSum(Scratch);
  }
  for (const SourceRule::ConstraintLine& Line : Rule.Constraints()) {
    if (!IsOfAnalysis(Line.Parts)) {
      Scratch.assign(1, Line.Parts.Left.Side);
      Scratch += Line.Parts.RightNode ? Line.Parts.RightNode->Side : ' ';
      AppendEquation(Line.Parts, Scratch);
      OutlineReturn.RestSum += SecondSum(Scratch);
    }
  }
}

void OutlineMaker::Make(const SourceRule& Rule, RuleOutline& OutlineReturn) {
  if (!HasReadableTypes(Rule)) {
    return;
  }
  OutlineReturn.IsUsable = HasUsableLines(Rule) && Places.Find(Rule, false);
  AddTypes(Rule, OutlineReturn);
  AddComponents(Rule, OutlineReturn);
  if (OutlineReturn.IsUsable) {
    const std::size_t ComponentsEnd = OutlineReturn.Key.size();
    AddEquations(Rule, OutlineReturn);
    SumSource(Rule, ComponentsEnd, OutlineReturn);
    SumRest(Rule, OutlineReturn);
  }
  OutlineReturn.KeySum = std::hash<std::string_view>()(OutlineReturn.Key);
  OutlineReturn.OtherKeySum = SecondSum(OutlineReturn.Key);
}

}  // namespace Grammar
