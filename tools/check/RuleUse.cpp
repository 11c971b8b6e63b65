// Sections: what the checker finds, what only the use of a rule minds, places, the report, reading.

#include "RuleUse.h"

#include "RuleChecker.h"
#include "RuleFindings.h"
#include "RuleRecord.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace Grammar {

// ---- What the checker finds -------------------------------------------------------------------

namespace {

/// Whether a finding keeps the rule from being used, and not only the library from writing it: an
/// agreement without a node does so where the format wants one.
bool IsFatal(const SourceRule& Lines, const Finding& Found) {
  return KeepsFromUse(Found.Code) ||
         (Found.Code == "TR012" &&
          std::any_of(Lines.Constraints().begin(), Lines.Constraints().end(),
                      [&](const SourceRule::ConstraintLine& Other) {
                        return Lines.Text().FirstLine + Other.Line == Found.Line &&
                               LacksNode(Other.Parts);
                      }));
}

void AddCheckerFindings(const SourceRule& Lines, std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  RuleRecord Record;
  CheckRule(Lines.Text(), Record, vAll);
  std::copy_if(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn),
               [&](const Finding& Found) { return IsFatal(Lines, Found); });
}

// ---- What only the use of a rule minds --------------------------------------------------------

/// Adds what the checker passes over: it takes a list as the library writes it, and does not look
/// for the components of a constraint that the library cannot write.
void AddOwnFindings(const SourceRule& Lines, std::vector<Finding>& vFindingsReturn) {
  RuleFindings Findings(Lines.Text(), vFindingsReturn);
  const auto CheckNode = [&](std::size_t Line, const TrRuleInternal::NodeText& Node) {
    if (!HasComponent(Lines, Node)) {
      Findings.Add("TR009", Line, Node.Text,
                   MissingComponent(Node.Text, Node.Side, Lines.LabelsOf(Node.Side).size()));
    }
  };
  const bool HasLabels = HasReadableTypes(Lines);
  for (const auto& [Line, Parts, IsCommon] : Lines.Constraints()) {
    if (LacksNode(Parts)) {
      continue;
    }
    if (const std::string_view Part = ParenthesisInList(Parts); !Part.empty()) {
      Findings.Add("TR008", Line, Part, std::string(NotInFormat));
    }
    if (HasLabels) {
      CheckNode(Line, Parts.Left);
    }
    if (HasLabels && Parts.RightNode) {
      CheckNode(Line, *Parts.RightNode);
    }
  }
}

/// Drops findings that stand at the place of an earlier one with the same code.
void DropRepetitions(std::vector<Finding>& vFindingsReturn) {
  SortFindings(vFindingsReturn);
  const auto IsSame = [](const Finding& Left, const Finding& Right) {
    return std::tie(Left.Line, Left.Column, Left.Code) ==
           std::tie(Right.Line, Right.Column, Right.Code);
  };
  vFindingsReturn.erase(std::unique(vFindingsReturn.begin(), vFindingsReturn.end(), IsSame),
                        vFindingsReturn.end());
}

}  // namespace

// ---- Places -----------------------------------------------------------------------------------

namespace {

std::string_view MessageOf(PlaceSources::Fault What) {
  switch (What) {
    case PlaceSources::Fault::NoSource:
      return "the target component has no source to come from";
    case PlaceSources::Fault::ManySources:
      return "the target component has more than one source";
    default:
      return "the source component is wanted with two labels";
  }
}

}  // namespace

namespace {

void ReportPlaces(const PlaceSources& Places, std::size_t Line, Severity Level,
                  RuleFindings& FindingsReturn) {
  for (const PlaceSources::Mismatch& Current : Places.Mismatches()) {
    FindingsReturn.Add("TR015", Line, Current.Label, std::string(MessageOf(Current.What))).Level =
        Level;
  }
}

}  // namespace

void ReportMissingSources(const SourceRule& Lines, const PlaceSources& Places,
                          std::vector<Finding>& vFindingsReturn) {
  const auto IsError = [](const Finding& Found) { return Found.Level == Severity::Error; };
  if (std::none_of(vFindingsReturn.begin(), vFindingsReturn.end(), IsError)) {
    RuleFindings Findings(Lines.Text(), vFindingsReturn);
    ReportPlaces(Places, Lines.RuleLines().front().Line, Severity::Warning, Findings);
    SortFindings(vFindingsReturn);
  }
}

// ---- The report -------------------------------------------------------------------------------

void ReportUnusable(const SourceRule& Lines, bool IsReversed,
                    std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vFindings;
  if (HasUsableLines(Lines)) {
    PlaceSources Places;
    Places.Find(Lines, IsReversed);
    RuleFindings Findings(Lines.Text(), vFindings);
    ReportPlaces(Places, Lines.RuleLines().front().Line, Severity::Error, Findings);
  } else {
    AddCheckerFindings(Lines, vFindings);
    AddOwnFindings(Lines, vFindings);
    DropRepetitions(vFindings);
  }
  std::move(vFindings.begin(), vFindings.end(), std::back_inserter(vFindingsReturn));
}

// ---- Reading ----------------------------------------------------------------------------------

bool ReadUsableRule(const RuleText& Text, bool IsReversed, SourceRule& LinesReturn,
                    UsableRule& RuleReturn, std::vector<Finding>& vFindingsReturn) {
  LinesReturn.Read(Text);
  const bool IsUsable = ReadUsableRule(LinesReturn, IsReversed, RuleReturn);
  if (!IsUsable) {
    ReportUnusable(LinesReturn, IsReversed, vFindingsReturn);
  }
  return IsUsable;
}

}  // namespace Grammar
