// Sections: adding rules, features, examples, adding surveys, counts.

#include "RuleSurvey.h"

#include "Bytes.h"
#include "Literal.h"

#include <algorithm>

namespace Grammar {

// ---- Adding rules -----------------------------------------------------------------------------

void RuleSurvey::Add(const RuleRecord& Record) {
  const RuleForm& Rule = Record.Form();
  ++RuleCount;
  Scratch.assign(Rule.SLType()).append("::").append(Rule.TLType());
  TypeCounts.Add(Scratch);
  AddSide(Rule.SLLabels(), Sides[0]);
  AddSide(Rule.TLLabels(), Sides[1]);
  Shape.Read(Record.Lines());
  ShapeCounts.Add(Shape.Text());
  AddConstraints(Record);
  AddExamples(Record);
  ++mCounts[Record.Count()];
}

void RuleSurvey::AddSide(const std::vector<std::string_view>& vLabels, Side& SideReturn) {
  ++SideReturn.mLengths[vLabels.size()];
  for (const std::string_view Label : vLabels) {
    if (IsLiteral(Label)) {
      SideReturn.Literals.Add(WordOf(Label));
    } else {
      SideReturn.Labels.AddUpper(Label);
    }
  }
}

void RuleSurvey::AddConstraints(const RuleRecord& Record) {
  const RuleForm& Rule = Record.Form();
  for (std::size_t Place = 0; Place < Rule.ConstraintCount(); ++Place) {
    const int Category = Rule.FieldsAt(Place).Category;
    ++CategoryCounts[static_cast<std::size_t>(Category) - 1];
  }
  for (const SourceRule::ConstraintLine& Line : Record.Lines().Constraints()) {
    if (!Line.Parts.IsWholeNode) {
      AddFeatures(Line.Parts);
    }
  }
}

// ---- Features ---------------------------------------------------------------------------------

namespace {

/// Takes the next of the words of a text, which stand between white space.
/// @return false after the last one
bool TakeWord(std::string_view& RestReturn, std::string_view& WordReturn) {
  RestReturn = WithoutLeadingSpace(RestReturn);
  const auto* const End = std::find_if(RestReturn.begin(), RestReturn.end(), IsSpace);
  WordReturn = RestReturn.substr(0, static_cast<std::size_t>(End - RestReturn.begin()));
  RestReturn.remove_prefix(WordReturn.size());
  return !WordReturn.empty();
}

}  // namespace

/// A feature of several words has one blank between them.
std::uint32_t RuleSurvey::AddFeature(std::string_view Written, std::uint64_t Count) {
  Scratch.clear();
  for (std::string_view Word; TakeWord(Written, Word);) {
    Scratch.append(Scratch.empty() ? "" : " ").append(Upper(Word));
  }
  const std::uint32_t Feature = FeatureCounts.Add(Scratch, Count);
  if (Feature == Valued.size()) {
    Valued.emplace_back();
  }
  return Feature;
}

void RuleSurvey::AddWords(std::string_view Words, std::string_view Before,
                          NameCounts& ValuesReturn) {
  for (std::string_view Word; TakeWord(Words, Word);) {
    Scratch.assign(Before).append(Word);
    ValuesReturn.AddUpper(Scratch);
  }
}

void RuleSurvey::AddFeatures(const TrRuleInternal::ConstraintParts& Parts) {
  using TrRuleInternal::RightKind;
  const std::uint32_t Left = AddFeature(Parts.Feature, 1);
  switch (Parts.Kind) {
    case RightKind::Reference: {
      Valued[Left].Add(Reference);
      const std::uint32_t Right = AddFeature(Parts.RightFeature, 0);
      if (Right != Left) {
        AddFeature(Parts.RightFeature, 1);
        Valued[Right].Add(Reference);
      }
      break;
    }
    case RightKind::Or:
      AddWords(Parts.Value, "", Valued[Left]);
      break;
    case RightKind::Not:
      AddWords(Parts.Value, "*NOT* ", Valued[Left]);
      break;
    case RightKind::Node:
    case RightKind::Value:
      Valued[Left].AddUpper(Trimmed(Parts.Right));
      break;
  }
}

// ---- Examples ---------------------------------------------------------------------------------

namespace {

/// As `trrule test` finds them: the n-th source text goes with the n-th target text, and nothing is
/// an example without a source text.
RuleSurvey::Examples ExamplesIn(const std::vector<std::string>& vsComments) {
  RuleSurvey::Examples Found;
  std::vector<bool> vHasText;
  std::size_t Targets = 0;
  for (const std::string& sComment : vsComments) {
    std::string_view Rest;
    if (TakeLabel(sComment, "SL:", Rest)) {
      vHasText.push_back(!Rest.empty());
    } else if (TakeLabel(sComment, "TL:", Rest)) {
      ++Targets;
    } else if (TakeLabel(sComment, "*SL:", Rest) && !Rest.empty()) {
      ++Found.Rejected;
    }
  }
  const std::size_t Pairs = std::min(Targets, vHasText.size());
  for (std::size_t Pair = 0; Pair < Pairs; ++Pair) {
    Found.Pairs += vHasText[Pair] ? 1 : 0;
  }
  return Found;
}

}  // namespace

void RuleSurvey::AddExamples(const RuleRecord& Record) {
  const Examples Found = ExamplesIn(Record.Comments());
  ExampleRules += Found.Pairs + Found.Rejected > 0 ? 1 : 0;
  ExampleCounts.Pairs += Found.Pairs;
  ExampleCounts.Rejected += Found.Rejected;
}

// ---- Adding surveys ---------------------------------------------------------------------------

namespace {

template <typename KeyT>
void AddAll(const std::map<KeyT, std::uint64_t>& mMore,
            std::map<KeyT, std::uint64_t>& mCountsReturn) {
  for (const auto& [Key, Count] : mMore) {
    mCountsReturn[Key] += Count;
  }
}

}  // namespace

void RuleSurvey::Add(const RuleSurvey& Other) {
  RuleCount += Other.RuleCount;
  TypeCounts.Add(Other.TypeCounts);
  for (std::size_t Index = 0; Index < Sides.size(); ++Index) {
    Sides[Index].Labels.Add(Other.Sides[Index].Labels);
    Sides[Index].Literals.Add(Other.Sides[Index].Literals);
    AddAll(Other.Sides[Index].mLengths, Sides[Index].mLengths);
  }
  ShapeCounts.Add(Other.ShapeCounts);
  for (std::uint32_t Feature = 0; Feature < Other.FeatureCounts.Size(); ++Feature) {
    const NameCount More = Other.FeatureCounts.At(Feature);
    Valued[AddFeature(More.Name, More.Count)].Add(Other.Valued[Feature]);
  }
  for (std::size_t Index = 0; Index < Categories; ++Index) {
    CategoryCounts[Index] += Other.CategoryCounts[Index];
  }
  ExampleRules += Other.ExampleRules;
  ExampleCounts.Pairs += Other.ExampleCounts.Pairs;
  ExampleCounts.Rejected += Other.ExampleCounts.Rejected;
  AddAll(Other.mCounts, mCounts);
}

// ---- Counts -----------------------------------------------------------------------------------

int RuleSurvey::Quantile(std::uint64_t PerThousand) const {
  constexpr std::uint64_t Whole = 1000;
  // Whole rules: the smallest number of them that is at least that share.
  const std::uint64_t Share =
      RuleCount / Whole * PerThousand + (RuleCount % Whole * PerThousand + Whole - 1) / Whole;
  const std::uint64_t Wanted = std::max<std::uint64_t>(Share, 1);
  std::uint64_t Seen = 0;
  for (const auto& [Count, Number] : mCounts) {
    Seen += Number;
    if (Seen >= Wanted) {
      return Count;
    }
  }
  return 0;
}

}  // namespace Grammar
