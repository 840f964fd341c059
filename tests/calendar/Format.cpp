// Writing dates by formats.
#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Gregorian;
using testing::Hijri;
using testing::Jalali;
using testing::NewYear1404;

class Format : public ::testing::Test {
 protected:
  UnicodeString Write(std::u16string_view format, const TDateTimeParts& parts, bool useSeparators = true) const {
    return Calendar->FormatDateTimeFullToString(format, parts, TDayOfWeek::Friday, useSeparators);
  }
  // The same at some time of 1 Farvardin 1404.
  UnicodeString At(std::u16string_view format, std::uint16_t hour, std::uint16_t minute = 5) const {
    return Write(format, {{1404, 1, 1}, {hour, minute, 6, 7}});
  }

  std::unique_ptr<TOrvCalendarCalc> Calendar = Jalali();
};

TEST_F(Format, AYearOfTwoDigitsIsItsThirdAndFourth) {
  const auto year = [this](std::u16string_view format, std::uint16_t y) { return Write(format, {{y, 1, 1}, {}}); };
  EXPECT_EQ(year(u"yy", 1403), u"03");
  EXPECT_EQ(year(u"yy", 99), u"");
  EXPECT_EQ(year(u"yy", 7), u"");
  EXPECT_EQ(year(u"yy", 704), u"4");
  EXPECT_EQ(year(u"yy", 12345), u"34");
  EXPECT_EQ(year(u"yyy", 1403), u"03y") << "a run of three is two and one";
  EXPECT_EQ(year(u"yyyy", 7), u"7");
  EXPECT_EQ(year(u"yyyyy", 65535), u"65535y");
  EXPECT_EQ(year(u"y", 1403), u"y");
  EXPECT_EQ(year(u"Y", 1403), u"Y");
  EXPECT_EQ(year(u"Yyyy", 1403), u"1403") << "the first letter may be a capital";
  EXPECT_EQ(year(u"YY", 1403), u"YY") << "the repeats may not";
}

TEST_F(Format, UseSeparatorsConcernsColonAndSlashAlone) {
  Calendar->FormatSettings.DateSeparator = u'-';
  Calendar->FormatSettings.TimeSeparator = u'.';
  const TDateTimeParts parts = {{1404, 1, 2}, {3, 4, 5, 6}};
  EXPECT_EQ(Write(u"dddd h:n d/m", parts, true), u"جمعه 3.4 2-1");
  EXPECT_EQ(Write(u"dddd h:n d/m", parts, false), u"جمعه 3:4 2/1");
  EXPECT_EQ(Write(u"ddddd", parts, false), u"04-1-2") << "a nested format always uses them";
}

TEST_F(Format, DateToStrWritesTheDateSeparatorOfTheSettings) {
  EXPECT_EQ(Calendar->FormatSettings.ShortDateFormat, u"yy/m/d");
  EXPECT_EQ(Calendar->DateToStr(NewYear1404), u"04/1/1");
  Calendar->FormatSettings.DateSeparator = u'.';
  EXPECT_EQ(Calendar->DateToStr(NewYear1404), u"04.1.1");
}

TEST_F(Format, TwelveHourTimeCountsNoonAsMorningAndKeepsMidnightAt0) {
  EXPECT_EQ(At(u"h:nn am/pm", 13), u"1:05 بعد از ظهر");
  EXPECT_EQ(At(u"h:nn am/pm", 12), u"12:05 قبل از ظهر");
  EXPECT_EQ(At(u"h:nn am/pm", 0), u"0:05 قبل از ظهر");
  EXPECT_EQ(At(u"h:nn am/pm", 25), u"13:05 بعد از ظهر") << "hours beyond the day are reduced once";
}

