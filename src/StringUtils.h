#pragma once

// A static initialiser of a host may call what prints: the streams must be constructed by then.
#include <iostream>
#include <string>
#include <vector>

/// Small text operations on byte strings: trimming, replacing, escaping, numbers, case, splitting.
///
/// All are static; each works on its own copy of the text. White space is space, tab, line feed,
/// vertical tab, form feed and carriage return; letters and digits are those of ASCII, whatever
/// locale the program has set. Worked example:
/// @code
///   StringUtils::RemoveLeadingWhiteSpace(" \tx ");       // "x "
///   StringUtils::ReplaceAll("a-b-c", "-", "+");          // "a+b+c"
///   StringUtils::String2Int(" 12)");                     // 12
/// @endcode
///
/// Only `IsNumeric` and `EscapeChar` print, on standard output and at every debug level. No
/// operation reports an error, and only `Split` may not return. Every operation is linear in its
/// text.
class __attribute__((visibility("default"))) StringUtils {
 public:
  /// The text without its leading white space. A text that begins with white space is also cut
  /// to the 100,000 bytes after its first byte.
  static std::string RemoveLeadingWhiteSpace(std::string sPassIn);

  /// The text without its trailing white space.
  static std::string RemoveTrailingWhiteSpace(std::string sPassIn);

  /// The text without any of its white space.
  static std::string RemoveAllWhiteSpace(std::string sPassIn);

  /// Whether every byte is a decimal digit; true for the empty text. Prints the line "Not a digit."
  /// on standard output if one is not.
  static bool IsNumeric(std::string sPassIn);

  /// The text with every occurrence of `sToReplace` replaced, from left to right. Inserted text is
  /// not searched again. An empty `sToReplace` replaces nothing.
  static std::string ReplaceAll(std::string sPassIn, std::string sToReplace,
                                std::string sReplaceWith);

  /// The text with a backslash before every occurrence of the character, without adding a second
  /// one where there is one. Prints two lines on standard output: "sEscapedEsc is:" with the
  /// escaped character, and "sPassIn is now:" with the text before the backslashes are added.
  static std::string EscapeChar(std::string sPassIn, char Esc);

  /// The number in decimal, with a minus sign when negative.
  static std::string Int2String(int iPassIn);

  /// The number at the front of the text: leading white space, an optional sign, and digits up to
  /// the first other byte; 0 without digits. Of a number beyond 32 bits, the low 32 bits of its
  /// 64-bit value are returned; a number beyond 64 bits is clamped to 64 bits first.
  static int String2Int(std::string sPassIn);

  /// The text with its ASCII letters upper-cased.
  static std::string StringToUpper(std::string sPassIn);

  /// The text with its ASCII letters lower-cased.
  static std::string StringToLower(std::string sPassIn);

  /// The text without its trailing carriage returns; others are kept.
  static std::string RemoveBackslashR(std::string sPassIn);

  /// The non-empty pieces of the text between the occurrences of `sSplitChars`, which is matched
  /// as one whole string; an empty one does not split. 10,000,000 bytes are kept after each split.
  ///
  /// If the text, or what is kept of it, ends with the delimiter, the call never returns: the
  /// process waits, unless a handler decides otherwise (Halt.h). Use `Tokenizer` instead.
  static std::vector<std::string> Split(std::string sPassIn, std::string sSplitChars);
};
