// One test or more for each rule of the token reader, apart from the number rules, which have a file of their own.
#include <gtest/gtest.h>

#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/RandomText.h"
#include "tests/unicode/support/TokenGolden.h"

namespace orv::testing {
namespace {

class TokenRules : public ::testing::Test {
 private:
  TSettingsGuard FGuard;  // the defaults, without corrections
};

// ---- R ----

TEST_F(TokenRules, R_ReadsAStretchOfRightToLeftUnits) {
  EXPECT_EQ(Tokens(u"ABCab", RTL), "RTL<ABC> LTR<ab>");
  EXPECT_EQ(Tokens(u"A\u200F\u2E2E\u2035\u0651\u06D4B-", LTR), "RTL<A\\u200F\\u2E2E\\u2035\\u0651\\u06D4B> Neutral<->");
}

TEST_F(TokenRules, R_TakesOneThinOrZeroWidthSpaceBetweenTwoRightToLeftUnits) {
  EXPECT_EQ(Tokens(u"A\u200AB", RTL), "RTL<A\\u200AB>");
  EXPECT_EQ(Tokens(u"A\u200BB", RTL), "RTL<A\\u200BB>");
  EXPECT_EQ(Tokens(u"A\u200CB", RTL), "RTL<A\\u200CB>");
  EXPECT_EQ(Tokens(u"A\u200CB\u200AC\u200BD", LTR), "RTL<A\\u200CB\\u200AC\\u200BD>");
}

TEST_F(TokenRules, R_DoesNotTakeAJoinerOrTwoSpacesOrOneBeforeAnythingElse) {
  EXPECT_EQ(Tokens(u"A\u200DB", RTL), "RTL<A> Space<\\u200D> RTL<B>");
  EXPECT_EQ(Tokens(u"A\u2009B", RTL), "RTL<A> Space<\\u2009> RTL<B>");
  EXPECT_EQ(Tokens(u"A\u200C\u200CB", RTL), "RTL<A> Space<\\u200C> Space<\\u200C> RTL<B>");
  EXPECT_EQ(Tokens(u"A\u200Cb", RTL), "RTL<A> Space<\\u200C> LTR<b>");
  EXPECT_EQ(Tokens(u"A\u200C", RTL), "RTL<A> Space<\\u200C>");
}

TEST_F(TokenRules, R_TakesTheStopThatEndsASentence) {
  EXPECT_EQ(Tokens(u"AB. C", RTL), "RTL<AB.>! Space< > RTL<C>");
  EXPECT_EQ(Tokens(u"AB.", RTL), "RTL<AB.>!");
  EXPECT_EQ(Tokens(u"A.\nB", RTL), "RTL<A.>! Paragraph<\\n> RTL<B>");
  EXPECT_EQ(Tokens(u"A.\u3000", RTL), "RTL<A.>! Space<\\u3000>");
  EXPECT_EQ(Tokens(u"A.\u0085", RTL), "RTL<A.>! Neutral<\\u0085>");
}

TEST_F(TokenRules, R_LeavesAStopThatEndsNoSentence) {
  EXPECT_EQ(Tokens(u"A.B", RTL), "RTL<A> Neutral<.> RTL<B>");
  EXPECT_EQ(Tokens(u"A.\u200BB", RTL), "RTL<A> Neutral<.> Space<\\u200B> RTL<B>");  // no white space
  EXPECT_EQ(Tokens(u"A. B", LTR), "RTL<A> Neutral<.> Space< > RTL<B>");             // not the direction in force
}

// ---- L ----

TEST_F(TokenRules, L_ReadsAStretchOfLeftToRightUnits) {
  EXPECT_EQ(Tokens(u"ab1,?;x\u2032\u4E2D.A", LTR), "LTR<ab1,?;x\\u2032\\u4E2D> Neutral<.> RTL<A>");
  EXPECT_EQ(Tokens(u"\u200Eab", RTL), "LTR<\\u200Eab>");
  EXPECT_EQ(Tokens(u",a", LTR), "Neutral<,> LTR<a>");  // a comma goes on, but begins nothing
}

TEST_F(TokenRules, L_StopsBeforeAnArabicDigitInRightToLeftText) {
  EXPECT_EQ(Tokens(u"ab\u0661c", RTL), "LTR<ab> LTR<\\u0661c>");
  EXPECT_EQ(Tokens(u"ab\u0661c", LTR), "LTR<ab\\u0661c>");
  TSettings settings;
  settings.EquationOrder = TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Tokens(u"ab1c", RTL), "LTR<ab> LTR<1c>");
  EXPECT_EQ(Tokens(u"ab1c", LTR), "LTR<ab1c>");
}

TEST_F(TokenRules, L_TakesTheStopThatEndsASentence) {
  EXPECT_EQ(Tokens(u"ab. c", LTR), "LTR<ab.>! Space< > LTR<c>");
  EXPECT_EQ(Tokens(u"ab.", LTR), "LTR<ab.>!");
  EXPECT_EQ(Tokens(u"ab. c", RTL), "LTR<ab> Neutral<.> Space< > LTR<c>");
}

TEST_F(TokenRules, L_KeepsMarksBetweenAsciiDigitsInside) {
  EXPECT_EQ(Tokens(u"x1.5y", LTR), "LTR<x1.5y>");
  EXPECT_EQ(Tokens(u"1'000'000.25", LTR), "LTR<1'000'000.25>");
  EXPECT_EQ(Tokens(u"x.5", LTR), "LTR<x> Neutral<.> LTR<5>");
  EXPECT_EQ(Tokens(u"1.x", LTR), "LTR<1> Neutral<.> LTR<x>");
  EXPECT_EQ(Tokens(u"1..5", LTR), "LTR<1> LTR<.> Neutral<.> LTR<5>");
  EXPECT_EQ(Tokens(u"\u0967.5", LTR), "LTR<\\u0967> Neutral<.> LTR<5>");  // ASCII digits on both sides only
}

// ---- Line ends ----

TEST_F(TokenRules, LineEnds_CrLfIsOneAndLfCrAreTwo) {
  EXPECT_EQ(Tokens(u"\r\n", LTR), "Paragraph<\\r\\n>");
  EXPECT_EQ(Tokens(u"\n\r", LTR), "Paragraph<\\n> Paragraph<\\r>");
  EXPECT_EQ(Tokens(u"\n\n\n", LTR), "Paragraph<\\n\\n> Paragraph<\\n>");
  EXPECT_EQ(Tokens(u"\r\r\n\n", LTR), "Paragraph<\\r> Paragraph<\\r\\n> Paragraph<\\n>");
}

TEST_F(TokenRules, LineEnds_SeparatorsTakeNothingWithThem) {
  EXPECT_EQ(Tokens(u"\u2028\n\u2029\u2028", LTR),
            "Paragraph<\\u2028> Paragraph<\\n> Paragraph<\\u2029> Paragraph<\\u2028>");
}

TEST_F(TokenRules, LineEnds_DoNotAskTheLineFeedOption) {
  TSettings settings;
  settings.Options = {TOrvGlobalOption::AcceptsLineFeedAsParagraphSeparator};
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Tokens(u"\n\r", LTR), "Paragraph<\\n> Paragraph<\\r>");
}

