#pragma once

#include "Halt.h"

#include <optional>
#include <ostream>
#include <string>

/// The exception of the throwing handler: its two arguments.
struct Halted {
  HaltReason What;
  std::string Message;

  friend bool operator==(const Halted& Left, const Halted& Right) {
    return Left.What == Right.What && Left.Message == Right.Message;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Halted& Halt) {
    return Stream << "reason " << static_cast<int>(Halt.What) << ": " << Halt.Message;
  }
};

/// A handler that returns control to the test.
[[noreturn]] inline void ThrowHalted(HaltReason WhatPassIn, const std::string& MessagePassIn) {
  throw Halted{WhatPassIn, MessagePassIn};
}

/// Installs a handler for a scope and restores the old one.
///
///   HaltGuard Guard;  // calls that would end the process now throw `Halted`
///   EXPECT_THROW(Rule.SetAlignment("1,1"), Halted);
class HaltGuard {
 public:
  explicit HaltGuard(HaltHandler Handler = ThrowHalted) : OldHandler(SetHaltHandler(Handler)) {}

  ~HaltGuard() { SetHaltHandler(OldHandler); }

  HaltGuard(const HaltGuard&) = delete;
  HaltGuard& operator=(const HaltGuard&) = delete;

 private:
  HaltHandler OldHandler;
};

/// Runs code that may halt. Returns the halt, or nothing if the code returned.
///
///   EXPECT_EQ(HaltOf([&] { Rule.Print(); }), std::nullopt);
template <typename CodeT>
std::optional<Halted> HaltOf(CodeT Code) {
  const HaltGuard Guard;
  try {
    Code();
  } catch (const Halted& Halt) {
    return Halt;
  }
  return std::nullopt;
}
