// Sections, in the order of the header: the common form, its fields, the lenient rules,
// the agreed index.

#include "ConstraintText.h"

#include "Ascii.h"
#include "Splitter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace TrRuleInternal {

// ---- The common form --------------------------------------------------------------------------

namespace {

// Node = ( "x" | "X" | "y" | "Y" ) Index
bool TakeNode(std::string_view& TextReturn, NodeText& NodeReturn) {
  NodeReturn.Text = TextReturn;
  NodeReturn.Side = TextReturn.empty() ? ' ' : ToUpper(TextReturn.front());
  if (NodeReturn.Side != 'X' && NodeReturn.Side != 'Y') {
    return false;
  }
  TextReturn.remove_prefix(1);
  NodeReturn.Index = TakeNumber(TextReturn);
  NodeReturn.Text.remove_suffix(TextReturn.size());
  return NodeReturn.Index >= 0;
}

/// The bytes of features and values that have no other meaning.
constexpr std::array<bool, 256> WordBytes() {
  std::array<bool, 256> Table{};
  for (const char Byte : std::string_view("+-_0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ")) {
    Table[static_cast<unsigned char>(Byte)] = true;
    Table[static_cast<unsigned char>(ToLower(Byte))] = true;
  }
  return Table;
}

/// Takes a word, which may be empty, off the front of a text.
std::string_view TakeWord(std::string_view& TextReturn) {
  static constexpr std::array<bool, 256> IsWordByte = WordBytes();
  std::size_t Size = 0;
  while (Size < TextReturn.size() && IsWordByte[static_cast<unsigned char>(TextReturn[Size])]) {
    ++Size;
  }
  const std::string_view Word = TextReturn.substr(0, Size);
  TextReturn.remove_prefix(Size);
  return Word;
}

/// Takes a feature of one or more words off the front of a text; empty if there is none.
// Feature = Word { " " Word }
std::string_view TakeFeature(std::string_view& TextReturn) {
  const std::string_view Before = TextReturn;
  do {
    if (TakeWord(TextReturn).empty()) {
      return {};
    }
  } while (Take(TextReturn, " "));
  return Before.substr(0, Before.size() - TextReturn.size());
}

/// Takes words with the blanks between them, "sg pl", off the front of a text.
std::string_view TakeWords(std::string_view& TextReturn) {
  const std::string_view Before = TextReturn;
  while (!TakeWord(TextReturn).empty() || Take(TextReturn, " ")) {
  }
  return Before.substr(0, Before.size() - TextReturn.size());
}

/// Whether a text begins with a mark, in small letters or capitals, and a blank after it.
bool BeginsWithMark(std::string_view Text, std::string_view Capitals) {
  const auto IsSame = [](char Written, char Capital) { return ToUpper(Written) == Capital; };
  return Text.size() > Capitals.size() && Text[Capitals.size()] == ' ' &&
         std::equal(Capitals.begin(), Capitals.end(), Text.begin(),
                    [&](char Capital, char Written) { return IsSame(Written, Capital); });
}

// Marked = "(*OR* " Words "))" | "(*NOT* " Words "))"
bool ParseMarked(std::string_view Text, ConstraintParts& PartsReturn) {
  const bool IsOr = BeginsWithMark(Text, "(*OR*");
  if (!IsOr && !BeginsWithMark(Text, "(*NOT*")) {
    return false;
  }
  PartsReturn.Kind = IsOr ? RightKind::Or : RightKind::Not;
  PartsReturn.Right = Text.substr(0, Text.size() - 1);
  Text.remove_prefix(Text.find(' ') + 1);
  PartsReturn.Value = WithoutTrailingSpace(TakeWords(Text));
  return !PartsReturn.Value.empty() && Text == "))";
}

// Reference = "(" Node " " Feature "))"
bool ParseReference(std::string_view Text, ConstraintParts& PartsReturn) {
  PartsReturn.Kind = RightKind::Reference;
  PartsReturn.Right = Text.substr(0, Text.size() - 1);
  NodeText& Node = PartsReturn.RightNode.emplace();
  if (!Take(Text, "(") || !TakeNode(Text, Node) || !Take(Text, " ")) {
    return false;
  }
  PartsReturn.RightFeature = TakeFeature(Text);
  return !PartsReturn.RightFeature.empty() && Text == "))";
}

// Word = Node ")" for a whole node | Value ")"
bool ParseWord(std::string_view Text, ConstraintParts& PartsReturn) {
  PartsReturn.Value = TakeWord(Text);
  PartsReturn.Right = PartsReturn.Value;
  PartsReturn.Kind = PartsReturn.IsWholeNode ? RightKind::Node : RightKind::Value;
  std::string_view Rest = PartsReturn.Value;
  if (!TakeNode(Rest, PartsReturn.RightNode.emplace()) || !Rest.empty()) {
    PartsReturn.RightNode.reset();
  }
  const bool IsRight = PartsReturn.RightNode || !PartsReturn.IsWholeNode;
  return IsRight && !PartsReturn.Value.empty() && Text == ")";
}

// RightSide = Marked, for a feature | Reference | Word
bool ParseRightSide(std::string_view Text, ConstraintParts& PartsReturn) {
  if (!StartsWith(Text, "(")) {
    return ParseWord(Text, PartsReturn);
  }
  if (StartsWith(Text, "(*")) {
    return !PartsReturn.IsWholeNode && ParseMarked(Text, PartsReturn);
  }
  return ParseReference(Text, PartsReturn);
}

/// Takes the signs between the sides off the front of a text: one, or up to two for a whole node.
// Equals = ") = " for a feature | " = " | " == "
bool TakeEquals(std::string_view& TextReturn, ConstraintParts& PartsReturn) {
  const std::string_view Before = TextReturn;
  if (!PartsReturn.IsWholeNode) {
    if (!Take(TextReturn, ") = ")) {
      return false;
    }
    PartsReturn.Equals = Before.substr(2, 1);
    return true;
  }
  const bool IsDoubled = Take(TextReturn, " == ");
  if (!IsDoubled && !Take(TextReturn, " = ")) {
    return false;
  }
  PartsReturn.Equals = Before.substr(1, IsDoubled ? 2 : 1);
  return true;
}

}  // namespace

