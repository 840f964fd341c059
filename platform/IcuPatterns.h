// CLDR date and time patterns in the letters of the settings record. Inside platform/ alone.
#pragma once

#include <string_view>

#include "rtl/Strings.h"

namespace orv::platform {

// The first sign that stands between two fields of a pattern, other than blanks and letters; other where there is none.
char16_t SeparatorOf(std::u16string_view pattern, char16_t other);

// The pattern as a format: each field by its letter, the separator as "/" in dates and ":" in times, quoted text
// quoted, direction marks left out. Fields that the record has no letter for (eras, time zones) are left out with the
// blank beside them. "EEEE d MMMM y" becomes "dddd d mmmm yyyy".
rtl::UnicodeString FormatOfDatePattern(std::u16string_view pattern, char16_t separator);
rtl::UnicodeString FormatOfTimePattern(std::u16string_view pattern, char16_t separator);

// Whether a sign only steers the direction of text.
constexpr bool IsDirectionMark(char16_t c) {
  return c == u'\u200E' || c == u'\u200F' || c == u'\u061C';
}

}  // namespace orv::platform
