// The tabular Islamic calendar: lunar years by a fixed cycle of thirty, not by sighting of the moon. Registered as
// "IslamicTabular".
#pragma once

#include <array>

#include "calendar/Orv.Date.h"

namespace orv {

// Years 1 to 9999. The locale is always "ar" at first.
class TOrvHijriLunarDateCalendarCalc : public TOrvCalendarCalc {
 public:
  using TOrvCalendarCalc::DecodeDate;
  using TOrvCalendarCalc::DecodeDateDay;
  using TOrvCalendarCalc::TryEncodeDate;
  using TOrvCalendarCalc::TryEncodeDateDay;

  static const std::array<UnicodeString, 12>& Months();

  // 30 and 29 days by turns; month 12 has 29, in a leap year 30. The month is not checked.
  std::uint16_t HowManyDaysInAMonth(std::uint16_t year, std::uint16_t month) const;
  std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) const override;
  std::uint16_t DaysInAYear(std::uint16_t year) const override;
  // Days before year 1 and behind year 65535 decode to years cut to a word.
  void DecodeDate(TDateTime value, TDateParts& date) const override;
  void DecodeDateDay(TDateTime value, TYearDay& date) const override;
  bool IsLeapYear(std::uint16_t year) const override;
  // Only dates that IsValidDate takes.
  bool TryEncodeDate(const TDateParts& date, TDateTime& value) const override;
  // The year is checked, the day counts on.
  bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const override;
  std::uint16_t WeeksInAYear(std::uint16_t year) const override;  // always 51
  TCalendarType CalendarType() const override;

 protected:
  void Initialize() override;
  // The settings of the locale; its month names give way to those of the calendar unless they already are.
  rtl::TFormatSettings DoGetFormatSettings() override;
};

}  // namespace orv
