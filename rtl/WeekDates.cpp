#include "rtl/WeekDates.h"

#include <cmath>

namespace rtl {
namespace {

constexpr std::int32_t Thursday = 4;
constexpr std::int32_t DaysPerWeek = 7;

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

TDateTime DateTimeOfDay(std::int32_t dayNumber) {
  return TimeStampToDateTime({0, dayNumber});
}

constexpr std::uint16_t WeekDayOfDay(std::int32_t dayNumber) {
  const std::int32_t fromMonday = (dayNumber - 1) % DaysPerWeek;
  return Word((fromMonday < 0 ? fromMonday + DaysPerWeek : fromMonday) + 1);
}

// The Monday of the first week that has its Thursday on or after the day.
std::int32_t FirstMonday(std::int32_t firstDay) {
  const std::int32_t weekDay = WeekDayOfDay(firstDay);
  return firstDay - weekDay + 1 + (weekDay > Thursday ? DaysPerWeek : 0);
}

TDateTime DayOfWeekFrom(TDateTime firstDay, std::uint16_t week, std::uint16_t dayOfWeek) {
  return DateTimeOfDay(FirstMonday(DayNumberOf(firstDay)) + (week - 1) * DaysPerWeek + dayOfWeek - 1);
}

bool IsWeekDay(std::uint16_t dayOfWeek) {
  return dayOfWeek >= 1 && dayOfWeek <= DaysPerWeek;
}
bool IsYear(std::uint16_t year) {
  return IsValidDateDay(year, 1);
}

TDateParts StepMonths(TDateParts date, std::int64_t months) {
  const std::int32_t sign = months >= 0 ? 1 : -1;
  date.Year = Word(date.Year + months / 12);
  date.Month = Word(date.Month + months % 12);
  if (Word(date.Month - 1) > 11) {
    date.Year = Word(date.Year + sign);
    date.Month = Word(date.Month - 12 * sign);
  }
  const std::uint16_t length = DaysInAMonth(date.Year, date.Month);
  if (date.Day > length) date.Day = length;
  return date;
}

TDateTime StepMonths(TDateTime value, std::int64_t months) {
  return ReplaceTime(EncodeDate(StepMonths(DecodeDate(value), months)), value);
}

}  // namespace

std::uint16_t DayOfTheWeek(TDateTime value) {
  return WeekDayOfDay(DayNumberOf(value));
}

std::uint16_t WeeksInAYear(std::uint16_t year) {
  const std::uint16_t newYear = DayOfTheWeek(EncodeDate({year, 1, 1}));
  return newYear == Thursday || (newYear == Thursday - 1 && IsLeapYear(year)) ? 53 : 52;
}

TDateTime StartOfTheWeek(TDateTime value) {
  const std::int32_t day = DayNumberOf(value);
  return DateTimeOfDay(day - WeekDayOfDay(day) + 1);
}

TYearWeek DecodeDateWeek(TDateTime value) {
  const std::int32_t day = DayNumberOf(value);
  if (day <= 0) return {};
  const std::uint16_t weekDay = WeekDayOfDay(day);
  const TYearDay thursday = DecodeDateDay(DateTimeOfDay(day - weekDay + Thursday));
  return {thursday.Year, Word((thursday.DayOfYear - 1) / DaysPerWeek + 1), weekDay};
}

TMonthWeek DecodeDateMonthWeek(TDateTime value) {
  const std::int32_t day = DayNumberOf(value);
  if (day <= 0) return {};
  const std::uint16_t weekDay = WeekDayOfDay(day);
  const TDateParts thursday = DecodeDate(DateTimeOfDay(day - weekDay + Thursday));
  return {thursday.Year, thursday.Month, Word((thursday.Day - 1) / DaysPerWeek + 1), weekDay};
}

TNthWeekDay DecodeDayOfWeekInMonth(TDateTime value) {
  const TDateParts date = DecodeDate(value);
  if (date == TDateParts()) return {};
  return {date.Year, date.Month, Word((date.Day - 1) / DaysPerWeek + 1), DayOfTheWeek(value)};
}

bool IsValidDateWeek(const TYearWeek& date) {
  return IsYear(date.Year) && date.Week >= 1 && date.Week <= WeeksInAYear(date.Year) && IsWeekDay(date.DayOfWeek);
}

bool IsValidDateMonthWeek(const TMonthWeek& date) {
  return IsValidDate({date.Year, date.Month, 1}) && date.Week >= 1 && date.Week <= 5 && IsWeekDay(date.DayOfWeek);
}

std::optional<TDateTime> TryEncodeDateWeek(const TYearWeek& date) {
  if (!IsValidDateWeek(date)) return std::nullopt;
  return DayOfWeekFrom(EncodeDate({date.Year, 1, 1}), date.Week, date.DayOfWeek);
}

std::optional<TDateTime> TryEncodeDateMonthWeek(const TMonthWeek& date) {
  if (!IsValidDateMonthWeek(date)) return std::nullopt;
  return DayOfWeekFrom(EncodeDate({date.Year, date.Month, 1}), date.Week, date.DayOfWeek);
}

std::optional<TDateTime> TryEncodeDayOfWeekInMonth(const TNthWeekDay& date) {
  const std::uint16_t first = DayOfTheWeek(EncodeDate({date.Year, date.Month, 1}));
  return TryEncodeDate({date.Year, date.Month, DayOfNthWeekDay(first, date.Nth, date.DayOfWeek)});
}

TDateParts IncAMonth(const TDateParts& date, std::int32_t months) {
  return StepMonths(date, months);
}

TDateTime IncMonth(TDateTime value, std::int32_t months) {
  return StepMonths(value, months);
}

TDateTime IncYear(TDateTime value, std::int32_t years) {
  return StepMonths(value, std::int64_t{12} * years);
}

}  // namespace rtl
