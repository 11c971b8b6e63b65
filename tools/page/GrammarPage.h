#pragma once

#include "PageTests.h"
#include "RuleEntry.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Page {

/// Writes a grammar as one page, which needs no other file and no network: search, counts, labels,
/// and the rules with their pictures, findings and tests.
///
/// @code
/// std::vector<RuleEntry> vEntries(1);
/// vEntries[0].Name = "{NP,8}";
/// const GrammarPage Page("Grammar np.trr", vEntries, nullptr);
/// std::string Html;
/// Page.AppendBefore(Html);
/// Html.substr(0, 15);  // "<!DOCTYPE html>"
/// std::string Rule;
/// Page.AppendRule(0, Rule);
/// Rule;  // "<li id=\"rule-1\">\n<h3><a href=\"#rule-1\">{NP,8}</a></h3>\n<div>\n</div>\n</li>\n"
/// Page.AppendAfter(Html);
/// Html.substr(Html.size() - 8);  // "</html>\n"
/// @endcode
///
/// Without a script the page is a list of rules as they are written. The script makes the pictures
/// that come into view. The page allows itself no other script, and no request.
class GrammarPage {
 public:
  /// @param vEntriesPassIn has to outlive the page
  /// @param TestsPassIn null where no examples were run; has to outlive the page
  GrammarPage(std::string_view TitlePassIn, const std::vector<RuleEntry>& vEntriesPassIn,
              const PageTests* TestsPassIn);

  void AppendBefore(std::string& HtmlReturn) const;
  /// @param Index from 0
  void AppendRule(std::size_t Index, std::string& HtmlReturn) const;
  void AppendAfter(std::string& HtmlReturn) const;

 private:
  /// The rules that have a label as their source or only as their target type, by index.
  struct Label {
    std::vector<std::size_t> vSources;
    std::vector<std::size_t> vTargets;
  };

  void AppendHead(std::string& HtmlReturn) const;
  void AppendSearch(std::string& HtmlReturn) const;
  void AppendOverview(std::string& HtmlReturn) const;
  void AppendCounts(std::string& HtmlReturn) const;
  void AppendTestTotals(std::string& HtmlReturn) const;
  void AppendCharts(std::string& HtmlReturn) const;
  void AppendFindingTable(std::string& HtmlReturn) const;
  void AppendProviders(std::string_view Which, const std::vector<std::size_t>& vRules,
                       std::string& HtmlReturn) const;
  void AppendLabels(std::string& HtmlReturn) const;

  std::string Title;
  const std::vector<RuleEntry>& vEntries;
  const PageTests* Tests;
  std::map<std::string, Label> Labels;
};

}  // namespace Page
