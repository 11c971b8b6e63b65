// The bytes of an input are a sequence of calls on two rules and a few constraints, so that rules
// reach states that no text leads to.

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "RuleChecks.h"
#include "support/DebugLevel.h"
#include "support/ReferenceImplementation.h"

#include <array>

namespace {

const Strings vsNames = {"DET", "n",  "NP", "\"de\"", "A",   "A__B", "]",  "->",
                         "all", "\t", "",   "a::b",   "{;;", "=",    "x y"};

const Strings vsValues = {
    "SG",   "pl",      "(*OR* SG PL)", "(*NOT* SG", "X1",           "Y2", "(Y2",
    "(X3",  "(Y0 DET", "empty",        "NEXT X",    "B__SG",        ")",  "",
    "*OR*", "(X1 ",    "(*OR* )",      "MAX",       "Y999999999999"};

const Strings vsConstraintTexts = {"((x0 det) = x1)",
                                   "(x0 = x3)",
                                   "(y0 = x0)",
                                   "(y1 == (y0 det))",
                                   "((y1 num) = sg)",
                                   "((y1 num) = pl)",
                                   "((y1 num) = (y2 num))",
                                   "((y2 num) = (y1 num))",
                                   "((x1 num) = (*OR* sg pl))",
                                   "((X1 NUM) = (*NOT* SG))",
                                   "((y1 a__b) = sg)",
                                   "((x1 num) = (x2 num))",
                                   "((x2 num) = (x1 num))",
                                   "(x1 = n)",
                                   "junk"};

const Strings vsAlignmentTexts = {"((1,1),(2,3),(3,2))", "((2,1),(1,2))", "()", "",
                                  "((1,1),(2,2),)",      "((7),(-1,2))",  "ab", "1,1"};

const Strings vsLines = {
    "(X1::Y1)",         "(X2::Y3)",       "(x10::y2)",
    "(X0::Y1)",         "(X1 ::Y2)",      "(Xa::Yb)",
    "{NP,8}",           "  {ADJP,3}",     "NP::NP : [DET ADJ N] -> [DET N ADJ]",
    "[A B] -> [B A]",   ";; a comment",   ";; (x0 = x1)",
    "(y1 == (y0 det))", "((y1 num) = sg)"};

/// Two rules, a few constraints, and the calls that the bytes of an input make on them.
class Session {
 public:
  Session(const std::uint8_t* Data, std::size_t Size) : Bytes(Data, Size) {}

  void Run();

 private:
  using Call = void (Session::*)();
  static const std::array<Call, 40> Calls;

  TrRule& Rule() { return Rules[Turned ? 1 : 0]; }
  TrRule& Other() { return Rules[Turned ? 0 : 1]; }
  Constraint& AnyConstraint() { return Constraints[Bytes.Below(Constraints.size())]; }

  std::string Name() { return Bytes.Text(vsNames); }
  std::string Value() { return Bytes.Text(vsValues); }
  std::string Alignments() { return Bytes.Text(vsAlignmentTexts); }
  std::string TwoNames();
  Strings Names();
  std::map<int, int> Map();
  std::set<int> Ints();
  std::string Text();
  bool HaveAllIndices();

  void RequireInvariants(TrRule& Rule);

  // Words and labels
  void SetSLWords() { Rule().SetSLWords(Names()); }
  void SetSLSentence() { Rule().SetSLWords(Name()); }
  void SetTLWords() { Rule().SetTLWords(Names()); }
  void SetTLSentence() { Rule().SetTLWords(Name()); }
  void SetSLPOS() { Rule().SetSLPOS(Names()); }
  void SetTLPOS() { Rule().SetTLPOS(Names()); }
  void SetWordLevelSLPOS() { Rule().SetWordLevelSLPOS(TwoNames()); }
  void SetWordLevelTLPOS() { Rule().SetWordLevelTLPOS(TwoNames()); }
  void SetSLPOSFromParse() { Rule().SetSLPOSFromParse(Names()); }
  void SetLabelTexts();

