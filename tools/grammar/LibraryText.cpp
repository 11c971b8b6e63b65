// Sections: reading by the library's rules, writing.

#include "LibraryText.h"

#include "Bytes.h"

#include <AlignmentLine.h>
#include <AlignmentText.h>
#include <ConstraintStore.h>
#include <ConstraintText.h>
#include <HeaderLine.h>
#include <LineScan.h>
#include <LineWriting.h>
#include <PrintOrder.h>
#include <RuleLine.h>
#include <Splitter.h>

#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace Grammar {

// ---- Reading ----------------------------------------------------------------------------------

namespace {

using TrRuleInternal::ConstraintFields;
using TrRuleInternal::IndexPair;
using TrRuleInternal::Splitter;

/// What the library's record holds of a rule after reading, as far as it is written.
class LibraryRule {
 public:
  /// @return false if the library's reader stops
  bool Read(std::string_view Text);

  LibraryFailure AppendTo(std::string& TextReturn) const;

 private:
  bool ReadLine(std::string_view Line);
  bool ReadRuleLine(std::string_view Line);
  bool ReadAlignment(std::string_view Line);
  void AddConstraint(ConstraintFields Fields);
  LibraryFailure FindOrder(std::vector<const ConstraintFields*>& vOrderReturn) const;

