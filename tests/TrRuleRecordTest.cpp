// The record: its members and their initial values, what each setter stores and prints, splitting a
// text into words and labels, rebuilding the word-to-component maps, and the contents of a copy.

#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/HaltGuard.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <functional>
#include <locale>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

using std::string_literals::operator""s;

namespace {

using Lists = std::vector<Strings>;
using IntMap = std::map<int, int>;
using IntMaps = std::vector<IntMap>;
using ConstraintMap = std::map<std::string, Constraint>;

constexpr int AllLevels[] = {0, 1, 2, 3, 4, 5, -1};

const Written Nothing;

/// Bytes that no operation may interpret: NUL, white space and letters of other character sets, and
/// the last byte.
const std::string OddBytes = "\0\x80\x85\xA0\xC4\xE4\xFF"s;

// ---- Access to the members ----------------------------------------------------------------------

template <typename TypesT, auto... MemberV>
struct PrivateMembers;

/// An explicit instantiation may name private members. It compiles when the members have the types.
template <typename... TypeT, auto... MemberV>
struct PrivateMembers<std::tuple<TypeT...>, MemberV...> {
  static_assert((std::is_same_v<TypeT TrRule::*, std::remove_cv_t<decltype(MemberV)>> && ...));

  friend std::vector<const char*> MemberAddresses(const TrRule& Rule) {
    return {reinterpret_cast<const char*>(&(Rule.*MemberV))...};
  }
};

std::vector<const char*> MemberAddresses(const TrRule& Rule);

using MemberTypes =
    std::tuple<Strings, Strings, Strings, Strings, Strings, Strings, Strings, Lists, Strings,
               Strings, Strings, Strings, Lists, std::string, std::string, Strings, std::string,
               Strings, std::string, std::string, ConstraintMap, int, std::string, std::set<int>,
               IntMap, IntMaps, IntMap, IntMaps, int, int, int, int, Tokenizer>;

template struct PrivateMembers<
    MemberTypes, &TrRule::Comments, &TrRule::SLWords, &TrRule::vsAllSLSents, &TrRule::SLPOS,
    &TrRule::WordLevelSLPOS, &TrRule::SLPOSFromParse, &TrRule::TLPOSFromParse,
    &TrRule::vvsAllWordLevelSLPOSs, &TrRule::TLWords, &TrRule::vsAllTLSents, &TrRule::TLPOS,
    &TrRule::WordLevelTLPOS, &TrRule::vvsAllWordLevelTLPOSs, &TrRule::AlignmentString,
    &TrRule::sWordLevelAl, &TrRule::vsAllAlignments, &TrRule::CStructure, &TrRule::vsAllCStructures,
    &TrRule::SLType, &TrRule::TLType, &TrRule::ConstraintsMap, &TrRule::RuleIndex, &TrRule::POS,
    &TrRule::CSet, &TrRule::SLWord2Comp, &TrRule::vmiiAllSLWord2Comps, &TrRule::TLWord2Comp,
    &TrRule::vmiiAllTLWord2Comps, &TrRule::NumTrExamples, &TrRule::HeadIndex, &TrRule::XHeadIndex,
    &TrRule::YHeadIndex, &TrRule::Tokenize>;

// ---- Rules and changes to them ------------------------------------------------------------------

/// Sets every member to a different value. The alignments are in order in both directions.
void Fill(TrRule& Rule) {
  Rule.SetSLPOSFromParse("will stand on the target side");
  Rule.FlipRuleNoConstraints();
  Rule.SetTrRuleFromString(SampleText);
  Rule.SetSLPOSFromParse("from a parse");
  Rule.SetAlignment("((1,1),(2,2),(3,2))");
  Rule.SetSLWords("the red car");
  Rule.SetTLWords("el auto rojo");
  Rule.SetWordLevelSLPOS("det adj noun");
  Rule.SetWordLevelTLPOS("det noun adj");
  Rule.SetCStructure("(NP (DET the))");
  Rule.SetsWordLevelAl("((3,3),(1,1))");
  Rule.SetSLType("SNP");
  Rule.SetTLType("TNP");
  Rule.SetCSet({4, 2});
  Rule.SetSLWord2Comp({{0, 2}});
  Rule.SetTLWord2Comp({{1, 0}});
  Rule.SetNumTrExamples(17);
  Rule.SetHeadIndex(3);
  Rule.SetXHeadIndex(4);
  Rule.SetYHeadIndex(5);
  Rule.AddAlterTrInfo("sl sentence", "tl sentence", "((9,9),(8,8))", "(S)", {{6, 6}}, {{7, 7}},
                      {"A"}, {"B"});
}

/// The part of `Dump` after the printed form.
std::string Members(TrRule& Rule) {
  const std::string Text = Dump(Rule);
  return Text.substr(Text.find("SLWords: "));
}

/// The names of the members in which two rules differ, in alphabetical order.
std::string Differences(const std::string& Left, const std::string& Right) {
  std::map<std::string, std::pair<std::string, std::string>> Values;
  for (const std::string& sLine : Tokenizer()(Left, "\n")) {
    Values[sLine.substr(0, sLine.find(':'))].first += sLine;
  }
  for (const std::string& sLine : Tokenizer()(Right, "\n")) {
    Values[sLine.substr(0, sLine.find(':'))].second += sLine;
  }
  std::string Names;
  for (const auto& [Name, Texts] : Values) {
    if (Texts.first != Texts.second) {
      Names += (Names.empty() ? "" : " ") + Name;
    }
  }
  return Names;
}

/// One call of a setter, and the members that it changes in a filled rule.
struct Change {
  const char* Members;
  std::function<void(TrRule&)> Make;
};

const std::vector<Change>& AllChanges() {
  static const std::vector<Change> vChanges = {
      {"SLWords", [](TrRule& Rule) { Rule.SetSLWords("other"); }},
      {"TLWords", [](TrRule& Rule) { Rule.SetTLWords("other"); }},
      {"SLPOS SLWord2Comp", [](TrRule& Rule) { Rule.SetSLPOS("other"); }},
      {"SLWord2Comp WordLevelSLPOS", [](TrRule& Rule) { Rule.SetWordLevelSLPOS("other"); }},
      {"SLPOSFromParse SLWord2Comp", [](TrRule& Rule) { Rule.SetSLPOSFromParse("other"); }},
      {"TLPOS TLWord2Comp", [](TrRule& Rule) { Rule.SetTLPOS("other"); }},
      {"TLWord2Comp WordLevelTLPOS", [](TrRule& Rule) { Rule.SetWordLevelTLPOS("other"); }},
      {"SLWord2Comp", [](TrRule& Rule) { Rule.InitSLWord2Comp(); }},
      {"TLWord2Comp", [](TrRule& Rule) { Rule.InitTLWord2Comp(); }},
      {"SLWord2Comp vmiiAllSLWord2Comps",
       [](TrRule& Rule) {
         Rule.SetSLWord2Comp({{9, 9}});
       }},
      {"TLWord2Comp vmiiAllTLWord2Comps",
       [](TrRule& Rule) {
         Rule.SetTLWord2Comp({{9, 9}});
       }},
      {"CStructure", [](TrRule& Rule) { Rule.SetCStructure("other"); }},
      {"AlignmentString", [](TrRule& Rule) { Rule.SetAlignment("((1,3))"); }},
      {"sWordLevelAl", [](TrRule& Rule) { Rule.SetsWordLevelAl("other"); }},
      {"SLType", [](TrRule& Rule) { Rule.SetSLType("other"); }},
      {"TLType", [](TrRule& Rule) { Rule.SetTLType("other"); }},
      {"RuleIndex", [](TrRule& Rule) { Rule.SetRuleIndex(99); }},
      {"CSet", [](TrRule& Rule) { Rule.SetCSet({99}); }},
      {"CSet", [](TrRule& Rule) { Rule.AddToCSet(99); }},
      {"CSet", [](TrRule& Rule) { Rule.ClearCSet(); }},
      {"NumTrExamples", [](TrRule& Rule) { Rule.SetNumTrExamples(99); }},
      {"NumTrExamples", [](TrRule& Rule) { Rule.IncrementNumTrExamples(); }},
      {"HeadIndex", [](TrRule& Rule) { Rule.SetHeadIndex(99); }},
      {"XHeadIndex", [](TrRule& Rule) { Rule.SetXHeadIndex(99); }},
      {"YHeadIndex", [](TrRule& Rule) { Rule.SetYHeadIndex(99); }},
      {"Constraint", [](TrRule& Rule) { Rule.ClearConstraints(); }},
      {"vmiiAllSLWord2Comps vmiiAllTLWord2Comps vsAllAlignments vsAllCStructures vsAllSLSents "
       "vsAllTLSents vvsAllWordLevelSLPOSs vvsAllWordLevelTLPOSs",
       [](TrRule& Rule) { Rule.AddAlterTrInfo(); }},
  };
  return vChanges;
}

// ---- Setters with common tests -----------------------------------------------------------------

using SetList = void (TrRule::*)(Strings);
using SetText = void (TrRule::*)(std::string);
using GetList = Strings (TrRule::*)() const;

/// The words of one side and the map from them.
struct Side {
  const char* Map;
  SetList SetWordList;
  SetText SetWords;
  GetList GetWords;
  std::string (TrRule::*GetString)() const;
  SetText SetPOS;
  void (TrRule::*Init)();
  void (TrRule::*SetMap)(IntMap);
  IntMap (TrRule::*GetMap)() const;
};

constexpr Side SourceSide = {
    "SLWord2Comp",          &TrRule::SetSLWords, &TrRule::SetSLWords,      &TrRule::GetSLWords,
    &TrRule::GetSLString,   &TrRule::SetSLPOS,   &TrRule::InitSLWord2Comp, &TrRule::SetSLWord2Comp,
    &TrRule::GetSLWord2Comp};
constexpr Side TargetSide = {
    "TLWord2Comp",          &TrRule::SetTLWords, &TrRule::SetTLWords,      &TrRule::GetTLWords,
    &TrRule::GetTLString,   &TrRule::SetTLPOS,   &TrRule::InitTLWord2Comp, &TrRule::SetTLWord2Comp,
    &TrRule::GetTLWord2Comp};
constexpr const Side* BothSides[] = {&SourceSide, &TargetSide};

struct Labels {
  const char* Setter;
  const Side* Words;
  SetList FromList;
  SetText FromText;
  GetList Get;
};

constexpr Labels AllLabels[] = {
    {"SetSLPOS", &SourceSide, &TrRule::SetSLPOS, &TrRule::SetSLPOS, &TrRule::GetSLPOS},
    {"SetWordLevelSLPOS", &SourceSide, &TrRule::SetWordLevelSLPOS, &TrRule::SetWordLevelSLPOS,
     &TrRule::GetWordLevelSLPOS},
    {"SetSLPOSFromParse", &SourceSide, &TrRule::SetSLPOSFromParse, &TrRule::SetSLPOSFromParse,
     &TrRule::GetSLPOSFromParse},
    {"SetTLPOS", &TargetSide, &TrRule::SetTLPOS, &TrRule::SetTLPOS, &TrRule::GetTLPOS},
    {"SetWordLevelTLPOS", &TargetSide, &TrRule::SetWordLevelTLPOS, &TrRule::SetWordLevelTLPOS,
     &TrRule::GetWordLevelTLPOS},
};

struct TextMember {
  const char* Name;
  SetText Set;
  std::string (TrRule::*Get)() const;
};

constexpr TextMember AllTexts[] = {
    {"CStructure", &TrRule::SetCStructure, &TrRule::GetCStructure},
    {"SLType", &TrRule::SetSLType, &TrRule::GetSLType},
    {"TLType", &TrRule::SetTLType, &TrRule::GetTLType},
    {"sWordLevelAl", &TrRule::SetsWordLevelAl, &TrRule::GetsWordLevelAl},
};

struct NumberMember {
  const char* Name;
  void (TrRule::*Set)(int);
  int (TrRule::*Get)() const;
};

constexpr NumberMember AllNumbers[] = {
    {"RuleIndex", &TrRule::SetRuleIndex, &TrRule::GetRuleIndex},
    {"NumTrExamples", &TrRule::SetNumTrExamples, &TrRule::GetNumTrExamples},
    {"HeadIndex", &TrRule::SetHeadIndex, &TrRule::GetHeadIndex},
    {"XHeadIndex", &TrRule::SetXHeadIndex, &TrRule::GetXHeadIndex},
    {"YHeadIndex", &TrRule::SetYHeadIndex, &TrRule::GetYHeadIndex},
};

/// The maps of the alternatives: SL, then TL.
std::pair<IntMaps, IntMaps> AllMaps(const TrRule& Rule) {
  Strings vsTexts;
  Lists vvsLists;
  std::pair<IntMaps, IntMaps> Maps;
  Rule.GetAllAlts(vsTexts, vsTexts, vsTexts, vsTexts, Maps.first, Maps.second, vvsLists, vvsLists);
  return Maps;
}

// ---- Locales ------------------------------------------------------------------------------------

/// Numbers with a point as the thousands separator.
class GroupedNumbers : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// Letters as in Latin-1: 0xE4 is the small letter of 0xC4.
class LatinLetters : public std::ctype<char> {
 protected:
  char do_toupper(char Byte) const override { return Byte == '\xE4' ? '\xC4' : Byte; }
};

/// Sets the locale of the whole process and of std::cout for a scope. A C locale that is missing on
/// the machine does not change the C library.
class LocaleGuard {
 public:
  explicit LocaleGuard(const char* CName)
      : OldC(std::setlocale(LC_ALL, nullptr)),
        Old(std::locale::global(std::locale(std::locale(std::locale::classic(), new GroupedNumbers),
                                            new LatinLetters))),
        OldOut(std::cout.imbue(std::locale())) {
    std::setlocale(LC_ALL, CName);
  }

