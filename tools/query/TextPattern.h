#pragma once

#include "QueryText.h"

#include <memory>
#include <string>
#include <string_view>

namespace Query {

/// A regular expression, compiled; the library that does it is known to TextPattern.cpp alone.
struct CompiledPattern;

/// A text that other texts hold, or a regular expression in the syntax of RE2, which takes time
/// linear in the text.
///
/// @code
/// TextPattern Pattern;
/// Pattern.Text = "red c.r$";
/// QueryFault Fault;
/// Pattern.Compile(Fault);          // true
/// Pattern.Fits("SL: a red car");   // true
/// @endcode
struct TextPattern {
  std::string Text;
  bool IgnoresCase = false;  ///< of an expression: "/…/i"
  std::shared_ptr<const CompiledPattern>
      Expression;  ///< null for a text that is looked for as it is

  /// Makes an expression of the text.
  /// @param FaultReturn receives, where there is none, why, with the place in the text
  bool Compile(QueryFault& FaultReturn);

  /// Whether a text holds this. Several threads may ask at once.
  bool Fits(std::string_view Where) const;
};

}  // namespace Query
