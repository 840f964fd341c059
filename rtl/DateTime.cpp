#include "rtl/DateTime.h"

#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"

namespace rtl {
namespace {

constexpr std::uint16_t MinYear = 1;
constexpr std::uint16_t MaxYear = 9999;

constexpr double Days(std::int64_t milliseconds) {
  return static_cast<double>(milliseconds) / static_cast<double>(MSecsPerDay);
}

constexpr std::int64_t Magnitude(std::int64_t value) {
  return value < 0 ? -value : value;
}

constexpr bool IsValidYear(std::uint16_t year) {
  return year >= MinYear && year <= MaxYear;
}

// A day number as a date-time. Whole numbers this small are exact.
constexpr TDateTime DateTimeOfDay(std::int32_t dayNumber) {
  return static_cast<TDateTime>(static_cast<std::int64_t>(dayNumber) - DateDelta);
}

}  // namespace

TDateTime MillisecondsToDateTime(std::int64_t milliseconds) {
  std::int64_t day = milliseconds / MSecsPerDay;
  std::int64_t time = milliseconds % MSecsPerDay;
  if (time < 0) {
    time += MSecsPerDay;
    --day;
  }
  day -= DateDelta;
  return Days(day < 0 ? day * MSecsPerDay - time : day * MSecsPerDay + time);
}

bool IsValidTime(const TTimeParts& time) {
  return IsTimeOfDay(time) || time == TTimeParts{24, 0, 0, 0};
}

TDateTime EncodeTime(const TTimeParts& time) {
  if (const auto value = TryEncodeTime(time)) return *value;
  throw EConvertError(STimeEncodeError);
}

std::uint16_t HourOf(TDateTime value) {
  return DecodeTime(value).Hour;
}
std::uint16_t MinuteOf(TDateTime value) {
  return DecodeTime(value).Minute;
}
std::uint16_t SecondOf(TDateTime value) {
  return DecodeTime(value).Second;
}
std::uint16_t MilliSecondOf(TDateTime value) {
  return DecodeTime(value).MilliSecond;
}

std::uint16_t DaysInAMonth(std::uint16_t year, std::uint16_t month) {
  if (month < 1 || month > 12) throw EConvertError(SDateEncodeError);
  return static_cast<std::uint16_t>(gregorian::DaysInMonth(year, month));
}

bool IsValidDateDay(std::uint16_t year, std::uint16_t dayOfYear) {
  return IsValidYear(year) && dayOfYear >= 1 && dayOfYear <= DaysInAYear(year);
}

TDateTime EncodeDate(const TDateParts& date) {
  if (const auto value = TryEncodeDate(date)) return *value;
  throw EConvertError(SDateEncodeError);
}

std::optional<TDateTime> TryEncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear) {
  if (!IsValidDateDay(year, dayOfYear)) return std::nullopt;
  return DateTimeOfDay(gregorian::DayNumber(year, 1, dayOfYear));
}

TDateTime EncodeDateDay(std::uint16_t year, std::uint16_t dayOfYear) {
  if (const auto value = TryEncodeDateDay(year, dayOfYear)) return *value;
  InvalidDateDayError(year, dayOfYear);
}

std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& parts) {
  const auto date = TryEncodeDate(parts.Date);
  const auto time = TryEncodeTime(parts.Time);
  if (!date || !time) return std::nullopt;
  return JoinDateAndTime(*date, *time);
}

TYearDay DecodeDateDay(TDateTime value) {
  const std::int32_t day = DayNumberOf(value);
  if (day <= 0) return {};
  const std::uint32_t year = gregorian::DateOfDay(day).Year;
  const std::int32_t newYear = gregorian::DayNumber(year, 1, 1);
  return {static_cast<std::uint16_t>(year), static_cast<std::uint16_t>(day - newYear + 1)};
}

TDateTimeParts DecodeDateTime(TDateTime value) {
  return {DecodeDate(value), DecodeTime(value)};
}

TFullDate DecodeDateFully(TDateTime value) {
  if (DayNumberOf(value) <= 0) return {};
  const TDateParts date = DecodeDate(value);
  return {date, DayOfWeek(value), IsLeapYear(date.Year)};
}

std::uint16_t DayOfWeek(TDateTime value) {
  const std::int32_t remainder = DayNumberOf(value) % 7;
  return static_cast<std::uint16_t>((remainder < 0 ? remainder + 7 : remainder) + 1);
}

TDateTime EndOfTheDay(TDateTime value) {
  return TimeStampToDateTime({MSecsPerDay - 1, DayNumberOf(value)});
}

TDateTime StartOfTheDay(TDateTime value) {
  return TimeStampToDateTime({0, DayNumberOf(value)});
}

TDateTime ReplaceTime(TDateTime value, TDateTime time) {
  const TDateTime fraction = std::fabs(time - std::trunc(time));
  return value < 0 ? std::trunc(value) - fraction : std::trunc(value) + fraction;
}

TDateTime IncDay(TDateTime value, std::int32_t days) {
  return MillisecondsToDateTime(DateTimeToMilliseconds(value) + days * MSecsPerDay);
}

TDateTime IncWeek(TDateTime value, std::int32_t weeks) {
  return MillisecondsToDateTime(DateTimeToMilliseconds(value) + weeks * (7 * MSecsPerDay));
}

std::int64_t MilliSecondsBetween(TDateTime a, TDateTime b) {
  return Magnitude(DateTimeToMilliseconds(a) - DateTimeToMilliseconds(b));
}

std::int64_t DaysBetween(TDateTime a, TDateTime b) {
  return MilliSecondsBetween(a, b) / MSecsPerDay;
}
std::int64_t WeeksBetween(TDateTime a, TDateTime b) {
  return DaysBetween(a, b) / 7;
}
double DaySpan(TDateTime a, TDateTime b) {
  return Days(MilliSecondsBetween(a, b));
}
double WeekSpan(TDateTime a, TDateTime b) {
  return DaySpan(a, b) / 7;
}

namespace {

template <typename T>
constexpr bool Between(T value, T start, T end, bool inclusive) {
  return inclusive ? start <= value && value <= end : start < value && value < end;
}

}  // namespace

bool DateInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive) {
  return Between(DayNumberOf(value), DayNumberOf(start), DayNumberOf(end), inclusive);
}

bool DateTimeInRange(TDateTime value, TDateTime start, TDateTime end, bool inclusive) {
  return Between(DateTimeToMilliseconds(value), DateTimeToMilliseconds(start), DateTimeToMilliseconds(end), inclusive);
}

}  // namespace rtl
