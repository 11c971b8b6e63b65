#include "OrderedTexts.h"

#include <thread>
#include <vector>

namespace Translate {

void OrderedTexts::Run(const WorkerMaker& MakeWorker) {
  std::vector<std::thread> vThreads;
  for (unsigned Index = 1; Index < Threads; ++Index) {
    vThreads.emplace_back([&] { Work(MakeWorker); });
  }
  Work(MakeWorker);
  for (std::thread& Thread : vThreads) {
    Thread.join();
  }
  if (Failure) {
    std::rethrow_exception(Failure);
  }
}

void OrderedTexts::Work(const WorkerMaker& MakeWorker) {
  try {
    const Worker Translate = MakeWorker();
    std::string Text;
    while (const std::optional<std::size_t> Line = Take(Text)) {
      Give(*Line, Translate(Text, *Line));
    }
  } catch (...) {
    Stop(std::current_exception());
  }
}

/// Takes the next text, as soon as there is room for its result.
/// @return the number of its line, from 1; nothing after the last one
std::optional<std::size_t> OrderedTexts::Take(std::string& TextReturn) {
  constexpr std::size_t TextsForThread = 64;
  const std::lock_guard<std::mutex> Reading(Input);
  {
    std::unique_lock<std::mutex> Waiting(Output);
    HasRoom.wait(Waiting,
                 [&] { return IsStopped || LinesRead - LinesWritten < TextsForThread * Threads; });
    if (IsStopped) {
      return std::nullopt;
    }
    IsReading = true;
  }
  const bool IsThere = NextText(TextReturn);
  const std::lock_guard<std::mutex> Done(Output);
  IsReading = false;
  IsStopped = IsStopped || !IsThere;
  return IsThere ? std::optional(++LinesRead) : std::nullopt;
}

/// Keeps a result until those before it are there.
void OrderedTexts::Give(std::size_t Line, TextOutput Result) {
  const std::lock_guard<std::mutex> Writing(Output);
  mResults.emplace(Line, std::move(Result));
  while (!mResults.empty() && mResults.begin()->first == LinesWritten + 1) {
    TakeResult(mResults.begin()->second, IsReading);
    mResults.erase(mResults.begin());
    ++LinesWritten;
  }
  HasRoom.notify_all();
}

void OrderedTexts::Stop(std::exception_ptr Reason) {
  const std::lock_guard<std::mutex> Writing(Output);
  IsStopped = true;
  Failure = Failure ? Failure : std::move(Reason);
  HasRoom.notify_all();
}

}  // namespace Translate
