// Sections: words, comments, headers, rule lines, alignments, constraints.

#include "LineCorrections.h"

#include "Bytes.h"

#include <AlignmentLine.h>
#include <ConstraintFormat.h>
#include <HeaderLine.h>
#include <RuleLine.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace Grammar {

namespace {

// ---- Words ------------------------------------------------------------------------------------

using Words = std::vector<std::string>;

constexpr std::string_view Brackets = "()[]{}<>";

bool IsOneOf(std::string_view Bytes, char Byte) {
  return Bytes.find(Byte) != std::string_view::npos;
}

/// The pieces of a text between white space and the given bytes.
Words WordsOf(std::string_view Text, std::string_view Separators) {
  Words vsWords;
  std::string sWord;
  for (const char Byte : Text) {
    if (!IsSpace(Byte) && !IsOneOf(Separators, Byte)) {
      sWord += Byte;
    } else if (!sWord.empty()) {
      vsWords.push_back(std::move(sWord));
      sWord.clear();
    }
  }
  if (!sWord.empty()) {
    vsWords.push_back(std::move(sWord));
  }
  return vsWords;
}

std::string Joined(const Words& vsWords, std::size_t First = 0) {
  std::string Text;
  for (std::size_t Word = First; Word < vsWords.size(); ++Word) {
    Text.append(Word == First ? "" : " ").append(vsWords[Word]);
  }
  return Text;
}

/// Without bytes of a kind at its ends.
std::string_view Stripped(std::string_view Text, std::string_view Bytes) {
  while (!Text.empty() && (IsSpace(Text.front()) || IsOneOf(Bytes, Text.front()))) {
    Text.remove_prefix(1);
  }
  while (!Text.empty() && (IsSpace(Text.back()) || IsOneOf(Bytes, Text.back()))) {
    Text.remove_suffix(1);
  }
  return Text;
}

bool IsNumber(std::string_view Text) {
  constexpr std::size_t MaxDigits = 9;
  return !Text.empty() && Text.size() <= MaxDigits &&
         std::all_of(Text.begin(), Text.end(), IsDigit);
}

bool IsLetter(char Byte) {
  return ToUpper(Byte) >= 'A' && ToUpper(Byte) <= 'Z';
}

/// A digit, also for a letter that looks like one.
char AsDigit(char Byte) {
  return Byte == 'l' || Byte == 'I' || Byte == '|' ? '1' : Byte == 'O' || Byte == 'o' ? '0' : Byte;
}

/// "x1" for "x1" and "xl"; nothing if it is not a node.
std::string NodeIn(std::string_view Word) {
  if (Word.size() < 2 || (ToUpper(Word.front()) != 'X' && ToUpper(Word.front()) != 'Y')) {
    return "";
  }
  std::string Node(Word);
  std::transform(Node.begin() + 1, Node.end(), Node.begin() + 1, AsDigit);
  return IsNumber(std::string_view(Node).substr(1)) ? Node : "";
}

}  // namespace

// ---- Comments ---------------------------------------------------------------------------------

bool LooksLikeComment(std::string_view Text) {
  return !Text.empty() && (IsOneOf("#%;", Text.front()) || StartsWith(Text, "//") ||
                           StartsWith(Text, "--") || StartsWith(Text, "/*"));
}

std::string AsComment(std::string_view Text) {
  Text = LooksLikeComment(Text) ? Stripped(Text, "#%;/*-") : Trimmed(Text);
  return Text.empty() ? ";;" : ";; " + std::string(Text);
}

namespace {

/// A comment after a line, where there is text for one.
std::string WithComment(std::string Code, std::string_view After) {
  const std::string_view Text = Stripped(After, ";,.");
  return Text.empty() ? Code : Code.append(1, ' ').append(AsComment(Text));
}

}  // namespace

// ---- Headers ----------------------------------------------------------------------------------

