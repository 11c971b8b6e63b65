#include "ExternalSorter.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Grammar {

namespace {

/// The text before the key of a stored record.
struct Head {
  std::uint64_t Arrival;  ///< the how many-th record it is; it keeps equal keys in order
  std::uint64_t KeySize;
  std::uint64_t PayloadSize;
};

constexpr std::size_t PieceSize = 7;
constexpr std::uint64_t KeyGoesOn = PieceSize + 1;
constexpr std::size_t ReadSize = std::size_t{1} << 16;
constexpr std::size_t MinMemory = std::size_t{1} << 16;
constexpr std::size_t MaxBlockSize = std::size_t{1} << 20;

Head HeadOf(const char* Stored) {
  Head Result{};
  std::memcpy(&Result, Stored, sizeof Result);
  return Result;
}

/// Reads the records of one run, one after the other.
class RunReader {
 public:
  RunReader(const SpillFile& FilePassIn, std::uint64_t BeginPassIn, std::uint64_t EndPassIn,
            std::size_t BufferSize)
      : File(&FilePassIn), Position(BeginPassIn), End(EndPassIn), Chunk(BufferSize) {}

  bool Next() {
    Start += Size;
    Size = 0;
    if (!Have(sizeof(Head))) {
      return false;
    }
    const Head Sizes = HeadOf(Buffer.data() + Start);
    Size = sizeof(Head) + Sizes.KeySize + Sizes.PayloadSize;
    Have(Size);
    const char* Key = Buffer.data() + Start + sizeof(Head);
    Current = {{Key, Sizes.KeySize}, {Key + Sizes.KeySize, Sizes.PayloadSize}};
    return true;
  }

  const SortRecord& Record() const { return Current; }

  std::string_view Stored() const { return {Buffer.data() + Start, Size}; }

 private:
  /// Whether that many bytes are there after the start, after reading what is missing.
  bool Have(std::size_t Count) {
    if (Buffer.size() - Start >= Count) {
      return true;
    }
    Buffer.erase(0, Start);
    Start = 0;
    const std::size_t Old = Buffer.size();
    const std::size_t Wanted = std::max(Count, Chunk) - Old;
    const auto ToRead = static_cast<std::size_t>(std::min<std::uint64_t>(Wanted, End - Position));
    Buffer.resize(Old + ToRead);
    Buffer.resize(Old + File->Read(Position, Buffer.data() + Old, ToRead));
    Position += ToRead;
    return Buffer.size() >= Count;
  }

  const SpillFile* File;
  std::uint64_t Position;
  std::uint64_t End;
  std::size_t Chunk;
  std::string Buffer;
  std::size_t Start = 0;
  std::size_t Size = 0;
  SortRecord Current;
};

}  // namespace

/// Returns the records of several runs in one order. Of equal keys, that of the earlier run comes
/// first, and runs are in the order in which their records came.
class ExternalSorter::Merger {
  using HeapEntry = std::pair<std::uint64_t, std::size_t>;

  /// Whether a record comes after another one; the heap has the first at its top.
  auto Later() const {
    return [this](const HeapEntry& Left, const HeapEntry& Right) {
      if (Left.first != Right.first) {
        return Left.first > Right.first;
      }
      const int Order =
          vReaders[Left.second].Record().Key.compare(vReaders[Right.second].Record().Key);
      if (Order != 0) {
        return (Order > 0) == (Direction == SortDirection::Ascending);
      }
      return Left.second > Right.second;
    };
  }

 public:
  Merger(const SpillFile& File, const std::vector<Run>& vRuns, std::size_t First, std::size_t Count,
         SortDirection DirectionPassIn, std::size_t BufferSize)
      : Direction(DirectionPassIn) {
    for (std::size_t Number = First; Number < First + Count; ++Number) {
      vReaders.emplace_back(File, vRuns[Number].Begin, vRuns[Number].End, BufferSize);
    }
    for (std::size_t Number = 0; Number < Count; ++Number) {
      Enter(Number);
    }
  }

  /// The reader that stands at the next record; null at the end.
  const RunReader* Next() {
    if (HasCurrent) {
      Enter(Current);
    }
    HasCurrent = !vHeap.empty();
    if (!HasCurrent) {
      return nullptr;
    }
    std::pop_heap(vHeap.begin(), vHeap.end(), Later());
    Current = vHeap.back().second;
    vHeap.pop_back();
    return &vReaders[Current];
  }

