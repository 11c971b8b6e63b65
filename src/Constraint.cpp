// Sections, in the order of the header: lifecycle and order, writing, plain accessors, the agreed
// index, reading a constraint text.

#include "Constraint.h"

#include "Ascii.h"
#include "Halt.h"
#include "PieceCutter.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>
#include <utility>

using TrRuleInternal::Append;
using TrRuleInternal::Contains;
using TrRuleInternal::CutInTwo;
using TrRuleInternal::IsDigit;
using TrRuleInternal::IsSpace;
using TrRuleInternal::PiecePair;
using TrRuleInternal::StartsWith;
using TrRuleInternal::Take;
using TrRuleInternal::ToInt;

namespace {

constexpr int UnknownCategory = -1;
constexpr int UnknownIndex = -1;
constexpr int UnknownRank = -1;
constexpr std::string_view WholeNode = "all";

}  // namespace

// ---- Lifecycle and order ----------------------------------------------------------------------

Constraint::Constraint()
    : Category(UnknownCategory),
      ConstrainedIndex(UnknownIndex),
      RankInCategory(UnknownRank),
      ValueConstraint(true) {}

Constraint::Constraint(int CategoryPassIn, int ConstrainedIndexPassIn, std::string FeaturePassIn,
                       std::string FeatValuePassIn, int RankInCategoryPassIn,
                       bool ValueConstraintPassIn)
    : Category(CategoryPassIn),
      ConstrainedIndex(ConstrainedIndexPassIn),
      Feature(std::move(FeaturePassIn)),
      FeatValue(std::move(FeatValuePassIn)),
      RankInCategory(RankInCategoryPassIn),
      ValueConstraint(ValueConstraintPassIn) {}

Constraint::Constraint(std::string ConstraintPassIn) : Constraint() {
  std::string Scratch;
  Parse(ConstraintPassIn, Scratch);
}

Constraint::Constraint(const Constraint& OtherPassIn) = default;

Constraint::~Constraint() = default;

void Constraint::operator=(Constraint OtherPassIn) {
  TakeOver(OtherPassIn);
}

void Constraint::TakeOver(Constraint& OtherReturn) {
  Category = OtherReturn.Category;
  ConstrainedIndex = OtherReturn.ConstrainedIndex;
  Feature = std::move(OtherReturn.Feature);
  FeatValue = std::move(OtherReturn.FeatValue);
  RankInCategory = OtherReturn.RankInCategory;
  ValueConstraint = OtherReturn.ValueConstraint;
}

bool Constraint::operator<(Constraint OtherPassIn) const {
  return ReturnAsString() < OtherPassIn.ReturnAsString();
}

// ---- Writing ----------------------------------------------------------------------------------

std::string Constraint::ReturnAsString() const {
  std::string Text;
  AppendTo(Text);
  return Text;
}

void Constraint::AppendTo(std::string& TextReturn) const {
  const std::string_view Side = Category == 1 ? "X" : "Y";
  const TrRuleInternal::Decimal Index(ConstrainedIndex);
  if (ValueConstraint) {
    Append(TextReturn, {"((", Side, Index, " ", Feature, ") = ", FeatValue, ")"});
  } else if (Feature == WholeNode) {
    Append(TextReturn, {"(", Side, Index, " = ", FeatValue, ")"});
  } else {
    Append(TextReturn, {"((", Side, Index, " ", Feature, ") = ", FeatValue, " ", Feature, "))"});
  }
}

// ---- Plain accessors --------------------------------------------------------------------------

void Constraint::SetCategory(int CategoryPassIn) {
  if (CategoryPassIn < 1 || CategoryPassIn > 4) {
    TrRuleInternal::Halt(HaltReason::CategoryRange,
                         "Constraint::SetCategory must be called with 1,2,3, or 4.");
  }
  Category = CategoryPassIn;
}

int Constraint::GetCategory() const {
  return Category;
}

void Constraint::SetConstrainedIndex(int ConstrainedIndexPassIn) {
  ConstrainedIndex = ConstrainedIndexPassIn;
}

