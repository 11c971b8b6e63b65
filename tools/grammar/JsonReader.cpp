// Sections: parsing, comments and header, alignments and constraints, the rule, what is lost, any
// object, objects as they are written, the line.

#include "JsonReader.h"

#include "Bytes.h"
#include "HeaderText.h"
#include "JsonEvents.h"
#include "JsonMatcher.h"
#include "JsonMember.h"
#include "JsonText.h"
#include "NormalForm.h"
#include "RuleJson.h"

#include <Constraint.h>
#include <Splitter.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <utility>

namespace Grammar {

// ---- Parsing ----------------------------------------------------------------------------------

namespace {

using Strings = std::vector<std::string>;

/// The object of a line, parsed in a copy of it.
class ParsedLine {
 public:
  explicit ParsedLine(std::string_view Line) : Text(Line) {
    Parse();
    std::size_t Bad = Parsed.HasParseError() ? Parsed.GetErrorOffset() : Line.size();
    // The parser takes the first NUL for the end, and any byte for a part of a text.
    Bad = std::min({Bad, Line.find('\0'), Utf8Size(Line)});
    if (Bad < Line.size() || Parsed.HasParseError()) {
      throw JsonProblem("not JSON, from byte " + std::to_string(Bad + 1) + " on");
    }
    if (!Parsed.IsObject()) {
      throw JsonProblem("should be an object");
    }
  }

  const Json& Object() const { return Parsed; }

 private:
  /// The recursive parser is quicker, but needs stack for each level; there are no more levels than
  /// bytes.
  void Parse() {
    constexpr std::size_t MaxLevels = 4096;
    constexpr unsigned Recursive = rapidjson::kParseInsituFlag;
    constexpr unsigned Iterative = Recursive | rapidjson::kParseIterativeFlag;
    if (Text.size() <= MaxLevels) {
      Parsed.ParseInsitu<Recursive>(Text.data());
    } else {
      Parsed.ParseInsitu<Iterative>(Text.data());
    }
  }

