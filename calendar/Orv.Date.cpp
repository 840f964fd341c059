#include "calendar/Orv.Date.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "rtl/Clock.h"
#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"

namespace orv {
namespace {

// A word, with what lies above it cut off: how 16-bit arithmetic wraps.
constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

}  // namespace

UnicodeString TOrvCalendarCalc::DefaultCalendarName;

// Before the first settings are in force there are no names.
TOrvCalendarCalc::TOrvCalendarCalc() {
  FormatSettings.ShortDayNames = {};
  FormatSettings.LongDayNames = {};
}

void TOrvCalendarCalc::Construct(std::u16string_view locale) {
  FLocale = locale;
  Initialize();
  InitCenturyWindows();
}

// --- Primitives that most calendars share ---

std::uint16_t TOrvCalendarCalc::MonthsInAYear(std::uint16_t) const {
  return 12;
}
std::uint16_t TOrvCalendarCalc::MonthsInYear(TDateTime) const {
  return 12;
}
TOrvCalendarCalc::TCalendarType TOrvCalendarCalc::CalendarType() const {
  return TCalendarType::SolarCalendar;
}

bool TOrvCalendarCalc::DecodeDateFully(TDateTime value, TDateParts& date, TDayOfWeek& dow) const {
  DecodeDate(value, date);
  dow = DayOfTheWeek(value);
  return IsInLeapYear(value);
}

void TOrvCalendarCalc::IncAMonth(TDateParts& date, std::int32_t months) const {
  date.Year = Word(date.Year + months / 12);
  date.Month = Word(date.Month + months % 12);
  if (Word(date.Month - 1) > 11) date.Month = Word(date.Month + (months >= 0 ? -12 : 12));
  date.Day = std::min(date.Day, DaysInAMonth(date.Year, date.Month));
}

bool TOrvCalendarCalc::IsValidDateDay(std::uint16_t year, std::uint16_t dayOfYear) const {
  return IsYearValid(year) && dayOfYear >= 1 && dayOfYear <= DaysInAYear(year);
}

bool TOrvCalendarCalc::TryEncodeDate(const TDateParts& date, TDateTime& value) const {
  std::uint16_t days = date.Day;
  for (std::uint16_t month = 1; month < date.Month; ++month) days = Word(days + DaysInAMonth(date.Year, month));
  return TryEncodeDateDay(date.Year, days, value);
}

// --- The present day ---

std::uint16_t TOrvCalendarCalc::CurrentDay() const {
  return DayOf(rtl::Today());
}
std::uint16_t TOrvCalendarCalc::CurrentMonth() const {
  return MonthOf(rtl::Today());
}
std::uint16_t TOrvCalendarCalc::CurrentYear() const {
  return YearOf(rtl::Today());
}

// --- Parts and sizes ---

std::uint16_t TOrvCalendarCalc::DayOf(TDateTime value) const {
  return DecodeDate(value).Day;
}
std::uint16_t TOrvCalendarCalc::MonthOf(TDateTime value) const {
  return DecodeDate(value).Month;
}
std::uint16_t TOrvCalendarCalc::YearOf(TDateTime value) const {
  return DecodeDateDay(value).Year;
}
std::uint16_t TOrvCalendarCalc::DayOfTheYear(TDateTime value) const {
  return DecodeDateDay(value).DayOfYear;
}

std::int32_t TOrvCalendarCalc::LocaleDayOfWeek(TDayOfWeek dow) const {
  return TDayOfWeekHelper::Locale(dow, FirstWeekday);
}

std::uint16_t TOrvCalendarCalc::DaysInMonth(TDateTime value) const {
  const TDateParts date = DecodeDate(value);
  return DaysInAMonth(date.Year, date.Month);
}

std::uint16_t TOrvCalendarCalc::DaysInYear(TDateTime value) const {
  return DaysInAYear(YearOf(value));
}
bool TOrvCalendarCalc::IsInLeapYear(TDateTime value) const {
  return IsLeapYear(YearOf(value));
}

bool TOrvCalendarCalc::IsValidDateTime(const TDateTimeParts& parts) const {
  return IsValidDate(parts.Date) && rtl::IsValidTime(parts.Time);
}

// --- Encoding and decoding ---

TDateTime TOrvCalendarCalc::EncodeDate(const TDateParts& date) const {
  if (const auto value = TryEncodeDate(date)) return *value;
  ConvertError(rtl::SDateEncodeError);
}

TDateTime TOrvCalendarCalc::EncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear) const {
  if (const auto value = TryEncodeDateDay(year, dayOfYear)) return *value;
  rtl::InvalidDateDayError(year, dayOfYear);
}

