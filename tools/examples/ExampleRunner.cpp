#include "ExampleRunner.h"

#include <algorithm>

namespace Examples {

ExampleResult ExampleRunner::Run(const Example& Given) {
  Equations.Trim();
  Whole.Begin(Given);
  ExampleResult Result = Whole.Judge(Given);
  if (Options.WantsCauses && Result.What == Outcome::Fails && !Result.Best) {
    Result.Cause = CauseOf(Given);
  }
  return Result;
}

std::string ExampleRunner::CauseOf(const Example& Given) {
  if (!Causes) {
    Causes = std::make_unique<CauseFinder>(Tested, Options);
  }
  return Causes->CauseOf(Given);
}

/// Whether a rule makes something else of what it was tried on, without a constraint.
bool ExampleRunner::ChangesResult(std::size_t Constraint, const Translate::Chart::Trial& Tried) {
  const Translate::RuleSet::Variant& Variant =
      Tested.Rules().VariantAt(static_cast<std::uint32_t>(Constraint));
  return Equations.Evaluate(Variant.Evaluation, Tried.Keys) !=
         Equations.Evaluate(Tried.Evaluation, Tried.Keys);
}

void ExampleRunner::FindCandidates(const NoticedConstraints& Noticed) {
  Whole.ParsedChart().ForEachTrial([&](const Translate::Chart::Trial& Current) {
    const std::size_t End = Tested.FirstConstraint(Current.Rule + 1);
    for (std::size_t Constraint = Tested.FirstConstraint(Current.Rule); Constraint < End;
         ++Constraint) {
      if (!vIsCandidate[Constraint] && !Noticed.Has(Constraint) &&
          ChangesResult(Constraint, Current)) {
        vIsCandidate[Constraint] = true;
        vCandidates.push_back(Constraint);
      }
    }
  });
}

namespace {

using Translate::Chart;

bool IsSameConstituent(const Chart::Constituent& Left, const Chart::Constituent& Right) {
  return Left.Cell == Right.Cell && Left.Types == Right.Types && Left.FirstWay == Right.FirstWay &&
         Left.Score == Right.Score;
}

bool IsSameWay(const Chart::Way& Left, const Chart::Way& Right) {
  return Left.Rule == Right.Rule && Left.From == Right.From && Left.Next == Right.Next;
}

bool IsSameCell(const Chart::Cell& Left, const Chart::Cell& Right) {
  return Left.Start == Right.Start && Left.End == Right.End &&
         Left.FirstConstituent == Right.FirstConstituent;
}

bool IsSameGroup(const Chart::Group& Left, const Chart::Group& Right) {
  return Left.First == Right.First && Left.Count == Right.Count;
}

template <typename ElementT, typename IsSameT>
bool AreSame(const std::vector<ElementT>& vLeft, const std::vector<ElementT>& vRight,
             IsSameT IsSame) {
  return std::equal(vLeft.begin(), vLeft.end(), vRight.begin(), vRight.end(), IsSame);
}

/// The parts that an item can be made of, two numbers each.
void FindSteps(const Chart& Parsed, std::uint32_t Item, std::vector<std::uint32_t>& vStepsReturn) {
  vStepsReturn.clear();
  Parsed.ForEachStep(Item, [&](std::uint32_t Before, std::uint32_t Behind) {
    vStepsReturn.push_back(Before);
    vStepsReturn.push_back(Behind);
  });
}

/// Whether two charts of one text have the same derivations, whatever the structures in them. Where
/// the same things were found in another order, it says that they have not.
bool HaveSameDerivations(const Chart& Left, const Chart& Right) {
  if (Left.Outcome() != Translate::ChartOutcome::Whole || Left.Outcome() != Right.Outcome() ||
      Left.Items().size() != Right.Items().size() || Left.Members() != Right.Members() ||
      !AreSame(Left.Constituents(), Right.Constituents(), IsSameConstituent) ||
      !AreSame(Left.Ways(), Right.Ways(), IsSameWay) ||
      !AreSame(Left.Cells(), Right.Cells(), IsSameCell) ||
      !AreSame(Left.Groups(), Right.Groups(), IsSameGroup)) {
    return false;
  }
  std::vector<std::uint32_t> vLeft;
  std::vector<std::uint32_t> vRight;
  for (std::uint32_t Item = 0; Item < Left.Items().size(); ++Item) {
    FindSteps(Left, Item, vLeft);
    FindSteps(Right, Item, vRight);
    if (vLeft != vRight) {
      return false;
    }
  }
  return true;
}

}  // namespace

/// Whether the outcome, or the texts, are others without a constraint. Another rule's passing is as
/// good as the own one's.
bool ExampleRunner::Notices(const Example& Given, const ExampleResult& Result,
                            std::size_t Constraint) {
  Varied.Replace(Tested.Rules().VariantAt(static_cast<std::uint32_t>(Constraint)));
  Varied.Begin(Given);
  // Half of all constraints give a constituent something that nobody looks at.
  if (HaveSameDerivations(Whole.ParsedChart(), Varied.ParsedChart())) {
    return false;
  }
  if (!Texts) {
    Texts = Whole.Texts();
  }
  if (!Varied.HasTexts(*Texts)) {
    return true;
  }
  const Outcome What = Varied.Judge(Given).What;
  return What != Result.What && !(IsPassing(What) && IsPassing(Result.What));
}

void ExampleRunner::FindNoticed(const Example& Given, const ExampleResult& Result,
                                NoticedConstraints& NoticedReturn) {
  FindCandidates(NoticedReturn);
  Texts.reset();
  for (const std::size_t Index : vCandidates) {
    vIsCandidate[Index] = false;
    // Another thread may have been quicker.
    if (!NoticedReturn.Has(Index) && Notices(Given, Result, Index)) {
      NoticedReturn.Add(Index);
    }
  }
  vCandidates.clear();
}

}  // namespace Examples
