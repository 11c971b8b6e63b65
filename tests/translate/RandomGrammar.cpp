// Sections: texts, rule lines, constraints, rules, grammars.

#include "RandomGrammar.h"

#include "Bytes.h"

#include <initializer_list>
#include <utility>

// ---- Texts ------------------------------------------------------------------------------------

namespace {

/// Joins texts. Those in braces are made from the left to the right, with every compiler.
std::string Joined(std::initializer_list<std::string> vsTexts) {
  std::string Whole;
  for (const std::string& sEach : vsTexts) {
    Whole += sEach;
  }
  return Whole;
}

}  // namespace

std::string RandomRule::Text() const {
  std::string Whole = Head + "(\n" + Alignments;
  for (const RandomConstraint& Constraint : vConstraints) {
    Whole += Constraint.Text + '\n';
  }
  return Whole + ")\n";
}

std::string TextOf(const std::vector<RandomRule>& vRules) {
  std::string Text;
  for (const RandomRule& Rule : vRules) {
    Text += Rule.Text();
  }
  return Text;
}

std::string RandomGrammar::LetterOf(const std::string& Letters) {
  return std::string(1, Letters[Below(Letters.size())]);
}

/// The same, now and then in capitals.
std::string RandomGrammar::AnyCase(std::string Text) {
  return OneIn(8) ? Grammar::Upper(Text) : Text;
}

std::string RandomGrammar::Text(const std::string& Letters) {
  std::string Words;
  for (std::size_t Count = 1 + Below(4); Count > 0; --Count) {
    Words += Words.empty() ? "" : " ";
    Words += AnyCase(LetterOf(Letters));
  }
  return Words;
}

// ---- Rule lines -------------------------------------------------------------------------------

/// Labels; `KindsReturn` gets a letter for each place, and a blank for each literal.
std::string RandomGrammar::Sequence(std::size_t Size, bool IsSource, std::string& KindsReturn) {
  std::string Text;
  for (std::size_t Index = 0; Index < Size; ++Index) {
    const bool IsLiteral = OneIn(4);
    std::string Label = OneIn(12) ? LetterOf("abc") : LetterOf("ABC");
    if (IsLiteral) {
      Label = '"' + (OneIn(IsSource ? 30 : 6) ? "" : AnyCase(LetterOf("abc"))) + '"';
    }
    KindsReturn += IsLiteral ? " " : Label;
    Text += Index == 0 ? "" : " ";
    Text += Label;
  }
  return Text;
}

/// Mostly, each target component gets a source; sometimes one line too few, or one more.
std::string RandomGrammar::Alignments(const std::string& Source, const std::string& Target) {
  const auto Line = [&](std::size_t Y) {
    return "(X" + std::to_string(Below(Source.size()) + 1) + "::Y" + std::to_string(Y + 1) + ")\n";
  };
  std::string Text;
  for (std::size_t Y = 0; Y < Target.size(); ++Y) {
    Text += Y > 0 && OneIn(25) ? "" : Line(Y);
  }
  return OneIn(6) ? Text + Line(Below(Target.size())) : Text;
}

// ---- Constraints ------------------------------------------------------------------------------

std::string RandomGrammar::Features() {
  std::string Text = AnyCase(LetterOf("fgh"));
  while (OneIn(4)) {
    Text += ' ' + LetterOf("fgh");
  }
  return Text;
}

std::string RandomGrammar::Node(char Side, std::size_t Index) {
  return Joined({AnyCase(std::string(1, Side)), OneIn(20) ? "0" : "", std::to_string(Index)});
}

std::string RandomGrammar::Path(const Sizes& Counts) {
  const bool IsSource = OneIn(2);
  const std::string Text =
      IsSource ? Node('x', Below(Counts.first + 1)) : Node('y', Below(Counts.second + 1));
  return OneIn(4) ? Text : Joined({"(", Text, " ", Features(), ")"});
}

std::string RandomGrammar::Atom() {
  return OneIn(10) ? "new york" : AnyCase(LetterOf("pqr"));
}

/// Words between blanks.
std::string RandomGrammar::Atoms() {
  std::string Text = AnyCase(LetterOf("pqr"));
  while (OneIn(2)) {
    Text += ' ' + (OneIn(12) ? "x1" : LetterOf("pqr"));
  }
  return Text;
}

