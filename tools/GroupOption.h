#pragma once

#include "ChoiceOption.h"
#include "GroupKeys.h"

/// Adds an option that names what rules are grouped by, as trrule find --count-by names it; each
/// rule is in one group.
template <typename ValueT>
CLI::Option* AddGroupOption(CLI::App& CommandReturn, ValueT& ByReturn,
                            const std::string& Description) {
  using Query::GroupBy;
  return AddChoice<ValueT>(CommandReturn, "--by",
                           {{"type", GroupBy::Type},
                            {"sequence", GroupBy::Sequence},
                            {"source", GroupBy::Source},
                            {"target", GroupBy::Target},
                            {"shape", GroupBy::Shape},
                            {"size", GroupBy::Size},
                            {"count", GroupBy::Count}},
                           ByReturn, Description)
      ->type_name("KEY");
}

/// What the help of a command says of the keys.
constexpr const char* GroupKeyNames =
    "  type      both types, such as NP::NP\n"
    "  sequence  the labels of both sides; source and target: of one side\n"
    "  shape     whether alignments cross, how many components they join, whether some are unaligned\n"
    "  size      how many components both sides have\n"
    "  count     how many examples a rule stands for (;;Score:)\n";
