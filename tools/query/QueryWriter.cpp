// Sections: items, conditions, connections.

#include "QueryWriter.h"

#include "QueryText.h"

#include <variant>

namespace Query {

// ---- Items ------------------------------------------------------------------------------------

namespace {

/// name { "|" name }, "?" or "*"
void AppendItem(const PatternItem& Item, std::string& TextReturn) {
  if (Item.What != PatternItem::Kind::Names) {
    TextReturn += Item.What == PatternItem::Kind::Run ? '*' : '?';
  }
  const char* Between = "";
  for (const Name& Current : Item.vNames) {
    TextReturn += Between;
    (Current.IsLiteral ? AppendLiteral : AppendWord)(Current.Text, TextReturn);
    Between = "|";
  }
}

/// A value must not look like a node.
void AppendValue(const PatternItem& Item, std::string& TextReturn) {
  const bool IsWord = !Item.vNames.empty() && !Item.vNames.front().IsLiteral;
  const char First = IsWord ? Item.vNames.front().Text.front() : '\0';
  const bool MayBeNode = First == 'x' || First == 'X' || First == 'y' || First == 'Y';
  TextReturn += MayBeNode ? "\\" : "";
  AppendItem(Item, TextReturn);
}

void AppendFeature(const FeaturePattern& Feature, std::string& TextReturn) {
  const char* Between = "";
  for (const PatternItem& Item : Feature.vItems) {
    TextReturn += Between;
    AppendItem(Item, TextReturn);
    Between = ":";
  }
}

void AppendPath(const PathPattern& Path, std::string& TextReturn) {
  TextReturn += !Path.Side ? '*' : *Path.Side == 'X' ? 'x' : 'y';
  TextReturn += Path.Index ? std::to_string(*Path.Index) : "";
  TextReturn += Path.Features.vItems.empty() ? "" : ":";
  AppendFeature(Path.Features, TextReturn);
}

}  // namespace

// ---- Conditions -------------------------------------------------------------------------------

namespace {

struct ConditionWriter {
  std::string& Text;

  void operator()(const SequenceCondition& Current) const {
    Text += !Current.OnSide ? "" : *Current.OnSide == Side::Source ? "source " : "target ";
    const char* Between = "[";
    for (const PatternItem& Item : Current.Pattern.vItems) {
      Text += Between;
      Text += Between[0] == '[' && Current.Pattern.IsFromStart ? "^ " : "";
      AppendItem(Item, Text);
      Between = " ";
    }
    Text += !Current.Pattern.vItems.empty() ? "" : Current.Pattern.IsFromStart ? "[^" : "[";
    Text += Current.Pattern.IsToEnd ? " $]" : "]";
  }

  void operator()(const TypeCondition& Current) const {
    AppendType(Current.SLType);
    Text += "::";
    AppendType(Current.TLType);
  }

  void operator()(Grammar::ShapeTrait Current) const { Text += Grammar::NameOf(Current); }

  void operator()(const ConstraintPattern& Current) const {
    AppendPath(Current.Left, Text);
    Text += " =";
    switch (Current.Kind) {
      case ConstraintPattern::Right::Anything:
        Text += " *";
        return;
      case ConstraintPattern::Right::Path:
        Text += ' ';
        AppendPath(Current.RightPath, Text);
        return;
      case ConstraintPattern::Right::Value:
        break;
      case ConstraintPattern::Right::Or:
        Text += " *or*";
        break;
      case ConstraintPattern::Right::Not:
        Text += " *not*";
        break;
    }
    for (const PatternItem& Item : Current.vValues) {
      Text += ' ';
      AppendValue(Item, Text);
    }
  }

  void operator()(const PassCondition& Current) const {
    Text += "passes ";
    AppendFeature(Current.Features, Text);
  }

  void operator()(const NumberCondition& Current) const {
    static constexpr const char* Measures[] = {
        "count",      "components",  "source components", "target components",
        "alignments", "constraints", "comments"};
    static constexpr const char* Comparisons[] = {" = ", " != ", " < ", " <= ", " > ", " >= "};
    Text += Measures[static_cast<std::size_t>(Current.What)];
    Text += Comparisons[static_cast<std::size_t>(Current.How)];
    Text += std::to_string(Current.Number);
  }

  void operator()(const TextCondition& Current) const {
    Text += Current.IsOfComments ? "comment " : "line ";
    if (Current.Pattern.Expression == nullptr) {
      AppendLiteral(Current.Pattern.Text, Text);
    } else {
      Text += '/' + Current.Pattern.Text + (Current.Pattern.IgnoresCase ? "/i" : "/");
    }
  }

 private:
  void AppendType(const PatternItem& Type) const {
    Text += Type.vNames.empty() ? "*" : "";
    if (!Type.vNames.empty()) {
      AppendItem(Type, Text);
    }
  }
};

}  // namespace

// ---- Connections ------------------------------------------------------------------------------

namespace {

/// Whether a part would be read otherwise without parentheses of its own.
bool NeedsParentheses(QueryNode::Kind Part, QueryNode::Kind Whole) {
  return Part == QueryNode::Kind::Or ||
         (Part == QueryNode::Kind::And && Whole != QueryNode::Kind::Or);
}

void AppendPart(const QueryNode& Part, QueryNode::Kind Whole, std::string& TextReturn) {
  const bool NeedsThem = NeedsParentheses(Part.What, Whole);
  TextReturn += NeedsThem ? "(" : "";
  AppendQuery(Part, TextReturn);
  TextReturn += NeedsThem ? ")" : "";
}

}  // namespace

void AppendQuery(const QueryNode& TreePassIn, std::string& TextReturn) {
  if (TreePassIn.What == QueryNode::Kind::Own) {
    std::visit(ConditionWriter{TextReturn}, TreePassIn.Own);
    return;
  }
  const bool IsNot = TreePassIn.What == QueryNode::Kind::Not;
  TextReturn += IsNot ? "not " : "";
  const char* Between = "";
  for (const QueryNode& Part : TreePassIn.vParts) {
    TextReturn += Between;
    AppendPart(Part, TreePassIn.What, TextReturn);
    Between = TreePassIn.What == QueryNode::Kind::And ? " and " : " or ";
  }
}

}  // namespace Query
