// Sections: rules that stay, rules that differ, shares, words for it.

#include "GrammarChanges.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <unordered_map>
#include <utility>

namespace Examples {

// ---- Rules that stay --------------------------------------------------------------------------

namespace {

/// A rule now, and one before with the same lines.
using Match = std::pair<std::uint32_t, std::uint32_t>;

/// Pairs the n-th rule of some lines with the n-th one before.
std::vector<Match> FindEqualRules(const TestedGrammar& Before, const TestedGrammar& Now) {
  std::unordered_map<std::string_view, std::vector<std::uint32_t>> Places;
  for (std::uint32_t Rule = 0; Rule < Before.AllRules().size(); ++Rule) {
    Places[Before.AllRules()[Rule].Lines].push_back(Rule);
  }
  std::unordered_map<std::string_view, std::size_t> Taken;
  std::vector<Match> vMatches;
  for (std::uint32_t Rule = 0; Rule < Now.AllRules().size(); ++Rule) {
    const auto Found = Places.find(Now.AllRules()[Rule].Lines);
    if (Found == Places.end()) {
      continue;
    }
    const std::size_t Next = Taken[Found->first]++;
    if (Next < Found->second.size()) {
      vMatches.emplace_back(Rule, Found->second[Next]);
    }
  }
  return vMatches;
}

/// The most matches whose rules stood in the same order before: a longest ascending subsequence.
std::vector<Match> LongestInOrder(const std::vector<Match>& vMatches) {
  constexpr std::size_t Nothing = static_cast<std::size_t>(-1);
  std::vector<std::size_t> vLast;  // of each length, the match that ends the lowest sequence
  std::vector<std::size_t> vPrevious(vMatches.size(), Nothing);
  for (std::size_t Index = 0; Index < vMatches.size(); ++Index) {
    const auto At = std::lower_bound(
        vLast.begin(), vLast.end(), vMatches[Index].second,
        [&](std::size_t Last, std::uint32_t Rule) { return vMatches[Last].second < Rule; });
    if (At != vLast.begin()) {
      vPrevious[Index] = *(At - 1);
    }
    if (At == vLast.end()) {
      vLast.push_back(Index);
    } else {
      *At = Index;
    }
  }
  std::vector<Match> vInOrder;
  for (std::size_t Index = vLast.empty() ? Nothing : vLast.back(); Index != Nothing;
       Index = vPrevious[Index]) {
    vInOrder.push_back(vMatches[Index]);
  }
  std::reverse(vInOrder.begin(), vInOrder.end());
  return vInOrder;
}

// ---- Rules that differ ------------------------------------------------------------------------

/// Between two rules that stay, new ones take the places of those that are gone.
void AddDifferences(Match From, Match To, GrammarChanges& ChangesReturn) {
  for (; From.first < To.first; ++From.first) {
    const bool IsInPlace = From.second < To.second;
    (IsInPlace ? ChangesReturn.vChanged : ChangesReturn.vNew).push_back(From.first);
    if (IsInPlace) {
      ChangesReturn.vGone.push_back(From.second++);
    }
  }
  for (; From.second < To.second; ++From.second) {
    ChangesReturn.vGone.push_back(From.second);
  }
}

// ---- Shares -----------------------------------------------------------------------------------

/// The counts of all rules of each source type.
std::map<std::string, std::uint64_t> TotalsOf(const Translate::RuleSet& Rules) {
  std::map<std::string, std::uint64_t> Totals;
  for (std::uint32_t Rule = 0; Rule < Rules.Size(); ++Rule) {
    Totals[Rules.LabelName(Rules.At(Rule).SourceType)] += Rules.At(Rule).Count;
  }
  return Totals;
}

std::set<std::string> FindReweighted(const Translate::RuleSet& Before,
                                     const Translate::RuleSet& Now) {
  const std::map<std::string, std::uint64_t> TotalsBefore = TotalsOf(Before);
  std::set<std::string> ssTypes;
  for (const auto& [sType, Total] : TotalsOf(Now)) {
    const auto Found = TotalsBefore.find(sType);
    if (Found != TotalsBefore.end() && Found->second != Total) {
      ssTypes.insert(sType);
    }
  }
  return ssTypes;
}

}  // namespace

GrammarChanges FindChanges(const TestedGrammar& Before, const TestedGrammar& Now) {
  GrammarChanges Changes;
  Changes.vBefore.assign(Now.AllRules().size(), NoRule);
  Match From{0, 0};
  for (const Match& Same : LongestInOrder(FindEqualRules(Before, Now))) {
    Changes.vBefore[Same.first] = Same.second;
    AddDifferences(From, Same, Changes);
    From = {Same.first + 1, Same.second + 1};
  }
  AddDifferences(From,
                 {static_cast<std::uint32_t>(Now.AllRules().size()),
                  static_cast<std::uint32_t>(Before.AllRules().size())},
                 Changes);
  Changes.ssReweighted = FindReweighted(Before.Rules(), Now.Rules());
  return Changes;
}

// ---- Words for it -----------------------------------------------------------------------------

namespace {

constexpr std::size_t MaxShown = 4;

void AppendShown(const std::vector<std::uint32_t>& vRules, const TestedGrammar& Now,
                 const char* What, std::size_t& ShownReturn, std::string& TextReturn) {
  std::size_t Left = vRules.size();
  for (const std::uint32_t Rule : vRules) {
    if (ShownReturn == MaxShown) {
      break;
    }
    TextReturn.append(TextReturn.empty() ? "" : ", ").append(Now.AllRules()[Rule].Place);
    TextReturn.append(What);
    ++ShownReturn;
    --Left;
  }
  if (Left > 0) {
    TextReturn.append(TextReturn.empty() ? "" : ", ").append(std::to_string(Left));
    TextReturn.append(" more").append(What);
  }
}

}  // namespace

std::string ShownChanges(const GrammarChanges& Changes, const TestedGrammar& Now) {
  std::string Text;
  std::size_t Shown = 0;
  AppendShown(Changes.vChanged, Now, " changed", Shown, Text);
  AppendShown(Changes.vNew, Now, " new", Shown, Text);
  const std::size_t Gone = Changes.vGone.size() - Changes.vChanged.size();
  if (Gone > 0) {
    Text.append(Text.empty() ? "" : ", ").append(std::to_string(Gone)).append(" gone");
  }
  return Text.empty() ? "no rule changed" : Text;
}

}  // namespace Examples
