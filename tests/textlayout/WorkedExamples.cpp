// Layouts worked out by hand.
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;
using fmx::TTextAlign;
using fmx::TTextTrimming;

class WorkedExamples : public TFixedTest {};

TEST_F(WorkedExamples, WordThatDoesNotFitMovesWithoutItsBlank) {
  const auto layout = Laid(u"ab cd", 30, Wrapped);
  EXPECT_EQ(Lines(*layout), (TTexts{"0,0 w20: 0+2 L 0-20", "0,20 w20: 3+2 L 0-20"}));
  EXPECT_EQ(layout->TextWidth(), 20);
  EXPECT_EQ(layout->TextHeight(), 40);
  EXPECT_EQ(layout->RegionForRange({2, 1}), (fmx::TRegion{{0, 20, 10, 40}}));
  EXPECT_EQ(Hit(*layout, 7, 25), 4);
}

TEST_F(WorkedExamples, BlankThatDoesNotFitBelongsToNeitherLine) {
  const auto layout = Laid(u"abc ", 30, Wrapped);
  EXPECT_EQ(Lines(*layout), (TTexts{"0,0 w30: 0+3 L 0-30", "0,20 w1: 4+0 L 0-1"}));
  EXPECT_EQ(layout->TextWidth(), 30);
  EXPECT_EQ(layout->TextHeight(), 40);
}

TEST_F(WorkedExamples, LongWordIsCutWhereItOverflows) {
  const auto layout = Laid(u"abcdefg", 35, Wrapped);
  EXPECT_EQ(Lines(*layout), (TTexts{"0,0 w30: 0+3 L 0-30", "0,20 w30: 3+3 L 0-30", "0,40 w10: 6+1 L 0-10"}));
}

TEST_F(WorkedExamples, FoldedWord) {
  const auto layout = Laid(Salam, 200);
  EXPECT_TRUE(layout->RightToLeft());
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w30: 0+4 R 0-30"});
  const auto atoms = layout->Frame().Line(0).Item(0).Atoms();
  EXPECT_EQ(TUCS4List(atoms.begin(), atoms.end()), (TUCS4List{0xFEB3, 0xFEFC, 0xFEE1}));
  const std::vector<std::string> boxes{"20-30", "10-20", "10-20", "0-10"};
  for (std::int32_t i = 0; i < 4; ++i)
    EXPECT_EQ(Extents(layout->RegionForRange({i, 1})), boxes[static_cast<std::size_t>(i)]) << i;
  EXPECT_EQ(Extents(layout->RegionForRange({4, 0})), "0-0");
  const std::pair<float, std::int32_t> hits[] = {{25, 0}, {23, 1}, {15, 2}, {9, 3}, {3, 4}, {35, 0}, {-1, 4}};
  for (const auto& [x, position] : hits) EXPECT_EQ(Hit(*layout, x), position) << x;
}

TEST_F(WorkedExamples, LatinThenArabic) {
  const auto layout = Laid(u"abc " + Salam, 200);
  EXPECT_FALSE(layout->RightToLeft());
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w65: 0+4 L 0-35 | 4+4 R 35-65"});
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), (TList{0, 1}));
  const std::pair<float, std::int32_t> hits[] = {{7, 1}, {6, 0}, {60, 4}, {57, 5}, {70, 8}};
  for (const auto& [x, position] : hits) EXPECT_EQ(Hit(*layout, x), position) << x;
  EXPECT_EQ(Extents(layout->RegionForRange({8, 0})), "45-45");
}

TEST_F(WorkedExamples, LatinWithinArabic) {
  const auto layout = Laid(Salam + u" abc " + Donya, 200);
  EXPECT_TRUE(layout->RightToLeft());
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w110: 0+5 R 75-110 | 5+3 L 45-75 | 8+5 R 0-45"});
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), (TList{2, 1, 0}));
  const std::pair<float, std::int32_t> hits[] = {{150, 0}, {-5, 13}, {50, 5}, {52, 6}, {108, 0}};
  for (const auto& [x, position] : hits) EXPECT_EQ(Hit(*layout, x), position) << x;
  EXPECT_EQ(Extents(layout->RegionForRange({0, 13})), "75-110 45-75 0-45");
}

TEST_F(WorkedExamples, TrimmedByCharacter) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(TTextTrimming::Character); });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w40: 0+3 L 0-40 trimmed"});
}

TEST_F(WorkedExamples, TrimmedByWord) {
  const auto layout = Laid(u"hello world", 85, [](auto& l) { l.SetTrimming(TTextTrimming::Word); });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w75: 0+7 L 0-75 trimmed"});
}

TEST_F(WorkedExamples, ClippedOnTheRight) {
  const auto layout = Laid(u"abcdefghij", 55);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w60: 0+9 L 0-60 clipped"});
  EXPECT_EQ(layout->TextWidth(), 60);
  EXPECT_EQ(Extents(layout->RegionForRange({9, 1})), "90-100");  // where it would be without clipping
}

TEST_F(WorkedExamples, ClippedOnTheLeft) {
  const auto layout = Laid(Salam + u" " + Donya, 55, [](auto& l) { l.SetHorizontalAlign(TTextAlign::Trailing); });
  EXPECT_EQ(Lines(*layout), TTexts{"-10,0 w65: 0+8 R 0-65 clipped"});
  EXPECT_EQ(layout->Frame().Line(0).Item(0).UCS4Length(), 7);
  EXPECT_EQ(Hit(*layout, 50), 0);
}

TEST_F(WorkedExamples, ColouredMiddleOfAWord) {
  const auto layout = Laid(Donya, 200, [](auto& l) {
    l.AddAttribute(fmx::TTextRange{1, 2}, fmx::TTextAttribute{nullptr, 0xFFFF0000});
  });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w40: 0+1 R 30-40 | 1+2 R 10-30 | 3+1 R 0-10"});
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), (TList{2, 1, 0}));
  EXPECT_TRUE(layout->Frame().Line(0).Item(0).IsDefaultColor());
  EXPECT_EQ(layout->Frame().Line(0).Item(1).Color(), 0xFFFF0000);
  EXPECT_TRUE(layout->Frame().Line(0).Item(2).IsDefaultColor());
}

TEST_F(WorkedExamples, WrappedMixedTextKeepsAnEmptyRest) {
  const auto layout = Laid(Salam + u" abc " + Donya, 70, [](auto& l) {
    l.SetWordWrap(true);
    l.SetHorizontalAlign(TTextAlign::Trailing);
  });
  EXPECT_EQ(Lines(*layout), (TTexts{"5,0 w65: 0+5 R 30-65 | 5+3 L 0-30 | 8+0 R 0-0", "30,20 w40: 9+4 R 0-40"}));
  EXPECT_EQ(OrderOf(layout->Frame().Line(0)), (TList{2, 1, 0}));
}

TEST_F(WorkedExamples, CentredInBothDirections) {
  const auto layout = Laid(u"ab", 101, [](auto& l) {
    l.SetMaxSize({101, 51});
    l.SetHorizontalAlign(TTextAlign::Center);
    l.SetVerticalAlign(TTextAlign::Center);
  });
  EXPECT_EQ(layout->Frame().Line(0).TopLeft(), (fmx::TPointF{40.5F, 15.5F}));
}

}  // namespace
}  // namespace orv
