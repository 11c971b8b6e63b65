// Sections: reading types and labels, alignments, constraints; their order; writing.

#include "RuleForm.h"

#include "Bytes.h"

#include <AlignmentText.h>
#include <ConstraintStore.h>
#include <LineWriting.h>
#include <RuleLoader.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <tuple>
#include <utility>

namespace Grammar {

using TrRuleInternal::ConstraintFields;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

// ---- Types and labels -------------------------------------------------------------------------

namespace {

/// As the library sees it: one double quote is both the first and the last.
bool IsQuoted(std::string_view Label) {
  return Label.front() == '"' && Label.back() == '"';
}

}  // namespace

RuleForm::Failure RuleForm::Read(const SourceRule& RulePassIn) {
  Rule = &RulePassIn;
  const TrRuleInternal::RuleLineParts& Parts = Rule->RuleLines().front().Parts;
  Types[Source] = Parts.SLType;
  Types[Target] = Parts.TLType;
  Labels[Source] = Rule->SLLabels();
  Labels[Target] = Rule->TLLabels();
  ReadAlignments();
  ReadConstraints();
  return Order();
}

// ---- Alignments -------------------------------------------------------------------------------

namespace {

template <typename PairT>
bool ComesBefore(const PairT& Left, const PairT& Right) {
  return std::tie(Left.Index[0], Left.Index[1]) < std::tie(Right.Index[0], Right.Index[1]);
}

template <typename PairT>
bool IsSamePair(const PairT& Left, const PairT& Right) {
  return Left.Index[0] == Right.Index[0] && Left.Index[1] == Right.Index[1];
}

}  // namespace

void RuleForm::ReadAlignments() {
  vPairs.clear();
  for (const SourceRule::AlignmentLine& Each : Rule->Alignments()) {
    vPairs.push_back({{Each.Parts.X, Each.Parts.Y}, {Each.Parts.XText, Each.Parts.YText}});
  }
  if (!std::is_sorted(vPairs.begin(), vPairs.end(), ComesBefore<Pair>)) {
    std::stable_sort(vPairs.begin(), vPairs.end(), ComesBefore<Pair>);
  }
  vPairs.erase(std::unique(vPairs.begin(), vPairs.end(), IsSamePair<Pair>), vPairs.end());
}

void RuleForm::Flip() {
  std::swap(Types[Source], Types[Target]);
  std::swap(Labels[Source], Labels[Target]);
  for (Pair& Each : vPairs) {
    std::swap(Each.Index[Source], Each.Index[Target]);
    std::swap(Each.Text[Source], Each.Text[Target]);
  }
  std::sort(vPairs.begin(), vPairs.end(), ComesBefore<Pair>);
}

// ---- Constraints ------------------------------------------------------------------------------

namespace {

/// Whether a right side is a list of words, and so an alternative of others on its path.
bool IsWordList(const ConstraintParts& Parts) {
  return Parts.Kind == RightKind::Or || (Parts.Kind == RightKind::Value && !Parts.RightNode);
}

/// Appends a feature: its words in capitals, with one blank between them.
void AppendFeature(std::string_view Feature, std::string& TextReturn) {
  bool IsInside = false;
  for (const char Byte : Feature) {
    if (!IsSpace(Byte)) {
      TextReturn += ToUpper(Byte);
      IsInside = true;
    } else if (IsInside) {
      TextReturn += ' ';
      IsInside = false;
    }
  }
}

}  // namespace

std::string_view RuleForm::CodeOf(const Line& Each) const {
  return Rule->CodeOf(Each.Written->Line);
}

void RuleForm::ReadConstraints() {
  vLines.clear();
  Stored.clear();
  HasSeparator = false;
  HasRepetition = false;
  for (const SourceRule::ConstraintLine& Each : Rule->Constraints()) {
    Line& New = vLines.emplace_back();
    New.Written = &Each;
    New.Fields = Rule->FieldsOf(Each);
    HasSeparator =
        HasSeparator || Contains(New.Fields.Feature, "__") || Contains(New.Fields.FeatValue, "__");
    AddConstraint(vLines.size() - 1);
  }
}

/// Whether two paths are the same: the node's number, and the features in capitals.
bool RuleForm::IsSamePath(const Line& Left, const Line& Right) const {
  std::string LeftPath;
  std::string RightPath;
  AppendFeature(Left.Written->Parts.Feature, LeftPath);
  AppendFeature(Right.Written->Parts.Feature, RightPath);
  return Left.Fields.ConstrainedIndex == Right.Fields.ConstrainedIndex && LeftPath == RightPath;
}

/// A constraint whose key is there already is dropped by the library. The normal form keeps it
/// where it says something that the key does not.
void RuleForm::AddRepetition(std::size_t Place, Entry& EntryReturn) const {
  std::string Written;
  AppendWritten(vLines[Place], Written);
  const auto SaysTheSame = [&](std::size_t Other) {
    std::string OtherWritten;
    AppendWritten(vLines[Other], OtherWritten);
    return OtherWritten == Written;
  };
  const bool IsPartOfList = EntryReturn.IsOneList && IsWordList(vLines[Place].Written->Parts) &&
                            IsSamePath(vLines[EntryReturn.Kept], vLines[Place]);
  if (!IsPartOfList &&
      std::none_of(EntryReturn.vLines.begin(), EntryReturn.vLines.end(), SaysTheSame)) {
    EntryReturn.vLines.push_back(Place);
    EntryReturn.IsOneList = false;
  }
}

/// Stores a constraint under its key, and merges its value with those on the same feature, as the
/// library does.
void RuleForm::AddConstraint(std::size_t Place) {
  const Line& New = vLines[Place];
  const ConstraintFields& Fields = New.Fields;
  TrRuleInternal::ConstraintKey Key = TrRuleInternal::MakeKey(
      Fields.Category, Fields.ConstrainedIndex, Fields.Feature, Fields.FeatValue);
  const auto [Found, IsNew] = Stored.try_emplace(std::move(Key.Text));
  if (!IsNew) {
    HasRepetition = true;
    AddRepetition(Place, Found->second);
    return;
  }
  Found->second.vLines = {Place};
  Found->second.Kept = Place;
  Found->second.IsOneList = IsWordList(New.Written->Parts);
  const std::string_view Prefix = std::string_view(Found->first).substr(0, Key.ValueBegin);
  if (Fields.ValueConstraint && TrRuleInternal::HasNeighbour(Stored, Found, Prefix)) {
    HasRepetition = true;
    MergeInto(Stored.extract(Found), Key.ValueBegin, New);
  }
}

/// Merges the values that share the prefix of a new entry into it, and stores it.
void RuleForm::MergeInto(Entries::node_type Taken, std::size_t PrefixSize, const Line& New) {
  Entry& Added = Taken.mapped();
  const auto TakeOut = [&](const Entry& Old) -> const std::string* {
    const Line& OldLine = vLines[Old.Kept];
    if (!OldLine.Fields.ValueConstraint) {
      return nullptr;
    }
    Added.IsOneList = Added.IsOneList && Old.IsOneList && IsSamePath(OldLine, New);
    Added.vLines.insert(Added.vLines.end(), Old.vLines.begin(), Old.vLines.end());
    return &ValueOf(Old);
  };
  std::vector<TrRuleInternal::Merging> vMergings;
  TrRuleInternal::ExtractAndMerge(Stored, TakeOut, PrefixSize, Taken.key(), vMergings);
  std::sort(Added.vLines.begin(), Added.vLines.end());
  Added.FeatValue = vMergings.empty() ? "" : Taken.key().substr(PrefixSize);
  Stored.insert(std::move(Taken));
}

const std::string& RuleForm::ValueOf(const Entry& Each) const {
  return Each.FeatValue.empty() ? vLines[Each.Kept].Fields.FeatValue : Each.FeatValue;
}

// ---- Their order ------------------------------------------------------------------------------

RuleForm::Failure RuleForm::Order() {
  std::vector<TrRuleInternal::OrderedConstraint> vOrdered;
  std::vector<const Entry*> vEntries;
  vOrdered.reserve(Stored.size());
  vEntries.reserve(Stored.size());
  vOrder.clear();
  for (const auto& [Key, Each] : Stored) {
    const ConstraintFields& Fields = vLines[Each.Kept].Fields;
    TrRuleInternal::OrderedConstraint New{Fields.Category, Fields.ConstrainedIndex, std::nullopt};
    if (!Fields.ValueConstraint) {
      New.AgreedIndex = TrRuleInternal::AgreedIndexIn(Fields.FeatValue);
      if (New.AgreedIndex == -1) {
        return Failure::NoAgreedIndex;
      }
    }
    vOrdered.push_back(New);
    vEntries.push_back(&Each);
  }
  std::vector<std::size_t> vPlaces;
  if (TrRuleInternal::FindPrintOrder(vOrdered, vPlaces)) {
    return Failure::Cycle;
  }
  vOrder.reserve(vPlaces.size());
  for (const std::size_t Place : vPlaces) {
    vOrder.push_back(vEntries[Place]);
  }
  return Failure::None;
}

void RuleForm::Load(TrRule& RecordReturn) const {
  constexpr int UnknownRank = -1;
  TrRuleInternal::RuleLoader Loader(RecordReturn);
  std::vector<TrRuleInternal::Merging> vMergings;
  Loader.SetRuleLine(Rule->RuleLines().front().Parts);
  for (const SourceRule::AlignmentLine& Each : Rule->Alignments()) {
    Loader.AddAlignment(Each.Parts);
  }
  for (const Line& Each : vLines) {
    const ConstraintFields& Fields = Each.Fields;
    Loader.AddConstraint({Fields.Category, Fields.ConstrainedIndex, Fields.Feature,
                          Fields.FeatValue, Fields.ValueConstraint},
                         UnknownRank, vMergings);
  }
  Loader.Finish();
}

// ---- Writing ----------------------------------------------------------------------------------

namespace {

void AppendUpper(std::string_view Text, std::string& TextReturn) {
  const std::size_t Begin = TextReturn.size();
  TextReturn.append(Text);
  std::transform(TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin), TextReturn.end(),
                 TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin), ToUpper);
}