// CommonForm = "((" Node " " Feature ") = " RightSide
//            | "(" Node ( " = " | " == " ) RightSide
bool ParseCommonForm(std::string_view Text, ConstraintParts& PartsReturn) {
  // Clear what a previous text may have set.
  PartsReturn.Feature = PartsReturn.RightFeature = PartsReturn.Value = {};
  PartsReturn.RightNode.reset();
  PartsReturn.IsWholeNode = !Take(Text, "((");
  if (PartsReturn.IsWholeNode && !Take(Text, "(")) {
    return false;
  }
  if (!TakeNode(Text, PartsReturn.Left)) {
    return false;
  }
  if (!PartsReturn.IsWholeNode) {
    if (!Take(Text, " ")) {
      return false;
    }
    PartsReturn.Feature = TakeFeature(Text);
    if (PartsReturn.Feature.empty()) {
      return false;
    }
  }
  return TakeEquals(Text, PartsReturn) && ParseRightSide(Text, PartsReturn);
}

// ---- The fields of the common form ------------------------------------------------------------

namespace {

constexpr int SourceNode = 1;
constexpr int FromSource = 2;
constexpr int TargetRoot = 3;
constexpr int TargetNode = 4;
constexpr int UnknownCategory = -1;

/// A feature of a target node whose value contains an X counts as coming from the source side, even
/// if the X is part of a word such as NEXT.
int WithSource(int Category, std::string_view FeatValue) {
  const bool IsTarget = Category == TargetRoot || Category == TargetNode;
  const auto IsX = [](char Byte) { return Byte == 'X' || Byte == 'x'; };
  return IsTarget && std::any_of(FeatValue.begin(), FeatValue.end(), IsX) ? FromSource : Category;
}

int CategoryOfSide(const NodeText& Node) {
  if (Node.Side == 'X') {
    return SourceNode;
  }
  return Node.Text[1] == '0' ? TargetRoot : TargetNode;
}

/// The right side as it is stored: without the closing parenthesis of a reference or a negation.
std::string_view KeptRight(const ConstraintParts& Parts) {
  switch (Parts.Kind) {
    case RightKind::Reference:
      return Parts.Right.substr(
          0, Parts.IsWholeNode ? Parts.Right.size() - 1 : Parts.RightNode->Text.size() + 1);
    case RightKind::Not:
      return Parts.Right.substr(0, Parts.Right.size() - 1);
    default:
      return Parts.Right;
  }
}

}  // namespace

