#include "SequencePattern.h"

#include "Bytes.h"
#include "Literal.h"
#include "UsableRule.h"

#include <algorithm>
#include <cstddef>

namespace Query {

bool FitsComponent(const PatternItem& Item, std::string_view Component) {
  if (Item.What == PatternItem::Kind::Any) {
    return true;
  }
  const bool IsLiteral = Grammar::IsLiteral(Component);
  const auto IsNamed = [&](const Name& Current) {
    return Current.IsLiteral ? IsLiteral && Grammar::WordOf(Component) == Current.Text
                             : !IsLiteral && Grammar::IsSameInCapitals(Component, Current.Text);
  };
  return std::any_of(Item.vNames.begin(), Item.vNames.end(), IsNamed);
}

bool FitsWord(const PatternItem& Item, std::string_view Word) {
  if (Item.What == PatternItem::Kind::Any) {
    return true;
  }
  const bool IsLiteral = Grammar::IsLiteral(Word);
  const std::string_view Inner = IsLiteral ? Grammar::WordOf(Word) : Word;
  return std::any_of(Item.vNames.begin(), Item.vNames.end(), [&](const Name& Current) {
    return Current.IsLiteral == IsLiteral && Grammar::IsSameInCapitals(Inner, Current.Text);
  });
}

namespace {

/// Whether the items from the beginning on fit the elements from the beginning on. A run that has
/// to be longer is the last one passed: with a longer one before it, nothing else would fit after
/// it.
/// @param IsToEnd whether the elements have to end with the items
template <typename FitsT>
bool FitsFromStart(const std::vector<PatternItem>& vItems,
                   const std::vector<std::string_view>& vElements, bool IsFromStart, bool IsToEnd,
                   FitsT Fits) {
  constexpr std::size_t None = ~std::size_t{0};
  std::size_t Item = 0;
  std::size_t Element = 0;
  std::size_t AfterRun = IsFromStart ? None : 0;  // the item after the last run
  std::size_t RunEnd = 0;                         // the element after that run
  for (;;) {
    if (Item < vItems.size() && vItems[Item].What == PatternItem::Kind::Run) {
      AfterRun = ++Item;
      RunEnd = Element;
    } else if (Item == vItems.size() && (!IsToEnd || Element == vElements.size())) {
      return true;
    } else if (Item < vItems.size() && Element < vElements.size() &&
               Fits(vItems[Item], vElements[Element])) {
      ++Item;
      ++Element;
    } else if (AfterRun != None && RunEnd < vElements.size()) {
      Item = AfterRun;
      Element = ++RunEnd;
    } else {
      return false;
    }
  }
}

}  // namespace

bool SequencePattern::Fits(const std::vector<std::string_view>& vComponents) const {
  return FitsFromStart(vItems, vComponents, IsFromStart, IsToEnd, FitsComponent);
}

bool FeaturePattern::Fits(std::string_view Feature) const {
  const bool IsOneWord = std::none_of(Feature.begin(), Feature.end(), Grammar::IsSpace);
  if (IsOneWord && vItems.size() == 1 && vItems.front().What != PatternItem::Kind::Run) {
    return !Feature.empty() && FitsWord(vItems.front(), Feature);
  }
  std::vector<std::string_view> vWords;
  Grammar::AddWords(Feature, vWords);
  return FitsFromStart(vItems, vWords, true, true, FitsWord);
}

}  // namespace Query
