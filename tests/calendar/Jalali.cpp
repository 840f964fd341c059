#include <gtest/gtest.h>

#include "calendar/Date.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Jalali;
using testing::NewYear1404;
using testing::Word;

TEST(Jalali, ThirtyEsfand1403IsValidAndThatOf1404IsNot) {
  const auto calendar = Jalali();
  EXPECT_TRUE(calendar->IsValidDate({1403, 12, 30}));
  EXPECT_FALSE(calendar->IsValidDate({1404, 12, 30}));
  EXPECT_EQ(calendar->EncodeDate({1404, 12, 30}), calendar->EncodeDate({1405, 1, 1}));
}

TEST(Jalali, EsfandHas30DaysIn1403And29In1404) {
  EXPECT_EQ(Jalali()->DaysInAMonth(1403, 12), 30);
  EXPECT_EQ(Jalali()->DaysInAMonth(1404, 12), 29);
}

TEST(Jalali, TheFirstOfFarvardin1404IsAFriday) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->EncodeDate({1404, 1, 1}), NewYear1404);
  EXPECT_EQ(calendar->DayOfTheWeek(calendar->EncodeDate({1404, 1, 1})), TDayOfWeek::Friday);
}

TEST(Jalali, Day187IsTheFirstOfMehrAndDay186TheLastOfShahrivar) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->DecodeDate(calendar->EncodeDateDay(1404, 187)), (TDateParts{1404, 7, 1}));
  EXPECT_EQ(calendar->DecodeDate(calendar->EncodeDateDay(1404, 186)), (TDateParts{1404, 6, 31}));
}

TEST(Jalali, AMonthStepCutsTheDayOnlyWhereTheMonthIsTooShort) {
  const auto calendar = Jalali();
  const auto step = [&calendar](TDateParts date, std::int32_t months) {
    calendar->IncAMonth(date, months);
    return date;
  };
  EXPECT_EQ(step({1404, 6, 31}, 1), (TDateParts{1404, 7, 30}));
  EXPECT_EQ(step({1404, 11, 30}, 1), (TDateParts{1404, 12, 29}));
  EXPECT_EQ(step({1403, 11, 30}, 1), (TDateParts{1403, 12, 30}));
  EXPECT_EQ(step({1404, 3, 31}, 1), (TDateParts{1404, 4, 31}));
  EXPECT_EQ(step({1404, 12, 29}, 1), (TDateParts{1404, 1, 29})) << "the year does not step at the wrap";
  EXPECT_EQ(step({1404, 1, 5}, -3), (TDateParts{1404, 10, 5}));
  EXPECT_EQ(step({1404, 1, 5}, 25), (TDateParts{1406, 2, 5}));
  EXPECT_EQ(step({1404, 7, 40}, 0), (TDateParts{1404, 7, 40})) << "nothing but 31 is cut";
}

TEST(Jalali, ADateInYear2327LeavesTheOutputsAsTheyWere) {
  const auto calendar = Jalali();
  const TDateTime inYear2327 = JalaliJD0(2327) + 10 - 2415019;
  TDateParts date = {7, 8, 9};
  TYearDay day = {7, 8};
  calendar->DecodeDate(inYear2327, date);
  calendar->DecodeDateDay(inYear2327, day);
  EXPECT_EQ(date, (TDateParts{7, 8, 9}));
  EXPECT_EQ(day, (TYearDay{7, 8}));
  EXPECT_EQ(calendar->DecodeDate(inYear2327), TDateParts{});
}

TEST(Jalali, DaysFromTheFirstOfYear0ToTenShahrivar2325AreDecodedAndNoOthers) {
  const auto calendar = Jalali();
  const TDateTime first = calendar->EncodeDate({0, 1, 1});
  const TDateTime last = calendar->EncodeDate({2325, 6, 10});
  EXPECT_EQ(calendar->DecodeDate(first), (TDateParts{0, 1, 1}));
  EXPECT_EQ(calendar->DecodeDate(last), (TDateParts{2325, 6, 10}));
  EXPECT_EQ(last - first + 1, 849354);
  for (const TDateTime value :
       {first - 1, first - 364, first - 400, last + 1, last + 100000, -1e9, 1e9, 1e300, -1e300}) {
    TDateParts date = {7, 8, 9};
    calendar->DecodeDate(value, date);
    EXPECT_EQ(date, (TDateParts{7, 8, 9})) << value;
    EXPECT_EQ(calendar->YearOf(value), 0);
  }
}

TEST(Jalali, ANegativeYearIsALargeWordAndRefused) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->MinYear, -1096);
  EXPECT_TRUE(calendar->IsYearValid(-3));
  EXPECT_FALSE(calendar->IsValidDate({Word(-3), 1, 1}));
  EXPECT_FALSE(calendar->TryEncodeDate({Word(-3), 1, 1}).has_value());
  EXPECT_THROW(calendar->EncodeDate({Word(-3), 1, 1}), rtl::EConvertError);
  EXPECT_THROW(calendar->DaysInAYear(Word(-3)), EInvalidDateOperation);
}

