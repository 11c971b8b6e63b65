#include "RuleGroup.h"

#include "AlignmentShape.h"

namespace Grammar {

namespace {

std::string ShapeOf(const SourceRule& Rule) {
  AlignmentShape Shape;
  Shape.Read(Rule);
  return Shape.Text();
}

}  // namespace

void AppendGroup(const RuleRecord& RecordPassIn, GroupBy By, std::string& TextReturn) {
  const RuleForm& Rule = RecordPassIn.Form();
  switch (By) {
    case GroupBy::Type:
      TextReturn.append(Rule.SLType()).append("::").append(Rule.TLType());
      break;
    case GroupBy::Source:
      TextReturn.append(Rule.SLType());
      break;
    case GroupBy::Target:
      TextReturn.append(Rule.TLType());
      break;
    case GroupBy::Length:
      TextReturn.append(std::to_string(Rule.SLSize())).append("::");
      TextReturn.append(std::to_string(Rule.TLSize()));
      break;
    case GroupBy::Shape:
      TextReturn.append(ShapeOf(RecordPassIn.Lines()));
      break;
  }
}

}  // namespace Grammar
