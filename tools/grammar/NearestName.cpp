#include "NearestName.h"

#include "Bytes.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Grammar {

namespace {

using Row = std::vector<std::size_t>;

/// How many single changes make one text of the other. A text takes one row for each of its bytes,
/// of which the last three are enough.
std::size_t DistanceOf(std::string_view Left, std::string_view Right) {
  Row BeforeLast;
  Row Last(Right.size() + 1);
  for (std::size_t Column = 0; Column < Last.size(); ++Column) {
    Last[Column] = Column;
  }
  for (std::size_t Line = 1; Line <= Left.size(); ++Line) {
    Row Next(Right.size() + 1, Line);
    for (std::size_t Column = 1; Column < Next.size(); ++Column) {
      const bool IsSame = Left[Line - 1] == Right[Column - 1];
      Next[Column] =
          std::min({Last[Column] + 1, Next[Column - 1] + 1, Last[Column - 1] + (IsSame ? 0U : 1U)});
      if (Line > 1 && Column > 1 && Left[Line - 1] == Right[Column - 2] &&
          Left[Line - 2] == Right[Column - 1]) {
        Next[Column] = std::min(Next[Column], BeforeLast[Column - 2] + 1);
      }
    }
    BeforeLast = std::move(Last);
    Last = std::move(Next);
  }
  return Last.back();
}

}  // namespace

std::string NearestName(std::string_view Written, const std::vector<std::string>& vsNames) {
  constexpr std::size_t MaxDistance = 2;
  constexpr std::size_t MaxSize = 100;
  std::string Nearest;
  if (Written.empty() || Written.size() > MaxSize) {
    return Nearest;
  }
  std::size_t Least = std::min(MaxDistance, (Written.size() - 1) / 2) + 1;
  for (const std::string& sName : vsNames) {
    const std::size_t Distance = DistanceOf(Upper(Written), Upper(sName));
    if (Distance < Least) {
      Least = Distance;
      Nearest = sName;
    } else if (Distance == Least) {
      Nearest.clear();
    }
  }
  return Nearest;
}

std::string AdviceOn(std::string_view Written, const std::vector<std::string>& vsNames,
                     const std::string& WhereToLook) {
  const std::string Nearest = NearestName(Written, vsNames);
  return "; " + (Nearest.empty() ? WhereToLook : "did you mean " + Nearest + '?');
}

}  // namespace Grammar
