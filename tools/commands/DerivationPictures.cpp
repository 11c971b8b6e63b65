// Sections: constituents, trees, pictures.

#include "DerivationPictures.h"

#include "Characters.h"
#include "HtmlPage.h"
#include "SvgWriter.h"

#include <utility>

namespace Translate {

using Picture::TreeConstituent;
using Picture::TreeItem;
using Picture::TreePair;

namespace {

constexpr std::size_t Source = 0;

}  // namespace

DerivationPictures::DerivationPictures(const RuleSet& RulesPassIn, Translator& EnginePassIn,
                                       bool IsPagePassIn)
    : Rules(RulesPassIn),
      Engine(EnginePassIn),
      IsPage(IsPagePassIn),
      Structures(RulesPassIn, EnginePassIn.Structures(), EnginePassIn.Atoms()),
      Layout(Picture::SvgMeasures()) {}

std::string PictureSizeError() {
  return "a derivation has more than " + std::to_string(TreePair::MaxItems) +
         " words and constituents, and is not drawn";
}

// ---- Constituents -----------------------------------------------------------------------------

/// Nodes come root first and parts in order.
void DerivationPictures::FindParts(const std::vector<TreeNode>& vNodes) {
  vParts.assign(vNodes.size(), {});
  std::vector<std::size_t> vOpen;
  for (std::size_t Node = 0; Node < vNodes.size(); ++Node) {
    while (!vOpen.empty() && vParts[vOpen.back()].size() == vNodes[vOpen.back()].Parts) {
      vOpen.pop_back();
    }
    if (!vOpen.empty()) {
      vParts[vOpen.back()].push_back(Node);
    }
    vOpen.push_back(Node);
  }
}

void DerivationPictures::AddConstituent(const TreeNode& Node) {
  const RuleSet::Rule& Rule = Rules.At(Node.Rule);
  const std::string Place = Rules.FileOf(Rule) + ':' + std::to_string(Rule.Line);
  TreeConstituent& New = Trees.vConstituents.emplace_back();
  New.Types = {Picture::ShownText(Rules.LabelName(Rule.SourceType)),
               Picture::ShownText(Rules.LabelName(Rule.TargetType))};
  New.Rule =
      Picture::ShownText(Rule.Header == RuleSet::None ? Place : '{' + Rules.HeaderOf(Rule) + '}');
  New.HasParts = Node.Parts > 0;
  std::string Details = Place;
  if (Node.Structures.Source != StructureStore::Open ||
      Node.Structures.Target != StructureStore::Open) {
    Details += ' ';
    Structures.AppendShort(Node.Structures.Source, Details);
    Details += " -> ";
    Structures.AppendShort(Node.Structures.Target, Details);
  }
  New.Details = Picture::ShownText(Details);
}

// ---- Trees ------------------------------------------------------------------------------------

namespace {

/// A constituent whose items are being added.
struct Frame {
  std::size_t Node = 0;
  std::size_t Item = 0;
  std::size_t Next = 0;      ///< of its components
  std::size_t NextPart = 0;  ///< of its source places
};

}  // namespace

/// Adds the items of one side. @return false where there are too many
bool DerivationPictures::AddItems(std::size_t Side, const std::vector<TreeNode>& vNodes) {
  std::vector<TreeItem>& vItems = Trees.Items[Side];
  vItems.assign(1, TreeItem());
  std::size_t Token = vNodes.front().Start;
  std::vector<Frame> vFrames(1);
  while (!vFrames.empty() && vItems.size() <= TreePair::MaxItems) {
    Frame& Top = vFrames.back();
    const RuleSet::Rule& Rule = Rules.At(vNodes[Top.Node].Rule);
    const std::size_t Component = Top.Next++;
    if (Component == (Side == Source ? Rule.SymbolCount : Rule.TargetCount)) {
      vFrames.pop_back();
      continue;
    }
    TreeItem New;
    New.Parent = Top.Item;
    New.Constituent = Top.Node;
    std::size_t Part = 0;
    if (Side == Source) {
      New.IsWord = (Rules.SymbolsOf(Rule).begin()[Component] & SourceTrie::LiteralMark) != 0;
      New.Word = New.IsWord ? std::string(Engine.ParsedChart().Tokens()[Token++]) : "";
      Part = New.IsWord ? 0 : Top.NextPart++;
    } else {
      const TargetItem& Written = Rules.TargetsOf(Rule).begin()[Component];
      New.IsWord = Written.IsLiteral;
      New.Word = Written.IsLiteral ? Rules.WordName(Written.Value) : "";
      Part = Written.IsLiteral ? 0 : Written.Value;
    }
    New.Word = Picture::ShownText(New.Word);
    if (New.IsWord) {
      vItems.push_back(std::move(New));
      continue;
    }
    New.Constituent = vParts[Top.Node][Part];
    const std::size_t Node = New.Constituent;
    vItems.push_back(std::move(New));
    vFrames.push_back({Node, vItems.size() - 1, 0, 0});
  }
  return vFrames.empty();
}

bool DerivationPictures::ReadTrees(Derivations::TreeId Tree, std::size_t Start) {
  const std::vector<TreeNode> vNodes = Engine.NodesOf(Tree, Start);
  FindParts(vNodes);
  Trees.vConstituents.clear();
  for (const TreeNode& Node : vNodes) {
    AddConstituent(Node);
  }
  return AddItems(Source, vNodes) && AddItems(1, vNodes);
}

// ---- Pictures ---------------------------------------------------------------------------------

/// Reads the constituents aloud, by number.
void DerivationPictures::Describe(std::string_view Title) {
  Shapes.Title = Picture::ShownText(Title);
  Shapes.Description.clear();
  for (std::size_t Number = 0; Number < Trees.vConstituents.size(); ++Number) {
    const TreeConstituent& Current = Trees.vConstituents[Number];
    Shapes.Description.append(Number == 0 ? "" : " ").append(std::to_string(Number + 1));
    Shapes.Description.append(": ").append(Current.Types[0]).append(" becomes ");
    Shapes.Description.append(Current.Types[1]).append(" by ").append(Current.Rule);
    if (!vParts[Number].empty()) {
      Shapes.Description += ", of";
      for (const std::size_t Part : vParts[Number]) {
        Shapes.Description.append(" ").append(std::to_string(Part + 1));
      }
    }
    Shapes.Description += '.';
  }
}

bool DerivationPictures::AppendTree(std::string_view Title, Derivations::TreeId Tree,
                                    std::size_t Start, std::string& OutReturn) {
  if (!ReadTrees(Tree, Start)) {
    return false;
  }
  Layout.Draw(Trees, Shapes);
  Describe(Title);
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
  std::vector<std::string> vsDetails;
  for (const TreeConstituent& Current : Trees.vConstituents) {
    vsDetails.push_back(Current.Details);
  }
  Picture::AppendDetails("Rules and structures", vsDetails, OutReturn);
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