namespace {

bool IsTypeName(std::string_view Text) {
  return !Text.empty() && IsLetter(Text.front()) &&
         std::none_of(Text.begin(), Text.end(),
                      [](char Byte) { return IsOneOf("()[]{}<>:=\"", Byte); });
}

/// "NP" and "8" for "NP8".
Words WithNumberApart(const std::string& sWord) {
  const auto Digits =
      std::find_if_not(sWord.rbegin(), sWord.rend(), IsDigit).base() - sWord.begin();
  const auto Size = static_cast<std::size_t>(Digits);
  return {sWord.substr(0, Size), sWord.substr(Size)};
}

}  // namespace

std::string CorrectedHeader(std::string_view Code) {
  const std::string_view Inside = Stripped(Code, Brackets);
  Words vsWords = WordsOf(Inside, ",;:.|/+");
  if (vsWords.size() == 1) {
    vsWords = WithNumberApart(vsWords[0]);
  }
  if (vsWords.size() != 2) {
    return "";
  }
  if (IsNumber(vsWords[0])) {
    std::swap(vsWords[0], vsWords[1]);
  }
  if (!IsTypeName(vsWords[0]) || !IsNumber(vsWords[1])) {
    return "";
  }
  const std::string Corrected = '{' + vsWords[0] + ',' + vsWords[1] + '}';
  return TrRuleInternal::ParseHeader(Corrected) ? Corrected : "";
}

// ---- Rule lines -------------------------------------------------------------------------------

