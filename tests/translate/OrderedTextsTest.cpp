#include "OrderedTexts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace {

TEST(OrderedTexts, ReturnsResultsInOrder) {
  std::size_t Given = 0;
  std::string Out;
  std::string Expected;
  Translate::OrderedTexts Texts(
      4,
      [&](std::string& Text) {
        Text = std::to_string(Given);
        return Given++ < 1000;
      },
      [&](const Translate::TextOutput& Result, bool) { Out += Result.Out; });
  Texts.Run([] {
    return [](const std::string& Text, std::size_t Line) {
      return Translate::TextOutput{Text + '/' + std::to_string(Line) + ' ', ""};
    };
  });
  for (int Number = 0; Number < 1000; ++Number) {
    Expected += std::to_string(Number) + '/' + std::to_string(Number + 1) + ' ';
  }
  EXPECT_EQ(Out, Expected);
}

TEST(OrderedTexts, RethrowsExceptionsOfWorkers) {
  Translate::OrderedTexts Texts(
      3, [](std::string&) { return true; }, [](const Translate::TextOutput&, bool) {});
  EXPECT_THROW(Texts.Run([] {
    return [](const std::string&, std::size_t Line) -> Translate::TextOutput {
      if (Line == 100) {
        throw std::runtime_error("enough");
      }
      return {};
    };
  }),
               std::runtime_error);
}

}  // namespace
