#include "RuleJson.h"

#include "JsonText.h"
#include "LibraryScope.h"
#include "NormalForm.h"
#include "RuleReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace Grammar {

namespace {

using Json = nlohmann::ordered_json;
using Strings = std::vector<std::string>;
using Map = std::map<int, int>;

// ---- From the record to JSON ------------------------------------------------------------------

Json Text(const std::string& Bytes) {
  return ToUnicode(Bytes);
}

template <typename ElementT, typename MakeT>
Json List(const std::vector<ElementT>& vElements, MakeT Make) {
  Json Result = Json::array();
  for (const ElementT& Each : vElements) {
    Result.push_back(Make(Each));
  }
  return Result;
}

Json Texts(const Strings& vsTexts) {
  return List(vsTexts, Text);
}

Json Pairs(const Map& miiPairs) {
  Json Result = Json::array();
  for (const auto& [Word, Component] : miiPairs) {
    Result.push_back({Word, Component});
  }
  return Result;
}

Json HeaderJson(const RuleHeader& Header) {
  if (!Header.IsPresent) {
    return nullptr;
  }
  if (!Header.IsReadable) {
    return {{"text", Text(Header.Type)}};
  }
  // The number is that of the record.
  return {{"type", Text(Header.Type)}};
}

Json ConstraintJson(const Constraint& Each) {
  return {{"category", Each.GetCategory()},     {"index", Each.GetConstrainedIndex()},
          {"feature", Text(Each.GetFeature())}, {"value", Text(Each.GetFeatValue())},
          {"rank", Each.GetRankInCategory()},   {"isValue", Each.IsValueConstraint()}};
}

/// All constraints. A set holds each text once, so it is asked for category by category.
Json ConstraintsJson(const TrRule& Rule) {
  Json Result = Json::array();
  for (const int Category : {-1, 1, 2, 3, 4}) {
    for (const Constraint& Each : Rule.GetConstraintsAsSetC(Category)) {
      Result.push_back(ConstraintJson(Each));
    }
  }
  return Result;
}

Json AlternativesJson(const TrRule& Rule) {
  Strings vsSLSents, vsTLSents, vsAlignments, vsStructures;
  std::vector<Map> vmiiSL, vmiiTL;
  std::vector<Strings> vvsSL, vvsTL;
  Rule.GetAllAlts(vsSLSents, vsTLSents, vsAlignments, vsStructures, vmiiSL, vmiiTL, vvsSL, vvsTL);
  return {{"slSentences", Texts(vsSLSents)},          {"tlSentences", Texts(vsTLSents)},
          {"alignments", Texts(vsAlignments)},        {"cStructures", Texts(vsStructures)},
          {"slWordToComponent", List(vmiiSL, Pairs)}, {"tlWordToComponent", List(vmiiTL, Pairs)},
          {"slWordLabels", List(vvsSL, Texts)},       {"tlWordLabels", List(vvsTL, Texts)}};
}

Json RuleJson(const RuleRecord& Record) {
  TrRule Rule;
  Record.Load(Rule);
  Json Result;
  Result["header"] = HeaderJson(Record.Header());
  Result["ruleIndex"] = Rule.GetRuleIndex();
  Result["comments"] = Texts(Record.Comments());
  Result["slType"] = Text(Rule.GetSLType());
  Result["tlType"] = Text(Rule.GetTLType());
  Result["slLabels"] = Texts(Rule.GetSLPOS());
  Result["tlLabels"] = Texts(Rule.GetTLPOS());
  Result["alignments"] = Text(Rule.GetAlignmentStr());
  Result["constraints"] = ConstraintsJson(Rule);
  Result["count"] = Rule.GetNumTrExamples();
  Result["slWords"] = Texts(Rule.GetSLWords());
  Result["tlWords"] = Texts(Rule.GetTLWords());
  Result["cStructure"] = Text(Rule.GetCStructure());
  Result["slWordLabels"] = Texts(Rule.GetWordLevelSLPOS());
  Result["tlWordLabels"] = Texts(Rule.GetWordLevelTLPOS());
  Result["slParseLabels"] = Texts(Rule.GetSLPOSFromParse());
  Result["tlParseLabels"] = Texts(Rule.GetTLPOSFromParseAfterFlipping());
  Result["wordAlignments"] = Text(Rule.GetsWordLevelAl());
  Result["slWordToComponent"] = Pairs(Rule.GetSLWord2Comp());
  Result["tlWordToComponent"] = Pairs(Rule.GetTLWord2Comp());
  Result["numbers"] = Rule.GetCSet();
  Result["headIndex"] = Rule.GetHeadIndex();
  Result["xHeadIndex"] = Rule.GetXHeadIndex();
  Result["yHeadIndex"] = Rule.GetYHeadIndex();
  Result["alternatives"] = AlternativesJson(Rule);
  return Result;
}

// ---- From JSON to the record ------------------------------------------------------------------

/// A member that is not what it should be; the message begins with its name.
class JsonProblem : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A member with its name, or nothing where it is missing.
class Member {
 public:
  Member(const Json& Object, const std::string& NamePassIn) : Name(NamePassIn) {
    const auto Found = Object.find(Name);
    Value = Found == Object.end() ? nullptr : &*Found;
  }

