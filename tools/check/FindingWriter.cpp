// Sections: text, JSON, SARIF.

#include "FindingWriter.h"

#include "Bytes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
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

/// Appends a part in a colour, where colours are wanted.
template <typename AppendT>
void AppendColoured(std::string_view Colour, bool Colours, std::string& TextReturn,
                    AppendT AppendPart) {
  TextReturn += Colours ? Colour : std::string_view();
  AppendPart();
  TextReturn += Colours ? Plain : std::string_view();
}

constexpr bool MovesCursor(char Byte) {
  constexpr unsigned char Delete = 0x7F;
  const auto Value = static_cast<unsigned char>(Byte);
  return (Value < ' ' && Byte != '\t') || Value == Delete;
}

/// Appends a text as it looks: bytes that would move the cursor are shown as question marks. Hardly
/// a text has any; counting them to the end takes several bytes at a time.
void AppendShown(std::string_view Text, std::string& TextReturn) {
  const std::size_t Begin = TextReturn.size();
  TextReturn += Text;
  if (std::count_if(Text.begin(), Text.end(), MovesCursor) > 0) {
    std::replace_if(TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin), TextReturn.end(),
                    MovesCursor, '?');
  }
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

/// Appends the caret, below a line whose tabs it keeps.
void AppendCaret(std::string_view Line, std::size_t Start, std::size_t Length,
                 std::string& TextReturn) {
  const std::size_t Begin = TextReturn.size();
  TextReturn += Line.substr(0, Start);
  TextReturn.erase(std::remove_if(TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin),
                                  TextReturn.end(), IsContinuation),
                   TextReturn.end());
  std::replace_if(
      TextReturn.begin() + static_cast<std::ptrdiff_t>(Begin), TextReturn.end(),
      [](char Byte) { return Byte != '\t'; }, ' ');
  const std::size_t Width = CountCharacters(Line.substr(std::min(Start, Line.size()), Length));
  TextReturn.append(1, '^').append(std::max<std::size_t>(Width, 1) - 1, '~');
}

/// Makes room for as much as a finding takes in most cases.
void ReserveFor(const Finding& Found, std::string& TextReturn) {
  constexpr std::size_t Around = 64;
  const std::size_t Wanted = TextReturn.size() + Found.File.size() + Found.Message.size() +
                             2 * Found.LineText.size() + Found.Suggestion.size() + Around;
  if (TextReturn.capacity() < Wanted) {
    TextReturn.reserve(std::max(Wanted, 2 * TextReturn.capacity()));
  }
}

void AppendLine(std::string_view Label, std::string_view Text, std::string& TextReturn) {
  TextReturn += Label;
  AppendShown(Text, TextReturn);
  TextReturn += '\n';
}

/// Appends "np.trr:3:1: ".
void AppendPlace(const Finding& Found, std::string& TextReturn) {
  AppendShown(Found.File, TextReturn);
  const auto AppendNumber = [&](std::size_t Number) {
    constexpr std::size_t MaxDigits = 20;
    char Digits[MaxDigits];
    const auto End = std::to_chars(Digits, Digits + MaxDigits, Number).ptr;
    TextReturn.append(1, ':').append(Digits, static_cast<std::size_t>(End - Digits));
  };
  AppendNumber(Found.Line);
  AppendNumber(Found.Column);
  TextReturn += ": ";
}

}  // namespace

void AppendTextOf(const Finding& Found, bool Colours, std::string& TextReturn) {
  std::size_t Start = 0;
  const std::string_view Line = Window(Found, Start);
  ReserveFor(Found, TextReturn);
  AppendColoured(Bold, Colours, TextReturn, [&] { AppendPlace(Found, TextReturn); });
  AppendColoured(ColourOf(Found.Level), Colours, TextReturn, [&] {
    TrRuleInternal::Append(TextReturn, {NameOf(Found.Level), " ", Found.Code});
  });
  AppendLine(": ", Found.Message, TextReturn);
  AppendLine("  ", Line, TextReturn);
  TextReturn += "  ";
  AppendColoured(Green, Colours, TextReturn,
                 [&] { AppendCaret(Line, Start, Found.Length, TextReturn); });
  TextReturn += '\n';
  if (!Found.Suggestion.empty()) {
    AppendLine("  instead: ", Trimmed(Found.Suggestion), TextReturn);
  }
  if (!Found.Example.empty()) {
    AppendLine("  for example: ", Found.Example, TextReturn);
  }
  if (!Found.OtherFile.empty()) {
    AppendLine("  see ", Found.OtherFile + ':' + std::to_string(Found.OtherLine), TextReturn);
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

/// On one line; bytes that are no UTF-8 become the sign for that.
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
