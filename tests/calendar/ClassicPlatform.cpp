// ctJulian: what the platform's Gregorian functions answer, operation by operation. What the platform has no function
// for is held against its definition on the platform's dates.
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <random>

#include "calendar/classic/IDateTime.h"
#include "rtl/Clock.h"
#include "rtl/DateErrors.h"
#include "rtl/Exceptions.h"
#include "rtl/WeekDates.h"

namespace orv {
namespace {

using W = std::uint16_t;
using U = IDateTime;
constexpr auto t = ctJulian;

// Calls check(value, other, step) with scattered moments of years 1 to 9999, some of them before 1899.
template <typename TCheck>
void OverMoments(unsigned seed, const TCheck& check) {
  constexpr int firstDay = -693593, lastDay = 2958465;
  std::mt19937 random(seed);
  const auto moment = [&random] {
    const int day = firstDay + static_cast<int>(random() % static_cast<unsigned>(lastDay - firstDay + 1));
    const int milliseconds = random() % 4 == 0 ? 0 : static_cast<int>(random() % 86400000);
    return rtl::JoinDateAndTime(day, milliseconds / 86400000.0);
  };
  for (int i = 0; i < 10000 && !::testing::Test::HasFatalFailure(); ++i) {
    const TDateTime value = moment();
    check(value, moment(), static_cast<std::int32_t>(random() % 100) - 50);
  }
}

TEST(ClassicPlatform, PartsOfADate) {
  OverMoments(1, [](TDateTime v, TDateTime, std::int32_t) {
    const TDateParts date = rtl::DecodeDate(v);
    const W dayOfYear = rtl::DecodeDateDay(v).DayOfYear;
    ASSERT_EQ(U::DecodeDate(t, v), date);
    ASSERT_EQ(U::DecodeDateDay(t, v), rtl::DecodeDateDay(v));
    ASSERT_EQ(U::DecodeDateTime(t, v), rtl::DecodeDateTime(v));
    ASSERT_EQ(U::DecodeDateWeek(t, v), rtl::DecodeDateWeek(v));
    ASSERT_EQ(U::DecodeDateMonthWeek(t, v), rtl::DecodeDateMonthWeek(v));
    ASSERT_EQ(U::DecodeDayOfWeekInMonth(t, v), rtl::DecodeDayOfWeekInMonth(v));
    TDateParts into = {7, 7, 7};
    TYearDay dayInto = {7, 7};
    U::DecodeDate(t, v, into);
    U::DecodeDateDay(t, v, dayInto);
    ASSERT_EQ(into, date);
    ASSERT_EQ(dayInto, rtl::DecodeDateDay(v));
    W dayOfWeek = 0;
    ASSERT_EQ(U::DecodeDateFully(t, v, into, dayOfWeek), rtl::DecodeDateFully(v).InLeapYear);
    ASSERT_EQ(into, rtl::DecodeDateFully(v).Date);
    ASSERT_EQ(dayOfWeek, rtl::DecodeDateFully(v).DayOfWeek);
    ASSERT_EQ(U::DayOf(t, v), date.Day);
    ASSERT_EQ(U::DayOfTheMonth(t, v), date.Day);
    ASSERT_EQ(U::MonthOf(t, v), date.Month);
    ASSERT_EQ(U::MonthOfTheYear(t, v), date.Month);
    ASSERT_EQ(U::YearOf(t, v), date.Year);
    ASSERT_EQ(U::DayOfTheYear(t, v), dayOfYear);
    ASSERT_EQ(U::WeekOf(t, v), rtl::DecodeDateWeek(v).Week);
    ASSERT_EQ(U::WeekOfTheYear(t, v), rtl::DecodeDateWeek(v).Week);
    ASSERT_EQ(U::DayOfTheWeek(t, v), rtl::DayOfTheWeek(v));
    ASSERT_EQ(U::DayOfWeek(t, v), rtl::DayOfWeek(v));
    ASSERT_EQ(U::NthDayOfWeek(t, v), rtl::DecodeDayOfWeekInMonth(v).Nth);
    ASSERT_EQ(U::NthDayOfWeek(t, date.Day), rtl::DecodeDayOfWeekInMonth(v).Nth);
  });
}

TEST(ClassicPlatform, SizesOfEveryYearAndMonth) {
  for (W year = 1; year <= 9999; ++year) {
    const TDateTime first = rtl::EncodeDate({year, 1, 1});
    ASSERT_EQ(U::IsLeapYear(t, year), rtl::IsLeapYear(year));
    ASSERT_EQ(U::IsInLeapYear(t, first), rtl::IsLeapYear(year));
    ASSERT_EQ(U::DaysInAYear(t, year), rtl::DaysInAYear(year));
    ASSERT_EQ(U::DaysInYear(t, first), rtl::DaysInAYear(year));
    ASSERT_EQ(U::WeeksInAYear(t, year), rtl::WeeksInAYear(year));
    ASSERT_EQ(U::WeeksInYear(t, first), rtl::WeeksInAYear(year));
    ASSERT_EQ(U::MonthsInAYear(t, year), 12);
    ASSERT_EQ(U::MonthsInYear(t, first), 12);
    for (W month = 1; month <= 12; ++month) {
      ASSERT_EQ(U::DaysInAMonth(t, year, month), rtl::DaysInAMonth(year, month));
      ASSERT_EQ(U::DaysInMonth(t, rtl::EncodeDate({year, month, 1})), rtl::DaysInAMonth(year, month));
    }
  }
}

// --- Words, in and out of bounds ---

// What a call answers, or nothing where it raises EConvertError; any other exception fails the test.
template <typename TCall>
auto AnswerOf(const TCall& call) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const rtl::EConvertError&) {
    return std::nullopt;
  }
}