  bool IsMissing() const { return Value == nullptr; }

  std::string AsText(const std::string& Default = "") const {
    Expect(IsMissing() || Value->is_string(), "a text");
    return IsMissing() ? Default : ToBytes(Value->get_ref<const std::string&>());
  }

  int AsNumber(int Default) const {
    Expect(IsMissing() || IsInt(), "a number");
    return IsMissing() ? Default : Value->get<int>();
  }

  bool AsBool() const {
    Expect(!IsMissing() && Value->is_boolean(), "true or false");
    return Value->get<bool>();
  }

  Strings AsTexts() const {
    Strings vsTexts;
    for (const Json& Each : AsList()) {
      Expect(Each.is_string(), "a list of texts");
      vsTexts.push_back(ToBytes(Each.get_ref<const std::string&>()));
    }
    return vsTexts;
  }

  const Json& AsList() const {
    static const Json None = Json::array();
    Expect(IsMissing() || Value->is_array(), "a list");
    return IsMissing() ? None : *Value;
  }

  /// The object; null where there is none.
  const Json* AsObject() const {
    if (IsMissing() || Value->is_null()) {
      return nullptr;
    }
    Expect(Value->is_object(), "an object or null");
    return Value;
  }

 private:
  void Expect(bool IsSo, const char* What) const {
    if (!IsSo) {
      throw JsonProblem(Name + ": should be " + What);
    }
  }

  bool IsInt() const {
    return Value->is_number_integer() && Value->get<std::int64_t>() == Value->get<int>();
  }

