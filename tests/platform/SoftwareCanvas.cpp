// The software canvas: pixels that can be worked out, laws that hold for any drawing, and arguments that are none.
#include "platform/SoftwareCanvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <numbers>

#include "fmx/CanvasManager.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/FontGlyphManager.h"
#include "fmx/NullCanvas.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/TextLayoutManager.h"
#include "platform/CanvasService.h"
#include "platform/CanvasWindow.h"
#include "platform/FrameOf.h"
#include "tests/platform/TestCard.h"

namespace orv::platform {
namespace {

using namespace fmx;

class SoftwareCanvas : public testing::Test {
 protected:
  void SetUp() override { TCanvasService().RegisterCanvasClasses(); }
  void TearDown() override {
    TCanvasManager::UnInitialize();
    TTextLayoutManager::UnInitialize();
  }
};

using TDrawing = std::function<void(TCustomCanvasGpu&)>;

TCustomCanvasGpu& Gpu(TCanvas& canvas) {
  return dynamic_cast<TCustomCanvasGpu&>(canvas);
}

TBitmapSurface Drawn(std::int32_t width, std::int32_t height, const TDrawing& drawing, float scale = 1) {
  TBitmap bitmap(width, height, scale);
  TCanvas& canvas = bitmap.Canvas();
  EXPECT_TRUE(canvas.BeginScene());
  drawing(Gpu(canvas));
  canvas.EndScene();
  return bitmap.Surface();
}

TPixel At(const TBitmapSurface& surface, int x, int y) {
  return surface.Scanline(y)[static_cast<std::size_t>(x)];
}

// The sum of alpha, in whole pixels: the area that was covered.
double Area(const TBitmapSurface& surface) {
  double sum = 0;
  for (const TPixel pixel : surface.Pixels()) sum += AlphaOf(pixel);
  return sum / 255;
}

int MostDifferent(const TBitmapSurface& a, const TBitmapSurface& b) {
  int most = 0;
  for (std::size_t i = 0; i < a.Pixels().size(); ++i)
    for (const int shift : {24, 16, 8, 0})
      most = std::max(most, std::abs(static_cast<int>(a.Pixels()[i] >> shift & 0xFF) -
                                     static_cast<int>(b.Pixels()[i] >> shift & 0xFF)));
  return most;
}

// --- Shapes ---

TEST_F(SoftwareCanvas, ARectangleOnWholePixelsHasSharpEdges) {
  const auto surface = Drawn(8, 6, [](TCanvas& canvas) { canvas.FillRect({2, 1, 6, 4}, 1, TBrush(0xFF204060)); });
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 8; ++x)
      EXPECT_EQ(At(surface, x, y), x >= 2 && x < 6 && y >= 1 && y < 4 ? 0xFF204060 : 0) << x << ", " << y;
}

TEST_F(SoftwareCanvas, ARectangleBetweenPixelsCoversTheirShares) {
  const auto surface = Drawn(4, 3, [](TCanvas& canvas) {
    canvas.FillRect({0.5F, 1, 2.25F, 2}, 1, TBrush(0xFFFFFFFF));
  });
  EXPECT_NEAR(AlphaOf(At(surface, 0, 1)), 128, 2);
  EXPECT_EQ(AlphaOf(At(surface, 1, 1)), 255U);
  EXPECT_NEAR(AlphaOf(At(surface, 2, 1)), 64, 2);
  EXPECT_EQ(At(surface, 1, 0), 0U);
}

TEST_F(SoftwareCanvas, HalfATransparentColourIsPremultiplied) {
  const auto surface = Drawn(2, 1, [](TCanvas& canvas) { canvas.FillRect({0, 0, 1, 1}, 1, TBrush(0x80FF0000)); });
  EXPECT_EQ(At(surface, 0, 0), 0x80800000U);
  EXPECT_EQ(At(surface, 1, 0), 0U);
}

TEST_F(SoftwareCanvas, AreasAreThoseOfTheShapes) {
  const TBrush brush(TAlphaColors::White);
  const double ellipse = Area(Drawn(100, 60, [&](TCanvas& canvas) { canvas.FillEllipse({5, 5, 95, 55}, 1, brush); }));
  EXPECT_NEAR(ellipse, std::numbers::pi * 45 * 25, 6);
  const double rounded = Area(Drawn(60, 60, [&](TCanvas& canvas) {
    canvas.FillRect({10, 10, 50, 40}, 8, 8, AllCorners, 1, brush);
  }));
  EXPECT_NEAR(rounded, 40 * 30 - (4 - std::numbers::pi) * 64, 2);
  const double turned = Area(Drawn(100, 100, [&](TCanvas& canvas) {
    canvas.SetMatrix(TMatrix::Rotation(0.7F) * TMatrix::Translation(50, 50));
    canvas.FillRect({-20, -15, 20, 15}, 1, brush);
  }));
  EXPECT_NEAR(turned, 40 * 30, 4);
  const double line = Area(Drawn(100, 20, [&](TCanvas& canvas) {
    canvas.DrawLine({10, 10}, {90, 10}, 1, TStrokeBrush(TAlphaColors::White, 3));
  }));
  EXPECT_NEAR(line, 80 * 3, 1);
}

// Of a pattern's length the dashes alone are drawn.
TEST_F(SoftwareCanvas, DashesCoverTheirShareOfTheLine) {
  const auto share = [](TStrokeDash dash) {
    return Area(Drawn(1000, 10,
                      [dash](TCanvas& canvas) {
                        canvas.DrawLine({20, 5}, {980, 5}, 1, TStrokeBrush(TAlphaColors::White, 2, dash));
                      })) /
           (960 * 2);
  };
  EXPECT_NEAR(share(TStrokeDash::Solid), 1, 0.001);
  EXPECT_NEAR(share(TStrokeDash::Dash), 3.0 / 4, 0.01);
  EXPECT_NEAR(share(TStrokeDash::Dot), 1.0 / 2, 0.01);
  EXPECT_NEAR(share(TStrokeDash::DashDot), 4.0 / 6, 0.01);
  EXPECT_NEAR(share(TStrokeDash::DashDotDot), 5.0 / 8, 0.01);
}

// The pen is stretched with what it draws.
TEST_F(SoftwareCanvas, AScaledLineIsAsThickAsTheScaleSays) {
  const double across = Area(Drawn(100, 100, [](TCanvas& canvas) {
    canvas.SetMatrix(TMatrix::Scaling(1, 4));
    canvas.DrawLine({10, 10}, {90, 10}, 1, TStrokeBrush(TAlphaColors::White, 2));
  }));
  EXPECT_NEAR(across, 80 * 8, 2);
  const double device = Area(Drawn(
      100, 100,
      [](TCanvas& canvas) {
        canvas.DrawLine({10, 10}, {30, 10}, 1, TStrokeBrush(TAlphaColors::White, 2));
      },
      2.5F));
  EXPECT_NEAR(device, 50 * 5, 2);
}

TEST_F(SoftwareCanvas, ClearKnowsNeitherClipsNorWhatWasThere) {
  const auto surface = Drawn(6, 6, [](TCanvas& canvas) {
    canvas.Clear(0xFF00FF00);
    canvas.IntersectClipRect({0, 0, 1, 1});
    canvas.ClearRect({2, 2, 4, 4}, 0x80FFFFFF);
  });
  EXPECT_EQ(At(surface, 3, 3), 0x80808080U);
  EXPECT_EQ(At(surface, 5, 5), 0xFF00FF00U);
}

// --- Clips ---

TEST_F(SoftwareCanvas, ClipsCutShapesAndPicturesAlike) {
  TBitmap white(10, 10);
  white.Clear(TAlphaColors::White);
  const auto turn = TMatrix::Translation(-5, -5) * TMatrix::Rotation(0.6F) * TMatrix::Translation(5, 5);
  const std::function<void(TCanvas&)> clips[] = {[](TCanvas& canvas) {
                                                   canvas.IntersectClipRect({2, 3, 8, 9});
                                                 },
                                                 [](TCanvas& canvas) {
                                                   canvas.IntersectClipRect({2.25F, 3.5F, 8.75F, 9.5F});
                                                 },
                                                 [](TCanvas& canvas) {
                                                   canvas.ExcludeClipRect({3.5F, 3, 6, 7});
                                                 },
                                                 [&](TCanvas& canvas) {
                                                   canvas.SetMatrix(turn);
                                                   canvas.IntersectClipRect({2, 2, 8, 8});
                                                   canvas.SetMatrix({});
                                                 }};
  for (const auto& clip : clips) {
    const auto shape = Drawn(10, 10, [&](TCanvas& canvas) {
      clip(canvas);
      canvas.FillRect({0, 0, 10, 10}, 1, TBrush(TAlphaColors::White));
    });
    const auto picture = Drawn(10, 10, [&](TCanvas& canvas) {
      clip(canvas);
      canvas.DrawBitmap(white, {0, 0, 10, 10}, {0, 0, 10, 10}, 1);
    });
    EXPECT_LE(MostDifferent(shape, picture), 2);
    EXPECT_GT(Area(shape), 20);
    EXPECT_LT(Area(shape), 95);
  }
}

TEST_F(SoftwareCanvas, WhatIsExcludedIsTheRestOfWhatIsKept) {
  const TRectF hole{2.5F, 2.5F, 7, 6};
  const auto kept = Drawn(10, 10, [&](TCanvas& canvas) {
    canvas.IntersectClipRect(hole);
    canvas.FillRect({0, 0, 10, 10}, 1, TBrush(TAlphaColors::White));
  });
  const auto rest = Drawn(10, 10, [&](TCanvas& canvas) {
    canvas.ExcludeClipRect(hole);
    canvas.FillRect({0, 0, 10, 10}, 1, TBrush(TAlphaColors::White));
  });
  for (std::size_t i = 0; i < kept.Pixels().size(); ++i)
    EXPECT_NEAR(AlphaOf(kept.Pixels()[i]) + AlphaOf(rest.Pixels()[i]), 255, 2);
}

TEST_F(SoftwareCanvas, SceneRectanglesClip) {
  TBitmap bitmap(10, 4);
  const TRectF parts[] = {{0, 0, 2, 4}, {6, 0, 8, 4}};
  ASSERT_TRUE(bitmap.Canvas().BeginScene(parts));
  bitmap.Canvas().FillRect({0, 0, 10, 4}, 1, TBrush(TAlphaColors::Black));
  bitmap.Canvas().EndScene();
  for (int x = 0; x < 10; ++x) EXPECT_EQ(AlphaOf(At(bitmap.Surface(), x, 1)), x < 2 || x == 6 || x == 7 ? 255U : 0U);
}

// --- Pictures ---

TBitmapSurface Checks(TBitmap& bitmap) {
  for (int y = 0; y < bitmap.Height(); ++y)
    for (int x = 0; x < bitmap.Width(); ++x)
      bitmap.Surface().Scanline(y)[static_cast<std::size_t>(x)] =
          Premultiply(MakeColor(static_cast<std::uint32_t>(x * 40), static_cast<std::uint32_t>(y * 40), 99,
                                static_cast<std::uint32_t>(255 - x * 20)));
  return bitmap.Surface();
}

TEST_F(SoftwareCanvas, APictureAtWholePixelsIsCopied) {
  TBitmap bitmap(6, 5);
  const auto pixels = Checks(bitmap);
  const auto surface = Drawn(12, 12, [&](TCanvas& canvas) {
    canvas.DrawBitmap(bitmap, {1, 1, 6, 5}, {3, 4, 8, 8}, 1);
  });
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 5; ++x) EXPECT_EQ(At(surface, 3 + x, 4 + y), At(pixels, 1 + x, 1 + y));
  EXPECT_EQ(At(surface, 2, 4), 0U);
}

