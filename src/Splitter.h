#pragma once

#include "Ascii.h"

#include <optional>
#include <string_view>

/// @file
/// Splitting a text at a delimiter string without copying it.
///
/// Empty fields are skipped, and an empty delimiter does not split.
/// @code
///   Splitter Fields("::a::::b::", "::");
///   std::string_view Field;
///   Fields.Next(Field);              // true
///   Field;                           // "a"
///   SplitInTwo("x0 = x3", "=")->Second;  // " x3"
/// @endcode

namespace TrRuleInternal {

/// Returns the fields of a text one at a time. The fields are views of the text, which must outlive
/// the splitter.
class Splitter {
 public:
  /// How many bytes after a delimiter are kept; each split drops the rest.
  static constexpr std::size_t MaxRest = 100000;

  constexpr Splitter(std::string_view TextPassIn, std::string_view DelimiterPassIn)
      : Rest(TextPassIn), Delimiter(DelimiterPassIn) {}

  /// Stores the next field in `FieldReturn`; false when there is none. Linear in the field.
  constexpr bool Next(std::string_view& FieldReturn) {
    while (!Rest.empty()) {
      FieldReturn = TakeField();
      if (!FieldReturn.empty()) {
        return true;
      }
    }
    return false;
  }

 private:
  constexpr std::string_view TakeField() {
    const std::size_t End = Find(Rest, Delimiter);
    const std::string_view Field = Rest.substr(0, End);
    Rest = End == std::string_view::npos ? std::string_view()
                                         : Rest.substr(End + Delimiter.size(), MaxRest);
    return Field;
  }

  std::string_view Rest;
  std::string_view Delimiter;
};

/// A field without leading and trailing white space, possibly empty. A field that begins with
/// white space is cut to a million bytes.
constexpr std::string_view TrimmedField(std::string_view Field) {
  constexpr std::size_t MaxTrimmed = 1000000;
  return WithoutTrailingSpace(WithoutLeadingSpace(Field, MaxTrimmed));
}

/// The two fields of a text that has exactly two.
struct FieldPair {
  std::string_view First;
  std::string_view Second;
};

/// Splits `Text` at `Delimiter`; nothing unless there are exactly two fields.
constexpr std::optional<FieldPair> SplitInTwo(std::string_view Text, std::string_view Delimiter) {
  Splitter Fields(Text, Delimiter);
  FieldPair Pair;
  std::string_view Third;
  if (!Fields.Next(Pair.First) || !Fields.Next(Pair.Second) || Fields.Next(Third)) {
    return std::nullopt;
  }
  return Pair;
}

/// As `SplitInTwo`, with both fields trimmed. A field of white space alone counts and becomes
/// empty.
constexpr std::optional<FieldPair> SplitInTwoTrimmed(std::string_view Text,
                                                     std::string_view Delimiter) {
  std::optional<FieldPair> Pair = SplitInTwo(Text, Delimiter);
  if (Pair) {
    Pair->First = TrimmedField(Pair->First);
    Pair->Second = TrimmedField(Pair->Second);
  }
  return Pair;
}

}  // namespace TrRuleInternal
