#include "GroupKeys.h"

#include "AlignmentShape.h"
#include "Bytes.h"
#include "Literal.h"
#include "RuleForm.h"
#include "UsableRule.h"

#include <algorithm>
#include <string_view>

namespace Query {

namespace {

using Grammar::SourceRule;
using Labels = std::vector<std::string_view>;

std::string SequenceOf(const Labels& vLabels) {
  std::string Text = "[";
  for (const std::string_view Label : vLabels) {
    Text += Text.size() > 1 ? " " : "";
    Grammar::RuleForm::AppendLabel(Label, Text);
  }
  return Text + ']';
}

void AddComponents(const Labels& vLabels, bool AreLiterals, std::vector<std::string>& vsReturn) {
  for (const std::string_view Label : vLabels) {
    if (Grammar::IsLiteral(Label) == AreLiterals) {
      Grammar::RuleForm::AppendLabel(Label, vsReturn.emplace_back());
    }
  }
}

std::vector<std::string> ComponentsOf(const SourceRule& Rule, bool AreLiterals) {
  std::vector<std::string> vsKeys;
  AddComponents(Rule.SLLabels(), AreLiterals, vsKeys);
  AddComponents(Rule.TLLabels(), AreLiterals, vsKeys);
  return vsKeys;
}

/// The words of a feature in capitals, with single blanks.
void AddFeature(std::string_view Feature, std::vector<std::string>& vsReturn) {
  Labels vWords;
  Grammar::AddWords(Feature, vWords);
  if (vWords.empty()) {
    return;
  }
  std::string Key;
  for (const std::string_view Word : vWords) {
    Key += (Key.empty() ? "" : " ") + Grammar::Upper(Word);
  }
  vsReturn.push_back(std::move(Key));
}

std::vector<std::string> FeaturesOf(const SourceRule& Rule) {
  std::vector<std::string> vsKeys;
  for (const SourceRule::ConstraintLine& Line : Rule.Constraints()) {
    AddFeature(Line.Parts.Feature, vsKeys);
    AddFeature(Line.Parts.RightNode ? Line.Parts.RightFeature : std::string_view(), vsKeys);
  }
  return vsKeys;
}

std::string TypeOf(const SourceRule& Rule) {
  const TrRuleInternal::RuleLineParts& Parts = Rule.RuleLines().front().Parts;
  return Grammar::Upper(Parts.SLType) + "::" + Grammar::Upper(Parts.TLType);
}

std::string ShapeOf(const SourceRule& Rule) {
  Grammar::AlignmentShape Shape;
  Shape.Read(Rule);
  return Shape.Text();
}

std::vector<std::string> KeysOf(const SourceRule& Rule, GroupBy By) {
  switch (By) {
    case GroupBy::Type:
      return {TypeOf(Rule)};
    case GroupBy::Sequence:
      return {SequenceOf(Rule.SLLabels()) + " -> " + SequenceOf(Rule.TLLabels())};
    case GroupBy::Source:
      return {SequenceOf(Rule.SLLabels())};
    case GroupBy::Target:
      return {SequenceOf(Rule.TLLabels())};
    case GroupBy::Label:
      return ComponentsOf(Rule, false);
    case GroupBy::Literal:
      return ComponentsOf(Rule, true);
    case GroupBy::Feature:
      return FeaturesOf(Rule);
    case GroupBy::Shape:
      return {ShapeOf(Rule)};
    case GroupBy::Size:
      return {std::to_string(Rule.SLLabels().size()) + " -> " +
              std::to_string(Rule.TLLabels().size())};
    case GroupBy::Count:
      return {std::to_string(Grammar::CountIn(Rule.Text()))};
    case GroupBy::File:
      break;
  }
  return {Rule.Text().File};
}

}  // namespace

std::vector<std::string> GroupKeys(const Grammar::SourceRule& RulePassIn, GroupBy By) {
  std::vector<std::string> vsKeys = KeysOf(RulePassIn, By);
  std::sort(vsKeys.begin(), vsKeys.end());
  vsKeys.erase(std::unique(vsKeys.begin(), vsKeys.end()), vsKeys.end());
  return vsKeys;
}

}  // namespace Query