TEST_F(SoftwareCanvas, ATranslucentBitmapOnABitmapIsNotFadedTwice) {
  TBitmap half(1, 1);
  ASSERT_TRUE(half.Canvas().BeginScene());
  half.Canvas().FillRect({0, 0, 1, 1}, 1, TBrush(0x80FF0000));
  half.Canvas().EndScene();
  const auto onNothing = Drawn(1, 1, [&](TCanvas& canvas) { canvas.DrawBitmap(half, {0, 0, 1, 1}, {0, 0, 1, 1}, 1); });
  EXPECT_EQ(At(onNothing, 0, 0), 0x80800000U);
  const auto onWhite = Drawn(1, 1, [&](TCanvas& canvas) {
    canvas.Clear(TAlphaColors::White);
    canvas.DrawBitmap(half, {0, 0, 1, 1}, {0, 0, 1, 1}, 1);
  });
  EXPECT_EQ(At(onWhite, 0, 0), 0xFFFF7F7FU);
}

TEST_F(SoftwareCanvas, ModulationTintsAndOpacityFades) {
  TBitmap white(2, 1);
  white.Clear(TAlphaColors::White);
  const auto surface = Drawn(4, 1, [&](TCustomCanvasGpu& canvas) {
    canvas.SetModulateColor(0xFF3366CC);
    canvas.DrawBitmap(white, {0, 0, 1, 1}, {0, 0, 1, 1}, 1);
    canvas.DrawBitmap(white, {0, 0, 1, 1}, {1, 0, 2, 1}, 0.5F);
    canvas.SetModulateColor(0x80FFFFFF);
    canvas.DrawBitmap(white, {0, 0, 1, 1}, {2, 0, 3, 1}, 0.5F);
    canvas.SetModulateColor(0);
    canvas.DrawBitmap(white, {0, 0, 1, 1}, {3, 0, 4, 1}, 1);
  });
  EXPECT_EQ(At(surface, 0, 0), 0xFF3366CCU);
  EXPECT_EQ(At(surface, 1, 0), Premultiply(0x803366CC));
  EXPECT_EQ(At(surface, 2, 0), 0x40404040U);
  EXPECT_EQ(At(surface, 3, 0), 0U);
}

