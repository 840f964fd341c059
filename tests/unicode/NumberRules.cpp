// The rules D1 to D10 for an ASCII digit in right-to-left text, and the tests that look ahead for them.
#include <gtest/gtest.h>

#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/RandomText.h"
#include "tests/unicode/support/TokenGolden.h"

namespace orv::testing {
namespace {

using TKind = TDirectiveChars::TBidiType;
using TOption = TOrvGlobalOption;

class NumberRules : public ::testing::Test {
 private:
  TSettingsGuard FGuard;  // the defaults, without corrections
};

TSettings With(TOrvGlobalOptions options) {
  TSettings settings;
  settings.Options = options;
  return settings;
}

TSettings RtlMath(TOrvGlobalOptions options = {}) {
  TSettings settings = With(options);
  settings.EquationOrder = TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  return settings;
}

// ---- D1: a Latin word ----

TEST_F(NumberRules, D1_DigitsThatRunIntoALatinWordJoinIt) {
  EXPECT_EQ(Tokens(u"2ndA", RTL), "LTR<2nd> RTL<A>");
  EXPECT_EQ(Tokens(u"3D", RTL), "LTR<3> RTL<D>");  // capitals are right-to-left letters here
  EXPECT_EQ(Tokens(u"1'000.5x.2-", RTL), "LTR<1'000.5x.2> Neutral<->");
  EXPECT_EQ(Tokens(u"5.x. A", RTL), "LTR<5.x.> Space< > RTL<A>");  // a stop at the word's end is part of it
  EXPECT_EQ(Tokens(u"5\u00E9", RTL), "Digit<5> LTR<\\u00E9>");     // ASCII letters only; that is an equation
}

// ---- D2: a date ----

TEST_F(NumberRules, D2_NoDateIsEverFoundWithAnySeparator) {
  const std::u16string_view dates[] = {u"1/1/1 A", u"1/12/1398 A", u"12/11/1398", u"1-1-1", u"1-13-1", u"11-", u"1/1/"};
  for (const std::u16string_view date : dates) {
    const std::string without = Tokens(date, RTL);
    for (const char16_t separator : {u'/', u'-', u'.', u'1', u'5', u'0'}) {
      TSettings settings = With({TOption::RTLDate});
      settings.DateSeparator = separator;
      const TSettingsGuard guard(settings);
      EXPECT_EQ(Tokens(date, RTL), without);
    }
  }
}

// ---- D3: Arabic-Indic digits ----

TEST_F(NumberRules, D3_InATextThatBeginsWithAnArabicDigitEveryAsciiNumberIsLeftToRight) {
  EXPECT_EQ(Tokens(u"\u06F1A12+a", RTL), "LTR<\\u06F1> RTL<A> LTR<12> Neutral<+> LTR<a>");
  EXPECT_EQ(Tokens(u"\u0660A12 A", RTL), "LTR<\\u0660> RTL<A> LTR<12> Space< > RTL<A>");
  EXPECT_EQ(Tokens(u"A12+a", RTL), "RTL<A> Digit<12+> LTR<a>");
}

TEST_F(NumberRules, D3_LooksAtTheFirstUnitAlone) {
  EXPECT_EQ(Tokens(u"a\u06F1A12+a", RTL), "LTR<a> LTR<\\u06F1> RTL<A> Digit<12+> LTR<a>");
  EXPECT_EQ(Tokens(u" \u06F1A12+a", RTL), "Space< > LTR<\\u06F1> RTL<A> Digit<12+> LTR<a>");
}

TEST_F(NumberRules, D3_StandsBehindD1) {
  EXPECT_EQ(Tokens(u"\u06F1A12x", RTL), "LTR<\\u06F1> RTL<A> LTR<12x>");
}

// ---- D4: behind a Latin run ----

TEST_F(NumberRules, D4_ADigitBehindALatinRunStaysInIt) {
  EXPECT_EQ(Tokens(u"12+a", RTL, TKind::LTR), "LTR<12> Neutral<+> LTR<a>");
  EXPECT_EQ(Tokens(u"12+a", RTL, TKind::DirectionalFormatting), "LTR<12> Neutral<+> LTR<a>");
}

TEST_F(NumberRules, D4_ADigitBehindAnythingElseIsLookedAt) {
  for (const TKind kind : {TKind::RTL, TKind::ArabicDigit, TKind::LTRUnmergable, TKind::RTLUnmergable,
                           TKind::ArabicDigitUnmergable, TKind::LineParagraphSeparator, TKind::NotExists})
    EXPECT_EQ(Tokens(u"12+a", RTL, kind), "Digit<12+> LTR<a>") << static_cast<int>(kind);
}

// ---- D5: a measure ----

TEST_F(NumberRules, D5_ANumberWithAUnitIsOneNumber) {
  const TSettingsGuard guard(With({TOption::MeasureSignsInRightSideOfDigits}));
  EXPECT_EQ(Tokens(u"5 km A", RTL), "Digit<5 km> Space< > RTL<A>");
  EXPECT_EQ(TokenRanges(u"5 km A", RTL), "0-3");
  EXPECT_EQ(Tokens(u"1'250.5 km)", RTL), "Digit<1'250.5 km> Neutral<)>");
  EXPECT_EQ(Tokens(u"5 m\u00B2 A", RTL), "Digit<5 m\\u00B2> Space< > RTL<A>");
  EXPECT_EQ(Tokens(u"5 km\u00B3)", RTL), "Digit<5 km\\u00B3> Neutral<)>");
  EXPECT_EQ(Tokens(u"5 \u00B0c ", RTL), "Digit<5 \\u00B0c> Space< >");
  EXPECT_EQ(Tokens(u"5 \u00B5m ", RTL), "Digit<5 \\u00B5m> Space< >");
}

TEST_F(NumberRules, D5_WhatIsNoMeasure) {
  const TSettingsGuard guard(With({TOption::MeasureSignsInRightSideOfDigits}));
  for (const std::u16string_view text : {u"5 m ", u"5 km", u"5 kma", u"5 km.", u"5  km ", u"5 km\u00B2a",
                                         u"5 m\u00B2\u00B2", u"5 \u20ACa ", u"5. km ", u"5\u00A0km ", u"5\" ", u"5% "})
    EXPECT_EQ(TokenRanges(text, RTL), "") << Shown(text);
}

TEST_F(NumberRules, D5_AQuoteBehindANumberCountsWithItsOptionAndTakesOneDigitOnly) {
  EXPECT_EQ(TokenRanges(u"12\" A", RTL), "");
  const TSettingsGuard guard(With({TOption::PrimeInRightSideOfDigits}));
  EXPECT_EQ(Tokens(u"12\" A", RTL), "Digit<12> Neutral<\"> Space< > RTL<A>");
  EXPECT_EQ(TokenRanges(u"12\" A", RTL), "0-0 1-1");
  EXPECT_EQ(TokenRanges(u"12' A", RTL), "");  // the apostrophe counts as part of the number and nothing follows it
  EXPECT_EQ(TokenRanges(u"5 km ", RTL), "0-3");
}

TEST_F(NumberRules, D5_APercentSignCountsWithItsOptionBesideOneOfTheOthers) {
  {
    const TSettingsGuard guard(With({TOption::PercentInRightSideOfDigits}));
    EXPECT_EQ(TokenRanges(u"5% A", RTL), "");  // alone it has no effect
  }
  const TSettingsGuard guard(With({TOption::PercentInRightSideOfDigits, TOption::MeasureSignsInRightSideOfDigits}));
  EXPECT_EQ(Tokens(u"5% A", RTL), "Digit<5> Neutral<%> Space< > RTL<A>");
  EXPECT_EQ(TokenRanges(u"5% A", RTL), "0-0");
}

// ---- D6 and D9: equations ----

TEST_F(NumberRules, D9_EquationsFromRightToLeftTakeEachDigitByItself) {
  const TSettingsGuard guard(RtlMath());
  EXPECT_EQ(Tokens(u"12 A", RTL), "Digit<12> Space< > RTL<A>");
  EXPECT_EQ(TokenRanges(u"12 A", RTL), "");
  EXPECT_EQ(Tokens(u"12.5+a", RTL), "Digit<12> Neutral<.> Digit<5> Neutral<+> LTR<a>");  // no equation is looked for
}

TEST_F(NumberRules, D9_ANumberAndOperatorsUpToALetterAreOneNumber) {
  EXPECT_EQ(Tokens(u"12 A", RTL), "Digit<12> Space< > RTL<A>");
  EXPECT_EQ(Tokens(u"12 a", RTL), "Digit<12> Space< > LTR<a>");
  EXPECT_EQ(Tokens(u"1+2=a", RTL), "Digit<1+2=> LTR<a>");
  EXPECT_EQ(Tokens(u"1 + 2 = a", RTL), "Digit<1 + 2 => Space< > LTR<a>");
  EXPECT_EQ(Tokens(u"1 + 2 = A", RTL), "Digit<1 + 2 => Space< > RTL<A>");  // a blank lets it pass before such a word
  EXPECT_EQ(TokenRanges(u"1+2=a", RTL), "");
}

TEST_F(NumberRules, D9_WhatIsNoEquation) {
  EXPECT_EQ(Tokens(u"12A", RTL), "LTR<12> RTL<A>");            // a right-to-left letter right behind the number
  EXPECT_EQ(Tokens(u"1+A", RTL), "LTR<1> Neutral<+> RTL<A>");  // or right behind the operators
  EXPECT_EQ(Tokens(u"12", RTL), "LTR<12>");
  EXPECT_EQ(Tokens(u"12+", RTL), "LTR<12> Neutral<+>");
  EXPECT_EQ(Tokens(u"12 (a", RTL), "LTR<12> Space< > LTR<(> LTR<a>");  // a bracket is no operator
  EXPECT_EQ(Tokens(u"12\u00A0a", RTL), "LTR<12> Space<\\u00A0> LTR<a>");
  EXPECT_EQ(Tokens(u"1+\u00AD2=a", RTL), "LTR<1> Neutral<+> Format<\\u00AD> Digit<2=> LTR<a>");
}

TEST_F(NumberRules, D9_BlanksAreSkippedBeforeTheRestOfTheNumberNotBehindIt) {
  // Behind the first digit stands no blank, so the sign test begins at the second digit.
  EXPECT_EQ(Tokens(u"12 3", RTL), "LTR<12> Space< > LTR<3>");
  EXPECT_EQ(Tokens(u"1 23 a", RTL), "Digit<1 23> Space< > LTR<a>");
}

TEST_F(NumberRules, D9_OverwritesTheListIndexOfD7) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder}));
  EXPECT_EQ(Tokens(u"12-", RTL), "LTR<12> Neutral<->");
  EXPECT_EQ(TokenRanges(u"12-", RTL), "");
}

