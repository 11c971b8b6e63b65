// Sections: trees, marks, the whole.

#include "DiagnosisPictures.h"

#include "Characters.h"
#include "DerivationPictures.h"
#include "HtmlPage.h"
#include "Measures.h"
#include "SvgWriter.h"

#include <algorithm>
#include <vector>

namespace Translate {

namespace {

constexpr std::size_t Source = 0;

std::size_t SideNumber(Side OnSide) {
  return OnSide == Side::X ? 0 : 1;
}

}  // namespace

DiagnosisPictures::DiagnosisPictures(RuleDiagnosis& WhyPassIn, const RuleDescription& RulePassIn)
    : Why(WhyPassIn),
      Rule(RulePassIn),
      Words(WhyPassIn, RulePassIn),
      Structures(WhyPassIn.Grammar(), WhyPassIn.Trace().Structures(), WhyPassIn.Trace().Atoms()),
      Trees(WhyPassIn.Grammar(), Structures),
      Layout(Picture::SvgMeasures()) {}

// ---- Trees ------------------------------------------------------------------------------------

/// The constituent that the rule makes, or would make, and those that stand for its components.
bool DiagnosisPictures::ReadWay(const Combination& Way, const StructurePair& Made,
                                std::size_t Begin) {
  std::vector<TreeNode> vNodes{
      {*Rule.Index, Begin, Way.End, Made, static_cast<std::uint32_t>(Way.vParts.size())}};
  for (const PartFacts& Part : Way.vParts) {
    vNodes.insert(vNodes.end(), Part.vNodes.begin(), Part.vNodes.end());
  }
  return Trees.Read(vNodes, Why.Tokens());
}

/// @return false where the trees are too large
bool DiagnosisPictures::ReadTrees(const DiagnosisLine& Line, std::size_t Begin) {
  if (Line.Stopped != nullptr) {
    Trees.ReadRule(*Rule.Index);
    MarkStop(*Line.Stopped);
    return true;
  }
  if (Line.Made != nullptr) {
    return ReadWay(Line.Made->Way, Line.Made->Structures, Begin);
  }
  const Combination& Way = Line.Clash != nullptr ? Line.Clash->Way : *Line.Chain;
  if (!ReadWay(Way, {StructureStore::Open, StructureStore::Open}, Begin)) {
    return false;
  }
  Trees.ConstituentAt(Source, 0).IsMarked = true;
  if (Line.Clash == nullptr) {
    AddNote(Source, 0, "makes nothing");
    return true;
  }
  for (const EquationClash& Clash : Line.Clash->vEquations) {
    MarkClash(Clash);
  }
  return true;
}

// ---- Marks ------------------------------------------------------------------------------------

void DiagnosisPictures::AddNote(std::size_t Side, std::size_t Node, const std::string& Note) {
  constexpr int MaxWidth = 320;
  std::vector<std::string>& vsNotes = Trees.ConstituentAt(Side, Node).Notes[Side];
  const std::vector<std::string> vsLines =
      Picture::SvgMeasures().Wrapped(Picture::ShownText(Note), Picture::TextRole::Value, MaxWidth);
  // Two equations can clash about one value.
  if (std::search(vsNotes.begin(), vsNotes.end(), vsLines.begin(), vsLines.end()) ==
      vsNotes.end()) {
    vsNotes.insert(vsNotes.end(), vsLines.begin(), vsLines.end());
  }
}

/// Nothing stands for the component, nor, as far as is known, for those after it.
void DiagnosisPictures::MarkStop(const Stop& Which) {
  const std::size_t Components = Trees.Trees().vConstituents.size();
  for (std::size_t Component = Which.Component; Component < Components; ++Component) {
    Trees.ConstituentAt(Source, Component).IsDashed = true;
  }
  Trees.ConstituentAt(Source, Which.Component).IsMarked = true;
  AddNote(Source, Which.Component, Words.StopReason(Which));
}

void DiagnosisPictures::MarkClash(const EquationClash& Clash) {
  const std::size_t Side = SideNumber(Clash.vConflicts.front().ThereAt.OnSide);
  AddNote(Side, 0, "fails: " + Words.EquationText(Clash));
  for (const ClashValue& Value : Words.ValuesOf(Clash)) {
    AddNote(SideNumber(Value.OnSide), Value.Node, Value.Text);
  }
}

// ---- The whole --------------------------------------------------------------------------------

void DiagnosisPictures::AppendTrees(const DiagnosisLine& Line, std::size_t Begin,
                                    std::string& PageReturn) {
  Layout.Draw(Trees.Trees(), Shapes);
  Shapes.Title = Picture::ShownText(Line.Text);
  Shapes.Description = Trees.Description();
  const std::string Place = Rule.Place() + ' ' + std::to_string(Begin);
  Picture::SvgOptions Options;
  Options.IsInline = true;
  Options.Place = Place;
  std::string Svg;
  Picture::AppendSvg(Shapes, Options, Svg);
  Picture::AppendPicture(Svg, PageReturn);
  if (Line.Stopped == nullptr) {
    Picture::AppendDetails("Rules and structures", Trees.Details(), PageReturn);
  }
}

void DiagnosisPictures::Append(const BeginFacts& Facts, std::string& PageReturn) {
  for (const DiagnosisLine& Line : Words.Lines(Facts)) {
    Picture::AppendParagraph(Line.Text, PageReturn);
    const bool IsCount = Line.Stopped == nullptr && Line.Clash == nullptr && Line.Made == nullptr &&
                         Line.Chain == nullptr;
    const bool IsAtFirst = Line.Stopped != nullptr && Line.Stopped->Component == 1;
    // Of a rule that does not even begin there is nothing to be seen but the rule.
    if (IsCount || IsAtFirst) {
      continue;
    }
    if (ReadTrees(Line, Facts.Begin)) {
      AppendTrees(Line, Facts.Begin, PageReturn);
    } else {
      Picture::AppendParagraph(PictureSizeError(), PageReturn);
    }
  }
}

}  // namespace Translate
