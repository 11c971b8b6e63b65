#pragma once

#include <string>
#include <string_view>

namespace Grammar {

/// Why the library does not read or write a rule.
enum class LibraryFailure {
  None,
  Unread,         ///< `SetTrRuleFromString` stops at one of its lines
  NoAgreedIndex,  ///< an agreement without a node
  Cycle,          ///< agreements wait for each other
};

/// Appends what the library makes of the text of a rule: what `TrRule::Print` writes after
/// `TrRule::SetTrRuleFromString` has read it. For
///
///   {ADJP,12}
///   NP::NP : ["el" N] -> ["the" N] ;; both
///   (X1::Y1)
///   ((y1 agr gen) = (x1 num))
///
/// that is
///
///   NP::NP : ["el" N] -> ["the" N] ;; both
///   {AD,2}
///   NP::NP ["EL" N] -> ["THE" N]
///   (
///   ;--;(X1::Y1)
///   ((Y1 AGRGEN) = (X1 AGRGEN))
///   )
///
/// Unlike the library, it prints nothing and ends nothing. As long as alignments come in order,
/// n log n in the text; where they do not, each of them is as long as those before it together, as
/// in the library.
///
/// @code
/// std::string Output;
/// const std::string Rule = "{NP,8}\nNP::NP : [N] -> [N]\n(X1::Y1)\n(x0 = x1)\n";
/// AppendLibraryText(Rule, Output);  // LibraryFailure::None
/// Output;  // "{NP,8}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n(X0 = X1)\n)\n"
/// @endcode
/// @param Text of one rule
/// @return why the library could not do that; then nothing is appended
LibraryFailure AppendLibraryText(std::string_view Text, std::string& TextReturn);

}  // namespace Grammar
