// The calendar-independent operations of calculators.
#include <gtest/gtest.h>

#include <limits>

#include "calendar/Date.h"
#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Gregorian;
using testing::Hijri;
using testing::Jalali;
using testing::NewYear1404;
using enum TDayOfWeek;

constexpr std::uint16_t Keep = TOrvCalendarCalc::RecodeLeaveFieldAsIs;

TEST(Core, ASaturdayIsDay6AndNumber7) {
  const TDayOfWeek day = Jalali()->DayOfTheWeek(NewYear1404 + 1);
  EXPECT_EQ(day, Saturday);
  EXPECT_EQ(static_cast<int>(day), 6);
  EXPECT_EQ(TDayOfWeekHelper::AsWord(day), 7);
}

TEST(Core, TheEighthIsTheSecondOfItsDayInTheMonth) {
  EXPECT_EQ(TOrvCalendarCalc::NthDayOfWeek(std::uint16_t{8}), 2);
  EXPECT_EQ(TOrvCalendarCalc::NthDayOfWeek(std::uint16_t{7}), 1);
  EXPECT_EQ(TOrvCalendarCalc::NthDayOfWeek(std::uint16_t{0}), 1);
  EXPECT_EQ(Jalali()->NthDayOfWeek(NewYear1404 + 7.5), 2);
}

TEST(Core, TheFirstDaysOfAYearMayBelongToTheLastWeekOfTheYearBefore) {
  // 1 January 2021 was a Friday, one of the last three days of a week from Monday.
  const auto calendar = Gregorian();
  const TDateTime newYear = calendar->EncodeDate({2021, 1, 1});
  const TDateWeek before = calendar->DecodeDateWeek(newYear - 1);
  EXPECT_EQ(calendar->DecodeDateWeek(newYear), (TDateWeek{before.Year, before.WeekOfYear, Friday}));
  EXPECT_EQ(before.Year, 2020);
}

TEST(Core, TheYearDoesNotStepWhereAMonthStepWraps) {
  const auto calendar = Gregorian();
  TDateParts date = {2024, 12, 31};
  calendar->IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{2024, 1, 31}));
  date = {2024, 11, 30};
  calendar->IncAMonth(date, 3);
  EXPECT_EQ(date, (TDateParts{2024, 2, 29}));
  date = {2024, 2, 29};
  calendar->IncAMonth(date, -3);
  EXPECT_EQ(date, (TDateParts{2024, 11, 29}));
  date = {2024, 3, 31};
  calendar->IncAMonth(date, -13);
  EXPECT_EQ(date, (TDateParts{2023, 2, 28}));
}

TEST(Core, SetLocaleWithThePresentNameDoesNothing) {
  const rtl::TClockScope clock(NewYear1404);
  const auto calendar = MakeCalendar<TOrvJulianDateCalendarCalc>(u"he");
  calendar->ShortYearStartingCentury = 17;
  calendar->FormatSettings.TimeAMString = u"x";
  calendar->SetLocale(u"he");
  EXPECT_EQ(calendar->ShortYearStartingCentury, 17);
  EXPECT_EQ(calendar->FormatSettings.TimeAMString, u"x");
  calendar->SetLocale(u"HE");
  EXPECT_EQ(calendar->ShortYearStartingCentury, 1900);
  EXPECT_NE(calendar->FormatSettings.TimeAMString, u"x");
}

TEST(Core, APartOf65535KeepsTheOldOne) {
  const auto calendar = Jalali();
  const TDateTime value = calendar->EncodeDateTime({{1403, 6, 31}, {12, 34, 56, 789}});
  const auto recode = [&](TDateParts date, TTimeParts time) {
    return calendar->DecodeDateTime(calendar->RecodeDateTime(value, {date, time}));
  };
  EXPECT_EQ(recode({Keep, Keep, Keep}, {Keep, Keep, Keep, Keep}), (TDateTimeParts{{1403, 6, 31}, {12, 34, 56, 789}}));
  EXPECT_EQ(recode({Keep, 7, 30}, {Keep, 0, Keep, Keep}), (TDateTimeParts{{1403, 7, 30}, {12, 0, 56, 789}}));
  EXPECT_EQ(calendar->DecodeDate(calendar->RecodeYear(value, 1404)), (TDateParts{1404, 6, 31}));
  EXPECT_EQ(calendar->DecodeDate(calendar->RecodeMonth(value, 1)), (TDateParts{1403, 1, 31}));
  EXPECT_EQ(calendar->DecodeDate(calendar->RecodeDay(value, 1)), (TDateParts{1403, 6, 1}));
  EXPECT_THROW(recode({Keep, Keep, Keep}, {24, Keep, Keep, Keep}), rtl::EConvertError);
}