int Constraint::GetConstrainedIndex() const {
  return ConstrainedIndex;
}

void Constraint::SetFeature(std::string FeaturePassIn) {
  Feature = std::move(FeaturePassIn);
}

std::string Constraint::GetFeature() const {
  return Feature;
}

void Constraint::SetFeatValue(std::string FeatValuePassIn) {
  FeatValue = std::move(FeatValuePassIn);
}

std::string Constraint::GetFeatValue() const {
  return FeatValue;
}

void Constraint::SetRankInCategory(int RankInCategoryPassIn) {
  RankInCategory = RankInCategoryPassIn;
}

int Constraint::GetRankInCategory() const {
  return RankInCategory;
}

void Constraint::SetValueConstraint(bool ValueConstraintPassIn) {
  ValueConstraint = ValueConstraintPassIn;
}

bool Constraint::IsValueConstraint() const {
  return ValueConstraint;
}

// ---- The agreed index -------------------------------------------------------------------------

int Constraint::GetAgreedIndex(std::string FeatValuePassIn) const {
  return AgreedIndexIn(FeatValuePassIn);
}

int Constraint::AgreedIndexIn(std::string_view FeatValue) {
  constexpr std::size_t MaxNumber = 1000;
  const std::size_t Letter = FeatValue.find_last_of("XY");
  if (Letter == std::string_view::npos || Letter + 1 == FeatValue.size()) {
    return UnknownIndex;
  }
  return ToInt(FeatValue.substr(Letter + 1, MaxNumber));
}

// ---- Reading a constraint text ----------------------------------------------------------------

namespace {

/// The text without leading and trailing white space.
std::string_view Trimmed(std::string_view Text) {
  constexpr std::size_t MaxRest = 100000;
  return TrRuleInternal::WithoutTrailingSpace(TrRuleInternal::WithoutLeadingSpace(Text, MaxRest));
}

/// Whether a blank between two bytes separates a node's name from its feature: it follows a digit
/// and is not the blank before "=" or "*". Such a blank is kept; the others mean nothing.
constexpr bool IsFeatureBlank(char Previous, char Next) {
  return IsDigit(Previous) && Next != '=' && Next != '*';
}

/// Gives the text, which begins and ends with something else than a blank, in capitals and without
/// white space, but for one blank between a node's name and its feature.
void Compact(std::string_view Text, std::string& CompactReturn) {
  CompactReturn.resize(Text.size());
  std::size_t Size = 0;
  for (std::size_t Position = 0; Position < Text.size(); ++Position) {
    if (!IsSpace(Text[Position])) {
      CompactReturn[Size++] = TrRuleInternal::ToUpper(Text[Position]);
    } else if (IsFeatureBlank(Text[Position - 1], Text[Position + 1])) {
      CompactReturn[Size++] = ' ';
    }
  }
  CompactReturn.resize(Size);
}

/// A node's name, "((X0" or "(Y12", without its parentheses and side letters.
int ParseNodeIndex(std::string_view Node) {
  const auto IsSkipped = [](char Byte) { return Byte == '(' || Byte == 'X' || Byte == 'Y'; };
  const std::string_view Name = TrRuleInternal::DropFront(Node, IsSkipped);
  if (std::none_of(Name.begin(), Name.end(), IsSkipped)) {
    return ToInt(Name);
  }
  std::string Number(Name);
  Number.erase(std::remove_if(Number.begin(), Number.end(), IsSkipped), Number.end());
  return ToInt(Number);
}

/// The value that a right side holds, in capitals: the text up to its first ")", which a
/// disjunction gets back. A negation does not: "(*NOT* SG" is how such a value is kept and written.
std::string ParseValue(std::string_view RightSide) {
  std::string Value(RightSide.substr(0, RightSide.find(')')));
  TrRuleInternal::MakeUpper(Value);
  if (Contains(Value, "*OR*")) {
    Value += ')';
  }
  return Value;
}

/// The category that the left side of a constraint gives by itself: 1 where it holds "(X", else 3
/// where it holds "(Y0", else 4 where it holds "(Y"; unknown where it names no node.
int CategoryOfNode(std::string_view LeftSide) {
  if (Contains(LeftSide, "(X")) {
    return 1;
  }
  if (!Contains(LeftSide, "(Y")) {
    return UnknownCategory;
  }
  return Contains(LeftSide, "(Y0") ? 3 : 4;
}

bool HasOnePiece(std::string_view Text, std::string_view Delimiter) {
  TrRuleInternal::PieceCutter Cutter(Text, Delimiter);
  std::string_view Piece;
  return Cutter.Next(Piece) && !Cutter.Next(Piece);
}

}  // namespace