  std::string Name;
  const Json* Value;
};

/// What would end a line, where it must not.
const std::string& OneLine(const std::string& Name, const std::string& Line) {
  if (Line.find('\n') != std::string::npos) {
    throw JsonProblem(Name + ": should not contain a line end");
  }
  return Line;
}

RuleHeader HeaderFrom(const Json& Object) {
  RuleHeader Header;
  const Json* Value = Member(Object, "header").AsObject();
  if (Value == nullptr) {
    return Header;
  }
  Header.IsPresent = true;
  Header.IsReadable = Value->find("text") == Value->end();
  Header.Type = OneLine("header", Member(*Value, Header.IsReadable ? "type" : "text").AsText());
  if (Header.IsReadable) {
    Header.Number = std::to_string(Member(Object, "ruleIndex").AsNumber(-1));
  }
  return Header;
}

std::vector<Constraint> ConstraintsFrom(const Json& Object) {
  std::vector<Constraint> vConstraints;
  for (const Json& Each : Member(Object, "constraints").AsList()) {
    if (!Each.is_object()) {
      throw JsonProblem("constraints: should be a list of objects");
    }
    vConstraints.emplace_back(Member(Each, "category").AsNumber(-1),
                              Member(Each, "index").AsNumber(-1),
                              OneLine("feature", Member(Each, "feature").AsText()),
                              OneLine("value", Member(Each, "value").AsText()),
                              Member(Each, "rank").AsNumber(-1), Member(Each, "isValue").AsBool());
  }
  return vConstraints;
}

/// Adds the constraints so that none is taken for a second value of another one: a key that
/// another key begins with has to be there first.
void AddConstraints(const Json& Object, TrRule& RuleReturn) {
  std::vector<Constraint> vConstraints = ConstraintsFrom(Object);
  std::stable_sort(vConstraints.begin(), vConstraints.end(),
                   [](const Constraint& Left, const Constraint& Right) {
                     return Left.GetFeature().size() < Right.GetFeature().size();
                   });
  for (const Constraint& Each : vConstraints) {
    RuleReturn.InsertConstraintIntoMap(Each);
  }
}

/// The comment with a label; the end where there is none.
Strings::iterator FindLabel(Strings& vsComments, std::string_view Label,
                            std::string_view& RestReturn) {
  return std::find_if(vsComments.begin(), vsComments.end(), [&](const std::string& sComment) {
    return TakeLabel(sComment, Label, RestReturn);
  });
}

/// Makes a comment say what a member says, if it does not yet. `SaysSo` looks at what stands
/// behind the label.
template <typename SaysSoT>
void LetCommentSay(const std::string& Label, const std::string& What, SaysSoT SaysSo,
                   Strings& vsCommentsReturn) {
  std::string_view Rest;
  const auto Found = FindLabel(vsCommentsReturn, Label, Rest);
  if (Found == vsCommentsReturn.end()) {
    if (!What.empty()) {
      vsCommentsReturn.push_back(";;" + Label + What);
    }
  } else if (!SaysSo(std::string(Rest))) {
    *Found = ";;" + Label + What;
  }
}

std::string BehindBlanks(const Strings& vsWords) {
  std::string Line;
  for (const std::string& sWord : vsWords) {
    Line += ' ' + sWord;
  }
  return Line;
}

Strings CommentsFrom(const Json& Object) {
  Strings vsComments = Member(Object, "comments").AsTexts();
  for (const std::string& sComment : vsComments) {
    OneLine("comments", sComment);
  }
  for (const auto& [Name, Label] : {std::pair("slWords", "SL:"), std::pair("tlWords", "TL:")}) {
    const Member Words(Object, Name);
    const Strings vsWords = Words.AsTexts();
    if (!Words.IsMissing()) {
      const auto SaysSo = [&](const std::string& Rest) {
        TrRule Scratch;
        Scratch.SetSLWords(Rest);
        return Scratch.GetSLWords() == vsWords;
      };
      LetCommentSay(Label, OneLine(Name, BehindBlanks(vsWords)), SaysSo, vsComments);
    }
  }
  const Member Structure(Object, "cStructure");
  if (!Structure.IsMissing()) {
    const std::string What = OneLine("cStructure", Structure.AsText());
    LetCommentSay(
        "C-Structure:", What, [&](const std::string& Rest) { return Rest == What; }, vsComments);
  }
  return vsComments;
}

/// The lines that the members of an object stand for.
std::string LinesFrom(const Json& Object) {
  RuleRecord Head;
  Head.SetComments(CommentsFrom(Object));
  // A count that no comment can hold is reported by its member, as all that is lost.
  const int Count = Member(Object, "count").AsNumber(1);
  if (Count != CountIn(Head.Comments()) && Count > 0) {
    Head.SetCount(Count);
  }
  std::string Lines;
  for (const std::string& sComment : Head.Comments()) {
    Lines.append(sComment) += '\n';
  }
  Lines += HeaderLine(HeaderFrom(Object));
  TrRule Rule;
  Rule.SetSLType(OneLine("slType", Member(Object, "slType").AsText()));
  Rule.SetTLType(OneLine("tlType", Member(Object, "tlType").AsText()));
  Rule.SetSLPOS(Member(Object, "slLabels").AsTexts());
  Rule.SetTLPOS(Member(Object, "tlLabels").AsTexts());
  const LibraryScope Scope;
  Rule.SetAlignment(Member(Object, "alignments").AsText());
  AddConstraints(Object, Rule);
  const std::string Text = Rule.ReturnAsStringForComparison();
  return Lines.append(Text, Text.find('\n') + 1) += '\n';
}

/// The only rule of a text; nothing where there are several.
bool ReadBack(const std::string& Form, RuleText& TextReturn, RuleRecord& RecordReturn) {
  std::istringstream Stream(Form);
  RuleReader Reader(Stream, "-");
  std::vector<Finding> vFindings;
  return Reader.Next(TextReturn) && TextReturn.Text.size() == Form.size() &&
         RecordReturn.Read(TextReturn, vFindings);
}

/// The constraints, whatever their order, with all of their members.
std::multiset<std::string> ConstraintSet(const Json& Object) {
  std::multiset<std::string> ssConstraints;
  for (const Constraint& Each : ConstraintsFrom(Object)) {
    ssConstraints.insert(ConstraintJson(Each).dump());
  }
  return ssConstraints;
}

bool IsHeld(const std::string& Name, const Json& Object, const Json& Back) {
  return Name == "constraints" ? ConstraintSet(Object) == ConstraintSet(Back)
                               : Object.at(Name) == Back.at(Name);
}

/// A line for each member that is not the same when the text is read.
Strings LostMembers(const Json& Object, const std::string& Form) {
  RuleText Text;
  RuleRecord Record;
  if (!ReadBack(Form, Text, Record)) {
    return {"what is written cannot be read as one rule"};
  }
  const Json Back = RuleJson(Record);
  Strings vsLost;
  for (const auto& [Name, Value] : Object.items()) {
    if (Back.find(Name) == Back.end()) {
      vsLost.push_back(Name + ": there is no such member");
    } else if (!IsHeld(Name, Object, Back)) {
      vsLost.push_back(Name + ": a grammar cannot hold it as it is given");
    }
  }
  return vsLost;
}

}  // namespace

