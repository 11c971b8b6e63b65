// Sections, in the order of the header: lifecycle, comparison, words, label sequences,
// word-to-component maps, plain members, alignments, reading, writing, constraints, flipping,
// alternatives.

#include "TrRule.h"

#include "AlignmentLine.h"
#include "AlignmentText.h"
#include "Ascii.h"
#include "HeaderLine.h"
#include "LineScan.h"
#include "LineWriting.h"
#include "OrderHalt.h"
#include "PrintOrder.h"
#include "RuleLoader.h"
#include "Splitter.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <optional>
#include <tuple>

using TrRuleInternal::AlignmentFault;
using TrRuleInternal::AlignmentParts;
using TrRuleInternal::AppendHeaderLine;
using TrRuleInternal::AppendJoined;
using TrRuleInternal::AppendLabelsLine;
using TrRuleInternal::AppendListLine;
using TrRuleInternal::AppendMapLine;
using TrRuleInternal::AppendScoreLine;
using TrRuleInternal::AppendTextLine;
using TrRuleInternal::AppendWordsLine;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::Contains;
using TrRuleInternal::DisplayPair;
using TrRuleInternal::DisplayWalk;
using TrRuleInternal::DropBack;
using TrRuleInternal::DropFront;
using TrRuleInternal::FieldPair;
using TrRuleInternal::Halt;
using TrRuleInternal::HeaderParts;
using TrRuleInternal::IsSpace;
using TrRuleInternal::KeptLetters;
using TrRuleInternal::LineMarks;
using TrRuleInternal::Merging;
using TrRuleInternal::OrderedConstraint;
using TrRuleInternal::ParseLabels;
using TrRuleInternal::PrintGroup;
using TrRuleInternal::RuleLineParts;
using TrRuleInternal::RuleLoader;
using TrRuleInternal::SplitInTwoTrimmed;
using TrRuleInternal::Splitter;
using TrRuleInternal::StartsWith;
using TrRuleInternal::ToInt;

namespace {

/// Whether the traces of a level are on.
bool Traces(int Level) {
  return GlobalParams::DebuggingLevel == Level;
}

}  // namespace

// ---- Lifecycle --------------------------------------------------------------------------------

TrRule::TrRule() = default;

TrRule::TrRule(const TrRule& OtherPassIn)
    : SLWords(OtherPassIn.SLWords),
      vsAllSLSents(OtherPassIn.vsAllSLSents),
      SLPOS(OtherPassIn.SLPOS),
      WordLevelSLPOS(OtherPassIn.WordLevelSLPOS),
      SLPOSFromParse(OtherPassIn.SLPOSFromParse),
      TLPOSFromParse(OtherPassIn.TLPOSFromParse),
      vvsAllWordLevelSLPOSs(OtherPassIn.vvsAllWordLevelSLPOSs),
      TLWords(OtherPassIn.TLWords),
      vsAllTLSents(OtherPassIn.vsAllTLSents),
      TLPOS(OtherPassIn.TLPOS),
      WordLevelTLPOS(OtherPassIn.WordLevelTLPOS),
      vvsAllWordLevelTLPOSs(OtherPassIn.vvsAllWordLevelTLPOSs),
      AlignmentString(OtherPassIn.AlignmentString),
      sWordLevelAl(OtherPassIn.sWordLevelAl),
      vsAllAlignments(OtherPassIn.vsAllAlignments),
      CStructure(OtherPassIn.CStructure),
      vsAllCStructures(OtherPassIn.vsAllCStructures),
      SLType(OtherPassIn.SLType),
      TLType(OtherPassIn.TLType),
      ConstraintsMap(OtherPassIn.ConstraintsMap),
      RuleIndex(OtherPassIn.RuleIndex),
      CSet(OtherPassIn.CSet),
      SLWord2Comp(OtherPassIn.SLWord2Comp),
      vmiiAllSLWord2Comps(OtherPassIn.vmiiAllSLWord2Comps),
      TLWord2Comp(OtherPassIn.TLWord2Comp),
      vmiiAllTLWord2Comps(OtherPassIn.vmiiAllTLWord2Comps),
      NumTrExamples(OtherPassIn.NumTrExamples),
      HeadIndex(OtherPassIn.HeadIndex),
      XHeadIndex(OtherPassIn.XHeadIndex),
      YHeadIndex(OtherPassIn.YHeadIndex) {
  if (Traces(4)) {
    std::cout << "In TrRule's copy constructor.\n";
  }
  ReorderAlignments();
}

void TrRule::operator=(TrRule OtherTR) {
  if (Traces(3)) {
    std::cout << "In TrRule's overloaded assignment operator.\n";
  }
  SLWords = std::move(OtherTR.SLWords);
  vsAllSLSents = std::move(OtherTR.vsAllSLSents);
  SLPOS = std::move(OtherTR.SLPOS);
  WordLevelSLPOS = std::move(OtherTR.WordLevelSLPOS);
  SLPOSFromParse = std::move(OtherTR.SLPOSFromParse);
  TLPOSFromParse = std::move(OtherTR.TLPOSFromParse);
  vvsAllWordLevelSLPOSs = std::move(OtherTR.vvsAllWordLevelSLPOSs);
  TLWords = std::move(OtherTR.TLWords);
  vsAllTLSents = std::move(OtherTR.vsAllTLSents);
  TLPOS = std::move(OtherTR.TLPOS);
  WordLevelTLPOS = std::move(OtherTR.WordLevelTLPOS);
  vvsAllWordLevelTLPOSs = std::move(OtherTR.vvsAllWordLevelTLPOSs);
  AlignmentString = std::move(OtherTR.AlignmentString);
  sWordLevelAl = std::move(OtherTR.sWordLevelAl);
  vsAllAlignments = std::move(OtherTR.vsAllAlignments);
  CStructure = std::move(OtherTR.CStructure);
  vsAllCStructures = std::move(OtherTR.vsAllCStructures);
  SLType = std::move(OtherTR.SLType);
  TLType = std::move(OtherTR.TLType);
  ConstraintsMap = std::move(OtherTR.ConstraintsMap);
  RuleIndex = OtherTR.RuleIndex;
  CSet = std::move(OtherTR.CSet);
  SLWord2Comp = std::move(OtherTR.SLWord2Comp);
  vmiiAllSLWord2Comps = std::move(OtherTR.vmiiAllSLWord2Comps);
  TLWord2Comp = std::move(OtherTR.TLWord2Comp);
  vmiiAllTLWord2Comps = std::move(OtherTR.vmiiAllTLWord2Comps);
  NumTrExamples = OtherTR.NumTrExamples;
  HeadIndex = OtherTR.HeadIndex;
  XHeadIndex = OtherTR.XHeadIndex;
  YHeadIndex = OtherTR.YHeadIndex;
  if (Traces(3)) {
    std::cout << "Leaving TrRule's overloaded assignment operator, rule is now:";
    Print();
  }
}

TrRule::~TrRule() = default;

// ---- Comparison -------------------------------------------------------------------------------

