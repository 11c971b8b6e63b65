#include "RuleNames.h"

#include "NearestName.h"
#include "RuleDescription.h"

#include <iostream>
#include <utility>

namespace Translate {

RuleNames::RuleNames(std::vector<std::string> vsNamesPassIn)
    : vsNames(std::move(vsNamesPassIn)), vIsFound(vsNames.size()) {}

bool RuleNames::Take(const Grammar::SourceRule& Lines) {
  bool IsMeant = false;
  for (std::size_t Current = 0; Current < vsNames.size(); ++Current) {
    if (IsRuleMeant(vsNames[Current], Lines)) {
      vIsFound[Current] = true;
      IsMeant = true;
    }
  }
  std::string Header = HeaderTextOf(Lines);
  if (!Header.empty()) {
    ssHeaders.insert(std::move(Header));
  }
  return IsMeant;
}

bool RuleNames::Report() const {
  const std::vector<std::string> vsHeaders(ssHeaders.begin(), ssHeaders.end());
  bool AllFit = true;
  for (std::size_t Current = 0; Current < vsNames.size(); ++Current) {
    if (!vIsFound[Current]) {
      AllFit = false;
      const std::string Nearest = Grammar::NearestName(vsNames[Current], vsHeaders);
      std::cerr << "trrule: no rule fits " << vsNames[Current]
                << (Nearest.empty() ? "" : "; did you mean " + Nearest + "?") << '\n';
    }
  }
  return AllFit;
}

}  // namespace Translate
