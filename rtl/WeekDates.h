// Weeks and month steps of the Gregorian calendar.
//
// A week begins on Monday and belongs to the year, or to the month, that holds its Thursday (ISO 8601). Days of the
// week are numbers: 1 = Monday to 7 = Sunday. Years run from 1 to 9999 for encoding; a value before year 1 decodes to
// zeros. Pure functions, callable from any thread.
#pragma once

#include <cstdint>
#include <optional>

#include "rtl/DateTime.h"

namespace rtl {

struct TYearWeek {
  std::uint16_t Year = 0;
  std::uint16_t Week = 0;  // 1 to 53
  std::uint16_t DayOfWeek = 0;
  friend constexpr bool operator==(const TYearWeek&, const TYearWeek&) = default;
};

struct TMonthWeek {
  std::uint16_t Year = 0;
  std::uint16_t Month = 0;
  std::uint16_t Week = 0;  // 1 to 5
  std::uint16_t DayOfWeek = 0;
  friend constexpr bool operator==(const TMonthWeek&, const TMonthWeek&) = default;
};

// The Nth of some day of the week in a month, counted from the first one: 15 March 2025 is the third Saturday.
struct TNthWeekDay {
  std::uint16_t Year = 0;
  std::uint16_t Month = 0;
  std::uint16_t Nth = 0;
  std::uint16_t DayOfWeek = 0;
  friend constexpr bool operator==(const TNthWeekDay&, const TNthWeekDay&) = default;
};

std::uint16_t DayOfTheWeek(TDateTime value);

// The day of the month, from 1, on which the nth of some day of the week falls in a month that begins on
// firstDayOfWeek. Days of the week may be numbered from any day. Nothing is checked; the result is a word and wraps.
constexpr std::uint16_t DayOfNthWeekDay(std::int32_t firstDayOfWeek, std::int32_t nth, std::int32_t dayOfWeek) {
  const std::int32_t toFirstOne = dayOfWeek - firstDayOfWeek + (dayOfWeek < firstDayOfWeek ? 7 : 0);
  return static_cast<std::uint16_t>(toFirstOne + (nth - 1) * 7 + 1);
}

// 53 in the years that hold 53 Thursdays, otherwise 52. Raises EConvertError for a year outside 1 to 9999.
std::uint16_t WeeksInAYear(std::uint16_t year);

// The Monday, at midnight, of the week of value.
TDateTime StartOfTheWeek(TDateTime value);

TYearWeek DecodeDateWeek(TDateTime value);
TMonthWeek DecodeDateMonthWeek(TDateTime value);
TNthWeekDay DecodeDayOfWeekInMonth(TDateTime value);

bool IsValidDateWeek(const TYearWeek& date);
// The bounds alone: year, month 1 to 12, week 1 to 5, day 1 to 7. Week 5 of a month that has four encodes to a day of
// the next month.
bool IsValidDateMonthWeek(const TMonthWeek& date);

// Each is empty where the parts form no date; the last also where the month has no such day.
std::optional<TDateTime> TryEncodeDateWeek(const TYearWeek& date);
std::optional<TDateTime> TryEncodeDateMonthWeek(const TMonthWeek& date);
// Raises EConvertError for a year or month out of range.
std::optional<TDateTime> TryEncodeDayOfWeekInMonth(const TNthWeekDay& date);

// The date that many months away, its day cut to the month's length: 31 January and one month is 28 or 29 February.
// Words wrap; nothing is checked but the month's length (EConvertError for a month 0 or above 12 in date).
TDateParts IncAMonth(const TDateParts& date, std::int32_t months);

// The same on a date-time, whose time of day is kept. Raises EConvertError where the year, which wraps as a word, comes
// to stand outside 1 to 9999.
TDateTime IncMonth(TDateTime value, std::int32_t months = 1);
TDateTime IncYear(TDateTime value, std::int32_t years = 1);

}  // namespace rtl
