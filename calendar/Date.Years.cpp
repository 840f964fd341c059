#include "calendar/Date.Years.h"

#include <string>

#include "calendar/Date.Islamic.h"
#include "calendar/Date.Jalali.h"
#include "rtl/Assertions.h"

namespace orv {
namespace {

using TMonths = std::array<std::uint8_t, MonthsInRecord>;

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  return a >= 0 ? a / b : -((b - 1 - a) / b);
}
constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b) {
  return a - b * FloorDiv(a, b);
}

// A month length is a byte: of a longer rest its low eight bits stay.
constexpr std::uint8_t AsLength(std::int64_t days) {
  return static_cast<std::uint8_t>(days);
}

constexpr TMonths WesternMonths(bool leap) {
  return {31, static_cast<std::uint8_t>(leap ? 29 : 28), 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
}

// Gregorian and Julian: 28 February is day 59 of every year, so the leap day moves the first day back, not the later
// ones on.
constexpr std::int64_t WesternFirst(std::int64_t year, bool leap, std::int64_t centuryDays) {
  return 365 * year + FloorDiv(year, 4) + centuryDays - (leap ? 1 : 0) + 1721061;
}

constexpr bool IsGregorianLeap(std::int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr std::int64_t GregorianFirst(std::int64_t year) {
  return WesternFirst(year, IsGregorianLeap(year), FloorDiv(year, 400) - FloorDiv(year, 100));
}

constexpr std::int64_t JulianFirst(std::int64_t year) {
  return WesternFirst(year, year % 4 == 0, -2);
}

// Places in the cycle of 19 years, 0 standing for the nineteenth, that have thirteen months.
constexpr bool IsHebrewLeap(std::int64_t year) {
  constexpr std::uint32_t places = 1u << 0 | 1u << 3 | 1u << 6 | 1u << 8 | 1u << 11 | 1u << 14 | 1u << 17;
  return (places >> FloorMod(year, 19) & 1) != 0;
}

// Months from the beginning of the count to the beginning of a year.
constexpr std::int64_t HebrewMonthsBefore(std::int64_t year) {
  const std::int64_t yearsOfCycle = FloorMod(year - 1, 19);
  std::int64_t months = FloorDiv(year - 1, 19) * 235 + yearsOfCycle * 12;
  for (std::int64_t place = 1; place <= yearsOfCycle; ++place) months += IsHebrewLeap(place) ? 1 : 0;
  return months;
}

// The moment of a new moon: days, and parts of a day of 25920.
struct TMolad {
  std::int64_t Days;
  std::int64_t Parts;
};

constexpr TMolad HebrewMolad(std::int64_t months) {
  constexpr std::int64_t partsInDay = 25920;
  const std::int64_t rest = FloorMod(months, partsInDay);
  const std::int64_t parts = 5604 + rest * 13753;
  return {2 + FloorDiv(months, partsInDay) * 765433 + rest * 29 + parts / partsInDay, parts % partsInDay};
}

// The days by which the new year stands off its new moon, by the four rules of postponement.
constexpr std::int64_t HebrewPostponement(std::int64_t year, const TMolad& molad) {
  const std::int64_t dayOfWeek = FloorMod(molad.Days, 7);
  if (dayOfWeek == 3 && molad.Parts >= 9924 && !IsHebrewLeap(year)) return 2;
  if (dayOfWeek == 2 && molad.Parts >= 16789 && IsHebrewLeap(year - 1)) return 1;
  const std::int64_t late = molad.Parts > 19440 ? 1 : 0;
  const std::int64_t day = FloorMod(molad.Days + late, 7);
  return late + (day == 1 || day == 4 || day == 6 ? 1 : 0);
}

constexpr std::int64_t HebrewFirst(std::int64_t year) {
  const TMolad molad = HebrewMolad(HebrewMonthsBefore(year));
  return molad.Days + HebrewPostponement(year, molad) + 347996;
}

constexpr TMonths HebrewMonths(bool leap, std::int64_t yearLength) {
  TMonths months = {30, 29, 30, 29, 30, 29, 0, 30, 29, 30, 29, 30, 29};
  if (leap) {
    months[5] = 30;
    months[6] = 29;
  }
  if (yearLength == 353 || yearLength == 383) months[2] = 29;
  if (yearLength == 355 || yearLength == 385) months[1] = 30;
  return months;
}

constexpr std::int64_t ThirtyDaysFirst(std::int64_t year) {
  const std::int64_t a = year >= 20 ? year - 1 : year;
  return year * 365 + 2375475 + a / 4 - a / 100 + a / 400 - (a <= 0 ? 1 : 0);
}

// The table of the lunisolar kind, and the intercalary month of the year reckoned last.
struct TLunisolarTable {
  std::u16string Data;
  std::int32_t IntercalaryMonth = 0;
};

TLunisolarTable& LunisolarTable() {
  static TLunisolarTable table;
  return table;
}

// The unit at the index from 1; 0 outside the data.
std::uint32_t TableUnit(std::int64_t index) {
  const std::u16string& data = LunisolarTable().Data;
  return index >= 1 && index <= static_cast<std::int64_t>(data.size()) ? data[static_cast<std::size_t>(index - 1)] : 0;
}

}  // namespace

TYearRecord GregorianYear(std::int32_t year) {
  return {GregorianFirst(year), GregorianFirst(std::int64_t{year} + 1), WesternMonths(IsGregorianLeap(year))};
}

TYearRecord JulianYear(std::int32_t year) {
  return {JulianFirst(year), JulianFirst(std::int64_t{year} + 1), WesternMonths(year % 4 == 0)};
}

TYearRecord HebrewYear(std::int32_t year) {
  const std::int64_t first = HebrewFirst(year);
  const std::int64_t next = HebrewFirst(std::int64_t{year} + 1);
  return {first, next, HebrewMonths(IsHebrewLeap(year), next - first)};
}

TYearRecord IslamicYear(std::int32_t year) {
  const auto place = static_cast<std::int32_t>(FloorMod(year, islamic::YearsInCycle));
  const auto last = static_cast<std::uint8_t>(islamic::IsLeapPlace(place) ? 30 : 29);
  const TYearRecord record = {islamic::FirstDay(std::int64_t{year}),
                              islamic::FirstDay(std::int64_t{year} + 1),
                              {30, 29, 30, 29, 30, 29, 30, 29, 30, 29, 30, last}};
  ORV_ASSERT(record.Months[11] != 0 && record.Months[12] == 0, "An Islamic year has twelve months");
  return record;
}

TYearRecord ThirtyDaysYear(std::int32_t year) {
  TYearRecord record = {ThirtyDaysFirst(year), ThirtyDaysFirst(std::int64_t{year} + 1), {}};
  for (int month = 0; month < 12; ++month) record.Months[static_cast<std::size_t>(month)] = 30;
  record.Months[12] = AsLength(record.NextFirst - record.First - 360);
  return record;
}

std::optional<TYearRecord> JalaliYear(std::int32_t year) {
  if (year < jalali::MinYear || year > jalali::MaxYear) return std::nullopt;
  TYearRecord record = {jalali::JD0(year) + 1, jalali::JD0(year + 1) + 1, {31, 31, 31, 31, 31, 31, 30, 30, 30, 30, 30}};
  record.Months[11] = AsLength(record.NextFirst - record.First - 336);
  return record;
}

std::optional<TYearRecord> LunisolarYear(std::int32_t year) {
  const auto count = static_cast<std::int64_t>(TableUnit(1));
  const std::int64_t entry = std::int64_t{year} - static_cast<std::int64_t>(TableUnit(3));
  if (entry < 0 || entry >= count) return std::nullopt;
  const std::int64_t index = entry * 3 + 5;
  const std::uint32_t value = TableUnit(index) | (TableUnit(index + 1) & 0xFF) << 16;
  const std::uint32_t intercalary = (value >> MonthsInRecord) % 14;
  LunisolarTable().IntercalaryMonth = intercalary == 0 ? 0 : static_cast<std::int32_t>(intercalary + 1);

  TYearRecord record;
  record.First = std::int64_t{year} * 365 + year / 4 + (value >> MonthsInRecord) / 14 + 757862;
  record.NextFirst = record.First;
  const int months = intercalary == 0 ? 12 : 13;
  for (int month = 0; month < months; ++month) {
    const auto days = static_cast<std::uint8_t>((value >> month & 1) != 0 ? 30 : 29);
    record.Months[static_cast<std::size_t>(month)] = days;
    record.NextFirst += days;
  }
  return record;
}

std::optional<TYearRecord> YearRecord(std::int32_t year, std::int32_t kind) {
  switch (kind) {
    case ckGregorian:
      return GregorianYear(year);
    case ckJulian:
      return JulianYear(year);
    case ckHebrew:
      return HebrewYear(year);
    case ckIslamic:
      return IslamicYear(year);
    case ckThirtyDays:
      return ThirtyDaysYear(year);
    case ckJalali:
      return JalaliYear(year);
    case ckLunisolar:
      return LunisolarYear(year);
    default:
      return std::nullopt;
  }
}

void SetChineseCalendarData(std::u16string_view data) {
  LunisolarTable().Data = std::u16string(data);
}

std::int32_t GetChineseIntercalaryMonth() {
  return LunisolarTable().IntercalaryMonth;
}

}  // namespace orv
