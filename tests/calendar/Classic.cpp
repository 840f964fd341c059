// The classic units where they differ from the calculators, and where they must not.
#include "calendar/classic/IDateTime.h"

#include <gtest/gtest.h>

#include <random>

#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "rtl/Clock.h"
#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"
#include "rtl/WeekDates.h"

namespace orv {
namespace {

using W = std::uint16_t;
using rtl::EConvertError;

constexpr W Saturday = 1, Friday = 7;

TDateTime Persian(W year, W month, W day) {
  return PDateTime::EncodeDate({year, month, day});
}
TDateTime Arabic(W year, W month, W day) {
  return ADateTime::EncodeDate({year, month, day});
}

// --- The week ---

TEST(ClassicWeek, DaysCountFromSaturday) {
  EXPECT_EQ(PDateTime::DayOfTheWeek(Persian(1404, 1, 1)), Friday);
  EXPECT_EQ(PDateTime::DayOfTheWeek(Persian(1404, 1, 2)), Saturday);
  EXPECT_EQ(ADateTime::DayOfTheWeek(Persian(1404, 1, 2)), Saturday);
  EXPECT_EQ(PDateTime::DayOfWeek(Persian(1404, 1, 2)), Saturday);
  for (int day = -1000; day <= 1000; ++day)
    ASSERT_EQ(PDateTime::DayOfTheWeek(day + 1) % 7, (PDateTime::DayOfTheWeek(day) + 1) % 7);
}

TEST(ClassicWeek, BeginsOnSaturdayAndEndsOnFriday) {
  for (int day = -500; day <= 500; ++day) {
    const TDateTime value = rtl::JoinDateAndTime(day, 0.75);
    const TDateTime start = PDateTime::StartOfTheWeek(value);
    ASSERT_EQ(PDateTime::DayOfTheWeek(start), Saturday);
    ASSERT_EQ(start, day - PDateTime::DayOfTheWeek(value) + 1);
    ASSERT_EQ(PDateTime::EndOfTheWeek(value), rtl::EndOfTheDay(start + 6));
    ASSERT_EQ(ADateTime::StartOfTheWeek(value), start);
  }
}

// Weeks of a year counted by hand: a new one on every Saturday but the first day.
template <typename TUnit>
void ExpectWeeksCounted(W firstYear, W lastYear) {
  for (W year = firstYear; year <= lastYear; ++year) {
    W week = 1;
    const W days = TUnit::DaysInAYear(year);
    const TDateTime first = TUnit::StartOfAYear(year);
    for (W day = 1; day <= days; ++day) {
      const TDateTime value = first + day - 1;
      const W weekDay = TUnit::DayOfTheWeek(value);
      if (day > 1 && weekDay == Saturday) ++week;
      ASSERT_EQ(TUnit::DecodeDateWeek(value), (TYearWeek{year, week, weekDay})) << year << " day " << day;
    }
  }
}

TEST(ClassicWeek, EveryDayOfManyYearsLiesInTheWeekCountedByHand) {
  ExpectWeeksCounted<PDateTime>(1, 2300);
  ExpectWeeksCounted<ADateTime>(1, 2000);
}

template <typename TUnit>
void ExpectMonthWeeksCounted(W firstYear, W lastYear) {
  for (W year = firstYear; year <= lastYear; ++year)
    for (W month = 1; month <= 12; ++month) {
      W week = 1;
      const TDateTime first = TUnit::StartOfAMonth(year, month);
      for (W day = 1; day <= TUnit::DaysInAMonth(year, month); ++day) {
        const TDateTime value = first + day - 1;
        const W weekDay = TUnit::DayOfTheWeek(value);
        if (day > 1 && weekDay == Saturday) ++week;
        const TMonthWeek expected = {year, month, week, weekDay};
        ASSERT_EQ(TUnit::DecodeDateMonthWeek(value), expected);
        ASSERT_TRUE(TUnit::IsValidDateMonthWeek(expected));
        ASSERT_EQ(TUnit::TryEncodeDateMonthWeek(expected), value);
      }
    }
}

TEST(ClassicWeek, EveryDayLiesInTheWeekOfItsMonthCountedByHandAndEncodesBack) {
  ExpectMonthWeeksCounted<PDateTime>(1200, 1500);
  ExpectMonthWeeksCounted<ADateTime>(1300, 1500);
}

TEST(ClassicWeek, AYearHas53WeeksWhenItBeginsOnTuesdayOrOnMondayInALeapYear) {
  int long52 = 0, long53 = 0;
  for (W year = 1; year <= 2300; ++year) {
    const W first = PDateTime::DayOfTheWeek(PDateTime::StartOfAYear(year));
    const bool is53 = first == 4 || (first == 3 && PDateTime::IsLeapYear(year));
    ASSERT_EQ(PDateTime::WeeksInAYear(year), is53 ? 53 : 52) << year;
    ++(is53 ? long53 : long52);
  }
  EXPECT_GT(long53, 300);
  EXPECT_GT(long52, 1500);
  EXPECT_EQ(ADateTime::WeeksInAYear(1364), 52);  // no year has the 51 of the calculator
}

TEST(ClassicWeek, EncodingGivesTheDayBackInEveryWeekThatTheYearIsSaidToHave) {
  for (W year = 1200; year <= 1500; ++year) {
    const W weeks = PDateTime::WeeksInAYear(year);
    const TDateTime first = PDateTime::StartOfAYear(year);
    for (W day = 0; day < PDateTime::DaysInAYear(year); ++day) {
      const TYearWeek week = PDateTime::DecodeDateWeek(first + day);
      if (week.Week < weeks) {
        ASSERT_EQ(PDateTime::TryEncodeDateWeek(week), first + day) << year << " " << day;
      } else if (week.Week > weeks) {
        ASSERT_FALSE(PDateTime::TryEncodeDateWeek(week));
      }
    }
  }
}

TEST(ClassicWeek, DaysBeforeTheFirstAndBehindTheLastAreNotValid) {
  // 1404 begins on a Friday and ends on one; 1403 begins on a Wednesday.
  EXPECT_TRUE(PDateTime::IsValidDateWeek({1404, 1, Friday}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1404, 1, 6}));
  EXPECT_TRUE(PDateTime::IsValidDateWeek({1403, 1, 5}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 1, 4}));
  // 1403 ends on a Thursday, so its last week has no Friday.
  EXPECT_TRUE(PDateTime::IsValidDateWeek({1403, 52, 6}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 52, 7}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 53, 1}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 0, 5}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 10, 0}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({1403, 10, 8}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({0, 10, 1}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({10000, 10, 1}));
  // Shahrivar 1403 begins on a Thursday and ends on a Saturday, in its sixth week.
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({1403, 6, 1, 5}));
  EXPECT_TRUE(PDateTime::IsValidDateMonthWeek({1403, 6, 1, 6}));
  EXPECT_TRUE(PDateTime::IsValidDateMonthWeek({1403, 6, 6, Saturday}));
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({1403, 6, 6, 2}));
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({1403, 13, 1, 1}));
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({1403, 0, 1, 1}));
}