TEST_F(NumberRules, D7_WithTheCorrectionAListIndexKeepsItsResult) {
  TSettings settings = With({TOption::RTLLineIndexOrder});
  settings.Corrections = {TOrvCorrection::LineIndex};
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Tokens(u"12-", RTL), "Digit<12> Neutral<->");
  EXPECT_EQ(TokenRanges(u"12-", RTL), "0-1");
  EXPECT_EQ(Tokens(u"12-", RTL, TKind::RTL), "LTR<12> Neutral<->");  // not at a line's start
  EXPECT_EQ(Tokens(u"12 x", RTL), "Digit<12> Space< > LTR<x>");      // no list index: an equation as before
}

// ---- D7: a list index ----

TEST_F(NumberRules, D7_ANumberThatOpensALineWithAListMarkBehindItStaysWithTheText) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder, TOption::DigitsBeforeLatinAreLatin}));
  for (const std::u16string_view mark :
       {u"-", u". A", u" - A", u"\n", u"\r", u"(", u"\u00B7", u"\u2028", u"\u2029", u"A", u" A"}) {
    const std::u16string text = u"12" + std::u16string(mark);
    EXPECT_TRUE(Tokens(text, RTL).starts_with("Digit<12> ")) << Shown(text) << ": " << Tokens(text, RTL);
    EXPECT_TRUE(TokenRanges(text, RTL).starts_with("0-1")) << Shown(text);
    EXPECT_TRUE(Tokens(text, RTL, TKind::LineParagraphSeparator).starts_with("Digit<12> ")) << Shown(text);
    EXPECT_FALSE(Tokens(text, RTL, TKind::RTL).starts_with("Digit")) << Shown(text);
  }
}

