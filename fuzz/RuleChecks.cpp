#include "RuleChecks.h"

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "support/DebugLevel.h"
#include "support/PrivateAccess.h"
#include "support/ReferenceImplementation.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <utility>

// ---- What a rule holds ------------------------------------------------------------------------

const std::map<std::string, Constraint>& ConstraintsOf(const TrRule& Rule) {
  return Rule.*GetMember(ConstraintsTag());
}

const Strings& CommentsOf(const TrRule& Rule) {
  return Rule.*GetMember(CommentsTag());
}

const std::string& HeaderTypeOf(const TrRule& Rule) {
  return Rule.*GetMember(HeaderTypeTag());
}

namespace {

using IntMap = std::map<int, int>;

/// The lists of alternatives.
struct Alternatives {
  explicit Alternatives(const TrRule& Rule) {
    Rule.GetAllAlts(vsSLSents, vsTLSents, vsAlignments, vsCStructures, vmiiSL, vmiiTL, vvsSL,
                    vvsTL);
  }

  Strings vsSLSents;
  Strings vsTLSents;
  Strings vsAlignments;
  Strings vsCStructures;
  std::vector<IntMap> vmiiSL;
  std::vector<IntMap> vmiiTL;
  std::vector<Strings> vvsSL;
  std::vector<Strings> vvsTL;
};

// Texts are written with their size, so that no two different rules have the same members.

std::string Shown(int Number) {
  return std::to_string(Number);
}

std::string Shown(const std::string& Text) {
  return std::to_string(Text.size()) + ':' + Text;
}

std::string Shown(const Constraint& Record) {
  return Shown(KeyOf(Record)) + Shown(Record.ReturnAsString()) + Shown(Record.GetRankInCategory()) +
         (Record.IsValueConstraint() ? "value" : "reference");
}

template <typename KeyT, typename ValueT>
std::string Shown(const std::pair<const KeyT, ValueT>& Entry) {
  return Shown(Entry.first) + "->" + Shown(Entry.second);
}

template <typename CollectionT>
std::string Shown(const CollectionT& Collection) {
  std::string Text = "{";
  for (const auto& Element : Collection) {
    Text += ' ' + Shown(Element);
  }
  return Text + '}';
}

std::string ShownAlternatives(const TrRule& Rule) {
  const Alternatives Alts(Rule);
  return Shown(Alts.vsSLSents) + Shown(Alts.vsTLSents) + Shown(Alts.vsAlignments) +
         Shown(Alts.vsCStructures) + Shown(Alts.vmiiSL) + Shown(Alts.vmiiTL) + Shown(Alts.vvsSL) +
         Shown(Alts.vvsTL);
}

/// The members that a copy has, except the alignment string and the labels from a parse.
std::string ShownCopied(const TrRule& Rule) {
  return Shown(Rule.GetSLWords()) + Shown(Rule.GetTLWords()) + Shown(Rule.GetSLPOS()) +
         Shown(Rule.GetTLPOS()) + Shown(Rule.GetWordLevelSLPOS()) +
         Shown(Rule.GetWordLevelTLPOS()) + Shown(Rule.GetsWordLevelAl()) +
         Shown(Rule.GetCStructure()) + Shown(Rule.GetSLType()) + Shown(Rule.GetTLType()) +
         Shown(ConstraintsOf(Rule)) + Shown(Rule.GetRuleIndex()) + Shown(Rule.GetCSet()) +
         Shown(Rule.GetSLWord2Comp()) + Shown(Rule.GetTLWord2Comp()) +
         Shown(Rule.GetNumTrExamples()) + Shown(Rule.GetHeadIndex()) + Shown(Rule.GetXHeadIndex()) +
         Shown(Rule.GetYHeadIndex()) + ShownAlternatives(Rule);
}

std::string ShownParseLabels(const TrRule& Rule) {
  return Shown(Rule.GetSLPOSFromParse()) + Shown(Rule.GetTLPOSFromParseAfterFlipping());
}

bool HasOuterParentheses(const std::string& Alignments) {
  return Alignments.size() <= 2 || (Alignments.front() == '(' && Alignments.back() == ')');
}

/// Whether ordering the alignments a second time changes nothing.
bool HasAllIndices(const std::string& Alignments) {
  return Reference::Canonical(Alignments).Missing.empty();
}

}  // namespace

