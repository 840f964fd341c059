// Positions at points, boxes of ranges, and outlines.
#include "fmx/RecordingCanvas.h"
#include "tests/textlayout/support/Layouts.h"

namespace orv {
namespace {

using namespace testing;

class HitTest : public TFixedTest {};
class Measures : public TFixedTest {};
class Outlines : public TFixedTest {};

const std::u16string Mixed = u"ab " + Salam + u" cd";

TEST_F(HitTest, BesideALine) {
  const auto english = Laid(u"ab " + Salam, 200);
  EXPECT_EQ(Hit(*english, 199), 7);
  EXPECT_EQ(Hit(*english, -1), 0);
  const auto arabic = Laid(Salam + u" ab", 200);
  EXPECT_EQ(Hit(*arabic, 199), 0);
  EXPECT_EQ(Hit(*arabic, -1), 7);
}

TEST_F(HitTest, FarSideOfALetterBeginsBehindThreeFifths) {
  const auto arabic = Laid(u"\u062F\u062F", 200);
  EXPECT_EQ(Hit(*arabic, 19), 0);
  EXPECT_EQ(Hit(*arabic, 14), 0);
  EXPECT_EQ(Hit(*arabic, 13.9F), 1);
  const auto latin = Laid(u"ab", 200);
  EXPECT_EQ(Hit(*latin, 6), 0);
  EXPECT_EQ(Hit(*latin, 6.1F), 1);
}

TEST_F(HitTest, MiddleOfALigatureLiesBetweenItsLetters) {
  const auto layout = Laid(LamAlef, 200);
  EXPECT_EQ(Hit(*layout, 5), 1);
  EXPECT_EQ(Hit(*layout, 9), 0);
  EXPECT_EQ(Hit(*layout, 3), 0);
}

TEST_F(HitTest, CaretNeverStandsBeforeAMark) {
  const auto layout = Laid(u"\u0628\u064E\u062A", 200);
  EXPECT_EQ(layout->TextWidth(), 20);
  EXPECT_EQ(Hit(*layout, 12), 2);  // the far side of the first letter
  EXPECT_EQ(Hit(*layout, 19), 0);
}

TEST_F(HitTest, PointsAboveAndBelowHaveNoPosition) {
  const auto layout = Laid(u"ab", 200);
  EXPECT_EQ(Hit(*layout, 5, -1), -1);
  EXPECT_EQ(Hit(*layout, 5, 21), -1);
  EXPECT_EQ(Hit(*layout, 5, 20), 0);
}

TEST_F(HitTest, PlainLettersAnswerWhatTheirBoxesSay) {
  const auto layout = Laid(Mixed, 200);
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(Mixed.size()); ++i) {
    const fmx::TRegion region = layout->RegionForRange({i, 1});
    ASSERT_EQ(region.size(), 1U) << i;
    const std::int32_t position = Hit(*layout, region[0].Center().X);
    EXPECT_TRUE(position == i || position == i + 1) << i << " " << position;
  }
}

// --- Boxes ---

TEST_F(Measures, EmptyTextHasABoxOfNoWidth) {
  const auto layout = Laid(u"", 200);
  EXPECT_EQ(layout->RegionForRange({0, 0}), (fmx::TRegion{{0, 0, 0, 20}}));
  EXPECT_EQ(layout->RegionForRange({0, 1}), (fmx::TRegion{{1, 0, 1, 20}}));
}

TEST_F(Measures, LayoutThatWasNeverRenderedAnswersNothing) {
  TTextLayoutNGOrv layout;
  EXPECT_TRUE(layout.Frame().IsEmpty());
  EXPECT_EQ(Hit(layout, 0), -1);
  EXPECT_EQ(layout.RegionForRange({0, 0}), (fmx::TRegion{{0, 0, 0, 0}}));
  EXPECT_EQ(layout.TextWidth(), 0);
  EXPECT_EQ(layout.TextHeight(), 0);
}

TEST_F(Measures, HeightIsThatOfTheTextHeldByTheBox) {
  const auto layout = Laid(u"a\nb", 200, [](auto& l) { l.SetMaxSize({200, 30}); });
  EXPECT_EQ(layout->TextHeight(), 30);
  layout->SetMaxSize({200, TTextLayoutNGOrv::MaxLayoutSize.Y});
  EXPECT_EQ(layout->TextHeight(), 40);
}

TEST_F(Measures, BoxOfATextAboveItsTopBeginsAtTheTop) {
  const auto layout = Laid(u"a\nb\nc", 200, [](auto& l) {
    l.SetMaxSize({200, 50});
    l.SetVerticalAlign(fmx::TTextAlign::Trailing);
    l.SetTopLeft({7, 8});
  });
  EXPECT_EQ(layout->Frame().TopLeft().Y, -10);
  EXPECT_EQ(layout->TextRect().Top, 8);
  EXPECT_EQ(layout->TextRect().Left, 7);
}

TEST_F(Measures, NegativeRangesHaveNone) {
  const auto layout = Laid(u"ab", 200);
  EXPECT_TRUE(layout->RegionForRange({-1, 1}).empty());
  EXPECT_TRUE(layout->RegionForRange({0, -1}).empty());
}

TEST_F(Measures, EndOfTheTextIsTheEdgeOfItsLastLetter) {
  EXPECT_EQ(Extents(Laid(u"ab", 200)->RegionForRange({2, 0})), "20-20");
  EXPECT_EQ(Extents(Laid(Salam, 200)->RegionForRange({4, 0})), "0-0");
}

TEST_F(Measures, MarkAtTheEndOfARangeBelongsToIt) {
  const auto layout = Laid(u"e\u0301f", 200);
  EXPECT_EQ(Extents(layout->MeasureRange(0, 1)), "0-20");  // the fixed glyph of the mark is 10 wide
}

TEST_F(Measures, SecondHalfOfAPairTakesTheWholePair) {
  const auto layout = Laid(u"a\U0001F600b", 200);
  EXPECT_EQ(Extents(layout->MeasureRange(2, 1)), "10-20");
  EXPECT_EQ(Extents(layout->MeasureRange(3, 1)), "20-30");
}

TEST_F(Measures, RangeBeyondTheTextEndsWithIt) {
  const auto layout = Laid(u"ab", 200);
  EXPECT_EQ(Extents(layout->MeasureRange(1, 1000)), "10-20");
  EXPECT_EQ(Extents(layout->RegionForRange({5, 3})), "0-0");
}

TEST_F(Measures, BoxesOfSeveralLines) {
  const auto layout = Laid(u"ab cd", 30, Wrapped);
  EXPECT_EQ(layout->RegionForRange({1, 3}), (fmx::TRegion{{10, 0, 20, 20}, {0, 20, 10, 40}}));
}

TEST_F(Measures, AskingChangesNothingOfAClippedText) {
  const auto layout = Laid(u"abcdefghij", 55);
  const TTexts before = Lines(*layout);
  EXPECT_EQ(Extents(layout->MeasureRange(8, 2)), "80-100");
  EXPECT_EQ(Lines(*layout), before);
  layout->SetText(u"xy");
  EXPECT_EQ(Extents(layout->MeasureRange(0, 2)), "0-20");
}

// The frame that is drawn is the one from before the question.
TEST_F(Measures, AskingForAClippedPlaceKeepsAColourThatIsNotDrawnYet) {
  const auto layout = Laid(u"abcdefghij", 55);
  layout->SetColor(0xFF00FF00);
  layout->MeasureRange(8, 2);
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  layout->RenderLayout(canvas);
  canvas.EndScene();
  const auto glyphs = canvas.CallsOf(fmx::TRecordedCall::TKind::DrawBitmap);
  ASSERT_FALSE(glyphs.empty());
  for (const auto& glyph : glyphs) EXPECT_EQ(glyph.Color, 0xFF00FF00);
}

// By the metrics of the new scale letters are narrower: the frame that is shown is of that scale, too.
TEST_F(Measures, AskingForAClippedPlaceOnACanvasOfANewScale) {
  class TNarrower : public fmx::TFixedGlyphs {
   public:
    void LoadResource(const fmx::TFontSettings& settings) override {
      TFixedGlyphs::LoadResource(settings);
      FIsNarrow = settings.Scale > 1;
    }
    fmx::TFontGlyph DoGetGlyph(TGlyphChars chars, fmx::TFontGlyphSettings settings, bool colorful) override {
      fmx::TFontGlyph glyph = TFixedGlyphs::DoGetGlyph(chars, settings, colorful);
      if (FIsNarrow) glyph.Advance -= 2;
      return glyph;
    }

   private:
    bool FIsNarrow = false;
  };
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TNarrower>()));
  fmx::TRecordingCanvas canvas(100, 100);
  const auto layout = Laid(u"abcdefghij", 55, [&](auto& l) { l.SetCanvas(&canvas); });
  canvas.Resize(200, 200, 2);
  EXPECT_EQ(Extents(layout->MeasureRange(8, 1)), "72-81");
  EXPECT_EQ(Lines(*layout), TTexts{"0,0 w63: 0+9 L 0-63 clipped"});
  layout->SetCanvas(nullptr);
}

