// Dates and times of day as one number, and the Gregorian calendar on them.
//
// A TDateTime counts days from 30 December 1899; the time of day is its fraction taken by magnitude, so -1.25 is
// 29 December 1899, 06:00. A time stamp holds the same moment as two whole numbers; milliseconds of a linear count run
// on without the bend at zero, and all spans are reckoned in them. The resolution is one millisecond: finer fractions
// round to the nearest one, halves to the even one, before a date is taken from a value.
//
// All functions are pure and may be called from any thread. No number makes them fail: what lies beyond the 32-bit day
// count stands at its end, and a NaN counts as 0.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

#include "rtl/Gregorian.h"

namespace rtl {

using TDateTime = double;

inline constexpr std::int64_t MSecsPerSec = 1000;
inline constexpr std::int64_t MSecsPerMin = 60 * MSecsPerSec;
inline constexpr std::int64_t MSecsPerHour = 60 * MSecsPerMin;
inline constexpr std::int64_t MSecsPerDay = 24 * MSecsPerHour;
inline constexpr std::int32_t DateDelta = 693594;  // the day number of 30 December 1899
inline constexpr double ApproxDaysPerMonth = 30.4375;
inline constexpr double ApproxDaysPerYear = 365.25;

// The day of a value counted so that 1 January 0001 is 1, and the milliseconds since its midnight (0 to 86399999).
struct TTimeStamp {
  std::int32_t Time = 0;
  std::int32_t Date = 0;
  friend constexpr bool operator==(const TTimeStamp&, const TTimeStamp&) = default;
};

struct TTimeParts {
  std::uint16_t Hour = 0;
  std::uint16_t Minute = 0;
  std::uint16_t Second = 0;
  std::uint16_t MilliSecond = 0;
  friend constexpr bool operator==(const TTimeParts&, const TTimeParts&) = default;
};

struct TDateTimeParts {
  TDateParts Date;
  TTimeParts Time;
  friend constexpr bool operator==(const TDateTimeParts&, const TDateTimeParts&) = default;
};

// The milliseconds of value, rounded, with the sign of the value: a number of days times 86400000 and not a linear
// count.
inline std::int64_t RoundedMilliseconds(TDateTime value) {
  constexpr double limit = 2.0e9 * static_cast<double>(MSecsPerDay);
  const double exact = value * static_cast<double>(MSecsPerDay);
  // Adding 1.5 * 2^52 leaves no room for a fraction, so the sum is rounded to the nearest integer, halves to even.
  constexpr double shift = 6755399441055744.0;
  if (std::fabs(exact) < 2251799813685248.0) [[likely]]
    return static_cast<std::int64_t>((exact + shift) - shift);
  if (std::isnan(exact)) return 0;
  if (std::fabs(exact) >= limit) return static_cast<std::int64_t>(exact < 0 ? -limit : limit);
  return static_cast<std::int64_t>(std::nearbyint(exact));
}

inline TTimeStamp DateTimeToTimeStamp(TDateTime value) {
  const std::int64_t milliseconds = RoundedMilliseconds(value);
  const std::int64_t days = milliseconds / MSecsPerDay;
  const std::int64_t time = milliseconds - days * MSecsPerDay;
  return {static_cast<std::int32_t>(time < 0 ? -time : time), static_cast<std::int32_t>(days) + DateDelta};
}

// The day number of value, 30 December 1899 being 693594.
inline std::int32_t DayNumberOf(TDateTime value) {
  if (std::fabs(value) < 2.0e9) [[likely]] {
    const auto day = static_cast<std::int32_t>(value);
    // Only what lies within a millisecond of the next midnight can round up to it.
    if (std::fabs(value - day) < 0.9999999) [[likely]]
      return day + DateDelta;
  }
  return static_cast<std::int32_t>(RoundedMilliseconds(value) / MSecsPerDay) + DateDelta;
}

// Date and time of day (a fraction from 0 up to 1) put together by magnitude: before 30 December 1899 the time is
// subtracted.
constexpr TDateTime JoinDateAndTime(TDateTime date, TDateTime time) {
  return date < 0 ? date - time : date + time;
}

inline TDateTime TimeStampToDateTime(TTimeStamp stamp) {
  const std::int64_t days = static_cast<std::int64_t>(stamp.Date) - DateDelta;
  const std::int64_t milliseconds = days < 0 ? days * MSecsPerDay - stamp.Time : days * MSecsPerDay + stamp.Time;
  return static_cast<double>(milliseconds) / static_cast<double>(MSecsPerDay);
}

// Milliseconds since the midnight that begins day 0 of the day numbers; a linear count. 30 December 1899 is
// 59926521600000.
inline std::int64_t DateTimeToMilliseconds(TDateTime value) {
  const TTimeStamp stamp = DateTimeToTimeStamp(value);
  return stamp.Date * MSecsPerDay + stamp.Time;
}
TDateTime MillisecondsToDateTime(std::int64_t milliseconds);

// Time of day. A valid time runs from 00:00:00.000 to 23:59:59.999; IsValidTime also takes 24:00:00.000, the midnight
// that ends a day, which has no encoding.
constexpr bool IsTimeOfDay(const TTimeParts& time) {
  return time.Hour < 24 && time.Minute < 60 && time.Second < 60 && time.MilliSecond < 1000;
}
bool IsValidTime(const TTimeParts& time);
constexpr std::optional<TDateTime> TryEncodeTime(const TTimeParts& time) {
  if (!IsTimeOfDay(time)) return std::nullopt;
  const std::int64_t milliseconds =
      time.Hour * MSecsPerHour + time.Minute * MSecsPerMin + time.Second * MSecsPerSec + time.MilliSecond;
  return static_cast<double>(milliseconds) / static_cast<double>(MSecsPerDay);
}
TDateTime EncodeTime(const TTimeParts& time);  // raises EConvertError
inline TTimeParts DecodeTime(TDateTime value) {
  const auto time = static_cast<std::uint32_t>(DateTimeToTimeStamp(value).Time);
  const std::uint32_t seconds = time / 1000;
  const std::uint32_t minutes = seconds / 60;
  return {static_cast<std::uint16_t>(minutes / 60), static_cast<std::uint16_t>(minutes % 60),
          static_cast<std::uint16_t>(seconds % 60), static_cast<std::uint16_t>(time % 1000)};
}
std::uint16_t HourOf(TDateTime value);
std::uint16_t MinuteOf(TDateTime value);
std::uint16_t SecondOf(TDateTime value);
std::uint16_t MilliSecondOf(TDateTime value);

// The Gregorian calendar, years 1 to 9999 for encoding.
constexpr bool IsLeapYear(std::uint16_t year) {
  return gregorian::IsLeapYear(year);
}
constexpr std::uint16_t DaysInAYear(std::uint16_t year) {
  return IsLeapYear(year) ? 366 : 365;
}
// Raises EConvertError for a month outside 1 to 12.
std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month);
inline bool IsValidDate(const TDateParts& date) {
  return date.Year >= 1 && date.Year <= 9999 && date.Month >= 1 && date.Month <= 12 && date.Day >= 1 &&
         (date.Day <= 28 || date.Day <= gregorian::DaysInMonth(date.Year, date.Month));
}
bool IsValidDateDay(std::uint16_t year, std::uint16_t dayOfYear);
inline std::optional<TDateTime> TryEncodeDate(const TDateParts& date) {
  if (!IsValidDate(date)) return std::nullopt;
  return gregorian::DayNumber(date.Year, date.Month, date.Day) - DateDelta;
}
TDateTime EncodeDate(const TDateParts& date);  // raises EConvertError
std::optional<TDateTime> TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear);
TDateTime EncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear);  // raises EConvertError