// The way through the resampler gives what the direct way gives: a clip with a hole, far from the picture, leads there.
TEST_F(SoftwareCanvas, BothWaysOfDrawingAPictureAgree) {
  TBitmap bitmap(6, 5);
  Checks(bitmap);
  for (const float shift : {0.0F, 0.25F, 0.5F, 0.8F}) {
    const auto drawing = [&](TCustomCanvasGpu& canvas, bool slow) {
      if (slow) canvas.ExcludeClipRect({11, 11, 12, 12});
      canvas.SetModulateColor(0xFFC0E080);
      canvas.DrawBitmap(bitmap, {0, 0, 6, 5}, TRectF{2, 2, 8, 7}.Offset(shift, shift), 0.75F);
    };
    const auto direct = Drawn(12, 12, [&](TCustomCanvasGpu& canvas) { drawing(canvas, false); });
    const auto resampled = Drawn(12, 12, [&](TCustomCanvasGpu& canvas) { drawing(canvas, true); });
    EXPECT_GT(Area(direct), 5);
    EXPECT_NEAR(Area(direct), Area(resampled), shift == 0 ? 0.1 : 0.6) << shift;
    EXPECT_LE(MostDifferent(direct, resampled), shift == 0 ? 2 : 40) << shift;
  }
}

// At a scale of 1.5 the edges of glyph quads are no round numbers.
TEST_F(SoftwareCanvas, QuadsOfAnyScaleMeetTheirPixels) {
  TBitmap bitmap(6, 5);
  const auto pixels = Checks(bitmap);
  for (const float scale : {0.75F, 1.0F, 1.25F, 1.5F, 1.75F, 2.0F, 3.0F}) {
    const float unit = 1 / scale;
    for (int place = 0; place < 1200; place += 37) {
      const auto surface = Drawn(
          1300, 5,
          [&](TCanvas& canvas) {
            const TPointF corner{static_cast<float>(place) * unit, 0};
            canvas.DrawBitmap(bitmap, {0, 0, 6, 5}, TRectF::FromSize(corner, 6 * unit, 5 * unit), 1);
          },
          scale);
      for (int x = 0; x < 6; ++x) ASSERT_EQ(At(surface, place + x, 2), At(pixels, x, 2)) << scale << ", " << place;
    }
  }
}

