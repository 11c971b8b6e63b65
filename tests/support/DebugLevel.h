#pragma once

#include "GlobalParams.h"

/// Sets the debugging level for a scope and restores the old one.
class DebugLevel {
 public:
  explicit DebugLevel(int Level) : OldLevel(GlobalParams::DebuggingLevel) {
    GlobalParams::DebuggingLevel = Level;
  }

  ~DebugLevel() { GlobalParams::DebuggingLevel = OldLevel; }

  DebugLevel(const DebugLevel&) = delete;
  DebugLevel& operator=(const DebugLevel&) = delete;

 private:
  int OldLevel;
};