  ~LocaleGuard() {
    std::cout.imbue(OldOut);
    std::locale::global(Old);
    std::setlocale(LC_ALL, OldC.c_str());
  }

  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  std::string OldC;
  std::locale Old;
  std::locale OldOut;
};

}  // namespace

// ---- Members and construction -------------------------------------------------------------------

TEST(TrRuleMembers, HaveTheirOrderNamesAndTypes) {
  const TrRule Rule;
  const std::vector<const char*> vAddresses = MemberAddresses(Rule);
  ASSERT_EQ(vAddresses.size(), 33U);
  for (std::size_t Index = 1; Index < vAddresses.size(); ++Index) {
    EXPECT_LT(vAddresses[Index - 1], vAddresses[Index]) << "member " << Index;
  }
}

TEST(TrRuleMembers, HaveInitialValuesInANewRule) {
  TrRule Rule;
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
  EXPECT_EQ(Dump(Rule),
            "Print:\n{,-1}\n:: [] -> []\n(\n)\n"
            "SLWords: { }\nvsAllSLSents: { }\nSLPOS: { }\nWordLevelSLPOS: { }\n"
            "SLPOSFromParse: { }\nTLPOSFromParse: { }\nvvsAllWordLevelSLPOSs: { }\n"
            "TLWords: { }\nvsAllTLSents: { }\nTLPOS: { }\nWordLevelTLPOS: { }\n"
            "vvsAllWordLevelTLPOSs: { }\nAlignmentString: <>\nsWordLevelAl: <>\n"
            "vsAllAlignments: { }\nCStructure: <>\nvsAllCStructures: { }\nSLType: <>\n"
            "TLType: <>\nRuleIndex: -1\nCSet: { }\nSLWord2Comp: { }\n"
            "vmiiAllSLWord2Comps: { }\nTLWord2Comp: { }\nvmiiAllTLWord2Comps: { }\n"
            "NumTrExamples: 1\nHeadIndex: -1\nXHeadIndex: -1\nYHeadIndex: -1\n");
}

