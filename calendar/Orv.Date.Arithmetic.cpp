// The operations of calculators that reckon with dates: starts and ends, counts, spans and steps.
#include <algorithm>
#include <cmath>

#include "calendar/Orv.Date.h"

namespace orv {
namespace {

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

// The milliseconds between two dates in whole units of a number of days.
std::int64_t UnitsBetween(TDateTime a, TDateTime b, double daysInUnit) {
  const std::int64_t unit = rtl::RoundedMilliseconds(daysInUnit);
  if (unit == 0) ConvertError("A month of no length cannot measure a span");
  return rtl::MilliSecondsBetween(a, b) / unit;
}

}  // namespace

// --- Starts and ends ---

TDateTime TOrvCalendarCalc::StartOfAYear(std::uint16_t year) const {
  return EncodeDate({year, 1, 1});
}

TDateTime TOrvCalendarCalc::StartOfAMonth(std::uint16_t year, std::uint16_t month) const {
  return EncodeDate({year, month, 1});
}

TDateTime TOrvCalendarCalc::StartOfADay(const TDateParts& date) const {
  return StartOfAMonth(date.Year, date.Month) + date.Day - 1;
}

TDateTime TOrvCalendarCalc::StartOfADay(std::uint16_t year, std::uint16_t dayOfYear) const {
  return EncodeDateDay(year, dayOfYear);
}

TDateTime TOrvCalendarCalc::StartOfAWeek(const TDateWeek& date) const {
  return EncodeDateWeek(date);
}
TDateTime TOrvCalendarCalc::StartOfTheYear(TDateTime value) const {
  return StartOfAYear(YearOf(value));
}

TDateTime TOrvCalendarCalc::StartOfTheMonth(TDateTime value) const {
  const TDateParts date = DecodeDate(value);
  return StartOfAMonth(date.Year, date.Month);
}

TDateTime TOrvCalendarCalc::StartOfTheWeek(TDateTime value) const {
  return std::trunc(value) - TDayOfWeekHelper::AsInteger(DayOfTheWeek(value)) - 1;
}

TDateTime TOrvCalendarCalc::EndOfAYear(std::uint16_t year) const {
  return rtl::EndOfTheDay(EncodeDateDay(year, DaysInAYear(year)));
}

TDateTime TOrvCalendarCalc::EndOfAMonth(std::uint16_t year, std::uint16_t month) const {
  return rtl::EndOfTheDay(EncodeDate({year, month, DaysInAMonth(year, month)}));
}

TDateTime TOrvCalendarCalc::EndOfADay(const TDateParts& date) const {
  return rtl::EndOfTheDay(StartOfADay(date));
}

TDateTime TOrvCalendarCalc::EndOfADay(std::uint16_t year, std::uint16_t dayOfYear) const {
  return rtl::EndOfTheDay(StartOfADay(year, dayOfYear));
}

TDateTime TOrvCalendarCalc::EndOfAWeek(const TDateWeek& date) const {
  return rtl::EndOfTheDay(StartOfAWeek(date));
}
TDateTime TOrvCalendarCalc::EndOfTheYear(TDateTime value) const {
  return EndOfAYear(YearOf(value));
}

TDateTime TOrvCalendarCalc::EndOfTheMonth(TDateTime value) const {
  const TDateParts date = DecodeDate(value);
  return EndOfAMonth(date.Year, date.Month);
}

TDateTime TOrvCalendarCalc::EndOfTheWeek(TDateTime value) const {
  return rtl::EndOfTheDay(StartOfTheWeek(value) + 6);
}

// --- Counting ---

std::uint16_t TOrvCalendarCalc::HourOfTheMonth(TDateTime value) const {
  return Word(rtl::HourOf(value) + (DayOfTheMonth(value) - 1) * 24);
}

std::uint16_t TOrvCalendarCalc::HourOfTheWeek(TDateTime value) const {
  using THelper = TDayOfWeekHelper;
  const std::int32_t days =
      THelper::Ordinal(DayOfTheWeek(value)) - THelper::Ordinal(THelper::FromCalDayOfWeek(FirstWeekday));
  return Word(rtl::HourOf(value) + days * 24);
}

std::uint16_t TOrvCalendarCalc::HourOfTheYear(TDateTime value) const {
  return Word(rtl::HourOf(value) + (DayOfTheYear(value) - 1) * 24);
}

std::uint16_t TOrvCalendarCalc::MinuteOfTheMonth(TDateTime value) const {
  return Word(rtl::MinuteOf(value) + HourOfTheMonth(value) * 60);
}

std::uint16_t TOrvCalendarCalc::MinuteOfTheWeek(TDateTime value) const {
  return Word(rtl::MinuteOf(value) + HourOfTheWeek(value) * 60);
}

std::uint32_t TOrvCalendarCalc::MinuteOfTheYear(TDateTime value) const {
  return rtl::MinuteOf(value) + HourOfTheYear(value) * 60u;
}

std::uint32_t TOrvCalendarCalc::SecondOfTheMonth(TDateTime value) const {
  return rtl::SecondOf(value) + MinuteOfTheMonth(value) * 60u;
}

std::uint32_t TOrvCalendarCalc::SecondOfTheWeek(TDateTime value) const {
  return rtl::SecondOf(value) + MinuteOfTheWeek(value) * 60u;
}

std::uint32_t TOrvCalendarCalc::SecondOfTheYear(TDateTime value) const {
  return rtl::SecondOf(value) + MinuteOfTheYear(value) * 60u;
}

std::int64_t TOrvCalendarCalc::MilliSecondOfTheMonth(TDateTime value) const {
  return rtl::MilliSecondOf(value) + SecondOfTheMonth(value) * std::int64_t{1000};
}

std::int64_t TOrvCalendarCalc::MilliSecondOfTheWeek(TDateTime value) const {
  return rtl::MilliSecondOf(value) + SecondOfTheWeek(value) * std::int64_t{1000};
}

std::int64_t TOrvCalendarCalc::MilliSecondOfTheYear(TDateTime value) const {
  return rtl::MilliSecondOf(value) + SecondOfTheYear(value) * std::int64_t{1000};
}

// --- Spans ---

double TOrvCalendarCalc::MonthSpan(TDateTime a, TDateTime b) const {
  return static_cast<double>(UnitsBetween(a, b, ApproxDaysPerMonth));
}

std::int64_t TOrvCalendarCalc::MonthsBetween(TDateTime a, TDateTime b) const {
  return static_cast<std::int64_t>(MonthSpan(a, b));
}

std::int64_t TOrvCalendarCalc::YearsBetween(TDateTime a, TDateTime b) {
  return UnitsBetween(a, b, rtl::ApproxDaysPerYear);
}

double TOrvCalendarCalc::YearSpan(TDateTime a, TDateTime b) {
  return DaySpan(a, b) / rtl::ApproxDaysPerYear;
}

// --- Steps ---

void TOrvCalendarCalc::IncAYear(TDateParts& date, std::int32_t years) const {
  date.Year = Word(std::int64_t{date.Year} + years);
  date.Day = std::min(date.Day, DaysInAMonth(date.Year, date.Month));
}

void TOrvCalendarCalc::IncADay(TDateParts& date, std::int32_t days) const {
  DecodeDate(IncDay(EncodeDate(date), days), date);
}

void TOrvCalendarCalc::IncADay(TYearDay& date, std::int32_t days) const {
  DecodeDateDay(IncDay(EncodeDateDay(date.Year, date.DayOfYear), days), date);
}

TDateTime TOrvCalendarCalc::IncMonth(TDateTime value, std::int32_t months) const {
  TDateParts date = DecodeDate(value);
  IncAMonth(date, months);
  return rtl::ReplaceTime(EncodeDate(date), value);
}

TDateTime TOrvCalendarCalc::IncYear(TDateTime value, std::int32_t years) const {
  // A year is a word, so the lengths repeat after 65536 years.
  constexpr std::int64_t period = 65536;
  const std::int64_t year = YearOf(value);
  const auto daysOf = [this](std::int64_t first, std::int64_t count) {
    std::int64_t days = 0;
    for (std::int64_t y = first; y < first + count; ++y) days += DaysInAYear(Word(y));
    return days;
  };
  const auto sum = [&](std::int64_t first, std::int64_t count) {
    const std::int64_t rest = daysOf(first, count % period);
    return count < period ? rest : rest + count / period * daysOf(first, period);
  };
  if (years >= 0) return value + static_cast<double>(sum(year, years));
  return value - static_cast<double>(sum(year + years, -std::int64_t{years}));
}

}  // namespace orv
