// The Persian solar calendar, the calendar of Iran. Leap years follow a formula that agrees with the calendar in use
// for all years of which the new year is known (docs/calendars.md). Registered as "Jalali".
#pragma once

#include <array>
#include <string_view>

#include "calendar/Orv.Date.h"

namespace orv {

// The names of the calendar. May be rewritten before calculators are made; main thread.
struct TOrvPersianConsts {
  static std::array<UnicodeString, 12> Months;
  static std::array<UnicodeString, 7> WeekDays;       // from Saturday
  static std::array<UnicodeString, 7> ShortWeekDays;  // from Saturday
};

// Years -1096 to 2327 are known, of which words reach those from 0 on. Days from 1 Farvardin 0 to 10 Shahrivar 2325
// can be decoded; decoding any other leaves its result as it was given. The locale is always "fa-Ir" at first.
class TOrvJalaliDateCalendarCalc : public TOrvCalendarCalc {
 public:
  using TOrvCalendarCalc::DecodeDate;
  using TOrvCalendarCalc::DecodeDateDay;
  using TOrvCalendarCalc::TryEncodeDate;
  using TOrvCalendarCalc::TryEncodeDateDay;

  // The month is not checked. Raises EInvalidDateOperation for the twelfth month of a year above 2327.
  std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) const override;
  // Raises EInvalidDateOperation for a year above 2327. Of 2327 itself, behind which no year is known, the answer is
  // 20174.
  std::uint16_t DaysInAYear(std::uint16_t year) const override;
  void DecodeDate(TDateTime value, TDateParts& date) const override;
  void DecodeDateDay(TDateTime value, TYearDay& date) const override;
  // As in every calendar, but the day is cut only where the month is known to be too short for it: 31 in months 7 to
  // 11, and 30 or more in month 12.
  void IncAMonth(TDateParts& date, std::int32_t months) const override;
  bool IsLeapYear(std::uint16_t year) const override;
  // Checks the year alone. Month 13 and day 40 roll on: 30 Esfand of a common year is 1 Farvardin of the next.
  bool TryEncodeDate(const TDateParts& date, TDateTime& value) const override;
  bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const override;

 protected:
  void Initialize() override;
  rtl::TFormatSettings DoGetFormatSettings() override;
};

}  // namespace orv
