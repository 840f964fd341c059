// The character tests over every code unit, and the small helpers beside them.
#include <gtest/gtest.h>

#include "rtl/Unicode.h"
#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/PlainChars.h"
#include "tests/unicode/support/RandomText.h"

namespace orv::testing {
namespace {

using D = TDirectiveChars;
using TKind = D::TBidiType;

class CharClasses : public ::testing::TestWithParam<TOrvGlobalSettings::TMathOrder> {
 protected:
  CharClasses() : FGuard(TSettings{GetParam()}) {}

 private:
  TSettingsGuard FGuard;
};

INSTANTIATE_TEST_SUITE_P(EquationOrders, CharClasses,
                         ::testing::Values(TOrvGlobalSettings::TMathOrder::ArabicRightToLeft,
                                           TOrvGlobalSettings::TMathOrder::LeftToRight));

TEST_P(CharClasses, EveryUnitPassesTheTestsThatItsRangesSay) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    const bool digit = c >= '0' && c <= '9';
    const bool latin = digit || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    ASSERT_EQ(D::IsDigit(c), digit) << unit;
    ASSERT_EQ(D::IsArabicDigit(c), plain::IsArabicDigit(c)) << unit;
    ASSERT_EQ(D::CanBeConsideredAsArabicDigit(c), plain::CanBeConsideredAsArabicDigit(c)) << unit;
    ASSERT_EQ(D::IsDigitOrDigitSeparator(c), digit || c == '\'' || c == '.') << unit;
    ASSERT_EQ(D::IsDigitOrComma(c), digit || c == '\'') << unit;
    ASSERT_EQ(D::IsLatinLetter(c), latin) << unit;
    ASSERT_EQ(D::IsLatinLetterOrDigit(c), latin) << unit;
    ASSERT_EQ(D::IsLatinLetterOrDigitOrDigitSeparator(c), latin || c == '\'' || c == '.') << unit;
    ASSERT_EQ(D::IsParagraphSeparator(c), c == 0x2028 || c == 0x2029) << unit;
    ASSERT_EQ(D::IsRTL(c), plain::IsRTL(c)) << unit;
    ASSERT_EQ(D::IsLTR(c), plain::IsLTR(c)) << unit;
    ASSERT_EQ(D::ClassifyChar(c), plain::ClassifyChar(c)) << unit;
  }
}

TEST_P(CharClasses, EveryUnitHasTheDirectionThatTheTestsSay) {
  using TDirection = D::TCharDirection;
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    for (const TDirection otherwise : {TDirection::LeftToRight, TDirection::RightToLeft, TDirection::Undefined}) {
      const TDirection expected = plain::IsRTL(c)   ? TDirection::RightToLeft
                                  : plain::IsLTR(c) ? TDirection::LeftToRight
                                                    : otherwise;
      ASSERT_EQ(D::CharDirection(c, otherwise), expected) << unit;
    }
    for (const bool otherwise : {false, true})
      ASSERT_EQ(D::CharDirectionRTL(c, otherwise), plain::IsRTL(c) || (!plain::IsLTR(c) && otherwise)) << unit;
  }
}

TEST(CharTests, NoUnitIsBothRightToLeftAndLeftToRight) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    ASSERT_FALSE(D::IsRTL(c) && D::IsLTR(c)) << unit;
  }
}

TEST(CharTests, ArabicDigitsAreNoRightToLeftCharacters) {
  EXPECT_FALSE(D::IsRTL(u'\u0660'));
  EXPECT_TRUE(D::IsRTL(u'\u066E'));
  EXPECT_TRUE(D::IsLTR(u'\u0661'));
}

TEST(CharTests, APresentationFormHasNoDirection) {
  EXPECT_FALSE(D::IsLTR(u'\uFEF5'));
  EXPECT_FALSE(D::IsRTL(u'\uFEF5'));
  for (const auto otherwise :
       {D::TCharDirection::LeftToRight, D::TCharDirection::RightToLeft, D::TCharDirection::Undefined})
    EXPECT_EQ(D::CharDirection(u'\uFEF5', otherwise), otherwise);
  EXPECT_TRUE(D::CharDirectionRTL(u'\uFEF5', true));
  EXPECT_FALSE(D::CharDirectionRTL(u'\uFEF5', false));
}

