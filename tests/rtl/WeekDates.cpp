#include "rtl/WeekDates.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "rtl/Exceptions.h"

namespace rtl {
namespace {

constexpr std::int32_t UnixDay = 719163;  // 1 January 1970

TDateTime Day(std::uint16_t year, std::uint16_t month, std::uint16_t day) {
  return EncodeDate({year, month, day});
}

// The C library's week rules as the outside oracle.
struct TOracle {
  int Year, Week, DayOfWeek;
};
TOracle FromCLibrary(std::int32_t dayNumber) {
  const std::time_t seconds = static_cast<std::time_t>(dayNumber - UnixDay) * 86400;
  std::tm parts = {};
  gmtime_r(&seconds, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%G %V %u", &parts);
  TOracle oracle = {};
  std::sscanf(text, "%d %d %d", &oracle.Year, &oracle.Week, &oracle.DayOfWeek);
  return oracle;
}

TEST(WeekDates, EveryDayFrom1600To2400AgreesWithTheCLibraryAndEncodesBack) {
  const std::int32_t last = DayNumberOf(Day(2400, 12, 31));
  for (std::int32_t day = DayNumberOf(Day(1600, 1, 1)); day <= last; ++day) {
    const TDateTime value = day - DateDelta;
    const TOracle oracle = FromCLibrary(day);
    const TYearWeek week = DecodeDateWeek(value);
    ASSERT_EQ(week.Year, oracle.Year) << day;
    ASSERT_EQ(week.Week, oracle.Week) << day;
    ASSERT_EQ(week.DayOfWeek, oracle.DayOfWeek) << day;
    ASSERT_EQ(DayOfTheWeek(value), oracle.DayOfWeek);
    ASSERT_EQ(TryEncodeDateWeek(week), value) << day;
    ASSERT_EQ(TryEncodeDateMonthWeek(DecodeDateMonthWeek(value)), value) << day;
    ASSERT_EQ(TryEncodeDayOfWeekInMonth(DecodeDayOfWeekInMonth(value)), value) << day;
    ASSERT_EQ(StartOfTheWeek(JoinDateAndTime(value, 0.5)), value - oracle.DayOfWeek + 1);
  }
}

TEST(WeekDates, AYearHasAsManyWeeksAsItsLast28DecemberSays) {
  for (std::uint16_t year = 1; year <= 9999; ++year)
    ASSERT_EQ(WeeksInAYear(year), DecodeDateWeek(Day(year, 12, 28)).Week) << year;
  EXPECT_THROW(WeeksInAYear(0), EConvertError);
  EXPECT_THROW(WeeksInAYear(10000), EConvertError);
}

TEST(WeekDates, AMonthWeekBelongsToTheMonthOfItsThursday) {
  // 1 March 2025 is a Saturday: the last week of February.
  EXPECT_EQ(DecodeDateMonthWeek(Day(2025, 3, 1)), (TMonthWeek{2025, 2, 4, 6}));
  EXPECT_EQ(DecodeDateMonthWeek(Day(2025, 3, 3)), (TMonthWeek{2025, 3, 1, 1}));
  // 30 December 2024 is a Monday whose Thursday is 2 January.
  EXPECT_EQ(DecodeDateMonthWeek(Day(2024, 12, 30)), (TMonthWeek{2025, 1, 1, 1}));
}

TEST(WeekDates, RefusedPartsFormNoDate) {
  EXPECT_FALSE(IsValidDateWeek({2025, 0, 1}));
  EXPECT_FALSE(IsValidDateWeek({2025, 53, 1}));
  EXPECT_TRUE(IsValidDateWeek({2026, 53, 1}));
  EXPECT_FALSE(IsValidDateWeek({2025, 1, 0}));
  EXPECT_FALSE(IsValidDateWeek({2025, 1, 8}));
  EXPECT_FALSE(IsValidDateWeek({0, 1, 1}));
  EXPECT_FALSE(TryEncodeDateWeek({65535, 1, 1}));
  EXPECT_FALSE(IsValidDateMonthWeek({2025, 13, 1, 1}));
  EXPECT_FALSE(IsValidDateMonthWeek({2025, 1, 6, 1}));
  EXPECT_FALSE(TryEncodeDateMonthWeek({2025, 0, 1, 1}));
  EXPECT_FALSE(TryEncodeDayOfWeekInMonth({2025, 3, 6, 1}));
  EXPECT_THROW(TryEncodeDayOfWeekInMonth({2025, 13, 1, 1}), EConvertError);
  EXPECT_THROW(TryEncodeDayOfWeekInMonth({65535, 65535, 65535, 65535}), EConvertError);
}

TEST(WeekDates, BeforeYear1EverythingIsZero) {
  const TDateTime before = -DateDelta;
  EXPECT_EQ(DecodeDateWeek(before), TYearWeek());
  EXPECT_EQ(DecodeDateMonthWeek(before), TMonthWeek());
  EXPECT_EQ(DecodeDayOfWeekInMonth(before), TNthWeekDay());
}

TEST(MonthSteps, TheYearStepsAndTheDayIsCut) {
  EXPECT_EQ(IncMonth(Day(2025, 1, 31)), Day(2025, 2, 28));
  EXPECT_EQ(IncMonth(Day(2023, 12, 31), 2), Day(2024, 2, 29));
  EXPECT_EQ(IncMonth(Day(2025, 3, 15), -3), Day(2024, 12, 15));
  EXPECT_EQ(IncMonth(Day(2025, 3, 15), -15), Day(2023, 12, 15));
  EXPECT_EQ(IncYear(Day(2024, 2, 29)), Day(2025, 2, 28));
  EXPECT_EQ(IncYear(Day(2024, 2, 29), 4), Day(2028, 2, 29));
}

TEST(MonthSteps, TheTimeOfDayIsKeptOnBothSidesOfTheCountsStart) {
  EXPECT_EQ(IncMonth(Day(2025, 1, 31) + 0.75), Day(2025, 2, 28) + 0.75);
  EXPECT_EQ(IncMonth(-32.25), -2.25);  // 28 November 1899, 06:00 and one month
}

TEST(MonthSteps, YearsAreWordsThatWrap) {
  EXPECT_EQ(IncYear(Day(2025, 1, 1), 2147483647), Day(2024, 1, 1));
  EXPECT_EQ(IncYear(Day(2025, 1, 1), -2147483647 - 1), Day(2025, 1, 1));
}

TEST(MonthSteps, WhatLeavesTheRangeRaises) {
  EXPECT_THROW(IncMonth(Day(9999, 12, 1)), EConvertError);
  EXPECT_THROW(IncMonth(Day(1, 1, 1), -1), EConvertError);
  EXPECT_THROW(IncYear(Day(2025, 1, 1), 9999), EConvertError);
  EXPECT_THROW(IncYear(Day(2025, 1, 1), -2147483647 + 60000), EConvertError);
  EXPECT_THROW(IncMonth(-1e300), EConvertError);
}

}  // namespace
}  // namespace rtl