  std::string Text;
  rapidjson::Document Parsed;
};

// ---- Comments and header ----------------------------------------------------------------------

/// Makes a comment say what a member says, if it does not yet.
/// @param IsSaid reads the text after the label
/// @param Write gives what should stand there
template <typename IsSaidT, typename WriteT>
void SetCommentTo(std::string_view Label, IsSaidT IsSaid, WriteT Write, Strings& vsCommentsReturn) {
  std::string_view Rest;
  const auto Found = FindLabel(vsCommentsReturn, Label, Rest);
  const auto Place = static_cast<std::size_t>(Found - vsCommentsReturn.begin());
  const bool IsThere = Found != vsCommentsReturn.end();
  if (IsThere ? IsSaid(Rest) : IsSaid(std::string_view())) {
    return;
  }
  std::string sComment = std::string(";;").append(Label).append(Write());
  if (IsThere) {
    vsCommentsReturn[Place] = std::move(sComment);
  } else {
    vsCommentsReturn.push_back(std::move(sComment));
  }
}

bool IsInCapitals(std::string_view Written, std::string_view Capitals) {
  return std::equal(Written.begin(), Written.end(), Capitals.begin(), Capitals.end(),
                    [](char Byte, char Capital) { return ToUpper(Byte) == Capital; });
}

/// Whether the library reads these words from a comment.
bool AreWordsOf(const JsonMember& Words, std::string_view Sentence) {
  TrRuleInternal::Splitter Pieces(Sentence, " ");
  std::string_view Piece;
  bool AreSame = true;
  Words.ForEachLine([&](std::string_view Word) {
    AreSame =
        AreSame && Pieces.Next(Piece) && IsInCapitals(TrRuleInternal::TrimmedField(Piece), Word);
  });
  return AreSame && !Pieces.Next(Piece);
}

void SetCommentToWords(const Json& Object, const char* Name, std::string_view Label,
                       Strings& vsCommentsReturn) {
  const JsonMember Words(Object, Name);
  if (Words.IsMissing()) {
    return;
  }
  const auto IsSaid = [&](std::string_view Sentence) { return AreWordsOf(Words, Sentence); };
  const auto Write = [&] {
    std::string Sentence;
    Words.ForEachLine([&](std::string_view Word) { Sentence.append(1, ' ').append(Word); });
    return Sentence;
  };
  SetCommentTo(Label, IsSaid, Write, vsCommentsReturn);
}

void SetCommentToStructure(const Json& Object, Strings& vsCommentsReturn) {
  const JsonMember Given(Object, "cStructure");
  if (!Given.IsMissing()) {
    std::string Structure = Given.AsLine();
    const auto IsSaid = [&](std::string_view Rest) { return Rest == Structure; };
    SetCommentTo(
        "C-Structure:", IsSaid, [&] { return Structure; }, vsCommentsReturn);
  }
}

Strings CommentsFrom(const Json& Object) {
  Strings vsComments = JsonMember(Object, "comments").AsLines();
  SetCommentToWords(Object, "slWords", "SL:", vsComments);
  SetCommentToWords(Object, "tlWords", "TL:", vsComments);
  SetCommentToStructure(Object, vsComments);
  const int Count = JsonMember(Object, "count").AsNumber(1);
  // A count that no comment can hold is reported by its member, as all that is lost.
  if (Count != CountIn(vsComments) && Count > 0) {
    RuleRecord Head;
    Head.SetComments(std::move(vsComments));
    Head.SetCount(Count);
    return Head.Comments();
  }
  return vsComments;
}

RuleHeader HeaderFrom(const Json& Object) {
  constexpr int NoNumber = -1;
  RuleHeader Header;
  const Json* const Given = JsonMember(Object, "header").AsObject();
  if (Given == nullptr) {
    return Header;
  }
  Header.IsPresent = true;
  Header.IsReadable = JsonMember(*Given, "text").IsMissing();
  Header.Type = JsonMember(*Given, Header.IsReadable ? "type" : "text").AsLine();
  if (Header.IsReadable) {
    Header.Number = std::to_string(JsonMember(Object, "ruleIndex").AsNumber(NoNumber));
  }
  return Header;
}

// ---- Alignments and constraints ---------------------------------------------------------------

bool TakeSign(char Sign, std::string_view& TextReturn) {
  const bool IsThere = !TextReturn.empty() && TextReturn.front() == Sign;
  TextReturn.remove_prefix(IsThere ? 1 : 0);
  return IsThere;
}

/// Takes digits, maybe none, off the front of a text.
std::string_view TakeDigits(std::string_view& TextReturn) {
  const auto* const End = std::find_if_not(TextReturn.begin(), TextReturn.end(), IsDigit);
  const auto Digits = TextReturn.substr(0, static_cast<std::size_t>(End - TextReturn.begin()));
  TextReturn.remove_prefix(Digits.size());
  return Digits;
}

// Pair = "(" Digits "," Digits ")"
bool AppendPair(std::string_view& TextReturn, std::string& LinesReturn) {
  const bool HasOpen = TakeSign('(', TextReturn);
  const std::string_view X = TakeDigits(TextReturn);
  const bool HasComma = TakeSign(',', TextReturn);
  const std::string_view Y = TakeDigits(TextReturn);
  LinesReturn.append("(X").append(X).append("::Y").append(Y).append(")\n");
  return HasOpen && HasComma && TakeSign(')', TextReturn) && !X.empty() && !Y.empty();
}

// Pairs = "(" Pair { "," Pair } ")"
bool AppendPairs(std::string_view Text, std::string& LinesReturn) {
  bool IsRead = TakeSign('(', Text);
  do {
    IsRead = IsRead && AppendPair(Text, LinesReturn);
  } while (IsRead && TakeSign(',', Text));
  return IsRead && Text == ")";
}

void AppendAlignments(const Json& Object, std::string& LinesReturn) {
  const std::string Text = JsonMember(Object, "alignments").AsText();
  if (!Text.empty() && !AppendPairs(Text, LinesReturn)) {
    throw JsonProblem("alignments: should be a text such as ((1,1),(2,3))");
  }
}

/// A constraint, and how it is written: by its lines, or, where they are missing or say something
/// else, by its fields.
struct GivenConstraint {
  const Json* Object;
  JsonMember Lines;
  bool HasLines = false;
  bool Differs = false;  ///< whether the lines say something else than the fields

