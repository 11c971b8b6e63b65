#pragma once

#include <rapidjson/document.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace Grammar {

/// Compares a value with the events of another one, which are passed to it in place of a writer:
/// whether both have the same members in the same order.
///
/// @code
/// rapidjson::Document Object;
/// Object.Parse("{}");
/// JsonMatcher Matcher(Object);
/// JsonEvents(Matcher).EmitRule(Record);
/// Matcher.IsSame();  // false
/// @endcode
class JsonMatcher {
 public:
  explicit JsonMatcher(const rapidjson::Value& RootPassIn) : Root(RootPassIn) {}

  /// Whether all events were those of the value. To be asked at the end.
  bool IsSame() const { return Matches; }

  void Null() {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsNull();
  }

  void Bool(bool Expected) {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsBool() && Value->GetBool() == Expected;
  }

  void Int(int Expected) {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsInt() && Value->GetInt() == Expected;
  }

  /// A text, or the name of a member.
  void String(const char* Expected, unsigned Size) {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsString() &&
              std::string_view(Value->GetString(), Value->GetStringLength()) ==
                  std::string_view(Expected, Size);
  }

  void StartObject() {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsObject() && Open(*Value);
  }

  void StartArray() {
    const rapidjson::Value* const Value = Next();
    Matches = Value != nullptr && Value->IsArray() && Open(*Value);
  }

  void EndObject() { Close(); }
  void EndArray() { Close(); }

 private:
  /// An object or a list that has begun and not ended.
  struct Level {
    const rapidjson::Value* Whole;
    unsigned Place;  ///< of its next member or element
    bool IsAtName;   ///< whether the name of that member comes next
  };

  /// The next value or name; null if there is none, or where something differed before.
  const rapidjson::Value* Next() {
    if (!Matches || Depth == 0) {
      return Matches ? &Root : nullptr;
    }
    Level& Top = Levels[Depth - 1];
    if (Top.Whole->IsArray()) {
      return Top.Place < Top.Whole->Size() ? Top.Whole->Begin() + Top.Place++ : nullptr;
    }
    if (Top.Place == Top.Whole->MemberCount()) {
      return nullptr;
    }
    const rapidjson::Value::Member& Member = *(Top.Whole->MemberBegin() + Top.Place);
    Top.Place += Top.IsAtName ? 0 : 1;
    Top.IsAtName = !Top.IsAtName;
    return Top.IsAtName ? &Member.value : &Member.name;
  }

  /// @return whether a rule has as many levels
  bool Open(const rapidjson::Value& Whole) {
    if (Depth == Levels.size()) {
      return false;
    }
    Levels[Depth++] = {&Whole, 0, true};
    return true;
  }

  void Close() {
    if (Matches) {
      const Level& Top = Levels[--Depth];
      Matches = Top.Place == (Top.Whole->IsArray() ? Top.Whole->Size() : Top.Whole->MemberCount());
    }
  }

  const rapidjson::Value& Root;
  std::array<Level, 4> Levels{};  // the object, its constraints, one of them, its lines
  std::size_t Depth = 0;
  bool Matches = true;
};

}  // namespace Grammar