constexpr W Years[] = {0, 1, 4, 1899, 1900, 2000, 2020, 2024, 2025, 9999, 10000, 65535};
constexpr W Words[] = {0,  1,  2,  4,  5,  6,  7,  8,   12,  13,  24,  28,   29,   30,
                       31, 32, 51, 52, 53, 54, 60, 365, 366, 367, 999, 1000, 65535};

TEST(ClassicPlatform, ChecksOfWords) {
  for (const W year : Years)
    for (const W a : Words) {
      ASSERT_EQ(U::IsValidDateDay(t, year, a), rtl::IsValidDateDay(year, a));
      ASSERT_EQ(U::TryEncodeDateDay(t, year, a), rtl::TryEncodeDateDay(year, a));
      ASSERT_EQ(AnswerOf([&] { return U::EncodeDateDay(t, year, a); }),
                AnswerOf([&] { return rtl::EncodeDateDay(year, a); }));
      ASSERT_EQ(AnswerOf([&] { return U::DaysInAMonth(t, year, a); }),
                AnswerOf([&] { return rtl::DaysInAMonth(year, a); }));
      ASSERT_EQ(U::IsYearValid(t, year), rtl::IsValidDate({year, 1, 1}));
      ASSERT_EQ(U::IsMonthValid(t, a), rtl::IsValidDate({2025, a, 1}));
      ASSERT_EQ(U::IsMonthValid(t, year, a), rtl::IsValidDate({year, a, 1}));
      for (const W b : Words) {
        ASSERT_EQ(U::IsValidDate(t, {year, a, b}), rtl::IsValidDate({year, a, b}));
        ASSERT_EQ(U::TryEncodeDate(t, {year, a, b}), rtl::TryEncodeDate({year, a, b}));
        ASSERT_EQ(AnswerOf([&] {
                    return U::EncodeDate(t, {year, a, b});
                  }),
                  AnswerOf([&] {
                    return rtl::EncodeDate({year, a, b});
                  }));
        ASSERT_EQ(U::IsValidDateWeek(t, {year, a, b}), rtl::IsValidDateWeek({year, a, b}));
        ASSERT_EQ(U::TryEncodeDateWeek(t, {year, a, b}), rtl::TryEncodeDateWeek({year, a, b}));
        ASSERT_EQ(AnswerOf([&] { return U::EncodeDateWeek(t, {year, a, b}); }), rtl::TryEncodeDateWeek({year, a, b}));
        ASSERT_EQ(AnswerOf([&] { return U::StartOfAWeek(t, {year, a, b}); }), rtl::TryEncodeDateWeek({year, a, b}));
      }
    }
}