TEST(CharTests, ACommaIsLeftToRightAndAStopIsNot) {
  EXPECT_TRUE(D::IsLTR(u','));
  EXPECT_FALSE(D::IsLTR(u'.'));
}

TEST(CharTests, AnAsciiDigitIsAnArabicOneWhereEquationsRunRightToLeft) {
  {
    const TSettingsGuard guard(TSettings{TOrvGlobalSettings::TMathOrder::ArabicRightToLeft});
    EXPECT_TRUE(D::CanBeConsideredAsArabicDigit(u'5'));
  }
  const TSettingsGuard guard(TSettings{TOrvGlobalSettings::TMathOrder::LeftToRight});
  EXPECT_FALSE(D::CanBeConsideredAsArabicDigit(u'5'));
}

TEST(CharTests, TheThousandsMarkIsTheApostropheAndLatinLettersIncludeDigits) {
  EXPECT_FALSE(D::IsDigitOrComma(u','));
  EXPECT_TRUE(D::IsDigitOrComma(u'\''));
  EXPECT_TRUE(D::IsLatinLetter(u'7'));
}

// ---- IsRTLText ----

TEST(IsRTLText, DigitsAndBlanksNeverDecide) {
  EXPECT_TRUE(D::IsRTLText(u"12 \u0661 34", true));
  EXPECT_FALSE(D::IsRTLText(u"12 \u0661 34", false));
  EXPECT_TRUE(D::IsRTLText(u"", true));
  EXPECT_FALSE(D::IsRTLText(u"", false));
}

TEST(IsRTLText, TheFirstStrongCharacterDecides) {
  EXPECT_FALSE(D::IsRTLText(u"\u200E\u0627", true));
  EXPECT_TRUE(D::IsRTLText(u"12, \u0627bc", false));
  EXPECT_FALSE(D::IsRTLText(u"- b\u0627", true));
  EXPECT_FALSE(D::IsRTLText(u"\uFE8E\u0627", true));  // a presentation form is a letter of no right-to-left range
  EXPECT_TRUE(D::IsRTLText(u"?;,\u0627", false));     // these are left-to-right but no letters
}

TEST(IsRTLText, AgreesWithThePlainTestOnRandomTextsOfAnyLength) {
  TRandom random(11);
  for (int trial = 0; trial < Trials(200000); ++trial) {
    std::u16string text = RandomText(random);
    if (random.OneIn(2)) text.insert(0, std::u16string(random.Below(80), u" -1.("[random.Below(5)]));
    const bool otherwise = random.OneIn(2);
    ASSERT_EQ(D::IsRTLText(text, otherwise), plain::IsRTLText(text, otherwise)) << Shown(text);
  }
}

// ---- Ligature counts ----

TEST(CharactersCount, IsAsTheTableSaysForEveryCodePoint) {
  for (std::uint32_t c = 0; c <= rtl::MaxCodePoint + 2; ++c) {
    ASSERT_EQ(D::CharactersCount(c), plain::CharactersCount(c)) << c;
    ASSERT_EQ(D::CharactersCountEx(c), c >= 0x10000 ? 2 : plain::CharactersCount(c)) << c;
  }
  EXPECT_EQ(D::CharactersCount(0xFFFFFFFF), 1);
  EXPECT_EQ(D::CharactersCountEx(0xFFFFFFFF), 2);
}

TEST(CharactersCount, OfWellKnownForms) {
  EXPECT_EQ(D::CharactersCount(0xFB2C), 3);
  EXPECT_EQ(D::CharactersCount(0xFB2A), 2);
  EXPECT_EQ(D::CharactersCount(0xFEFB), 2);
  EXPECT_EQ(D::CharactersCount(0xFDF2), 3);
  EXPECT_EQ(D::CharactersCount(0x0627), 1);
}

// ---- Helpers ----

