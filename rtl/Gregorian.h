// The Gregorian calendar on a count of days, for years from 1 on: 1 January 0001 is day 1, 30 December 1899 is day
// 693594. Pure arithmetic without division by a variable, constexpr, for any thread.
#pragma once

#include <cstdint>

namespace rtl {

// A calendar date in words, as all date operations take and give it. Nothing says that it is a valid one.
struct TDateParts {
  std::uint16_t Year = 0;
  std::uint16_t Month = 0;
  std::uint16_t Day = 0;
  friend constexpr bool operator==(const TDateParts&, const TDateParts&) = default;
};

namespace gregorian {

constexpr bool IsLeapYear(std::uint32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Months of the computation run from March, so that the leap day ends the year; the day before 1 March of year 0 is
// day -306 of the count.
inline constexpr std::uint32_t DaysFromMarch0 = 305;

// The day number of a date. The month lies in 1 to 12 and the year in 1 to 65535; a day outside its month counts on
// from the month's first day.
constexpr std::int32_t DayNumber(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const bool lateMonth = month <= 2;
  const std::uint32_t y = year - lateMonth;
  const std::uint32_t century = y / 100;
  const std::uint32_t daysOfYears = 1461 * y / 4 - century + century / 4;
  // Days before each month, March first: a line of slope 979/32 that hits all twelve.
  const std::uint32_t daysOfMonths = (979 * (lateMonth ? month + 12 : month) - 2919) / 32;
  return static_cast<std::int32_t>(daysOfYears + daysOfMonths + day - 1 - DaysFromMarch0);
}

// A date whose year has not been cut to a word yet.
struct TWideDate {
  std::uint32_t Year;
  std::uint32_t Month;
  std::uint32_t Day;
};

// The date of a day number from 1 on.
constexpr TWideDate DateOfDay(std::int32_t dayNumber) {
  const std::uint64_t quarters =
      4 * (static_cast<std::uint64_t>(static_cast<std::uint32_t>(dayNumber)) + DaysFromMarch0) + 3;
  const auto century = static_cast<std::uint32_t>(quarters / 146097);
  const auto quartersOfCentury = static_cast<std::uint32_t>(quarters % 146097) | 3;
  // One multiplication by 2^32/1461 gives the year of the century above and the day of the year below the point.
  const std::uint64_t scaled = std::uint64_t{2939745} * quartersOfCentury;
  const auto yearOfCentury = static_cast<std::uint32_t>(scaled >> 32);
  const std::uint32_t dayOfYear = static_cast<std::uint32_t>(scaled) / 2939745 / 4;
  const std::uint32_t line = 2141 * dayOfYear + 197913;
  const bool lateMonth = dayOfYear >= 306;
  return {100 * century + yearOfCentury + lateMonth, (line >> 16) - (lateMonth ? 12u : 0u), (line & 0xFFFF) / 2141 + 1};
}

}  // namespace gregorian
}  // namespace rtl