TEST_F(SoftwareCanvas, AnEnlargedPictureFillsItsPlaceAndShowsNoNeighbours) {
  TBitmap bitmap(4, 4);
  bitmap.Clear(0xFFFF0000);
  for (int y = 1; y < 3; ++y)
    for (std::size_t x = 1; x < 3; ++x) bitmap.Surface().Scanline(y)[x] = 0xFF0000FF;
  for (const bool highSpeed : {false, true}) {
    const auto surface = Drawn(20, 20, [&](TCanvas& canvas) {
      canvas.DrawBitmap(bitmap, {1, 1, 3, 3}, {2, 2, 18, 18}, 1, highSpeed);
    });
    for (int y = 0; y < 20; ++y)
      for (int x = 0; x < 20; ++x)
        ASSERT_EQ(At(surface, x, y), x >= 2 && x < 18 && y >= 2 && y < 18 ? 0xFF0000FFU : 0U) << x << ", " << y;
  }
}

TEST_F(SoftwareCanvas, HighSpeedSnapsToPixels) {
  TBitmap bitmap(6, 5);
  const auto pixels = Checks(bitmap);
  const auto surface = Drawn(12, 12, [&](TCanvas& canvas) {
    canvas.DrawBitmap(bitmap, {0, 0, 6, 5}, TRectF{2.3F, 2.3F, 8.3F, 7.3F}, 1, true);
  });
  EXPECT_EQ(At(surface, 4, 4), At(pixels, 2, 2));
}