TEST(TrRuleMembers, ChangeOnlyByTheirSetters) {
  for (const Change& Variant : AllChanges()) {
    TrRule Rule;
    Fill(Rule);
    const std::string Before = Members(Rule);
    Variant.Make(Rule);
    EXPECT_EQ(Differences(Before, Members(Rule)), Variant.Members);
  }
}

TEST(TrRuleMembers, ArePrintedOnlyByThreeKindsOfTrace) {
  const std::set<std::string> ssTracedAt1 = {"SLPOS SLWord2Comp",
                                             "SLWord2Comp WordLevelSLPOS",
                                             "SLPOSFromParse SLWord2Comp",
                                             "TLPOS TLWord2Comp",
                                             "TLWord2Comp WordLevelTLPOS",
                                             "SLWord2Comp",
                                             "TLWord2Comp",
                                             "CStructure"};
  for (const int Level : AllLevels) {
    for (const Change& Variant : AllChanges()) {
      TrRule Rule;
      Fill(Rule);
      const DebugLevel Guard(Level);
      const Written Texts = WrittenBy([&] { Variant.Make(Rule); });
      const bool Traced = (Level == 1 && ssTracedAt1.count(Variant.Members) > 0) ||
                          (Level == 4 && Variant.Members == "AlignmentString"s);
      EXPECT_EQ(Texts.Out.empty(), !Traced) << "level " << Level << ", " << Variant.Members;
      EXPECT_EQ(Texts.Err, "");
    }
  }
}

