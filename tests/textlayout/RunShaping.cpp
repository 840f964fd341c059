// The logic around an internal text layout, with engines of fixed answers.
#include "fmx/RecordingCanvas.h"
#include "tests/textlayout/support/Engines.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

using namespace testing;

class RunShaping : public ::testing::Test {
 private:
  TEngineScope FEngine{TTenWide::Make};
};

TEST_F(RunShaping, TextThatFitsStaysWhole) {
  EXPECT_EQ(Lines(*Laid(u"abcd", 50)), TTexts{"0,0 w40: 0+4 L 0-40"});
  EXPECT_EQ(Lines(*Laid(u"abcd", 40, Wrapped)), TTexts{"0,0 w40: 0+4 L 0-40"});  // a break at the end is none
}

TEST_F(RunShaping, WordThatDoesNotFitMoves) {
  EXPECT_EQ(Lines(*Laid(u"ab cde", 45, Wrapped)), (TTexts{"0,0 w20: 0+2 L 0-20", "0,20 w40: 2+4 L 0-40"}));
}

TEST_F(RunShaping, BreakOnABlankStaysThere) {
  EXPECT_EQ(Lines(*Laid(u"abc def", 35, Wrapped))[0], "0,0 w30: 0+3 L 0-30");
}

TEST_F(RunShaping, BreakBehindABlankStaysThere) {
  EXPECT_EQ(Lines(*Laid(u"ab cde", 35, Wrapped)), (TTexts{"0,0 w30: 0+3 L 0-30", "0,20 w30: 3+3 L 0-30"}));
}

// Its width stays with the line that it was measured on.
TEST_F(RunShaping, RunOfOneWordThatDoesNotFitMovesWhole) {
  const auto layout = Laid(u"ab cdefgh", 45, WithRunOf({3, 6}, Wrapped));
  ASSERT_EQ(Lines(*layout), (TTexts{"0,0 w70: 0+3 L 0-30", "0,20 w40: 3+6 L 0-40"}));
  EXPECT_EQ(layout->Frame().Line(1).Item(0).InternalRenderer()->Line(), 1);
}

TEST_F(RunShaping, WordThatBeginsTheTextIsCutWhereItEnds) {
  EXPECT_EQ(Lines(*Laid(u"abcdef", 45, Wrapped)), (TTexts{"0,0 w40: 0+4 L 0-40", "0,20 w20: 4+2 L 0-20"}));
}

TEST_F(RunShaping, ClippedPictureLosesPixelsAndUnits) {
  const auto layout = Laid(u"ab", 50, [](auto& l) {
    l.SetScale(2);
    l.SetMaxSize({10, 10});
    l.SetTopLeft({5, 5});
  });
  TGPURun& run = layout->Frame().Line(0).Item(0);
  run.UpdateTextLayout(nullptr, 0, *layout);
  fmx::TRectF src, dest;
  run.InternalRenderer()->GetTextBounds(40, 40, {0, 0}, src, dest);
  if (!run.Clipped()) {
    EXPECT_EQ(dest, (fmx::TRectF{0, 0, 20, 20}));
    EXPECT_EQ(src, (fmx::TRectF{0, 0, 40, 40}));
  }
  run.Clip();
  run.InternalRenderer()->GetTextBounds(40, 40, {0, 0}, src, dest);
  EXPECT_EQ(dest, (fmx::TRectF{5, 5, 15, 15}));
  EXPECT_EQ(src, (fmx::TRectF{10, 10, 30, 30}));
}

TEST_F(RunShaping, HitsAndBoxesComeFromTheEngine) {
  const auto layout = Laid(u"abcd", 50);
  EXPECT_EQ(Hit(*layout, 25), 2);
  EXPECT_EQ(Extents(layout->MeasureRange(1, 2)), "0-20");
}

TEST_F(RunShaping, EngineAnswersWithinItsRun) {
  const auto layout = Laid(u"abcd", 50, WithRunOf({2, 2}));
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w40: 0+2 L 0-20 | 2+2 L 20-40"});
  EXPECT_EQ(Hit(*layout, 35), 3);
  EXPECT_EQ(Hit(*layout, 15), 1);
  EXPECT_EQ(Extents(layout->MeasureRange(1, 2)), "0-10 0-10");  // a box for each run
  EXPECT_EQ(Extents(layout->MeasureRange(3, 9)), "0-10");
}

