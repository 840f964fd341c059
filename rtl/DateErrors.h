// The failures of date operations: fixed texts and the functions that raise EConvertError with the refused parts in the
// message.
#pragma once

#include <cstdint>
#include <optional>

#include "rtl/DateTime.h"

namespace rtl {

inline constexpr const char* SInvalidDate = "'%s' is not a valid date";
inline constexpr const char* SInvalidTime = "'%s' is not a valid time";
inline constexpr const char* SInvalidDateTime = "'%s' is not a valid date and time";
inline constexpr const char* SDateEncodeError = "The year, month and day do not form a date";
inline constexpr const char* STimeEncodeError = "The hour, minute, second and millisecond do not form a time";

[[noreturn]] void InvalidDateDayError(std::uint16_t year, std::uint16_t dayOfYear);
[[noreturn]] void InvalidDateMonthWeekError(std::uint16_t year, std::uint16_t month, std::uint16_t week,
                                            std::uint16_t dayOfWeek);
[[noreturn]] void InvalidDateWeekError(std::uint16_t year, std::uint16_t week, std::uint16_t dayOfWeek);
[[noreturn]] void InvalidDayOfWeekInMonthError(std::uint16_t year, std::uint16_t month, std::uint16_t nth,
                                               std::uint16_t dayOfWeek);
// With a base date, a part of 65535 is one that was to be taken from it, and shows as "?".
[[noreturn]] void InvalidDateTimeError(const TDateTimeParts& parts, std::optional<TDateTime> baseDate = std::nullopt);

}  // namespace rtl