// Behind the last year that can be encoded, a check answers as far as it needs no day of the year.
TEST(ClassicWeek, ChecksOfFarYearsRaiseOnlyWhereAWeekIsLookedFor) {
  EXPECT_THROW(PDateTime::WeeksInAYear(2481), EConvertError);
  EXPECT_THROW(PDateTime::IsValidDateWeek({2481, 16, 1}), EConvertError);
  EXPECT_THROW(PDateTime::IsValidDateWeek({2400, 1, 9}), EConvertError);
  EXPECT_THROW(PDateTime::TryEncodeDateWeek({9999, 53, 1}), EConvertError);
  EXPECT_FALSE(PDateTime::IsValidDateWeek({2400, 0, 1}));
  EXPECT_FALSE(PDateTime::TryEncodeDateWeek({2400, 0, 1}));
  EXPECT_FALSE(PDateTime::IsValidDateWeek({10000, 1, 1}));
  EXPECT_THROW(PDateTime::EncodeDateWeek({2400, 0, 1}), EConvertError);
  EXPECT_THROW(PDateTime::IsValidDateMonthWeek({9999, 7, 1, 4}), EConvertError);
  EXPECT_THROW(PDateTime::IsValidDateMonthWeek({2400, 12, 1, 1}), EInvalidDateOperation);  // the length of Esfand
  EXPECT_THROW(PDateTime::TryEncodeDateMonthWeek({2400, 12, 1, 1}), EInvalidDateOperation);
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({9999, 7, 0, 4}));
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({2400, 12, 0, 1}));
  EXPECT_FALSE(PDateTime::IsValidDateMonthWeek({2400, 13, 1, 1}));
  EXPECT_FALSE(PDateTime::TryEncodeDateMonthWeek({2400, 12, 0, 1}));
}

