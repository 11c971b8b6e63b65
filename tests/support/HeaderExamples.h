#pragma once

#include "Halt.h"
#include "support/DebugLevel.h"
#include "support/StreamCapture.h"

/// The tests that tests/header_examples.py generates from the worked examples in headers.
///
///   HeaderExamples::Comparisons();  // the number of values and outputs that are compared
namespace HeaderExamples {

/// The number of headers with examples.
int Headers();

/// The number of values and outputs in all examples.
int Comparisons();

/// Discards the messages of an example, and restores the settings that it may change: the debugging
/// level and the handler.
class Scope {
 public:
  Scope() : OldHandler(GetHaltHandler()) {}
  ~Scope() { SetHaltHandler(OldHandler); }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

 private:
  StreamCapture Streams;
  DebugLevel Level{0};
  HaltHandler OldHandler;
};

}  // namespace HeaderExamples
