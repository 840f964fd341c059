// Cutting a scrolled line for its view.
#include <gtest/gtest.h>

#include <limits>

#include "editing/Orv.Text.h"
#include "tests/unicode/support/Golden.h"
#include "tests/unicode/support/PlainChars.h"
#include "tests/unicode/support/PlainSplit.h"
#include "tests/unicode/support/RandomText.h"

namespace orv::testing {
namespace {

class CutText : public ::testing::Test {
 private:
  TSettingsGuard FGuard;  // the defaults, without corrections
};

// Capitals are right-to-left letters.
std::u16string Cut(std::u16string_view marked, bool rightToLeft, std::int32_t index) {
  return CutTextForView(Text(marked), rightToLeft, index);
}

TEST_F(CutText, NothingScrolledIsTheWholeText) {
  EXPECT_EQ(Cut(u"abc ABC", false, 0), Text(u"abc ABC"));
  EXPECT_EQ(Cut(u"abc", false, -7), u"abc");
  EXPECT_EQ(Cut(u"", true, 0), u"");
}

TEST_F(CutText, AtOrPastTheEndNothingIsLeft) {
  EXPECT_EQ(Cut(u"abc", false, 3), u"");
  EXPECT_EQ(Cut(u"abc", true, std::numeric_limits<std::int32_t>::max()), u"");
  EXPECT_EQ(Cut(u"", false, 1), u"");
}

TEST_F(CutText, ATextOfTheViewsDirectionIsCutPlainly) {
  EXPECT_EQ(Cut(u"abcdef", false, 3), u"def");
  EXPECT_EQ(Cut(u"ABCDEF", true, 3), Text(u"DEF"));
}

TEST_F(CutText, ATextOfOneRunIsCutPlainlyInAnyView) {
  EXPECT_EQ(Cut(u"ABCDEF", false, 3), Text(u"DEF"));
  EXPECT_EQ(Cut(u"abcdef", true, 3), u"def");
}

TEST_F(CutText, AnOppositeRunKeepsItsStartAndLosesItsEnd) {
  EXPECT_EQ(Cut(u"abc ABCDE fgh", false, 6), Text(u" ABCfgh"));  // the run is " ABCDE "
  EXPECT_EQ(Cut(u"ABC abcde FGH", true, 6), Text(u"abc FGH"));
}

TEST_F(CutText, InAnOppositeRunOneUnitIsLostForEachThatScrolled) {
  const std::u16string text = Text(u"ABC abcde FGH");
  const std::u16string_view shown[] = {
      u"ABC abcde FGH", u"BC abcde FGH", u"C abcde FGH", u" abcde FGH", u"abcde FGH", u"abcd FGH", u"abc FGH",
      u"ab FGH",        u"a FGH",        u" FGH",        u"FGH",        u"GH",        u"H",        u""};
  for (std::int32_t index = 0; index <= 13; ++index)
    EXPECT_EQ(CutTextForView(text, true, index), Text(shown[index])) << index;
}

TEST_F(CutText, TheSplitIsThatOfARightToLeftParagraphInAnyView) {
  // In that paragraph the first blank goes with "ABC" though the view runs from left to right.
  EXPECT_EQ(Split(u"a ABC d", RTL), "L<a> R< ABC > L<d>");
  EXPECT_EQ(Cut(u"a ABC d", false, 2), Text(u" ABCd"));
}

TEST_F(CutText, ASeparatorIsNeverOpposite) {
  EXPECT_EQ(Cut(u"AB\nab", false, 2), u"\nab");
  EXPECT_EQ(Cut(u"ab\nAB", true, 2), Text(u"\nAB"));
}

TEST_F(CutText, ADigitInARightToLeftViewIsOpposite) {
  EXPECT_EQ(Cut(u"A 123 B", true, 3), Text(u"12 B"));
}

// ---- Laws and the rule written out ----

std::u16string PlainCut(std::u16string_view text, bool rightToLeft, std::int32_t index) {
  const auto length = static_cast<std::int32_t>(text.size());
  if (index >= length) return {};
  if (index <= 0) return std::u16string(text);
  const auto from = static_cast<std::size_t>(index);
  const std::u16string cut(text.substr(from));
  if (rightToLeft && plain::IsRTL(text[from])) return cut;
  if (!rightToLeft && plain::IsLTR(text[from])) return cut;
  const TDirectionalRuns runs = plain::Split(text, TParagraphBidi::RightToLeft).Runs;
  if (runs.Bidi.size() == 1) return cut;
  std::size_t i = 1;
  while (runs.Offsets[i] <= index) ++i;
  const TBidi opposite = rightToLeft ? TBidi::LeftToRight : TBidi::RightToLeft;
  if (runs.Bidi[i - 1] != opposite) return cut;
  const auto kept = static_cast<std::size_t>(runs.Offsets[i] - index);
  return std::u16string(text.substr(static_cast<std::size_t>(runs.Offsets[i - 1]), kept)) +
         std::u16string(text.substr(static_cast<std::size_t>(runs.Offsets[i])));
}

TEST_F(CutText, AgreesWithThePlainRuleOnRandomTextsAtEveryIndex) {
  TRandom random(61);
  for (int trial = 0; trial < Trials(60000); ++trial) {
    const TSettingsGuard guard(RandomSettings(random));
    const std::u16string text = RandomText(random, random.Below(24));
    const bool rightToLeft = random.OneIn(2);
    for (std::int32_t index = -1; index <= static_cast<std::int32_t>(text.size()) + 1; ++index)
      ASSERT_EQ(CutTextForView(text, rightToLeft, index), PlainCut(text, rightToLeft, index))
          << Shown(text) << ' ' << index;
  }
}

TEST_F(CutText, LeavesAsManyUnitsAsHaveNotScrolledWithAnyCorrections) {
  TRandom random(62);
  for (int trial = 0; trial < Trials(100000); ++trial) {
    TSettings settings = RandomSettings(random);
    settings.Corrections = RandomCorrections(random);
    const TSettingsGuard guard(settings);
    const std::u16string text = RandomText(random);
    const std::uint32_t index = random.Below(static_cast<std::uint32_t>(text.size()) + 2);
    const std::size_t left = index < text.size() ? text.size() - index : 0;
    ASSERT_EQ(CutTextForView(text, random.OneIn(2), static_cast<std::int32_t>(index)).size(), left) << Shown(text);
  }
}

}  // namespace
}  // namespace orv::testing
