// The calculators behind the classic units. A classic unit shares its calendar with a calculator; what it reckons
// otherwise stands here, once for each difference. Nothing here is for callers.
//
// The objects are used as they are constructed, without settings of their own: years 1 to 9999, months of 30.4375 days.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "calendar/Date.h"
#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/WeekDates.h"

namespace orv::classic {

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

// Weeks that begin on Saturday, day 1, and do not know other years: week 1 is what the year, or the month, has of its
// first week.
template <typename TBase>
class TSaturdayCore : public TBase {
 public:
  std::uint16_t WeekDay(TDateTime value) const { return Word(PosMod(rtl::DayNumberOf(value) - 6, 7) + 1); }
  std::uint16_t WeekDayInFull(TDateTime value) const { return WeekDay(value); }
  // The number in a table of day names.
  std::uint16_t NameNumber(TDateTime value) const { return WeekDay(value); }

  std::uint16_t WeeksInAYear(std::uint16_t year) const override {
    const std::uint16_t first = FirstWeekDay(year, 1);
    return first == 4 || (first == 3 && this->IsLeapYear(year)) ? 53 : 52;
  }

  rtl::TYearWeek YearWeek(TDateTime value) const {
    const TYearDay date = this->DecodeDateDay(value);
    return {date.Year, WeekOfCount(date.DayOfYear, FirstWeekDay(date.Year, 1)), WeekDay(value)};
  }

  rtl::TMonthWeek MonthWeek(TDateTime value) const {
    const TDateParts date = this->DecodeDate(value);
    return {date.Year, date.Month, WeekOfCount(date.Day, FirstWeekDay(date.Year, date.Month)), WeekDay(value)};
  }

  // Days of week 1 before the first day of the year do not count, and in the last week those behind the day of the week
  // that the year ends on. The tests stand in their order: what a far year cannot answer raises only where it is asked.
  bool IsValidWeek(const rtl::TYearWeek& date) const {
    if (!this->IsYearValid(date.Year) || date.Week < 1) return false;
    const std::uint16_t lastWeek = this->WeeksInAYear(date.Year);
    if (date.Week > lastWeek || !IsWeekDay(date.DayOfWeek)) return false;
    if (date.Week == lastWeek && date.DayOfWeek > WeekDay(this->EndOfAYear(date.Year))) return false;
    return date.Week != 1 || date.DayOfWeek >= FirstWeekDay(date.Year, 1);
  }

  // The same on a month, whose last week is that of its last day.
  bool IsValidMonthWeek(const rtl::TMonthWeek& date) const {
    if (!this->IsYearValid(date.Year) || !this->IsMonthValid(date.Month) || date.Week < 1) return false;
    const TDateTime last = this->EndOfAMonth(date.Year, date.Month);
    const std::uint16_t lastWeek = MonthWeek(last).Week;
    if (date.Week > lastWeek || !IsWeekDay(date.DayOfWeek)) return false;
    if (date.Week == lastWeek && date.DayOfWeek > WeekDay(last)) return false;
    return date.Week != 1 || date.DayOfWeek >= FirstWeekDay(date.Year, date.Month);
  }

  std::optional<TDateTime> TryEncodeWeek(const rtl::TYearWeek& date) const {
    if (!IsValidWeek(date)) return std::nullopt;
    return DayOfWeekFrom(this->StartOfAYear(date.Year), date.Week, date.DayOfWeek);
  }

  std::optional<TDateTime> TryEncodeMonthWeek(const rtl::TMonthWeek& date) const {
    if (!IsValidMonthWeek(date)) return std::nullopt;
    return DayOfWeekFrom(this->StartOfAMonth(date.Year, date.Month), date.Week, date.DayOfWeek);
  }

  TDateTime StartOfWeek(TDateTime value) const { return std::trunc(value) - (WeekDay(value) - 1); }

 private:
  std::uint16_t FirstWeekDay(std::uint16_t year, std::uint16_t month) const {
    return WeekDay(this->StartOfAMonth(year, month));
  }

