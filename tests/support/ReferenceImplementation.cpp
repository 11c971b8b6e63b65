// Sections, in the order of the header: texts, lines, alignment strings, reading constraint texts,
// keeping constraints, print order.

#include "support/ReferenceImplementation.h"

#include <algorithm>
#include <cstdlib>
#include <regex>

using std::string_literals::operator""s;

namespace Reference {

namespace {

constexpr std::size_t None = std::string::npos;

const std::string Blanks = " \t\n\v\f\r";

bool IsBlank(char Byte) {
  return Blanks.find(Byte) != None;
}

bool IsDigit(char Byte) {
  return Byte >= '0' && Byte <= '9';
}

std::string Between(const std::string& Text, std::size_t Start, std::size_t End) {
  return End < Start ? "" : Text.substr(Start, End - Start);
}

/// The text without the bytes of a list at its front.
std::string WithoutFront(const std::string& Text, const std::string& Bytes) {
  const std::size_t Start = Text.find_first_not_of(Bytes);
  return Start == None ? "" : Text.substr(Start);
}

/// The text without the bytes of a list at its end.
std::string WithoutBack(const std::string& Text, const std::string& Bytes) {
  return Text.substr(0, Text.find_last_not_of(Bytes) + 1);
}

std::string Trimmed(const std::string& Text) {
  return WithoutTrailingSpace(WithoutLeadingSpace(Text));
}

}  // namespace

// ---- Texts ------------------------------------------------------------------------------------

bool Holds(const std::string& Text, const std::string& Part) {
  return Text.find(Part) != None;
}

std::string Upper(std::string Text) {
  const std::string Small = "abcdefghijklmnopqrstuvwxyz";
  for (char& Byte : Text) {
    const std::size_t Letter = Small.find(Byte);
    Byte = Letter == None ? Byte : "ABCDEFGHIJKLMNOPQRSTUVWXYZ"[Letter];
  }
  return Text;
}

Strings Pieces(const std::string& Text, const std::string& Delimiter) {
  Strings vsPieces;
  std::string Rest = Text;
  while (!Rest.empty()) {
    const std::string Piece = Rest.substr(0, Rest.find(Delimiter));
    if (!Piece.empty()) {
      vsPieces.push_back(Piece);
    }
    Rest = Piece.size() < Rest.size() ? Rest.substr(Piece.size() + Delimiter.size(), 100000) : "";
  }
  return vsPieces;
}

Strings TrimmedPieces(const std::string& Text, const std::string& Delimiter) {
  Strings vsPieces = Pieces(Text, Delimiter);
  for (std::string& sPiece : vsPieces) {
    while (!sPiece.empty() && IsBlank(sPiece.front())) {
      sPiece = sPiece.substr(1, 1000000);
    }
    sPiece = WithoutTrailingSpace(sPiece);
  }
  return vsPieces;
}

std::string WithoutLeadingSpace(std::string Text) {
  while (!Text.empty() && IsBlank(Text.front())) {
    Text = Text.size() == 1 ? "" : Text.substr(1, 100000);
  }
  return Text;
}

std::string WithoutTrailingSpace(std::string Text) {
  while (!Text.empty() && IsBlank(Text.back())) {
    Text.pop_back();
  }
  return Text;
}

std::string WithoutSpace(const std::string& Text) {
  std::string Kept;
  for (const char Byte : Text) {
    Kept += IsBlank(Byte) ? ""s : std::string(1, Byte);
  }
  return Kept;
}

std::string Replaced(std::string Text, const std::string& From, const std::string& To) {
  std::size_t Place = Text.find(From, 0);
  while (Place != None) {
    Text.replace(Place, From.size(), To);
    Place = Text.find(From, Place + To.size());
  }
  return Text;
}

// ---- Lines ------------------------------------------------------------------------------------

Strings MarksIn(const std::string& Text) {
  Strings vsMarks;
  for (const std::string& sMark : {";;"s, "{"s, "] -> ["s, "::"s, "="s}) {
    if (Holds(Text, sMark)) {
      vsMarks.push_back(sMark);
    }
  }
  return vsMarks;
}

std::size_t CommentBegin(const std::string& Line) {
  std::size_t Place = 0;
  while (Place < Line.size() && Line.substr(Place, 2) != ";;") {
    const std::size_t Quote = Line[Place] == '"' ? Line.find('"', Place + 1) : None;
    Place = (Quote == None ? Place : Quote) + 1;
  }
  return Place;
}

namespace {

/// The groups of a pattern that matches a whole text; groups without a match are empty.
std::optional<Strings> GroupsOf(const std::string& Text, const std::regex& Pattern) {
  std::smatch Match;
  if (!std::regex_match(Text, Match, Pattern)) {
    return std::nullopt;
  }
  return Strings(std::next(Match.begin()), Match.end());
}

const std::string NodePattern = "[xXyY][0-9]{1,9}";
const std::string WordPattern = "[-+_0-9A-Za-z]+";
const std::string FeaturePattern = WordPattern + "(?: " + WordPattern + ")*";

}  // namespace

std::optional<Strings> HeaderParts(const std::string& Line) {
  static const std::regex Pattern("\\{([-_0-9A-Za-z]+),([0-9]+)\\}");
  return GroupsOf(Line, Pattern);
}

std::optional<Strings> RuleLineParts(const std::string& Line) {
  static const std::string Type = "([^ \t\n\v\f\r\\[\\]{}:;=>]+)";
  static const std::string Labels =
      "\\[( *[^ \t\n\v\f\r\\[\\]{}:;=>][^\t\n\v\f\r\\[\\]{}:;=>]*)\\]";
  static const std::regex Pattern(Type + "::" + Type + "(?: :)? " + Labels + " -> " + Labels);
  return GroupsOf(Line, Pattern);
}

std::optional<Strings> AlignmentParts(const std::string& Line) {
  static const std::regex Pattern("\\([xX]([0-9]{1,9})::[yY]([0-9]{1,9})\\)");
  return GroupsOf(Line, Pattern);
}

std::optional<Strings> ConstraintParts(const std::string& Text) {
  const std::string Left = "\\(\\((" + NodePattern + ") (" + FeaturePattern + ")\\) = ";
  static const std::regex Value(Left + "(" + WordPattern + ")\\)");
  static const std::regex Marked(Left + "(\\(\\*([oO][rR]|[nN][oO][tT])\\* (" + "[-+_0-9A-Za-z ]*" +
                                 ")\\))\\)");
  static const std::regex Reference(Left + "(\\((" + NodePattern + ") (" + FeaturePattern +
                                    ")\\))\\)");
  static const std::regex Whole("\\((" + NodePattern + ") (==?) (" + NodePattern + ")\\)");
  static const std::regex WholeReference("\\((" + NodePattern + ") (==?) (\\((" + NodePattern +
                                         ") (" + FeaturePattern + ")\\))\\)");
  static const std::regex NodeAlone(NodePattern);
  if (const auto Found = GroupsOf(Text, Value)) {
    const std::string& Right = Found->at(2);
    const std::string RightNode = std::regex_match(Right, NodeAlone) ? Right : "";
    return Strings{Found->at(0), Found->at(1), "=", "value", Right, RightNode, "", Right};
  }
  if (const auto Found = GroupsOf(Text, Marked)) {
    const std::string Words = WithoutTrailingSpace(Found->at(4));
    const Strings vsParts{
        Found->at(0), Found->at(1), "=", Upper(Found->at(3)) == "OR" ? "or" : "not",
        Found->at(2), "",           "",  Words};
    return Words.empty() ? std::nullopt : std::optional(vsParts);
  }
  if (const auto Found = GroupsOf(Text, Reference)) {
    return Strings{Found->at(0), Found->at(1), "=",          "reference",
                   Found->at(2), Found->at(3), Found->at(4), ""};
  }
  if (const auto Found = GroupsOf(Text, Whole)) {
    const std::string& Right = Found->at(2);
    return Strings{Found->at(0), "", Found->at(1), "node", Right, Right, "", Right};
  }
  if (const auto Found = GroupsOf(Text, WholeReference)) {
    return Strings{Found->at(0), "",           Found->at(1), "reference",
                   Found->at(2), Found->at(3), Found->at(4), ""};
  }
  return std::nullopt;
}

// ---- Alignment strings ------------------------------------------------------------------------

namespace {

/// Splits the text between the outer parentheses, comma by comma.
Strings PairTexts(std::string Rest) {
  Strings vsPairs;
  std::size_t Comma = Rest.find(',');
  for (;;) {
    if (Rest.empty() || Comma == None) {
      if (Comma == None) {
        vsPairs.push_back(Rest);
      }
      return vsPairs;
    }
    const bool Inside = Comma != 0 && Comma != Rest.size() - 1;
    if (Inside && Rest[Comma - 1] == ')' && Rest[Comma + 1] == '(') {
      vsPairs.push_back(Rest.substr(0, Comma));
      Rest = Rest.substr(Comma + 1);
      Comma = Rest.find(',');
    } else if (Comma == Rest.size() - 1) {
      Rest = "";
    } else {
      Comma = Rest.find(',', Comma + 1);
    }
  }
}

/// Reads one index of a pair. If it is missing, records the side and leaves the index unchanged.
void ReadIndex(const std::string& Pair, const char* Ends, char Side, int& Index,
               std::string& Missing) {
  const std::size_t Start = Pair.find(Ends[0]);
  const std::size_t End = Pair.find(Ends[1]);
  if (Start == None || End == None || Start == Pair.size() - 1) {
    Missing += Side;
  } else {
    Index = std::atoi(Between(Pair, Start + 1, End).c_str());
  }
}

}  // namespace

Ordered Canonical(const std::string& Alignments) {
  if (Alignments.empty() || Alignments == "()") {
    return {Alignments, ""};
  }
  std::map<int, std::map<int, std::string>> mmsPairs;
  Ordered Result;
  int X = 0;
  int Y = 0;
  const std::string Inner =
      Alignments.size() > 2 ? Alignments.substr(1, Alignments.size() - 2) : "";
  for (const std::string& sPair : PairTexts(Inner)) {
    ReadIndex(sPair, "(,", 'x', X, Result.Missing);
    ReadIndex(sPair, ",)", 'y', Y, Result.Missing);
    mmsPairs[X].emplace(Y, sPair);
  }
  for (const auto& [KeyX, msPairs] : mmsPairs) {
    for (const auto& [KeyY, sPair] : msPairs) {
      Result.Text += (Result.Text.empty() ? "(" : "") + sPair + ',';
    }
  }
  if (!Result.Text.empty()) {
    Result.Text.back() = ')';
  }
  return Result;
}

bool IsOrdered(const std::string& Alignments) {
  return Alignments.size() > 2 && Canonical(Alignments) == Ordered{Alignments, ""};
}

TextPairs Displayed(std::string Rest) {
  TextPairs vPairs;
  for (;;) {
    const std::size_t Comma = Rest.find(',');
    if (Comma == None || Comma == Rest.size() - 1 || Rest[Comma + 1] == '(') {
      return vPairs;
    }
    const std::size_t Open = Rest.substr(0, Comma).rfind('(');
    const std::size_t Close = Rest.find(')');
    std::string X = Between(Rest, Open + 1, Comma);
    if (Open == None) {
      X = Close < Comma ? "" : Rest.substr(0, Comma);
    }
    vPairs.emplace_back(X,
                        Close == None ? Rest.substr(Comma + 1) : Between(Rest, Comma + 1, Close));
    Rest = Close == None || Close + 2 >= Rest.size() ? "" : Rest.substr(Close + 2);
  }
}

std::optional<std::string> Reversed(const std::string& Alignments) {
  if (Alignments.empty()) {
    return "";
  }
  std::string Result = "(";
  for (const std::string& sPair : TrimmedPieces(Alignments, "),(")) {
    const Strings vsSides = TrimmedPieces(WithoutBack(WithoutFront(sPair, "("), ")"), ",");
    if (vsSides.size() != 2) {
      return std::nullopt;
    }
    Result += '(' + vsSides[1] + ',' + vsSides[0] + "),";
  }
  if (Result.back() == ',') {
    Result.pop_back();
  }
  return Result + ')';
}

IntPairs IndexedPairs(const std::string& Text) {
  IntPairs vPairs;
  for (std::size_t Place = 0; Place < Text.size(); ++Place) {
    if (Text[Place] != '(' || Place == 0) {
      continue;
    }
    std::string X;
    std::string Y;
    for (++Place; Place < Text.size() && Text[Place] != ','; ++Place) {
      X += Text[Place];
    }
    for (++Place; Place < Text.size() && Text[Place] != ')'; ++Place) {
      Y += Text[Place];
    }
    if (Place < Text.size() && X.size() < 10 && Y.size() < 10) {
      vPairs.emplace_back(std::atoi(X.c_str()), std::atoi(Y.c_str()));
    }
  }
  return vPairs;
}

// ---- Reading constraint texts -----------------------------------------------------------------

namespace {

std::string UpToParenthesis(const std::string& Text) {
  const std::string Value = Text.substr(0, Text.find(')'));
  return Holds(Value, "*OR*") ? Value + ")" : Value;
}

/// Removes white space, except one blank after the name of a node.
std::string Compact(const std::string& Text) {
  std::string Result;
  for (std::size_t Position = 0; Position < Text.size(); ++Position) {
    const bool IsInside = Position > 0 && Position + 1 < Text.size();
    if (!IsBlank(Text[Position])) {
      Result += Text[Position];
    } else if (IsInside && IsDigit(Text[Position - 1]) && Text[Position + 1] != '=' &&
               Text[Position + 1] != '*') {
      Result += ' ';
    }
  }
  return Result;
}

/// Collects the constrained index up to the first blank, and returns the position of that blank.
std::size_t ReadNode(const std::string& Left, const std::string& Skipped, Constraint& Record) {
  std::string Number;
  std::size_t Position = 0;
  for (; Position < Left.size() && !IsBlank(Left[Position]); ++Position) {
    if (Skipped.find(Left[Position]) == None) {
      Number += Left[Position];
    }
  }
  Record.SetConstrainedIndex(std::atoi(Number.c_str()));
  return Position;
}

void ReadFeatureForm(const std::string& Left, const std::string& Right, const std::string& Written,
                     Constraint& Record) {
  if (Right.find("(X") == 0 || Right.find("(Y") == 0) {
    Record.SetValueConstraint(false);
    Record.SetFeatValue(Holds(Right, " ") ? Right.substr(0, Right.find(' ')) : "");
  } else if (Holds(Right, ")")) {
    Record.SetFeatValue(UpToParenthesis(Written));
  }
  if (Holds(Left, "(X")) {
    Record.SetCategory(1);
  } else if (Holds(Left, "(Y")) {
    const int Target = Holds(Left, "(Y0") ? 3 : 4;
    Record.SetCategory(Holds(Record.GetFeatValue(), "X") ? 2 : Target);
  }
  const std::size_t Scanned = ReadNode(Left, "(XY", Record);
  if (Scanned + 1 < Left.size()) {
    Record.SetFeature(Left.substr(Scanned + 1));
  }
}

void ReadWholeNodeForm(const Strings& vsSides, Constraint& Record) {
  if (vsSides.size() != 2) {
    return;
  }
  Record.SetValueConstraint(false);
  Record.SetFeature("all");
  Record.SetCategory(Holds(vsSides[0], "(X") ? 1 : Holds(vsSides[0], "(Y0") ? 3 : 4);
  ReadNode(vsSides[0], "(XY=", Record);
  if (Holds(vsSides[1], ")")) {
    Record.SetFeatValue(UpToParenthesis(vsSides[1]));
  }
}

/// Whether the text has two sides.
bool ReadSides(const std::string& Text, Constraint& Record) {
  const Strings vsWritten = Pieces(Text, "=");
  if (vsWritten.size() != 2) {
    return false;
  }
  const std::string Short = Compact(Text);
  const Strings vsForm = Pieces(Short, ")=");
  if (vsForm.size() == 2) {
    ReadFeatureForm(vsForm[0], vsForm[1], Trimmed(vsWritten[1]), Record);
  } else if (vsForm.size() == 1) {
    ReadWholeNodeForm(Pieces(Short, "="), Record);
  }
  return vsForm.size() == 1 || vsForm.size() == 2;
}

}  // namespace

Reading Read(const std::string& Text) {
  Reading Result;
  const std::string Capitals = Upper(Text);
  if (!ReadSides(Trimmed(Capitals), Result.Record)) {
    Result.Err = "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|" +
                 Capitals + "|\n";
  }
  return Result;
}

namespace {

/// Reads one ranked text, including the steps of an agreement.
class RankedReader {
 public:
  RankedReader(std::string TextPassIn, int RankPassIn, int CategoryPassIn)
      : Text(std::move(TextPassIn)), Rank(RankPassIn), Category(CategoryPassIn) {
    const Strings vsSides = TrimmedPieces(Text, " = ");
    if (vsSides.size() != 2) {
      Result.Err = PieceCountError();
    } else if (Holds(vsSides[1], "(X") || Holds(vsSides[1], "(Y")) {
      ReadAgreement();
    } else {
      ReadValue(vsSides[0], vsSides[1]);
    }
  }

