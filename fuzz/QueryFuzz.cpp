// A query and a text of rules, separated by a line "====": what is a query means the same when it
// is written and parsed again, and what is none has a place and a reason.

#include "FuzzSupport.h"
#include "GroupKeys.h"
#include "QueryParser.h"
#include "QueryWriter.h"
#include "RuleQuery.h"
#include "RuleReader.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using Query::QueryFault;
using Query::QueryNode;

constexpr const char* Separator = "\n====\n";

constexpr const char* SomeRules =
    ";;SL: the red car\n{NP,8}\nNP::NP : [\"the\" ADJ N] -> [\"el\" N ADJ]\n(X2::Y3)\n(X3::Y2)\n"
    "((y2 agr gen) = (x3 gen))\n((x2 num) = (*OR* sg pl))\n((y3 def) = (*NOT* -))\n(x0 = x3)\n";

void RequireFault(const std::string& Text, const QueryFault& Fault) {
  Require(Fault.Place <= Text.size(), "the place is in the query");
  Require(!Fault.Message.empty(), "there is a reason");
  const std::string Shown = ShownFault(Text, Fault);
  Require(Shown.size() >= 2 && Shown.compare(Shown.size() - 2, 2, "^\n") == 0,
          "the place is shown");
}

QueryNode Reparsed(const QueryNode& Tree) {
  std::string Written;
  AppendQuery(Tree, Written);
  QueryNode Again;
  QueryFault Fault;
  Require(ParseQuery(Written, Again, Fault), "what is written is a query");
  std::string WrittenAgain;
  AppendQuery(Again, WrittenAgain);
  Require(Written == WrittenAgain, "what is written is written again");
  return Again;
}

void RequireSameAnswers(const QueryNode& Tree, const QueryNode& Again, const std::string& Rules) {
  Grammar::RuleReader Reader(Rules);
  Grammar::SourceRule Lines;
  for (Grammar::RuleText Text; Reader.Next(Text);) {
    Lines.Read(Text);
    if (Lines.IsWhole()) {
      Require(Fits(Tree, Lines) == Fits(Again, Lines), "both queries ask for the same rules");
      Require(GroupKeys(Lines, Query::GroupBy::Shape).size() == 1, "a rule has one shape");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string All(Data, Data + Size);
  const std::size_t Cut = All.find(Separator);
  const std::string Text = All.substr(0, Cut);
  QueryNode Tree;
  QueryFault Fault;
  if (!ParseQuery(Text, Tree, Fault)) {
    RequireFault(Text, Fault);
    return 0;
  }
  RequireSameAnswers(
      Tree, Reparsed(Tree),
      Cut == std::string::npos ? SomeRules : All.substr(Cut + std::string(Separator).size()));
  return 0;
}
