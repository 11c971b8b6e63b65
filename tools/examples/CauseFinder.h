#pragma once

#include "ExampleParse.h"
#include "RuleDiagnosis.h"
#include "TestedGrammar.h"
#include "Translator.h"

#include <optional>
#include <string>

namespace Examples {

/// Finds out why no derivation has an example's rule at its root. It parses the text once more, so
/// it is asked about examples that fail alone.
///
/// @code
/// const ParseOptions Options;
/// CauseFinder Causes(Tested, Options);
/// Example Wrong = Tested.AllExamples().front();
/// Wrong.Source = "a cars";
/// Causes.CauseOf(Wrong) ==
///     "NP,1 fits x1–x2 at \"a cars\"; it fails at ((x1 num) = (x2 num)), line 8: x1 has SG from "
///     "np.trr:11, x2 has PL from np.trr:17";  // true
/// @endcode
class CauseFinder {
 public:
  CauseFinder(const TestedGrammar& TestedPassIn, const ParseOptions& OptionsPassIn)
      : Tested(TestedPassIn), Options(OptionsPassIn), Engine(TestedPassIn.Rules()) {}

  CauseFinder(const CauseFinder&) = delete;
  CauseFinder& operator=(const CauseFinder&) = delete;

  /// The cause in one line, without its end: the furthest one of the rule, the finding of a rule
  /// that was left out, or how far all rules together come with a pair of a file.
  std::string CauseOf(const Example& Given);

 private:
  Translate::TextOptions TextOptionsOf(const Example& Given) const;
  std::string CauseOfPair(const Translate::TextResult& Result, Translate::RuleDiagnosis& Why);
  std::optional<std::string> WholeClash(Translate::RuleDiagnosis& Why) const;

  const TestedGrammar& Tested;
  const ParseOptions& Options;
  Translate::Translator Engine;
};

}  // namespace Examples
