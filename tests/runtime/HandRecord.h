// A class record laid out by hand: slots, then places for tables, so that a test can put any table anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "runtime/VirtualClass.h"

namespace orv::testing {

class THandRecord {
 public:
  // Place 0 is right behind the slots. The method table stands there, and the name at the last place.
  static constexpr std::size_t Places = 8;

  explicit THandRecord(std::size_t slotCount) : FRows(TVmt::HeaderSize / 8 + slotCount + Places) {
    ::new (FRows.data()) TVmt{};
    Vmt().SelfPtr = FRows.data() + TVmt::HeaderSize / 8;
    FTables = Vmt().SelfPtr + slotCount;
    Vmt().MethodTable = Place(0);
    Vmt().ClassName = static_cast<PShortString>(Place(Places - 1));
    for (std::size_t i = 0; i < slotCount; ++i) Vmt().SelfPtr[i].Method = Method(i + 1);
  }
  THandRecord(const THandRecord&) = delete;
  THandRecord& operator=(const THandRecord&) = delete;

  TVmt& Vmt() { return *reinterpret_cast<TVmt*>(FRows.data()); }
  TClass Class() { return Vmt().SelfPtr; }
  const void* Place(std::size_t index) const { return FTables + index; }

  // A made-up address. Slot i holds Method(i + 1) at first.
  static TMethodAddress Method(std::size_t number) { return reinterpret_cast<TMethodAddress>(number * 16); }

 private:
  std::vector<TVirtualSlot> FRows;
  TVirtualSlot* FTables = nullptr;
};

}  // namespace orv::testing
