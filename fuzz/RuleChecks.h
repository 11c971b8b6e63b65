#pragma once

#include "TrRule.h"

#include <map>
#include <string>
#include <vector>

/// @file
/// What holds of every rule, whatever texts and calls have made it. Each check ends the program
/// where its sentence is not true.

using Strings = std::vector<std::string>;

/// The constraints of a rule under their keys.
const std::map<std::string, Constraint>& ConstraintsOf(const TrRule& Rule);

/// The comment lines and the header type, which no getter gives.
const Strings& CommentsOf(const TrRule& Rule);
const std::string& HeaderTypeOf(const TrRule& Rule);

/// The source sentences of the alternatives.
Strings SentencesOf(const TrRule& Rule);

/// All that a rule holds, member by member. The labels from a parse can be left out: they are what
/// turning a rule twice does not restore.
std::string MembersOf(const TrRule& Rule, bool WithParseLabels = true);

/// Each constraint stands under the key that its own fields give, and the number of constraints is
/// that of the keys. There are no exceptions: merging gives key and value together.
void RequireKeys(const TrRule& Rule);

/// Each list of the alternatives has at least as many elements as there are sentences.
void RequireAlternatives(const TrRule& Rule);

/// Ordering has made `After` of `Before` as its slow twin does, and would leave it as it is.
///
/// The latter is not asked where a pair of `Before` lacked an index: such a pair is filed under the
/// one before it, and the order may put it behind another. "((7),(-1,2))" gives "((-1,2),(7))" and
/// that gives "((-1,2))"; "((),(1,2),(5,6),(,-1)" comes to rest only behind the third
/// order.
void RequireOrdered(const std::string& Before, const std::string& After);

/// A copy has what the rule has, but for comments and header type, with its alignments in order;
/// neither sorts before the other, and the rule equals it where its alignments were in order.
///
/// Nothing is asked of the order where a pair lacks an index: see `RequireOrdered`.
void RequireCopies(TrRule& Rule);

/// The written forms are made of the members as they should be, halt together where the
/// constraints have no order, and leave the rule alone.
void RequireWriters(TrRule& Rule);

/// Where nothing merges, the comparison text does not depend on the order in which the constraints
/// were inserted.
///
/// Nor is it asked of two different constraints with one key, of which the first stays: "((y1 a) =
/// b__sg)" and "((y1 a__b) = sg)" both have the key "4__1__A__B__SG", and "((y1 a) = (y2 a))" has
/// that of the value in "((y1 a) == (y2))".
void RequireNoInsertionOrder(const std::vector<Constraint>& vConstraints);

/// Turning a rule exchanges its sides, and turning it again restores all but the labels from a
/// parse, which are gone. The rule stays turned twice.
///
/// Nothing is asked of a rule with an alignment string that is not plain (RoundTrip.h): white space
/// around its indices is taken off, and parentheses beside them come and go.
void RequireTurning(TrRule& Rule);

/// All of the above, and the round trips of RoundTrip.h. The rule may be turned twice by it.
void RequireRule(TrRule& Rule);
