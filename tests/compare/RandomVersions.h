#pragma once

#include "ComparedRule.h"
#include "support/RandomInput.h"

#include <string>
#include <vector>

/// A rule with a few labels, alignments, constraints and comments, few enough of each that two
/// rules often have something in common. Bytes over 127 and NUL are among the comments.
Grammar::ComparedRule RandomRule(RandomInput& Random);

/// Changes some parts of a rule, or none.
void ChangeSomeParts(RandomInput& Random, Grammar::ComparedRule& RuleReturn);

/// The text of a rule in some layout, with its lines in some order, in CRLF or not. Rules can be
/// put one after the other.
std::string RandomLayout(RandomInput& Random, const Grammar::ComparedRule& Rule);

/// Two versions of a grammar: rules that stay, are changed, renumbered, removed, added, repeated
/// and moved, among them some that cannot be read.
struct RandomVersions {
  explicit RandomVersions(RandomInput& Random);

  std::string Old;
  std::string New;
};
