#include "fmx/GPUTextLayout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "fmx/CanvasManager.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/TextLayoutManager.h"

namespace {

using fmx::TGPUTextLayout;
using fmx::TRecordedCall;
using fmx::TRecordingCanvas;
using fmx::TRectF;
using fmx::TTextAlign;
using fmx::TTextTrimming;
using TKind = TRecordedCall::TKind;

// With the fixed glyphs a character is 10 wide, a blank 5, and a line 20 high with its base line at 16.
class GPUTextLayout : public testing::Test {
 protected:
  GPUTextLayout() {
    fmx::TFixedGlyphs::Register();
    fmx::TCanvasManager::RegisterCanvas(TRecordingCanvas::Class(), true, false);
    fmx::TTextLayoutManager::RegisterTextLayout(TGPUTextLayout::Class(), fmx::TCanvas::Class());
  }
  ~GPUTextLayout() override {
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TCanvasManager::UnInitialize();
    fmx::TFontGlyphManager::RegisterBackEnd({});
  }
};

// The lines as text, found by asking where each unit is; units without a box are left out.
std::vector<std::u16string> LinesOf(TGPUTextLayout& layout) {
  std::vector<std::u16string> lines;
  float top = -1;
  for (std::int32_t pos = 0; pos < static_cast<std::int32_t>(layout.Text().size()); ++pos) {
    const auto region = layout.RegionForRange({pos, 1});
    if (region.empty()) continue;
    if (region[0].Top != top) lines.emplace_back();
    top = region[0].Top;
    lines.back() += layout.Text()[static_cast<std::size_t>(pos)];
  }
  return lines;
}

std::vector<std::u16string> Wrapped(std::u16string_view text, float width) {
  TGPUTextLayout layout;
  layout.SetWordWrap(true);
  layout.SetMaxSize({width, 1000});
  layout.SetText(text);
  return LinesOf(layout);
}

TEST_F(GPUTextLayout, MeasuresLinesOfCharacters) {
  TGPUTextLayout layout;
  EXPECT_EQ(layout.TextWidth(), 0);
  EXPECT_EQ(layout.TextHeight(), 0);
  layout.SetText(u"ab c\nlonger");
  EXPECT_EQ(layout.TextWidth(), 60);
  EXPECT_EQ(layout.TextHeight(), 40);
  layout.SetTopLeft({100, 50});
  EXPECT_EQ(layout.TextRect(), (TRectF{100, 50, 160, 90}));
}

TEST_F(GPUTextLayout, EveryLineEndMakesALine) {
  TGPUTextLayout layout;
  layout.SetText(
      u"a\r\nb\rc\nd\x2028"
      u"e\x2029");
  EXPECT_EQ(layout.TextHeight(), 6 * 20);
  layout.SetText(u" ");
  layout.SetText(u"");
  EXPECT_EQ(layout.TextHeight(), 20);
}

TEST_F(GPUTextLayout, WrapsBehindBlanks) {
  using TLines = std::vector<std::u16string>;
  EXPECT_EQ(Wrapped(u"ab cd", 30), (TLines{u"ab ", u"cd"}));
  EXPECT_EQ(Wrapped(u"ab cd", 45), (TLines{u"ab cd"}));
  EXPECT_EQ(Wrapped(u"ab     cd", 20), (TLines{u"ab     ", u"cd"}));
  EXPECT_EQ(Wrapped(u"abcdef", 25), (TLines{u"ab", u"cd", u"ef"}));
  EXPECT_EQ(Wrapped(u"a bcdefg h", 30), (TLines{u"a ", u"bcd", u"efg ", u"h"}));
  EXPECT_EQ(Wrapped(u"ab", 0), (TLines{u"a", u"b"}));
}

TEST_F(GPUTextLayout, WrappingLosesNoUnitAndNoLineIsTooWide) {
  std::uint64_t state = 3;
  for (int round = 0; round < 3000; ++round) {
    std::u16string text;
    for (int i = 0; i < 20; ++i) {
      state = state * 6364136223846793005U + 1442695040888963407U;
      text += u"ab c\t\xD83D\xDE00"[state >> 33 & 7];
    }
    const float width = static_cast<float>(state >> 40 & 127);
    std::u16string joined;
    for (const auto& line : Wrapped(text, width)) {
      joined += line;
      const std::size_t end = line.find_last_not_of(u" \t") + 1;
      TGPUTextLayout alone;
      alone.SetText(line.substr(0, end));
      ASSERT_TRUE(alone.TextWidth() <= width || line.find_first_of(u"\t ") < end || alone.TextWidth() <= 10);
    }
    std::erase(text, u'\0');
    std::erase(joined, u'\0');
    ASSERT_EQ(joined, text);
  }
}

TEST_F(GPUTextLayout, AlignsInABoxAndNotWithoutOne) {
  TGPUTextLayout layout;
  layout.SetText(u"ab\nc");
  layout.SetHorizontalAlign(TTextAlign::Trailing);
  layout.SetVerticalAlign(TTextAlign::Center);
  EXPECT_EQ(layout.TextRect(), (TRectF{0, 0, 20, 40}));
  layout.SetMaxSize({100, 60});
  EXPECT_EQ(layout.TextRect(), (TRectF{80, 10, 100, 50}));
  EXPECT_EQ(layout.RegionForRange({3, 1}), (fmx::TRegion{{90, 30, 100, 50}}));
  layout.SetPadding({4, 0, 6, 0});
  EXPECT_EQ(layout.TextRect().Right, 94);
  layout.SetHorizontalAlign(TTextAlign::Center);
  EXPECT_EQ(layout.TextRect(), (TRectF{39, 10, 59, 50}));
  layout.SetHorizontalAlign(TTextAlign::Leading);
  EXPECT_EQ(layout.TextRect().Left, 4);
}

TEST_F(GPUTextLayout, TrimsToTheBoxWithAnEllipsis) {
  TGPUTextLayout layout;
  layout.SetMaxSize({65, 100});
  layout.SetText(u"ab cd efg");
  EXPECT_EQ(layout.TextWidth(), 80);
  layout.SetTrimming(TTextTrimming::Character);
  EXPECT_EQ(layout.TextWidth(), 60);  // "ab cd ", whose blank takes 5, and the ellipsis
  EXPECT_EQ(layout.PositionAtPoint({51, 5}), 6);
  layout.SetTrimming(TTextTrimming::Word);
  EXPECT_EQ(layout.TextWidth(), 55);
  layout.SetText(u"abcdefghi");
  EXPECT_EQ(layout.TextWidth(), 60);
  layout.SetText(u"abcdef");
  EXPECT_EQ(layout.TextWidth(), 60);
  layout.SetMaxSize({3, 100});
  EXPECT_EQ(layout.TextWidth(), 10);  // nothing but the ellipsis
}

TEST_F(GPUTextLayout, ATabGoesToTheNextStop) {
  TGPUTextLayout layout;
  layout.SetText(u"\t");
  EXPECT_EQ(layout.TextWidth(), 40);
  layout.SetText(u"abc\tx");
  EXPECT_EQ(layout.TextWidth(), 50);
  layout.SetText(u"abcd\tx");
  EXPECT_EQ(layout.TextWidth(), 90);
}

TEST_F(GPUTextLayout, AClickOnEachHalfOfACharacterGoesToItsNearEnd) {
  TGPUTextLayout layout;
  layout.SetTopLeft({100, 0});
  layout.SetText(u"ab\n\xD83D\xDE00z");
  EXPECT_EQ(layout.PositionAtPoint({-50, 5}), 0);
  EXPECT_EQ(layout.PositionAtPoint({104, 5}), 0);
  EXPECT_EQ(layout.PositionAtPoint({106, 5}), 1);
  EXPECT_EQ(layout.PositionAtPoint({999, 5}), 2);
  EXPECT_EQ(layout.PositionAtPoint({104, 25}), 3);
  EXPECT_EQ(layout.PositionAtPoint({106, 25}), 5);  // never inside a pair
  EXPECT_EQ(layout.PositionAtPoint({999, 25}), 6);
  EXPECT_EQ(layout.PositionAtPoint({104, -1}), -1);
  EXPECT_EQ(layout.PositionAtPoint({104, 40}), -1);
}

TEST_F(GPUTextLayout, TheMiddleOfEveryBoxHitsItsCharacter) {
  TGPUTextLayout layout;
  layout.SetWordWrap(true);
  layout.SetMaxSize({55, 400});
  layout.SetHorizontalAlign(TTextAlign::Center);
  layout.SetText(u"some words, wrapped in a box\n\nand more");
  for (std::int32_t pos = 0; pos < static_cast<std::int32_t>(layout.Text().size()); ++pos) {
    for (const TRectF& box : layout.RegionForRange({pos, 1})) {
      EXPECT_EQ(layout.PositionAtPoint({box.Left + 1, box.Center().Y}), pos);
    }
  }
}

TEST_F(GPUTextLayout, RegionsCoverLinesAndCaretsHaveNoWidth) {
  TGPUTextLayout layout;
  layout.SetText(u"ab\ncd");
  EXPECT_EQ(layout.RegionForRange({1, 3}), (fmx::TRegion{{10, 0, 20, 20}, {0, 20, 10, 40}}));
  EXPECT_EQ(layout.RegionForRange({2, 0}), (fmx::TRegion{{20, 0, 20, 20}}));
  EXPECT_EQ(layout.RegionForRange({3, 0}), (fmx::TRegion{{0, 20, 0, 40}}));
  EXPECT_EQ(layout.RegionForRange({5, 0}), (fmx::TRegion{{20, 20, 20, 40}}));
  EXPECT_EQ(layout.RegionForRange({4, INT32_MAX}), (fmx::TRegion{{10, 20, 20, 40}}));
  EXPECT_TRUE(layout.RegionForRange({-1, 3}).empty());
  EXPECT_TRUE(layout.RegionForRange({0, -3}).empty());
  EXPECT_TRUE(layout.RegionForRange({6, 0}).empty());
}

TEST_F(GPUTextLayout, DrawsTintedPicturesOnDevicePixels) {
  TRecordingCanvas canvas(400, 200, 1.5F);
  TGPUTextLayout layout(&canvas);
  layout.SetText(u"a b");
  layout.SetColor(0xFF0000FF);
  layout.SetOpacity(0.5F);
  layout.SetTopLeft({10.1F, 20});
  ASSERT_TRUE(canvas.BeginScene());
  canvas.SetModulateColor(0xFF123456);
  layout.RenderLayout(canvas);
  const auto draws = canvas.CallsOf(TKind::DrawBitmap);
  ASSERT_EQ(draws.size(), 3U);
  EXPECT_EQ(draws[0].Color, 0xFF0000FFU);
  EXPECT_EQ(draws[0].Opacity, 0.5F);
  EXPECT_EQ(draws[0].Source, (TRectF{0, 0, 15, 30}));
  EXPECT_EQ(draws[0].Rect.Left, 10);
  EXPECT_EQ(draws[0].Rect.Top, 20);
  EXPECT_EQ(draws[0].Rect.Width(), 10);
  EXPECT_EQ(canvas.ModulateColor(), 0xFF123456U);
}

TEST_F(GPUTextLayout, ACanvasOfAnotherScaleIsMeasuredAnew) {
  TGPUTextLayout layout;
  layout.SetText(u"a");
  TRecordingCanvas canvas(400, 200, 2);
  ASSERT_TRUE(canvas.BeginScene());
  layout.RenderLayout(canvas);
  EXPECT_EQ(canvas.Calls().back().Source, (TRectF{0, 0, 20, 40}));
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{0, 0, 10, 20}));
}