ConstraintView ViewOfCommonForm(const ConstraintParts& Parts) {
  ConstraintView Fields;
  Fields.Category = CategoryOfSide(Parts.Left);
  Fields.ConstrainedIndex = Parts.Left.Index;
  Fields.Feature = Parts.IsWholeNode ? WholeNode : Parts.Feature;
  Fields.FeatValue = KeptRight(Parts);
  Fields.ValueConstraint = !Parts.IsWholeNode && Parts.Kind != RightKind::Reference;
  if (!Parts.IsWholeNode) {
    Fields.Category = WithSource(Fields.Category, Fields.FeatValue);
  }
  return Fields;
}

ConstraintFields FieldsOfCommonForm(const ConstraintParts& Parts) {
  const ConstraintView View = ViewOfCommonForm(Parts);
  ConstraintFields Fields{View.Category, View.ConstrainedIndex, std::string(View.Feature),
                          std::string(View.FeatValue), View.ValueConstraint};
  std::string& Name = Parts.IsWholeNode ? Fields.FeatValue : Fields.Feature;
  WriteName(Name, 0, Name.size());
  MakeUpper(Fields.FeatValue);
  return Fields;
}

std::size_t WriteName(std::string& TextReturn, std::size_t Begin, std::size_t Size) {
  char* const Name = TextReturn.data() + Begin;
  std::size_t Kept = 0;
  for (std::size_t At = 0; At < Size; ++At) {
    if (Name[At] != ' ' || IsDigit(Name[At - 1])) {
      Name[Kept++] = ToUpper(Name[At]);
    }
  }
  if (Kept < Size) {
    TextReturn.erase(Begin + Kept, Size - Kept);
  }
  return Kept;
}

// ---- The lenient rules ------------------------------------------------------------------------