TEST_F(Format, EachAmPmFormHasItsTexts) {
  EXPECT_EQ(At(u"a/p", 5) + At(u"a/p", 15), u"صع");
  EXPECT_EQ(At(u"ampm", 5) + u"|" + At(u"ampm", 15), u"صبح|بعد از ظهر");
  EXPECT_EQ(At(u"AmPm", 5), u"صبح") << "in any case";
  EXPECT_EQ(At(u"A/P", 15), u"ع");
  EXPECT_EQ(At(u"xAM/PMx", 15), u"xبعد از ظهرx");
}

TEST_F(Format, WhereTheCalculatorHasNoTextTheFormatsOwnLettersStand) {
  Calendar->TimeAMVeryShortString = u'\0';
  Calendar->TimePMVeryShortString = u'\0';
  EXPECT_EQ(At(u"a/P", 5) + At(u"a/P", 15), u"aP");
  Calendar->TimePMLongString.clear();
  EXPECT_EQ(At(u"Am/pM", 5) + At(u"Am/pM", 15), u"AmpM");
  Calendar->FormatSettings.TimePMString.clear();
  EXPECT_EQ(At(u"[ampm]", 15), u"[]") << "the form ampm has no such letters";
}

TEST_F(Format, OnlyTheFirstAmPmFormIsAFieldAndALaterOneIsLetters) {
  EXPECT_EQ(At(u"a/p a/p", 15), u"ع a/p");
  EXPECT_EQ(At(u"ampm ampm", 5), u"صبح a1p1") << "the letters behind the second a are fields again";
}

TEST_F(Format, APlainAIsTheRememberedOneAndTakesWhatFollows) {
  EXPECT_EQ(At(u"a", 5), u"");
  EXPECT_EQ(At(u"axyzd", 5), u"1") << "it takes four characters, and d is the one behind them";
  EXPECT_EQ(At(u"a a d", 5), u"a ") << "the last a is remembered";
  EXPECT_EQ(At(u"a/dd", 5), u"1") << "a slash behind it tells of three characters";
  EXPECT_EQ(At(u"ax/yydd", 5), u"01") << "and one place on, of five";
  EXPECT_EQ(At(u"'ab'", 5), u"ab") << "the quote writes it, the remembered a takes the rest";
  EXPECT_EQ(At(u"'bx'", 5), u"bxbx") << "without an a, the letters are read again";
}

TEST_F(Format, AFormMayBeFoundBesideItsA) {
  EXPECT_EQ(At(u"xm/pm a", 15), u"x1/p1 a") << "the hour is reduced, but no a stands where the form does";
}

TEST_F(Format, QuotesConsumeOnlyThemselves) {
  EXPECT_EQ(At(u"\"xx\"", 5), u"xxxx");
  EXPECT_EQ(At(u"'d'", 5), u"d1");
  EXPECT_EQ(At(u"''", 5), u"");
  EXPECT_EQ(At(u"x'", 5), u"x");
  EXPECT_EQ(At(u"'\"'", 5), u"\"") << "the other quote inside is copied, and then opens a text without an end";
}

TEST_F(Format, ADoubledQuoteRaises) {
  EXPECT_THROW(At(u"'it''s'", 5), rtl::EConvertError);
  EXPECT_THROW(At(u"\"\"\"", 5), rtl::EConvertError);
}

TEST_F(Format, MilliSecondsInARunOfThreeComeTwice) {
  EXPECT_EQ(At(u"z", 5), u"7");
  EXPECT_EQ(At(u"zz", 5), u"77");
  EXPECT_EQ(At(u"zzz", 5), u"0077");
  EXPECT_EQ(At(u"zzzz", 5), u"00777") << "three at the first place, then a run of two";
  EXPECT_EQ(At(u"zzzzz", 5), u"0070077");
  EXPECT_EQ(Write(u"zzz", {{}, {0, 0, 0, 123}}), u"123123");
  EXPECT_EQ(Write(u"zzz", {{}, {0, 0, 0, 45}}), u"04545");
  EXPECT_EQ(Write(u"zzz", {{}, {0, 0, 0, 65535}}), u"6553565535");
}

