#include "ConstraintFormat.h"

#include "Ascii.h"
#include "Splitter.h"

namespace TrRuleInternal {

namespace {

/// Reads a text from left to right. Each step takes something off the front, or fails.
class Scanner {
 public:
  explicit Scanner(std::string_view TextPassIn) : Rest(TextPassIn) {}

  std::string_view Remaining() const { return Rest; }

  std::string_view TakeSpace() { return TakeWhile(IsSpace); }

  bool Take(char Byte) {
    if (Rest.empty() || Rest.front() != Byte) {
      return false;
    }
    Rest.remove_prefix(1);
    return true;
  }

  bool TakeWord(std::string_view Capitals) {
    if (Rest.size() < Capitals.size()) {
      return false;
    }
    for (std::size_t Position = 0; Position < Capitals.size(); ++Position) {
      if (ToUpper(Rest[Position]) != Capitals[Position]) {
        return false;
      }
    }
    Rest.remove_prefix(Capitals.size());
    return true;
  }

  template <typename WantedT>
  std::string_view TakeWhile(WantedT Wanted) {
    std::size_t Size = 0;
    while (Size < Rest.size() && Wanted(Rest[Size])) {
      ++Size;
    }
    const std::string_view Taken = Rest.substr(0, Size);
    Rest.remove_prefix(Size);
    return Taken;
  }

  /// Node = ( "x" | "y" ) Digit { Digit }
  bool TakeNode(NodeText& NodeReturn) {
    constexpr std::size_t MaxDigits = 9;
    const std::string_view Before = Rest;
    NodeReturn.Side = Rest.empty() ? ' ' : ToUpper(Rest.front());
    if (NodeReturn.Side != 'X' && NodeReturn.Side != 'Y') {
      return false;
    }
    Rest.remove_prefix(1);
    const std::string_view Digits = TakeWhile(IsDigit);
    if (Digits.empty() || Digits.size() > MaxDigits) {
      Rest = Before;
      return false;
    }
    NodeReturn.Index = 0;
    for (const char Digit : Digits) {
      NodeReturn.Index = NodeReturn.Index * 10 + (Digit - '0');
    }
    NodeReturn.Text = Before.substr(0, Digits.size() + 1);
    return true;
  }

  void GoBackTo(std::string_view Earlier) { Rest = Earlier; }

  /// Records what is expected next.
  /// @return false, for the failed step
  bool Expect(std::string_view What) {
    Missing = What;
    return false;
  }

  std::string_view Expected() const { return Missing; }

