#include "ComparedRule.h"

#include "Bytes.h"
#include "HeaderText.h"

namespace Grammar {

namespace {

std::string WithoutLineEnd(std::string Line) {
  if (!Line.empty() && Line.back() == '\n') {
    Line.pop_back();
  }
  return Line;
}

std::vector<std::string> NormalLabels(const std::vector<std::string_view>& vLabels) {
  std::vector<std::string> vsLabels;
  for (const std::string_view Label : vLabels) {
    RuleForm::AppendLabel(Label, vsLabels.emplace_back());
  }
  return vsLabels;
}

/// The lines of a text, each without its line end.
std::vector<std::string_view> LinesOf(std::string_view Text) {
  std::vector<std::string_view> vLines;
  while (!Text.empty()) {
    const std::size_t Size = Text.find('\n');
    vLines.push_back(Text.substr(0, Size));
    Text.remove_prefix(Size == std::string_view::npos ? Text.size() : Size + 1);
  }
  return vLines;
}

/// The lines between the parentheses of a block: the alignments, and then the constraints. Which
/// alignments stand after ";--;" is a matter of the labels.
void TakeBody(std::string_view Block, std::size_t Alignments, ComparedRule& RuleReturn) {
  constexpr std::string_view LexicalMark = ";--;";
  constexpr std::size_t LinesBefore = 2;
  const std::vector<std::string_view> vLines = LinesOf(Block);
  for (std::size_t At = LinesBefore; At + 1 < vLines.size(); ++At) {
    const std::string_view Line = vLines[At];
    if (At < LinesBefore + Alignments) {
      const bool IsMarked = StartsWith(Line, LexicalMark);
      RuleReturn.vsAlignments.emplace_back(Line.substr(IsMarked ? LexicalMark.size() : 0));
    } else {
      RuleReturn.vsConstraints.emplace_back(Line);
    }
  }
}

}  // namespace

ComparedRule ComparedRule::Of(const RuleRecord& RecordPassIn) {
  const RuleForm& Form = RecordPassIn.Form();
  ComparedRule Rule;
  Rule.vsComments = RecordPassIn.Comments();
  AppendHeader(RecordPassIn.Header(), Rule.Header);
  Rule.Header = WithoutLineEnd(std::move(Rule.Header));
  Rule.Types = {std::string(Form.SLType()), std::string(Form.TLType())};
  Rule.Labels = {NormalLabels(Form.SLLabels()), NormalLabels(Form.TLLabels())};
  TakeBody(RecordPassIn.Block(), Form.AlignmentCount(), Rule);
  return Rule;
}

std::optional<ComparedRule> ComparedRule::Of(std::string_view TextPassIn) {
  RuleText Text;
  RuleRecord Record;
  if (!ReadOnlyRule(std::string(TextPassIn), Text) || !Record.Read(Text)) {
    return std::nullopt;
  }
  return Of(Record);
}

namespace {

void AppendLine(std::string_view Line, std::string& TextReturn) {
  TextReturn.append(Line).append(1, '\n');
}

void AppendLines(const std::vector<std::string>& vsLines, std::string& TextReturn) {
  for (const std::string& sLine : vsLines) {
    AppendLine(sLine, TextReturn);
  }
}

void AppendSequence(const std::vector<std::string>& vsLabels, std::string& TextReturn) {
  TextReturn += '[';
  for (const std::string& sLabel : vsLabels) {
    TextReturn.append(TextReturn.back() == '[' ? "" : " ").append(sLabel);
  }
  TextReturn += ']';
}

}  // namespace

std::optional<std::string> ComparedRule::Text() const {
  std::string Draft;
  AppendLines(vsComments, Draft);
  if (!Header.empty()) {
    AppendLine(Header, Draft);
  }
  Draft.append(Types[Source]).append("::").append(Types[Target]).append(" ");
  AppendSequence(Labels[Source], Draft);
  Draft += " -> ";
  AppendSequence(Labels[Target], Draft);
  Draft += "\n(\n";
  AppendLines(vsAlignments, Draft);
  AppendLines(vsConstraints, Draft);
  Draft += ")\n";

  RuleText Read;
  RuleRecord Record;
  if (!ReadOnlyRule(std::move(Draft), Read) || !Record.Read(Read)) {
    return std::nullopt;
  }
  std::string Normal;
  Record.AppendLines(false, Normal);
  return Normal + '\n';
}

}  // namespace Grammar
