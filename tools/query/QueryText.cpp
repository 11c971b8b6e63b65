#include "QueryText.h"

#include "Bytes.h"

#include <algorithm>
#include <array>

namespace Query {

namespace {

/// Longer marks come before those that they begin with.
constexpr std::array<std::string_view, 19> Marks = {"*or*", "*not*", "::", "!=", "<=", ">=", "[",
                                                    "]",    "(",     ")",  "|",  ":",  "=",  "<",
                                                    ">",    "^",     "$",  "*",  "?"};

bool IsContinuation(char Byte) {
  return (static_cast<unsigned char>(Byte) & 0xC0U) == 0x80U;
}

bool MovesCursor(char Byte) {
  constexpr unsigned char Delete = 0x7F;
  const auto Value = static_cast<unsigned char>(Byte);
  return Value < ' ' || Value == Delete;
}

/// The mark that a text begins with, in whatever case; empty if there is none.
std::string_view MarkAt(std::string_view Text) {
  const auto* const Found = std::find_if(Marks.begin(), Marks.end(), [&](std::string_view Mark) {
    return Grammar::IsSameInCapitals(Text.substr(0, Mark.size()), Mark);
  });
  return Found == Marks.end() ? std::string_view() : *Found;
}

bool EndsWord(std::string_view Text) {
  return Grammar::IsSpace(Text.front()) || Text.front() == '"' || !MarkAt(Text).empty();
}

}  // namespace

std::string ShownFault(std::string_view Text, const QueryFault& Fault) {
  const std::size_t Before = Text.substr(0, Fault.Place).rfind('\n');
  const std::size_t Begin = Before == std::string_view::npos ? 0 : Before + 1;
  std::string Line(Text.substr(Begin, Text.find('\n', Begin) - Begin));
  std::replace_if(Line.begin(), Line.end(), MovesCursor, '?');
  const auto Columns = static_cast<std::size_t>(
      std::count_if(Line.begin(), Line.begin() + static_cast<std::ptrdiff_t>(Fault.Place - Begin),
                    [](char Byte) { return !IsContinuation(Byte); }));
  return "invalid query: " + Fault.Message + "\n  " + Line + "\n  " + std::string(Columns, ' ') +
         "^\n";
}

bool QueryText::TakeMark(Token& TokenReturn) {
  TokenReturn.Text = MarkAt(Text.substr(At));
  At += TokenReturn.Text.size();
  return !TokenReturn.Text.empty();
}

void QueryText::TakeWord(Token& TokenReturn) {
  while (At < Text.size() && !EndsWord(Text.substr(At))) {
    if (Text[At] == '\\' && At + 1 < Text.size()) {
      TokenReturn.HasEscapes = true;
      ++At;
    }
    TokenReturn.Text += Text[At++];
  }
}

/// Takes a text up to the quote or slash that closes it. A pattern keeps its escapes, which have a
/// meaning for it.
void QueryText::TakeUpTo(char Close, const char* Missing, Token& TokenReturn) {
  const std::size_t Begin = At++;
  for (; At < Text.size() && Text[At] != Close; ++At) {
    if (Text[At] == '\\' && At + 1 < Text.size()) {
      const bool IsKept = Close == '/' || (Text[At + 1] != '\\' && Text[At + 1] != Close);
      TokenReturn.Text += IsKept ? "\\" : "";
      ++At;
    }
    TokenReturn.Text += Text[At];
  }
  if (At == Text.size()) {
    Broken = {Begin, Missing};
    TokenReturn = Token();
  } else {
    ++At;
  }
}

Token QueryText::Next() {
  At = static_cast<std::size_t>(std::find_if_not(Text.begin() + static_cast<std::ptrdiff_t>(At),
                                                 Text.end(), Grammar::IsSpace) -
                                Text.begin());
  Token Taken;
  Taken.Place = Taken.End = At;
  if (Fault() != nullptr || At == Text.size()) {
    return Taken;
  }
  if (TakeMark(Taken)) {
    Taken.Kind = TokenKind::Mark;
  } else if (Text[At] == '"') {
    Taken.Kind = TokenKind::Literal;
    TakeUpTo('"', "this quote is not closed", Taken);
  } else if (Text[At] == '/') {
    Taken.Kind = TokenKind::Pattern;
    TakeUpTo('/', "this regular expression has no \"/\" at its end", Taken);
  } else {
    Taken.Kind = TokenKind::Word;
    TakeWord(Taken);
  }
  Taken.End = At;
  return Taken;
}

void AppendWord(std::string_view Word, std::string& TextReturn) {
  if (Word == "and" || Word == "or" || Word == "not" || Grammar::StartsWith(Word, "/")) {
    TextReturn += '\\';
    TextReturn += Word.front();
    Word.remove_prefix(1);
  }
  for (; !Word.empty(); Word.remove_prefix(1)) {
    if (Word.front() == '\\' || EndsWord(Word)) {
      TextReturn += '\\';
    }
    TextReturn += Word.front();
  }
}

void AppendLiteral(std::string_view Literal, std::string& TextReturn) {
  TextReturn += '"';
  for (const char Byte : Literal) {
    if (Byte == '"' || Byte == '\\') {
      TextReturn += '\\';
    }
    TextReturn += Byte;
  }
  TextReturn += '"';
}

}  // namespace Query