TEST_F(Format, ADoubledTWritesTheLongAndThenTheShortTime) {
  Calendar->FormatSettings.LongTimeFormat = u"h:nn ampm";
  EXPECT_EQ(At(u"t", 15), u"15:05");
  EXPECT_EQ(At(u"tt", 15), u"3:05 بعد از ظهر15:05");
  EXPECT_EQ(At(u"Tt", 15), At(u"tt", 15));
  EXPECT_EQ(At(u"tT", 15), u"15:0515:05");
}

TEST_F(Format, NestedFormatsGetTheReducedHour) {
  Calendar->FormatSettings.LongTimeFormat = u"h:nn ampm";
  EXPECT_EQ(At(u"t ampm", 15), u"3:05 بعد از ظهر");
  EXPECT_EQ(At(u"ampm c", 15), u"بعد از ظهر 04/1/13:05 صبح") << "in the long time inside, 3 o'clock is morning";
  EXPECT_EQ(At(u"c", 15), u"04/1/13:05 بعد از ظهر");
}

TEST_F(Format, ThePersianLongTimeFormatLosesItsAmPmToTheMinutesOfTimeFormats) {
  EXPECT_EQ(Calendar->FormatSettings.LongTimeFormat, u"h:nn anpn");
  EXPECT_EQ(At(u"tt", 15), u"15:05 15:05");
}

TEST_F(Format, DaysAndMonthsByTheLengthOfTheirRun) {
  EXPECT_EQ(At(u"d|dd|ddd|dddd|ddddd|dddddd|ddddddd", 5),
            u"1|01|ج|جمعه|04/1/1|1404/فروردین/1-جمعه|1404/فروردین/1-جمعه1");
  EXPECT_EQ(At(u"m|mm|mmm|mmmm|mmmmm", 5), u"1|01|فروردین|فروردین|فروردین1");
  EXPECT_EQ(At(u"MM|mM|MMMM", 5), u"01|01|فروردین") << "months repeat in either case";
  EXPECT_EQ(At(u"DD", 5), u"11") << "days do not";
  EXPECT_EQ(At(u"hhh|nnn|sss", 5), u"055|055|066");
  EXPECT_EQ(At(u"", 5), u"");
}

TEST_F(Format, NamesOfMonthsAndDaysThatAreNoneAreEmpty) {
  EXPECT_EQ(Write(u"[mmm][mmmm]", {{1404, 0, 1}, {}}), u"[][]");
  EXPECT_EQ(Write(u"[mmm][mmmm]", {{1404, 13, 1}, {}}), u"[][]");
  EXPECT_EQ(Write(u"[mmm][mmmm]", {{1404, 65535, 1}, {}}), u"[][]");
  const auto day = [this](TDayOfWeek dow) {
    return Calendar->FormatDateTimeFullToString(u"[ddd][dddd]", {}, dow, true);
  };
  EXPECT_EQ(day(TDayOfWeek::Undefined), u"[][]");
  EXPECT_EQ(day(static_cast<TDayOfWeek>(255)), u"[][]");
  EXPECT_EQ(day(TDayOfWeek::Saturday), u"[ش][شنبه]");
}

TEST_F(Format, PartsBeyondTheirBoundsAreWrittenAsTheyAre) {
  EXPECT_EQ(Write(u"yyyy/mm/dd hh:nn:ss", {{0, 99, 100}, {10000, 65535, 5, 0}}), u"0/99/100 10000:65535:05");
}

TEST_F(Format, AFormatThatNestsInItselfRaisesInsteadOfNestingForEver) {
  Calendar->FormatSettings.ShortDateFormat = u"d ddddd";
  EXPECT_THROW(At(u"ddddd", 5), rtl::EConvertError);
  EXPECT_THROW(Calendar->DateToStr(NewYear1404), rtl::EConvertError);
  Calendar->FormatSettings.ShortDateFormat = u"c";
  EXPECT_THROW(At(u"c", 5), rtl::EConvertError);
  Calendar->FormatSettings.ShortTimeFormat = u"tt";
  Calendar->FormatSettings.LongTimeFormat = u"t";
  EXPECT_THROW(At(u"t", 5), rtl::EConvertError);
}

