// A text as paragraphs of runs: line ends, directions, order and transforms.
#include "tools/orv/show/Paragraphs.h"

#include <gtest/gtest.h>

namespace orv::show {
namespace {

using TDigitType = TOrvGlobalSettings::TArabicDigitType;

TParagraph One(std::u16string_view line, TTextSettings settings = {}) {
  auto paragraphs = ReadParagraphs(line, settings);
  EXPECT_EQ(paragraphs.size(), 1U);
  return paragraphs.empty() ? TParagraph() : std::move(paragraphs.front());
}

// The drawn code points of a paragraph, run after run in reading order.
TUCS4List Atoms(const TParagraph& paragraph) {
  TUCS4List atoms;
  for (const TRun& run : paragraph.Runs) atoms.insert(atoms.end(), run.Atoms.begin(), run.Atoms.end());
  return atoms;
}

bool Has(const TParagraph& paragraph, UCS4Char c) {
  const TUCS4List atoms = Atoms(paragraph);
  return std::find(atoms.begin(), atoms.end(), c) != atoms.end();
}

class Options : public testing::Test {
 protected:
  void TearDown() override {
    TOrvGlobalSettings::Options = {};
    TOrvGlobalSettings::ArabicDigitType = TDigitType::ArabicDigitType1;
  }
};

TEST(ShowParagraphs, EveryKindOfLineEndEndsAParagraph) {
  EXPECT_EQ(ReadParagraphs(u"a\nb\r\nc\rd\u2028e\u2029f\u0085g\vh\fi", {}).size(), 9U);
  EXPECT_EQ(ReadParagraphs(u"a\n", {}).size(), 1U);
  EXPECT_EQ(ReadParagraphs(u"", {}).size(), 0U);
  EXPECT_EQ(ReadParagraphs(u"\n\n", {}).size(), 2U);
  EXPECT_EQ(ReadParagraphs(u"a\n\rb", {}).size(), 3U);
}

TEST(ShowParagraphs, NoLineEndIsDrawn) {
  for (const TParagraph& paragraph : ReadParagraphs(u"سلام !\r\n ! \n", {}))
    for (const UCS4Char c : Atoms(paragraph)) EXPECT_TRUE(c != '\r' && c != '\n');
}

TEST(ShowParagraphs, ABlankLineHasNoRuns) {
  const auto paragraphs = ReadParagraphs(u"a\n\nb", {});
  ASSERT_EQ(paragraphs.size(), 3U);
  EXPECT_TRUE(paragraphs[1].Runs.empty());
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

TEST(ShowParagraphs, RightToLeftParagraphsReverseTheOrder) {
  const TParagraph rightToLeft = One(u"سلام abc دنیا");
  ASSERT_EQ(rightToLeft.Runs.size(), 3U);
  EXPECT_EQ(rightToLeft.LeftToRight, (std::vector<std::int32_t>{2, 1, 0}));
  const TParagraph leftToRight = One(u"abc سلام def");
  ASSERT_EQ(leftToRight.Runs.size(), 3U);
  EXPECT_EQ(leftToRight.LeftToRight, (std::vector<std::int32_t>{0, 1, 2}));
}

TEST(ShowParagraphs, OnlyRightToLeftRunsAreShaped) {
  const TParagraph paragraph = One(u"لا (abc)");
  EXPECT_EQ(paragraph.Runs.front().Atoms.front(), 0xFEFBU);
  EXPECT_TRUE(paragraph.Runs.front().RightToLeft);
  EXPECT_TRUE(Has(One(u"abc (def)"), U'('));
}

TEST_F(Options, DigitsFollowTheLettersOfTheParagraph) {
  EXPECT_TRUE(Has(One(u"گل 5 است"), 0x06F5));
  EXPECT_TRUE(Has(One(u"كتاب 5 فيه"), 0x0665));
  EXPECT_TRUE(Has(One(u"שלום 5 שלום"), U'5'));
  EXPECT_TRUE(Has(One(u"a 5 (گل)"), U'5'));
  EXPECT_TRUE(Has(One(u"5"), U'5'));
}

TEST_F(Options, DigitsAreThoseThatAreAskedFor) {
  EXPECT_TRUE(Has(One(u"گل 5 است", {TParagraphBidi::AutoLeftToRight, TDigitType::ArabicDigitType1}), 0x0665));
  EXPECT_TRUE(Has(One(u"شלום 5", {TParagraphBidi::AutoLeftToRight, TDigitType::Latin}), U'5'));
}

TEST_F(Options, TheDigitSettingIsPutBack) {
  TOrvGlobalSettings::ArabicDigitType = TDigitType::Latin;
  One(u"گل 5");
  EXPECT_EQ(TOrvGlobalSettings::ArabicDigitType, TDigitType::Latin);
}

TEST_F(Options, QuotesBehindNumbersBecomePrimesOnlyWhereAsked) {
  EXPECT_TRUE(Has(One(u"a 5\" b"), U'"'));
  TOrvGlobalSettings::Options = {TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures};
  EXPECT_TRUE(Has(One(u"a 5\" b"), 0x2033));
  EXPECT_TRUE(Has(One(u"a 5' b"), 0x2032));
}

// The quote stands at the start of the run behind the number: seen from the right, a reversed prime.
TEST_F(Options, AQuoteInTheRunBehindTheNumberIsAReversedPrime) {
  TOrvGlobalSettings::Options = {TOrvGlobalOption::ReplaceQuoteWithPrimeInMeasures};
  const TParagraph paragraph = One(u"تخته 5\"است");
  ASSERT_EQ(paragraph.Runs.size(), 3U);
  EXPECT_EQ(paragraph.Runs[2].Atoms.front(), 0x2036U);
}

}  // namespace
}  // namespace orv::show
