// The Jalali (Persian solar) calendar, as one formula: years of 365 + 303/1250 days, with an offset that changes at
// twelve years of history. The leap years of 1206 to 1498 are those of the calendar in use in Iran. Constexpr, for any
// thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::jalali {

inline constexpr std::int32_t MinYear = -1096;
inline constexpr std::int32_t MaxYear = 2327;
inline constexpr std::int32_t DayBeforeYear0 = 1947954;
inline constexpr std::int32_t MostDaysInYear = 366;

struct TDate {
  std::int32_t Year;
  std::int32_t Month;
  std::int32_t Day;
};

struct TYearDay {
  std::int32_t Year;
  std::int32_t DayOfYear;  // from 1
};

// The formula holds, with this offset, for the years below Bound that no earlier row takes.
struct TBreak {
  std::int32_t Bound;
  std::int32_t Offset;
};

inline constexpr TBreak Breaks[] = {{-708, 1108}, {-221, 1047}, {-3, 984},   {6, 1249},   {394, 952},  {720, 891},
                                    {786, 930},   {1145, 866},  {1635, 869}, {1701, 844}, {1866, 848}, {2328, 852}};
// The first rows count years from the other side of year 0, where a remainder leans the other way.
inline constexpr int RowsBeforeYear0 = 3;

// The Julian Day Number of the day before 1 Farvardin, by the formula; -1 outside the years it is made for. The
// division drops the fraction towards zero.
constexpr std::int32_t DayBeforeYear(std::int32_t year) {
  if (year < MinYear || year > MaxYear) return -1;
  int row = 0;
  while (year >= Breaks[row].Bound) ++row;
  const std::int32_t day = 365 * year + (Breaks[row].Offset + 303 * year) / 1250 + DayBeforeYear0;
  return row < RowsBeforeYear0 ? day - 1 : day;
}

// The formula's answer for every year, from MinYear on.
inline constexpr auto YearTable = [] {
  std::array<std::int32_t, MaxYear - MinYear + 1> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = DayBeforeYear(MinYear + static_cast<std::int32_t>(i));
  return table;
}();

// DayBeforeYear, looked up.
constexpr std::int32_t JD0(std::int32_t year) {
  const auto index = static_cast<std::uint32_t>(year) - static_cast<std::uint32_t>(MinYear);
  return index < YearTable.size() ? YearTable[index] : -1;
}

// The days of the years whose end is known: 1 Farvardin -1096 to 29 Esfand 2326.
inline constexpr std::int32_t FirstDay = YearTable.front() + 1;
inline constexpr std::int32_t LastDay = YearTable.back();

// The year and the day of the year of a Julian Day Number from FirstDay to LastDay. The mean year guesses the year; no
// year begins a whole day earlier than its guess, nor more than a quarter of a day later, so the guess is right or one
// too high.
constexpr TYearDay YearDayOfDay(std::int32_t julianDay) {
  constexpr std::uint64_t yearsPerDay = (std::uint64_t{1250} << 48) / (365 * 1250 + 303);  // in 2^-48 years
  const auto guess =
      static_cast<std::size_t>((static_cast<std::uint64_t>(julianDay - YearTable[0]) * yearsPerDay) >> 48);
  const bool tooHigh = YearTable[guess] >= julianDay;
  const std::int32_t dayBefore = tooHigh ? YearTable[guess - 1] : YearTable[guess];
  return {static_cast<std::int32_t>(guess - tooHigh) + MinYear, julianDay - dayBefore};
}

// Six months of 31 days, then months of 30.
constexpr std::int32_t DaysBeforeMonth(std::int32_t month) {
  return month <= 7 ? (month - 1) * 31 : (month - 7) * 30 + 186;
}

struct TMonthDay {
  std::uint8_t Month;
  std::uint8_t Day;
};

// Month and day of each day of the year, from 1; entry 0 is no day.
inline constexpr auto MonthDays = [] {
  std::array<TMonthDay, MostDaysInYear + 1> table{};
  for (std::int32_t month = 1; month <= 12; ++month)
    for (std::int32_t day = DaysBeforeMonth(month) + 1; day <= MostDaysInYear; ++day)
      table[static_cast<std::size_t>(day)] = {static_cast<std::uint8_t>(month),
                                              static_cast<std::uint8_t>(day - DaysBeforeMonth(month))};
  return table;
}();

// The date of a Julian Day Number from FirstDay to LastDay.
constexpr TDate DateOfDay(std::int32_t julianDay) {
  const TYearDay yearDay = YearDayOfDay(julianDay);
  const TMonthDay date = MonthDays[static_cast<std::size_t>(yearDay.DayOfYear)];
  return {yearDay.Year, date.Month, date.Day};
}

// The Julian Day Number of a date of a year from MinYear to MaxYear and a month from 1 to 12; the day counts on.
constexpr std::int32_t DayOfDate(std::int32_t year, std::int32_t month, std::int32_t day) {
  return JD0(year) + DaysBeforeMonth(month) + day;
}

}  // namespace orv::jalali
