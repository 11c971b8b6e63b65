// Sections: names, stops, clashes, what was made, chains, plain, the furthest cause, JSON.

#include "DiagnosisWriter.h"

#include "TranslationWriter.h"

#include <algorithm>
#include <tuple>

namespace Translate {

// ---- Names ------------------------------------------------------------------------------------

std::string DiagnosisNames::NodeName(Side OnSide, std::size_t Node) const {
  const bool IsX = (OnSide == Side::X) != Rules.Settings().IsReversed;
  return (IsX ? 'x' : 'y') + std::to_string(Node);
}

std::string DiagnosisNames::PathName(const RulePath& Path) const {
  std::string Name = NodeName(Path.OnSide, Path.Node);
  for (const std::uint32_t Feature : Path.vFeatures) {
    Name.append(1, ' ').append(Rules.FeatureName(Feature));
  }
  return Path.vFeatures.empty() ? Name : '(' + Name + ')';
}

std::string DiagnosisNames::Words(std::size_t Start, std::size_t End) const {
  std::string Text;
  for (std::size_t At = Start; At < End; ++At) {
    Text.append(At == Start ? "" : " ").append(Why.Token(At));
  }
  return Text;
}

std::string DiagnosisNames::TypesName(std::uint32_t Types) const {
  return Rules.LabelName(Rules.SourceTypeOf(Types)) +
         "::" + Rules.LabelName(Rules.TargetTypeOf(Types));
}

std::string DiagnosisNames::PlaceOf(std::uint32_t RuleIndex) const {
  const RuleSet::Rule& Which = Rules.At(RuleIndex);
  return Rules.FileOf(Which) + ':' + std::to_string(Which.Line);
}

std::string DiagnosisNames::NameOf(std::uint32_t RuleIndex) const {
  const RuleSet::Rule& Which = Rules.At(RuleIndex);
  return Which.Header == RuleSet::None ? PlaceOf(RuleIndex) : Rules.HeaderOf(Which);
}

namespace {

std::string Quoted(const std::string& Text) {
  return '"' + Text + '"';
}

/// "a", "a and b", "a, b and c".
std::string Joined(const std::vector<std::string>& vsTexts) {
  std::string Text;
  for (std::size_t Index = 0; Index < vsTexts.size(); ++Index) {
    const bool IsLast = Index + 1 == vsTexts.size();
    Text.append(Index == 0 ? "" : IsLast ? " and " : ", ").append(vsTexts[Index]);
  }
  return Text;
}

bool IsLiteralSymbol(SourceSymbol Symbol) {
  return (Symbol & SourceTrie::LiteralMark) != 0;
}

}  // namespace

// ---- Stops ------------------------------------------------------------------------------------

/// What a component wants: the word "car", N, or N::M where the target type counts.
std::string DiagnosisText::WantedText(SourceSymbol Wanted) const {
  if (IsLiteralSymbol(Wanted)) {
    return "the word " + Quoted(Rules.LiteralName(Wanted));
  }
  const std::uint32_t Target = Rules.SlotWanted(Wanted);
  return Rules.LabelName(Rules.SlotLabel(Wanted)) +
         (Target == RuleSet::None ? "" : "::" + Rules.LabelName(Target));
}

/// What there is at a position.
std::string DiagnosisText::PlaceText(const StopPlace& Which) const {
  if (Which.Position == Why.Size()) {
    return "the text ends there";
  }
  const std::string Token = Quoted(std::string(Why.Token(Which.Position)));
  if (Which.vThere.empty()) {
    return "no constituent begins at " + Token;
  }
  std::vector<std::string> vsThere;
  for (const Beginning& Current : Which.vThere) {
    vsThere.push_back(TypesName(Current.Types) + ' ' + Quoted(Words(Which.Position, Current.End)));
  }
  return "at " + Token + (vsThere.size() == 1 ? " begins " : " begin ") + Joined(vsThere);
}

std::string DiagnosisText::StopText(const Stop& Which, std::size_t Begin) const {
  std::string Text;
  if (Which.Component == 1) {
    Text = "does not begin at " + Quoted(std::string(Why.Token(Begin)));
  } else {
    Text = "fits " + NodeName(Side::X, 1) +
           (Which.Component == 2 ? "" : "–" + NodeName(Side::X, Which.Component - 1));
    std::vector<std::string> vsTexts;
    for (const StopPlace& Place : Which.vPlaces) {
      vsTexts.push_back(Quoted(Words(Begin, Place.Position)));
    }
    Text += " at " + Joined(vsTexts);
  }
  return Text + "; " + StopReason(Which);
}

std::string DiagnosisText::StopReason(const Stop& Which) const {
  const std::string Text =
      NodeName(Side::X, Which.Component) + " wants " + WantedText(Which.Wanted) + ", and ";
  std::vector<std::string> vsPlaces;
  for (const StopPlace& Place : Which.vPlaces) {
    vsPlaces.push_back(PlaceText(Place));
  }
  return Text + Joined(vsPlaces);
}

// ---- Clashes ----------------------------------------------------------------------------------

std::string DiagnosisText::FitText(const Combination& Way, std::size_t Begin) const {
  const std::size_t Components = Rules.SymbolsOf(Rules.At(*Rule.Index)).size();
  return "fits " + NodeName(Side::X, 1) +
         (Components == 1 ? "" : "–" + NodeName(Side::X, Components)) + " at " +
         Quoted(Words(Begin, Way.End));
}

/// Which rules the parts are by: " with ADJ,1 and N,2".
std::string DiagnosisText::PartsText(const Combination& Way) const {
  std::vector<std::string> vsParts;
  for (const PartFacts& Facts : Way.vParts) {
    vsParts.push_back(NameOf(Facts.vNodes.front().Rule));
  }
  return vsParts.empty() ? "" : " with " + Joined(vsParts);
}

/// A value, and where it comes from.
std::string DiagnosisText::ValueText(StructureId Value) {
  std::string Text;
  Structures.AppendShort(Value, Text);
  std::vector<std::string> vsPlaces;
  for (const Origin& Current : Why.Trace().Origins(Value)) {
    vsPlaces.push_back(Rules.FileName(Current.File) + ':' + std::to_string(Current.Line));
  }
  return vsPlaces.empty() ? Text : Text + " from " + Joined(vsPlaces);
}

std::string DiagnosisText::ConflictText(const Conflict& Which, bool IsTransfer) {
  const StructureStore& Store = Why.Trace().Structures();
  if (!Which.CameAt) {
    std::string Wanted;
    Structures.AppendShort(Which.Came, Wanted);
    const bool IsFeature = Store.IsComplex(Which.Came);
    return PathName(Which.ThereAt) + " has " + ValueText(Which.There) +
           (IsFeature ? ", and no features" : ", and " + Wanted + " is wanted");
  }
  // The feature goes without saying where the equation names it on both sides.
  const bool IsPlain =
      Which.Depth == 0 && Which.ThereAt.vFeatures == Which.CameAt->vFeatures &&
      (Which.ThereAt.OnSide != Which.CameAt->OnSide || Which.ThereAt.Node != Which.CameAt->Node);
  const auto NameOfPath = [&](const RulePath& Path) {
    return IsPlain ? NodeName(Path.OnSide, Path.Node) : PathName(Path);
  };
  return NameOfPath(Which.ThereAt) + " has " + ValueText(Which.There) + ", " +
         NameOfPath(*Which.CameAt) + (IsTransfer ? " brings " : " has ") + ValueText(Which.Came);
}

std::string DiagnosisText::EquationText(const EquationClash& Clash) const {
  const RuleDescription::Equation& Equation = EquationAt(Clash.Line);
  std::vector<std::string> vsLines;
  for (const std::size_t Line : Equation.vLines) {
    vsLines.push_back(std::to_string(Line));
  }
  return Equation.Text + (vsLines.size() == 1 ? ", line " : ", lines ") + Joined(vsLines);
}

/// "((x1 num) = (x2 num)), line 12: x1 has PL from a.trr:30, x2 has SG from a.trr:44"
std::string DiagnosisText::ClashText(const EquationClash& Clash) {
  std::string Text =
      EquationText(Clash) + ": " + (Clash.IsCycle ? "a structure would contain itself: " : "");
  std::vector<std::string> vsConflicts;
  for (const Conflict& Current : Clash.vConflicts) {
    vsConflicts.push_back(ConflictText(Current, Clash.Kind == StepKind::Transfer));
  }
  for (std::size_t Index = 0; Index < vsConflicts.size(); ++Index) {
    Text.append(Index == 0 ? "" : "; ").append(vsConflicts[Index]);
  }
  return Text;
}

/// "fits x1–x2 at "red car"; it fails at …"
std::string DiagnosisText::FailureText(const ClashFacts& Which, std::size_t Begin, bool IsOnly) {
  std::string Text =
      FitText(Which.Way, Begin) + (IsOnly ? "" : PartsText(Which.Way)) + "; it fails at ";
  for (const EquationClash& Clash : Which.vEquations) {
    Text.append(&Clash == &Which.vEquations.front() ? "" : "; and at ").append(ClashText(Clash));
  }
  return Text;
}

/// "NUM: PL from a.trr:30"
std::string DiagnosisText::ValueAt(const RulePath& Path, StructureId Value) {
  std::string Text;
  for (const std::uint32_t Feature : Path.vFeatures) {
    Text.append(Text.empty() ? "" : " ").append(Rules.FeatureName(Feature));
  }
  return Text + (Text.empty() ? "" : ": ") + ValueText(Value);
}

std::vector<ClashValue> DiagnosisText::ValuesOf(const EquationClash& Clash) {
  std::vector<ClashValue> vValues;
  for (const Conflict& Current : Clash.vConflicts) {
    const RulePath& There = Current.ThereAt;
    vValues.push_back({There.OnSide, There.Node, ValueAt(There, Current.There)});
    if (Current.CameAt) {
      const RulePath& Came = *Current.CameAt;
      vValues.push_back({Came.OnSide, Came.Node, ValueAt(Came, Current.Came)});
    } else {
      vValues.push_back({There.OnSide, There.Node, "wanted: "});
      Structures.AppendShort(Current.Came, vValues.back().Text);
    }
  }
  return vValues;
}

// ---- What was made ----------------------------------------------------------------------------

std::string DiagnosisText::TakerText(const Taker& Which) const {
  const std::string Text =
      NameOf(Which.Rule) + " could take it as " + NodeName(Side::X, Which.Component);
  const std::string Wanted = NodeName(Side::X, Which.WantedComponent) + " wants ";
  std::vector<std::string> vsPositions;
  for (const std::size_t Index : Which.vPositions) {
    vsPositions.push_back(Index == Why.Size() ? "the end of the text"
                                              : Quoted(std::string(Why.Token(Index))));
  }
  switch (Which.State) {
    case TakerState::WantsBefore:
      return Text + ", but " + Wanted + WantedText(Which.Wanted) + " before " + Joined(vsPositions);
    case TakerState::WantsAfter:
      return Text + ", but " + Wanted + WantedText(Which.Wanted) + " at " + Joined(vsPositions);
    case TakerState::Clashes:
      return Text + ", but its equations clash";
    case TakerState::InChain:
      break;
  }
  return Text + ", but not in this chain of unary rules";
}

std::string DiagnosisText::MissingText(const MissingAbove& Missing) const {
  const std::string Top =
      TypesName(Missing.Types) + ' ' + Quoted(Words(Missing.Start, Missing.End));
  if (Missing.IsWhole) {
    return Top + " is the whole text, and its type is not a start type";
  }
  if (Missing.Takers.IsEmpty()) {
    return "no rule has a place for " + Top;
  }
  std::string Text = "above " + Top;
  for (const Taker& Current : Missing.Takers.vFirst) {
    Text.append(&Current == &Missing.Takers.vFirst.front() ? " " : "; ").append(TakerText(Current));
  }
  if (Missing.Takers.More != 0U) {
    Text.append("; ").append(std::to_string(*Missing.Takers.More)).append(" more rules could");
  }
  return Text;
}

std::string DiagnosisText::MadeText(const MadeFacts& Made, std::size_t Begin) {
  const RuleSet::Rule& Which = Rules.At(*Rule.Index);
  std::string Text = "makes " + TypesName(Which.Types) + " of " +
                     Quoted(Words(Begin, Made.Way.End)) + PartsText(Made.Way) + ": ";
  Structures.AppendShort(Made.Structures.Source, Text);
  Text += " -> ";
  Structures.AppendShort(Made.Structures.Target, Text);
  Text += Made.Words ? ", words " + Quoted(*Made.Words) : ", words that are too long to be written";
  Text += "; it is in ";
  switch (Made.In) {
    case Use::Best:
      return Text + "the best derivation";
    case Use::Other:
      return Text + "a derivation of the text, but not in the best";
    case Use::None:
      break;
  }
  return Text + "no derivation of the text: " + MissingText(*Made.Missing);
}

// ---- Chains -----------------------------------------------------------------------------------

std::string DiagnosisText::ChainText(const Combination& Way, std::size_t Begin, bool IsUsed) const {
  return FitText(Way, Begin) + PartsText(Way) + "; it makes nothing of it, since " +
         (IsUsed ? "it is used in this chain of unary rules already"
                 : "this chain of unary rules is at its longest");
}

// ---- Plain ------------------------------------------------------------------------------------

namespace {

/// Adds a line about those that are not shown.
void AddMoreLine(const std::optional<std::uint64_t>& More, const std::string& What,
                 std::vector<DiagnosisLine>& vLinesReturn) {
  if (More != 0U) {
    vLinesReturn.emplace_back().Text =
        "  and " + (More ? std::to_string(*More) : "very many") + " more " + What;
  }
}

}  // namespace

std::vector<DiagnosisLine> DiagnosisText::Lines(const BeginFacts& Facts) {
  const std::string Start = Rule.Name() + ' ';
  std::vector<DiagnosisLine> vLines;
  const auto Add = [&](const std::string& Text) -> DiagnosisLine& {
    vLines.emplace_back().Text = Start + Text;
    return vLines.back();
  };
  if (Facts.Stopped) {
    Add(StopText(*Facts.Stopped, Facts.Begin)).Stopped = &*Facts.Stopped;
  }
  const bool IsOnly = Facts.Clashes.vFirst.size() == 1 && Facts.Clashes.More == 0U;
  for (const ClashFacts& Current : Facts.Clashes.vFirst) {
    Add(FailureText(Current, Facts.Begin, IsOnly)).Clash = &Current;
  }
  AddMoreLine(Facts.Clashes.More, "fail", vLines);
  for (const MadeFacts& Current : Facts.Made.vFirst) {
    Add(MadeText(Current, Facts.Begin)).Made = &Current;
  }
  AddMoreLine(Facts.Made.More, "are made", vLines);
  for (const bool IsUsed : {true, false}) {
    const Listed<Combination>& Ways = IsUsed ? Facts.Used : Facts.Longest;
    for (const Combination& Current : Ways.vFirst) {
      Add(ChainText(Current, Facts.Begin, IsUsed)).Chain = &Current;
    }
    AddMoreLine(Ways.More, "like this", vLines);
  }
  return vLines;
}

void DiagnosisText::Append(const BeginFacts& Facts, std::string& TextReturn) {
  for (const DiagnosisLine& Current : Lines(Facts)) {
    TextReturn.append(Current.Text).append(1, '\n');
  }
}

// ---- The furthest cause -----------------------------------------------------------------------

namespace {

/// How far a rule comes: components, whether equations hold, and the last position.
std::tuple<std::size_t, bool, std::size_t> Reach(const BeginFacts& Facts, std::size_t Components) {
  if (Facts.Stopped) {
    const std::size_t Met = Facts.Stopped->Component - 1;
    return {Met, false, Met == 0 ? 0 : Facts.Stopped->vPlaces.back().Position};
  }
  std::size_t End = 0;
  const auto Offer = [&](const Combination& Way) { End = std::max(End, Way.End); };
  if (!Facts.Made.IsEmpty()) {
    for (const MadeFacts& Current : Facts.Made.vFirst) {
      Offer(Current.Way);
    }
    return {Components, true, End};
  }
  for (const ClashFacts& Current : Facts.Clashes.vFirst) {
    Offer(Current.Way);
  }
  for (const Listed<Combination>* List : {&Facts.Used, &Facts.Longest}) {
    for (const Combination& Way : List->vFirst) {
      Offer(Way);
    }
  }
  return {Components, false, End};
}

}  // namespace

std::string DiagnosisText::FurthestCause() {
  if (!Rule.Index) {
    return Rule.vFindings.empty() ? "it is left out" : Rule.vFindings.front().Message;
  }
  const std::size_t Components = Rules.SymbolsOf(Rules.At(*Rule.Index)).size();
  std::optional<BeginFacts> Furthest;
  for (std::size_t Begin = 0; Begin < Why.Size(); ++Begin) {
    BeginFacts Facts = Why.FactsAt(*Rule.Index, Begin);
    if (!Furthest || Reach(Facts, Components) > Reach(*Furthest, Components)) {
      Furthest = std::move(Facts);
    }
  }
  if (!Furthest) {
    return "the text has no words";
  }
  if (!Furthest->Made.IsEmpty()) {
    Furthest->Clashes = {};  // they lie before it
  }
  std::string Text;
  Append(*Furthest, Text);
  return Text.substr(0, Text.find('\n'));
}

// ---- JSON -------------------------------------------------------------------------------------

void AppendRuleName(const RuleDescription& Rule, std::string& JsonReturn) {
  JsonReturn += "{\"rule\":";
  AppendJsonString(Rule.Place(), JsonReturn);
  JsonReturn += ",\"header\":";
  if (Rule.Header.empty()) {
    JsonReturn += "null";
  } else {
    AppendJsonString(Rule.Header, JsonReturn);
  }
}

template <typename ElementT, typename AppendT>
void DiagnosisJson::AppendList(const std::vector<ElementT>& vElements, AppendT AppendEach) {
  *Out += '[';
  for (const ElementT& Element : vElements) {
    Out->append(&Element == &vElements.front() ? "" : ",");
    AppendEach(Element);
  }
  *Out += ']';
}

void DiagnosisJson::AppendSpan(std::size_t Start, std::size_t End) {
  Out->append("\"span\":[").append(std::to_string(Start)).append(1, ',');
  Out->append(std::to_string(End)).append(1, ']');
}

void DiagnosisJson::AppendTypes(std::uint32_t Types) {
  Out->append("\"types\":[");
  AppendJsonString(Rules.LabelName(Rules.SourceTypeOf(Types)), *Out);
  *Out += ',';
  AppendJsonString(Rules.LabelName(Rules.TargetTypeOf(Types)), *Out);
  *Out += ']';
}

/// The numbers of what is not listed; null if that does not fit.
void DiagnosisJson::AppendMore(std::string_view Name, const std::optional<std::uint64_t>& More) {
  Out->append(",\"").append(Name).append("\":");
  Out->append(More ? std::to_string(*More) : "null");
}

void DiagnosisJson::AppendWanted(SourceSymbol Wanted) {
  Out->append("\"wanted\":{\"word\":");
  if (IsLiteralSymbol(Wanted)) {
    AppendJsonString(Rules.LiteralName(Wanted), *Out);
    Out->append(",\"source\":null,\"target\":null}");
    return;
  }
  Out->append("null,\"source\":");
  AppendJsonString(Rules.LabelName(Rules.SlotLabel(Wanted)), *Out);
  Out->append(",\"target\":");
  if (Rules.SlotWanted(Wanted) == RuleSet::None) {
    Out->append("null");
  } else {
    AppendJsonString(Rules.LabelName(Rules.SlotWanted(Wanted)), *Out);
  }
  *Out += '}';
}

void DiagnosisJson::AppendStop(const Stop& Which) {
  Out->append("{\"component\":").append(std::to_string(Which.Component)).append(1, ',');
  AppendWanted(Which.Wanted);
  Out->append(",\"at\":");
  AppendList(Which.vPlaces, [&](const StopPlace& Place) {
    Out->append("{\"position\":").append(std::to_string(Place.Position)).append(",\"token\":");
    if (Place.Position == Why.Size()) {
      Out->append("null");
    } else {
      AppendJsonString(Why.Token(Place.Position), *Out);
    }
    Out->append(",\"constituents\":");
    AppendList(Place.vThere, [&](const Beginning& Current) {
      *Out += '{';
      AppendTypes(Current.Types);
      *Out += ',';
      AppendSpan(Place.Position, Current.End);
      *Out += '}';
    });
    *Out += '}';
  });
  *Out += '}';
}

/// The beginning of an object about a way through.
void DiagnosisJson::AppendWay(const Combination& Way, std::size_t Begin) {
  *Out += '{';
  AppendSpan(Begin, Way.End);
  Out->append(",\"parts\":");
  AppendList(Way.vParts, [&](const PartFacts& Part) {
    Out->append("{\"component\":").append(std::to_string(Part.Component)).append(1, ',');
    AppendSpan(Part.Start, Part.End);
    Out->append(",\"rules\":");
    AppendList(Part.vNodes,
               [&](const TreeNode& Node) { AppendJsonString(PlaceOf(Node.Rule), *Out); });
    *Out += '}';
  });
}

void DiagnosisJson::AppendValue(const RulePath* Path, StructureId Value) {
  Out->append("{\"path\":");
  if (Path == nullptr) {
    Out->append("null");
  } else {
    AppendJsonString(PathName(*Path), *Out);
  }
  Out->append(",\"value\":");
  Structures.AppendJson(Value, *Out);
  Out->append(",\"from\":");
  AppendPlaces(Rules, Why.Trace().Origins(Value), *Out);
  *Out += '}';
}

void DiagnosisJson::AppendEquation(const EquationClash& Clash) {
  const RuleDescription::Equation& Equation = EquationAt(Clash.Line);
  Out->append("{\"lines\":");
  AppendList(Equation.vLines, [&](std::size_t Index) { Out->append(std::to_string(Index)); });
  Out->append(",\"text\":");
  AppendJsonString(Equation.Text, *Out);
  Out->append(",\"step\":")
      .append(Clash.Kind < StepKind::Transfer    ? "\"analysis\""
              : Clash.Kind == StepKind::Transfer ? "\"transfer\""
                                                 : "\"generation\"");
  Out->append(",\"cycle\":").append(Clash.IsCycle ? "true" : "false").append(",\"conflicts\":");
  AppendList(Clash.vConflicts, [&](const Conflict& Current) {
    Out->append("{\"there\":");
    AppendValue(&Current.ThereAt, Current.There);
    Out->append(",\"came\":");
    AppendValue(Current.CameAt ? &*Current.CameAt : nullptr, Current.Came);
    *Out += '}';
  });
  *Out += '}';
}

void DiagnosisJson::AppendTaker(const Taker& Which) {
  Out->append("{\"rule\":");
  AppendJsonString(PlaceOf(Which.Rule), *Out);
  Out->append(",\"component\":").append(std::to_string(Which.Component)).append(",\"because\":");
  switch (Which.State) {
    case TakerState::Clashes:
      Out->append("\"clash\"}");
      return;
    case TakerState::InChain:
      Out->append("\"chain\"}");
      return;
    case TakerState::WantsBefore:
      Out->append("\"before\"");
      break;
    case TakerState::WantsAfter:
      Out->append("\"after\"");
      break;
  }
  Out->append(",\"missing\":").append(std::to_string(Which.WantedComponent)).append(1, ',');
  AppendWanted(Which.Wanted);
  Out->append(",\"at\":");
  AppendList(Which.vPositions, [&](std::size_t Index) { Out->append(std::to_string(Index)); });
  *Out += '}';
}

void DiagnosisJson::AppendMissing(const MissingAbove& Missing) {
  *Out += '{';
  AppendSpan(Missing.Start, Missing.End);
  *Out += ',';
  AppendTypes(Missing.Types);
  Out->append(",\"whole\":").append(Missing.IsWhole ? "true" : "false").append(",\"takers\":");
  AppendList(Missing.Takers.vFirst, [&](const Taker& Current) { AppendTaker(Current); });
  AppendMore("moreTakers", Missing.Takers.More);
  *Out += '}';
}

void DiagnosisJson::AppendMade(const MadeFacts& Made, std::size_t Begin) {
  AppendWay(Made.Way, Begin);
  Out->append(",\"source\":");
  Structures.AppendJson(Made.Structures.Source, *Out);
  Out->append(",\"target\":");
  Structures.AppendJson(Made.Structures.Target, *Out);
  Out->append(",\"words\":");
  if (Made.Words) {
    AppendJsonString(*Made.Words, *Out);
  } else {
    Out->append("null");
  }
  Out->append(",\"derivation\":")
      .append(Made.In == Use::Best    ? "\"best\""
              : Made.In == Use::Other ? "\"other\""
                                      : "null");
  Out->append(",\"missing\":");
  if (Made.Missing) {
    AppendMissing(*Made.Missing);
  } else {
    Out->append("null");
  }
  *Out += '}';
}

void DiagnosisJson::Append(const BeginFacts& Facts, std::string& TextReturn) {
  Out = &TextReturn;
  AppendRuleName(Rule, *Out);
  Out->append(",\"begin\":").append(std::to_string(Facts.Begin)).append(",\"stop\":");
  if (Facts.Stopped) {
    AppendStop(*Facts.Stopped);
  } else {
    Out->append("null");
  }
  Out->append(",\"clashes\":");
  AppendList(Facts.Clashes.vFirst, [&](const ClashFacts& Current) {
    AppendWay(Current.Way, Facts.Begin);
    Out->append(",\"equations\":");
    AppendList(Current.vEquations, [&](const EquationClash& Clash) { AppendEquation(Clash); });
    *Out += '}';
  });
  AppendMore("moreClashes", Facts.Clashes.More);
  Out->append(",\"made\":");
  AppendList(Facts.Made.vFirst,
             [&](const MadeFacts& Current) { AppendMade(Current, Facts.Begin); });
  AppendMore("moreMade", Facts.Made.More);
  const auto AppendWays = [&](const std::vector<Combination>& vWays) {
    AppendList(vWays, [&](const Combination& Current) {
      AppendWay(Current, Facts.Begin);
      *Out += '}';
    });
  };
  Out->append(",\"used\":");
  AppendWays(Facts.Used.vFirst);
  AppendMore("moreUsed", Facts.Used.More);
  Out->append(",\"longest\":");
  AppendWays(Facts.Longest.vFirst);
  AppendMore("moreLongest", Facts.Longest.More);
  *Out += '}';
}

}  // namespace Translate
