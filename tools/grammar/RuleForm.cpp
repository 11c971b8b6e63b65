// Sections: reading types and labels, alignments, constraints; their order; writing.

#include "RuleForm.h"

#include "Bytes.h"

#include <AlignmentText.h>
#include <LineWriting.h>
#include <RuleLoader.h>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

namespace Grammar {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::ConstraintView;
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
  for (const SourceRule::AlignmentLine& Aligned : Rule->Alignments()) {
    vPairs.push_back(
        {{Aligned.Parts.X, Aligned.Parts.Y}, {Aligned.Parts.XText, Aligned.Parts.YText}});
  }
  if (!std::is_sorted(vPairs.begin(), vPairs.end(), ComesBefore<Pair>)) {
    std::stable_sort(vPairs.begin(), vPairs.end(), ComesBefore<Pair>);
  }
  vPairs.erase(std::unique(vPairs.begin(), vPairs.end(), IsSamePair<Pair>), vPairs.end());
}

void RuleForm::Flip() {
  std::swap(Types[Source], Types[Target]);
  std::swap(Labels[Source], Labels[Target]);
  for (Pair& Current : vPairs) {
    std::swap(Current.Index[Source], Current.Index[Target]);
    std::swap(Current.Text[Source], Current.Text[Target]);
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

std::string_view RuleForm::CodeOf(const Line& Current) const {
  return Rule->CodeOf(Current.Written->Line);
}

std::string_view RuleForm::KeyOf(const Line& Current) const {
  return std::string_view(Keys).substr(Current.Key.Begin, Current.KeyEnd - Current.Key.Begin);
}

ConstraintView RuleForm::ViewOf(const Line& Current) const {
  const std::string_view All = Keys;
  return {Current.Category, Current.ConstrainedIndex,
          All.substr(Current.Key.FeatureBegin, Current.Key.FeatureSize),
          All.substr(Current.Key.ValueBegin, Current.KeyEnd - Current.Key.ValueBegin),
          Current.ValueConstraint};
}

ConstraintView RuleForm::ViewOf(const Entry& Current) const {
  ConstraintView Fields = ViewOf(vLines[Current.Kept]);
  if (!Current.FeatValue.empty()) {
    Fields.FeatValue = Current.FeatValue;
  }
  return Fields;
}

/// Appends the key of a line, with what the library reads from it.
void RuleForm::ReadKey(Line& LineReturn) {
  const auto Note = [&](const auto& Fields, const TrRuleInternal::KeyPlaces& Key) {
    LineReturn.Category = Fields.Category;
    LineReturn.ConstrainedIndex = Fields.ConstrainedIndex;
    LineReturn.ValueConstraint = Fields.ValueConstraint;
    LineReturn.Key = Key;
    LineReturn.KeyEnd = Keys.size();
  };
  const SourceRule::ConstraintLine& Written = *LineReturn.Written;
  if (Written.IsCommon) {
    const ConstraintView Fields = TrRuleInternal::ViewOfCommonForm(Written.Parts);
    Note(Fields, TrRuleInternal::AppendKey(Written.Parts, Fields, Keys));
  } else {
    const TrRuleInternal::ConstraintFields Fields = Rule->FieldsOf(Written);
    Note(Fields,
         TrRuleInternal::AppendKey({Fields.Category, Fields.ConstrainedIndex, Fields.Feature,
                                    Fields.FeatValue, Fields.ValueConstraint},
                                   Keys));
  }
}

void RuleForm::ReadConstraints() {
  vLines.clear();
  Keys.clear();
  HasSeparator = false;
  for (const SourceRule::ConstraintLine& Current : Rule->Constraints()) {
    Line& New = vLines.emplace_back();
    New.Written = &Current;
    ReadKey(New);
  }
  for (const Line& Current : vLines) {
    const ConstraintView Fields = ViewOf(Current);
    HasSeparator =
        HasSeparator || Contains(Fields.Feature, "__") || Contains(Fields.FeatValue, "__");
  }
  MergeByKeys();
}

/// Whether the library may merge two constraints, or takes them for the same.
bool RuleForm::HasCommonPrefix(const Line& Left, const Line& Right) const {
  const auto Begins = [&](const Line& Value, const Line& Other) {
    const std::size_t Size = Value.Key.ValueBegin - Value.Key.Begin;
    return Value.ValueConstraint && StartsWith(KeyOf(Other), KeyOf(Value).substr(0, Size));
  };
  return Begins(Left, Right) || Begins(Right, Left) || KeyOf(Left) == KeyOf(Right);
}

/// Makes entries of the lines, in the order of their keys. All keys with one prefix stand together,
/// so that a line whose neighbours have other prefixes is an entry of its own.
void RuleForm::MergeByKeys() {
  vPlaces.resize(vLines.size());
  std::iota(vPlaces.begin(), vPlaces.end(), std::size_t{0});
  std::sort(vPlaces.begin(), vPlaces.end(), [this](std::size_t Left, std::size_t Right) {
    return KeyOf(vLines[Left]) < KeyOf(vLines[Right]);
  });
  HasRepetition = false;
  vEntries.clear();
  std::size_t Kept = 0;
  for (std::size_t Begin = 0, End = 0; Begin < vPlaces.size(); Begin = End) {
    End = Begin + 1;
    while (End < vPlaces.size() &&
           HasCommonPrefix(vLines[vPlaces[End - 1]], vLines[vPlaces[End]])) {
      ++End;
    }
    if (End - Begin == 1) {
      vPlaces[Kept] = vPlaces[Begin];
      vEntries.push_back({vPlaces[Kept], Kept, Kept + 1, "", true});
      ++Kept;
    } else {
      HasRepetition = true;
      Kept = MergeStretch(Begin, End, Kept);
    }
  }
}

/// Makes the entries that the library would make of some lines, one after the other.
/// @param Begin, End where the lines are in `vPlaces`
/// @param Kept where their places are to be put, which is not after `Begin`
/// @return the end of these
std::size_t RuleForm::MergeStretch(std::size_t Begin, std::size_t End, std::size_t Kept) {
  const auto First = vPlaces.begin() + static_cast<std::ptrdiff_t>(Begin);
  const auto Last = vPlaces.begin() + static_cast<std::ptrdiff_t>(End);
  std::sort(First, Last);
  Groups Stored;
  std::for_each(First, Last, [&](std::size_t Place) { AddConstraint(Place, Stored); });
  for (auto& [Key, Merged] : Stored) {
    const std::size_t EntryBegin = Kept;
    for (const std::size_t Place : Merged.vLines) {
      vPlaces[Kept++] = Place;
    }
    vEntries.push_back({Merged.Kept, EntryBegin, Kept,
                        Merged.IsMerged ? std::move(Merged.FeatValue) : std::string(),
                        Merged.IsOneList});
  }
  return Kept;
}

/// Whether two paths are the same: the node's number, and the features in capitals.
bool RuleForm::IsSamePath(const Line& Left, const Line& Right) const {
  std::string LeftPath;
  std::string RightPath;
  AppendFeature(Left.Written->Parts.Feature, LeftPath);
  AppendFeature(Right.Written->Parts.Feature, RightPath);
  return Left.ConstrainedIndex == Right.ConstrainedIndex && LeftPath == RightPath;
}

/// A constraint whose key is there already is dropped by the library. The normal form keeps it
/// where it says something that the key does not.
void RuleForm::AddRepetition(std::size_t Place, Group& GroupReturn) const {
  std::string Written;
  AppendWritten(vLines[Place], Written);
  const auto SaysTheSame = [&](std::size_t Other) {
    std::string OtherWritten;
    AppendWritten(vLines[Other], OtherWritten);
    return OtherWritten == Written;
  };
  const bool IsPartOfList = GroupReturn.IsOneList && IsWordList(vLines[Place].Written->Parts) &&
                            IsSamePath(vLines[GroupReturn.Kept], vLines[Place]);
  if (!IsPartOfList &&
      std::none_of(GroupReturn.vLines.begin(), GroupReturn.vLines.end(), SaysTheSame)) {
    GroupReturn.vLines.push_back(Place);
    GroupReturn.IsOneList = false;
  }
}

/// Stores a constraint under its key, and merges its value with those on the same feature, as the
/// library does.
void RuleForm::AddConstraint(std::size_t Place, Groups& StoredReturn) const {
  const Line& New = vLines[Place];
  const std::string_view Key = KeyOf(New);
  const auto [Found, IsNew] = StoredReturn.try_emplace(std::string(Key), Place);
  if (!IsNew) {
    AddRepetition(Place, Found->second);
    return;
  }
  Found->second.FeatValue = ViewOf(New).FeatValue;
  Found->second.IsOneList = IsWordList(New.Written->Parts);
  const std::string_view Prefix = Key.substr(0, New.Key.ValueBegin - New.Key.Begin);
  if (New.ValueConstraint && TrRuleInternal::HasNeighbour(StoredReturn, Found, Prefix)) {
    MergeInto(StoredReturn.extract(Found), New, StoredReturn);
  }
}

/// Merges the values that share the prefix of a new entry into it, and stores it.
void RuleForm::MergeInto(Groups::node_type Taken, const Line& New, Groups& StoredReturn) const {
  const std::size_t PrefixSize = New.Key.ValueBegin - New.Key.Begin;
  Group& Added = Taken.mapped();
  const auto TakeOut = [&](const Group& Old) -> const std::string* {
    const Line& OldLine = vLines[Old.Kept];
    if (!OldLine.ValueConstraint) {
      return nullptr;
    }
    Added.IsOneList = Added.IsOneList && Old.IsOneList && IsSamePath(OldLine, New);
    Added.vLines.insert(Added.vLines.end(), Old.vLines.begin(), Old.vLines.end());
    return &Old.FeatValue;
  };
  std::vector<TrRuleInternal::Merging> vMergings;
  TrRuleInternal::ExtractAndMerge(StoredReturn, TakeOut, PrefixSize, Taken.key(), vMergings);
  std::sort(Added.vLines.begin(), Added.vLines.end());
  Added.IsMerged = !vMergings.empty();
  Added.FeatValue = Taken.key().substr(PrefixSize);
  StoredReturn.insert(std::move(Taken));
}

// ---- Their order ------------------------------------------------------------------------------

RuleForm::Failure RuleForm::Order() {
  vOrdered.clear();
  vOrder.clear();
  for (const Entry& Current : vEntries) {
    const ConstraintView Fields = ViewOf(Current);
    vOrdered.push_back(TrRuleInternal::MakeOrdered(Fields.Category, Fields.ConstrainedIndex,
                                                   Fields.ValueConstraint, Fields.FeatValue));
    if (vOrdered.back().AgreedIndex == -1) {
      return Failure::NoAgreedIndex;
    }
  }
  return TrRuleInternal::FindPrintOrder(vOrdered, vOrder) ? Failure::Cycle : Failure::None;
}

void RuleForm::Load(TrRule& RecordReturn) const {
  constexpr int UnknownRank = -1;
  TrRuleInternal::RuleLoader Loader(RecordReturn);
  std::vector<TrRuleInternal::Merging> vMergings;
  Loader.SetRuleLine(Rule->RuleLines().front().Parts);
  for (const SourceRule::AlignmentLine& Aligned : Rule->Alignments()) {
    Loader.AddAlignment(Aligned.Parts);
  }
  for (const Line& Current : vLines) {
    Loader.AddConstraint(ViewOf(Current), UnknownRank, vMergings);
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
  for (const Pair& Current : vPairs) {
    TrRuleInternal::AppendPair(Text, Current.Text[Source], Current.Text[Target]);
  }
  return Text;
}

/// Appends one constraint line in the normal form.
void RuleForm::AppendWritten(const Line& Current, std::string& TextReturn) const {
  const ConstraintParts& Parts = Current.Written->Parts;
  if (IsNormal(*Current.Written)) {
    AppendUpper(CodeOf(Current), TextReturn);
    return;
  }
  AppendLeft(Parts, ViewOf(Current).Feature, TextReturn);
  if (Parts.Kind == RightKind::Reference) {
    TextReturn += '(';
    AppendUpper(Parts.RightNode->Text, TextReturn);
    TextReturn += ' ';
    AppendFeature(Parts.RightFeature, TextReturn);
    TextReturn += ')';
  } else {
    // Of a negation the library keeps all but the parenthesis, unless it takes it for a
    // disjunction.
    TextReturn += ViewOf(Current).FeatValue;
    TextReturn += Parts.Kind == RightKind::Not && TextReturn.back() != ')' ? ")" : "";
  }
  TextReturn += ')';
}

/// Appends the lines that an entry stands for, each with a line end.
void RuleForm::AppendEntry(const Entry& Current, std::string& TextReturn) const {
  if (Current.IsOneList && !Current.FeatValue.empty()) {
    const Line& First = vLines[vPlaces[Current.Begin]];
    AppendLeft(First.Written->Parts, ViewOf(First).Feature, TextReturn);
    TextReturn.append(Current.FeatValue).append(")\n");
    return;
  }
  for (std::size_t At = Current.Begin; At < Current.End; ++At) {
    AppendWritten(vLines[vPlaces[At]], TextReturn);
    TextReturn += '\n';
  }
}

/// Appends the one line that the library writes of an entry.
void RuleForm::AppendLibraryEntry(const Entry& Current, std::string& TextReturn) const {
  TrRuleInternal::AppendConstraint(TextReturn, ViewOf(Current));
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
  for (const Pair& Current : vPairs) {
    bool IsLexicalized = false;
    for (const std::size_t Side : {Source, Target}) {
      const auto Index = static_cast<std::size_t>(Current.Index[Side]);
      IsLexicalized = IsLexicalized || (Index > 0 && Index <= Labels[Side].size() &&
                                        IsQuoted(Labels[Side][Index - 1]));
    }
    TrRuleInternal::Append(TextReturn, {IsLexicalized ? ";--;(X" : "(X", Current.Text[Source],
                                        "::Y", Current.Text[Target], ")\n"});
  }
}

void RuleForm::AppendBlock(std::string& TextReturn) const {
  constexpr bool KeepsLiterals = true;
  AppendRuleLine(KeepsLiterals, TextReturn);
  TextReturn += BlockStart;
  AppendAlignments(TextReturn);
  for (const std::size_t Place : vOrder) {
    AppendEntry(vEntries[Place], TextReturn);
  }
  TextReturn += ')';
}

/// Adds a sum of each line that an entry stands for, all of which are in capitals.
void RuleForm::AddSums(const Entry& Current, std::string& ScratchReturn,
                       SumPair& SumsReturn) const {
  const SourceRule::ConstraintLine& Written = *vLines[vPlaces[Current.Begin]].Written;
  if (Current.End - Current.Begin == 1 && Current.FeatValue.empty() && IsNormal(Written)) {
    SumsReturn.Add(SumInCapitals(Rule->CodeOf(Written.Line)));
    return;
  }
  ScratchReturn.clear();
  AppendEntry(Current, ScratchReturn);
  for (std::string_view Lines = ScratchReturn; !Lines.empty();) {
    const std::size_t Size = Lines.find('\n');
    SumsReturn.Add(SumInCapitals(Lines.substr(0, Size)));
    Lines.remove_prefix(Size + 1);
  }
}

SumPair RuleForm::BlockSums(std::string& ScratchReturn) const {
  SumPair Sums;
  for (const std::size_t Side : {Source, Target}) {
    Sums.AddText(Types[Side]);
    Sums.Add(Labels[Side].size());
    for (const std::string_view Label : Labels[Side]) {
      if (IsQuoted(Label)) {
        Sums.AddText(Label);
      } else {
        Sums.Add(SumInCapitals(Label));
      }
    }
  }
  Sums.Add(vPairs.size());
  for (const Pair& Aligned : vPairs) {
    Sums.AddText(Aligned.Text[Source]);
    Sums.AddText(Aligned.Text[Target]);
  }
  for (const std::size_t Place : vOrder) {
    AddSums(vEntries[Place], ScratchReturn, Sums);
  }
  return Sums;
}

namespace {

/// Whether a label is written as the library writes it, in capitals.
bool IsLibraryLabel(std::string_view Label) {
  return !IsQuoted(Label) ||
         std::none_of(Label.begin(), Label.end(), [](char Byte) { return Byte != ToUpper(Byte); });
}

}  // namespace

/// Whether the library writes the same line of an entry, in the same sense.
bool RuleForm::IsLibraryEntry(const Entry& Current) const {
  const SourceRule::ConstraintLine& Written = *vLines[Current.Kept].Written;
  const ConstraintParts& Parts = Written.Parts;
  if (Current.End - Current.Begin > 1 || !Current.FeatValue.empty() || !IsNormal(Written) ||
      Contains(Parts.Feature, " ")) {
    return false;
  }
  switch (Parts.Kind) {
    case RightKind::Not:
      return false;
    case RightKind::Reference:
      return !Parts.IsWholeNode && IsSameInCapitals(Parts.Feature, Parts.RightFeature);
    default:
      return true;
  }
}

/// Whether the library writes the same block. Where that is not plain to see, it is denied.
bool RuleForm::IsLibraryBlock() const {
  return std::all_of(Labels[Source].begin(), Labels[Source].end(), IsLibraryLabel) &&
         std::all_of(Labels[Target].begin(), Labels[Target].end(), IsLibraryLabel) &&
         std::all_of(vEntries.begin(), vEntries.end(),
                     [this](const Entry& Current) { return IsLibraryEntry(Current); });
}

bool RuleForm::AppendComparisonText(std::string& TextReturn) const {
  constexpr bool KeepsLiterals = false;
  TextReturn += ';';
  for (const std::string_view Label : Labels[Target]) {
    AppendUpper(Label, TextReturn);
    TextReturn += ' ';
  }
  TextReturn += '\n';
  if (IsLibraryBlock()) {
    AppendBlock(TextReturn);
    return true;
  }
  AppendRuleLine(KeepsLiterals, TextReturn);
  TextReturn += BlockStart;
  AppendAlignments(TextReturn);
  for (const std::size_t Place : vOrder) {
    AppendLibraryEntry(vEntries[Place], TextReturn);
  }
  TextReturn += ')';
  return false;
}

}  // namespace Grammar