// --- Targets ---

TEST_F(SoftwareCanvas, TheServiceMakesItTheDefault) {
  EXPECT_EQ(TCanvasManager::DefaultCanvas(), TSoftwareCanvas::Class());
  TBitmap bitmap(1, 1);
  EXPECT_EQ(bitmap.Canvas().ClassName(), "TCanvasGpu");
  EXPECT_FALSE(TCanvasManager::MeasureCanvas().BeginScene());
}

TEST_F(SoftwareCanvas, AMappedBitmapHasNoScene) {
  TBitmap bitmap(2, 2);
  TBitmapData data;
  ASSERT_TRUE(bitmap.Map(TMapAccess::Write, data));
  EXPECT_FALSE(bitmap.Canvas().BeginScene());
  bitmap.Unmap(data);
  EXPECT_TRUE(bitmap.Canvas().BeginScene());
  bitmap.Canvas().EndScene();
}

TEST_F(SoftwareCanvas, ASceneTellsThatTheBitmapChanged) {
  TBitmap bitmap(2, 2);
  const auto before = bitmap.Version();
  ASSERT_TRUE(bitmap.Canvas().BeginScene());
  bitmap.Canvas().EndScene();
  EXPECT_GT(bitmap.Version(), before);
}

TEST_F(SoftwareCanvas, AWindowIsShownItsPictureOnceAScene) {
  THeadlessWindow window;
  TSoftwareCanvas canvas(window.Target(20, 10, 2));
  ASSERT_TRUE(canvas.BeginScene());
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Clear(TAlphaColors::White);
  canvas.EndScene();
  EXPECT_EQ(window.Count(), 0);
  canvas.EndScene();
  EXPECT_EQ(window.Count(), 1);
  EXPECT_EQ(window.Changed(), (TRect{0, 0, 20, 10}));
  const TRectF part[] = {{1, 1, 3, 2.25F}};
  ASSERT_TRUE(canvas.BeginScene(part));
  canvas.FillRect({0, 0, 10, 5}, 1, TBrush(0xFF0000FF));
  canvas.EndScene();
  EXPECT_EQ(window.Changed(), (TRect{2, 2, 6, 5}));
  EXPECT_EQ(At(window.Shown(), 0, 0), TAlphaColors::White);  // the picture of the first scene stays
  EXPECT_EQ(At(window.Shown(), 3, 3), 0xFF0000FFU);
  canvas.Resize(30, 30, 1);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.EndScene();
  EXPECT_EQ(window.Shown().Width(), 30);
  EXPECT_EQ(At(window.Shown(), 3, 3), 0U);
}

TEST_F(SoftwareCanvas, AWindowOfNoOrEndlessSizeHasNoScene) {
  THeadlessWindow window;
  EXPECT_FALSE(TSoftwareCanvas(window.Target(0, 10, 1)).BeginScene());
  EXPECT_FALSE(TSoftwareCanvas(window.Target(10, MaxBitmapSide + 1, 1)).BeginScene());
  EXPECT_FALSE(TSoftwareCanvas({TCanvasTarget::TKind::Window, nullptr, nullptr, 10, 10, 1}).BeginScene());
  EXPECT_FALSE(TSoftwareCanvas({TCanvasTarget::TKind::Printer, nullptr, nullptr, 10, 10, 1}).BeginScene());
}

// --- The test card ---

TBitmapSurface Card(float scale, const TTestCardOptions& options = {}) {
  THeadlessWindow window;
  TSoftwareCanvas canvas(window.Target(static_cast<std::int32_t>(std::lround(TestCardWidth * scale)),
                                       static_cast<std::int32_t>(std::lround(TestCardHeight * scale)), scale));
  EXPECT_TRUE(DrawTestCard(canvas, TestCardGlyphs(scale), options));
  return window.Shown();
}

