#include "AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

AllocationCount Counted;

void* Allocate(std::size_t Size) {
  ++Counted.Calls;
  Counted.Bytes += Size;
  if (void* Memory = std::malloc(Size == 0 ? 1 : Size)) {
    return Memory;
  }
  throw std::bad_alloc();
}

}  // namespace

AllocationCount CountedAllocations() {
  return Counted;
}

void* operator new(std::size_t Size) {
  return Allocate(Size);
}

void* operator new[](std::size_t Size) {
  return Allocate(Size);
}

void operator delete(void* Memory) noexcept {
  std::free(Memory);
}

void operator delete[](void* Memory) noexcept {
  std::free(Memory);
}

void operator delete(void* Memory, std::size_t /*Size*/) noexcept {
  std::free(Memory);
}

void operator delete[](void* Memory, std::size_t /*Size*/) noexcept {
  std::free(Memory);
}
