// Reading dates by formats, strictly.
#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {
namespace {

using testing::Gregorian;
using testing::Jalali;
using testing::NewYear1404;

class Reader : public ::testing::Test {
 protected:
  std::optional<TDateTime> Read(std::u16string_view format, std::u16string_view text) const {
    return Calendar->FormatStringFullToDateTime(format, text);
  }
  std::optional<TTimeParts> Time(std::u16string_view format, std::u16string_view text) const {
    const auto value = Read(format, text);
    return value ? std::optional(rtl::DecodeTime(*value)) : std::nullopt;
  }
  std::optional<std::uint16_t> Year(std::u16string_view format, std::u16string_view text) const {
    const auto value = Read(format, text);
    return value ? std::optional(Calendar->YearOf(*value)) : std::nullopt;
  }

  std::unique_ptr<TOrvCalendarCalc> Calendar = Jalali();
  rtl::TClockScope Clock{NewYear1404};
};

TEST_F(Reader, Hour12WithThePmTextGivesHour0) {
  EXPECT_EQ(Time(u"h:nn am/pm", u"12:30 بعد از ظهر"), (TTimeParts{0, 30, 0, 0}));
  EXPECT_EQ(Time(u"h:nn am/pm", u"1:30 بعد از ظهر"), (TTimeParts{13, 30, 0, 0}));
  EXPECT_EQ(Time(u"h:nn am/pm", u"12:30 قبل از ظهر"), (TTimeParts{12, 30, 0, 0}));
  EXPECT_EQ(Time(u"h:nn am/pm", u"15:30 بعد از ظهر"), (TTimeParts{15, 30, 0, 0}));
  EXPECT_EQ(Time(u"h:nn am/pm", u"0:30 بعد از ظهر"), std::nullopt);
  EXPECT_EQ(Time(u"h:nn am/pm", u"13:30 قبل از ظهر"), std::nullopt);
}

TEST_F(Reader, AmBeforeTheHourIsTestedAgainAtTheEnd) {
  EXPECT_EQ(Time(u"a/p h", u"ص 13"), (TTimeParts{13, 0, 0, 0})) << "at the place itself hour 0 was tested";
  EXPECT_EQ(Time(u"a/p h", u"ص 14"), std::nullopt);
  EXPECT_EQ(Time(u"a/p h", u"ع 3"), (TTimeParts{15, 0, 0, 0}));
  EXPECT_EQ(Time(u"ampm", u"صبح"), TTimeParts{});
}

TEST_F(Reader, AmPmTextsAreReadInAnyCaseAndTheAmTextFirst) {
  const auto calendar = Gregorian();
  EXPECT_EQ(rtl::HourOf(calendar->StringToDateTime(u"h am/PM", u"3 pm")), 15);
  EXPECT_EQ(rtl::HourOf(calendar->StringToDateTime(u"h aMpM", u"3 Pm")), 15);
  EXPECT_FALSE(calendar->FormatStringFullToDateTime(u"h Ampm", u"3 pm").has_value()) << "a capital A is literal";
}

TEST_F(Reader, ARepeatedAmPmMustSayTheSame) {
  EXPECT_TRUE(Read(u"h a/p ampm", u"3 ص صبح").has_value());
  EXPECT_FALSE(Read(u"h a/p ampm", u"3 ص بعد از ظهر").has_value());
}

TEST_F(Reader, TwoDigitYearsFallIntoTheCenturyOfTheWindow) {
  Calendar->ShortYearStartingCentury = 1300;
  Calendar->FormatSettings.TwoDigitYearCenturyWindow = 20;
  EXPECT_EQ(Year(u"yy/m/d", u"03/1/1"), 1403);
  EXPECT_EQ(Year(u"yy/m/d", u"19/1/1"), 1419);
  EXPECT_EQ(Year(u"yy/m/d", u"20/1/1"), 1320);
  EXPECT_EQ(Year(u"yy/m/d", u"99/1/1"), 1399);
  EXPECT_EQ(Year(u"yy/m/d", u"500/1/1"), 1800) << "any number of digits is added to the century";
  const auto gregorian = Gregorian(46023);
  EXPECT_EQ(gregorian->YearOf(gregorian->StringToDateTime(u"yy/m/d", u"26/1/1")), 1926);
}

TEST_F(Reader, TheFirstAndLastYearsAreRefusedThoughTheyAreValid) {
  const auto calendar = Gregorian();
  for (const std::u16string_view year : {u"1", u"9999", u"0", u"10000"})
    EXPECT_FALSE(calendar->FormatStringFullToDateTime(u"yyyy", year).has_value());
  EXPECT_TRUE(calendar->FormatStringFullToDateTime(u"yyyy", u"2").has_value());
  EXPECT_TRUE(calendar->FormatStringFullToDateTime(u"yyyy", u"9998").has_value());
  EXPECT_TRUE(calendar->IsValidDate({1, 1, 1}) && calendar->IsValidDate({9999, 1, 1}));
}

TEST_F(Reader, TextBehindTheFormatIsIgnored) {
  EXPECT_EQ(Read(u"d/m", u"1/2/3"), Calendar->EncodeDate({1404, 2, 1}));
}

TEST_F(Reader, ARunOfThreeZAlwaysFails) {
  for (const std::u16string_view text : {u"7", u"777", u"7 7 7", u"007"}) EXPECT_FALSE(Read(u"zzz", text).has_value());
  EXPECT_FALSE(Read(u"zz", u"77").has_value());
  EXPECT_EQ(Time(u"z", u"59"), (TTimeParts{0, 0, 0, 59}));
  EXPECT_EQ(Time(u"z", u"60"), std::nullopt) << "a millisecond is below 60";
  EXPECT_EQ(Time(u"zs x", u"7 x"), (TTimeParts{0, 0, 0, 7})) << "an s behind z is skipped";
}

TEST_F(Reader, AFormatWithoutADateReadsAsTodayWithTheTime) {
  EXPECT_EQ(Read(u"h:nn", u"6:00"), NewYear1404 + 0.25);
  EXPECT_EQ(Read(u"", u"anything"), NewYear1404);
  EXPECT_EQ(Read(u"m", u"2"), Calendar->EncodeDate({1404, 2, 1}));
}

TEST_F(Reader, ADayNameThatIsRightFailsAndThatOfTheDayBeforePasses) {
  EXPECT_FALSE(Read(u"yyyy/m/d dddd", u"1404/1/1 جمعه").has_value()) << "it was a Friday";
  EXPECT_FALSE(Read(u"yyyy/m/d dddd", u"1404/1/1 شنبه").has_value());
  EXPECT_TRUE(Read(u"yyyy/m/d dddd", u"1404/1/1 پنجشنبه").has_value());
  for (int day = 1; day <= 7; ++day) {
    const UnicodeString sunday = u"1404/1/3 " + UnicodeString(Calendar->FormatSettings.LongDayNames[day]);
    EXPECT_FALSE(Read(u"yyyy/m/d dddd", sunday).has_value()) << "on a Sunday, no name will do: " << day;
  }
}

TEST_F(Reader, ADayNameAloneIsHeldAgainstToday) {
  EXPECT_TRUE(Read(u"ddd", u"پ").has_value());
  EXPECT_FALSE(Read(u"ddd", u"ج").has_value());
  EXPECT_FALSE(Read(u"ddd ddd", u"پ ج").has_value()) << "a second name must be the same";
}

TEST_F(Reader, NamesOfMonthsAreReadExactly) {
  EXPECT_EQ(Read(u"d mmmm yyyy", u"5 مهر 1403"), Calendar->EncodeDate({1403, 7, 5}));
  EXPECT_FALSE(Read(u"d mmmm yyyy", u"5 مه 1403").has_value());
  const auto calendar = Gregorian();
  EXPECT_TRUE(calendar->FormatStringFullToDateTime(u"mmm", u"Sep").has_value());
  EXPECT_FALSE(calendar->FormatStringFullToDateTime(u"mmm", u"sep").has_value());
}

TEST_F(Reader, ARepeatedFieldMustHaveTheSameValueAndATimeFieldMayNotRepeat) {
  EXPECT_TRUE(Read(u"d d", u"5 05").has_value());
  EXPECT_FALSE(Read(u"d d", u"5 6").has_value());
  EXPECT_TRUE(Read(u"m mmmm", u"7 مهر").has_value());
  EXPECT_FALSE(Read(u"m mmmm", u"7 آبان").has_value());
  EXPECT_TRUE(Read(u"yyyy yy", u"1403 03").has_value());
  EXPECT_FALSE(Read(u"yyyy yy", u"1403 04").has_value());
  for (const std::u16string_view format : {u"h h", u"n n", u"s s", u"z z"})
    EXPECT_FALSE(Read(format, u"5 5").has_value());
}

TEST_F(Reader, PartsBeyondTheirBoundsFail) {
  EXPECT_FALSE(Read(u"d", u"0").has_value());
  EXPECT_FALSE(Read(u"d", u"32").has_value());
  EXPECT_FALSE(Read(u"m", u"13").has_value());
  EXPECT_FALSE(Read(u"h", u"24").has_value());
  EXPECT_FALSE(Read(u"n", u"60").has_value());
  EXPECT_FALSE(Read(u"s", u"60").has_value());
  EXPECT_FALSE(Read(u"d", u"65537").has_value()) << "tested before it is cut to a word";
  EXPECT_EQ(Read(u"yyyy/m/d", u"1404/12/31"), Calendar->EncodeDate({1405, 1, 2})) << "days of a month roll on";
  EXPECT_FALSE(Gregorian()->FormatStringFullToDateTime(u"yyyy/m/d", u"2025/2/29").has_value());
}

TEST_F(Reader, AnEmptyRunOfDigitsRaises) {
  EXPECT_THROW(Read(u"d", u""), rtl::EConvertError);
  EXPECT_THROW(Read(u"d", u"x"), rtl::EConvertError);
  EXPECT_THROW(Read(u"d", u"۵"), rtl::EConvertError) << "only digits 0 to 9 are read";
  EXPECT_THROW(Calendar->TryStrToDate(u"04//1"), rtl::EConvertError);
  EXPECT_THROW(Calendar->StrToDateDef(u"", 0), rtl::EConvertError);
}

TEST_F(Reader, NumbersAbove31BitsRaiseAndThoseBelowFail) {
  EXPECT_FALSE(Read(u"d", u"2147483647").has_value());
  EXPECT_THROW(Read(u"d", u"2147483648"), rtl::EConvertError);
  EXPECT_THROW(Read(u"yy", UnicodeString(1000, u'9')), rtl::EConvertError);
  EXPECT_EQ(Read(u"d", UnicodeString(1000, u'0') + u"5"), Calendar->EncodeDate({1404, 1, 5}));
  EXPECT_FALSE(Read(u"yy", u"2147483647").has_value()) << "the century is added without wrapping";
}

TEST_F(Reader, RunsOfYAreReadTwoByTwoUnlessFour) {
  EXPECT_TRUE(Read(u"y", u"").has_value()) << "one letter reads nothing";
  EXPECT_EQ(Year(u"yyy", u"03"), 1403) << "two letters, and one that reads nothing";
  EXPECT_EQ(Year(u"yyyy", u"1403"), 1403);
  EXPECT_THROW(Read(u"yyyyy", u"03"), rtl::EConvertError) << "two letters, and then a run of three";
  EXPECT_THROW(Read(u"yyyyyy", u"03"), rtl::EConvertError);
}

TEST_F(Reader, LettersAreFieldsInLowerCaseAlone) {
  EXPECT_EQ(Read(u"D d", u"D 5"), Calendar->EncodeDate({1404, 1, 5}));
  EXPECT_FALSE(Read(u"HH:nn", u"05:06").has_value());
  EXPECT_TRUE(Read(u"HH:nn", u"HH:06").has_value());
}

TEST_F(Reader, LiteralsMustStandExactly) {
  EXPECT_TRUE(Read(u"d-m", u"5-6").has_value());
  EXPECT_FALSE(Read(u"d-m", u"5/6").has_value());
  EXPECT_FALSE(Read(u"x", u"").has_value());
  EXPECT_EQ(Read(u"d/m", u"5/6"), Calendar->EncodeDate({1404, 6, 5})) << "a slash is a slash, whatever the separator";
}

TEST_F(Reader, AQuoteIsComparedOnePlaceOnAndThenReadAsFormat) {
  EXPECT_TRUE(Read(u"'b'", u"xb").has_value()) << "b stands one place on, and as a letter of the format there again";
  EXPECT_FALSE(Read(u"'b'", u"b").has_value());
  EXPECT_FALSE(Read(u"'b'", u"bx").has_value());
  EXPECT_FALSE(Read(u"'xy'", u"-xy").has_value()) << "the letters, read again, stand where the last one did";
  EXPECT_TRUE(Read(u"''", u"").has_value());
  EXPECT_TRUE(Read(u"'", u"").has_value());
  EXPECT_THROW(Read(u"'b''", u"xbb"), rtl::EConvertError);
}

TEST_F(Reader, APlainAReadsNothing) {
  EXPECT_TRUE(Read(u"ab", u"b").has_value());
  EXPECT_FALSE(Read(u"ab", u"ab").has_value());
}

TEST_F(Reader, DateAndTimeAreOneFormatOverWhichAQuoteReaches) {
  Calendar->FormatSettings.ShortDateFormat = u"yyyy/m/d'";
  Calendar->FormatSettings.LongTimeFormat = u"'h";
  const TDateTime expected = Calendar->EncodeDate({1404, 2, 3}) + rtl::EncodeTime({5, 0, 0, 0});
  EXPECT_EQ(Read(u"c", u"1404/2/3x 5"), expected);
  EXPECT_EQ(Calendar->TryStrToDateTime(u"1404/2/3x 5"), expected);
  EXPECT_FALSE(Read(u"c", u"1404/2/3 5"));
}

TEST_F(Reader, NestedFormatsAreThoseOfTheSettings) {
  Calendar->FormatSettings.LongTimeFormat = u"h:nn ampm";
  EXPECT_EQ(Read(u"ddddd", u"04/2/3"), Calendar->EncodeDate({1404, 2, 3}));
  EXPECT_EQ(Read(u"c", u"04/2/3 5:06 صبح"), Calendar->EncodeDate({1404, 2, 3}) + rtl::EncodeTime({5, 6, 0, 0}));
  EXPECT_EQ(Time(u"t", u"15:07"), (TTimeParts{15, 7, 0, 0}));
  EXPECT_EQ(Time(u"tt", u"3:07 بعد از ظهر"), (TTimeParts{15, 7, 0, 0}));
  Calendar->FormatSettings.LongDateFormat = u"yyyy-mm-dd";
  EXPECT_EQ(Read(u"dddddd", u"1404-02-03"), Calendar->EncodeDate({1404, 2, 3}));
}

TEST_F(Reader, ThePersianLongTimeFormatAsksForItsMinutesTwiceAndReadsNothing) {
  EXPECT_FALSE(Calendar->TryStrToDateTime(u"04/1/2 6:00 صبح").has_value());
  EXPECT_FALSE(Calendar->TryStrToDateTime(u"04/1/2 6:00 0p0").has_value());
}

TEST_F(Reader, StrToDateAndItsSistersReadTheFormatsOfTheSettings) {
  Calendar->FormatSettings.LongTimeFormat = u"h:nn ampm";
  EXPECT_EQ(Calendar->StrToDate(u"04/1/2"), NewYear1404 + 1);
  EXPECT_EQ(Calendar->StrToDateTime(u"04/1/2 6:00 صبح"), NewYear1404 + 1.25);
  EXPECT_EQ(Calendar->TryStrToDateTime(u"04/1/2 6:00 صبح"), NewYear1404 + 1.25);
  EXPECT_EQ(Calendar->TryStrToDateTime(u"1404 2", u"yyyy d"), NewYear1404 + 1);
  EXPECT_EQ(Calendar->StrToDateDef(u"04-1-2", 7), 7);
  EXPECT_EQ(Calendar->StrToDateTimeDef(u"04/1/2", 7), 7);
  EXPECT_EQ(Calendar->StrToDateDef(u"04/1/2", 7), NewYear1404 + 1);
}

TEST_F(Reader, FailuresNameTheText) {
  const auto message = [](auto&& action) {
    try {
      action();
    } catch (const rtl::EConvertError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_EQ(message([&] { Calendar->StrToDate(u"04-1-2"); }), "'04-1-2' is not a valid date");
  EXPECT_EQ(message([&] { Calendar->StrToDateTime(u"04/1/2"); }), "'04/1/2' is not a valid date and time");
  EXPECT_EQ(message([&] { Calendar->StringToDateTime(u"d", u"99"); }), "'99' is not a valid date and time");
  EXPECT_EQ(message([&] { Calendar->StrToDate(u"x"); }), "'' is not a valid integer value");
}

TEST_F(Reader, AFormatThatNestsInItselfEndsAsItsTextDoesOrRaises) {
  Calendar->FormatSettings.ShortDateFormat = u"d ddddd";
  EXPECT_FALSE(Read(u"ddddd", u"1 1 1").has_value()) << "the blank behind the third number is missing";
  EXPECT_THROW(Read(u"ddddd", u"1 1 "), rtl::EConvertError) << "a number is missing";
  EXPECT_FALSE(Read(u"ddddd", u"1 2 ").has_value());
  Calendar->FormatSettings.ShortDateFormat = u"yddddd";
  EXPECT_THROW(Read(u"ddddd", u"1"), rtl::EConvertError) << "nothing is read in between";
  Calendar->FormatSettings.ShortDateFormat = u"c";
  EXPECT_THROW(Read(u"c", u"1"), rtl::EConvertError);
  Calendar->FormatSettings.ShortDayNames.Names[0] = u"";
  Calendar->FormatSettings.ShortDateFormat = u"dddyddddd";
  EXPECT_THROW(Read(u"ddddd", u""), rtl::EConvertError) << "an empty name is learnt only once";
}

TEST_F(Reader, FormatsEnteredAndLeftAtEveryDepthDoNotSlowTheWalkDown) {
  Calendar->FormatSettings.ShortTimeFormat = u"";
  Calendar->FormatSettings.ShortDateFormat = u"1tddddd";
  EXPECT_FALSE(Read(u"ddddd", UnicodeString(400000, u'1')).has_value());
}

TEST_F(Reader, DeepNestingIsReadToTheEndOfTheText) {
  Calendar->FormatSettings.ShortDateFormat = u"dxddddd";
  UnicodeString text;
  for (int i = 0; i < 100000; ++i) text += u"1x";
  EXPECT_FALSE(Read(u"ddddd", text + u"1").has_value());
  Calendar->FormatSettings.ShortDateFormat = u"y" + UnicodeString(5000, u'a') + u"1ddddd";
  EXPECT_THROW(Read(u"ddddd", UnicodeString(100000, u'1')), rtl::EConvertError) << "too much of a format";
}

TEST_F(Reader, BeforeTheCountTheTimeGoesByMagnitude) {
  EXPECT_EQ(Gregorian()->StringToDateTime(u"yyyy/m/d h:n", u"1899/12/29 6:0"), -1.25);
}

}  // namespace
}  // namespace orv
