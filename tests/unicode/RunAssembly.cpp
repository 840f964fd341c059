// The run assembler: its branches one by one, the traces that fix its behaviour, and its odd corners.
#include <gtest/gtest.h>

#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/RandomText.h"

namespace orv::testing {
namespace {

class RunAssembly : public ::testing::Test {
 private:
  TSettingsGuard FGuard;  // the defaults, without corrections
};

TSettings RtlMath() {
  TSettings settings;
  settings.EquationOrder = TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  return settings;
}

// ---- Traces ----

TEST_F(RunAssembly, ABlankStaysWithTheBaseDirection) {
  EXPECT_EQ(Split(u"abc ABC", LTR), "L<abc > R<ABC>");
  EXPECT_EQ(Split(u"ABC abc DEF", RTL), "R<ABC > L<abc> R< DEF>");
}

TEST_F(RunAssembly, ResultsAreOffsetsOrderAndDirections) {
  const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(Text(u"ABC abc DEF"), RTL);
  EXPECT_EQ(runs.Offsets, (std::vector<std::int32_t>{0, 4, 7, 11}));
  EXPECT_EQ(runs.VisualOrder, (std::vector<std::int32_t>{0, 1, 2}));
  EXPECT_EQ(runs.Bidi, (std::vector<TBidi>{TBidi::RightToLeft, TBidi::LeftToRight, TBidi::RightToLeft}));
  EXPECT_TRUE(runs.Ranges.empty());
}

TEST_F(RunAssembly, ANumberInRightToLeftTextIsALeftToRightRun) {
  EXPECT_EQ(Split(u"ABC 123 DEF", RTL), "R<ABC > L<123> R< DEF>");
  EXPECT_EQ(Split(u"A 2nd B", RTL), "R<A > L<2nd> R< B>");
  EXPECT_EQ(Split(u"A 12/11/1398 B", RTL), "R<A > L<12/11/1398> R< B>");
}

TEST_F(RunAssembly, AnEmptyTextHasNoRuns) {
  const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(u"", RTL);
  EXPECT_EQ(runs.Offsets, std::vector<std::int32_t>{0});
  EXPECT_TRUE(runs.VisualOrder.empty());
  EXPECT_TRUE(runs.Bidi.empty());
  EXPECT_TRUE(runs.Ranges.empty());
}

TEST_F(RunAssembly, ALineFeedAloneIsOneSeparator) {
  EXPECT_EQ(Split(u"\n", RTL), "P<\\n>");
}

TEST_F(RunAssembly, BlanksAtTheEndExtendTheLastRun) {
  EXPECT_EQ(Split(u"ABC  ", RTL), "R<ABC  >");
  EXPECT_EQ(Split(u"ABC  ", LTR), "R<ABC  >");
  EXPECT_EQ(Split(u"  ", RTL), "R<  >");  // without a run they are one
}

TEST_F(RunAssembly, AMeasureEndsBeforeTheBlankBehindItsUnit) {
  TSettings settings;
  settings.Options = {TOrvGlobalOption::MeasureSignsInRightSideOfDigits};
  const TSettingsGuard guard(settings);
  EXPECT_EQ(Split(u"A 5 km B", RTL), "R<A > L<5 km> R< B>");
  EXPECT_EQ(Ranges(u"A 5 km B", RTL), "2-5");
  EXPECT_EQ(Split(u"A 5 m B", RTL), "R<A > L<5> R< > L<m> R< B>");
}

// ---- The paragraph's direction ----

TEST_F(RunAssembly, AnAutomaticParagraphTakesTheFirstStrongCharacter) {
  for (const TParagraphBidi paragraph :
       {TParagraphBidi::AutoLeftToRight, TParagraphBidi::AutoRightToLeft, TParagraphBidi::Neutral}) {
    EXPECT_EQ(Split(u"1 A b C", paragraph), Split(u"1 A b C", RTL));
    EXPECT_EQ(Split(u"1 a B c", paragraph), Split(u"1 a B c", LTR));
  }
}

TEST_F(RunAssembly, WithoutAStrongCharacterTheKindDecidesAndNeutralMeansLeftToRight) {
  EXPECT_EQ(Split(u"-", TParagraphBidi::AutoLeftToRight), "L<->");
  EXPECT_EQ(Split(u"-", TParagraphBidi::AutoRightToLeft), "R<->");
  EXPECT_EQ(Split(u"-", TParagraphBidi::Neutral), "L<->");
  EXPECT_EQ(Split(u"-", static_cast<TParagraphBidi>(7)), "L<->");
}

// ---- Main loop ----

TEST_F(RunAssembly, EqualTokensExtendARun) {
  EXPECT_EQ(Split(u"A\u202AB", RTL), "R<A\\u202AB>");  // the format character between them belongs to the second
  EXPECT_EQ(Split(u"\u0661\u0662 \u0663", RTL), "L<\\u0661\\u0662 \\u0663>");
}

TEST_F(RunAssembly, AFormatCharacterFallsIntoTheNextRun) {
  EXPECT_EQ(Split(u"A\u2069b", RTL), "R<A> L<\\u2069b>");
  EXPECT_EQ(Split(u"a\u00ADB", LTR), "L<a> R<\\u00ADB>");
}

TEST_F(RunAssembly, AFormatCharacterBeforeAnEmbeddingIsALeftToRightRun) {
  EXPECT_EQ(Split(u"A\u00AD\u202AB", RTL), "R<A> L<\\u00AD> R<\\u202AB>");
  EXPECT_EQ(Split(u"A\u00AD\u202BB", RTL), "R<A> L<\\u00AD> R<\\u202BB>");
  EXPECT_EQ(Split(u"A\u202A\u202B\u202BB", RTL), "R<A> L<\\u202A\\u202B> R<\\u202BB>");  // a second one extends it
}

TEST_F(RunAssembly, ASentenceEndStartsAfresh) {
  EXPECT_EQ(Split(u"A. B", RTL), "R<A.> R< B>");
  EXPECT_EQ(Split(u"a. b", LTR), "L<a.> L< b>");
  EXPECT_EQ(Split(u"A. b C", RTL), "R<A.> L< b> R< C>");
  EXPECT_EQ(Split(u"A. B", LTR), "R<A. B>");
}

TEST_F(RunAssembly, BehindAClosedBracketNothingMergesWithTheInside) {
  EXPECT_EQ(Split(u"(A)B", RTL), "R<(A)> R<B>");
  EXPECT_EQ(Split(u"(a)b", LTR), "L<(a)> L<b>");
  EXPECT_EQ(Split(u"A (B) C", RTL), "R<A (B)> R< C>");
}

TEST_F(RunAssembly, ABracketTurnsToTheDirectionOfItsInside) {
  EXPECT_EQ(Split(u"a (AB c) d", LTR), "L<a > R<(AB > L<c> R<)> L< d>");
  EXPECT_EQ(Ranges(u"a (AB c) d", LTR), "2-2 7-7");
  EXPECT_EQ(Split(u"A (b) C", RTL), "R<A > L<(b)> R< C>");
}

TEST_F(RunAssembly, AQuoteTwoPlacesBehindABlankOrColonOpens) {
  EXPECT_EQ(Split(u"A \"B\" C", RTL), "R<A \"B\" C>");
  EXPECT_EQ(Split(u"A: \"B\" C", RTL), "R<A: \"B\"> R< C>");
  EXPECT_EQ(Split(u"A x\"B\" C", RTL), "R<A > L<x> R<\"B\"> R< C>");
}

TEST_F(RunAssembly, OpenBracketsAndQuotesSurviveAParagraphEndAndTheirDirectionsDoNot) {
  EXPECT_EQ(Split(u"(b\n)a", RTL), "L<(b> P<\\n> R<)> L<a>");
  EXPECT_EQ(Split(u"\n)a", RTL), "P<\\n> L<)a>");
  EXPECT_EQ(Split(u" a\"B\nC\"d", RTL), "L< a> R<\"B> P<\\n> R<C\"> L<d>");
}

// ---- Neutral branch ----

TEST_F(RunAssembly, NeutralsAtTheEndOfTheText) {
  EXPECT_EQ(Split(u"A-", RTL), "R<A->");
  EXPECT_EQ(Split(u"a-", RTL), "L<a->");  // they close the open run
  EXPECT_EQ(Split(u"-", RTL), "R<->");    // and without one are a run of the direction in force
  EXPECT_EQ(Split(u"- ", LTR), "L<- >");
}

TEST_F(RunAssembly, NeutralsBeforeALineEnd) {
  EXPECT_EQ(Split(u"A-\nb", RTL), "R<A-> P<\\n> L<b>");
  EXPECT_EQ(Split(u"A- \nb", RTL), "R<A- > P<\\n> L<b>");
  EXPECT_EQ(Split(u"a- \nb", RTL), "L<a-> P< \\n> L<b>");  // only neutrals of the direction in force stay before it
  EXPECT_EQ(Split(u"-\nb", RTL), "R<-\\n> P<> L<b>");      // without a run the line end goes with them
}

TEST_F(RunAssembly, NeutralsBetweenTwoDirectionsGoWithTheDirectionInForce) {
  EXPECT_EQ(Split(u"A-b", RTL), "R<A-> L<b>");
  EXPECT_EQ(Split(u"a-B", RTL), "L<a> R<-B>");
  EXPECT_EQ(Split(u"a-B", LTR), "L<a-> R<B>");
  EXPECT_EQ(Split(u"A-B", LTR), "R<A-B>");
}

// ---- Blank branch ----

TEST_F(RunAssembly, ABlankBeforeALineEndStaysInTheTextRun) {
  EXPECT_EQ(Split(u"a \nb", LTR), "L<a > P<\\n> L<b>");
  const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(u"a \nb", LTR);
  EXPECT_EQ(runs.Offsets, (std::vector<std::int32_t>{0, 2, 3, 4}));
}

TEST_F(RunAssembly, NeutralsBehindABlankFallIntoTheSeparator) {
  EXPECT_EQ(Split(u"A !\nb", RTL), "R<A > P<!\\n> L<b>");
}

TEST_F(RunAssembly, ALineOfBlanksTakesItsLineEndAndTheSeparatorIsEmpty) {
  EXPECT_EQ(Split(u" \nA", RTL), "R< \\n> P<> R<A>");
}

TEST_F(RunAssembly, BlanksAndNeutralsAtTheEndOfTheText) {
  EXPECT_EQ(Split(u"A -", RTL), "R<A ->");
  EXPECT_EQ(Split(u"a -", RTL), "L<a> R< ->");
  EXPECT_EQ(Split(u" -", RTL), "R< ->");
}

TEST_F(RunAssembly, ABlankAndANeutralBeforeAnotherDirection) {
  EXPECT_EQ(Split(u"A -aB", RTL), "R<A -> L<a> R<B>");
  EXPECT_EQ(Split(u"A - aB", RTL), "R<A - > L<a> R<B>");
  EXPECT_EQ(Split(u"A - - aB", RTL), "R<A - - > L<a> R<B>");  // blanks and neutrals alike
  EXPECT_EQ(Split(u"a -AB", RTL), "L<a> R< -AB>");
  EXPECT_EQ(Split(u"A -a", RTL), "R<A > L<-a>");  // where the text ends with that token the neutral goes with it
}

TEST_F(RunAssembly, ABlankBeforeANumberBecomesARightToLeftRun) {
  EXPECT_EQ(Split(u" 1 A", RTL), "R< > L<1> R< A>");
  EXPECT_EQ(Split(u"(A) 1 B", RTL), "R<(A)> R< > L<1> R< B>");
}

TEST_F(RunAssembly, ABlankAndNeutralsBetweenTwoNumbersAreARightToLeftRun) {
  const TSettingsGuard guard(RtlMath());
  EXPECT_EQ(Split(u"1 -1A", RTL), "L<1> R< -> L<1> R<A>");
}

TEST_F(RunAssembly, ABlankBetweenANumberAndALatinWordIsARunOfItsOwnInARightToLeftParagraph) {
  EXPECT_EQ(Split(u"1 a", RTL), "L<1> R< > L<a>");
  EXPECT_EQ(Split(u"A 1 b C", RTL), "R<A > L<1> R< > L<b> R< C>");
  EXPECT_EQ(Split(u"A 1 b C", TParagraphBidi::AutoRightToLeft), "R<A > L<1> L< b> R< C>");  // only there
}

// ---- ResolveBoundary, branch by branch ----

TEST_F(RunAssembly, Boundary1_TheStretchBeforeANumberIsRightToLeft) {
  EXPECT_EQ(Split(u"-1 A", RTL), "R<-1 A>");
  EXPECT_EQ(Split(u" 1-a", RTL), "R< > L<1-> L<a>");
}

TEST_F(RunAssembly, Boundary2_1_TheSameDirectionExtends) {
  EXPECT_EQ(Split(u"A -B", RTL), "R<A -B>");
}

TEST_F(RunAssembly, Boundary2_2_TheOpenRunOfTheDirectionInForceTakesTheBlank) {
  EXPECT_EQ(Split(u"A b", RTL), "R<A > L<b>");
}

TEST_F(RunAssembly, Boundary2_3_ABlankBeforeTheDirectionInForceGoesWithIt) {
  EXPECT_EQ(Split(u"a A", RTL), "L<a> R< A>");
  EXPECT_EQ(Split(u" A", RTL), "R< A>");
}

TEST_F(RunAssembly, Boundary2_4_AnyOtherStrongTokenStartsARunWithWhatStandsBeforeIt) {
  EXPECT_EQ(Split(u"-a", RTL), "L<-a>");
  EXPECT_EQ(Split(u" a", RTL), "L< a>");
}

TEST_F(RunAssembly, Boundary2_5_ANumberRunIsClosedByAnEmptyRun) {
  EXPECT_EQ(Split(u"1 a-", RTL), "L<1> R< > L<a-> R<>");
}

TEST_F(RunAssembly, Boundary2_6_AnythingElseClosesTheRun) {
  EXPECT_EQ(Split(u"a-", RTL), "L<a->");
}

TEST_F(RunAssembly, Boundary3_1_ABlankBehindABracketStaysBeforeAnotherDirection) {
  EXPECT_EQ(Split(u"(A) b", RTL), "R<(A) > L<b>");
  EXPECT_EQ(Split(u"(A) \nb", RTL), "R<(A) > P<\\n> L<b>");
}

TEST_F(RunAssembly, Boundary3_2_WhatStandsBehindABracketGoesWithTheDirectionInForce) {
  EXPECT_EQ(Split(u"(A) B", RTL), "R<(A)> R< B>");
  EXPECT_EQ(Split(u"(A)-B", RTL), "R<(A)> R<-B>");
}

TEST_F(RunAssembly, Boundary3_3_ANeutralBehindABracketTakesTheOtherDirectionWithIt) {
  EXPECT_EQ(Split(u"(A)-b", RTL), "R<(A)> R<-b>");
  EXPECT_EQ(Split(u"()-", RTL), "R<()-> R<>");
}

TEST_F(RunAssembly, Boundary3_3_InsertsAtTheTurn) {
  EXPECT_EQ(Split(u"()+\u00AD/", RTL), "R<()> R<+\\u00AD/> R<> order 0 2 1");
  EXPECT_EQ(Split(u"(b)+\u00AD/", LTR), "L<(b)> L<+\\u00AD/> L<> order 0 2 1");
}

// ---- Finish ----

TEST_F(RunAssembly, WhatNoRuleCoversAtTheEndJoinsTheLastRun) {
  EXPECT_EQ(Split(u"A\u2069", RTL), "R<A\\u2069>");
  EXPECT_EQ(Split(u"a\u00AD\u00AD", RTL), "L<a\\u00AD\\u00AD>");
  EXPECT_EQ(Split(u"a \u200B", RTL), "L<a \\u200B>");
}

TEST_F(RunAssembly, WithoutARunOrBehindASeparatorItIsARunOfTheDirectionInForce) {
  EXPECT_EQ(Split(u"\u00AD", RTL), "R<\\u00AD>");
  EXPECT_EQ(Split(u"\u00AD", LTR), "L<\\u00AD>");
  EXPECT_EQ(Split(u"a\n\u2069", RTL), "L<a> P<\\n> R<\\u2069>");
}

}  // namespace
}  // namespace orv::testing