TEST(ClassicWeek, RefusedWeeksRaiseWhereTheFormDoesNotTry) {
  EXPECT_THROW(PDateTime::EncodeDateWeek({1404, 1, 1}), EConvertError);
  EXPECT_THROW(PDateTime::EncodeDateMonthWeek({1404, 1, 1, 1}), EConvertError);
  EXPECT_THROW(PDateTime::StartOfAWeek({1404, 54, 1}), EConvertError);
  EXPECT_EQ(PDateTime::StartOfAWeek({1404, 2, 3}), Persian(1404, 1, 4));
  EXPECT_EQ(PDateTime::EndOfAWeek({1404, 2, 3}), rtl::EndOfTheDay(Persian(1404, 1, 4)));
}

TEST(ClassicWeek, TheNthDayOfTheWeekInAMonth) {
  for (W month = 1; month <= 12; ++month)
    for (W day = 1; day <= PDateTime::DaysInAMonth(1404, month); ++day) {
      const TDateTime value = Persian(1404, month, day);
      const TNthWeekDay nth = PDateTime::DecodeDayOfWeekInMonth(value);
      ASSERT_EQ(nth.DayOfWeek, PDateTime::DayOfTheWeek(value));
      ASSERT_EQ(nth.Nth, (day - 1) / 7 + 1);
      ASSERT_EQ(PDateTime::EncodeDayOfWeekInMonth(nth), value);
    }
  // Beyond the month the Persian day counts on; the Islamic one does within its year.
  EXPECT_EQ(PDateTime::TryEncodeDayOfWeekInMonth({1404, 1, 6, Friday}), Persian(1404, 2, 5));
  EXPECT_THROW(ADateTime::TryEncodeDayOfWeekInMonth({0, 1, 1, 1}), EConvertError);
  EXPECT_THROW(ADateTime::EncodeDayOfWeekInMonth({1446, 12, 9, 1}), EConvertError);
}

TEST(ClassicWeek, TimeCountsFromSaturdayMidnight) {
  const TDateTime value = Persian(1404, 1, 4) + rtl::EncodeTime({5, 6, 7, 8});  // a Monday
  EXPECT_EQ(PDateTime::HourOfTheWeek(value), 2 * 24 + 5);
  EXPECT_EQ(PDateTime::MinuteOfTheWeek(value), (2 * 24 + 5) * 60 + 6);
  EXPECT_EQ(PDateTime::SecondOfTheWeek(value), ((2 * 24 + 5) * 60 + 6) * 60u + 7);
  EXPECT_EQ(PDateTime::MilliSecondOfTheWeek(value), (((2 * 24 + 5) * 60 + 6) * 60 + 7) * 1000 + 8);
  EXPECT_EQ(ADateTime::HourOfTheWeek(value), 2 * 24 + 5);
}

TEST(ClassicWeek, DaysCompareByNumberMomentOrDate) {
  const TDateTime friday = Persian(1404, 1, 1);
  EXPECT_TRUE(PDateTime::SameDayOfWeek(friday, Friday));
  EXPECT_FALSE(PDateTime::SameDayOfWeek(friday, Saturday));
  EXPECT_TRUE(PDateTime::SameDayOfWeek(friday, friday + 7.5));
  EXPECT_TRUE(PDateTime::SameDayOfWeek(friday, TDateParts{1404, 1, 8}));
}

