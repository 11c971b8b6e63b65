#include "support/ReferenceReader.h"

#include "support/PrivateAccess.h"

#include <algorithm>
#include <iostream>

namespace {

bool Fail(const std::string& Message) {
  std::cerr << "Error in SetTrRuleFromStr: " << Message << '\n';
  return false;
}

/// The text between the brackets; empty if there are none.
std::string SequenceOf(std::string Part) {
  if (!Reference::Holds(Part, "[") || !Reference::Holds(Part, "]")) {
    return "";
  }
  while (Part.front() != '[') {
    Part.erase(0, 1);
  }
  if (Part.size() > 1) {
    Part.erase(0, 1);
  }
  while (!Part.empty() && Part.back() != ']') {
    Part.pop_back();
  }
  if (Part.size() > 1) {
    Part.pop_back();
  }
  return Part;
}

}  // namespace

bool ReferenceReader::Read(const std::string& Text) {
  for (std::string Line : Reference::Pieces(Text, "\n")) {
    if (Line.back() == '\r') {
      Line.pop_back();
    }
    if (!ReadLine(Line)) {
      return false;
    }
  }
  if (!HasRuleLine || !HasAlignment) {
    return Fail("Couldn't set rule -- something missing.");
  }
  (Rule.*GetMember(AllAlignmentsTag())).push_back(Rule.GetAlignmentStr());
  return true;
}

bool ReferenceReader::ReadLine(const std::string& Line) {
  if (Reference::Holds(Line, ";;")) {
    (Rule.*GetMember(CommentsTag())).push_back(Line);
  }
  if (Reference::Holds(Line, "{")) {
    ReadHeader(Reference::Pieces(Line, ","));
  }
  if (Reference::Holds(Line, "] -> [")) {
    return HasRuleLine ? Fail("duplicate type and const seq information.") : ReadRuleLine(Line);
  }
  if (Reference::Holds(Line, "::")) {
    if (!Rule.AddAlignment(Line)) {
      return Fail("Alignment couldn't be set:" + Line);
    }
    HasAlignment = true;
  } else if (Reference::Holds(Line, "=")) {
    ReadConstraint(Line);
  }
  return true;
}

void ReferenceReader::ReadHeader(const Reference::Strings& vsPieces) {
  if (vsPieces.size() < 2 || !Reference::Holds(vsPieces[0], "{") || vsPieces[1].find('}') + 1 < 2) {
    return;
  }
  const std::size_t Open = vsPieces[0].find('{');
  Rule.*GetMember(HeaderTypeTag()) = vsPieces[0].substr(Open + 1, Open + 2);
  const char Digit = vsPieces[1][vsPieces[1].find('}') - 1];
  Rule.SetRuleIndex(Digit >= '0' && Digit <= '9' ? Digit - '0' : 0);
}

bool ReferenceReader::ReadRuleLine(const std::string& Line) {
  HasRuleLine = true;
  const Reference::Strings vsParts = Reference::Pieces(Line, " -> ");
  return std::all_of(vsParts.begin(), vsParts.end(), [this](const std::string& sPart) {
    return Reference::Holds(sPart, "::") ? ReadSLPart(sPart) : ReadTLPart(sPart);
  });
}

bool ReferenceReader::ReadSLPart(const std::string& Part) {
  const std::string Word = Reference::Pieces(Part, " ").front();
  const Reference::Strings vsTypes = Reference::Pieces(Word, "::");
  if (!Reference::Holds(Word, "::") || vsTypes.size() != 2) {
    return Fail("missing or incorrect type information.");
  }
  Rule.SetSLType(vsTypes[0]);
  Rule.SetTLType(vsTypes[1]);
  const std::string Sequence = SequenceOf(Part);
  if (Sequence.empty()) {
    return Fail("missing or incorrect sl const seq information.");
  }
  Rule.SetSLPOS(Sequence);
  Rule.SetWordLevelSLPOS(Sequence);
  return true;
}

bool ReferenceReader::ReadTLPart(const std::string& Part) {
  const std::string Sequence = SequenceOf(Part);
  if (Sequence.empty()) {
    return Fail("missing or incorrect tl const seq information.");
  }
  Rule.SetTLPOS(Sequence);
  Rule.SetWordLevelTLPOS(Sequence);
  return true;
}

void ReferenceReader::ReadConstraint(const std::string& Line) {
  const Reference::Reading Reading = Reference::Read(Line);
  std::cerr << Reading.Err;
  auto& Entries = Rule.*GetMember(ConstraintsTag());
  Reference::Store Store(Entries);
  std::string Out;
  Store.Insert(Reading.Record, Out);
  std::cout << Out;
  Entries = Store.Entries();
}
