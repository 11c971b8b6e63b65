#include "ExampleRunner.h"

namespace Examples {

ExampleResult ExampleRunner::Run(const Example& Of) {
  Equations.Trim();
  Whole.Begin(Of);
  return Whole.Judge(Of);
}

/// Whether a rule makes something else of what it was tried on, without a constraint.
bool ExampleRunner::ChangesResult(std::size_t Constraint, const Translate::Chart::Trial& Of) {
  const Translate::RuleSet::Variant& Variant =
      Tested.Rules().VariantAt(static_cast<std::uint32_t>(Constraint));
  return Equations.Evaluate(Variant.Evaluation, Of.Keys) !=
         Equations.Evaluate(Of.Evaluation, Of.Keys);
}

void ExampleRunner::FindCandidates(const NoticedConstraints& Noticed) {
  Whole.ParsedChart().ForEachTrial([&](const Translate::Chart::Trial& Each) {
    const std::size_t End = Tested.FirstConstraint(Each.Rule + 1);
    for (std::size_t Constraint = Tested.FirstConstraint(Each.Rule); Constraint < End;
         ++Constraint) {
      if (!vIsCandidate[Constraint] && !Noticed.Has(Constraint) &&
          ChangesResult(Constraint, Each)) {
        vIsCandidate[Constraint] = true;
        vCandidates.push_back(Constraint);
      }
    }
  });
}

/// Whether the outcome, or the texts, are others without a constraint. Another rule's passing is as
/// good as the own one's.
bool ExampleRunner::Notices(const Example& Of, const ExampleResult& Result,
                            const std::vector<std::string>& vsTexts, std::size_t Constraint) {
  Varied.Replace(Tested.Rules().VariantAt(static_cast<std::uint32_t>(Constraint)));
  Varied.Begin(Of);
  if (!Varied.HasTexts(vsTexts)) {
    return true;
  }
  const Outcome What = Varied.Judge(Of).What;
  return What != Result.What && !(IsPassing(What) && IsPassing(Result.What));
}

void ExampleRunner::FindNoticed(const Example& Of, const ExampleResult& Result,
                                NoticedConstraints& NoticedReturn) {
  FindCandidates(NoticedReturn);
  const std::vector<std::string> vsTexts =
      vCandidates.empty() ? std::vector<std::string>() : Whole.Texts();
  for (const std::size_t Each : vCandidates) {
    vIsCandidate[Each] = false;
    // Another thread may have been quicker.
    if (!NoticedReturn.Has(Each) && Notices(Of, Result, vsTexts, Each)) {
      NoticedReturn.Add(Each);
    }
  }
  vCandidates.clear();
}

}  // namespace Examples
