#pragma once

#include "ChoiceOption.h"
#include "RuleGroup.h"

/// Adds an option that names what rules are grouped by.
template <typename ValueT>
CLI::Option* AddGroupOption(CLI::App& CommandReturn, ValueT& ByReturn,
                            const std::string& Description) {
  using Grammar::GroupBy;
  return AddChoice<ValueT>(CommandReturn, "--by",
                           {{"type", GroupBy::Type},
                            {"source", GroupBy::Source},
                            {"target", GroupBy::Target},
                            {"length", GroupBy::Length},
                            {"shape", GroupBy::Shape}},
                           ByReturn, Description)
      ->type_name("KEY");
}

/// What the help of a command says of the keys.
constexpr const char* GroupKeys =
    "  type    both types, such as NP::NP\n"
    "  source  the source type\n"
    "  target  the target type\n"
    "  length  how many components both sides have\n"
    "  shape   whether alignments cross, how many components they join, whether some are unaligned\n";
