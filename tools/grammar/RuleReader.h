#pragma once

#include "LineKind.h"
#include "RuleText.h"

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Reads a grammar rule by rule, holding little more than one rule at a time.
///
/// A rule begins at its header, or at its rule line where it has no header, together with the
/// comment and blank lines right before it; it ends before the next one begins. Every byte of the
/// input is in exactly one of the texts that are returned, in order.
///
/// @code
/// std::istringstream Input("NP::NP : [N] -> [N]\n(X1::Y1)\nN::N : [D] -> [D]\n");
/// RuleReader Reader(Input, "np.trr");
/// RuleText Rule;
/// Reader.Next(Rule);  // true
/// Rule.Text;          // "NP::NP : [N] -> [N]\n(X1::Y1)\n"
/// Reader.Next(Rule);  // true
/// Rule.FirstLine;     // 3
/// Reader.Next(Rule);  // false
/// @endcode
class RuleReader {
 public:
  /// A rule text that grows beyond this is returned in pieces.
  static constexpr std::size_t MaxHeld = 1U << 20U;

  /// @param StreamPassIn is read to its end; has to outlive the reader
  /// @param FilePassIn the name for findings
  RuleReader(std::istream& StreamPassIn, std::string FilePassIn);

  /// Reads a text that is in memory.
  explicit RuleReader(std::string TextPassIn);

  /// Returns the next rule, using again the storage of the argument.
  /// @return false at the end, and where the stream cannot be read: see `HasFailed`
  bool Next(RuleText& TextReturn);

  /// What comes next, as far as it has been read; at the beginning of the input at least a block of
  /// 65,536 bytes, unless it is shorter. Valid until the next rule is requested.
  std::string_view Ahead();

  /// Whether the end was not the end of the input, but a failure to read it.
  bool HasFailed() const { return Failed; }

  /// How many bytes have been returned.
  std::uint64_t BytesRead() const { return Bytes; }

 private:
  /// What has been seen of the rule so far, and what of the next one.
  struct Progress {
    bool HasHeader = false;
    bool HasSequence = false;
    bool HasBody = false;
    bool IsOpen = false;
    bool WasOpened = false;
    bool InsideLine = false;  ///< the last piece ended in the middle of a line
  };

  bool Fill();
  bool FindLineEnd(std::size_t From, std::size_t& EndReturn);
  bool FillLine(std::size_t From, std::size_t& EndReturn);
  bool StartsRule(LineKind Kind, std::string_view Code);
  void NoteBody(LineKind Kind, std::string_view Code);
  RuleText::Span SpanOf(std::size_t From, std::size_t End) const;
  void Deliver(std::size_t Size, std::size_t Lines, RuleText& TextReturn);
  bool DeliverPiece(std::size_t Size, RuleText& TextReturn);
  /// Of a line that is longer than all that is held: what is before it, or its first part.
  bool DeliverLongLine(std::size_t Begin, RuleText& TextReturn);

  std::string_view Rest() const { return std::string_view(Buffer).substr(Start); }

  std::istream* Stream = nullptr;  // null if all there is to read is in the buffer
  std::string File;
  std::string Buffer;     // what has been read and not been returned begins at `Start`
  std::size_t Start = 0;  // all other places are counted from here
  std::size_t LineNumber = 1;
  std::vector<RuleText::Span> vSpans;
  std::uint64_t Bytes = 0;
  Progress Seen;
  bool AtEnd = false;
  bool Failed = false;
  bool Continues = false;
};

}  // namespace Grammar
