#pragma once

#include "TrRule.h"

#include <array>
#include <string>

/// @file
/// Which rules come back from their text: written, read into a new rule and written again, they
/// give the same text.

/// The five forms in which a rule is written.
enum class Form { Print, ForPrint, NoConstraints, AllAlts, Comparison };

constexpr std::array<Form, 5> AllForms{Form::Print, Form::ForPrint, Form::NoConstraints,
                                       Form::AllAlts, Form::Comparison};

/// The text of a rule in one of its forms.
std::string Write(TrRule& Rule, Form Which);

/// Whether the rule comes back from its text in a form. A rule that was read comes back, except
/// when one of these is true of it.
///
/// In every form:
/// - A type or a label is missing, or holds a mark of the format or white space: one of
///   `{ } [ ] = , ; :`, or `->` by itself. Such a line can be taken for one of another kind, or cut
///   elsewhere; some, such as the `]` of an empty sequence, happen to come back. So the rules of a
///   sequence line without types do not come back, nor those with only one side.
/// - There is no alignment, or the alignment string is not plain (below).
/// - The text has more than 100,000 bytes: the reader looks no further.
///
/// In every form with constraints:
/// - The text of a constraint that is written does not give the same constraint when it is read.
///   ConstraintTextFuzz.cpp tells which do.
/// - The text of a constraint holds `{`, `;;`, `::` or `] -> [`, and so is a line of another kind.
/// - Two values would merge if they were set in the other order: `((y1 a) = sg)` and
///   `((y1 a__b) = pl)`, in this order, stand side by side, and in the other they become one.
///
/// In `Print`:
/// - The header was missing, so that it is written with the number -1, of which 1 is read. (Rules
///   that were not read can have other numbers that are no single digit.)
/// - The header type has more than two bytes, or a mark of the format or white space.
/// - A comment is read as a line of another kind, too, because it holds `=`, `::` or `] -> [`; or
///   it ends with a carriage return, one of which is lost each time.
///
/// In `ForPrint` and `NoConstraints`:
/// - The number is no single digit, as above.
///
/// Beside these, no form restores what only setters can give: word-level labels other than the
/// labels, small letters in labels and indices; and, where the form shows them, example words,
/// structure, number of examples, alternatives and word maps.
bool ComesBack(const TrRule& Rule, Form Which, const std::string& Written);

/// Whether an alignment string is empty, or of pairs "(x,y)" alone, joined by commas, with indices
/// that hold no white space, no small letters and none of `( ) { } [ ] = , ; :`.
bool IsPlain(const std::string& Alignments);

/// Whether two value constraints would merge if one of them were inserted after the other.
bool WouldMerge(const Constraint& First, const Constraint& Second);

/// Whether two constraints have the same category and index. Only then can their keys be the same,
/// or one begin like the other.
bool AreOfOneNode(const Constraint& First, const Constraint& Second);

/// The key under which a rule keeps a constraint.
std::string KeyOf(const Constraint& Record);

/// Reads the rule's text in each form in which it comes back, and compares.
void RequireRoundTrips(TrRule& Rule);
