#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <unordered_set>
#include <vector>

namespace Grammar {

/// The examples in the comments of a rule, and which of them each comment belongs to: a line
/// ";;SL:" with the lines ";;TL:" and ";;C-Structure:" that belong to it; a label that comes again
/// begins the next one.
struct ExampleLines {
  static constexpr std::size_t NoExample = std::numeric_limits<std::size_t>::max();

  explicit ExampleLines(const std::vector<std::string>& vsComments);

  std::vector<std::string> vsTexts;     ///< of each example, its lines with their ends
  std::vector<std::size_t> vExampleOf;  ///< of each comment, the number of its example, from 0
};

/// Puts together the comments of rules that say the same.
///
/// An example is what its labels make it. The first rule
/// keeps its comments unchanged. Of each further rule, the examples and the other comments are
/// added that are not there yet. Counts (";;Score:") are left to who adds them.
///
/// @code
/// CommentMerger Merger;
/// Merger.Add({";;SL: the car", ";; first"});
/// Merger.Add({";;SL: the bus", ";; first"});
/// Merger.Comments();  // {";;SL: the car", ";; first", ";;SL: the bus"}
/// @endcode
class CommentMerger {
 public:
  explicit CommentMerger(std::size_t MaxExamplesPassIn = std::numeric_limits<std::size_t>::max())
      : MaxExamples(MaxExamplesPassIn) {}

  /// Adds the comments of the next rule.
  void Add(const std::vector<std::string>& vsComments);

  const std::vector<std::string>& Comments() const { return vsMerged; }

 private:
  bool IsKept(const std::string& Text, bool IsExample);

  std::size_t MaxExamples;
  std::size_t Examples = 0;
  bool IsFirst = true;
  std::unordered_set<std::string> ssSeen;
  std::vector<std::string> vsMerged;
};

}  // namespace Grammar