// ---- Words --------------------------------------------------------------------------------------

TEST(TrRuleWords, AreSplitAtSingleBlanksAndKeepEmptiedPieces) {
  struct Case {
    std::string Text;
    Strings Words;
    std::string Joined;
  };
  const Case Cases[] = {
      {"I see", {"I", "SEE"}, "I SEE"},
      {"", {}, ""},
      {" ", {}, ""},
      {"   ", {}, ""},
      {"\t", {""}, ""},
      {"a", {"A"}, "A"},
      {"a ", {"A"}, "A"},
      {"a \t", {"A", ""}, "A "},
      {"a \t ", {"A", ""}, "A "},
      {"a \t b", {"A", "", "B"}, "A  B"},
      {" \r\n ", {""}, ""},
      {"a\tb", {"A\tB"}, "A\tB"},
      {"  a   b  ", {"A", "B"}, "A B"},
      {"a\r\n b\v\f", {"A", "B"}, "A B"},
      {"o'k \"q\"", {"O'K", "\"Q\""}, "O'K \"Q\""},
      {"a" + OddBytes + " b", {"A" + OddBytes, "B"}, "A" + OddBytes + " B"},
  };
  for (const Side* OneSide : BothSides) {
    for (const auto& [Text, vsWords, Joined] : Cases) {
      SCOPED_TRACE(OneSide->Map + ": "s + Text);
      TrRule Rule;
      (Rule.*OneSide->SetWords)("held before");
      (Rule.*OneSide->SetWords)(Text);
      EXPECT_EQ((Rule.*OneSide->GetWords)(), vsWords);
      EXPECT_EQ((Rule.*OneSide->GetString)(), Joined);
    }
  }
}

TEST(TrRuleWords, AreCapitalisedFromAListOnTheSourceSide) {
  TrRule Rule;
  Rule.SetSLWords("held before");
  Rule.SetSLWords(Strings{"o'k", " a b\t", "", "\"q\"", "z" + OddBytes});
  EXPECT_EQ(Rule.GetSLWords(), (Strings{"O'K", " A B\t", "", "\"Q\"", "Z" + OddBytes}));
  EXPECT_EQ(Rule.GetSLString(), "O'K  A B\t  \"Q\" Z" + OddBytes);
  Rule.SetSLWords(Strings{});
  EXPECT_EQ(Rule.GetSLWords(), Strings());
  EXPECT_EQ(Rule.GetSLString(), "");
}

