// The cost of the library as its inputs grow: each case performs one operation on an input of a
// given size.
//
//   trrule-growth                       lists the cases: name, first size, limit
//   trrule-growth read-constraints 500  prepares that input, and does the work in MeasuredWork
//
// Messages go nowhere, byte by byte, as to a stream somewhere.

#include "ConstraintCycles.h"
#include "GrowthCase.h"
#include "LineUp.h"
#include "TrRule.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <random>
#include <set>
#include <streambuf>
#include <string>
#include <vector>

namespace {

using Growth::Case;
using Growth::Linear;
using Growth::Quadratic;
using Growth::StrictlyLinear;
using Growth::Work;

/// Reads the output byte by byte, as a stream would, and discards it.
class NoBuffer : public std::streambuf {
 protected:
  int overflow(int Byte) override { return Byte; }

  std::streamsize xsputn(const char* Text, std::streamsize Size) override {
    for (const char* Byte = Text; Byte != Text + Size; ++Byte) {
      Sum += static_cast<unsigned char>(*Byte);
    }
    return Size;
  }

 private:
  unsigned Sum = 0;
};

std::string Repeated(const std::string& Text, int Times) {
  std::string Whole;
  for (int Count = 0; Count < Times; ++Count) {
    Whole += Text;
  }
  return Whole;
}

/// The numbers from 1, shuffled in the same way each time.
std::vector<int> Mixed(int Count) {
  std::vector<int> vNumbers;
  for (int Number = 1; Number <= Count; ++Number) {
    vNumbers.push_back(Number);
  }
  std::shuffle(vNumbers.begin(), vNumbers.end(), std::mt19937(1));
  return vNumbers;
}

std::string AlignmentsOf(const std::vector<int>& vNumbers) {
  std::string Text;
  for (const int Number : vNumbers) {
    const std::string Digits = std::to_string(Number);
    Text.append(Text.empty() ? "((" : ",(").append(Digits).append(",").append(Digits).append(")");
  }
  return Text + ')';
}

std::string ConstraintLines(int Count) {
  std::string Lines;
  for (const int Number : Mixed(Count)) {
    Lines += "(y" + std::to_string(Number) + "=x1)\n";
  }
  return Lines;
}

constexpr const char* RuleStart = "NP::NP [N] -> [N]\n(X1::Y1)\n";

/// A rule behind a pointer, since it would be copied into the work.
using Shared = std::shared_ptr<TrRule>;

Shared NewRule() {
  return std::make_shared<TrRule>();
}

/// A rule with a value and an agreement for each of `Size` nodes.
Shared ConstrainedRule(int Count) {
  Shared Rule = NewRule();
  Rule->SetAlignment(AlignmentsOf({1}));
  Rule->SetSLPOS(std::vector<std::string>{"N"});
  Rule->SetTLPOS(std::vector<std::string>{"N"});
  for (int Number = 1; Number <= Count; ++Number) {
    Rule->SetConstraint(1, Number, "NUM", "SG", -1, true);
    Rule->SetConstraint(4, Number, "all", "Y" + std::to_string(Number / 2), -1, false);
  }
  return Rule;
}

// ---- Texts ------------------------------------------------------------------------------------

Work CutText(int Size) {
  return [Text = Repeated(" ab::", Size)] { Tokenizer()(Text, "::", true); };
}

Work CutNearMisses(int Size) {
  return [Text = Repeated("] -> (] ", Size)] { Tokenizer()(Text, "] -> ["); };
}

Work Trim(int Size) {
  return [Text = Repeated(" ", Size)] {
    StringUtils::RemoveLeadingWhiteSpace(Text);
    StringUtils::RemoveTrailingWhiteSpace(Text);
    StringUtils::RemoveAllWhiteSpace(Text);
    StringUtils::RemoveBackslashR(Text);
  };
}

Work Replace(int Size) {
  return [Text = Repeated("a'", Size)] { StringUtils::ReplaceAll(Text, "'", "\\'"); };
}

Work Escape(int Size) {
  return [Text = Repeated("a'\\'", Size)] { StringUtils::EscapeChar(Text, '\''); };
}

Work Split(int Size) {
  return [Text = Repeated("a ", Size) + 'a'] { StringUtils::Split(Text, " "); };
}

Work SetLabels(int Size) {
  return [Rule = NewRule(), Text = Repeated("DET ", Size)] { Rule->SetSLPOS(Text); };
}

Work SetWords(int Size) {
  return [Rule = NewRule(),
          vsWords = std::vector<std::string>(static_cast<std::size_t>(Size), "it's")] {
    Rule->SetTLWords(vsWords);
  };
}

// ---- Reading ----------------------------------------------------------------------------------

Work ReadText(const std::string& Text) {
  return [Rule = NewRule(), Text] { Rule->SetTrRuleFromString(Text); };
}

Work ReadConstraints(int Size) {
  return ReadText(RuleStart + ConstraintLines(Size));
}

Work ReadAlignments(int Size) {
  std::string Lines = "NP::NP [N] -> [N]\n";
  for (int Number = 1; Number <= Size; ++Number) {
    const std::string Digits = std::to_string(Number);
    Lines += "(X" + Digits + "::Y" + Digits + ")\n";
  }
  return ReadText(Lines);
}

Work ReadComments(int Size) {
  return ReadText(RuleStart + Repeated(";; a\n", Size));
}

Work ReadHeaders(int Size) {
  return ReadText(RuleStart + Repeated("{NP,1}\n", Size));
}

Work ReadOneLongLine(int Size) {
  return ReadText("(x1 =" + Repeated(" ]{:;(", Size) + ")\n" + RuleStart);
}

Work ReadRefusedLines(int Size) {
  return ReadText(RuleStart + Repeated("(x1 = x2 = x3)\n", Size));
}

Work ReadLongConstraint(int Size) {
  return [Text = "((x0 " + Repeated("f 1 ", Size) + ") = (*OR* " + Repeated("v (x", Size) + "))"] {
    Constraint Record(Text);
  };
}

// ---- Alignments -------------------------------------------------------------------------------

Work AddAlignments(int Size) {
  return [Rule = NewRule(), Size] {
    for (int Number = 1; Number <= Size; ++Number) {
      const std::string Digits = std::to_string(Number);
      Rule->AddAlignment("(X" + Digits + "::Y" + Digits + ")");
    }
  };
}

Work SetAlignments(int Size) {
  return [Rule = NewRule(), Text = AlignmentsOf(Mixed(Size))] { Rule->SetAlignment(Text); };
}

Work SetDamagedAlignments(int Size) {
  return
      [Rule = NewRule(), Text = '(' + Repeated(",)(,", Size) + ')'] { Rule->SetAlignment(Text); };
}

/// Each pair without an index prints two messages, and each message contains the whole string.
Work SetPairsWithoutIndices(int Size) {
  return [Rule = NewRule(), Text = '(' + Repeated("(1),", Size) + "(1))"] {
    Rule->SetAlignment(Text);
  };
}

Work Show(const Shared& Rule, const std::string& Alignments) {
  Rule->SetAlignment(Alignments);
  return [Rule] { Rule->GetAlignments(); };
}

Work ShowAlignments(int Size) {
  const Shared Rule = NewRule();
  Rule->SetSLPOS(std::vector<std::string>(static_cast<std::size_t>(Size), "N"));
  Rule->SetTLPOS(std::vector<std::string>(static_cast<std::size_t>(Size), "N"));
  return Show(Rule, AlignmentsOf(Mixed(Size)));
}

Work ShowClosedPairs(int Size) {
  return Show(NewRule(), '(' + Repeated("a)", Size) + ",1)");
}

Work ShowOpenPairs(int Size) {
  return Show(NewRule(), '(' + Repeated("1,", Size) + "1)");
}

/// Each parenthesis begins a pair, and all of these pairs share the one long text before the comma.
Work ShowSharedIndex(int Size) {
  return Show(NewRule(), '(' + Repeated("))", Size) + '(' + Repeated("x", Size) + ",1)");
}

Work Flip(int Size) {
  const Shared Rule = NewRule();
  Rule->SetAlignment(AlignmentsOf(Mixed(Size)));
  return [Rule] { Rule->FlipRuleNoConstraints(); };
}

Work LookUp(int Size) {
  return [Text = AlignmentsOf(Mixed(Size))] {
    std::set<int> siPartners;
    LineUp().GetEq(Text, 1, siPartners);
    LineUp().GetEqFromY(Text, 1, siPartners);
  };
}

Work LookUpNothing(int Size) {
  return [Text = Repeated("(", Size) + Repeated("(,", Size)] {
    std::set<int> siPartners;
    LineUp().GetEq(Text, 1, siPartners);
  };
}

// ---- Constraints ------------------------------------------------------------------------------

Work SetValues(int Size) {
  return [Rule = NewRule(), vNumbers = Mixed(Size)] {
    for (const int Number : vNumbers) {
      Rule->SetConstraint(1, Number, "NUM", "SG", -1, true);
    }
  };
}

void AddAgreements(TrRule& Rule, const std::vector<int>& vNumbers) {
  for (const int Number : vNumbers) {
    Rule.SetConstraint(4, 1, "NUM", "(Y" + std::to_string(Number), -1, false);
  }
}

Work SetAgreements(int Size) {
  return [Rule = NewRule(), vNumbers = Mixed(Size)] { AddAgreements(*Rule, vNumbers); };
}

Work MergeSameValue(int Size) {
  return [Rule = NewRule(), Size] {
    for (int Count = 0; Count < Size; ++Count) {
      Rule->SetConstraint(1, 1, "NUM", Count % 2 == 0 ? "SG" : "PL", -1, true);
    }
  };
}

Work MergeValues(int Size) {
  return [Rule = NewRule(), vNumbers = Mixed(Size)] {
    for (const int Number : vNumbers) {
      Rule->SetConstraint(1, 1, "NUM", std::to_string(Number), -1, true);
    }
  };
}

/// A value visits the agreements that share its node and feature.
Work SetValuesBesideAgreements(int Size) {
  const Shared Rule = NewRule();
  AddAgreements(*Rule, Mixed(Size));
  return [Rule, Size] {
    for (int Count = 0; Count < Size; ++Count) {
      Rule->SetConstraint(4, 1, "NUM", Count % 2 == 0 ? "SG" : "PL", -1, true);
    }
  };
}

Work WriteChain(int Size) {
  const Shared Rule = NewRule();
  for (const int Number : Mixed(Size)) {
    Rule->SetConstraint(1, Number, "all", "X" + std::to_string(Number + 1), -1, false);
  }
  return [Rule] { Rule->ReturnAsStringForComparison(); };
}

Work WriteStar(int Size) {
  const Shared Rule = NewRule();
  for (const int Number : Mixed(Size)) {
    Rule->SetConstraint(4, Number, "all", "Y0", -1, false);
    Rule->SetConstraint(4, 0, "all", "Y" + std::to_string(Number + Size), -1, false);
  }
  return [Rule] { Rule->ReturnAsStringForComparison(); };
}

Work ListConstraints(int Size) {
  return [Rule = ConstrainedRule(Size)] {
    Rule->GetConstraints(5);
    Rule->GetConstraintsAsSet();
    Rule->GetConstraintsAsSetC();
    Rule->GetConstraintsForInd(1, {1, 4});
  };
}

Work EraseConstraints(int Size) {
  return [Rule = ConstrainedRule(Size), Size] {
    Rule->EraseConstraint(Size, "NUM", "SG", "empty", {1});
    Rule->EraseCategoryConstraints(4);
  };
}

/// Each node waits for the next one, and every tenth also for the first of its ten.
Work FindCycles(int Size) {
  constexpr int SourceNode = 1;
  std::vector<Grammar::Reference> vReferences;
  for (int Number = 0; Number < Size; ++Number) {
    const auto Line = static_cast<std::size_t>(Number);
    vReferences.push_back({SourceNode, Number, Number + 1, Line});
    if (Number % 10 == 9) {
      vReferences.push_back({SourceNode, Number, Number - 9, Line});
    }
  }
  return [vReferences] { Grammar::FindCycles(vReferences); };
}

// ---- Whole rules ------------------------------------------------------------------------------

Work Print(int Size) {
  return [Rule = ConstrainedRule(Size)] { Rule->Print(); };
}

Work Copy(int Size) {
  const Shared Rule = ConstrainedRule(Size);
  Rule->SetAlignment(AlignmentsOf(Mixed(Size)));
  return [Rule] { TrRule Other(*Rule); };
}

Work Compare(int Size) {
  return [Rule = ConstrainedRule(Size), Other = ConstrainedRule(Size)] {
    const bool IsLess = *Rule < *Other;
    const bool IsEqual = *Rule == *Other;
    if (IsLess || !IsEqual) {
      std::abort();
    }
  };
}

Work WriteAlternatives(int Size) {
  const Shared Rule = NewRule();
  for (int Count = 0; Count < Size; ++Count) {
    Rule->AddAlterTrInfo("a", "b", "((1,1))", "c", {{0, 0}}, {{0, 0}}, {"DET"}, {"DET"});
  }
  return [Rule] { Rule->ReturnAsStringWithAllAlts(); };
}

const std::vector<Case>& Cases() {
  static const std::vector<Case> vCases = {
      {"cut a text", 4000, Linear, CutText},
      {"cut at near misses", 3000, Linear, CutNearMisses},
      {"trim", 20000, Linear, Trim},
      {"replace", 10000, Linear, Replace},
      {"escape", 10000, Linear, Escape},
      {"split", 10000, Linear, Split},
      {"set labels", 5000, Linear, SetLabels},
      {"set words", 5000, Linear, SetWords},
      {"read constraint lines", 2000, Linear, ReadConstraints},
      {"read alignment lines", 1000, StrictlyLinear, ReadAlignments},
      {"read comment lines", 4000, Linear, ReadComments},
      {"read header lines", 3000, Linear, ReadHeaders},
      {"read one long line", 4000, Linear, ReadOneLongLine},
      {"read refused lines", 1500, Linear, ReadRefusedLines},
      {"read a long constraint", 5000, Linear, ReadLongConstraint},
      {"add alignments one by one", 250, Quadratic, AddAlignments},
      {"set alignments in one string", 2000, Linear, SetAlignments},
      {"set damaged alignments", 5000, Linear, SetDamagedAlignments},
      {"set pairs without indices", 200, Quadratic, SetPairsWithoutIndices},
      {"show alignments", 2000, Linear, ShowAlignments},
      {"show pairs a)a)...,", 5000, Linear, ShowClosedPairs},
      {"show pairs 1,1,...", 5000, Linear, ShowOpenPairs},
      {"show pairs ))...(xx...,", 500, Quadratic, ShowSharedIndex},
      {"flip", 1500, Linear, Flip},
      {"look up", 2000, Linear, LookUp},
      {"look up in ((...(,(,...", 5000, Linear, LookUpNothing},
      {"set values", 1000, Linear, SetValues},
      {"set agreements", 1000, Linear, SetAgreements},
      {"merge two values over and over", 1000, Linear, MergeSameValue},
      {"merge new values", 100, Quadratic, MergeValues},
      {"set values beside agreements", 200, Quadratic, SetValuesBesideAgreements},
      {"write a dependency chain", 1000, Linear, WriteChain},
      {"write a dependency star", 1000, Linear, WriteStar},
      {"list constraints", 500, Linear, ListConstraints},
      {"erase constraints", 1000, Linear, EraseConstraints},
      {"print", 500, Linear, Print},
      {"copy", 1000, Linear, Copy},
      {"compare", 500, Linear, Compare},
      {"write alternatives", 1000, Linear, WriteAlternatives},
      {"find cycles", 1000, Linear, FindCycles},
  };
  return vCases;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  NoBuffer Nowhere;
  const bool IsListed = ArgumentCount != 3;
  std::streambuf* OldOut = IsListed ? std::cout.rdbuf() : std::cout.rdbuf(&Nowhere);
  std::streambuf* OldErr = IsListed ? std::cerr.rdbuf() : std::cerr.rdbuf(&Nowhere);
  const int Status = Growth::RunCases(ArgumentCount, Arguments, Cases());
  std::cout.rdbuf(OldOut);
  std::cerr.rdbuf(OldErr);
  return Status;
}