TEST_F(GPUTextLayout, AttributesGiveFontsAndColoursToTheirRanges) {
  TRecordingCanvas canvas(400, 200);
  TGPUTextLayout layout(&canvas);
  const auto struck = std::make_shared<fmx::TFont>(
      u"", 30.0F, fmx::TFontStyles{fmx::TFontStyle::StrikeOut, fmx::TFontStyle::Underline});
  layout.SetText(u"abc");
  layout.SetColor(1);
  layout.AddAttribute({1, 2}, {nullptr, 0xFF000002});
  layout.AddAttribute({2, 1}, {struck, 0xFF000003});
  ASSERT_TRUE(canvas.BeginScene());
  layout.RenderLayout(canvas);
  std::vector<fmx::TAlphaColor> colors;
  for (const auto& call : canvas.CallsOf(TKind::DrawBitmap)) colors.push_back(call.Color);
  EXPECT_EQ(colors, (std::vector<fmx::TAlphaColor>{1, 0xFF000002, 0xFF000003}));
  const auto lines = canvas.CallsOf(TKind::DrawLine);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].Rect, (TRectF{20, 10, 30, 10}));
  EXPECT_EQ(lines[1].Rect, (TRectF{20, 19, 30, 19}));
  EXPECT_EQ(lines[1].Thickness, 2);
  EXPECT_EQ(lines[1].Color, 0xFF000003U);
}

