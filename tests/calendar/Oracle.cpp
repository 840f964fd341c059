// The calendars against rules and tables that others published.
//
// The Persian leap years and new-year days of 1206 to 1498 are compared with three published rules: that of 33 years,
// that of K. M. Borkowski (breaks in the cycle of 33), and that of 2820 years. Over all years, ICU counts.
#include <gtest/gtest.h>
#include <unicode/calendar.h>

#include <cstdlib>
#include <memory>
#include <set>

#include "calendar/Date.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

constexpr std::int32_t FirstYear = 1206;
constexpr std::int32_t LastYear = 1498;
constexpr std::int32_t JulianDayOfDateTime0 = 2415019;

bool IsLeap(std::int32_t year) {
  return JalaliJD0(year + 1) - JalaliJD0(year) == 366;
}

// Eight leap years in 33, at fixed places.
bool IsLeapBy33(std::int32_t year) {
  const std::set<std::int32_t> places = {1, 5, 9, 13, 17, 22, 26, 30};
  return places.contains(year % 33);
}

// Leap years by cycles of 2820 years.
bool IsLeapBy2820(std::int32_t year) {
  const std::int32_t place = (year - 474) % 2820 + 474 + 38;
  return place * 682 % 2816 < 682;
}

// A year by the breaks of the cycle of 33 years: its leap flag, and the day in March of its new year.
struct TBorkowskiYear {
  bool Leap;
  std::int32_t March;
};

TBorkowskiYear ByBorkowski(std::int32_t year) {
  constexpr std::int32_t breaks[] = {-61,  9,    38,   199,  426,  686,  756,  818,  1111, 1181,
                                     1210, 1635, 2060, 2097, 2192, 2262, 2324, 2394, 2456, 3178};
  const std::int32_t gregorian = year + 621;
  std::int32_t leapDays = -14;
  std::int32_t begin = breaks[0];
  std::int32_t jump = 0;
  for (std::size_t i = 1; i < std::size(breaks); ++i) {
    jump = breaks[i] - begin;
    if (year < breaks[i]) break;
    leapDays += jump / 33 * 8 + jump % 33 / 4;
    begin = breaks[i];
  }
  std::int32_t n = year - begin;
  leapDays += n / 33 * 8 + (n % 33 + 3) / 4;
  if (jump % 33 == 4 && jump - n == 4) ++leapDays;
  const std::int32_t gregorianLeapDays = gregorian / 4 - (gregorian / 100 + 1) * 3 / 4 - 150;
  if (jump - n < 6) n = n - jump + (jump + 4) / 33 * 33;
  const std::int32_t place = ((n + 1) % 33 - 1) % 4;
  return {place == 0, 20 + leapDays - gregorianLeapDays};
}

TEST(PersianRules, LeapYearsAgreeWithTheRuleOf33Years) {
  for (std::int32_t year = FirstYear; year <= LastYear; ++year) EXPECT_EQ(IsLeap(year), IsLeapBy33(year)) << year;
}

TEST(PersianRules, NewYearDaysAgreeWithTheRuleOf33Years) {
  // Counted from the new year of 1375, 20 March 1996.
  std::int32_t day = DMYToDay(20, 3, 1996, ckGregorian);
  for (std::int32_t year = 1375; year >= FirstYear; --year) {
    EXPECT_EQ(JalaliJD0(year) + 1, day) << year;
    day -= IsLeapBy33(year - 1) ? 366 : 365;
  }
  day = DMYToDay(20, 3, 1996, ckGregorian);
  for (std::int32_t year = 1375; year <= LastYear; ++year) {
    EXPECT_EQ(JalaliJD0(year) + 1, day) << year;
    day += IsLeapBy33(year) ? 366 : 365;
  }
}

TEST(PersianRules, LeapYearsAndNewYearDaysAgreeWithBorkowski) {
  for (std::int32_t year = FirstYear; year <= LastYear; ++year) {
    const TBorkowskiYear expected = ByBorkowski(year);
    EXPECT_EQ(IsLeap(year), expected.Leap) << year;
    EXPECT_EQ(JalaliJD0(year) + 1, DMYToDay(expected.March, 3, year + 621, ckGregorian)) << year;
  }
}

TEST(PersianRules, TenLeapFlagsDifferFromTheRuleOf2820Years) {
  std::set<std::int32_t> different;
  for (std::int32_t year = FirstYear; year <= LastYear; ++year)
    if (IsLeap(year) != IsLeapBy2820(year)) different.insert(year);
  EXPECT_EQ(different, (std::set<std::int32_t>{1209, 1210, 1242, 1243, 1403, 1404, 1436, 1437, 1469, 1470}));
}

TEST(PersianRules, FiveNewYearDaysDifferFromTheRuleOf2820Years) {
  std::set<std::int32_t> different;
  // Both begin 1206 on the same day.
  std::int32_t day = JalaliJD0(FirstYear) + 1;
  for (std::int32_t year = FirstYear; year <= LastYear; ++year) {
    const std::int32_t off = JalaliJD0(year) + 1 - day;
    if (off != 0) different.insert(year);
    EXPECT_EQ(off, different.contains(year) ? (year < 1375 ? -1 : 1) : 0) << year;
    day += IsLeapBy2820(year) ? 366 : 365;
  }
  EXPECT_EQ(different, (std::set<std::int32_t>{1210, 1243, 1404, 1437, 1470}));
}

