// What an application gives a custom calendar, and the view through which it sets the calendar up.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "calendar/Orv.Date.h"
#include "rtl/Exceptions.h"

namespace orv {

// A custom calendar was asked for something whose event has no handler. The message names the event.
class ECustomCalendarNoEventError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "ECustomCalendarNoEventError"; }
};

class TDateCalendarCalcSettings;

// Handlers. What a handler raises passes through unchanged.
using TDaysInAMonthEvent = std::function<std::uint16_t(std::uint16_t year, std::uint16_t month)>;
using TDaysInAYearEvent = std::function<std::uint16_t(std::uint16_t year)>;
using TDecodeDateEvent = std::function<TDateParts(TDateTime value)>;
using TDecodeDateDayEvent = std::function<TYearDay(TDateTime value)>;
using TIsLeapYearEvent = std::function<bool(std::uint16_t year)>;
using TTryEncodeDateDayEvent = std::function<std::optional<TDateTime>(std::uint16_t year, std::uint16_t dayOfYear)>;
using TGetFormatSettingsEvent = std::function<rtl::TFormatSettings(TOrvCalendarCalc& sender)>;
using TOnInitializeEvent = std::function<void(TOrvCalendarCalc& sender, TDateCalendarCalcSettings settings)>;

// Reaches the protected fields of calculators. No object is made of it.
class TOrvCustomDateCalendarCalcFriend : public TOrvCalendarCalc {
 public:
  static std::uint8_t& LastMonth(TOrvCalendarCalc& calendar) {
    return calendar.*&TOrvCustomDateCalendarCalcFriend::FLastMonth;
  }
};

// The settings of a calculator, read and written in place. Valid while the calculator lives.
class TDateCalendarCalcSettings {
 public:
  static TDateCalendarCalcSettings Create(TOrvCalendarCalc& calendar) { return TDateCalendarCalcSettings(calendar); }

  double& ApproxDaysPerMonth() const { return FOrvCustomCalcendarCalc->ApproxDaysPerMonth; }
  TCalDayOfWeek& FirstWeekDay() const { return FOrvCustomCalcendarCalc->FirstWeekday; }
  std::uint8_t& LastMonth() const { return TOrvCustomDateCalendarCalcFriend::LastMonth(*FOrvCustomCalcendarCalc); }
  std::int32_t& MaxYear() const { return FOrvCustomCalcendarCalc->MaxYear; }
  std::int32_t& MinYear() const { return FOrvCustomCalcendarCalc->MinYear; }
  bool& RightToLeft() const { return FOrvCustomCalcendarCalc->RightToLeft; }
  std::uint16_t& ShortYearStartingCentury() const { return FOrvCustomCalcendarCalc->ShortYearStartingCentury; }
  UnicodeString& TimeAMLongString() const { return FOrvCustomCalcendarCalc->TimeAMLongString; }
  UnicodeString& TimePMLongString() const { return FOrvCustomCalcendarCalc->TimePMLongString; }
  char16_t& TimeAMVeryShortString() const { return FOrvCustomCalcendarCalc->TimeAMVeryShortString; }
  char16_t& TimePMVeryShortString() const { return FOrvCustomCalcendarCalc->TimePMVeryShortString; }

 private:
  explicit TDateCalendarCalcSettings(TOrvCalendarCalc& calendar) : FOrvCustomCalcendarCalc(&calendar) {}
  TOrvCalendarCalc* FOrvCustomCalcendarCalc;  // borrowed
};

}  // namespace orv