TEST_F(Format, FormatsThatMultiplyWithoutEndRaise) {
  rtl::TFormatSettings& settings = Calendar->FormatSettings;
  settings.ShortTimeFormat.assign(2000, u'z');
  settings.LongDateFormat.assign(2000, u't');
  UnicodeString format;
  for (int i = 0; i < 2000; ++i) format += u"dddddd ";
  EXPECT_THROW(At(format, 5), rtl::EConvertError);
}

TEST_F(Format, LongTextsAreWhole) {
  UnicodeString letters;
  for (int i = 0; i < 1000; ++i) letters += u'x';
  Calendar->FormatSettings.LongMonthNames.Names[0] = letters;
  EXPECT_EQ(At(letters + u"mmmm" + letters + u"yyyy", 5), letters + letters + letters + u"1404");
  for (std::size_t before = 100; before < 300; ++before) {
    const UnicodeString filling(before, u'-');
    ASSERT_EQ(At(filling + u"yyyy/dd/ddd", 5), filling + u"1404/01/ج") << before;
  }
}

TEST_F(Format, ATextIsWrittenOverTheFormerOne) {
  UnicodeString text = u"former";
  Calendar->DateTimeToString(text, u"d", NewYear1404, true);
  EXPECT_EQ(text, u"1");
}

TEST_F(Format, DateTimeToStrTakesTheTimeFromTheSettingsOfTheProcess) {
  const rtl::TFormatSettings former = rtl::FormatSettings();
  rtl::FormatSettings() = rtl::TFormatSettings::Create(u"en-US");
  EXPECT_EQ(Calendar->DateTimeToStr(NewYear1404 + 0.75), u"04/1/1 6:00:00 PM");
  rtl::FormatSettings() = former;
}

// The "m" of AM/PM counts as a minute in the settings that a calculator starts with.
TEST_F(Format, TimeFormatsWithAmPmLoseItAndReadNothing) {
  const TDateTime evening = NewYear1404 + 0.75;
  const std::unique_ptr<TOrvCalendarCalc> english = testing::Make<TOrvJulianDateCalendarCalc>(NewYear1404, u"en-US");
  const std::unique_ptr<TOrvCalendarCalc> islamic = Hijri();
  for (const auto* calendar : {english.get(), islamic.get()}) {
    EXPECT_EQ(calendar->FormatDateTime(u"t", evening, true), u"18:00 ");
    EXPECT_EQ(calendar->FormatDateTime(u"tt", evening, true), u"18:00:00 18:00 ");
    EXPECT_FALSE(calendar->TryStrToDateTime(u"18:00 00", u"t"));
  }
  EXPECT_EQ(english->FormatDateTime(u"c", evening, true), u"3/21/202518:00:00 ");
  EXPECT_EQ(Calendar->FormatDateTime(u"t", evening, true), u"18:00");
  EXPECT_EQ(Calendar->FormatDateTime(u"c", evening, true), u"04/1/118:00 ");
  EXPECT_FALSE(Calendar->TryStrToDateTime(u"04/1/1 18:00 00"));
  EXPECT_EQ(Gregorian()->FormatDateTime(u"t", evening, true), u"1818:00") << "two capitals are two fields";
}

TEST_F(Format, EveryCalendarWritesItsOwnDate) {
  EXPECT_EQ(Calendar->FormatDateTime(u"dddd d mmmm yyyy", NewYear1404, true), u"جمعه 1 فروردین 1404");
  EXPECT_EQ(Hijri()->FormatDateTime(u"dddd d mmmm yyyy", NewYear1404, true), u"الجمعة 21 رمضان 1446");
  EXPECT_EQ(Gregorian()->FormatDateTime(u"dddd d mmmm yyyy", NewYear1404, true), u"Friday 21 March 2025");
}

}  // namespace
}  // namespace orv
