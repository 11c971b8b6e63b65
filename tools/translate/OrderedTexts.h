#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace Translate {

/// What a text has become: what goes to standard output, and what to standard error.
struct TextOutput {
  std::string Out;
  std::string Messages;
};

/// Passes texts to any number of threads, and their results on in the order of the texts. No more
/// texts are held than a few for each thread.
///
/// @code
/// std::istringstream Input("the\nred\ncar\n");
/// std::string Output;
/// OrderedTexts Texts(
///     4, [&](std::string& Text) { return bool(std::getline(Input, Text)); },
///     [&](const TextOutput& Result, bool) { Output += Result.Out; });
/// Texts.Run([] {
///   return [](const std::string& Text, std::size_t Line) {
///     return TextOutput{std::to_string(Line) + ' ' + Text + '\n', ""};
///   };
/// });
/// Output;  // "1 the\n2 red\n3 car\n"
/// @endcode
class OrderedTexts {
 public:
  /// Returns the next text; false after the last. Never called by two threads at once.
  using Source = std::function<bool(std::string& TextReturn)>;
  /// Takes the results in order; `IsWaiting` says that some thread waits for more input, so that
  /// what was written should be seen. Never called by two threads at once.
  using Sink = std::function<void(const TextOutput& Result, bool IsWaiting)>;
  /// Works on one text; `Line` counts from 1.
  using Worker = std::function<TextOutput(const std::string& Text, std::size_t Line)>;
  /// Makes a worker for a thread, in that thread.
  using WorkerMaker = std::function<Worker()>;

  OrderedTexts(unsigned ThreadsPassIn, Source NextTextPassIn, Sink TakeResultPassIn)
      : Threads(ThreadsPassIn),
        NextText(std::move(NextTextPassIn)),
        TakeResult(std::move(TakeResultPassIn)) {}

  /// Works on all texts. What any of the functions throws ends the run, and is thrown on.
  void Run(const WorkerMaker& MakeWorker);

 private:
  void Work(const WorkerMaker& MakeWorker);
  std::optional<std::size_t> Take(std::string& TextReturn);
  void Give(std::size_t Line, TextOutput Result);
  void Stop(std::exception_ptr Reason);

  unsigned Threads;
  Source NextText;
  Sink TakeResult;
  std::mutex Input;
  std::mutex Output;
  std::condition_variable HasRoom;
  std::map<std::size_t, TextOutput> mResults;  // that wait for one before them
  std::size_t LinesRead = 0;                   // under Input
  std::size_t LinesWritten = 0;                // under Output, like all that follows
  bool IsReading = false;
  bool IsStopped = false;
  std::exception_ptr Failure;
};

}  // namespace Translate
