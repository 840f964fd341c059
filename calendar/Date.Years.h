// Year records: where a year of a calendar begins and how long its months are. One function per calendar, each the
// plain rule of its calendar. Inside calendar/ alone.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "calendar/Date.h"

namespace orv {

inline constexpr int MonthsInRecord = 13;

struct TYearRecord {
  std::int64_t First = 0;                                // the year's first day
  std::int64_t NextFirst = 0;                            // the first day of the next year
  std::array<std::uint8_t, MonthsInRecord> Months = {};  // 0: there is no such month
};

// How a calendar guesses the year of a day: the days since the base, divided by the shortest year.
struct TYearEstimate {
  std::int32_t Base;
  std::int32_t Divisor;
};

TYearRecord GregorianYear(std::int32_t year);
TYearRecord JulianYear(std::int32_t year);
TYearRecord HebrewYear(std::int32_t year);
TYearRecord IslamicYear(std::int32_t year);
TYearRecord ThirtyDaysYear(std::int32_t year);
std::optional<TYearRecord> JalaliYear(std::int32_t year);
std::optional<TYearRecord> LunisolarYear(std::int32_t year);

// The record of any kind; nothing where the year lies outside its range or the kind is unknown.
std::optional<TYearRecord> YearRecord(std::int32_t year, std::int32_t kind);

}  // namespace orv
