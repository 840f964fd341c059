// One list of functions for three calendars: the first argument says which.
//
// ctPersian asks PDateTime, ctIslamic ADateTime, any other value the platform's Gregorian functions: days of the week
// are then numbered 1 = Monday to 7 = Sunday, weeks belong to the year or month of their Thursday, DayOfWeek and
// DecodeDateFully count from 1 = Sunday, as day names do, MonthSpan has a fraction, and texts are written and read as
// rtl/DateTimeText.h says. What the platform has no function for (FormatDateTimeFullToString, StringToDateTime,
// FormatStringFullToDateTime, TryStrToDateTime with a format, Parser, IncADay, IncAYear) works on Gregorian dates as it
// does in the other units. Failures and threads are those of the unit asked.
#pragma once

#include <algorithm>

#include "calendar/classic/ADateTime.h"
#include "calendar/classic/PDateTime.h"

namespace orv {

class IDateTime {
  static constexpr bool IsOwn(TJhCalendarType t) { return t == ctPersian || t == ctIslamic; }

  template <typename TCall>
  static decltype(auto) In(TJhCalendarType t, const TCall& call) {
    switch (t) {
      case ctPersian:
        return call(PDateTime());
      case ctIslamic:
        return call(ADateTime());
      default:
        return call(classic::TClassicUnit<classic::TGregorianCore>());
    }
  }

 public:
  using TSettings = rtl::TFormatSettings;
  using TCalendarType = TOrvCalendarCalc::TCalendarType;

  IDateTime() = delete;

  // The year, brought up to 1300 in the Persian and Islamic calendars and to 1900 otherwise.
  static std::uint16_t EnsureYearLowRange(TJhCalendarType t, std::uint16_t year) {
    return std::max<std::uint16_t>(year, IsOwn(t) ? 1300 : 1900);
  }
  // The year, brought down to 1500, or 2100.
  static std::uint16_t EnsureYearHighRange(TJhCalendarType t, std::uint16_t year) {
    return std::min<std::uint16_t>(year, IsOwn(t) ? 1500 : 2100);
  }

  // --- The present day ---
  static std::uint16_t CurrentDay(TJhCalendarType t) {
    return In(t, [&](auto unit) { return unit.CurrentDay(); });
  }
  static std::uint16_t CurrentMonth(TJhCalendarType t) {
    return In(t, [&](auto unit) { return unit.CurrentMonth(); });
  }
  static std::uint16_t CurrentYear(TJhCalendarType t) {
    return In(t, [&](auto unit) { return unit.CurrentYear(); });
  }
  static TCalendarType CalendarType(TJhCalendarType t) {
    return In(t, [&](auto unit) { return unit.CalendarType(); });
  }

