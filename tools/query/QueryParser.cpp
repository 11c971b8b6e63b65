// Sections: tokens, items, sequences and types, constraints, numbers and texts, connections.

#include "QueryParser.h"

#include "Bytes.h"
#include "NearestName.h"

#include <HeaderLine.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

namespace Query {

namespace {

using Grammar::ShapeTrait;

template <typename ValueT>
using Named = std::pair<std::string_view, ValueT>;

constexpr std::array<Named<ShapeTrait>, 3> ShapeWords = {{{"monotone", ShapeTrait::Monotone},
                                                          {"crossing", ShapeTrait::Crossing},
                                                          {"unaligned", ShapeTrait::Unaligned}}};

constexpr std::array<Named<Measure>, 5> MeasureWords = {{{"count", Measure::Count},
                                                         {"components", Measure::Components},
                                                         {"alignments", Measure::Alignments},
                                                         {"constraints", Measure::Constraints},
                                                         {"comments", Measure::Comments}}};

constexpr std::array<Named<Comparison>, 6> ComparisonMarks = {{{"=", Comparison::Equal},
                                                               {"!=", Comparison::Unequal},
                                                               {"<", Comparison::Less},
                                                               {"<=", Comparison::AtMost},
                                                               {">", Comparison::More},
                                                               {">=", Comparison::AtLeast}}};

constexpr std::string_view ExpectedName = "a label, a literal in quotes, \"?\"";

/// What a word stands for; null if nothing.
template <typename ValueT, std::size_t Size>
const ValueT* Find(const std::array<Named<ValueT>, Size>& Table, std::string_view Word) {
  const auto* const Found =
      std::find_if(Table.begin(), Table.end(),
                   [&](const Named<ValueT>& Current) { return Current.first == Word; });
  return Found == Table.end() ? nullptr : &Found->second;
}

class QueryParser {
 public:
  explicit QueryParser(std::string_view TextPassIn);
  bool Parse(QueryNode& TreeReturn);
  const QueryFault& Fault() const { return Broken; }

 private:
  // Tokens.
  const Token& Ahead(std::size_t Count = 0) const {
    return vTokens[std::min(Next + Count, vTokens.size() - 1)];
  }
  bool IsMark(std::string_view Mark, std::size_t Count = 0) const;
  bool IsKeyword(std::string_view Word, std::size_t Count = 0) const;
  bool IsKeyword(std::size_t Count = 0) const;
  bool TakeMark(std::string_view Mark);
  bool TakeKeyword(std::string_view Word);
  bool Expect(std::string_view Mark);
  bool Fail(const Token& Where, std::string Message);
  bool FailExpecting(std::string_view Expected);
  // Items.
  bool ParseName(std::string_view Expected, PatternItem& ItemReturn);
  bool ParseOne(std::string_view Expected, PatternItem& ItemReturn);
  bool ParseItem(std::string_view Expected, PatternItem& ItemReturn);
  // Sequences and types.
  bool ParseSequence(std::optional<Side> OnSide, QueryNode& NodeReturn);
  bool ParseType(PatternItem& ItemReturn);
  bool ParseTypes(QueryNode& NodeReturn);
  // Constraints.
  bool IsNode() const;
  bool ParseNode(PathPattern& PathReturn);
  bool ParseFeature(FeaturePattern& FeatureReturn);
  bool ParsePath(PathPattern& PathReturn);
  bool ParseRight(ConstraintPattern& PatternReturn);
  bool ParseList(ConstraintPattern& PatternReturn);
  bool ParseConstraint(QueryNode& NodeReturn);
  bool ParsePassing(QueryNode& NodeReturn);
  // Numbers and texts.
  bool IsShapeOfGroups() const;
  void ParseShapeOfGroups(QueryNode& NodeReturn);
  bool ParseNumber(Measure What, QueryNode& NodeReturn);
  bool ParseText(bool IsOfComments, QueryNode& NodeReturn);
  // Connections.
  bool ParseSided(QueryNode& NodeReturn);
  bool ParseByWord(QueryNode& NodeReturn);
  bool ParseCondition(QueryNode& NodeReturn);
  bool ParseParentheses(QueryNode& NodeReturn);
  bool ParseNegation(QueryNode& NodeReturn);
  bool ParseConjunction(QueryNode& NodeReturn);
  bool ParseDisjunction(QueryNode& NodeReturn);
  bool ParseChain(QueryNode::Kind Kind, std::string_view Word,
                  bool (QueryParser::*ParsePart)(QueryNode&), QueryNode& NodeReturn);
  bool ParseDeeper(bool (QueryParser::*ParsePart)(QueryNode&), QueryNode& NodeReturn);

