// The Persian settings of the whole process.
#pragma once

#include "rtl/FormatSettings.h"

namespace orv {

// English names of the Gregorian months as the resource strings spell them ("Augest", and "Jun" also as the long name).
const rtl::TMonthNames& JulianShortMonthNames();
const rtl::TMonthNames& JulianLongMonthNames();

// Overwrites the fields of a record that a Persian user expects otherwise: names of Jalali months, of days beginning on
// Saturday, formats, separators, currency. Fields without a Persian value of their own stay.
void MakePersian(rtl::TFormatSettings& settings);

// Does so with the process-wide settings, at every call. StartCalendars (calendar/StartUp.h) calls it once, at the
// start of a program. Main thread.
void InitLocale();

// The copies made by the last InitLocale, with "," as thousand separator; in the second the day names begin on Sunday,
// as the platform numbers days. Of an empty record before the first call.
const rtl::TFormatSettings& PersianFormatSettings();
const rtl::TFormatSettings& PersianFormatSettingsFromSunday();

}  // namespace orv
