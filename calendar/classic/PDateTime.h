// The Persian (Jalali) calendar as a list of functions, each named like the platform's Gregorian one.
//
//   PDateTime::EncodeDate({1404, 1, 1})                        // 45737: 21 March 2025
//   PDateTime::FormatDateTime(u"yyyy/mm/dd", 45737.0)          // 1404/01/01
//   PDateTime::DayOfTheWeek(45737.0)                           // 7: Friday
//
// Days of the week are numbers, 1 = Saturday to 7 = Friday, and index the tables of day names in the settings. Week 1
// of a year or month is what it has of its first week, from Saturday; the week that a year ends in belongs to it alone.
// Dates are not checked in encoding, apart from the year (up to 2327): month 13 and day 40 count on. IncAMonth steps
// the year by whole dozens of months alone. Operations that need the length of a year above 2327 raise
// EInvalidDateOperation, other failures EConvertError; Try... answers nothing instead. But checking or encoding a week
// from 1 on of a year from 2328 to 9999, or of a month of it, raises in the Try... and IsValid... forms too, since the
// year has no first day. Days before 1 Farvardin 0 and from 11 Shahrivar 2325 on are not decoded: outputs stay as they
// are, or zero.
//
// Functions that use names or formats take settings, or read the process-wide ones, which are Persian once
// StartCalendars (calendar/StartUp.h) was called; those and what asks for the present day belong on the main thread,
// the others may be called from any. Letters of formats: docs/calendars.md.
#pragma once

#include "calendar/classic/ClassicUnit.h"

namespace orv {

using PDateTime = classic::TClassicUnit<classic::TPersianCore>;

}  // namespace orv