  std::vector<Token> vTokens;  // the last one is the end
  std::size_t Next = 0;
  int Depth = 0;
  QueryFault Broken;
};

// ---- Tokens -----------------------------------------------------------------------------------

QueryParser::QueryParser(std::string_view TextPassIn) {
  QueryText Text(TextPassIn);
  do {
    vTokens.push_back(Text.Next());
  } while (vTokens.back().Kind != TokenKind::End);
  if (Text.Fault() != nullptr) {
    Broken = *Text.Fault();
  }
}

bool QueryParser::IsMark(std::string_view Mark, std::size_t Count) const {
  return Ahead(Count).Kind == TokenKind::Mark && Ahead(Count).Text == Mark;
}

bool QueryParser::IsKeyword(std::string_view Word, std::size_t Count) const {
  return Ahead(Count).Kind == TokenKind::Word && !Ahead(Count).HasEscapes &&
         Ahead(Count).Text == Word;
}

/// Whether a token connects conditions, and so ends a list of words.
bool QueryParser::IsKeyword(std::size_t Count) const {
  return IsKeyword("and", Count) || IsKeyword("or", Count) || IsKeyword("not", Count);
}

bool QueryParser::TakeMark(std::string_view Mark) {
  const bool IsThere = IsMark(Mark);
  Next += IsThere ? 1 : 0;
  return IsThere;
}

bool QueryParser::TakeKeyword(std::string_view Word) {
  const bool IsThere = IsKeyword(Word);
  Next += IsThere ? 1 : 0;
  return IsThere;
}

bool QueryParser::Expect(std::string_view Mark) {
  return TakeMark(Mark) || FailExpecting('"' + std::string(Mark) + '"');
}

bool QueryParser::Fail(const Token& Where, std::string Message) {
  Broken = {Where.Place, std::move(Message)};
  return false;
}

bool QueryParser::FailExpecting(std::string_view Expected) {
  return Fail(Ahead(), "expected " + std::string(Expected));
}

// ---- Items ------------------------------------------------------------------------------------

/// name = WORD | LITERAL
bool QueryParser::ParseName(std::string_view Expected, PatternItem& ItemReturn) {
  const Token& First = Ahead();
  if (First.Kind != TokenKind::Word && First.Kind != TokenKind::Literal) {
    return FailExpecting(Expected);
  }
  ItemReturn.vNames.push_back({First.Text, First.Kind == TokenKind::Literal});
  ++Next;
  return true;
}

/// one = "?" | name { "|" name }
bool QueryParser::ParseOne(std::string_view Expected, PatternItem& ItemReturn) {
  if (TakeMark("?")) {
    ItemReturn.What = PatternItem::Kind::Any;
    return true;
  }
  ItemReturn.What = PatternItem::Kind::Names;
  if (!ParseName(Expected, ItemReturn)) {
    return false;
  }
  while (TakeMark("|")) {
    if (!ParseName("a label or a literal in quotes after \"|\"", ItemReturn)) {
      return false;
    }
  }
  return true;
}

/// item = "*" | one
bool QueryParser::ParseItem(std::string_view Expected, PatternItem& ItemReturn) {
  if (TakeMark("*")) {
    ItemReturn.What = PatternItem::Kind::Run;
    return true;
  }
  return ParseOne(Expected, ItemReturn);
}

// ---- Sequences and types ----------------------------------------------------------------------

/// sequence = [ side ] "[" [ "^" ] { item } [ "$" ] "]"
bool QueryParser::ParseSequence(std::optional<Side> OnSide, QueryNode& NodeReturn) {
  SequenceCondition Own;
  Own.OnSide = OnSide;
  ++Next;
  Own.Pattern.IsFromStart = TakeMark("^");
  while (!IsMark("]") && !IsMark("$")) {
    if (!ParseItem(std::string(ExpectedName) + ", \"*\", \"$\" or \"]\"",
                   Own.Pattern.vItems.emplace_back())) {
      return false;
    }
  }
  Own.Pattern.IsToEnd = TakeMark("$");
  NodeReturn.Own = std::move(Own);
  return Expect("]");
}

/// type = "*" | one
bool QueryParser::ParseType(PatternItem& ItemReturn) {
  // A rule has one type on each side, so both signs say the same.
  return TakeMark("*") || ParseOne("a type or \"*\"", ItemReturn);
}

/// types = type "::" type
bool QueryParser::ParseTypes(QueryNode& NodeReturn) {
  TypeCondition Own;
  if (!ParseType(Own.SLType) || !Expect("::") || !ParseType(Own.TLType)) {
    return false;
  }
  NodeReturn.Own = std::move(Own);
  return true;
}

// ---- Constraints ------------------------------------------------------------------------------

/// Whether the next word is a node. With a backslash it is a value.
bool QueryParser::IsNode() const {
  const std::string& Word = Ahead().Text;
  return Ahead().Kind == TokenKind::Word && !Ahead().HasEscapes && Word.size() <= 10 &&
         (Grammar::ToUpper(Word[0]) == 'X' || Grammar::ToUpper(Word[0]) == 'Y') &&
         std::all_of(Word.begin() + 1, Word.end(), Grammar::IsDigit);
}

/// node = "*" | ( "x" | "y" ) [ NUMBER ]
bool QueryParser::ParseNode(PathPattern& PathReturn) {
  if (TakeMark("*")) {
    return true;
  }
  if (!IsNode()) {
    return FailExpecting("a node such as x1, y or \"*\"");
  }
  const std::string& Word = Ahead().Text;
  PathReturn.Side = Grammar::ToUpper(Word[0]);
  PathReturn.Index = TrRuleInternal::ParseWholeNumber(std::string_view(Word).substr(1));
  ++Next;
  return true;
}

/// feature = item { ":" item }
bool QueryParser::ParseFeature(FeaturePattern& FeatureReturn) {
  do {
    if (!ParseItem("a feature, \"*\" or \"?\"", FeatureReturn.vItems.emplace_back())) {
      return false;
    }
  } while (TakeMark(":"));
  return true;
}

/// path = node [ ":" feature ]
bool QueryParser::ParsePath(PathPattern& PathReturn) {
  return ParseNode(PathReturn) && (!TakeMark(":") || ParseFeature(PathReturn.Features));
}

/// The part of a list after its sign.
bool QueryParser::ParseList(ConstraintPattern& PatternReturn) {
  while (!IsKeyword() &&
         (Ahead().Kind == TokenKind::Word || Ahead().Kind == TokenKind::Literal || IsMark("?"))) {
    if (!ParseOne("a value", PatternReturn.vValues.emplace_back())) {
      return false;
    }
  }
  return true;
}

/// The part of a constraint after the equals sign.
bool QueryParser::ParseRight(ConstraintPattern& PatternReturn) {
  if (TakeMark("*or*")) {
    PatternReturn.Kind = ConstraintPattern::Right::Or;
    return ParseList(PatternReturn);
  }
  if (TakeMark("*not*")) {
    PatternReturn.Kind = ConstraintPattern::Right::Not;
    return ParseList(PatternReturn);
  }
  if (IsMark("*") && !IsMark(":", 1)) {
    PatternReturn.Kind = ConstraintPattern::Right::Anything;
    return TakeMark("*");
  }
  if (IsMark("*") || IsNode()) {
    PatternReturn.Kind = ConstraintPattern::Right::Path;
    return ParsePath(PatternReturn.RightPath);
  }
  PatternReturn.Kind = ConstraintPattern::Right::Value;
  return ParseOne("a value, a node such as x1, \"*\", \"?\", \"*or*\" or \"*not*\"",
                  PatternReturn.vValues.emplace_back());
}

/// constraint = path "=" ( "*" | path | one | ( "*or*" | "*not*" ) { one } )
bool QueryParser::ParseConstraint(QueryNode& NodeReturn) {
  ConstraintPattern Own;
  if (!ParsePath(Own.Left) || !Expect("=") || !ParseRight(Own)) {
    return false;
  }
  NodeReturn.Own = std::move(Own);
  return true;
}

/// passing = "passes" feature
bool QueryParser::ParsePassing(QueryNode& NodeReturn) {
  PassCondition Own;
  if (!ParseFeature(Own.Features)) {
    return false;
  }
  NodeReturn.Own = std::move(Own);
  return true;
}

// ---- Numbers and texts ------------------------------------------------------------------------

bool QueryParser::IsShapeOfGroups() const {
  return (IsKeyword("1") || IsKeyword("n")) && IsMark(":", 1) &&
         (IsKeyword("1", 2) || IsKeyword("n", 2));
}

/// group ":" group
void QueryParser::ParseShapeOfGroups(QueryNode& NodeReturn) {
  const bool IsOne[2] = {IsKeyword("1"), IsKeyword("1", 2)};
  NodeReturn.Own = IsOne[0]   ? IsOne[1] ? ShapeTrait::OneToOne : ShapeTrait::OneToMany
                   : IsOne[1] ? ShapeTrait::ManyToOne
                              : ShapeTrait::ManyToMany;
  Next += 3;
}

/// number = measure ( "=" | "!=" | "<" | "<=" | ">" | ">=" ) NUMBER
bool QueryParser::ParseNumber(Measure What, QueryNode& NodeReturn) {
  ++Next;
  const Comparison* const How =
      Ahead().Kind == TokenKind::Mark ? Find(ComparisonMarks, Ahead().Text) : nullptr;
  if (How == nullptr) {
    return FailExpecting("\"=\", \"!=\", \"<\", \"<=\", \">\" or \">=\"");
  }
  ++Next;
  const bool IsWord = Ahead().Kind == TokenKind::Word && Grammar::IsDigit(Ahead().Text[0]);
  const auto Number = IsWord ? TrRuleInternal::ParseWholeNumber(Ahead().Text) : std::nullopt;
  if (!Number) {
    return FailExpecting("a number up to 2147483647");
  }
  ++Next;
  NodeReturn.Own = NumberCondition{What, *How, static_cast<std::uint32_t>(*Number)};
  return true;
}

/// text = ( "comment" | "line" ) ( LITERAL | PATTERN [ "i" ] )
bool QueryParser::ParseText(bool IsOfComments, QueryNode& NodeReturn) {
  const Token& Given = Ahead();
  if (Given.Kind != TokenKind::Literal && Given.Kind != TokenKind::Pattern) {
    return FailExpecting("a text in quotes or a regular expression between slashes");
  }
  ++Next;
  TextCondition Own{IsOfComments, {}};
  Own.Pattern.Text = Given.Text;
  if (Given.Kind == TokenKind::Pattern) {
    const bool HasFlag = Ahead().Kind == TokenKind::Word && Ahead().Place == Given.End;
    Own.Pattern.IgnoresCase = HasFlag && TakeKeyword("i");
    if (HasFlag && !Own.Pattern.IgnoresCase) {
      return FailExpecting("\"i\" or a blank after the regular expression");
    }
    QueryFault Fault;
    if (!Own.Pattern.Compile(Fault)) {
      Broken = {Given.Place + 1 + Fault.Place,
                "the regular expression has an error: " + Fault.Message};
      return false;
    }
  }
  NodeReturn.Own = std::move(Own);
  return true;
}

// ---- Connections ------------------------------------------------------------------------------

/// What begins with a side.
bool QueryParser::ParseSided(QueryNode& NodeReturn) {
  const bool IsSource = Ahead().Text == "source";
  ++Next;
  if (IsMark("[")) {
    return ParseSequence(IsSource ? Side::Source : Side::Target, NodeReturn);
  }
  if (IsKeyword("components")) {
    return ParseNumber(IsSource ? Measure::SourceComponents : Measure::TargetComponents,
                       NodeReturn);
  }
  return FailExpecting("\"[\" or \"components\"");
}

/// What begins with a word of its own.
bool QueryParser::ParseByWord(QueryNode& NodeReturn) {
  const Token& First = Ahead();
  const bool IsWord = First.Kind == TokenKind::Word && !First.HasEscapes;
  const std::string Word = IsWord ? First.Text : std::string();
  if (const ShapeTrait* const Trait = Find(ShapeWords, Word)) {
    NodeReturn.Own = *Trait;
    ++Next;
    return true;
  }
  if (const Measure* const What = Find(MeasureWords, Word)) {
    return ParseNumber(*What, NodeReturn);
  }
  if (Word == "source" || Word == "target") {
    return ParseSided(NodeReturn);
  }
  if (TakeKeyword("passes")) {
    return ParsePassing(NodeReturn);
  }
  if (Word == "comment" || Word == "line") {
    ++Next;
    return ParseText(Word == "comment", NodeReturn);
  }
  if (!IsWord || IsKeyword()) {
    return FailExpecting("a condition such as [DET N], NP::NP, crossing or y:num = sg");
  }
  std::vector<std::string> vsWords{"source", "target", "passes", "comment", "line", "not"};
  for (const auto& Current : ShapeWords) {
    vsWords.emplace_back(Current.first);
  }
  for (const auto& Current : MeasureWords) {
    vsWords.emplace_back(Current.first);
  }
  return Fail(First, "unknown condition \"" + Word + '"' +
                         Grammar::AdviceOn(Word, vsWords, "trrule find --help lists them"));
}

/// condition = sequence | types | shape | passing | constraint | number | text
bool QueryParser::ParseCondition(QueryNode& NodeReturn) {
  const bool IsElement = Ahead().Kind == TokenKind::Word || Ahead().Kind == TokenKind::Literal ||
                         IsMark("*") || IsMark("?");
  if (IsMark("[")) {
    return ParseSequence(std::nullopt, NodeReturn);
  }
  if (IsElement && (IsMark("::", 1) || IsMark("|", 1))) {
    return ParseTypes(NodeReturn);
  }
  if (IsShapeOfGroups()) {
    ParseShapeOfGroups(NodeReturn);
    return true;
  }
  if (IsElement && (IsMark(":", 1) || (IsMark("=", 1) && (IsNode() || IsMark("*"))))) {
    return ParseConstraint(NodeReturn);
  }
  return ParseByWord(NodeReturn);
}

/// "(" query ")"
bool QueryParser::ParseParentheses(QueryNode& NodeReturn) {
  if (!ParseDeeper(&QueryParser::ParseDisjunction, NodeReturn)) {
    return false;
  }
  return TakeMark(")") || FailExpecting("\"and\", \"or\" or \")\"");
}

/// negation = { "not" } ( "(" query ")" | condition )
bool QueryParser::ParseNegation(QueryNode& NodeReturn) {
  // A type may be called like a keyword.
  if (!IsMark("::", 1) && TakeKeyword("not")) {
    NodeReturn.What = QueryNode::Kind::Not;
    return ParseDeeper(&QueryParser::ParseNegation, NodeReturn.vParts.emplace_back());
  }
  return TakeMark("(") ? ParseParentheses(NodeReturn) : ParseCondition(NodeReturn);
}

/// conjunction = negation { "and" negation }
bool QueryParser::ParseConjunction(QueryNode& NodeReturn) {
  return ParseChain(QueryNode::Kind::And, "and", &QueryParser::ParseNegation, NodeReturn);
}

/// query = conjunction { "or" conjunction }
bool QueryParser::ParseDisjunction(QueryNode& NodeReturn) {
  return ParseChain(QueryNode::Kind::Or, "or", &QueryParser::ParseConjunction, NodeReturn);
}

bool QueryParser::ParseChain(QueryNode::Kind Kind, std::string_view Word,
                             bool (QueryParser::*ParsePart)(QueryNode&), QueryNode& NodeReturn) {
  QueryNode First;
  if (!(this->*ParsePart)(First)) {
    return false;
  }
  if (!IsKeyword(Word)) {
    NodeReturn = std::move(First);
    return true;
  }
  NodeReturn.What = Kind;
  NodeReturn.vParts.push_back(std::move(First));
  while (TakeKeyword(Word)) {
    if (!(this->*ParsePart)(NodeReturn.vParts.emplace_back())) {
      return false;
    }
  }
  return true;
}

bool QueryParser::ParseDeeper(bool (QueryParser::*ParsePart)(QueryNode&), QueryNode& NodeReturn) {
  if (Depth == MaxQueryDepth) {
    return Fail(Ahead(), "parentheses and negations are nested deeper than " +
                             std::to_string(MaxQueryDepth));
  }
  ++Depth;
  const bool IsParsed = (this->*ParsePart)(NodeReturn);
  --Depth;
  return IsParsed;
}

bool QueryParser::Parse(QueryNode& TreeReturn) {
  if (!Broken.Message.empty() || !ParseDisjunction(TreeReturn)) {
    return false;
  }
  return Ahead().Kind == TokenKind::End || FailExpecting("\"and\", \"or\" or the end");
}

}  // namespace

bool ParseQuery(std::string_view Text, QueryNode& TreeReturn, QueryFault& FaultReturn) {
  QueryParser Parser(Text);
  TreeReturn = QueryNode();
  const bool IsParsed = Parser.Parse(TreeReturn);
  FaultReturn = Parser.Fault();
  return IsParsed;
}

}  // namespace Query
