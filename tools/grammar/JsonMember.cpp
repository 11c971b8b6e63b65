#include "JsonMember.h"

#include "Bytes.h"
#include "JsonText.h"

namespace Grammar {

std::string_view ViewOf(const Json& Text) {
  return {Text.GetString(), Text.GetStringLength()};
}

std::string_view BytesOf(const Json& Text, std::string& ScratchReturn) {
  const std::string_view View = ViewOf(Text);
  if (!HasStandIns(View)) {
    return View;
  }
  ScratchReturn = ToBytes(View);
  return ScratchReturn;
}

JsonMember::JsonMember(const Json& ObjectPassIn, const char* NamePassIn)
    : Name(NamePassIn), Value(nullptr) {
  const auto Found = ObjectPassIn.FindMember(Name);
  if (Found != ObjectPassIn.MemberEnd()) {
    Value = &Found->value;
  }
}

void JsonMember::Expect(bool IsMet, const char* What) const {
  if (!IsMet) {
    throw JsonProblem(std::string(Name) + ": should be " + What);
  }
}

std::string_view JsonMember::OneLine(std::string_view Line) const {
  if (Contains(Line, "\n")) {
    throw JsonProblem(std::string(Name) + ": should not contain a line end");
  }
  return Line;
}

std::string JsonMember::AsText() const {
  Expect(IsMissing() || Value->IsString(), "a text");
  return IsMissing() ? std::string() : ToBytes(ViewOf(*Value));
}

std::string JsonMember::AsLine() const {
  std::string Line;
  AppendLine(Line);
  return Line;
}

void JsonMember::AppendLine(std::string& TextReturn) const {
  if (!IsMissing()) {
    std::string Scratch;
    Expect(Value->IsString(), "a text");
    TextReturn.append(OneLine(BytesOf(*Value, Scratch)));
  }
}

int JsonMember::AsNumber() const {
  Expect(!IsMissing() && Value->IsInt(), "a number");
  return Value->GetInt();
}

bool JsonMember::AsBool() const {
  Expect(!IsMissing() && Value->IsBool(), "true or false");
  return Value->GetBool();
}

std::vector<std::string> JsonMember::AsLines() const {
  std::vector<std::string> vsLines;
  vsLines.reserve(Size());
  ForEachLine([&](std::string_view Line) { vsLines.emplace_back(Line); });
  return vsLines;
}

const Json* JsonMember::Begin(const char* What) const {
  Expect(IsMissing() || Value->IsArray(), What);
  return IsMissing() ? nullptr : Value->Begin();
}

std::vector<const Json*> JsonMember::AsObjects() const {
  std::vector<const Json*> vObjects;
  vObjects.reserve(Size());
  for (const Json* Element = Begin("a list"); Element != End(); ++Element) {
    Expect(Element->IsObject(), "a list of objects");
    vObjects.push_back(Element);
  }
  return vObjects;
}

const Json* JsonMember::AsObject() const {
  if (IsMissing() || Value->IsNull()) {
    return nullptr;
  }
  Expect(Value->IsObject(), "an object or null");
  return Value;
}

}  // namespace Grammar