// Glyphs that can be had no more.
class TLostGlyphs : public fmx::TFixedGlyphs {
 public:
  fmx::TFontGlyph DoGetGlyph(TGlyphChars, fmx::TFontGlyphSettings, bool) override {
    throw rtl::Exception("The font is gone");
  }
};

TEST_F(Measures, RenderThatFailsForAQuestionLeavesTheFrame) {
  const auto layout = Laid(u"abcdefghij", 55);
  const TTexts before = Lines(*layout);
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TLostGlyphs>()));
  EXPECT_THROW(layout->MeasureRange(8, 2), rtl::Exception);
  EXPECT_EQ(Lines(*layout), before);
  EXPECT_FALSE(layout->MeasuringText());
  TFontGlyphManagerOrv::SetCurrent(std::make_unique<TBackEndFontGlyphManager>(std::make_unique<fmx::TFixedGlyphs>()));
  EXPECT_EQ(Extents(layout->MeasureRange(8, 2)), "80-100");
}

TEST_F(Measures, TextRectOfSeveralLinesIsAsWideAsTheBox) {
  const auto layout = Laid(u"ab\ncd", 200, [](auto& l) { l.Font().SetSize(30); });
  EXPECT_EQ(layout->TextRect(), (fmx::TRectF{0, 0, 190, 40}));
  EXPECT_EQ(Laid(u"ab", 200)->TextRect(), (fmx::TRectF{0, 0, 20, 20}));
}

