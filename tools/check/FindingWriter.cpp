// Sections: text, JSON, SARIF.

#include "FindingWriter.h"

#include "Bytes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Grammar {

FindingWriter::~FindingWriter() = default;

namespace {

using Json = nlohmann::ordered_json;

/// Whether a byte continues a character of several bytes.
bool IsContinuation(char Byte) {
  return (static_cast<unsigned char>(Byte) & 0xC0U) == 0x80U;
}

std::size_t CountCharacters(std::string_view Text) {
  return Text.size() -
         static_cast<std::size_t>(std::count_if(Text.begin(), Text.end(), IsContinuation));
}

// ---- Text -------------------------------------------------------------------------------------

constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Red = "\x1b[1;31m";
constexpr std::string_view Magenta = "\x1b[1;35m";
constexpr std::string_view Cyan = "\x1b[1;36m";
constexpr std::string_view Green = "\x1b[32m";
constexpr std::string_view Plain = "\x1b[0m";

std::string_view ColourOf(Severity Level) {
  return Level == Severity::Error ? Red : Level == Severity::Warning ? Magenta : Cyan;
}

/// Whether all bytes of a text are signs of ASCII, which look like one character each: no tab, no
/// byte that would move the cursor, none of a longer character. Eight bytes at a time; subtracting
/// sets the highest bit of a byte below a blank, and adding that of a delete.
bool IsPlain(std::string_view Text) {
  constexpr std::uint64_t InAllBytes = 0x0101010101010101U;
  std::uint64_t Marks = 0;
  for (std::size_t Size = 0; !Text.empty(); Text.remove_prefix(Size)) {
    std::uint64_t Eight = InAllBytes * ' ';
    Size = std::min(Text.size(), sizeof Eight);
    std::memcpy(&Eight, Text.data(), Size);
    Marks |= Eight | (Eight - InAllBytes * ' ') | (Eight + InAllBytes);
  }
  return (Marks & (InAllBytes * 0x80U)) == 0;
}

constexpr bool MovesCursor(char Byte) {
  constexpr unsigned char Delete = 0x7F;
  const auto Value = static_cast<unsigned char>(Byte);
  return (Value < ' ' && Byte != '\t') || Value == Delete;
}

/// Appends to a text pieces whose sizes together are known not to pass a limit. So there is no look
/// at the room that is left for each of them.
class PieceWriter {
 public:
  // Clearing the buffer would cost more than filling it.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
  PieceWriter(std::string& TextPassIn, std::size_t Limit) : Text(TextPassIn) {
    if (Limit > sizeof Few) {
      Many.resize(Limit);
      Next = Many.data();
    }
  }
  ~PieceWriter() {
    const char* const Begin = Many.empty() ? Few : Many.data();
    Text.append(Begin, static_cast<std::size_t>(Next - Begin));
  }
  PieceWriter(const PieceWriter&) = delete;
  PieceWriter& operator=(const PieceWriter&) = delete;

  void Add(std::string_view Piece) { Next = std::copy(Piece.begin(), Piece.end(), Next); }

  void Add(std::size_t Count, char Byte) { Next = std::fill_n(Next, Count, Byte); }

  /// Adds a text as it looks: bytes that would move the cursor are shown as question marks.
  void AddShown(std::string_view Piece) {
    char* const Begin = Next;
    Add(Piece);
    if (!IsPlain(Piece)) {
      std::replace_if(Begin, Begin + Piece.size(), MovesCursor, '?');
    }
  }

  void AddNumber(std::size_t Number) {
    constexpr std::size_t MaxDigits = 20;
    Next = std::to_chars(Next, Next + MaxDigits, Number).ptr;
  }

