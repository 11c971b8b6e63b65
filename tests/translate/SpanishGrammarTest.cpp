// The grammar to learn from, examples/grammar/spanish: it is clean, and translates its sentences as
// shown. The examples in its comments are run by `trrule test`: see SpanishExamplesTest.cpp.

#include "GrammarPaths.h"
#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string Folder = GrammarPaths::SourceFolder + std::string("/examples/grammar/spanish");
const Strings Files{"grammar.trr", "lexicon.trr"};

std::string ReadFile(const std::string& Name) {
  std::ifstream File(Folder + '/' + Name, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

/// What the command gives for both files, in their folder.
ChildEnd RunOnGrammar(const std::string& Command, const Strings& vsOptions,
                      const std::string& Input) {
  Strings vsArguments{Command, Files[0], Files[1]};
  vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
  return RunTrrule(vsArguments, Folder, Input);
}

TEST(SpanishGrammar, HasNoFindings) {
  EXPECT_EQ(RunOnGrammar("check", {}, "/dev/null"), (ChildEnd{0, "", ""}));
}

TEST(SpanishGrammar, TranslatesItsSentences) {
  const std::vector<std::pair<std::string, Strings>> Cases{{"sentences", {}},
                                                           {"ambiguous", {"-k", "9"}}};
  for (const auto& [sName, vsOptions] : Cases) {
    EXPECT_EQ(RunOnGrammar("translate", vsOptions, Folder + '/' + sName + ".txt"),
              (ChildEnd{0, ReadFile(sName + ".expected.txt"), ""}));
  }
}

}  // namespace
