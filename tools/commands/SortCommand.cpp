#include "SortCommand.h"

#include "ExternalSorter.h"
#include "HeaderText.h"
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

std::string IndexKey(const RuleRecord& Record) {
  const bool HasNumber = Record.Header().IsPresent && Record.Header().IsReadable;
  return HasNumber ? NumberKey(NumberOf(Record.Header())) : std::string();
}

/// Sorts what it is handed. A rule whose block is the end of its key is kept without its block.
class Sorter : public RuleCollector {
 public:
  explicit Sorter(const SortOptions& Options)
      : By(Options.By),
        Rules(MemoryForSorting(Options.Memory),
              Options.Reverse ? SortDirection::Descending : SortDirection::Ascending) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    Record.AppendComments(TextReturn);
    AppendHeader(Record.Header(), TextReturn);
    if (AppendKey(Record, KeyReturn)) {
      TextReturn += BlockIsInKey;
    } else {
      Record.Form().AppendBlock(TextReturn);
      TextReturn += BlockIsHere;
    }
    return true;
  }

  void TakeRule(std::string_view Key, std::string_view Text) override { Rules.Add(Key, Text); }

  void TakeText(std::string_view Text) override { Others.Append(Text); }

  void WriteTo(OutputFile& Output) override {
    Rules.Sort();
    for (SortRecord Record; Rules.Next(Record);) {
      Output.Write(Record.Payload.substr(0, Record.Payload.size() - 1));
      if (Record.Payload.back() == BlockIsInKey) {
        Output.Write(BlockOf(Record.Key));
      }
      Output.Write("\n");
    }
    WriteOthers(Output);
  }

 private:
  // The last byte of what is kept of a rule.
  static constexpr char BlockIsHere = '0';
  static constexpr char BlockIsInKey = '1';

  static std::string_view BlockOf(std::string_view ComparisonText) {
    return ComparisonText.substr(ComparisonText.find('\n') + 1);
  }

  /// @return whether the key ends in the block of the normal form
  bool AppendKey(const RuleRecord& Record, std::string& KeyReturn) const {
    const RuleForm& Rule = Record.Form();
    switch (By) {
      case SortBy::Index:
        KeyReturn += IndexKey(Record);
        break;
      case SortBy::Type:
        KeyReturn.append(Rule.SLType()).append(1, '\0').append(Rule.TLType());
        break;
      case SortBy::Count:
        KeyReturn += NumberKey(Record.Count());
        break;
      case SortBy::Length:
        KeyReturn += SortableNumber(Rule.SLSize()) + SortableNumber(Rule.TLSize());
        break;
      case SortBy::Form:
        return Rule.AppendComparisonText(KeyReturn);
    }
    return false;
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
};

}  // namespace

int RunSort(const RunOptions& Run, const SortOptions& Options) {
  Sorter Rules(Options);
  return CollectRules(Run, Rules);
}

}  // namespace Grammar
