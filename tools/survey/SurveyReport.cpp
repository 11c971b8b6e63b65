// Sections: the report, text, JSON, the page.

#include "SurveyReport.h"

#include "Histogram.h"
#include "HtmlPage.h"
#include "JsonText.h"
#include "SvgWriter.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>

namespace Grammar {

// ---- The report -------------------------------------------------------------------------------

namespace {

using Row = SurveyReport::Row;
using Table = SurveyReport::Table;

std::vector<Row> RowsOf(const NameCounts& Names) {
  std::vector<Row> vRows;
  vRows.reserve(Names.Size());
  for (const NameCount& Current : Names.Sorted()) {
    vRows.push_back({std::string(Current.Name), Current.Count, {}});
  }
  return vRows;
}

std::vector<Row> RowsOf(const std::map<std::size_t, std::uint64_t>& mLengths) {
  std::vector<Row> vRows;
  vRows.reserve(mLengths.size());
  for (const auto& [Length, Count] : mLengths) {
    vRows.push_back({std::to_string(Length), Count, {}});
  }
  return vRows;
}

std::vector<Row> FeatureRows(const RuleSurvey& Survey) {
  std::vector<Row> vRows = RowsOf(Survey.Features());
  for (Row& Feature : vRows) {
    Feature.vParts = RowsOf(Survey.Values(Survey.Features().Find(Feature.Name)));
  }
  return vRows;
}

std::vector<Row> CategoryRows(const RuleSurvey& Survey) {
  constexpr std::string_view Names[RuleSurvey::Categories] = {
      "1: of the source side", "2: from the source side to the target side", "3: of y0",
      "4: of the target side"};
  std::vector<Row> vRows;
  for (std::size_t Category = 1; Category <= RuleSurvey::Categories; ++Category) {
    vRows.push_back({std::string(Names[Category - 1]), Survey.Constraints(Category), {}});
  }
  return vRows;
}

/// Counts by powers of two, from the least to the greatest that there is.
std::vector<Row> CountRows(const RuleSurvey& Survey) {
  std::vector<Row> vRows;
  std::int64_t Last = 0;
  for (const auto& [Count, Rules] : Survey.Counts()) {
    while (Count > Last) {
      const std::int64_t First = Last + 1;
      Last = 2 * Last + 1;
      vRows.push_back(
          {std::to_string(First) + (First == Last ? "" : "-" + std::to_string(Last)), 0, {}});
    }
    vRows.back().Count += Rules;
  }
  return vRows;
}

std::uint64_t SumOfCounts(const RuleSurvey& Survey) {
  std::uint64_t Sum = 0;
  for (const auto& [Count, Rules] : Survey.Counts()) {
    Sum += static_cast<std::uint64_t>(Count) * Rules;
  }
  return Sum;
}

std::vector<SurveyReport::Number> QuantilesOf(const RuleSurvey& Survey) {
  constexpr struct {
    std::string_view Key;
    std::string_view Title;
    std::uint64_t PerThousand;
  } Wanted[] = {{"min", "least", 0}, {"p10", "10%", 100},      {"p25", "25%", 250},
                {"p50", "50%", 500}, {"p75", "75%", 750},      {"p90", "90%", 900},
                {"p99", "99%", 990}, {"max", "greatest", 1000}};
  std::vector<SurveyReport::Number> vQuantiles;
  for (const auto& Current : Wanted) {
    if (Survey.Rules() > 0) {
      vQuantiles.push_back({Current.Key, Current.Title,
                            static_cast<std::uint64_t>(Survey.Quantile(Current.PerThousand))});
    }
  }
  return vQuantiles;
}

std::uint64_t AllConstraints(const RuleSurvey& Survey) {
  std::uint64_t Sum = 0;
  for (std::size_t Category = 1; Category <= RuleSurvey::Categories; ++Category) {
    Sum += Survey.Constraints(Category);
  }
  return Sum;
}

}  // namespace

SurveyReport MakeReport(const RuleSurvey& Survey, const SurveyedRules& Rules) {
  SurveyReport Report;
  Report.vNumbers = {
      {"rules", "rules", Survey.Rules() + Rules.Unreadable},
      {"unreadable", "unreadable rules", Rules.Unreadable},
      {"duplicates", "duplicates", Rules.Duplicates},
      {"constraints", "constraints", AllConstraints(Survey)},
      {"examples", "examples", Survey.AllExamples().Pairs},
      {"rejected", "texts to be rejected", Survey.AllExamples().Rejected},
      {"rulesWithExamples", "rules with examples", Survey.RulesWithExamples()},
      {"sumOfCounts", "sum of counts", SumOfCounts(Survey)},
  };
  Report.vQuantiles = QuantilesOf(Survey);
  Report.vTables = {
      {"types", "types", RowsOf(Survey.Types()), false},
      {"slLabels", "source labels", RowsOf(Survey.Labels(0)), false},
      {"tlLabels", "target labels", RowsOf(Survey.Labels(1)), false},
      {"slLiterals", "source literals", RowsOf(Survey.Literals(0)), false},
      {"tlLiterals", "target literals", RowsOf(Survey.Literals(1)), false},
      {"slLengths", "source components", RowsOf(Survey.Lengths(0)), true},
      {"tlLengths", "target components", RowsOf(Survey.Lengths(1)), true},
      {"shapes", "shapes of alignments", RowsOf(Survey.Shapes()), false},
      {"features", "features", FeatureRows(Survey), false},
      {"categories", "constraints by category", CategoryRows(Survey), true},
      {"counts", "counts", CountRows(Survey), true},
  };
  return Report;
}

// ---- Text -------------------------------------------------------------------------------------

namespace {

std::uint64_t SumOf(const std::vector<Row>& vRows) {
  std::uint64_t Sum = 0;
  for (const Row& Current : vRows) {
    Sum += Current.Count;
  }
  return Sum;
}

/// At the right end of so many columns.
void AppendRight(const std::string& Text, std::size_t Width, std::string& TextReturn) {
  TextReturn.append(Width > Text.size() ? Width - Text.size() : 0, ' ').append(Text);
}

/// A share of all with one digit, rounded: "33.3%".
std::string Share(std::uint64_t Part, std::uint64_t All) {
  constexpr long double Whole = 1000;
  const auto PerThousand = static_cast<std::uint64_t>(
      Whole * static_cast<long double>(Part) / static_cast<long double>(All) + 0.5L);
  return std::to_string(PerThousand / 10) + '.' + std::to_string(PerThousand % 10) + '%';
}

/// Writes the rows of a report in columns.
class RowWriter {
 public:
  RowWriter(std::size_t TopPassIn, std::size_t WidthPassIn, std::string& TextPassIn)
      : Top(TopPassIn), Width(WidthPassIn), Text(TextPassIn) {}

