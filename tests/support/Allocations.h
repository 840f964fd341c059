// Counts what a program allocates, by replacing its global allocation functions: for one source file of a test program
// that is built without sanitizers, which replace them too.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

namespace orv::testing {

inline std::atomic<long> Allocations{0};

inline void* Allocate(std::size_t size) {
  ++Allocations;
  if (void* block = std::malloc(size > 0 ? size : 1)) return block;
  throw std::bad_alloc();
}

// The allocations that an action makes.
template <typename TAction>
long AllocationsOf(const TAction& action) {
  const long before = Allocations;
  action();
  return Allocations - before;
}

}  // namespace orv::testing

void* operator new(std::size_t size) {
  return orv::testing::Allocate(size);
}
void* operator new[](std::size_t size) {
  return orv::testing::Allocate(size);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
