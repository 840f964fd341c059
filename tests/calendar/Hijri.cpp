#include <gtest/gtest.h>

#include <set>

#include "calendar/Date.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Hijri;
using testing::Jalali;

TEST(Hijri, LeapYearsStandAtTheirPlacesInTheCycle) {
  const auto calendar = Hijri();
  EXPECT_FALSE(calendar->IsLeapYear(1));
  EXPECT_TRUE(calendar->IsLeapYear(2));
  EXPECT_TRUE(calendar->IsLeapYear(29));
  EXPECT_FALSE(calendar->IsLeapYear(30));
  const std::set<int> places = {2, 5, 7, 10, 13, 16, 18, 21, 24, 26, 29};
  for (std::uint16_t year = 0; year < 65535; ++year) ASSERT_EQ(calendar->IsLeapYear(year), places.contains(year % 30));
}

TEST(Hijri, TheTwelfthMonthHas30DaysInALeapYear) {
  EXPECT_EQ(Hijri()->DaysInAMonth(2, 12), 30);
  EXPECT_EQ(Hijri()->DaysInAMonth(1, 12), 29);
}

TEST(Hijri, EveryYearHas51WeeksSoWeek52IsRefused) {
  const auto calendar = Hijri();
  for (const std::uint16_t year : std::initializer_list<std::uint16_t>{1, 1446, 9999, 65535})
    EXPECT_EQ(calendar->WeeksInAYear(year), 51);
  EXPECT_TRUE(calendar->IsValidDateWeek({1446, 51, TDayOfWeek::Monday}));
  EXPECT_FALSE(calendar->IsValidDateWeek({1446, 52, TDayOfWeek::Monday}));
}

TEST(Hijri, EncodingChecksTheDateWhereThePersianCalendarRollsOn) {
  EXPECT_FALSE(Hijri()->TryEncodeDate({1, 1, 31}).has_value());
  EXPECT_TRUE(Jalali()->TryEncodeDate({1, 1, 32}).has_value());
  EXPECT_FALSE(Hijri()->TryEncodeDate({0, 1, 1}).has_value());
  EXPECT_FALSE(Hijri()->TryEncodeDate({10000, 1, 1}).has_value());
  EXPECT_FALSE(Hijri()->TryEncodeDate({1446, 13, 1}).has_value());
}

TEST(Hijri, TheDayOfAYearIsNotChecked) {
  const auto calendar = Hijri();
  EXPECT_EQ(calendar->EncodeDateDay(1446, 355), calendar->EncodeDate({1447, 1, 1}));
  EXPECT_EQ(calendar->EncodeDateDay(1446, 0), calendar->EncodeDate({1445, 12, 30}));
  EXPECT_FALSE(calendar->TryEncodeDateDay(0, 1).has_value());
}

TEST(Hijri, MonthsOfOtherNumbersHaveTheLengthOfTheirTurn) {
  const auto calendar = testing::Make<TOrvHijriLunarDateCalendarCalc>();
  EXPECT_EQ(calendar->HowManyDaysInAMonth(1446, 0), 29);
  EXPECT_EQ(calendar->HowManyDaysInAMonth(1446, 13), 30);
  EXPECT_EQ(calendar->HowManyDaysInAMonth(1446, 65535), 30);
}

TEST(Hijri, DaysBeforeYear1DecodeToYearsCutToAWord) {
  const auto calendar = Hijri();
  const TDateTime newYear1 = calendar->EncodeDate({1, 1, 1});
  EXPECT_EQ(calendar->DecodeDate(newYear1 - 1), (TDateParts{0, 12, 29}));
  EXPECT_EQ(calendar->DecodeDate(newYear1 - 355), (TDateParts{65535, 12, 30}));
}

TEST(Hijri, AMonthStepCutsTheLeapDay) {
  const auto calendar = Hijri();
  TDateParts date = {1445, 12, 30};
  calendar->IncAYear(date, 1);
  EXPECT_EQ(date, (TDateParts{1446, 12, 29}));
  date = {1445, 1, 30};
  calendar->IncAMonth(date, 1);
  EXPECT_EQ(date, (TDateParts{1445, 2, 29}));
}

TEST(Hijri, MonthsKeepTheNamesOfALocaleThatAlreadySpeaksOfThem) {
  class TSource : public rtl::ILocaleSource {
   public:
    std::optional<rtl::TFormatSettings> FindLocale(std::u16string_view) const override {
      rtl::TFormatSettings settings;
      settings.LongMonthNames.Names[0] = u"first";
      settings.LongMonthNames.Names[1] = u"صفر";
      return settings;
    }
  };
  EXPECT_EQ(Hijri()->FormatSettings.LongMonthNames[1], u"محرّم");
  EXPECT_EQ(Hijri()->FormatSettings.ShortMonthNames[12], u"ذو الحجة");
  EXPECT_EQ(Hijri()->FormatSettings.LongDayNames[6], u"الجمعة") << "other fields stay those of the locale";
  const TSource source;
  rtl::SetLocaleSource(&source);
  EXPECT_EQ(Hijri()->FormatSettings.LongMonthNames[1], u"first");
  rtl::SetLocaleSource(nullptr);
}

TEST(Hijri, TheLocaleIsArabicAndRunsFromTheRight) {
  const auto calendar = testing::Make<TOrvHijriLunarDateCalendarCalc>(45737, u"en");
  EXPECT_EQ(calendar->Locale(), u"ar");
  EXPECT_TRUE(calendar->RightToLeft);
  EXPECT_EQ(calendar->CalendarType(), TOrvCalendarCalc::TCalendarType::LunarCalendar);
  EXPECT_EQ(calendar->TimeAMLongString, u"قبل الظهر");
  EXPECT_EQ(calendar->ApproxDaysPerMonth, 29.5);
}

}  // namespace
}  // namespace orv