TEST(PersianRules, NewYearDaysOfThisCenturyAsTheyWereKept) {
  const auto newYear = [](std::int32_t year) { return DayToDMY(JalaliJD0(year) + 1, ckGregorian); };
  EXPECT_EQ(newYear(1399), (TDayMonthYear{20, 3, 2020}));
  EXPECT_EQ(newYear(1400), (TDayMonthYear{21, 3, 2021}));
  EXPECT_EQ(newYear(1403), (TDayMonthYear{20, 3, 2024}));
  EXPECT_EQ(newYear(1404), (TDayMonthYear{21, 3, 2025}));
  EXPECT_EQ(newYear(1405), (TDayMonthYear{21, 3, 2026}));
}

// --- ICU ---

std::unique_ptr<icu::Calendar> MakeIcu(const char* locale) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
  EXPECT_TRUE(U_SUCCESS(status));
  return calendar;
}

std::int32_t IcuNewYear(icu::Calendar& calendar, std::int32_t year) {
  UErrorCode status = U_ZERO_ERROR;
  calendar.clear();
  calendar.set(UCAL_EXTENDED_YEAR, year);
  calendar.set(UCAL_MONTH, 0);
  calendar.set(UCAL_DATE, 1);
  return calendar.get(UCAL_JULIAN_DAY, status);
}

TDayMonthYear IcuDate(icu::Calendar& calendar, std::int32_t julianDay) {
  UErrorCode status = U_ZERO_ERROR;
  calendar.setTime((julianDay - 2440588.0) * 86400000, status);
  return {calendar.get(UCAL_DATE, status), calendar.get(UCAL_MONTH, status) + 1,
          calendar.get(UCAL_EXTENDED_YEAR, status)};
}

// ICU 72 counts 8 leap years in every 33 without an end. Its new year is a day earlier or later in these years.
const std::set<std::int32_t> EarlierInIcu = {
    1,   5,   22,  26,  30,  34,  55,  59,  63,  67,  88,  92,  96,  100, 121,  125,  129,  133, 154,
    158, 162, 166, 187, 191, 195, 220, 224, 228, 253, 257, 261, 286, 290, 294,  319,  323,  327, 352,
    356, 360, 385, 389, 393, 418, 422, 451, 455, 484, 488, 517, 521, 550, 554,  583,  587,  616, 620,
    649, 653, 682, 715, 748, 752, 781, 785, 814, 847, 880, 913, 946, 979, 1012, 1045, 1078, 1177};
const std::set<std::int32_t> LaterInIcu = {1635, 1668, 1767, 1800, 1833, 1899, 1932, 1965, 1998,
                                           2031, 2064, 2097, 2130, 2163, 2196, 2229, 2262, 2295};

TEST(IcuPersian, NewYearDaysDifferWhereTheCycleOf33YearsIsNotKept) {
  const auto icu = MakeIcu("fa@calendar=persian");
  std::set<std::int32_t> earlier, later;
  for (std::int32_t year = 0; year <= 2326; ++year) {
    const std::int32_t newYear = JalaliJD0(year) + 1;
    const std::int32_t off = IcuNewYear(*icu, year) - newYear;
    ASSERT_LE(std::abs(off), 1) << year;
    if (off < 0) earlier.insert(year);
    if (off > 0) later.insert(year);
    EXPECT_EQ(IcuNewYear(*icu, year), 1948320 + 365 * (year - 1) + (8 * year + 21) / 33) << year;
  }
  EXPECT_EQ(earlier, EarlierInIcu);
  EXPECT_EQ(later, LaterInIcu);
}

TEST(IcuPersian, EveryDayIsTheSameButForYearsThatBeginOtherwiseAndTheDayBeforeAnEarlierOne) {
  const auto icu = MakeIcu("fa@calendar=persian");
  const auto calendar = testing::Jalali();
  std::int32_t inOtherYears = 0, before = 0, days = 0;
  for (std::int32_t day = JalaliJD0(0) + 1; day <= JalaliJD0(2325) + 5 * 31 + 10; ++day, ++days) {
    const TDateParts ours = calendar->DecodeDate(day - JulianDayOfDateTime0);
    const TDayMonthYear theirs = IcuDate(*icu, day);
    if (ours == TDateParts{testing::Word(theirs.Year), testing::Word(theirs.Month), testing::Word(theirs.Day)})
      continue;
    const bool beginsOtherwise = EarlierInIcu.contains(ours.Year) || LaterInIcu.contains(ours.Year);
    ++(beginsOtherwise ? inOtherYears : before);
    if (beginsOtherwise) continue;
    ASSERT_TRUE(EarlierInIcu.contains(ours.Year + 1)) << day;
    ASSERT_EQ(theirs, (TDayMonthYear{1, 1, ours.Year + 1}));
  }
  EXPECT_EQ(days, 849354);
  EXPECT_EQ(inOtherYears, 33963);
  EXPECT_EQ(before, 75);
}

TEST(IcuIslamic, EveryDayOfYears1To9999IsTheSame) {
  const auto icu = MakeIcu("ar@calendar=islamic-civil");
  const auto calendar = testing::Hijri();
  const std::int32_t last = DMYToDay(29, 12, 9999, ckIslamic);
  std::int32_t days = 0;
  for (std::int32_t day = DMYToDay(1, 1, 1, ckIslamic); day <= last; ++day, ++days) {
    const TDayMonthYear theirs = IcuDate(*icu, day);
    ASSERT_EQ(DayToDMY(day, ckIslamic), theirs) << day;
    ASSERT_EQ(calendar->DecodeDate(day - JulianDayOfDateTime0),
              (TDateParts{testing::Word(theirs.Year), testing::Word(theirs.Month), testing::Word(theirs.Day)}));
  }
  EXPECT_EQ(days, 3543312);
}

}  // namespace
}  // namespace orv
