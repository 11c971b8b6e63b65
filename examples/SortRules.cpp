// Sorts three thousand rules and drops duplicates, keeping the comments of each rule.
//
// The rules are kept by pointer, since a copy of a rule has no comments and no header type, and
// moving a rule inside a vector copies it. Each comparison text is written once.

#include <TrRule.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

/// A rule, and the text by which it is sorted.
struct Entry {
  std::string Text;
  std::unique_ptr<TrRule> Rule;
};

std::string LearnedRule(int Number) {
  const std::array<std::string, 5> sTypes{"NP", "VP", "PP", "S", "AP"};
  const std::array<std::string, 7> sHeads{"N", "V", "ADJ", "ADV", "P", "PRO", "NUM"};
  const std::array<std::string, 4> sFeatures{"num", "gen", "case", "def"};
  const auto Seed = static_cast<std::size_t>(Number);
  const std::string& sType = sTypes[Seed * 3 % sTypes.size()];
  const std::string& sHead = sHeads[Seed * 5 % sHeads.size()];
  const std::string& sFeature = sFeatures[Seed % sFeatures.size()];
  return ";; learned from sentence " + std::to_string(Number) + "\n{" + sType + ",0}\n" + sType +
         "::" + sType + " : [DET " + sHead + "] -> [" + sHead +
         " DET]\n(\n(X1::Y2)\n(X2::Y1)\n((y1 " + sFeature + ") = (y2 " + sFeature + "))\n)\n";
}

std::vector<Entry> ReadRules(int Count) {
  std::vector<Entry> vEntries;
  for (int Number = 1; Number <= Count; ++Number) {
    auto Rule = std::make_unique<TrRule>();
    Rule->SetTrRuleFromString(LearnedRule(Number));
    Rule->SetRuleIndex(Number);  // the reader reads only one digit of a header
    std::string Text = Rule->ReturnAsStringForComparison();
    vEntries.push_back({std::move(Text), std::move(Rule)});
  }
  return vEntries;
}

/// Keeps the first of several rules with one text, and counts the others as its examples.
void KeepOneOfEach(std::vector<Entry>& vEntriesReturn) {
  std::vector<Entry> vKept;
  for (Entry& Current : vEntriesReturn) {
    if (vKept.empty() || vKept.back().Text != Current.Text) {
      vKept.push_back(std::move(Current));
    } else {
      vKept.back().Rule->IncrementNumTrExamples();
    }
  }
  vEntriesReturn = std::move(vKept);
}

void PrintEntry(const Entry& Shown) {
  std::cout << "\nseen " << Shown.Rule->GetNumTrExamples() << " times:\n";
  Shown.Rule->Print();
}

}  // namespace

int main() {
  std::vector<Entry> vEntries = ReadRules(3000);
  std::cout << vEntries.size() << " rules read\n";
  // Stable, so that the first of equal rules comes first.
  std::stable_sort(vEntries.begin(), vEntries.end(),
                   [](const Entry& Left, const Entry& Right) { return Left.Text < Right.Text; });
  KeepOneOfEach(vEntries);
  std::cout << vEntries.size() << " of them differ\n";
  PrintEntry(vEntries.front());
  PrintEntry(vEntries.back());
}
