// Hostile texts of a megabyte: each must be split in a cost that grows with its length alone. With a quadratic cost
// none of these would end within the time that a test is given, so nothing is timed.
#include <gtest/gtest.h>

#include "tests/unicode/support/RandomText.h"
#include "tests/unicode/support/SplitLaws.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

// A megabyte of units where the code runs at full speed.
const auto Much = static_cast<std::size_t>(Trials(1 << 20));

std::u16string Repeated(std::u16string_view unit, std::size_t length = Much) {
  std::u16string text;
  text.reserve(length + unit.size());
  while (text.size() < length) text += unit;
  return text;
}

// Texts of one thing over and over, and of two that make a look-ahead walk far.
constexpr std::u16string_view Units[] = {
    u"(",
    u")",
    u"()",
    u"([{\u00AB",
    u"([{\u00AB\u00BB}])",
    u"\"",
    u"'",
    u"\"'",
    u" a\"",
    u": \"",
    u"1",
    u"9'",
    u"1.",
    u"1 ",
    u" ",
    u"\u3000",
    u"\u200B",
    u"\u200B ",
    u".",
    u". ",
    u" .",
    u"-. ",
    u"!",
    u"!.",
    u"\n",
    u"\r\n",
    u" \n",
    u"!\n",
    u"\u2069",
    u"\u202A",
    u"\u00AD ",
    u"1+",
    u"1 + ",
    u"+1",
    u"1-",
    u"1- ",
    u"1 km ",
    u"1%",
    u"1\"",
    u"12/",
    u"\u0661",
    u"\u0661 ",
    u"\u0628",
    u"\u0628 ",
    u"\u0628\u200C",
    u"a",
    u"a ",
    u"a.",
    u"1a",
    u"\u0628(",
    u"a(",
    u"(\u0628",
    u"(a",
    u"(1",
    u"\u0628)",
    u"\u0628\"",
    u" \u0628\"",
    u"\u0628 1 a ",
    u"\u0628 1. ",
    u"(\u0628)-a",
    u"\u0651",
    u"\xD83D\xDE00",
    std::u16string_view(u"\0", 1),
    u"\u0628.",
    u"\u0628. ",
    u"'1'",
    u"1.2.3.",
    u"\u0628-a",
    u"\u2018",
    u"\u2018\u201A\u201C",
};

class SplitCost : public ::testing::TestWithParam<unsigned> {
 protected:
  // Bit 0: right to left; the others choose settings that bring other look-ahead tests in.
  SplitCost() : FGuard(SettingsOf(GetParam())) {}
  TParagraphBidi Paragraph() const {
    return (GetParam() & 1) != 0 ? TParagraphBidi::RightToLeft : TParagraphBidi::LeftToRight;
  }

 private:
  static TSettings SettingsOf(unsigned param) {
    TSettings settings;
    if ((param & 2) != 0) {
      settings.Options = TOrvGlobalOptions::FromBits(0x7FF);
      settings.Options.Exclude(TOrvGlobalOption::DigitsBeforeLatinAreLatin);
    }
    if ((param & 4) != 0) settings.Options.Include(TOrvGlobalOption::DigitsBeforeLatinAreLatin);
    if ((param & 8) != 0) settings.Corrections = AllCorrections;
    return settings;
  }

  TSettingsGuard FGuard;
};

INSTANTIATE_TEST_SUITE_P(Settings, SplitCost, ::testing::Values(0U, 1U, 3U, 5U, 9U, 15U));

TEST_P(SplitCost, AMegabyteOfOneThingIsSplit) {
  TDirectionalRuns runs;
  for (const std::u16string_view unit : Units) {
    const std::u16string text = Repeated(unit);
    TDirectiveChars::SplitByDirection(text, Paragraph(), runs);
    ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(unit);
  }
}

TEST_P(SplitCost, AMegabyteOfOneThingBehindALetterAndBeforeAnotherIsSplit) {
  TDirectionalRuns runs;
  for (const std::u16string_view unit : Units) {
    const std::u16string text = u"\u0628 " + Repeated(unit) + u" a \u0628";
    TDirectiveChars::SplitByDirection(text, Paragraph(), runs);
    ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(unit);
  }
}

// Half a megabyte of one thing and half of another: what opens in the first is looked for through the second.
TEST_P(SplitCost, HalfAMegabyteOfEachOfTwoThingsIsSplit) {
  constexpr std::u16string_view openers[] = {u"(", u" a\"", u"1 ", u"1+", u"1'", u"12-", u"([{\u00AB\u2018\u201A"};
  constexpr std::u16string_view followers[] = {u")", u" ",      u"1",      u"+",  u"!", u".",
                                               u"-", u"\u2069", u"\u0661", u"\"", u"\n"};
  TDirectionalRuns runs;
  for (const std::u16string_view opener : openers)
    for (const std::u16string_view follower : followers) {
      const std::u16string text = Repeated(opener, Much / 8) + Repeated(follower, Much / 8);
      TDirectiveChars::SplitByDirection(text, Paragraph(), runs);
      ASSERT_EQ(BrokenLaw(text, runs), "") << Shown(opener) << ' ' << Shown(follower);
    }
}

TEST_P(SplitCost, RandomUnitsOfAMegabyteAreSplit) {
  TRandom random(GetParam());
  TDirectionalRuns runs;
  for (int trial = 0; trial < 3; ++trial) {
    const std::u16string text = RandomText(random, Much);
    TDirectiveChars::SplitByDirection(text, Paragraph(), runs);
    ASSERT_EQ(BrokenLaw(text, runs), "");
  }
}

TEST(TransformCost, AMegabyteOfOneThingIsTransformed) {
  const TSettingsGuard guard;
  for (const std::u16string_view unit : Units) {
    TUCS4List list = ToUCS4String(Repeated(unit));
    const std::size_t count = list.size();
    TUCS4ListHelper::ReplaceQuotesWithPrimes(list);
    TUCS4ListHelper::ChangeToComplexCharacters(list);
    TUCS4ListHelper::ChangeToArabicDigits(list);
    ASSERT_LE(list.size(), count);
  }
}

}  // namespace
}  // namespace orv::testing