bool TrRule::operator<(TrRule other) const {
  if (Traces(1)) {
    std::cout << "In TrRule's overloaded less than operator.\n";
  }
  // The texts are those of two further copies. Copying is observable if it is traced, or if it
  // changes or reports alignments that are not in order. Otherwise no copies are made.
  if (!Traces(4) && HasCanonicalAlignments() && other.HasCanonicalAlignments()) {
    const std::string OtherText = other.ComparisonText();
    return ComparisonText() < OtherText;
  }
  const TrRule ThisCopy(*this);
  const TrRule OtherCopy(other);
  const std::string OtherText = OtherCopy.ComparisonText();
  return ThisCopy.ComparisonText() < OtherText;
}

bool TrRule::HasCanonicalAlignments() const {
  return AlignmentString.empty() || TrRuleInternal::IsCanonical(AlignmentString);
}

namespace {

using ConstraintMap = std::map<std::string, Constraint>;

/// Compares the keys of two maps of the same size, up to the first difference.
bool HaveSameKeys(const ConstraintMap& Left, const ConstraintMap& Right) {
  auto RightEntry = Right.begin();
  for (const auto& [LeftKey, LeftConstraint] : Left) {
    const std::string& RightKey = RightEntry->first;
    if (Traces(1)) {
      std::cout << "Comparing:" << LeftKey << " and " << RightKey << '\n';
    }
    if (LeftKey != RightKey) {
      return false;
    }
    ++RightEntry;
  }
  return true;
}

}  // namespace

bool TrRule::operator==(TrRule other) const {
  if (Traces(1)) {
    std::cout << "In overloaded operator==.\n";
  }
  if (SLWords != other.SLWords || SLPOS != other.SLPOS || TLWords != other.TLWords ||
      TLPOS != other.TLPOS || AlignmentString != other.AlignmentString || SLType != other.SLType ||
      TLType != other.TLType) {
    return false;
  }
  if (NumTrExamples != other.NumTrExamples) {
    return NumTrExamples < other.NumTrExamples;
  }
  if (ConstraintsMap.size() != other.ConstraintsMap.size()) {
    return false;
  }
  if (Traces(1)) {
    std::cout << "Now comparing constraints.\n";
  }
  return HaveSameKeys(ConstraintsMap, other.ConstraintsMap);
}

// ---- Words ------------------------------------------------------------------------------------

namespace {

std::vector<std::string> UpperAll(std::vector<std::string> vsTexts) {
  for (std::string& sText : vsTexts) {
    TrRuleInternal::MakeUpper(sText);
  }
  return vsTexts;
}

std::vector<std::string> ParseWords(const Tokenizer& Tokenize, std::string sSentence) {
  return Tokenize(TrRuleInternal::Upper(std::move(sSentence)), " ", true);
}

std::string Joined(const std::vector<std::string>& vsTexts) {
  std::string Text;
  AppendJoined(Text, vsTexts);
  return Text;
}

}  // namespace

void TrRule::SetSLWords(std::vector<std::string> SLWordsPassIn) {
  SLWords = UpperAll(std::move(SLWordsPassIn));
}

void TrRule::SetSLWords(std::string SLSent) {
  SLWords = ParseWords(Tokenize, std::move(SLSent));
}

std::vector<std::string> TrRule::GetSLWords() const {
  return SLWords;
}

std::string TrRule::GetSLString() const {
  return Joined(SLWords);
}

void TrRule::SetTLWords(std::vector<std::string> TLWordsPassIn) {
  TLWords = UpperAll(std::move(TLWordsPassIn));
  for (std::string& sWord : TLWords) {
    sWord = StringUtils::ReplaceAll(std::move(sWord), "\"", "\\\"");
    sWord = StringUtils::ReplaceAll(std::move(sWord), "'", "\\'");
  }
}

void TrRule::SetTLWords(std::string TLSent) {
  TLWords = ParseWords(Tokenize, std::move(TLSent));
}

std::vector<std::string> TrRule::GetTLWords() const {
  return TLWords;
}

std::string TrRule::GetTLString() const {
  return Joined(TLWords);
}

// ---- Label sequences --------------------------------------------------------------------------

namespace {

void PrintEntries(const std::map<int, int>& miiMap) {
  for (const auto& [Word, Component] : miiMap) {
    std::cout << std::to_string(Word) + "--" + std::to_string(Component) + '\n';
  }
}

/// Traces a map that a setter has rebuilt.
void TraceRebuiltMap(std::string_view Map, std::string_view Setter,
                     const std::map<int, int>& miiMap) {
  if (Traces(1)) {
    std::cout << "Now printing inited " << Map << " map (from " << Setter << ").\n";
    PrintEntries(miiMap);
  }
}

}  // namespace

void TrRule::SetSLPOS(std::vector<std::string> SLPOSPassIn) {
  SLPOS = UpperAll(std::move(SLPOSPassIn));
  InitSLWord2Comp();
  TraceRebuiltMap("SLWord2Comp", "SetSLPOS", SLWord2Comp);
}

void TrRule::SetSLPOS(std::string SLPOSStrPassIn) {
  SetSLPOS(ParseLabels(SLPOSStrPassIn));
}

std::vector<std::string> TrRule::GetSLPOS() const {
  return SLPOS;
}

void TrRule::SetWordLevelSLPOS(std::vector<std::string> WordLevelSLPOSPassIn) {
  WordLevelSLPOS = UpperAll(std::move(WordLevelSLPOSPassIn));
  InitSLWord2Comp();
  TraceRebuiltMap("SLWord2Comp", "SetWordLevelSLPOS", SLWord2Comp);
}

void TrRule::SetWordLevelSLPOS(std::string WordLevelSLPOSStrPassIn) {
  SetWordLevelSLPOS(ParseLabels(WordLevelSLPOSStrPassIn));
}

std::vector<std::string> TrRule::GetWordLevelSLPOS() const {
  return WordLevelSLPOS;
}

void TrRule::SetSLPOSFromParse(std::vector<std::string> SLPOSFromParsePassIn) {
  SLPOSFromParse = UpperAll(std::move(SLPOSFromParsePassIn));
  InitSLWord2Comp();
  TraceRebuiltMap("SLWord2Comp", "SetSLPOSFromParse", SLWord2Comp);
}

void TrRule::SetSLPOSFromParse(std::string SLPOSFromParseStrPassIn) {
  SetSLPOSFromParse(ParseLabels(SLPOSFromParseStrPassIn));
}

std::vector<std::string> TrRule::GetSLPOSFromParse() const {
  return SLPOSFromParse;
}

std::vector<std::string> TrRule::GetTLPOSFromParseAfterFlipping() const {
  return TLPOSFromParse;
}

void TrRule::SetTLPOS(std::vector<std::string> TLPOSPassIn) {
  TLPOS = UpperAll(std::move(TLPOSPassIn));
  InitTLWord2Comp();
  TraceRebuiltMap("TLWord2Comp", "SetTLPOS", TLWord2Comp);
}

void TrRule::SetTLPOS(std::string TLPOSStrPassIn) {
  SetTLPOS(ParseLabels(TLPOSStrPassIn));
}