TEST(ClassicPlatform, ChecksOfMonthWeeks) {
  for (const W year : Years)
    for (const W month : Words)
      for (const W week : Words)
        for (const W day : Words) {
          const TMonthWeek date = {year, month, week, day};
          ASSERT_EQ(U::IsValidDateMonthWeek(t, date), rtl::IsValidDateMonthWeek(date));
          ASSERT_EQ(U::TryEncodeDateMonthWeek(t, date), rtl::TryEncodeDateMonthWeek(date));
        }
  for (const W year : Years)
    for (const W month : std::initializer_list<W>{0, 1, 2, 12, 13})
      for (const W nth : Words)
        for (W day = 0; day < 9; ++day) {
          const TNthWeekDay date = {year, month, nth, day};
          const auto expected = AnswerOf([&] { return rtl::TryEncodeDayOfWeekInMonth(date); });
          ASSERT_EQ(AnswerOf([&] { return U::TryEncodeDayOfWeekInMonth(t, date); }), expected);
          ASSERT_EQ(AnswerOf([&] { return U::EncodeDayOfWeekInMonth(t, date); }), expected.value_or(std::nullopt));
        }
}

TEST(ClassicPlatform, ChecksOfDateAndTime) {
  for (const W hour : Words)
    for (const W minute : std::initializer_list<W>{0, 59, 60, 65535})
      for (const W second : std::initializer_list<W>{0, 59, 60, 65535})
        for (const W milliSecond : Words)
          for (const TDateParts date : {TDateParts{2025, 3, 21}, {1, 1, 1}, {1899, 12, 29}, {2025, 2, 29}, {0, 1, 1}}) {
            const TDateTimeParts parts = {date, {hour, minute, second, milliSecond}};
            ASSERT_EQ(U::IsValidDateTime(t, parts), rtl::IsValidDate(date) && rtl::IsValidTime(parts.Time));
            ASSERT_EQ(U::TryEncodeDateTime(t, parts), rtl::TryEncodeDateTime(parts));
            ASSERT_EQ(AnswerOf([&] { return U::EncodeDateTime(t, parts); }), rtl::TryEncodeDateTime(parts));
          }
}

TEST(ClassicPlatform, EncodingGivesDecodedPartsBack) {
  OverMoments(2, [](TDateTime v, TDateTime, std::int32_t) {
    const TDateTime day = rtl::StartOfTheDay(v);
    ASSERT_EQ(U::EncodeDate(t, rtl::DecodeDate(v)), day);
    ASSERT_EQ(U::EncodeDateDay(t, rtl::DecodeDateDay(v).Year, rtl::DecodeDateDay(v).DayOfYear), day);
    ASSERT_EQ(U::EncodeDateTime(t, rtl::DecodeDateTime(v)), *rtl::TryEncodeDateTime(rtl::DecodeDateTime(v)));
    ASSERT_EQ(U::EncodeDateMonthWeek(t, rtl::DecodeDateMonthWeek(v)), day);
    ASSERT_EQ(U::EncodeDayOfWeekInMonth(t, rtl::DecodeDayOfWeekInMonth(v)), day);
    const TYearWeek week = rtl::DecodeDateWeek(v);
    if (week.Year < 1 || week.Year > 9999) return;
    ASSERT_EQ(U::EncodeDateWeek(t, week), day);
  });
}

// --- Starts, ends, counts ---