TEST_F(RunShaping, CharactersOfTheTextAreNoGlyphs) {
  const auto layout = Laid(u"abcd", 50);
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
  EXPECT_TRUE(canvas.CallsOf(fmx::TRecordedCall::TKind::DrawBitmap).empty());
}

TEST_F(RunShaping, TrimmedRunHasRoomForItsEllipsis) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Character); });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w50: 0+4 L 0-50 trimmed"});
}

// The cursor that looks for the blank starts at the second unit of the text, wherever the run breaks.
TEST_F(RunShaping, TrimmingByWordLooksForABlankInFront) {
  const auto laid = [](std::u16string_view text) {
    return Lines(*Laid(text, 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Word); }));
  };
  EXPECT_EQ(laid(u"a cdefgh"), TTexts{"0,0 w50: 0+4 L 0-50 trimmed"});  // the blank is where the cursor starts
  EXPECT_EQ(laid(u" bcdefgh"), TTexts{"0,0 w40: 0+3 L 0-40 trimmed"});
  EXPECT_EQ(laid(u"abcdefgh"), TTexts{"0,0 w30: 0+2 L 0-30 trimmed"});  // the start of the text ends the search
}

TEST_F(RunShaping, WithoutTrimmingTheRestGoes) {
  EXPECT_EQ(Lines(*Laid(u"abcdefgh", 55)), TTexts{"0,0 w50: 0+5 L 0-50"});
}

// --- Runs that stick out of the box ---

class UnbrokenRuns : public ::testing::Test {
 protected:
  // Eight units, each 10 wide, in a box of 55.
  static TTexts Clipped(std::u16string_view text, fmx::TTextAlign align,
                        std::optional<std::int32_t> offset = std::nullopt) {
    TUnbroken::Offset = offset;
    return Lines(*Laid(text, 55, [align](auto& l) { l.SetHorizontalAlign(align); }));
  }
  const std::u16string FLatin = u"abcdefgh";
  const std::u16string FPersian = Donya + Donya;

 private:
  TEngineScope FEngine{TUnbroken::Make};
};

// The units up to the one at the edge go from the side that is outside, and the line loses what is behind it.
TEST_F(UnbrokenRuns, LeftEdgeIsAskedOfTheEngine) {
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Trailing), TTexts{"35,0 w20: 3+5 L 0-20 clipped"});
  EXPECT_EQ(Clipped(FPersian, fmx::TTextAlign::Trailing), TTexts{"35,0 w20: 0+5 R 0-20 clipped"});
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Trailing, 7), TTexts{"-15,0 w70:"});  // a run of nothing goes
}

TEST_F(UnbrokenRuns, EdgeWithinALaterRunIsAPlaceOfTheText) {
  const auto layout =
      Laid(FPersian, 55, WithRunOf({0, 2}, [](auto& l) { l.SetHorizontalAlign(fmx::TTextAlign::Trailing); }));
  EXPECT_EQ(Lines(*layout), TTexts{"15,0 w40: 0+2 R 20-40 | 2+3 R 0-20 clipped"});
}

TEST_F(UnbrokenRuns, EdgeBehindTheRunTakesNothing) {
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Trailing, 8), TTexts{"-25,0 w80: 0+8 L 0-80 clipped"});
}

TEST_F(UnbrokenRuns, RightEdgeIsAskedOfTheEngine) {
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Leading), TTexts{"0,0 w80: 0+8 L 0-80 clipped"});  // before the run
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Leading, 3), TTexts{"0,0 w80: 0+4 L 0-80 clipped"});
  EXPECT_EQ(Clipped(FPersian, fmx::TTextAlign::Leading, 3), TTexts{"0,0 w80: 4+4 R 0-80 clipped"});
  EXPECT_EQ(Clipped(FLatin, fmx::TTextAlign::Leading, 7), TTexts{"0,0 w80: 0+8 L 0-80 clipped"});
}