std::vector<std::string> TrRule::GetTLPOS() const {
  return TLPOS;
}

void TrRule::SetWordLevelTLPOS(std::vector<std::string> WordLevelTLPOSPassIn) {
  WordLevelTLPOS = UpperAll(std::move(WordLevelTLPOSPassIn));
  InitTLWord2Comp();
  TraceRebuiltMap("TLWord2Comp", "SetWordLevelTLPOS", TLWord2Comp);
}

void TrRule::SetWordLevelTLPOS(std::string WordLevelTLPOSStrPassIn) {
  SetWordLevelTLPOS(ParseLabels(WordLevelTLPOSStrPassIn));
}

std::vector<std::string> TrRule::GetWordLevelTLPOS() const {
  return WordLevelTLPOS;
}

// ---- Word-to-component maps -------------------------------------------------------------------

namespace {

/// Maps each position to itself if every word is a component, and keeps existing entries.
void InitWord2Comp(const std::vector<std::string>& vsWords,
                   const std::vector<std::string>& vsLabels, std::string_view Name,
                   std::map<int, int>& miiMapReturn) {
  if (vsWords.size() == vsLabels.size()) {
    const int Size = static_cast<int>(vsWords.size());
    for (int Position = 0; Position < Size; ++Position) {
      miiMapReturn.emplace(Position, Position);
    }
  } else {
    miiMapReturn.clear();
  }
  if (Traces(1)) {
    std::cout << "Now printing inited " << Name << " map.\n";
    PrintEntries(miiMapReturn);
  }
}

/// Sets the map of a side and that of its first alternative.
void SetWord2Comp(std::map<int, int> miiMap, std::map<int, int>& miiMapReturn,
                  std::vector<std::map<int, int>>& vmiiAllReturn) {
  if (vmiiAllReturn.empty()) {
    vmiiAllReturn.emplace_back();
  }
  vmiiAllReturn.front() = miiMap;
  miiMapReturn = std::move(miiMap);
}

}  // namespace

void TrRule::InitSLWord2Comp() {
  InitWord2Comp(SLWords, SLPOS, "SLWord2Comp", SLWord2Comp);
}

void TrRule::InitTLWord2Comp() {
  InitWord2Comp(TLWords, TLPOS, "TLWord2Comp", TLWord2Comp);
}

void TrRule::SetSLWord2Comp(std::map<int, int> SLWord2CompPassIn) {
  SetWord2Comp(std::move(SLWord2CompPassIn), SLWord2Comp, vmiiAllSLWord2Comps);
}

std::map<int, int> TrRule::GetSLWord2Comp() const {
  return SLWord2Comp;
}

void TrRule::SetTLWord2Comp(std::map<int, int> TLWord2CompPassIn) {
  SetWord2Comp(std::move(TLWord2CompPassIn), TLWord2Comp, vmiiAllTLWord2Comps);
}

std::map<int, int> TrRule::GetTLWord2Comp() const {
  return TLWord2Comp;
}

// ---- Plain members ----------------------------------------------------------------------------

void TrRule::SetCStructure(std::string CStructurePassIn) {
  if (Traces(1)) {
    std::cout << "Setting CStructure:|" << CStructurePassIn << "|\n";
  }
  CStructure = std::move(CStructurePassIn);
}

std::string TrRule::GetCStructure() const {
  return CStructure;
}

void TrRule::SetSLType(std::string SLTypePassIn) {
  SLType = std::move(SLTypePassIn);
}

std::string TrRule::GetSLType() const {
  return SLType;
}

void TrRule::SetTLType(std::string TLTypePassIn) {
  TLType = std::move(TLTypePassIn);
}

std::string TrRule::GetTLType() const {
  return TLType;
}

void TrRule::SetRuleIndex(int RuleIndexPassIn) {
  RuleIndex = RuleIndexPassIn;
}

int TrRule::GetRuleIndex() const {
  return RuleIndex;
}

void TrRule::SetCSet(std::set<int> CSetPassIn) {
  CSet = std::move(CSetPassIn);
}

std::set<int> TrRule::GetCSet() const {
  return CSet;
}

void TrRule::AddToCSet(int CSetElemPassIn) {
  CSet.insert(CSetElemPassIn);
}

void TrRule::ClearCSet() {
  CSet.clear();
}

void TrRule::SetNumTrExamples(int NumTrExamplesPassIn) {
  NumTrExamples = NumTrExamplesPassIn;
}

int TrRule::GetNumTrExamples() const {
  return NumTrExamples;
}

void TrRule::IncrementNumTrExamples() {
  // The count may be the largest int: the unsigned sum wraps around, where ++ would overflow.
  NumTrExamples = static_cast<int>(static_cast<unsigned>(NumTrExamples) + 1U);
}

void TrRule::SetHeadIndex(int iHead) {
  HeadIndex = iHead;
}

int TrRule::GetHeadIndex() const {
  return HeadIndex;
}

void TrRule::SetXHeadIndex(int iHead) {
  XHeadIndex = iHead;
}

int TrRule::GetXHeadIndex() const {
  return XHeadIndex;
}

void TrRule::SetYHeadIndex(int iHead) {
  YHeadIndex = iHead;
}

int TrRule::GetYHeadIndex() const {
  return YHeadIndex;
}

// ---- Alignments -------------------------------------------------------------------------------

void TrRule::SetAlignment(std::string AlignmentStringPassIn) {
  AlignmentString = std::move(AlignmentStringPassIn);
  ReorderAlignments();
}

namespace {

void TraceAlignmentLine(std::string_view Line) {
  if (Traces(1)) {
    std::cout << "In TrRule::AddAlignment, string is:|" << Line << "|\n";
  }
}

void ReportAlignment(AlignmentFault Fault) {
  if (Fault == AlignmentFault::XSide) {
    std::cout << "ERROR in TrRule::AddAlignment: x information missing or incorrect.\n";
  } else if (Fault == AlignmentFault::YSide) {
    std::cout << "ERROR in TrRule::AddAlignment, y information missing or incorrect.\n";
  }
}

}  // namespace

bool TrRule::AddAlignment(std::string AlignmentPassIn) {
  const std::string Upper = TrRuleInternal::Upper(std::move(AlignmentPassIn));
  TraceAlignmentLine(Upper);
  const std::string_view Line = TrRuleInternal::WithinParentheses(Upper);
  if (Line.empty()) {
    return false;
  }
  TraceAlignmentLine(Line);
  TrRuleInternal::AlignmentTexts Texts;
  const AlignmentFault Fault = TrRuleInternal::ReadAlignment(Line, Texts);
  ReportAlignment(Fault);
  if (Fault != AlignmentFault::None) {
    return false;
  }
  TrRuleInternal::AppendPair(AlignmentString, Texts.X, Texts.Y);
  if (Traces(1)) {
    std::cout << "At the end of AddAlignment, AlignmentString is:" << AlignmentString << '\n';
  }
  ReorderAlignments();
  return true;
}

std::string TrRule::GetAlignmentStr() const {
  return AlignmentString;
}

