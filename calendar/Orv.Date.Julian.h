// The Gregorian calendar behind the calculators' interface: in spite of the class's name, leap years follow the rule of
// 4, 100 and 400 years. Registered as "Gregorian".
#pragma once

#include "calendar/Orv.Date.h"

namespace orv {

// Years 1 to 9999. Days before year 1 decode to zeros, and their day of the week, in DecodeDateFully, to 255.
class TOrvJulianDateCalendarCalc : public TOrvCalendarCalc {
 public:
  using TOrvCalendarCalc::DecodeDate;
  using TOrvCalendarCalc::DecodeDateDay;
  using TOrvCalendarCalc::TryEncodeDate;
  using TOrvCalendarCalc::TryEncodeDateDay;

  std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) const override;  // EConvertError outside 1 to 12
  std::uint16_t DaysInAYear(std::uint16_t year) const override;
  void DecodeDate(TDateTime value, TDateParts& date) const override;
  void DecodeDateDay(TDateTime value, TYearDay& date) const override;
  bool DecodeDateFully(TDateTime value, TDateParts& date, TDayOfWeek& dow) const override;
  bool IsLeapYear(std::uint16_t year) const override;
  bool TryEncodeDate(const TDateParts& date, TDateTime& value) const override;
  bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const override;
};

}  // namespace orv
