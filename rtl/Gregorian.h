// The Gregorian calendar on a count of days, for years from 1 on: 1 January 0001 is day 1, 30 December 1899 is day
// 693594. Pure arithmetic without division by a variable, constexpr, for any thread.
#pragma once

#include <array>
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

// The days of a month, 1 to 12.
constexpr std::uint32_t DaysInMonth(std::uint32_t year, std::uint32_t month) {
  if (month == 2) return IsLeapYear(year) ? 29 : 28;
  return 30 + ((month + (month >> 3)) & 1);
}

// Years of the computation begin on 1 March, so that the leap day ends them and their months never shift. The first is
// the year 0, which begins at day -305 of the count.
inline constexpr std::int32_t FirstMarch0 = -305;
inline constexpr std::uint32_t DaysInMarchYear = 366;

// Days from 1 March of year 0 to 1 March of a year.
constexpr std::uint32_t DaysBeforeMarch(std::uint32_t year) {
  const std::uint32_t century = year / 100;
  return 1461 * year / 4 - century + century / 4;
}

// Days from 1 March to the first of a month, the months after December counting on from it: a line of slope 979/32
// hits all twelve.
constexpr std::uint32_t DaysFromMarch(std::uint32_t month) {
  return (979 * month - 2919) / 32;
}

// The day number of a date. The month lies in 1 to 12 and the year in 1 to 65535; a day outside its month counts on
// from the month's first day.
constexpr std::int32_t DayNumber(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const bool lateMonth = month <= 2;
  const std::uint32_t days =
      DaysBeforeMarch(year - lateMonth) + DaysFromMarch(lateMonth ? month + 12 : month) + day - 1;
  return static_cast<std::int32_t>(days) + FirstMarch0;
}

// A date whose year has not been cut to a word yet.
struct TWideDate {
  std::uint32_t Year;
  std::uint32_t Month;
  std::uint32_t Day;
};

// A month, a day of the month and, for January and February, a 1 for the next calendar year that they belong to. In one
// word, since all three are wanted at once.
class TMonthDay {
 public:
  constexpr TMonthDay() = default;
  constexpr TMonthDay(std::uint32_t month, std::uint32_t day, bool nextYear)
      : FBits(month | day << 8 | (nextYear ? 1u : 0u) << 16) {}
  constexpr std::uint32_t Month() const { return FBits & 0xFF; }
  constexpr std::uint32_t Day() const { return FBits >> 8 & 0xFF; }
  constexpr std::uint32_t YearsOn() const { return FBits >> 16; }

 private:
  std::uint32_t FBits = 0;
};

// Month and day of each day from 1 March on.
inline constexpr auto MonthDays = [] {
  std::array<TMonthDay, DaysInMarchYear> table{};
  for (std::uint32_t month = 3; month <= 14; ++month) {
    const bool lateMonth = month > 12;
    for (std::uint32_t day = DaysFromMarch(month); day < DaysInMarchYear; ++day)
      table[day] = {lateMonth ? month - 12 : month, day - DaysFromMarch(month) + 1, lateMonth};
  }
  return table;
}();

// DaysBeforeMarch of the years that dates are encoded of.
inline constexpr std::uint32_t YearsInTable = 10001;
inline constexpr auto MarchTable = [] {
  std::array<std::int32_t, YearsInTable> table{};
  for (std::uint32_t year = 0; year < YearsInTable; ++year)
    table[year] = static_cast<std::int32_t>(DaysBeforeMarch(year));
  return table;
}();

// The date of a day number from 1 on, by arithmetic: a multiplication by 2^32/1461 gives the year of the century above
// the point and the day of the year below it.
constexpr TWideDate DateOfFarDay(std::int32_t dayNumber) {
  const std::uint64_t quarters = 4 * static_cast<std::uint64_t>(std::int64_t{dayNumber} - FirstMarch0) + 3;
  const auto century = static_cast<std::uint32_t>(quarters / 146097);
  const std::uint64_t scaled = std::uint64_t{2939745} * (static_cast<std::uint32_t>(quarters % 146097) | 3);
  const auto yearOfCentury = static_cast<std::uint32_t>(scaled >> 32);
  const TMonthDay date = MonthDays[static_cast<std::uint32_t>(scaled) / 2939745 / 4];
  return {100 * century + yearOfCentury + date.YearsOn(), date.Month(), date.Day()};
}

// The date of a day number from 1 on. In the years of the table, the mean year guesses the year two days early, which
// is right or one too high, since no 1 March strays so far from the mean.
constexpr TWideDate DateOfDay(std::int32_t dayNumber) {
  constexpr std::uint64_t yearsPerDay = (std::uint64_t{400} << 40) / 146097;  // in 2^-40 years
  const std::int32_t day = dayNumber - FirstMarch0;
  if (day >= MarchTable.back()) [[unlikely]]
    return DateOfFarDay(dayNumber);
  const auto guess = static_cast<std::uint32_t>(((static_cast<std::uint64_t>(day) + 2) * yearsPerDay) >> 40);
  const bool tooHigh = MarchTable[guess] > day;
  const std::int32_t first = tooHigh ? MarchTable[guess - 1] : MarchTable[guess];
  const TMonthDay date = MonthDays[static_cast<std::uint32_t>(day - first)];
  return {guess - tooHigh + date.YearsOn(), date.Month(), date.Day()};
}

}  // namespace gregorian
}  // namespace rtl
