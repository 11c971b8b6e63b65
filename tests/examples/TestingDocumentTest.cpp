// docs/testing.md keeps what it says: its examples are run.

#include "ConsolePage.h"

#include <gtest/gtest.h>

namespace {

TEST(TestingDocument, ShowsTheOutputOfTheCommands) {
  ExpectConsolesHold("docs/testing.md");
}

}  // namespace
