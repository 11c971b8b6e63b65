#include "PictureOutput.h"

#include "FileNames.h"
#include "HtmlPage.h"
#include "RunError.h"

#include <filesystem>

namespace Grammar {

PictureOutput::~PictureOutput() = default;

bool IsFolder(const std::string& Name) {
  std::error_code Error;
  return (!Name.empty() && Name.back() == '/') || std::filesystem::is_directory(Name, Error);
}

namespace {

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

/// One file with all pictures.
class FileOutput : public PictureOutput {
 public:
  FileOutput(const RunOptions& RunPassIn, DrawFormat FormatPassIn, const std::string& AdvicePassIn)
      : Run(RunPassIn), Format(FormatPassIn), Advice(AdvicePassIn), Output(RunPassIn.Output) {
    if (Format == DrawFormat::Html) {
      Picture::BeginPage("Pictures of rules", Pending);
    }
  }

  void Take(const std::string& /*Name*/, std::string_view Written) override {
    if (Format == DrawFormat::Svg && Count > 0) {
      throw RunError("a file holds one picture in SVG: " + Advice);
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
  std::string Advice;
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

}  // namespace

std::unique_ptr<PictureOutput> MakePictureOutput(const RunOptions& RunPassIn, DrawFormat Format,
                                                 const std::string& Advice) {
  if (IsFolder(RunPassIn.Output)) {
    return std::make_unique<FolderOutput>(RunPassIn, Format);
  }
  if (ReplacesInput(RunPassIn)) {
    throw RunError("did not replace " + RunPassIn.Output + ": it is an input, and no picture");
  }
  return std::make_unique<FileOutput>(RunPassIn, Format, Advice);
}

}  // namespace Grammar