namespace {

constexpr std::size_t None = std::string_view::npos;

/// The first of some bytes that is not in double quotes.
std::size_t FindOutsideQuotes(std::string_view Text, std::string_view Bytes) {
  std::size_t QuotesEnd = 0;
  for (std::size_t At = 0; At < Text.size(); ++At) {
    if (Text[At] == '"' && At >= QuotesEnd) {
      QuotesEnd = Text.find('"', At + 1) + 1;
    } else if (At >= QuotesEnd && IsOneOf(Bytes, Text[At])) {
      return At;
    }
  }
  return None;
}

/// Whether one sequence ends and another one begins within a text: "] [".
std::string_view GapIn(std::string_view Code) {
  const std::size_t Close = FindOutsideQuotes(Code, "]");
  if (Close == None) {
    return {};
  }
  const std::size_t Open = Code.find('[', Close);
  return Open != None && Trimmed(Code.substr(Close + 1, Open - Close - 1)).empty()
             ? Code.substr(Close, Open + 1 - Close)
             : std::string_view();
}

/// The bytes of an arrow: some signs, and the blanks among them, that end in ">", or "<-".
std::string_view SignIn(std::string_view Code) {
  const std::size_t Head = FindOutsideQuotes(Code, ">");
  if (Head == None) {
    const std::size_t Back = Code.find("<-");
    return Back == None ? std::string_view() : Code.substr(Back, 2);
  }
  std::size_t Start = Head;
  while (Start > 0 && (IsOneOf("-=<~", Code[Start - 1]) || IsSpace(Code[Start - 1]))) {
    --Start;
  }
  std::size_t End = Head + 1;
  while (End < Code.size() && (Code[End] == '>' || IsSpace(Code[End]))) {
    ++End;
  }
  return Code.substr(Start, End - Start);
}

/// A rule line in pieces: "NP::NP", ":", "[DET N]" and "[N DET]".
struct SequencePieces {
  std::string SLType;
  std::string TLType;
  bool HasColon = false;
  std::string_view SLSide;
  std::string_view TLSide;
};

/// Takes a type off the front of a text.
std::string TakeType(std::string_view& RestReturn) {
  RestReturn = WithoutLeadingSpace(RestReturn);
  std::size_t Size = 0;
  while (Size < RestReturn.size() && !IsSpace(RestReturn[Size]) &&
         !IsOneOf(":[](){}<>\",;=", RestReturn[Size])) {
    ++Size;
  }
  std::string Type(RestReturn.substr(0, Size));
  RestReturn = WithoutLeadingSpace(RestReturn.substr(Size));
  return Type;
}

bool TakeColons(std::string_view& RestReturn) {
  const std::string_view Before = RestReturn;
  while (!RestReturn.empty() && (RestReturn.front() == ':' || RestReturn.front() == '=')) {
    RestReturn.remove_prefix(1);
  }
  const bool AreThere = Before.size() != RestReturn.size();
  RestReturn = WithoutLeadingSpace(RestReturn);
  return AreThere;
}

/// Types = SLType colons TLType [ colons ]
bool TakeTypes(std::string_view& RestReturn, SequencePieces& PiecesReturn) {
  PiecesReturn.SLType = TakeType(RestReturn);
  if (PiecesReturn.SLType.empty() || !TakeColons(RestReturn)) {
    return false;
  }
  PiecesReturn.TLType = TakeType(RestReturn);
  PiecesReturn.HasColon = TakeColons(RestReturn);
  return !PiecesReturn.TLType.empty();
}

/// A label, with double quotes at both ends where it has one at either, or single ones at both.
std::string CorrectedLabel(const std::string& sLabel) {
  const bool Begins = sLabel.front() == '"';
  const bool Ends = sLabel.back() == '"';
  if (Begins && Ends) {
    return sLabel.size() > 1 ? sLabel : "";
  }
  if (sLabel.size() > 2 && sLabel.front() == '\'' && sLabel.back() == '\'') {
    return '"' + sLabel.substr(1, sLabel.size() - 2) + '"';
  }
  return (Ends ? "\"" : "") + sLabel + (Begins ? "\"" : "");
}

/// "[DET N]" for a sequence with other brackets, or with commas or tabs between its labels; after
/// its last bracket, nothing may stand.
std::string CorrectedSide(std::string_view Side) {
  const Words vsLabels = WordsOf(Stripped(Side, Brackets), "");
  std::string Labels;
  for (const std::string& sPiece : vsLabels) {
    const bool IsQuoted = sPiece.size() > 1 && sPiece.front() == '"' && sPiece.back() == '"';
    for (const std::string& sLabel : IsQuoted ? Words{sPiece} : WordsOf(sPiece, ",;")) {
      const std::string sCorrected = CorrectedLabel(sLabel);
      if (sCorrected.empty() || (!IsQuoted && FindOutsideQuotes(sCorrected, Brackets) != None)) {
        return "";
      }
      Labels.append(Labels.empty() ? "" : " ").append(sCorrected);
    }
  }
  return Labels.empty() ? "" : '[' + Labels + ']';
}

/// The text after the brackets of a target side.
std::string_view TakeAfter(std::string_view& SideReturn) {
  const std::size_t Close = SideReturn.find_last_of("])}");
  if (Close == None || SideReturn.find('"', Close) != None) {
    return {};
  }
  const std::string_view After = SideReturn.substr(Close + 1);
  SideReturn = SideReturn.substr(0, Close + 1);
  return After;
}

}  // namespace

std::string_view ArrowIn(std::string_view Code) {
  const std::string_view Sign = SignIn(Code);
  return Sign.empty() ? GapIn(Code) : Sign;
}

bool LooksLikeSequence(std::string_view Code) {
  if (Code.empty() || Code.front() == '(') {
    return false;
  }
  const bool HasBracket = Code.find_first_of("[]{}(") != None;
  const bool HasTypes = Contains(Code, "::");
  const bool HasArrow = !SignIn(Code).empty();
  return (!GapIn(Code).empty() || (HasArrow && (HasBracket || HasTypes))) &&
         CorrectedAlignment(Code).empty();
}

