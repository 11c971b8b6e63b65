#pragma once

#include "QueryText.h"
#include "QueryTree.h"

#include <string_view>

/// @file
/// The grammar of queries. What stands in quotes is written as it is, {…} any number of times, […]
/// or not at all.
///
///   query       = conjunction { "or" conjunction }
///   conjunction = negation { "and" negation }
///   negation    = { "not" } ( "(" query ")" | condition )
///   condition   = sequence | types | shape | passing | constraint | number | text
///   sequence    = [ side ] "[" [ "^" ] { item } [ "$" ] "]"
///   side        = "source" | "target"
///   item        = "*" | one
///   one         = "?" | name { "|" name }
///   name        = WORD | LITERAL
///   types       = type "::" type
///   type        = "*" | one
///   shape       = "monotone" | "crossing" | "unaligned" | group ":" group
///   group       = "1" | "n"
///   passing     = "passes" feature
///   feature     = item { ":" item }
///   constraint  = path "=" ( "*" | path | one | ( "*or*" | "*not*" ) { one } )
///   path        = node [ ":" feature ]
///   node        = "*" | ( "x" | "y" ) [ NUMBER ]
///   number      = measure ( "=" | "!=" | "<" | "<=" | ">" | ">=" ) NUMBER
///   measure     = "count" | [ side ] "components" | "alignments" | "constraints" | "comments"
///   text        = ( "comment" | "line" ) ( LITERAL | PATTERN [ "i" ] )

namespace Query {

/// How deep parentheses and negations may be nested.
constexpr int MaxQueryDepth = 100;

/// Parses a query. Linear.
///
/// @code
/// QueryNode Tree;
/// QueryFault Fault;
/// ParseQuery("[DET * N] and not crossing", Tree, Fault);  // true
/// Tree.vParts.size();                                     // 2
/// ParseQuery("[DET * N", Tree, Fault);                    // false
/// Fault.Place;                                            // 8
/// @endcode
///
/// @return whether the text is a query; if not, the tree is unspecified
bool ParseQuery(std::string_view Text, QueryNode& TreeReturn, QueryFault& FaultReturn);

}  // namespace Query