 private:
  void Enter(std::size_t Number) {
    if (vReaders[Number].Next()) {
      const std::uint64_t Piece = PieceOf(vReaders[Number].Record().Key, 0);
      vHeap.emplace_back(Direction == SortDirection::Ascending ? Piece : ~Piece, Number);
      std::push_heap(vHeap.begin(), vHeap.end(), Later());
    }
  }

  SortDirection Direction;
  std::vector<RunReader> vReaders;
  std::vector<HeapEntry> vHeap;
  std::size_t Current = 0;
  bool HasCurrent = false;
};

ExternalSorter::ExternalSorter(std::size_t MemoryPassIn, SortDirection DirectionPassIn)
    : Memory(std::max(MemoryPassIn, MinMemory)),
      Direction(DirectionPassIn),
      BlockSize(std::min(MaxBlockSize, Memory / 8)) {}

ExternalSorter::~ExternalSorter() = default;

/// Seven bytes of the key, then how many of them are there. So a key that has ended comes before
/// one that goes on, also where it goes on with NUL.
std::uint64_t ExternalSorter::PieceOf(std::string_view Key, std::size_t Depth) {
  const std::size_t Left = Key.size() - Depth;
  const std::size_t Count = std::min(Left, PieceSize);
  std::uint64_t Piece = 0;
  for (std::size_t Byte = 0; Byte < Count; ++Byte) {
    Piece |= static_cast<std::uint64_t>(static_cast<unsigned char>(Key[Depth + Byte]))
             << (56 - 8 * Byte);
  }
  return Piece | (Left > PieceSize ? KeyGoesOn : Left);
}

std::string_view ExternalSorter::KeyOf(const char* Stored) {
  return {Stored + sizeof(Head), HeadOf(Stored).KeySize};
}

SortRecord ExternalSorter::RecordOf(const char* Stored) {
  const Head Sizes = HeadOf(Stored);
  const char* Key = Stored + sizeof(Head);
  return {{Key, Sizes.KeySize}, {Key + Sizes.KeySize, Sizes.PayloadSize}};
}

char* ExternalSorter::Allocate(std::size_t Size) {
  if (Size > BlockSize) {
    vLargeBlocks.push_back(std::make_unique<char[]>(Size));
    LargeBytes += Size;
    return vLargeBlocks.back().get();
  }
  if (UsedBlocks == 0 || UsedInBlock + Size > BlockSize) {
    if (UsedBlocks == vBlocks.size()) {
      vBlocks.emplace_back(new char[BlockSize]);
    }
    ++UsedBlocks;
    UsedInBlock = 0;
  }
  char* Place = vBlocks[UsedBlocks - 1].get() + UsedInBlock;
  UsedInBlock += Size;
  return Place;
}

/// Whether a record of that size would go beyond the memory. Entries that have to move are there
/// twice for a moment.
bool ExternalSorter::IsFull(std::size_t Size) const {
  const bool Grows = vEntries.size() == vEntries.capacity();
  const std::size_t Entries = vEntries.capacity() * (Grows ? 3 : 1) * sizeof(Entry);
  const bool NewBlock = UsedBlocks == 0 || UsedInBlock + Size > BlockSize;
  return UsedBlocks * BlockSize + (NewBlock ? std::max(BlockSize, Size) : 0) + LargeBytes +
             Entries >
         Memory;
}

void ExternalSorter::Add(std::string_view Key, std::string_view Payload) {
  const std::size_t Size = sizeof(Head) + Key.size() + Payload.size();
  if (!vEntries.empty() && IsFull(Size)) {
    Spill();
  }
  char* Stored = Allocate(Size);
  const Head Sizes{Arrived++, Key.size(), Payload.size()};
  std::memcpy(Stored, &Sizes, sizeof Sizes);
  Key.copy(Stored + sizeof Sizes, Key.size());
  Payload.copy(Stored + sizeof Sizes + Key.size(), Payload.size());
  vEntries.push_back({0, Stored});
}

/// Sorts by seven bytes after the other: each level compares numbers that lie side by side, and
/// touches the keys only to fetch the next ones for those that are still equal.
void ExternalSorter::SortEntries() {
  vStretches.push_back({0, vEntries.size(), 0});
  while (!vStretches.empty()) {
    const Stretch Range = vStretches.back();
    vStretches.pop_back();
    SortLevel(Range.Begin, Range.End, Range.Depth);
  }
}

