// Sections, in the order of the header: lifecycle, queries, filling the index.

#include "LineUp.h"

#include "Ascii.h"

#include <string_view>
#include <utility>

// ---- Lifecycle --------------------------------------------------------------------------------

LineUp::LineUp() = default;

LineUp::~LineUp() = default;

// ---- Queries ----------------------------------------------------------------------------------

namespace {

constexpr int SourceToTarget = 1;
constexpr int TargetToSource = 2;

}  // namespace

bool LineUp::GetEq(std::string AlignmentStringPassIn, int XPassIn, std::set<int>& siYReturn) {
  FillHash(SourceToTarget, std::move(AlignmentStringPassIn));
  return TakePartners(SrcTgt, XPassIn, siYReturn);
}

bool LineUp::GetEqFromY(std::string AlignmentStringPassIn, int YPassIn, std::set<int>& siXReturn) {
  FillHash(TargetToSource, std::move(AlignmentStringPassIn));
  return TakePartners(TgtSrc, YPassIn, siXReturn);
}

// ---- Filling the index ------------------------------------------------------------------------

// Alignments = any "(" { any } "(" x "," y ")" { any } ...
void LineUp::FillHash(int WhichPassIn, std::string AlignmentStringPassIn) {
  constexpr std::size_t MaxIndexLength = 9;
  const std::string_view Text = AlignmentStringPassIn;
  std::size_t Open = Text.find('(', 1);
  while (Open != std::string_view::npos) {
    const std::size_t Comma = Text.find(',', Open);
    const std::size_t Close = Text.find(')', Comma);
    if (Comma == std::string_view::npos || Close == std::string_view::npos) {
      return;
    }
    const std::string_view X = Text.substr(Open + 1, Comma - Open - 1);
    const std::string_view Y = Text.substr(Comma + 1, Close - Comma - 1);
    if (X.size() <= MaxIndexLength && Y.size() <= MaxIndexLength) {
      const int XIndex = TrRuleInternal::ToInt(X);
      const int YIndex = TrRuleInternal::ToInt(Y);
      if (WhichPassIn == SourceToTarget) {
        SrcTgt[XIndex].push_back(YIndex);
      } else {
        TgtSrc[YIndex].push_back(XIndex);
      }
    }
    Open = Text.find('(', Close);
  }
}

bool LineUp::TakePartners(IndexMap& mviIndex, int Key, std::set<int>& siReturn) {
  const auto Found = mviIndex.find(Key);
  const bool HasPartners = Found != mviIndex.end();
  if (HasPartners) {
    siReturn.insert(Found->second.begin(), Found->second.end());
  }
  mviIndex.clear();
  return HasPartners;
}
