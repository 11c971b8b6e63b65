#include "ChartOutline.h"

#include "Bytes.h"

#include <algorithm>
#include <tuple>

namespace Examples {

bool operator<(const SourceComponent& Left, const SourceComponent& Right) {
  return std::tie(Left.IsLiteral, Left.Name, Left.Target) <
         std::tie(Right.IsLiteral, Right.Name, Right.Target);
}

bool operator==(const SourceComponent& Left, const SourceComponent& Right) {
  return std::tie(Left.IsLiteral, Left.Name, Left.Target) ==
         std::tie(Right.IsLiteral, Right.Name, Right.Target);
}

std::vector<SourceComponent> SourceComponentsOf(const Translate::RuleSet& Rules,
                                                const Translate::RuleSet::Rule& Rule) {
  std::vector<SourceComponent> vComponents;
  for (const Translate::SourceSymbol Symbol : Rules.SymbolsOf(Rule)) {
    SourceComponent& New = vComponents.emplace_back();
    New.IsLiteral = (Symbol & Translate::SourceTrie::LiteralMark) != 0;
    if (New.IsLiteral) {
      New.Name = Rules.LiteralName(Symbol);
      continue;
    }
    New.Name = Rules.LabelName(Rules.SlotLabel(Symbol));
    if (Rules.SlotWanted(Symbol) != Translate::RuleSet::None) {
      New.Target = Rules.LabelName(Rules.SlotWanted(Symbol));
    }
  }
  return vComponents;
}

ChartOutline::ChartOutline(const Translate::Chart& Parsed) {
  const Translate::RuleSet& Rules = Parsed.Grammar();
  for (const std::string_view Token : Parsed.Tokens()) {
    vsTokens.push_back(Rules.Settings().MatchCase ? std::string(Token) : Grammar::Upper(Token));
  }
  for (const Translate::Chart::Constituent& Part : Parsed.Constituents()) {
    const Translate::Chart::Cell& Cell = Parsed.Cells()[Part.Cell];
    vSpans.push_back({Cell.Start, Cell.End, Rules.LabelName(Rules.SourceTypeOf(Part.Types)),
                      Rules.LabelName(Rules.TargetTypeOf(Part.Types))});
  }
  const auto KeyOf = [](const Span& Which) {
    return std::tie(Which.Start, Which.End, Which.SourceType, Which.TargetType);
  };
  std::sort(vSpans.begin(), vSpans.end(),
            [&](const Span& Left, const Span& Right) { return KeyOf(Left) < KeyOf(Right); });
  vSpans.erase(
      std::unique(vSpans.begin(), vSpans.end(),
                  [&](const Span& Left, const Span& Right) { return KeyOf(Left) == KeyOf(Right); }),
      vSpans.end());
}

/// All beginnings are followed at once: a position counts where some beginning leads to it.
bool ChartOutline::Fits(const std::vector<SourceComponent>& vComponents) const {
  std::vector<bool> vIsReached(vsTokens.size() + 1, true);
  for (const SourceComponent& Component : vComponents) {
    std::vector<bool> vIsNext(vIsReached.size());
    for (std::size_t At = 0; Component.IsLiteral && At < vsTokens.size(); ++At) {
      vIsNext[At + 1] = vIsReached[At] && vsTokens[At] == Component.Name;
    }
    for (const Span& In : vSpans) {
      const bool IsMet = !Component.IsLiteral && vIsReached[In.Start] &&
                         In.SourceType == Component.Name &&
                         (Component.Target.empty() || In.TargetType == Component.Target);
      vIsNext[In.End] = vIsNext[In.End] || IsMet;
    }
    vIsReached.swap(vIsNext);
  }
  return std::find(vIsReached.begin(), vIsReached.end(), true) != vIsReached.end();
}

bool ChartOutline::HasType(const std::string& SourceType) const {
  return std::any_of(vSpans.begin(), vSpans.end(),
                     [&](const Span& In) { return In.SourceType == SourceType; });
}

}  // namespace Examples
