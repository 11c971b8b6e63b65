// Sections: a text, translations, pieces, trees.

#include "Translator.h"

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
  Words.Clear();
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
    const std::uint32_t Current = Whole->FirstConstituent + Index;
    const std::uint32_t Type = Rules.SourceTypeOf(Parsed.Constituents()[Current].Types);
    if (!Options.HasStarts ||
        std::find(Options.vStarts.begin(), Options.vStarts.end(), Type) != Options.vStarts.end()) {
      vGoals.push_back(Current);
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
    std::optional<std::string> Target = Words.Text(*Tree);
    if (!Target) {
      ResultReturn.Error = LengthError();
      return;
    }
    if (!Options.AllDerivations && !ssGiven.insert(*Target).second) {
      if (++PassedOver > Options.MaxDerivations) {
        ResultReturn.Error = "more than " + std::to_string(Options.MaxDerivations) +
                             " derivations repeat earlier texts";
        return;
      }
      continue;
    }
    ResultReturn.vTranslations.push_back(
        {std::move(*Target), Best.Trees().ScoreOfTree(*Tree), *Tree});
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
    for (const Chart::Cell& Current : Parsed.CellsAt(Start)) {
      Offer(Current.End);
    }
  }
  std::size_t Bytes = 0;
  for (std::size_t Start = 0; Start < Size; Start = vEnds[Start]) {
    std::optional<Piece> Next = MakePiece(Start, vEnds[Start]);
    Bytes += Next && Next->Tree ? Next->Target.size() : 0;
    if (!Next || Bytes > TargetWords::MaxBytes) {
      ResultReturn.vPieces.clear();
      ResultReturn.Error = LengthError();
      return;
    }
    ResultReturn.vPieces.push_back(std::move(*Next));
  }
}

/// The best of a span, or a token that is copied; nothing where its words are too long.
std::optional<Piece> Translator::MakePiece(std::size_t Start, std::size_t End) {
  const Chart::Cell* Cell = Parsed.FindCell(Start, End);
  if (Cell == nullptr) {
    return Piece{Start, End, std::string(Parsed.Tokens()[Start]), std::nullopt};
  }
  std::vector<std::uint32_t> vAll;
  for (std::uint32_t Index = 0; Index < Cell->ConstituentCount; ++Index) {
    vAll.push_back(Cell->FirstConstituent + Index);
  }
  Best.SetGoals(vAll);
  const Derivations::TreeId Tree = *Best.Next();
  std::optional<std::string> Target = Words.Text(Tree);
  return Target ? std::optional(Piece{Start, End, std::move(*Target), Tree}) : std::nullopt;
}

// ---- Trees ------------------------------------------------------------------------------------

std::vector<TreeNode> Translator::NodesOf(Derivations::TreeId Tree, std::size_t Start) {
  std::vector<TreeNode> vNodes = Translate::NodesOf(Rules, Best.Trees(), Tree, Start);
  const std::vector<StructurePair> vStructures =
      StructuresOf(vNodes, [&](std::uint32_t Rule, const std::vector<StructurePair>& vParts) {
        return Equations.EvaluateParts(Rules.At(Rule), vParts).value_or(StructurePair());
      });
  for (std::size_t Index = 0; Index < vNodes.size(); ++Index) {
    vNodes[Index].Structures = vStructures[Index];
  }
  return vNodes;
}

}  // namespace Translate