// Date and time of day together; empty where either is not valid.
std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& parts);

// The parts of a date. Before year 1 all are 0; a year above 65535 is cut to a word.
inline TDateParts DecodeDate(TDateTime value) {
  const std::int32_t day = DayNumberOf(value);
  if (day <= 0) return {};
  const gregorian::TWideDate date = gregorian::DateOfDay(day);
  return {static_cast<std::uint16_t>(date.Year), static_cast<std::uint16_t>(date.Month),
          static_cast<std::uint16_t>(date.Day)};
}

struct TYearDay {
  std::uint16_t Year = 0;
  std::uint16_t DayOfYear = 0;
  friend constexpr bool operator==(const TYearDay&, const TYearDay&) = default;
};
TYearDay DecodeDateDay(TDateTime value);
TDateTimeParts DecodeDateTime(TDateTime value);

struct TFullDate {
  TDateParts Date;
  std::uint16_t DayOfWeek = 0;  // 1 = Sunday; 0 before year 1
  bool InLeapYear = false;
};
TFullDate DecodeDateFully(TDateTime value);

// 1 = Sunday to 7 = Saturday.
std::uint16_t DayOfWeek(TDateTime value);

// The last millisecond of the day of value, and its midnight.
TDateTime EndOfTheDay(TDateTime value);
TDateTime StartOfTheDay(TDateTime value);

// The day of value with the time of day of time.
TDateTime ReplaceTime(TDateTime value, TDateTime time);

// Steps and spans, in whole milliseconds of the linear count. Spans are never negative.
TDateTime IncDay(TDateTime value, std::int32_t days = 1);
TDateTime IncWeek(TDateTime value, std::int32_t weeks = 1);
std::int64_t MilliSecondsBetween(TDateTime a, TDateTime b);
std::int64_t DaysBetween(TDateTime a, TDateTime b);   // whole days
std::int64_t WeeksBetween(TDateTime a, TDateTime b);  // whole weeks
double DaySpan(TDateTime a, TDateTime b);             // with fractions
double WeekSpan(TDateTime a, TDateTime b);

// Whether value lies between start and end: by the day alone, or to the millisecond. The ends count when inclusive.
bool DateInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive = true);
bool DateTimeInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive = true);

}  // namespace rtl
