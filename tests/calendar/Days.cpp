// The day arithmetic against its own laws and against dates that history fixes.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <set>

#include "calendar/Date.Years.h"
#include "calendar/Date.h"
#include "calendar/DateGlobal.h"
#include "rtl/DateTime.h"
#include "rtl/Exceptions.h"

namespace orv {
namespace {

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

TEST(Days, TheFirstDayOfTheIslamicCalendarIs1948440) {
  EXPECT_EQ(DMYToDay(1, 1, 1, ckIslamic), 1948440);
}

TEST(Days, Day2460756IsTheFirstOfFarvardin1404) {
  EXPECT_EQ(DayToDMY(2460756, ckJalali), (TDayMonthYear{1, 1, 1404}));
}

TEST(Days, TheGregorianKindAndTheDateLibraryAgreeOnEveryDay) {
  EXPECT_EQ(DMYToDay(30, 12, 1899, ckGregorian), 2415019);
  for (std::int32_t day = 1; day <= 3652059; ++day) {
    const rtl::TDateParts date = rtl::DecodeDate(day - rtl::DateDelta);
    ASSERT_EQ(DMYToDay(date.Day, date.Month, date.Year, ckGregorian), day + 1721425);
  }
}

TEST(Days, DatesThatHistoryFixes) {
  EXPECT_EQ(DMYToDay(4, 10, 1582, ckJulian) + 1, DMYToDay(15, 10, 1582, ckGregorian));
  EXPECT_EQ(DMYToDay(1, 1, -4712, ckJulian), 0);
  EXPECT_EQ(DMYToDay(1, 1, 5785, ckHebrew), DMYToDay(3, 10, 2024, ckGregorian));
  EXPECT_EQ(DMYToDay(5, 9, 5708, ckHebrew), DMYToDay(14, 5, 1948, ckGregorian));  // 5 Iyar
  EXPECT_EQ(DMYToDay(1, 1, 1, ckThirtyDays), DMYToDay(22, 9, 1792, ckGregorian));
  EXPECT_EQ(DMYToDay(9, 11, 2, ckThirtyDays), DMYToDay(27, 7, 1794, ckGregorian));  // 9 Thermidor
  EXPECT_EQ(DMYToDay(22, 11, 1357, ckJalali), DMYToDay(11, 2, 1979, ckGregorian));
  EXPECT_EQ(DMYToDay(1, 1, 1446, ckIslamic), DMYToDay(8, 7, 2024, ckGregorian));
}

struct TRange {
  std::int32_t Kind;
  std::int32_t FirstYear;
  std::int32_t LastYear;
};
constexpr TRange Ranges[] = {{ckGregorian, -3000, 6000}, {ckJulian, -3000, 6000},    {ckHebrew, -500, 8000},
                             {ckIslamic, -3000, 6000},   {ckThirtyDays, -500, 3000}, {ckJalali, -1096, 2326}};

// A walk by the year records, one day at a time, is what both directions must agree with.
TEST(Days, BothDirectionsAreInverseOnEveryDay) {
  for (const auto& [kind, firstYear, lastYear] : Ranges) {
    std::int32_t day = DMYToDay(1, 1, firstYear, kind);
    for (std::int32_t year = firstYear; year <= lastYear; ++year) {
      const TYearRecord record = *YearRecord(year, kind);
      ASSERT_EQ(record.First, day);
      for (std::int32_t month = 1; month <= MonthsInRecord; ++month) {
        for (std::int32_t d = 1; d <= record.Months[static_cast<std::size_t>(month) - 1]; ++d, ++day) {
          ASSERT_EQ(DMYToDay(d, month, year, kind), day) << kind;
          ASSERT_EQ(DayToDMY(day, kind), (TDayMonthYear{d, month, year})) << kind;
        }
      }
      ASSERT_EQ(record.NextFirst, day) << kind << " " << year;
    }
  }
}

TEST(Days, YearsHaveTheLengthsOfTheirCalendar) {
  const std::set<std::int64_t> lengths[] = {{365, 366}, {365, 366}, {353, 354, 355, 383, 384, 385},
                                            {354, 355}, {365, 366}, {365, 366}};
  for (const auto& [kind, firstYear, lastYear] : Ranges) {
    std::set<std::int64_t> seen;
    for (std::int32_t year = firstYear; year <= lastYear; ++year) {
      const TYearRecord record = *YearRecord(year, kind);
      seen.insert(record.NextFirst - record.First);
    }
    EXPECT_EQ(seen, lengths[kind]) << kind;
  }
}

TEST(Days, TheIslamicFirstDayIsTheSumOfCyclesYearsAndLeapDays) {
  for (std::int32_t year = -5000; year <= 10000; ++year) {
    const std::int32_t r = PosMod(year, 30);
    const std::int32_t q = (year - r) / 30;
    ASSERT_EQ(DMYToDay(1, 1, year, ckIslamic), q * 10631 + r * 354 + 1948086 + (r * 11 + 3) / 30);
  }
}

// The formula of the year boundaries, written out row by row.
std::int32_t JalaliByFormula(std::int32_t year) {
  constexpr std::int32_t bounds[] = {-708, -221, -3, 6, 394, 720, 786, 1145, 1635, 1701, 1866, 2328};
  constexpr std::int32_t offsets[] = {1108, 1047, 984, 1249, 952, 891, 930, 866, 869, 844, 848, 852};
  if (year < -1096) return -1;
  for (int k = 0; k < 12; ++k)
    if (year < bounds[k]) return 365 * year + (offsets[k] + 303 * year) / 1250 + 1947954 - (k < 3 ? 1 : 0);
  return -1;
}

TEST(Days, TheJalaliTableIsTheFormula) {
  for (std::int32_t year = -70000; year <= 70000; ++year) ASSERT_EQ(JalaliJD0(year), JalaliByFormula(year)) << year;
  EXPECT_EQ(JalaliJD0(Least), -1);
  EXPECT_EQ(JalaliJD0(Most), -1);
  EXPECT_EQ(JalaliJD0(1), 1948320);
  EXPECT_EQ(JalaliJD0(1403), 2460389);
  EXPECT_EQ(JalaliJD0(1404), 2460755);
}

TEST(Days, JalaliLeapYearsFrom1383On) {
  std::set<std::int32_t> leap;
  for (std::int32_t year = 1383; year <= 1416; ++year)
    if (JalaliJD0(year + 1) - JalaliJD0(year) == 366) leap.insert(year);
  EXPECT_EQ(leap, (std::set<std::int32_t>{1383, 1387, 1391, 1395, 1399, 1403, 1408, 1412, 1416}));
}

TEST(Days, ADayIsNotCheckedAndAMonthHardly) {
  EXPECT_EQ(DMYToDay(40, 1, 1404, ckJalali), DMYToDay(9, 2, 1404, ckJalali));
  EXPECT_EQ(DMYToDay(0, 1, 1404, ckJalali), 2460755);
  EXPECT_EQ(DMYToDay(-5, 1, 2000, ckGregorian), DMYToDay(26, 12, 1999, ckGregorian));
  EXPECT_EQ(DMYToDay(1, 13, 1404, ckJalali), DMYToDay(1, 1, 1405, ckJalali));
  EXPECT_EQ(DMYToDay(1, 14, 1404, ckJalali), DMYToDay(1, 1, 1405, ckJalali));
  EXPECT_EQ(DMYToDay(1, 14, 5784, ckHebrew), DMYToDay(1, 1, 5785, ckHebrew));
  for (const std::int32_t month : {0, 15, -1, Least, Most}) EXPECT_EQ(DMYToDay(1, month, 1404, ckJalali), 0);
}

TEST(Days, WhatCannotBeReckonedAnswersItsMark) {
  EXPECT_EQ(DMYToDay(1, 1, -1097, ckJalali), 0);
  EXPECT_EQ(DMYToDay(1, 1, 2328, ckJalali), 0);
  EXPECT_EQ(DayToDMY(JalaliJD0(-1096), ckJalali).Day, -1);
  EXPECT_EQ(DayToDMY(JalaliJD0(2327) + 1, ckJalali).Day, -1);
  EXPECT_EQ(DayToDMY(JalaliJD0(2327), ckJalali), (TDayMonthYear{29, 12, 2326}));
  for (const std::int32_t kind : {-1, 7, Least, Most}) {
    EXPECT_EQ(DMYToDay(1, 1, 1404, kind), 0);
    EXPECT_EQ(DayToDMY(2460756, kind).Day, -1);
  }
}

TEST(Days, TheEndsOfTheNumbersAreReachedAndSafe) {
  for (std::int32_t kind = ckGregorian; kind <= ckIslamic; ++kind) {
    for (const std::int32_t day : {Least, Least + 1, -1, 0, 1, Most - 1, Most}) {
      const TDayMonthYear date = DayToDMY(day, kind);
      EXPECT_EQ(DMYToDay(date.Day, date.Month, date.Year, kind), day) << kind;
    }
  }
  for (std::int32_t kind = ckGregorian; kind <= ckLunisolar; ++kind) {
    for (const std::int32_t year : {Least, Most}) {
      EXPECT_EQ(DMYToDay(Most, 14, year, kind), 0) << kind;
      EXPECT_EQ(DMYToDay(Least, 1, year, kind), 0) << kind;
    }
    EXPECT_EQ(DMYToDay(Most, 1, 1404, kind), 0) << kind;
    DayToDMY(Most, kind);
    DayToDMY(Least, kind);
  }
}

class LunisolarDays : public testing::Test {
 protected:
  ~LunisolarDays() override { SetChineseCalendarData({}); }

