// Texts of the classic units: the formatter, the reader and the field locator with the Persian settings in force.
#include <gtest/gtest.h>

#include "calendar/DateGlobal.h"
#include "calendar/classic/IDateTime.h"
#include "calendar/classic/InitLocale.h"
#include "rtl/Clock.h"
#include "rtl/DateTimeText.h"
#include "rtl/Exceptions.h"
#include "rtl/Utf8.h"

namespace orv {
namespace {

using rtl::EConvertError;
using rtl::ToUtf8;

constexpr TDateTime NewYear = 45737;  // Friday, 21 March 2025, 1 Farvardin 1404, 21 Ramadan 1446

rtl::TFormatSettings PersianSettings() {
  rtl::TFormatSettings settings;
  MakePersian(settings);
  return settings;
}
const rtl::TFormatSettings Settings = PersianSettings();

std::string Written(std::u16string_view format, TDateTime value, const rtl::TFormatSettings& settings = Settings) {
  return ToUtf8(PDateTime::FormatDateTime(format, value, settings));
}

TDateTime At(std::uint16_t hour, std::uint16_t minute = 0, std::uint16_t second = 0, std::uint16_t ms = 0) {
  return NewYear + rtl::EncodeTime({hour, minute, second, ms});
}

TEST(ClassicFormat, FieldsOfADate) {
  EXPECT_EQ(Written(u"yyyy/mm/dd", NewYear), "1404/01/01");
  EXPECT_EQ(Written(u"d mmm mmmm ddd dddd", NewYear), "1 فروردین فروردین ج جمعه");
  EXPECT_EQ(Written(u"ddddd", NewYear), "04/1/1");
  EXPECT_EQ(Written(u"dddddd", NewYear), "1404/فروردین/1-جمعه");
  EXPECT_EQ(Written(u"y yy", NewYear), "y 04");
  EXPECT_EQ(ToUtf8(ADateTime::FormatDateTime(u"d/m/yyyy dddd", NewYear, Settings)), "21/9/1446 جمعه");
}

TEST(ClassicFormat, DayNamesAreIndexedFromSaturday) {
  for (int day = 0; day < 7; ++day) EXPECT_EQ(Written(u"dddd", NewYear + 1 + day), ToUtf8(WeekDays()[day + 1]));
  EXPECT_EQ(PDateTime::FormatDateTimeFullToString(u"[dddd]", {}, 8, Settings), u"[]");
  EXPECT_EQ(PDateTime::FormatDateTimeFullToString(u"[dddd]", {}, 0, Settings), u"[]");
}

TEST(ClassicFormat, OnlyLowerCaseLettersAreFields) {
  EXPECT_EQ(Written(u"YYYY D M h", At(9)), "YYYY D M 9");
}

TEST(ClassicFormat, SeparatorsAreAlwaysTheSettings) {
  rtl::TFormatSettings settings = Settings;
  settings.DateSeparator = u'-';
  settings.TimeSeparator = u'.';
  EXPECT_EQ(Written(u"m/d h:nn", At(9, 5), settings), "1-1 9.05");
}

TEST(ClassicFormat, ThreeZWriteThePaddedAndThenThePlainNumber) {
  EXPECT_EQ(Written(u"zzz", At(0, 0, 0, 7)), "0077");
  EXPECT_EQ(Written(u"zz", At(0, 0, 0, 7)), "77");
  EXPECT_EQ(Written(u"tt", At(9, 5)), "9:05 صبح9:05");
}

TEST(ClassicFormat, QuotedTextIsCopiedAndThenReadAsFormat) {
  EXPECT_EQ(Written(u"'d'", NewYear), "d1");
  EXPECT_EQ(Written(u"d'", NewYear), "1");
  EXPECT_THROW(Written(u"'x''y'", NewYear), EConvertError);
}

TEST(ClassicFormat, TwelveHourTimeCounts12ForZeroAndNoonIsAfternoon) {
  EXPECT_EQ(Written(u"h:nn ampm", At(0, 5)), "12:05 صبح");
  EXPECT_EQ(Written(u"h:nn ampm", At(11, 5)), "11:05 صبح");
  EXPECT_EQ(Written(u"h:nn ampm", At(12, 5)), "12:05 بعد از ظهر");
  EXPECT_EQ(Written(u"h:nn ampm", At(13, 5)), "1:05 بعد از ظهر");
  EXPECT_EQ(Written(u"h:nn", At(13, 5)), "13:05");
  EXPECT_EQ(Written(u"h:nn", At(0, 5)), "0:05");
}

TEST(ClassicFormat, AmPmFormsAndTheirTexts) {
  EXPECT_EQ(Written(u"h a/p", At(9)), "9 ص");
  EXPECT_EQ(Written(u"h a/p", At(21)), "9 ع");
  EXPECT_EQ(Written(u"h am/pm", At(9)), "9 ق/ظ");
  EXPECT_EQ(Written(u"h am/pm", At(21)), "9 ب/ظ");
  EXPECT_EQ(Written(u"h AMPM", At(21)), "9 بعد از ظهر");
  // Mixed case writes the text but is no 12-hour clock; the other forms want their letters exactly.
  EXPECT_EQ(Written(u"h AmPm", At(21)), "21 بعد از ظهر");
  EXPECT_EQ(Written(u"h A/P", At(21)), "21 A/P");
  EXPECT_EQ(Written(u"h AM/PM", At(21)), "21 AM/PM");
  EXPECT_EQ(Written(u"h:nn a", At(21)), "21:00 a");
}

TEST(ClassicFormat, NestedFormatsSeeTheReducedHour) {
  // The outer format has made 21 of it 9, which the inner one takes for the morning.
  EXPECT_EQ(Written(u"ampm|tt", At(21)), "بعد از ظهر|9:00 صبح9:00");
  EXPECT_EQ(Written(u"ampm|tt", At(0)), "صبح|12:00 بعد از ظهر12:00");
}

TEST(ClassicFormat, FormatsThatNameThemselvesRaise) {
  rtl::TFormatSettings settings = Settings;
  settings.ShortDateFormat = u"ddddd";
  EXPECT_THROW(Written(u"ddddd", NewYear, settings), EConvertError);
  settings.ShortDateFormat = u"dddddd";
  settings.LongDateFormat = u"ddddd";
  EXPECT_THROW(Written(u"c", NewYear, settings), EConvertError);
}

TEST(ClassicFormat, DateAndTimeTogether) {
  EXPECT_EQ(ToUtf8(PDateTime::DateToStr(NewYear, Settings)), "04/1/1");
  EXPECT_EQ(ToUtf8(PDateTime::DateTimeToStr(At(9, 5), Settings)), "04/1/1 9:05 صبح");
  EXPECT_EQ(ToUtf8(PDateTime::DateTimeToString(u"c", At(9, 5), Settings)), "04/1/19:05 صبح");
}

// --- Reading ---

TEST(ClassicReader, TheCenturyCountsFromTheUnitsPresentYear) {
  const rtl::TClockScope clock(NewYear);
  EXPECT_EQ(PDateTime::TryStrToDate(u"04/1/1", Settings), NewYear);  // below the window of 50: the next century
  EXPECT_EQ(PDateTime::TryStrToDate(u"60/1/1", Settings), PDateTime::EncodeDate({1360, 1, 1}));
  EXPECT_EQ(ADateTime::TryStrToDate(u"46/9/21", Settings), NewYear);
  rtl::TFormatSettings settings = Settings;
  settings.TwoDigitYearCenturyWindow = 3;
  EXPECT_EQ(PDateTime::TryStrToDate(u"04/1/1", settings), PDateTime::EncodeDate({1304, 1, 1}));
}

TEST(ClassicReader, YearsOneAnd9999AreRefused) {
  EXPECT_FALSE(ADateTime::FormatStringFullToDateTime(u"yyyy/m/d", u"1/1/1", Settings));
  EXPECT_TRUE(ADateTime::FormatStringFullToDateTime(u"yyyy/m/d", u"2/1/1", Settings));
  EXPECT_TRUE(ADateTime::FormatStringFullToDateTime(u"yyyy/m/d", u"9998/1/1", Settings));
  EXPECT_FALSE(ADateTime::FormatStringFullToDateTime(u"yyyy/m/d", u"9999/1/1", Settings));
  // Years beyond the formula are read but form no date.
  EXPECT_FALSE(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d", u"2328/1/1", Settings));
}

TEST(ClassicReader, TheNameOfTheDayMustBeRight) {
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d dddd", u"1404/1/1 جمعه", Settings), NewYear);
  EXPECT_FALSE(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d dddd", u"1404/1/1 شنبه", Settings));
  rtl::TFormatSettings english;  // names from Sunday, as the platform counts
  EXPECT_EQ(IDateTime::FormatStringFullToDateTime(ctJulian, u"yyyy/m/d dddd", u"2025/3/21 Friday", english), NewYear);
  EXPECT_FALSE(IDateTime::FormatStringFullToDateTime(ctJulian, u"yyyy/m/d dddd", u"2025/3/21 Monday", english));
}

TEST(ClassicReader, AmPmTextsAreThoseOfTheFormatter) {
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d h a/p", u"1404/1/1 9 ع", Settings), At(21));
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d h am/pm", u"1404/1/1 9 ق/ظ", Settings), At(9));
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d h ampm", u"1404/1/1 9 بعد از ظهر", Settings), At(21));
  EXPECT_FALSE(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d h ampm", u"1404/1/1 9 شب", Settings));
  // Twelve in the afternoon is read as midnight.
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"yyyy/m/d h a/p", u"1404/1/1 12 ع", Settings), NewYear);
}

TEST(ClassicReader, WhatTheFormatLacksIsTodayAndMidnight) {
  const rtl::TClockScope clock(NewYear + 0.5);
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"h:nn", u"9:05", Settings), At(9, 5));
  EXPECT_EQ(PDateTime::FormatStringFullToDateTime(u"d", u"3", Settings), NewYear + 2);
}

TEST(ClassicReader, FailuresRaiseDefaultOrAnswerNothing) {
  EXPECT_THROW(PDateTime::StrToDate(u"x", Settings), EConvertError);
  EXPECT_THROW(PDateTime::StrToDate(u"04/13/1", Settings), EConvertError);
  EXPECT_THROW(PDateTime::StrToDateTime(u"04/1/1", Settings), EConvertError);
  EXPECT_THROW(PDateTime::StringToDateTime(u"yyyy-", u"1404x", Settings), EConvertError);
  EXPECT_EQ(PDateTime::StrToDateDef(u"04/13/1", 7.0, Settings), 7.0);
  EXPECT_EQ(PDateTime::StrToDateTimeDef(u"04/1/1 9:05 x", 7.0, Settings), 7.0);
  EXPECT_THROW(PDateTime::TryStrToDate(u"x/1/1", Settings), EConvertError);  // no digits at all
}

TEST(ClassicReader, WhatIsWrittenReadsBack) {
  rtl::TFormatSettings settings = Settings;
  settings.ShortDateFormat = u"yyyy/mm/dd";
  settings.LongTimeFormat = u"hh:nn:ss";
  for (int day = -20000; day < 60000; day += 17) {
    const TDateTime value = rtl::JoinDateAndTime(day, 3661.0 / 86400);
    for (const auto type : {ctPersian, ctIslamic}) {
      const auto text = IDateTime::FormatDateTime(type, u"yyyy/mm/dd hh:nn:ss", value, settings);
      const auto read = IDateTime::TryStrToDateTime(type, text, settings);
      ASSERT_TRUE(read) << ToUtf8(text);
      ASSERT_NEAR(*read, value, 1e-9);
    }
  }
}

// --- The field locator ---

TEST(ClassicParser, FindsTheFieldAndReadsTheUnitsTexts) {
  const TLocatedField year = PDateTime::Parser(Settings, 1, u"yyyy/m/d", u"1404/12/3");
  EXPECT_EQ(year.Type, TJhDateTimeMaskType::hdmtLongYear);
  EXPECT_EQ(year.Start, 1);
  EXPECT_EQ(year.Length, 4);
  EXPECT_FALSE(year.Variable);
  const TLocatedField month = PDateTime::Parser(Settings, 2, u"yyyy/m/d", u"1404/12/3");
  EXPECT_EQ(month.Type, TJhDateTimeMaskType::hdmtMonth);
  EXPECT_EQ(month.Start, 6);
  EXPECT_EQ(month.Length, 2);
  EXPECT_TRUE(month.Variable);
  EXPECT_EQ(PDateTime::Parser(Settings, 2, u"h am/pm", u"9 ب/ظ").Type, TJhDateTimeMaskType::hdmtAmPmShort);
  EXPECT_EQ(PDateTime::Parser(Settings, 2, u"h a/p", u"9 ع").Type, TJhDateTimeMaskType::hdmtAmPmVeryShort);
  EXPECT_EQ(PDateTime::Parser(Settings, 2, u"h ampm", u"9 صبح").Length, 3);
  EXPECT_EQ(PDateTime::Parser(Settings, 9, u"h", u"9").Type, TJhDateTimeMaskType::hdmtNone);
}

// --- Names ---

TEST(ClassicNames, NumbersOfNamesInTheSettings) {
  EXPECT_EQ(PDateTime::WhatMonth(u"مهر", Settings), 7);
  EXPECT_EQ(PDateTime::WhatDay(u"شنبه", Settings), 1);
  EXPECT_EQ(PDateTime::WhatDay(u"ج", Settings), 7);
  EXPECT_EQ(PDateTime::WhatDay(u"Friday", Settings), -1);
}

// --- The Gregorian texts are the platform's ---

TEST(ClassicGeneralText, ThePlatformWritesAndReadsGregorianDates) {
  const rtl::TFormatSettings english;
  const TDateTime value = At(18, 5);
  EXPECT_EQ(IDateTime::FormatDateTime(ctJulian, u"dddd, d mmmm yyyy h:mm am/pm", value, english),
            rtl::FormatDateTime(u"dddd, d mmmm yyyy h:mm am/pm", value, english));
  EXPECT_EQ(IDateTime::DateTimeToStr(ctJulian, value, english), u"03/21/2025 18:05:00");
  EXPECT_EQ(IDateTime::DateToStr(ctJulian, value, english), u"03/21/2025");
  EXPECT_EQ(IDateTime::TryStrToDate(ctJulian, u"3/21/2025", english), NewYear);
  EXPECT_EQ(IDateTime::TryStrToDateTime(ctJulian, u"3/21/2025 6:05 pm", english), value);
  EXPECT_THROW(IDateTime::StrToDate(ctJulian, u"13/21/2025", english), EConvertError);
  // What the platform has no function for follows the classic rules on Gregorian dates.
  EXPECT_EQ(IDateTime::StringToDateTime(ctJulian, u"yyyy-m-d", u"2025-3-21", english), NewYear);
  EXPECT_THROW(IDateTime::StringToDateTime(ctJulian, u"yyyy-m-d", u"2025-13-21", english), EConvertError);
  EXPECT_EQ(IDateTime::TryStrToDateTime(ctJulian, u"2025-3-21", u"yyyy-m-d", english), NewYear);
  EXPECT_EQ(IDateTime::FormatDateTimeFullToString(ctJulian, u"zzz ddd", {{2025, 3, 21}, {0, 0, 0, 5}}, 6, english),
            u"0055 Fri");
  EXPECT_EQ(IDateTime::Parser(ctJulian, english, 1, u"d", u"21").Type, TJhDateTimeMaskType::hdmtDay);
}

// --- The Persian settings ---

TEST(InitLocale, PutsThePersianSettingsInForceAndKeepsTheRest) {
  const rtl::TFormatSettings former = rtl::FormatSettings();
  rtl::FormatSettings() = {};
  rtl::FormatSettings().ListSeparator = u'|';
  InitLocale();
  const rtl::TFormatSettings now = rtl::FormatSettings();
  rtl::FormatSettings() = former;
  EXPECT_EQ(now.CurrencyString, u"\u0631\u064A\u0627\u0644");
  EXPECT_EQ(now.CurrencyFormat, 2);
  EXPECT_EQ(now.NegCurrFormat, 2);
  EXPECT_EQ(now.CurrencyDecimals, 1);
  EXPECT_EQ(now.ThousandSeparator, u'\u066C');
  EXPECT_EQ(now.DecimalSeparator, u'.');
  EXPECT_EQ(now.DateSeparator, u'/');
  EXPECT_EQ(now.TimeSeparator, u':');
  EXPECT_EQ(now.ShortDateFormat, u"yy/m/d");
  EXPECT_EQ(now.LongDateFormat, u"yyyy/mmmm/d-dddd");
  EXPECT_EQ(now.TimeAMString, u"صبح");
  EXPECT_EQ(now.TimePMString, u"بعد از ظهر");
  EXPECT_EQ(now.ShortTimeFormat, u"h:nn");
  EXPECT_EQ(now.LongTimeFormat, u"h:nn ampm");
  EXPECT_EQ(now.LongMonthNames[1], u"فروردین");
  EXPECT_EQ(now.ShortMonthNames[12], u"اسفند");
  EXPECT_EQ(now.LongDayNames[1], u"شنبه");
  EXPECT_EQ(now.LongDayNames[5], u"چهار شنبه");
  EXPECT_EQ(now.ShortDayNames[7], u"ج");
  EXPECT_EQ(now.ListSeparator, u'|');

  rtl::TFormatSettings copy = now;
  copy.ThousandSeparator = u',';
  EXPECT_EQ(PersianFormatSettings(), copy);
  EXPECT_EQ(PersianFormatSettingsFromSunday().LongDayNames[1], u"یکشنبه");
  EXPECT_EQ(PersianFormatSettingsFromSunday().LongDayNames[7], u"شنبه");
  EXPECT_EQ(PersianFormatSettingsFromSunday().ShortDayNames[6], u"ج");
  EXPECT_EQ(PersianFormatSettingsFromSunday().ThousandSeparator, u',');
}

TEST(InitLocale, NamesOfTheGregorianMonths) {
  EXPECT_EQ(JulianShortMonthNames()[1], u"Jan");
  EXPECT_EQ(JulianShortMonthNames()[12], u"Dec");
  EXPECT_EQ(JulianLongMonthNames()[8], u"Augest");
  EXPECT_EQ(JulianLongMonthNames()[5], u"May");
  EXPECT_EQ(GhamariMonths()[11], u"ذوالقعده");
  EXPECT_EQ(GhamariMonths()[1], u"محرم");
}

}  // namespace
}  // namespace orv
