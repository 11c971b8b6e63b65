// Sections: head, search, counts, charts, findings, labels, rules, the end.

#include "GrammarPage.h"

#include "FindingCodes.h"
#include "FindingTally.h"
#include "Histogram.h"
#include "PageSources.h"
#include "PicturePacking.h"
#include "SvgWriter.h"

#include <algorithm>
#include <array>
#include <set>

namespace Page {

using Grammar::Severity;

GrammarPage::GrammarPage(std::string_view TitlePassIn, const std::vector<RuleEntry>& vEntriesPassIn,
                         const PageTests* TestsPassIn)
    : Title(TitlePassIn), vEntries(vEntriesPassIn), Tests(TestsPassIn) {
  for (std::size_t Index = 0; Index < vEntries.size(); ++Index) {
    const RuleEntry& Entry = vEntries[Index];
    for (const std::string& sLabel : Entry.vsLabels) {
      Label& Known = Labels[sLabel];
      if (sLabel == Entry.SourceType) {
        Known.vSources.push_back(Index);
      } else if (sLabel == Entry.TargetType) {
        Known.vTargets.push_back(Index);
      }
    }
  }
}

// ---- Head -------------------------------------------------------------------------------------

void GrammarPage::AppendHead(std::string& HtmlReturn) const {
  HtmlReturn +=
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
      "style-src 'unsafe-inline'; script-src 'sha256-";
  HtmlReturn.append(ScriptSum);
  HtmlReturn +=
      "'; img-src data:; base-uri 'none'; form-action 'none'\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<link rel=\"icon\" href=\"data:,\">\n<title>";
  AppendShown(Title, HtmlReturn);
  HtmlReturn.append("</title>\n<style>").append(StyleSource).append("</style>\n");
  HtmlReturn +=
      "<noscript><style>.picture, .derivation { display: none }</style></noscript>\n</head>\n";
}

void GrammarPage::AppendBefore(std::string& HtmlReturn) const {
  AppendHead(HtmlReturn);
  HtmlReturn += "<body>\n<a class=\"skip\" href=\"#rules\">Skip to the rules</a>\n<header>\n<h1>";
  AppendShown(Title, HtmlReturn);
  HtmlReturn +=
      "</h1>\n<nav aria-label=\"Parts of the page\">\n<a href=\"#overview\">Overview</a>\n"
      "<a href=\"#labels\">Labels</a>\n<a href=\"#rules\">Rules</a>\n</nav>\n</header>\n";
  AppendSearch(HtmlReturn);
  HtmlReturn += "<main>\n";
  AppendOverview(HtmlReturn);
  AppendLabels(HtmlReturn);
  HtmlReturn +=
      "<section id=\"rules\" aria-labelledby=\"rules-heading\" tabindex=\"-1\">\n"
      "<h2 id=\"rules-heading\">Rules</h2>\n<ol class=\"rules\" data-phrases=\"";
  std::string Phrases;
  AppendPhrases(Phrases);
  Picture::AppendEscaped(Phrases, HtmlReturn);
  HtmlReturn += "\">\n";
}

// ---- Search -----------------------------------------------------------------------------------

/// The script shows it.
void GrammarPage::AppendSearch(std::string& HtmlReturn) const {
  HtmlReturn +=
      "<div class=\"bar\">\n<form id=\"search\" role=\"search\" hidden>\n"
      "<label>Search <input id=\"query\" type=\"search\" autocomplete=\"off\" "
      "spellcheck=\"false\"></label>\n<label>in <select id=\"field\">\n"
      "<option value=\"text\">text</option>\n<option value=\"labels\">labels</option>\n"
      "<option value=\"literals\">literals</option>\n"
      "<option value=\"features\">features</option>\n</select></label>\n"
      "<label>Show <select id=\"show\">\n<option value=\"\">all rules</option>\n"
      "<option value=\"finding\">rules with findings</option>\n";
  if (Tests != nullptr) {
    HtmlReturn +=
        "<option value=\"failing\">rules with failing examples</option>\n"
        "<option value=\"uncovered\">rules not covered</option>\n";
  }
  HtmlReturn += "</select></label>\n<output id=\"found\"></output>\n</form>\n</div>\n";
}

// ---- Counts -----------------------------------------------------------------------------------

namespace {

void AppendCount(std::string_view What, std::size_t Count, std::string& HtmlReturn) {
  HtmlReturn.append("<div><dt>").append(What).append("</dt><dd>");
  HtmlReturn.append(std::to_string(Count)).append("</dd></div>\n");
}

}  // namespace

void GrammarPage::AppendOverview(std::string& HtmlReturn) const {
  HtmlReturn +=
      "<section id=\"overview\" aria-labelledby=\"overview-heading\">\n"
      "<h2 id=\"overview-heading\">Overview</h2>\n";
  AppendCounts(HtmlReturn);
  AppendTestTotals(HtmlReturn);
  AppendFindingTable(HtmlReturn);
  AppendCharts(HtmlReturn);
  HtmlReturn += "</section>\n";
}

void GrammarPage::AppendCounts(std::string& HtmlReturn) const {
  std::set<std::string_view> ssFiles;
  std::set<std::string_view> ssLiterals;
  std::set<std::string_view> ssFeatures;
  std::size_t Alignments = 0;
  std::size_t Constraints = 0;
  std::size_t Examples = 0;
  std::size_t Findings = 0;
  for (const RuleEntry& Entry : vEntries) {
    ssFiles.insert(Entry.File);
    ssLiterals.insert(Entry.vsLiterals.begin(), Entry.vsLiterals.end());
    ssFeatures.insert(Entry.vsFeatures.begin(), Entry.vsFeatures.end());
    Alignments += Entry.Alignments;
    Constraints += Entry.Constraints;
    Examples += Entry.Examples;
    Findings += Entry.vFindings.size();
  }
  HtmlReturn += "<dl class=\"counts\">\n";
  AppendCount("Rules", vEntries.size(), HtmlReturn);
  AppendCount("Files", ssFiles.size(), HtmlReturn);
  AppendCount("Labels", Labels.size(), HtmlReturn);
  AppendCount("Literals", ssLiterals.size(), HtmlReturn);
  AppendCount("Features", ssFeatures.size(), HtmlReturn);
  AppendCount("Alignments", Alignments, HtmlReturn);
  AppendCount("Constraints", Constraints, HtmlReturn);
  AppendCount("Examples", Examples, HtmlReturn);
  AppendCount("Findings", Findings, HtmlReturn);
  HtmlReturn += "</dl>\n";
}

void GrammarPage::AppendTestTotals(std::string& HtmlReturn) const {
  if (Tests == nullptr) {
    return;
  }
  HtmlReturn += "<h3>Tests</h3>\n<p>";
  AppendShown(Tests->Totals, HtmlReturn);
  HtmlReturn += "<br>";
  AppendShown(Tests->Covered, HtmlReturn);
  HtmlReturn += "</p>\n";
  if (!Tests->Others.empty()) {
    HtmlReturn.append("<details>\n<summary>Examples of files</summary>\n<ul class=\"examples\">\n");
    HtmlReturn.append(Tests->Others).append("</ul>\n</details>\n");
  }
}

// ---- Charts -----------------------------------------------------------------------------------

namespace {

constexpr std::size_t SingleCounts = 8;  // above, a bar stands for a range: 9 to 16, 17 to 32, …

/// The bar of a count: that of its own, or of its range.
std::size_t BarOf(std::size_t Count) {
  std::size_t Bar = std::min(Count, SingleCounts + 1);
  for (std::size_t Last = 2 * SingleCounts; Count > Last; Last *= 2) {
    ++Bar;
  }
  return Bar;
}

std::string BarLabel(std::size_t Bar) {
  if (Bar <= SingleCounts) {
    return std::to_string(Bar);
  }
  const std::size_t Last = SingleCounts << (Bar - SingleCounts);
  return std::to_string(Last / 2 + 1) + " to " + std::to_string(Last);
}

/// How many rules have how many of something.
void AppendChart(std::string_view Title, const std::vector<RuleEntry>& vEntries,
                 std::size_t RuleEntry::*What, std::string& HtmlReturn) {
  std::vector<std::size_t> vCounts;
  for (const RuleEntry& Entry : vEntries) {
    const std::size_t Bar = BarOf(Entry.*What);
    vCounts.resize(std::max(vCounts.size(), Bar + 1));
    ++vCounts[Bar];
  }
  Picture::Histogram Bars(Title);
  for (std::size_t Bar = 0; Bar < vCounts.size(); ++Bar) {
    Bars.Add(BarLabel(Bar), vCounts[Bar]);
  }
  Picture::Drawing Shapes;
  Bars.Draw(Shapes);
  HtmlReturn += "<figure>\n<figcaption>";
  AppendShown(Title, HtmlReturn);
  HtmlReturn += "</figcaption>\n";
  Picture::AppendSvg(Shapes, {true, ""}, HtmlReturn);
  HtmlReturn += "</figure>\n";
}

}  // namespace

void GrammarPage::AppendCharts(std::string& HtmlReturn) const {
  HtmlReturn += "<div class=\"charts\">\n";
  AppendChart("Rules by components of the source side", vEntries, &RuleEntry::Components,
              HtmlReturn);
  AppendChart("Rules by constraints", vEntries, &RuleEntry::Constraints, HtmlReturn);
  AppendChart("Rules by examples", vEntries, &RuleEntry::Examples, HtmlReturn);
  HtmlReturn += "</div>\n";
}

// ---- Findings ---------------------------------------------------------------------------------

void GrammarPage::AppendFindingTable(std::string& HtmlReturn) const {
  Grammar::FindingTally Tally;
  for (const RuleEntry& Entry : vEntries) {
    for (const Grammar::Finding& Found : Entry.vFindings) {
      Tally.Add(Found.Code, Found.Level);
    }
  }
  std::string Rows;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    for (const Severity Level : {Severity::Error, Severity::Warning}) {
      const std::uint64_t Count = Tally.Count(Info.Code, Level);
      if (Count > 0) {
        Rows.append("<tr><td class=\"count\">").append(std::to_string(Count)).append("</td><td>");
        Rows.append(Info.Code).append("</td><td>").append(NameOf(Level)).append("</td><td>");
        AppendShown(Info.Title, Rows);
        Rows += "</td></tr>\n";
      }
    }
  }
  if (!Rows.empty()) {
    HtmlReturn +=
        "<h3>Findings</h3>\n<table>\n<thead><tr><th scope=\"col\">Count</th>"
        "<th scope=\"col\">Code</th><th scope=\"col\">Severity</th>"
        "<th scope=\"col\">Meaning</th></tr></thead>\n<tbody>\n";
    HtmlReturn.append(Rows).append("</tbody>\n</table>\n");
  }
}

