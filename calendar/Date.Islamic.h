// The tabular Islamic calendar, as arithmetic. A year has 354 days, eleven years of thirty have one more: those at
// places 2, 5, 7, 10, 13, 16, 18, 21, 24, 26 and 29 of the cycle. Day 1 of year 1 is 16 July 622 of the Julian
// calendar, Julian Day Number 1948440 (the civil reckoning).
#pragma once

#include <cstdint>

namespace orv::islamic {

inline constexpr std::int64_t DaysInCycle = 10631;  // of thirty years
inline constexpr std::int64_t YearsInCycle = 30;
inline constexpr std::int64_t FirstDayOfYear0 = 1948086;

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  return a >= 0 ? a / b : -((b - 1 - a) / b);
}

// (r * 11 + 3) mod 30 of a place in the cycle tells the leap years: they are those where it is 19 or more.
constexpr bool IsLeapPlace(std::int32_t place) {
  return (place * 11 + 3) % 30 >= 19;
}

// The Julian Day Number of the first day of a year. The mean year of 10631/30 days, rounded down: the same number as
// whole cycles, plain years and leap days so far, added up.
constexpr std::int64_t FirstDay(std::int64_t year) {
  return FloorDiv(DaysInCycle * year + 3, YearsInCycle) + FirstDayOfYear0;
}

// The year of a Julian Day Number: the last that begins at or before it.
constexpr std::int64_t YearOfDay(std::int64_t julianDay) {
  return FloorDiv(YearsInCycle * (julianDay - FirstDayOfYear0) + (YearsInCycle - 4), DaysInCycle);
}

// Months of 30 and 29 days by turns; the leap day is the thirtieth of the twelfth.
constexpr std::int32_t DaysBeforeMonth(std::int32_t month) {
  return (59 * (month - 1) + 1) / 2;
}

// The month that holds a day of the year, counted from 0.
constexpr std::int32_t MonthOfDay(std::int32_t dayOfYear) {
  const std::int32_t month = 2 * dayOfYear / 59 + 1;
  return month < 12 ? month : 12;
}

struct TDate {
  std::int64_t Year;
  std::int32_t Month;
  std::int32_t Day;
};

// The date of a Julian Day Number.
constexpr TDate DateOfDay(std::int64_t julianDay) {
  const std::int64_t year = YearOfDay(julianDay);
  const auto dayOfYear = static_cast<std::int32_t>(julianDay - FirstDay(year));
  const std::int32_t month = MonthOfDay(dayOfYear);
  return {year, month, dayOfYear - DaysBeforeMonth(month) + 1};
}

// The Julian Day Number of a date; the month lies in 1 to 12.
constexpr std::int64_t DayOfDate(std::int64_t year, std::int32_t month, std::int32_t day) {
  return FirstDay(year) + DaysBeforeMonth(month) + day - 1;
}

}  // namespace orv::islamic