  // Maps and plain members
  void SetSLWord2Comp() { Rule().SetSLWord2Comp(Map()); }
  void SetTLWord2Comp() { Rule().SetTLWord2Comp(Map()); }
  void SetCStructure() { Rule().SetCStructure(Name()); }
  void SetTypes();
  void SetNumbers();
  void SetCSet();

  // Alignments
  void SetAlignment();
  void AddAlignment();
  void SetWordLevelAl() { Rule().SetsWordLevelAl(Alignments()); }

  // Reading, writing, comparing, flipping
  void Read() { Rule().SetTrRuleFromString(Text()); }
  void Print() { Rule().Print(); }
  void WriteForms();
  void Assign();
  void Compare();
  void Turn() { Rule().FlipRuleNoConstraints(); }
  void Exchange() { Turned = !Turned; }
  void SetLevel() { GlobalParams::DebuggingLevel = static_cast<int>(Bytes.Below(5)); }

  // Constraints
  void SetFromText() { Rule().SetConstraint(Bytes.Text(vsConstraintTexts)); }
  void SetRanked();
  void SetFromValues();
  void SetFromAgreement();
  void Insert() { Rule().InsertConstraintIntoMap(AnyConstraint()); }
  void Erase();
  void EraseCategory();
  void Clear() { Rule().ClearConstraints(); }
  void Ask();
  void MakeConstraint();
  void ChangeConstraint();

  // Alternatives
  void AddAlternative();
  void AddOwnAlternative();

