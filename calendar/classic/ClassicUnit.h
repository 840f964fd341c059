// The list of functions of a classic date unit, for one calendar. PDateTime.h, ADateTime.h and IDateTime.h are the
// units; their comments tell what a caller needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "calendar/Orv.Date.Locator.h"
#include "calendar/Orv.Date.h"
#include "calendar/classic/ClassicCore.h"
#include "calendar/classic/DTConst.h"
#include "rtl/FormatSettings.h"

namespace orv {

using TJhDateTimeMaskType = TOrvDateTimeMaskType;
using rtl::TMonthWeek;
using rtl::TNthWeekDay;
using rtl::TYearWeek;

namespace classic {

// TCore is the calculator behind the unit. Operations without a settings argument read the process-wide settings.
template <typename TCore>
class TClassicUnit {
 public:
  using TSettings = rtl::TFormatSettings;
  using TCalendarType = TOrvCalendarCalc::TCalendarType;

  // --- The present day ---
  static std::uint16_t CurrentDay() { return Core().CurrentDay(); }
  static std::uint16_t CurrentMonth() { return Core().CurrentMonth(); }
  static std::uint16_t CurrentYear() { return Core().CurrentYear(); }
  static TCalendarType CalendarType() { return Core().CalendarType(); }

  // --- Parts of a date ---
  static std::uint16_t DayOf(TDateTime v) { return Core().DayOf(v); }
  static std::uint16_t MonthOf(TDateTime v) { return Core().MonthOf(v); }
  static std::uint16_t YearOf(TDateTime v) { return Core().YearOf(v); }
  static std::uint16_t DayOfTheMonth(TDateTime v) { return Core().DayOfTheMonth(v); }
  static std::uint16_t DayOfTheYear(TDateTime v) { return Core().DayOfTheYear(v); }
  static std::uint16_t MonthOfTheYear(TDateTime v) { return Core().MonthOfTheYear(v); }
  static std::uint16_t WeekOf(TDateTime v) { return WeekOfTheYear(v); }
  static std::uint16_t WeekOfTheYear(TDateTime v) { return Core().YearWeek(v).Week; }
  static std::uint16_t DayOfTheWeek(TDateTime v) { return Core().WeekDay(v); }
  static std::uint16_t DayOfWeek(TDateTime v) { return Core().NameNumber(v); }
  static std::uint16_t NthDayOfWeek(std::uint16_t day) { return TOrvCalendarCalc::NthDayOfWeek(day); }
  static std::uint16_t NthDayOfWeek(TDateTime v) { return Core().NthDayOfWeek(v); }

  // --- Sizes ---
  static std::uint16_t MonthsInAYear(std::uint16_t year) { return Core().MonthsInAYear(year); }
  static std::uint16_t MonthsInYear(TDateTime v) { return Core().MonthsInYear(v); }
  static std::uint16_t WeeksInAYear(std::uint16_t year) { return Core().WeeksInAYear(year); }
  static std::uint16_t WeeksInYear(TDateTime v) { return Core().WeeksInYear(v); }
  static std::uint16_t DaysInAYear(std::uint16_t year) { return Core().DaysInAYear(year); }
  static std::uint16_t DaysInYear(TDateTime v) { return Core().DaysInYear(v); }
  static std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) {
    return Core().DaysInAMonth(year, month);
  }
  static std::uint16_t DaysInMonth(TDateTime v) { return Core().DaysInMonth(v); }
  static bool IsLeapYear(std::uint16_t year) { return Core().IsLeapYear(year); }
  static bool IsInLeapYear(TDateTime v) { return Core().IsInLeapYear(v); }

  // --- Checks ---
  static bool IsYearValid(std::int32_t year) { return Core().IsYearValid(year); }
  static bool IsMonthValid(std::uint16_t month) { return Core().IsMonthValid(month); }
  static bool IsMonthValid(std::int32_t year, std::uint16_t month) { return Core().IsMonthValid(year, month); }
  static bool IsValidDate(const TDateParts& date) { return Core().IsValidDate(date); }
  static bool IsValidDateDay(std::uint16_t year, std::uint16_t day) { return Core().IsValidDateDay(year, day); }
  static bool IsValidDateTime(const TDateTimeParts& parts) { return Core().IsValidDateTime(parts); }
  static bool IsValidDateWeek(const TYearWeek& date) { return Core().IsValidWeek(date); }
  static bool IsValidDateMonthWeek(const TMonthWeek& date) { return Core().IsValidMonthWeek(date); }

