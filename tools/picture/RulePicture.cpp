#include "RulePicture.h"

#include "Measures.h"
#include "SvgWriter.h"
#include "TerminalWriter.h"
#include "UsableRule.h"

#include <algorithm>

namespace Picture {

bool RulePicture::Read(const Grammar::SourceRule& Lines) {
  RulePlace = Lines.Text().File + ':' + std::to_string(Grammar::LineOfRule(Lines.Text()));
  return ReadParts(Lines, Parts);
}

void RulePicture::AppendSvg(bool IsInline, std::string& TextReturn) {
  InSvg.Draw(Parts, Shapes);
  Shapes.Title = Title();
  Shapes.Description.clear();
  for (const std::string& sSentence : Parts.vsSentences) {
    Shapes.Description += Shapes.Description.empty() ? "" : " ";
    Shapes.Description += sSentence;
  }
  SvgOptions Options;
  Options.IsInline = IsInline;
  Options.Place = IsInline ? std::string_view(RulePlace) : std::string_view();
  Picture::AppendSvg(Shapes, Options, TextReturn);
}

void RulePicture::AppendText(int MaxWidth, bool IsAscii, std::string& TextReturn) {
  const int Width = std::max(MaxWidth, LeastWidth);
  if (InCells.Draw(Parts, Shapes, Width)) {
    AppendToTerminal(Shapes, IsAscii, TextReturn);
  } else {
    AppendSentences(Width, TextReturn);
  }
}

/// After the title, each sentence is indented, and more so where it goes on.
void RulePicture::AppendSentences(int MaxWidth, std::string& TextReturn) const {
  const Measures& Units = TerminalMeasures();
  const auto Add = [&](const std::string& sSentence, std::string_view Indent) {
    std::string_view Before = Indent;
    for (const std::string& sLine :
         Units.Wrapped(sSentence, TextRole::Note, MaxWidth - static_cast<int>(Indent.size()) - 2)) {
      TextReturn.append(Before).append(sLine).append(1, '\n');
      Before = Indent.empty() ? "  " : "    ";
    }
  };
  Add(Title(), "");
  for (const std::string& sSentence : Parts.vsSentences) {
    Add(sSentence, "  ");
  }
}

}  // namespace Picture
