#pragma once

#include "Finding.h"
#include "NormalForm.h"
#include "RuleChecker.h"
#include "RuleReader.h"
#include "RuleRecord.h"

#include <TrRule.h>
#include <sstream>
#include <string>
#include <vector>

/// What tests of grammars share: texts in, texts out.

/// The rules of a text, as the reader cuts it.
inline std::vector<Grammar::RuleText> RulesOf(const std::string& Text) {
  std::istringstream Stream(Text);
  Grammar::RuleReader Reader(Stream, "a.trr");
  std::vector<Grammar::RuleText> vRules;
  for (Grammar::RuleText Rule; Reader.Next(Rule);) {
    vRules.push_back(Rule);
  }
  return vRules;
}

/// A finding as "line:column+length code", and "?" where there is something to write instead.
inline std::string PlaceOf(const Grammar::Finding& Found) {
  return std::to_string(Found.Line) + ':' + std::to_string(Found.Column) + '+' +
         std::to_string(Found.Length) + ' ' + Found.Code + (Found.Suggestion.empty() ? "" : "?");
}

inline std::vector<std::string> PlacesOf(const std::vector<Grammar::Finding>& vFindings) {
  std::vector<std::string> vsPlaces;
  for (const Grammar::Finding& Found : vFindings) {
    vsPlaces.push_back(PlaceOf(Found));
  }
  return vsPlaces;
}

/// What is found in the rules of a text, each for itself.
inline std::vector<Grammar::Finding> FindingsIn(const std::string& Text) {
  std::vector<Grammar::Finding> vFindings;
  Grammar::RuleRecord Record;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    Grammar::CheckRule(Rule, Record, vFindings);
  }
  return vFindings;
}

/// A record with the text that it was read from.
class OwnedRecord : public Grammar::RuleRecord {
 public:
  /// Reads the first rule of a text.
  bool ReadFirst(const std::string& Text, std::vector<Grammar::Finding>& vFindingsReturn) {
    OwnText = RulesOf(Text).at(0);
    return ReadRule(OwnText, *this, vFindingsReturn);
  }

  /// A copy of what the library makes of the rule.
  TrRule Rule() const {
    TrRule Record;
    Load(Record);
    return Record;
  }

 private:
  Grammar::RuleText OwnText;
};

/// The normal form of the rules that can be read.
inline std::string NormalFormOf(const std::string& Text,
                                const Grammar::FormOptions& Options = Grammar::FormOptions()) {
  std::string Written;
  Grammar::RuleRecord Record;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    if (Record.Read(Rule)) {
      AppendNormalForm(Record, Options, Written);
    }
  }
  return Written;
}