TEST(TrRuleWords, GetBackslashesOnlyFromAListOnTheTargetSide) {
  struct Case {
    std::string Word;
    std::string Stored;
  };
  const Case Cases[] = {
      {"o'k", R"(O\'K)"},
      {"\"", R"(\")"},
      {"'", R"(\')"},
      {"'\"'", R"(\'\"\')"},
      {R"(\")", R"(\\")"},
      {R"(\')", R"(\\')"},
      {" a\tb ", " A\tB "},
      {"", ""},
      {"z" + OddBytes, "Z" + OddBytes},
  };
  Strings vsWords;
  Strings vsStored;
  for (const auto& [Word, Stored] : Cases) {
    vsWords.push_back(Word);
    vsStored.push_back(Stored);
  }
  TrRule Rule;
  Rule.SetTLWords("held before");
  Rule.SetTLWords(vsWords);
  EXPECT_EQ(Rule.GetTLWords(), vsStored);
  EXPECT_EQ(Rule.GetTLString(), R"(O\'K \" \' \'\"\' \\" \\')" + "  A\tB   Z"s + OddBytes);
  Rule.SetTLWords("o'k \"q\"");
  EXPECT_EQ(Rule.GetTLWords(), (Strings{"O'K", "\"Q\""}));
  Rule.SetTLWords(Strings{});
  EXPECT_EQ(Rule.GetTLString(), "");
}

TEST(TrRuleWords, DoNotRebuildTheMap) {
  for (const Side* OneSide : BothSides) {
    TrRule Rule;
    (Rule.*OneSide->SetMap)({{5, 6}});
    (Rule.*OneSide->SetWords)("a b");
    (Rule.*OneSide->SetWordList)({"a", "b", "c"});
    EXPECT_EQ((Rule.*OneSide->GetMap)(), (IntMap{{5, 6}}));
  }
}

// ---- Label sequences ----------------------------------------------------------------------------

TEST(TrRuleLabels, AreSplitAtBlanksWithoutEmptyOnes) {
  struct Case {
    std::string Text;
    Strings Labels;
  };
  const Case Cases[] = {
      {" det  adj\t n ", {"DET", "ADJ", "N"}},
      {"", {}},
      {" ", {}},
      {"\t", {}},
      {" \t \r\n ", {}},
      {"det\tadj", {"DET\tADJ"}},
      {"det\r\nadj", {"DET\r\nADJ"}},
      {"det adj\r\n", {"DET", "ADJ"}},
      {"\v\fdet", {"DET"}},
      {"\"the\" 'n'", {"\"THE\"", "'N'"}},
      {"z" + OddBytes + " n", {"Z" + OddBytes, "N"}},
  };
  for (const Labels& Sequence : AllLabels) {
    for (const auto& [Text, vsLabels] : Cases) {
      SCOPED_TRACE(Sequence.Setter + ": "s + Text);
      TrRule Rule;
      (Rule.*Sequence.FromText)("held before");
      (Rule.*Sequence.FromText)(Text);
      EXPECT_EQ((Rule.*Sequence.Get)(), vsLabels);
    }
  }
}

TEST(TrRuleLabels, AreReadFromEveryPrefixOfAText) {
  const std::string Text = " det  adj\t n ";
  const Strings vsExpected = {"",        "",        "D",         "DE",       "DET",
                              "DET",     "DET",     "DET A",     "DET AD",   "DET ADJ",
                              "DET ADJ", "DET ADJ", "DET ADJ N", "DET ADJ N"};
  ASSERT_EQ(vsExpected.size(), Text.size() + 1);
  for (const Labels& Sequence : AllLabels) {
    for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
      TrRule Rule;
      (Rule.*Sequence.FromText)(Text.substr(0, Size));
      EXPECT_EQ((Rule.*Sequence.Get)(), Tokenizer()(vsExpected[Size], " "))
          << Sequence.Setter << " with " << Size << " bytes";
    }
  }
}

TEST(TrRuleLabels, AreCapitalisedFromAList) {
  for (const Labels& Sequence : AllLabels) {
    TrRule Rule;
    (Rule.*Sequence.FromText)("held before");
    (Rule.*Sequence.FromList)({"det", "", " a\tb ", "\"o'k\"", "z" + OddBytes});
    EXPECT_EQ((Rule.*Sequence.Get)(), (Strings{"DET", "", " A\tB ", "\"O'K\"", "Z" + OddBytes}))
        << Sequence.Setter;
    (Rule.*Sequence.FromList)({});
    EXPECT_EQ((Rule.*Sequence.Get)(), Strings()) << Sequence.Setter;
  }
}

TEST(TrRuleLabels, TraceTheMapTwiceAtLevelOne) {
  for (const int Level : AllLevels) {
    for (const Labels& Sequence : AllLabels) {
      SCOPED_TRACE(Sequence.Setter + " at level "s + std::to_string(Level));
      TrRule Rule;
      (Rule.*Sequence.Words->SetWords)("a b");
      (Rule.*Sequence.Words->SetPOS)("x y");
      const std::string Header = "Now printing inited "s + Sequence.Words->Map + " map";
      const std::string Entries = "-3--1000\n0--0\n1--7\n";
      const std::string Trace =
          Header + ".\n" + Entries + Header + " (from " + Sequence.Setter + ").\n" + Entries;
      const Written Expected = {Level == 1 ? Trace : "", ""};
      const DebugLevel Guard(Level);
      (Rule.*Sequence.Words->SetMap)({{1, 7}, {-3, 1000}});
      EXPECT_EQ(WrittenBy([&] { (Rule.*Sequence.FromText)("x y"); }), Expected);
      (Rule.*Sequence.Words->SetMap)({{1, 7}, {-3, 1000}});
      EXPECT_EQ(WrittenBy([&] { (Rule.*Sequence.FromList)({"x", "y"}); }), Expected);
    }
  }
}

TEST(TrRuleLabels, TraceOnlyTheHeadersOfAnEmptyMap) {
  const DebugLevel Guard(1);
  for (const Labels& Sequence : AllLabels) {
    TrRule Rule;
    const std::string Header = "Now printing inited "s + Sequence.Words->Map + " map";
    EXPECT_EQ(WrittenBy([&] { (Rule.*Sequence.FromText)(""); }),
              (Written{Header + ".\n" + Header + " (from " + Sequence.Setter + ").\n", ""}));
  }
}

