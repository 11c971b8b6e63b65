#include "QueryText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Query::QueryFault;
using Query::QueryText;
using Query::Token;
using Query::TokenKind;

/// The tokens of a text, each with its place, kind and text; a word with escapes has a "+".
std::string TokensOf(const std::string& Given) {
  QueryText Text(Given);
  std::string All;
  for (Token Current = Text.Next(); Current.Kind != TokenKind::End; Current = Text.Next()) {
    All += std::to_string(Current.Place) + '-' + std::to_string(Current.End) +
           "EWLPM"[static_cast<int>(Current.Kind)] + (Current.HasEscapes ? "+" : "") + ':' +
           Current.Text + ' ';
  }
  const QueryFault* Fault = Text.Fault();
  return All + (Fault == nullptr ? "" : "! " + std::to_string(Fault->Place) + ' ' + Fault->Message);
}

}  // namespace

TEST(QueryText, IsCutIntoTokens) {
  const struct {
    std::string Text;
    std::string Tokens;
  } Cases[] = {
      {"", ""},
      {" \t\n", ""},
      {"[DET * N]", "0-1M:[ 1-4W:DET 5-6M:* 7-8W:N 8-9M:] "},
      {"y:num=sg|pl", "0-1W:y 1-2M:: 2-5W:num 5-6M:= 6-8W:sg 8-9M:| 9-11W:pl "},
      {"A::B", "0-1W:A 1-3M::: 3-4W:B "},
      {"count>=10", "0-5W:count 5-7M:>= 7-9W:10 "},
      {"a!=b a!b !", "0-1W:a 1-3M:!= 3-4W:b 5-8W:a!b 9-10W:! "},
      {"<=<>^$?()", "0-2M:<= 2-3M:< 3-4M:> 4-5M:^ 5-6M:$ 6-7M:? 7-8M:( 8-9M:) "},
      {"*or* *NOT* *o", "0-4M:*or* 5-10M:*not* 11-12M:* 12-13W:o "},
      {"\"la\"\"\" x", "0-4L:la 4-6L: 7-8W:x "},
      {R"("a\"b\\c\d")", R"(0-11L:a"b\c\d )"},
      {R"(/a\/b\d/i x/y)", R"(0-8P:a\/b\d 8-9W:i 10-13W:x/y )"},
      {R"(a\|b \and \\)", R"(0-4W+:a|b 5-9W+:and 10-12W+:\ )"},
      {"a\\", "0-2W:a\\ "},
      {"N \"la", "0-1W:N ! 2 this quote is not closed"},
      {"N \"la\\\"", "0-1W:N ! 2 this quote is not closed"},
      {"/a\\/", "! 0 this regular expression has no \"/\" at its end"},
      {"名詞 N", "0-6W:名詞 7-8W:N "},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(TokensOf(Row.Text), Row.Tokens) << Row.Text;
  }
}

TEST(QueryText, ShowsFaultsBelowTheirLine) {
  const struct {
    std::string Text;
    std::size_t Place;
    std::string Shown;
  } Cases[] = {
      {"[DET", 4, "invalid query: why\n  [DET\n      ^\n"},
      {"", 0, "invalid query: why\n  \n  ^\n"},
      // Characters count, not bytes; nothing moves the cursor.
      {"名\tN x", 5, "invalid query: why\n  名?N x\n     ^\n"},
      {"a\nbc d\ne", 5, "invalid query: why\n  bc d\n     ^\n"},
      {"a\nb", 1, "invalid query: why\n  a\n   ^\n"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Query::ShownFault(Row.Text, {Row.Place, "why"}), Row.Shown) << Row.Text;
  }
}

TEST(QueryText, WritesWordsThatAreReadAgain) {
  for (const std::string Word : {"N", "and", "or", "not", "*", "*or*", "/a", "a/b", "a b", "\\",
                                 "a\"b", "x=y", "!=", "::", "名詞", "[", "^$?", "a\n", "android"}) {
    std::string Written;
    Query::AppendWord(Word, Written);
    QueryText Text(Written);
    const Token Taken = Text.Next();
    EXPECT_EQ(Taken.Kind, TokenKind::Word) << Written;
    EXPECT_EQ(Taken.Text, Word) << Written;
    EXPECT_EQ(Taken.End, Written.size()) << Written;
    Written.clear();
    Query::AppendLiteral(Word, Written);
    QueryText Quoted(Written);
    EXPECT_EQ(Quoted.Next().Text, Word) << Written;
    EXPECT_EQ(Quoted.Next().Kind, TokenKind::End) << Written;
  }
}
