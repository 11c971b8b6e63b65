#pragma once

#include <string>

/// @file
/// The places where the library does not return to its caller, and how a host outlives them.
///
/// Nine malformed inputs end the process with exit status 1 after their message has been written,
/// and two calls never return: they wait. A host that must not die installs a handler, which is
/// called in place of the exit or the wait. A handler that throws gives control back to the
/// caller of the library:
/// @code
///   SetHaltHandler([](HaltReason, const std::string& Message) {
///     throw std::runtime_error(Message);
///   });
///   TrRule Rule;
///   try {
///     Rule.SetAlignment("1,1");  // no outer parentheses
///   } catch (const std::runtime_error&) {
///     Rule.SetAlignment("((1,1))");  // the rule is still usable
///   }
/// @endcode
/// The message has been written to its stream before the handler is called. The rule then holds
/// what had been set until that point.

/// What happened: one of the nine fatal inputs, or one of the two calls that never return.
enum class HaltReason {
  AlignmentFormat,          ///< an alignment string without its outer parentheses
  ReversedAlignmentFormat,  ///< an alignment pair without exactly two parts, while reversing
  LexicalizedType,          ///< a side other than 1 (SL) or 2 (TL) was asked for its labels
  ComplexAgreement,         ///< `SetConstraint(text, rank, category)` with a complex agreement
  CategoryRange,            ///< `Constraint::SetCategory` with a category outside 1 to 4
  AgreedIndex,              ///< an agreement constraint whose value names no index
  Category1Order,           ///< category 1 constraints refer to each other in a cycle
  Category2Order,           ///< the same for category 2; kept, though its order cannot fail
  Category3and4Order,       ///< the same for categories 3 and 4
  EraseNeverReturns,        ///< `TrRule::EraseConstraint` on an entry with another value
  SplitNeverReturns,        ///< `StringUtils::Split` on a text that ends with its delimiter
};

/// A function that decides what becomes of a halt. It receives what happened and the message as
/// it was written, without its last line end; for the two calls that never return, which write
/// nothing, a sentence that says which call it was. If it throws, the exception reaches the
/// caller of the library; if it returns, the process ends with status 1, or the call waits, as
/// without it.
using HaltHandler = void (*)(HaltReason WhatPassIn, const std::string& MessagePassIn);

/// Installs a handler for the whole process; may be called at any time, from any thread.
/// @param HandlerPassIn the handler, or a null pointer for none, which is the state at the start
/// @return the handler installed before, null when there was none
__attribute__((visibility("default"))) HaltHandler SetHaltHandler(
    HaltHandler HandlerPassIn) noexcept;

/// The handler that is installed, null when there is none. May be called from any thread.
__attribute__((visibility("default"))) HaltHandler GetHaltHandler() noexcept;

namespace TrRuleInternal {

/// The library's own way to halt: writes the message and a line end to its stream (standard
/// output for `ComplexAgreement`, standard error for the other fatal inputs, nowhere for the
/// calls that never return), calls the handler, and, if there is none or it returns, flushes both
/// streams and then exits with status 1, or waits without using the processor.
[[noreturn]] void Halt(HaltReason What, const std::string& Message);

}  // namespace TrRuleInternal
