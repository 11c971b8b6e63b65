#pragma once

#include "RuleParts.h"
#include "RulePicture.h"
#include "RuleReader.h"
#include "SourceRule.h"

#include <stdexcept>
#include <string>
#include <utility>

/// A rule with the text that its views point into.
class ReadRuleText {
 public:
  explicit ReadRuleText(std::string Written) {
    Grammar::RuleReader Reader(std::move(Written));
    if (!Reader.Next(Text)) {
      throw std::runtime_error("there is no rule");
    }
    Text.File = "a.trr";
    Lines.Read(Text);
  }

  ReadRuleText(const ReadRuleText&) = delete;
  ReadRuleText& operator=(const ReadRuleText&) = delete;

  const Grammar::SourceRule& Rule() const { return Lines; }

  Picture::RuleParts Parts() const {
    Picture::RuleParts Parts;
    if (!ReadParts(Lines, Parts)) {
      throw std::runtime_error("the rule has no rule line");
    }
    return Parts;
  }

 private:
  Grammar::RuleText Text;
  Grammar::SourceRule Lines;
};

/// A rule as text for a terminal.
inline std::string TextPictureOf(const std::string& Written, int Width = 80, bool IsAscii = false) {
  const ReadRuleText Rule(Written);
  Picture::RulePicture Drawn;
  std::string Text;
  if (Drawn.Read(Rule.Rule())) {
    Drawn.AppendText(Width, IsAscii, Text);
  }
  return Text;
}

/// A rule as SVG.
inline std::string SvgOf(const std::string& Written, bool IsInline = false) {
  const ReadRuleText Rule(Written);
  Picture::RulePicture Drawn;
  std::string Svg;
  if (Drawn.Read(Rule.Rule())) {
    Drawn.AppendSvg(IsInline, Svg);
  }
  return Svg;
}
