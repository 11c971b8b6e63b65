#include "FindingTally.h"

#include <Ascii.h>

#include <algorithm>

namespace Grammar {

namespace {

constexpr Severity FromGravest[] = {Severity::Error, Severity::Warning, Severity::Note};

std::string Padded(std::string Text, std::size_t Width) {
  return Text.append(Width > Text.size() ? Width - Text.size() : 0, ' ');
}

}  // namespace

std::size_t FindingTally::NumberOf(std::string_view Code) {
  std::string_view Digits = Code.substr(2);
  return static_cast<std::size_t>(TrRuleInternal::TakeNumber(Digits));
}

std::uint64_t FindingTally::Count(std::string_view Code, Severity Level) const {
  return All[NumberOf(Code)][IndexOf(Level)];
}

std::uint64_t FindingTally::Count(Severity Level) const {
  std::uint64_t Sum = 0;
  for (const Counts& Current : All) {
    Sum += Current[IndexOf(Level)];
  }
  return Sum;
}

std::string FindingTally::Summary() const {
  std::string Text;
  for (const Severity Level : FromGravest) {
    const std::uint64_t Number = Count(Level);
    Text.append(Text.empty() ? "" : ", ").append(std::to_string(Number)).append(1, ' ');
    Text.append(NameOf(Level)).append(Number == 1 ? "" : "s");
  }
  return Text;
}

std::string FindingTally::Table() const {
  constexpr std::size_t LevelWidth = 9;
  std::uint64_t Most = 0;
  for (const Counts& Current : All) {
    Most = std::max(Most, *std::max_element(Current.begin(), Current.end()));
  }
  const std::size_t Width = std::to_string(Most).size();
  std::string Text;
  for (const CodeInfo& Info : AllCodes()) {
    for (const Severity Level : FromGravest) {
      const std::string Number = std::to_string(Count(Info.Code, Level));
      if (Number != "0") {
        Text.append(Width - Number.size(), ' ').append(Number).append("  ").append(Info.Code);
        Text.append("  ").append(Padded(std::string(NameOf(Level)), LevelWidth));
        Text.append(Info.Title).append(1, '\n');
      }
    }
  }
  return Text;
}

/// Codes, severities and titles hold nothing that JSON would write otherwise.
std::string FindingTally::JsonTable() const {
  std::string Text = "[";
  for (const CodeInfo& Info : AllCodes()) {
    for (const Severity Level : FromGravest) {
      const std::uint64_t Number = Count(Info.Code, Level);
      if (Number > 0) {
        Text.append(Text.size() == 1 ? "\n" : ",\n").append("{\"code\":\"").append(Info.Code);
        Text.append("\",\"severity\":\"").append(NameOf(Level)).append("\",\"count\":");
        Text.append(std::to_string(Number)).append(",\"title\":\"").append(Info.Title);
        Text.append("\"}");
      }
    }
  }
  return Text.append(Text.size() == 1 ? "" : "\n").append("]\n");
}

}  // namespace Grammar