TEST_F(NumberRules, D7_WhatIsNoListIndex) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder, TOption::DigitsBeforeLatinAreLatin}));
  for (const std::u16string_view text : {u"12", u"12 ", u"12)", u"12+", u"12  A", u"12-3)", u"12:"})
    EXPECT_EQ(TokenRanges(text, RTL), "") << Shown(text);
}

TEST_F(NumberRules, D7_ADashOrStopBeforeADigitGoesOnWithTheNextNumber) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder, TOption::DigitsBeforeLatinAreLatin}));
  EXPECT_EQ(TokenRanges(u"1-2-3-", RTL), "0-0 2-2 4-4");
  EXPECT_EQ(TokenRanges(u"1.2 . A", RTL), "0-0 2-2");
  EXPECT_EQ(TokenRanges(u"1- 2)", RTL), "");
}

TEST_F(NumberRules, D7_ComparesLowBytesUntilTheLastStep) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder, TOption::DigitsBeforeLatinAreLatin}));
  EXPECT_EQ(TokenRanges(u"5\u2031-", RTL), "0-0");  // low byte 0x31 passes as a digit
  EXPECT_EQ(TokenRanges(u"5\u2020-", RTL), "0-0");  // 0x20 as a blank
  EXPECT_EQ(TokenRanges(u"5\u222D", RTL), "0-0");   // 0x2D as a dash
  EXPECT_EQ(TokenRanges(u"5\u220A", RTL), "0-0");   // 0x0A as a line feed
  EXPECT_EQ(TokenRanges(u"5\u2228", RTL), "0-0");   // 0x28 as a bracket
  EXPECT_EQ(TokenRanges(u"5\u2030", RTL), "");      // a digit with nothing behind it
  EXPECT_EQ(TokenRanges(u"5\u2229", RTL), "");
}