void AppendJson(RuleRecord& Record, std::string& TextReturn) {
  TextReturn += RuleJson(Record).dump();
  TextReturn += '\n';
}

void AppendJsonOfText(std::string_view Text, std::string& TextReturn) {
  TextReturn += Json{{"text", ToUnicode(Text)}}.dump();
  TextReturn += '\n';
}

namespace {

/// A message of the library's may have several lines.
std::string OnOneLine(std::string Message) {
  std::replace(Message.begin(), Message.end(), '\n', ' ');
  return Message;
}

}  // namespace

bool JsonReader::Read(std::string_view Line, std::string& TextReturn) {
  vsProblems.clear();
  try {
    Json Object = Json::parse(Line);
    if (!Object.is_object()) {
      throw JsonProblem("should be an object");
    }
    IsRule = Object.size() != 1 || Object.find("text") == Object.end();
    if (!IsRule) {
      TextReturn += Member(Object, "text").AsText();
      return true;
    }
    const std::string Lines = LinesFrom(Object);
    RuleText LinesText;
    RuleRecord Record;
    if (!ReadBack(Lines, LinesText, Record)) {
      throw JsonProblem("what is written cannot be read as one rule");
    }
    // The comments say what words, structure and count say, whatever they said before.
    Object["comments"] = Texts(Record.Comments());
    std::string Form;
    AppendNormalForm(Record, {}, Form);
    vsProblems = LostMembers(Object, Form);
    TextReturn += Form;
    return true;
  } catch (const Json::parse_error& Error) {
    vsProblems = {"not JSON, from byte " + std::to_string(Error.byte) + " on"};
  } catch (const std::runtime_error& Error) {
    vsProblems = {OnOneLine(Error.what())};
  }
  return false;
}

}  // namespace Grammar
