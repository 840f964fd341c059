#include "rtl/DateTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "rtl/Clock.h"
#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"

namespace rtl {
namespace {

constexpr std::int32_t LastDay = 3652059;  // 31 December 9999

// The plain rules, one year and one month at a time.
struct TWalker {
  TDateParts Date = {1, 1, 1};
  static int MonthLength(int year, int month) {
    if (month == 2) return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
  }
  void Next() {
    if (++Date.Day <= MonthLength(Date.Year, Date.Month)) return;
    Date.Day = 1;
    if (++Date.Month <= 12) return;
    Date.Month = 1;
    ++Date.Year;
  }
};

TEST(DateTime, EveryDayFromYear1To9999FollowsThePlainCalendar) {
  TWalker walker;
  std::uint16_t dayOfYear = 0;
  for (std::int32_t day = 1; day <= LastDay; ++day, walker.Next()) {
    dayOfYear = walker.Date.Month == 1 && walker.Date.Day == 1 ? 1 : static_cast<std::uint16_t>(dayOfYear + 1);
    const TDateTime value = day - DateDelta;
    ASSERT_EQ(DecodeDate(value), walker.Date) << day;
    ASSERT_EQ(TryEncodeDate(walker.Date), value);
    ASSERT_EQ(DecodeDateDay(value), (TYearDay{walker.Date.Year, dayOfYear}));
    ASSERT_EQ(TryEncodeDateDay(walker.Date.Year, dayOfYear), value);
    ASSERT_EQ(DayOfWeek(value), day % 7 + 1);
  }
  EXPECT_EQ(walker.Date, (TDateParts{10000, 1, 1}));
}

TEST(DateTime, TheCountBeginsOn30December1899) {
  EXPECT_EQ(EncodeDate({1899, 12, 30}), 0);
  EXPECT_EQ(DateTimeToTimeStamp(0), (TTimeStamp{0, 693594}));
  EXPECT_EQ(DateTimeToTimeStamp(EncodeDate({1, 1, 1})).Date, 1);
  EXPECT_EQ(DateTimeToMilliseconds(0), 59926521600000);
}

TEST(DateTime, BeforeTheCountTheTimeOfDayGoesByMagnitude) {
  EXPECT_EQ(DateTimeToTimeStamp(-1.25), (TTimeStamp{21600000, 693593}));
  EXPECT_EQ(DecodeDate(-1.25), (TDateParts{1899, 12, 29}));
  EXPECT_EQ(DecodeTime(-1.25), (TTimeParts{6, 0, 0, 0}));
  EXPECT_EQ(JoinDateAndTime(-1, 0.25), -1.25);
  EXPECT_EQ(TimeStampToDateTime({21600000, 693593}), -1.25);
  EXPECT_EQ(EndOfTheDay(-2), TimeStampToDateTime({86399999, 693592}));
  EXPECT_EQ(ReplaceTime(-3.75, 5.5), -3.5);
  EXPECT_EQ(ReplaceTime(3.75, -5.5), 3.5);
}

TEST(DateTime, StepsRunOnALinearCount) {
  EXPECT_EQ(IncDay(-1.25, 2), 1.25);
  EXPECT_EQ(IncDay(-1.25), 0.25);
  EXPECT_EQ(IncWeek(1.25, -1), -6.25);
  EXPECT_EQ(DaySpan(-1.25, 0.25), 1);
  EXPECT_EQ(DaysBetween(-1.25, 0.125), 0);
  EXPECT_EQ(WeeksBetween(1, 14.9), 1);
  EXPECT_EQ(WeekSpan(0, 10.5), 1.5);
}

TEST(DateTime, SpansBelow1899StartFromTheEarlierMoment) {
  EXPECT_TRUE(DateTimeInRange(-1.5, -1.25, -1.75));
  EXPECT_FALSE(DateTimeInRange(-1.25, -1.25, -1.75, false));
  EXPECT_TRUE(DateInRange(5.9, 5.95, 6));
  EXPECT_FALSE(DateInRange(5.9, 5, 6, false));
}

TEST(DateTime, StampsAreTheirOwnInverse) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 200000; ++i) {
    const TTimeStamp stamp = {static_cast<std::int32_t>(random() % 86400000),
                              static_cast<std::int32_t>(random() % 4000000)};
    const TDateTime value = TimeStampToDateTime(stamp);
    ASSERT_EQ(DateTimeToTimeStamp(value), stamp);
    ASSERT_EQ(MillisecondsToDateTime(DateTimeToMilliseconds(value)), value);
  }
}

TEST(DateTime, AFractionOfAMillisecondRoundsBeforeTheDateIsTaken) {
  EXPECT_EQ(DecodeDate(45736.9999999999), DecodeDate(45737));
  EXPECT_EQ(DecodeTime(45736.9999999999), TTimeParts{});
  EXPECT_EQ(RoundedMilliseconds(0.5 / 86400000), 0);
  EXPECT_EQ(RoundedMilliseconds(1.5 / 86400000), 2);
}