Constraint::Constraint(std::string_view Text, std::string& ScratchReturn) : Constraint() {
  Parse(Text, ScratchReturn);
}

void Constraint::Parse(std::string_view Text, std::string& ScratchReturn) {
  if (!ParseSides(Text, ScratchReturn)) {
    std::cerr << "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|"
              << TrRuleInternal::Upper(std::string(Text)) << "|\n";
  }
}

// Constraint = UsualForm | Side "=" Side, any number of "=" counting as one.
bool Constraint::ParseSides(std::string_view Text, std::string& CompactReturn) {
  const std::string_view Whole = Trimmed(Text);
  // What lies far behind a cut is dropped, which only the general rules see to.
  if (Whole.size() <= TrRuleInternal::PieceCutter::MaxRest && ParseUsualForm(Whole)) {
    return true;
  }
  const std::optional<PiecePair> Sides = CutInTwo(Whole, "=");
  if (!Sides) {
    return false;
  }
  Compact(Whole, CompactReturn);
  if (const std::optional<PiecePair> CompactSides = CutInTwo(CompactReturn, ")=")) {
    ParseFeatureForm(CompactSides->First, CompactSides->Second, Trimmed(Sides->Second));
    return true;
  }
  if (!HasOnePiece(CompactReturn, ")=")) {
    return false;
  }
  if (const std::optional<PiecePair> CompactSides = CutInTwo(CompactReturn, "=")) {
    ParseWholeNodeForm(CompactSides->First, CompactSides->Second);
  }
  return true;
}

namespace {

/// A node as it is usually written, "x1" or "Y0".
struct UsualNode {
  int Category;
  int Index;
};

// UsualNode = ( "x" | "X" | "y" | "Y" ) Index
std::optional<UsualNode> TakeNode(std::string_view& TextReturn) {
  const char Side = TextReturn.empty() ? ' ' : TrRuleInternal::ToUpper(TextReturn.front());
  if (Side != 'X' && Side != 'Y') {
    return std::nullopt;
  }
  TextReturn.remove_prefix(1);
  const int TargetCategory = StartsWith(TextReturn, "0") ? 3 : 4;
  const int Index = TrRuleInternal::TakeNumber(TextReturn);
  if (Index < 0) {
    return std::nullopt;
  }
  return UsualNode{Side == 'X' ? 1 : TargetCategory, Index};
}

/// The bytes of features and values that mean nothing but themselves.
constexpr std::array<bool, 256> WordBytes() {
  std::array<bool, 256> Table{};
  for (const char Byte : std::string_view("+-_0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ")) {
    Table[static_cast<unsigned char>(Byte)] = true;
    Table[static_cast<unsigned char>(TrRuleInternal::ToLower(Byte))] = true;
  }
  return Table;
}

/// Takes a word, which may be empty, off the front of a text.
std::string_view TakeWord(std::string_view& TextReturn) {
  static constexpr std::array<bool, 256> IsWordByte = WordBytes();
  const std::string_view Rest = TrRuleInternal::DropFront(
      TextReturn, [](char Byte) { return IsWordByte[static_cast<unsigned char>(Byte)]; });
  const std::string_view Word = TextReturn.substr(0, TextReturn.size() - Rest.size());
  TextReturn = Rest;
  return Word;
}

/// Takes words with the blanks and asterisks between them, "*OR* sg pl", off the front of a text.
void TakeMarkedWords(std::string_view& TextReturn) {
  while (!TakeWord(TextReturn).empty() || Take(TextReturn, " ") || Take(TextReturn, "*")) {
  }
}

// UsualRightSide = "(" Node " " Word "))"
//                | Node ")"                            for a whole node
//                | Word ")" | "(*" MarkedWords "))"    for a feature
bool IsUsualRightSide(std::string_view Text, bool IsWholeNode) {
  if (!IsWholeNode && Take(Text, "(*")) {
    TakeMarkedWords(Text);
    return Text == "))";
  }
  if (Take(Text, "(")) {
    return TakeNode(Text) && Take(Text, " ") && !TakeWord(Text).empty() && Text == "))";
  }
  return (IsWholeNode ? TakeNode(Text).has_value() : !TakeWord(Text).empty()) && Text == ")";
}

}  // namespace