TEST(Core, RecodingWithEveryPartKeptIsTheIdentityBefore1899Too) {
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (const TDateTime value : {-400000.25, -1.75, -0.25, 0.0, 0.25, 45737.5})
      EXPECT_EQ(calendar->RecodeDate(value, {Keep, Keep, Keep}), value == -0.25 ? 0.25 : value);
  }
}

TEST(Core, TheStartOfAWeekIsAFridayAtMostEightDaysBack) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->StartOfTheWeek(NewYear1404), NewYear1404 - 7) << "of a Friday, the one before";
  EXPECT_EQ(calendar->StartOfTheWeek(NewYear1404 + 1), NewYear1404 - 7) << "of a Saturday";
  EXPECT_EQ(calendar->StartOfTheWeek(NewYear1404 + 2), NewYear1404) << "of a Sunday";
  for (int day = 0; day < 7; ++day) {
    const TDateTime value = NewYear1404 + day + 0.75;
    const TDateTime start = calendar->StartOfTheWeek(value);
    EXPECT_EQ(calendar->DayOfTheWeek(start), Friday);
    EXPECT_GE(start, NewYear1404 + day - 8);
    EXPECT_LT(start, NewYear1404 + day);
    EXPECT_EQ(calendar->EndOfTheWeek(value), rtl::EndOfTheDay(start + 6));
  }
}

TEST(Core, StartsAndEndsOfYearsMonthsAndDays) {
  const auto calendar = Jalali();
  const TDateTime value = calendar->EncodeDateTime({{1403, 12, 5}, {7, 0, 0, 0}});
  EXPECT_EQ(calendar->StartOfTheYear(value), calendar->EncodeDate({1403, 1, 1}));
  EXPECT_EQ(calendar->EndOfTheYear(value), rtl::EndOfTheDay(NewYear1404 - 1));
  EXPECT_EQ(calendar->StartOfTheMonth(value), calendar->EncodeDate({1403, 12, 1}));
  EXPECT_EQ(calendar->EndOfTheMonth(value), calendar->EndOfAMonth(1403, 12));
  EXPECT_EQ(calendar->EndOfAMonth(1403, 12), calendar->EndOfAYear(1403));
  EXPECT_EQ(calendar->StartOfADay({1403, 12, 5}), std::trunc(value));
  EXPECT_EQ(calendar->StartOfADay(1403, 341), std::trunc(value));
  EXPECT_EQ(calendar->EndOfADay({1403, 12, 5}), rtl::EndOfTheDay(value));
  EXPECT_EQ(calendar->EndOfADay(1403, 341), rtl::EndOfTheDay(value));
  EXPECT_EQ(calendar->StartOfADay({1403, 12, 31}), NewYear1404) << "the day counts on";
}

TEST(Core, AWeekOfAYearStartsAndEndsWithTheDayGiven) {
  const auto calendar = Gregorian();
  const TDateWeek week = {2025, 12, Wednesday};
  EXPECT_EQ(calendar->StartOfAWeek(week), calendar->EncodeDateWeek(week));
  EXPECT_EQ(calendar->EndOfAWeek(week), rtl::EndOfTheDay(calendar->EncodeDateWeek(week)));
}

TEST(Core, CountsOfSixteenBitsWrapAndTheCountsAboveBuildOnThem) {
  const auto calendar = Gregorian();
  const TDateTime value = calendar->EncodeDateTime({{2024, 12, 31}, {23, 59, 58, 7}});
  EXPECT_EQ(calendar->HourOfTheMonth(value), 30 * 24 + 23);
  EXPECT_EQ(calendar->HourOfTheYear(value), 365 * 24 + 23);
  const std::uint16_t wrapped = (30 * 24 + 23) * 60 + 59;
  EXPECT_EQ(calendar->MinuteOfTheMonth(value), wrapped);
  EXPECT_EQ(calendar->SecondOfTheMonth(value), wrapped * 60 + 58);
  EXPECT_EQ(calendar->MilliSecondOfTheMonth(value), (wrapped * 60 + 58) * 1000LL + 7);
  EXPECT_EQ(calendar->MinuteOfTheYear(value), (365 * 24 + 23) * 60 + 59);
  EXPECT_EQ(calendar->SecondOfTheYear(value), ((365 * 24 + 23) * 60 + 59) * 60 + 58);
  EXPECT_EQ(calendar->MilliSecondOfTheYear(value), (((365 * 24 + 23) * 60 + 59) * 60 + 58) * 1000LL + 7);
}

