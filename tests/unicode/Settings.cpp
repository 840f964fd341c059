// The process-wide settings: their defaults and their accessors.
#include <gtest/gtest.h>

#include <bit>

#include "tests/unicode/support/RandomText.h"
#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {
namespace {

using G = TOrvGlobalSettings;

TEST(GlobalSettings, HaveTheirDefaults) {
  EXPECT_EQ(G::EquationOrder, G::TMathOrder::LeftToRight);
  EXPECT_EQ(G::ArabicDigitType, G::TArabicDigitType::ArabicDigitType1);
  EXPECT_TRUE(G::Options.IsEmpty());
  EXPECT_EQ(G::Corrections, AllCorrections);
  for (const bool answer :
       {G::RTLMath(), G::ReplaceQuoteWithPrimeInMeasures(), G::MeasureSignsInRightSideOfDigits(),
        G::PrimeInRightSideOfDigits(), G::PercentInRightSideOfDigits(), G::DigitsBeforeLatinAreLatin(),
        G::EquationBeforeLatinIsLatin(), G::AreNeutralsSticky(), G::RTLLineIndexOrder(), G::RTLDate(),
        G::DoubleFlasher(), G::NaturalCaretPositioning(), G::OSRuleApplied()})
    EXPECT_FALSE(answer);
}

TEST(GlobalSettings, EditorOptionsHaveTheirDefaults) {
  const TOrvEditorOptions& options = G::EditorOptions;
  EXPECT_EQ(options.DirectionSelection, TOrvDirectionSelection::Default);
  EXPECT_EQ(options.FlasherOption, TOrvFlasherOption::Default);
  EXPECT_EQ(options.CaretPositioning, TOrvCaretPositioningOption::Default);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(options.CaretMinEdgeDistanceCoEfficient), 0x3ECCCCCDU);
  EXPECT_EQ(options.TextOverrunOption, TOrvTextOverrunOption::ControlByCaret);
  EXPECT_EQ(options.PasswordChar, u'\u2022');
  EXPECT_EQ(options.SelectionTextDefaultColor, 0xFFFFFFFFU);
}

TEST(GlobalSettings, EachAccessorReadsItsBitAlone) {
  const TSettingsGuard guard;
  struct TAccessor {
    bool (*Read)();
    unsigned Bit;
  };
  const TAccessor accessors[] = {{G::ReplaceQuoteWithPrimeInMeasures, 0},
                                 {G::MeasureSignsInRightSideOfDigits, 1},
                                 {G::PrimeInRightSideOfDigits, 2},
                                 {G::PercentInRightSideOfDigits, 3},
                                 {G::DigitsBeforeLatinAreLatin, 4},
                                 {G::EquationBeforeLatinIsLatin, 5},
                                 {G::AreNeutralsSticky, 6},
                                 {G::RTLLineIndexOrder, 7},
                                 {G::RTLDate, 8}};
  for (unsigned bit = 0; bit < 16; ++bit) {
    G::Options = TOrvGlobalOptions::FromBits(static_cast<std::uint16_t>(1U << bit));
    for (const TAccessor& accessor : accessors) EXPECT_EQ(accessor.Read(), accessor.Bit == bit) << bit;
  }
}

TEST(GlobalSettings, TheOperatingSystemsRuleHoldsWithoutAnyOptionThatChangesDirections) {
  const TSettingsGuard guard;
  for (unsigned bits = 0; bits <= 0xFFFF; ++bits) {
    G::Options = TOrvGlobalOptions::FromBits(static_cast<std::uint16_t>(bits));
    G::EquationOrder = G::TMathOrder::ArabicRightToLeft;
    ASSERT_EQ(G::OSRuleApplied(), (bits & ~0x0201U) == 0) << bits;
    G::EquationOrder = G::TMathOrder::LeftToRight;
    ASSERT_FALSE(G::OSRuleApplied()) << bits;
  }
}

TEST(GlobalSettings, TheOperatingSystemsRuleIgnoresTwoOptionsAndNoOther) {
  const TSettingsGuard guard;
  G::EquationOrder = G::TMathOrder::ArabicRightToLeft;
  G::Options = {TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures,
                TOrvGlobalOption::AcceptsLineFeedAsParagraphSeparator};
  EXPECT_TRUE(G::OSRuleApplied());
  G::Options = {TOrvGlobalOption::WeakFollowLineDirection};
  EXPECT_FALSE(G::OSRuleApplied());
}

TEST(GlobalSettings, CaretAccessorsReadTheEditorOptions) {
  const TOrvEditorOptions former = G::EditorOptions;
  G::EditorOptions.FlasherOption = TOrvFlasherOption::AlwaysSingleFlasher;
  EXPECT_FALSE(G::DoubleFlasher());
  G::EditorOptions.FlasherOption = TOrvFlasherOption::DoubleFlasherInRTLMode;
  EXPECT_TRUE(G::DoubleFlasher());
  G::EditorOptions.CaretPositioning = TOrvCaretPositioningOption::ByCharacter;
  EXPECT_FALSE(G::NaturalCaretPositioning());
  G::EditorOptions.CaretPositioning = TOrvCaretPositioningOption::NaturalView;
  EXPECT_TRUE(G::NaturalCaretPositioning());
  G::EditorOptions = former;
}

// The options that the engine never tests change no split.
TEST(GlobalSettings, FourOptionsAreVocabularyOnly) {
  TRandom random(5);
  for (int trial = 0; trial < Trials(40000); ++trial) {
    TSettings settings = RandomSettings(random);
    const std::u16string text = RandomText(random);
    const TParagraphBidi paragraph = RandomParagraph(random);
    constexpr TOrvGlobalOptions unread{
        TOrvGlobalOption::EquationBeforeLatinIsLatin, TOrvGlobalOption::NeutralsFollowStickedStrongDirections,
        TOrvGlobalOption::AcceptsLineFeedAsParagraphSeparator, TOrvGlobalOption::WeakFollowLineDirection};
    settings.Options = settings.Options - unread;
    const TSettingsGuard guard(settings);
    const TDirectionalRuns without = TDirectiveChars::SplitByDirection(text, paragraph);
    G::Options = settings.Options + unread;
    ASSERT_EQ(TDirectiveChars::SplitByDirection(text, paragraph), without) << Shown(text);
  }
}

TEST(SettingsGuard, PutsTheFormerSettingsBack) {
  {
    TSettings settings;
    settings.EquationOrder = G::TMathOrder::ArabicRightToLeft;
    settings.Options = {TOrvGlobalOption::RTLDate};
    const TSettingsGuard guard(settings);
    EXPECT_TRUE(G::RTLDate());
    EXPECT_TRUE(G::Corrections.IsEmpty());
  }
  EXPECT_FALSE(G::RTLDate());
  EXPECT_FALSE(G::RTLMath());
  EXPECT_EQ(G::Corrections, AllCorrections);
}

}  // namespace
}  // namespace orv::testing
