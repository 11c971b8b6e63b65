// Sections: structures, equations, derivations.

#include "ReferenceTranslator.h"

#include "Bytes.h"
#include "Literal.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>

namespace {

using Grammar::Equation;
using Grammar::EquationKind;
using Grammar::NodePath;
using Grammar::Side;
using Grammar::UsableRule;

// ---- Structures -------------------------------------------------------------------------------

struct Structure;
using Ref = std::shared_ptr<Structure>;

struct Structure {
  enum class Kind { Open, Atomic, Complex };
  Ref Same;  ///< what this one has become one with
  Kind What = Kind::Open;
  bool IsNegated = false;
  std::set<std::string> ssAtoms;
  std::map<std::string, Ref> mFeatures;
};
using Kind = Structure::Kind;

Ref New() {
  return std::make_shared<Structure>();
}

Ref Find(Ref Current) {
  while (Current->Same) {
    Current = Current->Same;
  }
  return Current;
}

bool Unify(Ref Left, Ref Right);

bool UnifyAtoms(Structure& Left, const Structure& Right) {
  std::set<std::string> ssAll = Left.ssAtoms;
  ssAll.insert(Right.ssAtoms.begin(), Right.ssAtoms.end());
  std::set<std::string> ssBoth;
  for (const std::string& sAtom : ssAll) {
    const bool IsLeft = (Left.ssAtoms.count(sAtom) == 1) != Left.IsNegated;
    const bool IsRight = (Right.ssAtoms.count(sAtom) == 1) != Right.IsNegated;
    if ((Left.IsNegated && Right.IsNegated) || (IsLeft && IsRight)) {
      ssBoth.insert(sAtom);
    }
  }
  Left.IsNegated = Left.IsNegated && Right.IsNegated;
  Left.ssAtoms = ssBoth;
  return Left.IsNegated || !ssBoth.empty();
}

bool Unify(Ref Left, Ref Right) {
  Left = Find(Left);
  Right = Find(Right);
  if (Left == Right) {
    return true;
  }
  if (Left->What == Kind::Open || Right->What == Kind::Open) {
    (Left->What == Kind::Open ? Left : Right)->Same = Left->What == Kind::Open ? Right : Left;
    return true;
  }
  if (Left->What != Right->What) {
    return false;
  }
  Right->Same = Left;
  if (Left->What == Kind::Atomic) {
    return UnifyAtoms(*Left, *Right);
  }
  const std::map<std::string, Ref> mOthers = Right->mFeatures;
  return std::all_of(mOthers.begin(), mOthers.end(), [&](const auto& Current) {
    Left = Find(Left);
    const auto [Found, IsNew] = Left->mFeatures.emplace(Current.first, Current.second);
    return IsNew || Unify(Found->second, Current.second);
  });
}

Ref Copy(Ref Current, std::map<Ref, Ref>& mCopiesReturn) {
  Current = Find(Current);
  if (mCopiesReturn.count(Current) == 0) {
    const Ref Result = mCopiesReturn[Current] = New();
    *Result = *Current;
    for (auto& [sFeature, Value] : Result->mFeatures) {
      Value = Copy(Value, mCopiesReturn);
    }
  }
  return mCopiesReturn[Current];
}

Ref CopyOf(const Ref& Current) {
  std::map<Ref, Ref> mCopies;
  return Copy(Current, mCopies);
}

bool HasCycle(Ref Current, std::set<Ref>& ssInside, std::set<Ref>& ssDone) {
  Current = Find(Current);
  if (ssInside.count(Current) == 1 || ssDone.count(Current) == 1) {
    return ssDone.count(Current) == 0;
  }
  ssInside.insert(Current);
  for (const auto& [sFeature, Value] : Current->mFeatures) {
    if (HasCycle(Value, ssInside, ssDone)) {
      return true;
    }
  }
  ssDone.insert(Current);
  return false;
}

bool HasCycle(const std::vector<Ref>& vRoots) {
  std::set<Ref> ssInside;
  std::set<Ref> ssDone;
  return std::any_of(vRoots.begin(), vRoots.end(),
                     [&](const Ref& Current) { return HasCycle(Current, ssInside, ssDone); });
}

void CountArrivals(Ref Current, std::map<Ref, int>& mArrivals, std::set<Ref>& ssSeen) {
  Current = Find(Current);
  if (ssSeen.insert(Current).second) {
    for (const auto& [sFeature, Value] : Current->mFeatures) {
      ++mArrivals[Find(Value)];
      CountArrivals(Value, mArrivals, ssSeen);
    }
  }
}

void Write(Ref Current, const std::map<Ref, int>& mArrivals, std::map<Ref, int>& mNumbers,
           std::ostream& Out) {
  Current = Find(Current);
  const auto Found = mArrivals.find(Current);
  const bool IsShared = Found != mArrivals.end() && Found->second > 1;
  if (IsShared) {
    const auto [Number, IsFirst] = mNumbers.emplace(Current, static_cast<int>(mNumbers.size()) + 1);
    Out << "{\"#\":" << Number->second << (IsFirst ? ",\"is\":" : "}");
    if (!IsFirst) {
      return;
    }
  }
  const bool IsList = Current->IsNegated || Current->ssAtoms.size() > 1;
  std::string Between = Current->What == Kind::Atomic && IsList
                            ? Current->IsNegated ? "{\"*NOT*\":[" : "{\"*OR*\":["
                            : "";
  for (const std::string& sAtom : Current->ssAtoms) {
    Out << Between << '"' << sAtom << '"';
    Between = ",";
  }
  Out << (IsList ? "]}" : "") << (Current->What == Kind::Atomic ? "" : "{");
  Between = "";
  for (const auto& [sFeature, Value] : Current->mFeatures) {
    Out << Between << '"' << sFeature << "\":";
    Write(Value, mArrivals, mNumbers, Out);
    Between = ",";
  }
  Out << (Current->What == Kind::Atomic ? "" : "}") << (IsShared ? "}" : "");
}

std::string TextOf(const Ref& Current) {
  std::map<Ref, int> mArrivals;
  std::map<Ref, int> mNumbers;
  std::set<Ref> ssSeen;
  std::ostringstream Out;
  CountArrivals(Current, mArrivals, ssSeen);
  Write(Current, mArrivals, mNumbers, Out);
  return Out.str();
}

// ---- Equations --------------------------------------------------------------------------------

using Nodes = std::map<Side, std::vector<Ref>>;

/// The end of a path, which is made where it is not there; nothing after an atom.
Ref Make(const Nodes& Roots, const NodePath& Path) {
  Ref At = Find(Roots.at(Path.OnSide)[Path.Index]);
  for (const std::string_view Feature : Path.vFeatures) {
    if (At->What == Kind::Atomic) {
      return nullptr;
    }
    At->What = Kind::Complex;
    Ref& Next = At->mFeatures[Grammar::Upper(Feature)];
    Next = Next ? Next : New();
    At = Find(Next);
  }
  return At;
}

/// The end of a path; nothing if it is not there.
Ref Look(const Nodes& Roots, const NodePath& Path) {
  Ref At = Find(Roots.at(Path.OnSide)[Path.Index]);
  for (const std::string_view Feature : Path.vFeatures) {
    const auto Found = At->mFeatures.find(Grammar::Upper(Feature));
    if (Found == At->mFeatures.end()) {
      return nullptr;
    }
    At = Find(Found->second);
  }
  return At;
}

bool UnifyAt(const Nodes& Roots, const NodePath& Path, const Ref& What) {
  const Ref At = Make(Roots, Path);
  return At && Unify(At, What);
}

using Slot = std::tuple<Side, std::uint32_t, std::vector<std::string>>;

Slot SlotOf(const NodePath& Path) {
  std::vector<std::string> vsFeatures;
  for (const std::string_view Feature : Path.vFeatures) {
    vsFeatures.push_back(Grammar::Upper(Feature));
  }
  return {Path.OnSide, Path.Index, vsFeatures};
}

/// A value; of alternatives, the value of all of them together.
Ref ValueOf(const UsableRule& Rule, const Equation& Current) {
  const Ref Value = New();
  Value->What = Kind::Atomic;
  Value->IsNegated = Current.Kind == EquationKind::None;
  for (const Equation& Other : Rule.vEquations) {
    const bool IsSame = &Other == &Current ||
                        (Current.Kind == EquationKind::Any && Other.Kind == EquationKind::Any &&
                         SlotOf(Other.Left) == SlotOf(Current.Left));
    for (const std::string_view Atom : IsSame ? Other.vAtoms : std::vector<std::string_view>()) {
      Value->ssAtoms.insert(Grammar::Upper(Atom));
    }
  }
  return Value;
}

/// The equations that hold within one side.
bool UnifySide(const UsableRule& Rule, Side Which, const Nodes& Roots) {
  for (const Equation& Current : Rule.vEquations) {
    if (Current.Left.OnSide != Which ||
        (Current.Kind == EquationKind::Path && Current.Right.OnSide != Which)) {
      continue;
    }
    Ref Right;
    if (Current.Kind == EquationKind::Path) {
      Right = Make(Roots, Current.Right);
    } else {
      Right = ValueOf(Rule, Current);
    }
    if (!Right || !UnifyAt(Roots, Current.Left, Right)) {
      return false;
    }
  }
  return !HasCycle(Roots.at(Which));
}

bool UnifyTransfers(const UsableRule& Rule, const Nodes& Roots) {
  for (const Equation& Current : Rule.vEquations) {
    if (Current.Kind != EquationKind::Path || Current.Left.OnSide == Current.Right.OnSide) {
      continue;
    }
    const bool IsLeft = Current.Left.OnSide == Side::X;
    const Ref From = Look(Roots, IsLeft ? Current.Left : Current.Right);
    if (From && From->What != Kind::Open &&
        !UnifyAt(Roots, IsLeft ? Current.Right : Current.Left, CopyOf(From))) {
      return false;
    }
  }
  return true;
}

// ---- Derivations ------------------------------------------------------------------------------

struct Derivation {
  std::size_t Rule;
  std::int64_t Score;
  std::vector<std::uint32_t> vNumbers;  ///< root first, children in order
  std::string Words;
  std::string Tree;
  Ref Source;
  Ref Target;
  std::set<std::size_t> ssChain;
};

using Derivations = std::vector<Derivation>;

/// The derivations of one text.
class Table {
 public:
  Table(const std::vector<UsableRule>& vRulesPassIn,
        const std::vector<std::uint32_t>& vNumbersPassIn, const std::string& Text,
        const ReferenceTranslator::Settings& HowPassIn)
      : vRules(vRulesPassIn), vNumbers(vNumbersPassIn), How(HowPassIn) {
    std::istringstream Stream(Text);
    for (std::string Token; Stream >> Token;) {
      vsTokens.push_back(Token);
    }
  }

