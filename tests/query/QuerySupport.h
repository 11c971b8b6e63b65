#pragma once

#include "GrammarSupport.h"
#include "QueryParser.h"
#include "QueryWriter.h"
#include "RuleQuery.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// What tests of queries share.

/// The first rule of a text, with the text that it was read from.
class ReadRuleText {
 public:
  explicit ReadRuleText(const std::string& Text) : vRules(RulesOf(Text)) {
    Lines.Read(vRules.at(0));
  }
  const Grammar::SourceRule& Rule() const { return Lines; }

 private:
  std::vector<Grammar::RuleText> vRules;
  Grammar::SourceRule Lines;
};

/// A query that has to be one.
inline Query::QueryNode TreeOf(const std::string& Text) {
  Query::QueryNode Tree;
  Query::QueryFault Fault;
  EXPECT_TRUE(Query::ParseQuery(Text, Tree, Fault)) << Query::ShownFault(Text, Fault);
  return Tree;
}

/// A query, parsed and written again.
inline std::string Rewritten(const std::string& Text) {
  std::string Written;
  Query::AppendQuery(TreeOf(Text), Written);
  return Written;
}
