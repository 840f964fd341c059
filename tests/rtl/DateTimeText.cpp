#include "rtl/DateTimeText.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "rtl/Clock.h"
#include "rtl/Utf8.h"

namespace rtl {
namespace {

constexpr TDateTime Evening = 45737 + 0.75;  // Friday, 21 March 2025, 18:00
const TFormatSettings Settings;

std::string Written(std::u16string_view format, TDateTime value = Evening) {
  return ToUtf8(FormatDateTime(format, value, Settings));
}

TDateTime At(TDateTime day, TTimeParts time) {
  return day + EncodeTime(time);
}

TEST(FormatDateTime, FieldsOfADate) {
  EXPECT_EQ(Written(u"d dd ddd dddd"), "21 21 Fri Friday");
  EXPECT_EQ(Written(u"m mm mmm mmmm"), "3 03 Mar March");
  EXPECT_EQ(Written(u"y yy yyy yyyy"), "25 25 2025 2025");
  EXPECT_EQ(Written(u"D/M/YYYY"), "21/3/2025");
  EXPECT_EQ(Written(u"ddddd|t|tt"), "03/21/2025|18:00|18:00:00");
}

TEST(FormatDateTime, FieldsOfATime) {
  const TDateTime value = At(45737, {9, 5, 7, 42});
  EXPECT_EQ(Written(u"h:n:s.z", value), "9:5:7.42");
  EXPECT_EQ(Written(u"hh:nn:ss.zzz", value), "09:05:07.042");
  EXPECT_EQ(Written(u"h:mm m", value), "9:05 3");
}

TEST(FormatDateTime, AnAmPmFieldTurnsTheHourBeforeItToTheTwelveHourClock) {
  EXPECT_EQ(Written(u"h am/pm, h"), "6 pm, 18");
  EXPECT_EQ(Written(u"h AM/PM"), "6 PM");
  EXPECT_EQ(Written(u"h a/p"), "6 p");
  EXPECT_EQ(Written(u"h ampm"), "6 PM");
  EXPECT_EQ(Written(u"h:nn am/pm", 45737), "12:00 am");
  EXPECT_EQ(Written(u"h:nn am/pm", 45737.5), "12:00 pm");
  EXPECT_EQ(Written(u"h 'am/pm'"), "18 am/pm");
}

TEST(FormatDateTime, QuotedTextStandsAsItIs) {
  EXPECT_EQ(Written(u"'day' d \"month\" m"), "day 21 month 3");
  EXPECT_EQ(Written(u"d 'open"), "21 open");
  EXPECT_EQ(Written(u"d '"), "21 ");
}

TEST(FormatDateTime, TheEmptyFormatAndCWriteTheTimeUnlessItIsMidnight) {
  EXPECT_EQ(Written(u""), "03/21/2025 18:00:00");
  EXPECT_EQ(Written(u"c", 45737), "03/21/2025");
}

TEST(FormatDateTime, FormatsThatNameThemselvesEnd) {
  TFormatSettings settings;
  settings.ShortDateFormat = u"<ddddd>";
  EXPECT_EQ(FormatDateTime(u"ddddd", Evening, settings), u"<<>>");
  settings.ShortDateFormat = UnicodeString(2000, u'c');
  settings.LongTimeFormat = settings.ShortDateFormat;
  EXPECT_TRUE(FormatDateTime(settings.ShortDateFormat, Evening, settings).size() < 1000000u);
}

TEST(FormatDateTime, AgreesWithTheCLibraryOnScatteredMoments) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::int64_t seconds = static_cast<std::int64_t>(random() % 8000000000ULL) - 2000000000;
    const std::time_t time = seconds;
    std::tm parts = {};
    gmtime_r(&time, &parts);
    char text[64];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S %a %A %b %B %I %p", &parts);
    const std::int64_t day = (seconds - (((seconds % 86400) + 86400) % 86400)) / 86400 + 25569;
    const TDateTime fraction = static_cast<double>(((seconds % 86400) + 86400) % 86400) / 86400;
    const TDateTime value = JoinDateAndTime(static_cast<TDateTime>(day), fraction);
    if (day < 0 && fraction == 0) continue;
    ASSERT_EQ(Written(u"yyyy-mm-dd hh':'nn':'ss ddd dddd mmm mmmm ", value) + Written(u"hh AM/PM", value),
              std::string(text));
  }
}

