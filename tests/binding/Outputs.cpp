#include "binding/OrvSystem.Bindings.Outputs.h"

#include <gtest/gtest.h>

#include "binding/OrvData.Bind.GenData.h"
#include "calendar/classic/InitLocale.h"
#include "calendar/classic/PDateTime.h"
#include "rtl/FormatSettings.h"
#include "rtl/Utf8.h"

namespace orv {
namespace {

using rtl::TValue;
using rtl::TValueType;
using U = TOrvConverterUtils;

// Puts the process-wide settings and the converters' own back.
class Converters : public ::testing::Test {
 protected:
  void SetUp() override { InitLocale(); }
  void TearDown() override {
    rtl::FormatSettings() = FFormer;
    U::BooleanTrue = u"صحیح";
    U::BooleanFalse = u"ناصحیح";
    U::DateTimeFormat = u"yyyy/m/d h:nn:ss";
    U::DateFormat = u"yyyy/m/d";
    U::ArabicHijriLunarCalendar = false;
  }

  static TValue Convert(void (*convert)(const TValue&, TValue&), const TValue& in) {
    TValue out = TValue::FromInteger(77);
    convert(in, out);
    return out;
  }
  static bool Yes(std::u16string_view text) {
    return Convert(U::StringToBool, TValue::FromString(rtl::UnicodeString(text))).AsBoolean();
  }
  static TValue Read(void (*convert)(const TValue&, TValue&), std::u16string_view text) {
    return Convert(convert, TValue::FromString(rtl::UnicodeString(text)));
  }

