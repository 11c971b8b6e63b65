// Two texts are compared, and the first is patched; a third text is taken for a diff of the first.
// The parts of the input are separated by lines of equals signs.

#include "DiffSupport.h"
#include "FuzzSupport.h"

#include <optional>
#include <string>
#include <vector>

namespace {

/// The text up to the next separator, which is removed with it.
std::string TakePart(std::string& RestReturn) {
  constexpr std::string_view Separator = "\n=====\n";
  const std::size_t Size = RestReturn.find(Separator);
  std::string Part = RestReturn.substr(0, Size);
  RestReturn.erase(0, Size == std::string::npos ? Size : Size + Separator.size());
  return Part + '\n';
}

/// A diff makes one text of the other, unless texts that cannot be read would join their
/// neighbours.
void RequirePatch(const std::string& Old, const std::string& New, const std::string& Diff,
                  bool IsReversed) {
  const std::optional<std::string> Made = Patched(Old, Diff, IsReversed);
  Require(!Made || ContentsOf(*Made) == ContentsOf(New), "a diff makes the other text");
  std::vector<Grammar::DiffHunk> vHunks;
  Require(!ReadDiff(Diff, vHunks), "a diff can be read");
}

bool HasOnlyRules(const std::string& Text) {
  bool Result = true;
  Grammar::PassEntries(
      Text, [&](const Grammar::ReadEntry& Read) { Result = Result && Read.Entry.IsRule; });
  return Result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  std::string Rest(Data, Data + Size);
  const std::string Old = TakePart(Rest);
  const std::string New = TakePart(Rest);
  const std::string Diff = DiffOf(Old, New);
  RequirePatch(Old, New, Diff, false);
  RequirePatch(New, Old, Diff, true);
  Require(!HasOnlyRules(Old) || DiffOf(Old, Printed(Old)).empty(), "the normal form is the same");
  Patched(Old, Rest);
  return 0;
}
