// The worked examples in the headers of src/ are compiled, run and compared with the results that
// they show: tests/header_examples.py generates one test for each example.

#include "support/HeaderExamples.h"

#include <gtest/gtest.h>

#include "BuildPaths.h"

#include <filesystem>

TEST(HeaderExamples, CoverEveryHeader) {
  int Headers = 0;
  for (const auto& Entry :
       std::filesystem::directory_iterator(BuildPaths::SourceFolder + std::string("/src"))) {
    Headers += Entry.path().extension() == ".h" ? 1 : 0;
  }
  // OrderHalt.h declares only a function that ends the process.
  EXPECT_EQ(HeaderExamples::Headers(), Headers - 1);
}

TEST(HeaderExamples, CompareTheirResults) {
  EXPECT_EQ(HeaderExamples::Comparisons(), 70);
}
