#include "rtl/DateErrors.h"

#include <string>

#include "rtl/Convert.h"
#include "rtl/Exceptions.h"

namespace rtl {
namespace {

std::string Part(std::uint16_t part, const char* format, bool mayBeLeft) {
  constexpr std::uint16_t leftAsItIs = 65535;
  return mayBeLeft && part == leftAsItIs ? "?" : Format(format, {part});
}

}  // namespace

void InvalidDateDayError(std::uint16_t year, std::uint16_t dayOfYear) {
  throw EConvertError(Format("Year %d has no day %d", {year, dayOfYear}));
}

void InvalidDateMonthWeekError(std::uint16_t year, std::uint16_t month, std::uint16_t week, std::uint16_t dayOfWeek) {
  throw EConvertError(Format("Month %d of year %d has no day %d in its week %d", {month, year, dayOfWeek, week}));
}

void InvalidDateWeekError(std::uint16_t year, std::uint16_t week, std::uint16_t dayOfWeek) {
  throw EConvertError(Format("Year %d has no day %d in its week %d", {year, dayOfWeek, week}));
}

void InvalidDayOfWeekInMonthError(std::uint16_t year, std::uint16_t month, std::uint16_t nth, std::uint16_t dayOfWeek) {
  throw EConvertError(
      Format("Month %d of year %d does not have day %d of the week %d times", {month, year, dayOfWeek, nth}));
}

void InvalidDateTimeError(const TDateTimeParts& parts, std::optional<TDateTime> baseDate) {
  const bool mayBeLeft = baseDate.has_value();
  const auto part = [mayBeLeft](std::uint16_t value, const char* format) { return Part(value, format, mayBeLeft); };
  std::string text = part(parts.Date.Year, "%.4d") + "-" + part(parts.Date.Month, "%.2d") + "-" +
                     part(parts.Date.Day, "%.2d") + " " + part(parts.Time.Hour, "%.2d") + ":" +
                     part(parts.Time.Minute, "%.2d") + ":" + part(parts.Time.Second, "%.2d") + "." +
                     part(parts.Time.MilliSecond, "%.3d");
  text = Format(SInvalidDateTime, {text});
  if (baseDate) text += Format(" (laid over day %d)", {DayNumberOf(*baseDate) - DateDelta});
  throw EConvertError(text);
}

}  // namespace rtl