// --- Checks and encoding ---

TEST(ClassicDates, YearsOneTo9999AreValid) {
  EXPECT_FALSE(PDateTime::IsValidDate({0, 1, 1}));
  EXPECT_TRUE(PDateTime::IsValidDate({1, 1, 1}));
  EXPECT_TRUE(PDateTime::IsValidDate({9999, 1, 1}));
  EXPECT_FALSE(PDateTime::IsValidDate({10000, 1, 1}));
  EXPECT_TRUE(PDateTime::IsValidDate({1403, 12, 30}));
  EXPECT_FALSE(PDateTime::IsValidDate({1404, 12, 30}));
  EXPECT_FALSE(ADateTime::IsValidDate({1446, 2, 30}));
  EXPECT_TRUE(ADateTime::IsYearValid(9999));
  EXPECT_FALSE(ADateTime::IsYearValid(10000));
}

TEST(ClassicDates, PersianEncodingChecksTheYearAlone) {
  EXPECT_EQ(Persian(1404, 12, 30), Persian(1405, 1, 1));
  EXPECT_EQ(Persian(1404, 1, 40), Persian(1404, 2, 9));
  EXPECT_EQ(PDateTime::TryEncodeDateDay(1494, 367), Persian(1495, 1, 1));  // 1494 has 366
  EXPECT_FALSE(PDateTime::TryEncodeDate({2328, 1, 1}));
  EXPECT_THROW(Persian(2328, 1, 1), EConvertError);
}

TEST(ClassicDates, IslamicEncodingCountsOnWithinTheYear) {
  EXPECT_EQ(Arabic(1446, 2, 30), Arabic(1446, 3, 1));
  EXPECT_EQ(Arabic(1446, 1, 354), Arabic(1446, 12, 29));
  EXPECT_FALSE(ADateTime::TryEncodeDate({1446, 12, 30}));  // the year has 354 days
  EXPECT_FALSE(ADateTime::TryEncodeDate({1446, 13, 1}));
  EXPECT_FALSE(ADateTime::TryEncodeDateDay(1446, 0));
  EXPECT_FALSE(ADateTime::TryEncodeDateDay(10000, 1));
  EXPECT_THROW(ADateTime::EncodeDateDay(1446, 356), EConvertError);
  // The calculator refuses what the unit counts on.
  EXPECT_FALSE(MakeCalendar<TOrvHijriLunarDateCalendarCalc>()->TryEncodeDate({1446, 2, 30}));
}

TEST(ClassicDates, AYearTheFormulaDoesNotReachRaises) {
  EXPECT_EQ(PDateTime::DaysInAYear(2327), 20174);
  try {
    PDateTime::DaysInAYear(2328);
    FAIL() << "nothing was raised";
  } catch (const EInvalidDateOperation& error) {
    EXPECT_STREQ(error.what(), "The 2328 date must be in the range of -1096, 2327");
  }
}

// --- Steps and spans ---

TEST(ClassicSteps, PersianMonthsDoNotStepTheYearAtTheEndOfIt) {
  TDateParts date = {1404, 12, 10};
  PDateTime::IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{1404, 1, 10}));
  date = {1404, 6, 31};
  PDateTime::IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{1404, 7, 30}));
}

TEST(ClassicSteps, IslamicMonthsStepTheYear) {
  TDateParts date = {1446, 12, 29};
  ADateTime::IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{1447, 1, 29}));
  date = {1446, 1, 30};
  ADateTime::IncAMonth(date, -1);
  EXPECT_EQ(date, (TDateParts{1445, 12, 30}));  // 1445 is a leap year
  date = {1447, 1, 30};
  ADateTime::IncAMonth(date, -1);
  EXPECT_EQ(date, (TDateParts{1446, 12, 29}));
  date = {1446, 1, 30};
  ADateTime::IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{1446, 2, 29}));
  date = {1446, 3, 1};
  ADateTime::IncAMonth(date, -27);
  EXPECT_EQ(date, (TDateParts{1443, 12, 1}));
  EXPECT_EQ(ADateTime::IncMonth(Arabic(1446, 12, 1) + 0.25), Arabic(1447, 1, 1) + 0.25);
}