// A canvas that knows no modulate colour.
class TPathCanvas : public fmx::TCanvas {
 public:
  static constexpr int SlotCount = fmx::TCanvas::SlotCount;
  static orv::TClass Class() { return CompiledCanvas<TPathCanvas, fmx::TCanvas>("tests.Canvas", "TPathCanvas"); }
  explicit TPathCanvas(const fmx::TCanvasTarget& target, orv::TClass aClass = Class()) : TCanvas(target, aClass) {}
  void DoSetMatrix(const fmx::TMatrix&) {}
  void DoSetClip(const fmx::TClip&) {}
  void DoClearRect(const fmx::TRect&, fmx::TPixel) {}
  void DoFillPath(const fmx::TPathData& path, float, const fmx::TBrush&) { Filled.push_back(path.GetBounds()); }
  void DoDrawPath(const fmx::TPathData&, float, const fmx::TStrokeBrush&) {}
  void DoDrawBitmap(const fmx::TBitmap&, const TRectF&, const TRectF&, float, bool) {}
  std::vector<TRectF> Filled;
};

TEST_F(GPUTextLayout, OnOtherCanvasesOutlinesAreFilled) {
  TPathCanvas canvas({fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, 100, 100, 2});
  TGPUTextLayout layout(&canvas);
  layout.SetText(u"a b");
  ASSERT_TRUE(canvas.BeginScene());
  layout.RenderLayout(canvas);
  EXPECT_EQ(canvas.Filled, (std::vector<TRectF>{{0, 0, 10, 20}, {15, 0, 25, 20}}));
}