  std::vector<std::string_view> vComments;
  std::string_view HeaderType;
  int Number = -1;
  bool HasRuleLine = false;
  std::string_view SLType;
  std::string_view TLType;
  std::vector<std::string> vsSLLabels;
  std::vector<std::string> vsTLLabels;
  bool HasAlignment = false;
  std::string Alignments;
  std::optional<IndexPair> LastPair = IndexPair(-1, -1);  // nothing if it is not known
  std::map<std::string, ConstraintFields> Constraints;
};

bool LibraryRule::Read(std::string_view Text) {
  Splitter Lines(Text, "\n");
  for (std::string_view Line; Lines.Next(Line);) {
    Line.remove_suffix(Line.back() == '\r' ? 1 : 0);
    if (!ReadLine(Line)) {
      return false;
    }
  }
  return HasRuleLine && HasAlignment;
}

// Line = [ Comment ] [ Header ] [ RuleLine | AlignmentLine | ConstraintText ]
bool LibraryRule::ReadLine(std::string_view Line) {
  const TrRuleInternal::LineMarks Marks = TrRuleInternal::ScanLine(Line).Whole;
  if (Marks.HasComment) {
    vComments.push_back(Line);
  }
  TrRuleInternal::HeaderParts Header;
  if (Marks.HasBrace && TrRuleInternal::ReadHeader(Line, Header)) {
    HeaderType = Header.Type;
    Number = TrRuleInternal::ToInt(Header.Number);
  }
  if (Marks.HasArrow) {
    return !std::exchange(HasRuleLine, true) && ReadRuleLine(Line);
  }
  if (Marks.HasColons) {
    return ReadAlignment(Line);
  }
  if (Marks.HasEquals) {
    ConstraintFields Fields;
    TrRuleInternal::ReadConstraint(Line, Fields);
    AddConstraint(std::move(Fields));
  }
  return true;
}

std::vector<std::string> LabelsIn(std::string_view Sequence) {
  std::vector<std::string> vsLabels = TrRuleInternal::ParseLabels(Sequence);
  for (std::string& sLabel : vsLabels) {
    TrRuleInternal::MakeUpper(sLabel);
  }
  return vsLabels;
}

// RuleLine = Part " -> " Part; a part without "::" is a target side, wherever it stands.
bool LibraryRule::ReadRuleLine(std::string_view Line) {
  Splitter Parts(Line, " -> ");
  for (std::string_view Part; Parts.Next(Part);) {
    const bool IsSource = Contains(Part, "::");
    const auto Types = TrRuleInternal::ReadTypes(Part);
    const std::string_view Sequence = TrRuleInternal::ReadSequence(Part);
    if (Sequence.empty() || (IsSource && !Types)) {
      return false;
    }
    if (IsSource) {
      SLType = Types->First;
      TLType = Types->Second;
    }
    (IsSource ? vsSLLabels : vsTLLabels) = LabelsIn(Sequence);
  }
  return true;
}

/// A pair that belongs after the last one is appended without a look at the others.
bool LibraryRule::ReadAlignment(std::string_view Line) {
  TrRuleInternal::AlignmentParts Parts;
  const bool IsCommon = TrRuleInternal::ParseCommonAlignment(Line, Parts);
  const IndexPair Pair(Parts.X, Parts.Y);
  HasAlignment = true;
  if (IsCommon && LastPair && *LastPair < Pair) {
    TrRuleInternal::AppendPair(Alignments, Parts.XText, Parts.YText);
    LastPair = Pair;
    return true;
  }
  const std::string Capitals = Upper(Line);
  TrRuleInternal::AlignmentTexts Texts;
  if (TrRuleInternal::ReadAlignment(Capitals, Texts) != TrRuleInternal::AlignmentFault::None) {
    return false;
  }
  TrRuleInternal::AppendPair(Alignments, Texts.X, Texts.Y);
  if (!TrRuleInternal::IsCanonical(Alignments)) {
    std::vector<TrRuleInternal::MissingIndex> vMissing;
    Alignments = TrRuleInternal::CanonicalAlignments(Alignments, vMissing);
  }
  LastPair = TrRuleInternal::LastOfCanonical(Alignments);
  return true;
}

void LibraryRule::AddConstraint(ConstraintFields Fields) {
  TrRuleInternal::ConstraintKey Key = TrRuleInternal::MakeKey(
      Fields.Category, Fields.ConstrainedIndex, Fields.Feature, Fields.FeatValue);
  const auto [Entry, IsNew] = Constraints.try_emplace(std::move(Key.Text), std::move(Fields));
  const std::string_view Prefix = std::string_view(Entry->first).substr(0, Key.ValueBegin);
  if (!IsNew || !Entry->second.ValueConstraint ||
      !TrRuleInternal::HasNeighbour(Constraints, Entry, Prefix)) {
    return;
  }
  const auto ValueOf = [](const ConstraintFields& Stored) {
    return Stored.ValueConstraint ? &Stored.FeatValue : nullptr;
  };
  auto Taken = Constraints.extract(Entry);
  std::vector<TrRuleInternal::Merging> vMergings;
  TrRuleInternal::ExtractAndMerge(Constraints, ValueOf, Key.ValueBegin, Taken.key(), vMergings);
  Taken.mapped().FeatValue = Taken.key().substr(Key.ValueBegin);
  Constraints.insert(std::move(Taken));
}

// ---- Writing ----------------------------------------------------------------------------------

LibraryFailure LibraryRule::FindOrder(std::vector<const ConstraintFields*>& vOrderReturn) const {
  std::vector<const ConstraintFields*> vStored;
  std::vector<TrRuleInternal::OrderedConstraint> vOrdered;
  for (const auto& [Key, Fields] : Constraints) {
    vOrdered.push_back(TrRuleInternal::MakeOrdered(Fields.Category, Fields.ConstrainedIndex,
                                                   Fields.ValueConstraint, Fields.FeatValue));
    if (vOrdered.back().AgreedIndex == -1) {
      return LibraryFailure::NoAgreedIndex;
    }
    vStored.push_back(&Fields);
  }
  std::vector<std::size_t> vPlaces;
  if (TrRuleInternal::FindPrintOrder(vOrdered, vPlaces)) {
    return LibraryFailure::Cycle;
  }
  for (const std::size_t Place : vPlaces) {
    vOrderReturn.push_back(vStored[Place]);
  }
  return LibraryFailure::None;
}

/// Whether a component is a literal word; one that is not there is none.
bool IsLiteral(const std::vector<std::string>& vsLabels, std::string_view Index) {
  const auto Place = static_cast<std::size_t>(TrRuleInternal::ToInt(Index));
  return Place > 0 && Place <= vsLabels.size() && vsLabels[Place - 1].front() == '"' &&
         vsLabels[Place - 1].back() == '"';
}

LibraryFailure LibraryRule::AppendTo(std::string& TextReturn) const {
  std::vector<const ConstraintFields*> vOrder;
  const LibraryFailure Failure = FindOrder(vOrder);
  if (Failure != LibraryFailure::None) {
    return Failure;
  }
  for (const std::string_view Comment : vComments) {
    TextReturn.append(Comment).append(1, '\n');
  }
  TrRuleInternal::AppendHeaderLine(TextReturn, HeaderType, Number);
  TrRuleInternal::AppendRuleLine(TextReturn, SLType, TLType, vsSLLabels, vsTLLabels);
  TextReturn += "\n(\n";
  TrRuleInternal::DisplayWalk Walk(Alignments);
  for (TrRuleInternal::DisplayPair Pair; Walk.Next(Pair);) {
    TrRuleInternal::AppendAlignmentLine(
        TextReturn, Pair.X, Pair.Y, IsLiteral(vsSLLabels, Pair.X) || IsLiteral(vsTLLabels, Pair.Y));
    TextReturn += '\n';
  }
  for (const ConstraintFields* const Current : vOrder) {
    TrRuleInternal::AppendConstraint(
        TextReturn, {Current->Category, Current->ConstrainedIndex, Current->Feature,
                     Current->FeatValue, Current->ValueConstraint});
    TextReturn += '\n';
  }
  TextReturn += ")\n";
  return Failure;
}

}  // namespace

LibraryFailure AppendLibraryText(std::string_view Text, std::string& TextReturn) {
  LibraryRule Rule;
  return Rule.Read(Text) ? Rule.AppendTo(TextReturn) : LibraryFailure::Unread;
}

}  // namespace Grammar