TEST(Core, HoursOfTheWeekCountFromTheFirstWeekdayAndWrapBelowIt) {
  const auto gregorian = Gregorian();  // from Monday
  EXPECT_EQ(gregorian->HourOfTheWeek(45740.5), 12) << "a Monday";
  EXPECT_EQ(gregorian->HourOfTheWeek(45739.5), 65536 - 24 + 12) << "a Sunday";
  EXPECT_EQ(gregorian->MinuteOfTheWeek(45741), 24 * 60);
  EXPECT_EQ(gregorian->SecondOfTheWeek(45741), 24 * 3600);
  EXPECT_EQ(gregorian->MilliSecondOfTheWeek(45741), 24 * 3600000);
}

TEST(Core, SpansAreWholeUnitsOfTheCalendar) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->MonthSpan(NewYear1404, NewYear1404 + 30.4375 * 3), 3);
  EXPECT_EQ(calendar->MonthSpan(NewYear1404 + 91, NewYear1404), 2);
  EXPECT_EQ(calendar->MonthsBetween(NewYear1404, NewYear1404 + 92), 3);
  EXPECT_EQ(Hijri()->MonthsBetween(NewYear1404, NewYear1404 + 59), 2);
  EXPECT_EQ(TOrvCalendarCalc::YearsBetween(0, 365), 0);
  EXPECT_EQ(TOrvCalendarCalc::YearsBetween(0, 365.25), 1);
  EXPECT_EQ(TOrvCalendarCalc::YearSpan(0, 730.5), 2);
}

TEST(Core, YearStepsAddTheLengthsOfTheYearsPassed) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->IncYear(NewYear1404, 0), NewYear1404);
  EXPECT_EQ(calendar->IncYear(NewYear1404, 1), calendar->EncodeDate({1405, 1, 1}));
  EXPECT_EQ(calendar->IncYear(NewYear1404, -1), NewYear1404 - 366);
  EXPECT_EQ(calendar->IncYear(NewYear1404 + 0.5, 5), calendar->EncodeDate({1409, 1, 1}) + 0.5);
  EXPECT_EQ(calendar->IncYear(-1.25, 1), -1.25 + 365) << "the plain sum, also over the bend at zero";
}

TEST(Core, AnyCountOfYearsEndsQuickly) {
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  // The lengths of 65536 years are a whole period of the words.
  const auto days = [](std::int64_t first, std::int64_t count, const TOrvCalendarCalc& calendar) {
    std::int64_t sum = 0;
    for (std::int64_t y = first; y < first + count; ++y) sum += calendar.DaysInAYear(static_cast<std::uint16_t>(y));
    return sum;
  };
  for (const auto& calendar : {Hijri(), Gregorian()}) {
    const std::int64_t year = calendar->YearOf(NewYear1404);
    const std::int64_t period = days(0, 65536, *calendar);
    EXPECT_EQ(calendar->IncYear(NewYear1404, most),
              NewYear1404 + static_cast<double>(32767 * period + days(year, 65535, *calendar)));
    EXPECT_EQ(calendar->IncYear(NewYear1404, least), NewYear1404 - static_cast<double>(32768 * period));
    EXPECT_EQ(calendar->IncYear(NewYear1404, 65536 * 3 + 7),
              NewYear1404 + static_cast<double>(3 * period + days(year, 7, *calendar)));
  }
  EXPECT_THROW(Jalali()->IncYear(NewYear1404, most), EInvalidDateOperation);
  EXPECT_THROW(Jalali()->IncYear(NewYear1404, least), EInvalidDateOperation);
}

TEST(Core, MonthStepsKeepTheTimeOfDay) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->IncMonth(NewYear1404 + 0.25, 1), calendar->EncodeDate({1404, 2, 1}) + 0.25);
  EXPECT_EQ(calendar->IncMonth(-400.25, 0), -400.25);
  EXPECT_EQ(Gregorian()->IncMonth(-20.25, 1), Gregorian()->EncodeDate({1899, 1, 10}) - 0.25)
      << "from 10 December, within the same year";
}

