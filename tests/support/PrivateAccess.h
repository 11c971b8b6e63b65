#pragma once

#include "TrRule.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// Access to private members of `TrRule` for tests. It relies on the rule that an explicit
/// instantiation may name private members; the class is not changed.
///
///   CallIsOneToOne(Rule, 1, 3);
template <typename TagT, typename TagT::Member MemberV>
struct PrivateMember {
  friend constexpr typename TagT::Member GetMember(TagT /*Tag*/) { return MemberV; }
};

struct IsOneToOneTag {
  using Member = bool (TrRule::*)(int, int) const;
  friend constexpr Member GetMember(IsOneToOneTag Tag);
};
template struct PrivateMember<IsOneToOneTag, &TrRule::IsOneToOne>;

struct IsLexicalizedTag {
  using Member = bool (TrRule::*)(int, int) const;
  friend constexpr Member GetMember(IsLexicalizedTag Tag);
};
template struct PrivateMember<IsLexicalizedTag, &TrRule::IsLexicalized>;

struct ReversedTag {
  using Member = std::string (TrRule::*)(std::string);
  friend constexpr Member GetMember(ReversedTag Tag);
};
template struct PrivateMember<ReversedTag, &TrRule::GetReversedAlignments>;

struct PrintOrderTag {
  using Member = std::vector<std::string> (TrRule::*)();
  friend constexpr Member GetMember(PrintOrderTag Tag);
};
template struct PrivateMember<PrintOrderTag, &TrRule::GetConstraintsInPrintOrder>;

struct CommentsTag {
  using Member = std::vector<std::string> TrRule::*;
  friend constexpr Member GetMember(CommentsTag Tag);
};
template struct PrivateMember<CommentsTag, &TrRule::Comments>;

struct HeaderTypeTag {
  using Member = std::string TrRule::*;
  friend constexpr Member GetMember(HeaderTypeTag Tag);
};
template struct PrivateMember<HeaderTypeTag, &TrRule::POS>;

struct AllAlignmentsTag {
  using Member = std::vector<std::string> TrRule::*;
  friend constexpr Member GetMember(AllAlignmentsTag Tag);
};
template struct PrivateMember<AllAlignmentsTag, &TrRule::vsAllAlignments>;

struct ConstraintsTag {
  using Member = std::map<std::string, Constraint> TrRule::*;
  friend constexpr Member GetMember(ConstraintsTag Tag);
};
template struct PrivateMember<ConstraintsTag, &TrRule::ConstraintsMap>;

inline bool CallIsOneToOne(const TrRule& Rule, int X, int Y) {
  return (Rule.*GetMember(IsOneToOneTag()))(X, Y);
}

inline bool CallIsLexicalized(const TrRule& Rule, int Index, int Type) {
  return (Rule.*GetMember(IsLexicalizedTag()))(Index, Type);
}

inline std::string CallGetReversedAlignments(TrRule& Rule, std::string Alignments) {
  return (Rule.*GetMember(ReversedTag()))(std::move(Alignments));
}

inline std::vector<std::string> CallGetConstraintsInPrintOrder(TrRule& Rule) {
  return (Rule.*GetMember(PrintOrderTag()))();
}
