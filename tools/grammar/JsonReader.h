#pragma once

#include "RuleRecord.h"
#include "RuleText.h"

#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// What one line of JSON stands for.
struct RuleFromJson {
  bool IsRead = false;  ///< whether the line is such an object
  bool IsRule = false;  ///< a rule, and not another text
  std::string Text;

  /// Where the line was not read, one text that says why. Otherwise each of them names a member
  /// that a grammar cannot hold as it is given.
  std::vector<std::string> vsProblems;
};

/// Turns objects back into the texts that they stand for.
///
/// @code
/// JsonReader Reader;
/// Reader.Read(R"({"text":"; a comment\n"})").Text;  // "; a comment\n"
/// @endcode
///
/// A rule comes out in the normal form. Members that are missing are those of a new rule. Words,
/// structure and count that the comments do not say are written into them, and a constraint whose
/// lines say something else than its other members is written by these.
class JsonReader {
 public:
  /// Reads one line. What it gives depends on that line alone; it prints nothing and ends nothing.
  /// n log n.
  RuleFromJson Read(std::string_view Line);

 private:
  bool ReadUnchanged(std::string_view Line);

  // Their storage is used again by the next line.
  RuleText Lines;
  RuleRecord Record;
  std::string Written;
};

}  // namespace Grammar