TEST_F(UnbrokenRuns, RunsWhollyOutsideGo) {
  const auto layout = Laid(u"abcdefgh", 55, WithRunOf({6, 2}));
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w60: 0+6 L 0-60"});
  const auto trailing =
      Laid(u"abcdefgh", 60, WithRunOf({1, 7}, [](auto& l) { l.SetHorizontalAlign(fmx::TTextAlign::Trailing); }));
  EXPECT_EQ(trailing->Frame().Line(0).Count(), 1);
  EXPECT_GT(trailing->Frame().Line(0).Item(0).StartIndex(), 0);
}

TEST_F(UnbrokenRuns, MeasuringCutsNone) {
  const auto layout = Laid(FLatin, 55, [](auto& l) { l.SetMeasuringText(true); });
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w80: 0+8 L 0-80"});
}

TEST_F(UnbrokenRuns, DrawnWhereThePenIsAndUntinted) {
  const auto layout = Laid(u"abcd", 200, WithRunOf({2, 2}));
  layout->SetTopLeft({3, 4});
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
  ASSERT_EQ(TUnbroken::Drawings.size(), 2U);
  EXPECT_EQ(TUnbroken::Drawings[0].Position, (fmx::TPointF{3, 4}));
  EXPECT_EQ(TUnbroken::Drawings[1].Position, (fmx::TPointF{23, 4}));
  EXPECT_EQ(TUnbroken::Drawings[1].Modulate, fmx::TAlphaColors::White);
}

TEST_F(RunShaping, EllipsisFollowsTheTrimmedRunOfTheEngine) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Character); });
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
  const auto glyphs = canvas.CallsOf(fmx::TRecordedCall::TKind::DrawBitmap);
  ASSERT_EQ(glyphs.size(), 1U);
  EXPECT_EQ(glyphs[0].Rect.Left, 50);
}

// --- The fixed answers ---

TEST(FixedShaping, BreaksByTheStartOfTheRun) {
  const std::pair<std::int32_t, std::int32_t> table[] = {{0, 73},    {70, 138},  {130, 196}, {196, 262},
                                                         {262, 329}, {329, 394}, {394, 416}, {416, 417}};
  float width = 0, height = 0;
  for (const auto& [start, offset] : table) {
    EXPECT_EQ(TGDITextPaint::BreakText(1000, start, 9, 14, width, height), offset);
    EXPECT_EQ(height, 14);
  }
  EXPECT_EQ(width, 22);
  EXPECT_EQ(TGDITextPaint::BreakText(1000, 5, 10, 14, width, height), 1000);
  EXPECT_EQ(width, 43);
  EXPECT_EQ(TGDITextPaint::GetOffsetForAdvance(), 5);
  EXPECT_EQ(TGDITextPaint::MeasureText(10, 14), (fmx::TRectF{0, 0, 43, 14}));
  EXPECT_EQ(TGDITextPaint::GetTextBounds(14), (fmx::TRectF{0, 0, 100, 14}));
}

TEST_F(RunShaping, LayoutOverTheFixedAnswers) {
  TInternalTextLayout::RegisterDefaultInternalTextLayout(TInternalTextLayoutWin::Make);
  const auto layout = Laid(u"abcd", 500);
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w324.230011: 0+4 L 0-324.230011"});
  EXPECT_EQ(layout->Frame().Line(0).Height(), 12);
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
}

TEST(SmartBitmap, LivesAsLongAsItsLastHolder) {
  TSmartBitmap first = std::make_unique<fmx::TBitmap>(2, 2);
  EXPECT_EQ(first.HolderCount(), 1);
  {
    const TSmartBitmap second = first;
    EXPECT_EQ(first.HolderCount(), 2);
    EXPECT_EQ(static_cast<fmx::TBitmap*>(second), static_cast<fmx::TBitmap*>(first));
  }
  EXPECT_EQ(first.HolderCount(), 1);
  first = TSmartBitmap();
  EXPECT_EQ(static_cast<fmx::TBitmap*>(first), nullptr);
}

}  // namespace
}  // namespace orv
