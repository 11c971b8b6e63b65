#pragma once

#include "QueryTree.h"

#include "SourceRule.h"

namespace Query {

/// Whether a rule is what a query asks for.
///
/// Constraints are looked at as they are written, alignments and sequences as they are read.
/// Depends on nothing but its arguments, so that several threads can ask at once.
///
/// @code
/// QueryNode Tree;
/// QueryFault Fault;
/// ParseQuery("source [ADJ N $] and crossing", Tree, Fault);  // true
/// Fits(Tree, Lines);                                         // true
/// @endcode
/// @param RulePassIn has to be whole
bool Fits(const QueryNode& TreePassIn, const Grammar::SourceRule& RulePassIn);

}  // namespace Query
