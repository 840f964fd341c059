// The tabular Islamic calendar, as arithmetic. A year has 354 days, eleven years of thirty have one more: those at
// places 2, 5, 7, 10, 13, 16, 18, 21, 24, 26 and 29 of the cycle. Day 1 of year 1 is 16 July 622 of the Julian
// calendar, Julian Day Number 1948440 (the civil reckoning). Constexpr, for any thread, for every 32-bit day and year.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::islamic {

inline constexpr std::int64_t DaysInCycle = 10631;  // of thirty years
inline constexpr std::int32_t YearsInCycle = 30;
inline constexpr std::int64_t FirstDayOfYear0 = 1948086;
inline constexpr std::int32_t MostDaysInYear = 355;

struct TDate {
  std::int32_t Year;
  std::int32_t Month;
  std::int32_t Day;
};

// (r * 11 + 3) mod 30 of a place in the cycle tells the leap years: they are those where it is 19 or more.
constexpr bool IsLeapPlace(std::int32_t place) {
  return (place * 11 + 3) % 30 >= 19;
}

// Thirtieths of days are counted from so many years ago that no 32-bit day or year is negative.
inline constexpr std::int64_t YearsAhead = std::int64_t{1} << 33;

// The Julian Day Number of the first day of a year. The mean year of 10631/30 days, rounded down: the same number as
// whole cycles, plain years and leap days so far, added up.
constexpr std::int64_t FirstDay(std::int64_t year) {
  constexpr std::int64_t ahead = YearsAhead * YearsInCycle;
  const auto thirtieths = static_cast<std::uint64_t>(DaysInCycle * (year + ahead) + 3);
  return static_cast<std::int64_t>(thirtieths / YearsInCycle) - YearsAhead * DaysInCycle + FirstDayOfYear0;
}

// The same for a year that is a word, in 32 bits.
constexpr std::int32_t FirstDay(std::uint16_t year) {
  constexpr auto daysInCycle = static_cast<std::uint32_t>(DaysInCycle);
  return static_cast<std::int32_t>((daysInCycle * year + 3) / 30 + FirstDayOfYear0);
}

// Months of 30 and 29 days by turns; the leap day is the thirtieth of the twelfth.
constexpr std::int32_t DaysBeforeMonth(std::int32_t month) {
  return (59 * (month - 1) + 1) / 2;
}

struct TMonthDay {
  std::uint8_t Month;
  std::uint8_t Day;
};

// Month and day of each day of the year, counted from 0.
inline constexpr auto MonthDays = [] {
  std::array<TMonthDay, MostDaysInYear> table{};
  for (std::int32_t month = 1; month <= 12; ++month)
    for (std::int32_t day = DaysBeforeMonth(month); day < MostDaysInYear; ++day)
      table[static_cast<std::size_t>(day)] = {static_cast<std::uint8_t>(month),
                                              static_cast<std::uint8_t>(day - DaysBeforeMonth(month) + 1)};
  return table;
}();

// The date of a Julian Day Number. The year is the last that begins at or before the day; what is left of the division
// by its mean length is thirty times the day of the year.
constexpr TDate DateOfDay(std::int32_t julianDay) {
  constexpr std::int64_t ahead = std::int64_t{YearsInCycle} * 1000000;
  constexpr std::int64_t fromStart = YearsInCycle - 4 - YearsInCycle * FirstDayOfYear0 + DaysInCycle * ahead;
  const auto thirtieths = static_cast<std::uint64_t>(std::int64_t{YearsInCycle} * julianDay + fromStart);
  const std::uint64_t year = thirtieths / DaysInCycle;
  const auto dayOfYear = static_cast<std::uint32_t>(thirtieths - year * DaysInCycle) / YearsInCycle;
  const TMonthDay date = MonthDays[static_cast<std::size_t>(dayOfYear)];
  return {static_cast<std::int32_t>(static_cast<std::int64_t>(year) - ahead), date.Month, date.Day};
}

// The Julian Day Number of a date, TYear being a word or 64 bits wide; the month lies in 1 to 12.
template <typename TYear>
constexpr auto DayOfDate(TYear year, std::int32_t month, std::int32_t day) {
  return FirstDay(year) + DaysBeforeMonth(month) + day - 1;
}

}  // namespace orv::islamic
