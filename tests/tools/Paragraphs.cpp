// A text as paragraphs: line ends, places, directions and digits.
#include "tools/orv/show/Paragraphs.h"

#include <gtest/gtest.h>

namespace orv::show {
namespace {

TParagraph One(std::u16string_view line, TTextSettings settings = {}) {
  auto paragraphs = ReadParagraphs(line, settings);
  EXPECT_EQ(paragraphs.size(), 1U);
  return paragraphs.empty() ? TParagraph() : std::move(paragraphs.front());
}

TEST(ShowParagraphs, EveryKindOfLineEndEndsAParagraph) {
  EXPECT_EQ(ReadParagraphs(u"a\nb\r\nc\rd\u2028e\u2029f\u0085g\vh\fi", {}).size(), 9U);
  EXPECT_EQ(ReadParagraphs(u"a\n", {}).size(), 1U);
  EXPECT_EQ(ReadParagraphs(u"", {}).size(), 0U);
  EXPECT_EQ(ReadParagraphs(u"\n\n", {}).size(), 2U);
  EXPECT_EQ(ReadParagraphs(u"a\n\rb", {}).size(), 3U);
}

TEST(ShowParagraphs, TextsHaveNoLineEndAndKnowTheirPlace) {
  const auto paragraphs = ReadParagraphs(u"ab\r\n\n\u2028cd\n", {});
  ASSERT_EQ(paragraphs.size(), 4U);
  EXPECT_EQ(paragraphs[0].Text, u"ab");
  EXPECT_EQ(paragraphs[1].Text, u"");
  EXPECT_EQ(paragraphs[2].Text, u"");
  EXPECT_EQ(paragraphs[3].Text, u"cd");
  EXPECT_EQ(paragraphs[1].Start, 4);
  EXPECT_EQ(paragraphs[3].Start, 6);
}

TEST(ShowParagraphs, TheFirstLineIsATitleWhereABlankOneFollows) {
  EXPECT_TRUE(ReadParagraphs(u"a\n\nb", {}).front().Title);
  EXPECT_FALSE(ReadParagraphs(u"a\n\nb", {}).back().Title);
  EXPECT_FALSE(ReadParagraphs(u"a\nb", {}).front().Title);
  EXPECT_FALSE(ReadParagraphs(u"a", {}).front().Title);
  EXPECT_FALSE(ReadParagraphs(u"\n\nb", {}).front().Title);
}

TEST(ShowParagraphs, EachParagraphHasTheDirectionOfItsFirstLetter) {
  const auto paragraphs = ReadParagraphs(u"abc سلام\nسلام abc\nשלום\n12", {});
  ASSERT_EQ(paragraphs.size(), 4U);
  EXPECT_FALSE(paragraphs[0].RightToLeft);
  EXPECT_TRUE(paragraphs[1].RightToLeft);
  EXPECT_TRUE(paragraphs[2].RightToLeft);
  EXPECT_FALSE(paragraphs[3].RightToLeft);
  EXPECT_TRUE(One(u"12", {TParagraphBidi::AutoRightToLeft, {}}).RightToLeft);
  EXPECT_TRUE(One(u"abc", {TParagraphBidi::RightToLeft, {}}).RightToLeft);
  EXPECT_FALSE(One(u"سلام", {TParagraphBidi::LeftToRight, {}}).RightToLeft);
}

TEST(ShowParagraphs, DigitsFollowTheLettersOfTheParagraph) {
  EXPECT_EQ(One(u"گل 5 است").Digits, TDigitType::ArabicDigitType2);
  EXPECT_EQ(One(u"كتاب 5 فيه").Digits, TDigitType::ArabicDigitType1);
  EXPECT_EQ(One(u"שלום 5 שלום").Digits, TDigitType::Latin);
  EXPECT_EQ(One(u"a 5 (گل)").Digits, TDigitType::Latin);
  EXPECT_EQ(One(u"5").Digits, TDigitType::Latin);
}

TEST(ShowParagraphs, DigitsAreThoseThatAreAskedFor) {
  EXPECT_EQ(One(u"گل 5", {TParagraphBidi::AutoLeftToRight, TDigitType::ArabicDigitType1}).Digits,
            TDigitType::ArabicDigitType1);
  EXPECT_EQ(One(u"a", {TParagraphBidi::AutoLeftToRight, TDigitType::Latin}).Digits, TDigitType::Latin);
}

TEST(ShowParagraphs, TheDigitSettingIsPutBack) {
  const TDigitType before = TOrvGlobalSettings::ArabicDigitType;
  {
    const TDigitsScope scope(TDigitType::Latin);
    EXPECT_EQ(TOrvGlobalSettings::ArabicDigitType, TDigitType::Latin);
  }
  EXPECT_EQ(TOrvGlobalSettings::ArabicDigitType, before);
}

}  // namespace
}  // namespace orv::show
