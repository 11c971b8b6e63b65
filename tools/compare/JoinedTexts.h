#pragma once

#include "SpillFile.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// One of the texts that a file is made of.
struct JoinedText {
  std::string Bytes;        ///< as it is to be written; "" for the normal form
  std::string NormalForm;   ///< of a rule, with line feeds; "" of a text that is not a rule
  bool HasReturns = false;  ///< whether its lines end in CRLF

  /// Whether it came after the text before in a file already.
  bool FollowsAsBefore = false;
  bool IsChanged = false;  ///< whether the normal form has taken the place of the bytes

  bool IsRule() const { return !NormalForm.empty(); }
};

/// Puts rules and other texts one after the other, so that each is read again as it was.
///
/// Where one would get lines of the other, since a body has no end, or since there are comments
/// after it, a rule is written in the normal form, and a text that is not a rule is written at the
/// end of the file. What has been joined is kept in a temporary file.
///
/// @code
/// const std::string Open = "NP::NP : [N] -> [N]\n(\n(X1::Y1)\n";
/// JoinedTexts Joined;
/// Joined.Add({Open, "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n"});
/// Joined.Add({Open, "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n"});
/// Joined.Finish();  // true
/// std::string Whole;
/// Joined.PassTo([&](std::string_view Bytes) { Whole += Bytes; });
/// Whole;  // "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n" + Open
/// @endcode
class JoinedTexts {
 public:
  /// Adds the next text of a file.
  void Add(JoinedText TextPassIn);

  /// Adds a text that has no place, which is written after all others.
  void AddLast(JoinedText TextPassIn);

  /// To be called after the last text.
  /// @return whether each text is read again as it was
  bool Finish();

  /// Passes all that has been joined to a sink.
  void PassTo(const std::function<void(std::string_view)>& TakePassIn) const;

 private:
  void Push(JoinedText TextPassIn);
  void AddAtTheEnd(JoinedText TextPassIn);

  SpillFile Written;
  std::deque<JoinedText> vWaiting;  ///< the last texts, which are not written yet
  bool IsCut = false;               ///< whether some text before those has been written
  bool HasGap = false;            ///< whether the last text that was added is not the last of those
  std::vector<JoinedText> vLast;  ///< rules, and then other texts, that have no place
  std::vector<JoinedText> vLastTexts;  ///< the other texts
  bool AreApart = true;
};

}  // namespace Grammar