namespace {

void AppendFinding(const Grammar::Finding& Found, std::string& HtmlReturn) {
  HtmlReturn.append("<li class=\"").append(NameOf(Found.Level)).append("\"><b>");
  HtmlReturn.append(NameOf(Found.Level)).append(" ").append(Found.Code).append("</b> line ");
  HtmlReturn.append(std::to_string(Found.Line)).append(": ");
  AppendShown(Found.Message, HtmlReturn);
  if (!Found.Suggestion.empty()) {
    HtmlReturn += "; did you mean <code>";
    AppendShown(Found.Suggestion, HtmlReturn);
    HtmlReturn += "</code>?";
  }
  HtmlReturn += "</li>\n";
}

}  // namespace

// ---- Labels -----------------------------------------------------------------------------------

void GrammarPage::AppendProviders(std::string_view Which, const std::vector<std::size_t>& vRules,
                                  std::string& HtmlReturn) const {
  if (vRules.empty()) {
    return;
  }
  HtmlReturn.append("<p>").append(Which).append("</p>\n<ul>\n");
  for (const std::size_t Index : vRules) {
    HtmlReturn.append("<li><a href=\"#rule-").append(std::to_string(Index + 1)).append("\">");
    AppendShown(vEntries[Index].Name, HtmlReturn);
    HtmlReturn += "</a></li>\n";
  }
  HtmlReturn += "</ul>\n";
}

