#include "rtl/Convert.h"

#include <gtest/gtest.h>

#include "rtl/Exceptions.h"
#include "rtl/FormatSettings.h"
#include "rtl/Utf8.h"
#include "rtl/Value.h"

namespace rtl {
namespace {

TEST(Format, PutsNumbersAndTextsIn) {
  EXPECT_EQ(Format("%.2d/%.3d %s%%", {7, 45, "x"}), "07/045 x%");
  EXPECT_EQ(Format("%d", {-5}), "-5");
  EXPECT_EQ(Format("%.4d", {-5}), "-0005");
  EXPECT_EQ(Format("'%s'", {std::u16string_view(u"فارسی")}), "'فارسی'");
  EXPECT_EQ(Format("plain", {1}), "plain");
}

TEST(Format, RefusesWhatItCannotPutIn) {
  EXPECT_THROW(Format("%d", {}), EConvertError);
  EXPECT_THROW(Format("%d", {"x"}), EConvertError);
  EXPECT_THROW(Format("%s", {1}), EConvertError);
  EXPECT_THROW(Format("%x", {1}), EConvertError);
  EXPECT_THROW(Format("%", {1}), EConvertError);
  EXPECT_EQ(Format("%.99999999999999999999d", {1}).size(), 64U);
}

TEST(StrToInt, ReadsDecimalAndHexadecimalNumbers) {
  EXPECT_EQ(StrToInt(u"  -12"), -12);
  EXPECT_EQ(StrToInt(u"2147483647"), 2147483647);
  EXPECT_EQ(StrToInt(u"-2147483648"), -2147483647 - 1);
  EXPECT_EQ(StrToInt(u"$1F"), 31);
  EXPECT_EQ(StrToInt(u"0xFFFFFFFF"), -1);
  EXPECT_EQ(StrToIntDef(u"x", 7), 7);
}

TEST(StrToInt, RaisesOnEverythingElse) {
  for (const std::u16string_view text : {u"", u" ", u"-", u"2147483648", u"-2147483649", u"99999999999999999999", u"1 ",
                                         u"1x", u"$", u"0x", u"۱۲", u"0x1FFFFFFFF"})
    EXPECT_THROW(StrToInt(text), EConvertError) << ToUtf8(text);
}

TEST(TryStrToBool, TakesTheWordsInAnyCaseAndNumbers) {
  EXPECT_EQ(TryStrToBool(u"tRuE"), true);
  EXPECT_EQ(TryStrToBool(u"FALSE"), false);
  EXPECT_EQ(TryStrToBool(u"0"), false);
  EXPECT_EQ(TryStrToBool(u"-0.00"), false);
  EXPECT_EQ(TryStrToBool(u"0.001"), true);
  EXPECT_EQ(TryStrToBool(u"-2"), true);
  EXPECT_EQ(TryStrToBool(u"1e3"), true);
  for (const std::u16string_view text : {u"", u"yes", u"truex", u"1e999", u"1e", u".", u"1 2"})
    EXPECT_EQ(TryStrToBool(text), std::nullopt) << ToUtf8(text);
}

TEST(TryStrToFloat, ReadsTheGivenSeparatorAlone) {
  EXPECT_EQ(TryStrToFloat(u" 12,5e-1 ", u','), 1.25);
  EXPECT_EQ(TryStrToFloat(u"12.5", u','), std::nullopt);
  EXPECT_EQ(TryStrToFloat(u"-.5", u'.'), -0.5);
  EXPECT_EQ(TryStrToFloat(u"0e99999999999", u'.'), 0);
}

TEST(Utf8, ReplacesWhatIsNotWellFormed) {
  EXPECT_EQ(ToUtf8(u"a\u0645\U0001F600"), "a\xD9\x85\xF0\x9F\x98\x80");
  const UnicodeString lone = {u'x', static_cast<char16_t>(0xD800), u'y'};
  EXPECT_EQ(ToUtf8(lone), "x\xEF\xBF\xBDy");
  EXPECT_EQ(FromUtf8("a\xD9\x85\xF0\x9F\x98\x80"), u"a\u0645\U0001F600");
  EXPECT_EQ(FromUtf8("\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xD9"), UnicodeString(10, u'\uFFFD'));
}

TEST(Value, ReadsAsItsOwnTypeAndWholeNumbersAsDates) {
  EXPECT_TRUE(TValue().IsEmpty());
  EXPECT_EQ(TValue::FromDate(2.5).TypeName(), "TDate");
  EXPECT_EQ(TValue::FromDateTime(2.5).TypeName(), "TDateTime");
  EXPECT_EQ(TValue::FromDate(2.5).AsDateTime(), 2.5);
  EXPECT_EQ(TValue::FromInteger(45737).AsDateTime(), 45737);
  EXPECT_TRUE(TValue::FromBoolean(true).AsBoolean());
  EXPECT_EQ(TValue::FromString(u"x").AsString(), u"x");
  EXPECT_THROW(TValue::FromString(u"1").AsDateTime(), EInvalidCast);
  EXPECT_THROW(TValue().AsDateTime(), EInvalidCast);
  EXPECT_THROW(TValue::FromBoolean(true).AsDateTime(), EInvalidCast);
  EXPECT_THROW(TValue::FromDouble(1).AsBoolean(), EInvalidCast);
}

class TOneLocale : public ILocaleSource {
 public:
  std::optional<TFormatSettings> FindLocale(std::u16string_view localeName) const override {
    if (localeName != u"fa") return std::nullopt;
    TFormatSettings settings;
    settings.TimeAMString = u"from the source";
    return settings;
  }
};

TEST(FormatSettings, TheLocaleSourceStandsBeforeTheBuiltInRows) {
  const TOneLocale source;
  EXPECT_EQ(SetLocaleSource(&source), nullptr);
  EXPECT_EQ(TFormatSettings::Create(u"fa").TimeAMString, u"from the source");
  EXPECT_EQ(TFormatSettings::Create(u"he"), *BuiltInLocale(u"he"));
  EXPECT_EQ(SetLocaleSource(nullptr), &source);
  EXPECT_EQ(TFormatSettings::Create(u"fa"), *BuiltInLocale(u"fa"));
}

TEST(FormatSettings, NamesOfLocalesAreReadInAnyCaseAndByTheirLanguage) {
  EXPECT_EQ(TFormatSettings::Create(u"FA_ir"), *BuiltInLocale(u"fa-IR"));
  EXPECT_EQ(TFormatSettings::Create(u"ar-SA"), *BuiltInLocale(u"ar"));
  EXPECT_EQ(BuiltInLocale(u"xx"), std::nullopt);
  EXPECT_EQ(TFormatSettings::Create(u"xx"), TFormatSettings::Invariant());
  EXPECT_NE(TFormatSettings::Create(u"en-US"), TFormatSettings::Invariant());
}

TEST(FormatSettings, TheInvariantLocaleSpeaksEnglish) {
  const TFormatSettings settings = TFormatSettings::Invariant();
  EXPECT_EQ(settings.ShortDateFormat, u"MM/dd/yyyy");
  EXPECT_EQ(settings.LongTimeFormat, u"HH:mm:ss");
  EXPECT_EQ(settings.LongMonthNames[2], u"February");
  EXPECT_EQ(settings.ShortDayNames[1], u"Sun");
  EXPECT_EQ(settings.LongDayNames[8], u"");
  EXPECT_EQ(settings.ShortMonthNames[0], u"");
  EXPECT_EQ(settings.ShortMonthNames.IndexOf(u"Dec"), 12);
  EXPECT_EQ(settings.ShortMonthNames.IndexOf(u"dec"), -1);
}

}  // namespace
}  // namespace rtl
