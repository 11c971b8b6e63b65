#pragma once

#include "Finding.h"
#include "PlaceSources.h"
#include "SourceRule.h"
#include "UsableRule.h"

#include <vector>

namespace Grammar {

/// Reads what a rule means, for whoever applies it.
///
/// @code
/// SourceRule Read;
/// UsableRule Rule;
/// ReadUsableRule(Text, false, Read, Rule, vFindings);  // true
/// Rule.Y.vLabels;                                      // {"\"el\"", "N", "ADJ"}
/// @endcode
///
/// @param Text has to outlive what is returned
/// @param IsReversed whether source and target change places
/// @param LinesReturn receives the lines of the rule, parsed
/// @param RuleReturn is written over
/// @param vFindingsReturn receives what keeps the rule from being used; see `ReportUnusable`
/// @return whether the rule can be used
bool ReadUsableRule(const RuleText& Text, bool IsReversed, SourceRule& LinesReturn,
                    UsableRule& RuleReturn, std::vector<Finding>& vFindingsReturn);

/// Adds what keeps a rule from being applied to texts, in the order of its lines. That is less than
/// what keeps the library from writing it, but for places without source and for constraints that
/// the library takes and that mean nothing.
///
/// @param Lines a rule that cannot be used
/// @param IsReversed whether source and target change places
/// @param vFindingsReturn receives at least one finding, all of them errors
void ReportUnusable(const SourceRule& Lines, bool IsReversed,
                    std::vector<Finding>& vFindingsReturn);

/// Adds the places of a rule that have no source, as warnings (TR015): the rule is sound as a
/// record, and cannot be applied to texts.
/// @param Places what was found out about its places
/// @param vFindingsReturn what has been found in the rule before: where that is an error, nothing
/// is added
void ReportMissingSources(const SourceRule& Lines, const PlaceSources& Places,
                          std::vector<Finding>& vFindingsReturn);

}  // namespace Grammar
