// Code units eight at a time, for searches that no class table is needed for. Built on the compilers' vector extension,
// which gives SSE2, NEON or WebAssembly SIMD where the target has them and plain instructions elsewhere.
#pragma once

#include <cstdint>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "unicode/Unicode.Engine.Classes.h"

namespace orv::engine {

// Eight code units, or eight answers (all bits set for yes).
class TUnits {
 public:
  static constexpr std::int32_t Count = 8;

  static TUnits Load(const char16_t* units) {
    TUnits loaded;
    std::memcpy(&loaded.FLanes, units, sizeof loaded.FLanes);
    return loaded;
  }

  TUnits IsIn(std::uint16_t low, std::uint16_t high) const {
    return TUnits((FLanes - low) <= static_cast<std::uint16_t>(high - low));
  }
  TUnits Is(std::uint16_t unit) const { return TUnits(FLanes == unit); }

  friend TUnits operator|(TUnits a, TUnits b) { return TUnits(a.FLanes | b.FLanes); }
  friend TUnits operator&(TUnits a, TUnits b) { return TUnits(a.FLanes & b.FLanes); }
  friend TUnits operator~(TUnits a) { return TUnits(~a.FLanes); }

  // Yes for the first count answers as well.
  TUnits WithFirst(std::int32_t count) const {
    constexpr TLanes places = {0, 1, 2, 3, 4, 5, 6, 7};
    return TUnits(FLanes | reinterpret_cast<TLanes>(places < static_cast<std::uint16_t>(count)));
  }

  // How many answers from the first on are yes.
  std::int32_t LeadingYes() const {
#if defined(__SSE2__)
    const int yes = _mm_movemask_epi8(reinterpret_cast<__m128i>(FLanes));
    return __builtin_ctz(static_cast<unsigned>(~yes)) / 2;
#else
    std::uint16_t answers[Count];
    std::memcpy(answers, &FLanes, sizeof answers);
    std::int32_t yes = 0;
    while (yes < Count && answers[yes] != 0) ++yes;
    return yes;
#endif
  }

 private:
  using TLanes = std::uint16_t __attribute__((vector_size(16)));

  TUnits() = default;
  template <typename T>
  explicit TUnits(T lanes) : FLanes(reinterpret_cast<TLanes>(lanes)) {}

  TLanes FLanes;
};

// The first place from from up to end whose unit fails the test, asked for eight units at a time. The last eight units
// of the text are asked together; a text of fewer is left to the caller. TTest::Units answers for eight units.
template <typename TTest>
inline std::int32_t SkipUnits(const char16_t* text, std::int32_t from, std::int32_t end) {
  for (; end - from >= TUnits::Count; from += TUnits::Count) {
    const std::int32_t yes = TTest::Units(TUnits::Load(text + from)).LeadingYes();
    if (yes != TUnits::Count) return from + yes;
  }
  const std::int32_t last = end - TUnits::Count;
  if (last < 0 || from == end) return from;
  return last + TTest::Units(TUnits::Load(text + last)).WithFirst(from - last).LeadingYes();
}

// The first place from from up to end that holds the unit, or end.
inline std::int32_t FindUnit(const char16_t* text, std::int32_t from, std::int32_t end, char16_t unit) {
  for (; end - from >= TUnits::Count; from += TUnits::Count) {
    const std::int32_t others = (~TUnits::Load(text + from).Is(unit)).LeadingYes();
    if (others != TUnits::Count) return from + others;
  }
  while (from < end && text[from] != unit) ++from;
  return from;
}

// Each test below may say no to a unit that deserves a yes, never the reverse; a caller looks a no up in the class
// table.

// No left-to-right letter.
struct TNoLTRLetter {
  static TUnits Units(TUnits u) {
    return u.IsIn(0x0590, 0x06FF) | u.IsIn(0, 0x40) | u.IsIn(0x2000, 0x206F) | u.IsIn(0x5B, 0x60) | u.IsIn(0x7B, 0xA9);
  }
};

// No right-to-left letter.
struct TNoRTLLetter {
  static TUnits Units(TUnits u) { return ~u.IsIn(0x0591, 0x06FF); }
};

}  // namespace orv::engine
