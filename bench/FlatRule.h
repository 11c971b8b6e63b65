#pragma once

#include "TrRule.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The pieces of a rule, split in advance: views of the texts that its containers have after
/// reading. Filling a `FlatRule` from them costs only as much as the containers.
struct RulePieces {
  struct ConstraintPieces {
    std::string Key;
    int Category;
    int Index;
    std::string Feature;
    std::string FeatValue;
    bool IsValue;
  };

  std::vector<std::string> vsComments;
  std::string POS;
  std::string SLType;
  std::string TLType;
  std::vector<std::string> vsSLLabels;
  std::vector<std::string> vsTLLabels;
  std::string Alignments;
  int RuleIndex;
  std::vector<ConstraintPieces> vConstraints;
};

/// The pieces of a rule text, as the library reads it.
RulePieces CutRule(const std::string& Text);

/// The containers of a rule without the rule.
struct FlatRule {
  struct FlatConstraint {
    int Category;
    int Index;
    std::string Feature;
    std::string FeatValue;
    int Rank;
    bool IsValue;
  };

  explicit FlatRule(const RulePieces& Pieces);

  std::vector<std::string> vsComments, vsSLWords, vsSLSents, vsSLPOS, vsWordLevelSLPOS;
  std::vector<std::string> vsSLPOSFromParse, vsTLPOSFromParse;
  std::vector<std::vector<std::string>> vvsWordLevelSLPOSs;
  std::vector<std::string> vsTLWords, vsTLSents, vsTLPOS, vsWordLevelTLPOS;
  std::vector<std::vector<std::string>> vvsWordLevelTLPOSs;
  std::string Alignments, WordLevelAlignments;
  std::vector<std::string> vsAllAlignments;
  std::string CStructure;
  std::vector<std::string> vsCStructures;
  std::string SLType, TLType;
  std::map<std::string, FlatConstraint> Constraints;
  int RuleIndex;
  std::string POS;
  std::set<int> CSet;
  std::map<int, int> SLMap;
  std::vector<std::map<int, int>> vmiiSLMaps;
  std::map<int, int> TLMap;
  std::vector<std::map<int, int>> vmiiTLMaps;
  int Counts[4] = {1, -1, -1, -1};
};