TEST(ClassicPlatform, StartsAndEnds) {
  OverMoments(3, [](TDateTime v, TDateTime, std::int32_t) {
    const auto [year, month, day] = rtl::DecodeDate(v);
    const W dayOfYear = rtl::DecodeDateDay(v).DayOfYear;
    const TDateTime monthStart = rtl::EncodeDate({year, month, 1});
    const TDateTime monthEnd = rtl::EndOfTheDay(rtl::EncodeDate({year, month, rtl::DaysInAMonth(year, month)}));
    const TDateTime yearStart = rtl::EncodeDate({year, 1, 1});
    const TDateTime yearEnd = rtl::EndOfTheDay(rtl::EncodeDate({year, 12, 31}));
    ASSERT_EQ(U::StartOfAYear(t, year), yearStart);
    ASSERT_EQ(U::StartOfTheYear(t, v), yearStart);
    ASSERT_EQ(U::EndOfAYear(t, year), yearEnd);
    ASSERT_EQ(U::EndOfTheYear(t, v), yearEnd);
    ASSERT_EQ(U::StartOfAMonth(t, year, month), monthStart);
    ASSERT_EQ(U::StartOfTheMonth(t, v), monthStart);
    ASSERT_EQ(U::EndOfAMonth(t, year, month), monthEnd);
    ASSERT_EQ(U::EndOfTheMonth(t, v), monthEnd);
    ASSERT_EQ(U::StartOfADay(t, {year, month, day}), rtl::StartOfTheDay(v));
    ASSERT_EQ(U::StartOfADay(t, year, dayOfYear), rtl::StartOfTheDay(v));
    ASSERT_EQ(U::EndOfADay(t, {year, month, day}), rtl::EndOfTheDay(v));
    ASSERT_EQ(U::EndOfADay(t, year, dayOfYear), rtl::EndOfTheDay(v));
    ASSERT_EQ(U::StartOfTheWeek(t, v), rtl::StartOfTheWeek(v));
    ASSERT_EQ(U::EndOfTheWeek(t, v), rtl::EndOfTheDay(rtl::StartOfTheWeek(v) + 6));
    const TYearWeek week = rtl::DecodeDateWeek(v);
    if (week.Year < 1 || week.Year > 9999) return;
    ASSERT_EQ(U::StartOfAWeek(t, week), rtl::StartOfTheDay(v));
    ASSERT_EQ(U::EndOfAWeek(t, week), rtl::EndOfTheDay(v));
  });
}

TEST(ClassicPlatform, CountsFromTheStartOfMonthWeekAndYear) {
  OverMoments(4, [](TDateTime v, TDateTime, std::int32_t) {
    const auto [hour, minute, second, milliSecond] = rtl::DecodeTime(v);
    const int inMonth = hour + (rtl::DecodeDate(v).Day - 1) * 24;
    const int inWeek = hour + (rtl::DayOfTheWeek(v) - 1) * 24;
    const int inYear = hour + (rtl::DecodeDateDay(v).DayOfYear - 1) * 24;
    ASSERT_EQ(U::HourOfTheMonth(t, v), inMonth);
    ASSERT_EQ(U::HourOfTheWeek(t, v), inWeek);
    ASSERT_EQ(U::HourOfTheYear(t, v), inYear);
    const auto minuteOfMonth = static_cast<unsigned>(minute + inMonth * 60);
    const auto minuteOfWeek = static_cast<unsigned>(minute + inWeek * 60);
    const auto minuteOfYear = static_cast<unsigned>(minute + inYear * 60);
    ASSERT_EQ(U::MinuteOfTheMonth(t, v), minuteOfMonth);
    ASSERT_EQ(U::MinuteOfTheWeek(t, v), minuteOfWeek);
    ASSERT_EQ(U::MinuteOfTheYear(t, v), minuteOfYear);
    ASSERT_EQ(U::SecondOfTheMonth(t, v), second + minuteOfMonth * 60);
    ASSERT_EQ(U::SecondOfTheWeek(t, v), second + minuteOfWeek * 60);
    ASSERT_EQ(U::SecondOfTheYear(t, v), second + minuteOfYear * 60);
    ASSERT_EQ(U::MilliSecondOfTheMonth(t, v), milliSecond + (second + minuteOfMonth * 60) * std::int64_t{1000});
    ASSERT_EQ(U::MilliSecondOfTheWeek(t, v), milliSecond + (second + minuteOfWeek * 60) * std::int64_t{1000});
    ASSERT_EQ(U::MilliSecondOfTheYear(t, v), milliSecond + (second + minuteOfYear * 60) * std::int64_t{1000});
  });
}

// --- Spans and steps ---

