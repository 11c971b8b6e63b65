#include "UniqueCommand.h"

#include "CommentMerger.h"
#include "ExternalSorter.h"
#include "Hashing.h"
#include "HeaderText.h"
#include "NormalForm.h"
#include "OutputFile.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

namespace {

/// What is kept of a rule beside its comparison text.
struct Kept {
  std::uint64_t Place;        ///< the how many-th text of the run it is
  std::string_view Comments;  ///< each with a line end
  std::string_view Header;
};

struct KeptHead {
  std::uint64_t Place;
  std::uint64_t CommentSize;
};

/// Appends what is kept of a rule, but for its place.
void Pack(const RuleRecord& Record, std::string& BytesReturn) {
  KeptHead Head{};
  const std::size_t Begin = BytesReturn.size();
  BytesReturn.append(sizeof Head, '\0');
  Record.AppendComments(BytesReturn);
  Head.CommentSize = BytesReturn.size() - Begin - sizeof Head;
  std::memcpy(BytesReturn.data() + Begin, &Head, sizeof Head);
  AppendHeader(Record.Header(), BytesReturn);
}

void SetPlace(std::uint64_t Place, std::string& BytesReturn) {
  std::memcpy(BytesReturn.data() + offsetof(KeptHead, Place), &Place, sizeof Place);
}

Kept Unpack(std::string_view Bytes) {
  KeptHead Head{};
  std::memcpy(&Head, Bytes.data(), sizeof Head);
  Bytes.remove_prefix(sizeof Head);
  return {Head.Place, Bytes.substr(0, Head.CommentSize), Bytes.substr(Head.CommentSize)};
}

std::vector<std::string> LinesIn(std::string_view Lines) {
  std::vector<std::string> vsLines;
  while (!Lines.empty()) {
    const std::size_t End = Lines.find('\n');
    vsLines.emplace_back(Lines.substr(0, End));
    Lines.remove_prefix(End + 1);
  }
  return vsLines;
}

/// The block of the normal form in such a text.
std::string_view BlockIn(std::string_view Sameness) {
  // No line of a comparison text begins with the byte after its last one.
  constexpr std::string_view End("\n)\0", 3);
  const std::size_t Found = Sameness.find(End);
  return Sameness.substr(Found == std::string_view::npos ? Sameness.find('\n') + 1
                                                         : Found + End.size());
}

/// Rules that say the same, being put together. The comments of a rule that stays alone are not
/// looked at, unless only some of its examples are wanted.
class Group {
 public:
  explicit Group(const UniqueOptions& OptionsPassIn) : Options(OptionsPassIn) {}

  bool IsEmpty() const { return Rules == 0; }
  bool Has(std::string_view OtherKey) const { return Key == OtherKey; }
  std::uint64_t Rank() const { return Place; }
  bool IsWanted() const { return !Options.Repeated || Rules > 1; }

  void Start(std::string_view KeyPassIn) {
    Key = KeyPassIn;
    Rules = 0;
    Count = 0;
  }

  void Add(std::string_view Payload) {
    const Kept Rule = Unpack(Payload);
    if (Rules == 0) {
      Place = Rule.Place;
      Header = Rule.Header;
      FirstComments = Rule.Comments;
    } else {
      if (Rules == 1) {
        StartMerging();
      }
      Merge(Rule.Comments);
    }
    ++Rules;
  }

  /// The rule that stands for all of them.
  std::string Text() {
    std::string Lines = CommentLines();
    Lines.append(Header).append(BlockIn(Key)) += '\n';
    return Options.Count ? std::to_string(Rules) + '\t' + Folded(Lines) + '\n' : Lines;
  }

 private:
  void StartMerging() {
    Comments = CommentMerger(Options.Examples.value_or(std::numeric_limits<std::size_t>::max()));
    Merge(FirstComments);
  }

  void Merge(std::string_view Lines) {
    const std::vector<std::string> vsLines = LinesIn(Lines);
    Count += CountIn(vsLines);
    Comments.Add(vsLines);
  }

