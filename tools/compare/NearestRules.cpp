// Sections: tokens; candidates; pairing.

#include "NearestRules.h"

#include "Bytes.h"
#include "SumPair.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_map>

namespace Grammar {

// ---- Tokens -----------------------------------------------------------------------------------

namespace {

enum class TokenKind : std::uint64_t { Types, SourceLabel, TargetLabel, Line };

std::uint64_t TokenOf(TokenKind Kind, std::string_view Text) {
  SumPair Sums;
  Sums.Add(static_cast<std::uint64_t>(Kind));
  Sums.AddText(Text);
  return Sums.Hash();
}

/// Adds the types and the labels of a rule line, "NP::NP [DET N] -> [N]".
void AddRuleLine(std::string_view Line, RuleTokens& vReturn) {
  constexpr std::string_view Arrow = "] -> [";
  const std::size_t SourceBegin = std::min(Line.find(" ["), Line.size());
  vReturn.push_back(TokenOf(TokenKind::Types, Line.substr(0, SourceBegin)));
  std::string_view Rest = Line.substr(std::min(SourceBegin + 2, Line.size()));
  const std::size_t Cut = std::min(Rest.find(Arrow), Rest.size());
  const auto AddLabels = [&](TokenKind Kind, std::string_view Labels) {
    while (!Labels.empty()) {
      const std::size_t Size = std::min(Labels.find(' '), Labels.size());
      vReturn.push_back(TokenOf(Kind, Labels.substr(0, Size)));
      Labels.remove_prefix(std::min(Size + 1, Labels.size()));
    }
  };
  AddLabels(TokenKind::SourceLabel, Rest.substr(0, Cut));
  Rest.remove_prefix(std::min(Cut + Arrow.size(), Rest.size()));
  AddLabels(TokenKind::TargetLabel, Rest.substr(0, Rest.rfind(']')));
}

}  // namespace

RuleTokens TokensOf(std::string_view BlockPassIn) {
  RuleTokens vTokens;
  for (bool IsFirst = true; !BlockPassIn.empty(); IsFirst = false) {
    const std::size_t Size = std::min(BlockPassIn.find('\n'), BlockPassIn.size());
    std::string_view Line = BlockPassIn.substr(0, Size);
    BlockPassIn.remove_prefix(std::min(Size + 1, BlockPassIn.size()));
    if (IsFirst) {
      AddRuleLine(Line, vTokens);
    } else if (Line.size() > 1) {
      constexpr std::string_view LexicalMark = ";--;";
      Line.remove_prefix(StartsWith(Line, LexicalMark) ? LexicalMark.size() : 0);
      vTokens.push_back(TokenOf(TokenKind::Line, Line));
    }
  }
  std::sort(vTokens.begin(), vTokens.end());
  return vTokens;
}

unsigned Likeness(const RuleTokens& OldPassIn, const RuleTokens& NewPassIn) {
  std::size_t Common = 0;
  for (auto Old = OldPassIn.begin(), New = NewPassIn.begin();
       Old != OldPassIn.end() && New != NewPassIn.end();) {
    if (*Old == *New) {
      ++Common;
      ++Old;
      ++New;
    } else {
      ++(*Old < *New ? Old : New);
    }
  }
  const std::size_t All = OldPassIn.size() + NewPassIn.size();
  return All == 0 ? 100 : static_cast<unsigned>(200 * Common / All);
}

// ---- Candidates -------------------------------------------------------------------------------

namespace {

using Places = std::vector<std::size_t>;

/// The old rules that have a token, for each token.
class TokenIndex {
 public:
  explicit TokenIndex(const std::vector<RuleTokens>& vOld) : Seen(vOld.size(), 0) {
    for (std::size_t Old = 0; Old < vOld.size(); ++Old) {
      for (std::size_t At = 0; At < vOld[Old].size(); ++At) {
        if (At == 0 || vOld[Old][At] != vOld[Old][At - 1]) {
          Rules[vOld[Old][At]].push_back(Old);
        }
      }
    }
  }