 private:
  std::string& Text;
  char Few[1024];    // enough for most; what is not written has no value
  std::string Many;  // in its place, where it is not
  char* Next = Few;
};

/// Adds a part in a colour, where colours are wanted.
template <typename AddT>
void AddColoured(std::string_view Colour, bool Colours, PieceWriter& WriterReturn, AddT AddPart) {
  WriterReturn.Add(Colours ? Colour : std::string_view());
  AddPart();
  WriterReturn.Add(Colours ? Plain : std::string_view());
}

/// As much of a long line as fits around what is meant, and where that begins in it.
std::string_view Window(const Finding& Found, std::size_t& StartReturn) {
  constexpr std::size_t MaxShown = 160;
  constexpr std::size_t Before = 40;
  const std::string_view Line = Found.LineText;
  const std::size_t Start = std::min(Found.Column - 1, Line.size());
  std::size_t From = Line.size() > MaxShown && Start > Before ? Start - Before : 0;
  while (From < Start && IsContinuation(Line[From])) {
    ++From;
  }
  StartReturn = Start - From;
  return Line.substr(From, MaxShown);
}

/// Adds the caret, below a line whose tabs it keeps.
void AddCaret(std::string_view Line, std::size_t Start, std::size_t Length,
              PieceWriter& WriterReturn) {
  const std::string_view Meant = Line.substr(Start, Length);
  if (IsPlain(Line)) {
    WriterReturn.Add(Start, ' ');
    WriterReturn.Add(1, '^');
    WriterReturn.Add(std::max<std::size_t>(Meant.size(), 1) - 1, '~');
    return;
  }
  for (const char Byte : Line.substr(0, Start)) {
    WriterReturn.Add(IsContinuation(Byte) ? 0 : 1, Byte == '\t' ? '\t' : ' ');
  }
  WriterReturn.Add(1, '^');
  WriterReturn.Add(std::max<std::size_t>(CountCharacters(Meant), 1) - 1, '~');
}

void AddLine(std::string_view Label, std::string_view Text, PieceWriter& WriterReturn) {
  WriterReturn.Add(Label);
  WriterReturn.AddShown(Text);
  WriterReturn.Add(1, '\n');
}

/// Adds "np.trr:3:1: ".
void AddPlace(const Finding& Found, PieceWriter& WriterReturn) {
  WriterReturn.AddShown(Found.File);
  WriterReturn.Add(1, ':');
  WriterReturn.AddNumber(Found.Line);
  WriterReturn.Add(1, ':');
  WriterReturn.AddNumber(Found.Column);
  WriterReturn.Add(": ");
}

/// No less than what the text of a finding takes: its line counts once more for the caret, and all
/// that is not its own is labels, colours and numbers.
std::size_t LimitOf(const Finding& Found) {
  constexpr std::size_t Labels = 256;
  return Found.File.size() + Found.Message.size() + 2 * Found.LineText.size() +
         Found.Suggestion.size() + Found.Example.size() + Found.OtherFile.size() + Labels;
}

}  // namespace

void AppendTextOf(const Finding& Found, bool Colours, std::string& TextReturn) {
  std::size_t Start = 0;
  const std::string_view Line = Window(Found, Start);
  PieceWriter Writer(TextReturn, LimitOf(Found));
  AddColoured(Bold, Colours, Writer, [&] { AddPlace(Found, Writer); });
  AddColoured(ColourOf(Found.Level), Colours, Writer, [&] {
    Writer.Add(NameOf(Found.Level));
    Writer.Add(" ");
    Writer.Add(Found.Code);
  });
  AddLine(": ", Found.Message, Writer);
  AddLine("  ", Line, Writer);
  Writer.Add("  ");
  AddColoured(Green, Colours, Writer, [&] { AddCaret(Line, Start, Found.Length, Writer); });
  Writer.Add(1, '\n');
  if (!Found.Suggestion.empty()) {
    AddLine("  instead: ", Trimmed(Found.Suggestion), Writer);
  }
  if (!Found.Example.empty()) {
    AddLine("  for example: ", Found.Example, Writer);
  }
  if (!Found.OtherFile.empty()) {
    Writer.Add("  see ");
    Writer.AddShown(Found.OtherFile);
    Writer.Add(1, ':');
    Writer.AddNumber(Found.OtherLine);
    Writer.Add(1, '\n');
  }
}

namespace {

class TextWriter : public FindingWriter {
 public:
  TextWriter(OutputFile& OutputPassIn, bool ColoursPassIn)
      : Output(OutputPassIn), Colours(ColoursPassIn) {}

  void Begin() override {}
  void Append(const Finding& Found, std::string& TextReturn) const override {
    AppendTextOf(Found, Colours, TextReturn);
  }
  void Write(std::string_view Text) override { Output.Write(Text); }
  void End() override {}

