// Sections: groups, files, the run.

#include "SplitCommand.h"

#include "ExternalSorter.h"
#include "FileNames.h"
#include "OutputFile.h"
#include "RunError.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

// ---- Groups -----------------------------------------------------------------------------------

namespace {

/// Puts rules into the order of the files that they go to.
class Splitter : public RuleVisitor {
 public:
  explicit Splitter(const SplitOptions& OptionsPassIn)
      : Options(OptionsPassIn), Rules(MemoryForSorting(OptionsPassIn.Memory)) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    if (const Query::GroupBy* By = std::get_if<Query::GroupBy>(&Options.By)) {
      KeyReturn += Query::GroupKeys(Record.Lines(), *By).front();
    }
    TextReturn += Record.Lines().Text().Text;
    return true;
  }

  bool KeepsLines() const override { return true; }

  void TakeRule(std::string_view Key, std::string_view Text) override {
    File = HasGroups() ? FileOf(std::string(Key)) : NextFile();
    Add(Begins, Text);
  }

  void TakeBadRule(std::string_view Text, bool Continues) override {
    if (!Continues) {
      File = HasGroups() ? FileOfOthers() : NextFile();
    }
    Add(Continues ? GoesOn : Begins, Text);
  }

  void TakeText(std::string_view Text) override {
    if (HasGroups()) {
      File = FileOfOthers();
    }
    Add(Begins, Text);
  }

  void EndLine() override {}

  /// The names of all files, without folder and ending, by their numbers.
  std::vector<std::string> Names() const {
    std::vector<std::string> vsFiles;
    FileNames Unused("group");
    for (std::uint64_t Number = 0; Number < FileCount; ++Number) {
      vsFiles.push_back(Number < vsGroups.size() ? Unused.NewName(vsGroups[Number])
                                                 : PartName(Number + 1));
    }
    return vsFiles;
  }

  void Sort() { Rules.Sort(); }

  /// The next text, in the order of files and in each of them in that of the input.
  /// @param BeginsReturn whether it has to begin on a line of its own
  bool Next(std::uint64_t& FileReturn, bool& BeginsReturn, std::string_view& TextReturn) {
    SortRecord Record;
    if (!Rules.Next(Record)) {
      return false;
    }
    FileReturn = NumberIn(Record.Key);
    BeginsReturn = Record.Payload.front() == Begins;
    TextReturn = Record.Payload.substr(1);
    return true;
  }

 private:
  // The first byte of what is kept of a text.
  static constexpr char Begins = '0';
  static constexpr char GoesOn = '1';

  static std::string PartName(std::uint64_t Number) {
    constexpr std::size_t Digits = 4;
    const std::string Text = std::to_string(Number);
    return "part-" + std::string(Digits - std::min(Digits, Text.size()), '0') + Text;
  }

  static std::uint64_t NumberIn(std::string_view Key) {
    std::uint64_t Number = 0;
    for (const char Byte : Key) {
      Number = (Number << 8U) | static_cast<unsigned char>(Byte);
    }
    return Number;
  }

  bool HasGroups() const { return std::holds_alternative<Query::GroupBy>(Options.By); }

  std::uint64_t FileOf(const std::string& Group) {
    const auto Found = mFiles.emplace(Group, vsGroups.size()).first;
    if (Found->second == vsGroups.size()) {
      vsGroups.push_back(Group);
    }
    return Found->second;
  }

  std::uint64_t FileOfOthers() {
    if (!OtherFile) {
      OtherFile = vsGroups.size();
      vsGroups.emplace_back("other");
    }
    return *OtherFile;
  }

  /// The file of the next rule, where there are no groups.
  std::uint64_t NextFile() {
    const std::uint64_t Rule = RuleCount++;
    if (const RulesPerFile* Size = std::get_if<RulesPerFile>(&Options.By)) {
      return Rule / Size->Count;
    }
    return Rule % std::get<FilesInTurn>(Options.By).Count;
  }

  void Add(char First, std::string_view Text) {
    FileCount = std::max(FileCount, File + 1);
    Bytes.assign(1, First).append(Text);
    Rules.Add(SortableNumber(File), Bytes);
  }

  const SplitOptions& Options;
  ExternalSorter Rules;
  std::map<std::string, std::uint64_t> mFiles;  // by group
  std::vector<std::string> vsGroups;            // by file
  std::optional<std::uint64_t> OtherFile;
  std::uint64_t RuleCount = 0;
  std::uint64_t FileCount = 0;
  std::uint64_t File = 0;  // of the last text
  std::string Bytes;
};

}  // namespace

// ---- Files ------------------------------------------------------------------------------------

namespace {

/// The files of a folder, one after the other.
class FolderWriter {
 public:
  /// Throws `RunError` where a file is there already, unless that is no matter.
  FolderWriter(const std::string& Folder, const std::vector<std::string>& vsNames, bool Force) {
    for (const std::string& sName : vsNames) {
      vsPaths.push_back((std::filesystem::path(Folder) / (sName + ".trr")).string());
      std::error_code Ignored;
      if (!Force &&
          std::filesystem::exists(std::filesystem::symlink_status(vsPaths.back(), Ignored))) {
        throw RunError("did not replace " + vsPaths.back() +
                       ": it is there already (--force replaces it)");
      }
    }
  }

  void Write(std::uint64_t File, bool BeginsLine, std::string_view Text) {
    if (!Output || File != Current) {
      Finish();
      Output = std::make_unique<OutputFile>(vsPaths[File]);
      Current = File;
    } else if (BeginsLine) {
      EndLine();
    }
    Output->Write(Text);
    OwesLineEnd = Text.back() != '\n';
  }

  void Finish() {
    if (Output) {
      EndLine();
      Output->Finish();
      Output.reset();
    }
  }

 private:
  void EndLine() {
    Output->Write(OwesLineEnd ? "\n" : "");
    OwesLineEnd = false;
  }

  std::vector<std::string> vsPaths;
  std::unique_ptr<OutputFile> Output;
  std::uint64_t Current = 0;
  bool OwesLineEnd = false;
};

void MakeFolder(const std::string& Name) {
  std::error_code Error;
  std::filesystem::create_directories(Name, Error);
  if (Error) {
    throw RunError("cannot make the folder " + Name + ": " + Error.message());
  }
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

namespace {

void WriteFiles(const RunOptions& Run, Splitter& Rules) {
  FolderWriter Files(Run.Output, Rules.Names(), Run.Force);
  MakeFolder(Run.Output);
  Rules.Sort();
  std::uint64_t File = 0;
  bool BeginsLine = false;
  for (std::string_view Text; Rules.Next(File, BeginsLine, Text);) {
    Files.Write(File, BeginsLine, Text);
  }
  Files.Finish();
}

}  // namespace

int RunSplit(const RunOptions& Run, const SplitOptions& Options) {
  RunOptions RunWithBad = Run;
  RunWithBad.KeepBad = true;
  Splitter Rules(Options);
  const RunTally Tally = VisitRules(RunWithBad, Rules);
  if (Tally.HasUnreadFiles && !Run.Force) {
    throw RunError("did not write into " + Run.Output +
                   ": not all inputs could be read (--force writes it all the same)");
  }
  WriteFiles(Run, Rules);
  if (Tally.HasUnreadFiles) {
    return StatusFailed;
  }
  return Tally.HasFindings ? StatusFindings : StatusClean;
}

}  // namespace Grammar
