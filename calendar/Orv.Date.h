// Calendars as objects: every date operation that can be written in terms of a few primitives of a calendar.
//
// A calculator takes and gives rtl::TDateTime, so a date moves between calendars by handing the same number to another
// calculator. A calendar overrides the primitives: the lengths of months and years, leap years, decoding and encoding.
//
//   auto jalali = MakeCalendar<TOrvJalaliDateCalendarCalc>();
//   rtl::TDateTime newYear = jalali->EncodeDate({1404, 1, 1});   // 21 March 2025
//   jalali->FormatDateTime(u"dddd d mmmm yyyy", newYear, true);  // جمعه 1 فروردین 1404
//
// Years, months, days and the like are 16-bit words, and arithmetic on them wraps: a negative year arrives as a large
// word and is refused where years are checked. An operation called Try... answers nothing on failure, the one without
// Try raises: EConvertError, unless the comment says otherwise. A decoding that its calendar cannot do leaves its
// result as it was given.
//
// A calculator is plain mutable state: use one from one thread at a time. Apart from the operations that make or take
// texts or settings, none allocates.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "calendar/DateGlobal.h"
#include "calendar/Orv.Date.DayOfWeek.h"
#include "calendar/Orv.Date.Locator.h"
#include "rtl/DateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv {

using rtl::TDateParts;
using rtl::TDateTime;
using rtl::TDateTimeParts;
using rtl::TTimeParts;
using rtl::TYearDay;
using rtl::UnicodeString;

struct TDateWeek {
  std::uint16_t Year = 0;
  std::uint16_t WeekOfYear = 0;
  TDayOfWeek DOW = TDayOfWeek::Sunday;
  friend constexpr bool operator==(const TDateWeek&, const TDateWeek&) = default;
};

struct TDateMonthWeek {
  std::uint16_t Year = 0;
  std::uint16_t Month = 0;
  std::uint16_t WeekOfMonth = 0;
  TDayOfWeek DOW = TDayOfWeek::Sunday;
  friend constexpr bool operator==(const TDateMonthWeek&, const TDateMonthWeek&) = default;
};

// The NthDayOfWeek-th day of its name in a month: 15 March 2025 is the third Saturday.
struct TDayOfWeekInMonth {
  std::uint16_t Year = 0;
  std::uint16_t Month = 0;
  std::uint16_t NthDayOfWeek = 0;
  TDayOfWeek DOW = TDayOfWeek::Sunday;
  friend constexpr bool operator==(const TDayOfWeekInMonth&, const TDayOfWeekInMonth&) = default;
};

struct TReadParts;

class TOrvCalendarCalc {
 public:
  enum class TCalendarType : std::uint8_t { SolarCalendar = 0, LunarCalendar = 1 };
  using TOrvDateTimeMaskType = orv::TOrvDateTimeMaskType;

  // A part given to the Recode... operations that is to stay as it is.
  static constexpr std::uint16_t RecodeLeaveFieldAsIs = 65535;

  static UnicodeString DefaultCalendarName;

  virtual ~TOrvCalendarCalc() = default;
  TOrvCalendarCalc(const TOrvCalendarCalc&) = delete;
  TOrvCalendarCalc& operator=(const TOrvCalendarCalc&) = delete;

  // The settings of this calendar, written by Initialize, which a subclass overrides, and by the settings view of a
  // custom calendar.
  TCalDayOfWeek FirstWeekday = TCalDayOfWeek::dowMonday;
  rtl::TFormatSettings FormatSettings;     // formats normalised: month "m", minute "n"
  rtl::TDayNames WeekDaysLocale;           // long day names, in the order of the locale's week
  rtl::TDayNames ShortWeekDaysLocale;      // short day names, in that order
  char16_t TimeAMVeryShortString = u'\0';  // for the format a/p; zero: the format's own letters
  char16_t TimePMVeryShortString = u'\0';
  UnicodeString TimeAMLongString;  // for the format am/pm
  UnicodeString TimePMLongString;
  double ApproxDaysPerMonth = rtl::ApproxDaysPerMonth;
  std::uint16_t ShortYearStartingCentury = 0;  // what a year of two digits counts from
  bool RightToLeft = false;                    // the calendar's texts run right to left
  std::int32_t MinYear = 1;                    // both inclusive
  std::int32_t MaxYear = 9999;

  // --- The primitives and hooks of a calendar ---------------------------------------------------------------------