TEST(TrRuleLabels, RebuildTheMapFromTheComponentsOfTheirSide) {
  const IntMap Identity = {{0, 0}, {1, 1}, {2, 2}};
  for (const Labels& Sequence : AllLabels) {
    SCOPED_TRACE(Sequence.Setter);
    const bool IsComponents = Sequence.FromText == Sequence.Words->SetPOS;
    for (const bool FromText : {true, false}) {
      TrRule Rule;
      for (const Side* Words : BothSides) {
        (Rule.*Words->SetWords)("a b c");
        (Rule.*Words->SetPOS)("x y z");
        (Rule.*Words->SetMap)({});
      }
      const auto Set = [&](const Strings& vsLabels) {
        FromText ? (Rule.*Sequence.FromText)(vsLabels.empty() ? "" : "x y z")
                 : (Rule.*Sequence.FromList)(vsLabels);
      };
      Set({"x", "y", "z"});
      EXPECT_EQ((Rule.*Sequence.Words->GetMap)(), Identity);
      const Side& Other = Sequence.Words == &SourceSide ? TargetSide : SourceSide;
      EXPECT_EQ((Rule.*Other.GetMap)(), IntMap());
      Set({});
      EXPECT_EQ((Rule.*Sequence.Words->GetMap)(), IsComponents ? IntMap() : Identity);
    }
  }
}

// ---- Word-to-component maps ---------------------------------------------------------------------

TEST(TrRuleMaps, AreTheIdentityWhenEachWordIsAComponent) {
  struct Case {
    const char* Words;
    const char* Components;
    IntMap Before;
    IntMap After;
    const char* Entries;
  };
  const Case Cases[] = {
      {"a b c", "x y z", {}, {{0, 0}, {1, 1}, {2, 2}}, "0--0\n1--1\n2--2\n"},
      {"a b c", "x y", {}, {}, ""},
      {"a b c", "x y", {{0, 0}, {1, 1}, {9, 9}}, {}, ""},
      {"a b", "x y z", {{0, 0}}, {}, ""},
      {"", "x", {{0, 0}}, {}, ""},
      {"a", "", {{0, 0}}, {}, ""},
      {"", "", {}, {}, ""},
      {"", "", {{5, 6}}, {{5, 6}}, "5--6\n"},
      {"a b c", "x y z", {{0, 1}}, {{0, 1}, {1, 1}, {2, 2}}, "0--1\n1--1\n2--2\n"},
      {"a b",
       "x y",
       {{7, 0}, {-2, -5}, {1, 0}},
       {{-2, -5}, {0, 0}, {1, 0}, {7, 0}},
       "-2---5\n0--0\n1--0\n7--0\n"},
  };
  for (const Side* OneSide : BothSides) {
    for (const auto& [Words, Components, Before, After, Entries] : Cases) {
      for (const int Level : AllLevels) {
        SCOPED_TRACE(OneSide->Map + ": "s + Words + " / " + Components + " at level " +
                     std::to_string(Level));
        TrRule Rule;
        (Rule.*OneSide->SetWords)(Words);
        (Rule.*OneSide->SetPOS)(Components);
        (Rule.*OneSide->SetMap)(Before);
        const DebugLevel Guard(Level);
        const std::string Trace = "Now printing inited "s + OneSide->Map + " map.\n" + Entries;
        EXPECT_EQ(WrittenBy([&] { (Rule.*OneSide->Init)(); }),
                  (Written{Level == 1 ? Trace : "", ""}));
        EXPECT_EQ((Rule.*OneSide->GetMap)(), After);
      }
    }
  }
}

TEST(TrRuleMaps, KeepTheirEntriesWhenMatchingLabelsAreSet) {
  for (const Side* OneSide : BothSides) {
    TrRule Rule;
    (Rule.*OneSide->SetWords)("a b c");
    (Rule.*OneSide->SetMap)({{0, 1}});
    (Rule.*OneSide->SetPOS)("x y z");
    EXPECT_EQ((Rule.*OneSide->GetMap)(), (IntMap{{0, 1}, {1, 1}, {2, 2}}));
    (Rule.*OneSide->SetPOS)("x y");
    EXPECT_EQ((Rule.*OneSide->GetMap)(), IntMap());
  }
}

TEST(TrRuleMaps, StayUnchangedWithoutWordsAndLabels) {
  for (const Side* OneSide : BothSides) {
    TrRule Rule;
    (Rule.*OneSide->SetMap)({{3, 4}});
    (Rule.*OneSide->SetPOS)("");
    EXPECT_EQ((Rule.*OneSide->GetMap)(), (IntMap{{3, 4}}));
  }
}

TEST(TrRuleMaps, AreEmptyInAReadRule) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  EXPECT_EQ(Rule.GetSLWord2Comp(), IntMap());
  EXPECT_EQ(Rule.GetTLWord2Comp(), IntMap());
}

TEST(TrRuleMaps, AreSharedWithTheFirstAlternative) {
  TrRule Rule;
  Rule.SetSLWord2Comp({{0, 1}});
  EXPECT_EQ(AllMaps(Rule), std::pair(IntMaps{{{0, 1}}}, IntMaps{}));
  Rule.SetTLWord2Comp({{2, 3}});
  EXPECT_EQ(AllMaps(Rule), std::pair(IntMaps{{{0, 1}}}, IntMaps{{{2, 3}}}));
  Rule.AddAlterTrInfo("", "", "", "", {{4, 4}}, {{5, 5}}, {}, {});
  Rule.SetSLWord2Comp({{-6, 6}});
  Rule.SetTLWord2Comp({});
  EXPECT_EQ(Rule.GetSLWord2Comp(), (IntMap{{-6, 6}}));
  EXPECT_EQ(Rule.GetTLWord2Comp(), IntMap());
  EXPECT_EQ(AllMaps(Rule), std::pair(IntMaps{{{-6, 6}}, {{4, 4}}}, IntMaps{IntMap{}, {{5, 5}}}));
}

