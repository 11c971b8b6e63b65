#include "NearestName.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

TEST(NearestName, IsTheOnlySimilarName) {
  const Strings vsNames{"check", "print", "sort", "unique", "json", "from-json"};
  const std::vector<std::pair<std::string, std::string>> Cases{{"check", "check"},
                                                               {"chekc", "check"},
                                                               {"CHEKC", "check"},
                                                               {"chck", "check"},
                                                               {"checkk", "check"},
                                                               {"cheek", "check"},
                                                               {"srot", "sort"},
                                                               {"fromjson", "from-json"},
                                                               {"from_json", "from-json"},
                                                               {"uniqeu", "unique"},
                                                               {"uniq", ""},
                                                               {"jsn", "json"},
                                                               {"", ""},
                                                               {"x", ""},
                                                               {"so", ""},
                                                               {"lint", ""},
                                                               {"chekkc", "check"},
                                                               {"hcekkc", ""},
                                                               {std::string(200, 'x'), ""}};
  for (const auto& [sWritten, sExpected] : Cases) {
    EXPECT_EQ(Grammar::NearestName(sWritten, vsNames), sExpected) << sWritten;
  }
  EXPECT_EQ(Grammar::NearestName("TR09", {"TR009", "TR019", "TR029"}), "");
  EXPECT_EQ(Grammar::NearestName("TR35", {"TR009", "TR035", "TR029"}), "TR035");
  EXPECT_EQ(Grammar::NearestName("TR0x9", {"TR009", "TR019", "TR029"}), "");
  EXPECT_EQ(Grammar::NearestName("check", {}), "");
}

TEST(NearestName, IsSuggestedOrElseAPlaceToLook) {
  EXPECT_EQ(Grammar::AdviceOn("chekc", {"check"}, "see there"), "; did you mean check?");
  EXPECT_EQ(Grammar::AdviceOn("frob", {"check"}, "see there"), "; see there");
}

}  // namespace