// ---- D8: before a Latin word ----

TEST_F(NumberRules, D8_DigitsAndBlanksBeforeALatinWordAreLeftToRight) {
  const TSettingsGuard guard(With({TOption::DigitsBeforeLatinAreLatin}));
  EXPECT_EQ(Tokens(u"1'200.5  ab", RTL), "LTR<1'200.5  > LTR<ab>");
  EXPECT_EQ(Tokens(u"12\u00E9", RTL), "LTR<12> LTR<\\u00E9>");
  EXPECT_EQ(Tokens(u"12 A", RTL), "LTR<12> Space< > RTL<A>");  // D10 with nothing decided
  EXPECT_EQ(Tokens(u"12 +a", RTL), "LTR<12> Space< > Neutral<+> LTR<a>");
}

// ---- D10: how much of the number ----

TEST_F(NumberRules, D10_TakesTheNumberTail) {
  EXPECT_EQ(Tokens(u"1'200.75", RTL), "LTR<1'200.75>");
  EXPECT_EQ(Tokens(u"12.", RTL), "LTR<12> RTL<.>");  // a stop with no digit behind it stays outside
  EXPECT_EQ(Tokens(u"1.2.3", RTL), "LTR<1.2> Neutral<.> LTR<3>");
  EXPECT_EQ(Tokens(u"12''", RTL), "LTR<12''>");
}

TEST_F(NumberRules, D10_WithEquationsFromRightToLeftTheWholeTailIsANumberWithARange) {
  const TSettingsGuard guard(RtlMath({TOption::DigitsBeforeLatinAreLatin}));
  EXPECT_EQ(Tokens(u"12.5 A", RTL), "Digit<12.5> Space< > RTL<A>");
  EXPECT_EQ(TokenRanges(u"12.5 A", RTL), "0-3");
}

TEST_F(NumberRules, D10_AListIndexTakesItsDigitsOnly) {
  const TSettingsGuard guard(With({TOption::RTLLineIndexOrder, TOption::DigitsBeforeLatinAreLatin}));
  EXPECT_EQ(Tokens(u"12.5.A", RTL), "Digit<12> Neutral<.> Digit<5> Neutral<.> RTL<A>");
}

TEST_F(NumberRules, DigitsInLeftToRightTextHaveNoRuleOfTheirOwn) {
  EXPECT_EQ(Tokens(u"A12+a", LTR), "RTL<A> LTR<12> Neutral<+> LTR<a>");
}

}  // namespace
}  // namespace orv::testing
