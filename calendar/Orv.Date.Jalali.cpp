#include "calendar/Orv.Date.Jalali.h"

#include "calendar/Date.Jalali.h"
#include "calendar/Date.h"
#include "calendar/locale/OrvConsts.ResourceStrings.h"
#include "rtl/Convert.h"
#include "rtl/Unicode.h"
#include "rtl/Utf8.h"

namespace orv {
namespace {

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

// The Julian Day Number of day 0 of the day numbers.
constexpr std::int32_t JulianDayOfDay0 = 1721425;

// The days that can be decoded, as day numbers: 1 Farvardin 0 to 10 Shahrivar 2325. A word holds no earlier year; and
// from the next day on, a guess of 365 days a year is the last year known, from where the way to the right one is lost.
constexpr std::int32_t FirstDecodable = jalali::DayBeforeYear0 + 1 - JulianDayOfDay0;
constexpr std::int32_t LastDecodable = jalali::DayBeforeYear0 + jalali::MaxYear * 365 - 1 - JulianDayOfDay0;

constexpr bool IsDecodable(std::int32_t day) {
  return day >= FirstDecodable && day <= LastDecodable;
}

constexpr std::u16string_view PersianLocale = u"fa-Ir";

bool SameName(std::u16string_view a, std::u16string_view lowerCase) {
  if (a.size() != lowerCase.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (rtl::ToLower(a[i]) != lowerCase[i]) return false;
  return true;
}

// Names that begin with Saturday, in a table that begins with Sunday.
rtl::TDayNames FromSunday(const std::array<UnicodeString, 7>& fromSaturday) {
  rtl::TDayNames names;
  for (std::size_t i = 0; i < 6; ++i) names.Names[i] = fromSaturday[i + 1];
  names.Names[6] = fromSaturday[0];
  return names;
}

}  // namespace

std::array<UnicodeString, 12> TOrvPersianConsts::Months = {
    u"فروردین", u"اردیبهشت", u"خرداد", u"تیر", u"مرداد", u"شهریور", u"مهر", u"آبان", u"آذر", u"دی", u"بهمن", u"اسفند"};
std::array<UnicodeString, 7> TOrvPersianConsts::WeekDays = {u"شنبه",     u"یکشنبه",  u"دوشنبه", u"سه شنبه",
                                                            u"چهارشنبه", u"پنجشنبه", u"جمعه"};
std::array<UnicodeString, 7> TOrvPersianConsts::ShortWeekDays = {u"ش", u"ی", u"د", u"س", u"چ", u"پ", u"ج"};

std::uint16_t TOrvJalaliDateCalendarCalc::DaysInAYear(std::uint16_t year) const {
  if (year > jalali::MaxYear)
    throw EInvalidDateOperation(
        rtl::Format(rtl::ToUtf8(SDateOutOfRange.Text), {year, jalali::MinYear, jalali::MaxYear}));
  return Word(jalali::JD0(year + 1) - jalali::JD0(year));
}

std::uint16_t TOrvJalaliDateCalendarCalc::DaysInAMonth(std::uint16_t year, std::uint16_t month) const {
  if (month < 7) return 31;
  if (month < 12) return 30;
  return Word(DaysInAYear(year) - 336);
}

bool TOrvJalaliDateCalendarCalc::IsLeapYear(std::uint16_t year) const {
  return DaysInAYear(year) == 366;
}

void TOrvJalaliDateCalendarCalc::DecodeDateDay(TDateTime value, TYearDay& date) const {
  const std::int32_t day = rtl::DayNumberOf(value);
  if (!IsDecodable(day)) return;
  const jalali::TYearDay yearDay = jalali::YearDayOfDay(day + JulianDayOfDay0);
  date = {Word(yearDay.Year), Word(yearDay.DayOfYear)};
}

void TOrvJalaliDateCalendarCalc::DecodeDate(TDateTime value, TDateParts& date) const {
  const std::int32_t day = rtl::DayNumberOf(value);
  if (!IsDecodable(day)) return;
  const jalali::TDate decoded = jalali::DateOfDay(day + JulianDayOfDay0);
  date = {Word(decoded.Year), Word(decoded.Month), Word(decoded.Day)};
}

bool TOrvJalaliDateCalendarCalc::TryEncodeDate(const TDateParts& date, TDateTime& value) const {
  const std::int32_t before = date.Month > 6 ? (date.Month - 7) * 30 + 186 : (date.Month - 1) * 31;
  return TryEncodeDateDay(date.Year, Word(date.Day + before), value);
}

bool TOrvJalaliDateCalendarCalc::TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const {
  if (year > jalali::MaxYear) return false;
  value = jalali::JD0(year) + dayOfYear - (JulianDayOfDay0 + rtl::DateDelta);
  return true;
}

void TOrvJalaliDateCalendarCalc::IncAMonth(TDateParts& date, std::int32_t months) const {
  date.Year = Word(date.Year + months / 12);
  date.Month = Word(date.Month + months % 12);
  if (date.Month == 0 || date.Month > 12) date.Month = Word(date.Month + (months >= 0 ? -12 : 12));
  if (date.Month > 6 && date.Month < 12 && date.Day == 31) date.Day = 30;
  if (date.Month == 12 && date.Day >= 30) date.Day = DaysInAMonth(date.Year, date.Month);
}

void TOrvJalaliDateCalendarCalc::Initialize() {
  FLocale = PersianLocale;
  RightToLeft = true;
  FirstWeekday = TCalDayOfWeek::dowSaturday;
  FLastMonth = 12;
  ApproxDaysPerMonth = 30.4375;
  MinYear = jalali::MinYear;
  MaxYear = jalali::MaxYear;
  TimeAMVeryShortString = u'\u0635';
  TimePMVeryShortString = u'\u0639';
  TimeAMLongString = u"قبل از ظهر";
  TimePMLongString = u"بعد از ظهر";
  StoreFormatSettings();
}

rtl::TFormatSettings TOrvJalaliDateCalendarCalc::DoGetFormatSettings() {
  if (FLocale.empty()) SetLocale(PersianLocale);
  rtl::TFormatSettings settings = rtl::TFormatSettings::Create(FLocale);
  // The variants of other countries keep their own names.
  if (!SameName(FLocale, u"fa") && !SameName(FLocale, u"fa-ir")) return settings;
  settings.CurrencyString = u"\u0631\u064A\u0627\u0644";
  settings.CurrencyFormat = 2;
  settings.CurrencyDecimals = 1;
  settings.NegCurrFormat = 12;
  settings.ThousandSeparator = u'\u066C';
  settings.DecimalSeparator = u'\u066B';
  settings.DateSeparator = u'/';
  settings.TimeSeparator = u':';
  settings.ShortDateFormat = u"yy/m/d";
  settings.LongDateFormat = u"yyyy/mmmm/d-dddd";
  settings.TimeAMString = u"صبح";
  settings.TimePMString = u"بعد از ظهر";
  settings.ShortTimeFormat = u"h:nn";
  settings.LongTimeFormat = u"h:nn ampm";
  settings.ShortMonthNames.Names = TOrvPersianConsts::Months;
  settings.LongMonthNames.Names = TOrvPersianConsts::Months;
  settings.ShortDayNames = FromSunday(TOrvPersianConsts::ShortWeekDays);
  settings.LongDayNames = FromSunday(TOrvPersianConsts::WeekDays);
  return settings;
}

}  // namespace orv