Strings SentencesOf(const TrRule& Rule) {
  return Alternatives(Rule).vsSLSents;
}

std::string MembersOf(const TrRule& Rule, bool WithParseLabels) {
  return ShownCopied(Rule) + Shown(Rule.GetAlignmentStr()) + Shown(CommentsOf(Rule)) +
         Shown(HeaderTypeOf(Rule)) + (WithParseLabels ? ShownParseLabels(Rule) : "");
}

// ---- Members that belong together -------------------------------------------------------------

void RequireKeys(const TrRule& Rule) {
  for (const auto& [Key, Stored] : ConstraintsOf(Rule)) {
    Require(Key == KeyOf(Stored), "a constraint is stored under its key, not under " + Key);
  }
  Require(Rule.GetNumConstraints() == static_cast<int>(ConstraintsOf(Rule).size()),
          "the constraints are counted");
}

void RequireAlternatives(const TrRule& Rule) {
  const Alternatives Alts(Rule);
  const std::size_t Count = Alts.vsSLSents.size();
  for (const std::size_t Size :
       {Alts.vsTLSents.size(), Alts.vsAlignments.size(), Alts.vsCStructures.size(),
        Alts.vmiiSL.size(), Alts.vmiiTL.size(), Alts.vvsSL.size(), Alts.vvsTL.size()}) {
    Require(Size >= Count, "every list of the alternatives is long enough");
  }
}

// ---- Alignments -------------------------------------------------------------------------------

void RequireOrdered(const std::string& Before, const std::string& After) {
  const Reference::Ordered Expected = Reference::Canonical(Before);
  Require(After == Expected.Text, "alignments are in order: " + After);
  if (Expected.Missing.empty()) {
    TrRule Rule;
    Rule.SetAlignment(After);
    Require(Rule.GetAlignmentStr() == After, "ordering again changes nothing: " + After);
  }
}

// ---- Copies -----------------------------------------------------------------------------------

namespace {

void RequireNeitherFirst(const TrRule& Rule, const TrRule& Copy) {
  const Outcome<bool> RuleFirst = OutcomeOf([&] { return Rule < Copy; });
  const Outcome<bool> CopyFirst = OutcomeOf([&] { return Copy < Rule; });
  Require(RuleFirst.Halt == CopyFirst.Halt, "a rule and its copy halt alike when compared");
  Require(!RuleFirst.Result && !CopyFirst.Result, "neither a rule nor its copy sorts first");
}

}  // namespace

void RequireCopies(TrRule& Rule) {
  const std::string Alignments = Rule.GetAlignmentStr();
  std::unique_ptr<TrRule> Copy;
  const bool Halted = HaltOf([&] { Copy = std::make_unique<TrRule>(Rule); }).has_value();
  Require(Halted != HasOuterParentheses(Alignments),
          "only odd alignments keep a rule from copying");
  if (Halted) {
    return;
  }
  Require(
      ShownCopied(*Copy) + ShownParseLabels(*Copy) == ShownCopied(Rule) + ShownParseLabels(Rule),
      "a copy has what the rule has");
  Require(CommentsOf(*Copy).empty() && HeaderTypeOf(*Copy).empty(),
          "a copy has neither comments nor header type");
  RequireOrdered(Alignments, Copy->GetAlignmentStr());
  if (HasAllIndices(Alignments)) {
    RequireNeitherFirst(Rule, *Copy);
    Require((Rule == *Copy) == (Copy->GetAlignmentStr() == Alignments),
            "a rule with its alignments in order equals its copy");
  }
}

// ---- Writing ----------------------------------------------------------------------------------

