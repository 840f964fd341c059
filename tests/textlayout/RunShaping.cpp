// The logic around an internal text layout, with engines of fixed answers.
#include "fmx/RecordingCanvas.h"
#include "tests/textlayout/support/Layouts.h"
#include "textlayout/Orv.TextLayout.Internal.Win.h"
#include "textlayout/Orv.TextLayout.Internal.h"

namespace orv {
namespace {

using namespace testing;

// Glyphs of fixed sizes in fonts that need an internal text layout.
class TShapedManager : public TBackEndFontGlyphManager {
 public:
  TShapedManager() : TBackEndFontGlyphManager(std::make_unique<fmx::TFixedGlyphs>()) {}
  bool FontRendererRequired(const fmx::TFont&) const override { return true; }
};

// Every unit is 10 wide and the line 20 high.
class TTenWide : public TInternalTextLayout {
 public:
  static std::unique_ptr<TInternalTextLayout> Make() { return std::make_unique<TTenWide>(); }

 private:
  std::int32_t DoGetOffsetForAdvance(std::u16string_view, float x, float) override {
    return static_cast<std::int32_t>(x / 10);
  }
  std::int32_t DoBreakText(std::u16string_view, float maxWidth, float& width, float& height, float) override {
    const std::int32_t fits = std::min(static_cast<std::int32_t>(maxWidth / 10), Run().Length());
    width = static_cast<float>(fits) * 10;
    height = 20;
    return fits;
  }
  fmx::TRectF DoMeasureText(std::u16string_view, std::int32_t from, std::int32_t to, float) override {
    return {0, 0, static_cast<float>(to - from) * 10, 20};
  }
  float DoDrawText(std::u16string_view, fmx::TCanvas&, fmx::TPointF) override { return Run().GetWidth(); }
};

class RunShaping : public ::testing::Test {
 protected:
  RunShaping() {
    TFontGlyphManagerOrv::SetCurrent(std::make_unique<TShapedManager>());
    TInternalTextLayout::RegisterDefaultInternalTextLayout(TTenWide::Make);
  }
  ~RunShaping() override { TInternalTextLayout::RegisterDefaultInternalTextLayout(nullptr); }

 private:
  TFixedScope FScope;
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

TEST_F(RunShaping, DrawnByTheEngine) {
  const auto layout = Laid(u"abcd", 50);
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
  EXPECT_TRUE(canvas.CallsOf(fmx::TRecordedCall::TKind::DrawBitmap).empty());
}

TEST_F(RunShaping, TrimmedRunHasRoomForItsEllipsis) {
  const auto layout = Laid(u"abcdefgh", 55, [](auto& l) { l.SetTrimming(fmx::TTextTrimming::Character); });
  EXPECT_EQ(Lines(*layout)[0].substr(0, 16), "0,0 w50: 0+4 L 0");
  EXPECT_TRUE(layout->Frame().Line(0).Item(0).Trimmed());
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