void GrammarPage::AppendLabels(std::string& HtmlReturn) const {
  HtmlReturn +=
      "<section id=\"labels\" aria-labelledby=\"labels-heading\">\n"
      "<h2 id=\"labels-heading\">Labels</h2>\n<ul class=\"labels\">\n";
  for (const auto& [sName, Known] : Labels) {
    const std::size_t Count = Known.vSources.size() + Known.vTargets.size();
    HtmlReturn.append("<li><details id=\"").append(LabelPlace(sName)).append("\"><summary><bdi>");
    AppendShown(sName, HtmlReturn);
    HtmlReturn.append("</bdi> <span class=\"quiet\">")
        .append(Count == 0 ? "no rules" : std::to_string(Count) + (Count == 1 ? " rule" : " rules"))
        .append("</span></summary>\n");
    if (Count == 0) {
      HtmlReturn += "<p>No rule provides it.</p>\n";
    }
    AppendProviders("Source type of", Known.vSources, HtmlReturn);
    AppendProviders("Target type of", Known.vTargets, HtmlReturn);
    HtmlReturn += "</details></li>\n";
  }
  HtmlReturn += "</ul>\n</section>\n";
}

// ---- Rules ------------------------------------------------------------------------------------

namespace {

void AppendNames(std::string_view Kind, const std::vector<std::string>& vsNames,
                 std::string& HtmlReturn) {
  if (vsNames.empty()) {
    return;
  }
  HtmlReturn.append(" data-").append(Kind).append("=\"");
  for (const std::string& sName : vsNames) {
    HtmlReturn += &sName == &vsNames.front() ? "" : " ";
    AppendShown(sName, HtmlReturn);
  }
  HtmlReturn += '"';
}

/// What the search can be limited to.
std::vector<std::string> MarksOf(const RuleEntry& Entry, const RuleTests* Tests) {
  std::vector<std::string> vsMarks;
  if (!Entry.vFindings.empty()) {
    vsMarks.emplace_back("finding");
  }
  if (Tests != nullptr && Tests->HasFailure) {
    vsMarks.emplace_back("failing");
  }
  if (Tests != nullptr && Tests->IsUncovered) {
    vsMarks.emplace_back("uncovered");
  }
  return vsMarks;
}

}  // namespace

