#pragma once

#include "RuleRecord.h"

#include <string>
#include <string_view>

namespace Grammar {

/// How a rule is written.
struct FormOptions {
  bool NoComments = false;
  bool OneLine = false;
};

/// Appends a rule in the normal form: comments, header, rule line, alignments in order,
/// constraints in print order. Reading it and writing it again changes nothing.
///
/// On one line, the lines are separated by tabs; a tab inside a line becomes "\t" and a backslash
/// "\\". Both forms end with a line end.
void AppendNormalForm(const RuleRecord& RecordPassIn, const FormOptions& OptionsPassIn,
                      std::string& TextReturn);

/// Lines on one line, as above, without a line end; the last line end is left out.
///
/// @code
/// Folded("{NP,8}\nNP::NP [N] -> [N]\n");  // "{NP,8}\tNP::NP [N] -> [N]"
/// @endcode
std::string Folded(std::string_view LinesPassIn);

/// Appends what was folded, unfolded: a tab becomes a line end, and "\t" and "\\" a tab and a
/// backslash. A backslash before any other byte stays as it is.
void AppendUnfolded(std::string_view FoldedPassIn, std::string& TextReturn);

}  // namespace Grammar
