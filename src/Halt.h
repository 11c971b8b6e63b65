#pragma once

#include <string>

/// @file
/// The inputs on which the library does not return, and how a host survives them.
///
/// Nine malformed inputs print a message and end the process with exit status 1, and two calls
/// never return: they wait. A host that must keep running installs a handler, which is called
/// instead of the exit or the wait. A handler that throws returns control to the caller of the
/// library:
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
///   Rule.GetAlignmentStr();  // "((1,1))"
/// @endcode
/// The message is printed before the handler is called. The rule keeps what was set before.

/// One of the nine fatal inputs, or one of the two calls that never return.
enum class HaltReason {
  AlignmentFormat,          ///< an alignment string without its outer parentheses
  ReversedAlignmentFormat,  ///< an alignment pair without exactly two parts, while reversing
  LexicalizedType,          ///< the labels of a side other than 1 (SL) and 2 (TL)
  ComplexAgreement,         ///< `SetConstraint(text, rank, category)` with a complex agreement
  CategoryRange,            ///< `Constraint::SetCategory` with a category outside 1 to 4
  AgreedIndex,              ///< an agreement constraint whose value has no index
  Category1Order,           ///< category 1 constraints refer to each other in a cycle
  Category2Order,           ///< the same for category 2; kept, though its order cannot fail
  Category3and4Order,       ///< the same for categories 3 and 4
  EraseNeverReturns,        ///< `TrRule::EraseConstraint` on an entry with another value
  SplitNeverReturns,        ///< `StringUtils::Split` on a text that ends with its delimiter
};

/// A function that is called on a halt. It receives the reason and the message as printed, without
/// the last line end. The two calls that never return print nothing; for them the message is a
/// sentence that names the call. If the handler throws, the exception reaches the caller of the
/// library. If it returns, the process ends with status 1, or the call waits, as without a handler.
using HaltHandler = void (*)(HaltReason WhatPassIn, const std::string& MessagePassIn);

/// Installs a handler for the whole process; may be called at any time, from any thread.
/// @param HandlerPassIn the handler, or a null pointer for none, as at the start
/// @return the previous handler, null if there was none
__attribute__((visibility("default"))) HaltHandler SetHaltHandler(
    HaltHandler HandlerPassIn) noexcept;

/// The installed handler, null if there is none. May be called from any thread.
__attribute__((visibility("default"))) HaltHandler GetHaltHandler() noexcept;

namespace TrRuleInternal {

/// Halts: prints the message and a line end (on standard output for `ComplexAgreement`, on standard
/// error for the other fatal inputs, nowhere for the calls that never return) and calls the
/// handler. If there is none or it returns, flushes both streams and then exits with status 1, or
/// waits without using the processor.
[[noreturn]] void Halt(HaltReason What, const std::string& Message);

}  // namespace TrRuleInternal