  // --- Encoding ---
  static TDateTime EncodeDate(const TDateParts& date) { return Core().EncodeDate(date); }
  static TDateTime EncodeDateDay(std::uint16_t year, std::uint16_t day) { return Core().EncodeDateDay(year, day); }
  static TDateTime EncodeDateTime(const TDateTimeParts& parts) { return Core().EncodeDateTime(parts); }
  static TDateTime EncodeDateWeek(const TYearWeek& date);
  static TDateTime EncodeDateMonthWeek(const TMonthWeek& date);
  static TDateTime EncodeDayOfWeekInMonth(const TNthWeekDay& date);
  using TMaybe = std::optional<TDateTime>;
  static TMaybe TryEncodeDate(const TDateParts& date) { return Core().TryEncodeDate(date); }
  static TMaybe TryEncodeDateDay(std::uint16_t year, std::uint16_t day) { return Core().TryEncodeDateDay(year, day); }
  static TMaybe TryEncodeDateTime(const TDateTimeParts& parts) { return Core().TryEncodeDateTime(parts); }
  static TMaybe TryEncodeDateWeek(const TYearWeek& date) { return Core().TryEncodeWeek(date); }
  static TMaybe TryEncodeDateMonthWeek(const TMonthWeek& date) { return Core().TryEncodeMonthWeek(date); }
  static TMaybe TryEncodeDayOfWeekInMonth(const TNthWeekDay& date);

  // --- Decoding ---
  static void DecodeDate(TDateTime v, TDateParts& date) { Core().DecodeDate(v, date); }
  static void DecodeDateDay(TDateTime v, TYearDay& date) { Core().DecodeDateDay(v, date); }
  static TDateParts DecodeDate(TDateTime v) { return Core().TOrvCalendarCalc::DecodeDate(v); }
  static TYearDay DecodeDateDay(TDateTime v) { return Core().TOrvCalendarCalc::DecodeDateDay(v); }
  static TDateTimeParts DecodeDateTime(TDateTime v) { return Core().DecodeDateTime(v); }
  static bool DecodeDateFully(TDateTime v, TDateParts& date, std::uint16_t& dayOfWeek);
  static TYearWeek DecodeDateWeek(TDateTime v) { return Core().YearWeek(v); }
  static TMonthWeek DecodeDateMonthWeek(TDateTime v) { return Core().MonthWeek(v); }
  static TNthWeekDay DecodeDayOfWeekInMonth(TDateTime v);

  // --- Starts and ends ---
  static TDateTime StartOfAYear(std::uint16_t year) { return Core().StartOfAYear(year); }
  static TDateTime StartOfAMonth(std::uint16_t year, std::uint16_t month) { return Core().StartOfAMonth(year, month); }
  static TDateTime StartOfADay(const TDateParts& date) { return Core().StartOfADay(date); }
  static TDateTime StartOfADay(std::uint16_t year, std::uint16_t day) { return Core().StartOfADay(year, day); }
  static TDateTime StartOfAWeek(const TYearWeek& date) { return EncodeDateWeek(date); }
  static TDateTime StartOfTheYear(TDateTime v) { return Core().StartOfTheYear(v); }
  static TDateTime StartOfTheMonth(TDateTime v) { return Core().StartOfTheMonth(v); }
  static TDateTime StartOfTheWeek(TDateTime v) { return Core().StartOfWeek(v); }
  static TDateTime EndOfAYear(std::uint16_t year) { return Core().EndOfAYear(year); }
  static TDateTime EndOfAMonth(std::uint16_t year, std::uint16_t month) { return Core().EndOfAMonth(year, month); }
  static TDateTime EndOfADay(const TDateParts& date) { return Core().EndOfADay(date); }
  static TDateTime EndOfADay(std::uint16_t year, std::uint16_t day) { return Core().EndOfADay(year, day); }
  static TDateTime EndOfAWeek(const TYearWeek& date) { return rtl::EndOfTheDay(StartOfAWeek(date)); }
  static TDateTime EndOfTheYear(TDateTime v) { return Core().EndOfTheYear(v); }
  static TDateTime EndOfTheMonth(TDateTime v) { return Core().EndOfTheMonth(v); }
  static TDateTime EndOfTheWeek(TDateTime v) { return rtl::EndOfTheDay(StartOfTheWeek(v) + 6); }

