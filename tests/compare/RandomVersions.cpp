#include "RandomVersions.h"

#include <algorithm>
#include <numeric>
#include <utility>

using Grammar::ComparedRule;

namespace {

using Strings = std::vector<std::string>;

const Strings Types{"NP", "VP", "N-bar"};
const Strings Labels{"DET", "N", "ADJ", "\"the\"", "\"El;\"", "V", "\xC3\xA9"};
const Strings Features{"num", "agr gen", "def"};
const Strings Values{"sg", "pl", "(*OR* sg du)", "(*NOT* pl)", "+"};
const Strings Comments{
    ";; from the news", ";;SL: the car",   ";;TL: el coche",    ";; caf\xE9 \x01",
    ";; {NP,1} x = y",  "; a single sign", ";;C-Structure: (S", ";;",
    ";; tab\tand\\"};

std::size_t OneTo(RandomInput& Random, std::size_t Limit) {
  return 1 + Random.Below(Limit);
}

std::string RandomNode(RandomInput& Random, const ComparedRule& Rule, bool CanBeWhole) {
  const std::size_t Side = Random.Below(2);
  const std::size_t Number = Random.Below(Rule.Labels[Side].size() + 1);
  const std::string Name = (Side == 0 ? "x" : "y") + std::to_string(Number);
  return CanBeWhole ? Name : '(' + Name + ' ' + Random.Pick(Features) + ')';
}

std::string RandomConstraint(RandomInput& Random, const ComparedRule& Rule) {
  const std::size_t Form = Random.Below(4);
  const std::string Left = RandomNode(Random, Rule, Form == 0);
  const std::string Right = Form == 1 ? Random.Pick(Values) : RandomNode(Random, Rule, Form == 0);
  return '(' + Left + " = " + Right + ')';
}

std::string RandomComment(RandomInput& Random) {
  constexpr std::size_t Zeros = 3;
  if (Random.Below(12) == 0) {
    return ";; zero" + std::string(Zeros, '\0') + "s";
  }
  return Random.Pick(Comments);
}

std::string RandomScore(RandomInput& Random) {
  return ";;Score:" + std::to_string(Random.Below(20));
}

std::string RandomAlignment(RandomInput& Random, const ComparedRule& Rule) {
  const std::size_t X = OneTo(Random, Rule.Labels[0].size());
  const std::size_t Y = OneTo(Random, Rule.Labels[1].size());
  return "(X" + std::to_string(X) + "::Y" + std::to_string(Y) + ')';
}

std::string RandomHeader(RandomInput& Random) {
  const std::size_t Kind = Random.Below(12);
  const std::string Type = Random.Pick(Types);
  return Kind == 0   ? ""
         : Kind == 1 ? "{" + Type + "}"
                     : "{" + Type + ',' + std::to_string(Random.Below(40)) + '}';
}

void AddUnlessThere(std::string New, Strings& vsReturn) {
  if (std::find(vsReturn.begin(), vsReturn.end(), New) == vsReturn.end()) {
    vsReturn.push_back(std::move(New));
  }
}

/// The rule as it is read again: some constraints merge, or refer to each other in a circle.
bool MakeNormal(ComparedRule& RuleReturn) {
  const auto Text = RuleReturn.Text();
  if (!Text) {
    return false;
  }
  RuleReturn = *ComparedRule::Of(*Text);
  return true;
}

}  // namespace

ComparedRule RandomRule(RandomInput& Random) {
  for (;;) {
    ComparedRule Rule;
    Rule.Header = RandomHeader(Random);
    for (const std::size_t Side : {std::size_t{0}, std::size_t{1}}) {
      Rule.Types[Side] = Random.Pick(Types);
      for (std::size_t Count = OneTo(Random, 4); Count > 0; --Count) {
        Rule.Labels[Side].push_back(Random.Pick(Labels));
      }
    }
    for (std::size_t Count = OneTo(Random, 4); Count > 0; --Count) {
      AddUnlessThere(RandomAlignment(Random, Rule), Rule.vsAlignments);
    }
    for (std::size_t Count = Random.Below(5); Count > 0; --Count) {
      Rule.vsConstraints.push_back(RandomConstraint(Random, Rule));
    }
    for (std::size_t Count = Random.Below(4); Count > 0; --Count) {
      Rule.vsComments.push_back(Random.Below(3) == 0 ? RandomScore(Random) : RandomComment(Random));
    }
    if (MakeNormal(Rule)) {
      return Rule;
    }
  }
}