std::vector<std::string> TrRule::GetAlignments() const {
  std::vector<std::string> vsLines;
  DisplayWalk Walk(AlignmentString);
  for (DisplayPair Pair; Walk.Next(Pair);) {
    AppendAlignmentLine(vsLines.emplace_back(), Pair.X, Pair.Y);
  }
  return vsLines;
}

void TrRule::SetsWordLevelAl(std::string sWordLevelAlPassIn) {
  sWordLevelAl = std::move(sWordLevelAlPassIn);
}

std::string TrRule::GetsWordLevelAl() const {
  return sWordLevelAl;
}

namespace {

[[noreturn]] void HaltForAlignmentFormat(const std::string& Alignments) {
  Halt(HaltReason::AlignmentFormat, "Alignment string was not in correct format:|" + Alignments +
                                        "|\nNewAl[0] is:" + Alignments.front() +
                                        "\nNewAl[NewAl.length()-1] is:" + Alignments.back());
}

void ReportMissing(TrRuleInternal::MissingIndex Which, const std::string& Alignments) {
  const bool IsX = Which == TrRuleInternal::MissingIndex::X;
  std::cerr << (IsX ? "ALIGNMENT" : "Alignment") << " string is not in correct format:|"
            << Alignments << "|\n";
}

}  // namespace

void TrRule::ReorderAlignments() {
  if (Traces(4)) {
    std::cout << "In ReorderAlignments, AlignmentString is:" << AlignmentString;
  }
  if (!TrRuleInternal::HasOuterParentheses(AlignmentString)) {
    HaltForAlignmentFormat(AlignmentString);
  }
  if (AlignmentString.empty()) {
    return;
  }
  if (!HasCanonicalAlignments()) {
    std::vector<TrRuleInternal::MissingIndex> vMissing;
    std::string Canonical = TrRuleInternal::CanonicalAlignments(AlignmentString, vMissing);
    for (const TrRuleInternal::MissingIndex Which : vMissing) {
      ReportMissing(Which, AlignmentString);
    }
    AlignmentString = std::move(Canonical);
  }
  if (Traces(4)) {
    std::cout << "At the end of ReorderAlignments, AlignmentString is:" << AlignmentString << '\n';
  }
}

std::string TrRule::GetReversedAlignments(std::string AlignmentStringPassIn) {
  if (Traces(1)) {
    std::cout << "In TrRule::GetReversedAlignments() AlignmentString is:|" << AlignmentString
              << "|\n";
  }
  if (AlignmentStringPassIn.empty()) {
    return AlignmentStringPassIn;
  }
  std::optional<std::string> Reversed = TrRuleInternal::ReversedAlignments(AlignmentStringPassIn);
  if (!Reversed) {
    Halt(HaltReason::ReversedAlignmentFormat,
         "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|" +
             AlignmentStringPassIn + "|");
  }
  if (Traces(1)) {
    std::cout << "In TrRule::GetReversedAlignments() ReturnAlStr is:|" << *Reversed << "|\n";
  }
  return *std::move(Reversed);
}

namespace {

/// A literal word is in double quotes. A single quote counts as both.
bool IsQuoted(const std::string& sLabel) {
  return !sLabel.empty() && sLabel.front() == '"' && sLabel.back() == '"';
}

}  // namespace

bool TrRule::IsLexicalized(int IndPassIn, int Type) const {
  if (Type != 1 && Type != 2) {
    Halt(HaltReason::LexicalizedType,
         "TrRule::IsLexicalized(int IndPassIn, int Type) must be called with a type of either 1 "
         "(for X,SL) or 2 (Y,TL).");
  }
  const std::vector<std::string>& vsLabels = Type == 1 ? SLPOS : TLPOS;
  const auto Index = static_cast<std::size_t>(IndPassIn);
  if (Index == 0 || Index > vsLabels.size()) {
    std::cerr << "TrRule::IsLexicalized called with invalid " << (Type == 1 ? 'x' : 'y')
              << " index:" << std::to_string(IndPassIn) << ", where there are "
              << std::to_string(vsLabels.size()) << " indices.\n";
    return false;
  }
  return IsQuoted(vsLabels[Index - 1]);
}

// ---- Reading ----------------------------------------------------------------------------------

namespace {

/// Prints the error at which the reader stops.
/// @return false, the result of the reader
bool ReadError(std::string_view What) {
  std::cerr << "Error in SetTrRuleFromStr: " << What << '\n';
  return false;
}

std::string_view WithoutReturn(std::string_view Line) {
  return !Line.empty() && Line.back() == '\r' ? Line.substr(0, Line.size() - 1) : Line;
}

/// Prints the messages of merged values.
void PrintMergings(const std::vector<Merging>& vMergings) {
  for (const auto& [OldValue, NewValue, NewKey] : vMergings) {
    std::cout << "OldFeat:|" << OldValue << "|\nInsertFeat:|" << NewValue
              << "|\nNewKey is now:" << NewKey << '\n';
  }
}

/// Whether a line is only a comment.
bool IsPlainComment(std::string_view Line) {
  constexpr std::size_t None = std::string_view::npos;
  return StartsWith(Line, ";;") && Line.find('{') == None && Line.find(']') == None &&
         Line.find('=') == None && !Contains(Line, "::");
}

// CommonLine = Comment | Header | RuleLine
bool LoadPlainLine(std::string_view Line, RuleLoader& LoaderReturn) {
  if (IsPlainComment(Line)) {
    LoaderReturn.AddComment(Line);
    return true;
  }
  if (HeaderParts Parts; ParseCommonHeader(Line, Parts)) {
    LoaderReturn.SetHeader(Parts.Type.substr(0, KeptLetters), Parts.Number.back() - '0');
    return true;
  }
  RuleLineParts Parts;
  return ParseCommonRuleLine(Line, Parts) && LoaderReturn.SetRuleLine(Parts);
}

// BodyLine = "(" | ")" | AlignmentLine | ConstraintText
bool LoadBodyLine(std::string_view Line, RuleLoader& LoaderReturn) {
  if (Line.size() == 1) {
    return true;
  }
  if (AlignmentParts Parts; Line[1] != '(' && ParseCommonAlignment(Line, Parts)) {
    return LoaderReturn.AddAlignment(Parts);
  }
  ConstraintParts Parts;
  if (!ParseCommonForm(Line, Parts)) {
    return false;
  }
  std::vector<Merging> vMergings;
  LoaderReturn.AddConstraint(Parts, vMergings);
  if (!vMergings.empty()) {
    PrintMergings(vMergings);
  }
  return true;
}

/// Loads a line in its common form, which prints nothing but its mergings. Any other line follows
/// the general rules.
/// @return whether the line was loaded
bool LoadLine(std::string_view Line, RuleLoader& LoaderReturn) {
  if (Line.empty() || Line.size() > Splitter::MaxRest) {
    return false;
  }
  const bool IsInBody = Line.front() == '(' || Line == ")";
  return IsInBody ? LoadBodyLine(Line, LoaderReturn) : LoadPlainLine(Line, LoaderReturn);
}

}  // namespace