TEST(Core, DayStepsGoThroughTheDay) {
  const auto calendar = Jalali();
  TDateParts date = {1403, 12, 30};
  calendar->IncADay(date, 1);
  EXPECT_EQ(date, (TDateParts{1404, 1, 1}));
  TYearDay day = {1404, 1};
  calendar->IncADay(day, -1);
  EXPECT_EQ(day, (TYearDay{1403, 366}));
  date = {2325, 6, 10};
  calendar->IncADay(date, 1);
  EXPECT_EQ(date, (TDateParts{2325, 6, 10})) << "what cannot be decoded leaves it";
}

TEST(Core, CurrentPartsAreThoseOfTheClock) {
  const auto calendar = Jalali();
  const rtl::TClockScope clock(NewYear1404 + 40.9);
  EXPECT_EQ(calendar->CurrentYear(), 1404);
  EXPECT_EQ(calendar->CurrentMonth(), 2);
  EXPECT_EQ(calendar->CurrentDay(), 10);
}

TEST(Core, YearsOfTwoDigitsCountFromTheCenturyEightyYearsAgo) {
  EXPECT_EQ(Jalali(NewYear1404 - 10)->ShortYearStartingCentury, 1300);
  EXPECT_EQ(Jalali(NewYear1404 - 10)->FormatSettings.TwoDigitYearCenturyWindow, 20);
  EXPECT_EQ(Gregorian(46023)->ShortYearStartingCentury, 1900);
  EXPECT_EQ(Gregorian(46023)->FormatSettings.TwoDigitYearCenturyWindow, 20);
  const auto inYear = [](std::uint16_t year) { return Gregorian(rtl::EncodeDate({year, 6, 1})); };
  EXPECT_EQ(inYear(1979)->ShortYearStartingCentury, 1800);
  EXPECT_EQ(inYear(1980)->ShortYearStartingCentury, 1900);
  EXPECT_EQ(inYear(50)->ShortYearStartingCentury, 0);
  EXPECT_EQ(inYear(50)->FormatSettings.TwoDigitYearCenturyWindow, 70);
  EXPECT_EQ(inYear(70)->FormatSettings.TwoDigitYearCenturyWindow, 90);
  EXPECT_EQ(inYear(71)->FormatSettings.TwoDigitYearCenturyWindow, 20);
}

TEST(Core, LocaleOrderedDayNamesComeFromTheSettingsInForceBefore) {
  const auto calendar = testing::Make<TOrvJulianDateCalendarCalc>();
  EXPECT_EQ(calendar->WeekDaysLocale, rtl::TDayNames()) << "none were in force at first";
  calendar->SetLocale(u"he");
  EXPECT_EQ(calendar->WeekDaysLocale[2], u"Sunday") << "a week from Monday puts Sunday second";
  EXPECT_EQ(calendar->WeekDaysLocale[1], u"Saturday");
  EXPECT_EQ(calendar->ShortWeekDaysLocale[3], u"Mon");
  const rtl::TFormatSettings settings = calendar->GetFormatSettings();
  EXPECT_EQ(settings, [&] {
    rtl::TFormatSettings same = calendar->FormatSettings;
    same.TwoDigitYearCenturyWindow = settings.TwoDigitYearCenturyWindow;
    return same;
  }());
  EXPECT_EQ(calendar->WeekDaysLocale[2], u"יום ראשון");
  const auto persian = testing::Make<TOrvJalaliDateCalendarCalc>();
  persian->GetFormatSettings();
  EXPECT_EQ(persian->WeekDaysLocale[7], u"یکشنبه");
  EXPECT_EQ(persian->WeekDaysLocale[1], u"دوشنبه");
  persian->FirstWeekday = static_cast<TCalDayOfWeek>(255);
  persian->GetFormatSettings();
  EXPECT_EQ(persian->WeekDaysLocale[5], u"یکشنبه") << "any number of a first day is safe";
}

TEST(Core, WhatDayAndWhatMonthFindNamesExactly) {
  const auto calendar = Gregorian();
  EXPECT_EQ(calendar->WhatDay(u"Tuesday"), 3);
  EXPECT_EQ(calendar->WhatDay(u"Tue"), 3);
  EXPECT_EQ(calendar->WhatDay(u"tue"), -1);
  EXPECT_EQ(calendar->WhatMonth(u"May"), 5);
  EXPECT_EQ(calendar->WhatMonth(u"Sep"), 9);
  EXPECT_EQ(calendar->WhatMonth(u""), -1);
}