  /// The old rules that share the rarest tokens of a new one, as many as are looked at. Of many
  /// with one token, those around a place are taken, so that not all new rules get the same.
  void Candidates(const RuleTokens& New, std::size_t Place, Places& vReturn) {
    vReturn.clear();
    ++Round;
    vLists.clear();
    for (const std::uint64_t Token : New) {
      const auto Found = Rules.find(Token);
      if (Found != Rules.end()) {
        vLists.push_back(&Found->second);
      }
    }
    std::stable_sort(vLists.begin(), vLists.end(), [](const Places* Left, const Places* Right) {
      return Left->size() < Right->size();
    });
    for (const Places* List : vLists) {
      AddAround(Place, *List, vReturn);
    }
  }

 private:
  /// Adds the rules of a list that are nearest to a place, the nearest first.
  void AddAround(std::size_t Place, const Places& List, Places& vReturn) {
    constexpr std::size_t MostOfOne = MostCandidates / 2;
    auto After = std::lower_bound(List.begin(), List.end(), Place);
    auto Before = After;
    for (std::size_t Count = std::min(List.size(), MostOfOne);
         Count > 0 && vReturn.size() < MostCandidates; --Count) {
      const bool IsBefore =
          After == List.end() || (Before != List.begin() && Place - *(Before - 1) < *After - Place);
      const std::size_t Old = IsBefore ? *--Before : *After++;
      if (Seen[Old] != Round) {
        Seen[Old] = Round;
        vReturn.push_back(Old);
      }
    }
  }

  std::unordered_map<std::uint64_t, Places> Rules;
  std::vector<std::size_t> Seen;  // the round in which an old rule was last a candidate
  std::size_t Round = 0;
  std::vector<const Places*> vLists;
};

bool IsBetter(const NearPair& Left, const NearPair& Right) {
  return std::tie(Right.Score, Left.New, Left.Old) < std::tie(Left.Score, Right.New, Right.Old);
}

/// Adds the pairs of a new rule with old ones that are alike enough, or of many the best.
void AddPairs(const std::vector<RuleTokens>& vOld, const RuleTokens& NewTokens, std::size_t New,
              const Places& vCandidates, unsigned LeastScore, bool KeepsAll,
              std::vector<NearPair>& vReturn) {
  const std::size_t Begin = vReturn.size();
  for (const std::size_t Old : vCandidates) {
    const unsigned Score = Likeness(vOld[Old], NewTokens);
    if (Score >= LeastScore) {
      vReturn.push_back({Old, New, Score});
    }
  }
  if (!KeepsAll && vReturn.size() - Begin > MostKept) {
    std::stable_sort(
        vReturn.begin() + static_cast<std::ptrdiff_t>(Begin), vReturn.end(),
        [](const NearPair& Left, const NearPair& Right) { return Left.Score > Right.Score; });
    vReturn.resize(Begin + MostKept);
  }
}

}  // namespace

// ---- Pairing ----------------------------------------------------------------------------------

std::vector<NearPair> FindNearest(const std::vector<RuleTokens>& vOldPassIn,
                                  const std::vector<RuleTokens>& vNewPassIn, unsigned LeastScore) {
  std::vector<NearPair> vAll;
  if (vOldPassIn.empty() || vNewPassIn.empty()) {
    return vAll;
  }
  const bool ComparesAll = vNewPassIn.size() <= MostPairs / vOldPassIn.size();
  TokenIndex Index(ComparesAll ? std::vector<RuleTokens>() : vOldPassIn);
  Places vCandidates(ComparesAll ? vOldPassIn.size() : 0);
  std::iota(vCandidates.begin(), vCandidates.end(), std::size_t{0});
  for (std::size_t New = 0; New < vNewPassIn.size(); ++New) {
    if (!ComparesAll) {
      Index.Candidates(vNewPassIn[New], New * vOldPassIn.size() / vNewPassIn.size(), vCandidates);
    }
    AddPairs(vOldPassIn, vNewPassIn[New], New, vCandidates, LeastScore, ComparesAll, vAll);
  }
  std::sort(vAll.begin(), vAll.end(), IsBetter);

  std::vector<bool> vHasOld(vOldPassIn.size());
  std::vector<bool> vHasNew(vNewPassIn.size());
  std::vector<NearPair> vChosen;
  for (const NearPair& Pair : vAll) {
    if (!vHasOld[Pair.Old] && !vHasNew[Pair.New]) {
      vHasOld[Pair.Old] = true;
      vHasNew[Pair.New] = true;
      vChosen.push_back(Pair);
    }
  }
  return vChosen;
}

}  // namespace Grammar