  void Write(const std::vector<Row>& vRows, std::size_t Most, std::size_t Depth) {
    const std::uint64_t All = SumOf(vRows);
    const std::size_t Shown = std::min(Most, vRows.size());
    for (std::size_t Index = 0; Index < Shown; ++Index) {
      const Row& Current = vRows[Index];
      AppendRight(std::to_string(Current.Count), Width, Text);
      AppendRight(Share(Current.Count, std::max<std::uint64_t>(All, 1)), ShareWidth, Text);
      Text.append(2 * (Depth + 1), ' ').append(Current.Name).append(1, '\n');
      Write(Current.vParts, Top, Depth + 1);
    }
    if (Shown < vRows.size()) {
      Text.append(Width + ShareWidth + 2 * (Depth + 1), ' ');
      Text.append(std::to_string(vRows.size() - Shown)).append(" more\n");
    }
  }

 private:
  static constexpr std::size_t ShareWidth = 8;

  std::size_t Top;
  std::size_t Width;
  std::string& Text;
};

void AppendNumbers(const std::vector<SurveyReport::Number>& vNumbers, std::size_t Width,
                   std::string& TextReturn) {
  for (const SurveyReport::Number& Current : vNumbers) {
    AppendRight(std::to_string(Current.Value), Width, TextReturn);
    TextReturn.append("  ").append(Current.Title).append(1, '\n');
  }
}

/// So that all numbers fit: those of tables are numbers of lines or rules, or of components.
std::size_t NumberWidth(const SurveyReport& Report) {
  std::uint64_t Greatest = 0;
  for (const SurveyReport::Number& Current : Report.vNumbers) {
    Greatest = std::max(Greatest, Current.Value);
  }
  for (const Table& Current : Report.vTables) {
    for (const Row& Entry : Current.vRows) {
      Greatest = std::max(Greatest, Entry.Count);
    }
  }
  return std::to_string(Greatest).size();
}

}  // namespace

void AppendText(const SurveyReport& Report, std::size_t Top, std::string& TextReturn) {
  const std::size_t Width = NumberWidth(Report);
  AppendNumbers(Report.vNumbers, Width, TextReturn);
  if (!Report.vQuantiles.empty()) {
    TextReturn += "\nquantiles of the counts\n";
    AppendNumbers(Report.vQuantiles, Width, TextReturn);
  }
  for (const Table& Current : Report.vTables) {
    if (SumOf(Current.vRows) > 0) {
      TextReturn.append("\n").append(Current.Title);
      TextReturn.append(Current.IsWhole ? "" : ": " + std::to_string(Current.vRows.size()));
      TextReturn += '\n';
      RowWriter(Top, Width, TextReturn)
          .Write(Current.vRows, Current.IsWhole ? Current.vRows.size() : Top, 0);
    }
  }
}

// ---- JSON -------------------------------------------------------------------------------------

namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void WriteText(std::string_view Words, Writer& JsonReturn) {
  JsonReturn.String(Words.data(), static_cast<rapidjson::SizeType>(Words.size()));
}

void WriteNumbers(const std::vector<SurveyReport::Number>& vNumbers, Writer& JsonReturn) {
  for (const SurveyReport::Number& Current : vNumbers) {
    WriteText(Current.Key, JsonReturn);
    JsonReturn.Uint64(Current.Value);
  }
}

void WriteRows(const std::vector<Row>& vRows, Writer& JsonReturn) {
  JsonReturn.StartArray();
  for (const Row& Current : vRows) {
    JsonReturn.StartObject();
    JsonReturn.Key("name");
    WriteText(ToUnicode(Current.Name), JsonReturn);
    JsonReturn.Key("count");
    JsonReturn.Uint64(Current.Count);
    if (!Current.vParts.empty()) {
      JsonReturn.Key("values");
      WriteRows(Current.vParts, JsonReturn);
    }
    JsonReturn.EndObject();
  }
  JsonReturn.EndArray();
}

}  // namespace

