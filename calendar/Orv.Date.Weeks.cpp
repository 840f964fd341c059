// The operations of calculators that rest on the week: decoding, encoding, validity. Days whose place in the first week
// is decided by a set of three come from the arithmetic of TDayOfWeekHelper.
#include <cmath>

#include "calendar/Orv.Date.h"
#include "rtl/DateErrors.h"

namespace orv {
namespace {

using THelper = TDayOfWeekHelper;

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}
constexpr std::int64_t DaysInWeek = 7;

// Weeks from a count of days, a part of one counting whole.
constexpr std::int64_t WeeksOf(std::int64_t days) {
  return days / DaysInWeek + (days % DaysInWeek != 0 ? 1 : 0);
}

// A double as a whole number without its fraction; what no such number holds stands at the end of the range.
std::int64_t Truncated(double value) {
  constexpr double limit = 4e18;
  if (!(value > -limit)) return static_cast<std::int64_t>(-limit);
  return static_cast<std::int64_t>(value < limit ? value : limit);
}

[[noreturn]] void NoSuchWeek() {
  ConvertError("The date lies before the first week of the calendar");
}

}  // namespace

TDateWeek TOrvCalendarCalc::DecodeDateWeek(TDateTime value) const {
  return DecodeWeek(value, true);
}

// A date before the first week of its year belongs to the last week of the year before, which is decoded from its last
// day. That day lies in a real week, unless the calendar does not go on backwards.
TDateWeek TOrvCalendarCalc::DecodeWeek(TDateTime value, bool mayStepBack) const {
  TDateParts date;
  TDateWeek result;
  const bool leap = DecodeDateFully(value, date, result.DOW);
  const TDateTime newYear = EncodeDate({date.Year, 1, 1});
  const TDayOfWeek first = DayOfTheWeek(newYear);
  const std::int64_t dayOfYear = Truncated(value - newYear + 1);
  const bool lateWeek = THelper::InSet(first, THelper::LastThreeDays(FirstWeekday));
  const std::int64_t n = dayOfYear + THelper::Ordinal(first) - (lateWeek ? 8 : 1);
  if (n < 1) {
    if (!mayStepBack) NoSuchWeek();
    const TDateWeek before = DecodeWeek(newYear - 1, false);
    return {before.Year, before.WeekOfYear, result.DOW};
  }
  result.Year = date.Year;
  result.WeekOfYear = Word(WeeksOf(n));
  const auto afterYear = static_cast<TDayOfWeek>(THelper::Ordinal(first) + (leap ? 1 : 0));
  if (result.WeekOfYear > 52 && THelper::InSet(afterYear, THelper::FirstThreeDays(FirstWeekday))) {
    result.Year = Word(result.Year + 1);
    result.WeekOfYear = 1;
  }
  return result;
}

TDateMonthWeek TOrvCalendarCalc::DecodeDateMonthWeek(TDateTime value) const {
  return DecodeMonthWeek(value, true);
}

// As for the year, but for two things that stay as they are: the first day counts by its number from 1, and a date at
// the month's end may belong to the next month.
TDateMonthWeek TOrvCalendarCalc::DecodeMonthWeek(TDateTime value, bool mayStepBack) const {
  TDateParts date;
  TDateMonthWeek result;
  DecodeDateFully(value, date, result.DOW);
  const TDateTime firstOfMonth = EncodeDate({date.Year, date.Month, 1});
  const TDayOfWeek first = DayOfTheWeek(firstOfMonth);
  const bool lateWeek = THelper::InSet(first, THelper::LastThreeDays(FirstWeekday));
  const std::int64_t n = date.Day + THelper::AsWord(first) - (lateWeek ? 8 : 1);
  if (n < 1) {
    if (!mayStepBack) NoSuchWeek();
    const TDateMonthWeek before = DecodeMonthWeek(firstOfMonth - 1, false);
    return {before.Year, before.Month, before.WeekOfMonth, result.DOW};
  }
  result.Year = date.Year;
  result.Month = date.Month;
  result.WeekOfMonth = Word(WeeksOf(n));
  const std::uint16_t length = DaysInAMonth(date.Year, date.Month);
  const TDayOfWeek last = DayOfTheWeek(EncodeDate({date.Year, date.Month, length}));
  const bool lastWeekIsNext = THelper::InSet(last, THelper::FirstThreeDays(FirstWeekday));
  if (lastWeekIsNext && length - date.Day < THelper::AsWord(last)) {
    result.Month = Word(result.Month + 1);
    if (result.Month == 13) {
      result.Month = 1;
      result.Year = Word(result.Year + 1);
    }
    result.WeekOfMonth = 1;
  }
  return result;
}

