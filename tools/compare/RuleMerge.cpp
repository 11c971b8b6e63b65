// Sections: changes, conflicts, merging, rules on one side.

#include "RuleMerge.h"

#include "CommentMerge.h"
#include "ConflictComment.h"
#include "RuleDifference.h"
#include "RuleRecord.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace Grammar {

// ---- Changes ----------------------------------------------------------------------------------

namespace {

using Strings = std::vector<std::string>;
using Changes = std::vector<PartChange>;

/// What differs but for the comments and the count, which are always joined.
Changes ChangesOf(const ComparedRule& Base, const ComparedRule& Version) {
  Changes vChanges = DifferencesOf(Base, Version);
  const auto IsComment = [](const PartChange& Change) {
    return Change.Kind == PartKind::Comment || Change.Kind == PartKind::Count;
  };
  vChanges.erase(std::remove_if(vChanges.begin(), vChanges.end(), IsComment), vChanges.end());
  return vChanges;
}

Strings DescriptionsOf(const Changes& vChanges) {
  Strings vsTexts;
  for (const PartChange& Change : vChanges) {
    vsTexts.push_back(Describe(Change));
  }
  return vsTexts;
}

}  // namespace

// ---- Conflicts --------------------------------------------------------------------------------

namespace {

/// The text of a rule that was read, also where other comments would make it too long.
std::string TextWith(const Strings& vsComments, const ComparedRule& Rule) {
  ComparedRule Commented = Rule;
  Commented.vsComments = vsComments;
  std::optional<std::string> Text = Commented.Text();
  return Text ? std::move(*Text) : Rule.Text().value_or("");
}

/// The rule with comments that show both versions before its own.
std::string WithConflict(const Strings& vsOurs, const Strings& vsTheirs, const Strings& vsComments,
                         const ComparedRule& Rule) {
  Strings vsAll = ConflictComments(vsOurs, vsTheirs);
  vsAll.insert(vsAll.end(), vsComments.begin(), vsComments.end());
  return TextWith(vsAll, Rule);
}

/// What of the changes of two versions cannot be made.
struct Conflict {
  Changes vOurs;
  Changes vTheirs;

  bool IsEmpty() const { return vOurs.empty() && vTheirs.empty(); }

  Strings Sentences() const {
    Strings vsSentences = DescriptionsOf(vOurs);
    for (std::string& sText : vsSentences) {
      sText.insert(0, "ours: ");
    }
    for (const std::string& sText : DescriptionsOf(vTheirs)) {
      vsSentences.push_back("theirs: " + sText);
    }
    if (vsSentences.empty()) {
      vsSentences.push_back("the rule with the comments of both versions is too long");
    }
    return vsSentences;
  }
};

/// Takes out what both versions have changed to the same.
Changes Without(const Changes& vChanges, const Changes& vOthers) {
  Changes vRest;
  std::copy_if(vChanges.begin(), vChanges.end(), std::back_inserter(vRest),
               [&](const PartChange& Change) {
                 return std::find(vOthers.begin(), vOthers.end(), Change) == vOthers.end();
               });
  return vRest;
}

/// The changes that concern a part that the other version changes in another way.
Changes RivalsOf(const Changes& vOthers, const Changes& vChanges) {
  Changes vRivals;
  std::copy_if(
      vChanges.begin(), vChanges.end(), std::back_inserter(vRivals), [&](const PartChange& Change) {
        return std::any_of(vOthers.begin(), vOthers.end(),
                           [&](const PartChange& Other) { return Overlap(Other, Change); });
      });
  return vRivals;
}

}  // namespace

// ---- Merging ----------------------------------------------------------------------------------

namespace {

/// Makes the changes that are not in conflict. @return whether all of them can be made
bool MakeChanges(const Changes& vChanges, const Changes& vInConflict, ComparedRule& RuleReturn) {
  const Changes vFree = Without(vChanges, vInConflict);
  return std::all_of(vFree.begin(), vFree.end(),
                     [&](const PartChange& Change) { return Apply(Change, RuleReturn); });
}

}  // namespace

MergedRule MergeRules(const ComparedRule& Base, const ComparedRule& Ours,
                      const ComparedRule& Theirs) {
  const Changes vAllOurs = ChangesOf(Base, Ours);
  const Changes vAllTheirs = ChangesOf(Base, Theirs);
  const Changes vOurs = Without(vAllOurs, vAllTheirs);
  const Changes vTheirs = Without(vAllTheirs, vAllOurs);
  Conflict Known{RivalsOf(vTheirs, vOurs), RivalsOf(vOurs, vTheirs)};
  ComparedRule Merged = Ours;
  const bool IsMade = MakeChanges(vTheirs, Known.vTheirs, Merged);
  const Strings vsComments =
      MergedComments(Base.vsComments, Ours.vsComments, Theirs.vsComments, CountIn(Base.vsComments));
  Merged.vsComments = vsComments;
  std::optional<std::string> Text = Merged.Text();
  if (IsMade && Text && Known.IsEmpty()) {
    return {std::move(*Text), {}};
  }
  if (!IsMade || !Text) {
    Known = {vOurs, vTheirs};
    Merged = Ours;
  }
  return {
      WithConflict(DescriptionsOf(Known.vOurs), DescriptionsOf(Known.vTheirs), vsComments, Merged),
      Known.Sentences()};
}

// ---- Rules on one side ------------------------------------------------------------------------

MergedRule KeepChanged(const ComparedRule& Base, const ComparedRule& Changed, bool IsOurs) {
  const Strings vsRemoved{"the rule is removed"};
  const Strings vsChanges = DescriptionsOf(DifferencesOf(Base, Changed));
  return {WithConflict(IsOurs ? vsChanges : vsRemoved, IsOurs ? vsRemoved : vsChanges,
                       Changed.vsComments, Changed),
          {IsOurs ? "ours has changed the rule, and theirs has removed it"
                  : "theirs has changed the rule, and ours has removed it"}};
}

std::string JoinAdded(const ComparedRule& Ours, const ComparedRule& Theirs) {
  return TextWith(MergedComments({}, Ours.vsComments, Theirs.vsComments, 0), Ours);
}

MergedRule KeepAdded(const ComparedRule& Added, bool IsOurs) {
  const Strings vsThis{"this rule"};
  const Strings vsOther{"another rule with this header"};
  return {
      WithConflict(IsOurs ? vsThis : vsOther, IsOurs ? vsOther : vsThis, Added.vsComments, Added),
      {"ours and theirs have added different rules with one header"}};
}

}  // namespace Grammar
