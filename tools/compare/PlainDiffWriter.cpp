// Sections: the words that differ; a difference; its lines.

#include "PlainDiffWriter.h"

#include "CommonLines.h"

#include <algorithm>
#include <utility>

namespace Grammar {

namespace {

using Views = std::vector<std::string_view>;

Views LinesOf(std::string_view Text) {
  Views vLines;
  while (!Text.empty()) {
    const std::size_t Size = Text.find('\n');
    vLines.push_back(Text.substr(0, Size));
    Text.remove_prefix(Size + 1);
  }
  return vLines;
}

// ---- The words that differ --------------------------------------------------------------------

constexpr std::string_view Usual = "\x1b[m";
constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Red = "\x1b[31m";
constexpr std::string_view Green = "\x1b[32m";
constexpr std::string_view Yellow = "\x1b[33m";
constexpr std::string_view Cyan = "\x1b[36m";
constexpr std::string_view Marked = "\x1b[7m";
constexpr std::string_view Unmarked = "\x1b[27m";

bool IsSeparator(char Byte) {
  constexpr std::string_view Separators = " ()[]{},:=\t";
  return Separators.find(Byte) != std::string_view::npos;
}

/// The words of a line, and each separator between them.
Views WordsOf(std::string_view Line) {
  Views vWords;
  while (!Line.empty()) {
    const auto End = std::find_if(Line.begin(), Line.end(), IsSeparator);
    const auto Size = std::max<std::ptrdiff_t>(End - Line.begin(), 1);
    vWords.push_back(Line.substr(0, static_cast<std::size_t>(Size)));
    Line.remove_prefix(static_cast<std::size_t>(Size));
  }
  return vWords;
}

template <typename IsMarkedT>
std::string MarkedLine(const Views& vWords, IsMarkedT IsMarked) {
  std::string Line;
  bool WasMarked = false;
  for (std::size_t At = 0; At < vWords.size(); ++At) {
    if (IsMarked(At) != WasMarked) {
      WasMarked = !WasMarked;
      Line += WasMarked ? Marked : Unmarked;
    }
    Line += vWords[At];
  }
  return Line.append(WasMarked ? Unmarked : "");
}

/// Marks what differs in two lines.
void MarkWords(std::string_view Old, std::string_view New, std::string& OldReturn,
               std::string& NewReturn) {
  const Views vOld = WordsOf(Old);
  const Views vNew = WordsOf(New);
  const CommonLines Common(vOld.size(), vNew.size(), [&](std::size_t OldAt, std::size_t NewAt) {
    return vOld[OldAt] == vNew[NewAt];
  });
  OldReturn = MarkedLine(vOld, [&](std::size_t At) { return !Common.HasOld(At); });
  NewReturn = MarkedLine(vNew, [&](std::size_t At) { return !Common.HasNew(At); });
}

}  // namespace

// ---- A difference -----------------------------------------------------------------------------

namespace {

/// A name without line ends, which would begin another line.
std::string OnOneLine(std::string Text) {
  std::replace(Text.begin(), Text.end(), '\n', ' ');
  return Text;
}

std::string Range(char Sign, std::uint64_t Line, std::size_t Count) {
  return Sign + std::to_string(Line) + ',' + std::to_string(Count);
}

}  // namespace

PlainDiffWriter::PlainDiffWriter(DiffStyle StylePassIn) : Style(std::move(StylePassIn)) {}

void PlainDiffWriter::Append(const DiffHunk& HunkPassIn, std::string& TextReturn) {
  if (Tally.IsEmpty()) {
    AddLine(Bold, "--- " + OnOneLine(Style.OldName), TextReturn);
    AddLine(Bold, "+++ " + OnOneLine(Style.NewName), TextReturn);
  }
  Tally.Add(HunkPassIn);
  const Views vOld = LinesOf(HunkPassIn.OldText);
  const Views vNew = LinesOf(HunkPassIn.NewText);
  AddHead(HunkPassIn, vOld.size(), vNew.size(), TextReturn);
  AddLines(vOld, vNew, TextReturn);
}

void PlainDiffWriter::AppendEnd(std::string& TextReturn) {
  if (!Tally.IsEmpty()) {
    AddLine(Cyan, "@@ " + Tally.Words() + " @@", TextReturn);
  }
}

void PlainDiffWriter::AddLine(std::string_view Colour, std::string_view Line,
                              std::string& TextReturn) const {
  TextReturn.append(Style.HasColours ? Colour : "").append(Line);
  TextReturn.append(Style.HasColours ? Usual : "").append("\n");
}

/// Adds where the rules are, why they belong together, and which parts differ.
void PlainDiffWriter::AddHead(const DiffHunk& Hunk, std::size_t OldSize, std::size_t NewSize,
                              std::string& TextReturn) const {
  AddLine(Cyan,
          "@@ " + Range('-', Hunk.OldLine, OldSize) + ' ' + Range('+', Hunk.NewLine, NewSize) +
              " @@ " + std::string(NameOf(Hunk.Kind)) + ' ' + Hunk.Title,
          TextReturn);
  for (const PartChange& Change : Hunk.vChanges) {
    AddLine(Yellow, "# " + Describe(Change), TextReturn);
  }
  if (Hunk.IsMoved) {
    AddLine(Yellow,
            "# moved from line " + std::to_string(Hunk.OldLine) + " to line " +
                std::to_string(Hunk.NewLine),
            TextReturn);
  }
}

// ---- Its lines --------------------------------------------------------------------------------

/// Adds the lines of both, those that only the old rule has before those that only the new has.
void PlainDiffWriter::AddLines(const Views& vOld, const Views& vNew,
                               std::string& TextReturn) const {
  const CommonLines Common(vOld.size(), vNew.size(), [&](std::size_t Old, std::size_t New) {
    return vOld[Old] == vNew[New];
  });
  Views vRemoved;
  Views vAdded;
  for (std::size_t Old = 0, New = 0; Old < vOld.size() || New < vNew.size();) {
    if (Old < vOld.size() && !Common.HasOld(Old)) {
      vRemoved.push_back(vOld[Old++]);
    } else if (New < vNew.size() && !Common.HasNew(New)) {
      vAdded.push_back(vNew[New++]);
    } else {
      AddChanged(vRemoved, vAdded, TextReturn);
      TextReturn.append(" ").append(vOld[Old]).append("\n");
      ++Old;
      ++New;
    }
  }
  AddChanged(vRemoved, vAdded, TextReturn);
}

/// Adds lines that stand against each other; if they are as many, with the words marked.
void PlainDiffWriter::AddChanged(Views& vRemovedReturn, Views& vAddedReturn,
                                 std::string& TextReturn) const {
  std::vector<std::string> vsRemoved(vRemovedReturn.begin(), vRemovedReturn.end());
  std::vector<std::string> vsAdded(vAddedReturn.begin(), vAddedReturn.end());
  if (Style.HasColours && vsRemoved.size() == vsAdded.size()) {
    for (std::size_t At = 0; At < vsAdded.size(); ++At) {
      MarkWords(vRemovedReturn[At], vAddedReturn[At], vsRemoved[At], vsAdded[At]);
    }
  }
  for (const std::string& sLine : vsRemoved) {
    AddLine(Red, '-' + sLine, TextReturn);
  }
  for (const std::string& sLine : vsAdded) {
    AddLine(Green, '+' + sLine, TextReturn);
  }
  vRemovedReturn.clear();
  vAddedReturn.clear();
}

}  // namespace Grammar
