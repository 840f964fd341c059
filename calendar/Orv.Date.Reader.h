// The strict reader: takes a text apart by a format. What it reads is the same for all date units; what years they
// accept, and what the parts then mean, is theirs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "calendar/Orv.Date.FormatTokens.h"
#include "rtl/DateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Sets.h"

namespace orv {

// What a unit reads by. Everything is borrowed for the call.
struct TReaderRules {
  const rtl::TFormatSettings& Settings;
  TMeridiemTexts Meridiem;
  std::int32_t MinYear = 1;  // both are outside the years accepted
  std::int32_t MaxYear = 9999;
  std::int32_t CenturyBase = 0;    // a year read by "yy" counts from here,
  std::int32_t CenturyWindow = 0;  // or, below this number, from a century later
};

enum class TReadField : std::uint8_t { Year, Month, Day, Hour, Minute, Second, MilliSecond, DayName, Meridiem };
using TReadFields = rtl::TSet<TReadField, std::uint16_t>;

// The parts read, a number for each field. What was not seen is 0.
struct TReadParts {
  static constexpr std::size_t Fields = static_cast<std::size_t>(TReadField::Meridiem) + 1;

  std::array<std::int32_t, Fields> Values{};
  TReadFields Seen;

  bool Has(TReadField field) const { return Seen.Contains(field); }
  // The day's name is the number in the table of names, 1 to 7; AM is 0 and PM is 1. Every other value but the year's
  // fits into a word.
  std::int32_t Value(TReadField field) const { return Values[static_cast<std::size_t>(field)]; }
  std::uint16_t Word(TReadField field) const { return static_cast<std::uint16_t>(Value(field)); }
};

// Reads the text by the format; text behind the format is ignored. Nothing where the text does not follow it, where a
// number lies outside its bounds, where a field comes again with another value, and where a time field comes again at
// all. Only digits 0 to 9 are numbers. Raises EConvertError where a number is asked for and no digit stands, where a
// number exceeds 2147483647, at a doubled quote, and where formats nest without end.
//   d dd   day, 1 to 31                     m mm       month, 1 to 12
//   ddd dddd  a day's name                  mmm mmmm   a month's name
//   yyyy   year                             yy         year of the century
//   h hh   hour, below 24                   n nn s ss  minute and second, below 60
//   z      millisecond, below 60; an "s" behind it is skipped
//   ddddd dddddd t tt c  the formats of the settings;  a/p ampm am/pm  in any case, texts in any case
//   'x'    x stands one place further on; the quoted characters then are format again
std::optional<TReadParts> ReadByFormat(const TReaderRules& rules, std::u16string_view format, std::u16string_view text);

// The time of day that was read: AM and PM applied. Nothing where the hour does not go with AM or PM. Hour 12 with PM
// is hour 0.
inline std::optional<rtl::TTimeParts> TimeRead(const TReadParts& parts) {
  std::int32_t hour = parts.Value(TReadField::Hour);
  if (parts.Has(TReadField::Meridiem)) {
    const bool afternoon = parts.Value(TReadField::Meridiem) != 0;
    if (afternoon ? hour == 0 : hour > 13) return std::nullopt;
    if (afternoon && hour < 13) hour = (hour + 12) % 24;
  }
  return rtl::TTimeParts{static_cast<std::uint16_t>(hour), parts.Word(TReadField::Minute),
                         parts.Word(TReadField::Second), parts.Word(TReadField::MilliSecond)};
}

}  // namespace orv
