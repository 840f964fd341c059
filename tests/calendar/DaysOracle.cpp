// The day arithmetic against ICU, whose calendars were written by others from the same definitions.
#include <gtest/gtest.h>
#include <unicode/calendar.h>

#include <memory>

#include "calendar/Date.h"

namespace orv {
namespace {

std::unique_ptr<icu::Calendar> MakeCalendar(const char* locale) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
  EXPECT_TRUE(U_SUCCESS(status));
  return calendar;
}

// The Julian Day Number of a date; the month counts from 0.
std::int32_t IcuDay(icu::Calendar& calendar, std::int32_t year, std::int32_t month, std::int32_t day) {
  UErrorCode status = U_ZERO_ERROR;
  calendar.clear();
  calendar.set(UCAL_EXTENDED_YEAR, year);
  calendar.set(UCAL_MONTH, month);
  calendar.set(UCAL_DATE, day);
  const std::int32_t result = calendar.get(UCAL_JULIAN_DAY, status);
  EXPECT_TRUE(U_SUCCESS(status));
  return result;
}

constexpr bool IsHebrewLeap(std::int32_t year) {
  return (7 * year + 1) % 19 < 7;
}

// The first day of a Hebrew month by ICU. In a leap year ICU calls the sixth month Adar I, number 5, and the seventh
// Adar, number 6; in a common year the sixth is Adar.
std::int32_t IcuHebrewMonth(icu::Calendar& calendar, std::int32_t year, std::int32_t month) {
  return IcuDay(calendar, year, month == 6 && !IsHebrewLeap(year) ? 6 : month - 1, 1);
}

// ICU 72 tests a new moon that has been put off from Sunday to Monday for the late hour of a Monday once more, though
// that rule speaks of the new moon itself; its new year then is a Tuesday. The year 5807 is such a one: it begins on
// Monday, 1 October 2046.
TEST(DaysOracle, HebrewNewYearsAreThoseOfIcuButForSundaysPutOffTwice) {
  const auto calendar = MakeCalendar("he@calendar=hebrew");
  int differences = 0;
  for (std::int32_t year = 1; year <= 7000; ++year) {
    const std::int32_t day = DMYToDay(1, 1, year, ckHebrew);
    const std::int32_t icu = IcuHebrewMonth(*calendar, year, 1);
    if (day == icu) continue;
    ++differences;
    ASSERT_EQ(icu, day + 1) << year;
    ASSERT_EQ(day % 7, 0) << "a Monday, " << year;
    ASSERT_TRUE(IsHebrewLeap(year - 1)) << year;
  }
  EXPECT_EQ(differences, 38);
  EXPECT_EQ(DMYToDay(1, 1, 5807, ckHebrew), DMYToDay(1, 10, 2046, ckGregorian));
}

TEST(DaysOracle, HebrewMonthsAreThoseOfIcuInYearsThatItBeginsRightly) {
  const auto calendar = MakeCalendar("he@calendar=hebrew");
  int compared = 0;
  for (std::int32_t year = 1; year < 7000; ++year) {
    if (DMYToDay(1, 1, year, ckHebrew) != IcuHebrewMonth(*calendar, year, 1)) continue;
    if (DMYToDay(1, 1, year + 1, ckHebrew) != IcuHebrewMonth(*calendar, year + 1, 1)) continue;
    ++compared;
    for (std::int32_t month = 1; month <= 13; ++month) {
      if (month == 7 && !IsHebrewLeap(year)) continue;
      ASSERT_EQ(DMYToDay(1, month, year, ckHebrew), IcuHebrewMonth(*calendar, year, month)) << year << "/" << month;
    }
  }
  EXPECT_GT(compared, 6900);
}

TEST(DaysOracle, IslamicYearsAreThoseOfTheCivilReckoning) {
  const auto calendar = MakeCalendar("ar@calendar=islamic-civil");
  for (std::int32_t year = 1; year <= 9999; ++year)
    for (std::int32_t month = 1; month <= 12; ++month)
      ASSERT_EQ(DMYToDay(1, month, year, ckIslamic), IcuDay(*calendar, year, month - 1, 1)) << year << "/" << month;
}

TEST(DaysOracle, JulianYearsAreThoseOfIcuBefore1582) {
  const auto calendar = MakeCalendar("en@calendar=gregorian");
  for (std::int32_t year = -4000; year <= 1582; ++year)
    for (std::int32_t month = 1; month <= 9; ++month)
      ASSERT_EQ(DMYToDay(1, month, year, ckJulian), IcuDay(*calendar, year, month - 1, 1)) << year << "/" << month;
}

}  // namespace
}  // namespace orv