/// Appends the left side and the sign, "((X1 NUM) = " or "(X1 = ", so that the library reads the
/// same from it: Y01 is another node than Y1, and a blank after a digit is part of the feature.
void AppendLeft(const ConstraintParts& Parts, std::string_view LibraryFeature,
                std::string& TextReturn) {
  const NodeText& Node = Parts.Left;
  TextReturn += Parts.IsWholeNode ? "(" : "((";
  TextReturn += Node.Side;
  TextReturn += Node.Side == 'Y' && Node.Text[1] == '0' && Node.Index != 0 ? "0" : "";
  TextReturn += TrRuleInternal::Decimal(Node.Index);
  if (!Parts.IsWholeNode) {
    TextReturn += ' ';
    AppendFeature(Parts.Feature, TextReturn);
    TextReturn += LibraryFeature.back() == ' ' ? " )" : ")";
  }
  TextReturn += " = ";
}

/// Whether a constraint in the common form is its own normal form, but for capitals.
bool IsNormal(const SourceRule::ConstraintLine& Written) {
  const NodeText& Node = Written.Parts.Left;
  return Written.IsCommon && Written.Parts.Equals.size() == 1 &&
         (Node.Text[1] != '0' || Node.Text.size() == 2);
}

constexpr std::string_view BlockStart = "\n(\n";

}  // namespace

