#pragma once

#include <rapidjson/document.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

using Json = rapidjson::Value;

/// A line of JSON that cannot be read; the message begins with the name of the member, if any.
class JsonProblem : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A text of JSON unchanged there; see JsonText.h.
std::string_view ViewOf(const Json& Text);

/// The bytes that a text of JSON stands for.
/// @param ScratchReturn holds them where they differ from the text
std::string_view BytesOf(const Json& Text, std::string& ScratchReturn);

/// A member of an object, of which the first counts where it is given twice; or none, where it is
/// missing. Each operation throws `JsonProblem` where the member is of another kind.
///
/// @code
/// rapidjson::Document Object;
/// Object.Parse(R"({"count":3})");
/// JsonMember(Object, "count").AsNumber();   // 3
/// JsonMember(Object, "index").AsNumber(1);  // 1
/// @endcode
///
/// Texts are the bytes that they stand for. Those that stand on a line have no line end.
class JsonMember {
 public:
  /// @param ObjectPassIn has to outlive the member, as the name has to
  JsonMember(const Json& ObjectPassIn, const char* NamePassIn);

  bool IsMissing() const { return Value == nullptr; }

  std::string AsText() const;

  std::string AsLine() const;

  /// Appends a text that stands on a line; nothing if it is missing.
  void AppendLine(std::string& TextReturn) const;

  int AsNumber() const;
  int AsNumber(int Default) const { return IsMissing() ? Default : AsNumber(); }

  bool AsBool() const;

  /// Passes each text of a list of lines to a function; the view ends with the call.
  template <typename TakeT>
  void ForEachLine(TakeT Take) const {
    std::string Scratch;
    for (const Json* Element = Begin("a list of texts"); Element != End(); ++Element) {
      Expect(Element->IsString(), "a list of texts");
      Take(OneLine(BytesOf(*Element, Scratch)));
    }
  }

  std::vector<std::string> AsLines() const;

  /// A list of objects, by their addresses.
  std::vector<const Json*> AsObjects() const;

  /// The object; null if there is none.
  const Json* AsObject() const;

 private:
  void Expect(bool IsMet, const char* What) const;
  std::string_view OneLine(std::string_view Line) const;
  /// The size of a list; 0 of all else.
  std::size_t Size() const { return IsMissing() || !Value->IsArray() ? 0 : Value->Size(); }
  const Json* Begin(const char* What) const;
  const Json* End() const { return IsMissing() ? nullptr : Value->End(); }

  const char* Name;
  const Json* Value;
};

}  // namespace Grammar
