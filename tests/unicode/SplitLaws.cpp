// What every split of every text keeps, whatever the settings.
#include <gtest/gtest.h>

#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/PlainSplit.h"
#include "tests/unicode/support/RandomText.h"
#include "tests/unicode/support/SplitLaws.h"

namespace orv::testing {
namespace {

TEST(SplitLaws, HoldOnRandomTextsWithAnySettingsAndCorrections) {
  TRandom random(71);
  for (int trial = 0; trial < Trials(1000000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Corrections = RandomCorrections(random);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, RandomParagraph(random));
    ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(text) << '\n' << Shown(settings) << '\n' << Shown(runs);
  }
}

TEST(SplitLaws, HoldOnTextsOfAnyUnits) {
  TRandom random(72);
  for (int trial = 0; trial < Trials(200000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Corrections = RandomCorrections(random);
    const TSettingsGuard guard(settings);
    std::u16string text;
    const std::uint32_t mask = random.OneIn(2) ? 0xFFFF : random.OneIn(2) ? 0x7F : 0x7FF;
    for (std::uint32_t i = random.Below(80); i > 0; --i) text.push_back(static_cast<char16_t>(random.Next() & mask));
    const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, RandomParagraph(random));
    ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(text) << '\n' << Shown(settings) << '\n' << Shown(runs);
  }
}

// Every string of up to four units over the classes of characters, with every correction and with none, and with the
// options that the number rules read.
TEST(SplitLaws, HoldOnEveryStringOfFourClasses) {
  const auto units = ClassRepresentatives();
  TSettings numbers;
  numbers.Options = {TOrvGlobalOption::MeasureSignsInRightSideOfDigits, TOrvGlobalOption::RTLLineIndexOrder,
                     TOrvGlobalOption::DigitsBeforeLatinAreLatin};
  numbers.EquationOrder = TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  TSettings corrected;
  corrected.Corrections = AllCorrections;
  for (const TSettings& settings : {TSettings{}, numbers, corrected}) {
    const TSettingsGuard guard(settings);
    for (std::size_t length = 0; length <= 4; ++length) {
      std::size_t count = 1;
      for (std::size_t i = 0; i < length; ++i) count *= units.size();
      for (std::size_t code = 0; code < count; ++code) {
        std::u16string text;
        for (std::size_t rest = code, i = 0; i < length; ++i, rest /= units.size())
          text.push_back(units[rest % units.size()]);
        for (const TParagraphBidi paragraph : {LTR, RTL}) {
          const TDirectionalRuns runs = TDirectiveChars::SplitByDirection(text, paragraph);
          ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(text) << '\n' << Shown(runs);
        }
      }
    }
  }
}

// The rules never reach an assertion: every invariant of the assembler holds by itself.
TEST(SplitLaws, ThePlainRulesKeepTheirInvariants) {
  TRandom random(73);
  for (int trial = 0; trial < Trials(400000); ++trial) {
    const TSettingsGuard guard(RandomSettings(random));
    const std::u16string text = RandomText(random);
    for (const std::string& broken : plain::Split(text, RandomParagraph(random)).Broken)
      FAIL() << broken << ": " << Shown(text);
  }
}

TEST(SplitLaws, ReusedArraysGiveTheSameAsNewOnesWhateverTheyHeld) {
  TRandom random(74);
  TDirectionalRuns reused;
  for (int trial = 0; trial < Trials(200000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Corrections = RandomCorrections(random);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    if (random.OneIn(3)) reused.Ranges.assign(random.Below(5), Range(7, 8));
    TDirectiveChars::SplitByDirection(text, paragraph, reused);
    ASSERT_EQ(reused, TDirectiveChars::SplitByDirection(text, paragraph)) << Shown(text);
  }
}

// A bracket left open by one call is forgotten by the next.
TEST(SplitLaws, OneCallLeavesNothingToTheNext) {
  const TSettingsGuard guard;
  const std::string alone = Split(u" a\"(B) )\"C", LTR);
  for (int i = 0; i < 100; ++i) {
    Split(u"A (b [C {d", RTL);
    ASSERT_EQ(Split(u" a\"(B) )\"C", LTR), alone);
  }
}

// Four settings that, as the rules stand, change no split by themselves.
TEST(SplitLaws, OptionsWithoutEffectAlone) {
  TRandom random(75);
  constexpr TOrvGlobalOption alone[] = {TOrvGlobalOption::RTLDate, TOrvGlobalOption::RTLLineIndexOrder,
                                        TOrvGlobalOption::PercentInRightSideOfDigits,
                                        TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures};
  for (int trial = 0; trial < Trials(100000); ++trial) {
    TSettings settings;
    settings.EquationOrder = static_cast<TOrvGlobalSettings::TMathOrder>(random.Below(2));
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    const TDirectionalRuns without = TDirectiveChars::SplitByDirection(text, paragraph);
    TOrvGlobalSettings::Options = {alone[trial % 4]};
    ASSERT_EQ(TDirectiveChars::SplitByDirection(text, paragraph), without) << Shown(text) << trial % 4;
  }
}

TEST(SplitLaws, AVisualOrderNeedNotBeLogical) {
  const TSettingsGuard guard;
  EXPECT_EQ(Split(u"()+\u00AD/", RTL), "R<()> R<+\\u00AD/> R<> order 0 2 1");
}

TEST(SplitLaws, RefuseNothingAndFindTheirFaults) {
  // The checks themselves: each kind of fault is seen.
  const TDirectionalRuns good{{0, 1, 2}, {0, 1}, {TBidi::LeftToRight, TBidi::RightToLeft}, {}};
  EXPECT_EQ(BrokenLaw(u"ab", good), "");
  TDirectionalRuns bad = good;
  bad.Offsets[1] = 3;
  EXPECT_NE(BrokenLaw(u"ab", bad), "");
  bad = good;
  bad.VisualOrder[1] = 0;
  EXPECT_NE(BrokenLaw(u"ab", bad), "");
  bad = good;
  bad.Ranges = {Range(1, 2)};
  EXPECT_NE(BrokenLaw(u"ab", bad), "");
  EXPECT_NE(BrokenLaw(u"abc", good), "");
  bad = {{0, 1, 2}, {1, 0}, {TBidi::ParagraphSeparator, TBidi::RightToLeft}, {}};
  EXPECT_NE(BrokenLaw(u"ab", bad), "");
}

}  // namespace
}  // namespace orv::testing