// --- Outlines ---

TEST_F(Outlines, StandSideBySide) {
  const auto layout = Laid(u"ab c", 200);
  fmx::TPathData path;
  layout->ConvertToPath(path);
  EXPECT_EQ(path.GetBounds(), (fmx::TRectF{0, 0, 35, 20}));
}

TEST_F(Outlines, AreDevicePixels) {
  fmx::TPathData path;
  Laid(u"ab c", 200, [](auto& l) { l.SetScale(2); })->ConvertToPath(path);
  EXPECT_EQ(path.GetBounds(), (fmx::TRectF{0, 0, 70, 40}));
}

TEST_F(Outlines, FollowTheTextAndKnowNoWrapping) {
  const auto layout = Laid(u"ab cd", 30, Wrapped);
  const auto bounds = [&] {
    fmx::TPathData path;
    layout->ConvertToPath(path);
    return path.GetBounds();
  };
  EXPECT_EQ(bounds(), (fmx::TRectF{0, 0, 45, 20}));
  EXPECT_EQ(bounds(), (fmx::TRectF{0, 0, 45, 20}));
  layout->SetText(u"abc");
  EXPECT_EQ(bounds(), (fmx::TRectF{0, 0, 30, 20}));
}

TEST_F(Outlines, LinesStandBelowEachOtherAndEmptyTextHasNone) {
  fmx::TPathData path;
  Laid(u"ab\nc", 200)->ConvertToPath(path);
  EXPECT_EQ(path.GetBounds(), (fmx::TRectF{0, 0, 20, 40}));
  fmx::TPathData none;
  Laid(u"", 200)->ConvertToPath(none);
  EXPECT_TRUE(none.IsEmpty());
}

TEST_F(Outlines, Aligned) {
  fmx::TPathData path;
  Laid(u"ab", 100, [](auto& l) {
    l.SetHorizontalAlign(fmx::TTextAlign::Trailing);
    l.SetVerticalAlign(fmx::TTextAlign::Center);
    l.SetTopLeft({3, 4});
  })->ConvertToPath(path);
  EXPECT_EQ(path.GetBounds(), (fmx::TRectF{83, 44, 103, 64}));
}

}  // namespace
}  // namespace orv
