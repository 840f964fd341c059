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

TEST_F(CaretInfo, PositionsOutsideOfTheTextAreHeld) {
  EXPECT_EQ(At(u"abc", -5).MainFlasherPosition.X, 0);
  EXPECT_EQ(At(u"abc", 99).MainFlasherPosition.X, 30);
}

}  // namespace
}  // namespace orv::testing
