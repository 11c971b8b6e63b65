#include "Finding.h"

#include <algorithm>
#include <tuple>

namespace Grammar {

std::string_view NameOf(Severity Which) {
  return Which == Severity::Error ? "error" : "warning";
}

const std::vector<CodeInfo>& AllCodes() {
  static const std::vector<CodeInfo> vCodes = {
      {"TR001", Severity::Error, "the rule has no sequence line"},
      {"TR002", Severity::Error, "the rule has no alignment"},
      {"TR003", Severity::Error, "the rule has a second sequence line"},
      {"TR004", Severity::Error, "the types are missing or cannot be read"},
      {"TR005", Severity::Error, "the source sequence is missing or cannot be read"},
      {"TR006", Severity::Error, "the target sequence is missing or cannot be read"},
      {"TR007", Severity::Error, "the alignment cannot be read"},
      {"TR008", Severity::Error, "the constraint is not in the format"},
      {"TR009", Severity::Error, "a constraint names a component that the rule does not have"},
      {"TR010", Severity::Error, "an alignment names a component that the rule does not have"},
      {"TR011", Severity::Error, "the constraints refer to each other in a cycle"},
      {"TR012", Severity::Error, "an agreement names no node"},
      {"TR013", Severity::Error, "the rule is longer than the reader takes"},
      {"TR014", Severity::Error, "the rule cannot be written as it was read"},
      {"TR016", Severity::Error, "the file is no grammar"},
      {"TR021", Severity::Warning, "the reader shortens the type of the header"},
      {"TR022", Severity::Warning, "the reader shortens the number of the header"},
      {"TR023", Severity::Warning, "the header cannot be read"},
      {"TR024", Severity::Warning, "a doubled equals sign"},
      {"TR025", Severity::Warning, "a feature of several words becomes one word"},
      {"TR026", Severity::Warning, "the feature on the right differs from the one on the left"},
      {"TR027", Severity::Warning, "a negation loses its parenthesis"},
      {"TR028", Severity::Warning, "a literal value with an X changes the category"},
      {"TR029", Severity::Warning, "the reader takes a comment for a line of the rule"},
      {"TR030", Severity::Warning, "a constraint names a component without an alignment"},
      {"TR031", Severity::Warning, "a constraint is given twice"},
      {"TR032", Severity::Warning, "two values of a feature become one disjunction"},
      {"TR033", Severity::Warning, "two rules say the same"},
      {"TR034", Severity::Warning, "two rules have the same type and number"},
      {"TR035", Severity::Error, "text that is no part of a rule"},
      {"TR036", Severity::Warning, "an alignment is given twice"},
      {"TR037", Severity::Warning, "the line stands before the header of its rule"},
      {"TR038", Severity::Warning, "a blank becomes part of a value"},
      {"TR039", Severity::Warning, "a sign becomes part of a name"},
      {"TR040", Severity::Warning, "the header has another type than the rule"},
      {"TR041", Severity::Warning, "a part of the sign becomes part of the value"},
      {"TR042", Severity::Warning, "a list has no parentheses of its own"},
      {"TR043", Severity::Warning, "several words become one value"},
      {"TR044", Severity::Warning, "both sides of a constraint are the same"},
      {"TR045", Severity::Warning, "a rule without a header follows rules with one"},
      {"TR046", Severity::Warning, "a small letter beyond ASCII stays small"},
      {"TR047", Severity::Warning, "a label of a comment is not taken for one"},
      {"TR048", Severity::Warning, "a character looks like one of ASCII"},
      {"TR049", Severity::Warning, "the count is not read as it is written"},
  };
  return vCodes;
}

const CodeInfo* FindCode(std::string_view Code) {
  const std::vector<CodeInfo>& vCodes = AllCodes();
  const auto Found = std::lower_bound(
      vCodes.begin(), vCodes.end(), Code,
      [](const CodeInfo& Each, std::string_view Wanted) { return Each.Code < Wanted; });
  return Found == vCodes.end() || Found->Code != Code ? nullptr : &*Found;
}

namespace {

bool ComesBefore(const Finding& Left, const Finding& Right) {
  return std::tie(Left.Line, Left.Column, Left.Code) <
         std::tie(Right.Line, Right.Column, Right.Code);
}

}  // namespace

/// Most are in order already, and sorting moves each of them at least twice.
void SortFindings(std::vector<Finding>& vFindingsReturn) {
  if (!std::is_sorted(vFindingsReturn.begin(), vFindingsReturn.end(), ComesBefore)) {
    std::stable_sort(vFindingsReturn.begin(), vFindingsReturn.end(), ComesBefore);
  }
}

}  // namespace Grammar