RandomConstraint RandomGrammar::Value(const Sizes& Counts) {
  const bool IsSource = OneIn(2);
  const std::size_t Index = OneIn(2) ? 0 : Below((IsSource ? Counts.first : Counts.second) + 1);
  const std::string Words = Features();
  RandomConstraint New;
  New.Path = (IsSource ? "X" : "Y") + std::to_string(Index) + ' ' + Grammar::Upper(Words);
  New.Text = Joined({"((", Node(IsSource ? 'x' : 'y', Index), " ", Words, ") "});
  switch (Below(5)) {
    case 0:
      New.Text += "= (*OR* " + Atoms() + "))";
      break;
    case 1:
      New.Text += "= (*NOT* " + Atoms() + "))";
      New.Path.clear();
      break;
    default:
      New.Text += "== " + Atom() + ')';
      break;
  }
  return New;
}

RandomConstraint RandomGrammar::Constraint(const Sizes& Counts) {
  if (OneIn(2)) {
    return Value(Counts);
  }
  return {Joined({"(", Path(Counts), " = ", Path(Counts), ")"}), ""};
}

/// What hands the structures of the parts on, so that there is something to agree about above.
void RandomGrammar::AddCarriers(const Sizes& Counts, RandomRule& RuleReturn) {
  const std::string X = std::to_string(1 + Below(Counts.first));
  const std::string Y = std::to_string(1 + Below(Counts.second));
  for (const std::string& sCurrent :
       {"(x0 = x" + X + ')', "(y0 = y" + Y + ')', std::string("(y0 = x0)"),
        "(y" + Y + " = x" + X + ')', "((x0 f) = x" + X + ')'}) {
    if (OneIn(5)) {
      RuleReturn.vConstraints.push_back({sCurrent, ""});
    }
  }
}

/// Paths of one side that lead to the same.
void RandomGrammar::AddSharing(const Sizes& Counts, RandomRule& RuleReturn) {
  const bool IsSource = OneIn(2);
  const char Side = IsSource ? 'x' : 'y';
  const std::size_t Index = OneIn(2) ? 0 : Below((IsSource ? Counts.first : Counts.second) + 1);
  for (std::size_t Count = 1 + Below(2); Count > 0; --Count) {
    RuleReturn.vConstraints.push_back({Joined({"((", Node(Side, Index), " ", Features(), ") = (",
                                               Node(Side, Index), " ", Features(), "))"}),
                                       ""});
  }
}

void RandomGrammar::AddConstraints(const Sizes& Counts, std::size_t Count, RandomRule& RuleReturn) {
  for (; Count > 0; --Count) {
    RuleReturn.vConstraints.push_back(Constraint(Counts));
  }
  if (OneIn(6)) {
    AddSharing(Counts, RuleReturn);
  }
  if (!RuleReturn.vConstraints.empty() && OneIn(10)) {
    RuleReturn.vConstraints.push_back(RuleReturn.vConstraints.front());
  }
}

// ---- Rules ------------------------------------------------------------------------------------

RandomRule RandomGrammar::LexicalRule() {
  RandomRule New;
  New.Head = Joined({";;Score: ", LetterOf("123"), "\n", LetterOf("ABC"), "::", LetterOf("ABC"),
                     " : [\"", LetterOf("abc"), "\"] -> [\"", LetterOf("xyz"), "\"]\n"});
  New.Alignments = "(X1::Y1)\n";
  AddConstraints({1, 1}, Below(4), New);
  return New;
}

RandomRule RandomGrammar::PhraseRule() {
  RandomRule New;
  std::string Source;
  std::string Target;
  const std::string Left = Sequence(1 + Below(3), true, Source);
  const std::string Right = Sequence(1 + Below(3), false, Target);
  New.Head = Joined({";;Score: ", LetterOf("123"), "\n", LetterOf("ABC"), "::", LetterOf("ABC"),
                     " : [", Left, "] -> [", Right, "]\n"});
  New.Alignments = Alignments(Source, Target);
  const Sizes Both{Source.size(), Target.size()};
  AddConstraints(Both, Below(3), New);
  AddCarriers(Both, New);
  return New;
}

// ---- Grammars ---------------------------------------------------------------------------------

std::vector<RandomRule> RandomGrammar::Rules() {
  std::vector<RandomRule> vRules;
  for (std::size_t Count = 4 + Below(6); Count > 0; --Count) {
    vRules.push_back(LexicalRule());
  }
  for (std::size_t Count = 4 + Below(24); Count > 0; --Count) {
    vRules.push_back(PhraseRule());
  }
  if (OneIn(4)) {
    vRules.push_back(vRules[Below(vRules.size())]);
  }
  return vRules;
}
