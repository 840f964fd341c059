// The calendars that the commands know: how to find them, how they name months, and their days as Julian Day Numbers.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "calendar/Date.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv::date {

struct TDayDate {
  std::int32_t Year = 0;
  std::int32_t Month = 0;
  std::int32_t Day = 0;
  friend constexpr bool operator==(const TDayDate&, const TDayDate&) = default;
};

struct TCalendar {
  std::string_view Name;        // as the command line calls it
  std::string_view OtherNames;  // with a blank before and behind each
  TCalendarKind Kind = ckGregorian;
  std::u16string_view Calculator;  // its name in the factory; empty where there is none
  int FirstDayOfWeek = 0;          // 0 = Sunday
  bool RightToLeft = false;
  char16_t ZeroDigit = u'0';
  std::array<std::u16string_view, 7> DayInitials;  // from Sunday
};

// All of them; those of daily life, jalali, hijri and gregorian, come first.
std::span<const TCalendar> Calendars();
inline constexpr std::size_t ChiefCalendarCount = 3;

// By one of its names, in any case; null where there is none.
const TCalendar* FindCalendar(std::string_view name);
// "jalali, hijri, ...".
std::string CalendarNames();

// The day of a date; nothing where the calendar has no such day.
std::optional<std::int32_t> DayOfDate(const TCalendar& calendar, const TDayDate& date);
// The date of a day; nothing where the calendar does not reach it.
std::optional<TDayDate> DateOfDay(const TCalendar& calendar, std::int32_t day);
// 0 = Sunday.
int WeekDayOfDay(std::int32_t day);
rtl::TDateTime DateTimeOfDay(std::int32_t day);
std::int32_t DayOfDateTime(rtl::TDateTime value);

// The name of a month in the calendar's own language; empty for a month that the year does not have.
rtl::UnicodeString MonthName(const TCalendar& calendar, std::int32_t year, std::int32_t month);

// A date with the names of its day and month: in the calendar's language and digits, the Gregorian one by the long
// format of the locale ("Friday, 21 March 2025" for an empty name).
rtl::UnicodeString LongText(const TCalendar& calendar, std::int32_t day, std::u16string_view locale);

// A date by a format of the calculators' letters. Only for calendars that have a calculator or share one's names
// (HasFormat). Raises EConvertError for a format that cannot be written.
bool HasFormat(const TCalendar& calendar);
rtl::UnicodeString FormattedText(const TCalendar& calendar, std::int32_t day, std::u16string_view format,
                                 std::u16string_view locale);

// "1404/01/01".
std::string Numbers(const TDayDate& date);

}  // namespace orv::date
