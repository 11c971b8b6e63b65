// A constraint text goes through both of its readers, the writer, and the first reader again.

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "RuleChecks.h"
#include "support/ReferenceImplementation.h"
#include "support/StreamCapture.h"

#include <algorithm>

namespace {

bool HoldsNoneOf(const std::string& Text, const std::string& Bytes) {
  return Text.find_first_of(Bytes) == std::string::npos;
}

bool IsName(const std::string& Text) {
  return !Text.empty() && HoldsNoneOf(Text, "()=* \t\n\v\f\r") && Reference::Upper(Text) == Text;
}

/// Words separated by one blank.
bool AreWords(const std::string& Text) {
  const Strings vsWords = Reference::Pieces(Text, " ");
  return std::all_of(vsWords.begin(), vsWords.end(), IsName) &&
         Text.size() + 1 == Reference::Replaced(Text + ' ', "  ", " ").size() && !vsWords.empty() &&
         Text.front() != ' ' && Text.back() != ' ';
}

bool StartsWith(const std::string& Text, const std::string& Start) {
  return Text.compare(0, Start.size(), Start) == 0;
}

/// "(*OR* SG PL)", "(*NOT* SG" or words.
bool IsValue(const std::string& Value) {
  const std::string Or = "(*OR* ";
  const std::string Not = "(*NOT* ";
  if (StartsWith(Value, Or)) {
    return Value.back() == ')' && AreWords(Value.substr(Or.size(), Value.size() - Or.size() - 1));
  }
  return AreWords(StartsWith(Value, Not) ? Value.substr(Not.size()) : Value);
}

bool IsNode(const std::string& Node) {
  return Node.size() > 1 && (Node[0] == 'X' || Node[0] == 'Y') &&
         Node.find_first_not_of("0123456789", 1) == std::string::npos;
}

/// The opening of another node's feature, "(Y2".
bool IsOpening(const std::string& Value) {
  return StartsWith(Value, "(") && IsNode(Value.substr(1));
}

/// "X3", or "(Y0 DET" as in the fields of "(y1 == (y0 det))".
bool IsWholeReference(const std::string& Value) {
  const std::size_t Blank = Value.find(' ');
  return IsNode(Value) || (Blank != std::string::npos && IsOpening(Value.substr(0, Blank)) &&
                           IsName(Value.substr(Blank + 1)));
}

bool IsWholeNode(const Constraint& Record) {
  return !Record.IsValueConstraint() && Record.GetFeature() == "all";
}

/// The category that the text of a constraint shows.
int ShownCategory(const Constraint& Record) {
  if (Record.GetCategory() == 1) {
    return 1;
  }
  const bool MentionsSource = Reference::Holds(Record.GetFeatValue(), "X") && !IsWholeNode(Record);
  const int Target = Record.GetConstrainedIndex() == 0 ? 3 : 4;
  return MentionsSource ? 2 : Target;
}

/// Whether a text restores its constraint. It restores the constraints that fit the format:
///
/// - its category is the one of its node and value;
/// - its feature is a name, without white space, small letters and `( ) = *`, or "all" if the
///   whole node refers to another;
/// - its value is one such name or several, joined by blanks, with or without "(*OR* ... )" or
///   "(*NOT* ..." around them;
/// - or, if it is a reference, its value is "(Y2" with a feature, and "X3" or "(Y0 DET" without
///   one.
///
/// Some of the others are restored, too. "((y1 num) = (y2))", for example, is a reference with an
/// empty value; it is written "((Y1 NUM) =  NUM))", which is a value.
bool IsInFormat(const Constraint& Record) {
  if (Record.GetCategory() != ShownCategory(Record)) {
    return false;
  }
  if (IsWholeNode(Record)) {
    return IsWholeReference(Record.GetFeatValue());
  }
  const std::string Value = Record.GetFeatValue();
  return IsName(Record.GetFeature()) &&
         (Record.IsValueConstraint() ? IsValue(Value) : IsOpening(Value));
}

std::string FieldsOf(const Constraint& Record) {
  return KeyOf(Record) + '|' + std::to_string(Record.GetRankInCategory()) +
         (Record.IsValueConstraint() ? "|value" : "|reference");
}

/// A text on its own: compares the library with the reference implementation, and writes it back.
void RequireReading(const std::string& Text) {
  const Reference::Reading Expected = Reference::Read(Text);
  Constraint Record;
  const Written Streams = WrittenBy([&] { Record = Constraint(Text); });
  Require(Streams == Written{"", Expected.Err}, "reading a text prints the expected messages");
  Require(FieldsOf(Record) == FieldsOf(Expected.Record), "a text is read as by the reference");
  Require(!(Record < Record), "no constraint sorts before itself");
  if (IsInFormat(Record)) {
    const Constraint Again(Record.ReturnAsString());
    Require(FieldsOf(Again) == FieldsOf(Record), "a text restores its constraint");
    Require(Again.ReturnAsString() == Record.ReturnAsString(),
            "a restored constraint has the same text");
  }
}

/// Any text becomes stable if it is read and written again and again.
void RequireRestInTheEnd(const std::string& Text) {
  constexpr int Rewritings = 4;
  std::string Before = Constraint(Text).ReturnAsString();
  for (int Left = Rewritings; Left > 0; --Left) {
    const std::string After = Constraint(Before).ReturnAsString();
    if (After == Before) {
      return;
    }
    Before = After;
  }
  Require(false, "a text becomes stable: " + Before);
}

/// A text with rank and category given.
void RequireRankedReading(const std::string& Text) {
  constexpr int Rank = 2;
  constexpr int Category = 4;
  const Reference::RankedReading Expected = Reference::ReadRanked(Text, Rank, Category);
  TrRule Rule;
  std::optional<Halted> Halt;
  const Written Streams =
      WrittenBy([&] { Halt = HaltOf([&] { Rule.SetConstraint(Text, Rank, Category); }); });
  Require(Streams == Written{Expected.Out, Expected.Err},
          "a ranked text prints the expected messages");
  Require(Halt.has_value() == Expected.Ended, "a ranked text halts as expected");
  Require(Rule.GetNumConstraints() == (Expected.Record ? 1 : 0), "it sets one constraint at most");
  for (const auto& [Key, Stored] : ConstraintsOf(Rule)) {
    Require(FieldsOf(Stored) == FieldsOf(*Expected.Record), "it is read as by the reference");
  }
}

/// A text as a constraint of a rule.
void RequireStoring(const std::string& Text) {
  TrRule Rule;
  Rule.SetConstraint("((x1 num) = sg)");
  Rule.SetConstraint(Text);
  Rule.SetConstraint(Text);
  RequireRule(Rule);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const SilentStreams Silence;
  const std::string Text(Data, Data + Size);
  RequireReading(Text);
  RequireRestInTheEnd(Text);
  RequireRankedReading(Text);
  RequireStoring(Text);
  return 0;
}
