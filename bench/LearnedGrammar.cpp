#include "LearnedGrammar.h"

#include <algorithm>
#include <utility>

namespace {

/// Where the shares of as many things end, the k-th with 1/k of the first one's share.
std::vector<double> NaturalLimits(std::size_t Count) {
  std::vector<double> vLimits(Count);
  double Sum = 0;
  for (std::size_t Rank = 0; Rank < Count; ++Rank) {
    Sum += 1 / static_cast<double>(Rank + 1);
    vLimits[Rank] = Sum;
  }
  return vLimits;
}

std::string Line(const std::string& Type, const std::string& Source, const std::string& Target) {
  return Type + "::" + Type + " : [" + Source + "] -> [" + Target + "]\n";
}

std::string Alignment(std::size_t X, std::size_t Y) {
  return "(X" + std::to_string(X) + "::Y" + std::to_string(Y) + ")\n";
}

}  // namespace

LearnedGrammar::LearnedGrammar(std::uint64_t Seed, bool HasConstraintsPassIn,
                               std::string SuffixPassIn)
    : Numbers(Seed),
      HasConstraints(HasConstraintsPassIn),
      Suffix(std::move(SuffixPassIn)),
      vLabelLimits(NaturalLimits(Labels)),
      vWordLimits(NaturalLimits(Words)) {}

std::size_t LearnedGrammar::Ranked(const std::vector<double>& vLimits) {
  constexpr std::size_t Steps = 1000000;
  const double Point =
      vLimits.back() * static_cast<double>(Numbers.Below(Steps)) / static_cast<double>(Steps);
  const auto Found = std::upper_bound(vLimits.begin(), vLimits.end(), Point);
  return static_cast<std::size_t>(Found - vLimits.begin());
}

std::string LearnedGrammar::Label(std::size_t Number) const {
  return 'L' + std::to_string(Number) + Suffix;
}

std::string LearnedGrammar::Score() {
  return ";;Score: " + std::to_string(1 + Numbers.Below(40)) + '\n';
}

/// A word is singular or plural; several words are what the first of them is.
std::string LearnedGrammar::LexicalRule(std::size_t LabelNumber,
                                        const std::vector<std::size_t>& vWords) {
  std::string Source;
  std::string Target;
  for (const std::size_t Word : vWords) {
    const std::string Between = Source.empty() ? "" : " ";
    Source += Between + "\"w" + std::to_string(Word) + Suffix + '"';
    Target += Between + "\"v" + std::to_string(Word) + Suffix + '"';
  }
  std::string Text = Score();
  Text += Line(Label(LabelNumber), Source, Target) + "(\n" + Alignment(1, 1);
  if (HasConstraints) {
    Text += vWords.front() % 2 == 0 ? "((x0 num) = sg)\n" : "((x0 num) = pl)\n";
  }
  return Text + ")\n";
}

/// All places agree in number.
std::string LearnedGrammar::PhraseRule() {
  const std::size_t Size = 2 + Numbers.Below(4);
  std::vector<std::pair<std::size_t, std::string>> vTargets;
  std::string Source;
  std::string Constraints;
  std::size_t LastPlace = 0;
  std::size_t Places = 0;
  for (std::size_t Index = 1; Index <= Size; ++Index) {
    const bool IsWanted = Numbers.OneIn(2) || (Index == Size && Places == 0);
    const bool IsPlace = IsWanted && Places < 2;
    const std::size_t Word = IsPlace ? 0 : Ranked(vWordLimits);
    const std::string Place = IsPlace ? Label(Ranked(vLabelLimits)) : "";
    const std::string Digits = std::to_string(Word) + Suffix + '"';
    Source += (Index == 1 ? "" : " ") + (IsPlace ? Place : "\"w" + Digits);
    vTargets.emplace_back(IsPlace ? Index : 0, IsPlace ? Place : "\"v" + Digits);
    if (IsPlace) {
      Constraints +=
          "((x" + std::to_string(LastPlace) + " num) = (x" + std::to_string(Index) + " num))\n";
      LastPlace = Index;
      ++Places;
    }
  }
  if (Numbers.OneIn(2)) {
    std::rotate(vTargets.begin(), vTargets.begin() + 1, vTargets.end());
  }
  std::string Target;
  std::string Alignments;
  for (std::size_t Index = 0; Index < Size; ++Index) {
    Target += (Index == 0 ? "" : " ") + vTargets[Index].second;
    Alignments += vTargets[Index].first == 0 ? "" : Alignment(vTargets[Index].first, Index + 1);
  }
  std::string Text = Score();
  Text += Line(Label(Ranked(vLabelLimits)), Source, Target) + "(\n" + Alignments;
  return Text + (HasConstraints ? Constraints : "") + ")\n";
}

std::string LearnedGrammar::GlueRules() const {
  const std::string Whole = 'S' + Suffix;
  std::string Text;
  for (std::size_t Number = 0; Number < Labels; ++Number) {
    const std::string Part = Label(Number);
    Text += ";;Score: 1\n" + Line(Whole, Part, Part) + "(\n" + Alignment(1, 1) +
            (HasConstraints ? "((x0 num) = (x1 num))\n" : "") + ")\n";
    Text += ";;Score: 1\n" + Line(Whole, Whole + ' ' + Part, Whole + ' ' + Part) + "(\n" +
            Alignment(1, 1) + Alignment(2, 2) + (HasConstraints ? "((x0 num) = (x2 num))\n" : "") +
            ")\n";
  }
  return Text;
}

std::string LearnedGrammar::BaseRules() {
  std::string Text = GlueRules();
  for (std::size_t Word = 0; Word < Words; ++Word) {
    Text += LexicalRule(Ranked(vLabelLimits), {Word});
  }
  return Text;
}

std::string LearnedGrammar::NextRule() {
  if (Numbers.Below(5) >= 2) {
    return PhraseRule();
  }
  std::vector<std::size_t> vWords;
  for (std::size_t Count = 1 + Numbers.Below(3); Count > 0; --Count) {
    vWords.push_back(Ranked(vWordLimits));
  }
  const std::size_t Label = Ranked(vLabelLimits);
  return LexicalRule(Label, vWords);
}

std::string LearnedGrammar::Sentence(std::size_t Size) {
  std::string Text;
  for (std::size_t Index = 0; Index < Size; ++Index) {
    Text += (Index == 0 ? "w" : " w") + std::to_string(Ranked(vWordLimits)) + Suffix;
  }
  return Text;
}

std::string LearnedGrammar::NextSentence() {
  const std::size_t Size = 10 + Numbers.Below(16);
  return Sentence(Size);
}
