#include "FindingTally.h"

#include <gtest/gtest.h>

namespace {

using Grammar::FindingTally;
using Grammar::Severity;

FindingTally TallyOf(int Errors, int Warnings, int Notes) {
  FindingTally Tally;
  for (int Count = 0; Count < Errors; ++Count) {
    Tally.Add("TR009", Severity::Error);
  }
  for (int Count = 0; Count < Warnings; ++Count) {
    Tally.Add("TR031", Severity::Warning);
  }
  for (int Count = 0; Count < Notes; ++Count) {
    Tally.Add("TR031", Severity::Note);
  }
  return Tally;
}

TEST(FindingTally, SumsEachSeverity) {
  EXPECT_EQ(FindingTally().Summary(), "0 errors, 0 warnings, 0 notes");
  EXPECT_EQ(TallyOf(1, 1, 1).Summary(), "1 error, 1 warning, 1 note");
  EXPECT_EQ(TallyOf(2, 0, 12).Summary(), "2 errors, 0 warnings, 12 notes");
}

TEST(FindingTally, CountsCodesAndSeveritiesSeparately) {
  FindingTally Tally = TallyOf(2, 3, 5);
  Tally.Add("TR049", Severity::Warning);
  EXPECT_EQ(Tally.Count(Severity::Error), 2U);
  EXPECT_EQ(Tally.Count(Severity::Warning), 4U);
  EXPECT_EQ(Tally.Count(Severity::Note), 5U);
  EXPECT_EQ(Tally.Count("TR031", Severity::Warning), 3U);
  EXPECT_EQ(Tally.Count("TR031", Severity::Note), 5U);
  EXPECT_EQ(Tally.Count("TR031", Severity::Error), 0U);
}

TEST(FindingTally, AlignsTheCountsOfItsTable) {
  EXPECT_EQ(FindingTally().Table(), "");
  EXPECT_EQ(TallyOf(2, 0, 12).Table(),
            " 2  TR009  error    a constraint names a component that the rule does not have\n"
            "12  TR031  note     a constraint is given twice\n");
  EXPECT_EQ(TallyOf(0, 1, 1).Table(),
            "1  TR031  warning  a constraint is given twice\n"
            "1  TR031  note     a constraint is given twice\n");
}

TEST(FindingTally, WritesItsTableAsJson) {
  EXPECT_EQ(FindingTally().JsonTable(), "[]\n");
  EXPECT_EQ(TallyOf(2, 0, 12).JsonTable(),
            "[\n{\"code\":\"TR009\",\"severity\":\"error\",\"count\":2,\"title\":\"a constraint "
            "names a component that the rule does not have\"},\n"
            "{\"code\":\"TR031\",\"severity\":\"note\",\"count\":12,\"title\":\"a constraint is "
            "given twice\"}\n]\n");
}

}  // namespace