void AppendJson(const SurveyReport& Report, std::string& TextReturn) {
  rapidjson::StringBuffer Buffer;
  Writer Json(Buffer);
  Json.StartObject();
  WriteNumbers(Report.vNumbers, Json);
  Json.Key("quantiles");
  Json.StartObject();
  WriteNumbers(Report.vQuantiles, Json);
  Json.EndObject();
  for (const Table& Current : Report.vTables) {
    WriteText(Current.Key, Json);
    WriteRows(Current.vRows, Json);
  }
  Json.EndObject();
  TextReturn.append(Buffer.GetString(), Buffer.GetSize()).append(1, '\n');
}

// ---- The page ---------------------------------------------------------------------------------

namespace {

void AppendNumberTable(std::string_view Title, const std::vector<SurveyReport::Number>& vNumbers,
                       std::string& TextReturn) {
  TextReturn.append("<h2>").append(Title).append("</h2>\n<table>\n");
  for (const SurveyReport::Number& Current : vNumbers) {
    TextReturn.append("<tr><th scope=\"row\" align=\"left\">").append(Current.Title);
    TextReturn.append("</th><td align=\"right\">").append(std::to_string(Current.Value));
    TextReturn.append("</td></tr>\n");
  }
  TextReturn += "</table>\n";
}

/// A histogram of the most frequent rows, with a bar for all others.
void AppendHistogram(const std::string& Title, const std::vector<Row>& vRows, std::size_t Most,
                     std::string& TextReturn) {
  Picture::Histogram Bars(Title);
  std::uint64_t Others = SumOf(vRows);
  const std::size_t Shown = std::min(Most, vRows.size());
  for (std::size_t Index = 0; Index < Shown; ++Index) {
    Bars.Add(vRows[Index].Name, vRows[Index].Count);
    Others -= vRows[Index].Count;
  }
  if (Shown < vRows.size()) {
    Bars.Add(std::to_string(vRows.size() - Shown) + " more", Others);
  }
  Picture::Drawing Shapes;
  Bars.Draw(Shapes);
  std::string Svg;
  AppendSvg(Shapes, {true, Title}, Svg);
  Picture::AppendFigure(Title, Svg, TextReturn);
}

}  // namespace

void AppendPage(const SurveyReport& Report, std::size_t Top, std::string& TextReturn) {
  Picture::BeginPage("Rules in numbers", TextReturn);
  AppendNumberTable("all rules", Report.vNumbers, TextReturn);
  if (!Report.vQuantiles.empty()) {
    AppendNumberTable("quantiles of the counts", Report.vQuantiles, TextReturn);
  }
  for (const Table& Current : Report.vTables) {
    if (SumOf(Current.vRows) > 0) {
      const std::size_t Most = Current.IsWhole ? Current.vRows.size() : Top;
      AppendHistogram(std::string(Current.Title), Current.vRows, Most, TextReturn);
    }
    for (std::size_t Index = 0; Index < std::min(Top, Current.vRows.size()); ++Index) {
      const Row& Part = Current.vRows[Index];
      if (!Part.vParts.empty()) {
        AppendHistogram("values of " + Part.Name, Part.vParts, Top, TextReturn);
      }
    }
  }
  Picture::EndPage(TextReturn);
}

}  // namespace Grammar