TEST_F(SoftwareCanvas, EqualCallsGiveEqualBytes) {
  for (const float scale : {1.0F, 1.5F, 2.0F}) EXPECT_EQ(Card(scale), Card(scale)) << scale;
}

TEST_F(SoftwareCanvas, AWindowAndABitmapShowTheSame) {
  TBitmap bitmap(TestCardWidth, TestCardHeight);
  ASSERT_TRUE(DrawTestCard(Gpu(bitmap.Canvas()), TestCardGlyphs(1)));
  EXPECT_EQ(bitmap.Surface(), Card(1));
}

// What one canvas draws another one is told: the card reaches a canvas through the hooks alone.
TEST_F(SoftwareCanvas, TheCardIsOneQuadALetter) {
  TRecordingCanvas recording(TestCardWidth, TestCardHeight);
  const TGlyphTexture glyphs = TestCardGlyphs(1);
  ASSERT_TRUE(DrawTestCard(recording, glyphs));
  std::size_t quads = 0;
  for (const auto& call : recording.CallsOf(TRecordedCall::TKind::DrawBitmap))
    if (call.Bitmap == &glyphs.Bitmap()) ++quads;
  EXPECT_EQ(quads, 5U * 6 + 3 * 3 + 4);
  TNullCanvas nothing({TCanvasTarget::TKind::Window, nullptr, nullptr, TestCardWidth, TestCardHeight, 1});
  EXPECT_TRUE(DrawTestCard(nothing, glyphs));
}

TEST_F(SoftwareCanvas, PicturesComeBackFromTheirFrames) {
  const TFrame frame = FrameOf(Card(1));
  EXPECT_EQ(SurfaceOf(frame), Card(1));
}

// By the plain layout that the service registers, with glyphs of fixed sizes: 10 by 20 units each, in the fill colour.
TEST_F(SoftwareCanvas, TextReachesThePixels) {
  TFixedGlyphs::Register();
  for (const float scale : {1.0F, 2.0F}) {
    const auto surface = Drawn(
        static_cast<std::int32_t>(40 * scale), static_cast<std::int32_t>(30 * scale),
        [](TCanvas& canvas) {
          canvas.Fill().SetColor(0xFF3366CC);
          canvas.FillText({5, 5, 40, 25}, u"ab", false, 1, TTextAlign::Leading, TTextAlign::Leading);
        },
        scale);
    EXPECT_NEAR(Area(surface), 2 * 10 * 20 * double{scale} * double{scale}, 0.01) << scale;
    EXPECT_EQ(At(surface, static_cast<int>(24 * scale), static_cast<int>(24 * scale)), 0xFF3366CC) << scale;
    EXPECT_EQ(At(surface, static_cast<int>(26 * scale), static_cast<int>(24 * scale)), 0U) << scale;
  }
  TFontGlyphManager::RegisterBackEnd({});
}

TEST_F(SoftwareCanvas, ARefusedSceneLeavesTheTargetAlone) {
  TSoftwareCanvas nowhere({TCanvasTarget::TKind::Bitmap, nullptr, nullptr, 4, 4, 1});
  EXPECT_FALSE(nowhere.BeginScene());
  TSoftwareCanvas closed({TCanvasTarget::TKind::Window, nullptr, nullptr, 4, 4, 1});
  EXPECT_FALSE(closed.BeginScene());
  fmx::TBitmap bitmap(4, 4);
  TSoftwareCanvas canvas({TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, 4, 4, 1});
  fmx::TBitmapData data;
  ASSERT_TRUE(bitmap.Map(fmx::TMapAccess::Read, data));
  const auto version = bitmap.Version();
  EXPECT_FALSE(canvas.BeginScene());
  EXPECT_EQ(bitmap.Version(), version);
  bitmap.Unmap(data);
  EXPECT_TRUE(canvas.BeginScene());
  canvas.EndScene();
  EXPECT_NE(bitmap.Version(), version);
}

// --- Arguments out of any range ---