  std::string CommentLines() {
    if (Rules == 1 && !Options.Examples) {
      return FirstComments;
    }
    // The record knows where its count is written; a rule alone has it there already.
    if (Rules == 1) {
      StartMerging();
      Scratch.SetComments(Comments.Comments());
    } else {
      constexpr std::int64_t Max = std::numeric_limits<int>::max();
      constexpr std::int64_t Min = std::numeric_limits<int>::min();
      Scratch.SetComments(Comments.Comments());
      Scratch.SetCount(static_cast<int>(std::clamp(Count, Min, Max)));
    }
    std::string Lines;
    Scratch.AppendComments(Lines);
    return Lines;
  }

  const UniqueOptions& Options;
  std::string Key;
  std::uint64_t Place = 0;
  std::uint64_t Rules = 0;
  std::int64_t Count = 0;
  std::string Header;
  std::string FirstComments;
  CommentMerger Comments;
  RuleRecord Scratch;
};

/// Brings rules that say the same together, and then what is left into its order. For the order
/// of first appearance, rules are grouped by a hash before their comparison texts, which makes
/// comparing quick, and the groups sorted by their first places; else the texts' order will do.
class Deduplicator : public RuleCollector {
 public:
  explicit Deduplicator(const UniqueOptions& OptionsPassIn)
      : Options(OptionsPassIn),
        Rules(MemoryForSorting(Options.Memory) / 2),
        Results(MemoryForSorting(Options.Memory) / 2) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    const std::size_t Begin = KeyReturn.size();
    KeyReturn.append(Options.Sorted ? 0 : HashSize, '\0');
    const std::size_t FormBegin = KeyReturn.size();
    Record.AppendSamenessText(KeyReturn);
    if (!Options.Sorted) {
      const std::uint64_t Hash = HashOf(std::string_view(KeyReturn).substr(FormBegin));
      std::memcpy(KeyReturn.data() + Begin, &Hash, sizeof Hash);
    }
    Pack(Record, TextReturn);
    return true;
  }

  void TakeRule(std::string_view Key, std::string_view Text) override {
    Bytes.assign(Text);
    SetPlace(Place++, Bytes);
    Rules.Add(Key, Bytes);
  }

  void TakeText(std::string_view Text) override {
    if (!Options.Repeated && !Options.Count) {
      Results.Add(SortableNumber((Options.Sorted ? AfterAll : 0) + Place++), Text);
    }
  }

  void WriteTo(OutputFile& Output) override {
    Rules.Sort();
    Group Same(Options);
    for (SortRecord Record; Rules.Next(Record);) {
      const std::string_view Text = Record.Key.substr(Options.Sorted ? 0 : HashSize);
      if (Same.IsEmpty() || !Same.Has(Text)) {
        Finish(Same, Output);
        Same.Start(Text);
      }
      Same.Add(Record.Payload);
    }
    Finish(Same, Output);
    Results.Sort();
    for (SortRecord Record; Results.Next(Record);) {
      Output.Write(Record.Payload);
    }
  }

 private:
  static constexpr std::size_t HashSize = sizeof(std::uint64_t);
  static constexpr std::uint64_t AfterAll = std::uint64_t{1} << 63;

  void Finish(Group& Same, OutputFile& Output) {
    if (Same.IsEmpty() || !Same.IsWanted()) {
      return;
    }
    if (Options.Sorted) {
      Output.Write(Same.Text());
    } else {
      Results.Add(SortableNumber(Same.Rank()), Same.Text());
    }
  }

  UniqueOptions Options;
  ExternalSorter Rules;
  ExternalSorter Results;
  std::uint64_t Place = 0;
  std::string Bytes;
};

}  // namespace

int RunUnique(const RunOptions& Run, const UniqueOptions& Options) {
  Deduplicator Rules(Options);
  RunOptions RunAsFits = Run;
  // What is not a rule cannot be counted or be there twice, so that it is left out.
  RunAsFits.KeepBad = Run.KeepBad && !Options.Repeated && !Options.Count;
  return CollectRules(RunAsFits, Rules);
}

}  // namespace Grammar
