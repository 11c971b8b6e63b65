#include "StructureText.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(StructureText, WritesStructuresForProgramsAndForPeople) {
  struct Case {
    const char* Constraints;
    const char* Json;
    const char* Short;
  };
  const std::vector<Case> vCases = {
      {"", "{}", "[]"},
      {"((x0 num) = sg)\n", R"({"NUM":"SG"})", "[NUM=SG]"},
      {"((x0 b) = q)\n((x0 a c) = (*OR* s r))\n", R"({"A":{"C":{"*OR*":["R","S"]}},"B":"Q"})",
       "[A=[C=R|S] B=Q]"},
      {"((x0 a) = (*NOT* q p))\n", R"({"A":{"*NOT*":["P","Q"]}})", "[A=!P|Q]"},
      {"((x0 a) = (*NOT* q))\n", R"({"A":{"*NOT*":["Q"]}})", "[A=!Q]"},
      {"((x0 b) = (x0 a))\n", R"({"A":{"#":1,"is":{}},"B":{"#":1}})", "[A=#1:[] B=#1]"},
      {"((x0 b c) = (x0 a))\n((x0 a d) = (x0 e))\n((x0 e) = p)\n",
       R"({"A":{"#":1,"is":{"D":{"#":2,"is":"P"}}},"B":{"C":{"#":1}},"E":{"#":2}})",
       "[A=#1:[D=#2:P] B=[C=#1] E=#2]"},
      {"((x0 a) = q\"\\)\n", R"({"A":"Q\"\\"})", "[A=Q\"\\]"},
  };
  for (const Case& Row : vCases) {
    TestEngine Engine(std::string("N::N : [\"a\"] -> [\"x\"]\n(X1::Y1)\n") + Row.Constraints);
    const Translate::TextResult Result = Engine.Engine.Translate("a", {});
    ASSERT_EQ(Result.vTranslations.size(), 1U) << Row.Constraints;
    const auto vNodes = Engine.Engine.NodesOf(Result.vTranslations[0].Tree, 0);
    Translate::StructureText Writer(Engine.Set(), Engine.Engine.Structures(),
                                    Engine.Engine.Atoms());
    std::string Json;
    std::string Short;
    Writer.AppendJson(vNodes[0].Structures.Source, Json);
    Writer.AppendShort(vNodes[0].Structures.Source, Short);
    EXPECT_EQ(Json, Row.Json);
    EXPECT_EQ(Short, Row.Short);
  }
}

TEST(StructureText, EscapesWhatJsonCannotContain) {
  std::string Text;
  Translate::AppendJsonString("a\"\\\n\t\x01/\xc3\xa9", Text);
  EXPECT_EQ(Text, "\"a\\\"\\\\\\n\\t\\u0001/\xc3\xa9\"");
}

}  // namespace
