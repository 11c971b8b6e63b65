#include "DiffReader.h"

#include "Bytes.h"

#include <charconv>

namespace Grammar {

namespace {

constexpr std::string_view HeadStart = "@@ ";
constexpr std::string_view HeadEnd = " @@";

/// How many lines the rule of a difference has.
struct LineCounts {
  std::uint64_t Old = 0;
  std::uint64_t New = 0;
};

bool Skip(std::string_view Expected, std::string_view& TextReturn) {
  if (!StartsWith(TextReturn, Expected)) {
    return false;
  }
  TextReturn.remove_prefix(Expected.size());
  return true;
}

bool ReadNumber(std::string_view& TextReturn, std::uint64_t& NumberReturn) {
  const char* const Begin = TextReturn.data();
  const auto Result = std::from_chars(Begin, Begin + TextReturn.size(), NumberReturn);
  TextReturn.remove_prefix(static_cast<std::size_t>(Result.ptr - Begin));
  return Result.ec == std::errc();
}

/// Reads a kind and the blank after it.
bool ReadKind(std::string_view& TextReturn, HunkKind& KindReturn) {
  for (std::size_t Kind = 0; Kind < HunkKinds; ++Kind) {
    KindReturn = static_cast<HunkKind>(Kind);
    if (Skip(std::string(NameOf(KindReturn)) + ' ', TextReturn)) {
      return true;
    }
  }
  return false;
}

/// Reads "@@ -12,5 +14,5 @@ changed …".
bool ReadHead(std::string_view Line, DiffHunk& HunkReturn, LineCounts& CountsReturn) {
  const bool IsHead = Skip(HeadStart, Line) && Skip("-", Line) &&
                      ReadNumber(Line, HunkReturn.OldLine) && Skip(",", Line) &&
                      ReadNumber(Line, CountsReturn.Old) && Skip(" +", Line) &&
                      ReadNumber(Line, HunkReturn.NewLine) && Skip(",", Line) &&
                      ReadNumber(Line, CountsReturn.New) && Skip(HeadEnd, Line) &&
                      Skip(" ", Line) && ReadKind(Line, HunkReturn.Kind);
  HunkReturn.Title = Line;
  return IsHead;
}

/// Whether a difference of that kind has such rules.
bool Fits(HunkKind Kind, const LineCounts& Counts) {
  const bool HasOld = Counts.Old > 0;
  const bool HasNew = Counts.New > 0;
  switch (Kind) {
    case HunkKind::Removed:
    case HunkKind::RemovedText:
      return HasOld && !HasNew;
    case HunkKind::Added:
    case HunkKind::AddedText:
      return !HasOld && HasNew;
    case HunkKind::Moved:
      return !HasOld && !HasNew;
    default:
      return HasOld && HasNew;
  }
}

/// Whether a text is absent or one rule that can be read.
bool IsRuleOrNone(const std::string& Text) {
  return Text.empty() || ComparedRule::Of(Text).has_value();
}

/// Reads a diff line by line.
class Parser {
 public:
  Parser(std::string_view TextPassIn, std::vector<DiffHunk>& vHunksPassIn)
      : Rest(TextPassIn), vHunks(vHunksPassIn) {
    const std::size_t End = Rest.find('\n');
    HasReturns = End != std::string_view::npos && End > 0 && Rest[End - 1] == '\r';
  }

  std::optional<DiffFault> Read() {
    if (Rest.empty()) {
      return std::nullopt;
    }
    const bool IsRead = ReadLine("--- ") && ReadLine("+++ ") && ReadHunks();
    return IsRead ? std::nullopt : std::optional<DiffFault>({LineNumber, Message});
  }

 private:
  bool Fail(std::string MessagePassIn) {
    Message = std::move(MessagePassIn);
    return false;
  }

  /// Reads the next line, which has to have an end.
  bool NextLine() {
    ++LineNumber;
    const std::size_t Size = Rest.find('\n');
    if (Size == std::string_view::npos) {
      return Fail("the diff ends too early");
    }
    Line = Rest.substr(0, Size);
    Rest.remove_prefix(Size + 1);
    if (HasReturns && (Line.empty() || Line.back() != '\r')) {
      return Fail("the line does not end in CRLF, as those before do");
    }
    Line.remove_suffix(HasReturns ? 1 : 0);
    return true;
  }

  bool ReadLine(std::string_view Start) {
    return NextLine() && (StartsWith(Line, Start) ||
                          Fail("expected a line that begins with \"" + std::string(Start) + "\""));
  }

  /// Reads the differences and the last line.
  bool ReadHunks() {
    for (;;) {
      if (!NextLine()) {
        return false;
      }
      if (!Tally.IsEmpty() && Line == "@@ " + Tally.Words() + " @@") {
        return Rest.empty() || Fail("expected nothing after the last line, which counts");
      }
      if (!ReadHunk()) {
        return false;
      }
    }
  }

  /// Reads a difference whose first line is the current one.
  bool ReadHunk() {
    DiffHunk Hunk;
    Hunk.DiffLine = LineNumber;
    LineCounts Expected;
    if (!ReadHead(Line, Hunk, Expected)) {
      return Fail("expected \"@@ -LINE,COUNT +LINE,COUNT @@ KIND\", or the count of all kinds");
    }
    if (!Fits(Hunk.Kind, Expected)) {
      return Fail("the numbers of lines do not fit \"" + std::string(NameOf(Hunk.Kind)) + "\"");
    }
    if (!ReadBody(Expected, Hunk)) {
      return false;
    }
    if (!Hunk.IsText() && (!IsRuleOrNone(Hunk.OldText) || !IsRuleOrNone(Hunk.NewText))) {
      LineNumber = Hunk.DiffLine;
      return Fail("the lines that follow are not one rule");
    }
    Tally.Add(Hunk);
    vHunks.push_back(std::move(Hunk));
    return true;
  }

  bool ReadBody(const LineCounts& Expected, DiffHunk& HunkReturn) {
    LineCounts Counts;
    while (StartsWith(Rest, "#")) {
      if (!NextLine()) {
        return false;
      }
    }
    while (Counts.Old < Expected.Old || Counts.New < Expected.New) {
      if (!NextLine()) {
        return false;
      }
      const char Sign = Line.empty() ? '\0' : Line.front();
      const bool IsOld = Sign == '-' || Sign == ' ';
      const bool IsNew = Sign == '+' || Sign == ' ';
      Counts.Old += IsOld ? 1 : 0;
      Counts.New += IsNew ? 1 : 0;
      if ((!IsOld && !IsNew) || Counts.Old > Expected.Old || Counts.New > Expected.New) {
        return Fail("expected a line of the rule, after \" \", \"-\" or \"+\"");
      }
      Line.remove_prefix(1);
      AppendLine(IsOld, HunkReturn.OldText);
      AppendLine(IsNew, HunkReturn.NewText);
    }
    return true;
  }

  void AppendLine(bool IsWanted, std::string& TextReturn) const {
    if (IsWanted) {
      TextReturn.append(Line).append(1, '\n');
    }
  }

  std::string_view Rest;
  std::vector<DiffHunk>& vHunks;
  bool HasReturns = false;
  std::size_t LineNumber = 0;
  std::string_view Line;
  std::string Message;
  DiffTally Tally;
};

}  // namespace

std::optional<DiffFault> ReadDiff(std::string_view TextPassIn,
                                  std::vector<DiffHunk>& vHunksReturn) {
  return Parser(TextPassIn, vHunksReturn).Read();
}

}  // namespace Grammar
