#include "calendar/Date.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "calendar/Date.Islamic.h"
#include "calendar/Date.Jalali.h"
#include "calendar/Date.Years.h"

namespace orv {
namespace {

constexpr TYearEstimate Estimates[] = {{1721060, 365}, {1721060, 365}, {347996, 365},
                                       {1948086, 354}, {2375475, 365}, {jalali::DayBeforeYear0, 365},
                                       {757862, 365}};

constexpr bool IsKnown(std::int32_t kind) {
  return kind >= ckGregorian && kind <= ckLunisolar;
}

std::int64_t EstimatedYear(std::int32_t julianDay, std::int32_t kind) {
  const TYearEstimate& estimate = Estimates[kind];
  const std::int64_t year = (std::int64_t{julianDay} - estimate.Base) / estimate.Divisor;
  return kind == ckJalali ? std::clamp<std::int64_t>(year, jalali::MinYear, jalali::MaxYear) : year;
}

// How many years to move so as to come nearer to a day without passing its year: no year is this long.
constexpr std::int64_t LongYear = 400;
constexpr std::int64_t Step(std::int64_t daysOff) {
  return std::max<std::int64_t>(1, daysOff / LongYear);
}

struct TYearFound {
  std::int32_t Year;
  TYearRecord Record;
};

// The year that holds a day, walked to from the estimate. Nothing where the walk leaves the calendar's range, or where
// the day lies in no year at all: then the walk would turn back.
std::optional<TYearFound> FindYear(std::int32_t julianDay, std::int32_t kind) {
  std::int64_t year = EstimatedYear(julianDay, kind);
  bool wentUp = false;
  bool wentDown = false;
  while (!(wentUp && wentDown)) {
    const auto record = YearRecord(static_cast<std::int32_t>(year), kind);
    if (!record) return std::nullopt;
    if (julianDay < record->First) {
      year -= Step(record->First - julianDay);
      wentDown = true;
    } else if (julianDay >= record->NextFirst) {
      year += Step(julianDay - record->NextFirst);
      wentUp = true;
    } else {
      return TYearFound{static_cast<std::int32_t>(year), *record};
    }
  }
  return std::nullopt;
}

constexpr std::int32_t MonthsAccepted = MonthsInRecord + 1;

TDayMonthYear DayByWalk(std::int32_t julianDay, std::int32_t kind) {
  const auto found = FindYear(julianDay, kind);
  if (!found) return {-1, 0, 0};
  auto rest = static_cast<std::int32_t>(julianDay - found->Record.First) + 1;
  std::int32_t month = 1;
  for (const std::uint8_t length : found->Record.Months) {
    if (rest <= length) return {rest, month, found->Year};
    rest -= length;
    ++month;
  }
  return {rest, -1, found->Year};
}

// The day number before it is known to have 32 bits; nothing where the year record fails.
std::optional<std::int64_t> DayByRecord(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t kind) {
  const auto record = YearRecord(year, kind);
  if (!record) return std::nullopt;
  std::int64_t result = record->First + day - 1;
  for (std::int32_t earlier = 1; earlier < month; ++earlier)
    result += record->Months[static_cast<std::size_t>(earlier) - 1];
  return result;
}

std::int32_t InRange(std::int64_t day) {
  using TLimits = std::numeric_limits<std::int32_t>;
  return day < TLimits::min() || day > TLimits::max() ? 0 : static_cast<std::int32_t>(day);
}

}  // namespace

std::int32_t DMYToDay(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t kind) {
  if (month < 1 || month > MonthsAccepted) return 0;
  if (kind == ckIslamic && month <= 12) return InRange(islamic::DayOfDate(std::int64_t{year}, month, day));
  return InRange(DayByRecord(day, month, year, kind).value_or(0));
}

TDayMonthYear DayToDMY(std::int32_t julianDay, std::int32_t kind) {
  if (kind == ckIslamic) {
    const islamic::TDate date = islamic::DateOfDay(julianDay);
    return {date.Day, date.Month, date.Year};
  }
  if (kind == ckJalali && julianDay >= jalali::FirstDay && julianDay <= jalali::LastDay) {
    const jalali::TDate date = jalali::DateOfDay(julianDay);
    return {date.Day, date.Month, date.Year};
  }
  return IsKnown(kind) ? DayByWalk(julianDay, kind) : TDayMonthYear{-1, 0, 0};
}

std::int32_t JalaliJD0(std::int32_t year) {
  return jalali::JD0(year);
}

std::u16string SetMonthName(std::int32_t index, std::u16string_view name) {
  static std::array<std::u16string, 12> names = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                                 u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
  if (index < 1 || index > static_cast<std::int32_t>(names.size())) return {};
  std::u16string& entry = names[static_cast<std::size_t>(index) - 1];
  if (!name.empty()) entry = std::u16string(name);
  return entry;
}

}  // namespace orv