void RuleForm::AppendLabel(std::string_view Label, std::string& TextReturn) {
  if (IsQuoted(Label)) {
    TextReturn += Label;
  } else {
    AppendUpper(Label, TextReturn);
  }
}

std::string RuleForm::AlignmentText() const {
  std::string Text;
  for (const Pair& Each : vPairs) {
    TrRuleInternal::AppendPair(Text, Each.Text[Source], Each.Text[Target]);
  }
  return Text;
}

/// Appends one constraint line in the normal form.
void RuleForm::AppendWritten(const Line& Each, std::string& TextReturn) const {
  const ConstraintParts& Parts = Each.Written->Parts;
  if (IsNormal(*Each.Written)) {
    AppendUpper(CodeOf(Each), TextReturn);
    return;
  }
  AppendLeft(Parts, Each.Fields.Feature, TextReturn);
  if (Parts.Kind == RightKind::Reference) {
    TextReturn += '(';
    AppendUpper(Parts.RightNode->Text, TextReturn);
    TextReturn += ' ';
    AppendFeature(Parts.RightFeature, TextReturn);
    TextReturn += ')';
  } else {
    // Of a negation the library keeps all but the parenthesis, unless it takes it for a
    // disjunction.
    TextReturn += Each.Fields.FeatValue;
    TextReturn += Parts.Kind == RightKind::Not && TextReturn.back() != ')' ? ")" : "";
  }
  TextReturn += ')';
}

