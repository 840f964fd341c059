// The constants of the classic date units: names from the resource strings, and the vocabulary of the units.
#pragma once

#include <cstdint>

#include "rtl/FormatSettings.h"

namespace orv {

// The calendar that IDateTime is asked for. Any other value counts as ctJulian, the Gregorian calendar of the platform.
enum TJhCalendarType : std::uint8_t { ctPersian = 0, ctIslamic = 1, ctJulian = 2 };

// Names in the tables of resource strings. Weeks begin on Saturday here, so name 1 of a day table is Saturday's.
// Constant, with static storage; callable from any thread.
const rtl::TMonthNames& PersianMonths();
const rtl::TMonthNames& GhamariMonths();
const rtl::TDayNames& WeekDays();
const rtl::TDayNames& ShortWeekDays();

}  // namespace orv