// ---- Plain members ------------------------------------------------------------------------------

TEST(TrRulePlainMembers, KeepAnyText) {
  for (const TextMember& Member : AllTexts) {
    TrRule Rule;
    for (const std::string& Text :
         {"np"s, " a\t'b' \"c\"\r\n"s, OddBytes, "((2,1),(1,2))"s, "1,1"s, ""s}) {
      (Rule.*Member.Set)(Text);
      EXPECT_EQ((Rule.*Member.Get)(), Text) << Member.Name;
    }
  }
}

TEST(TrRulePlainMembers, KeepAnyNumber) {
  for (const NumberMember& Member : AllNumbers) {
    TrRule Rule;
    for (const int Number : {0, 8, -1, -17, INT_MAX, INT_MIN}) {
      (Rule.*Member.Set)(Number);
      EXPECT_EQ((Rule.*Member.Get)(), Number) << Member.Name;
    }
  }
}

TEST(TrRulePlainMembers, CountExamplesOneByOne) {
  TrRule Rule;
  Rule.IncrementNumTrExamples();
  EXPECT_EQ(Rule.GetNumTrExamples(), 2);
  Rule.SetNumTrExamples(-1);
  Rule.IncrementNumTrExamples();
  EXPECT_EQ(Rule.GetNumTrExamples(), 0);
}

TEST(TrRulePlainMembers, KeepASetOfNumbers) {
  TrRule Rule;
  Rule.SetCSet({3, 1});
  Rule.AddToCSet(-2);
  Rule.AddToCSet(3);
  EXPECT_EQ(Rule.GetCSet(), (std::set<int>{-2, 1, 3}));
  Rule.SetCSet({7});
  EXPECT_EQ(Rule.GetCSet(), (std::set<int>{7}));
  Rule.ClearCSet();
  EXPECT_EQ(Rule.GetCSet(), std::set<int>());
  Rule.AddToCSet(INT_MIN);
  EXPECT_EQ(Rule.GetCSet(), (std::set<int>{INT_MIN}));
}

TEST(TrRulePlainMembers, CountTheConstraints) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  EXPECT_EQ(Rule.GetNumConstraints(), 7);
  Rule.SetConstraint(1, "num", "sg", "empty", 1, 1);
  EXPECT_EQ(Rule.GetNumConstraints(), 8);
  Rule.ClearConstraints();
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
}

TEST(TrRulePlainMembers, TraceTheNewStructureAtLevelOne) {
  for (const int Level : AllLevels) {
    TrRule Rule;
    Rule.SetCStructure("held before");
    const DebugLevel Guard(Level);
    EXPECT_EQ(WrittenBy([&] { Rule.SetCStructure("(NP " + OddBytes + ")"); }),
              (Written{Level == 1 ? "Setting CStructure:|(NP " + OddBytes + ")|\n" : "", ""}));
    EXPECT_EQ(WrittenBy([&] { Rule.SetCStructure(""); }),
              (Written{Level == 1 ? "Setting CStructure:||\n" : "", ""}));
    EXPECT_EQ(Rule.GetCStructure(), "");
  }
}

TEST(TrRulePlainMembers, OrderOnlyTheComponentAlignments) {
  TrRule Rule;
  Rule.SetAlignment("((2,1),(1,1))");
  Rule.SetsWordLevelAl("((2,1),(1,1))");
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(2,1))");
  EXPECT_EQ(Rule.GetsWordLevelAl(), "((2,1),(1,1))");
}

// ---- Copies -------------------------------------------------------------------------------------

TEST(TrRuleCopy, HasAllButTheCommentsAndTheHeaderType) {
  TrRule Original;
  Fill(Original);
  TrRule New;
  // Every member except Comments and POS, which the printed form shows.
  EXPECT_EQ(Differences(Members(New), Members(Original)),
            "AlignmentString CSet CStructure Constraint HeadIndex NumTrExamples RuleIndex SLPOS "
            "SLPOSFromParse SLType SLWord2Comp SLWords TLPOS TLPOSFromParse TLType TLWord2Comp "
            "TLWords WordLevelSLPOS WordLevelTLPOS XHeadIndex YHeadIndex sWordLevelAl "
            "vmiiAllSLWord2Comps vmiiAllTLWord2Comps vsAllAlignments vsAllCStructures "
            "vsAllSLSents vsAllTLSents vvsAllWordLevelSLPOSs vvsAllWordLevelTLPOSs");
  const std::string Before = Dump(Original);
  TrRule Copy(Original);
  EXPECT_EQ(Members(Copy), Members(Original));
  EXPECT_EQ(Dump(Original), Before);
  EXPECT_EQ(Printed(Original), StringUtils::ReplaceAll(Printed(Copy), "{,8}\n",
                                                       ";; SL: I see the red car\n"
                                                       ";; TL: veo el auto rojo\n"
                                                       ";; Users: 2\n"
                                                       "{NP,8}\n"));
}

