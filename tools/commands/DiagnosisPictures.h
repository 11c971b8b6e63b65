#pragma once

#include "DerivationTrees.h"
#include "DiagnosisWriter.h"
#include "Drawing.h"
#include "RuleDescription.h"
#include "RuleDiagnosis.h"
#include "StructureText.h"
#include "TreeLayout.h"

#include <cstddef>
#include <string>

namespace Translate {

/// Writes what a rule does with a text as part of a page: each line as `DiagnosisText` has it, and
/// below it a picture. The node that fails has a double frame, and with it the reason: the
/// equation, and at their nodes the two values and the places they come from.
class DiagnosisPictures {
 public:
  /// @param RulePassIn has an index
  DiagnosisPictures(RuleDiagnosis& WhyPassIn, const RuleDescription& RulePassIn);

  /// Appends what there is to say about one begin.
  void Append(const BeginFacts& Facts, std::string& PageReturn);

 private:
  bool ReadTrees(const DiagnosisLine& Line, std::size_t Begin);
  bool ReadWay(const Combination& Way, const StructurePair& Made, std::size_t Begin);
  void MarkStop(const Stop& Which);
  void MarkClash(const EquationClash& Clash);
  void AddNote(std::size_t Side, std::size_t Node, const std::string& Note);
  void AppendTrees(const DiagnosisLine& Line, std::size_t Begin, std::string& PageReturn);

  RuleDiagnosis& Why;
  const RuleDescription& Rule;
  DiagnosisText Words;
  StructureText Structures;
  DerivationTrees Trees;
  Picture::TreeLayout Layout;
  Picture::Drawing Shapes;
};

}  // namespace Translate