TEST(ClassicSteps, YearsAndDays) {
  TDateParts date = {1403, 12, 30};
  PDateTime::IncAYear(date, 1);
  EXPECT_EQ(date, (TDateParts{1404, 12, 29}));
  PDateTime::IncADay(date, 2);
  EXPECT_EQ(date, (TDateParts{1405, 1, 2}));
  TYearDay day = {1404, 365};
  PDateTime::IncADay(day, 1);
  EXPECT_EQ(day, (TYearDay{1405, 1}));
}

TEST(ClassicSpans, AMonthIsThatOfThePlatform) {
  const TDateTime a = 1000, b = a + 61;
  EXPECT_EQ(PDateTime::MonthSpan(a, b), 2);
  EXPECT_EQ(ADateTime::MonthSpan(a, b - 1), 1);  // 60 days: two months of 29.5 for the calculator
  EXPECT_EQ(MakeCalendar<TOrvHijriLunarDateCalendarCalc>()->MonthSpan(a, b - 1), 2);
  EXPECT_EQ(ADateTime::MonthsBetween(b, a), 2);
  EXPECT_DOUBLE_EQ(IDateTime::MonthSpan(ctJulian, a, b), 61 / 30.4375);
}

// --- The general unit ---

TEST(ClassicGeneral, YearsAreBroughtIntoARange) {
  EXPECT_EQ(IDateTime::EnsureYearLowRange(ctPersian, 1200), 1300);
  EXPECT_EQ(IDateTime::EnsureYearLowRange(ctIslamic, 1400), 1400);
  EXPECT_EQ(IDateTime::EnsureYearLowRange(ctJulian, 1200), 1900);
  EXPECT_EQ(IDateTime::EnsureYearHighRange(ctPersian, 1600), 1500);
  EXPECT_EQ(IDateTime::EnsureYearHighRange(ctJulian, 3000), 2100);
  EXPECT_EQ(IDateTime::EnsureYearHighRange(static_cast<TJhCalendarType>(9), 3000), 2100);
}

TEST(ClassicGeneral, EachTypeAsksItsOwnUnit) {
  const TDateTime day = 45737;  // 21 March 2025
  EXPECT_EQ(IDateTime::DecodeDate(ctPersian, day), (TDateParts{1404, 1, 1}));
  EXPECT_EQ(IDateTime::DecodeDate(ctIslamic, day), (TDateParts{1446, 9, 21}));
  EXPECT_EQ(IDateTime::DecodeDate(ctJulian, day), (TDateParts{2025, 3, 21}));
  EXPECT_EQ(IDateTime::DecodeDate(static_cast<TJhCalendarType>(77), day), (TDateParts{2025, 3, 21}));
  EXPECT_EQ(IDateTime::CalendarType(ctIslamic), TOrvCalendarCalc::TCalendarType::LunarCalendar);
  EXPECT_EQ(IDateTime::CalendarType(ctPersian), TOrvCalendarCalc::TCalendarType::SolarCalendar);
}

// --- What is not listed as different ---

