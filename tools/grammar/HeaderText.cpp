#include "HeaderText.h"

namespace Grammar {

RuleHeader HeaderOf(const std::optional<TrRuleInternal::HeaderParts>& Parts,
                    std::string_view Code) {
  RuleHeader Header;
  Header.IsPresent = true;
  Header.IsReadable = Parts.has_value();
  Header.Type = Parts ? Parts->Type : Code;
  if (Parts) {
    Header.Number = std::to_string(*TrRuleInternal::ParseWholeNumber(Parts->Number));
  }
  return Header;
}

int NumberOf(const RuleHeader& Header) {
  constexpr int NoNumber = -1;
  return TrRuleInternal::ParseWholeNumber(Header.Number).value_or(NoNumber);
}

void AppendHeader(const RuleHeader& Header, std::string& TextReturn) {
  if (!Header.IsReadable) {
    TextReturn.append(Header.Type).append(1, '\n');
  } else if (Header.IsPresent) {
    TextReturn.append("{").append(Header.Type).append(",").append(Header.Number).append("}\n");
  }
}

}  // namespace Grammar