  RankedReading Result;

 private:
  std::string PieceCountError() const {
    return "ERROR in TrRule::SetConstraint: Constraint does not have correct format:" + Text + '\n';
  }

  std::string IncorrectFormat() const {
    return "Constraint was not in correct format:" + Text + '\n';
  }

  void ReadAgreement() {
    if (Text.find('(') != Text.rfind('(')) {
      Result.Out =
          "Expected simple agreement consraint of the form (Xi = Xj), but got complex agreement "
          "constraint.\n";
      Result.Ended = true;
      return;
    }
    const std::string Start = Text.substr(0, Text.find(' '));
    const std::size_t Open = Start.find('(');
    const std::string Node = Open == None ? "" : Start.substr(Open + 1);
    const bool HasIndex = Holds(Text, " ") && Node.size() > 1 && (Node[0] == 'X' || Node[0] == 'Y');
    const std::size_t Close = Text.rfind(')');
    const std::string End = Close == None ? "" : Text.substr(0, Close);
    const bool HasValue = Holds(End, " ");
    for (const bool IsThere : {HasIndex, HasValue}) {
      Result.Out += IsThere ? "" : IncorrectFormat();
    }
    if (HasIndex && HasValue) {
      Result.Record = Constraint(Category, std::atoi(Node.substr(1).c_str()), "all",
                                 End.substr(End.rfind(' ') + 1), Rank, false);
    }
  }