  ByteReader Bytes;
  std::array<TrRule, 2> Rules;
  std::array<Constraint, 3> Constraints;
  bool Turned = false;
};

const std::array<Session::Call, 40> Session::Calls{&Session::SetSLWords,
                                                   &Session::SetSLSentence,
                                                   &Session::SetTLWords,
                                                   &Session::SetTLSentence,
                                                   &Session::SetSLPOS,
                                                   &Session::SetTLPOS,
                                                   &Session::SetWordLevelSLPOS,
                                                   &Session::SetWordLevelTLPOS,
                                                   &Session::SetSLPOSFromParse,
                                                   &Session::SetLabelTexts,
                                                   &Session::SetSLWord2Comp,
                                                   &Session::SetTLWord2Comp,
                                                   &Session::SetCStructure,
                                                   &Session::SetTypes,
                                                   &Session::SetNumbers,
                                                   &Session::SetCSet,
                                                   &Session::SetAlignment,
                                                   &Session::AddAlignment,
                                                   &Session::SetWordLevelAl,
                                                   &Session::Read,
                                                   &Session::Print,
                                                   &Session::WriteForms,
                                                   &Session::Assign,
                                                   &Session::Compare,
                                                   &Session::Turn,
                                                   &Session::Exchange,
                                                   &Session::SetLevel,
                                                   &Session::SetFromText,
                                                   &Session::SetRanked,
                                                   &Session::SetFromValues,
                                                   &Session::SetFromAgreement,
                                                   &Session::Insert,
                                                   &Session::Erase,
                                                   &Session::EraseCategory,
                                                   &Session::Clear,
                                                   &Session::Ask,
                                                   &Session::MakeConstraint,
                                                   &Session::ChangeConstraint,
                                                   &Session::AddAlternative,
                                                   &Session::AddOwnAlternative};

// ---- Arguments --------------------------------------------------------------------------------

// Each argument is taken in a separate statement: an input has one meaning with every compiler.

std::string Session::TwoNames() {
  const std::string First = Name();
  return First + ' ' + Name();
}

Strings Session::Names() {
  Strings vsTexts(Bytes.Below(4));
  for (std::string& sText : vsTexts) {
    sText = Name();
  }
  return vsTexts;
}

std::map<int, int> Session::Map() {
  std::map<int, int> miiMap;
  for (std::size_t Left = Bytes.Below(4); Left > 0; --Left) {
    const int Key = Bytes.Int();
    miiMap[Key] = Bytes.Int();
  }
  return miiMap;
}

std::set<int> Session::Ints() {
  std::set<int> siNumbers;
  for (std::size_t Left = Bytes.Below(5); Left > 0; --Left) {
    siNumbers.insert(Bytes.Int());
  }
  return siNumbers;
}

std::string Session::Text() {
  std::string Lines;
  for (std::size_t Left = Bytes.Below(12); Left > 0; --Left) {
    Lines += Bytes.Text(vsLines) + '\n';
  }
  return Lines;
}

/// Whether ordering the alignments of the rules a second time changes nothing (RuleChecks.h).
bool Session::HaveAllIndices() {
  return Reference::Canonical(Rules[0].GetAlignmentStr()).Missing.empty() &&
         Reference::Canonical(Rules[1].GetAlignmentStr()).Missing.empty();
}

// ---- Calls ------------------------------------------------------------------------------------

void Session::SetLabelTexts() {
  Rule().SetSLPOS(Name());
  Rule().SetTLPOS(Name());
  Rule().SetSLPOSFromParse(Name());
  Rule().SetWordLevelSLPOS(Names());
  Rule().SetWordLevelTLPOS(Names());
}

void Session::SetTypes() {
  Rule().SetSLType(Name());
  Rule().SetTLType(Name());
}

void Session::SetNumbers() {
  Rule().SetRuleIndex(Bytes.Int());
  Rule().SetNumTrExamples(Bytes.Int());
  Rule().IncrementNumTrExamples();
  Rule().SetHeadIndex(Bytes.Int());
  Rule().SetXHeadIndex(Bytes.Int());
  Rule().SetYHeadIndex(Bytes.Int());
}

void Session::SetCSet() {
  Rule().SetCSet(Ints());
  if (Bytes.Bool()) {
    Rule().ClearCSet();
  }
  Rule().AddToCSet(Bytes.Int());
}

void Session::SetAlignment() {
  const std::string Set = Alignments();
  Rule().SetAlignment(Set);
  RequireOrdered(Set, Rule().GetAlignmentStr());
}

void Session::AddAlignment() {
  const std::string Before = Rule().GetAlignmentStr();
  const bool Added = Rule().AddAlignment(Bytes.Text(vsLines));
  Require(Added || Rule().GetAlignmentStr() == Before, "a rejected line changes nothing");
}

void Session::WriteForms() {
  for (const Form Which : AllForms) {
    Write(Rule(), Which);
  }
}

void Session::Assign() {
  Rule() = Other();
  if (HaltOf([&] { const TrRule Copy(Other()); }) == std::nullopt) {
    RequireOrdered(Other().GetAlignmentStr(), Rule().GetAlignmentStr());
  }
  Rule() = Rule();
}

void Session::Compare() {
  const bool First = Rule() < Other();
  const bool Last = Other() < Rule();
  Require(!First || !Last || !HaveAllIndices(), "at most one of two rules sorts first");
  Require(!(Rule() == Other()) || Rule().GetSLWords() == Other().GetSLWords(),
          "equal rules have the same words");
}

void Session::SetRanked() {
  const std::string Text = Bytes.Text(vsConstraintTexts);
  const int Rank = Bytes.Int();
  Rule().SetConstraint(Text, Rank, Bytes.Int());
}

void Session::SetFromValues() {
  const int Category = Bytes.Int();
  const int Index = Bytes.Int();
  const std::string Feature = Name();
  const std::string Set = Value();
  const int Rank = Bytes.Int();
  Rule().SetConstraint(Category, Index, Feature, Set, Rank, Bytes.Bool());
}

void Session::SetFromAgreement() {
  const int Index = Bytes.Int();
  const std::string Feature = Name();
  const std::string Set = Value();
  const std::string Agreed = Value();
  const int Rank = Bytes.Int();
  Rule().SetConstraint(Index, Feature, Set, Agreed, Rank, Bytes.Int());
}

void Session::Erase() {
  const int Index = Bytes.Int();
  const std::string Feature = Name();
  const std::string Erased = Value();
  const std::string Agreed = Value();
  const std::set<int> siCategories = Ints();
  const int Before = Rule().GetNumConstraints();
  const bool Found = Rule().EraseConstraint(Index, Feature, Erased, Agreed, siCategories);
  const int Gone = Before - Rule().GetNumConstraints();
  Require(Gone == 0 || (Gone == 1 && Found), "erasing removes one constraint at most");
}

void Session::EraseCategory() {
  const int Category = Bytes.Int();
  const std::size_t Doomed = Rule().GetConstraints(Category).size();
  const int Before = Rule().GetNumConstraints();
  Rule().EraseCategoryConstraints(Category);
  constexpr int Category3And4 = 5;
  Require(
      Category == Category3And4 || Before - Rule().GetNumConstraints() == static_cast<int>(Doomed),
      "erasing a category takes away its constraints and no others");
}

void Session::Ask() {
  const int Category = Bytes.Int();
  const int Index = Bytes.Int();
  const std::set<int> siCategories = Ints();
  const TrRule& Asked = Rule();
  Require(Asked.GetConstraints().size() == static_cast<std::size_t>(Asked.GetNumConstraints()),
          "a list has all constraints");
  Require(Asked.GetConstraintsAsSet(Category).size() == Asked.GetConstraintsAsSetC(Category).size(),
          "both kinds of set hold each text once");
  Require(Asked.GetConstraintsForInd(Index, siCategories).size() <= Asked.GetConstraints().size(),
          "a node has no more features than there are constraints");
}

void Session::MakeConstraint() {
  if (Bytes.Bool()) {
    const Constraint Made(Bytes.Text(vsConstraintTexts));
    AnyConstraint() = Made;
    return;
  }
  const int Category = Bytes.Int();
  const int Index = Bytes.Int();
  const std::string Feature = Name();
  const std::string Set = Value();
  const int Rank = Bytes.Int();
  const Constraint Made(Category, Index, Feature, Set, Rank, Bytes.Bool());
  AnyConstraint() = Made;
}

void Session::ChangeConstraint() {
  Constraint& Changed = AnyConstraint();
  Changed.SetConstrainedIndex(Bytes.Int());
  Changed.SetFeature(Name());
  Changed.SetFeatValue(Value());
  Changed.SetRankInCategory(Bytes.Int());
  Changed.SetValueConstraint(Bytes.Bool());
  Changed.SetCategory(Bytes.Int());
}

void Session::AddAlternative() {
  const std::string SLSent = Name();
  const std::string TLSent = Name();
  const std::string Aligned = Alignments();
  const std::string Structure = Name();
  const std::map<int, int> miiSL = Map();
  const std::map<int, int> miiTL = Map();
  const Strings vsSL = Names();
  Rule().AddAlterTrInfo(SLSent, TLSent, Aligned, Structure, miiSL, miiTL, vsSL, Names());
}

void Session::AddOwnAlternative() {
  if (Bytes.Bool()) {
    Rule().AddAlterTrInfo();
  } else {
    Rule().ResetAlterTrInfo();
  }
}

// ---- The sequence -----------------------------------------------------------------------------

/// Invariants after every call, even if it halted.
void Session::RequireInvariants(TrRule& Rule) {
  RequireKeys(Rule);
  RequireAlternatives(Rule);
}

void Session::Run() {
  constexpr int MaxCalls = 100;
  const DebugLevel Scope(0);
  for (int Left = MaxCalls; Left > 0 && !Bytes.IsEmpty(); --Left) {
    const Call Next = Calls[Bytes.Below(Calls.size())];
    HaltOf([&] { (this->*Next)(); });
    RequireInvariants(Rule());
  }
  RequireInvariants(Other());
  RequireNoInsertionOrder({Constraints.begin(), Constraints.end()});
  RequireRule(Rules[0]);
  RequireRule(Rules[1]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const SilentStreams Silence;
  Session(Data, Size).Run();
  return 0;
}
