#include "FlatRule.h"

#include <iostream>
#include <sstream>

namespace {

/// Key prefix of a constraint, for example "1__0__DET__".
std::string KeyOf(const Constraint& Stored) {
  return std::to_string(Stored.GetCategory()) + "__" +
         std::to_string(Stored.GetConstrainedIndex()) + "__" + Stored.GetFeature() + "__" +
         Stored.GetFeatValue();
}

/// The comment lines and the header type, which only `Print` shows.
void CutPrinted(TrRule& Rule, RulePieces& PiecesReturn) {
  std::ostringstream Printed;
  std::streambuf* const Old = std::cout.rdbuf(Printed.rdbuf());
  Rule.Print();
  std::cout.rdbuf(Old);
  std::istringstream Lines(Printed.str());
  for (std::string Line; std::getline(Lines, Line) && Line[0] != '(';) {
    if (Line[0] == ';') {
      PiecesReturn.vsComments.push_back(Line);
    } else if (Line[0] == '{') {
      PiecesReturn.POS = Line.substr(1, Line.find(',') - 1);
    }
  }
}

}  // namespace

RulePieces CutRule(const std::string& Text) {
  TrRule Rule;
  Rule.SetTrRuleFromString(Text);
  RulePieces Pieces{{},
                    {},
                    Rule.GetSLType(),
                    Rule.GetTLType(),
                    Rule.GetSLPOS(),
                    Rule.GetTLPOS(),
                    Rule.GetAlignmentStr(),
                    Rule.GetRuleIndex(),
                    {}};
  CutPrinted(Rule, Pieces);
  for (const Constraint& Stored : Rule.GetConstraintsAsSetC()) {
    Pieces.vConstraints.push_back({KeyOf(Stored), Stored.GetCategory(),
                                   Stored.GetConstrainedIndex(), Stored.GetFeature(),
                                   Stored.GetFeatValue(), Stored.IsValueConstraint()});
  }
  return Pieces;
}

FlatRule::FlatRule(const RulePieces& Pieces)
    : vsComments(Pieces.vsComments),
      vsSLPOS(Pieces.vsSLLabels),
      vsWordLevelSLPOS(Pieces.vsSLLabels),
      vsTLPOS(Pieces.vsTLLabels),
      vsWordLevelTLPOS(Pieces.vsTLLabels),
      Alignments(Pieces.Alignments),
      SLType(Pieces.SLType),
      TLType(Pieces.TLType),
      RuleIndex(Pieces.RuleIndex),
      POS(Pieces.POS) {
  vsAllAlignments.push_back(Alignments);
  for (const RulePieces::ConstraintPieces& Written : Pieces.vConstraints) {
    Constraints.emplace(Written.Key,
                        FlatConstraint{Written.Category, Written.Index, Written.Feature,
                                       Written.FeatValue, -1, Written.IsValue});
  }
}
