#include <gtest/gtest.h>

#include "rtl/DateTime.h"
#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Gregorian;

TEST(Gregorian, DecodesAsTheDateLibraryDoesAndCountsSundayAs0) {
  const auto calendar = Gregorian();
  for (TDateTime value = -693593; value < 2958466; value += 97.123) {
    ASSERT_EQ(calendar->DecodeDate(value), rtl::DecodeDate(value));
    ASSERT_EQ(calendar->DecodeDateDay(value), rtl::DecodeDateDay(value));
    ASSERT_EQ(static_cast<int>(calendar->DayOfTheWeek(value)), rtl::DayOfWeek(value) - 1);
  }
  EXPECT_EQ(calendar->DayOfTheWeek(45739), TDayOfWeek::Sunday);
}

TEST(Gregorian, ADayBeforeYear1HasZerosAndADayOfTheWeekThatWrapped) {
  const auto calendar = Gregorian();
  TDateParts date = {7, 8, 9};
  TDayOfWeek dow = TDayOfWeek::Monday;
  EXPECT_FALSE(calendar->DecodeDateFully(-693594, date, dow));
  EXPECT_EQ(date, TDateParts{});
  EXPECT_EQ(static_cast<int>(dow), 255);
}

TEST(Gregorian, MonthsOutside1To12HaveNoLength) {
  const auto calendar = Gregorian();
  EXPECT_EQ(calendar->DaysInAMonth(1900, 2), 28);
  EXPECT_EQ(calendar->DaysInAMonth(2000, 2), 29);
  for (const std::uint16_t month : std::initializer_list<std::uint16_t>{0, 13, 65535})
    EXPECT_THROW(calendar->DaysInAMonth(2025, month), rtl::EConvertError);
}

TEST(Gregorian, TheLocaleIsTheOneGiven) {
  EXPECT_EQ(Gregorian()->FormatSettings.LongMonthNames[1], u"January");
  EXPECT_EQ(Gregorian()->FormatSettings.ShortDateFormat, u"mm/dd/yyyy");
  EXPECT_EQ(Gregorian()->FormatSettings.LongTimeFormat, u"HH:nn:ss");
  const auto hebrew = testing::Make<TOrvJulianDateCalendarCalc>(45737, u"he");
  EXPECT_EQ(hebrew->Locale(), u"he");
  EXPECT_EQ(hebrew->FormatSettings.LongMonthNames[1], u"ינואר");
  EXPECT_FALSE(hebrew->RightToLeft);
  EXPECT_EQ(hebrew->FirstWeekday, TCalDayOfWeek::dowMonday);
}

}  // namespace
}  // namespace orv
