#include "PrintOrder.h"

#include "ConstraintText.h"
#include "DependencyOrder.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace TrRuleInternal {

OrderedConstraint MakeOrdered(int Category, int ConstrainedIndex, bool ValueConstraint,
                              std::string_view FeatValue) {
  OrderedConstraint Made{Category, ConstrainedIndex, std::nullopt};
  if (!ValueConstraint) {
    Made.AgreedIndex = AgreedIndexIn(FeatValue);
  }
  return Made;
}

namespace {

/// An agreement, with its group and its place among all constraints.
struct Agreement {
  PrintGroup Group;
  int Index;
  std::size_t Place;
  int AgreedIndex;
};

using AgreementIterator = std::vector<Agreement>::const_iterator;

/// The group of a category; nothing for categories that are not written.
std::optional<PrintGroup> GroupOfCategory(int Category) {
  switch (Category) {
    case 1:
      return PrintGroup::Category1;
    case 2:
      return PrintGroup::Category2;
    case 3:
    case 4:
      return PrintGroup::Category3and4;
    default:
      return std::nullopt;
  }
}

bool ComesBefore(const Agreement& Left, const Agreement& Right) {
  return std::tie(Left.Group, Left.Index, Left.Place) <
         std::tie(Right.Group, Right.Index, Right.Place);
}

/// Appends the values, and returns the agreements, sorted by group, index and place.
std::vector<Agreement> AppendValues(const std::vector<OrderedConstraint>& vConstraints,
                                    std::vector<std::size_t>& vOrderReturn) {
  std::vector<Agreement> vAgreements;
  for (std::size_t Place = 0; Place < vConstraints.size(); ++Place) {
    const OrderedConstraint& Constraint = vConstraints[Place];
    if (!Constraint.AgreedIndex) {
      vOrderReturn.push_back(Place);
    } else if (const std::optional<PrintGroup> Group = GroupOfCategory(Constraint.Category)) {
      vAgreements.reserve(vConstraints.size());
      vAgreements.push_back({*Group, Constraint.ConstrainedIndex, Place, *Constraint.AgreedIndex});
    }
  }
  std::sort(vAgreements.begin(), vAgreements.end(), ComesBefore);
  return vAgreements;
}

std::vector<Reference> ReferencesOf(AgreementIterator First, AgreementIterator Last) {
  std::vector<Reference> vReferences;
  vReferences.reserve(static_cast<std::size_t>(std::distance(First, Last)));
  for (; First != Last; ++First) {
    vReferences.push_back({First->Index, First->AgreedIndex});
  }
  return vReferences;
}

/// Appends the agreements that constrain the node of `First`, in the order of their places.
void AppendOneIndex(AgreementIterator First, AgreementIterator Last,
                    std::vector<std::size_t>& vOrderReturn) {
  const int Index = First->Index;
  for (; First != Last && First->Index == Index; ++First) {
    vOrderReturn.push_back(First->Place);
  }
}

/// The first agreement of a group that constrains a node, or a later one.
AgreementIterator FindIndex(AgreementIterator First, AgreementIterator Last, int Index) {
  return std::partition_point(First, Last,
                              [Index](const Agreement& Current) { return Current.Index < Index; });
}

/// Whether some agreement of a group refers to another node that the group constrains, too; else
/// the nodes come in ascending order. In category 2, an agreement refers to nothing but its node.
bool HasReferences(AgreementIterator First, AgreementIterator Last) {
  return First->Group != PrintGroup::Category2 &&
         std::any_of(First, Last, [&](const Agreement& Current) {
           const auto Target = FindIndex(First, Last, Current.AgreedIndex);
           return Current.AgreedIndex != Current.Index && Target != Last &&
                  Target->Index == Current.AgreedIndex;
         });
}

/// Appends the agreements of a group, node by node in the order of their references.
/// @return whether they can be ordered
bool AppendGroup(AgreementIterator First, AgreementIterator Last,
                 std::vector<std::size_t>& vOrderReturn) {
  if (!HasReferences(First, Last)) {
    std::for_each(First, Last,
                  [&](const Agreement& Current) { vOrderReturn.push_back(Current.Place); });
    return true;
  }
  std::vector<int> vIndices;
  if (!OrderByDependency(ReferencesOf(First, Last), vIndices)) {
    return false;
  }
  for (const int Index : vIndices) {
    AppendOneIndex(FindIndex(First, Last, Index), Last, vOrderReturn);
  }
  return true;
}

}  // namespace

std::optional<PrintGroup> FindPrintOrder(const std::vector<OrderedConstraint>& vConstraints,
                                         std::vector<std::size_t>& vOrderReturn) {
  vOrderReturn.clear();
  vOrderReturn.reserve(vConstraints.size());
  const std::vector<Agreement> vAgreements = AppendValues(vConstraints, vOrderReturn);
  for (auto First = vAgreements.begin(); First != vAgreements.end();) {
    const auto IsOfGroup = [Group = First->Group](const Agreement& Other) {
      return Other.Group == Group;
    };
    const auto Last = std::partition_point(First, vAgreements.end(), IsOfGroup);
    if (!AppendGroup(First, Last, vOrderReturn)) {
      return First->Group;
    }
    First = Last;
  }
  return std::nullopt;
}

}  // namespace TrRuleInternal