namespace {

void RemoveSome(RandomInput& Random, Strings& vsReturn) {
  if (!vsReturn.empty()) {
    vsReturn.erase(vsReturn.begin() + static_cast<std::ptrdiff_t>(Random.Below(vsReturn.size())));
  }
}

void InsertSome(RandomInput& Random, std::string New, Strings& vsReturn) {
  const auto Place = static_cast<std::ptrdiff_t>(Random.Below(vsReturn.size() + 1));
  vsReturn.insert(vsReturn.begin() + Place, std::move(New));
}

void ChangeOnePart(RandomInput& Random, ComparedRule& RuleReturn) {
  const std::size_t Side = Random.Below(2);
  switch (Random.Below(11)) {
    case 0:
      RuleReturn.Header = RandomHeader(Random);
      break;
    case 1:
      RuleReturn.Types[Side] = Random.Pick(Types);
      break;
    case 2:
      RuleReturn.Labels[Side][Random.Below(RuleReturn.Labels[Side].size())] = Random.Pick(Labels);
      break;
    case 3:
      InsertSome(Random, Random.Pick(Labels), RuleReturn.Labels[Side]);
      break;
    case 4:
      AddUnlessThere(RandomAlignment(Random, RuleReturn), RuleReturn.vsAlignments);
      break;
    case 5:
      RemoveSome(Random, RuleReturn.vsAlignments);
      break;
    case 6:
      RuleReturn.vsConstraints.push_back(RandomConstraint(Random, RuleReturn));
      break;
    case 7:
      RemoveSome(Random, RuleReturn.vsConstraints);
      break;
    case 8:
      InsertSome(Random, RandomComment(Random), RuleReturn.vsComments);
      break;
    case 9:
      InsertSome(Random, RandomScore(Random), RuleReturn.vsComments);
      break;
    default:
      RemoveSome(Random, RuleReturn.vsComments);
      break;
  }
}

}  // namespace

void ChangeSomeParts(RandomInput& Random, ComparedRule& RuleReturn) {
  ComparedRule Changed = RuleReturn;
  for (std::size_t Count = Random.Below(4); Count > 0; --Count) {
    ChangeOnePart(Random, Changed);
  }
  if (MakeNormal(Changed)) {
    RuleReturn = Changed;
  }
}

namespace {

/// Exchanges lines, which means nothing.
void Shuffle(RandomInput& Random, Strings& vsReturn) {
  for (std::size_t At = vsReturn.size(); At > 1; --At) {
    std::swap(vsReturn[At - 1], vsReturn[Random.Below(At)]);
  }
}

std::string LineEnds(std::string Text, bool HasReturns) {
  for (std::size_t At = 0; HasReturns && (At = Text.find('\n', At)) != std::string::npos; At += 2) {
    Text.insert(At, 1, '\r');
  }
  return Text;
}

}  // namespace

std::string RandomLayout(RandomInput& Random, const ComparedRule& Rule) {
  ComparedRule Laid = Rule;
  Shuffle(Random, Laid.vsAlignments);
  std::string Text = Random.Below(3) == 0 ? "\n" : "";
  for (const std::string& sComment : Laid.vsComments) {
    Text += (Random.Below(4) == 0 ? "  " : "") + sComment + '\n';
  }
  Text += Laid.Header.empty() ? "" : Laid.Header + '\n';
  Text += Laid.Types[0] + "::" + Laid.Types[1] + (Random.Below(2) == 0 ? " : [" : " [");
  for (const std::size_t Side : {std::size_t{0}, std::size_t{1}}) {
    for (std::size_t At = 0; At < Laid.Labels[Side].size(); ++At) {
      Text += (At == 0 ? "" : " ") + Laid.Labels[Side][At];
    }
    Text += Side == 0 ? "] -> [" : "]\n(\n";
  }
  for (const std::string& sAlignment : Laid.vsAlignments) {
    Text += sAlignment + (Random.Below(5) == 0 ? "  \n" : "\n");
  }
  for (const std::string& sConstraint : Laid.vsConstraints) {
    Text += sConstraint + (Random.Below(5) == 0 ? "\n\n" : "\n");
  }
  return LineEnds(Text + ")\n", Random.Below(6) == 0);
}

namespace {

/// A rule that cannot be read, after which the next one begins with certainty.
std::string BadRule(RandomInput& Random) {
  static const Strings vsBodies{"NP::NP : [DET N] -> [DET N\n(\n(X1::Y1)\n)\n",
                                "NP::NP : [N] -> [N]\n(\n((x1 num = sg)\n)\n",
                                "NP::NP : [N] -> [N]\n(\n)\n", "(X1::Y1)\n"};
  const std::string Number = std::to_string(Random.Below(5));
  return LineEnds("; bad\n\n{BAD," + Number + "}\n" + Random.Pick(vsBodies), Random.Below(6) == 0);
}

}  // namespace

RandomVersions::RandomVersions(RandomInput& Random) {
  std::vector<std::string> vsNew;
  for (std::size_t Count = Random.Below(7); Count > 0; --Count) {
    const std::size_t Fate = Random.Below(10);
    if (Fate == 9) {
      const std::string Bad = BadRule(Random);
      Old += Random.Below(3) == 0 ? "" : Bad;
      vsNew.push_back(Random.Below(3) == 0 ? "" : Bad);
      continue;
    }
    ComparedRule Rule = RandomRule(Random);
    Old += Fate == 0 ? "" : RandomLayout(Random, Rule);
    Old += Fate == 1 ? RandomLayout(Random, Rule) : "";
    if (Fate > 4) {
      ChangeSomeParts(Random, Rule);
    }
    vsNew.push_back(Fate == 2 ? "" : RandomLayout(Random, Rule));
    vsNew.push_back(Fate == 3 ? RandomLayout(Random, Rule) : "");
  }
  if (Random.Below(3) == 0) {
    Shuffle(Random, vsNew);
  }
  New = std::accumulate(vsNew.begin(), vsNew.end(), std::string());
  Old += Random.Below(6) == 0 ? "\n; the end\n\n" : "";
  New += Random.Below(6) == 0 ? "; the end" : "";
}
