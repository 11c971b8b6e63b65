#pragma once

#include "PicturePacking.h"

#include <string>
#include <string_view>
#include <vector>

/// What the script of a page makes of a packed picture.
inline std::string Unpacked(std::string_view Packed) {
  std::string Joined;
  Page::AppendPhrases(Joined);
  std::vector<std::string> vsPhrases(1);
  for (const char Byte : Joined) {
    if (Byte == '|') {
      vsPhrases.emplace_back();
    } else {
      vsPhrases.back() += Byte;
    }
  }
  std::string Text;
  for (std::size_t At = 0; At < Packed.size(); ++At) {
    if (Packed[At] != '~') {
      Text += Packed[At];
      continue;
    }
    const char Sign = Packed[++At];
    Text += Sign == '~' ? "~" : vsPhrases.at(static_cast<std::size_t>(Sign - 'A'));
  }
  return Text;
}

/// A text with what `AppendEscaped` has escaped as it was.
inline std::string Unescaped(std::string Text) {
  const std::pair<const char*, const char*> Signs[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}};
  for (const auto& [Escaped, Sign] : Signs) {
    const std::string Long(Escaped);
    for (std::size_t At = 0; (At = Text.find(Long, At)) != std::string::npos; ++At) {
      Text.replace(At, Long.size(), Sign);
    }
  }
  return Text;
}

/// All that stands between two texts, in order.
inline std::vector<std::string> AllBetween(const std::string& Text, const std::string& Before,
                                           const std::string& After) {
  std::vector<std::string> vsFound;
  for (std::size_t At = 0; (At = Text.find(Before, At)) != std::string::npos;) {
    At += Before.size();
    vsFound.push_back(Text.substr(At, Text.find(After, At) - At));
  }
  return vsFound;
}
