// Gregorian dates and times as text, by the formats and names of a settings record.
//
// Letters of a format, in either case; a run of one letter is one field:
// clang-format off
//   d dd            day of the month; with two digits
//   ddd dddd        day of the week, short and long name
//   ddddd dddddd    the short and the long date format
//   m mm            month, with two digits; minutes right behind an hour
//   mmm mmmm        month, short and long name
//   yy yyyy         year of the century, year in four digits
//   h hh            hour, on the 12-hour clock where an AM/PM field follows before the next hour
//   n nn, s ss      minute, second
//   z zzz           millisecond, with three digits
//   t tt            the short and the long time format
//   c               short date and, unless midnight, long time
//   am/pm a/p       these texts, in the case as written
//   ampm            the settings' texts
//   / :             the separators
//   'x' "x"         x as it stands
// clang-format on
// Every other character stands for itself. Formats nest two deep; what nests deeper writes nothing. An empty format is
// "c". No input makes writing fail. Functions without a settings argument read the process-wide record (main thread);
// the others may be called from any thread.
#pragma once

#include <optional>
#include <string_view>

#include "rtl/DateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace rtl {

// FormatDateTime(u"ddd d mmm yyyy, h:nn am/pm", 45737.75) is "Fri 21 Mar 2025, 6:00 pm".
UnicodeString FormatDateTime(std::u16string_view format, TDateTime value, const TFormatSettings& settings);
UnicodeString FormatDateTime(std::u16string_view format, TDateTime value);

UnicodeString DateToStr(TDateTime value, const TFormatSettings& settings);      // the short date format
UnicodeString TimeToStr(TDateTime value, const TFormatSettings& settings);      // the long time format
UnicodeString DateTimeToStr(TDateTime value, const TFormatSettings& settings);  // as the format "c"
UnicodeString TimeToStr(TDateTime value);

// Reads a date: numbers in the order in which day, month and year stand in the short date format, with the date
// separator between them. Two numbers are month and day of the present year in that order. A year of one or two digits
// falls into the hundred years that begin TwoDigitYearCenturyWindow years ago (0: into the present century). Blanks
// around numbers are skipped; nothing may be left over.
std::optional<TDateTime> TryStrToDate(std::u16string_view text, const TFormatSettings& settings);

// Reads a time: hour, then minute, second and millisecond as far as they are there, behind the time separator and the
// decimal separator. "AM" and "PM" or the settings' texts, in any case and before or after the numbers, mean a 12-hour
// clock.
std::optional<TDateTime> TryStrToTime(std::u16string_view text, const TFormatSettings& settings);

// Reads a date and, behind at least one blank, a time. The time may be absent.
std::optional<TDateTime> TryStrToDateTime(std::u16string_view text, const TFormatSettings& settings);

}  // namespace rtl
