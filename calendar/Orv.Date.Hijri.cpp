#include "calendar/Orv.Date.Hijri.h"

#include <string>

#include "calendar/Date.Islamic.h"
#include "rtl/Assertions.h"

namespace orv {
namespace {

constexpr std::uint16_t Word(std::int64_t value) {
  return static_cast<std::uint16_t>(value);
}

// The Julian Day Numbers of day 0 of the day numbers, and of 30 December 1899.
constexpr std::int32_t JulianDayOfDay0 = 1721425;
constexpr std::int32_t JulianDayOfDateTime0 = 2415019;

// Whether the year at each place of the cycle, from 0, is a leap year.
constexpr bool LeapPlaces[] = {false, false, true,  false, false, true,  false, true,  false, false,
                               true,  false, false, true,  false, false, true,  false, true,  false,
                               false, true,  false, false, true,  false, true,  false, false, true};

}  // namespace

const std::array<UnicodeString, 12>& TOrvHijriLunarDateCalendarCalc::Months() {
  static const std::array<UnicodeString, 12> months = {u"محرّم",        u"صفر",          u"ربیع الاول", u"ربیع الثانی",
                                                       u"جمادی الاول", u"جمادی الثانی", u"رجب",        u"شعبان",
                                                       u"رمضان",       u"شوال",         u"ذو القعدة",  u"ذو الحجة"};
  return months;
}

bool TOrvHijriLunarDateCalendarCalc::IsLeapYear(std::uint16_t year) const {
  const int place = year % 30;
  ORV_ASSERT(islamic::IsLeapPlace(place) == LeapPlaces[place],
             "Value calculated by tval is not equal to array for year " + std::to_string(year));
  return LeapPlaces[place];
}

std::uint16_t TOrvHijriLunarDateCalendarCalc::HowManyDaysInAMonth(std::uint16_t year, std::uint16_t month) const {
  if (month == 12) return IsLeapYear(year) ? 30 : 29;
  return Word(30 - ((month - 1) & 1));
}

std::uint16_t TOrvHijriLunarDateCalendarCalc::DaysInAMonth(std::uint16_t year, std::uint16_t month) const {
  return HowManyDaysInAMonth(year, month);
}

std::uint16_t TOrvHijriLunarDateCalendarCalc::DaysInAYear(std::uint16_t year) const {
  return IsLeapYear(year) ? 355 : 354;
}

void TOrvHijriLunarDateCalendarCalc::DecodeDate(TDateTime value, TDateParts& date) const {
  const islamic::TDate decoded = islamic::DateOfDay(rtl::DayNumberOf(value) + JulianDayOfDay0);
  date = {Word(decoded.Year), Word(decoded.Month), Word(decoded.Day)};
}

void TOrvHijriLunarDateCalendarCalc::DecodeDateDay(TDateTime value, TYearDay& date) const {
  const TDateParts decoded = DecodeDate(value);
  date = {decoded.Year, Word(decoded.Day + islamic::DaysBeforeMonth(decoded.Month))};
}

bool TOrvHijriLunarDateCalendarCalc::TryEncodeDate(const TDateParts& date, TDateTime& value) const {
  if (!IsValidDate(date)) return false;
  value = static_cast<double>(islamic::DayOfDate(date.Year, date.Month, date.Day) - JulianDayOfDateTime0);
  return true;
}

bool TOrvHijriLunarDateCalendarCalc::TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear,
                                                      TDateTime& value) const {
  if (!TryEncodeDate({year, 1, 1}, value)) return false;
  value += dayOfYear - 1;
  return true;
}

std::uint16_t TOrvHijriLunarDateCalendarCalc::WeeksInAYear(std::uint16_t) const {
  return 51;
}

TOrvCalendarCalc::TCalendarType TOrvHijriLunarDateCalendarCalc::CalendarType() const {
  return TCalendarType::LunarCalendar;
}

void TOrvHijriLunarDateCalendarCalc::Initialize() {
  FLocale = u"ar";
  RightToLeft = true;
  FirstWeekday = TCalDayOfWeek::dowSaturday;
  FLastMonth = 12;
  ApproxDaysPerMonth = 29.5;
  MinYear = 1;
  MaxYear = 9999;
  TimeAMVeryShortString = u'\u0635';
  TimePMVeryShortString = u'\u0639';
  TimeAMLongString = u"قبل الظهر";
  TimePMLongString = u"بعد الظهر";
  StoreFormatSettings();
}

rtl::TFormatSettings TOrvHijriLunarDateCalendarCalc::DoGetFormatSettings() {
  rtl::TFormatSettings settings = rtl::TFormatSettings::Create(FLocale);
  if (settings.LongMonthNames[2] == Months()[1]) return settings;
  settings.ShortMonthNames.Names = Months();
  settings.LongMonthNames.Names = Months();
  return settings;
}

}  // namespace orv