 private:
  rtl::TFormatSettings FFormer = rtl::FormatSettings();
};

constexpr rtl::TDateTime NewYear = 45737;  // 1 Farvardin 1404

TEST_F(Converters, BooleansAreWrittenByTheTwoWords) {
  EXPECT_EQ(Convert(U::BoolToString, TValue::FromBoolean(true)).AsString(), u"صحیح");
  EXPECT_EQ(Convert(U::BoolToString, TValue::FromBoolean(false)).AsString(), u"ناصحیح");
  U::BooleanTrue = u"هست";
  EXPECT_EQ(Convert(U::BoolToString, TValue::FromBoolean(true)).AsString(), u"هست");
  EXPECT_THROW(Convert(U::BoolToString, TValue::FromString(u"x")), rtl::EInvalidCast);
}

TEST_F(Converters, EveryWordOfYesAndOfNo) {
  for (const auto* word : {u"صحیح", u"درست", u"بله", u"آره", u"آری", u"نعم", u"زن", u"مؤنث", u"مثبت", u"قبول", u"سالم"})
    EXPECT_TRUE(Yes(word)) << rtl::ToUtf8(word);
  for (const auto* word : {u"ناصحیح", u"نادرست", u"خیر", u"نه", u"لا", u"مرد", u"مذکر", u"منفی", u"مرجوع", u"رد",
                           u"ناسالم", u"بیمار", u"خراب"})
    EXPECT_FALSE(Yes(word)) << rtl::ToUtf8(word);
}

TEST_F(Converters, OtherTextsFollowThePlatformAndUnknownOnesAreFalse) {
  EXPECT_TRUE(Yes(u"True"));
  EXPECT_TRUE(Yes(u"tRuE"));
  EXPECT_FALSE(Yes(u"FALSE"));
  EXPECT_TRUE(Yes(u"1"));
  EXPECT_TRUE(Yes(u"-2.5"));
  EXPECT_FALSE(Yes(u"0"));
  EXPECT_FALSE(Yes(u""));
  EXPECT_FALSE(Yes(u"yes"));
  EXPECT_FALSE(Yes(u"بله "));  // exactly the word
  EXPECT_FALSE(Yes(u"مونث"));
}

TEST_F(Converters, ADateTimeWrittenByTheFormatReadsBackToTheSecond) {
  for (int day = -30000; day < 60000; day += 7) {
    const rtl::TDateTime value = rtl::JoinDateAndTime(day, (day & 0x7FFF) / 86400.0);
    const TValue text = Convert(U::DateTimeToString, TValue::FromDouble(value));
    const TValue read = Convert(U::StringToDateTime, text);
    ASSERT_EQ(read.Type(), TValueType::DateTime) << rtl::ToUtf8(text.AsString());
    ASSERT_NEAR(read.AsDateTime(), value, 1e-9);
  }
  EXPECT_EQ(Read(U::StringToDateTime, u"1404/1/1 6:00:00").AsDateTime(), NewYear + 0.25);
}

TEST_F(Converters, TextsThatHoldNoDateGiveTheEmptyValue) {
  for (const auto* text :
       {u"", u"x", u"1404/1/1", u"1404/13/1 1:00:00", u"1404/1/1 25:00:00", u"99999999999/1/1 1:1:1"})
    EXPECT_TRUE(Read(U::StringToDateTime, text).IsEmpty()) << rtl::ToUtf8(text);
  for (const auto* text : {u"", u"x", u"1404-1-1", u"1404/13/1", u"2328/1/1"})
    EXPECT_TRUE(Read(U::StringToDate, text).IsEmpty()) << rtl::ToUtf8(text);
  U::DateFormat = u"'a''b'";  // a format that cannot be read by
  EXPECT_TRUE(Read(U::StringToDate, u"1404/1/1").IsEmpty());
  EXPECT_THROW(Convert(U::StringToDate, TValue::FromBoolean(true)), rtl::EInvalidCast);
}

TEST_F(Converters, ReadingADateSetsTheProcessWideSettingsBack) {
  rtl::FormatSettings().LongTimeFormat = u"x";
  const TValue read = Read(U::StringToDate, u"1404/1/1");
  EXPECT_EQ(read.Type(), TValueType::Date);
  EXPECT_EQ(read.AsDateTime(), NewYear);
  rtl::TFormatSettings expected;
  expected.ShortDateFormat = u"yyyy/m/d";
  EXPECT_EQ(rtl::FormatSettings(), expected);
}

TEST_F(Converters, TheTypeOfTheValueChoosesTheFormat) {
  EXPECT_EQ(Convert(U::DateTimeToString, TValue::FromDate(NewYear + 0.75)).AsString(), u"1404/1/1");
  EXPECT_EQ(Convert(U::DateTimeToString, TValue::FromDateTime(NewYear + 0.75)).AsString(), u"6:00 بعد از ظهر");
  EXPECT_EQ(Convert(U::DateTimeToString, TValue::FromDouble(NewYear + 0.75)).AsString(), u"1404/1/1 18:00:00");
  EXPECT_EQ(Convert(U::DateTimeToString, TValue::FromInteger(45737)).AsString(), u"1404/1/1 0:00:00");
  EXPECT_THROW(Convert(U::DateTimeToString, TValue::FromString(u"1404/1/1")), rtl::EInvalidCast);
  EXPECT_THROW(Convert(U::DateTimeToString, TValue()), rtl::EInvalidCast);
}

TEST_F(Converters, AllComponentsShareTheSettings) {
  TBindingOrv one, other;
  one.SetBooleanTrue(u"آری");
  one.SetBooleanFalse(u"خیر");
  one.SetDateFormat(u"d/m/yyyy");
  one.SetDateTimeFormat(u"d/m/yyyy h:nn");
  one.SetArabicHijriLunarCalendar(true);
  EXPECT_EQ(other.BooleanTrue(), u"آری");
  EXPECT_EQ(other.BooleanFalse(), u"خیر");
  EXPECT_EQ(other.DateFormat(), u"d/m/yyyy");
  EXPECT_EQ(other.DateTimeFormat(), u"d/m/yyyy h:nn");
  EXPECT_TRUE(other.ArabicHijriLunarCalendar());
  EXPECT_EQ(Convert(U::BoolToString, TValue::FromBoolean(true)).AsString(), u"آری");
  // The lunar calendar is kept but asked by no converter.
  EXPECT_EQ(Convert(U::DateTimeToString, TValue::FromDate(NewYear)).AsString(), u"1/1/1404");
}

}  // namespace
}  // namespace orv
