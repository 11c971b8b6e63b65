#include "JsonDiffWriter.h"

#include "JsonText.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string_view>
#include <vector>

namespace Grammar {

namespace {

using Json = nlohmann::ordered_json;

std::string_view ReasonName(MatchReason Reason) {
  switch (Reason) {
    case MatchReason::Same:
      return "same";
    case MatchReason::Header:
      return "header";
    case MatchReason::Meaning:
      return "meaning";
    default:
      return "nearest";
  }
}

Json Side(std::uint64_t Line, const std::string& Text) {
  return Line == 0 ? Json(nullptr) : Json{{"line", Line}, {"text", ToUnicode(Text)}};
}

Json Texts(const std::vector<std::string>& vsTexts) {
  Json Array = Json::array();
  for (const std::string& sText : vsTexts) {
    Array.push_back(ToUnicode(sText));
  }
  return Array;
}

Json ChangeOf(const PartChange& Change) {
  Json Object;
  Object["part"] = NameOf(Change.Kind);
  const bool IsComponent =
      Change.Kind == PartKind::SourceComponent || Change.Kind == PartKind::TargetComponent;
  if (IsComponent) {
    Object["component"] = Change.Place;
  }
  if (!Change.Name.empty()) {
    Object["name"] = ToUnicode(Change.Name);
  }
  Object["old"] = Texts(Change.vsOld);
  Object["new"] = Texts(Change.vsNew);
  Object["words"] = ToUnicode(Describe(Change));
  return Object;
}

}  // namespace

void JsonDiffWriter::Append(const DiffHunk& HunkPassIn, std::string& TextReturn) {
  Json Object;
  Object["kind"] = NameOf(HunkPassIn.Kind);
  if (HunkPassIn.Reason != MatchReason::None) {
    Object["match"] = ReasonName(HunkPassIn.Reason);
  }
  if (HunkPassIn.Reason == MatchReason::Nearest) {
    Object["likeness"] = HunkPassIn.Score;
  }
  Object["moved"] = HunkPassIn.IsMoved;
  Object["old"] = Side(HunkPassIn.OldLine, HunkPassIn.OldText);
  Object["new"] = Side(HunkPassIn.NewLine, HunkPassIn.NewText);
  Object["changes"] = Json::array();
  for (const PartChange& Change : HunkPassIn.vChanges) {
    Object["changes"].push_back(ChangeOf(Change));
  }
  TextReturn += Object.dump() + '\n';
}

void JsonDiffWriter::AppendEnd(std::string& /*TextReturn*/) {}

}  // namespace Grammar