// RuleText = { Line "\n" }, in any order
bool TrRule::SetTrRuleFromString(std::string TRStringPassIn) {
  RuleLoader Loader(*this);
  // Traces show the steps of the general rules.
  const bool IsTraced = Traces(1) || Traces(4);
  Splitter Lines(TRStringPassIn, "\n");
  for (std::string_view Line; Lines.Next(Line);) {
    Line = WithoutReturn(Line);
    const bool IsLoaded = !IsTraced && LoadLine(Line, Loader);
    if (!IsLoaded && !ParseLine(Line, Loader)) {
      return false;
    }
  }
  if (!Loader.Finish()) {
    return ReadError("Couldn't set rule -- something missing.");
  }
  if (Traces(1)) {
    std::cout << "Successfully read in a transfer rule from a string:\n";
    Print();
  }
  return true;
}

// Line = [ Comment ] [ Header ] [ RuleLine | AlignmentLine | ConstraintText ]
//
// The contents of a line decide its kind: a comment is read as the other kinds, too.
bool TrRule::ParseLine(std::string_view Line, RuleLoader& LoaderReturn) {
  const LineMarks Marks = TrRuleInternal::ScanLine(Line).Whole;
  if (Marks.HasComment) {
    LoaderReturn.AddComment(Line);
  }
  if (HeaderParts Header; Marks.HasBrace && TrRuleInternal::ReadHeader(Line, Header)) {
    LoaderReturn.SetHeader(Header.Type, ToInt(Header.Number));
  }
  if (Marks.HasArrow) {
    return LoaderReturn.NoteRuleLine() ? ParseRuleLine(Line)
                                       : ReadError("duplicate type and const seq information.");
  }
  if (Marks.HasColons) {
    LoaderReturn.NoteAlignment();
    return AddAlignment(std::string(Line)) ||
           ReadError("Alignment couldn't be set:" + std::string(Line));
  }
  if (Marks.HasEquals) {
    SetConstraint(std::string(Line));
  }
  return true;
}

// RuleLine = SLPart " -> " TLPart; a part without "::" is a TL part, wherever it stands.
bool TrRule::ParseRuleLine(std::string_view Line) {
  Splitter Parts(Line, " -> ");
  for (std::string_view Part; Parts.Next(Part);) {
    if (Traces(1)) {
      std::cout << "TrRule::SetTrRuleFromString: TypeAndConstSeq part is " << Part << '\n';
    }
    if (!(Contains(Part, "::") ? ParseSLPart(Part) : ParseTLPart(Part))) {
      return false;
    }
  }
  return true;
}

// SLPart = SLType "::" TLType " " any Sequence any
bool TrRule::ParseSLPart(std::string_view Part) {
  const std::optional<FieldPair> Types = TrRuleInternal::ReadTypes(Part);
  if (!Types) {
    return ReadError("missing or incorrect type information.");
  }
  if (Traces(1)) {
    std::cout << "Setting SL type:" << Types->First << '\n';
  }
  SetSLType(std::string(Types->First));
  if (Traces(1)) {
    std::cout << "Setting TL type:" << Types->Second << '\n';
  }
  SetTLType(std::string(Types->Second));
  const std::string_view Sequence = TrRuleInternal::ReadSequence(Part);
  if (Sequence.empty()) {
    return ReadError("missing or incorrect sl const seq information.");
  }
  SetSLPOS(ParseLabels(Sequence));
  SetWordLevelSLPOS(SLPOS);
  return true;
}

// TLPart = any Sequence any
bool TrRule::ParseTLPart(std::string_view Part) {
  const std::string_view Sequence = TrRuleInternal::ReadSequence(Part);
  if (Sequence.empty()) {
    return ReadError("missing or incorrect tl const seq information.");
  }
  SetTLPOS(ParseLabels(Sequence));
  SetWordLevelTLPOS(TLPOS);
  return true;
}

// ---- Writing ----------------------------------------------------------------------------------

namespace {

constexpr std::string_view BlockStart = "\n(\n";

void PrintLines(const std::vector<std::string>& vsLines) {
  for (const std::string& sLine : vsLines) {
    std::cout << sLine << std::endl;
  }
}

}  // namespace

void TrRule::AppendRuleLine(std::string& TextReturn) const {
  TrRuleInternal::AppendRuleLine(TextReturn, SLType, TLType, SLPOS, TLPOS);
}

void TrRule::AppendAlignmentLine(std::string& TextReturn, std::string_view X,
                                 std::string_view Y) const {
  constexpr int SourceSide = 1;
  constexpr int TargetSide = 2;
  const bool Lexicalized =
      IsLexicalized(ToInt(X), SourceSide) || IsLexicalized(ToInt(Y), TargetSide);
  TrRuleInternal::AppendAlignmentLine(TextReturn, X, Y, Lexicalized);
}

void TrRule::AppendAlignments(std::string& TextReturn) const {
  AppendRuleLine(TextReturn);
  TextReturn += BlockStart;
  DisplayWalk Walk(AlignmentString);
  for (DisplayPair Pair; Walk.Next(Pair);) {
    AppendAlignmentLine(TextReturn, Pair.X, Pair.Y);
    TextReturn += '\n';
  }
}

void TrRule::AppendBlock(std::string& TextReturn) const {
  AppendAlignments(TextReturn);
  for (const Constraint* Stored : ConstraintsInPrintOrder()) {
    Stored->AppendTo(TextReturn);
    TextReturn += '\n';
  }
  TextReturn += ')';
}

/// The approximate size of a rule's block, so that its text is seldom reallocated.
std::size_t TrRule::ExpectedBlockSize() const {
  constexpr std::size_t LabelSize = 8;
  constexpr std::size_t ConstraintSize = 32;
  constexpr std::size_t Rest = 32;
  return (SLPOS.size() + TLPOS.size()) * LabelSize + AlignmentString.size() * 2 +
         ConstraintsMap.size() * ConstraintSize + Rest;
}

/// The same for the lines before the block.
std::size_t TrRule::ExpectedExampleSize() const {
  constexpr std::size_t WordSize = 12;
  constexpr std::size_t Rest = 64;
  return (SLWords.size() + TLWords.size()) * WordSize + CStructure.size() + Rest;
}

void TrRule::AppendExample(std::string& TextReturn) const {
  AppendHeaderLine(TextReturn, SLType, RuleIndex);
  AppendWordsLine(TextReturn, ";;SL:", SLWords);
  AppendWordsLine(TextReturn, ";;TL:", TLWords);
  if (!CStructure.empty()) {
    AppendTextLine(TextReturn, ";;C-Structure:", CStructure);
  }
  AppendScoreLine(TextReturn, NumTrExamples);
}

void TrRule::Print() {
  PrintLines(Comments);
  std::string Lines;
  AppendHeaderLine(Lines, POS, RuleIndex);
  AppendRuleLine(Lines);
  std::cout << Lines << std::endl;
  std::cout << '(' << std::endl;
  PrintLines(GetAlignments());
  PrintLines(GetConstraintsInPrintOrder());
  std::cout << ')' << std::endl;
}