  void Fill();

  std::vector<std::string> vsTokens;
  std::map<std::pair<std::size_t, std::size_t>, Derivations> mSpans;
  bool IsTooMuch = false;

 private:
  bool IsUnary(std::size_t Rule) const {
    return vRules[Rule].X.vLabels.size() == 1 && !Grammar::IsLiteral(vRules[Rule].X.vLabels[0]);
  }
  bool Fits(std::size_t Rule, std::size_t Component, const Derivation& Part) const;
  bool Matches(std::string_view Word, const std::string& Token) const {
    return How.MatchCase ? Word == Token : Grammar::IsSameInCapitals(Word, Token);
  }
  void Cut(std::size_t Rule, std::size_t Component, std::size_t At, std::size_t End,
           std::vector<const Derivation*>& vParts, Derivations& Made);
  void Apply(std::size_t Rule, const std::vector<const Derivation*>& vParts, Derivations& Made);
  std::int64_t Weight(std::size_t Rule) const;

  const std::vector<UsableRule>& vRules;
  const std::vector<std::uint32_t>& vNumbers;
  const ReferenceTranslator::Settings How;
};

bool Table::Fits(std::size_t Rule, std::size_t Component, const Derivation& Part) const {
  const UsableRule& Used = vRules[Rule];
  const UsableRule& Below = vRules[Part.Rule];
  for (std::size_t Target = 0; Target < Used.Places.Sources().size(); ++Target) {
    if (Used.Places.Sources()[Target] == Component &&
        !Grammar::IsSameInCapitals(Used.Y.vLabels[Target], Below.Y.Type)) {
      return false;
    }
  }
  return Grammar::IsSameInCapitals(Used.X.vLabels[Component], Below.X.Type);
}

/// Cuts what is left of a span among what is left of a rule's components.
void Table::Cut(std::size_t Rule, std::size_t Component, std::size_t At, std::size_t End,
                std::vector<const Derivation*>& vParts, Derivations& Made) {
  const std::vector<std::string_view>& vLabels = vRules[Rule].X.vLabels;
  if (Component == vLabels.size()) {
    if (At == End) {
      Apply(Rule, vParts, Made);
    }
    return;
  }
  if (At == End || IsTooMuch) {
    return;
  }
  if (Grammar::IsLiteral(vLabels[Component])) {
    if (Matches(Grammar::WordOf(vLabels[Component]), vsTokens[At])) {
      vParts.push_back(nullptr);
      Cut(Rule, Component + 1, At + 1, End, vParts, Made);
      vParts.pop_back();
    }
    return;
  }
  for (std::size_t Middle = At + 1; Middle <= End; ++Middle) {
    for (const Derivation& Part : mSpans[{At, Middle}]) {
      if (Fits(Rule, Component, Part)) {
        vParts.push_back(&Part);
        Cut(Rule, Component + 1, Middle, End, vParts, Made);
        vParts.pop_back();
      }
    }
  }
}

std::int64_t Table::Weight(std::size_t Rule) const {
  long double Total = 0;
  for (const UsableRule& Other : vRules) {
    Total += Grammar::IsSameInCapitals(Other.X.Type, vRules[Rule].X.Type)
                 ? static_cast<long double>(Other.Count)
                 : 0;
  }
  return std::llround(1000000 * std::log(static_cast<long double>(vRules[Rule].Count) / Total));
}

/// Parses structures that may contain themselves, so that they can go.
class Releaser {
 public:
  explicit Releaser(Nodes& RootsPassIn) : Roots(RootsPassIn) {}

