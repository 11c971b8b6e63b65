#pragma once

#include "TrRule.h"

#include <map>
#include <string>
#include <vector>

/// @file
/// Properties of every rule, whatever texts and calls have made it. Each check ends the program if
/// its property does not hold.

using Strings = std::vector<std::string>;

/// The constraints of a rule under their keys.
const std::map<std::string, Constraint>& ConstraintsOf(const TrRule& Rule);

/// The comment lines and the header type, which no getter returns.
const Strings& CommentsOf(const TrRule& Rule);
const std::string& HeaderTypeOf(const TrRule& Rule);

/// The source sentences of the alternatives.
Strings SentencesOf(const TrRule& Rule);

/// All members of a rule. The labels from a parse can be left out, since flipping twice does not
/// restore them.
std::string MembersOf(const TrRule& Rule, bool WithParseLabels = true);

/// Each constraint is stored under the key of its fields, and the number of constraints is that of
/// the keys. There are no exceptions: merging sets key and value together.
void RequireKeys(const TrRule& Rule);

/// Each list of alternatives has at least as many elements as there are sentences.
void RequireAlternatives(const TrRule& Rule);

/// Ordering has made `After` of `Before` as the reference implementation does, and would leave it
/// as it is.
///
/// The latter is not checked if a pair of `Before` lacked an index: such a pair takes the index of
/// the previous pair, and the order may move it after another. "((7),(-1,2))" becomes
/// "((-1,2),(7))" and then "((-1,2))"; "((),(1,2),(5,6),(,-1)" becomes stable only after the third
/// ordering.
void RequireOrdered(const std::string& Before, const std::string& After);

/// A copy has all members of the rule except comments and header type, with its alignments in
/// order. Neither sorts before the other, and the rule equals the copy if its alignments were in
/// order.
///
/// The order is not checked if a pair lacks an index: see `RequireOrdered`.
void RequireCopies(TrRule& Rule);

/// The written forms show the members, halt together if the constraints have no order, and do not
/// change the rule.
void RequireWriters(TrRule& Rule);

/// If nothing merges, the comparison text does not depend on the order in which the constraints
/// were inserted.
///
/// This is not checked for two different constraints with one key, either: "((y1 a) =
/// b__sg)" and "((y1 a__b) = sg)" both have the key "4__1__A__B__SG", and "((y1 a) = (y2 a))" has
/// that of the value in "((y1 a) == (y2))".
void RequireNoInsertionOrder(const std::vector<Constraint>& vConstraints);

/// Flipping a rule exchanges its sides, and flipping it again restores all but the labels from a
/// parse, which are lost. The rule stays flipped twice.
///
/// A rule with an alignment string that is not plain (RoundTrip.h) is not checked: flipping drops
/// white space around its indices and changes parentheses beside them.
void RequireTurning(TrRule& Rule);

/// All of the above, and the round trips of RoundTrip.h. May flip the rule twice.
void RequireRule(TrRule& Rule);
