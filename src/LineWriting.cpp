// Sections, in the order of the header: before the rule line, the rule.

#include "LineWriting.h"

#include "Ascii.h"

namespace TrRuleInternal {

// ---- Before the rule line ---------------------------------------------------------------------

namespace {

/// Appends a label and the texts, each after a separator.
void AppendList(std::string& TextReturn, std::string_view Label, char Separator,
                const std::vector<std::string>& vsTexts) {
  TextReturn += Label;
  for (const std::string& sText : vsTexts) {
    TextReturn += Separator;
    TextReturn += sText;
  }
  TextReturn += '\n';
}

}  // namespace

void AppendHeaderLine(std::string& TextReturn, std::string_view Type, int Number) {
  Append(TextReturn, {"{", Type, ",", Decimal(Number), "}\n"});
}

void AppendWordsLine(std::string& TextReturn, std::string_view Label,
                     const std::vector<std::string>& vsWords) {
  AppendList(TextReturn, Label, ' ', vsWords);
}

void AppendScoreLine(std::string& TextReturn, int NumTrExamples) {
  Append(TextReturn, {";;Score:", Decimal(NumTrExamples), "\n"});
}

void AppendTextLine(std::string& TextReturn, std::string_view Label, std::string_view Text) {
  TextReturn += Label;
  TextReturn += Text;
  TextReturn += '\n';
}

void AppendMapLine(std::string& TextReturn, std::string_view Label,
                   const std::map<int, int>& miiMap) {
  TextReturn += Label;
  for (const auto& [Word, Component] : miiMap) {
    Append(TextReturn, {"\t", Decimal(Word), "->", Decimal(Component), ","});
  }
  TextReturn += '\n';
}

void AppendListLine(std::string& TextReturn, std::string_view Label,
                    const std::vector<std::string>& vsTexts) {
  AppendList(TextReturn, Label, '\t', vsTexts);
}

void AppendLabelsLine(std::string& TextReturn, const std::vector<std::string>& vsLabels) {
  TextReturn += ';';
  for (const std::string& sLabel : vsLabels) {
    TextReturn += sLabel;
    TextReturn += ' ';
  }
  TextReturn += '\n';
}

// ---- The rule ---------------------------------------------------------------------------------

void AppendJoined(std::string& TextReturn, const std::vector<std::string>& vsTexts) {
  for (const std::string& sText : vsTexts) {
    if (&sText != &vsTexts.front()) {
      TextReturn += ' ';
    }
    TextReturn += sText;
  }
}

void AppendRuleLine(std::string& TextReturn, std::string_view SLType, std::string_view TLType,
                    const std::vector<std::string>& vsSLLabels,
                    const std::vector<std::string>& vsTLLabels) {
  Append(TextReturn, {SLType, "::", TLType, " ["});
  AppendJoined(TextReturn, vsSLLabels);
  TextReturn += "] -> [";
  AppendJoined(TextReturn, vsTLLabels);
  TextReturn += ']';
}

void AppendAlignmentLine(std::string& TextReturn, std::string_view X, std::string_view Y,
                         bool IsLexicalized) {
  Append(TextReturn, {IsLexicalized ? ";--;(X" : "(X", X, "::Y", Y, ")"});
}

void AppendConstraint(std::string& TextReturn, const ConstraintView& Fields) {
  const auto& [Category, ConstrainedIndex, Feature, FeatValue, ValueConstraint] = Fields;
  const std::string_view Side = Category == 1 ? "X" : "Y";
  const Decimal Index(ConstrainedIndex);
  if (ValueConstraint) {
    Append(TextReturn, {"((", Side, Index, " ", Feature, ") = ", FeatValue, ")"});
  } else if (Feature == WholeNode) {
    Append(TextReturn, {"(", Side, Index, " = ", FeatValue, ")"});
  } else {
    Append(TextReturn, {"((", Side, Index, " ", Feature, ") = ", FeatValue, " ", Feature, "))"});
  }
}

}  // namespace TrRuleInternal
