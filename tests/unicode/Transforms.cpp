// Digits, primes and their order. Shaping has a file of its own.
#include <gtest/gtest.h>

#include "tests/unicode/support/PlainTransforms.h"
#include "tests/unicode/support/RandomText.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

using TDigits = TOrvGlobalSettings::TArabicDigitType;

TUCS4List List(std::u32string_view text) {
  return TUCS4List(text.begin(), text.end());
}

TUCS4List Digits(std::u32string_view text, TDigits type = TDigits::ArabicDigitType1) {
  TSettings settings;
  settings.ArabicDigitType = type;
  const TSettingsGuard guard(settings);
  TUCS4List list = List(text);
  TUCS4ListHelper::ChangeToArabicDigits(list);
  return list;
}

TUCS4List Primes(std::u32string_view text) {
  TUCS4List list = List(text);
  TUCS4ListHelper::ReplaceQuotesWithPrimes(list);
  return list;
}

TEST(ChangeToArabicDigits, ConvertsDigitsAndTheMarksBehindThem) {
  EXPECT_EQ(Digits(U"\u062812.5%"), List(U"\u0628\u0661\u0662\u066B\u0665\u066A"));
  EXPECT_EQ(Digits(U"12.5%\u0628"), List(U"\u0661\u0662\u066B\u0665\u066A\u0628"));
  EXPECT_EQ(Digits(U"1'000"), List(U"\u0661\u066C\u0660\u0660\u0660"));
  EXPECT_EQ(Digits(U"0123456789"), List(U"\u0660\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669"));
}

TEST(ChangeToArabicDigits, TheTypeChoosesTheDigits) {
  EXPECT_EQ(Digits(U"09", TDigits::ArabicDigitType2), List(U"\u06F0\u06F9"));
  EXPECT_EQ(Digits(U"1'9%", TDigits::Latin), List(U"1'9%"));
}

TEST(ChangeToArabicDigits, AStopWithNoDigitBehindItStays) {
  EXPECT_EQ(Digits(U"\u06285."), List(U"\u0628\u0665."));
  EXPECT_EQ(Digits(U"5.a"), List(U"5.a"));
  EXPECT_EQ(Digits(U"5.-"), List(U"\u0665.-"));
}

TEST(ChangeToArabicDigits, AMarkThatFollowsNoDigitStays) {
  EXPECT_EQ(Digits(U"\u0628a.5"), List(U"\u0628a.\u0665"));
  EXPECT_EQ(Digits(U"'5%%"), List(U"'\u0665\u066A%"));
  EXPECT_EQ(Digits(U"5''"), List(U"\u0665\u066C'"));
}

TEST(ChangeToArabicDigits, TheWalkGoesOnBehindAMark) {
  EXPECT_EQ(Digits(U"1.2.3"), List(U"\u0661\u066B\u0662\u066B\u0663"));
  EXPECT_EQ(Digits(U"1..2"), List(U"\u0661..\u0662"));
  EXPECT_EQ(Digits(U"1%2"), List(U"\u0661\u066A\u0662"));
}

TEST(ChangeToArabicDigits, ARunThatBeginsWithAWordOfAnotherScriptKeepsItsDigits) {
  EXPECT_EQ(Digits(U"a1\u0628"), List(U"a1\u0628"));
  EXPECT_EQ(Digits(U"- 1 a\u0628"), List(U"- 1 a\u0628"));
  EXPECT_EQ(Digits(U"\uFE8F1"), List(U"\uFE8F1"));  // a shaped letter is no right-to-left letter
  EXPECT_EQ(Digits(U"\U00010330"
                   U"1"),
            List(U"\U00010330"
                 U"1"));
  EXPECT_EQ(Digits(U"\U00010627"
                   U"1"),
            List(U"\U00010627"
                 U"1"));  // whatever its low half is
}

