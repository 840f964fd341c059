// Where an application's own carets stand.
#include <gtest/gtest.h>

#include "editing/Orv.Text.h"
#include "tests/editing/LayoutScope.h"

namespace orv::testing {
namespace {

using fmx::TTextAlign;

class CaretInfo : public ::testing::Test {
 protected:
  static TCaretInfo At(std::u16string_view text, std::int32_t position, TTextAlign align = TTextAlign::Leading) {
    TTextLayoutNGOrv layout;
    layout.SetBidiSelectionType(TBidiSelectionType::btManual);
    layout.SetHorizontalAlign(align);
    layout.SetMaxSize({100, 30});
    layout.SetText(text);
    TCaretInfo info{-7, {-7, -7}, {-7, -7}, true};
    TTextServiceHelper::GetCaretInfo(layout, {0, 0, 100, 30}, position, info);
    return info;
  }
  static void Option(TOrvFlasherOption option) { TOrvGlobalSettings::EditorOptions.FlasherOption = option; }

 private:
  TLayoutScope FScope;
};

TEST_F(CaretInfo, AnEmptyTextHasItsCaretWhereItWillBegin) {
  EXPECT_EQ(At(u"", 0).MainFlasherPosition.X, 0);
  const TCaretInfo trailing = At(u"", 0, TTextAlign::Trailing);
  EXPECT_EQ(trailing.MainFlasherPosition.X, 100);
  EXPECT_FALSE(trailing.DoubleFlasher);
  EXPECT_EQ(trailing.SecondFlasherPosition.X, -7) << "not written";
}

TEST_F(CaretInfo, ASeamOfDirectionsHasTwoCarets) {
  Option(TOrvFlasherOption::DoubleFlasherInRTLMode);
  const TCaretInfo seam = At(u"abcسلام", 3);
  EXPECT_EQ(seam.CharIndex, 3);
  EXPECT_TRUE(seam.DoubleFlasher);
  EXPECT_EQ(seam.MainFlasherPosition.X, 60);
  EXPECT_EQ(seam.SecondFlasherPosition.X, 30);
  const TCaretInfo inside = At(u"abcسلام", 2);
  EXPECT_FALSE(inside.DoubleFlasher) << "neighbours of one direction";
  EXPECT_EQ(inside.MainFlasherPosition.X, 20);
  EXPECT_EQ(inside.SecondFlasherPosition.X, 20);
}

TEST_F(CaretInfo, WithoutTheOptionThereIsOneCaretAtTheLeadingEdge) {
  const TCaretInfo seam = At(u"abcسلام", 3);
  EXPECT_FALSE(seam.DoubleFlasher);
  EXPECT_EQ(seam.MainFlasherPosition.X, 60);
  EXPECT_EQ(At(u"abc", 3).MainFlasherPosition.X, 30) << "the trailing edge of the last";
  EXPECT_EQ(At(u"abcسل", 5).MainFlasherPosition.X, 30);
}

TEST_F(CaretInfo, TheNaturalViewGoesToTheEdges) {
  TOrvGlobalSettings::EditorOptions.CaretPositioning = TOrvCaretPositioningOption::NaturalView;
  EXPECT_EQ(At(u"abc", 0, TTextAlign::Center).MainFlasherPosition.X, 0);
  EXPECT_EQ(At(u"abc", 0, TTextAlign::Trailing).MainFlasherPosition.X, 100);
  EXPECT_EQ(At(u"abcسل", 5).MainFlasherPosition.X, 50) << "the far end of the whole text";
}

TEST_F(CaretInfo, NeighboursOfOneDirectionNeverHaveTwoCarets) {
  Option(TOrvFlasherOption::DoubleFlasherInRTLMode);
  for (const std::u16string_view word : {u"abc?;,XYZ12", u"سلام\u064Eبتא", u"٠١٢", u".(!"})
    for (const auto align : {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing})
      for (std::int32_t i = 1; i < static_cast<std::int32_t>(word.size()); ++i)
        EXPECT_FALSE(At(word, i, align).DoubleFlasher) << i;
}

TEST_F(CaretInfo, TheSecondCaretIsTheFirstWhereThereIsOne) {
  for (const auto option : {TOrvFlasherOption::Default, TOrvFlasherOption::AlwaysSingleFlasher}) {
    Option(option);
    for (const auto align : {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing})
      for (std::int32_t i = 0; i <= 9; ++i) {
        const TCaretInfo info = At(u"ab سلا 1.", i, align);
        EXPECT_FALSE(info.DoubleFlasher) << i;
        EXPECT_EQ(info.MainFlasherPosition, info.SecondFlasherPosition) << i;
      }
  }
}

// A layout whose boxes the test tells.
class TToldLayout : public fmx::TTextLayout {
 public:
  static TClass Class() { return CompiledLayout<TToldLayout, fmx::TTextLayout>("Test", "TToldLayout"); }
  explicit TToldLayout(fmx::TCanvas* canvas = nullptr, TClass aClass = Class()) : TTextLayout(canvas, aClass) {}
  void DoRenderLayout() {}
  void DoDrawLayout(fmx::TCanvas&) {}
  float GetTextHeight() { return 20; }
  float GetTextWidth() { return 100; }
  fmx::TRectF GetTextRect() { return {0, 0, 100, 20}; }
  std::int32_t DoPositionAtPoint(fmx::TPointF) { return 0; }
  fmx::TRegion DoRegionForRange(fmx::TTextRange range) {
    const auto first = Boxes.begin() + range.Pos;
    return {first, first + range.Length};
  }
  std::vector<fmx::TRectF> Boxes;  // of each unit
};

class CaretInfoOfBoxes : public CaretInfo {
 protected:
  CaretInfoOfBoxes() { Option(TOrvFlasherOption::DoubleFlasherInRTLMode); }
  TCaretInfo Between(std::u16string_view text, std::vector<std::pair<float, float>> boxes, std::int32_t position,
                     bool rightToLeft = false, TTextAlign align = TTextAlign::Leading) {
    TToldLayout layout;
    layout.SetText(text);
    layout.SetRightToLeft(rightToLeft);
    layout.SetHorizontalAlign(align);
    for (const auto& [left, right] : boxes) layout.Boxes.push_back({left, 7, right, 27});
    TCaretInfo info;
    TTextServiceHelper::GetCaretInfo(layout, {0, 0, 100, 30}, position, info);
    return info;
  }
};

TEST_F(CaretInfoOfBoxes, AdjoiningBoxesHaveOneCaretBetweenThem) {
  for (const float gap : {-0.5F, 0.0F, 0.25F, 0.5F}) {
    const TCaretInfo rightOfIt = Between(u"a\u0628", {{0, 10}, {10 + gap, 20}}, 1);
    EXPECT_FALSE(rightOfIt.DoubleFlasher) << gap;
    EXPECT_EQ(rightOfIt.MainFlasherPosition.X, 10 + gap);
    const TCaretInfo leftOfIt = Between(u"\u0628a", {{10 + gap, 20}, {0, 10}}, 1);
    EXPECT_FALSE(leftOfIt.DoubleFlasher) << gap;
    EXPECT_EQ(leftOfIt.MainFlasherPosition.X, 10) << "the right edge of the one that the caret stands before";
    EXPECT_EQ(leftOfIt.SecondFlasherPosition.X, 10);
  }
}

TEST_F(CaretInfoOfBoxes, BoxesApartHaveTwo) {
  const TCaretInfo info = Between(u"a\u0628", {{0, 10}, {10.75F, 20}}, 1);
  EXPECT_TRUE(info.DoubleFlasher);
  EXPECT_EQ(info.MainFlasherPosition, (fmx::TPointF{20, 7}));
  EXPECT_EQ(info.SecondFlasherPosition, (fmx::TPointF{10, 7}));
  const TCaretInfo other = Between(u"\u0628a", {{0, 10}, {10.75F, 20}}, 1);
  EXPECT_FALSE(Between(u"\u0628a", {{0, 10}, {10.5F, 20}}, 1).DoubleFlasher);
  EXPECT_TRUE(other.DoubleFlasher);
  EXPECT_EQ(other.MainFlasherPosition.X, 10.75F);
  EXPECT_EQ(other.SecondFlasherPosition.X, 0) << "where the letter before it ends";
}

TEST_F(CaretInfoOfBoxes, AtTheStartTheSecondStandsAtTheEdgeOfTheBox) {
  // Leading text of the layout's direction, from its own side.
  for (const auto& [right, isDouble] : {std::pair(95.0F, true), std::pair(98.5F, false), std::pair(98.25F, true)}) {
    const TCaretInfo info = Between(u"\u0628", {{80, right}}, 0, true);
    EXPECT_EQ(info.DoubleFlasher, isDouble) << right;
    EXPECT_EQ(info.MainFlasherPosition.X, right);
    EXPECT_EQ(info.SecondFlasherPosition.X, 100);
  }
  const TCaretInfo latin = Between(u"a", {{5, 15}}, 0);
  EXPECT_TRUE(latin.DoubleFlasher);
  EXPECT_EQ(latin.MainFlasherPosition.X, 5);
  EXPECT_EQ(latin.SecondFlasherPosition.X, 0);
  EXPECT_FALSE(Between(u"a", {{5, 15}}, 0, true).DoubleFlasher) << "a letter against its line";
  EXPECT_FALSE(Between(u"\u0628", {{5, 15}}, 0).DoubleFlasher);
  EXPECT_FALSE(Between(u"a", {{5, 15}}, 0, false, TTextAlign::Trailing).DoubleFlasher)
      << "the line starts on the right";
  EXPECT_TRUE(Between(u"a", {{5, 15}}, 0, true, TTextAlign::Trailing).DoubleFlasher);
  EXPECT_FALSE(Between(u".", {{5, 15}}, 0).DoubleFlasher);
}

TEST_F(CaretInfoOfBoxes, AtTheEndTheLastCharacterMeetsTheFirstBoxOfTheText) {
  const TCaretInfo seam = Between(u"a\u0628", {{0, 10}, {30, 40}}, 2);
  EXPECT_EQ(seam.CharIndex, 2);
  EXPECT_EQ(seam.MainFlasherPosition.X, 40);
  EXPECT_EQ(seam.SecondFlasherPosition.X, 10);
  EXPECT_TRUE(seam.DoubleFlasher);
  const TCaretInfo plain = Between(u"ab", {{0, 10}, {10, 20}}, 2);
  EXPECT_FALSE(plain.DoubleFlasher);
  EXPECT_EQ(plain.MainFlasherPosition.X, 10) << "before the last character, as in the middle";
}

TEST_F(CaretInfoOfBoxes, TheNaturalEndIsTheFarEdgeOfAllBoxes) {
  Option(TOrvFlasherOption::AlwaysSingleFlasher);
  TOrvGlobalSettings::EditorOptions.CaretPositioning = TOrvCaretPositioningOption::NaturalView;
  const std::vector<std::pair<float, float>> boxes{{20, 30}, {5, 10}, {40, 60}};
  EXPECT_EQ(Between(u"abc", boxes, 3).MainFlasherPosition.X, 60);
  EXPECT_EQ(Between(u"abc", boxes, 3, true).MainFlasherPosition.X, 5);
  EXPECT_EQ(Between(u"abc", boxes, 3, false, TTextAlign::Trailing).MainFlasherPosition.X, 5);
  EXPECT_EQ(Between(u"abc", boxes, 3, true, TTextAlign::Trailing).MainFlasherPosition.X, 60);
  EXPECT_EQ(Between(u"abc", boxes, 0, true).MainFlasherPosition.X, 100);
  EXPECT_EQ(Between(u"abc", boxes, 1, true).MainFlasherPosition.X, 5) << "in the text by the character";
}

TEST_F(CaretInfo, PositionsOutsideOfTheTextAreHeld) {
  EXPECT_EQ(At(u"abc", -5).MainFlasherPosition.X, 0);
  EXPECT_EQ(At(u"abc", 99).MainFlasherPosition.X, 30);
}

}  // namespace
}  // namespace orv::testing
