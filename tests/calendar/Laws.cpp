// Laws that hold on every day that a calendar decodes, with the plain rules as the oracle.
#include <gtest/gtest.h>

#include "calendar/Date.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Gregorian;
using testing::Hijri;
using testing::Jalali;

constexpr std::int32_t JulianDayOfDateTime0 = 2415019;

// Walks a range of days. Each is decoded to a date and to a day of the year; both encode to the day, follow on those of
// the day before, and agree with the lengths of the months and years.
void WalkDays(const TOrvCalendarCalc& calendar, TDateTime first, TDateTime last, std::int64_t expectedDays) {
  TDateParts before = calendar.DecodeDate(first - 1);
  TYearDay yearDay;
  std::int32_t daysOfMonths = 0;  // that have ended in this year
  std::int64_t days = 0;
  for (TDateTime day = first; day <= last; ++day, ++days) {
    const TDateParts date = calendar.DecodeDate(day);
    calendar.DecodeDateDay(day, yearDay);
    TDateTime encoded = 0;
    ASSERT_TRUE(calendar.TryEncodeDate(date, encoded));
    ASSERT_EQ(encoded, day);
    ASSERT_TRUE(calendar.TryEncodeDateDay(yearDay.Year, yearDay.DayOfYear, encoded));
    ASSERT_EQ(encoded, day);
    ASSERT_TRUE(calendar.IsValidDate(date)) << day;

    if (date.Day != 1) {
      ASSERT_EQ(date, (TDateParts{before.Year, before.Month, testing::Word(before.Day + 1)}));
    } else if (days > 0) {
      ASSERT_EQ(before.Day, calendar.DaysInAMonth(before.Year, before.Month));
      daysOfMonths += before.Day;
      if (date.Month == 1) {
        ASSERT_EQ(date.Year, before.Year + 1);
        ASSERT_EQ(before.Month, 12);
        ASSERT_EQ(daysOfMonths, calendar.DaysInAYear(before.Year));
        ASSERT_EQ(calendar.IsLeapYear(before.Year), daysOfMonths == 366 || daysOfMonths == 355);
        daysOfMonths = 0;
      } else {
        ASSERT_EQ(date, (TDateParts{before.Year, testing::Word(before.Month + 1), 1}));
      }
    }
    ASSERT_EQ(yearDay, (TYearDay{date.Year, testing::Word(daysOfMonths + date.Day)}));
    before = date;
  }
  EXPECT_EQ(days, expectedDays);
}

TEST(Laws, EveryPersianDayFromYear0To2325) {
  const auto calendar = Jalali();
  WalkDays(*calendar, calendar->EncodeDate({0, 1, 1}), calendar->EncodeDate({2325, 6, 10}), 849354);
}

TEST(Laws, EveryIslamicDayFromYear1To9999) {
  const auto calendar = Hijri();
  WalkDays(*calendar, calendar->EncodeDate({1, 1, 1}), calendar->EncodeDate({9999, 12, 29}), 3543312);
}

TEST(Laws, EveryGregorianDayFromYear1To9999) {
  const auto calendar = Gregorian();
  WalkDays(*calendar, calendar->EncodeDate({1, 1, 1}), calendar->EncodeDate({9999, 12, 31}), 3652059);
}

// The search for the year as it is described: from a guess at 365 days a year up, and then down.
bool PlainJalaliDecode(std::int32_t julianDay, std::int32_t& year, std::int32_t& dayOfYear) {
  if (julianDay <= 1947954) return false;
  std::int32_t y = (julianDay - 1947954) / 365;
  do {
    if (y > 2327) return false;
  } while (JalaliJD0(y + 1) <= julianDay && (++y, true));
  while (JalaliJD0(y) >= julianDay) --y;
  year = y;
  dayOfYear = julianDay - JalaliJD0(y);
  return true;
}

TEST(Laws, PersianDecodingIsThePlainSearchOnEveryDay) {
  const auto calendar = Jalali();
  for (std::int32_t day = 1940000; day <= 2810000; ++day) {
    std::int32_t year = 0, dayOfYear = 0;
    PlainJalaliDecode(day, year, dayOfYear);
    const TYearDay decoded = calendar->DecodeDateDay(day - JulianDayOfDateTime0);
    ASSERT_EQ(decoded, (TYearDay{testing::Word(year), testing::Word(dayOfYear)})) << day;
    if (dayOfYear == 0) continue;
    const std::int32_t n = dayOfYear - 1;
    const TDateParts date =
        n < 187 ? TDateParts{decoded.Year, testing::Word(n / 31 + 1), testing::Word(n % 31 + 1)}
                : TDateParts{decoded.Year, testing::Word((n - 186) / 30 + 7), testing::Word((n - 186) % 30 + 1)};
    ASSERT_EQ(calendar->DecodeDate(day - JulianDayOfDateTime0), date);
  }
}