// A unit and the calculator of its calendar, over scattered moments.
template <typename TUnit, typename TCalculator>
void ExpectEqualWhereNothingDiffers(int firstDay, int days, bool sameMonthSteps) {
  const auto c = MakeCalendar<TCalculator>();
  using U = TUnit;
  std::mt19937 random(5);
  for (int i = 0; i < 30000; ++i) {
    const auto day = static_cast<TDateTime>(static_cast<int>(random() % static_cast<unsigned>(days)) + firstDay);
    const TDateTime v = rtl::JoinDateAndTime(day, static_cast<double>(random() % 86400000) / 86400000);
    const auto w = day + static_cast<TDateTime>(random() % 4000);
    const auto n = static_cast<std::int32_t>(random() % 60) - 30;
    const TDateParts date = c->DecodeDate(v);
    const TYearDay yearDay = c->DecodeDateDay(v);
    ASSERT_EQ(U::DecodeDate(v), date);
    ASSERT_EQ(U::DecodeDateDay(v), yearDay);
    ASSERT_EQ(U::DecodeDateTime(v), c->DecodeDateTime(v));
    ASSERT_EQ(U::DayOf(v), date.Day);
    ASSERT_EQ(U::DayOfTheMonth(v), date.Day);
    ASSERT_EQ(U::MonthOf(v), date.Month);
    ASSERT_EQ(U::MonthOfTheYear(v), date.Month);
    ASSERT_EQ(U::YearOf(v), date.Year);
    ASSERT_EQ(U::DayOfTheYear(v), yearDay.DayOfYear);
    ASSERT_EQ(U::NthDayOfWeek(v), c->NthDayOfWeek(v));
    ASSERT_EQ(U::IsLeapYear(date.Year), c->IsLeapYear(date.Year));
    ASSERT_EQ(U::IsInLeapYear(v), c->IsInLeapYear(v));
    ASSERT_EQ(U::DaysInAYear(date.Year), c->DaysInAYear(date.Year));
    ASSERT_EQ(U::DaysInYear(v), c->DaysInYear(v));
    ASSERT_EQ(U::DaysInMonth(v), c->DaysInMonth(v));
    ASSERT_EQ(U::DaysInAMonth(date.Year, date.Month), c->DaysInAMonth(date.Year, date.Month));
    ASSERT_EQ(U::MonthsInAYear(date.Year), 12);
    ASSERT_EQ(U::MonthsInYear(v), 12);
    ASSERT_EQ(U::EncodeDate(date), c->EncodeDate(date));
    ASSERT_EQ(U::EncodeDateDay(yearDay.Year, yearDay.DayOfYear), c->EncodeDateDay(yearDay.Year, yearDay.DayOfYear));
    ASSERT_EQ(U::EncodeDateTime(c->DecodeDateTime(v)), c->EncodeDateTime(c->DecodeDateTime(v)));
    ASSERT_EQ(U::StartOfTheMonth(v), c->StartOfTheMonth(v));
    ASSERT_EQ(U::StartOfTheYear(v), c->StartOfTheYear(v));
    ASSERT_EQ(U::EndOfTheMonth(v), c->EndOfTheMonth(v));
    ASSERT_EQ(U::EndOfTheYear(v), c->EndOfTheYear(v));
    ASSERT_EQ(U::StartOfADay(date), c->StartOfADay(date));
    ASSERT_EQ(U::StartOfADay(yearDay.Year, yearDay.DayOfYear), c->StartOfADay(yearDay.Year, yearDay.DayOfYear));
    ASSERT_EQ(U::EndOfADay(date), c->EndOfADay(date));
    ASSERT_EQ(U::EndOfADay(yearDay.Year, yearDay.DayOfYear), c->EndOfADay(yearDay.Year, yearDay.DayOfYear));
    ASSERT_EQ(U::HourOfTheMonth(v), c->HourOfTheMonth(v));
    ASSERT_EQ(U::HourOfTheYear(v), c->HourOfTheYear(v));
    ASSERT_EQ(U::MinuteOfTheMonth(v), c->MinuteOfTheMonth(v));
    ASSERT_EQ(U::MinuteOfTheYear(v), c->MinuteOfTheYear(v));
    ASSERT_EQ(U::SecondOfTheMonth(v), c->SecondOfTheMonth(v));
    ASSERT_EQ(U::SecondOfTheYear(v), c->SecondOfTheYear(v));
    ASSERT_EQ(U::MilliSecondOfTheMonth(v), c->MilliSecondOfTheMonth(v));
    ASSERT_EQ(U::MilliSecondOfTheYear(v), c->MilliSecondOfTheYear(v));
    ASSERT_EQ(U::DaysBetween(v, w), c->DaysBetween(v, w));
    ASSERT_EQ(U::WeeksBetween(v, w), c->WeeksBetween(v, w));
    ASSERT_EQ(U::YearsBetween(v, w), c->YearsBetween(v, w));
    ASSERT_EQ(U::DaySpan(v, w), c->DaySpan(v, w));
    ASSERT_EQ(U::WeekSpan(v, w), c->WeekSpan(v, w));
    ASSERT_EQ(U::YearSpan(v, w), c->YearSpan(v, w));
    ASSERT_EQ(U::DateInRange(v, day, w), c->DateInRange(v, day, w));
    ASSERT_EQ(U::DateTimeInRange(v, day, w, false), c->DateTimeInRange(v, day, w, false));
    ASSERT_EQ(U::DateTimeToMilliseconds(v), c->DateTimeToMilliseconds(v));
    ASSERT_EQ(U::IncDay(v, n), c->IncDay(v, n));
    ASSERT_EQ(U::IncWeek(v, n), c->IncWeek(v, n));
    ASSERT_EQ(U::IncYear(v, n), c->IncYear(v, n));
    ASSERT_EQ(U::SameDayMonth(v, w), c->SameDayMonth(v, w));
    ASSERT_EQ(U::SameDayOfMonth(v, w), c->SameDayOfMonth(v, w));
    ASSERT_EQ(U::SameMonth(v, w), c->SameMonth(v, w));
    ASSERT_EQ(U::RecodeDay(v, 5), c->RecodeDay(v, 5));
    ASSERT_EQ(U::RecodeMonth(v, 1), c->RecodeMonth(v, 1));
    ASSERT_EQ(U::TryRecodeDateTime(v, {{65535, 65535, 65535}, {1, 2, 3, 4}}),
              c->TryRecodeDateTime(v, {{65535, 65535, 65535}, {1, 2, 3, 4}}));
    TDateParts a = date, b = date;
    U::IncAYear(a, n);
    c->IncAYear(b, n);
    ASSERT_EQ(a, b);
    if (sameMonthSteps) {
      U::IncAMonth(a, n);
      c->IncAMonth(b, n);
      ASSERT_EQ(a, b);
      ASSERT_EQ(U::IncMonth(v, n), c->IncMonth(v, n));
      ASSERT_EQ(U::MonthSpan(v, w), c->MonthSpan(v, w));
    }
  }
}

