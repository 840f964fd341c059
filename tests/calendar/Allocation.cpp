// Operations that neither make nor take texts allocate nothing.
#include <gtest/gtest.h>

#include "calendar/Date.h"
#include "tests/calendar/support/Calendars.h"
#include "tests/support/Allocations.h"

namespace orv {
namespace {

using testing::AllocationsOf;

TEST(Allocation, IsCountedAtAll) {
  EXPECT_EQ(AllocationsOf([] { delete new int(1); }), 1);
}

TEST(Allocation, NoneInDatesStepsSpansAndWeeks) {
  const auto jalali = testing::Jalali();
  const auto hijri = testing::Hijri();
  const auto gregorian = testing::Gregorian();
  for (const TOrvCalendarCalc* calendar : {jalali.get(), hijri.get(), gregorian.get()}) {
    EXPECT_EQ(AllocationsOf([calendar] {
                double sum = 0;
                for (TDateTime day = 40000; day < 41000; day += 0.75) {
                  const TDateTimeParts parts = calendar->DecodeDateTime(day);
                  sum += calendar->EncodeDateTime(parts);
                  sum += calendar->DecodeDateWeek(day).WeekOfYear + calendar->DecodeDateMonthWeek(day).WeekOfMonth;
                  sum += calendar->EndOfTheMonth(day) + calendar->EndOfTheWeek(day) + calendar->StartOfTheYear(day);
                  sum += calendar->IncMonth(day, 5) + calendar->IncYear(day, -3) + calendar->IncDay(day, 7);
                  sum += calendar->RecodeYear(day, 1404) + calendar->MonthSpan(day, 0) + calendar->YearSpan(day, 0);
                  sum += static_cast<double>(calendar->MilliSecondOfTheYear(day)) + calendar->WeeksInYear(day);
                  sum += calendar->EncodeDayOfWeekInMonth(calendar->DecodeDayOfWeekInMonth(day));
                  sum += calendar->IsValidDate(parts.Date) + calendar->TryEncodeDate({1404, 13, 1}).value_or(0);
                }
                EXPECT_NE(sum, 0);
              }),
              0);
  }
}

TEST(Allocation, NoneInDayArithmetic) {
  EXPECT_EQ(AllocationsOf([] {
              std::int64_t sum = 0;
              for (std::int32_t kind = ckGregorian; kind <= ckJalali; ++kind) {
                for (std::int32_t day = 2450000; day < 2451000; ++day) {
                  const TDayMonthYear date = DayToDMY(day, kind);
                  sum += DMYToDay(date.Day, date.Month, date.Year, kind);
                }
              }
              EXPECT_NE(sum, 0);
            }),
            0);
}

TEST(Allocation, WritingIntoATextThatHasRoomAllocatesNothing) {
  const auto calendar = testing::Jalali();
  UnicodeString text(100, u' ');
  EXPECT_EQ(AllocationsOf([&] { calendar->DateTimeToString(text, u"yyyy/mm/dd hh:nn:ss dddd", 45737.5, true); }), 0);
  EXPECT_EQ(AllocationsOf([&] { calendar->FormatDateTime(u"yyyy/mm/dd hh:nn:ss dddd", 45737.5, true); }), 1);
}

TEST(Allocation, ReadingANumberFormatAllocatesNothing) {
  const auto calendar = testing::Jalali();
  EXPECT_EQ(AllocationsOf([&] {
              EXPECT_TRUE(calendar->FormatStringFullToDateTime(u"yyyy/mm/dd hh:nn:ss", u"1404/01/02 03:04:05"));
            }),
            0);
}

}  // namespace
}  // namespace orv