TEST(ReadDateTime, TheShortFormatSaysWhichNumberIsWhich) {
  TFormatSettings settings;
  EXPECT_EQ(TryStrToDate(u"3/21/2025", settings), 45737);
  settings.ShortDateFormat = u"dd/mm/yyyy";
  EXPECT_EQ(TryStrToDate(u"21/3/2025", settings), 45737);
  settings.ShortDateFormat = u"yyyy/mm/dd";
  settings.DateSeparator = u'-';
  EXPECT_EQ(TryStrToDate(u" 2025 - 3 - 21 ", settings), 45737);
  EXPECT_FALSE(TryStrToDate(u"2025/3/21", settings));
}

TEST(ReadDateTime, ShortYearsAndAbsentYearsFollowTheClock) {
  const TClockScope clock(45737);
  TFormatSettings settings;  // window 50: from 1975 on
  EXPECT_EQ(TryStrToDate(u"3/21/25", settings), 45737);
  EXPECT_EQ(TryStrToDate(u"1/1/75", settings), EncodeDate({1975, 1, 1}));
  EXPECT_EQ(TryStrToDate(u"1/1/74", settings), EncodeDate({2074, 1, 1}));
  EXPECT_EQ(TryStrToDate(u"3/21", settings), 45737);
  settings.TwoDigitYearCenturyWindow = 0;
  EXPECT_EQ(TryStrToDate(u"1/1/99", settings), EncodeDate({2099, 1, 1}));
  settings.ShortDateFormat = u"d/m/y";
  EXPECT_EQ(TryStrToDate(u"21/3", settings), 45737);
}

TEST(ReadDateTime, Times) {
  EXPECT_EQ(TryStrToTime(u"18:30", Settings), EncodeTime({18, 30, 0, 0}));
  EXPECT_EQ(TryStrToTime(u"6:30:15.250 pm", Settings), EncodeTime({18, 30, 15, 250}));
  EXPECT_EQ(TryStrToTime(u"AM 12:00", Settings), 0);
  EXPECT_FALSE(TryStrToTime(u"13:00 pm", Settings));
  EXPECT_FALSE(TryStrToTime(u"24:00", Settings));
  EXPECT_FALSE(TryStrToTime(u"12:", Settings));
}

TEST(ReadDateTime, DateAndTimeStandApart) {
  EXPECT_EQ(TryStrToDateTime(u"3/21/2025 18:00", Settings), Evening);
  EXPECT_EQ(TryStrToDateTime(u"3/21/2025", Settings), 45737);
  EXPECT_EQ(TryStrToDateTime(u"12/28/1899 06:00", Settings), -2.25);
  EXPECT_FALSE(TryStrToDateTime(u"3/21/2025 x", Settings));
  EXPECT_FALSE(TryStrToDateTime(u"18:00", Settings));
}

TEST(ReadDateTime, WhatHoldsNoDateIsRefused) {
  for (const auto* text :
       {u"", u" ", u"/", u"3", u"3/", u"3/21/", u"2/30/2025", u"3/21/2025x", u"3/21/20255", u"-3/21/2025"})
    EXPECT_FALSE(TryStrToDate(text, Settings)) << ToUtf8(text);
}

TEST(ReadDateTime, WhatIsWrittenReadsBack) {
  const TClockScope clock(45737);
  std::mt19937 random(11);
  TFormatSettings settings;
  for (int i = 0; i < 5000; ++i) {
    const TDateTime day = static_cast<TDateTime>(random() % 2900000) - 693000;
    const TDateTime time = static_cast<TDateTime>(random() % 86400) / 86400;
    const TDateTime value = JoinDateAndTime(day, time);
    const auto read = TryStrToDateTime(DateToStr(value, settings) + u' ' + TimeToStr(value, settings), settings);
    ASSERT_TRUE(read);
    ASSERT_NEAR(*read, value, 1e-8);
  }
}

}  // namespace
}  // namespace rtl
