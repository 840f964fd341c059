// The memory of one frame: its lines and runs, the atoms that they show, and the corrections that it was laid out
// under.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {

// Ends the life of an object whose memory belongs to a store.
struct TEndOfLife {
  template <typename T>
  void operator()(T* object) const {
    object->~T();
  }
};
template <typename T>
using TStored = std::unique_ptr<T, TEndOfLife>;

// The far side of an atom in its run's box, in reading direction, and the units of the run up to there.
struct TAtomPlace {
  float Edge;
  std::int32_t Offset;
};

// Gives out memory that is taken back all at once, by Reset or with the store. Everything made in it dies before that.
class TFrameStore {
 public:
  explicit TFrameStore(TOrvCorrections corrections = {}) : FCorrections(corrections) {}
  TFrameStore(const TFrameStore&) = delete;
  TFrameStore& operator=(const TFrameStore&) = delete;

  // Empties the store for another frame. Keeps memory for it.
  void Reset(TOrvCorrections corrections);

  // Those in force when the frame was begun: what is asked of it later is answered under the same.
  TOrvCorrections Corrections() const { return FCorrections; }
  bool Corrects(TOrvCorrection correction) const { return FCorrections.Contains(correction); }

  void* Allocate(std::size_t size) {
    size = (size + Alignment - 1) / Alignment * Alignment;
    if (size > static_cast<std::size_t>(FEnd - FNext)) AddBlock(size);
    return std::exchange(FNext, FNext + size);
  }
  template <typename T, typename... TArgs>
  TStored<T> New(TArgs&&... args) {
    static_assert(alignof(T) <= Alignment);
    return TStored<T>(new (Allocate(sizeof(T))) T(std::forward<TArgs>(args)...));
  }

  TUCS4List Atoms;                 // of all runs, each a stretch of its own
  std::vector<TAtomPlace> Places;  // of the atoms, as far as queries have asked for them
  bool HasRenderers = false;       // a run was given an internal text layout

 private:
  static constexpr std::size_t Alignment = alignof(std::max_align_t);
  static constexpr std::size_t FirstBlock = 4096;
  struct TBlock {
    std::unique_ptr<std::byte[]> Memory;
    std::size_t Size;
  };
  void AddBlock(std::size_t size);

  TOrvCorrections FCorrections;
  std::vector<TBlock> FBlocks;
  std::byte* FNext = nullptr;
  std::byte* FEnd = nullptr;
};

// For containers that live in a store.
template <typename T>
class TStoreAllocator {
 public:
  using value_type = T;
  using propagate_on_container_move_assignment = std::true_type;
  using propagate_on_container_swap = std::true_type;

  explicit TStoreAllocator(TFrameStore& store) : FStore(&store) {}
  template <typename TOther>
  TStoreAllocator(const TStoreAllocator<TOther>& other) : FStore(&other.Store()) {}

  T* allocate(std::size_t count) { return static_cast<T*>(FStore->Allocate(count * sizeof(T))); }
  void deallocate(T*, std::size_t) {}
  TFrameStore& Store() const { return *FStore; }

  template <typename TOther>
  friend bool operator==(const TStoreAllocator& a, const TStoreAllocator<TOther>& b) {
    return &a.Store() == &b.Store();
  }

 private:
  TFrameStore* FStore;
};
template <typename T>
using TStoredVector = std::vector<T, TStoreAllocator<T>>;

}  // namespace orv