TEST(ClassicPlatform, SpansAndRanges) {
  OverMoments(5, [](TDateTime v, TDateTime w, std::int32_t) {
    ASSERT_EQ(U::DateTimeToMilliseconds(t, v), rtl::DateTimeToMilliseconds(v));
    ASSERT_EQ(U::DaysBetween(t, v, w), rtl::DaysBetween(v, w));
    ASSERT_EQ(U::WeeksBetween(t, v, w), rtl::WeeksBetween(v, w));
    ASSERT_EQ(U::DaySpan(t, v, w), rtl::DaySpan(v, w));
    ASSERT_EQ(U::WeekSpan(t, v, w), rtl::WeekSpan(v, w));
    ASSERT_EQ(U::MonthSpan(t, v, w), rtl::DaySpan(v, w) / rtl::ApproxDaysPerMonth);
    ASSERT_EQ(U::YearSpan(t, v, w), rtl::DaySpan(v, w) / rtl::ApproxDaysPerYear);
    constexpr std::int64_t month = 2629800000, year = 31557600000;  // of 30.4375 and 365.25 days
    ASSERT_EQ(U::MonthsBetween(t, v, w), rtl::MilliSecondsBetween(v, w) / month);
    ASSERT_EQ(U::YearsBetween(t, v, w), rtl::MilliSecondsBetween(v, w) / year);
    const TDateTime late = rtl::IncDay(v, 3);
    for (const bool inclusive : {false, true})
      for (const TDateTime x : {v, w, late, rtl::StartOfTheDay(v), rtl::EndOfTheDay(v), rtl::IncDay(v)}) {
        ASSERT_EQ(U::DateInRange(t, x, v, late, inclusive), rtl::DateInRange(x, v, late, inclusive));
        ASSERT_EQ(U::DateTimeInRange(t, x, v, late, inclusive), rtl::DateTimeInRange(x, v, late, inclusive));
      }
  });
}

TEST(ClassicPlatform, Steps) {
  OverMoments(6, [](TDateTime v, TDateTime, std::int32_t n) {
    const TDateParts date = rtl::DecodeDate(v);
    ASSERT_EQ(U::IncDay(t, v, n), rtl::IncDay(v, n));
    ASSERT_EQ(U::IncWeek(t, v, n), rtl::IncWeek(v, n));
    ASSERT_EQ(AnswerOf([&] { return U::IncMonth(t, v, n); }), AnswerOf([&] { return rtl::IncMonth(v, n); }));
    ASSERT_EQ(AnswerOf([&] { return U::IncYear(t, v, n); }), AnswerOf([&] { return rtl::IncYear(v, n); }));
    TDateParts stepped = date;
    U::IncAMonth(t, stepped, n);
    ASSERT_EQ(stepped, rtl::IncAMonth(date, n));
    stepped = date;
    U::IncAYear(t, stepped, n);
    const W year = static_cast<W>(date.Year + n);
    ASSERT_EQ(stepped, (TDateParts{year, date.Month, std::min(date.Day, rtl::DaysInAMonth(year, date.Month))}));
    const TDateTime onward = rtl::IncDay(rtl::StartOfTheDay(v), n);
    stepped = date;
    U::IncADay(t, stepped, n);
    ASSERT_EQ(stepped, rtl::DecodeDate(onward));
    TYearDay yearDay = rtl::DecodeDateDay(v);
    U::IncADay(t, yearDay, n);
    ASSERT_EQ(yearDay, rtl::DecodeDateDay(onward));
  });
}

// --- Replacing, comparing, names ---