  ~Releaser() {
    std::vector<Ref> vAll;
    for (const auto& [Which, vEach] : Roots) {
      vAll.insert(vAll.end(), vEach.begin(), vEach.end());
    }
    std::set<Ref> ssSeen;
    while (!vAll.empty()) {
      const Ref Node = vAll.back();
      vAll.pop_back();
      if (Node && ssSeen.insert(Node).second) {
        vAll.push_back(Node->Same);
        for (const auto& [sFeature, Value] : Node->mFeatures) {
          vAll.push_back(Value);
        }
      }
    }
    for (const Ref& Current : ssSeen) {
      Current->mFeatures.clear();
    }
  }

  Releaser(const Releaser&) = delete;
  Releaser& operator=(const Releaser&) = delete;

 private:
  Nodes& Roots;
};

void Table::Apply(std::size_t Rule, const std::vector<const Derivation*>& vParts,
                  Derivations& Made) {
  constexpr std::size_t TooMany = 500;
  const UsableRule& Used = vRules[Rule];
  Nodes Roots;
  const Releaser AtTheEnd(Roots);
  Roots[Side::X].push_back(New());
  for (const Derivation* Part : vParts) {
    Roots[Side::X].push_back(Part != nullptr ? CopyOf(Part->Source) : New());
  }
  if (!UnifySide(Used, Side::X, Roots)) {
    return;
  }
  Derivation Result{Rule, Weight(Rule), {vNumbers[Rule]}, "", "", nullptr, nullptr, {}};
  Result.Source = CopyOf(Roots[Side::X][0]);
  Roots[Side::Y].push_back(New());
  for (std::size_t Target = 0; Target < Used.Places.Sources().size(); ++Target) {
    const bool IsPlace = Used.Places.Sources()[Target] != Grammar::PlaceSources::None;
    const Derivation* Part = IsPlace ? vParts[Used.Places.Sources()[Target]] : nullptr;
    Roots[Side::Y].push_back(IsPlace ? CopyOf(Part->Target) : New());
    const std::string Words =
        IsPlace ? Part->Words : std::string(Grammar::WordOf(Used.Y.vLabels[Target]));
    Result.Words += (Result.Words.empty() || Words.empty() ? "" : " ") + Words;
  }
  if (!UnifyTransfers(Used, Roots) || !UnifySide(Used, Side::Y, Roots)) {
    return;
  }
  Result.Target = CopyOf(Roots[Side::Y][0]);
  Result.Tree =
      std::to_string(vNumbers[Rule]) + TextOf(Result.Source) + TextOf(Result.Target) + '(';
  for (const Derivation* Part : vParts) {
    if (Part != nullptr) {
      Result.Score += Part->Score;
      Result.vNumbers.insert(Result.vNumbers.end(), Part->vNumbers.begin(), Part->vNumbers.end());
      Result.Tree += Part->Tree;
    }
  }
  Result.Tree += ')';
  if (IsUnary(Rule)) {
    Result.ssChain = vParts[0]->ssChain;
    Result.ssChain.insert(Rule);
  }
  Made.push_back(std::move(Result));
  IsTooMuch = IsTooMuch || Made.size() > TooMany;
}

void Table::Fill() {
  for (std::size_t Size = 1; Size <= vsTokens.size(); ++Size) {
    for (std::size_t Start = 0; Start + Size <= vsTokens.size() && !IsTooMuch; ++Start) {
      Derivations Made;
      std::vector<const Derivation*> vParts;
      for (std::size_t Rule = 0; Rule < vRules.size(); ++Rule) {
        if (!IsUnary(Rule)) {
          Cut(Rule, 0, Start, Start + Size, vParts, Made);
        }
      }
      for (std::size_t Below = 0; Below < Made.size(); ++Below) {
        for (std::size_t Rule = 0; Rule < vRules.size() && !IsTooMuch; ++Rule) {
          const Derivation Part = Made[Below];
          if (IsUnary(Rule) && Fits(Rule, 0, Part) && Part.ssChain.count(Rule) == 0 &&
              Part.ssChain.size() < How.MaxChain) {
            Apply(Rule, {&Part}, Made);
          }
        }
      }
      mSpans[{Start, Start + Size}] = std::move(Made);
    }
  }
}

}  // namespace

