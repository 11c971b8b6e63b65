// Sections: form, rules, the run.

#include "DrawCommand.h"

#include "HtmlPage.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RuleNames.h"
#include "RulePicture.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string_view>

namespace Grammar {

// ---- Form -------------------------------------------------------------------------------------

namespace {

bool IsStandardOutput(const std::string& Name) {
  return Name.empty() || Name == "-";
}

DrawFormat FormatFor(const std::string& Output) {
  const std::string Ending = std::filesystem::path(Output).extension().string();
  if (Ending == ".html" || Ending == ".htm") {
    return DrawFormat::Html;
  }
  return Ending == ".svg" || IsFolder(Output) ? DrawFormat::Svg : DrawFormat::Text;
}

constexpr const char* OnePictureAdvice =
    "name one rule by --rule, give -o a folder, or choose --format html";

int WidthOf(const RunOptions& Run, const DrawOptions& Options) {
  constexpr int UsualWidth = 80;
  winsize Size{};
  if (Options.Width) {
    return *Options.Width;
  }
  const bool IsKnown = IsStandardOutput(Run.Output) &&
                       ioctl(STDOUT_FILENO, TIOCGWINSZ, &Size) == 0 && Size.ws_col > 0;
  return IsKnown ? Size.ws_col : UsualWidth;
}

/// A picture in its form: a whole file, but for what a page has around its figures.
void AppendPicture(DrawFormat Format, int Width, bool IsAscii, Picture::RulePicture& Drawn,
                   std::string& TextReturn) {
  if (Format == DrawFormat::Text) {
    Drawn.AppendText(Width, IsAscii, TextReturn);
  } else if (Format == DrawFormat::Svg) {
    Drawn.AppendSvg(false, TextReturn);
  } else {
    std::string Svg;
    Drawn.AppendSvg(true, Svg);
    Picture::AppendFigure(Drawn.Place(), Svg, TextReturn);
  }
}

}  // namespace

// ---- Rules ------------------------------------------------------------------------------------

namespace {

/// Draws the rules of a run.
class RuleDrawer {
 public:
  RuleDrawer(const RunOptions& Run, const DrawOptions& Options)
      : IsAscii(Options.IsAscii),
        TakesAll(Options.vsRules.empty()),
        Format(Options.Format.value_or(FormatFor(Run.Output))),
        Width(WidthOf(Run, Options)),
        Output(MakePictureOutput(Run, Format, OnePictureAdvice)),
        Names(Options.vsRules) {}

  void Draw(const RuleText& Text) {
    vFindings.clear();
    ReadRule(Text, Record, vFindings);
    if (!TakesAll && !Names.Take(Record.Lines())) {
      return;
    }
    Report(vFindings);
    Tally.HasFindings = Tally.HasFindings || !vFindings.empty();
    if (Text.Continues) {
      return;
    }
    ++Tally.Rules;
    if (Text.IsPiece || !Drawn.Read(Record.Lines())) {
      ++Tally.LeftOut;
      return;
    }
    Written.clear();
    AppendPicture(Format, Width, IsAscii, Drawn, Written);
    Output->Take(Drawn.Name(), Written);
  }

  int Finish(bool HasUnreadFiles) {
    const bool AllFit = Names.Report();
    Tally.HasFindings = Tally.HasFindings || !AllFit;
    Tally.HasUnreadFiles = HasUnreadFiles;
    return Output->Finish(Tally);
  }

 private:
  bool IsAscii;
  bool TakesAll;
  DrawFormat Format;
  int Width;
  std::unique_ptr<PictureOutput> Output;
  Translate::RuleNames Names;
  RuleRecord Record;
  std::vector<Finding> vFindings;
  Picture::RulePicture Drawn;
  std::string Written;
  RunTally Tally;
};

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

int RunDraw(const RunOptions& Run, const DrawOptions& Options) {
  RuleDrawer Drawer(Run, Options);
  RuleFiles Files(Run.vsFiles, Run.Quiet);
  for (RuleText Text; Files.Next(Text);) {
    if (Text.HasRule) {
      Drawer.Draw(Text);
    }
  }
  return Drawer.Finish(Files.HasFailed());
}

}  // namespace Grammar
