#pragma once

#include "SpillFile.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// A text to sort by, and what goes along with it.
struct SortRecord {
  std::string_view Key;
  std::string_view Payload;
};

enum class SortDirection { Ascending, Descending };

/// Sorts records by their keys, byte by byte. Records with equal keys stay in the order in which
/// they came, in both directions. What goes beyond the memory is put into temporary files, which
/// changes nothing of the result.
///
/// @code
/// ExternalSorter Sorter(1 << 20);
/// Sorter.Add("b", "second");
/// Sorter.Add("a", "first");
/// Sorter.Sort();
/// SortRecord Least;
/// Sorter.Next(Least);  // true
/// Least.Payload;       // "first"
/// @endcode
class ExternalSorter {
 public:
  /// @param Memory how many bytes to hold at most; a single record may be larger
  explicit ExternalSorter(std::size_t Memory, SortDirection Direction = SortDirection::Ascending);
  ~ExternalSorter();

  ExternalSorter(const ExternalSorter&) = delete;
  ExternalSorter& operator=(const ExternalSorter&) = delete;

  void Add(std::string_view Key, std::string_view Payload);

  /// Ends the adding. To be called once.
  void Sort();

  /// The next record in order; its texts are there until the next call.
  /// @return whether there was one more
  bool Next(SortRecord& RecordReturn);

  /// How many sorted pieces had to be put into files.
  std::size_t SpilledRuns() const { return Spilled; }

 private:
  class Merger;

  /// The next bytes of a key, as a number that sorts like them, and the record as it is stored.
  struct Entry {
    std::uint64_t Piece;
    const char* Stored;
  };

  /// Where a sorted piece lies in the file.
  struct Run {
    std::uint64_t Begin;
    std::uint64_t End;
  };

  static std::uint64_t PieceOf(std::string_view Key, std::size_t Depth);
  static std::string_view KeyOf(const char* Stored);
  static SortRecord RecordOf(const char* Stored);

  char* Allocate(std::size_t Size);
  bool IsFull(std::size_t Size) const;
  void SortEntries();
  void SortLevel(std::size_t Begin, std::size_t End, std::size_t Depth);
  void Spill();
  void MergeUntilFew();

  /// A stretch of entries whose keys are the same up to a depth.
  struct Stretch {
    std::size_t Begin;
    std::size_t End;
    std::size_t Depth;
  };

  std::size_t Memory;
  SortDirection Direction;
  std::vector<std::unique_ptr<char[]>> vBlocks;
  std::size_t BlockSize;
  std::size_t UsedBlocks = 0;  ///< blocks that hold records, the last of them in part
  std::size_t UsedInBlock = 0;
  std::size_t LargeBytes = 0;
  std::vector<std::unique_ptr<char[]>> vLargeBlocks;  ///< for records larger than a block
  std::vector<Entry> vEntries;
  std::vector<Stretch> vStretches;
  std::size_t NextEntry = 0;
  std::uint64_t Arrived = 0;
  std::unique_ptr<SpillFile> File;
  std::vector<Run> vRuns;
  std::size_t Spilled = 0;
  std::unique_ptr<Merger> Merging;
};

/// A number as a key: eight bytes that sort like it.
std::string SortableNumber(std::uint64_t Number);

}  // namespace Grammar