TEST(ChangeToArabicDigits, ARunWithoutLettersIsConverted) {
  EXPECT_EQ(Digits(U"-(12)"), List(U"-(\u0661\u0662)"));
  EXPECT_EQ(Digits(U""), List(U""));
}

TEST(ChangeToArabicDigits, IsNotTakenInByCodePointsThatEndLikeDigits) {
  EXPECT_EQ(Digits(U"\U00010031\u0131"), List(U"\U00010031\u0131"));
  EXPECT_EQ(Digits(U"\u0628\uFF11\u00B2"), List(U"\u0628\uFF11\u00B2"));
}

TEST(ReplaceQuotesWithPrimes, AQuoteBehindANumberBecomesAPrime) {
  EXPECT_EQ(Primes(U"5'"), List(U"5\u2032"));
  EXPECT_EQ(Primes(U"5\""), List(U"5\u2033"));
  EXPECT_EQ(Primes(U"5'10\""), List(U"5\u203210\u2033"));
  EXPECT_EQ(Primes(U"\u0665'\u00BD\"\u2160'"), List(U"\u0665\u2032\u00BD\u2033\u2160\u2032"));  // any number
}

TEST(ReplaceQuotesWithPrimes, AQuoteAtTheStartOrBehindAnythingElseStays) {
  EXPECT_EQ(Primes(U"'5"), List(U"'5"));
  EXPECT_EQ(Primes(U"a'"), List(U"a'"));
  EXPECT_EQ(Primes(U"5''"), List(U"5\u2032'"));  // a prime is no number
  EXPECT_EQ(Primes(U""), List(U""));
}

TEST(QuoteToReversePrime, ChangesTheTwoQuotesOnly) {
  for (UCS4Char c = 0; c < 0x3000; ++c) {
    UCS4Char changed = c;
    TUCS4ListHelper::QuoteToReversePrime(changed);
    EXPECT_EQ(changed, c == 0x22 ? 0x2036U : c == 0x27 ? 0x2035U : c);
  }
}

// Random lists: code points of the classes that the transforms know, and any others.
TUCS4List RandomList(TRandom& random) {
  static constexpr std::u32string_view units = U"0123456789'.%\"'5\u0628a-\u0661 \u2160\u00BD\U0001D7D8\u0627";
  TUCS4List list;
  const std::size_t length = random.Below(random.OneIn(20) ? 200 : 12);
  while (list.size() < length)
    list.push_back(random.OneIn(30)
                       ? static_cast<UCS4Char>(random.Next() >> random.Below(64))
                       : static_cast<UCS4Char>(units[random.Below(static_cast<std::uint32_t>(units.size()))]));
  return list;
}

TEST(Transforms, AgreeWithThePlainRulesOnRandomLists) {
  TRandom random(21);
  for (int trial = 0; trial < Trials(600000); ++trial) {
    const TSettingsGuard guard(RandomSettings(random));
    const TUCS4List list = RandomList(random);
    TUCS4List digits = list, primes = list;
    TUCS4ListHelper::ChangeToArabicDigits(digits);
    ASSERT_EQ(digits, plain::ChangedToArabicDigits(list)) << ::testing::PrintToString(list);
    TUCS4ListHelper::ReplaceQuotesWithPrimes(primes);
    ASSERT_EQ(primes, plain::WithPrimes(list)) << ::testing::PrintToString(list);
  }
}

TEST(ChangeToArabicDigits, ConvertsADigitAtEveryPlaceOfALongList) {
  for (std::size_t length = 1; length < 70; ++length)
    for (std::size_t place = 0; place < length; ++place) {
      const TSettingsGuard guard;
      TUCS4List list(length, 0x628);
      list[place] = '7';
      TUCS4List expected = list;
      expected[place] = 0x667;
      TUCS4ListHelper::ChangeToArabicDigits(list);
      ASSERT_EQ(list, expected);
    }
}

}  // namespace
}  // namespace orv::testing
