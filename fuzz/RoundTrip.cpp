#include "RoundTrip.h"

#include "FuzzSupport.h"
#include "RuleChecks.h"
#include "support/ReferenceImplementation.h"
#include "support/StreamCapture.h"

#include <algorithm>

namespace {

/// The bytes that the reader reads after a line end.
constexpr std::size_t MaxText = 100000;

bool HoldsNoneOf(const std::string& Text, const std::string& Bytes) {
  return Text.find_first_of(Bytes) == std::string::npos;
}

bool IsPlainText(const std::string& Text, const std::string& Marks) {
  return !Text.empty() && HoldsNoneOf(Text, Marks + " \t\n\v\f\r");
}

bool IsPlainName(const std::string& Name) {
  return IsPlainText(Name, "{}[]=,;:") && Name != "->";
}

bool IsPlainIndex(const std::string& Index) {
  return IsPlainText(Index, "(){}[]=,;:") && Reference::Upper(Index) == Index;
}

bool IsPlainLabel(const std::string& Label) {
  return IsPlainName(Label) && Reference::Upper(Label) == Label;
}

bool ArePlainLabels(const Strings& vsLabels) {
  return !vsLabels.empty() && std::all_of(vsLabels.begin(), vsLabels.end(), IsPlainLabel);
}

bool HasPlainSequenceLine(const TrRule& Rule) {
  return IsPlainName(Rule.GetSLType()) && IsPlainName(Rule.GetTLType()) &&
         ArePlainLabels(Rule.GetSLPOS()) && ArePlainLabels(Rule.GetTLPOS());
}

bool HasPlainAlignments(const TrRule& Rule) {
  return IsPlain(Rule.GetAlignmentStr()) && Reference::IsOrdered(Rule.GetAlignmentStr());
}

bool IsWritten(const Constraint& Record) {
  return Record.IsValueConstraint() || (Record.GetCategory() >= 1 && Record.GetCategory() <= 4);
}

bool ConstraintIsRestored(const Constraint& Record) {
  const std::string Text = Record.ReturnAsString();
  const bool IsOtherLine = Reference::Holds(Text, ";;") || Reference::Holds(Text, "::") ||
                           Reference::Holds(Text, "] -> [") || !HoldsNoneOf(Text, "{\n");
  const Constraint Read = Reference::Read(Text).Record;
  return !IsOtherLine && Read.ReturnAsString() == Text && KeyOf(Read) == KeyOf(Record) &&
         Read.IsValueConstraint() == Record.IsValueConstraint();
}

bool ConstraintsComeBack(const TrRule& Rule) {
  std::vector<Constraint> vWritten;
  for (const auto& [Key, Stored] : ConstraintsOf(Rule)) {
    if (IsWritten(Stored)) {
      vWritten.push_back(Stored);
    }
  }
  for (auto First = vWritten.begin(); First != vWritten.end(); ++First) {
    const auto Merges = [&](const Constraint& Second) { return WouldMerge(*First, Second); };
    if (!ConstraintIsRestored(*First) || std::any_of(First + 1, vWritten.end(), Merges)) {
      return false;
    }
  }
  return true;
}

bool CommentIsRestored(const std::string& Comment) {
  return HoldsNoneOf(Comment, "=") && !Reference::Holds(Comment, "::") &&
         !Reference::Holds(Comment, "] -> [") && Comment.back() != '\r';
}

bool HasPlainHeader(const TrRule& Rule) {
  const std::string& Type = HeaderTypeOf(Rule);
  return Type.size() <= 2 && (Type.empty() || IsPlainName(Type));
}

bool HasOneDigit(const TrRule& Rule) {
  return Rule.GetRuleIndex() >= 0 && Rule.GetRuleIndex() <= 9;
}

bool HasNoExample(const TrRule& Rule) {
  return Rule.GetSLWords().empty() && Rule.GetTLWords().empty() && Rule.GetCStructure().empty() &&
         Rule.GetNumTrExamples() == 1;
}

bool HasNoAlternatives(const TrRule& Rule) {
  return SentencesOf(Rule).empty() && Rule.GetSLWord2Comp().empty() &&
         Rule.GetTLWord2Comp().empty() && Rule.GetNumTrExamples() == 1 &&
         Rule.GetWordLevelSLPOS() == Rule.GetSLPOS();
}

bool FormIsRestored(const TrRule& Rule, Form Which) {
  const Strings& vsComments = CommentsOf(Rule);
  switch (Which) {
    case Form::Print:
      return HasPlainHeader(Rule) && HasOneDigit(Rule) &&
             std::all_of(vsComments.begin(), vsComments.end(), CommentIsRestored);
    case Form::ForPrint:
    case Form::NoConstraints:
      return HasOneDigit(Rule) && HasNoExample(Rule);
    case Form::AllAlts:
      return HasNoAlternatives(Rule) && Rule.GetWordLevelTLPOS() == Rule.GetTLPOS();
    default:
      return Rule.GetWordLevelTLPOS() == Rule.GetTLPOS();
  }
}

}  // namespace