TDateTime TOrvCalendarCalc::EncodeDateTime(const TDateTimeParts& parts) const {
  if (const auto value = TryEncodeDateTime(parts)) return *value;
  rtl::InvalidDateTimeError(parts);
}

// --- Replacing parts ---

namespace {

constexpr void Replace(std::uint16_t& part, std::uint16_t by) {
  if (by != TOrvCalendarCalc::RecodeLeaveFieldAsIs) part = by;
}

constexpr TDateTimeParts Left(const TDateParts& date) {
  constexpr std::uint16_t left = TOrvCalendarCalc::RecodeLeaveFieldAsIs;
  return {date, {left, left, left, left}};
}

}  // namespace

std::optional<TDateTime> TOrvCalendarCalc::TryRecodeDateTime(TDateTime value, const TDateTimeParts& parts) const {
  TDateTimeParts result = DecodeDateTime(value);
  Replace(result.Date.Year, parts.Date.Year);
  Replace(result.Date.Month, parts.Date.Month);
  Replace(result.Date.Day, parts.Date.Day);
  Replace(result.Time.Hour, parts.Time.Hour);
  Replace(result.Time.Minute, parts.Time.Minute);
  Replace(result.Time.Second, parts.Time.Second);
  Replace(result.Time.MilliSecond, parts.Time.MilliSecond);
  return TryEncodeDateTime(result);
}

TDateTime TOrvCalendarCalc::RecodeDateTime(TDateTime value, const TDateTimeParts& parts) const {
  if (const auto result = TryRecodeDateTime(value, parts)) return *result;
  rtl::InvalidDateTimeError(parts, value);
}

TDateTime TOrvCalendarCalc::RecodeYear(TDateTime value, std::uint16_t year) const {
  return RecodeDate(value, {year, RecodeLeaveFieldAsIs, RecodeLeaveFieldAsIs});
}

TDateTime TOrvCalendarCalc::RecodeMonth(TDateTime value, std::uint16_t month) const {
  return RecodeDate(value, {RecodeLeaveFieldAsIs, month, RecodeLeaveFieldAsIs});
}

TDateTime TOrvCalendarCalc::RecodeDay(TDateTime value, std::uint16_t day) const {
  return RecodeDate(value, {RecodeLeaveFieldAsIs, RecodeLeaveFieldAsIs, day});
}

TDateTime TOrvCalendarCalc::RecodeDate(TDateTime value, const TDateParts& date) const {
  return RecodeDateTime(value, Left(date));
}

// --- Comparing ---

bool TOrvCalendarCalc::SameDayMonth(TDateTime value, std::uint16_t month, std::uint16_t day) const {
  const TDateParts date = DecodeDate(value);
  return date.Month == month && date.Day == day;
}

bool TOrvCalendarCalc::SameDayMonth(TDateTime a, TDateTime b) const {
  const TDateParts date = DecodeDate(b);
  return SameDayMonth(a, date.Month, date.Day);
}

bool TOrvCalendarCalc::SameDayOfMonth(TDateTime value, std::uint16_t day) const {
  return DayOf(value) == day;
}
bool TOrvCalendarCalc::SameDayOfMonth(TDateTime a, TDateTime b) const {
  return DayOf(a) == DayOf(b);
}
bool TOrvCalendarCalc::SameMonth(TDateTime value, std::uint16_t month) const {
  return MonthOf(value) == month;
}
bool TOrvCalendarCalc::SameMonth(TDateTime a, TDateTime b) const {
  return MonthOf(a) == MonthOf(b);
}

