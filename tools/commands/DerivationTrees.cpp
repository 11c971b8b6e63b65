// Sections: constituents, trees, rules alone, descriptions.

#include "DerivationTrees.h"

#include "Characters.h"

#include <utility>

namespace Translate {

using Picture::TreeConstituent;
using Picture::TreeItem;
using Picture::TreePair;

namespace {

constexpr std::size_t Source = 0;
constexpr std::size_t Target = 1;

}  // namespace

DerivationTrees::DerivationTrees(const RuleSet& RulesPassIn, StructureText& StructuresPassIn)
    : Rules(RulesPassIn), Structures(StructuresPassIn) {}

// ---- Constituents -----------------------------------------------------------------------------

/// Nodes come root first and parts in order.
void DerivationTrees::FindParts(const std::vector<TreeNode>& vNodes) {
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

void DerivationTrees::AddConstituent(const TreeNode& Node) {
  const RuleSet::Rule& Rule = Rules.At(Node.Rule);
  const std::string Place = Rules.FileOf(Rule) + ':' + std::to_string(Rule.Line);
  TreeConstituent& New = Pair.vConstituents.emplace_back();
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

bool IsLiteralSymbol(SourceSymbol Symbol) {
  return (Symbol & SourceTrie::LiteralMark) != 0;
}

}  // namespace

/// A component of a rule as an item: a word, or what is at that place of the source.
/// @param NextPart the place of the source that comes next
DerivationTrees::Component DerivationTrees::ComponentAt(std::size_t Side, const RuleSet::Rule& Rule,
                                                        std::size_t Index,
                                                        std::size_t NextPart) const {
  if (Side == Target) {
    const TargetItem& Written = Rules.TargetsOf(Rule).begin()[Index];
    return {Written.IsLiteral, Written.IsLiteral ? Rules.WordName(Written.Value) : "",
            Written.Value};
  }
  const SourceSymbol Symbol = Rules.SymbolsOf(Rule).begin()[Index];
  const bool IsWord = IsLiteralSymbol(Symbol);
  return {IsWord, IsWord ? Rules.LiteralName(Symbol) : "", NextPart};
}

std::size_t DerivationTrees::SizeOf(std::size_t Side, const RuleSet::Rule& Rule) {
  return Side == Source ? Rule.SymbolCount : Rule.TargetCount;
}

/// Adds the items of one side. @return false where there are too many
bool DerivationTrees::AddItems(std::size_t Side, const std::vector<TreeNode>& vNodes,
                               const std::vector<std::string_view>& vTokens) {
  std::vector<TreeItem>& vItems = Pair.Items[Side];
  vItems.assign(1, TreeItem());
  std::size_t Token = vNodes.front().Start;
  std::vector<Frame> vFrames(1);
  while (!vFrames.empty() && vItems.size() <= TreePair::MaxItems) {
    Frame& Top = vFrames.back();
    const RuleSet::Rule& Rule = Rules.At(vNodes[Top.Node].Rule);
    if (Top.Next == SizeOf(Side, Rule)) {
      vFrames.pop_back();
      continue;
    }
    const Component Written = ComponentAt(Side, Rule, Top.Next++, Top.NextPart);
    TreeItem& New = vItems.emplace_back();
    New.Parent = Top.Item;
    New.IsWord = Written.IsWord;
    if (Written.IsWord) {
      New.Constituent = Top.Node;
      New.Word = Picture::ShownText(Side == Source ? vTokens[Token++] : Written.Word);
    } else {
      ++Top.NextPart;
      New.Constituent = vParts[Top.Node][Written.Part];
      vFrames.push_back({New.Constituent, vItems.size() - 1, 0, 0});
    }
  }
  return vFrames.empty();
}

bool DerivationTrees::Read(const std::vector<TreeNode>& vNodes,
                           const std::vector<std::string_view>& vTokens) {
  FindParts(vNodes);
  Pair.vConstituents.clear();
  for (const TreeNode& Node : vNodes) {
    AddConstituent(Node);
  }
  return AddItems(Source, vNodes, vTokens) && AddItems(Target, vNodes, vTokens);
}

// ---- Rules alone ------------------------------------------------------------------------------

/// What a component of the source wants, as a constituent without words.
void DerivationTrees::AddWanted(SourceSymbol Wanted, const std::string& Name) {
  TreeConstituent& New = Pair.vConstituents.emplace_back();
  if (IsLiteralSymbol(Wanted)) {
    New.Types.fill('"' + Picture::ShownText(Rules.LiteralName(Wanted)) + '"');
  } else {
    const std::uint32_t Label = Rules.SlotLabel(Wanted);
    const std::uint32_t Other = Rules.SlotWanted(Wanted);
    New.Types = {Picture::ShownText(Rules.LabelName(Label)),
                 Picture::ShownText(Rules.LabelName(Other == RuleSet::None ? Label : Other))};
  }
  New.Rule = Name;
}

void DerivationTrees::ReadRule(std::uint32_t RuleIndex) {
  const RuleSet::Rule& Rule = Rules.At(RuleIndex);
  Pair.vConstituents.clear();
  AddConstituent({RuleIndex, 0, 0, {}, Rule.SymbolCount});
  vParts.assign(1 + Rule.SymbolCount, {});
  std::vector<std::size_t> vPlaces;  // the constituents that are not words
  Pair.Items[Source].assign(1, TreeItem());
  for (const SourceSymbol Symbol : Rules.SymbolsOf(Rule)) {
    const std::size_t Number = Pair.vConstituents.size();
    AddWanted(Symbol, (Rules.Settings().IsReversed ? 'y' : 'x') + std::to_string(Number));
    vParts.front().push_back(Number);
    if (!IsLiteralSymbol(Symbol)) {
      vPlaces.push_back(Number);
    }
    Pair.Items[Source].push_back({0, Number, "", false});
  }
  Pair.Items[Target].assign(1, TreeItem());
  for (const TargetItem& Written : Rules.TargetsOf(Rule)) {
    const std::string Word =
        Written.IsLiteral ? Picture::ShownText(Rules.WordName(Written.Value)) : "";
    Pair.Items[Target].push_back(
        {0, Written.IsLiteral ? 0 : vPlaces[Written.Value], Word, Written.IsLiteral});
  }
}

Picture::TreeConstituent& DerivationTrees::ConstituentAt(std::size_t Side, std::size_t Node) {
  std::size_t Passed = 0;
  for (const TreeItem& Item : Pair.Items[Side]) {
    if (Node > 0 && Item.Parent == 0 && ++Passed == Node) {
      return Pair.vConstituents[Item.IsWord ? 0 : Item.Constituent];
    }
  }
  return Pair.vConstituents.front();
}

// ---- Descriptions -----------------------------------------------------------------------------

std::vector<std::string> DerivationTrees::Details() const {
  std::vector<std::string> vsDetails;
  for (const TreeConstituent& Current : Pair.vConstituents) {
    vsDetails.push_back(Current.Details);
  }
  return vsDetails;
}

std::string DerivationTrees::Description() const {
  std::string Text;
  for (std::size_t Number = 0; Number < Pair.vConstituents.size(); ++Number) {
    const TreeConstituent& Current = Pair.vConstituents[Number];
    Text.append(Number == 0 ? "" : " ").append(std::to_string(Number + 1)).append(": ");
    Text.append(Current.Types[Source]).append(" becomes ").append(Current.Types[Target]);
    Text.append(" by ").append(Current.Rule);
    if (!vParts[Number].empty()) {
      Text += ", of";
      for (const std::size_t Part : vParts[Number]) {
        Text.append(" ").append(std::to_string(Part + 1));
      }
    }
    for (const std::vector<std::string>& vsNotes : Current.Notes) {
      for (const std::string& sNote : vsNotes) {
        Text.append("; ").append(sNote);
      }
    }
    Text += '.';
  }
  return Text;
}

}  // namespace Translate