 private:
  std::string_view Rest;
  std::string_view Missing;
};

bool IsValueByte(char Byte) {
  return Byte != '(' && Byte != ')' && Byte != '=';
}

bool IsFeatureByte(char Byte) {
  return IsValueByte(Byte);
}

/// The words of a disjunction may come from a merging with a negation.
bool IsWordsByte(char Byte) {
  return Byte != ')' && Byte != '=';
}

bool IsEquals(char Byte) {
  return Byte == '=';
}

/// The part of `Before` that the scanner has taken.
std::string_view Between(std::string_view Before, const Scanner& After) {
  return Before.substr(0, Before.size() - After.Remaining().size());
}

/// Whether the text after a node is a feature. The library would drop the blank before a "*".
bool IsFeature(std::string_view Blank, std::string_view Feature) {
  return !Blank.empty() && !Feature.empty() && Feature.front() != '*';
}

constexpr std::string_view OpenParenthesis = "\"(\"";
constexpr std::string_view CloseParenthesis = "\")\"";
constexpr std::string_view EqualsSign = "\"=\"";
constexpr std::string_view NodeName = "a node such as x1 or y2";
constexpr std::string_view FeatureName = "a blank and a feature";
constexpr std::string_view RightSide = "a value or a node";
constexpr std::string_view InsideRight = "a node and a feature, or *OR* or *NOT* and words";
constexpr std::string_view ListWords = "a blank and words";
constexpr std::string_view TheEnd = "the end";

/// Left = "((" Node blank Feature ")" | "(" Node
bool TakeLeft(Scanner& ScanReturn, ConstraintParts& PartsReturn) {
  ScanReturn.TakeSpace();
  if (!ScanReturn.Take('(')) {
    return ScanReturn.Expect(OpenParenthesis);
  }
  ScanReturn.TakeSpace();
  PartsReturn.IsWholeNode = !ScanReturn.Take('(');
  ScanReturn.TakeSpace();
  if (!ScanReturn.TakeNode(PartsReturn.Left)) {
    return ScanReturn.Expect(NodeName);
  }
  const std::string_view Blank = ScanReturn.TakeSpace();
  if (PartsReturn.IsWholeNode) {
    return true;
  }
  PartsReturn.Feature = TrimmedField(ScanReturn.TakeWhile(IsFeatureByte));
  if (!IsFeature(Blank, PartsReturn.Feature)) {
    return ScanReturn.Expect(FeatureName);
  }
  return ScanReturn.Take(')') || ScanReturn.Expect(CloseParenthesis);
}

/// Reference = "(" Node [ blank Feature ] ")"
bool TakeReference(Scanner& ScanReturn, ConstraintParts& PartsReturn) {
  NodeText Node;
  ScanReturn.TakeSpace();
  if (!ScanReturn.TakeNode(Node)) {
    return false;
  }
  const std::string_view Blank = ScanReturn.TakeSpace();
  PartsReturn.RightFeature = TrimmedField(ScanReturn.TakeWhile(IsFeatureByte));
  if (!IsFeature(Blank, PartsReturn.RightFeature) || !ScanReturn.Take(')')) {
    return false;
  }
  PartsReturn.Kind = RightKind::Reference;
  PartsReturn.RightNode = Node;
  return true;
}

/// "*OR*" blank Word { blank Word } ")", and the same with "*NOT*"
bool TakeWords(Scanner& ScanReturn, ConstraintParts& PartsReturn) {
  if (ScanReturn.TakeWord("*OR*")) {
    PartsReturn.Kind = RightKind::Or;
  } else if (ScanReturn.TakeWord("*NOT*")) {
    PartsReturn.Kind = RightKind::Not;
  } else {
    return ScanReturn.Expect(InsideRight);
  }
  const std::string_view Blank = ScanReturn.TakeSpace();
  PartsReturn.Value = WithoutTrailingSpace(ScanReturn.TakeWhile(IsWordsByte));
  if (Blank.empty() || PartsReturn.Value.empty()) {
    return ScanReturn.Expect(ListWords);
  }
  return ScanReturn.Take(')') || ScanReturn.Expect(CloseParenthesis);
}

/// Right = Node | Reference | Value
bool TakeRight(Scanner& ScanReturn, ConstraintParts& PartsReturn) {
  const std::string_view Before = ScanReturn.Remaining();
  if (ScanReturn.Take('(')) {
    const std::string_view Inner = ScanReturn.Remaining();
    bool IsRead = true;
    if (!TakeReference(ScanReturn, PartsReturn)) {
      ScanReturn.GoBackTo(Inner);
      IsRead = TakeWords(ScanReturn, PartsReturn);
    }
    PartsReturn.Right = Between(Before, ScanReturn);
    return IsRead;
  }
  const std::string_view All = ScanReturn.TakeWhile(IsValueByte);
  PartsReturn.Value = WithoutTrailingSpace(All);
  PartsReturn.Right = PartsReturn.Value;
  Scanner Inside(PartsReturn.Value);
  NodeText Node;
  if (Inside.TakeNode(Node) && Inside.Remaining().empty()) {
    PartsReturn.RightNode = Node;
    PartsReturn.Kind = PartsReturn.IsWholeNode ? RightKind::Node : RightKind::Value;
    PartsReturn.SpaceAfterNode = All.substr(Node.Text.size());
  }
  return !PartsReturn.Value.empty() || ScanReturn.Expect(RightSide);
}

bool TakeAll(Scanner& ScanReturn, ConstraintParts& PartsReturn) {
  if (!TakeLeft(ScanReturn, PartsReturn)) {
    return false;
  }
  ScanReturn.TakeSpace();
  PartsReturn.Equals = ScanReturn.TakeWhile(IsEquals);
  ScanReturn.TakeSpace();
  if (PartsReturn.Equals.empty()) {
    return ScanReturn.Expect(EqualsSign);
  }
  if (!TakeRight(ScanReturn, PartsReturn)) {
    return false;
  }
  // A reference and a negation may lack the parenthesis that the library does not write.
  ScanReturn.TakeSpace();
  const bool MayLackOne =
      PartsReturn.Kind == RightKind::Reference || PartsReturn.Kind == RightKind::Not;
  if (!ScanReturn.Take(')') && !MayLackOne) {
    return ScanReturn.Expect(CloseParenthesis);
  }
  // Further parentheses close the body of the rule.
  ScanReturn.TakeWhile([](char Byte) { return IsSpace(Byte) || Byte == ')'; });
  return ScanReturn.Remaining().empty() || ScanReturn.Expect(TheEnd);
}

}  // namespace

std::optional<ConstraintParts> ParseConstraint(std::string_view Text, ConstraintStop& StopReturn) {
  std::optional<ConstraintParts> Parts(std::in_place);
  if (ParseCommonForm(Text, *Parts)) {
    return Parts;
  }
  Scanner Scan(Text);
  Parts.emplace();
  if (!TakeAll(Scan, *Parts)) {
    StopReturn = {Text.size() - Scan.Remaining().size(), Scan.Expected()};
    Parts.reset();
  }
  return Parts;
}

bool IsMistakenForValue(const ConstraintParts& Parts) {
  return Parts.Equals.size() > 1 && !Parts.IsWholeNode && Parts.Kind == RightKind::Reference;
}

std::string ForLibrary(std::string_view Text, const ConstraintParts& Parts) {
  std::string Result(Text);
  if (IsMistakenForValue(Parts)) {
    const auto Equals = static_cast<std::size_t>(Parts.Equals.data() - Text.data());
    Result.erase(Equals, Parts.Equals.size() - 1);
  }
  return Result;
}

}  // namespace TrRuleInternal
