// The library's splitter held against the plain rules: wherever one offset differs, one of them is wrong.
#include <gtest/gtest.h>

#include "tests/unicode/support/PlainSplit.h"
#include "tests/unicode/support/RandomText.h"

namespace orv::testing {
namespace {

bool Differ(std::u16string_view text, TParagraphBidi paragraph) {
  return TDirectiveChars::SplitByDirection(text, paragraph) != plain::Split(text, paragraph).Runs;
}

// Compares the two and, where they differ, tells the shortest such text.
::testing::AssertionResult SplitsAsThePlainRules(const std::u16string& text, TParagraphBidi paragraph,
                                                 const TSettings& settings) {
  const TSettingsGuard guard(settings);
  if (!Differ(text, paragraph)) return ::testing::AssertionSuccess();
  const std::u16string least =
      Shrink(text, [paragraph](std::u16string_view shorter) { return Differ(shorter, paragraph); });
  return ::testing::AssertionFailure() << "paragraph " << static_cast<int>(paragraph) << ", " << Shown(settings)
                                       << "\n  text    " << Shown(least) << "\n  rules   "
                                       << Shown(plain::Split(least, paragraph).Runs) << "\n  library "
                                       << Shown(TDirectiveChars::SplitByDirection(least, paragraph));
}

TEST(SplitAgainstPlainRules, AgreesOnAMillionRandomTexts) {
  TRandom random(20250301);
  for (int trial = 0, failures = 0; trial < Trials(1000000) && failures < 5; ++trial) {
    TSettings settings = RandomSettings(random);
    if (random.OneIn(4)) settings.Corrections.Include(TOrvCorrection::LineIndex);
    const std::u16string text = RandomText(random);
    const auto agree = SplitsAsThePlainRules(text, RandomParagraph(random), settings);
    EXPECT_TRUE(agree) << "trial " << trial;
    if (!agree) ++failures;
  }
}

// Long stretches of one direction, where the fast road's blocks begin and end at every place.
TEST(SplitAgainstPlainRules, AgreesOnAnExceptionAtEveryPlaceOfALongStretch) {
  TRandom random(7);
  int failures = 0;
  for (const char16_t letter : {u'\u0628', u'a'})
    for (std::size_t place = 0; place < 140 && failures < 5; ++place)
      for (int trial = 0; trial < Trials(240); ++trial) {
        std::u16string text(140, letter);
        for (std::size_t blank = 5; blank < text.size(); blank += 6) text[blank] = u' ';
        text.replace(place, 1, RandomText(random, 1 + random.Below(3)));
        const auto agree = SplitsAsThePlainRules(text, RandomParagraph(random), RandomSettings(random));
        EXPECT_TRUE(agree) << "place " << place;
        if (!agree && ++failures == 5) break;
      }
}

// Every string of up to four units over the classes of characters, in every paragraph kind.
TEST(SplitAgainstPlainRules, AgreesOnEveryStringOfFourClasses) {
  const auto units = ClassRepresentatives();
  int failures = 0;
  const TSettings settings;
  for (int length = 0; length <= 4; ++length) {
    std::vector<std::size_t> digits(static_cast<std::size_t>(length), 0);
    for (bool more = true; more && failures < 5;) {
      std::u16string text;
      for (const std::size_t digit : digits) text.push_back(units[digit]);
      for (const TParagraphBidi paragraph : {TParagraphBidi::LeftToRight, TParagraphBidi::RightToLeft}) {
        const auto agree = SplitsAsThePlainRules(text, paragraph, settings);
        EXPECT_TRUE(agree);
        if (!agree) ++failures;
      }
      more = false;
      for (std::size_t& digit : digits) {
        if (++digit < units.size()) {
          more = true;
          break;
        }
        digit = 0;
      }
    }
  }
}

}  // namespace
}  // namespace orv::testing
