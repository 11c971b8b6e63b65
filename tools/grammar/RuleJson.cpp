#include "RuleJson.h"

#include "JsonEvents.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>

namespace Grammar {

namespace {

using Buffer = rapidjson::StringBuffer;
using Writer = rapidjson::Writer<Buffer>;

void AppendLine(const Buffer& Object, std::string& TextReturn) {
  TextReturn.append(Object.GetString(), Object.GetSize()).append(1, '\n');
}

}  // namespace

void AppendJson(const RuleRecord& Record, std::string& TextReturn) {
  constexpr std::size_t TypicalSize = 4096;
  Buffer Object(nullptr, TypicalSize);
  Writer Output(Object);
  JsonEvents(Output).EmitRule(Record);
  AppendLine(Object, TextReturn);
}

void AppendJsonOfText(std::string_view Text, std::string& TextReturn) {
  Buffer Object;
  Writer Output(Object);
  JsonEvents(Output).EmitText(Text);
  AppendLine(Object, TextReturn);
}

}  // namespace Grammar
