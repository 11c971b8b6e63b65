// Batches come out in the order in which they were read, few are held at a time, and what a step
// throws reaches the caller, whatever the number of threads.

#include "Pipeline.h"
#include "ThreadCount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Grammar::RunPipeline;

constexpr unsigned ThreadCounts[] = {1, 2, 3, 8};
constexpr int Batches = 2000;

struct Batch {
  int Number = 0;
  int Squared = 0;
};

void Square(Batch& BatchReturn) {
  BatchReturn.Squared = BatchReturn.Number * BatchReturn.Number;
}

TEST(Pipeline, FinishesBatchesInTheOrderInWhichTheyWereRead) {
  std::vector<int> vExpected;
  for (int Number = 0; Number < Batches; ++Number) {
    vExpected.push_back(Number * Number);
  }
  for (const unsigned Threads : ThreadCounts) {
    int Next = 0;
    std::vector<int> vFinished;
    RunPipeline<Batch>(
        Threads, [&](Batch& BatchReturn) { return (BatchReturn.Number = Next++) < Batches; },
        Square, [&](const Batch& Current) { vFinished.push_back(Current.Squared); });
    EXPECT_EQ(vFinished, vExpected) << Threads;
  }
}

TEST(Pipeline, KeepsAFewBatchesForEachThread) {
  for (const unsigned Threads : ThreadCounts) {
    int Next = 0;
    std::atomic<int> Held{0};
    int Most = 0;
    RunPipeline<Batch>(
        Threads,
        [&](Batch& BatchReturn) {
          Most = std::max(Most, ++Held);
          return (BatchReturn.Number = Next++) < Batches;
        },
        Square, [&](const Batch&) { --Held; });
    EXPECT_LE(Most, 4 * static_cast<int>(Threads)) << Threads;
  }
}

TEST(Pipeline, RethrowsExceptionsOfAnyStep) {
  constexpr int Bad = 100;
  for (const unsigned Threads : ThreadCounts) {
    for (const std::string sStep : {"read", "work", "finish"}) {
      int Next = 0;
      int Finished = 0;
      const auto Fail = [&](const std::string& Step, const Batch& Current) {
        if (Step == sStep && Current.Number == Bad) {
          throw std::runtime_error(Step);
        }
      };
      const auto Read = [&](Batch& BatchReturn) {
        BatchReturn.Number = Next++;
        Fail("read", BatchReturn);
        return BatchReturn.Number < Batches;
      };
      const auto Finish = [&](const Batch& Current) {
        Fail("finish", Current);
        ++Finished;
      };
      std::string Thrown;
      try {
        RunPipeline<Batch>(
            Threads, Read, [&](Batch& Current) { Fail("work", Current); }, Finish);
      } catch (const std::runtime_error& Error) {
        Thrown = Error.what();
      }
      EXPECT_EQ(Thrown, sStep) << Threads;
      EXPECT_LE(Finished, Bad) << Threads;
    }
  }
}

struct CountedBatch : Batch {
  CountedBatch() { ++Alive; }
  CountedBatch(const CountedBatch&) = delete;
  CountedBatch& operator=(const CountedBatch&) = delete;
  ~CountedBatch() { --Alive; }

  static std::atomic<int> Alive;
};

std::atomic<int> CountedBatch::Alive{0};

TEST(Pipeline, FreesAllBatchesAlsoAfterAnException) {
  for (const unsigned Threads : ThreadCounts) {
    for (const int Bad : {100, Batches}) {
      int Next = 0;
      const auto Run = [&] {
        RunPipeline<CountedBatch>(
            Threads, [&](Batch& BatchReturn) { return (BatchReturn.Number = Next++) < Batches; },
            Square,
            [&](const Batch& Current) {
              if (Current.Number == Bad) {
                throw std::runtime_error("bad");
              }
            });
      };
      if (Bad < Batches) {
        EXPECT_THROW(Run(), std::runtime_error) << Threads;
      } else {
        Run();
      }
      EXPECT_EQ(CountedBatch::Alive, 0) << Threads;
    }
  }
}

TEST(Pipeline, UsesAllCoresByDefault) {
  EXPECT_EQ(Grammar::ThreadCount(3), 3U);
  EXPECT_GE(Grammar::ThreadCount(0), 1U);
}

}  // namespace
