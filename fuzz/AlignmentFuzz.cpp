// The first line of an input is an alignment string, the other lines are alignment lines, and the
// whole input is a string, too. Each goes through every operation on alignments, and LineUp.

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "RuleChecks.h"
#include "support/PrivateAccess.h"
#include "support/ReferenceImplementation.h"

#include <algorithm>
#include <set>

namespace {

/// A rule in which half of the labels are literal words.
TrRule RuleWithLabels() {
  TrRule Rule;
  Rule.SetSLPOS("DET \"of\" N \"");
  Rule.SetTLPOS("N \"de\"");
  return Rule;
}

bool IsLiteral(const Strings& vsLabels, const std::string& Index) {
  const int Number = std::atoi(Index.c_str());
  if (Number < 1 || static_cast<std::size_t>(Number) > vsLabels.size()) {
    return false;
  }
  return vsLabels[static_cast<std::size_t>(Number) - 1].front() == '"';
}

void RequireDisplay(const TrRule& Rule) {
  Strings vsExpected;
  for (const auto& [X, Y] : Reference::Displayed(Rule.GetAlignmentStr())) {
    const bool Literal = IsLiteral(Rule.GetSLPOS(), X) || IsLiteral(Rule.GetTLPOS(), Y);
    vsExpected.push_back((Literal ? ";--;(X" : "(X") + X + "::Y" + Y + ')');
  }
  Require(Rule.GetAlignments() == vsExpected, "each pair is displayed");
}

void RequireReversing(const std::string& Alignments) {
  TrRule Rule;
  const std::optional<std::string> Expected = Reference::Reversed(Alignments);
  const Outcome<std::string> Reversed =
      OutcomeOf([&] { return CallGetReversedAlignments(Rule, Alignments); });
  Require(Reversed.Halt.has_value() == !Expected, "reversing halts on a pair without two parts");
  Require(Reversed.Result == Expected.value_or(""), "reversing exchanges the sides");
  if (IsPlain(Alignments)) {
    Require(CallGetReversedAlignments(Rule, Reversed.Result) == Alignments,
            "reversing twice restores a plain string");
  }
}

/// The result of `LineUp` for an index of one side, and the expected result.
void RequirePartners(const std::string& Alignments, int Index, bool OfSource,
                     std::set<int>& siPartnersReturn) {
  std::set<int> siExpected;
  for (const auto& [X, Y] : Reference::IndexedPairs(Alignments)) {
    if ((OfSource ? X : Y) == Index) {
      siExpected.insert(OfSource ? Y : X);
    }
  }
  LineUp Lookup;
  const bool Found = OfSource ? Lookup.GetEq(Alignments, Index, siPartnersReturn)
                              : Lookup.GetEqFromY(Alignments, Index, siPartnersReturn);
  Require(siPartnersReturn == siExpected, "an index has its partners");
  Require(Found == !siExpected.empty(), "the result says whether there are any");
}

void RequireLookup(const TrRule& Rule) {
  const std::string Alignments = Rule.GetAlignmentStr();
  Reference::IntPairs vPairs = Reference::IndexedPairs(Alignments);
  vPairs.emplace_back(1, 1);
  constexpr std::size_t MaxLookups = 8;
  for (std::size_t Pair = 0; Pair < std::min(vPairs.size(), MaxLookups); ++Pair) {
    const auto& [X, Y] = vPairs[Pair];
    std::set<int> siTargets;
    std::set<int> siSources;
    RequirePartners(Alignments, X, true, siTargets);
    RequirePartners(Alignments, Y, false, siSources);
    Require(CallIsOneToOne(Rule, X, Y) == (siTargets.size() < 2 && siSources.size() < 2),
            "two indices are one to one when neither has a second partner");
  }
}

void RequireString(const std::string& Alignments) {
  RequireReversing(Alignments);
  TrRule Rule = RuleWithLabels();
  const bool IsOdd =
      Alignments.size() > 2 && (Alignments.front() != '(' || Alignments.back() != ')');
  const bool Halted = HaltOf([&] { Rule.SetAlignment(Alignments); }).has_value();
  Require(Halted == IsOdd, "setting halts without outer parentheses");
  if (Halted) {
    Require(Rule.GetAlignmentStr() == Alignments, "a halted order leaves the string unchanged");
  } else {
    RequireOrdered(Alignments, Rule.GetAlignmentStr());
  }
  RequireDisplay(Rule);
  RequireLookup(Rule);
  RequireRule(Rule);
}

/// The string with the pair of a line appended, before it is ordered.
std::string WithPair(const std::string& Alignments, const std::string& Line) {
  const std::string Upper = Reference::Upper(Line);
  const std::size_t Open = Upper.find('(');
  const Strings vsSides =
      Reference::TrimmedPieces(Upper.substr(Open, Upper.rfind(')') + 1 - Open), "::");
  const std::string X = vsSides[0].substr(2);
  const std::string Y = vsSides[1].substr(1, vsSides[1].size() - 2);
  const std::string Start = Alignments.empty() ? "(" : Alignments.substr(0, Alignments.size() - 1);
  return Start + (Alignments.empty() ? "(" : ",(") + X + ',' + Y + "))";
}

void RequireLine(TrRule& Rule, const std::string& Line) {
  const std::string Before = Rule.GetAlignmentStr();
  const Outcome<bool> Added = OutcomeOf([&] { return Rule.AddAlignment(Line); });
  Require(!Added.Halt, "a line is added to an ordered string without a halt");
  if (Added.Result) {
    RequireOrdered(WithPair(Before, Line), Rule.GetAlignmentStr());
  } else {
    Require(Rule.GetAlignmentStr() == Before, "a rejected line changes nothing");
  }
}

void RequireLines(const Strings& vsLines) {
  TrRule Rule = RuleWithLabels();
  if (HaltOf([&] { Rule.SetAlignment(vsLines.front()); })) {
    return;
  }
  for (auto Line = vsLines.begin() + 1; Line != vsLines.end(); ++Line) {
    RequireLine(Rule, *Line);
  }
  RequireDisplay(Rule);
  RequireLookup(Rule);
  RequireRule(Rule);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const SilentStreams Silence;
  const Strings vsLines = LinesOf(Data, Size);
  RequireString(std::string(Data, Data + Size));
  if (vsLines.size() > 1) {
    RequireString(vsLines.front());
    RequireLines(vsLines);
  }
  return 0;
}
