// Day arithmetic: the mathematics of seven calendars on Julian Day Numbers, without object and locale. Everything above
// counts its days here.
//
// A Julian Day Number here is the whole number of the day that begins at midnight; 30 December 1899 is 2415019. Years
// are astronomical where a calendar has a year 0. Pure functions, callable from any thread, except the lunisolar kind,
// whose table is process-wide (main thread). No argument makes them fail other than by the answer that says so.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "rtl/Exceptions.h"

namespace orv {

// A date operation asked outside the years it is made for.
class EInvalidDateOperation : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EInvalidDateOperation"; }
};

// The calendars, as numbers: the last argument of DMYToDay and DayToDMY.
enum TCalendarKind : std::int32_t {
  ckGregorian = 0,
  ckJulian = 1,
  ckHebrew = 2,      // months from Tishri; month 7 is the leap month, absent in common years
  ckIslamic = 3,     // tabular, 30-year cycle
  ckThirtyDays = 4,  // twelve months of 30 days and a short thirteenth; year 1 begins on 22 September 1792
  ckJalali = 5,      // years -1096 to 2327
  ckLunisolar = 6,   // from the table given to SetChineseCalendarData
};

struct TDayMonthYear {
  std::int32_t Day = -1;
  std::int32_t Month = -1;
  std::int32_t Year = 0;
  friend constexpr bool operator==(const TDayMonthYear&, const TDayMonthYear&) = default;
};

// The Julian Day Number of a date. The day is not checked, and counts on from the first of its month; of the month only
// that it lies in 1 to 14 (an absent month has no days). 0 where the month is another, the year lies outside the
// calendar's range, the kind is unknown, or the number has more than 32 bits.
// DMYToDay(1, 1, 1404, ckJalali) is 2460756.
std::int32_t DMYToDay(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t kind);

// The date of a Julian Day Number. Where the calendar does not reach it or the kind is unknown, Day is -1.
TDayMonthYear DayToDMY(std::int32_t julianDay, std::int32_t kind);

// The Julian Day Number of the day before 1 Farvardin of a year from -1096 to 2327; -1 for other years.
// JalaliJD0(1404) is 2460755.
std::int32_t JalaliJD0(std::int32_t year);

// The name of a month, 1 to 12, of a table that starts as "Jan" to "Dec"; a name that is not empty replaces the entry
// first. An index outside the table has no name and stores none. Process-wide; main thread.
std::u16string SetMonthName(std::int32_t index, std::u16string_view name = {});

// The table of the lunisolar kind, kept by the library; an empty text takes it away. In 16-bit units counted from 1:
// unit 1 the number of years, unit 3 the first year, and from unit (year - first) * 3 + 5 on three bytes, low byte
// first, that hold a number: bit k of it (0 to 12) says that month k + 1 has 30 days rather than 29, and the number
// without those 13 bits is offset * 14 + i, where i is the month behind which the intercalary one stands (0: none, and
// month 13 is absent) and offset moves the first day. A table shorter than it says ends where it ends.
void SetChineseCalendarData(std::u16string_view data);

// The number of the intercalary month, one above i, in the lunisolar year that was reckoned last; 0 where it had none.
std::int32_t GetChineseIntercalaryMonth();

}  // namespace orv