  // A table of years from 4000 on: the months of 30 days by bits, the intercalary month, the offset of the first day.
  struct TEntry {
    std::uint32_t LongMonths;
    std::uint32_t Intercalary;
    std::uint32_t Offset;
  };
  static void Set(std::initializer_list<TEntry> entries) {
    std::u16string data = {static_cast<char16_t>(entries.size()), u'\0', 4000, u'\0'};
    for (const TEntry& entry : entries) {
      const std::uint32_t value = entry.LongMonths | (entry.Offset * 14 + entry.Intercalary) << 13;
      data += {static_cast<char16_t>(value & 0xFFFF), static_cast<char16_t>(value >> 16), u'\0'};
    }
    SetChineseCalendarData(data);
  }
};

TEST_F(LunisolarDays, WithoutATableNoYearIsKnown) {
  EXPECT_EQ(DMYToDay(1, 1, 4000, ckLunisolar), 0);
  EXPECT_EQ(DayToDMY(2218862, ckLunisolar).Day, -1);
}

TEST_F(LunisolarDays, TheTableGivesLengthsIntercalaryMonthAndFirstDay) {
  // 4000 has 12 months, 7 of them long: 355 days. 4001 has 13, 6 of them long: 383 days.
  Set({{0b0000010101111111 & 0x1FFF, 0, 10}, {0b0000000000111111, 4, 0}});
  const std::int32_t first = 4000 * 365 + 1000 + 757862 + 10;
  const std::int32_t longMonths = 9;  // bits 0 to 6, 8 and 10
  EXPECT_EQ(DMYToDay(1, 1, 4000, ckLunisolar), first);
  EXPECT_EQ(GetChineseIntercalaryMonth(), 0);
  EXPECT_EQ(DMYToDay(1, 13, 4000, ckLunisolar), first + 12 * 29 + longMonths);
  EXPECT_EQ(DMYToDay(1, 14, 4000, ckLunisolar), first + 12 * 29 + longMonths);
  EXPECT_EQ(DMYToDay(1, 1, 4001, ckLunisolar), 4001 * 365 + 1000 + 757862);
  EXPECT_EQ(GetChineseIntercalaryMonth(), 5);
  EXPECT_EQ(DMYToDay(1, 14, 4001, ckLunisolar), DMYToDay(1, 1, 4001, ckLunisolar) + 13 * 29 + 6);
  EXPECT_EQ(DMYToDay(1, 1, 3999, ckLunisolar), 0);
  EXPECT_EQ(DMYToDay(1, 1, 4002, ckLunisolar), 0);
}

TEST_F(LunisolarDays, TheYearEstimateMustFallInsideTheTable) {
  // 365 days too few for each year: the estimate of a day is up to three years late, so only a table that goes on
  // behind a year finds its days.
  Set({{0x3F, 0, 0}, {0x3F, 0, 0}, {0x3F, 0, 0}, {0x3F, 0, 0}, {0x3F, 0, 0}});
  const std::int32_t first = DMYToDay(1, 1, 4000, ckLunisolar);
  EXPECT_EQ(DayToDMY(first, ckLunisolar), (TDayMonthYear{1, 1, 4000}));
  EXPECT_EQ(DayToDMY(first + 30, ckLunisolar), (TDayMonthYear{1, 2, 4000}));
  EXPECT_EQ(DayToDMY(DMYToDay(1, 1, 4004, ckLunisolar), ckLunisolar).Day, -1);
}

TEST_F(LunisolarDays, ADayBetweenTheYearsOfACrookedTableIsInNoYear) {
  Set({{0, 0, 0}, {0, 0, 140}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
  EXPECT_EQ(DayToDMY(DMYToDay(1, 1, 4001, ckLunisolar) - 1, ckLunisolar).Day, -1);
}

TEST_F(LunisolarDays, ATableShorterThanItSaysIsReadAsZeros) {
  SetChineseCalendarData(std::u16string{u'\xFFFF', u'\0', 4000});
  EXPECT_EQ(DMYToDay(1, 1, 4500, ckLunisolar), 4500 * 365 + 1125 + 757862);
  SetChineseCalendarData(std::u16string{u'\x0001'});
  EXPECT_NE(DMYToDay(1, 1, 0, ckLunisolar), 0);
}

TEST(SetMonthName, ReplacesOneEntryAndAnswersIt) {
  EXPECT_EQ(SetMonthName(1), u"Jan");
  EXPECT_EQ(SetMonthName(12, u"last"), u"last");
  EXPECT_EQ(SetMonthName(12), u"last");
  EXPECT_EQ(SetMonthName(12, u"Dec"), u"Dec");
  EXPECT_EQ(SetMonthName(0, u"x"), u"");
  EXPECT_EQ(SetMonthName(13), u"");
}

TEST(CopyQuotedStr, TakesTheTextUpToTheNextLikeQuote) {
  EXPECT_EQ(CopyQuotedStr(u"a'b\"c'd", 2).Text, u"b\"c");
  EXPECT_EQ(CopyQuotedStr(u"a'b\"c'd", 2).Next, 6);
  EXPECT_EQ(CopyQuotedStr(u"''", 1).Text, u"");
  EXPECT_EQ(CopyQuotedStr(u"''", 1).Next, 2);
}

TEST(CopyQuotedStr, AnUnmatchedQuoteHoldsNothing) {
  EXPECT_EQ(CopyQuotedStr(u"a'b", 2).Text, u"");
  EXPECT_EQ(CopyQuotedStr(u"a'b", 2).Next, 3);
  EXPECT_EQ(CopyQuotedStr(u"'", 1).Text, u"");
}

TEST(CopyQuotedStr, ADoubledQuoteRaisesInsteadOfSearchingForEver) {
  EXPECT_THROW(CopyQuotedStr(u"'it''s'", 1), rtl::EConvertError);
  EXPECT_THROW(CopyQuotedStr(u"'''", 1), rtl::EConvertError);
}

TEST(PosMod, HasTheSignOfTheDivisor) {
  EXPECT_EQ(PosMod(-1, 7), 6);
  EXPECT_EQ(PosMod(8, 7), 1);
  EXPECT_EQ(PosMod(-14, 7), 0);
  EXPECT_EQ(PosMod(1, -7), -6);
  EXPECT_EQ(PosMod(5, 0), 0);
  EXPECT_EQ(PosMod(Least, -1), 0);
}

TEST(ConvertErrorFmt, PutsTheArgumentsIn) {
  try {
    ConvertErrorFmt("%d of %s", {3, u"فارسی"});
  } catch (const rtl::EConvertError& error) {
    EXPECT_STREQ(error.what(), "3 of فارسی");
    return;
  }
  FAIL();
}

}  // namespace
}  // namespace orv