TEST(Core, PartsThatAreEqual) {
  const auto calendar = Jalali();
  const TDateTime other = calendar->EncodeDate({1390, 1, 1});
  EXPECT_TRUE(calendar->SameDayMonth(NewYear1404, other));
  EXPECT_TRUE(calendar->SameDayMonth(NewYear1404 + 0.9, 1, 1));
  EXPECT_FALSE(calendar->SameDayMonth(NewYear1404 + 1, other));
  EXPECT_TRUE(calendar->SameDayOfMonth(NewYear1404 + 31, other));
  EXPECT_TRUE(calendar->SameDayOfMonth(NewYear1404, std::uint16_t{1}));
  EXPECT_TRUE(calendar->SameMonth(NewYear1404 + 30, other));
  EXPECT_FALSE(calendar->SameMonth(NewYear1404 + 31, std::uint16_t{1}));
  EXPECT_TRUE(calendar->SameDayOfWeek(NewYear1404, NewYear1404 + 7));
  EXPECT_TRUE(calendar->SameDayOfWeek(NewYear1404, Friday));
  EXPECT_TRUE(calendar->SameDayOfWeek(NewYear1404 + 14, TDateParts{1404, 1, 1}));
  EXPECT_FALSE(calendar->SameDayOfWeek(NewYear1404, NewYear1404 + 1));
}

TEST(Core, ChecksOfYearMonthAndTime) {
  const auto calendar = Gregorian();
  EXPECT_TRUE(calendar->IsYearValid(1));
  EXPECT_TRUE(calendar->IsYearValid(9999));
  EXPECT_FALSE(calendar->IsYearValid(0));
  EXPECT_FALSE(calendar->IsYearValid(10000));
  EXPECT_TRUE(calendar->IsMonthValid(12));
  EXPECT_FALSE(calendar->IsMonthValid(13));
  EXPECT_FALSE(calendar->IsMonthValid(0, 12));
  EXPECT_TRUE(calendar->IsValidDateTime({{2025, 3, 21}, {24, 0, 0, 0}}));
  EXPECT_FALSE(calendar->IsValidDateTime({{2025, 3, 21}, {24, 0, 1, 0}}));
  EXPECT_FALSE(calendar->TryEncodeDateTime({{2025, 3, 21}, {24, 0, 0, 0}}).has_value());
}

TEST(Core, WeeksAndDaysOfWeeksOutOfRangeAreRefused) {
  const auto calendar = Gregorian();
  EXPECT_FALSE(calendar->IsValidDateWeek({2025, 0, Monday}));
  EXPECT_FALSE(calendar->IsValidDateWeek({2025, 54, Monday}));
  EXPECT_FALSE(calendar->IsValidDateWeek({2025, 1, Undefined}));
  EXPECT_FALSE(calendar->IsValidDateWeek({0, 1, Monday}));
  EXPECT_FALSE(calendar->IsValidDateMonthWeek({2025, 1, 6, Monday}));
  EXPECT_FALSE(calendar->IsValidDateMonthWeek({2025, 13, 1, Monday}));
  EXPECT_THROW(calendar->EncodeDateWeek({2025, 54, Monday}), rtl::EConvertError);
  EXPECT_THROW(calendar->EncodeDateMonthWeek({2025, 1, 6, Monday}), rtl::EConvertError);
  EXPECT_THROW(calendar->WeeksInAYear(0), rtl::EConvertError);
}

TEST(Core, ADayOfTheWeekInAMonthGoesThereAndBack) {
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (TDateTime day = NewYear1404 - 2000; day < NewYear1404 + 2000; ++day)
      ASSERT_EQ(calendar->EncodeDayOfWeekInMonth(calendar->DecodeDayOfWeekInMonth(day)), day);
  }
  EXPECT_THROW(Gregorian()->EncodeDayOfWeekInMonth({2025, 2, 5, Monday}), rtl::EConvertError);
}