namespace {

/// The text without leading and trailing white space.
std::string_view TrimmedText(std::string_view Text) {
  return WithoutTrailingSpace(WithoutLeadingSpace(Text, Splitter::MaxRest));
}

/// Whether a blank between two bytes separates a node's name from its feature: it follows a digit
/// and is not before "=" or "*". Such a blank is kept; the others have no meaning.
constexpr bool IsFeatureBlank(char Previous, char Next) {
  return IsDigit(Previous) && Next != '=' && Next != '*';
}

/// The text in capitals and without white space, except for one blank between the name of a node
/// and its feature. The text must not begin or end with white space.
std::string Compact(std::string_view Text) {
  std::string Compacted(Text.size(), '\0');
  std::size_t Size = 0;
  for (std::size_t Position = 0; Position < Text.size(); ++Position) {
    if (!IsSpace(Text[Position])) {
      Compacted[Size++] = ToUpper(Text[Position]);
    } else if (IsFeatureBlank(Text[Position - 1], Text[Position + 1])) {
      Compacted[Size++] = ' ';
    }
  }
  Compacted.resize(Size);
  return Compacted;
}

/// The number in the name of a node, such as "((X0" or "(Y12".
int ParseNodeIndex(std::string_view Node) {
  const auto IsSkipped = [](char Byte) { return Byte == '(' || Byte == 'X' || Byte == 'Y'; };
  const std::string_view Name = DropFront(Node, IsSkipped);
  if (std::none_of(Name.begin(), Name.end(), IsSkipped)) {
    return ToInt(Name);
  }
  std::string Number(Name);
  Number.erase(std::remove_if(Number.begin(), Number.end(), IsSkipped), Number.end());
  return ToInt(Number);
}

/// The value in a right side, in capitals: the text before its first ")". A disjunction keeps that
/// parenthesis, a negation does not: it is stored and written as "(*NOT* SG".
std::string ParseValue(std::string_view RightSide) {
  std::string Value = Upper(std::string(RightSide.substr(0, RightSide.find(')'))));
  if (Contains(Value, "*OR*")) {
    Value += ')';
  }
  return Value;
}

/// The category of a constraint by its left side alone: 1 if it contains "(X", else 3 if it
/// contains "(Y0", else 4 if it contains "(Y", otherwise unknown.
int CategoryOfText(std::string_view LeftSide) {
  if (Contains(LeftSide, "(X")) {
    return SourceNode;
  }
  if (!Contains(LeftSide, "(Y")) {
    return UnknownCategory;
  }
  return Contains(LeftSide, "(Y0") ? TargetRoot : TargetNode;
}

bool HasOneField(std::string_view Text, std::string_view Delimiter) {
  Splitter Fields(Text, Delimiter);
  std::string_view Field;
  return Fields.Next(Field) && !Fields.Next(Field);
}

// FeatureForm = "((" Side Index " " Feature ")=" ( "(" Side Index " " Feature "))" | Value ")" ).
// A value is read from the side as written, which keeps the blanks of a disjunction.
void ReadFeatureForm(const FieldPair& Compacted, std::string_view WrittenRightSide,
                     ConstraintFields& FieldsReturn) {
  const auto& [LeftSide, RightSide] = Compacted;
  const bool IsValue = !StartsWith(RightSide, "(X") && !StartsWith(RightSide, "(Y");
  FieldsReturn.ValueConstraint = IsValue;
  if (IsValue && Contains(RightSide, ")")) {
    FieldsReturn.FeatValue = ParseValue(WrittenRightSide);
  } else if (!IsValue && Contains(RightSide, " ")) {
    FieldsReturn.FeatValue = RightSide.substr(0, RightSide.find(' '));
  }
  FieldsReturn.Category = WithSource(CategoryOfText(LeftSide), FieldsReturn.FeatValue);
  const std::size_t Blank = LeftSide.find(' ');
  FieldsReturn.ConstrainedIndex = ParseNodeIndex(LeftSide.substr(0, Blank));
  if (Blank != std::string_view::npos) {
    FieldsReturn.Feature = LeftSide.substr(Blank + 1);
  }
}

// WholeNodeForm = "(" Side Index "=" ( Side Index | "(" Side Index " " Feature ")" ) ")".
void ReadWholeNodeForm(const FieldPair& Compacted, ConstraintFields& FieldsReturn) {
  const auto& [LeftSide, RightSide] = Compacted;
  FieldsReturn.ValueConstraint = false;
  FieldsReturn.Feature = WholeNode;
  const int Category = CategoryOfText(LeftSide);
  FieldsReturn.Category = Category == UnknownCategory ? TargetNode : Category;
  // A blank comes only after a digit, and so ends the number like any other byte.
  FieldsReturn.ConstrainedIndex = ParseNodeIndex(LeftSide);
  if (Contains(RightSide, ")")) {
    FieldsReturn.FeatValue = ParseValue(RightSide);
  }
}

}  // namespace

// Constraint = CommonForm | Side "=" Side, any number of "=" counting as one
bool ReadConstraint(std::string_view Written, ConstraintFields& FieldsReturn) {
  const std::string_view Whole = TrimmedText(Written);
  // Only the lenient rules drop what exceeds the limit after a split.
  ConstraintParts Parts;
  if (Whole.size() <= Splitter::MaxRest && ParseCommonForm(Whole, Parts)) {
    FieldsReturn = FieldsOfCommonForm(Parts);
    return true;
  }
  const std::optional<FieldPair> Sides = SplitInTwo(Whole, "=");
  if (!Sides) {
    return false;
  }
  const std::string Text = Compact(Whole);
  if (const std::optional<FieldPair> Compacted = SplitInTwo(Text, ")=")) {
    ReadFeatureForm(*Compacted, TrimmedText(Sides->Second), FieldsReturn);
    return true;
  }
  if (!HasOneField(Text, ")=")) {
    return false;
  }
  if (const std::optional<FieldPair> Compacted = SplitInTwo(Text, "=")) {
    ReadWholeNodeForm(*Compacted, FieldsReturn);
  }
  return true;
}

// ---- The agreed index -------------------------------------------------------------------------

int AgreedIndexIn(std::string_view FeatValue) {
  constexpr std::size_t MaxNumber = 1000;
  constexpr int UnknownIndex = -1;
  const std::string_view UpToLetter =
      DropBack(FeatValue, [](char Byte) { return Byte != 'X' && Byte != 'Y'; });
  if (UpToLetter.empty() || UpToLetter.size() == FeatValue.size()) {
    return UnknownIndex;
  }
  return ToInt(FeatValue.substr(UpToLetter.size(), MaxNumber));
}

}  // namespace TrRuleInternal