TEST(DateTime, NoNumberIsTooLarge) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {1e18, -1e18, 1e300, -1e300, infinity, -infinity, 2.0e9, -2.0e9, 2147483648.0}) {
    const std::int32_t day = DayNumberOf(value);
    EXPECT_EQ(day > 0, value > 0);
    EXPECT_LE(std::abs(static_cast<std::int64_t>(day)), 2000693594);
    EXPECT_EQ(DecodeDate(value) == TDateParts{}, value < 0);
    EXPECT_TRUE(std::isfinite(IncDay(value, std::numeric_limits<std::int32_t>::max())));
    EXPECT_TRUE(std::isfinite(IncWeek(value, std::numeric_limits<std::int32_t>::min())));
    EXPECT_GE(DaysBetween(value, -value), 0);
  }
  EXPECT_EQ(DateTimeToTimeStamp(std::nan("")), DateTimeToTimeStamp(0));
}

TEST(DateTime, BeforeYear1NothingIsDecoded) {
  EXPECT_EQ(DecodeDate(-693594), TDateParts{});
  EXPECT_EQ(DecodeDateDay(-800000), TYearDay{});
  EXPECT_EQ(DecodeDateFully(-693594).DayOfWeek, 0);
  EXPECT_EQ(DecodeDate(-693593), (TDateParts{1, 1, 1}));
}

TEST(DateTime, OnlyDatesThatExistAreEncoded) {
  for (const TDateParts date : {TDateParts{0, 1, 1},
                                {10000, 1, 1},
                                {2000, 0, 1},
                                {2000, 13, 1},
                                {1900, 2, 29},
                                {2023, 4, 31},
                                {2023, 1, 0},
                                {65535, 65535, 65535}}) {
    EXPECT_FALSE(TryEncodeDate(date).has_value());
    EXPECT_THROW(EncodeDate(date), EConvertError);
  }
  EXPECT_FALSE(TryEncodeDateDay(2023, 366).has_value());
  EXPECT_FALSE(TryEncodeDateDay(2024, 0).has_value());
  EXPECT_THROW(EncodeDateDay(2023, 366), EConvertError);
  EXPECT_THROW(DaysInAMonth(2023, 0), EConvertError);
  EXPECT_THROW(DaysInAMonth(2023, 13), EConvertError);
}

TEST(DateTime, MidnightAtTheEndOfADayIsValidButHasNoEncoding) {
  EXPECT_TRUE(IsValidTime({24, 0, 0, 0}));
  EXPECT_FALSE(IsValidTime({24, 0, 0, 1}));
  EXPECT_FALSE(TryEncodeTime({24, 0, 0, 0}).has_value());
  EXPECT_THROW(EncodeTime({0, 60, 0, 0}), EConvertError);
  EXPECT_EQ(EncodeTime({18, 30, 0, 0}), 0.770833333333333333);
}

TEST(DateTime, ErrorsNameTheRefusedParts) {
  const auto message = [](auto&& raise) {
    try {
      raise();
    } catch (const EConvertError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_EQ(message([] { InvalidDateDayError(1403, 367); }), "Year 1403 has no day 367");
  EXPECT_EQ(message([] { InvalidDateWeekError(1403, 54, 2); }), "Year 1403 has no day 2 in its week 54");
  EXPECT_EQ(message([] { InvalidDateMonthWeekError(1403, 2, 6, 1); }),
            "Month 2 of year 1403 has no day 1 in its week 6");
  EXPECT_EQ(message([] { InvalidDayOfWeekInMonthError(1403, 2, 6, 1); }),
            "Month 2 of year 1403 does not have day 1 of the week 6 times");
  EXPECT_EQ(message([] {
              InvalidDateTimeError({{1403, 12, 31}, {1, 2, 3, 4}});
            }),
            "'1403-12-31 01:02:03.004' is not a valid date and time");
  EXPECT_EQ(message([] {
              InvalidDateTimeError({{65535, 12, 31}, {1, 2, 3, 4}}, 45737.5);
            }),
            "'?-12-31 01:02:03.004' is not a valid date and time (laid over day 45737)");
}

TEST(Clock, AnInjectedClockAnswersNowAndToday) {
  const TDateTime before = Now();
  {
    const TClockScope scope(45737.75);
    EXPECT_EQ(Now(), 45737.75);
    EXPECT_EQ(Today(), 45737);
    const TClockScope inner(-1.25);
    EXPECT_EQ(Today(), -1);
  }
  EXPECT_GT(before, 40000);
  EXPECT_LE(before, Now());
}

}  // namespace
}  // namespace rtl
