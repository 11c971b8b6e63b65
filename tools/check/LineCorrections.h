#pragma once

#include <string>
#include <string_view>

/// @file
/// What was probably meant by a line that cannot be read. Each function works its result out from
/// the line alone, gives a text that is in the format, and an empty one where it cannot.

namespace Grammar {

/// "{NP 8}", "(NP,8)" and "{8,NP}" for "{NP,8}".
std::string CorrectedHeader(std::string_view Code);

/// A rule line with types, brackets, labels or arrow in another form:
///
/// @code
/// CorrectedSequence("NP:NP: (DET, N) => (N, DET)");  // "NP::NP : [DET N] -> [N DET]"
/// @endcode
std::string CorrectedSequence(std::string_view Code);

/// A line that names one x and one y: "X1:Y2", "(y2 :: x1)" and "(1::2)" for "(X1::Y2)".
std::string CorrectedAlignment(std::string_view Code);

/// A constraint with parentheses, sign or list in another form:
///
/// @code
/// CorrectedConstraint("(x1 num) -> (OR sg pl)");  // "((x1 num) = (*OR* sg pl))"
/// @endcode
std::string CorrectedConstraint(std::string_view Code);

/// The text as a comment, without the signs that begin comments elsewhere: "# note" gives
/// ";; note".
std::string AsComment(std::string_view Text);

/// Whether a text begins like a comment of another language.
bool LooksLikeComment(std::string_view Text);

/// The sign between the two sides of a rule line, however it is spelt: "] => [" of a line that has
/// no "] -> [". Empty where a line has nothing that could be one.
std::string_view ArrowIn(std::string_view Code);

/// Whether a line was probably meant as a rule line: it has a bracket and an arrow, or two
/// sequences in brackets, and is neither an alignment nor a constraint.
bool LooksLikeSequence(std::string_view Code);

}  // namespace Grammar
