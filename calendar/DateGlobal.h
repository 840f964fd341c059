// Small functions that all date units share.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "rtl/Convert.h"
#include "rtl/DateTime.h"

namespace orv {

// Raise EConvertError with a text, and with a format and what it asks for.
[[noreturn]] void ConvertError(std::string_view text);
[[noreturn]] void ConvertErrorFmt(std::string_view format, std::initializer_list<rtl::TFormatArg> arguments);

// Milliseconds of the linear count: day number * 86400000 + milliseconds of the day.
using rtl::DateTimeToMilliseconds;

// The remainder of a / b that has the sign of b. PosMod(-1, 7) is 6; of a division by 0 it is 0.
constexpr std::int32_t PosMod(std::int32_t a, std::int32_t b) {
  if (b == 0 || b == -1) return 0;
  const std::int32_t remainder = a % b;
  return remainder != 0 && (remainder < 0) != (b < 0) ? remainder + b : remainder;
}

struct TQuotedText {
  std::u16string_view Text;  // a view into the text searched
  std::int32_t Next = 0;     // where the closing quote stands; where there is none, the position behind the opening one
};

// The text between the quote at the position (from 1) and the next character equal to it; empty where there is no such
// character. There is no way to write a quote inside: a doubled one raises EConvertError, since the search for an end
// would never end.
TQuotedText CopyQuotedStr(std::u16string_view text, std::int32_t position);

}  // namespace orv