void ExternalSorter::SortLevel(std::size_t Begin, std::size_t End, std::size_t Depth) {
  const std::uint64_t Mask = Direction == SortDirection::Ascending ? 0 : ~std::uint64_t{0};
  const auto At = [this](std::size_t Position) {
    return vEntries.begin() + static_cast<std::ptrdiff_t>(Position);
  };
  for (std::size_t Position = Begin; Position < End; ++Position) {
    vEntries[Position].Piece = PieceOf(KeyOf(vEntries[Position].Stored), Depth) ^ Mask;
  }
  const auto Less = [](const Entry& Left, const Entry& Right) { return Left.Piece < Right.Piece; };
  if (!std::is_sorted(At(Begin), At(End), Less)) {
    std::sort(At(Begin), At(End), Less);
  }
  for (std::size_t First = Begin; First < End;) {
    const std::uint64_t Piece = vEntries[First].Piece;
    std::size_t Last = First + 1;
    while (Last < End && vEntries[Last].Piece == Piece) {
      ++Last;
    }
    if (Last - First > 1 && ((Piece ^ Mask) & 0xFFU) == KeyGoesOn) {
      vStretches.push_back({First, Last, Depth + PieceSize});
    } else if (Last - First > 1) {
      std::sort(At(First), At(Last), [](const Entry& Left, const Entry& Right) {
        return HeadOf(Left.Stored).Arrival < HeadOf(Right.Stored).Arrival;
      });
    }
    First = Last;
  }
}

void ExternalSorter::Spill() {
  SortEntries();
  if (File == nullptr) {
    File = std::make_unique<SpillFile>();
  }
  const std::uint64_t Begin = File->Size();
  for (const Entry& Current : vEntries) {
    const Head Sizes = HeadOf(Current.Stored);
    File->Append({Current.Stored, sizeof(Head) + Sizes.KeySize + Sizes.PayloadSize});
  }
  vRuns.push_back({Begin, File->Size()});
  ++Spilled;
  vEntries.clear();
  vLargeBlocks.clear();
  LargeBytes = 0;
  UsedBlocks = 0;
  UsedInBlock = 0;
}

/// Merges neighbouring runs until all that are left can be read at the same time.
void ExternalSorter::MergeUntilFew() {
  const std::size_t AtOnce = std::max<std::size_t>(2, Memory / ReadSize / 2);
  while (vRuns.size() > AtOnce) {
    auto NewFile = std::make_unique<SpillFile>();
    std::vector<Run> vNewRuns;
    for (std::size_t First = 0; First < vRuns.size(); First += AtOnce) {
      const std::size_t Count = std::min(AtOnce, vRuns.size() - First);
      const std::uint64_t Begin = NewFile->Size();
      Merger Group(*File, vRuns, First, Count, Direction, ReadSize);
      while (const RunReader* Reader = Group.Next()) {
        NewFile->Append(Reader->Stored());
      }
      vNewRuns.push_back({Begin, NewFile->Size()});
    }
    NewFile->Flush();
    File = std::move(NewFile);
    vRuns = std::move(vNewRuns);
  }
}

void ExternalSorter::Sort() {
  if (vRuns.empty()) {
    SortEntries();
    return;
  }
  Spill();
  vEntries = {};
  vBlocks.clear();
  File->Flush();
  MergeUntilFew();
  Merging = std::make_unique<Merger>(*File, vRuns, 0, vRuns.size(), Direction, ReadSize);
}

bool ExternalSorter::Next(SortRecord& RecordReturn) {
  if (Merging != nullptr) {
    const RunReader* Reader = Merging->Next();
    if (Reader != nullptr) {
      RecordReturn = Reader->Record();
    }
    return Reader != nullptr;
  }
  if (NextEntry == vEntries.size()) {
    return false;
  }
  RecordReturn = RecordOf(vEntries[NextEntry++].Stored);
  return true;
}

std::string SortableNumber(std::uint64_t Number) {
  std::string Bytes;
  for (int Shift = 56; Shift >= 0; Shift -= 8) {
    Bytes += static_cast<char>(static_cast<unsigned char>(Number >> Shift));
  }
  return Bytes;
}

}  // namespace Grammar