namespace {

std::string Joined(const Strings& vsTexts) {
  std::string Text;
  for (const std::string& sText : vsTexts) {
    Text += (&sText == &vsTexts.front() ? "" : " ") + sText;
  }
  return Text;
}

/// The texts, each between a prefix and a suffix.
std::string Lines(const Strings& vsTexts, const std::string& Before, const std::string& After) {
  std::string Text;
  for (const std::string& sText : vsTexts) {
    Text += Before + sText + After;
  }
  return Text;
}

/// The end of every form, without the constraints and the last parenthesis.
std::string SequencesAndAlignments(const TrRule& Rule) {
  return Rule.GetSLType() + "::" + Rule.GetTLType() + " [" + Joined(Rule.GetSLPOS()) + "] -> [" +
         Joined(Rule.GetTLPOS()) + "]\n(\n" + Lines(Rule.GetAlignments(), "", "\n");
}

std::string HeaderAndExample(const TrRule& Rule) {
  const std::string Structure = Rule.GetCStructure();
  return '{' + Rule.GetSLType() + ',' + std::to_string(Rule.GetRuleIndex()) +
         "}\n;;SL:" + Lines(Rule.GetSLWords(), " ", "") +
         "\n;;TL:" + Lines(Rule.GetTLWords(), " ", "") + '\n' +
         (Structure.empty() ? "" : ";;C-Structure:" + Structure + '\n') +
         ";;Score:" + std::to_string(Rule.GetNumTrExamples()) + '\n';
}

/// The text before the rule line in a form, if it consists only of members.
std::optional<std::string> BeforeSequences(const TrRule& Rule, Form Which) {
  switch (Which) {
    case Form::Print:
      return Lines(CommentsOf(Rule), "", "\n") + '{' + HeaderTypeOf(Rule) + ',' +
             std::to_string(Rule.GetRuleIndex()) + "}\n";
    case Form::ForPrint:
    case Form::NoConstraints:
      return HeaderAndExample(Rule);
    case Form::Comparison:
      return ';' + Lines(Rule.GetWordLevelTLPOS(), "", " ") + '\n';
    default:
      return std::nullopt;
  }
}

Reference::PrintOrder OrderOf(const TrRule& Rule) {
  std::vector<Constraint> vConstraints;
  for (const auto& [Key, Stored] : ConstraintsOf(Rule)) {
    vConstraints.push_back(Stored);
  }
  return Reference::OrderForPrint(vConstraints);
}

bool EndsWith(const std::string& Text, const std::string& End) {
  return Text.size() >= End.size() && Text.compare(Text.size() - End.size(), End.size(), End) == 0;
}

void RequireForm(TrRule& Rule, Form Which, const Reference::PrintOrder& Order) {
  const bool HasConstraints = Which != Form::NoConstraints;
  const Outcome<std::string> Written = OutcomeOf([&] { return Write(Rule, Which); });
  Require(Written.Halt.has_value() == (HasConstraints && !Order.Message.empty()),
          "a form with constraints halts where they have no order");
  if (Written.Halt) {
    Require(Written.Halt->Message == Order.Message,
            "it prints the reason: " + Written.Halt->Message);
    return;
  }
  const std::string Block = SequencesAndAlignments(Rule) +
                            (HasConstraints ? Lines(Order.vsTexts, "", "\n") : "") + ')' +
                            (Which == Form::Print ? "\n" : "");
  Require(EndsWith(Written.Result, Block), "a form ends with its block:\n" + Written.Result);
  if (const std::optional<std::string> Start = BeforeSequences(Rule, Which)) {
    Require(Written.Result == *Start + Block, "a form shows the members:\n" + Written.Result);
  }
}

}  // namespace

void RequireWriters(TrRule& Rule) {
  const std::string Before = MembersOf(Rule);
  const Reference::PrintOrder Order = OrderOf(Rule);
  for (const Form Which : AllForms) {
    RequireForm(Rule, Which, Order);
  }
  Require(MembersOf(Rule) == Before, "writing does not change a rule");
}

// ---- The order of insertion -------------------------------------------------------------------