  bool IsWrittenByFields() const { return !HasLines || Differs; }
};

std::vector<GivenConstraint> ConstraintsFrom(const Json& Object) {
  const std::vector<const Json*> vObjects = JsonMember(Object, "constraints").AsObjects();
  std::vector<GivenConstraint> vConstraints;
  vConstraints.reserve(vObjects.size());
  for (const Json* const Current : vObjects) {
    GivenConstraint& New = vConstraints.emplace_back(GivenConstraint{Current, {*Current, "lines"}});
    New.Lines.ForEachLine([&](std::string_view) { New.HasLines = true; });
  }
  return vConstraints;
}

/// The line that the library writes of a constraint with these fields.
std::string LineByFields(const Json& Object) {
  constexpr int UnknownRank = -1;
  const int Category = JsonMember(Object, "category").AsNumber();
  const int Index = JsonMember(Object, "index").AsNumber();
  std::string Feature = JsonMember(Object, "feature").AsLine();
  std::string Value = JsonMember(Object, "value").AsLine();
  const bool IsValue = JsonMember(Object, "isValue").AsBool();
  return Constraint(Category, Index, std::move(Feature), std::move(Value), UnknownRank, IsValue)
      .ReturnAsString();
}

void AppendConstraint(const GivenConstraint& Constraint, std::string& LinesReturn) {
  if (Constraint.IsWrittenByFields()) {
    LinesReturn.append(LineByFields(*Constraint.Object)).append(1, '\n');
  } else {
    Constraint.Lines.ForEachLine(
        [&](std::string_view Line) { LinesReturn.append(Line).append(1, '\n'); });
  }
}

// ---- The rule ---------------------------------------------------------------------------------

void AppendLabels(const Json& Object, const char* Name, std::string& LinesReturn) {
  bool IsFirst = true;
  JsonMember(Object, Name).ForEachLine([&](std::string_view Label) {
    LinesReturn.append(IsFirst ? 0 : 1, ' ').append(Label);
    IsFirst = false;
  });
}

/// The lines that comments, header and the other members of an object stand for.
std::string LinesFrom(const Json& Object, const Strings& vsComments,
                      const std::vector<GivenConstraint>& vConstraints) {
  constexpr std::size_t TypicalSize = 1024;
  std::string Lines;
  Lines.reserve(TypicalSize);
  for (const std::string& sComment : vsComments) {
    Lines.append(sComment).append(1, '\n');
  }
  AppendHeader(HeaderFrom(Object), Lines);
  JsonMember(Object, "slType").AppendLine(Lines);
  Lines.append("::");
  JsonMember(Object, "tlType").AppendLine(Lines);
  Lines.append(" [");
  AppendLabels(Object, "slLabels", Lines);
  Lines.append("] -> [");
  AppendLabels(Object, "tlLabels", Lines);
  Lines.append("]\n(\n");
  AppendAlignments(Object, Lines);
  for (const GivenConstraint& Constraint : vConstraints) {
    AppendConstraint(Constraint, Lines);
  }
  return Lines.append(")\n");
}

/// Reads lines as one rule.
void ReadLines(std::string Lines, RuleText& TextReturn, RuleRecord& RecordReturn) {
  if (!ReadOnlyRule(std::move(Lines), TextReturn) || !RecordReturn.Read(TextReturn)) {
    throw JsonProblem("what is written cannot be read as one rule");
  }
}

/// Whether an object is that of a rule, member by member.
bool IsObjectOf(const RuleRecord& Record, const Json& Object) {
  JsonMatcher Matcher(Object);
  JsonEvents(Matcher).EmitRule(Record);
  return Matcher.IsSame();
}

std::string JsonOf(const RuleRecord& Record) {
  std::string Line;
  AppendJson(Record, Line);
  Line.pop_back();
  return Line;
}

// ---- What is lost -----------------------------------------------------------------------------

constexpr std::array<const char*, 5> FieldNames{"category", "index", "feature", "value", "isValue"};

bool HasAllFields(const Json& Object) {
  return std::none_of(FieldNames.begin(), FieldNames.end(),
                      [&](const char* Name) { return JsonMember(Object, Name).IsMissing(); });
}

/// The fields of a constraint as one text, which no two constraints of a rule share.
std::string FieldsText(const Json& Object) {
  return std::to_string(JsonMember(Object, "category").AsNumber()) +
         (JsonMember(Object, "isValue").AsBool() ? " value " : " node ") + LineByFields(Object);
}

/// The constraints of a rule that is written, each to be found once.
class WrittenConstraints {
 public:
  explicit WrittenConstraints(const Json& Rule)
      : vObjects(JsonMember(Rule, "constraints").AsObjects()) {
    for (const Json* const Current : vObjects) {
      ByFields.emplace(FieldsText(*Current), Current);
      ByLines.emplace(JsonMember(*Current, "lines").AsLines(), Current);
    }
  }

