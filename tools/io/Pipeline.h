#pragma once

#include <tbb/concurrent_queue.h>
#include <tbb/global_control.h>
#include <tbb/parallel_pipeline.h>
#include <tbb/task_arena.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace Grammar {

/// Reads batches one after the other, works on several at once, and finishes them in the order in
/// which they were read. So what is written is the same for any number of threads. Only a few
/// batches are held at a time, and used again. What a step throws ends the run and reaches the
/// caller.
///
/// @code
/// int Last = 0;
/// std::vector<int> vSquares;
/// const auto Read = [&](int& Number) { return (Number = ++Last) <= 3; };
/// const auto Square = [](int& Number) { Number *= Number; };
/// RunPipeline<int>(2, Read, Square, [&](int Number) { vSquares.push_back(Number); });
/// vSquares;  // {1, 4, 9}
/// @endcode
///
/// @param Threads how many threads work; with one, all is done by the caller's
/// @param Read fills a batch, new or used; false if there is nothing more to read
/// @param Work works on a batch; called on several threads at once
/// @param Finish takes a batch that has been worked on
template <typename BatchT, typename ReadT, typename WorkT, typename FinishT>
void RunPipeline(unsigned Threads, ReadT Read, WorkT Work, FinishT Finish) {
  if (Threads == 1) {
    for (BatchT Batch; Read(Batch);) {
      Work(Batch);
      Finish(Batch);
    }
    return;
  }
  // They are owned here: the pipeline does not free what an exception leaves between two steps.
  std::vector<std::unique_ptr<BatchT>> vBatches;
  tbb::concurrent_queue<BatchT*> Used;
  const auto ReadStep = [&](tbb::flow_control& Flow) {
    BatchT* Batch = nullptr;
    if (!Used.try_pop(Batch)) {
      Batch = vBatches.emplace_back(std::make_unique<BatchT>()).get();
    }
    if (!Read(*Batch)) {
      Flow.stop();
    }
    return Batch;
  };
  const auto WorkStep = [&](BatchT* Batch) {
    Work(*Batch);
    return Batch;
  };
  const auto FinishStep = [&](BatchT* Batch) {
    Finish(*Batch);
    Used.push(Batch);
  };
  const std::size_t Most = std::size_t{4} * Threads;
  // Without this, more threads than cores are rejected.
  const tbb::global_control Limit(tbb::global_control::max_allowed_parallelism, Threads);
  tbb::task_arena Arena(static_cast<int>(Threads));
  Arena.execute([&] {
    tbb::parallel_pipeline(
        Most, tbb::make_filter<void, BatchT*>(tbb::filter_mode::serial_in_order, ReadStep) &
                  tbb::make_filter<BatchT*, BatchT*>(tbb::filter_mode::parallel, WorkStep) &
                  tbb::make_filter<BatchT*, void>(tbb::filter_mode::serial_in_order, FinishStep));
  });
}

}  // namespace Grammar
