#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Query {

/// What is wrong with a query, and where.
struct QueryFault {
  std::size_t Place = 0;  ///< in the query, from 0
  std::string Message;    ///< "expected a component or \"]\""
};

/// The fault as it is shown, with the line of the query and a caret below the place:
///
///   invalid query: expected a component or "]"
///     [DET * N
///             ^
///
/// Bytes that would move the cursor are shown as question marks. Ends with a line end.
std::string ShownFault(std::string_view Text, const QueryFault& Fault);

enum class TokenKind : std::uint8_t {
  End,
  Word,     ///< num, NP, \*
  Literal,  ///< "la", without its quotes
  Pattern,  ///< /^SL:/, without its slashes
  Mark,     ///< [ ] ( ) | : :: = != < <= > >= ^ $ * ? *or* *not*
};

struct Token {
  TokenKind Kind = TokenKind::End;
  std::size_t Place = 0;
  std::size_t End = 0;      ///< after its last byte
  std::string Text;         ///< without escapes, but for a pattern
  bool HasEscapes = false;  ///< a word with escapes is not a keyword
};

/// Cuts a query into tokens.
///
/// A word ends before white space, a quote and a mark; a backslash takes away the meaning of the
/// byte after it. In quotes, it does so for a quote and a backslash, and between slashes for a
/// slash.
///
/// @code
/// QueryText Text("y:num = sg");
/// Text.Next().Text;  // "y"
/// Text.Next().Text;  // ":"
/// Text.Next().Text;  // "num"
/// @endcode
class QueryText {
 public:
  /// @param TextPassIn has to outlive this
  explicit QueryText(std::string_view TextPassIn) : Text(TextPassIn) {}

  /// Takes the next token; an end token at the end, or where a quote or slash is not closed: see
  /// `Fault`.
  Token Next();

  /// What has kept the text from being cut to its end; null if nothing has.
  const QueryFault* Fault() const { return Broken.Message.empty() ? nullptr : &Broken; }

 private:
  bool TakeMark(Token& TokenReturn);
  void TakeWord(Token& TokenReturn);
  void TakeUpTo(char Close, const char* Missing, Token& TokenReturn);

  std::string_view Text;
  std::size_t At = 0;
  QueryFault Broken;
};

/// Appends a word as it is written in a query, with escapes where it needs them.
void AppendWord(std::string_view Word, std::string& TextReturn);

/// Appends a literal with its quotes.
void AppendLiteral(std::string_view Literal, std::string& TextReturn);

}  // namespace Query