  // The week of the day with a number from 1, in a year or month that begins on a day of the week.
  static constexpr std::uint16_t WeekOfCount(std::int32_t day, std::int32_t firstWeekDay) {
    const std::int32_t behindFirstWeek = std::max(day + firstWeekDay - 8, 0);
    return Word(behindFirstWeek / 7 + (behindFirstWeek % 7 == 0 ? 1 : 2));
  }

  static constexpr bool IsWeekDay(std::uint16_t day) { return day >= 1 && day <= 7; }

  TDateTime DayOfWeekFrom(TDateTime first, std::int32_t week, std::int32_t day) const {
    const std::int32_t firstDay = WeekDay(first);
    return first + (week == 1 ? day - firstDay : 7 - firstDay + day + (week - 2) * 7);
  }
};

class TPersianCore final : public TSaturdayCore<TOrvJalaliDateCalendarCalc> {};

class TIslamicCore final : public TSaturdayCore<TOrvHijriLunarDateCalendarCalc> {
 public:
  // Months and days beyond their bounds count on as far as the year goes, so the parent's check is passed over.
  bool TryEncodeDate(const TDateParts& date, TDateTime& value) const override {
    return TOrvCalendarCalc::TryEncodeDate(date, value);  // NOLINT(bugprone-parent-virtual-call)
  }

  bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const override {
    if (!IsValidDateDay(year, dayOfYear)) return false;
    constexpr std::int32_t dayBeforeCount = 2415020;
    value = DMYToDay(1, 1, year, ckIslamic) + dayOfYear - dayBeforeCount;
    return true;
  }

  using TOrvCalendarCalc::TryEncodeDate;
  using TOrvCalendarCalc::TryEncodeDateDay;

  // A step over the end of a year steps the year as well.
  void IncAMonth(TDateParts& date, std::int32_t months) const override {
    date.Year = Word(date.Year + months / 12);
    date.Month = Word(date.Month + months % 12);
    if (Word(date.Month - 1) > 11) {
      const std::int32_t sign = months >= 0 ? 1 : -1;
      date.Month = Word(date.Month - 12 * sign);
      IncAYear(date, sign);
    }
    date.Day = std::min(date.Day, DaysInAMonth(date.Year, date.Month));
  }
};

// The Gregorian calendar of the platform, whose weeks begin on Monday and belong to the year of their Thursday.
class TGregorianCore final : public TOrvJulianDateCalendarCalc {
 public:
  std::uint16_t WeekDay(TDateTime value) const { return rtl::DayOfTheWeek(value); }
  std::uint16_t WeekDayInFull(TDateTime value) const { return rtl::DecodeDateFully(value).DayOfWeek; }
  std::uint16_t NameNumber(TDateTime value) const { return rtl::DayOfWeek(value); }

  std::uint16_t WeeksInAYear(std::uint16_t year) const override { return rtl::WeeksInAYear(year); }
  rtl::TYearWeek YearWeek(TDateTime value) const { return rtl::DecodeDateWeek(value); }
  rtl::TMonthWeek MonthWeek(TDateTime value) const { return rtl::DecodeDateMonthWeek(value); }
  bool IsValidWeek(const rtl::TYearWeek& date) const { return rtl::IsValidDateWeek(date); }
  bool IsValidMonthWeek(const rtl::TMonthWeek& date) const { return rtl::IsValidDateMonthWeek(date); }
  std::optional<TDateTime> TryEncodeWeek(const rtl::TYearWeek& date) const { return rtl::TryEncodeDateWeek(date); }
  std::optional<TDateTime> TryEncodeMonthWeek(const rtl::TMonthWeek& date) const {
    return rtl::TryEncodeDateMonthWeek(date);
  }
  TDateTime StartOfWeek(TDateTime value) const { return rtl::StartOfTheWeek(value); }

  void IncAMonth(TDateParts& date, std::int32_t months) const override { date = rtl::IncAMonth(date, months); }
  TDateTime IncYear(TDateTime value, std::int32_t years) const { return rtl::IncYear(value, years); }
  double MonthSpan(TDateTime a, TDateTime b) const { return rtl::DaySpan(a, b) / rtl::ApproxDaysPerMonth; }
};

}  // namespace orv::classic