  // --- Parts of a date ---
  static std::uint16_t DayOf(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DayOf(v); });
  }
  static std::uint16_t MonthOf(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MonthOf(v); });
  }
  static std::uint16_t YearOf(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.YearOf(v); });
  }
  static std::uint16_t DayOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DayOfTheMonth(v); });
  }
  static std::uint16_t DayOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DayOfTheYear(v); });
  }
  static std::uint16_t MonthOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MonthOfTheYear(v); });
  }
  static std::uint16_t WeekOf(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.WeekOf(v); });
  }
  static std::uint16_t WeekOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.WeekOfTheYear(v); });
  }
  static std::uint16_t DayOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DayOfTheWeek(v); });
  }
  static std::uint16_t DayOfWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DayOfWeek(v); });
  }
  static std::uint16_t NthDayOfWeek(TJhCalendarType t, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.NthDayOfWeek(day); });
  }
  static std::uint16_t NthDayOfWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.NthDayOfWeek(v); });
  }

  // --- Sizes ---
  static std::uint16_t MonthsInAYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.MonthsInAYear(year); });
  }
  static std::uint16_t MonthsInYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MonthsInYear(v); });
  }
  static std::uint16_t WeeksInAYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.WeeksInAYear(year); });
  }
  static std::uint16_t WeeksInYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.WeeksInYear(v); });
  }
  static std::uint16_t DaysInAYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.DaysInAYear(year); });
  }
  static std::uint16_t DaysInYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DaysInYear(v); });
  }
  static std::uint16_t DaysInAMonth(TJhCalendarType t, std::uint16_t year, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.DaysInAMonth(year, month); });
  }
  static std::uint16_t DaysInMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DaysInMonth(v); });
  }
  static bool IsLeapYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.IsLeapYear(year); });
  }
  static bool IsInLeapYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.IsInLeapYear(v); });
  }

  // --- Checks ---
  static bool IsYearValid(TJhCalendarType t, std::int32_t year) {
    return In(t, [&](auto unit) { return unit.IsYearValid(year); });
  }
  static bool IsMonthValid(TJhCalendarType t, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.IsMonthValid(month); });
  }
  static bool IsMonthValid(TJhCalendarType t, std::int32_t year, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.IsMonthValid(year, month); });
  }
  static bool IsValidDate(TJhCalendarType t, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.IsValidDate(date); });
  }
  static bool IsValidDateDay(TJhCalendarType t, std::uint16_t year, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.IsValidDateDay(year, day); });
  }
  static bool IsValidDateTime(TJhCalendarType t, const TDateTimeParts& parts) {
    return In(t, [&](auto unit) { return unit.IsValidDateTime(parts); });
  }
  static bool IsValidDateWeek(TJhCalendarType t, const TYearWeek& date) {
    return In(t, [&](auto unit) { return unit.IsValidDateWeek(date); });
  }
  static bool IsValidDateMonthWeek(TJhCalendarType t, const TMonthWeek& date) {
    return In(t, [&](auto unit) { return unit.IsValidDateMonthWeek(date); });
  }

  // --- Encoding ---
  static TDateTime EncodeDate(TJhCalendarType t, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.EncodeDate(date); });
  }
  static TDateTime EncodeDateDay(TJhCalendarType t, std::uint16_t year, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.EncodeDateDay(year, day); });
  }
  static TDateTime EncodeDateTime(TJhCalendarType t, const TDateTimeParts& parts) {
    return In(t, [&](auto unit) { return unit.EncodeDateTime(parts); });
  }
  static TDateTime EncodeDateWeek(TJhCalendarType t, const TYearWeek& date) {
    return In(t, [&](auto unit) { return unit.EncodeDateWeek(date); });
  }
  static TDateTime EncodeDateMonthWeek(TJhCalendarType t, const TMonthWeek& date) {
    return In(t, [&](auto unit) { return unit.EncodeDateMonthWeek(date); });
  }
  static TDateTime EncodeDayOfWeekInMonth(TJhCalendarType t, const TNthWeekDay& date) {
    return In(t, [&](auto unit) { return unit.EncodeDayOfWeekInMonth(date); });
  }
  static std::optional<TDateTime> TryEncodeDate(TJhCalendarType t, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.TryEncodeDate(date); });
  }
  static std::optional<TDateTime> TryEncodeDateDay(TJhCalendarType t, std::uint16_t year, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.TryEncodeDateDay(year, day); });
  }
  static std::optional<TDateTime> TryEncodeDateTime(TJhCalendarType t, const TDateTimeParts& parts) {
    return In(t, [&](auto unit) { return unit.TryEncodeDateTime(parts); });
  }
  static std::optional<TDateTime> TryEncodeDateWeek(TJhCalendarType t, const TYearWeek& date) {
    return In(t, [&](auto unit) { return unit.TryEncodeDateWeek(date); });
  }
  static std::optional<TDateTime> TryEncodeDateMonthWeek(TJhCalendarType t, const TMonthWeek& date) {
    return In(t, [&](auto unit) { return unit.TryEncodeDateMonthWeek(date); });
  }
  static std::optional<TDateTime> TryEncodeDayOfWeekInMonth(TJhCalendarType t, const TNthWeekDay& date) {
    return In(t, [&](auto unit) { return unit.TryEncodeDayOfWeekInMonth(date); });
  }

  // --- Decoding ---
  static void DecodeDate(TJhCalendarType t, TDateTime v, TDateParts& date) {
    return In(t, [&](auto unit) { return unit.DecodeDate(v, date); });
  }
  static void DecodeDateDay(TJhCalendarType t, TDateTime v, TYearDay& date) {
    return In(t, [&](auto unit) { return unit.DecodeDateDay(v, date); });
  }
  static TDateParts DecodeDate(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDate(v); });
  }
  static TYearDay DecodeDateDay(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDateDay(v); });
  }
  static TDateTimeParts DecodeDateTime(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDateTime(v); });
  }
  static bool DecodeDateFully(TJhCalendarType t, TDateTime v, TDateParts& date, std::uint16_t& dayOfWeek) {
    return In(t, [&](auto unit) { return unit.DecodeDateFully(v, date, dayOfWeek); });
  }
  static TYearWeek DecodeDateWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDateWeek(v); });
  }
  static TMonthWeek DecodeDateMonthWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDateMonthWeek(v); });
  }
  static TNthWeekDay DecodeDayOfWeekInMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DecodeDayOfWeekInMonth(v); });
  }

  // --- Starts and ends ---
  static TDateTime StartOfAYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.StartOfAYear(year); });
  }
  static TDateTime StartOfAMonth(TJhCalendarType t, std::uint16_t year, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.StartOfAMonth(year, month); });
  }
  static TDateTime StartOfADay(TJhCalendarType t, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.StartOfADay(date); });
  }
  static TDateTime StartOfADay(TJhCalendarType t, std::uint16_t year, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.StartOfADay(year, day); });
  }
  static TDateTime StartOfAWeek(TJhCalendarType t, const TYearWeek& date) {
    return In(t, [&](auto unit) { return unit.StartOfAWeek(date); });
  }
  static TDateTime StartOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.StartOfTheYear(v); });
  }
  static TDateTime StartOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.StartOfTheMonth(v); });
  }
  static TDateTime StartOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.StartOfTheWeek(v); });
  }
  static TDateTime EndOfAYear(TJhCalendarType t, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.EndOfAYear(year); });
  }
  static TDateTime EndOfAMonth(TJhCalendarType t, std::uint16_t year, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.EndOfAMonth(year, month); });
  }
  static TDateTime EndOfADay(TJhCalendarType t, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.EndOfADay(date); });
  }
  static TDateTime EndOfADay(TJhCalendarType t, std::uint16_t year, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.EndOfADay(year, day); });
  }
  static TDateTime EndOfAWeek(TJhCalendarType t, const TYearWeek& date) {
    return In(t, [&](auto unit) { return unit.EndOfAWeek(date); });
  }
  static TDateTime EndOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.EndOfTheYear(v); });
  }
  static TDateTime EndOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.EndOfTheMonth(v); });
  }
  static TDateTime EndOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.EndOfTheWeek(v); });
  }

  // --- Counting; the results of 16 bits wrap ---
  static std::uint16_t HourOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.HourOfTheMonth(v); });
  }
  static std::uint16_t HourOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.HourOfTheWeek(v); });
  }
  static std::uint16_t HourOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.HourOfTheYear(v); });
  }
  static std::uint16_t MinuteOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MinuteOfTheMonth(v); });
  }
  static std::uint16_t MinuteOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MinuteOfTheWeek(v); });
  }
  static std::uint32_t MinuteOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MinuteOfTheYear(v); });
  }
  static std::uint32_t SecondOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.SecondOfTheMonth(v); });
  }
  static std::uint32_t SecondOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.SecondOfTheWeek(v); });
  }
  static std::uint32_t SecondOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.SecondOfTheYear(v); });
  }
  static std::int64_t MilliSecondOfTheMonth(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MilliSecondOfTheMonth(v); });
  }
  static std::int64_t MilliSecondOfTheWeek(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MilliSecondOfTheWeek(v); });
  }
  static std::int64_t MilliSecondOfTheYear(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.MilliSecondOfTheYear(v); });
  }

  // --- Spans ---
  static std::int64_t DaysBetween(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.DaysBetween(a, b); });
  }
  static std::int64_t WeeksBetween(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.WeeksBetween(a, b); });
  }
  static std::int64_t MonthsBetween(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.MonthsBetween(a, b); });
  }
  static std::int64_t YearsBetween(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.YearsBetween(a, b); });
  }
  static double DaySpan(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.DaySpan(a, b); });
  }
  static double WeekSpan(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.WeekSpan(a, b); });
  }
  static double MonthSpan(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.MonthSpan(a, b); });
  }
  static double YearSpan(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.YearSpan(a, b); });
  }
  static bool DateInRange(TJhCalendarType t, TDateTime v, TDateTime start, TDateTime end, bool inclusive = true) {
    return In(t, [&](auto unit) { return unit.DateInRange(v, start, end, inclusive); });
  }
  static bool DateTimeInRange(TJhCalendarType t, TDateTime v, TDateTime start, TDateTime end, bool inclusive = true) {
    return In(t, [&](auto unit) { return unit.DateTimeInRange(v, start, end, inclusive); });
  }
  static std::int64_t DateTimeToMilliseconds(TJhCalendarType t, TDateTime v) {
    return In(t, [&](auto unit) { return unit.DateTimeToMilliseconds(v); });
  }

  // --- Steps ---
  static TDateTime IncDay(TJhCalendarType t, TDateTime v, std::int32_t days = 1) {
    return In(t, [&](auto unit) { return unit.IncDay(v, days); });
  }
  static TDateTime IncWeek(TJhCalendarType t, TDateTime v, std::int32_t weeks = 1) {
    return In(t, [&](auto unit) { return unit.IncWeek(v, weeks); });
  }
  static TDateTime IncMonth(TJhCalendarType t, TDateTime v, std::int32_t months = 1) {
    return In(t, [&](auto unit) { return unit.IncMonth(v, months); });
  }
  static TDateTime IncYear(TJhCalendarType t, TDateTime v, std::int32_t years = 1) {
    return In(t, [&](auto unit) { return unit.IncYear(v, years); });
  }
  static void IncADay(TJhCalendarType t, TDateParts& date, std::int32_t days = 1) {
    return In(t, [&](auto unit) { return unit.IncADay(date, days); });
  }
  static void IncADay(TJhCalendarType t, TYearDay& date, std::int32_t days = 1) {
    return In(t, [&](auto unit) { return unit.IncADay(date, days); });
  }
  static void IncAMonth(TJhCalendarType t, TDateParts& date, std::int32_t months = 1) {
    return In(t, [&](auto unit) { return unit.IncAMonth(date, months); });
  }
  static void IncAYear(TJhCalendarType t, TDateParts& date, std::int32_t years = 1) {
    return In(t, [&](auto unit) { return unit.IncAYear(date, years); });
  }

  // --- Replacing parts; 65535 keeps one ---
  static std::optional<TDateTime> TryRecodeDateTime(TJhCalendarType t, TDateTime v, const TDateTimeParts& p) {
    return In(t, [&](auto unit) { return unit.TryRecodeDateTime(v, p); });
  }
  static TDateTime RecodeDateTime(TJhCalendarType t, TDateTime v, const TDateTimeParts& p) {
    return In(t, [&](auto unit) { return unit.RecodeDateTime(v, p); });
  }
  static TDateTime RecodeYear(TJhCalendarType t, TDateTime v, std::uint16_t year) {
    return In(t, [&](auto unit) { return unit.RecodeYear(v, year); });
  }
  static TDateTime RecodeMonth(TJhCalendarType t, TDateTime v, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.RecodeMonth(v, month); });
  }
  static TDateTime RecodeDay(TJhCalendarType t, TDateTime v, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.RecodeDay(v, day); });
  }
  static TDateTime RecodeDate(TJhCalendarType t, TDateTime v, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.RecodeDate(v, date); });
  }

  // --- Comparing ---
  static bool SameDayMonth(TJhCalendarType t, TDateTime v, std::uint16_t month, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.SameDayMonth(v, month, day); });
  }
  static bool SameDayMonth(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.SameDayMonth(a, b); });
  }
  static bool SameDayOfMonth(TJhCalendarType t, TDateTime v, std::uint16_t day) {
    return In(t, [&](auto unit) { return unit.SameDayOfMonth(v, day); });
  }
  static bool SameDayOfMonth(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.SameDayOfMonth(a, b); });
  }
  static bool SameMonth(TJhCalendarType t, TDateTime v, std::uint16_t month) {
    return In(t, [&](auto unit) { return unit.SameMonth(v, month); });
  }
  static bool SameMonth(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.SameMonth(a, b); });
  }
  static bool SameDayOfWeek(TJhCalendarType t, TDateTime a, TDateTime b) {
    return In(t, [&](auto unit) { return unit.SameDayOfWeek(a, b); });
  }
  static bool SameDayOfWeek(TJhCalendarType t, TDateTime v, std::uint16_t dayOfWeek) {
    return In(t, [&](auto unit) { return unit.SameDayOfWeek(v, dayOfWeek); });
  }
  static bool SameDayOfWeek(TJhCalendarType t, TDateTime v, const TDateParts& date) {
    return In(t, [&](auto unit) { return unit.SameDayOfWeek(v, date); });
  }

  // --- Names: numbers from 1, long names first, -1 where none equals ---
  static std::int32_t WhatDay(TJhCalendarType t, std::u16string_view name,
                              const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.WhatDay(name, settings); });
  }
  static std::int32_t WhatMonth(TJhCalendarType t, std::u16string_view name,
                                const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.WhatMonth(name, settings); });
  }

  // --- Writing ---
  static UnicodeString FormatDateTimeFullToString(TJhCalendarType t, std::u16string_view format,
                                                  const TDateTimeParts& parts, std::uint16_t dayOfWeek,
                                                  const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.FormatDateTimeFullToString(format, parts, dayOfWeek, settings); });
  }
  static UnicodeString DateTimeToString(TJhCalendarType t, std::u16string_view format, TDateTime v,
                                        const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.DateTimeToString(format, v, settings); });
  }
  static UnicodeString FormatDateTime(TJhCalendarType t, std::u16string_view format, TDateTime v,
                                      const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.FormatDateTime(format, v, settings); });
  }
  static UnicodeString DateToStr(TJhCalendarType t, TDateTime v, const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.DateToStr(v, settings); });
  }
  static UnicodeString DateTimeToStr(TJhCalendarType t, TDateTime v,
                                     const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.DateTimeToStr(v, settings); });
  }

  // --- Reading ---
  static std::optional<TDateTime> FormatStringFullToDateTime(TJhCalendarType t, std::u16string_view format,
                                                             std::u16string_view text,
                                                             const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.FormatStringFullToDateTime(format, text, settings); });
  }
  static TDateTime StringToDateTime(TJhCalendarType t, std::u16string_view format, std::u16string_view text,
                                    const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.StringToDateTime(format, text, settings); });
  }
  static std::optional<TDateTime> TryStrToDate(TJhCalendarType t, std::u16string_view text,
                                               const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.TryStrToDate(text, settings); });
  }
  static std::optional<TDateTime> TryStrToDateTime(TJhCalendarType t, std::u16string_view text,
                                                   const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.TryStrToDateTime(text, settings); });
  }
  static std::optional<TDateTime> TryStrToDateTime(TJhCalendarType t, std::u16string_view text,
                                                   std::u16string_view format,
                                                   const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.TryStrToDateTime(text, format, settings); });
  }
  static TDateTime StrToDate(TJhCalendarType t, std::u16string_view text,
                             const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.StrToDate(text, settings); });
  }
  static TDateTime StrToDateTime(TJhCalendarType t, std::u16string_view text,
                                 const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.StrToDateTime(text, settings); });
  }
  static TDateTime StrToDateDef(TJhCalendarType t, std::u16string_view text, TDateTime other,
                                const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.StrToDateDef(text, other, settings); });
  }
  static TDateTime StrToDateTimeDef(TJhCalendarType t, std::u16string_view text, TDateTime other,
                                    const TSettings& settings = rtl::FormatSettings()) {
    return In(t, [&](auto unit) { return unit.StrToDateTimeDef(text, other, settings); });
  }
  static TLocatedField Parser(TJhCalendarType t, const TSettings& settings, std::int32_t fieldNumber,
                              std::u16string_view format, std::u16string_view text) {
    return In(t, [&](auto unit) { return unit.Parser(settings, fieldNumber, format, text); });
  }
  static TLocatedField Parser(TJhCalendarType t, std::int32_t fieldNumber, std::u16string_view format,
                              std::u16string_view text) {
    return In(t, [&](auto unit) { return unit.Parser(fieldNumber, format, text); });
  }
};

}  // namespace orv
