// What the calendar tests share: calculators, dates in short, and one day for the clock.
#pragma once

#include <memory>
#include <random>

#include "calendar/Orv.Date.Custom.h"
#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/Clock.h"

namespace orv::testing {

// 1 Farvardin 1404, 21 March 2025, a Friday; 21 Ramadan 1446.
inline constexpr TDateTime NewYear1404 = 45737;

// A calculator made on a given day.
template <typename TCalendar>
std::unique_ptr<TCalendar> Make(TDateTime today = NewYear1404, std::u16string_view locale = {}) {
  const rtl::TClockScope clock(today);
  return MakeCalendar<TCalendar>(locale);
}

inline std::unique_ptr<TOrvCalendarCalc> Jalali(TDateTime today = NewYear1404) {
  return Make<TOrvJalaliDateCalendarCalc>(today);
}
inline std::unique_ptr<TOrvCalendarCalc> Hijri(TDateTime today = NewYear1404) {
  return Make<TOrvHijriLunarDateCalendarCalc>(today);
}
inline std::unique_ptr<TOrvCalendarCalc> Gregorian(TDateTime today = NewYear1404) {
  return Make<TOrvJulianDateCalendarCalc>(today);
}

// A word from a number that may be negative.
constexpr std::uint16_t Word(std::int32_t value) {
  return static_cast<std::uint16_t>(value);
}

// Numbers in reproducible disorder.
class TRandom {
 public:
  explicit TRandom(std::uint32_t seed) : FEngine(seed) {}
  // From low to high, both inclusive.
  template <typename T>
  T From(T low, T high) {
    const auto span = static_cast<std::uint64_t>(high - low) + 1;
    return static_cast<T>(low + static_cast<T>(FEngine() % span));
  }

 private:
  std::mt19937_64 FEngine;
};

}  // namespace orv::testing