  // --- Counting; the results of 16 bits wrap ---
  static std::uint16_t HourOfTheMonth(TDateTime v) { return Core().HourOfTheMonth(v); }
  static std::uint16_t HourOfTheWeek(TDateTime v) { return Word(rtl::HourOf(v) + (DayOfTheWeek(v) - 1) * 24); }
  static std::uint16_t HourOfTheYear(TDateTime v) { return Core().HourOfTheYear(v); }
  static std::uint16_t MinuteOfTheMonth(TDateTime v) { return Core().MinuteOfTheMonth(v); }
  static std::uint16_t MinuteOfTheWeek(TDateTime v) { return Word(rtl::MinuteOf(v) + HourOfTheWeek(v) * 60); }
  static std::uint32_t MinuteOfTheYear(TDateTime v) { return Core().MinuteOfTheYear(v); }
  static std::uint32_t SecondOfTheMonth(TDateTime v) { return Core().SecondOfTheMonth(v); }
  static std::uint32_t SecondOfTheWeek(TDateTime v) { return rtl::SecondOf(v) + MinuteOfTheWeek(v) * 60u; }
  static std::uint32_t SecondOfTheYear(TDateTime v) { return Core().SecondOfTheYear(v); }
  static std::int64_t MilliSecondOfTheMonth(TDateTime v) { return Core().MilliSecondOfTheMonth(v); }
  static std::int64_t MilliSecondOfTheWeek(TDateTime v) {
    return rtl::MilliSecondOf(v) + SecondOfTheWeek(v) * std::int64_t{1000};
  }
  static std::int64_t MilliSecondOfTheYear(TDateTime v) { return Core().MilliSecondOfTheYear(v); }

  // --- Spans ---
  static std::int64_t DaysBetween(TDateTime a, TDateTime b) { return rtl::DaysBetween(a, b); }
  static std::int64_t WeeksBetween(TDateTime a, TDateTime b) { return rtl::WeeksBetween(a, b); }
  static std::int64_t MonthsBetween(TDateTime a, TDateTime b) { return static_cast<std::int64_t>(MonthSpan(a, b)); }
  static std::int64_t YearsBetween(TDateTime a, TDateTime b) { return TOrvCalendarCalc::YearsBetween(a, b); }
  static double DaySpan(TDateTime a, TDateTime b) { return rtl::DaySpan(a, b); }
  static double WeekSpan(TDateTime a, TDateTime b) { return rtl::WeekSpan(a, b); }
  static double MonthSpan(TDateTime a, TDateTime b) { return Core().MonthSpan(a, b); }
  static double YearSpan(TDateTime a, TDateTime b) { return TOrvCalendarCalc::YearSpan(a, b); }
  static bool DateInRange(TDateTime v, TDateTime start, TDateTime end, bool inclusive = true) {
    return rtl::DateInRange(v, start, end, inclusive);
  }
  static bool DateTimeInRange(TDateTime v, TDateTime start, TDateTime end, bool inclusive = true) {
    return rtl::DateTimeInRange(v, start, end, inclusive);
  }
  static std::int64_t DateTimeToMilliseconds(TDateTime v) { return rtl::DateTimeToMilliseconds(v); }

  // --- Steps ---
  static TDateTime IncDay(TDateTime v, std::int32_t days = 1) { return rtl::IncDay(v, days); }
  static TDateTime IncWeek(TDateTime v, std::int32_t weeks = 1) { return rtl::IncWeek(v, weeks); }
  static TDateTime IncMonth(TDateTime v, std::int32_t months = 1) { return Core().IncMonth(v, months); }
  static TDateTime IncYear(TDateTime v, std::int32_t years = 1) { return Core().IncYear(v, years); }
  static void IncADay(TDateParts& date, std::int32_t days = 1) { Core().IncADay(date, days); }
  static void IncADay(TYearDay& date, std::int32_t days = 1) { Core().IncADay(date, days); }
  static void IncAMonth(TDateParts& date, std::int32_t months = 1) { Core().IncAMonth(date, months); }
  static void IncAYear(TDateParts& date, std::int32_t years = 1) { Core().IncAYear(date, years); }

  // --- Replacing parts; 65535 keeps one ---
  static TMaybe TryRecodeDateTime(TDateTime v, const TDateTimeParts& p) { return Core().TryRecodeDateTime(v, p); }
  static TDateTime RecodeDateTime(TDateTime v, const TDateTimeParts& p) { return Core().RecodeDateTime(v, p); }
  static TDateTime RecodeYear(TDateTime v, std::uint16_t year) { return Core().RecodeYear(v, year); }
  static TDateTime RecodeMonth(TDateTime v, std::uint16_t month) { return Core().RecodeMonth(v, month); }
  static TDateTime RecodeDay(TDateTime v, std::uint16_t day) { return Core().RecodeDay(v, day); }
  static TDateTime RecodeDate(TDateTime v, const TDateParts& date) { return Core().RecodeDate(v, date); }

