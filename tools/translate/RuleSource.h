#pragma once

#include "Finding.h"
#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// The only place at which the engine meets the text of rules. What it gets is plain data: views
/// into the rule's text, not yet in capitals.

namespace Translate {

enum class Side : std::uint8_t { X, Y };

/// A node with features, such as "(y2 agr gen)".
struct SourcePath {
  Side Of = Side::X;
  std::uint32_t Index = 0;                  ///< 0 for the rule's own node, components from 1
  std::vector<std::string_view> vFeatures;  ///< as written
};

/// What stands on the right of an equation.
enum class ValueKind : std::uint8_t {
  Path,  ///< both sides are the same structure
  Any,   ///< the value is one of the atoms
  None,  ///< the value is an atom other than these
};

/// One constraint.
struct SourceEquation {
  std::size_t Line = 0;  ///< in its file, from 1
  SourcePath Left;
  ValueKind Kind = ValueKind::Path;
  SourcePath Right;                      ///< of a path
  std::vector<std::string_view> vAtoms;  ///< of a value, as written
};

/// One side of the rule line.
struct SourceSide {
  std::string_view Type;
  std::vector<std::string_view> vLabels;
};

/// A comment that is an example, or half of one.
struct SourceExample {
  enum class Kind : std::uint8_t { Source, Target, Refused };  ///< ;;SL: ;;TL: ;;*SL:
  Kind What = Kind::Source;
  std::size_t Line = 0;
  std::string_view Text;
};

constexpr std::uint32_t NoPlace = 0xFFFFFFFFU;

/// A rule that can be used, taken apart. With the sides exchanged where that is wanted: then all of
/// it is, but the comments.
struct SourceRule {
  std::string_view File;
  std::size_t Line = 0;  ///< of the rule line
  std::string Header;    ///< "NP,8"; empty where there is none that can be read
  bool HasHeader = false;
  SourceSide X;
  SourceSide Y;
  /// For each target component the index, from 0, of the source component that it gets its
  /// constituent from; `NoPlace` for a literal.
  std::vector<std::uint32_t> vSources;
  std::vector<SourceEquation> vEquations;  ///< in the order of the text
  std::uint32_t Count = 1;
  std::vector<SourceExample> vExamples;
};

/// Whether a component is a literal: a word in double quotes.
constexpr bool IsLiteral(std::string_view Label) {
  return Label.size() >= 2 && Label.front() == '"' && Label.back() == '"';
}

/// The word of a literal.
constexpr std::string_view WordOf(std::string_view Literal) {
  return Literal.substr(1, Literal.size() - 2);
}

/// Whether two labels, types or words are the same but for ASCII capitals.
bool IsSameUpper(std::string_view Left, std::string_view Right);

/// The line that a rule is named by: that of the rule line, else of the header, else the first one
/// that is no comment. From 1.
std::size_t LineOfRule(const Grammar::RuleText& Text);

/// Takes a rule apart.
/// @param Text has to outlive what is returned
/// @param IsReversed whether source and target change places
/// @param RuleReturn is used again: what it held is gone
/// @param vFindingsReturn what keeps the rule from being used is added
/// @return whether the rule can be used
bool ReadSourceRule(const Grammar::RuleText& Text, bool IsReversed, SourceRule& RuleReturn,
                    std::vector<Grammar::Finding>& vFindingsReturn);

}  // namespace Translate
