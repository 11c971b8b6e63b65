#include "SortCommand.h"

#include "ExternalSorter.h"
#include "NormalForm.h"
#include "OutputFile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Grammar {

namespace {

/// A number, negative or not, as bytes that sort like it.
std::string NumberKey(int Number) {
  constexpr std::int64_t Middle = std::int64_t{1} << 32;
  return SortableNumber(static_cast<std::uint64_t>(Middle + Number));
}

std::string IndexKey(RuleRecord& Record) {
  const bool HasNumber = Record.Header().IsPresent && Record.Header().IsReadable;
  return HasNumber ? NumberKey(Record.Rule().GetRuleIndex()) : std::string();
}

/// Sorts what it is handed. Of the comparison text and the normal form, the block of the rule is
/// the same; sorted by the former, it is kept once.
class Sorter : public RuleCollector {
 public:
  explicit Sorter(const SortOptions& Options)
      : By(Options.By),
        Rules(MemoryForSorting(Options.Memory),
              Options.Reverse ? SortDirection::Descending : SortDirection::Ascending) {}

  void TakeRule(RuleRecord& Record) override {
    Form.clear();
    AppendNormalForm(Record, {}, Form);
    if (By == SortBy::Form) {
      Rules.Add(Record.ComparisonText(), WithoutBlock(Record));
    } else {
      Rules.Add(KeyOf(Record), Form);
    }
  }

  void TakeText(std::string_view Text) override { Others.Append(Text); }

  void WriteTo(OutputFile& Output) override {
    Rules.Sort();
    for (SortRecord Each; Rules.Next(Each);) {
      Output.Write(Each.Payload);
      if (By == SortBy::Form) {
        Output.Write(BlockOf(Each.Key));
        Output.Write("\n");
      }
    }
    WriteOthers(Output);
  }

 private:
  std::string_view WithoutBlock(const RuleRecord& Record) const {
    return std::string_view(Form).substr(0, Form.size() - Record.Block().size() - 1);
  }

  static std::string_view BlockOf(std::string_view ComparisonText) {
    return ComparisonText.substr(ComparisonText.find('\n') + 1);
  }

  std::string KeyOf(RuleRecord& Record) const {
    TrRule& Rule = Record.Rule();
    switch (By) {
      case SortBy::Index:
        return IndexKey(Record);
      case SortBy::Type:
        return Rule.GetSLType() + '\0' + Rule.GetTLType();
      case SortBy::Count:
        return NumberKey(Record.Count());
      case SortBy::Length:
        return SortableNumber(Rule.GetSLPOS().size()) + SortableNumber(Rule.GetTLPOS().size());
      case SortBy::Form:
        break;
    }
    return Record.ComparisonText();
  }

  void WriteOthers(OutputFile& Output) {
    Others.Flush();
    std::string Piece(std::size_t{1} << 16, '\0');
    for (std::uint64_t Offset = 0; Offset < Others.Size();) {
      const std::size_t Count = Others.Read(Offset, Piece.data(), Piece.size());
      Output.Write(std::string_view(Piece).substr(0, Count));
      Offset += Count;
    }
  }

  SortBy By;
  ExternalSorter Rules;
  SpillFile Others;
  std::string Form;
};

}  // namespace

int RunSort(const RunOptions& Run, const SortOptions& Options) {
  Sorter Rules(Options);
  return CollectRules(Run, Rules);
}

}  // namespace Grammar
