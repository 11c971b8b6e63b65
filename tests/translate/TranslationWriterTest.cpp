#include "TranslationWriter.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

TEST(TranslationWriter, WritesScoresInNats) {
  const std::vector<std::pair<std::int64_t, const char*>> vCases = {
      {0, "0.000000"},         {-1, "-0.000001"},       {-999999, "-0.999999"},
      {-1000000, "-1.000000"}, {-1386294, "-1.386294"}, {INT64_MIN, "-9223372036854.775808"},
      {12000034, "12.000034"},
  };
  for (const auto& [Score, Text] : vCases) {
    std::string Written;
    Translate::AppendScore(Score, Written);
    EXPECT_EQ(Written, Text);
  }
}

TEST(TranslationWriter, WritesTheSameResultInEachForm) {
  TestEngine Engine("N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
  Translate::TextOptions Options;
  Options.IsPartial = true;
  Translate::WriterOptions Form;
  EXPECT_EQ(Engine.Written("car", Options, Form), "auto\n");
  EXPECT_EQ(Engine.Written("a car", Options, Form), "a auto\n");
  Form.IsList = true;
  EXPECT_EQ(Engine.Written("car", Options, Form), "0.000000\tauto\n\n");
  EXPECT_EQ(Engine.Written("a car", Options, Form), "a auto\n\n");
  Form.Format = Translate::TextFormat::Tree;
  EXPECT_EQ(Engine.Written("car", Options, Form), "car\n0.000000 auto\nN::N a.trr:1 \"car\"\n\n");
  Form.Colours = true;
  EXPECT_EQ(Engine.Written("x", {}, Form), "x\nno translation\n\n");
  const std::string Word = "\x1b[1mN::N\x1b[0m \x1b[34ma.trr:1\x1b[0m\x1b[32m \"car\"\x1b[0m\n";
  EXPECT_EQ(Engine.Written("car", Options, Form),
            "car\n0.000000 \x1b[1mauto\x1b[0m\n" + Word + "\n");
  EXPECT_EQ(Engine.Written("a car", Options, Form),
            "a car\nno translation\n\x1b[1ma\x1b[0m\n\x1b[1mauto\x1b[0m\n" + Word + "\n");
}

TEST(TranslationWriter, ColoursTheBranchesOfATree) {
  TestEngine Engine(
      "{NP,1}\nNP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n((x0 num) = (x2 num))\n"
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n");
  Translate::WriterOptions Form;
  Form.Format = Translate::TextFormat::Tree;
  Form.Colours = true;
  EXPECT_EQ(Engine.Written("the car", {}, Form),
            "the car\n0.000000 \x1b[1mel auto\x1b[0m\n"
            "\x1b[1mNP::NP\x1b[0m \x1b[34m{NP,1} a.trr:2\x1b[0m\x1b[32m \"the car\"\x1b[0m "
            "[NUM=SG] -> []\n"
            "\x1b[90m└─ \x1b[0m\x1b[1mN::N\x1b[0m \x1b[34ma.trr:5\x1b[0m\x1b[32m \"car\"\x1b[0m "
            "[NUM=SG] -> []\n\n");
}

}  // namespace