TEST(Jalali, ACalculatorMadeWithAnotherLocaleStillSpeaksPersian) {
  const auto calendar = testing::Make<TOrvJalaliDateCalendarCalc>(NewYear1404, u"en");
  EXPECT_EQ(calendar->Locale(), u"fa-Ir");
  EXPECT_TRUE(calendar->RightToLeft);
  EXPECT_EQ(calendar->FormatSettings.LongMonthNames[1], u"فروردین");
}

TEST(Jalali, AYearAboveTheRangeRaisesWithTheRangeInTheMessage) {
  const auto calendar = Jalali();
  try {
    calendar->DaysInAYear(2328);
    FAIL();
  } catch (const EInvalidDateOperation& error) {
    EXPECT_STREQ(error.what(), "The 2328 date must be in the range of -1096, 2327");
    EXPECT_EQ(error.ClassName(), "EInvalidDateOperation");
  }
  EXPECT_THROW(calendar->DaysInAMonth(2328, 12), EInvalidDateOperation);
  EXPECT_THROW(calendar->IsLeapYear(65535), EInvalidDateOperation);
  EXPECT_EQ(calendar->DaysInAMonth(2328, 11), 30) << "only Esfand asks for the year";
  EXPECT_EQ(calendar->DaysInAMonth(65535, 0), 31);
}

TEST(Jalali, TheLastYearHasTheLengthThatCuttingToAWordGives) {
  EXPECT_EQ(Jalali()->DaysInAYear(2327), 20174);
  EXPECT_FALSE(Jalali()->IsLeapYear(2327));
  EXPECT_EQ(Jalali()->DaysInAMonth(2327, 12), 20174 - 336);
}

TEST(Jalali, Month13AndDay40RollOn) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->EncodeDate({1404, 13, 1}), calendar->EncodeDate({1404, 12, 29}) + 2);
  EXPECT_EQ(calendar->EncodeDate({1404, 1, 40}), calendar->EncodeDate({1404, 2, 9}));
  EXPECT_EQ(calendar->EncodeDate({1404, 1, 0}), NewYear1404 - 1);
  EXPECT_EQ(calendar->EncodeDateDay(1404, 1000), NewYear1404 + 999);
  EXPECT_EQ(calendar->EncodeDate({1404, 1, 65535}), NewYear1404 + 65534);
  EXPECT_TRUE(calendar->TryEncodeDate({1404, 65535, 65535}).has_value());
}

TEST(Jalali, TheSettingsOfIranStandForFaAndFaIrAlone) {
  const auto calendar = testing::Make<TOrvJalaliDateCalendarCalc>();
  const rtl::TFormatSettings& settings = calendar->FormatSettings;
  EXPECT_EQ(settings.CurrencyString, u"\u0631\u064A\u0627\u0644");
  EXPECT_EQ(settings.CurrencyFormat, 2);
  EXPECT_EQ(settings.CurrencyDecimals, 1);
  EXPECT_EQ(settings.NegCurrFormat, 12);
  EXPECT_EQ(settings.ThousandSeparator, u'\u066C');
  EXPECT_EQ(settings.DecimalSeparator, u'\u066B');
  EXPECT_EQ(settings.ShortDateFormat, u"yy/m/d");
  EXPECT_EQ(settings.LongDateFormat, u"yyyy/mmmm/d-dddd");
  EXPECT_EQ(settings.ShortTimeFormat, u"h:nn");
  EXPECT_EQ(settings.LongTimeFormat, u"h:nn anpn") << "in time formats every m is a minute";
  EXPECT_EQ(settings.TimeAMString, u"صبح");
  EXPECT_EQ(settings.TimePMString, u"بعد از ظهر");
  EXPECT_EQ(settings.LongDayNames[1], u"یکشنبه");
  EXPECT_EQ(settings.LongDayNames[7], u"شنبه");
  EXPECT_EQ(settings.ShortDayNames[6], u"ج");
  EXPECT_EQ(settings.ShortMonthNames, settings.LongMonthNames);

  calendar->SetLocale(u"FA");
  EXPECT_EQ(calendar->FormatSettings.LongMonthNames[12], u"اسفند");
  calendar->SetLocale(u"fa-AF");
  EXPECT_NE(calendar->FormatSettings.LongMonthNames[12], u"اسفند") << "another country keeps its own names";
  calendar->SetLocale(u"en-US");
  EXPECT_EQ(calendar->FormatSettings.LongMonthNames[12], u"December");
  EXPECT_EQ(calendar->TimeAMLongString, u"قبل از ظهر") << "the calculator's own texts stay";
  calendar->SetLocale(u"");
  EXPECT_EQ(calendar->Locale(), u"fa-Ir") << "without a name, the calendar takes its own";
  EXPECT_EQ(calendar->FormatSettings.LongMonthNames[12], u"اسفند");
}

TEST(Jalali, TheOneLetterMarksAreSadAndAin) {
  const auto calendar = Jalali();
  EXPECT_EQ(calendar->TimeAMVeryShortString, u'\u0635');
  EXPECT_EQ(calendar->TimePMVeryShortString, u'\u0639');
  EXPECT_EQ(calendar->FirstWeekday, TCalDayOfWeek::dowSaturday);
  EXPECT_EQ(calendar->CalendarType(), TOrvCalendarCalc::TCalendarType::SolarCalendar);
}

}  // namespace
}  // namespace orv
