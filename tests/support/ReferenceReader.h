#pragma once

#include "TrRule.h"
#include "support/ReferenceImplementation.h"

#include <string>

/// A reference implementation of the reader of rule texts: slow, and plain enough to check by eye.
/// It reads every line by the lenient rules, step by step on copies of the text, and does not treat
/// a line in its common form differently.
///
///   ReferenceReader(Rule).Read(Text);  // Rule is as after Rule.SetTrRuleFromString(Text)
///
/// It prints what the library prints, at a level without traces.
class ReferenceReader {
 public:
  explicit ReferenceReader(TrRule& RulePassIn) : Rule(RulePassIn) {}

  /// Reads a whole text. @return whether it was a complete rule
  bool Read(const std::string& Text);

  /// Reads one line, without its line end. @return false if reading stops there
  bool ReadLine(const std::string& Line);

 private:
  void ReadHeader(const Reference::Strings& vsPieces);
  bool ReadRuleLine(const std::string& Line);
  bool ReadSLPart(const std::string& Part);
  bool ReadTLPart(const std::string& Part);
  void ReadConstraint(const std::string& Line);

  TrRule& Rule;
  bool HasRuleLine = false;
  bool HasAlignment = false;
};