std::string Write(TrRule& Rule, Form Which) {
  switch (Which) {
    case Form::Print:
      return WrittenBy([&] { Rule.Print(); }).Out;
    case Form::ForPrint:
      return Rule.ReturnAsStringForPrint();
    case Form::NoConstraints:
      return Rule.ReturnAsStringForPrintNoConstraints();
    case Form::AllAlts:
      return Rule.ReturnAsStringWithAllAlts();
    default:
      return Rule.ReturnAsStringForComparison();
  }
}

bool IsRestored(const TrRule& Rule, Form Which, const std::string& Written) {
  return HasPlainSequenceLine(Rule) && HasPlainAlignments(Rule) && Written.size() <= MaxText &&
         (Which == Form::NoConstraints || ConstraintsComeBack(Rule)) && FormIsRestored(Rule, Which);
}

bool IsPlain(const std::string& Alignments) {
  std::string Plain;
  for (const auto& [X, Y] : Reference::Displayed(Alignments)) {
    if (!IsPlainIndex(X) || !IsPlainIndex(Y)) {
      return false;
    }
    Plain += (Plain.empty() ? "((" : ",(") + X + ',' + Y + ')';
  }
  return Alignments == Plain + (Plain.empty() ? "" : ")") && Alignments.size() <= MaxText;
}

bool WouldMerge(const Constraint& First, const Constraint& Second) {
  if (!First.IsValueConstraint() || !Second.IsValueConstraint() || !HaveSameNode(First, Second)) {
    return false;
  }
  const std::string FirstKey = KeyOf(First);
  const std::string SecondKey = KeyOf(Second);
  return FirstKey != SecondKey && (FirstKey.find(Reference::KeyPrefix(Second)) == 0 ||
                                   SecondKey.find(Reference::KeyPrefix(First)) == 0);
}

bool HaveSameNode(const Constraint& First, const Constraint& Second) {
  return First.GetCategory() == Second.GetCategory() &&
         First.GetConstrainedIndex() == Second.GetConstrainedIndex();
}

std::string KeyOf(const Constraint& Record) {
  return Reference::KeyPrefix(Record) + Record.GetFeatValue();
}

void RequireRoundTrips(TrRule& Rule) {
  for (const Form Which : AllForms) {
    const Outcome<std::string> Written = OutcomeOf([&] { return Write(Rule, Which); });
    if (Written.Halt || !IsRestored(Rule, Which, Written.Result)) {
      continue;
    }
    TrRule Again;
    Require(Again.SetTrRuleFromString(Written.Result), "a written rule can be read");
    Require(OutcomeOf([&] { return Write(Again, Which); }) == Written,
            "a rule comes back from its text:\n" + Written.Result);
  }
}