std::string CorrectedSequence(std::string_view Code) {
  SequencePieces Pieces;
  std::string_view Rest = Code;
  if (!TakeTypes(Rest, Pieces)) {
    return "";
  }
  const std::string_view Arrow = ArrowIn(Rest);
  if (Arrow.empty() || Contains(Arrow, "<")) {
    return "";
  }
  const std::size_t Start = OffsetIn(Rest, Arrow);
  Pieces.SLSide = Rest.substr(0, Start);
  Pieces.TLSide = Rest.substr(Start + Arrow.size());
  const std::string_view After = TakeAfter(Pieces.TLSide);
  std::string Corrected = Pieces.SLType + "::" + Pieces.TLType + (Pieces.HasColon ? " : " : " ");
  const std::string SLSide = CorrectedSide(Pieces.SLSide);
  const std::string TLSide = CorrectedSide(Pieces.TLSide);
  Corrected.append(SLSide).append(" -> ").append(TLSide);
  TrRuleInternal::RuleLineParts Parts;
  if (SLSide.empty() || TLSide.empty() || !Contains(Corrected, "] -> [") ||
      TrRuleInternal::ParseRuleLine(Corrected, Parts) != TrRuleInternal::RuleLineFault::None) {
    return "";
  }
  return WithComment(Corrected, After);
}

// ---- Alignments -------------------------------------------------------------------------------

std::string CorrectedAlignment(std::string_view Code) {
  // The text after the parenthesis is reported apart, and becomes a comment.
  const std::size_t Close = Code.find(')');
  const std::string_view Pair = Code.substr(0, Close);
  const std::string_view After = Close == None ? "" : Stripped(Code.substr(Close), ")] ");
  if (Contains(After, "::")) {
    return "";
  }
  std::string X;
  std::string Y;
  Words vsWords = WordsOf(Pair, "()[]{}<>:;,-=~/&\"'");
  if (vsWords.size() == 3 && (vsWords[0] == "*" || vsWords[0].back() == '.')) {
    vsWords.erase(vsWords.begin());
  }
  if (vsWords.size() != 2) {
    return "";
  }
  if (IsNumber(vsWords[0]) && IsNumber(vsWords[1]) && Contains(Code, "::")) {
    vsWords = {'X' + vsWords[0], 'Y' + vsWords[1]};
  }
  for (const std::string& sWord : vsWords) {
    const std::string Node = Upper(NodeIn(sWord));
    (Node.empty() || Node.front() == 'X' ? X : Y) = Node;
  }
  if (X.empty() || Y.empty()) {
    return "";
  }
  const std::string Corrected = '(' + X + "::" + Y + ')';
  return TrRuleInternal::ParseAlignment(Corrected) ? WithComment(Corrected, After) : "";
}

// ---- Constraints ------------------------------------------------------------------------------

