#pragma once

#include "ConstraintText.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// Writing the lines of a rule. Each function appends one line to a text: the lines of the header,
/// of comments and of maps with a line feed, the lines of the rule itself without one. Nothing is
/// checked or printed.
///
/// @code
///   std::string Text;
///   AppendHeaderLine(Text, "NP", 8);
///   AppendAlignmentLine(Text, "2", "3", true);
///   Text;  // "{NP,8}\n;--;(X2::Y3)"
/// @endcode

namespace TrRuleInternal {

// ---- Before the rule line ---------------------------------------------------------------------

/// Appends "{NP,8}\n".
void AppendHeaderLine(std::string& TextReturn, std::string_view Type, int Number);

/// Appends ";;SL: I SEE\n", for the label ";;SL:".
void AppendWordsLine(std::string& TextReturn, std::string_view Label,
                     const std::vector<std::string>& vsWords);

/// Appends ";;Score:1\n".
void AppendScoreLine(std::string& TextReturn, int NumTrExamples);

/// Appends ";;SL_alt:I SEE\n", for the label ";;SL_alt:".
void AppendTextLine(std::string& TextReturn, std::string_view Label, std::string_view Text);

/// Appends ";;SLWord2Comp:\t0->0,\t1->2,\n", for the label ";;SLWord2Comp:".
void AppendMapLine(std::string& TextReturn, std::string_view Label,
                   const std::map<int, int>& miiMap);

/// Appends ";;WordLevelSLPOS:\tDET\tN\n", for the label ";;WordLevelSLPOS:".
void AppendListLine(std::string& TextReturn, std::string_view Label,
                    const std::vector<std::string>& vsTexts);

/// Appends ";DET N \n", with a blank after each label.
void AppendLabelsLine(std::string& TextReturn, const std::vector<std::string>& vsLabels);

// ---- The rule ---------------------------------------------------------------------------------

/// Appends texts, separated by one blank.
void AppendJoined(std::string& TextReturn, const std::vector<std::string>& vsTexts);

/// Appends "NP::NP [DET N] -> [N DET]".
void AppendRuleLine(std::string& TextReturn, std::string_view SLType, std::string_view TLType,
                    const std::vector<std::string>& vsSLLabels,
                    const std::vector<std::string>& vsTLLabels);

/// Appends "(X2::Y3)", or ";--;(X2::Y3)" if a side is a literal word.
void AppendAlignmentLine(std::string& TextReturn, std::string_view X, std::string_view Y,
                         bool IsLexicalized);

/// Appends "((X0 DET) = X1)" for a value, "(X0 = X3)" for a whole node, "((Y3 AGR) = (Y2 AGR))" for
/// a node's feature. A reference to a feature by a whole node, "(Y1 = (Y0 DET)", and a negation,
/// "((X1 NUM) = (*NOT* SG)", are stored and written without their last parenthesis.
void AppendConstraint(std::string& TextReturn, const ConstraintView& Fields);

}  // namespace TrRuleInternal