TEST(TrRuleCopy, PrintsNoCommentsAndAnEmptyHeaderTypeForAReadRule) {
  TrRule Original;
  ASSERT_TRUE(Original.SetTrRuleFromString(SampleText));
  ASSERT_EQ(Printed(Original), SamplePrinted);
  TrRule Copy(Original);
  EXPECT_EQ(Printed(Copy), "{,8}" + SamplePrinted.substr(SamplePrinted.find("\nNP::NP")));
  EXPECT_EQ(Printed(Original), SamplePrinted);
}

TEST(TrRuleCopy, HasEveryOtherMemberOfTheOriginal) {
  TrRule Unchanged;
  Fill(Unchanged);
  for (const Change& Variant : AllChanges()) {
    TrRule Original;
    Fill(Original);
    Variant.Make(Original);
    TrRule Copy(Original);
    ASSERT_NE(Members(Original), Members(Unchanged)) << Variant.Members;
    EXPECT_EQ(Members(Copy), Members(Original)) << Variant.Members;
  }
}

TEST(TrRuleCopy, SharesNothingWithTheOriginal) {
  TrRule Original;
  Fill(Original);
  const std::string Before = Members(Original);
  for (const Change& Variant : AllChanges()) {
    TrRule Copy(Original);
    Variant.Make(Copy);
    EXPECT_EQ(Differences(Before, Members(Copy)), Variant.Members);
    EXPECT_EQ(Members(Original), Before) << Variant.Members;
  }
}

TEST(TrRuleCopy, OrdersItsAlignmentsAndTracesThatAtLevelFour) {
  TrRule Original;
  ASSERT_TRUE(Original.SetTrRuleFromString(SampleText));
  Original.FlipRuleNoConstraints();
  ASSERT_EQ(Original.GetAlignmentStr(), "((1,1),(3,2),(2,3))");
  for (const int Level : AllLevels) {
    const DebugLevel Guard(Level);
    const std::string Trace =
        "In TrRule's copy constructor.\n"
        "In ReorderAlignments, AlignmentString is:((1,1),(3,2),(2,3))"
        "At the end of ReorderAlignments, AlignmentString is:((1,1),(2,3),(3,2))\n";
    EXPECT_EQ(WrittenBy([&] {
                const TrRule Copy(Original);
                EXPECT_EQ(Copy.GetAlignmentStr(), "((1,1),(2,3),(3,2))");
              }),
              (Written{Level == 4 ? Trace : "", ""}));
  }
  EXPECT_EQ(Original.GetAlignmentStr(), "((1,1),(3,2),(2,3))");
}

TEST(TrRuleCopy, TracesOnlyTheStartForANewRule) {
  const DebugLevel Guard(4);
  const TrRule Original;
  EXPECT_EQ(WrittenBy([&] { const TrRule Copy(Original); }),
            (Written{"In TrRule's copy constructor.\n"
                     "In ReorderAlignments, AlignmentString is:",
                     ""}));
}

TEST(TrRuleCopy, EndsTheProcessWhenTheAlignmentsCannotBeOrdered) {
  TrRule Original;
  const std::string Message =
      "Alignment string was not in correct format:|1,2|\n"
      "NewAl[0] is:1\n"
      "NewAl[NewAl.length()-1] is:2\n";
  EXPECT_EQ(WrittenBy([&] { HaltOf([&] { Original.SetAlignment("1,2"); }); }),
            (Written{"", Message}));
  ASSERT_EQ(Original.GetAlignmentStr(), "1,2");
  EXPECT_EQ(RunInChild([&] { const TrRule Copy(Original); }), (ChildEnd{1, "", Message}));
  const DebugLevel Guard(4);
  EXPECT_EQ(RunInChild([&] { const TrRule Copy(Original); }),
            (ChildEnd{1,
                      "In TrRule's copy constructor.\n"
                      "In ReorderAlignments, AlignmentString is:1,2",
                      Message}));
}

// ---- Locales ------------------------------------------------------------------------------------

TEST(TrRuleLocale, DoesNotChangeLettersOrNumbers) {
  for (const char* CName : {"", "C", "C.utf8", "de_DE.ISO-8859-1", "en_US.ISO-8859-1"}) {
    SCOPED_TRACE(CName);
    const LocaleGuard Guard(CName);
    TrRule Rule;
    Rule.SetSLWords("x\xE4 y\xA0");
    Rule.SetTLWords(Strings{"x\xE4", "y\xA0"});
    EXPECT_EQ(Rule.GetSLWords(), (Strings{"X\xE4", "Y\xA0"}));
    EXPECT_EQ(Rule.GetTLWords(), (Strings{"X\xE4", "Y\xA0"}));
    for (const Labels& Sequence : AllLabels) {
      (Rule.*Sequence.FromText)("x\xE4 y\xA0");
      EXPECT_EQ((Rule.*Sequence.Get)(), (Strings{"X\xE4", "Y\xA0"})) << Sequence.Setter;
    }
    Rule.SetTLWord2Comp({{-1000, 2000000}});
    const DebugLevel Level(1);
    EXPECT_EQ(WrittenBy([&] { Rule.InitTLWord2Comp(); }),
              (Written{"Now printing inited TLWord2Comp map.\n-1000--2000000\n0--0\n1--1\n", ""}));
  }
}
