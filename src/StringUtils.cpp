// Sections, in the order of the header: white space, replacing and escaping, numbers, case,
// line ends and splitting.

#include "StringUtils.h"

#include "Ascii.h"
#include "Halt.h"

#include <algorithm>
#include <iostream>
#include <string_view>
#include <utility>

using TrRuleInternal::IsDigit;
using TrRuleInternal::IsSpace;

// ---- White space ------------------------------------------------------------------------------

std::string StringUtils::RemoveLeadingWhiteSpace(std::string sPassIn) {
  constexpr std::size_t MaxRest = 100000;
  return std::string(TrRuleInternal::WithoutLeadingSpace(sPassIn, MaxRest));
}

std::string StringUtils::RemoveTrailingWhiteSpace(std::string sPassIn) {
  sPassIn.resize(TrRuleInternal::WithoutTrailingSpace(sPassIn).size());
  return sPassIn;
}

std::string StringUtils::RemoveAllWhiteSpace(std::string sPassIn) {
  sPassIn.erase(std::remove_if(sPassIn.begin(), sPassIn.end(), IsSpace), sPassIn.end());
  return sPassIn;
}

// ---- Replacing and escaping -------------------------------------------------------------------

bool StringUtils::IsNumeric(std::string sPassIn) {
  const bool Numeric = std::all_of(sPassIn.begin(), sPassIn.end(), IsDigit);
  if (!Numeric) {
    std::cout << "Not a digit.\n";
  }
  return Numeric;
}

std::string StringUtils::ReplaceAll(std::string sPassIn, std::string sToReplace,
                                    std::string sReplaceWith) {
  std::size_t Found = sToReplace.empty() ? std::string::npos : sPassIn.find(sToReplace);
  if (Found == std::string::npos) {
    return sPassIn;
  }
  std::string sReplaced;
  std::size_t Done = 0;
  for (; Found != std::string::npos; Found = sPassIn.find(sToReplace, Done)) {
    sReplaced.append(sPassIn, Done, Found - Done).append(sReplaceWith);
    Done = Found + sToReplace.size();
  }
  return sReplaced.append(sPassIn, Done, std::string::npos);
}

std::string StringUtils::EscapeChar(std::string sPassIn, char Esc) {
  const std::string sPlain(1, Esc);
  const std::string sEscaped = '\\' + sPlain;
  std::cout << "sEscapedEsc is:" << sEscaped << '\n';
  sPassIn = ReplaceAll(std::move(sPassIn), sEscaped, sPlain);
  std::cout << "sPassIn is now:" << sPassIn << '\n';
  return ReplaceAll(std::move(sPassIn), sPlain, sEscaped);
}

// ---- Numbers ----------------------------------------------------------------------------------

std::string StringUtils::Int2String(int iPassIn) {
  return std::to_string(iPassIn);
}

int StringUtils::String2Int(std::string sPassIn) {
  return TrRuleInternal::ToInt(sPassIn);
}

// ---- Case -------------------------------------------------------------------------------------

std::string StringUtils::StringToUpper(std::string sPassIn) {
  return TrRuleInternal::Upper(std::move(sPassIn));
}

std::string StringUtils::StringToLower(std::string sPassIn) {
  return TrRuleInternal::Lower(std::move(sPassIn));
}

// ---- Line ends and splitting ------------------------------------------------------------------

std::string StringUtils::RemoveBackslashR(std::string sPassIn) {
  while (!sPassIn.empty() && sPassIn.back() == '\r') {
    sPassIn.pop_back();
  }
  return sPassIn;
}

std::vector<std::string> StringUtils::Split(std::string sPassIn, std::string sSplitChars) {
  constexpr std::size_t MaxRest = 10000000;
  std::vector<std::string> vsPieces;
  std::string_view Rest = sPassIn;
  while (!sSplitChars.empty()) {
    const std::size_t Found = Rest.find(sSplitChars);
    if (Found == std::string_view::npos) {
      break;
    }
    if (Found + sSplitChars.size() >= Rest.size()) {
      TrRuleInternal::Halt(HaltReason::SplitNeverReturns,
                           "StringUtils::Split never returns on a text that ends with its "
                           "delimiter:|" +
                               sSplitChars + "|");
    }
    if (Found > 0) {
      vsPieces.emplace_back(Rest.substr(0, Found));
    }
    Rest = Rest.substr(Found + sSplitChars.size(), MaxRest);
  }
  if (!Rest.empty()) {
    vsPieces.emplace_back(Rest);
  }
  return vsPieces;
}