TEST(Laws, TheDateLibraryAndTheDayArithmeticAgreeOnIslamicDays) {
  const auto calendar = Hijri();
  for (std::int32_t day = DMYToDay(1, 1, 1, ckIslamic); day <= DMYToDay(29, 12, 9999, ckIslamic); ++day) {
    const TDayMonthYear date = DayToDMY(day, ckIslamic);
    ASSERT_EQ(calendar->DecodeDate(day - JulianDayOfDateTime0),
              (TDateParts{testing::Word(date.Year), testing::Word(date.Month), testing::Word(date.Day)}));
  }
}

TEST(Laws, WhatIsWrittenWithAllFieldsIsReadAsTheSame) {
  const std::u16string_view formats[] = {u"yyyy/mm/dd hh:nn:ss",  u"d-m-yyyy s.n.h",     u"mmmm d yyyy, hh:n:s",
                                         u"dd mmm yyyy hh nn ss", u"yyyymmmmdd h:n:s z", u"yyyy.m.d h:nn:ss",
                                         u"z s|n|h|d|m|yyyy"};
  testing::TRandom random(7);
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (int i = 0; i < 20000; ++i) {
      const auto word = [&random](int low, int high) { return static_cast<std::uint16_t>(random.From(low, high)); };
      const TDateParts date = calendar->DecodeDate(random.From(-400000, 300000));
      const TDateTimeParts parts = {date, {word(0, 23), word(0, 59), word(0, 59), word(0, 59)}};
      const std::u16string_view format = formats[random.From<std::size_t>(0, std::size(formats) - 1)];
      const UnicodeString text = calendar->FormatDateTimeFullToString(format, parts, TDayOfWeek::Sunday, false);
      const auto value = calendar->FormatStringFullToDateTime(format, text);
      ASSERT_TRUE(value.has_value()) << format.size() << " " << date.Year;
      TDateTimeParts expected = parts;
      if (format.find(u'z') == format.npos) expected.Time.MilliSecond = 0;
      ASSERT_EQ(calendar->DecodeDateTime(*value), expected);
    }
  }
}

TEST(Laws, YearsOfTwoDigitsAreReadBackWithinTheirHundredYears) {
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    const std::uint16_t century = calendar->ShortYearStartingCentury;
    for (std::uint16_t year = static_cast<std::uint16_t>(century + 20); year < century + 120; ++year) {
      const TDateTime value = calendar->EncodeDate({year, 6, 15});
      ASSERT_EQ(calendar->TryStrToDateTime(calendar->FormatDateTime(u"yy/m/d", value, false), u"yy/m/d"), value)
          << year;
    }
  }
}

TEST(Laws, EveryFieldOfATextIsFoundWhereItWasWritten) {
  testing::TRandom random(11);
  const auto calendar = Jalali();
  for (int i = 0; i < 5000; ++i) {
    const TDateTime value = random.From(-100000, 100000) + 0.5;
    const UnicodeString text = calendar->FormatDateTime(u"yyyy/mmmm/d h:nn", value, false);
    const TDateTimeParts parts = calendar->DecodeDateTime(value);
    const auto field = [&](std::int32_t number) {
      const TLocatedField found = calendar->Parser(number, u"yyyy/mmmm/d h:nn", text);
      return text.substr(static_cast<std::size_t>(found.Start) - 1, static_cast<std::size_t>(found.Length));
    };
    const auto written = [&](std::u16string_view format) { return calendar->FormatDateTime(format, value, false); };
    ASSERT_EQ(field(1), written(u"yyyy")) << parts.Date.Year;
    ASSERT_EQ(field(2), written(u"mmmm"));
    ASSERT_EQ(field(3), written(u"d"));
    ASSERT_EQ(field(4), written(u"h"));
    ASSERT_EQ(field(5), written(u"nn"));
  }
}

TEST(Laws, WeeksThatAreEncodedFallOnTheirDayOfTheWeek) {
  using enum TDayOfWeek;
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (std::uint16_t year = 1300; year < 1500; ++year) {
      const std::uint16_t weeks = calendar->WeeksInAYear(year);
      for (std::uint16_t week = 1; week <= weeks; ++week) {
        for (const TDayOfWeek dow : {Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday}) {
          const TDateTime day = calendar->EncodeDateWeek({year, week, dow});
          // The days of a week lie one behind another, and the weeks seven days apart.
          ASSERT_EQ(day, calendar->EncodeDateWeek({year, 1, Sunday}) + (week - 1) * 7 + static_cast<int>(dow));
        }
      }
    }
  }
}

TEST(Laws, DecodedWeeksCountUpBySevens) {
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    TDateWeek before = calendar->DecodeDateWeek(-100000);
    std::int32_t inWeek = 0;
    for (TDateTime day = -99999; day < 100000; ++day) {
      const TDateWeek week = calendar->DecodeDateWeek(day);
      ASSERT_EQ(static_cast<int>(week.DOW), (static_cast<int>(before.DOW) + 1) % 7);
      ASSERT_GE(week.WeekOfYear, 1);
      ASSERT_LE(week.WeekOfYear, 54);
      const bool same = week.Year == before.Year && week.WeekOfYear == before.WeekOfYear;
      ASSERT_TRUE(!same || inWeek < 14) << day;
      inWeek = same ? inWeek + 1 : 0;
      before = week;
    }
  }
}

}  // namespace
}  // namespace orv