// ---- S ----

TEST_F(TokenRules, S_ReadsBlanksAndTheSeparatorsBehindThem) {
  EXPECT_EQ(Tokens(u" \u00A0\u3000\u2028 a", LTR), "Space< \\u00A0\\u3000\\u2028 > LTR<a>");
  EXPECT_EQ(Tokens(u" \na", LTR), "Space< > Paragraph<\\n> LTR<a>");  // a control character is not swallowed
}

TEST_F(TokenRules, S_ZeroWidthBlanksBeginAStretchAndDoNotGoOnWithOne) {
  EXPECT_EQ(Tokens(u"\u200B  a", LTR), "Space<\\u200B  > LTR<a>");
  EXPECT_EQ(Tokens(u" \u200C\u200D", LTR), "Space< > Space<\\u200C> Space<\\u200D>");
  EXPECT_EQ(Tokens(u"\t", LTR), "Neutral<\\t>");  // a tab is no blank
}

// ---- Format characters ----

TEST_F(TokenRules, FormatCharactersAreTokensOfTheirOwn) {
  EXPECT_EQ(Tokens(u"\u2069\u00AD\uFEFF", LTR), "Format<\\u2069> Format<\\u00AD> Format<\\uFEFF>");
}

// ---- P ----

TEST_F(TokenRules, P_AStopThatClosesAPhraseTakesTheDirectionInForce) {
  EXPECT_EQ(Tokens(u"A .", RTL), "RTL<A> Space< > RTL<.>");
  EXPECT_EQ(Tokens(u"A .", LTR), "RTL<A> Space< > LTR<.>");
  EXPECT_EQ(Tokens(u"A .-B", RTL), "RTL<A> Space< > RTL<.> Neutral<-> RTL<B>");
  EXPECT_EQ(Tokens(u"A . \t", RTL), "RTL<A> Space< > RTL<.> Space< > Neutral<\\t>");
  EXPECT_EQ(Tokens(u".\u00A0B", RTL), "RTL<.> Space<\\u00A0> RTL<B>");  // only plain blanks are skipped
  EXPECT_EQ(Tokens(u".\uFE8E", RTL), "Neutral<.> LTR<\\uFE8E>");        // a presentation form is a letter
}