TEST(ClassicPlatform, ReplacedParts) {
  OverMoments(7, [](TDateTime v, TDateTime w, std::int32_t) {
    constexpr W keep = 65535;
    const TDateTimeParts old = rtl::DecodeDateTime(v), other = rtl::DecodeDateTime(w);
    const auto encoded = [](const TDateTimeParts& parts) { return rtl::TryEncodeDateTime(parts); };
    ASSERT_EQ(U::TryRecodeDateTime(t, v, other), encoded(other));
    ASSERT_EQ(U::TryRecodeDateTime(t, v, {{keep, keep, keep}, {keep, keep, keep, keep}}), encoded(old));
    ASSERT_EQ(U::TryRecodeDateTime(t, v, {{keep, keep, keep}, other.Time}), encoded({old.Date, other.Time}));
    ASSERT_EQ(U::TryRecodeDateTime(t, v, {other.Date, {keep, keep, keep, keep}}), encoded({other.Date, old.Time}));
    ASSERT_EQ(AnswerOf([&] {
                return U::RecodeDateTime(t, v, {{keep, 2, keep}, {keep, 0, keep, keep}});
              }),
              encoded({{old.Date.Year, 2, old.Date.Day}, {old.Time.Hour, 0, old.Time.Second, old.Time.MilliSecond}}));
    ASSERT_EQ(AnswerOf([&] { return U::RecodeYear(t, v, other.Date.Year); }),
              encoded({{other.Date.Year, old.Date.Month, old.Date.Day}, old.Time}));
    ASSERT_EQ(AnswerOf([&] { return U::RecodeMonth(t, v, other.Date.Month); }),
              encoded({{old.Date.Year, other.Date.Month, old.Date.Day}, old.Time}));
    ASSERT_EQ(AnswerOf([&] { return U::RecodeDay(t, v, other.Date.Day); }),
              encoded({{old.Date.Year, old.Date.Month, other.Date.Day}, old.Time}));
    ASSERT_EQ(U::RecodeDate(t, v, other.Date), *encoded({other.Date, old.Time}));
  });
}

TEST(ClassicPlatform, Comparisons) {
  OverMoments(8, [](TDateTime v, TDateTime far, std::int32_t n) {
    const TDateParts a = rtl::DecodeDate(v);
    for (const TDateTime w : {far, rtl::IncDay(v, n), rtl::IncDay(v, 7), rtl::IncDay(v, 365)}) {
      const TDateParts b = rtl::DecodeDate(w);
      const bool sameMonth = a.Month == b.Month, sameDay = a.Day == b.Day;
      ASSERT_EQ(U::SameMonth(t, v, w), sameMonth);
      ASSERT_EQ(U::SameMonth(t, v, b.Month), sameMonth);
      ASSERT_EQ(U::SameDayOfMonth(t, v, w), sameDay);
      ASSERT_EQ(U::SameDayOfMonth(t, v, b.Day), sameDay);
      ASSERT_EQ(U::SameDayMonth(t, v, w), sameMonth && sameDay);
      ASSERT_EQ(U::SameDayMonth(t, v, b.Month, b.Day), sameMonth && sameDay);
      const bool sameDayOfWeek = rtl::DayOfTheWeek(v) == rtl::DayOfTheWeek(w);
      ASSERT_EQ(U::SameDayOfWeek(t, v, w), sameDayOfWeek);
      ASSERT_EQ(U::SameDayOfWeek(t, v, rtl::DayOfTheWeek(w)), sameDayOfWeek);
      if (!rtl::IsValidDate(b)) continue;
      ASSERT_EQ(U::SameDayOfWeek(t, v, b), sameDayOfWeek);
    }
  });
}

TEST(ClassicPlatform, NamesCountAsTheTablesOfTheSettings) {
  const rtl::TFormatSettings english = rtl::TFormatSettings::Invariant();
  EXPECT_EQ(U::WhatDay(t, u"Sunday", english), 1);
  EXPECT_EQ(U::WhatDay(t, u"Saturday", english), 7);
  EXPECT_EQ(U::WhatDay(t, u"Mon", english), 2);
  EXPECT_EQ(U::WhatDay(t, u"monday", english), -1);
  EXPECT_EQ(U::WhatMonth(t, u"January", english), 1);
  EXPECT_EQ(U::WhatMonth(t, u"Dec", english), 12);
  EXPECT_EQ(U::WhatMonth(t, u"", english), -1);
}

TEST(ClassicPlatform, ThePresentDay) {
  const rtl::TClockScope clock(45737.75);
  EXPECT_EQ(U::CurrentYear(t), 2025);
  EXPECT_EQ(U::CurrentMonth(t), 3);
  EXPECT_EQ(U::CurrentDay(t), 21);
}

}  // namespace
}  // namespace orv