ReferenceTranslator::Result ReferenceTranslator::Translate(const std::string& Text,
                                                           const Settings& How) const {
  Result All;
  Table Spans(vRules, vNumbers, Text, How);
  Spans.Fill();
  All.IsTooMuch = Spans.IsTooMuch;
  std::set<std::string> ssConstituents;
  for (const auto& [Span, Made] : Spans.mSpans) {
    for (const Derivation& Tree : Made) {
      std::string Name = std::to_string(Span.first) + ' ' + std::to_string(Span.second) + ' ' +
                         Grammar::Upper(vRules[Tree.Rule].X.Type) + ' ' +
                         Grammar::Upper(vRules[Tree.Rule].Y.Type) + ' ' + TextOf(Tree.Source) +
                         TextOf(Tree.Target);
      for (const std::size_t Rule : Tree.ssChain) {
        Name += ' ' + std::to_string(Rule);
      }
      ssConstituents.insert(Name);
    }
  }
  All.Constituents = ssConstituents.size();
  Derivations& Whole = Spans.mSpans[{0, Spans.vsTokens.size()}];
  std::sort(Whole.begin(), Whole.end(), [](const Derivation& Left, const Derivation& Right) {
    return std::tie(Right.Score, Left.vNumbers) < std::tie(Left.Score, Right.vNumbers);
  });
  for (const Derivation& Tree : Whole) {
    All.vDerivations.push_back(std::to_string(Tree.Score) + ' ' + Tree.Words + ' ' + Tree.Tree);
  }
  return All;
}