 private:
  OutputFile& Output;
  bool Colours;
};

// ---- JSON -------------------------------------------------------------------------------------

/// On one line; bytes that are not UTF-8 become the sign for that.
std::string Dumped(const Json& Value) {
  return Value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Writes an array with one object on each line, between a beginning and an end.
class ArrayWriter : public FindingWriter {
 public:
  explicit ArrayWriter(OutputFile& OutputPassIn) : Output(OutputPassIn) {}

  void Begin() override { Output.Write(Head()); }

  void Append(const Finding& Found, std::string& TextReturn) const override {
    TextReturn.append(",\n").append(Dumped(ObjectOf(Found)));
  }

  /// The first finding of all has no comma before it.
  void Write(std::string_view Text) override {
    Output.Write(Text.substr(IsFirst ? 1 : 0));
    IsFirst = false;
  }

  void End() override { Output.Write((IsFirst ? "" : "\n") + Tail()); }

 protected:
  virtual std::string Head() const = 0;
  virtual Json ObjectOf(const Finding& Found) const = 0;
  virtual std::string Tail() const = 0;

 private:
  OutputFile& Output;
  bool IsFirst = true;
};

class JsonWriter : public ArrayWriter {
 public:
  using ArrayWriter::ArrayWriter;

 protected:
  std::string Head() const override { return "["; }

  Json ObjectOf(const Finding& Found) const override {
    Json Object = {{"file", Found.File},
                   {"line", Found.Line},
                   {"column", Found.Column},
                   {"length", Found.Length},
                   {"severity", NameOf(Found.Level)},
                   {"code", Found.Code},
                   {"message", Found.Message},
                   {"text", Found.LineText}};
    if (!Found.Suggestion.empty()) {
      Object["suggestion"] = Found.Suggestion;
    }
    if (!Found.Example.empty()) {
      Object["example"] = Found.Example;
    }
    if (!Found.OtherFile.empty()) {
      Object["other"] = {{"file", Found.OtherFile}, {"line", Found.OtherLine}};
    }
    return Object;
  }

  std::string Tail() const override { return "]\n"; }
};

// ---- SARIF ------------------------------------------------------------------------------------

/// A file name as a URI reference.
std::string UriOf(std::string_view Name) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  constexpr std::string_view Unreserved = "-._~/";
  std::string Uri;
  for (const char Byte : Name) {
    const auto Value = static_cast<unsigned char>(Byte);
    const char Capital = ToUpper(Byte);
    if (IsDigit(Byte) || (Capital >= 'A' && Capital <= 'Z') || Contains(Unreserved, {&Byte, 1})) {
      Uri += Byte;
    } else {
      Uri.append("%").append(1, Digits[Value >> 4U]).append(1, Digits[Value & 15U]);
    }
  }
  return Uri;
}

class SarifWriter : public ArrayWriter {
 public:
  SarifWriter(OutputFile& OutputPassIn, std::string VersionPassIn)
      : ArrayWriter(OutputPassIn), Version(std::move(VersionPassIn)) {}

 protected:
  std::string Head() const override {
    Json Rules = Json::array();
    for (const CodeInfo& Info : AllCodes()) {
      Rules.push_back({{"id", Info.Code},
                       {"shortDescription", {{"text", Info.Title}}},
                       {"fullDescription", {{"text", Info.Explanation}}},
                       {"help", {{"text", Explanation(Info)}}},
                       {"defaultConfiguration", {{"level", NameOf(Info.Level)}}}});
    }
    const Json Driver = {{"name", "trrule"}, {"version", Version}, {"rules", Rules}};
    return R"({"version":"2.1.0","runs":[{"tool":{"driver":)" + Dumped(Driver) +
           R"(},"columnKind":"unicodeCodePoints","results":[)";
  }

  Json ObjectOf(const Finding& Found) const override {
    Json Object = {{"ruleId", Found.Code},
                   {"level", NameOf(Found.Level)},
                   {"message", {{"text", MessageOf(Found)}}},
                   {"locations", Json::array({Location(Found.File, RegionOf(Found))})}};
    if (!Found.OtherFile.empty()) {
      Object["relatedLocations"] =
          Json::array({Location(Found.OtherFile, {{"startLine", Found.OtherLine}})});
    }
    return Object;
  }

  std::string Tail() const override { return "]}]}\n"; }

 private:
  static Json Location(const std::string& File, const Json& Region) {
    return {
        {"physicalLocation", {{"artifactLocation", {{"uri", UriOf(File)}}}, {"region", Region}}}};
  }

  static std::string MessageOf(const Finding& Found) {
    std::string Message = Found.Message;
    if (!Found.Suggestion.empty()) {
      Message.append("; instead: ").append(Trimmed(Found.Suggestion));
    }
    if (!Found.Example.empty()) {
      Message.append("; for example: ").append(Found.Example);
    }
    return Message;
  }

  /// Columns in characters, where a finding has them in bytes.
  static Json RegionOf(const Finding& Found) {
    const std::string_view Line = Found.LineText;
    const std::size_t Start = std::min(Found.Column - 1, Line.size());
    const std::size_t Column = CountCharacters(Line.substr(0, Start)) + 1;
    const std::size_t Width =
        std::max<std::size_t>(CountCharacters(Line.substr(Start, Found.Length)), 1);
    return {{"startLine", Found.Line},
            {"startColumn", Column},
            {"endColumn", Column + Width},
            {"snippet", {{"text", Found.LineText}}}};
  }

  std::string Version;
};

}  // namespace

std::unique_ptr<FindingWriter> MakeFindingWriter(FindingFormat Format, bool Colours,
                                                 const std::string& Version,
                                                 OutputFile& OutputReturn) {
  switch (Format) {
    case FindingFormat::Json:
      return std::make_unique<JsonWriter>(OutputReturn);
    case FindingFormat::Sarif:
      return std::make_unique<SarifWriter>(OutputReturn, Version);
    case FindingFormat::Text:
      break;
  }
  return std::make_unique<TextWriter>(OutputReturn, Colours);
}

}  // namespace Grammar
