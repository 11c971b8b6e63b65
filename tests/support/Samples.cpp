#include "support/Samples.h"

#include "support/StreamCapture.h"

std::string Printed(TrRule& Rule) {
  return WrittenBy([&] { Rule.Print(); }).Out;
}

namespace {

std::string Text(int Number) {
  return std::to_string(Number);
}

std::string Text(const std::string& sText) {
  return '<' + sText + '>';
}

std::string Text(const std::pair<const int, int>& Entry) {
  return std::to_string(Entry.first) + "->" + std::to_string(Entry.second);
}

template <typename CollectionT>
std::string Text(const CollectionT& Collection) {
  std::string Elements;
  for (const auto& Element : Collection) {
    Elements += ' ' + Text(Element);
  }
  return '{' + Elements + " }";
}

template <typename ValueT>
std::string Line(const std::string& Name, const ValueT& Value) {
  return Name + ": " + Text(Value) + '\n';
}

std::string Constraints(const TrRule& Rule) {
  std::string Lines;
  for (const Constraint& Record : Rule.GetConstraintsAsSetC()) {
    Lines +=
        Line("Constraint", Record.ReturnAsString() + " category " + Text(Record.GetCategory()) +
                               " rank " + Text(Record.GetRankInCategory()));
  }
  return Lines;
}

}  // namespace

std::string Dump(TrRule& Rule) {
  Strings vsSLSents;
  Strings vsTLSents;
  Strings vsAlignments;
  Strings vsCStructures;
  std::vector<std::map<int, int>> vmiiSL;
  std::vector<std::map<int, int>> vmiiTL;
  std::vector<Strings> vvsSL;
  std::vector<Strings> vvsTL;
  Rule.GetAllAlts(vsSLSents, vsTLSents, vsAlignments, vsCStructures, vmiiSL, vmiiTL, vvsSL, vvsTL);
  return "Print:\n" + Printed(Rule) + Line("SLWords", Rule.GetSLWords()) +
         Line("vsAllSLSents", vsSLSents) + Line("SLPOS", Rule.GetSLPOS()) +
         Line("WordLevelSLPOS", Rule.GetWordLevelSLPOS()) +
         Line("SLPOSFromParse", Rule.GetSLPOSFromParse()) +
         Line("TLPOSFromParse", Rule.GetTLPOSFromParseAfterFlipping()) +
         Line("vvsAllWordLevelSLPOSs", vvsSL) + Line("TLWords", Rule.GetTLWords()) +
         Line("vsAllTLSents", vsTLSents) + Line("TLPOS", Rule.GetTLPOS()) +
         Line("WordLevelTLPOS", Rule.GetWordLevelTLPOS()) + Line("vvsAllWordLevelTLPOSs", vvsTL) +
         Line("AlignmentString", Rule.GetAlignmentStr()) +
         Line("sWordLevelAl", Rule.GetsWordLevelAl()) + Line("vsAllAlignments", vsAlignments) +
         Line("CStructure", Rule.GetCStructure()) + Line("vsAllCStructures", vsCStructures) +
         Line("SLType", Rule.GetSLType()) + Line("TLType", Rule.GetTLType()) + Constraints(Rule) +
         Line("RuleIndex", Rule.GetRuleIndex()) + Line("CSet", Rule.GetCSet()) +
         Line("SLWord2Comp", Rule.GetSLWord2Comp()) + Line("vmiiAllSLWord2Comps", vmiiSL) +
         Line("TLWord2Comp", Rule.GetTLWord2Comp()) + Line("vmiiAllTLWord2Comps", vmiiTL) +
         Line("NumTrExamples", Rule.GetNumTrExamples()) + Line("HeadIndex", Rule.GetHeadIndex()) +
         Line("XHeadIndex", Rule.GetXHeadIndex()) + Line("YHeadIndex", Rule.GetYHeadIndex());
}