  virtual std::uint16_t MonthsInAYear(std::uint16_t year) const;
  virtual std::uint16_t MonthsInYear(TDateTime value) const;
  virtual std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) const = 0;
  virtual std::uint16_t DaysInAYear(std::uint16_t year) const = 0;
  virtual void DecodeDate(TDateTime value, TDateParts& date) const = 0;
  virtual void DecodeDateDay(TDateTime value, TYearDay& date) const = 0;
  // Whether the year is a leap year; dow receives the day of the week.
  virtual bool DecodeDateFully(TDateTime value, TDateParts& date, TDayOfWeek& dow) const;
  virtual TDateMonthWeek DecodeDateMonthWeek(TDateTime value) const;
  // Raises EConvertError where the week lies before the calendar's first.
  virtual TDateWeek DecodeDateWeek(TDateTime value) const;
  // Adds months. The year steps by whole dozens of months alone: month 12 and one month is month 1 of the same year.
  // The day is then cut to the month's length.
  virtual void IncAMonth(TDateParts& date, std::int32_t months) const;
  virtual bool IsLeapYear(std::uint16_t year) const = 0;
  virtual bool IsValidDate(const TDateParts& date) const {
    return IsYearValid(date.Year) && date.Month >= 1 && date.Month <= 12 && date.Day >= 1 &&
           date.Day <= DaysInAMonth(date.Year, date.Month);
  }
  virtual bool IsValidDateDay(std::uint16_t year, std::uint16_t dayOfYear) const;
  virtual bool IsValidDateMonthWeek(const TDateMonthWeek& date) const;  // weeks 1 to 5
  // Month and day are not checked here; what they add up to goes to TryEncodeDateDay.
  virtual bool TryEncodeDate(const TDateParts& date, TDateTime& value) const;
  virtual bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const = 0;
  virtual std::uint16_t WeeksInAYear(std::uint16_t year) const;
  virtual TCalendarType CalendarType() const;

  // The same, with the result as the value: decoding from zeros, encoding to nothing where it fails.
  TDateParts DecodeDate(TDateTime value) const {
    TDateParts date;
    DecodeDate(value, date);
    return date;
  }
  TYearDay DecodeDateDay(TDateTime value) const {
    TYearDay date;
    DecodeDateDay(value, date);
    return date;
  }

  std::optional<TDateTime> TryEncodeDate(const TDateParts& date) const {
    TDateTime value = 0;
    return TryEncodeDate(date, value) ? std::optional(value) : std::nullopt;
  }
  std::optional<TDateTime> TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear) const {
    TDateTime value = 0;
    return TryEncodeDateDay(year, dayOfYear, value) ? std::optional(value) : std::nullopt;
  }

  // --- The present day, by rtl::Today -----------------------------------------------------------------------------

  std::uint16_t CurrentDay() const;
  std::uint16_t CurrentMonth() const;
  std::uint16_t CurrentYear() const;

  // --- Parts of a date --------------------------------------------------------------------------------------------

  std::uint16_t DayOf(TDateTime value) const;
  std::uint16_t MonthOf(TDateTime value) const;
  std::uint16_t YearOf(TDateTime value) const;
  std::uint16_t DayOfTheYear(TDateTime value) const;
  std::uint16_t DayOfTheMonth(TDateTime value) const { return DayOf(value); }
  std::uint16_t MonthOfTheYear(TDateTime value) const { return MonthOf(value); }
  std::uint16_t WeekOf(TDateTime value) const { return WeekOfTheYear(value); }
  std::uint16_t WeekOfTheYear(TDateTime value) const;
  TDayOfWeek DayOfTheWeek(TDateTime value) const { return TDayOfWeekHelper::OfDayNumber(rtl::DayNumberOf(value)); }
  TDayOfWeek DayOfWeek(TDateTime value) const { return DayOfTheWeek(value); }
  std::int32_t LocaleDayOfWeek(TDayOfWeek dow) const;

  // --- Sizes ------------------------------------------------------------------------------------------------------

  std::uint16_t DaysInMonth(TDateTime value) const;
  std::uint16_t DaysInYear(TDateTime value) const;
  std::uint16_t WeeksInYear(TDateTime value) const;
  bool IsInLeapYear(TDateTime value) const;

  // --- Checks -----------------------------------------------------------------------------------------------------

  bool IsYearValid(std::int32_t year) const { return year >= MinYear && year <= MaxYear; }
  bool IsMonthValid(std::uint16_t month) const { return month >= 1 && month <= FLastMonth; }
  bool IsMonthValid(std::int32_t year, std::uint16_t month) const { return IsYearValid(year) && IsMonthValid(month); }
  bool IsValidDateTime(const TDateTimeParts& parts) const;
  bool IsValidDateWeek(const TDateWeek& date) const;

  // --- Encoding ---------------------------------------------------------------------------------------------------

  TDateTime EncodeDate(const TDateParts& date) const;
  TDateTime EncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear) const;
  TDateTime EncodeDateTime(const TDateTimeParts& parts) const;
  TDateTime EncodeDateWeek(const TDateWeek& date) const;
  TDateTime EncodeDateMonthWeek(const TDateMonthWeek& date) const;
  TDateTime EncodeDayOfWeekInMonth(const TDayOfWeekInMonth& date) const;
  std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& parts) const {
    TDateTime value = 0;
    return EncodeTo(value, parts) ? std::optional(value) : std::nullopt;
  }
  std::optional<TDateTime> TryEncodeDateWeek(const TDateWeek& date) const;
  std::optional<TDateTime> TryEncodeDateMonthWeek(const TDateMonthWeek& date) const;
  // Raises EConvertError for a month that has no first day.
  std::optional<TDateTime> TryEncodeDayOfWeekInMonth(const TDayOfWeekInMonth& date) const;

  // --- Decoding ---------------------------------------------------------------------------------------------------

  TDateTimeParts DecodeDateTime(TDateTime value) const { return {DecodeDate(value), rtl::DecodeTime(value)}; }
  TDayOfWeekInMonth DecodeDayOfWeekInMonth(TDateTime value) const;
  static constexpr std::uint16_t NthDayOfWeek(std::uint16_t day) {
    return static_cast<std::uint16_t>((day - 1) / 7 + 1);
  }
  std::uint16_t NthDayOfWeek(TDateTime value) const;

  // --- Starts and ends. An end is the last millisecond of its last day. ---------------------------------------------

  TDateTime StartOfAYear(std::uint16_t year) const;
  TDateTime StartOfAMonth(std::uint16_t year, std::uint16_t month) const;
  TDateTime StartOfADay(const TDateParts& date) const;  // the day counts on from the first of the month, unchecked
  TDateTime StartOfADay(std::uint16_t year, std::uint16_t dayOfYear) const;
  TDateTime StartOfAWeek(const TDateWeek& date) const;  // the day itself
  TDateTime StartOfTheYear(TDateTime value) const;
  TDateTime StartOfTheMonth(TDateTime value) const;
  // A Friday, whatever FirstWeekday is: two days back from a Sunday, then more day by day, up to eight back from a
  // Saturday; from a Friday seven.
  TDateTime StartOfTheWeek(TDateTime value) const;
  TDateTime EndOfAYear(std::uint16_t year) const;
  TDateTime EndOfAMonth(std::uint16_t year, std::uint16_t month) const;
  TDateTime EndOfADay(const TDateParts& date) const;
  TDateTime EndOfADay(std::uint16_t year, std::uint16_t dayOfYear) const;
  TDateTime EndOfAWeek(const TDateWeek& date) const;  // the end of the day itself
  TDateTime EndOfTheYear(TDateTime value) const;
  TDateTime EndOfTheMonth(TDateTime value) const;
  TDateTime EndOfTheWeek(TDateTime value) const;

  // --- Counting from the start of a month, week or year -------------------------------------------------------------

  // Each builds on the one above; those of 16 bits wrap.
  std::uint16_t HourOfTheMonth(TDateTime value) const;
  std::uint16_t HourOfTheWeek(TDateTime value) const;
  std::uint16_t HourOfTheYear(TDateTime value) const;
  std::uint16_t MinuteOfTheMonth(TDateTime value) const;
  std::uint16_t MinuteOfTheWeek(TDateTime value) const;
  std::uint32_t MinuteOfTheYear(TDateTime value) const;
  std::uint32_t SecondOfTheMonth(TDateTime value) const;
  std::uint32_t SecondOfTheWeek(TDateTime value) const;
  std::uint32_t SecondOfTheYear(TDateTime value) const;
  std::int64_t MilliSecondOfTheMonth(TDateTime value) const;
  std::int64_t MilliSecondOfTheWeek(TDateTime value) const;
  std::int64_t MilliSecondOfTheYear(TDateTime value) const;

  // --- Spans, in whole milliseconds of the linear count -------------------------------------------------------------

  static std::int64_t DaysBetween(TDateTime a, TDateTime b) { return rtl::DaysBetween(a, b); }
  static std::int64_t WeeksBetween(TDateTime a, TDateTime b) { return rtl::WeeksBetween(a, b); }
  static double DaySpan(TDateTime a, TDateTime b) { return rtl::DaySpan(a, b); }
  static double WeekSpan(TDateTime a, TDateTime b) { return rtl::WeekSpan(a, b); }
  double MonthSpan(TDateTime a, TDateTime b) const;  // whole months of ApproxDaysPerMonth; EConvertError if that is 0
  std::int64_t MonthsBetween(TDateTime a, TDateTime b) const;
  static std::int64_t YearsBetween(TDateTime a, TDateTime b);  // of 365.25 days
  static double YearSpan(TDateTime a, TDateTime b);
  static bool DateInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive = true) {
    return rtl::DateInRange(value, start, end, inclusive);
  }
  static bool DateTimeInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive = true) {
    return rtl::DateTimeInRange(value, start, end, inclusive);
  }
  static std::int64_t DateTimeToMilliseconds(TDateTime value) { return rtl::DateTimeToMilliseconds(value); }

  // --- Stepping ---------------------------------------------------------------------------------------------------

  static TDateTime IncDay(TDateTime value, std::int32_t days = 1) { return rtl::IncDay(value, days); }
  static TDateTime IncWeek(TDateTime value, std::int32_t weeks = 1) { return rtl::IncWeek(value, weeks); }
  void IncAYear(TDateParts& date, std::int32_t years = 1) const;  // the day is cut to the month's length
  void IncADay(TDateParts& date, std::int32_t days = 1) const;
  void IncADay(TYearDay& date, std::int32_t days = 1) const;
  TDateTime IncMonth(TDateTime value, std::int32_t months = 1) const;
  // Adds the lengths of that many years, from the year of value on: the day of the month is kept as far as the sum
  // keeps it. The years are words and wrap; any number of them takes bounded time.
  TDateTime IncYear(TDateTime value, std::int32_t years = 1) const;

  // --- Replacing parts; RecodeLeaveFieldAsIs keeps one --------------------------------------------------------------

  std::optional<TDateTime> TryRecodeDateTime(TDateTime value, const TDateTimeParts& parts) const;
  TDateTime RecodeDateTime(TDateTime value, const TDateTimeParts& parts) const;
  TDateTime RecodeYear(TDateTime value, std::uint16_t year) const;
  TDateTime RecodeMonth(TDateTime value, std::uint16_t month) const;
  TDateTime RecodeDay(TDateTime value, std::uint16_t day) const;
  TDateTime RecodeDate(TDateTime value, const TDateParts& date) const;

  // --- Comparing --------------------------------------------------------------------------------------------------

  bool SameDayMonth(TDateTime value, std::uint16_t month, std::uint16_t day) const;
  bool SameDayMonth(TDateTime a, TDateTime b) const;
  bool SameDayOfMonth(TDateTime value, std::uint16_t day) const;
  bool SameDayOfMonth(TDateTime a, TDateTime b) const;
  bool SameMonth(TDateTime value, std::uint16_t month) const;
  bool SameMonth(TDateTime a, TDateTime b) const;
  bool SameDayOfWeek(TDateTime a, TDateTime b) const;
  bool SameDayOfWeek(TDateTime value, TDayOfWeek dow) const;
  bool SameDayOfWeek(TDateTime value, const TDateParts& date) const;

  // --- Names --------------------------------------------------------------------------------------------------------

  // The number, from 1, of the name that equals the text exactly, long names first; -1 where there is none.
  std::int32_t WhatDay(std::u16string_view name) const;
  std::int32_t WhatMonth(std::u16string_view name) const;

  // --- Settings ---------------------------------------------------------------------------------------------------

  // The settings of the locale, made anew; the calculator's own do not change, but its locale-ordered day names do.
  rtl::TFormatSettings GetFormatSettings();
  // Takes the settings of another locale, and with them the century of years of two digits. The AM and PM texts of the
  // calculator stay. Nothing happens when the name is the present one.
  void SetLocale(std::u16string_view name);
  const UnicodeString& Locale() const { return FLocale; }

  // --- Text. The letters of formats: docs/calendars.md --------------------------------------------------------------

  // Writes the parts by the format; UseSeparators puts the separators of the settings for ":" and "/". Formats that
  // nest without end, and a doubled quote, raise EConvertError.
  UnicodeString FormatDateTimeFullToString(std::u16string_view format, const TDateTimeParts& parts, TDayOfWeek dow,
                                           bool useSeparators) const;
  // Writes over result, whose memory is used again; result and format may not overlap.
  void DateTimeToString(UnicodeString& result, std::u16string_view format, TDateTime value, bool useSeparators) const;
  UnicodeString FormatDateTime(std::u16string_view format, TDateTime value, bool useSeparators) const;
  UnicodeString DateToStr(TDateTime value) const;      // by the short date format
  UnicodeString DateTimeToStr(TDateTime value) const;  // and the time by the settings of the process

  // Reads the text by the format, strictly (see ReadByFormat). Parts of the date that the format lacks are those of
  // today, parts of the time 0. Where a day's name was read, the date is taken when that is the name of the day
  // before. Raises EConvertError where a number has no digits or more than 32 bits.
  std::optional<TDateTime> FormatStringFullToDateTime(std::u16string_view format, std::u16string_view text) const;
  // The parts that a reader took from a text as a date-time: what was not read comes from today and from midnight. The
  // day's name is not looked at. False where they are no date and time.
  bool TryEncodeRead(const TReadParts& parts, TDateTime& value) const;
  // The century that years of two digits count from in a present year: the one that eighty years ago belonged to.
  static constexpr std::uint16_t CenturyStartIn(std::int32_t year) {
    return static_cast<std::uint16_t>((year - 80) / 100 * 100);
  }
  TDateTime StringToDateTime(std::u16string_view format, std::u16string_view text) const;
  std::optional<TDateTime> TryStrToDate(std::u16string_view text) const;  // the short date format
  std::optional<TDateTime> TryStrToDateTime(
      std::u16string_view text) const;  // and, behind a blank, the long time format
  std::optional<TDateTime> TryStrToDateTime(std::u16string_view text, std::u16string_view format) const;
  TDateTime StrToDate(std::u16string_view text) const;
  TDateTime StrToDateTime(std::u16string_view text) const;
  TDateTime StrToDateDef(std::u16string_view text, TDateTime other) const;
  TDateTime StrToDateTimeDef(std::u16string_view text, TDateTime other) const;

  // Where the field with the number, from 1, lies in a text (see LocateField).
  TLocatedField Parser(std::int32_t fieldNumber, std::u16string_view format, std::u16string_view text) const;

 protected:
  TOrvCalendarCalc();

  // Sets the calendar's constants, then calls StoreFormatSettings. A subclass that sets its own does not call this one.
  virtual void Initialize();
  // The settings of FLocale; the invariant ones when it is empty.
  virtual rtl::TFormatSettings DoGetFormatSettings();
  // Sets the century of years of two digits and the window below which they belong to the next one, from today's year.
  virtual void InitCenturyWindows();

  // Asks DoGetFormatSettings, normalises the formats, builds the locale-ordered day names from the settings in force so
  // far, and then puts the new ones in force.
  void StoreFormatSettings();

  TCalendarType FCalendarType = TCalendarType::SolarCalendar;  // reserved: CalendarType() is what counts
  UnicodeString FLocale;
  std::uint8_t FLastMonth = 12;

 private:
  template <typename TCalendar, typename TSetUp>
  friend std::unique_ptr<TCalendar> MakeCalendar(std::u16string_view locale, const TSetUp& setUp);

  // What a constructor cannot do, since it needs the overrides of the whole object.
  void Construct(std::u16string_view locale);
  rtl::TFormatSettings NormalizedSettings();
  void BuildDayTables();
  TMeridiemTexts MeridiemTexts() const;
  // Whether the parts are a date and a time; the value is then both together.
  bool EncodeTo(TDateTime& value, const TDateTimeParts& parts) const {
    const auto time = rtl::TryEncodeTime(parts.Time);  // begins with a slow division, so before the date
    if (!TryEncodeDate(parts.Date, value)) return false;
    if (time) value = rtl::JoinDateAndTime(value, *time);
    return time.has_value();
  }
  void WriteTo(UnicodeString& out, std::u16string_view format, const TDateTimeParts& parts, TDayOfWeek dow,
               bool useSeparators) const;
  TDateMonthWeek DecodeMonthWeek(TDateTime value, bool mayStepBack) const;
  TDateWeek DecodeWeek(TDateTime value, bool mayStepBack) const;
};

// Makes a calculator of a locale. The second form calls setUp(calendar) on the new object before it is initialised: the
// place to attach the events of a custom calendar.
template <typename TCalendar, typename TSetUp>
std::unique_ptr<TCalendar> MakeCalendar(std::u16string_view locale, const TSetUp& setUp) {
  auto calendar = std::make_unique<TCalendar>();
  setUp(*calendar);
  static_cast<TOrvCalendarCalc&>(*calendar).Construct(locale);
  return calendar;
}

template <typename TCalendar>
std::unique_ptr<TCalendar> MakeCalendar(std::u16string_view locale = {}) {
  return MakeCalendar<TCalendar>(locale, [](TCalendar&) {});
}

}  // namespace orv
