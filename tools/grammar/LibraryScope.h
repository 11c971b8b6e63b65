#pragma once

#include <Halt.h>

#include <iostream>
#include <optional>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace Grammar {

/// Thrown in place of an end of the process, or of a call that would not return.
class LibraryHalt : public std::runtime_error {
 public:
  LibraryHalt(HaltReason WhatPassIn, const std::string& MessagePassIn)
      : std::runtime_error(MessagePassIn), What(WhatPassIn) {}

  HaltReason Reason() const { return What; }

 private:
  HaltReason What;
};

/// While it lives, the library can neither write to the standard streams nor end the process.
/// One at a time; what was there before comes back at its end.
///
///   LibraryScope Scope;
///   Rule.SetTrRuleFromString(Text);
///   Scope.Messages();  // what the library said
class LibraryScope {
 public:
  LibraryScope();
  ~LibraryScope();

  LibraryScope(const LibraryScope&) = delete;
  LibraryScope& operator=(const LibraryScope&) = delete;

  /// All that was written to either stream, in order.
  const std::string& Messages() const;

 private:
  std::streambuf* OldOut;
  std::streambuf* OldErr;
  HaltHandler OldHandler;
};

}  // namespace Grammar