namespace {

/// Whether the order of inserting two constraints matters.
bool AreAtOdds(const Constraint& First, const Constraint& Second) {
  if (!HaveSameNode(First, Second)) {
    return false;
  }
  const bool HaveOneKey = KeyOf(First) == KeyOf(Second);
  return WouldMerge(First, Second) ||
         (HaveOneKey && First.ReturnAsString() != Second.ReturnAsString());
}

template <typename IteratorT>
Outcome<std::string> TextOf(IteratorT First, IteratorT Last) {
  TrRule Rule;
  for (; First != Last; ++First) {
    Rule.InsertConstraintIntoMap(*First);
  }
  return OutcomeOf([&] { return Rule.ReturnAsStringForComparison(); });
}

}  // namespace

void RequireNoInsertionOrder(const std::vector<Constraint>& vConstraints) {
  for (auto First = vConstraints.begin(); First != vConstraints.end(); ++First) {
    const auto Differs = [&](const Constraint& Second) { return AreAtOdds(*First, Second); };
    if (std::any_of(First + 1, vConstraints.end(), Differs)) {
      return;
    }
  }
  Require(TextOf(vConstraints.begin(), vConstraints.end()) ==
              TextOf(vConstraints.rbegin(), vConstraints.rend()),
          "the comparison text does not show the order of insertion");
}

// ---- Turning ----------------------------------------------------------------------------------

namespace {

bool IsPlainEverywhere(const TrRule& Rule) {
  const Strings vsAlignments = Alternatives(Rule).vsAlignments;
  return IsPlain(Rule.GetAlignmentStr()) && IsPlain(Rule.GetsWordLevelAl()) &&
         std::all_of(vsAlignments.begin(), vsAlignments.end(), IsPlain);
}

/// The members that have a side, the given one first.
std::string ShownSides(const TrRule& Rule, bool SourceFirst) {
  const Alternatives Alts(Rule);
  const std::string Source = Shown(Rule.GetSLWords()) + Shown(Rule.GetSLPOS()) +
                             Shown(Rule.GetWordLevelSLPOS()) + Shown(Rule.GetSLType()) +
                             Shown(Rule.GetSLWord2Comp()) + Shown(Alts.vsSLSents) +
                             Shown(Alts.vmiiSL) + Shown(Alts.vvsSL);
  const std::string Target = Shown(Rule.GetTLWords()) + Shown(Rule.GetTLPOS()) +
                             Shown(Rule.GetWordLevelTLPOS()) + Shown(Rule.GetTLType()) +
                             Shown(Rule.GetTLWord2Comp()) + Shown(Alts.vsTLSents) +
                             Shown(Alts.vmiiTL) + Shown(Alts.vvsTL);
  return SourceFirst ? Source + Target : Target + Source;
}

}  // namespace

void RequireTurning(TrRule& Rule) {
  const bool IsRestored = IsPlainEverywhere(Rule);
  const std::string Before = MembersOf(Rule, false);
  const std::string Sides = ShownSides(Rule, true);
  const Strings vsParseLabels = Rule.GetSLPOSFromParse();
  const bool Halted = HaltOf([&] { Rule.FlipRuleNoConstraints(); }).has_value();
  Require(!Halted || !IsRestored, "a plain rule can be flipped");
  if (!Halted) {
    Require(ShownSides(Rule, false) == Sides, "flipping exchanges the sides");
    Require(
        Rule.GetTLPOSFromParseAfterFlipping() == vsParseLabels && Rule.GetSLPOSFromParse().empty(),
        "turning moves the labels from a parse");
  }
  HaltOf([&] { Rule.FlipRuleNoConstraints(); });
  Require(!IsRestored || MembersOf(Rule, false) == Before, "flipping twice restores a rule");
  RequireKeys(Rule);
  RequireAlternatives(Rule);
}

// ---- All of it --------------------------------------------------------------------------------

void RequireRule(TrRule& Rule) {
  const DebugLevel Quiet(0);
  RequireKeys(Rule);
  RequireAlternatives(Rule);
  RequireWriters(Rule);
  RequireRoundTrips(Rule);
  RequireCopies(Rule);
  std::vector<Constraint> vConstraints;
  for (const auto& [Key, Stored] : ConstraintsOf(Rule)) {
    vConstraints.push_back(Stored);
  }
  RequireNoInsertionOrder(vConstraints);
  RequireTurning(Rule);
}
