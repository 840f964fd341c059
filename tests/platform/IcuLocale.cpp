#include "platform/IcuLocale.h"

#include <gtest/gtest.h>

#include "platform/IcuPatterns.h"
#include "rtl/DateTimeText.h"
#include "rtl/Utf8.h"

namespace orv::platform {
namespace {

using rtl::TFormatSettings;
using rtl::ToUtf8;

const TIcuLocaleSource Source;

TFormatSettings Of(std::u16string_view name) {
  const auto settings = Source.FindLocale(name);
  EXPECT_TRUE(settings) << ToUtf8(name);
  return settings.value_or(TFormatSettings());
}

TEST(IcuPatterns, FieldsBecomeTheRecordsLetters) {
  EXPECT_EQ(FormatOfDatePattern(u"EEEE d MMMM y", u'/'), u"dddd d mmmm yyyy");
  EXPECT_EQ(FormatOfDatePattern(u"EEE, dd.MM.yy", u'.'), u"ddd, dd/mm/yyyy");
  EXPECT_EQ(FormatOfDatePattern(u"d\u200F/M\u200F/y", u'/'), u"d/m/yyyy");
  EXPECT_EQ(FormatOfDatePattern(u"d 'de' MMMM 'o''clock' y", u'/'), u"d 'de' mmmm 'o''clock' yyyy");
  EXPECT_EQ(FormatOfDatePattern(u"y G", u'/'), u"yyyy");
  EXPECT_EQ(FormatOfTimePattern(u"h:mm:ss\u202Fa z", u':'), u"h:nn:ss ampm");
  EXPECT_EQ(FormatOfTimePattern(u"HH.mm", u'.'), u"hh:nn");
}

TEST(IcuPatterns, TheSeparatorIsTheFirstSignBetweenFields) {
  EXPECT_EQ(SeparatorOf(u"d\u200F/M", u'-'), u'/');
  EXPECT_EQ(SeparatorOf(u"yy. M. d.", u'-'), u'.');
  EXPECT_EQ(SeparatorOf(u"d 'x/' M", u'-'), u'-');
}

// The built-in rows were made by hand from the same data.
TEST(IcuLocale, AgreesWithTheBuiltInRows) {
  for (const std::u16string_view name : {u"en-US", u"fa-Ir", u"fa", u"ar", u"he"}) {
    const TFormatSettings icu = Of(name);
    const TFormatSettings own = rtl::BuiltInLocale(name).value();
    const std::string label = ToUtf8(name);
    EXPECT_EQ(icu.ShortMonthNames, own.ShortMonthNames) << label;
    EXPECT_EQ(icu.LongMonthNames, own.LongMonthNames) << label;
    EXPECT_EQ(icu.ShortDayNames, own.ShortDayNames) << label;
    EXPECT_EQ(icu.LongDayNames, own.LongDayNames) << label;
    EXPECT_EQ(icu.TimeAMString, own.TimeAMString) << label;
    EXPECT_EQ(icu.TimePMString, own.TimePMString) << label;
    EXPECT_EQ(ToUtf8(icu.ShortDateFormat), ToUtf8(own.ShortDateFormat)) << label;
    EXPECT_EQ(ToUtf8(icu.LongDateFormat), ToUtf8(own.LongDateFormat)) << label;
    EXPECT_EQ(ToUtf8(icu.ShortTimeFormat), ToUtf8(own.ShortTimeFormat)) << label;
    EXPECT_EQ(ToUtf8(icu.LongTimeFormat), ToUtf8(own.LongTimeFormat)) << label;
    EXPECT_EQ(icu.DateSeparator, own.DateSeparator) << label;
    EXPECT_EQ(icu.TimeSeparator, own.TimeSeparator) << label;
    EXPECT_EQ(icu.DecimalSeparator, own.DecimalSeparator) << label;
    EXPECT_EQ(icu.ThousandSeparator, own.ThousandSeparator) << label;
    EXPECT_EQ(icu.ListSeparator, own.ListSeparator) << label;
    EXPECT_EQ(icu.TwoDigitYearCenturyWindow, own.TwoDigitYearCenturyWindow) << label;
  }
}

TEST(IcuLocale, Money) {
  const TFormatSettings us = Of(u"en-US");
  EXPECT_EQ(us.CurrencyString, u"$");
  EXPECT_EQ(us.CurrencyDecimals, 2);
  EXPECT_EQ(us.CurrencyFormat, 0);
  EXPECT_EQ(us.NegCurrFormat, 1);
  const TFormatSettings iran = Of(u"fa-IR");
  EXPECT_EQ(iran.CurrencyString, u"ریال");
  EXPECT_EQ(iran.CurrencyDecimals, 0);
  const TFormatSettings germany = Of(u"de_DE");
  EXPECT_EQ(germany.CurrencyString, u"€");
  EXPECT_EQ(germany.CurrencyFormat, 3);
  EXPECT_EQ(germany.NegCurrFormat, 8);
  EXPECT_EQ(germany.ListSeparator, u';');
  EXPECT_EQ(germany.DateSeparator, u'.');
}

TEST(IcuLocale, FormatsWriteDates) {
  constexpr rtl::TDateTime evening = 45737.75;  // Friday, 21 March 2025, 18:00
  const TFormatSettings germany = Of(u"de");
  EXPECT_EQ(ToUtf8(rtl::DateToStr(evening, germany)), "21.03.2025");
  EXPECT_EQ(ToUtf8(rtl::FormatDateTime(germany.LongDateFormat, evening, germany)), "Freitag, 21. März 2025");
  const TFormatSettings britain = Of(u"en-GB");
  EXPECT_EQ(ToUtf8(rtl::TimeToStr(evening, britain)), "18:00:00");
}

TEST(IcuLocale, NamesThatNameNoLanguageAreUnknown) {
  for (const std::u16string_view name :
       {u"", u"zz-ZZ", u"fa\u0001", u"فارسی", u"-", u"a-very-long-name-that-no-locale-would-ever-have-at-all"})
    EXPECT_FALSE(Source.FindLocale(name)) << ToUtf8(name);
}

TEST(IcuLocale, StandsInFrontOfTheBuiltInRows) {
  const rtl::ILocaleSource* former = rtl::SetLocaleSource(&Source);
  const TFormatSettings germany = TFormatSettings::Create(u"de");
  const TFormatSettings invariant = TFormatSettings::Create(u"");
  rtl::SetLocaleSource(former);
  EXPECT_EQ(germany.LongMonthNames[3], u"März");
  EXPECT_EQ(invariant, TFormatSettings::Invariant());
  EXPECT_EQ(TFormatSettings::Create(u"de"), TFormatSettings::Invariant());
}

}  // namespace
}  // namespace orv::platform
