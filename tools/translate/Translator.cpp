// Sections: a text, translations, pieces, trees.

#include "Translator.h"

#include "TargetText.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

namespace Translate {

// ---- A text -----------------------------------------------------------------------------------

TextResult Translator::Translate(std::string_view Text, const TextOptions& Options) {
  TextResult Result;
  Equations.Trim();
  Result.HasPieces = Options.IsPartial;
  if (!Parsed.Parse(Text, Options.Limits, Equations)) {
    Result.Error = LimitError(Parsed.Outcome(), Options.Limits);
    return Result;
  }
  Best.Begin();
  Best.SetGoals(Goals(Options));
  if (Options.WantsCount) {
    Result.Derivations = Best.CountGoals();
  }
  AddTranslations(Options, Result);
  Result.HasPieces = Options.IsPartial && Result.vTranslations.empty();
  if (Result.HasPieces) {
    AddPieces(Result);
  }
  return Result;
}

// ---- Translations -----------------------------------------------------------------------------

/// The constituents that span the whole text and have a start type.
std::vector<std::uint32_t> Translator::Goals(const TextOptions& Options) const {
  std::vector<std::uint32_t> vGoals;
  const Chart::Cell* Whole =
      Parsed.Tokens().empty() ? nullptr : Parsed.FindCell(0, Parsed.Tokens().size());
  if (Whole == nullptr) {
    return vGoals;
  }
  for (std::uint32_t Index = 0; Index < Whole->ConstituentCount; ++Index) {
    const std::uint32_t Each = Whole->FirstConstituent + Index;
    const std::uint32_t Type = Rules.SourceTypeOf(Parsed.Constituents()[Each].Types);
    if (!Options.HasStarts ||
        std::find(Options.vStarts.begin(), Options.vStarts.end(), Type) != Options.vStarts.end()) {
      vGoals.push_back(Each);
    }
  }
  return vGoals;
}

/// Takes derivations in order, and passes over those whose text has been given.
void Translator::AddTranslations(const TextOptions& Options, TextResult& ResultReturn) {
  std::unordered_set<std::string> ssGiven;
  std::uint64_t PassedOver = 0;
  while (ResultReturn.vTranslations.size() < Options.Translations) {
    const std::optional<Derivations::TreeId> Tree = Best.Next();
    if (!Tree) {
      return;
    }
    std::string Target = TargetTextOf(Rules, Best.Trees(), *Tree);
    if (!Options.AllDerivations && !ssGiven.insert(Target).second) {
      if (++PassedOver > Options.MaxDerivations) {
        ResultReturn.Error = "more than " + std::to_string(Options.MaxDerivations) +
                             " derivations say what others said before";
        return;
      }
      continue;
    }
    ResultReturn.vTranslations.push_back(
        {std::move(Target), Best.Trees().ScoreOfTree(*Tree), *Tree});
  }
}

// ---- Pieces -----------------------------------------------------------------------------------

/// Finds the fewest pieces from each token to the end, and of equally few the longest first.
void Translator::AddPieces(TextResult& ResultReturn) {
  const std::size_t Size = Parsed.Tokens().size();
  std::vector<std::size_t> vPieces(Size + 1);  // how many from a token on
  std::vector<std::size_t> vEnds(Size);        // of the first of them
  for (std::size_t Start = Size; Start-- > 0;) {
    vPieces[Start] = std::numeric_limits<std::size_t>::max();
    const auto Offer = [&](std::size_t End) {
      if (vPieces[End] + 1 <= vPieces[Start]) {
        vPieces[Start] = vPieces[End] + 1;
        vEnds[Start] = End;
      }
    };
    Offer(Start + 1);
    for (const Chart::Cell& Each : Parsed.CellsAt(Start)) {
      Offer(Each.End);
    }
  }
  for (std::size_t Start = 0; Start < Size; Start = vEnds[Start]) {
    ResultReturn.vPieces.push_back(MakePiece(Start, vEnds[Start]));
  }
}

Piece Translator::MakePiece(std::size_t Start, std::size_t End) {
  const Chart::Cell* Cell = Parsed.FindCell(Start, End);
  if (Cell == nullptr) {
    return {Start, End, std::string(Parsed.Tokens()[Start]), std::nullopt};
  }
  std::vector<std::uint32_t> vAll;
  for (std::uint32_t Index = 0; Index < Cell->ConstituentCount; ++Index) {
    vAll.push_back(Cell->FirstConstituent + Index);
  }
  Best.SetGoals(vAll);
  const Derivations::TreeId Tree = *Best.Next();
  return {Start, End, TargetTextOf(Rules, Best.Trees(), Tree), Tree};
}

// ---- Trees ------------------------------------------------------------------------------------

void Translator::AddNode(Derivations::TreeId Tree, std::vector<TreeNode>& vNodesReturn) const {
  TreeNode New{Best.Trees().Rule(Tree), 0, 0, {}, 0};
  for (const SourceSymbol Symbol : Rules.SymbolsOf(Rules.At(New.Rule))) {
    New.Parts += (Symbol & SourceTrie::LiteralMark) == 0 ? 1 : 0;
  }
  vNodesReturn.push_back(New);
}

/// Carries out the equations again, each rule after its parts.
void Translator::SetStructures(std::vector<TreeNode>& vNodesReturn) {
  const std::vector<StructurePair> vStructures =
      StructuresOf(vNodesReturn, [&](std::uint32_t Rule, const std::vector<StructurePair>& vParts) {
        return Equations.EvaluateParts(Rules.At(Rule), vParts).value_or(StructurePair());
      });
  for (std::size_t Index = 0; Index < vNodesReturn.size(); ++Index) {
    vNodesReturn[Index].Structures = vStructures[Index];
  }
}

/// Goes through the symbols of all rules from the left to the right.
void Translator::SetSpans(std::vector<TreeNode>& vNodesReturn, std::size_t Start) const {
  struct Frame {
    std::size_t Node;
    std::size_t NextSymbol;
  };
  std::vector<Frame> vFrames{{0, 0}};
  std::size_t At = Start;
  std::size_t NextNode = 1;
  vNodesReturn[0].Start = Start;
  while (!vFrames.empty()) {
    Frame& Top = vFrames.back();
    const auto Symbols = Rules.SymbolsOf(Rules.At(vNodesReturn[Top.Node].Rule));
    if (Top.NextSymbol == Symbols.size()) {
      vNodesReturn[Top.Node].End = At;
      vFrames.pop_back();
      continue;
    }
    if ((Symbols.First[Top.NextSymbol++] & SourceTrie::LiteralMark) != 0) {
      ++At;
      continue;
    }
    vNodesReturn[NextNode].Start = At;
    vFrames.push_back({NextNode++, 0});
  }
}

std::vector<TreeNode> Translator::NodesOf(Derivations::TreeId Tree, std::size_t Start) {
  std::vector<TreeNode> vNodes;
  std::vector<Derivations::TreeId> vParts;
  std::vector<Derivations::TreeId> vStack{Tree};
  while (!vStack.empty()) {
    const Derivations::TreeId Each = vStack.back();
    vStack.pop_back();
    AddNode(Each, vNodes);
    Best.Trees().PartsOf(Each, vParts);
    vStack.insert(vStack.end(), vParts.rbegin(), vParts.rend());
  }
  SetStructures(vNodes);
  SetSpans(vNodes, Start);
  return vNodes;
}

}  // namespace Translate
