#include "SampleCommand.h"

#include "OutputFile.h"

#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace Grammar {

namespace {

/// The rules with the least numbers of all that are offered. Since numbers are drawn at random, so
/// are the rules.
class Reservoir {
 public:
  /// @return the rule as it is kept, to which more may be appended; null if it is not
  std::string* Offer(std::uint64_t Number, std::uint64_t Place, std::string_view Text,
                     std::uint64_t Most) {
    const auto Kept = mRules.emplace(std::pair(Number, Place), Text).first;
    if (mRules.size() <= Most) {
      return &Kept->second;
    }
    const bool IsLast = std::next(Kept) == mRules.end();
    mRules.erase(std::prev(mRules.end()));
    return IsLast ? nullptr : &Kept->second;
  }

  /// Moves the rules to where they stood in the input.
  void MoveTo(std::map<std::uint64_t, std::string>& ByPlaceReturn) {
    for (auto& [Key, Text] : mRules) {
      ByPlaceReturn.emplace(Key.second, std::move(Text));
    }
  }

 private:
  std::map<std::pair<std::uint64_t, std::uint64_t>, std::string> mRules;  // by number and place
};

/// Draws from what it is handed.
class Sampler : public RuleCollector {
 public:
  explicit Sampler(const SampleOptions& OptionsPassIn)
      : Options(OptionsPassIn), Numbers(OptionsPassIn.Seed) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    if (Options.By) {
      KeyReturn += Query::GroupKeys(Record.Lines(), *Options.By).front();
    }
    TextReturn += Record.Lines().Text().Text;
    return true;
  }

  bool KeepsLines() const override { return true; }

  void TakeRule(std::string_view Key, std::string_view Text) override {
    Draw(Groups[std::string(Key)], Text);
  }

  void TakeBadRule(std::string_view Text, bool Continues) override {
    if (!Continues) {
      Draw(Options.By ? BadRules : Groups[""], Text);
    } else if (Drawn != nullptr) {
      Drawn->append(Text);
    }
  }

  void TakeText(std::string_view /*Text*/) override {}

  void EndLine() override {}

  void WriteTo(OutputFile& Output) override {
    std::map<std::uint64_t, std::string> mByPlace;
    for (auto& [Name, Group] : Groups) {
      Group.MoveTo(mByPlace);
    }
    BadRules.MoveTo(mByPlace);
    Written = mByPlace.size();
    for (const auto& [RulePlace, Text] : mByPlace) {
      Output.Write(Text);
      Output.Write(Text.back() == '\n' ? "" : "\n");
    }
  }

  /// Whether some rule is not written.
  bool LeavesOut() const { return Written < Place; }

 private:
  void Draw(Reservoir& From, std::string_view Text) {
    Drawn = From.Offer(Numbers(), Place++, Text, Options.Rules);
  }

  const SampleOptions& Options;
  std::mt19937_64 Numbers;  // the same numbers on every machine, which distributions do not give
  std::map<std::string, Reservoir> Groups;
  Reservoir BadRules;
  std::string* Drawn = nullptr;  // the last rule, where it is kept
  std::uint64_t Place = 0;
  std::uint64_t Written = 0;
};

}  // namespace

int RunSample(const RunOptions& Run, const SampleOptions& Options) {
  RunOptions RunWithBad = Run;
  RunWithBad.KeepBad = true;
  OutputFile Output(Run.Output);
  Sampler Rules(Options);
  RunTally Tally = VisitRules(RunWithBad, Rules);
  Rules.WriteTo(Output);
  Tally.HasLostText = Rules.LeavesOut();
  return FinishRun(Run, Tally, Output, false);
}

}  // namespace Grammar
