#pragma once

#include "TrRule.h"
#include "support/SlowTwins.h"

#include <string>

/// The reader of rule texts once more: slow, and plain enough to be checked by eye. It reads every
/// line by the lenient rules, step by step on copies of its text, and takes no line in its common
/// form for anything else than the others.
///
///   ReferenceReader(Rule).Read(Text);  // Rule is as after Rule.SetTrRuleFromString(Text)
///
/// It prints what the library prints, at a level without traces.
class ReferenceReader {
 public:
  explicit ReferenceReader(TrRule& RulePassIn) : Rule(RulePassIn) {}

  /// Reads a whole text. @return whether it gave a whole rule
  bool Read(const std::string& Text);

  /// Reads one line, without its line end. @return false where reading stops at it
  bool ReadLine(const std::string& Line);

 private:
  void ReadHeader(const Slow::Strings& vsPieces);
  bool ReadRuleLine(const std::string& Line);
  bool ReadSLPart(const std::string& Part);
  bool ReadTLPart(const std::string& Part);
  void ReadConstraint(const std::string& Line);

  TrRule& Rule;
  bool HasRuleLine = false;
  bool HasAlignment = false;
};
