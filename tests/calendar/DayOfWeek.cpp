#include "calendar/Orv.Date.DayOfWeek.h"

#include <gtest/gtest.h>

#include "rtl/Exceptions.h"

namespace orv {
namespace {

using H = TDayOfWeekHelper;
using enum TDayOfWeek;
using enum TCalDayOfWeek;

constexpr TDayOfWeek RealDays[] = {Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday};

TEST(DayOfWeek, SundayIsTheFirstNumber) {
  EXPECT_EQ(H::AsByte(Sunday), 1);
  EXPECT_EQ(H::AsWord(Saturday), 7);
  EXPECT_EQ(H::AsInteger(Undefined), 8);
  for (const TDayOfWeek day : RealDays) EXPECT_EQ(H::From(H::AsByte(day)), day);
}

TEST(DayOfWeek, DaysOfThePlatformGoOverByTheirTables) {
  EXPECT_EQ(H::FromCalDayOfWeek(dowMonday), Monday);
  EXPECT_EQ(H::FromCalDayOfWeek(dowSaturday), Saturday);
  EXPECT_EQ(H::FromCalDayOfWeek(dowSunday), Sunday);
  EXPECT_EQ(H::FromCalDayOfWeek(dowLocaleDefault), Undefined);
  EXPECT_EQ(H::FromCalDayOfWeek(static_cast<TCalDayOfWeek>(200)), Undefined);
  EXPECT_EQ(H::ToTCalDayOfWeek(Sunday), 7);
  EXPECT_EQ(H::ToTCalDayOfWeek(Monday), 1);
  EXPECT_EQ(H::ToTCalDayOfWeek(Undefined), 8);
  for (const TDayOfWeek day : RealDays)
    EXPECT_EQ(H::FromCalDayOfWeek(static_cast<TCalDayOfWeek>(H::ToTCalDayOfWeek(day) - 1)), day);
}

TEST(DayOfWeek, TheNthDayOfAWeekDoesNotWrap) {
  EXPECT_EQ(H::DayOfWeek(dowMonday, 1), Monday);
  EXPECT_EQ(H::DayOfWeek(dowMonday, 6), Saturday);
  EXPECT_EQ(H::DayOfWeek(dowSaturday, 2), Undefined);
}

TEST(DayOfWeek, TheWrapComesOneDayLate) {
  EXPECT_EQ(H::NextDay(Saturday, 1), Undefined);
  EXPECT_EQ(H::NextDay(Saturday, 2), Monday);
  EXPECT_EQ(H::NextDay(Friday, 1), Saturday);
  EXPECT_EQ(H::NextDay(Sunday, 6), Saturday);
  EXPECT_EQ(H::PriorDay(Sunday, 1), Saturday);
  EXPECT_EQ(H::PriorDay(Monday, 1), Sunday);
  EXPECT_EQ(H::PriorDay(Monday, 3), Friday);
}

TEST(DayOfWeek, StepsOfAWeekOrMoreBreakAnAssertion) {
#ifdef ORV_ASSERTIONS
  EXPECT_THROW(H::NextDay(Sunday, 7), rtl::EAssertionFailed);
  EXPECT_THROW(H::PriorDay(Sunday, 7), rtl::EAssertionFailed);
#else
  EXPECT_EQ(H::NextDay(Sunday, 7), Undefined);
  EXPECT_EQ(H::NextDay(Sunday, 8), Monday);
  EXPECT_EQ(H::PriorDay(Sunday, 7), Sunday);
#endif
}

TEST(DayOfWeek, DifferencesAreCountedForward) {
  EXPECT_EQ(H::Diff(Monday, Friday), 4);
  EXPECT_EQ(H::Diff(Friday, Monday), 3);
  EXPECT_EQ(H::Diff(Friday, Friday), 0);
}

TEST(DayOfWeek, TheLocaleNumberCountsBackFromTheFirstDay) {
  EXPECT_EQ(H::Locale(Saturday, dowSaturday), 1);
  EXPECT_EQ(H::Locale(Friday, dowSaturday), 2);
  EXPECT_EQ(H::Locale(Sunday, dowSaturday), 7);
  EXPECT_EQ(H::Locale(Sunday, dowMonday), 2);
}

TEST(DayOfWeek, FirstAndLastThreeDaysOfAWeekFromMonday) {
  EXPECT_EQ(H::FirstThreeDays(dowMonday), (TDaysSet{Monday, Tuesday, Wednesday}));
  EXPECT_EQ(H::LastThreeDays(dowMonday), (TDaysSet{Friday, Saturday, Undefined}));
}

TEST(DayOfWeek, FirstAndLastThreeDaysOfAWeekFromSaturday) {
  EXPECT_EQ(H::FirstThreeDays(dowSaturday), (TDaysSet{Saturday, Undefined, Monday}));
  EXPECT_EQ(H::LastThreeDays(dowSaturday), (TDaysSet{Wednesday, Thursday, Friday}));
}

TEST(DayOfWeek, SundayIsInNoSetOfEither) {
  for (const TCalDayOfWeek first : {dowMonday, dowSaturday}) {
    EXPECT_FALSE(H::InSet(Sunday, H::FirstThreeDays(first)));
    EXPECT_FALSE(H::InSet(Sunday, H::LastThreeDays(first)));
  }
}

TEST(DayOfWeek, AValueAboveUndefinedIsInNoSet) {
  const TDaysSet all = TDaysSet::FromBits(0xFF);
  EXPECT_TRUE(H::InSet(Undefined, all));
  EXPECT_FALSE(H::InSet(static_cast<TDayOfWeek>(8), all));
  EXPECT_FALSE(H::InSet(static_cast<TDayOfWeek>(255), all));
}

TEST(DayOfWeek, DayNumbersBelowZeroHaveDaysToo) {
  EXPECT_EQ(H::OfDayNumber(0), Sunday);
  EXPECT_EQ(H::OfDayNumber(-1), Saturday);
  EXPECT_EQ(H::OfDayNumber(-7), Sunday);
  EXPECT_EQ(H::OfDayNumber(693594), Saturday);
}

}  // namespace
}  // namespace orv
