#include "DerivationPictures.h"

#include "Characters.h"
#include "HtmlPage.h"
#include "SvgWriter.h"

#include <utility>

namespace Translate {

using Picture::TreePair;

DerivationPictures::DerivationPictures(const RuleSet& RulesPassIn, Translator& EnginePassIn,
                                       bool IsPagePassIn)
    : Engine(EnginePassIn),
      IsPage(IsPagePassIn),
      Structures(RulesPassIn, EnginePassIn.Structures(), EnginePassIn.Atoms()),
      Trees(RulesPassIn, Structures),
      Layout(Picture::SvgMeasures()) {}

std::string PictureSizeError() {
  return "a derivation has more than " + std::to_string(TreePair::MaxItems) +
         " words and constituents, and is not drawn";
}

bool DerivationPictures::AppendTree(std::string_view Title, Derivations::TreeId Tree,
                                    std::size_t Start, std::string& OutReturn) {
  if (!Trees.Read(Engine.NodesOf(Tree, Start), Engine.ParsedChart().Tokens())) {
    return false;
  }
  Layout.Draw(Trees.Trees(), Shapes);
  Shapes.Title = Picture::ShownText(Title);
  Shapes.Description = Trees.Description();
  Picture::SvgOptions Options;
  Options.IsInline = IsPage;
  Options.Place = Title;
  if (!IsPage) {
    Picture::AppendSvg(Shapes, Options, OutReturn);
    return true;
  }
  std::string Svg;
  Picture::AppendSvg(Shapes, Options, Svg);
  Picture::AppendFigure(Title, Svg, OutReturn);
  Picture::AppendDetails("Rules and structures", Trees.Details(), OutReturn);
  return true;
}

bool DerivationPictures::Append(std::string_view Text, const TextResult& Result,
                                std::string& OutReturn) {
  bool AreDrawn = true;
  const auto Draw = [&](const std::string& Target, Derivations::TreeId Tree, std::size_t Start) {
    AreDrawn = AppendTree(std::string(Text) + " -> " + Target, Tree, Start, OutReturn) && AreDrawn;
  };
  for (const Translation& Current : Result.vTranslations) {
    if (IsPage || &Current == &Result.vTranslations.front()) {
      Draw(Current.Target, Current.Tree, 0);
    }
  }
  for (const Piece& Current : Result.vPieces) {
    if (IsPage && Current.Tree) {
      Draw(Current.Target, *Current.Tree, Current.Start);
    }
  }
  return AreDrawn;
}

}  // namespace Translate