TEST(ClassicAndCalculator, PersianDatesAgreeWhereNothingIsListedAsDifferent) {
  ExpectEqualWhereNothingDiffers<PDateTime, TOrvJalaliDateCalendarCalc>(-450000, 820000, true);
}

TEST(ClassicAndCalculator, IslamicDatesAgreeWhereNothingIsListedAsDifferent) {
  ExpectEqualWhereNothingDiffers<ADateTime, TOrvHijriLunarDateCalendarCalc>(-450000, 3400000, false);
}

TEST(ClassicAndCalculator, EveryPersianDayDecodesAndEncodesAlike) {
  const auto c = MakeCalendar<TOrvJalaliDateCalendarCalc>();
  TDateTime value = PDateTime::EncodeDate({1, 1, 1});
  const TDateTime end = PDateTime::EncodeDate({2325, 1, 1});
  for (; value < end; ++value) {
    const TDateParts date = PDateTime::DecodeDate(value);
    ASSERT_EQ(date, c->DecodeDate(value));
    ASSERT_EQ(PDateTime::EncodeDate(date), value);
  }
}

// --- The present day ---

TEST(ClassicNow, ThePresentDayIsTheClocks) {
  const rtl::TClockScope clock(45737.75);
  EXPECT_EQ(PDateTime::CurrentYear(), 1404);
  EXPECT_EQ(PDateTime::CurrentMonth(), 1);
  EXPECT_EQ(PDateTime::CurrentDay(), 1);
  EXPECT_EQ(ADateTime::CurrentYear(), 1446);
  EXPECT_EQ(IDateTime::CurrentDay(ctJulian), 21);
}

}  // namespace
}  // namespace orv
