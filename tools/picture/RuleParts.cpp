// Sections: components, alignments, constraints, caption, the rule.

#include "RuleParts.h"

#include "Bytes.h"
#include "Characters.h"
#include "CountText.h"
#include "HeaderText.h"
#include "Literal.h"
#include "RuleRecord.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Picture {

using Grammar::SourceRule;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

namespace {

Origin OriginOf(const SourceRule& Lines, std::size_t Line) {
  return {Lines.Text().FirstLine + Line, Grammar::Trimmed(Lines.CodeOf(Line))};
}

std::string NodeName(char Side, std::size_t Index) {
  return (Side == 'X' ? 'x' : 'y') + std::to_string(Index);
}

std::size_t SideIndex(char Side) {
  return Side == 'X' ? 0 : 1;
}

}  // namespace

// ---- Components -------------------------------------------------------------------------------

namespace {

void AddSide(const SourceRule& Lines, char Side, std::string_view Type, RuleParts& PartsReturn) {
  std::vector<Component>& vComponents = PartsReturn.Components[SideIndex(Side)];
  vComponents.clear();
  Component& Own = vComponents.emplace_back();
  Own.Label = ShownText(Type);
  Own.Name = NodeName(Side, 0);
  for (const std::string_view Label : Lines.LabelsOf(Side)) {
    Component& New = vComponents.emplace_back();
    New.IsLiteral = Grammar::IsLiteral(Label);
    New.Label = ShownText(New.IsLiteral ? std::string(Label) : Grammar::Upper(Label));
    New.Name = NodeName(Side, vComponents.size() - 1);
    New.IsUnaligned = !New.IsLiteral;
  }
}

/// "Source NP: x1 DET, x2 N."
std::string SideSentence(std::string_view Side, const std::vector<Component>& vComponents) {
  std::string Sentence(Side);
  Sentence += ' ' + vComponents.front().Label;
  for (std::size_t Index = 1; Index < vComponents.size(); ++Index) {
    Sentence +=
        (Index == 1 ? ": " : ", ") + vComponents[Index].Name + ' ' + vComponents[Index].Label;
  }
  return Sentence + '.';
}

}  // namespace

// ---- Alignments -------------------------------------------------------------------------------

namespace {

void AddAlignment(const SourceRule& Lines, const SourceRule::AlignmentLine& Current,
                  RuleParts& PartsReturn) {
  const Origin From = OriginOf(Lines, Current.Line);
  const int Indexes[] = {Current.Parts.X, Current.Parts.Y};
  for (const char Side : {'X', 'Y'}) {
    const int Index = Indexes[SideIndex(Side)];
    if (Index < 1 || static_cast<std::size_t>(Index) > Lines.LabelsOf(Side).size()) {
      PartsReturn.vNotes.push_back(
          {From, false,
           ShownText(From.Code) + ": there is no " +
               NodeName(Side, static_cast<std::size_t>(std::max(Index, 0)))});
      return;
    }
  }
  const Tie New{From, static_cast<std::uint32_t>(Current.Parts.X),
                static_cast<std::uint32_t>(Current.Parts.Y), ""};
  PartsReturn.vAlignments.push_back(New);
  Component& X = PartsReturn.Components[0][New.First];
  Component& Y = PartsReturn.Components[1][New.Second];
  X.IsUnaligned = Y.IsUnaligned = false;
  PartsReturn.vsSentences.push_back(X.Name + " is aligned with " + Y.Name + '.');
}

}  // namespace

// ---- Constraints ------------------------------------------------------------------------------