std::string TrRule::ReturnAsStringForPrintNoConstraints() const {
  std::string Text;
  Text.reserve(ExpectedExampleSize() + ExpectedBlockSize());
  AppendExample(Text);
  AppendAlignments(Text);
  Text += ')';
  return Text;
}

std::string TrRule::ReturnAsStringForPrint() {
  std::string Text;
  Text.reserve(ExpectedExampleSize() + ExpectedBlockSize());
  AppendExample(Text);
  AppendBlock(Text);
  return Text;
}

std::string TrRule::ReturnAsStringWithAllAlts() {
  std::string Text;
  for (std::size_t Alt = 0; Alt < vsAllSLSents.size(); ++Alt) {
    AppendTextLine(Text, ";;SL_alt:", vsAllSLSents[Alt]);
    AppendTextLine(Text, ";;TL_alt:", vsAllTLSents[Alt]);
    AppendTextLine(Text, ";;Alignment_alt:", vsAllAlignments[Alt]);
    AppendTextLine(Text, ";;CStructure_alt:", vsAllCStructures[Alt]);
    AppendMapLine(Text, ";;SLWord2Comp_alt:", vmiiAllSLWord2Comps[Alt]);
    AppendMapLine(Text, ";;TLWord2Comp_alt:", vmiiAllTLWord2Comps[Alt]);
    AppendListLine(Text, ";;WordLevelSLPOS_alt:", vvsAllWordLevelSLPOSs[Alt]);
    AppendListLine(Text, ";;WordLevelTLPOS_alt:", vvsAllWordLevelTLPOSs[Alt]);
  }
  AppendMapLine(Text, ";;SLWord2Comp:", SLWord2Comp);
  // The TL map of the rule has the label of the alternatives: stored texts rely on it.
  AppendMapLine(Text, ";;TLWord2Comp_alt:", TLWord2Comp);
  AppendListLine(Text, ";;WordLevelSLPOS:", WordLevelSLPOS);
  AppendListLine(Text, ";;WordLevelTLPOS:", WordLevelTLPOS);
  AppendScoreLine(Text, NumTrExamples);
  AppendBlock(Text);
  return Text;
}

std::string TrRule::ReturnAsStringForComparison() {
  return ComparisonText();
}

std::string TrRule::ComparisonText() const {
  std::string Text;
  Text.reserve(ExpectedBlockSize() + WordLevelTLPOS.size() * 8);
  AppendLabelsLine(Text, WordLevelTLPOS);
  AppendBlock(Text);
  return Text;
}

namespace {

[[noreturn]] void HaltForAgreedIndex(const Constraint& Stored) {
  Halt(HaltReason::AgreedIndex,
       "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint " +
           Stored.ReturnAsString());
}

}  // namespace

std::vector<const Constraint*> TrRule::ConstraintsInPrintOrder() const {
  std::vector<const Constraint*> vStored;
  std::vector<OrderedConstraint> vOrdered;
  vStored.reserve(ConstraintsMap.size());
  vOrdered.reserve(ConstraintsMap.size());
  for (const auto& [Key, Stored] : ConstraintsMap) {
    vOrdered.push_back(TrRuleInternal::MakeOrdered(Stored.Category, Stored.ConstrainedIndex,
                                                   Stored.ValueConstraint, Stored.FeatValue));
    if (vOrdered.back().AgreedIndex == -1) {
      HaltForAgreedIndex(Stored);
    }
    vStored.push_back(&Stored);
  }
  std::vector<std::size_t> vPlaces;
  if (const std::optional<PrintGroup> Failed = FindPrintOrder(vOrdered, vPlaces)) {
    TrRuleInternal::HaltForOrder(*Failed);
  }
  std::vector<const Constraint*> vOrder;
  vOrder.reserve(vPlaces.size());
  for (const std::size_t Place : vPlaces) {
    vOrder.push_back(vStored[Place]);
  }
  return vOrder;
}

std::vector<std::string> TrRule::GetConstraintsInPrintOrder() {
  std::vector<std::string> vsReturn;
  for (const Constraint* Stored : ConstraintsInPrintOrder()) {
    vsReturn.push_back(Stored->ReturnAsString());
  }
  return vsReturn;
}

// ---- Constraints ------------------------------------------------------------------------------

namespace {

/// Stands for a missing value, in arguments and in results.
constexpr std::string_view NoValue = "empty";

}  // namespace

void TrRule::SetConstraint(int CategoryPassIn, int ConstrainedIndexPassIn,
                           std::string FeaturePassIn, std::string FeatValuePassIn,
                           int RankInCategoryPassIn, bool ValueConstraintPassIn) {
  Constraint New(CategoryPassIn, ConstrainedIndexPassIn, std::move(FeaturePassIn),
                 std::move(FeatValuePassIn), RankInCategoryPassIn, ValueConstraintPassIn);
  TakeConstraint(New);
}

void TrRule::SetConstraint(std::string ConstraintPassIn) {
  Constraint New(std::move(ConstraintPassIn));
  TakeConstraint(New);
}

namespace {

void PrintIncorrectConstraint(const std::string& Text) {
  std::cout << "Constraint was not in correct format:" << Text << '\n';
}

std::optional<FieldPair> SplitConstraint(std::string_view Piece, std::string_view Delimiter,
                                         const std::string& Text) {
  std::optional<FieldPair> Pieces = SplitInTwoTrimmed(Piece, Delimiter);
  if (!Pieces) {
    std::cerr << "ERROR in TrRule::SetConstraint: Constraint does not have correct format:" << Text
              << '\n';
  }
  return Pieces;
}

/// Reports a text that refers to a node on its right side. Such a text should read "(Xi = Xj)",
/// with one "(" before its first blank. It counts as a reference because its right side contains a
/// "(", so it either has more than one or lacks the one on the left; no index can be read from it.
/// The value is checked as well: it would end at the last ")" and begin after the blank before it.
void RejectAgreement(const std::string& Text) {
  if (Text.find('(') != Text.rfind('(')) {
    Halt(HaltReason::ComplexAgreement,
         "Expected simple agreement consraint of the form (Xi = Xj), but got complex agreement "
         "constraint.");
  }
  PrintIncorrectConstraint(Text);
  const std::size_t Close = Text.rfind(')');
  if (Close == std::string::npos || !Contains(std::string_view(Text).substr(0, Close), " ")) {
    PrintIncorrectConstraint(Text);
  }
}

bool IsSpaceOrClose(char Byte) {
  return IsSpace(Byte) || Byte == ')';
}

// Node = { "(" | "X" | "Y" | white space } Index
int ParseIndexOfNode(std::string_view Node) {
  const auto IsSkipped = [](char Byte) {
    return IsSpace(Byte) || Byte == '(' || Byte == 'X' || Byte == 'Y';
  };
  return ToInt(DropFront(Node, IsSkipped));
}

// RightSide = Value ")"; a value with "*OR*" or "*NOT*" begins at the last "(" of the text.
std::optional<std::string_view> ParseRightSide(std::string_view RightSide,
                                               const std::string& Text) {
  if (!Contains(RightSide, "*OR*") && !Contains(RightSide, "*NOT*")) {
    return DropBack(DropFront(RightSide, IsSpace), IsSpaceOrClose);
  }
  const std::size_t Open = Text.rfind('(');
  const std::size_t Close = Text.rfind(')');
  if (Open == std::string::npos || Close == std::string::npos || Close < Open) {
    PrintIncorrectConstraint(Text);
    return std::nullopt;
  }
  return std::string_view(Text).substr(Open, Close - Open);
}

}  // namespace