  std::size_t Count() const { return vObjects.size(); }

  bool HasFields(const Json& Object) const { return ByFields.count(FieldsText(Object)) > 0; }

  /// Takes out the constraint that has all members of another one. @return false if none has
  bool Take(const GivenConstraint& Given) {
    return Given.IsWrittenByFields() ? TakeFrom(ByFields, FieldsText(*Given.Object), Given)
                                     : TakeFrom(ByLines, Given.Lines.AsLines(), Given);
  }

 private:
  template <typename MapT>
  static bool TakeFrom(MapT& ObjectsReturn, const typename MapT::key_type& Key,
                       const GivenConstraint& Given) {
    const auto Found = ObjectsReturn.find(Key);
    if (Found == ObjectsReturn.end()) {
      return false;
    }
    const Json& Written = *Found->second;
    ObjectsReturn.erase(Found);
    const auto IsHeld = [&](const Json::Member& Current) {
      const auto Same = Written.FindMember(Current.name);
      return Same != Written.MemberEnd() &&
             (Same->value == Current.value || (Given.Differs && ViewOf(Current.name) == "lines"));
    };
    return std::all_of(Given.Object->MemberBegin(), Given.Object->MemberEnd(), IsHeld);
  }

  std::vector<const Json*> vObjects;
  std::map<std::string, const Json*> ByFields;
  std::map<Strings, const Json*> ByLines;
};

/// Finds the constraints whose lines say something else than their fields.
/// @param Written the object of what their lines say
/// @return whether there are some
bool FindDifferences(const Json& Written, std::vector<GivenConstraint>& vConstraintsReturn) {
  const WrittenConstraints Constraints(Written);
  bool HasFound = false;
  for (GivenConstraint& Constraint : vConstraintsReturn) {
    Constraint.Differs = Constraint.HasLines && HasAllFields(*Constraint.Object) &&
                         !Constraints.HasFields(*Constraint.Object);
    HasFound = HasFound || Constraint.Differs;
  }
  return HasFound;
}

bool AreHeld(const std::vector<GivenConstraint>& vConstraints, const Json& Written) {
  WrittenConstraints Constraints(Written);
  return Constraints.Count() == vConstraints.size() &&
         std::all_of(
             vConstraints.begin(), vConstraints.end(),
             [&](const GivenConstraint& Constraint) { return Constraints.Take(Constraint); });
}

/// Adds a line for each member that is not the same in what is written. Comments say what words,
/// structure and count say, whatever they said before.
void ReportLostMembers(const Json& Object, const std::vector<GivenConstraint>& vConstraints,
                       bool AreCommentsHeld, const Json& Written, Strings& vsProblemsReturn) {
  const auto IsHeld = [&](std::string_view Name, const Json& Value, const Json& Other) {
    if (Name == "comments") {
      return AreCommentsHeld;
    }
    return Name == "constraints" ? AreHeld(vConstraints, Written) : Value == Other;
  };
  for (auto Member = Object.MemberBegin(); Member != Object.MemberEnd(); ++Member) {
    const auto Found = Written.FindMember(Member->name);
    const std::string Name = ToBytes(ViewOf(Member->name));
    if (Found == Written.MemberEnd()) {
      vsProblemsReturn.push_back(Name + ": unknown member");
    } else if (!IsHeld(Name, Member->value, Found->value)) {
      vsProblemsReturn.push_back(Name + ": a grammar cannot hold it as it is given");
    }
  }
}

// ---- Any object -------------------------------------------------------------------------------

/// Reads the rule that an object stands for.
/// @param vsProblemsReturn receives what is lost
void ReadRule(const Json& Object, RuleText& LinesReturn, RuleRecord& RecordReturn,
              Strings& vsProblemsReturn) {
  const Strings vsComments = CommentsFrom(Object);
  std::vector<GivenConstraint> vConstraints = ConstraintsFrom(Object);
  ReadLines(LinesFrom(Object, vsComments, vConstraints), LinesReturn, RecordReturn);
  if (IsObjectOf(RecordReturn, Object)) {
    return;
  }
  if (FindDifferences(ParsedLine(JsonOf(RecordReturn)).Object(), vConstraints)) {
    vsProblemsReturn.emplace_back(
        "constraints: the lines differ from the other members, which are written");
    ReadLines(LinesFrom(Object, vsComments, vConstraints), LinesReturn, RecordReturn);
  }
  ReportLostMembers(Object, vConstraints, RecordReturn.Comments() == vsComments,
                    ParsedLine(JsonOf(RecordReturn)).Object(), vsProblemsReturn);
}

}  // namespace

// ---- Objects as they are written --------------------------------------------------------------

namespace {

/// Goes through an object as `AppendJson` writes it, and takes out the lines that it stands for. An
/// object that only looks like one is found out by writing the rule again.
class WrittenObject {
 public:
  explicit WrittenObject(std::string_view ObjectPassIn) : Rest(ObjectPassIn) {}