bool TOrvCalendarCalc::SameDayOfWeek(TDateTime a, TDateTime b) const {
  return DayOfTheWeek(a) == DayOfTheWeek(b);
}
bool TOrvCalendarCalc::SameDayOfWeek(TDateTime value, TDayOfWeek dow) const {
  return DayOfTheWeek(value) == dow;
}
bool TOrvCalendarCalc::SameDayOfWeek(TDateTime value, const TDateParts& date) const {
  return SameDayOfWeek(value, EncodeDate(date));
}

// --- Names ---

std::int32_t TOrvCalendarCalc::WhatDay(std::u16string_view name) const {
  const std::int32_t number = FormatSettings.LongDayNames.IndexOf(name);
  return number > 0 ? number : FormatSettings.ShortDayNames.IndexOf(name);
}

std::int32_t TOrvCalendarCalc::WhatMonth(std::u16string_view name) const {
  const std::int32_t number = FormatSettings.LongMonthNames.IndexOf(name);
  return number > 0 ? number : FormatSettings.ShortMonthNames.IndexOf(name);
}

// --- Settings ---

void TOrvCalendarCalc::Initialize() {
  FirstWeekday = TCalDayOfWeek::dowMonday;
  FLastMonth = 12;
  ApproxDaysPerMonth = rtl::ApproxDaysPerMonth;
  MinYear = 1;
  MaxYear = 9999;
  StoreFormatSettings();
  TimeAMVeryShortString = rtl::UnitAt(FormatSettings.TimeAMString, 0);
  TimePMVeryShortString = rtl::UnitAt(FormatSettings.TimePMString, 0);
  TimeAMLongString = FormatSettings.TimeAMString;
  TimePMLongString = FormatSettings.TimePMString;
}

rtl::TFormatSettings TOrvCalendarCalc::DoGetFormatSettings() {
  return FLocale.empty() ? rtl::TFormatSettings::Invariant() : rtl::TFormatSettings::Create(FLocale);
}

rtl::TFormatSettings TOrvCalendarCalc::NormalizedSettings() {
  rtl::TFormatSettings settings = DoGetFormatSettings();
  const auto replace = [](UnicodeString& format, char16_t from, char16_t to) {
    std::replace(format.begin(), format.end(), from, to);
  };
  replace(settings.ShortTimeFormat, u'm', u'n');
  replace(settings.LongTimeFormat, u'm', u'n');
  replace(settings.ShortDateFormat, u'M', u'm');
  replace(settings.LongDateFormat, u'M', u'm');
  return settings;
}

void TOrvCalendarCalc::BuildDayTables() {
  std::size_t place = static_cast<std::size_t>(FirstWeekday) + 2;
  for (std::size_t day = 0; day < rtl::TDayNames::Count; ++day) {
    while (place > rtl::TDayNames::Count) place -= rtl::TDayNames::Count;
    ShortWeekDaysLocale.Names[place - 1] = FormatSettings.ShortDayNames.Names[day];
    WeekDaysLocale.Names[place - 1] = FormatSettings.LongDayNames.Names[day];
    ++place;
  }
}

void TOrvCalendarCalc::StoreFormatSettings() {
  rtl::TFormatSettings settings = NormalizedSettings();
  BuildDayTables();
  FormatSettings = std::move(settings);
}

rtl::TFormatSettings TOrvCalendarCalc::GetFormatSettings() {
  rtl::TFormatSettings settings = NormalizedSettings();
  BuildDayTables();
  return settings;
}

void TOrvCalendarCalc::SetLocale(std::u16string_view name) {
  if (name == FLocale) return;
  FLocale = name;
  StoreFormatSettings();
  InitCenturyWindows();
}

void TOrvCalendarCalc::InitCenturyWindows() {
  const std::int32_t year = YearOf(rtl::Today());
  ShortYearStartingCentury = CenturyStartIn(year);
  const std::int32_t decades = (year + 9) / 10;
  FormatSettings.TwoDigitYearCenturyWindow = Word(decades >= 8 ? 20 : (decades + 2) * 10);
}

}  // namespace orv