TEST_F(GPUTextLayout, GivesTheOutlinesOfItsText) {
  TGPUTextLayout layout;
  layout.SetText(u"a\nb");
  layout.SetTopLeft({5, 5});
  fmx::TPathData path;
  layout.ConvertToPath(path);
  EXPECT_EQ(path.GetBounds(), (TRectF{5, 5, 15, 45}));
}

TEST_F(GPUTextLayout, DrawingWithinAnUpdateShowsNothingOfThePendingChange) {
  const auto struck = std::make_shared<fmx::TFont>(u"", 30.0F, fmx::TFontStyles{fmx::TFontStyle::StrikeOut});
  TRecordingCanvas canvas(400, 200);
  TRecordingCanvas scaled(800, 400, 2);
  TGPUTextLayout layout(&canvas);
  layout.SetText(u"abc");
  layout.SetColor(0xFF000001);
  layout.AddAttribute({1, 2}, {struck, 0xFF000002});
  ASSERT_TRUE(canvas.BeginScene());
  ASSERT_TRUE(scaled.BeginScene());
  const auto rects = [&](TRecordingCanvas& on) {
    on.Forget();
    layout.RenderLayout(on);
    std::vector<TRectF> drawn;
    for (const auto& call : on.Calls()) drawn.push_back(call.Rect);
    return drawn;
  };
  const auto colors = [&] {
    canvas.Forget();
    layout.RenderLayout(canvas);
    std::vector<fmx::TAlphaColor> drawn;
    for (const auto& call : canvas.Calls()) drawn.push_back(call.Color);
    return drawn;
  };
  const auto before = rects(canvas);
  const auto colorsBefore = colors();
  ASSERT_EQ(before.size(), 5U);
  const auto change = [&] {
    layout.SetText(u"");
    layout.ClearAttributes();
    layout.SetFont(fmx::TFont(u"", 50, {fmx::TFontStyle::Underline}));
    struck->SetStyle({});
  };
  layout.BeginUpdate();
  change();
  EXPECT_EQ(rects(canvas), before);
  EXPECT_EQ(colors(), colorsBefore);
  EXPECT_EQ(rects(scaled), before);
  EXPECT_EQ(layout.RegionForRange({0, 3}), (fmx::TRegion{{0, 0, 30, 20}}));
  layout.SetColor(0xFF000003);  // waits for no update
  EXPECT_EQ(colors()[0], 0xFF000003U);
  layout.EndUpdate();
  EXPECT_TRUE(rects(canvas).empty());
  EXPECT_EQ(layout.RegionForRange({0, 3}), (fmx::TRegion{{0, 0, 0, 20}}));
}