  /// @return whether the object looks like one that was written
  bool AppendLines(std::string& LinesReturn) {
    RuleHeader Header;
    std::string Alignments;
    if (!ReadHeader(Header) || !Skip(",\"comments\":") || !AppendTexts("", "\n", LinesReturn)) {
      return false;
    }
    AppendHeader(Header, LinesReturn);
    return AppendRuleLine(LinesReturn) && Skip(",\"alignments\":\"") && AppendText(Alignments) &&
           AppendPairs(Alignments, LinesReturn.append("(\n")) && Skip(",\"constraints\":[") &&
           AppendConstraints(LinesReturn);
  }

 private:
  bool Skip(std::string_view Expected) {
    const bool IsThere = StartsWith(Rest, Expected);
    Rest.remove_prefix(IsThere ? Expected.size() : 0);
    return IsThere;
  }

  bool ReadHeader(RuleHeader& HeaderReturn) {
    if (Skip("{\"header\":null,\"ruleIndex\":-1")) {
      return true;
    }
    HeaderReturn.IsPresent = true;
    HeaderReturn.IsReadable = Skip("{\"header\":{\"type\":\"");
    if ((!HeaderReturn.IsReadable && !Skip("{\"header\":{\"text\":\"")) ||
        !AppendText(HeaderReturn.Type) || !Skip("},\"ruleIndex\":")) {
      return false;
    }
    if (HeaderReturn.IsReadable) {
      HeaderReturn.Number = TakeDigits(Rest);
      return true;
    }
    return Skip("-1");
  }