namespace {

bool IsConstraint(std::string_view Code) {
  TrRuleInternal::ConstraintStop Stop;
  return TrRuleInternal::ParseConstraint(Code, Stop).has_value();
}

/// The text with the parentheses that it lacks at its ends, if they make it readable.
std::string WithParentheses(std::string_view Code) {
  const std::string Text(Code);
  for (std::string& sTried :
       Words{Text, Text + ')', '(' + Text, '(' + Text + ')', "((" + Text + ")"}) {
    if (IsConstraint(sTried)) {
      return std::move(sTried);
    }
  }
  return "";
}

/// Cuts off the text after the parenthesis that closes a constraint.
std::string_view TakeAfterParentheses(std::string_view& CodeReturn) {
  int Depth = 0;
  for (std::size_t At = 0; At < CodeReturn.size(); ++At) {
    Depth += CodeReturn[At] == '(' ? 1 : CodeReturn[At] == ')' ? -1 : 0;
    if (Depth == 0 && CodeReturn[At] == ')') {
      const std::string_view After = CodeReturn.substr(At + 1);
      if (After.find_first_of("()=") != None) {
        return {};
      }
      CodeReturn = CodeReturn.substr(0, At + 1);
      return After;
    }
  }
  return {};
}

/// Where one side ends and the other begins: at a sign, or between two parentheses or two words.
bool CutAtSign(std::string_view Code, std::string_view& LeftReturn, std::string_view& RightReturn) {
  constexpr std::string_view Signs = "=:->";
  std::size_t Start = Code.find('=');
  if (Start == None) {
    Start = Code.find("->");
  }
  if (Start == None) {
    Start = Code.find(':');
  }
  if (Start == None) {
    const std::size_t Inside = Code.find_first_not_of("( ");
    Start = Inside == None ? None : Code.find(StartsWith(Code, "((") ? ')' : ' ', Inside);
    LeftReturn = Code.substr(0, Start);
    RightReturn = Start == None ? std::string_view() : Code.substr(Start + 1);
    return Start != None;
  }
  std::size_t End = Start;
  while (End < Code.size() && IsOneOf(Signs, Code[End])) {
    ++End;
  }
  while (Start > 0 && IsOneOf(Signs, Code[Start - 1])) {
    --Start;
  }
  LeftReturn = Code.substr(0, Start);
  RightReturn = Code.substr(End);
  return RightReturn.find('=') == None;
}

/// Left = "(" Node | "((" Node blank Feature ")"
std::string CorrectedLeft(std::string_view Left) {
  const Words vsWords = WordsOf(Left, "()[].:");
  const std::string Node = vsWords.empty() ? "" : NodeIn(vsWords[0]);
  if (Node.empty()) {
    return "";
  }
  return vsWords.size() == 1 ? '(' + Node : "((" + Node + ' ' + Joined(vsWords, 1) + ')';
}

bool IsWordOr(std::string_view Word) {
  const std::string Capitals = Upper(Word);
  return Capitals == "*OR*" || Capitals == "OR" || Capitals == "*OR" || Capitals == "OR*";
}

/// Right = Node | "(" Node blank Feature ")" | Word | "(*OR*" Words ")"
std::string CorrectedRight(std::string_view Right) {
  const Words vsWords = WordsOf(Right, "()");
  if (vsWords.empty()) {
    return "";
  }
  const std::string Node = NodeIn(vsWords[0]);
  if (vsWords.size() == 1) {
    return Node.empty() ? vsWords[0] : Node;
  }
  if (IsWordOr(vsWords[0])) {
    return "(*OR* " + Joined(vsWords, 1) + ')';
  }
  return Node.empty() ? "" : '(' + Node + ' ' + Joined(vsWords, 1) + ')';
}

/// Without "1. " or "- " in front of the first parenthesis.
std::string_view WithoutMarker(std::string_view Code) {
  const std::size_t Open = Code.find('(');
  if (Open == None || Open == 0) {
    return Code;
  }
  const std::string_view Before = Trimmed(Code.substr(0, Open));
  const bool IsMarker = Before == "-" || Before == "*" || Before == "+" || Before.back() == '.' ||
                        Before.back() == ':';
  return IsMarker && Before.find_first_of("xXyY=") == None ? Code.substr(Open) : Code;
}

}  // namespace

std::string CorrectedConstraint(std::string_view Code) {
  std::string_view Text = WithoutMarker(Code);
  const std::string_view After = TakeAfterParentheses(Text);
  std::string Corrected = WithParentheses(Text);
  if (Corrected.empty()) {
    std::string_view Left;
    std::string_view Right;
    if (Text.find_first_of("!~\"|") != None || !CutAtSign(Text, Left, Right)) {
      return "";
    }
    Corrected = CorrectedLeft(Left);
    const std::string Other = CorrectedRight(Stripped(Right, ";,."));
    Corrected.append(" = ").append(Other).append(")");
    if (Corrected.front() != '(' || Other.empty() || !IsConstraint(Corrected)) {
      return "";
    }
  }
  return WithComment(Corrected, After);
}

}  // namespace Grammar
