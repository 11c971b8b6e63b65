#pragma once

#include "AtomSets.h"
#include "Hashing.h"
#include "SymbolTable.h"
#include "UsableRule.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Translate {

using Grammar::Equation;
using Grammar::EquationKind;
using Grammar::IndexTable;
using Grammar::NodePath;
using Grammar::Side;
using Grammar::SymbolTable;
using Grammar::UsableRule;

/// A path of a program: a node and a stretch of the program's features.
struct ProgramPath {
  std::uint32_t Node = 0;  ///< the index of a component, from 1; 0 for the rule's own node
  std::uint32_t FirstFeature = 0;
  std::uint32_t FeatureCount = 0;
};

/// The value at a path is one of a set of atoms.
struct ValueStep {
  ProgramPath Path;
  AtomSetId Atoms = 0;
};

/// The structures at two paths are one; in a transfer, the left one is the source side's.
struct LinkStep {
  ProgramPath Left;
  ProgramPath Right;
};

/// Where a node of a program gets its structure from.
struct ProgramNode {
  std::uint32_t Node = 0;   ///< the index of the component, from 1
  std::uint32_t Place = 0;  ///< of the source places, the how manieth, from 0
};

/// The kinds of steps, in the order of their lines.
enum class StepKind : std::uint8_t {
  AnalysisValue,
  AnalysisLink,
  Transfer,
  GenerationValue,
  GenerationLink
};

/// The equations of a rule, in the order in which they are unified. Rules whose equations say the
/// same have one program in common.
///
///   ((x1 num) = (x2 num))   an analysis link
///   ((x0 num) = (x1 num))   an analysis link
///   ((y1 num) = (x1 num))   a transfer
///   ((y1 gen) = masc)       a generation value
struct Program {
  std::vector<std::uint32_t> vFeatures;
  std::vector<ValueStep> vAnalysisValues;
  std::vector<LinkStep> vAnalysisLinks;
  std::vector<LinkStep> vTransfers;
  std::vector<ValueStep> vGenerationValues;
  std::vector<LinkStep> vGenerationLinks;
  std::uint32_t MaxX = 0;  ///< the greatest index of a source component
  std::uint32_t MaxY = 0;
  std::vector<ProgramNode> vSourceParts;  ///< the nodes that begin as a copy of a part's S
  std::vector<ProgramNode> vTargetParts;  ///< and of a part's T
};

/// Makes programs of equations.
///
/// @code
/// Grammar::UsableRule Rule;
/// ReadUsableRule(Text, false, Lines, Rule, vFindings);  // true
/// SymbolTable Features;
/// SymbolTable AtomNames;
/// AtomSets Atoms;
/// std::vector<std::uint32_t> vLines;
/// const Program Equations = ProgramCompiler(Features, AtomNames, Atoms).Compile(Rule, vLines);
/// Equations.vAnalysisLinks.front().Right.Node;  // 3
/// vLines;                                       // {5}
/// @endcode
class ProgramCompiler {
 public:
  ProgramCompiler(SymbolTable& FeaturesPassIn, SymbolTable& AtomNamesPassIn, AtomSets& AtomsPassIn)
      : Features(FeaturesPassIn), AtomNames(AtomNamesPassIn), Atoms(AtomsPassIn) {}

  /// Compiles the equations of a rule.
  /// @param vLinesReturn receives the line of each step in its file: of the steps of the analysis,
  /// the
  ///        transfer and the generation, each with values before links; of alternatives, the first
  Program Compile(const UsableRule& Rule, std::vector<std::uint32_t>& vLinesReturn);

 private:
  /// What is said of one path by values that are alternatives of each other.
  struct Alternatives {
    ProgramPath Path;
    Side OnSide;
    std::vector<std::uint32_t> vAtoms;
    std::uint32_t Line;
  };

  ProgramPath AddPath(const NodePath& Path, Program& ProgramReturn);
  void AddLink(const Equation& Current, Program& ProgramReturn);
  void AddValue(const Equation& Current, Program& ProgramReturn);
  void AddSet(Side OnSide, const ValueStep& Step, std::uint32_t Line, Program& ProgramReturn);
  void AddParts(const UsableRule& Rule, Program& ProgramReturn) const;
  std::vector<std::uint32_t> AtomsOf(const Equation& Current);
  std::vector<std::uint32_t>& LinesOf(StepKind Kind) {
    return vLines[static_cast<std::size_t>(Kind)];
  }

  SymbolTable& Features;
  SymbolTable& AtomNames;
  AtomSets& Atoms;
  std::vector<Alternatives> vAlternatives;
  IndexTable AlternativesIndex;          // by their paths
  std::vector<std::uint32_t> vLines[5];  // of the five kinds of steps
};

/// A text that is the same for two programs if and only if they are.
std::string KeyOf(const Program& Which);

}  // namespace Translate