TEST(Core, DecodingAWeekBeforeTheFirstOneRaisesInsteadOfRecursingForEver) {
  const auto calendar = Jalali();
  const TDateTime year0 = calendar->EncodeDate({0, 1, 1});
  ASSERT_EQ(calendar->DayOfTheWeek(year0), Wednesday);
  for (int day = 0; day < 5; ++day) EXPECT_THROW(calendar->DecodeDateWeek(year0 + day), rtl::EConvertError) << day;
  for (int day = 0; day < 4; ++day) {
    const TDateMonthWeek week = calendar->DecodeDateMonthWeek(year0 + day);
    EXPECT_EQ(week, (TDateMonthWeek{0, 0, 1, calendar->DayOfTheWeek(year0 + day)})) << day;
  }
  EXPECT_EQ(calendar->DecodeDateWeek(year0 + 5).WeekOfYear, 1);
  for (const TDateTime value : {year0 - 1, year0 - 1e6, -1e300})
    EXPECT_THROW(calendar->DecodeDateWeek(value), rtl::EConvertError);
  EXPECT_THROW(Hijri()->DecodeDateWeek(-1e6), rtl::EConvertError);
  EXPECT_THROW(Gregorian()->DecodeDateWeek(-1e6), rtl::EConvertError);
}

TEST(Core, MonthWeeksMoveDaysAtTheEndIntoTheNextMonth) {
  // 31 March 2025 is a Monday, one of the first three days of its week.
  const auto calendar = Gregorian();
  EXPECT_EQ(calendar->DecodeDateMonthWeek(calendar->EncodeDate({2025, 3, 31})), (TDateMonthWeek{2025, 4, 1, Monday}));
  EXPECT_EQ(calendar->DecodeDateMonthWeek(calendar->EncodeDate({2024, 12, 31})), (TDateMonthWeek{2025, 1, 1, Tuesday}));
}

TEST(Core, EveryWordIsSafeInEveryOperation) {
  const std::uint16_t words[] = {0,   1,    2,    12,   13,   14,    31,    40,    366,
                                 367, 1403, 2327, 2328, 9999, 10000, 32767, 32768, 65535};
  const auto quietly = [](auto&& action) {
    try {
      action();
    } catch (const rtl::Exception&) {
    }
  };
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (const std::uint16_t a : words) {
      for (const std::uint16_t b : words) {
        quietly([&] { calendar->DaysInAMonth(a, b); });
        quietly([&] { calendar->EncodeDateDay(a, b); });
        quietly([&] { calendar->EndOfAMonth(a, b); });
        quietly([&] { calendar->EndOfAYear(a); });
        for (const std::uint16_t c : words) {
          quietly([&] { calendar->EncodeDate({a, b, c}); });
          quietly([&] { calendar->EncodeDateWeek({a, b, static_cast<TDayOfWeek>(c)}); });
          quietly([&] { calendar->EncodeDateMonthWeek({a, b, c, Undefined}); });
          quietly([&] { calendar->EncodeDayOfWeekInMonth({a, b, c, Undefined}); });
          for (const std::int32_t n : {1, -1, 13, std::numeric_limits<std::int32_t>::min()}) {
            TDateParts date = {a, b, c};
            quietly([&] { calendar->IncAMonth(date, n); });
            quietly([&] { calendar->IncAYear(date, n); });
            quietly([&] { calendar->IncADay(date, n); });
          }
        }
      }
    }
  }
}

TEST(Core, EveryNumberIsSafeAsADate) {
  const auto quietly = [](auto&& action) {
    try {
      action();
    } catch (const rtl::Exception&) {
    }
  };
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const auto& calendar : {Jalali(), Hijri(), Gregorian()}) {
    for (const TDateTime value : {0.0, -0.5, 1e9, -1e9, 1e18, -1e18, infinity, -infinity, std::nan("")}) {
      quietly([&] { calendar->DecodeDateWeek(value); });
      quietly([&] { calendar->DecodeDateMonthWeek(value); });
      quietly([&] { calendar->IncMonth(value, 5); });
      quietly([&] { calendar->IncYear(value, 5); });
      quietly([&] { calendar->StartOfTheWeek(value); });
      quietly([&] { calendar->EndOfTheWeek(value); });
      quietly([&] { calendar->EndOfTheYear(value); });
      quietly([&] { calendar->MilliSecondOfTheYear(value); });
      quietly([&] { calendar->MonthSpan(value, -value); });
      quietly([&] { calendar->RecodeYear(value, 1400); });
      quietly([&] { calendar->FormatDateTime(u"dddddd c", value, true); });
    }
  }
}

}  // namespace
}  // namespace orv