TEST(BidiHelper, TogglesAndSets) {
  using namespace TBidiHelper;
  TBidi bidi = TBidi::RightToLeft;
  Toggle(bidi);
  EXPECT_EQ(bidi, TBidi::LeftToRight);
  Toggle(bidi);
  EXPECT_EQ(bidi, TBidi::RightToLeft);
  bidi = TBidi::ParagraphSeparator;
  EXPECT_FALSE(IsLeftToRight(bidi));
  EXPECT_FALSE(IsRightToLeft(bidi));
  Toggle(bidi);
  EXPECT_EQ(bidi, TBidi::RightToLeft);
  SetRTL(bidi, false);
  EXPECT_TRUE(IsLeftToRight(bidi));
  SetRTL(bidi, true);
  EXPECT_TRUE(IsRightToLeft(bidi));
}

TEST(ParagraphBidiHelper, ReadsTheByteAsFlags) {
  using namespace TParagraphBidiHelper;
  for (unsigned bits = 0; bits < 8; ++bits) {
    const auto bidi = static_cast<TParagraphBidi>(bits);
    EXPECT_EQ(GetIsAuto(bidi), bits != 0);
    EXPECT_EQ(IsLeftToRight(bidi), bits == 0 || bits == 2);
    EXPECT_EQ(IsRightToLeft(bidi), bits == 1 || bits == 3);
  }
  EXPECT_TRUE(GetIsAuto(TParagraphBidi::RightToLeft));
}

TEST(ParagraphBidiHelper, SettersOnlyEverSwitchOn) {
  using namespace TParagraphBidiHelper;
  for (unsigned bits = 0; bits < 8; ++bits)
    for (const bool value : {false, true}) {
      auto bidi = static_cast<TParagraphBidi>(bits);
      SetIsAuto(bidi, value);
      EXPECT_EQ(Bits(bidi), bits | 2);
      bidi = static_cast<TParagraphBidi>(bits);
      SetRTL(bidi, value);
      EXPECT_EQ(Bits(bidi), bits | 1);
    }
}

TEST(ParagraphBidiHelper, ToggleFlipsTheDirectionAlone) {
  using namespace TParagraphBidiHelper;
  TParagraphBidi bidi = TParagraphBidi::AutoRightToLeft;
  Toggle(bidi);
  EXPECT_EQ(bidi, TParagraphBidi::AutoLeftToRight);
  for (unsigned bits = 0; bits < 8; ++bits) {
    bidi = static_cast<TParagraphBidi>(bits);
    Toggle(bidi);
    EXPECT_EQ(Bits(bidi), bits ^ 1);
  }
}

TEST(CharDirectionHelper, MakesAndTestsADirection) {
  using namespace TCharDirectionHelper;
  EXPECT_TRUE(IsRightToLeft(Direction(true)));
  EXPECT_FALSE(IsRightToLeft(Direction(false)));
  EXPECT_FALSE(IsRightToLeft(D::TCharDirection::Undefined));
}

TEST(Vocabulary, HasItsPublishedValues) {
  EXPECT_EQ(static_cast<int>(TBidi::ParagraphSeparator), 2);
  EXPECT_EQ(static_cast<int>(TParagraphBidi::Neutral), 4);
  EXPECT_EQ(static_cast<int>(D::TCharDirection::Undefined), 2);
  EXPECT_EQ(static_cast<int>(TKind::Neutral), 0);
  EXPECT_EQ(static_cast<int>(TKind::LTRUnmergable), static_cast<int>(TKind::LTR) + 3);
  EXPECT_EQ(static_cast<int>(TKind::RTLUnmergable), static_cast<int>(TKind::RTL) + 3);
  EXPECT_EQ(static_cast<int>(TKind::ArabicDigitUnmergable), static_cast<int>(TKind::ArabicDigit) + 3);
  EXPECT_EQ(static_cast<int>(TKind::SpaceSeparator), 7);
  EXPECT_EQ(static_cast<int>(TKind::DirectionalFormatting), 11);
  EXPECT_EQ(static_cast<int>(TKind::NotExists), 12);
  EXPECT_EQ(Range(2, 5), (TRange{2, 5}));
}

}  // namespace
}  // namespace orv::testing