  // --- Comparing ---
  static bool SameDayMonth(TDateTime v, std::uint16_t month, std::uint16_t day) {
    return Core().SameDayMonth(v, month, day);
  }
  static bool SameDayMonth(TDateTime a, TDateTime b) { return Core().SameDayMonth(a, b); }
  static bool SameDayOfMonth(TDateTime v, std::uint16_t day) { return Core().SameDayOfMonth(v, day); }
  static bool SameDayOfMonth(TDateTime a, TDateTime b) { return Core().SameDayOfMonth(a, b); }
  static bool SameMonth(TDateTime v, std::uint16_t month) { return Core().SameMonth(v, month); }
  static bool SameMonth(TDateTime a, TDateTime b) { return Core().SameMonth(a, b); }
  static bool SameDayOfWeek(TDateTime a, TDateTime b) { return DayOfTheWeek(a) == DayOfTheWeek(b); }
  static bool SameDayOfWeek(TDateTime v, std::uint16_t dayOfWeek) { return DayOfTheWeek(v) == dayOfWeek; }
  static bool SameDayOfWeek(TDateTime v, const TDateParts& date) { return SameDayOfWeek(v, EncodeDate(date)); }

  // --- Names: numbers from 1, long names first, -1 where none equals ---
  static std::int32_t WhatDay(std::u16string_view name, const TSettings& settings = rtl::FormatSettings());
  static std::int32_t WhatMonth(std::u16string_view name, const TSettings& settings = rtl::FormatSettings());

  // --- Writing ---
  static UnicodeString FormatDateTimeFullToString(std::u16string_view format, const TDateTimeParts& parts,
                                                  std::uint16_t dayOfWeek,
                                                  const TSettings& settings = rtl::FormatSettings());
  static UnicodeString DateTimeToString(std::u16string_view format, TDateTime v,
                                        const TSettings& settings = rtl::FormatSettings()) {
    return FormatDateTime(format, v, settings);
  }
  static UnicodeString FormatDateTime(std::u16string_view format, TDateTime v,
                                      const TSettings& settings = rtl::FormatSettings());
  static UnicodeString DateToStr(TDateTime v, const TSettings& settings = rtl::FormatSettings());
  static UnicodeString DateTimeToStr(TDateTime v, const TSettings& settings = rtl::FormatSettings());

  // --- Reading ---
  static TMaybe FormatStringFullToDateTime(std::u16string_view format, std::u16string_view text,
                                           const TSettings& settings = rtl::FormatSettings());
  static TDateTime StringToDateTime(std::u16string_view format, std::u16string_view text,
                                    const TSettings& settings = rtl::FormatSettings());
  static TMaybe TryStrToDate(std::u16string_view text, const TSettings& settings = rtl::FormatSettings());
  static TMaybe TryStrToDateTime(std::u16string_view text, const TSettings& settings = rtl::FormatSettings());
  static TMaybe TryStrToDateTime(std::u16string_view text, std::u16string_view format,
                                 const TSettings& settings = rtl::FormatSettings()) {
    return FormatStringFullToDateTime(format, text, settings);
  }
  static TDateTime StrToDate(std::u16string_view text, const TSettings& settings = rtl::FormatSettings());
  static TDateTime StrToDateTime(std::u16string_view text, const TSettings& settings = rtl::FormatSettings());
  static TDateTime StrToDateDef(std::u16string_view text, TDateTime other,
                                const TSettings& settings = rtl::FormatSettings()) {
    return TryStrToDate(text, settings).value_or(other);
  }
  static TDateTime StrToDateTimeDef(std::u16string_view text, TDateTime other,
                                    const TSettings& settings = rtl::FormatSettings()) {
    return TryStrToDateTime(text, settings).value_or(other);
  }
  static TLocatedField Parser(const TSettings& settings, std::int32_t fieldNumber, std::u16string_view format,
                              std::u16string_view text);
  static TLocatedField Parser(std::int32_t fieldNumber, std::u16string_view format, std::u16string_view text) {
    return Parser(rtl::FormatSettings(), fieldNumber, format, text);
  }

 private:
  static const TCore& Core();
};

extern template class TClassicUnit<TPersianCore>;
extern template class TClassicUnit<TIslamicCore>;
extern template class TClassicUnit<TGregorianCore>;

}  // namespace classic
}  // namespace orv