// ConstraintText = Node " " Feature ")" " = " RightSide
void TrRule::SetConstraint(std::string ConstraintPassIn, int RankInCategoryPassIn,
                           int CategoryPassIn) {
  const std::string& Text = ConstraintPassIn;
  if (Traces(1)) {
    std::cout << "In SetConstraint, ConstraintPassIn is:" << Text << '\n';
  }
  const std::optional<FieldPair> Sides = SplitConstraint(Text, " = ", Text);
  if (!Sides) {
    return;
  }
  if (Contains(Sides->Second, "(X") || Contains(Sides->Second, "(Y")) {
    RejectAgreement(Text);
    return;
  }
  const std::optional<FieldPair> Node = SplitConstraint(Sides->First, " ", Text);
  if (!Node) {
    return;
  }
  if (const std::optional<std::string_view> Value = ParseRightSide(Sides->Second, Text)) {
    const std::string_view Feature = DropBack(DropFront(Node->Second, IsSpace), IsSpaceOrClose);
    SetConstraint(CategoryPassIn, ParseIndexOfNode(Node->First), std::string(Feature),
                  std::string(*Value), RankInCategoryPassIn, true);
  }
}

void TrRule::SetConstraint(int ConstrainedIndexPassIn, std::string FeaturePassIn,
                           std::string FeatValuePassIn, std::string FeatAgrPassIn,
                           int RankInCategoryPassIn, int CategoryPassIn) {
  const bool IsValue = FeatValuePassIn != NoValue;
  Constraint New;
  New.SetConstrainedIndex(ConstrainedIndexPassIn);
  New.SetFeature(std::move(FeaturePassIn));
  New.SetFeatValue(IsValue ? std::move(FeatValuePassIn) : std::move(FeatAgrPassIn));
  New.SetRankInCategory(RankInCategoryPassIn);
  New.SetValueConstraint(IsValue);
  New.SetCategory(CategoryPassIn);
  TakeConstraint(New);
}

bool TrRule::InsertConstraintIntoMap(Constraint ConstraintPassIn) {
  return TakeConstraint(ConstraintPassIn);
}

bool TrRule::TakeConstraint(Constraint& NewReturn) {
  std::vector<Merging> vMergings;
  const bool IsNew = RuleLoader(*this).AddConstraint(
      {NewReturn.Category, NewReturn.ConstrainedIndex, NewReturn.Feature, NewReturn.FeatValue,
       NewReturn.ValueConstraint},
      NewReturn.RankInCategory, vMergings);
  PrintMergings(vMergings);
  return IsNew;
}

namespace {

void TraceKeys(std::string_view Header, const ConstraintMap& Constraints) {
  if (!Traces(1)) {
    return;
  }
  std::cout << Header << '\n';
  for (const auto& [Key, Stored] : Constraints) {
    std::cout << "Constraint:" << Key << '\n';
  }
}

[[noreturn]] void HaltForOtherValue(const std::string& Key) {
  Halt(HaltReason::EraseNeverReturns,
       "TrRule::EraseConstraint never returns where the first constraint on the feature has "
       "another value:|" +
           Key + "|");
}

}  // namespace

bool TrRule::EraseConstraint(int ConstrainedIndexPassIn, std::string FeaturePassIn,
                             std::string FeatValuePassIn, std::string FeatAgrPassIn,
                             std::set<int> CategorySet) {
  TraceKeys("Now erasing constraint.\nConstraints map before erasing:", ConstraintsMap);
  const auto Qualifies = [&](const ConstraintMap::value_type& Entry) {
    const Constraint& Stored = Entry.second;
    return Stored.GetConstrainedIndex() == ConstrainedIndexPassIn &&
           CategorySet.count(Stored.GetCategory()) > 0 && Stored.GetFeature() == FeaturePassIn;
  };
  const auto Found = std::find_if(ConstraintsMap.begin(), ConstraintsMap.end(), Qualifies);
  const bool HasFound = Found != ConstraintsMap.end();
  if (HasFound) {
    const std::string Value = Found->second.GetFeatValue();
    if (Value != FeatValuePassIn && Value != FeatAgrPassIn) {
      HaltForOtherValue(Found->first);
    }
    const std::string& ErasedValue = FeatValuePassIn != NoValue ? FeatValuePassIn : FeatAgrPassIn;
    ConstraintsMap.erase(TrRuleInternal::MakeKey(Found->second.Category, ConstrainedIndexPassIn,
                                                 FeaturePassIn, ErasedValue)
                             .Text);
  }
  TraceKeys("Constraints map after erasing:", ConstraintsMap);
  return HasFound;
}

bool TrRule::EraseCategoryConstraints(int CategoryPassIn) {
  for (auto Entry = ConstraintsMap.begin(); Entry != ConstraintsMap.end();) {
    Entry = Entry->second.GetCategory() == CategoryPassIn ? ConstraintsMap.erase(Entry)
                                                          : std::next(Entry);
  }
  return true;
}

void TrRule::ClearConstraints() {
  ConstraintsMap.clear();
}

int TrRule::GetNumConstraints() const {
  return static_cast<int>(ConstraintsMap.size());
}

namespace {

/// Collects the results of `Make` for the wanted constraints, in key order.
template <typename CollectionT, typename WantedT, typename MakeT>
CollectionT Collect(const ConstraintMap& Constraints, WantedT Wanted, MakeT Make) {
  CollectionT Collection;
  for (const auto& [Key, Stored] : Constraints) {
    if (Wanted(Stored)) {
      Collection.insert(Collection.end(), Make(Stored));
    }
  }
  return Collection;
}

bool IsAny(const Constraint& /*Stored*/) {
  return true;
}

/// A predicate for the constraints of a category; 5 stands for 3 and 4 together.
auto IsOfCategory(int Selector) {
  constexpr int AnyTargetNode = 5;
  return [Selector](const Constraint& Stored) {
    const int Category = Stored.GetCategory();
    return Selector == AnyTargetNode ? Category == 3 || Category == 4 : Category == Selector;
  };
}

std::string TextOf(const Constraint& Stored) {
  return Stored.ReturnAsString();
}

const Constraint& Itself(const Constraint& Stored) {
  return Stored;
}

}  // namespace

std::vector<std::string> TrRule::GetConstraints() const {
  return Collect<std::vector<std::string>>(ConstraintsMap, IsAny, TextOf);
}

std::vector<std::string> TrRule::GetConstraints(int CategoryPassIn) const {
  return Collect<std::vector<std::string>>(ConstraintsMap, IsOfCategory(CategoryPassIn), TextOf);
}