  void ReadValue(const std::string& Left, const std::string& Right) {
    const Strings vsNode = TrimmedPieces(Left, " ");
    if (vsNode.size() != 2) {
      Result.Err = PieceCountError();
      return;
    }
    std::string Value = WithoutBack(WithoutFront(Right, Blanks), Blanks + ")");
    if (Holds(Right, "*OR*") || Holds(Right, "*NOT*")) {
      const std::size_t Open = Text.rfind('(');
      const std::string Rest = Open == None ? "" : Text.substr(Open);
      if (!Holds(Rest, ")")) {
        Result.Out = IncorrectFormat();
        return;
      }
      Value = Rest.substr(0, Rest.rfind(')'));
    }
    const std::string Node = WithoutBack(WithoutFront(vsNode[0], Blanks + "(XY"), Blanks);
    Result.Record =
        Constraint(Category, std::atoi(Node.c_str()),
                   WithoutBack(WithoutFront(vsNode[1], Blanks), Blanks + ")"), Value, Rank, true);
  }

  std::string Text;
  int Rank;
  int Category;
};

}  // namespace

RankedReading ReadRanked(const std::string& Text, int Rank, int Category) {
  return RankedReader(Text, Rank, Category).Result;
}

// ---- Keeping constraints ----------------------------------------------------------------------

std::string KeyPrefix(const Constraint& Record) {
  return std::to_string(Record.GetCategory()) + "__" +
         std::to_string(Record.GetConstrainedIndex()) + "__" + Record.GetFeature() + "__";
}

std::string MergedValue(const std::string& Old, const std::string& New) {
  std::set<std::string> ssTaken;
  std::string Both = "(*OR* ";
  for (const std::string& sValue : {Old, New}) {
    for (const std::string& sPiece : TrimmedPieces(sValue, " ")) {
      const std::string Word = Replaced(Replaced(sPiece, "(*OR*", ""), ")", "");
      if (!Word.empty() && ssTaken.insert(Word).second) {
        Both += Word + " ";
      }
    }
  }
  Both.pop_back();
  return Both + ")";
}

bool Store::Insert(Constraint New, std::string& OutReturn) {
  const std::string Prefix = KeyPrefix(New);
  if (Stored.count(Prefix + New.GetFeatValue()) > 0) {
    return false;
  }
  if (New.IsValueConstraint()) {
    Merge(New, Prefix, OutReturn);
  }
  Stored.insert({Prefix + New.GetFeatValue(), New});
  return true;
}

void Store::Merge(Constraint& NewReturn, const std::string& Prefix, std::string& OutReturn) {
  std::optional<std::string> Remembered;
  const std::map<std::string, Constraint> All = Stored;
  for (const auto& [Key, Entry] : All) {
    if (!Entry.IsValueConstraint()) {
      continue;
    }
    if (Remembered) {
      Stored.erase(*Remembered);
    }
    if (Key.find(Prefix) == 0) {
      Remembered = Key;
      const std::string Old = Entry.GetFeatValue();
      const std::string New = NewReturn.GetFeatValue();
      NewReturn.SetFeatValue(MergedValue(Old, New));
      OutReturn += "OldFeat:|" + Old + "|\nInsertFeat:|" + New + "|\nNewKey is now:" + Prefix +
                   NewReturn.GetFeatValue() + '\n';
    }
  }
  if (Remembered) {
    Stored.erase(*Remembered);
  }
}

std::optional<bool> Store::Erase(int Index, const std::string& Feature, const std::string& Value,
                                 const std::string& Agreed, const std::set<int>& siCategories) {
  for (const auto& [Key, Entry] : Stored) {
    if (Entry.GetConstrainedIndex() != Index || Entry.GetFeature() != Feature ||
        siCategories.count(Entry.GetCategory()) == 0) {
      continue;
    }
    if (Entry.GetFeatValue() != Value && Entry.GetFeatValue() != Agreed) {
      return std::nullopt;
    }
    Stored.erase(KeyPrefix(Entry) + (Value != "empty" ? Value : Agreed));
    return true;
  }
  return false;
}

void Store::EraseCategory(int Category) {
  std::map<std::string, Constraint> Left;
  for (const auto& [Key, Entry] : Stored) {
    if (Entry.GetCategory() != Category) {
      Left.insert({Key, Entry});
    }
  }
  Stored.swap(Left);
}

// ---- Print order ------------------------------------------------------------------------------

namespace {

using DependencyTable = std::map<int, std::set<int>>;

/// The other keys of the table that a key still waits for; none in category 2.
std::set<int> Pruned(const DependencyTable& Waiting, int Key, bool IsCategory2) {
  std::set<int> siLeft;
  for (const int Agreed : Waiting.at(Key)) {
    if (!IsCategory2 && Agreed != Key && Waiting.count(Agreed) > 0) {
      siLeft.insert(Agreed);
    }
  }
  return siLeft;
}

/// Orders constraints by passes over the three tables of their categories.
class PassesForPrint {
 public:
  explicit PassesForPrint(const std::vector<Constraint>& vConstraints) {
    for (const Constraint& Record : vConstraints) {
      if (Result.Message.empty()) {
        Add(Record);
      }
    }
    for (std::size_t Number = 0; Number < 3 && Result.Message.empty(); ++Number) {
      Resolve(Number);
    }
  }

