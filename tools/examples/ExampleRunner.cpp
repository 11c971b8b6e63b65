#include "ExampleRunner.h"

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

/// Whether the outcome, or the texts, are others without a constraint. Another rule's passing is as
/// good as the own one's.
bool ExampleRunner::Notices(const Example& Given, const ExampleResult& Result,
                            std::size_t Constraint) {
  Varied.Replace(Tested.Rules().VariantAt(static_cast<std::uint32_t>(Constraint)));
  Varied.Begin(Given);
  // What most constraints say is looked at by nobody in a text.
  if (Whole.HasSameDerivations(Varied)) {
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