TEST_F(GPUTextLayout, TextTooLargeForPicturesIsMeasuredAndNotDrawn) {
  TRecordingCanvas canvas(400, 200, 3000);
  TGPUTextLayout layout(&canvas);
  layout.SetText(u"ab");
  ASSERT_TRUE(canvas.BeginScene());
  EXPECT_NO_THROW(layout.RenderLayout(canvas));
  EXPECT_TRUE(canvas.CallsOf(TKind::DrawBitmap).empty());
  EXPECT_EQ(layout.TextWidth(), 20);
}

// Has glyphs as long as it is not told to fail.
class TFailingGlyphs : public fmx::TFixedGlyphs {
 public:
  static inline bool Fails = false;
  fmx::TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, fmx::TFontGlyphSettings settings,
                             bool colorful) override {
    if (Fails) throw std::runtime_error("no glyphs");
    return TFixedGlyphs::DoGetGlyph(chars, settings, colorful);
  }
};

TEST_F(GPUTextLayout, LinesForAnotherScaleThatCouldNotBeMadeAreMadeAtTheNextDrawing) {
  fmx::TFontGlyphManager::RegisterBackEnd([] { return std::make_unique<TFailingGlyphs>(); });
  TRecordingCanvas canvas(800, 400, 2);
  TGPUTextLayout layout;
  layout.SetText(u"a");
  ASSERT_TRUE(canvas.BeginScene());
  TFailingGlyphs::Fails = true;
  EXPECT_THROW(layout.RenderLayout(canvas), std::runtime_error);
  EXPECT_EQ(layout.TextWidth(), 10);
  TFailingGlyphs::Fails = false;
  layout.RenderLayout(canvas);
  EXPECT_EQ(canvas.CallsOf(TKind::DrawBitmap).size(), 1U);
  EXPECT_EQ(canvas.Calls().back().Source, (TRectF{0, 0, 20, 40}));
}

TEST_F(GPUTextLayout, ServesTheTextOperationsOfACanvas) {
  fmx::TCanvas& measure = fmx::TCanvasManager::MeasureCanvas();
  EXPECT_EQ(measure.TextWidth(u"Lb|y"), 40);
  EXPECT_EQ(measure.TextHeight(u"Lb|y"), 20);
  EXPECT_EQ(measure.MeasureText({0, 0, 100, 100}, u"ab", false, TTextAlign::Trailing), (TRectF{80, 40, 100, 60}));
  TRecordingCanvas canvas(400, 200);
  canvas.FillText({0, 0, 100, 100}, u"ab", false, 1, TTextAlign::Center);
  EXPECT_TRUE(canvas.Calls().empty());
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Fill().SetColor(0xFF445566);
  canvas.FillText({110, 100, 10, 0}, u"ab", false, 1, TTextAlign::Center);
  const auto draws = canvas.CallsOf(TKind::DrawBitmap);
  ASSERT_EQ(draws.size(), 2U);
  EXPECT_EQ(draws[0].Rect, (TRectF{50, 40, 60, 60}));
  EXPECT_EQ(draws[0].Color, 0xFF445566U);
  EXPECT_EQ(draws[0].Clip.Box(), (TRectF{10, 0, 110, 100}));
  EXPECT_TRUE(canvas.Clip().IsWhole());
}

}  // namespace
