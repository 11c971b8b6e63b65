// docs/translating.md keeps what it says: its examples are run.

#include "ConsolePage.h"

#include <gtest/gtest.h>

namespace {

TEST(TranslatingDocument, ShowsTheOutputOfTheCommands) {
  ExpectConsolesHold("docs/translating.md");
}

}  // namespace