// UsualForm = "((" Node " " Word ") = " UsualRightSide
//           | "(" Node ( " = " | " == " ) UsualRightSide
//
// Most constraints are written so, and read in one go. The general rules, which follow, read them
// alike.
bool Constraint::ParseUsualForm(std::string_view Text) {
  const bool IsWholeNode = !Take(Text, "((");
  if (IsWholeNode && !Take(Text, "(")) {
    return false;
  }
  const std::optional<UsualNode> Node = TakeNode(Text);
  if (!Node || (!IsWholeNode && !Take(Text, " "))) {
    return false;
  }
  const std::string_view Word = IsWholeNode ? WholeNode : TakeWord(Text);
  const bool HasSign = IsWholeNode ? Take(Text, " = ") || Take(Text, " == ") : Take(Text, ") = ");
  if (Word.empty() || !HasSign || !IsUsualRightSide(Text, IsWholeNode)) {
    return false;
  }
  const bool IsValue = !IsWholeNode && (!StartsWith(Text, "(") || StartsWith(Text, "(*"));
  ValueConstraint = IsValue;
  FeatValue = ParseValue(IsValue || IsWholeNode ? Text : Text.substr(0, Text.find(' ')));
  Category = Node->Category;
  ConstrainedIndex = Node->Index;
  Feature = Word;
  if (!IsWholeNode) {
    Category = Category != 1 && Contains(FeatValue, "X") ? 2 : Category;
    TrRuleInternal::MakeUpper(Feature);
  }
  return true;
}

// FeatureForm = "((" Side Index " " Feature ")=" ( "(" Side Index " " Feature "))" | Value ")" ).
// A value is taken from the side as it was written, so that the blanks of a disjunction survive.
void Constraint::ParseFeatureForm(std::string_view LeftSide, std::string_view RightSide,
                                  std::string_view WrittenRightSide) {
  ValueConstraint = !StartsWith(RightSide, "(X") && !StartsWith(RightSide, "(Y");
  if (ValueConstraint && Contains(RightSide, ")")) {
    FeatValue = ParseValue(WrittenRightSide);
  } else if (!ValueConstraint && Contains(RightSide, " ")) {
    FeatValue = RightSide.substr(0, RightSide.find(' '));
  }
  Category = CategoryOfNode(LeftSide);
  if ((Category == 3 || Category == 4) && Contains(FeatValue, "X")) {
    Category = 2;
  }
  const std::size_t Blank = LeftSide.find(' ');
  ConstrainedIndex = ParseNodeIndex(LeftSide.substr(0, Blank));
  if (Blank != std::string_view::npos) {
    Feature = LeftSide.substr(Blank + 1);
  }
}

// WholeNodeForm = "(" Side Index "=" ( Side Index | "(" Side Index " " Feature ")" ) ")".
void Constraint::ParseWholeNodeForm(std::string_view LeftSide, std::string_view RightSide) {
  ValueConstraint = false;
  Feature = WholeNode;
  Category = CategoryOfNode(LeftSide);
  if (Category == UnknownCategory) {
    Category = 4;
  }
  // A blank stands only behind a digit, and so ends the number like any other byte.
  ConstrainedIndex = ParseNodeIndex(LeftSide);
  if (Contains(RightSide, ")")) {
    FeatValue = ParseValue(RightSide);
  }
}
