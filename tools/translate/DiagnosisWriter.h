#pragma once

#include "RuleDescription.h"
#include "RuleDiagnosis.h"
#include "StructureText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

/// What both forms of a diagnosis have in common: names for what the facts have numbers for.
class DiagnosisNames {
 public:
  DiagnosisNames(RuleDiagnosis& WhyPassIn, const RuleDescription& RulePassIn)
      : Why(WhyPassIn),
        Rules(WhyPassIn.Grammar()),
        Rule(RulePassIn),
        Structures(WhyPassIn.Grammar(), WhyPassIn.Trace().Structures(), WhyPassIn.Trace().Atoms()) {
  }

  /// "(x1 NUM)", "y0"; the letters as they are written, also where the sides are exchanged.
  std::string PathName(const RulePath& Path) const;
  /// "x1", as it is written.
  std::string NodeName(Side OnSide, std::size_t Node) const;
  /// Tokens between blanks.
  std::string Words(std::size_t Start, std::size_t End) const;
  /// "N::N".
  std::string TypesName(std::uint32_t Types) const;
  /// "g.trr:5".
  std::string PlaceOf(std::uint32_t RuleIndex) const;
  /// "NP,8", or the place where there is no header.
  std::string NameOf(std::uint32_t RuleIndex) const;
  /// The equation of a line, as the rule has it.
  const RuleDescription::Equation& EquationAt(std::size_t Line) const {
    return Rule.Equations.at(Line);
  }

 protected:
  RuleDiagnosis& Why;
  const RuleSet& Rules;
  const RuleDescription& Rule;
  StructureText Structures;
};

/// A line about one begin, and the fact that it states. A line that only counts has none.
struct DiagnosisLine {
  std::string Text;
  const Stop* Stopped = nullptr;
  const ClashFacts* Clash = nullptr;
  const MadeFacts* Made = nullptr;
  const Combination* Chain = nullptr;  ///< nothing is made of it
};

/// A value of a clash, at its node.
struct ClashValue {
  Side OnSide = Side::X;
  std::size_t Node = 0;  ///< 0 for the constituent itself
  std::string Text;      ///< "NUM: PL from words.trr:30", or "wanted: SG" for one that is stated
};

/// Writes what a rule does with a text, and why it does no more, as one would say it.
///
///   NP,4 fits x1–x2 at "red car"; it fails at ((x1 num) = (x2 num)), line 12: x1 has PL from
///   words.trr:30, x2 has SG from words.trr:44
///
/// @code
/// const TextResult Result = Engine.Translate("the red bus", TextOptions());
/// RuleDiagnosis Why(Rules, Engine, Result, TextOptions());
/// RuleDescription Phrase = DescribeRule(Lines, nullptr);
/// Phrase.Index = 2;
/// const BeginFacts Facts = Why.FactsAt(2, 0);
/// DiagnosisText(Why, Phrase).Lines(Facts).front().Stopped->Component;  // 3
/// @endcode
class DiagnosisText : public DiagnosisNames {
 public:
  using DiagnosisNames::DiagnosisNames;

  /// Lines about one begin, without line ends. They point into the facts.
  std::vector<DiagnosisLine> Lines(const BeginFacts& Facts);

  /// Appends these lines.
  void Append(const BeginFacts& Facts, std::string& TextReturn);

  /// "((x1 num) = (x2 num)), line 12".
  std::string EquationText(const EquationClash& Clash) const;

  /// The values that clash, two for each conflict.
  std::vector<ClashValue> ValuesOf(const EquationClash& Clash);

  /// "x2 wants N, and the text ends there".
  std::string StopReason(const Stop& Which) const;

  /// The cause that lies furthest in the rule: of all begins the one where most components are met,
  /// of equal ones where something is made, then the one that reaches furthest in the text, then
  /// the first. One line, without its end.
  std::string FurthestCause();

 private:
  std::string StopText(const Stop& Which, std::size_t Begin) const;
  std::string PlaceText(const StopPlace& Which) const;
  std::string WantedText(SourceSymbol Wanted) const;
  std::string FitText(const Combination& Way, std::size_t Begin) const;
  std::string PartsText(const Combination& Way) const;
  std::string FailureText(const ClashFacts& Which, std::size_t Begin, bool IsOnly);
  std::string ClashText(const EquationClash& Clash);
  std::string ConflictText(const Conflict& Which, bool IsTransfer);
  std::string ValueText(StructureId Value);
  std::string MadeText(const MadeFacts& Made, std::size_t Begin);
  std::string MissingText(const MissingAbove& Missing) const;
  std::string TakerText(const Taker& Which) const;
  std::string ChainText(const Combination& Way, std::size_t Begin, bool IsUsed) const;
  std::string ValueAt(const RulePath& Path, StructureId Value);
};

/// Writes the same as one JSON object.
class DiagnosisJson : public DiagnosisNames {
 public:
  using DiagnosisNames::DiagnosisNames;

  /// Appends an object, without a line end.
  void Append(const BeginFacts& Facts, std::string& TextReturn);

 private:
  void AppendStop(const Stop& Which);
  void AppendWanted(SourceSymbol Wanted);
  void AppendTypes(std::uint32_t Types);
  void AppendWay(const Combination& Way, std::size_t Begin);
  void AppendEquation(const EquationClash& Clash);
  void AppendValue(const RulePath* Path, StructureId Value);
  void AppendMade(const MadeFacts& Made, std::size_t Begin);
  void AppendMissing(const MissingAbove& Missing);
  void AppendTaker(const Taker& Which);
  void AppendMore(std::string_view Name, const std::optional<std::uint64_t>& More);
  template <typename ElementT, typename AppendT>
  void AppendList(const std::vector<ElementT>& vElements, AppendT AppendEach);
  void AppendSpan(std::size_t Start, std::size_t End);

  std::string* Out = nullptr;
};

/// The beginning of all objects about a rule: {"rule":"g.trr:5","header":"NP,8"
void AppendRuleName(const RuleDescription& Rule, std::string& JsonReturn);

}  // namespace Translate