  bool AppendRuleLine(std::string& LinesReturn) {
    if (!Skip(",\"slType\":\"") || !AppendText(LinesReturn) || !Skip(",\"tlType\":\"") ||
        !AppendText(LinesReturn.append("::"))) {
      return false;
    }
    if (!Skip(",\"slLabels\":") || !AppendTexts(" ", "", LinesReturn.append(" [")) ||
        !Skip(",\"tlLabels\":") || !AppendTexts(" ", "", LinesReturn.append("] -> ["))) {
      return false;
    }
    LinesReturn.append("]\n");
    return true;
  }

  /// A text after its first quote. Signs other than quotes and backslashes that are written in
  /// another way are rare, and not read here.
  bool AppendText(std::string& TextReturn) {
    for (;;) {
      const std::size_t End = Rest.find('"');
      if (End == std::string_view::npos) {
        return false;
      }
      const std::string_view Part = Rest.substr(0, End);
      const std::size_t Escape = Part.find('\\');
      TextReturn.append(Part.substr(0, Escape));
      if (Escape == std::string_view::npos) {
        Rest.remove_prefix(End + 1);
        return true;
      }
      if (Rest[Escape + 1] != '"' && Rest[Escape + 1] != '\\') {
        return false;
      }
      TextReturn += Rest[Escape + 1];
      Rest.remove_prefix(Escape + 2);
    }
  }

  bool AppendTexts(std::string_view Between, std::string_view After, std::string& TextReturn) {
    if (!Skip("[")) {
      return false;
    }
    if (Skip("]")) {
      return true;
    }
    do {
      if (!Skip("\"") || !AppendText(TextReturn)) {
        return false;
      }
      TextReturn.append(After).append(StartsWith(Rest, ",") ? Between : std::string_view());
    } while (Skip(","));
    return Skip("]");
  }

  bool AppendConstraints(std::string& LinesReturn) {
    constexpr std::string_view BeforeLines = ",\"lines\":";
    while (!Skip("]")) {
      const std::size_t Size = Rest.find(BeforeLines);
      if (Size == std::string_view::npos) {
        return false;
      }
      Rest.remove_prefix(Size + BeforeLines.size());
      if (!AppendTexts("", "\n", LinesReturn) || !Skip("}")) {
        return false;
      }
      Skip(",");
    }
    LinesReturn.append(")\n");
    return true;
  }

  std::string_view Rest;
};

}  // namespace

/// Most objects were written by this program, and nobody has changed them. What they stand for is
/// that whose object they are, byte for byte: to write it is quicker than to parse the object.
bool JsonReader::ReadUnchanged(std::string_view Line) {
  constexpr std::size_t UsualSize = 1024;
  std::string Given;
  Given.reserve(UsualSize);
  if (!WrittenObject(Line).AppendLines(Given) || !ReadOnlyRule(std::move(Given), Lines) ||
      !Record.Read(Lines)) {
    return false;
  }
  Written.clear();
  AppendJson(Record, Written);
  return Written.size() == Line.size() + 1 && StartsWith(Written, Line);
}

// ---- The line ---------------------------------------------------------------------------------

RuleFromJson JsonReader::Read(std::string_view Line) {
  RuleFromJson Result;
  if (ReadUnchanged(Line)) {
    Result.IsRead = true;
    Result.IsRule = true;
    AppendNormalForm(Record, {}, Result.Text);
    return Result;
  }
  try {
    const ParsedLine Parsed(Line);
    const Json& Object = Parsed.Object();
    const JsonMember Text(Object, "text");
    Result.IsRule = Object.MemberCount() != 1 || Text.IsMissing();
    if (Result.IsRule) {
      ReadRule(Object, Lines, Record, Result.vsProblems);
      Result.Text.reserve(Lines.Text.size());
      AppendNormalForm(Record, {}, Result.Text);
    } else {
      Result.Text = Text.AsText();
    }
    Result.IsRead = true;
  } catch (const JsonProblem& Problem) {
    Result.vsProblems = {Problem.what()};
  }
  return Result;
}

}  // namespace Grammar