std::set<std::string> TrRule::GetConstraintsAsSet() const {
  return Collect<std::set<std::string>>(ConstraintsMap, IsAny, TextOf);
}

std::set<std::string> TrRule::GetConstraintsAsSet(int CategoryPassIn) const {
  return Collect<std::set<std::string>>(ConstraintsMap, IsOfCategory(CategoryPassIn), TextOf);
}

std::set<Constraint> TrRule::GetConstraintsAsSetC() const {
  return Collect<std::set<Constraint>>(ConstraintsMap, IsAny, Itself);
}

std::set<Constraint> TrRule::GetConstraintsAsSetC(int CategoryPassIn) const {
  return Collect<std::set<Constraint>>(ConstraintsMap, IsOfCategory(CategoryPassIn), Itself);
}

std::map<std::string, std::pair<std::string, std::string>> TrRule::GetConstraintsForInd(
    int ConstrainedIndexPassIn, std::set<int> CategorySet) const {
  std::map<std::string, std::pair<std::string, std::string>> mspReturn;
  for (const auto& [Key, Stored] : ConstraintsMap) {
    if (Stored.GetConstrainedIndex() == ConstrainedIndexPassIn &&
        CategorySet.count(Stored.GetCategory()) > 0) {
      std::pair<std::string, std::string> Values(Stored.GetFeatValue(), NoValue);
      if (!Stored.IsValueConstraint()) {
        std::swap(Values.first, Values.second);
      }
      mspReturn.emplace(Stored.GetFeature(), std::move(Values));
    }
  }
  return mspReturn;
}

// ---- Flipping ---------------------------------------------------------------------------------

namespace {

void PrintFlippedMap(std::string_view Map, const std::map<int, int>& miiMap) {
  std::cout << "Now printing flipped " << Map << " map.\n";
  PrintEntries(miiMap);
}

void TraceFlippedMaps(const std::map<int, int>& miiSL, const std::map<int, int>& miiTL) {
  if (Traces(1)) {
    PrintFlippedMap("SLWord2Comp", miiSL);
    PrintFlippedMap("TLWord2Comp", miiTL);
  }
}

}  // namespace

void TrRule::FlipRuleNoConstraints() {
  if (Traces(1)) {
    std::cout << "In FlipRule.\n";
    Print();
    PrintFlippedMap("SLWord2Comp", SLWord2Comp);
  }
  SLWords.swap(TLWords);
  SLPOS.swap(TLPOS);
  WordLevelSLPOS.swap(WordLevelTLPOS);
  TLPOSFromParse = std::move(SLPOSFromParse);
  SLPOSFromParse.clear();
  vvsAllWordLevelSLPOSs.swap(vvsAllWordLevelTLPOSs);
  vsAllSLSents.swap(vsAllTLSents);
  for (std::string& sAlignments : vsAllAlignments) {
    sAlignments = GetReversedAlignments(sAlignments);
  }
  AlignmentString = GetReversedAlignments(AlignmentString);
  sWordLevelAl = GetReversedAlignments(sWordLevelAl);
  SLType.swap(TLType);
  TraceFlippedMaps(SLWord2Comp, TLWord2Comp);
  SLWord2Comp.swap(TLWord2Comp);
  vmiiAllSLWord2Comps.swap(vmiiAllTLWord2Comps);
  TraceFlippedMaps(SLWord2Comp, TLWord2Comp);
}

bool TrRule::IsOneToOne(int XPassIn, int YPassIn) const {
  LineUp Index;
  std::set<int> siPartners;
  Index.GetEq(AlignmentString, XPassIn, siPartners);
  if (siPartners.size() >= 2) {
    return false;
  }
  siPartners.clear();
  Index.GetEqFromY(AlignmentString, YPassIn, siPartners);
  return siPartners.size() < 2;
}

// ---- Alternatives -----------------------------------------------------------------------------

void TrRule::AddAlterTrInfo(std::string AltSLSentPassIn, std::string AltTLSentPassIn,
                            std::string AltAlignmentPassIn, std::string AltCStructurePassIn,
                            std::map<int, int> AltSLWord2CompMapPassIn,
                            std::map<int, int> AltTLWord2CompMapPassIn,
                            std::vector<std::string> AltWordLevelSLPOSPassIn,
                            std::vector<std::string> AltWordLevelTLPOSPassIn) {
  vsAllSLSents.push_back(std::move(AltSLSentPassIn));
  vsAllTLSents.push_back(std::move(AltTLSentPassIn));
  vsAllAlignments.push_back(std::move(AltAlignmentPassIn));
  vsAllCStructures.push_back(std::move(AltCStructurePassIn));
  vmiiAllSLWord2Comps.push_back(std::move(AltSLWord2CompMapPassIn));
  vmiiAllTLWord2Comps.push_back(std::move(AltTLWord2CompMapPassIn));
  vvsAllWordLevelSLPOSs.push_back(std::move(AltWordLevelSLPOSPassIn));
  vvsAllWordLevelTLPOSs.push_back(std::move(AltWordLevelTLPOSPassIn));
}

bool TrRule::AddAlterTrInfo() {
  AddAlterTrInfo(GetSLString(), GetTLString(), AlignmentString, CStructure, SLWord2Comp,
                 TLWord2Comp, WordLevelSLPOS, WordLevelTLPOS);
  return true;
}

bool TrRule::ResetAlterTrInfo() {
  vsAllSLSents.clear();
  vsAllTLSents.clear();
  vsAllAlignments.clear();
  vsAllCStructures.clear();
  vmiiAllSLWord2Comps.clear();
  vmiiAllTLWord2Comps.clear();
  vvsAllWordLevelSLPOSs.clear();
  vvsAllWordLevelTLPOSs.clear();
  return AddAlterTrInfo();
}

void TrRule::GetAllAlts(std::vector<std::string>& vsAllSLSentsReturn,
                        std::vector<std::string>& vsAllTLSentsReturn,
                        std::vector<std::string>& vsAllAlignmentsReturn,
                        std::vector<std::string>& vsAllCStructuresReturn,
                        std::vector<std::map<int, int>>& vmiiAllSLWord2CompsReturn,
                        std::vector<std::map<int, int>>& vmiiAllTLWord2CompsReturn,
                        std::vector<std::vector<std::string>>& vvsAllWordLevelSLPOSsReturn,
                        std::vector<std::vector<std::string>>& vvsAllWordLevelTLPOSsReturn) const {
  vsAllSLSentsReturn = vsAllSLSents;
  vsAllTLSentsReturn = vsAllTLSents;
  vsAllAlignmentsReturn = vsAllAlignments;
  vsAllCStructuresReturn = vsAllCStructures;
  vmiiAllSLWord2CompsReturn = vmiiAllSLWord2Comps;
  vmiiAllTLWord2CompsReturn = vmiiAllTLWord2Comps;
  vvsAllWordLevelSLPOSsReturn = vvsAllWordLevelSLPOSs;
  vvsAllWordLevelTLPOSsReturn = vvsAllWordLevelTLPOSs;
}
