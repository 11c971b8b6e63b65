// A rule text goes through the reader, every writer, a copy, and two flips.

#include "FuzzSupport.h"
#include "RuleChecks.h"
#include "support/ReferenceImplementation.h"

namespace {

/// Properties of a text that the reader accepts.
void RequireAccepted(const TrRule& Rule, const std::string& Text) {
  Require(Reference::Holds(Text, "] -> [") && Reference::Holds(Text, "::"),
          "an accepted text has a rule line and an alignment");
  Require(!Rule.GetAlignmentStr().empty(), "an accepted rule has alignments");
}

void RequireComments(const TrRule& Rule, const std::string& Text) {
  for (const std::string& sComment : CommentsOf(Rule)) {
    Require(Reference::Holds(sComment, ";;") && Reference::Holds(Text, sComment),
            "a comment is a line of the text");
  }
}

/// The constraints of lines that are only constraints, up to a number that can be compared in
/// pairs.
std::vector<Constraint> ConstraintsIn(const Strings& vsLines) {
  constexpr std::size_t MaxConstraints = 32;
  std::vector<Constraint> vConstraints;
  for (const std::string& sLine : vsLines) {
    const bool IsOtherLine = Reference::Holds(sLine, "::") || Reference::Holds(sLine, "] -> [");
    if (Reference::Holds(sLine, "=") && !IsOtherLine && vConstraints.size() < MaxConstraints) {
      vConstraints.emplace_back(sLine);
    }
  }
  return vConstraints;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const SilentStreams Silence;
  const std::string Text(Data, Data + Size);
  TrRule Rule;
  const Outcome<bool> Read = OutcomeOf([&] { return Rule.SetTrRuleFromString(Text); });
  Require(!Read.Halt, "reading into a new rule never halts");
  if (Read.Result) {
    RequireAccepted(Rule, Text);
  }
  RequireComments(Rule, Text);
  RequireNoInsertionOrder(ConstraintsIn(LinesOf(Data, Size)));
  RequireRule(Rule);
  // Again, into the same rule.
  HaltOf([&] { Rule.SetTrRuleFromString(Text); });
  RequireRule(Rule);
  return 0;
}
