#pragma once

#include "Finding.h"
#include "GrammarShapes.h"
#include "SuppliedValues.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Grammar {

/// Finds what is wrong with a grammar as a whole, though each of its rules is right:
///
/// - labels that no rule provides (TR050);
/// - rules that no start type leads to (TR051);
/// - equations that want a value which no rule supplies (TR052);
/// - unary rules that lead in a cycle (TR053).
///
/// @code
/// GrammarFindings Whole(Shapes);
/// Whole.AddUnprovidedLabels();
/// Whole.Take().front().Message;  // "no rule has the source type \"ADJ\""
/// @endcode
///
/// A grammar can be looked at without its lexicon, which provides most labels and values: what is
/// missing is a warning only where a lexicon is there, that is where some label is provided by
/// words alone. Otherwise it is a note.
class GrammarFindings {
 public:
  /// @param ShapesPassIn finished; gets paths that no rule has written; has to outlive this
  explicit GrammarFindings(GrammarShapes& ShapesPassIn);

  /// How grave it is that a label or a value is missing.
  Severity LevelOfLack() const { return HasLexicon ? Severity::Warning : Severity::Note; }

  void AddUnprovidedLabels();
  /// @param vsStarts the source types of whole texts
  void AddUnreachableRules(const std::vector<std::string>& vsStarts);
  void AddUnsuppliedValues();
  void AddUnaryCycles();

  /// All that was found, in the order of files, lines and columns. None has a suggestion.
  std::vector<Finding> Take();

 private:
  using Shape = GrammarShapes::Shape;

  Finding& Add(std::string_view Code, std::uint32_t Index, std::uint32_t Line, std::string Message);
  void SetOther(std::uint32_t Index, Finding& FindingReturn) const;
  std::string LackText(std::uint32_t Slot) const;
  std::vector<bool> ReachedTypes(const std::vector<std::string>& vsStarts) const;
  std::string SupplyText(const Shape& Which, const SuppliedValues::Supply& Current) const;

  GrammarShapes& Shapes;
  bool HasLexicon = false;
  std::vector<std::pair<std::uint32_t, Finding>> vFindings;  // with their files
};

}  // namespace Grammar