/// Appends the lines that an entry stands for, each with a line end.
void RuleForm::AppendEntry(const Entry& Each, std::string& TextReturn) const {
  if (Each.IsOneList && !Each.FeatValue.empty()) {
    const Line& First = vLines[Each.vLines.front()];
    AppendLeft(First.Written->Parts, First.Fields.Feature, TextReturn);
    TextReturn.append(Each.FeatValue).append(")\n");
    return;
  }
  for (const std::size_t Place : Each.vLines) {
    AppendWritten(vLines[Place], TextReturn);
    TextReturn += '\n';
  }
}

/// Appends the one line that the library writes of an entry.
void RuleForm::AppendLibraryEntry(const Entry& Each, std::string& TextReturn) const {
  const ConstraintFields& Fields = vLines[Each.Kept].Fields;
  TrRuleInternal::AppendConstraint(
      TextReturn, {Fields.Category, Fields.ConstrainedIndex, Fields.Feature, ValueOf(Each),
                   Fields.ValueConstraint});
  TextReturn += '\n';
}

void RuleForm::AppendRuleLine(bool KeepsLiterals, std::string& TextReturn) const {
  TextReturn.append(Types[Source]).append("::").append(Types[Target]);
  for (const std::size_t Side : {Source, Target}) {
    TextReturn += Side == Source ? " [" : "] -> [";
    for (std::size_t Place = 0; Place < Labels[Side].size(); ++Place) {
      TextReturn += Place == 0 ? "" : " ";
      if (KeepsLiterals) {
        AppendLabel(Labels[Side][Place], TextReturn);
      } else {
        AppendUpper(Labels[Side][Place], TextReturn);
      }
    }
  }
  TextReturn += ']';
}

void RuleForm::AppendAlignments(std::string& TextReturn) const {
  for (const Pair& Each : vPairs) {
    bool IsLexicalized = false;
    for (const std::size_t Side : {Source, Target}) {
      const auto Index = static_cast<std::size_t>(Each.Index[Side]);
      IsLexicalized = IsLexicalized || (Index > 0 && Index <= Labels[Side].size() &&
                                        IsQuoted(Labels[Side][Index - 1]));
    }
    TrRuleInternal::Append(TextReturn, {IsLexicalized ? ";--;(X" : "(X", Each.Text[Source], "::Y",
                                        Each.Text[Target], ")\n"});
  }
}

void RuleForm::AppendBlock(std::string& TextReturn) const {
  constexpr bool KeepsLiterals = true;
  AppendRuleLine(KeepsLiterals, TextReturn);
  TextReturn += BlockStart;
  AppendAlignments(TextReturn);
  for (const Entry* Each : vOrder) {
    AppendEntry(*Each, TextReturn);
  }
  TextReturn += ')';
}

void RuleForm::AppendComparisonText(std::string& TextReturn) const {
  constexpr bool KeepsLiterals = false;
  TextReturn += ';';
  for (const std::string_view Label : Labels[Target]) {
    AppendUpper(Label, TextReturn);
    TextReturn += ' ';
  }
  TextReturn += '\n';
  AppendRuleLine(KeepsLiterals, TextReturn);
  TextReturn += BlockStart;
  AppendAlignments(TextReturn);
  for (const Entry* Each : vOrder) {
    AppendLibraryEntry(*Each, TextReturn);
  }
  TextReturn += ')';
}

}  // namespace Grammar
