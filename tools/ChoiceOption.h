#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <utility>
#include <vector>

/// Adds an option that takes one of several names, each of which stands for a value: "--by" with
/// "index" and "type", for `SortBy::Index` and `SortBy::Type`. Any other name is an error of the
/// command line.
/// @param ValueReturn has to outlive the command
template <typename ValueT>
CLI::Option* AddChoice(CLI::App& CommandReturn, const std::string& Name,
                       std::vector<std::pair<std::string, ValueT>> vChoices, ValueT& ValueReturn,
                       const std::string& Description) {
  std::vector<std::string> vsNames;
  vsNames.reserve(vChoices.size());
  for (const auto& Choice : vChoices) {
    vsNames.push_back(Choice.first);
  }
  const auto Store = [vChoices = std::move(vChoices), &ValueReturn](const std::string& Given) {
    for (const auto& [ChoiceName, Value] : vChoices) {
      if (ChoiceName == Given) {
        ValueReturn = Value;
      }
    }
  };
  return CommandReturn.add_option_function<std::string>(Name, Store, Description)
      ->check(CLI::IsMember(vsNames));
}