TDayOfWeekInMonth TOrvCalendarCalc::DecodeDayOfWeekInMonth(TDateTime value) const {
  const TDateParts date = DecodeDate(value);
  return {date.Year, date.Month, NthDayOfWeek(date.Day), DayOfTheWeek(value)};
}

std::uint16_t TOrvCalendarCalc::NthDayOfWeek(TDateTime value) const {
  return NthDayOfWeek(DayOfTheMonth(value));
}
std::uint16_t TOrvCalendarCalc::WeekOfTheYear(TDateTime value) const {
  return DecodeDateWeek(value).WeekOfYear;
}
std::uint16_t TOrvCalendarCalc::WeeksInYear(TDateTime value) const {
  return WeeksInAYear(YearOf(value));
}

std::uint16_t TOrvCalendarCalc::WeeksInAYear(std::uint16_t year) const {
  const TDayOfWeek first = DayOfTheWeek(EncodeDate({year, 1, 1}));
  const bool longYear = first == THelper::DayOfWeek(FirstWeekday, 2) ||
                        (first == THelper::DayOfWeek(FirstWeekday, 1) && IsLeapYear(year));
  return longYear ? 53 : 52;
}

bool TOrvCalendarCalc::IsValidDateWeek(const TDateWeek& date) const {
  return IsYearValid(date.Year) && date.WeekOfYear >= 1 && date.WeekOfYear <= WeeksInAYear(date.Year) &&
         THelper::Ordinal(date.DOW) <= 6;
}

bool TOrvCalendarCalc::IsValidDateMonthWeek(const TDateMonthWeek& date) const {
  return IsYearValid(date.Year) && date.Month >= 1 && date.Month <= 12 && date.WeekOfMonth >= 1 &&
         date.WeekOfMonth <= 5 && THelper::Ordinal(date.DOW) <= 6;
}

std::optional<TDateTime> TOrvCalendarCalc::TryEncodeDateWeek(const TDateWeek& date) const {
  if (!IsValidDateWeek(date)) return std::nullopt;
  const TDateTime newYear = EncodeDate({date.Year, 1, 1});
  const TDayOfWeek first = DayOfTheWeek(newYear);
  const bool lateWeek = THelper::InSet(first, THelper::LastThreeDays(FirstWeekday));
  const std::int32_t days = (date.WeekOfYear - 1) * 7 + THelper::AsWord(date.DOW) - 1 - THelper::AsInteger(first);
  return newYear + days + (lateWeek ? 8 : 1);
}

std::optional<TDateTime> TOrvCalendarCalc::TryEncodeDateMonthWeek(const TDateMonthWeek& date) const {
  if (!IsValidDateMonthWeek(date)) return std::nullopt;
  const TDateTime firstOfMonth = EncodeDate({date.Year, date.Month, 1});
  const TDayOfWeek first = DayOfTheWeek(firstOfMonth);
  const bool lateWeek = THelper::InSet(first, THelper::LastThreeDays(FirstWeekday));
  const std::int32_t days = (date.WeekOfMonth - 1) * 7 + THelper::Ordinal(date.DOW) - THelper::Ordinal(first);
  return firstOfMonth + days + (lateWeek ? 7 : 0);
}

std::optional<TDateTime> TOrvCalendarCalc::TryEncodeDayOfWeekInMonth(const TDayOfWeekInMonth& date) const {
  const TDayOfWeek first = DayOfTheWeek(EncodeDate({date.Year, date.Month, 1}));
  const std::int32_t ahead = THelper::AsWord(date.DOW) - THelper::AsWord(first);
  const std::int32_t day = (date.NthDayOfWeek - 1) * 7 + ahead + (ahead < 0 ? 8 : 1);
  return TryEncodeDate({date.Year, date.Month, Word(day)});
}

TDateTime TOrvCalendarCalc::EncodeDateWeek(const TDateWeek& date) const {
  if (const auto value = TryEncodeDateWeek(date)) return *value;
  rtl::InvalidDateWeekError(date.Year, date.WeekOfYear, THelper::AsWord(date.DOW));
}

TDateTime TOrvCalendarCalc::EncodeDateMonthWeek(const TDateMonthWeek& date) const {
  if (const auto value = TryEncodeDateMonthWeek(date)) return *value;
  rtl::InvalidDateMonthWeekError(date.Year, date.Month, date.WeekOfMonth, THelper::AsWord(date.DOW));
}

TDateTime TOrvCalendarCalc::EncodeDayOfWeekInMonth(const TDayOfWeekInMonth& date) const {
  if (const auto value = TryEncodeDayOfWeekInMonth(date)) return *value;
  rtl::InvalidDayOfWeekInMonthError(date.Year, date.Month, date.NthDayOfWeek, THelper::AsWord(date.DOW));
}

}  // namespace orv