namespace {

/// A node with features, in capitals and with single blanks between them.
struct Path {
  char Side;
  std::uint32_t Index;
  std::string Features;
};

/// The words of a text in capitals, with a text between them.
std::string JoinedWords(std::string_view Text, std::string_view Between) {
  std::string Joined;
  while (!(Text = Grammar::WithoutLeadingSpace(Text)).empty()) {
    const auto* const End = std::find_if(Text.begin(), Text.end(), Grammar::IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    Joined.append(Joined.empty() ? std::string_view() : Between);
    Joined += Grammar::Upper(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
  return ShownText(Joined);
}

Path PathOf(const NodeText& Node, std::string_view Feature) {
  return {Node.Side, static_cast<std::uint32_t>(Node.Index), JoinedWords(Feature, " ")};
}

/// "y1 AGR NUM", and "y1" of a whole node.
std::string WrittenPath(const Path& Named) {
  return NodeName(Named.Side, Named.Index) + (Named.Features.empty() ? "" : ' ' + Named.Features);
}

/// "AGR NUM of y1"
std::string SpokenPath(const Path& Named) {
  return (Named.Features.empty() ? "" : Named.Features + " of ") +
         NodeName(Named.Side, Named.Index);
}

/// What a line between two nodes bears.
std::string WordsOf(const Path& Left, const Path& Right) {
  if (Left.Features != Right.Features) {
    return WrittenPath(Left) + " = " + WrittenPath(Right);
  }
  return Left.Features.empty() ? "=" : Left.Features;
}

/// Collects the constraints of one rule.
class ConstraintCollector {
 public:
  ConstraintCollector(const SourceRule& LinesPassIn, RuleParts& PartsReturn)
      : Lines(LinesPassIn), Parts(PartsReturn) {}

  void Add(const SourceRule::ConstraintLine& Current) {
    const Origin From = OriginOf(Lines, Current.Line);
    if (const NodeText* Missing = FindMissing(Current.Parts)) {
      AddNote(From, "there is no " + ShownText(Grammar::Trimmed(Missing->Text)));
    } else if (Grammar::LacksNode(Current.Parts) ||
               !Grammar::ParenthesisInList(Current.Parts).empty()) {
      AddNote(From, "this means nothing");
    } else if (Current.Parts.RightNode) {
      AddEquation(From, PathOf(Current.Parts.Left, Current.Parts.Feature),
                  PathOf(*Current.Parts.RightNode, Current.Parts.RightFeature));
    } else {
      AddValue(From, PathOf(Current.Parts.Left, Current.Parts.Feature), Current.Parts);
    }
  }

 private:
  const NodeText* FindMissing(const ConstraintParts& Constraint) const {
    if (!Grammar::HasComponent(Lines, Constraint.Left)) {
      return &Constraint.Left;
    }
    return Constraint.RightNode && !Grammar::HasComponent(Lines, *Constraint.RightNode)
               ? &*Constraint.RightNode
               : nullptr;
  }

  void AddNote(const Origin& From, const std::string& Why) {
    Parts.vNotes.push_back({From, true, ShownText(From.Code) + ": " + Why});
  }

  void Say(std::string Sentence) { Parts.vsSentences.push_back(std::move(Sentence) + '.'); }

  Component& ComponentAt(const Path& Named) {
    return Parts.Components[SideIndex(Named.Side)][Named.Index];
  }

  void AddEquation(const Origin& From, const Path& Left, const Path& Right) {
    if (Left.Side != Right.Side) {
      const Path& X = Left.Side == 'X' ? Left : Right;
      const Path& Y = Left.Side == 'X' ? Right : Left;
      Parts.vTransfers.push_back({From, X.Index, Y.Index, WordsOf(Left, Right)});
      Say(SpokenPath(Y) + " comes from " + SpokenPath(X));
    } else if (Left.Index == Right.Index) {
      ComponentAt(Left).vTags.push_back({From, WrittenPath(Left) + " = " + WrittenPath(Right)});
      Say(SpokenPath(Left) + " is the same as " + SpokenPath(Right));
    } else if (!TakeHead(From, Left, Right)) {
      Parts.Agreements[SideIndex(Left.Side)].push_back({From, std::min(Left.Index, Right.Index),
                                                        std::max(Left.Index, Right.Index),
                                                        WordsOf(Left, Right)});
      Say(SpokenPath(Left) + " agrees with " + SpokenPath(Right));
    }
  }

  /// Takes "(x0 = x3)", unless x3 is the head already.
  bool TakeHead(const Origin& From, const Path& Left, const Path& Right) {
    Component& Head = ComponentAt(Left.Index == 0 ? Right : Left);
    const bool IsWhole = Left.Features.empty() && Right.Features.empty();
    if (!IsWhole || (Left.Index != 0 && Right.Index != 0) || Head.IsHead) {
      return false;
    }
    Head.IsHead = true;
    Head.HeadFrom = From;
    Say(Head.Name + " is the head of " + NodeName(Left.Side, 0));
    return true;
  }

  /// Several values of one feature are alternatives.
  void AddValue(const Origin& From, const Path& Left, const ConstraintParts& Constraint) {
    const bool IsNot = Constraint.Kind == RightKind::Not;
    const std::string Value =
        (IsNot ? "not " : "") + JoinedWords(Constraint.Value, IsNot ? ", not "
                                                              : Constraint.Kind == RightKind::Or
                                                                  ? " or "
                                                                  : " ");
    const bool IsMore = !IsNot && !ssValued.insert(WrittenPath(Left)).second;
    ComponentAt(Left).vTags.push_back({From, (IsMore ? "or " : "") + Left.Features + ": " + Value});
    Say((IsMore ? "or " : "") + SpokenPath(Left) + " is " + Value);
  }

  const SourceRule& Lines;
  RuleParts& Parts;
  std::set<std::string> ssValued;
};

/// Lines of the body that are not in the format.
void AddBrokenLines(const SourceRule& Lines, RuleParts& PartsReturn) {
  for (const SourceRule::BrokenLine& Current : Lines.BrokenLines()) {
    const Origin From = OriginOf(Lines, Current.Line);
    PartsReturn.vNotes.push_back({From, Current.Kind == Grammar::LineKind::Constraint,
                                  ShownText(From.Code) + ": this cannot be read"});
  }
  std::stable_sort(
      PartsReturn.vNotes.begin(), PartsReturn.vNotes.end(),
      [](const Note& Left, const Note& Right) { return Left.From.Line < Right.From.Line; });
}

}  // namespace

// ---- Caption ----------------------------------------------------------------------------------

namespace {

/// The last of several headers counts.
std::string NameOf(const SourceRule& Lines) {
  if (Lines.Headers().empty()) {
    return ShownText(Lines.Text().File) + ':' + std::to_string(Grammar::LineOfRule(Lines.Text()));
  }
  const SourceRule::HeaderLine& Last = Lines.Headers().back();
  const Grammar::RuleHeader Header = Grammar::HeaderOf(Last.Parts, Lines.CodeOf(Last.Line));
  return ShownText(Header.IsReadable ? '{' + Header.Type + ',' + Header.Number + '}' : Header.Type);
}

/// The count and the first example stand in comments.
void ReadComments(const Grammar::RuleText& Text, RuleParts& PartsReturn) {
  PartsReturn.Count = 1;
  PartsReturn.SourceExample.clear();
  PartsReturn.TargetExample.clear();
  bool HasCount = false;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    if (Text.vLines[Line].CommentBegin == Text.vLines[Line].CommentEnd) {
      continue;
    }
    const std::string_view Comment = Text.Parts(Line).Comment;
    std::string_view Rest;
    if (PartsReturn.SourceExample.empty() && Grammar::TakeLabel(Comment, "SL:", Rest)) {
      PartsReturn.SourceExample = ShownText(Grammar::Trimmed(Rest));
    } else if (PartsReturn.TargetExample.empty() && Grammar::TakeLabel(Comment, "TL:", Rest)) {
      PartsReturn.TargetExample = ShownText(Grammar::Trimmed(Rest));
    } else if (!HasCount && Grammar::TakeLabel(Comment, Grammar::ScoreLabel, Rest)) {
      PartsReturn.Count = static_cast<unsigned>(Grammar::ParseCount(Rest).Value);
      HasCount = true;
    }
  }
}

}  // namespace

// ---- The rule ---------------------------------------------------------------------------------

bool ReadParts(const SourceRule& Lines, RuleParts& PartsReturn) {
  if (!Grammar::HasReadableTypes(Lines)) {
    return false;
  }
  PartsReturn.vAlignments.clear();
  PartsReturn.Agreements[0].clear();
  PartsReturn.Agreements[1].clear();
  PartsReturn.vTransfers.clear();
  PartsReturn.vNotes.clear();
  PartsReturn.vsSentences.clear();
  const TrRuleInternal::RuleLineParts& RuleLine = Lines.RuleLines().front().Parts;
  AddSide(Lines, 'X', RuleLine.SLType, PartsReturn);
  AddSide(Lines, 'Y', RuleLine.TLType, PartsReturn);
  PartsReturn.Name = NameOf(Lines);
  PartsReturn.Types =
      PartsReturn.Components[0].front().Label + "::" + PartsReturn.Components[1].front().Label;
  ReadComments(Lines.Text(), PartsReturn);
  PartsReturn.vsSentences.push_back(SideSentence("Source", PartsReturn.Components[0]));
  PartsReturn.vsSentences.push_back(SideSentence("Target", PartsReturn.Components[1]));
  for (const SourceRule::AlignmentLine& Current : Lines.Alignments()) {
    AddAlignment(Lines, Current, PartsReturn);
  }
  ConstraintCollector Collector(Lines, PartsReturn);
  for (const SourceRule::ConstraintLine& Current : Lines.Constraints()) {
    Collector.Add(Current);
  }
  AddBrokenLines(Lines, PartsReturn);
  for (const Note& Current : PartsReturn.vNotes) {
    PartsReturn.vsSentences.push_back("Not drawn: " + Current.Words + '.');
  }
  return true;
}

}  // namespace Picture
