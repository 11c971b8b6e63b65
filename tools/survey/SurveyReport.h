#pragma once

#include "RuleSurvey.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// A survey as it is shown: numbers and tables, whatever they are written as.
struct SurveyReport {
  struct Number {
    std::string_view Key;    ///< in JSON
    std::string_view Title;  ///< for people
    std::uint64_t Value = 0;
  };

  struct Row {
    std::string Name;
    std::uint64_t Count = 0;
    std::vector<Row> vParts;  ///< such as the values of a feature
  };

  struct Table {
    std::string_view Key;
    std::string_view Title;
    std::vector<Row> vRows;
    /// Whether rows are in the order of their names, so that all of them belong together; otherwise
    /// the most frequent come first.
    bool IsWhole = false;
  };

  std::vector<Number> vNumbers;
  std::vector<Number> vQuantiles;  ///< of the counts; none if there is no rule
  std::vector<Table> vTables;
};

/// What a survey does not know of its rules.
struct SurveyedRules {
  std::uint64_t Unreadable = 0;  ///< rules that are not in the survey
  std::uint64_t Duplicates = 0;  ///< rules that say what another one before them says
};

SurveyReport MakeReport(const RuleSurvey& Survey, const SurveyedRules& Rules);

/// Appends the report as text: each table with its most frequent rows, with shares of all.
/// @param Top how many rows of a table, and parts of a row, are shown
void AppendText(const SurveyReport& Report, std::size_t Top, std::string& TextReturn);

/// Appends the report as one JSON object with all rows.
void AppendJson(const SurveyReport& Report, std::string& TextReturn);

/// Appends the report as a page with a histogram of each table.
void AppendPage(const SurveyReport& Report, std::size_t Top, std::string& TextReturn);

}  // namespace Grammar
