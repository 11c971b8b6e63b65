// Sections: form, outputs, rules, the run.

#include "DrawCommand.h"

#include "FileNames.h"
#include "HtmlPage.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RuleNames.h"
#include "RulePicture.h"
#include "RunError.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

namespace Grammar {

// ---- Form -------------------------------------------------------------------------------------

namespace {

bool IsFolder(const std::string& Name) {
  std::error_code Error;
  return (!Name.empty() && Name.back() == '/') || std::filesystem::is_directory(Name, Error);
}

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

std::string_view EndingOf(DrawFormat Format) {
  switch (Format) {
    case DrawFormat::Text:
      return ".txt";
    case DrawFormat::Svg:
      return ".svg";
    case DrawFormat::Html:
      break;
  }
  return ".html";
}

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

// ---- Outputs ----------------------------------------------------------------------------------

namespace {

/// Takes pictures, in the order of the input.
class PictureOutput {
 public:
  virtual ~PictureOutput() = default;
  virtual void Take(const std::string& Name, std::string_view Written) = 0;
  /// Puts what is written in its place. @return the status of the run
  virtual int Finish(const RunTally& Tally) = 0;
};

/// One file with all pictures.
class FileOutput : public PictureOutput {
 public:
  FileOutput(const RunOptions& RunPassIn, DrawFormat FormatPassIn)
      : Run(RunPassIn), Format(FormatPassIn), Output(RunPassIn.Output) {
    if (Format == DrawFormat::Html) {
      Picture::BeginPage("Pictures of rules", Pending);
    }
  }

  void Take(const std::string& /*Name*/, std::string_view Written) override {
    if (Format == DrawFormat::Svg && Count > 0) {
      throw RunError(
          "a file holds one picture in SVG: name one rule by --rule, give -o a folder, or choose "
          "--format html");
    }
    if (Format == DrawFormat::Text && Count > 0) {
      Pending += '\n';
    }
    Pending += Written;
    ++Count;
    // The only picture waits until it is known to be the only one.
    if (Format != DrawFormat::Svg) {
      WritePending();
    }
  }

  int Finish(const RunTally& Tally) override {
    if (Format == DrawFormat::Html) {
      Picture::EndPage(Pending);
    }
    WritePending();
    return FinishRun(Run, Tally, Output, false);
  }

 private:
  void WritePending() {
    Output.Write(Pending);
    Pending.clear();
  }

  const RunOptions& Run;
  DrawFormat Format;
  OutputFile Output;
  std::string Pending;
  std::size_t Count = 0;
};

/// A folder with a file for each picture.
class FolderOutput : public PictureOutput {
 public:
  FolderOutput(const RunOptions& RunPassIn, DrawFormat FormatPassIn)
      : Folder(RunPassIn.Output), Format(FormatPassIn) {
    std::error_code Error;
    std::filesystem::create_directories(Folder, Error);
    if (Error) {
      throw RunError("cannot make the folder " + RunPassIn.Output + ": " + Error.message());
    }
  }

  void Take(const std::string& Name, std::string_view Written) override {
    std::string Whole;
    if (Format == DrawFormat::Html) {
      Picture::BeginPage(Name, Whole);
    }
    Whole += Written;
    if (Format == DrawFormat::Html) {
      Picture::EndPage(Whole);
    }
    OutputFile Output((Folder / Names.NewName(Name).append(EndingOf(Format))).string());
    Output.Write(Whole);
    Output.Finish();
  }

  int Finish(const RunTally& Tally) override {
    ReportLeftOut(Tally);
    if (Tally.HasUnreadFiles) {
      return StatusFailed;
    }
    return Tally.HasFindings ? StatusFindings : StatusClean;
  }

 private:
  std::filesystem::path Folder;
  DrawFormat Format;
  FileNames Names{"rule"};
};

std::unique_ptr<PictureOutput> MakeOutput(const RunOptions& Run, DrawFormat Format) {
  if (IsFolder(Run.Output)) {
    return std::make_unique<FolderOutput>(Run, Format);
  }
  if (ReplacesInput(Run)) {
    throw RunError("did not replace " + Run.Output + ": it is an input, and no picture");
  }
  return std::make_unique<FileOutput>(Run, Format);
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
        Output(MakeOutput(Run, Format)),
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
