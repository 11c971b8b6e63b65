#pragma once

#include "RuleRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Grammar {

/// One rule of a file that is compared, or a text that cannot be read as a rule.
///
/// A rule is there in the normal form. Any other text keeps its lines, with line feeds at their
/// ends, but for blank lines at its beginning and its end.
struct ComparedEntry {
  std::uint64_t Number = 0;  ///< of the entry in its file, from 0
  std::uint64_t Line = 0;    ///< where it begins in its file, from 1
  bool IsRule = false;
  std::string_view Text;        ///< each line with its end
  std::size_t HeaderBegin = 0;  ///< in the text, after the comments
  std::size_t BlockBegin = 0;   ///< in the text, after the header

  /// The header, without its line end; "" if there is none.
  std::string_view Header() const {
    const std::size_t Size = BlockBegin - HeaderBegin;
    return Text.substr(HeaderBegin, Size - (Size > 0 ? 1 : 0));
  }

  /// What the rule says: the rule line, the alignments and the constraints.
  std::string_view Block() const { return Text.substr(BlockBegin); }
};

/// Writes a rule in the normal form, and says where its parts are.
/// @param TextReturn is written over; the entry points into it
ComparedEntry EntryOf(const RuleRecord& RecordPassIn, std::string& TextReturn);

/// The lines of a text that is not a rule.
/// @param TextReturn is written over; the entry points into it. It is empty if there are only blank
///        lines.
ComparedEntry EntryOf(std::string_view TextPassIn, std::string& TextReturn);

}  // namespace Grammar
