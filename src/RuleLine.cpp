#include "RuleLine.h"

#include "Ascii.h"
#include "Splitter.h"

#include <algorithm>
#include <array>

namespace TrRuleInternal {

namespace {

using ByteTable = std::array<bool, 256>;

/// The bytes of types and labels that have no other meaning; white space is not among them.
constexpr ByteTable LabelBytes() {
  ByteTable Table{};
  for (std::size_t Byte = 0; Byte < Table.size(); ++Byte) {
    Table[Byte] = !IsSpace(static_cast<char>(Byte));
  }
  for (const char Byte : std::string_view("[]{}:;=>")) {
    Table[static_cast<unsigned char>(Byte)] = false;
  }
  return Table;
}

/// The same bytes, and the blank between two labels.
constexpr ByteTable SequenceBytes() {
  ByteTable Table = LabelBytes();
  Table[' '] = true;
  return Table;
}

/// Takes the bytes of a table off the front of a text, possibly none.
std::string_view TakeBytes(std::string_view& TextReturn, const ByteTable& IsTaken) {
  std::size_t Size = 0;
  while (Size < TextReturn.size() && IsTaken[static_cast<unsigned char>(TextReturn[Size])]) {
    ++Size;
  }
  const std::string_view Taken = TextReturn.substr(0, Size);
  TextReturn.remove_prefix(Size);
  return Taken;
}

std::string_view TakeType(std::string_view& TextReturn) {
  static constexpr ByteTable IsLabelByte = LabelBytes();
  return TakeBytes(TextReturn, IsLabelByte);
}

std::string_view TakeLabels(std::string_view& TextReturn) {
  static constexpr ByteTable IsSequenceByte = SequenceBytes();
  return TakeBytes(TextReturn, IsSequenceByte);
}

bool HasLabel(std::string_view Labels) {
  return Labels.find_first_not_of(' ') != std::string_view::npos;
}

}  // namespace

// CommonRuleLine = Type "::" Type ( " [" | " : [" ) Labels "] -> [" Labels "]"
bool ParseCommonRuleLine(std::string_view Line, RuleLineParts& PartsReturn) {
  PartsReturn.SLType = TakeType(Line);
  if (!Take(Line, "::")) {
    return false;
  }
  PartsReturn.TLType = TakeType(Line);
  if (!Take(Line, " : [") && !Take(Line, " [")) {
    return false;
  }
  PartsReturn.SLLabels = TakeLabels(Line);
  if (!Take(Line, "] -> [")) {
    return false;
  }
  PartsReturn.TLLabels = TakeLabels(Line);
  return Line == "]" && !PartsReturn.SLType.empty() && !PartsReturn.TLType.empty() &&
         HasLabel(PartsReturn.SLLabels) && HasLabel(PartsReturn.TLLabels);
}

namespace {

/// The text between the first "[" and the last "]"; empty if it has no label. The reader would read
/// "[]" as the label "]".
std::string_view TextBetweenBrackets(std::string_view Part) {
  const std::size_t Open = Part.find('[');
  const std::size_t Close = Part.rfind(']');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close <= Open) {
    return {};
  }
  return TrimmedField(Part.substr(Open + 1, Close - Open - 1));
}

/// Types = SLType "::" TLType, without "[", which would be read as the start of the sequence once
/// the line is written
bool ParseTypes(std::string_view Word, RuleLineParts& PartsReturn) {
  const std::size_t Sign = Word.find("::");
  if (Sign == std::string_view::npos) {
    return false;
  }
  PartsReturn.SLType = Word.substr(0, Sign);
  PartsReturn.TLType = Word.substr(Sign + 2);
  return !PartsReturn.SLType.empty() && !PartsReturn.TLType.empty() &&
         !Contains(PartsReturn.TLType, "::") && !Contains(Word, "[");
}

}  // namespace

// RuleLine = Types blank any "[" Labels "] -> [" Labels "]" any
RuleLineFault ParseRuleLine(std::string_view Code, RuleLineParts& PartsReturn) {
  if (ParseCommonRuleLine(Code, PartsReturn)) {
    return RuleLineFault::None;
  }
  constexpr std::string_view Arrow = " -> ";
  const std::size_t Cut = Code.find(Arrow);
  const std::string_view Left = Code.substr(0, Cut);
  const std::string_view Right = Code.substr(Cut + Arrow.size());
  if (!ParseTypes(Left.substr(0, Left.find(' ')), PartsReturn)) {
    return RuleLineFault::Types;
  }
  PartsReturn.SLLabels = TextBetweenBrackets(Left);
  if (PartsReturn.SLLabels.empty()) {
    return RuleLineFault::SourceSide;
  }
  PartsReturn.TLLabels = TextBetweenBrackets(Right);
  // Another arrow makes a third part, and "::" makes a part a source side.
  if (PartsReturn.TLLabels.empty() || Contains(Right, Arrow) || Contains(Right, "::")) {
    return RuleLineFault::TargetSide;
  }
  return RuleLineFault::None;
}

// Types = SLType "::" TLType, at the front of a part that ends at a blank
std::optional<FieldPair> ReadTypes(std::string_view Part) {
  std::string_view Word;
  Splitter(Part, " ").Next(Word);
  return Contains(Word, "::") ? SplitInTwo(Word, "::") : std::nullopt;
}

// Sequence = "[" Labels "]"
std::string_view ReadSequence(std::string_view Part) {
  const std::size_t Open = Part.find('[');
  if (Open == std::string_view::npos || !Contains(Part, "]")) {
    return {};
  }
  std::string_view Sequence = Part.substr(Open);
  if (Sequence.size() > 1) {
    Sequence.remove_prefix(1);
  }
  Sequence = DropBack(Sequence, [](char Byte) { return Byte != ']'; });
  if (Sequence.size() > 1) {
    Sequence.remove_suffix(1);
  }
  return Sequence;
}

namespace {

bool IsBlank(char Byte) {
  return Byte == ' ';
}

bool IsNotBlank(char Byte) {
  return Byte != ' ';
}

/// An empty list with enough capacity for the labels of a sequence.
std::vector<std::string> RoomForLabels(std::string_view Sequence) {
  std::vector<std::string> vsLabels;
  vsLabels.reserve(static_cast<std::size_t>(std::count(Sequence.begin(), Sequence.end(), ' ')) + 1);
  return vsLabels;
}

}  // namespace

// CommonLabels = { " " } { Label { " " } }
std::vector<std::string> UpperLabels(std::string_view Sequence) {
  std::vector<std::string> vsLabels = RoomForLabels(Sequence);
  for (Sequence = DropFront(Sequence, IsBlank); !Sequence.empty();
       Sequence = DropFront(Sequence, IsBlank)) {
    const std::string_view Rest = DropFront(Sequence, IsNotBlank);
    MakeUpper(vsLabels.emplace_back(Sequence.substr(0, Sequence.size() - Rest.size())));
    Sequence = Rest;
  }
  return vsLabels;
}

// Labels = { " " } { Label " " { " " } }; a field that trimming leaves empty is not a label.
std::vector<std::string> ParseLabels(std::string_view Sequence) {
  std::vector<std::string> vsLabels = RoomForLabels(Sequence);
  Splitter Fields(Sequence, " ");
  for (std::string_view Field; Fields.Next(Field);) {
    const std::string_view Label = TrimmedField(Field);
    if (!Label.empty()) {
      vsLabels.emplace_back(Label);
    }
  }
  return vsLabels;
}

}  // namespace TrRuleInternal
