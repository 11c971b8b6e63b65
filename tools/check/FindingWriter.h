#pragma once

#include "Finding.h"
#include "OutputFile.h"

#include <memory>
#include <string>
#include <string_view>

namespace Grammar {

enum class FindingFormat { Text, Json, Sarif };

/// Writes findings one after the other, in a form for people, editors or pipelines.
class FindingWriter {
 public:
  virtual ~FindingWriter();

  /// Writes the text before the first finding.
  virtual void Begin() = 0;
  /// Appends a finding to a text for `Write`. May be called on several threads at once.
  virtual void Append(const Finding& Found, std::string& TextReturn) const = 0;
  /// Writes the text of one finding or more, which is not empty.
  virtual void Write(std::string_view Text) = 0;
  /// Writes the text after the last one.
  virtual void End() = 0;
};

/// @param Colours whether the text form has colours
/// @param Version the program's own version, which the SARIF form names
std::unique_ptr<FindingWriter> MakeFindingWriter(FindingFormat Format, bool Colours,
                                                 const std::string& Version,
                                                 OutputFile& OutputReturn);

/// Appends a finding on three lines or more: place and message, the line, and a caret below what is
/// meant.
///
/// @code
/// Finding Found;
/// Found.File = "np.trr";
/// Found.Code = "TR036";
/// Found.Message = "this alignment is repeated";
/// Found.LineText = "(X1::Y1)";
/// Found.Length = 8;
/// std::string Output;
/// AppendTextOf(Found, false, Output);
/// Output;  // "np.trr:1:1: error TR036: this alignment is repeated\n  (X1::Y1)\n  ^~~~~~~~\n"
/// @endcode
void AppendTextOf(const Finding& Found, bool Colours, std::string& TextReturn);

}  // namespace Grammar
