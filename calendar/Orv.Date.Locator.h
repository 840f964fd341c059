// The field locator: finds where the n-th field of a format lies in a text, for an editor of dates with a mask.
#pragma once

#include <cstdint>
#include <string_view>

#include "calendar/Orv.Date.FormatTokens.h"
#include "rtl/FormatSettings.h"

namespace orv {

// What a field located is. The names of months, in either length, are hdmtLongMonth.
enum class TOrvDateTimeMaskType : std::uint8_t {
  hdmtDay,
  hdmtMonth,
  hdmtLongMonth,
  hdmtGhamariLongMonth,
  hdmtJulianShortMonth,
  hdmtJulianLongMonth,
  hdmtYear,
  hdmtLongYear,
  hdmt12Hour,
  hdmt24Hour,
  hdmtMinute,
  hdmtSecond,
  hdmtMilliSec,
  hdmtAmPmVeryShort,
  hdmtAmPmShort,
  hdmtAmPmLong,
  hdmtAmPm,
  hdmtCustom,
  hdmtNone
};

// Everything is borrowed for the call.
struct TLocatorRules {
  const rtl::TFormatSettings& Settings;
  TMeridiemTexts Meridiem;
};

// Start counts UTF-16 units from 1. Where the walk ended at another field than the one asked for, Start and Length are
// those of the last field it met, and both 0 where it met none. Variable is false for a field whose length the format
// fixes (dd mm yy yyyy hh nn ss zz).
struct TLocatedField {
  TOrvDateTimeMaskType Type = TOrvDateTimeMaskType::hdmtNone;
  std::int32_t Start = 0;
  std::int32_t Length = 0;
  bool Variable = true;
};

// Walks the format and the text side by side up to the field with the number, from 1. Type is hdmtNone where the text
// does not follow the format or has fewer fields. Numbers are runs of digits of any length and value; names and AM/PM
// texts stand exactly. Names of days are passed over in the format alone. Raises EConvertError at a doubled quote and
// where formats nest without end.
TLocatedField LocateField(const TLocatorRules& rules, std::int32_t fieldNumber, std::u16string_view format,
                          std::u16string_view text);

}  // namespace orv