TEST_F(TokenRules, P_AStopBetweenWordsIsNeutral) {
  EXPECT_EQ(Tokens(u"A . B", RTL), "RTL<A> Space< > Neutral<.> Space< > RTL<B>");
  EXPECT_EQ(Tokens(u".\t\u200B\u200C\u200D B", RTL),
            "Neutral<.> Neutral<\\t> Space<\\u200B> Space<\\u200C> Space<\\u200D > RTL<B>");
  EXPECT_EQ(Tokens(u".5", LTR), "Neutral<.> LTR<5>");
}

// ---- Q ----

TEST_F(TokenRules, Q_CountsTwoPlacesBehindABlankOrColon) {
  EXPECT_EQ(Tokens(u" a\"B\"", LTR), "Space< > LTR<a> RTL<\"> RTL<B> RTL<\">");
  EXPECT_EQ(Tokens(u":a'B'", LTR), "Neutral<:> LTR<a> RTL<'> RTL<B> RTL<'>");
  EXPECT_EQ(Tokens(u"\u3000a\"B\"", LTR), "Space<\\u3000> LTR<a> RTL<\"> RTL<B> RTL<\">");
  EXPECT_EQ(TokenRanges(u" a\"B\"", LTR), "2-2 4-4");
}

TEST_F(TokenRules, Q_DeclinesBehindALetterAndRightBehindABlank) {
  EXPECT_EQ(Tokens(u"ab\"B", LTR), "LTR<ab> Neutral<\"> RTL<B>");
  EXPECT_EQ(Tokens(u"ab \"B\"", LTR), "LTR<ab> Space< > Neutral<\"> RTL<B> Neutral<\">");
  EXPECT_EQ(Tokens(u" \"B\"", LTR), "Space< > Neutral<\"> RTL<B> Neutral<\">");  // nothing stands two places before
}

TEST_F(TokenRules, Q_TheSameQuoteClosesWhereverItStandsAndTheOtherDoesNot) {
  EXPECT_EQ(Tokens(u" a\"B'C\"D", LTR), "Space< > LTR<a> RTL<\"> RTL<B> Neutral<'> RTL<C> RTL<\"> RTL<D>");
  EXPECT_EQ(Tokens(u" a\"bc\"D", RTL), "Space< > LTR<a> LTR<\"> LTR<bc> LTR<\"> RTL<D>");
}

TEST_F(TokenRules, Q_TakesTheDirectionOfTheFirstLetterInsideThenOfTheFirstDigit) {
  EXPECT_EQ(Tokens(u" a\"1 B\"", LTR), "Space< > LTR<a> RTL<\"> Digit<1> Space< > RTL<B> RTL<\">");
  EXPECT_EQ(Tokens(u" a\"1\"", RTL, TDirectiveChars::TBidiType::LTR), "Space< > LTR<a> LTR<\"> LTR<1> LTR<\">");
  EXPECT_EQ(Tokens(u" a\" \"", RTL), "Space< > LTR<a> RTL<\"> Space< > RTL<\">");  // nothing inside: as outside
  EXPECT_EQ(Tokens(u" a\"\u0661\"", LTR), "Space< > LTR<a> RTL<\"> LTR<\\u0661> RTL<\">");  // a number: right to left
}

// ---- B-open and B-close ----

TEST_F(TokenRules, BOpen_TakesTheDirectionOfTheFirstLetterInside) {
  EXPECT_EQ(Tokens(u"a(B c)d", LTR), "LTR<a> RTL<(> RTL<B> Space< > LTR<c> RTL<)> LTR<d>");
  EXPECT_EQ(TokenRanges(u"a(B c)d", LTR), "1-1 5-5");
  EXPECT_EQ(Tokens(u"A(b C)D", RTL), "RTL<A> LTR<(> LTR<b> Space< > RTL<C> LTR<)> RTL<D>");
  EXPECT_EQ(TokenRanges(u"A(b C)D", RTL), "");
}

TEST_F(TokenRules, BOpen_FallsBackToTheFirstDigitThenToTheDirectionInForce) {
  EXPECT_EQ(Tokens(u"(-)", RTL), "RTL<(> Neutral<-> RTL<)>");
  EXPECT_EQ(Tokens(u"(-)", LTR), "LTR<(> Neutral<-> LTR<)>");
  EXPECT_EQ(Tokens(u"(\u0661)", LTR), "RTL<(> LTR<\\u0661> RTL<)>");
  EXPECT_EQ(Tokens(u"(-1)", RTL), "LTR<(> Neutral<-> LTR<1> LTR<)>");
  EXPECT_EQ(Tokens(u"(1B)", LTR), "RTL<(> LTR<1> RTL<B> RTL<)>");  // a letter is looked for first
  EXPECT_EQ(Tokens(u"(-", RTL), "RTL<(> Neutral<->");              // never closed
}

