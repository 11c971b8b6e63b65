#pragma once

#include "TrRule.h"

#include <array>
#include <string>

/// @file
/// Which rules their text restores: written, read into a new rule and written again, they have the
/// same text.

/// The five written forms of a rule.
enum class Form { Print, ForPrint, NoConstraints, AllAlts, Comparison };

constexpr std::array<Form, 5> AllForms{Form::Print, Form::ForPrint, Form::NoConstraints,
                                       Form::AllAlts, Form::Comparison};

/// The text of a rule in one of its forms.
std::string Write(TrRule& Rule, Form Which);

/// Whether the text of a rule in a form restores it. A rule that was read is restored, unless one
/// of these is true of it.
///
/// In every form:
/// - A type or a label is missing, or contains white space or a mark of the format: one of
///   `{ } [ ] = , ; :`, or `->` by itself. Such a line can be read as one of another kind, or be
///   split elsewhere; some, such as the `]` of an empty sequence, happen to be restored. So rules
///   of a rule line without types are not restored, nor rules with only one side.
/// - There is no alignment, or the alignment string is not plain (below).
/// - The text has more than 100,000 bytes, the limit of the reader.
///
/// In every form with constraints:
/// - The written text of a constraint does not restore it; see ConstraintTextFuzz.cpp.
/// - The text of a constraint contains `{`, `;;`, `::` or `] -> [`, and so is a line of another
/// kind.
/// - Two values would merge if they were set in the other order: `((y1 a) = sg)` and
///   `((y1 a__b) = pl)` are both kept in this order, and merge in the other.
///
/// In `Print`:
/// - The header was missing, so that it is written with the number -1, which is read as 1. (Rules
///   that were not read can have other numbers that are not a single digit.)
/// - The header type has more than two bytes, or a mark of the format or white space.
/// - A comment is also read as a line of another kind, because it contains `=`, `::` or `] -> [`;
/// or
///   it ends with a carriage return, one of which is lost each time.
///
/// In `ForPrint` and `NoConstraints`:
/// - The number is not a single digit, as above.
///
/// No form restores what only setters can set: word-level labels other than the labels, small
/// letters in labels and indices, and, if the form shows them, example words, structure, number of
/// examples, alternatives and word maps.
bool IsRestored(const TrRule& Rule, Form Which, const std::string& Written);

/// Whether an alignment string is empty or consists of pairs "(x,y)", separated by commas, whose
/// indices contain no white space, no small letters and none of `( ) { } [ ] = , ; :`.
bool IsPlain(const std::string& Alignments);

/// Whether two value constraints would merge if one of them were inserted after the other.
bool WouldMerge(const Constraint& First, const Constraint& Second);

/// Whether two constraints have the same category and index. Only then can one key begin with the
/// other.
bool HaveSameNode(const Constraint& First, const Constraint& Second);

/// The key under which a rule stores a constraint.
std::string KeyOf(const Constraint& Record);

/// Reads the text of the rule in each form that restores it, and compares.
void RequireRoundTrips(TrRule& Rule);
