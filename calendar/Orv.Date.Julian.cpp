#include "calendar/Orv.Date.Julian.h"

namespace orv {

std::uint16_t TOrvJulianDateCalendarCalc::DaysInAMonth(std::uint16_t year, std::uint16_t month) const {
  return rtl::DaysInAMonth(year, month);
}

std::uint16_t TOrvJulianDateCalendarCalc::DaysInAYear(std::uint16_t year) const {
  return rtl::DaysInAYear(year);
}

void TOrvJulianDateCalendarCalc::DecodeDate(TDateTime value, TDateParts& date) const {
  date = rtl::DecodeDate(value);
}

void TOrvJulianDateCalendarCalc::DecodeDateDay(TDateTime value, TYearDay& date) const {
  date = rtl::DecodeDateDay(value);
}

bool TOrvJulianDateCalendarCalc::DecodeDateFully(TDateTime value, TDateParts& date, TDayOfWeek& dow) const {
  const rtl::TFullDate full = rtl::DecodeDateFully(value);
  date = full.Date;
  // From 1 for Sunday to 0; the 0 of days before year 1 wraps.
  dow = static_cast<TDayOfWeek>(static_cast<std::uint8_t>(full.DayOfWeek - 1));
  return full.InLeapYear;
}

bool TOrvJulianDateCalendarCalc::IsLeapYear(std::uint16_t year) const {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

namespace {

bool Give(const std::optional<TDateTime>& found, TDateTime& value) {
  if (found) value = *found;
  return found.has_value();
}

}  // namespace

bool TOrvJulianDateCalendarCalc::TryEncodeDate(const TDateParts& date, TDateTime& value) const {
  return Give(rtl::TryEncodeDate(date), value);
}

bool TOrvJulianDateCalendarCalc::TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const {
  return Give(rtl::TryEncodeDateDay(year, dayOfYear), value);
}

}  // namespace orv