void GrammarPage::AppendRule(std::size_t Index, std::string& HtmlReturn) const {
  const RuleEntry& Entry = vEntries[Index];
  const RuleTests* const Own = Tests == nullptr ? nullptr : &Tests->vRules[Index];
  const std::string Place = "rule-" + std::to_string(Index + 1);
  HtmlReturn.append("<li id=\"").append(Place).append("\"");
  AppendNames("labels", Entry.vsLabels, HtmlReturn);
  AppendNames("literals", Entry.vsLiterals, HtmlReturn);
  AppendNames("features", Entry.vsFeatures, HtmlReturn);
  AppendNames("marks", MarksOf(Entry, Own), HtmlReturn);
  HtmlReturn.append(">\n<h3><a href=\"#").append(Place).append("\">");
  AppendShown(Entry.Name, HtmlReturn);
  HtmlReturn.append("</a>").append(Entry.Heading).append("</h3>\n");
  HtmlReturn.append(Entry.Picture).append("<div>\n").append(Entry.Lines);
  if (!Entry.vFindings.empty()) {
    HtmlReturn += "<ul class=\"findings\">\n";
    for (const Grammar::Finding& Found : Entry.vFindings) {
      AppendFinding(Found, HtmlReturn);
    }
    HtmlReturn += "</ul>\n";
  }
  HtmlReturn += "</div>\n";
  if (Own != nullptr && !Own->Html.empty()) {
    HtmlReturn.append("<div class=\"tests\">\n").append(Own->Html).append("</div>\n");
  }
  HtmlReturn += "</li>\n";
}

// ---- The end ----------------------------------------------------------------------------------

void GrammarPage::AppendAfter(std::string& HtmlReturn) const {
  HtmlReturn.append("</ol>\n</section>\n</main>\n<script>")
      .append(ScriptSource)
      .append("</script>\n</body>\n</html>\n");
}

}  // namespace Page
