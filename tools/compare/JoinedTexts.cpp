#include "JoinedTexts.h"

#include "RuleReader.h"

#include <utility>

namespace Grammar {

namespace {

/// Whether a text is one rule, or one other text, also with another one after it.
bool IsApart(const std::string& Left, const std::string& Right) {
  RuleReader Reader(Left + Right);
  std::size_t Size = 0;
  RuleText Text;
  while (Size < Left.size() && Reader.Next(Text)) {
    if (Size > 0 && !Text.Continues) {
      return false;
    }
    Size += Text.Text.size();
  }
  return Size == Left.size() && (!Reader.Next(Text) || !Text.Continues);
}

/// The normal form of a rule, with such line ends as the rule has.
std::string NormalBytes(const JoinedText& Rule) {
  if (!Rule.HasReturns) {
    return Rule.NormalForm;
  }
  std::string Bytes;
  for (const char Byte : Rule.NormalForm) {
    Bytes += Byte == '\n' ? "\r" : "";
    Bytes += Byte;
  }
  return Bytes;
}

/// Ends the last line, since another one comes after it.
void EndLine(JoinedText& TextReturn) {
  if (!TextReturn.Bytes.empty() && TextReturn.Bytes.back() != '\n') {
    TextReturn.Bytes += TextReturn.HasReturns ? "\r\n" : "\n";
  }
}

/// Keeps two texts apart, by the normal form if there is no other way. @return whether they are
bool KeepApart(JoinedText& LeftReturn, JoinedText& RightReturn) {
  if (RightReturn.FollowsAsBefore) {
    return true;
  }
  EndLine(LeftReturn);
  for (const bool ChangesRight : {false, true}) {
    for (const bool ChangesLeft : {false, true}) {
      const bool IsPossible =
          (!ChangesLeft || LeftReturn.IsRule()) && (!ChangesRight || RightReturn.IsRule());
      std::string Left = ChangesLeft ? NormalBytes(LeftReturn) : LeftReturn.Bytes;
      std::string Right = ChangesRight ? NormalBytes(RightReturn) : RightReturn.Bytes;
      if (IsPossible && IsApart(Left, Right)) {
        LeftReturn.Bytes = std::move(Left);
        RightReturn.Bytes = std::move(Right);
        RightReturn.IsChanged = ChangesRight;
        return true;
      }
    }
  }
  return false;
}

}  // namespace

void JoinedTexts::Add(JoinedText TextPassIn) {
  if (TextPassIn.Bytes.empty()) {
    TextPassIn.Bytes = NormalBytes(TextPassIn);
  }
  TextPassIn.FollowsAsBefore =
      TextPassIn.FollowsAsBefore && !HasGap && !vWaiting.empty() && !vWaiting.back().IsChanged;
  HasGap = false;
  while (!vWaiting.empty() && !KeepApart(vWaiting.back(), TextPassIn)) {
    if (vWaiting.back().IsRule()) {
      HasGap = true;
      vLastTexts.push_back(std::move(TextPassIn));
      return;
    }
    vLastTexts.push_back(std::move(vWaiting.back()));
    vWaiting.pop_back();
    TextPassIn.FollowsAsBefore = false;
  }
  AreApart = AreApart && (!vWaiting.empty() || !IsCut);
  Push(std::move(TextPassIn));
}

/// Adds a text after all that wait, and writes the first of them if they are many.
void JoinedTexts::Push(JoinedText TextPassIn) {
  constexpr std::size_t MostWaiting = 8;
  vWaiting.push_back(std::move(TextPassIn));
  if (vWaiting.size() > MostWaiting) {
    IsCut = true;
    Written.Append(vWaiting.front().Bytes);
    vWaiting.pop_front();
  }
}

void JoinedTexts::AddLast(JoinedText TextPassIn) {
  (TextPassIn.IsRule() ? vLast : vLastTexts).push_back(std::move(TextPassIn));
}

/// Adds a text after all others.
void JoinedTexts::AddAtTheEnd(JoinedText TextPassIn) {
  TextPassIn.FollowsAsBefore = false;
  AreApart = AreApart && (vWaiting.empty() || KeepApart(vWaiting.back(), TextPassIn));
  Push(std::move(TextPassIn));
}

bool JoinedTexts::Finish() {
  for (JoinedText& Rule : vLast) {
    Add(std::move(Rule));
  }
  for (JoinedText& Text : vLastTexts) {
    AddAtTheEnd(std::move(Text));
  }
  for (const JoinedText& Text : vWaiting) {
    Written.Append(Text.Bytes);
  }
  Written.Flush();
  return AreApart;
}

void JoinedTexts::PassTo(const std::function<void(std::string_view)>& TakePassIn) const {
  std::string Piece(std::size_t{1} << 16, '\0');
  for (std::uint64_t Offset = 0; Offset < Written.Size();) {
    const std::size_t Count = Written.Read(Offset, Piece.data(), Piece.size());
    TakePassIn(std::string_view(Piece).substr(0, Count));
    Offset += Count;
  }
}

}  // namespace Grammar