TEST_F(TokenRules, BOpen_KnowsTheCloserOfEveryBracket) {
  // The letter behind the closer must not be looked at.
  const std::u16string_view pairs[] = {u"()",           u"[]",           u"{}",           u"\u00AB\u00BB",
                                       u"\u2039\u203A", u"\u201C\u201D", u"\u2018\u2019", u"\u27E8\u27E9",
                                       u"\u300C\u300D", u"\uFF3B\uFF3D", u"\u2045\u2046"};
  for (const std::u16string_view pair : pairs) {
    const std::u16string text = {pair[0], u'-', pair[1], u'A'};
    EXPECT_TRUE(Tokens(text, LTR).starts_with("LTR<")) << Shown(text);
    const std::u16string other = {pair[0], u'-', u'+', u'A'};
    EXPECT_TRUE(Tokens(other, LTR).starts_with("RTL<")) << Shown(other);
  }
}

TEST_F(TokenRules, BOpen_TheGuillemetsCloserWinsOverTheLowBitsRule) {
  // The low bits of U+00AB would give U+00AD.
  EXPECT_EQ(Tokens(u"\u00AB\u00AD\u00BBA", LTR), "LTR<\\u00AB> Format<\\u00AD> LTR<\\u00BB> RTL<A>");
  EXPECT_EQ(Tokens(u"\u00AB-\u00ADA", LTR), "RTL<\\u00AB> Neutral<-> Format<\\u00AD> RTL<A>");
}

TEST_F(TokenRules, BClose_BelongsToTheInsideAndBringsTheOutsideBack) {
  EXPECT_EQ(Tokens(u"(A(b)C).", LTR), "RTL<(> RTL<A> LTR<(> LTR<b> LTR<)> RTL<C> RTL<)> LTR<.>");
}

TEST_F(TokenRules, BClose_WithNothingOpenIsNeutral) {
  EXPECT_EQ(Tokens(u"a)b", LTR), "LTR<a> Neutral<)> LTR<b>");
  EXPECT_EQ(Tokens(u"(a))b", LTR), "LTR<(> LTR<a> LTR<)> Neutral<)> LTR<b>");
}

TEST_F(TokenRules, Q_ANeutralStretchTakesQuotesWithIt) {
  EXPECT_EQ(Tokens(u" a\"-\"", RTL), "Space< > LTR<a> RTL<\"> Neutral<-\">");
}

// ---- N ----

TEST_F(TokenRules, N_EndsAtEverythingThatHasARuleOfItsOwn) {
  for (const char16_t c : {u' ', u'a', u'\u05D0', u'1', u'\u0661', u'\t', u'\0', u'\u00AD', u')', u'\u00BB', u'\u00AB',
                           u'(', u'\u2028', u'\u2029', u'\n'}) {
    const std::u16string text = {u'-', c};
    EXPECT_TRUE(Tokens(text, LTR).starts_with("Neutral<-> ")) << Shown(text);
  }
}

TEST_F(TokenRules, N_GoesOnOverSymbolsMarksAndSurrogates) {
  EXPECT_EQ(Tokens(u"-+\u0300\xD83D\xDE00\"'/%\u20AC_\u2160a", LTR),
            "Neutral<-+\\u0300\\uD83D\\uDE00\"'/%\\u20AC_\\u2160> LTR<a>");
  EXPECT_EQ(Tokens(std::u16string_view(u"\0-", 2), LTR), "Neutral<\\u0000->");
}

TEST_F(TokenRules, N_AStopAtTheEndTakesTheDirectionInForce) {
  EXPECT_EQ(Tokens(u"A-.", RTL), "RTL<A> RTL<-.>");
  EXPECT_EQ(Tokens(u"A-.", LTR), "RTL<A> LTR<-.>");
  EXPECT_EQ(Tokens(u"-", RTL), "Neutral<->");
}

TEST_F(TokenRules, N_AStopBeforeWhiteSpaceAndADirectionTakesTheDirectionInForce) {
  EXPECT_EQ(Tokens(u"-. B", RTL), "RTL<-.> Space< > RTL<B>");
  EXPECT_EQ(Tokens(u"-. b", RTL), "RTL<-.> Space< > LTR<b>");
  EXPECT_EQ(Tokens(u"-.\u00A0 \t\u200BB", RTL), "RTL<-.> Space<\\u00A0 > Neutral<\\t> Space<\\u200B> RTL<B>");
  EXPECT_EQ(Tokens(u"-. \u3000B", RTL), "Neutral<-.> Space< \\u3000> RTL<B>");  // other blanks are not skipped
  EXPECT_EQ(Tokens(u"-. -B", RTL), "Neutral<-.> Space< > Neutral<-> RTL<B>");
  EXPECT_EQ(Tokens(u"-.B", RTL), "Neutral<-.> RTL<B>");
}

}  // namespace
}  // namespace orv::testing