TEST_F(SoftwareCanvas, FarPointsAreCutWithoutBendingWhatIsSeen) {
  const double slope = Area(Drawn(100, 100, [](TCanvas& canvas) {
    TPathData half;  // what lies below the falling diagonal
    half.MoveTo({-1e9F, -1e9F});
    half.LineTo({1e9F, 1e9F});
    half.LineTo({-1e9F, 1e9F});
    half.ClosePath();
    canvas.FillPath(half, 1, TBrush(TAlphaColors::White));
  }));
  EXPECT_NEAR(slope, 5000, 10);
  const double line = Area(Drawn(100, 10, [](TCanvas& canvas) {
    canvas.DrawLine({-1e7F, 5}, {1e7F, 5}, 1, TStrokeBrush(TAlphaColors::White, 2));
  }));
  EXPECT_NEAR(line, 200, 1);
  const double thick = Area(Drawn(100, 10, [](TCanvas& canvas) {
    canvas.DrawLine({-1e7F, 5}, {1e7F, 5}, 1, TStrokeBrush(TAlphaColors::White, 1e20F));
  }));
  EXPECT_NEAR(thick, 1000, 1);
  const double ellipse = Area(Drawn(100, 100, [](TCanvas& canvas) {
    canvas.FillEllipse({-1e8F, 50, 1e8F, 2e8F}, 1, TBrush(TAlphaColors::White));
  }));
  EXPECT_NEAR(ellipse, 5000, 60);
}

// The dashes of a long line are where those of the whole line would be.
TEST_F(SoftwareCanvas, ADashPatternIsKeptAcrossACut) {
  const auto drawing = [](float from) {
    return Drawn(200, 6, [from](TCanvas& canvas) {
      canvas.DrawLine({from, 3}, {1000, 3}, 1, TStrokeBrush(TAlphaColors::White, 4, TStrokeDash::Dash));
    });
  };
  EXPECT_LE(MostDifferent(drawing(-16), drawing(-16 - 16.0F * 65536)), 3);
}

TEST_F(SoftwareCanvas, NoArgumentIsTooStrange) {
  constexpr float Huge = std::numeric_limits<float>::max();
  constexpr float Tiny = std::numeric_limits<float>::denorm_min();
  const float values[] = {0, 1, -7.5F, 40, 1e7F, -1e20F, Huge, -Huge, Tiny, 1e-20F};
  std::uint64_t state = 77;
  const auto value = [&] {
    state = state * 6364136223846793005U + 1442695040888963407U;
    return values[(state >> 33) % std::size(values)];
  };
  const auto point = [&] { return TPointF{value(), value()}; };
  const auto rect = [&] { return TRectF{value(), value(), value(), value()}; };
  TBitmap bitmap(5, 5);
  bitmap.Clear(0xFF808080);
  TBitmap target(64, 48);
  auto& canvas = Gpu(target.Canvas());
  for (int round = 0; round < 1500; ++round) {
    ASSERT_TRUE(canvas.BeginScene());
    const auto kept = canvas.SaveState();
    if (round % 3 != 0) canvas.SetMatrix({value(), value(), value(), value(), value(), value()});
    if (round % 4 == 0) canvas.IntersectClipRect(rect());
    if (round % 8 == 0) canvas.ExcludeClipRect(rect());
    TStrokeBrush pen(0xC0FF0000, std::abs(value()), static_cast<TStrokeDash>(round % 5));
    pen.SetJoin(static_cast<TStrokeJoin>(round % 3));
    pen.SetCap(static_cast<TStrokeCap>(round % 2));
    TPathData path;
    path.MoveTo(point());
    path.CurveTo(point(), point(), point());
    path.LineTo(point());
    path.ClosePath();
    canvas.FillPath(path, 1, TBrush(0x80FFFFFF));
    canvas.DrawPath(path, 1, pen);
    canvas.DrawLine(point(), point(), 0.5F, pen);
    canvas.FillEllipse(rect(), 1, TBrush(0xFF00FF00));
    canvas.FillRect(rect(), value(), value(), AllCorners, 1, TBrush(0xFF00FF00));
    canvas.DrawBitmap(bitmap, rect(), rect(), 1, round % 2 == 0);
    canvas.DrawBitmap(bitmap, {0, 0, 5, 5}, TRectF::FromSize(point(), 5, 5), 1);
    canvas.ClearRect(rect(), 0x40404040);
    canvas.RestoreState(kept);
    // After all that it still draws.
    canvas.FillRect({0, 0, 1, 1}, 1, TBrush(0xFF000000 | static_cast<TAlphaColor>(round)));
    canvas.EndScene();
    ASSERT_EQ(At(target.Surface(), 0, 0), 0xFF000000 | static_cast<TAlphaColor>(round)) << round;
  }
}

}  // namespace
}  // namespace orv::platform
