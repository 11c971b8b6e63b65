#include "CommentMerge.h"

#include "CommentMerger.h"
#include "CountText.h"
#include "RuleRecord.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Grammar {

namespace {

using Strings = std::vector<std::string>;

/// The comments of a version without the count. An example is one unit with all of its lines, and
/// so is each other comment.
struct Units {
  explicit Units(Strings vsCommentsPassIn) : vsLines(std::move(vsCommentsPassIn)) {
    std::string_view Rest;
    const auto Count = FindLabel(vsLines, ScoreLabel, Rest);
    if (Count != vsLines.end()) {
      vsLines.erase(Count);
    }
    const ExampleLines Examples(vsLines);
    vsTexts = Examples.vsTexts;
    for (std::size_t Line = 0; Line < vsLines.size(); ++Line) {
      const std::size_t Example = Examples.vExampleOf[Line];
      vUnits.push_back(Example == ExampleLines::NoExample ? vsTexts.size() : Example);
      if (Example == ExampleLines::NoExample) {
        vsTexts.push_back(vsLines[Line] + '\n');
      }
    }
  }

  Strings vsLines;
  std::vector<std::size_t> vUnits;  // of each line
  Strings vsTexts;                  // of each unit
};

using Numbers = std::unordered_map<std::string, std::int64_t>;

Numbers NumbersOf(const Units& Version) {
  Numbers Counted;
  for (const std::string& sUnit : Version.vsTexts) {
    ++Counted[sUnit];
  }
  return Counted;
}

/// What remains of a number that two versions have changed: a change that both have made counts
/// once, and as far as it goes in the version that changes more.
std::int64_t MergedNumber(std::int64_t Base, std::int64_t Ours, std::int64_t Theirs) {
  const std::int64_t First = Ours - Base;
  const std::int64_t Second = Theirs - Base;
  if (First > 0 && Second > 0) {
    return Base + std::max(First, Second);
  }
  if (First < 0 && Second < 0) {
    return Base + std::min(First, Second);
  }
  return std::max<std::int64_t>(Base + First + Second, 0);
}

/// How often each comment is there when the versions have been merged.
Numbers MergedNumbers(const Units& BaseUnits, const Units& OurUnits, const Units& TheirUnits) {
  Numbers Base = NumbersOf(BaseUnits);
  Numbers Ours = NumbersOf(OurUnits);
  Numbers Theirs = NumbersOf(TheirUnits);
  Numbers Merged;
  for (const Units* Version : {&OurUnits, &TheirUnits}) {
    for (const std::string& sUnit : Version->vsTexts) {
      Merged[sUnit] = MergedNumber(Base[sUnit], Ours[sUnit], Theirs[sUnit]);
    }
  }
  return Merged;
}

/// Appends the lines of the units that are still wanted, which are fewer then.
void TakeWanted(const Units& Version, Numbers& WantedReturn, Strings& vsLinesReturn) {
  std::vector<bool> vIsTaken;
  for (const std::string& sUnit : Version.vsTexts) {
    std::int64_t& Wanted = WantedReturn[sUnit];
    vIsTaken.push_back(Wanted > 0);
    Wanted -= Wanted > 0 ? 1 : 0;
  }
  for (std::size_t Line = 0; Line < Version.vsLines.size(); ++Line) {
    if (vIsTaken[Version.vUnits[Line]]) {
      vsLinesReturn.push_back(Version.vsLines[Line]);
    }
  }
}

/// The line with the count of a version, and its place; no line where there is none.
struct CountLine {
  explicit CountLine(const Strings& vsComments) {
    std::string_view Rest;
    const auto Found = FindLabel(vsComments, ScoreLabel, Rest);
    Place = static_cast<std::size_t>(Found - vsComments.begin());
    if (Found != vsComments.end()) {
      sLine = *Found;
      Count = CountIn(vsComments);
    }
  }

  std::size_t Place;  ///< after all of them where there is none
  std::string sLine;
  std::int64_t Count = 1;
};

/// The line for a count: one of those that say it, rather not that of the base; none for 1 unless a
/// version has added it.
std::string MergedLine(std::int64_t Count, const CountLine& Base, const CountLine& Ours,
                       const CountLine& Theirs) {
  const bool IsRemoved = Ours.sLine.empty() != Theirs.sLine.empty() && !Base.sLine.empty();
  std::string sText;
  for (const CountLine* Version : {&Ours, &Theirs}) {
    const bool IsFit = !Version->sLine.empty() && Version->Count == Count;
    const bool IsBetter = sText.empty() || sText == Base.sLine ||
                          (Version->sLine != Base.sLine && Version->sLine < sText);
    if (IsFit && IsBetter) {
      sText = Version->sLine;
    }
  }
  if (Count == 1 && (sText.empty() || IsRemoved)) {
    return "";
  }
  return sText.empty() ? ";;" + std::string(ScoreLabel) + std::to_string(Count) : sText;
}

/// Puts the count where ours has it, and otherwise after all.
void AddCount(std::string sLine, const CountLine& Ours, Strings& vsCommentsReturn) {
  if (!sLine.empty()) {
    const std::size_t Place = Ours.sLine.empty() ? vsCommentsReturn.size()
                                                 : std::min(Ours.Place, vsCommentsReturn.size());
    vsCommentsReturn.insert(vsCommentsReturn.begin() + static_cast<std::ptrdiff_t>(Place),
                            std::move(sLine));
  }
}

}  // namespace

std::vector<std::string> MergedComments(const std::vector<std::string>& vsBase,
                                        const std::vector<std::string>& vsOurs,
                                        const std::vector<std::string>& vsTheirs,
                                        int BaseCountPassIn) {
  const Units OurUnits(vsOurs);
  const Units TheirUnits(vsTheirs);
  Numbers Wanted = MergedNumbers(Units(vsBase), OurUnits, TheirUnits);
  Strings vsComments;
  TakeWanted(OurUnits, Wanted, vsComments);
  TakeWanted(TheirUnits, Wanted, vsComments);
  const CountLine Base(vsBase);
  const CountLine Ours(vsOurs);
  const CountLine Theirs(vsTheirs);
  if (Base.sLine.empty() && Ours.sLine.empty() && Theirs.sLine.empty()) {
    return vsComments;  // where nobody counts, nothing is counted
  }
  constexpr std::int64_t Most = std::numeric_limits<int>::max();
  const std::int64_t Count =
      std::clamp<std::int64_t>(Ours.Count + Theirs.Count - BaseCountPassIn, 1, Most);
  AddCount(MergedLine(Count, Base, Ours, Theirs), Ours, vsComments);
  return vsComments;
}

}  // namespace Grammar
