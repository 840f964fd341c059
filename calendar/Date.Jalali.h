// The Jalali (Persian solar) calendar, as one formula: years of 365 + 303/1250 days, with an offset that changes at
// twelve years of history. The leap years of 1206 to 1498 are those of the calendar in use in Iran.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::jalali {

inline constexpr std::int32_t MinYear = -1096;
inline constexpr std::int32_t MaxYear = 2327;
inline constexpr std::int32_t DayBeforeYear0 = 1947954;

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

inline constexpr std::size_t YearCount = MaxYear - MinYear + 1;

// The formula's answer for every year.
inline constexpr auto YearTable = [] {
  std::array<std::int32_t, YearCount> table{};
  for (std::size_t i = 0; i < YearCount; ++i) table[i] = DayBeforeYear(MinYear + static_cast<std::int32_t>(i));
  return table;
}();

// DayBeforeYear, looked up.
constexpr std::int32_t JD0(std::int32_t year) {
  const auto index = static_cast<std::uint32_t>(year) - static_cast<std::uint32_t>(MinYear);
  return index < YearCount ? YearTable[index] : -1;
}

// The first day that decoding knows, 1 Farvardin of year 0, and the last, 10 Shahrivar 2325. Behind it the guess of the
// year at 365 days a year would reach the last year of the table, from where it cannot go on.
inline constexpr std::int32_t FirstDecodable = DayBeforeYear0 + 1;
inline constexpr std::int32_t LastDecodable = DayBeforeYear0 + MaxYear * 365 - 1;

// The year of a day from FirstDecodable to LastDecodable. The mean year guesses it at most one year off.
constexpr std::int32_t YearOfDay(std::int32_t julianDay) {
  constexpr std::uint64_t yearsPerDay = (std::uint64_t{1} << 32) * 1250 / (365 * 1250 + 303);  // in 2^-32 years
  const auto days = static_cast<std::uint64_t>(julianDay - FirstDecodable);
  auto year = static_cast<std::int32_t>((days * yearsPerDay) >> 32);
  year += JD0(year + 1) < julianDay ? 1 : 0;
  year -= JD0(year) >= julianDay ? 1 : 0;
  return year;
}

// The month and the day of the month of a day of the year, from 1.
constexpr std::int32_t MonthOfDay(std::int32_t dayOfYear) {
  return dayOfYear <= 186 ? (dayOfYear - 1) / 31 + 1 : (dayOfYear - 187) / 30 + 7;
}
constexpr std::int32_t DaysBeforeMonth(std::int32_t month) {
  return month <= 7 ? (month - 1) * 31 : (month - 7) * 30 + 186;
}

}  // namespace orv::jalali
