#include "RuleGenerator.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using Texts = std::vector<std::string>;

const Texts& Labels() {
  static const Texts vsLabels = {
      "N",    "DET",  "V",     "ADJ",   "P",    "NP",   "PRON", "ADV",    "PP",   "CONJ",
      "VP",   "AUX",  "NUM",   "PROPN", "PART", "S",    "SBAR", "ADJP",   "ADVP", "QUANT",
      "NEG",  "COMP", "MODAL", "POSS",  "INTJ", "PUNC", "WH",   "CLITIC", "GER",  "INF",
      "VBAR", "NBAR", "CASE",  "TNS",   "ASP",  "MOOD", "ORD",  "FOC",    "TOP",  "\"de\""};
  return vsLabels;
}

const Texts& Features() {
  static const Texts vsFeatures = {"num", "agr", "gen",   "case",    "def",
                                   "per", "mod", "tense", "agr gen", "det"};
  return vsFeatures;
}

const Texts& Values() {
  static const Texts vsValues = {"sg", "pl", "nom", "acc", "+", "-", "past", "pres", "masc", "fem"};
  return vsValues;
}

const Texts& Words() {
  static const Texts vsWords = {"the", "red",   "car", "house", "sees",  "old",  "of",
                                "a",   "child", "el",  "auto",  "vieja", "come", "para"};
  return vsWords;
}

std::string Node(char Side, std::size_t Index) {
  return Side + std::to_string(Index);
}

}  // namespace

RuleGenerator::RuleGenerator(std::uint64_t Seed) : Numbers(Seed), vLabelLimits(Labels().size()) {
  double Rank = 0;
  double Sum = 0;
  for (double& Limit : vLabelLimits) {
    Sum += 1 / ++Rank;
    Limit = Sum;
  }
}

const std::string& RuleGenerator::Pick(const std::vector<std::string>& vsTexts) {
  return vsTexts[Below(vsTexts.size())];
}

std::string RuleGenerator::Label() {
  constexpr std::size_t Steps = 1000000;
  const double Point =
      vLabelLimits.back() * static_cast<double>(Below(Steps)) / static_cast<double>(Steps);
  const auto Found = std::upper_bound(vLabelLimits.begin(), vLabelLimits.end(), Point);
  return Labels()[static_cast<std::size_t>(Found - vLabelLimits.begin())];
}

std::string RuleGenerator::Sequence(std::size_t Size) {
  std::string Text = "[";
  for (std::size_t Position = 0; Position < Size; ++Position) {
    Text += (Position == 0 ? "" : " ") + Label();
  }
  return Text + ']';
}

std::string RuleGenerator::Comments(std::size_t Words_) {
  std::string Text;
  for (const char* Label : {";; SL:", ";; TL:"}) {
    Text += Label;
    for (std::size_t Word = 0; Word < Words_; ++Word) {
      Text += ' ' + Pick(Words());
    }
    Text += '\n';
  }
  return Text + ";; Users: " + std::to_string(1 + Below(20)) + '\n';
}

/// A partial permutation: each target component is aligned at most once, one in six never.
std::string RuleGenerator::Alignments(std::size_t SLSize, std::size_t TLSize) {
  std::vector<std::size_t> vTargets(TLSize);
  std::iota(vTargets.begin(), vTargets.end(), std::size_t{1});
  for (std::size_t Last = TLSize; Last > 1; --Last) {
    std::swap(vTargets[Last - 1], vTargets[Below(Last)]);
  }
  std::string Text;
  for (std::size_t Position = 0; Position < std::min(SLSize, TLSize); ++Position) {
    if (Position == 0 || !OneIn(6)) {
      Text +=
          "(X" + std::to_string(Position + 1) + "::Y" + std::to_string(vTargets[Position]) + ")\n";
    }
  }
  return Text;
}

std::string RuleGenerator::Value() {
  const std::string First = Pick(Values());
  if (OneIn(6)) {
    return "(*OR* " + First + ' ' + Pick(Values()) + ')';
  }
  return OneIn(8) ? "(*NOT* " + First + ')' : First;
}

/// References go only to higher indices, so that there is no cycle.
std::string RuleGenerator::SourceConstraint(std::size_t SLSize) {
  const std::size_t Index = Below(SLSize);
  const std::size_t Higher = Index + 1 + Below(SLSize - Index);
  const std::string Left = Node('x', Index);
  const std::string& Feature = Pick(Features());
  switch (Below(4)) {
    case 0:
      return "(" + Left + " = " + Node('x', Higher) + ")";
    case 1:
      return "((" + Left + ' ' + Feature + ") = (" + Node('x', Higher) + ' ' + Feature + "))";
    case 2:
      return "((" + Left + " det) = " + Node('x', Higher) + ")";
    default:
      return "((" + Left + ' ' + Feature + ") = " + Value() + ")";
  }
}

/// References go only to lower indices, and from y0 only to x0.
std::string RuleGenerator::TargetConstraint(std::size_t SLSize, std::size_t TLSize) {
  const std::size_t Index = 1 + Below(TLSize);
  const std::string Left = Node('y', Index);
  const std::string Lower = Node('y', Below(Index));
  const std::string& Feature = Pick(Features());
  switch (Below(6)) {
    case 0:
      return "(y0 = x0)";
    case 1:
      return "(" + Left + " = " + Lower + ")";
    case 2:
      return "(" + Left + " == (" + Lower + ' ' + Feature + "))";
    case 3:
      return "((" + Left + ' ' + Feature + ") = (" + Lower + ' ' + Feature + "))";
    case 4:
      return "((" + Left + ' ' + Feature + ") = (" + Node('x', 1 + Below(SLSize)) + ' ' + Feature +
             "))";
    default:
      return "((" + Left + ' ' + Feature + ") = " + Value() + ")";
  }
}

std::string RuleGenerator::Constraint(std::size_t SLSize, std::size_t TLSize) {
  return OneIn(2) ? SourceConstraint(SLSize) : TargetConstraint(SLSize, TLSize);
}

std::string RuleGenerator::NextRule() {
  const std::size_t SLSize = 1 + Below(8);
  const std::size_t TLSize = 1 + Below(8);
  const std::string Type = Label();
  std::string Text = Comments(SLSize);
  Text += "{" + Type + ',' + std::to_string(Below(1000)) + "}\n";
  Text += Type + "::" + (OneIn(10) ? Label() : Type) + " : ";
  Text += Sequence(SLSize) + " -> " + Sequence(TLSize) + "\n(\n" + Alignments(SLSize, TLSize);
  for (std::size_t Left = Below(11); Left > 0; --Left) {
    Text += Constraint(SLSize, TLSize) + '\n';
  }
  return Text + ")\n";
}

std::vector<std::string> GeneratedRules(std::uint64_t Seed, std::size_t Count) {
  RuleGenerator Generator(Seed);
  std::vector<std::string> vsRules;
  vsRules.reserve(Count);
  for (std::size_t Rule = 0; Rule < Count; ++Rule) {
    vsRules.push_back(Generator.NextRule());
  }
  return vsRules;
}