  PrintOrder Result;

 private:
  void Add(const Constraint& Record) {
    if (Record.IsValueConstraint()) {
      Result.vsTexts.push_back(Record.ReturnAsString());
      return;
    }
    const int Agreed = Record.GetAgreedIndex(Record.GetFeatValue());
    if (Agreed == -1) {
      Result.Message =
          "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint " +
          Record.ReturnAsString();
      return;
    }
    if (Record.GetCategory() >= 1 && Record.GetCategory() <= 4) {
      const auto Number = static_cast<std::size_t>(std::min(Record.GetCategory(), 3) - 1);
      Tables[Number][Record.GetConstrainedIndex()].insert(Agreed);
      Groups[Number].insert({Record.GetConstrainedIndex(), Record});
    }
  }

  void Resolve(std::size_t Number) {
    const Strings vsNames = {"Category1", "Category2", "Category3and4"};
    DependencyTable& Waiting = Tables[Number];
    bool CouldProceed = true;
    while (!Waiting.empty() && CouldProceed) {
      CouldProceed = Pass(Number);
    }
    if (!Waiting.empty()) {
      Result.Message = "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve " +
                       vsNames[Number] + " order.";
    }
  }

  /// Removes the keys that wait for nothing. @return whether there were any
  bool Pass(std::size_t Number) {
    DependencyTable Left;
    bool CouldProceed = false;
    for (const auto& [Key, siAgreed] : Tables[Number]) {
      const std::set<int> siLeft = Pruned(Tables[Number], Key, Number == 1);
      if (!siLeft.empty()) {
        Left[Key] = siLeft;
        continue;
      }
      CouldProceed = true;
      const auto [First, Last] = Groups[Number].equal_range(Key);
      for (auto Entry = First; Entry != Last; ++Entry) {
        Result.vsTexts.push_back(Entry->second.ReturnAsString());
      }
    }
    Tables[Number] = Left;
    return CouldProceed;
  }

  std::vector<DependencyTable> Tables = std::vector<DependencyTable>(3);
  std::vector<std::multimap<int, Constraint>> Groups =
      std::vector<std::multimap<int, Constraint>>(3);
};

}  // namespace

PrintOrder OrderForPrint(const std::vector<Constraint>& vConstraints) {
  return PassesForPrint(vConstraints).Result;
}

}  // namespace Reference
