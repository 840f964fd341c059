// A calendar that the application defines by handlers instead of a subclass. Registered as "Custom".
//
// Five handlers make a calendar: OnDaysInAMonth, OnDaysInAYear, OnDecodeDateDay, OnLeapYearQuery, OnTryEncodeDateDay.
// They must be there before the calculator is initialised, since that asks for today's year; so attach them with
//
//   auto calendar = MakeCalendar<TOrvCustomDateCalendarCalc>(u"en-US", [](TOrvCustomDateCalendarCalc& c) {
//     c.OnDecodeDateDay = ...;
//   });
//
// or in the constructor of a subclass. A calendar made without them, as the factory makes it, ends in
// ECustomCalendarNoEventError for "OnDecodeDateDay".
#pragma once

#include "calendar/Orv.Date.CustomEvents.h"

namespace orv {

class TOrvCustomDateCalendarCalc : public TOrvCalendarCalc {
 public:
  using TOrvCalendarCalc::DecodeDate;
  using TOrvCalendarCalc::DecodeDateDay;
  using TOrvCalendarCalc::TryEncodeDate;
  using TOrvCalendarCalc::TryEncodeDateDay;

  TDaysInAMonthEvent OnDaysInAMonth;
  TDaysInAYearEvent OnDaysInAYear;
  TDecodeDateEvent OnDecodeDate;  // without it, DecodeDate walks from month 1 by the lengths of OnDaysInAMonth
  TDecodeDateDayEvent OnDecodeDateDay;
  TIsLeapYearEvent OnLeapYearQuery;
  TTryEncodeDateDayEvent OnTryEncodeDateDay;
  TGetFormatSettingsEvent OnGetFormatSettings;  // without it, the settings of the locale
  TOnInitializeEvent OnInitialize;              // called at the end of Initialize

  std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) const override;
  std::uint16_t DaysInAYear(std::uint16_t year) const override;
  // Raises EConvertError where the month lengths never add up to the day, as when they are all 0.
  void DecodeDate(TDateTime value, TDateParts& date) const override;
  void DecodeDateDay(TDateTime value, TYearDay& date) const override;
  bool IsLeapYear(std::uint16_t year) const override;
  bool TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear, TDateTime& value) const override;

 protected:
  void Initialize() override;
  rtl::TFormatSettings DoGetFormatSettings() override;
};

}  // namespace orv
