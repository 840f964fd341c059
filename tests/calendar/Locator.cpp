// Finding the fields of a format in a text.
#include "calendar/Orv.Date.Locator.h"

#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "tests/calendar/support/Calendars.h"

namespace orv {

void PrintTo(const TLocatedField& field, std::ostream* out) {
  *out << "{" << static_cast<int>(field.Type) << ", " << field.Start << ", " << field.Length << ", " << field.Variable
       << "}";
}

bool operator==(const TLocatedField& a, const TLocatedField& b) {
  return a.Type == b.Type && a.Start == b.Start && a.Length == b.Length && a.Variable == b.Variable;
}

namespace {

using enum TOrvDateTimeMaskType;

class Locator : public ::testing::Test {
 protected:
  TLocatedField Find(std::int32_t number, std::u16string_view format, std::u16string_view text) const {
    return Calendar->Parser(number, format, text);
  }
  TOrvDateTimeMaskType Type(std::int32_t number, std::u16string_view format, std::u16string_view text) const {
    return Find(number, format, text).Type;
  }

  std::unique_ptr<TOrvCalendarCalc> Calendar = testing::Jalali();
};

TEST_F(Locator, FieldsAreCountedFrom1AndPlacesToo) {
  const std::u16string_view format = u"yyyy/mm/dd hh:nn:ss";
  const std::u16string_view text = u"1403/12/30 07:08:09";
  EXPECT_EQ(Find(1, format, text), (TLocatedField{hdmtLongYear, 1, 4, false}));
  EXPECT_EQ(Find(2, format, text), (TLocatedField{hdmtMonth, 6, 2, false}));
  EXPECT_EQ(Find(3, format, text), (TLocatedField{hdmtDay, 9, 2, false}));
  EXPECT_EQ(Find(4, format, text), (TLocatedField{hdmt24Hour, 12, 2, false}));
  EXPECT_EQ(Find(5, format, text), (TLocatedField{hdmtMinute, 15, 2, false}));
  EXPECT_EQ(Find(6, format, text), (TLocatedField{hdmtSecond, 18, 2, false}));
  EXPECT_EQ(Find(7, format, text), (TLocatedField{hdmtNone, 18, 2, true})) << "the last one met stays";
}

TEST_F(Locator, SingleLettersAreFieldsOfAnyLength) {
  EXPECT_EQ(Find(1, u"d.m", u"5.12"), (TLocatedField{hdmtDay, 1, 1, true}));
  EXPECT_EQ(Find(2, u"d.m", u"5.12345"), (TLocatedField{hdmtMonth, 3, 5, true}));
  EXPECT_EQ(Find(2, u"yy z", u"3 7"), (TLocatedField{hdmtMilliSec, 3, 1, true}));
  EXPECT_EQ(Find(1, u"zz", u"77"), (TLocatedField{hdmtMilliSec, 1, 2, false}));
}

TEST_F(Locator, NamesOfMonthsAreLongMonthsOfVariableLength) {
  EXPECT_EQ(Find(2, u"d mmmm yyyy", u"5 اردیبهشت 1403"), (TLocatedField{hdmtLongMonth, 3, 8, true}));
  EXPECT_EQ(Type(1, u"mmm", u"مهر"), hdmtLongMonth);
  EXPECT_EQ(Find(1, u"mmmm", u"Mehr"), (TLocatedField{hdmtNone, 1, 0, true})) << "counted, though it does not stand";
}

TEST_F(Locator, NamesOfDaysArePassedOverInTheFormatAlone) {
  EXPECT_EQ(Find(1, u"dddd, d", u", 5"), (TLocatedField{hdmtDay, 3, 1, true}));
  EXPECT_EQ(Type(1, u"dddd, d", u"جمعه, 5"), hdmtNone);
}

TEST_F(Locator, HoursAreOfTwelveWhereTheOutermostFormatHasAnAmPmForm) {
  EXPECT_EQ(Type(1, u"h ampm", u"5 صبح"), hdmt12Hour);
  EXPECT_EQ(Type(1, u"h a/p", u"5"), hdmt12Hour);
  EXPECT_EQ(Type(1, u"h am/pm", u"5"), hdmt12Hour);
  EXPECT_EQ(Type(1, u"h AMPM", u"5"), hdmt24Hour) << "forms count as written";
  EXPECT_EQ(Type(1, u"tt", u"5:06 صبح"), hdmt24Hour) << "the form stands in the nested format";
}

TEST_F(Locator, AmPmTextsMustStandExactly) {
  EXPECT_EQ(Find(1, u"a/p", u"ع"), (TLocatedField{hdmtAmPmVeryShort, 1, 1, true}));
  EXPECT_EQ(Find(1, u"ampm", u"بعد از ظهر"), (TLocatedField{hdmtAmPm, 1, 10, true}));
  EXPECT_EQ(Find(1, u"am/pm", u"قبل از ظهر"), (TLocatedField{hdmtAmPmShort, 1, 10, true}));
  EXPECT_EQ(Find(1, u"ampm", u"صب"), (TLocatedField{hdmtNone, 1, 0, true}));
  EXPECT_EQ(testing::Gregorian()->Parser(1, u"ampm", u"am").Type, hdmtNone);
}

TEST_F(Locator, NestedFormatsCountTheirOwnFields) {
  Calendar->FormatSettings.LongTimeFormat = u"h:nn ampm";
  EXPECT_EQ(Find(2, u"ddddd", u"03/12/30"), (TLocatedField{hdmtMonth, 4, 2, true}));
  EXPECT_EQ(Find(4, u"c", u"03/12/30 5:06 صبح"), (TLocatedField{hdmt24Hour, 10, 1, true}));
  EXPECT_EQ(Find(6, u"c", u"03/12/30 5:06 صبح"), (TLocatedField{hdmtAmPm, 15, 3, true}));
  EXPECT_EQ(Find(2, u"t", u"5:06"), (TLocatedField{hdmtMinute, 3, 2, false}));
  Calendar->FormatSettings.ShortDateFormat = u"d'";
  Calendar->FormatSettings.LongTimeFormat = u"'h";
  EXPECT_EQ(Find(2, u"c", u"3x 5"), (TLocatedField{hdmt24Hour, 4, 1, true})) << "one format, with a quoted blank";
}

TEST_F(Locator, AFieldWithoutDigitsFails) {
  EXPECT_EQ(Find(1, u"d", u""), (TLocatedField{hdmtNone, 1, 0, true}));
  EXPECT_EQ(Find(2, u"d.m", u"5.x"), (TLocatedField{hdmtNone, 3, 0, true}));
}

TEST_F(Locator, TheWalkEndsWithTheStepThatReachesTheNumber) {
  EXPECT_EQ(Type(1, u"d.m", u"5x"), hdmtDay) << "what follows is not looked at";
  EXPECT_EQ(Find(0, u".d", u".5"), (TLocatedField{hdmtNone, 0, 0, true}));
  EXPECT_EQ(Find(0, u"dd", u"5"), (TLocatedField{hdmtNone, 1, 1, true})) << "one step goes beyond 0";
  EXPECT_EQ(Find(-5, u"d.m", u"5.6"), (TLocatedField{hdmtNone, 1, 1, true}));
  EXPECT_EQ(Find(1, u"", u"5"), (TLocatedField{hdmtNone, 0, 0, true}));
}

TEST_F(Locator, LettersThatReadNothingAndQuotesAreNoFields) {
  EXPECT_EQ(Find(1, u"y a d", u"  5"), (TLocatedField{hdmtDay, 3, 1, true}));
  EXPECT_EQ(Find(1, u"'x'd", u"-x5"), (TLocatedField{hdmtDay, 3, 1, true}));
  EXPECT_THROW(Find(1, u"'x''d", u"-xx5"), rtl::EConvertError);
}

TEST_F(Locator, AFormatThatNestsInItselfRaises) {
  Calendar->FormatSettings.ShortDateFormat = u"yddddd";
  EXPECT_THROW(Find(1, u"ddddd", u"5"), rtl::EConvertError);
  Calendar->FormatSettings.ShortDateFormat = u"mmmddddd";
  Calendar->FormatSettings.ShortMonthNames.Names[0] = u"";
  EXPECT_EQ(Find(3, u"ddddd", u""), (TLocatedField{hdmtLongMonth, 1, 0, true})) << "empty names are fields too";
  EXPECT_THROW(Find(2147483647, u"ddddd", u""), rtl::EConvertError);
}

}  // namespace
}  // namespace orv
