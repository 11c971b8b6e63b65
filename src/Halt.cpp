#include "Halt.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace {

std::atomic<HaltHandler> InstalledHandler{nullptr};

bool NeverReturns(HaltReason What) {
  return What == HaltReason::EraseNeverReturns || What == HaltReason::SplitNeverReturns;
}

void Write(HaltReason What, const std::string& Message) {
  if (NeverReturns(What)) {
    return;
  }
  std::ostream& Stream = What == HaltReason::ComplexAgreement ? std::cout : std::cerr;
  Stream << Message << '\n';
}

[[noreturn]] void Wait() {
  // Sleeping keeps the processor free, and the compiler may not remove it like an empty loop.
  for (;;) {
    std::this_thread::sleep_for(std::chrono::hours(1));
  }
}

}  // namespace

HaltHandler SetHaltHandler(HaltHandler HandlerPassIn) noexcept {
  return InstalledHandler.exchange(HandlerPassIn);
}

HaltHandler GetHaltHandler() noexcept {
  return InstalledHandler.load();
}

void TrRuleInternal::Halt(HaltReason What, const std::string& Message) {
  Write(What, Message);
  if (const HaltHandler Handler = GetHaltHandler()) {
    Handler(What, Message);
  }
  std::cout.flush();
  std::cerr.flush();
  if (NeverReturns(What)) {
    Wait();
  }
  std::exit(EXIT_FAILURE);
}
