#include "fmx/Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "fmx/Limits.h"
#include "fmx/NullCanvas.h"
#include "fmx/RecordingCanvas.h"
#include "runtime/VirtualClassGenerator.h"

namespace {

using fmx::TBrush;
using fmx::TCanvas;
using fmx::TMatrix;
using fmx::TRecordedCall;
using fmx::TRecordingCanvas;
using fmx::TRectF;
using fmx::TStrokeBrush;
using TKind = TRecordedCall::TKind;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

std::vector<TKind> KindsOf(const TRecordingCanvas& canvas) {
  std::vector<TKind> kinds;
  for (const TRecordedCall& call : canvas.Calls()) kinds.push_back(call.Kind);
  return kinds;
}

// One of every drawing operation.
void DrawEverything(TCanvas& canvas, const fmx::TBitmap& bitmap, float opacity = 1) {
  canvas.FillRect({0, 0, 10, 10}, opacity);
  canvas.FillRect({0, 0, 10, 10}, 2, 2, fmx::AllCorners, opacity);
  canvas.DrawRect({0, 0, 10, 10}, 0, 0, fmx::AllCorners, opacity);
  canvas.FillEllipse({0, 0, 10, 10}, opacity);
  canvas.DrawEllipse({0, 0, 10, 10}, opacity);
  canvas.DrawLine({0, 0}, {5, 5}, opacity);
  canvas.FillPath(fmx::RectanglePath({0, 0, 3, 3}), opacity);
  canvas.DrawPath(fmx::RectanglePath({0, 0, 3, 3}), opacity);
  canvas.DrawBitmap(bitmap, {0, 0, 4, 4}, {0, 0, 8, 8}, opacity);
}

TEST(Canvas, DrawsWithinScenesAlone) {
  const fmx::TBitmap bitmap(4, 4);
  TRecordingCanvas canvas(100, 100);
  DrawEverything(canvas, bitmap);
  canvas.Clear(fmx::TAlphaColors::White);
  canvas.ClearRect({0, 0, 10, 10});
  EXPECT_TRUE(canvas.Calls().empty());
  ASSERT_TRUE(canvas.BeginScene());
  DrawEverything(canvas, bitmap);
  canvas.EndScene();
  EXPECT_EQ(KindsOf(canvas), (std::vector<TKind>{TKind::BeginScene, TKind::FillRect, TKind::FillPath, TKind::DrawPath,
                                                 TKind::FillEllipse, TKind::DrawPath, TKind::DrawLine, TKind::FillPath,
                                                 TKind::DrawPath, TKind::DrawBitmap, TKind::EndScene}));
}

TEST(Canvas, ScenesWithinAScenesReachTheBackEndOnce) {
  TRecordingCanvas canvas(100, 100);
  canvas.EndScene();
  EXPECT_EQ(canvas.BeginSceneCount(), 0);
  ASSERT_TRUE(canvas.BeginScene());
  ASSERT_TRUE(canvas.BeginScene());
  EXPECT_EQ(canvas.BeginSceneCount(), 2);
  canvas.EndScene();
  EXPECT_EQ(canvas.BeginSceneCount(), 1);
  EXPECT_EQ(KindsOf(canvas), std::vector<TKind>{TKind::BeginScene});
  canvas.EndScene();
  canvas.EndScene();
  EXPECT_EQ(KindsOf(canvas), (std::vector<TKind>{TKind::BeginScene, TKind::EndScene}));
}

TEST(Canvas, ASceneThatTheBackEndRefusesIsNotOpen) {
  TRecordingCanvas canvas(100, 100);
  canvas.RefuseScenes(true);
  EXPECT_FALSE(canvas.BeginScene());
  EXPECT_EQ(canvas.BeginSceneCount(), 0);
  canvas.FillRect({0, 0, 1, 1}, 1);
  canvas.EndScene();
  EXPECT_EQ(KindsOf(canvas), (std::vector<TKind>{TKind::BeginScene, TKind::EndScene}));
}

// A class that wraps the scenes of the recording canvas, and counts them whatever the inner canvas answers.
struct TSceneCount {
  static inline int Depth = 0;
  static inline int Opened = 0;
  static inline orv::TMethodAddress KeptBegin = nullptr;
  static inline orv::TMethodAddress KeptEnd = nullptr;
  using TBegin = TCanvas::TSlots::DoBeginScene;
  using TEnd = TCanvas::TSlots::DoEndScene;

  static bool DoBeginScene(TCanvas& canvas, std::span<const TRectF> clipRects, void* context) {
    const bool opened = orv::MethodAs<TBegin>(KeptBegin)(canvas, clipRects, context);
    ++Depth;
    ++Opened;
    return opened;
  }
  static void DoEndScene(TCanvas& canvas) {
    orv::MethodAs<TEnd>(KeptEnd)(canvas);
    --Depth;
  }

  static orv::TClass Class() {
    static const orv::TClass made = [] {
      const orv::TClass parent = TRecordingCanvas::Class();
      KeptBegin = orv::TVmt::GetVMT(parent)->GetMethod(TBegin::Number);
      KeptEnd = orv::TVmt::GetVMT(parent)->GetMethod(TEnd::Number);
      const std::vector<orv::TVirtualClassGenerator::TOverrideMethodInfo> overrides{
          {TBegin::Number, orv::AddressOf<TBegin>(&DoBeginScene)}, {TEnd::Number, orv::AddressOf<TEnd>(&DoEndScene)}};
      return orv::TVirtualClassGenerator::CreateNewClass(parent, u"tests.Canvas", u"TRecordingCanvas", overrides);
    }();
    return made;
  }
};

TEST(Canvas, AWrapperThatCountsScenesIsAtItsOldCountAfterARefusedOne) {
  const auto made = TCanvas::New(TSceneCount::Class(), {fmx::TCanvasTarget::TKind::Window, nullptr, nullptr, 9, 9, 1});
  auto& canvas = static_cast<TRecordingCanvas&>(*made);
  canvas.RefuseScenes(true);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_FALSE(canvas.BeginScene());
    EXPECT_EQ(TSceneCount::Opened, i);
    EXPECT_EQ(TSceneCount::Depth, 0);
    canvas.EndScene();
    EXPECT_EQ(TSceneCount::Depth, 0);
  }
  canvas.RefuseScenes(false);
  ASSERT_TRUE(canvas.BeginScene());
  ASSERT_TRUE(canvas.BeginScene());
  EXPECT_EQ(TSceneCount::Depth, 1);
  canvas.EndScene();
  EXPECT_EQ(TSceneCount::Depth, 1);
  canvas.EndScene();
  EXPECT_EQ(TSceneCount::Depth, 0);
}

TEST(Canvas, AnOutermostSceneStartsWithoutMatrixAndClip) {
  TRecordingCanvas canvas(100, 100);
  canvas.SetMatrix(TMatrix::Translation(5, 5));
  canvas.IntersectClipRect({0, 0, 1, 1});
  const std::vector<TRectF> parts{{0, 0, 20, 20}};
  ASSERT_TRUE(canvas.BeginScene(parts));
  EXPECT_EQ(canvas.Matrix(), TMatrix{});
  EXPECT_EQ(canvas.Clip().Box(), parts[0]);
  canvas.FillRect({0, 0, 50, 50}, 1);
  EXPECT_EQ(canvas.Calls().back().Clip.Box(), parts[0]);
}

TEST(Canvas, SavedStatesKeepEverythingThatDrawingTakes) {
  TRecordingCanvas canvas(100, 100, 2);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Fill().SetColor(0xFF000001);
  canvas.Stroke().SetThickness(3);
  canvas.Font().SetSize(20);
  const auto state = canvas.SaveState();
  canvas.Fill().SetColor(0xFF000002);
  canvas.Stroke().SetThickness(4);
  canvas.Font().SetSize(21);
  canvas.SetMatrix(TMatrix::Translation(7, 0));
  canvas.IntersectClipRect({0, 0, 5, 5});
  canvas.FillRect({0, 0, 1, 1}, 1);
  EXPECT_EQ(canvas.Calls().back().Color, 0xFF000002U);
  EXPECT_EQ(canvas.Calls().back().DeviceMatrix, TMatrix::Translation(7, 0) * TMatrix::Scaling(2, 2));
  EXPECT_EQ(canvas.Calls().back().Clip.Box(), (TRectF{14, 0, 24, 10}));
  canvas.RestoreState(state);
  canvas.FillRect({0, 0, 1, 1}, 1);
  EXPECT_EQ(canvas.Calls().back().Color, 0xFF000001U);
  EXPECT_EQ(canvas.Calls().back().DeviceMatrix, TMatrix::Scaling(2, 2));
  EXPECT_TRUE(canvas.Calls().back().Clip.IsWhole());
  EXPECT_EQ(canvas.Stroke().Thickness(), 3);
  EXPECT_EQ(canvas.Font().Size(), 20);
}

TEST(Canvas, RestoringAnOuterStateForgetsTheInnerOnes) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Fill().SetColor(1);
  const auto outer = canvas.SaveState();
  canvas.Fill().SetColor(2);
  const auto inner = canvas.SaveState();
  canvas.Fill().SetColor(3);
  canvas.RestoreState(outer);
  EXPECT_EQ(canvas.Fill().Color(), 1U);
  canvas.RestoreState(inner);
  EXPECT_EQ(canvas.Fill().Color(), 1U);
  canvas.RestoreState(12345);
  EXPECT_EQ(canvas.Fill().Color(), 1U);
}

TEST(Canvas, AStateThatWasForgottenIsNotTakenForALaterOneInItsPlace) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  const auto old = canvas.SaveState();
  canvas.RestoreState(old);
  canvas.Fill().SetColor(2);
  const auto later = canvas.SaveState();
  canvas.Fill().SetColor(3);
  canvas.RestoreState(old);
  EXPECT_EQ(canvas.Fill().Color(), 3U);
  canvas.RestoreState(later);
  EXPECT_EQ(canvas.Fill().Color(), 2U);
  const auto ofTheScene = canvas.SaveState();
  canvas.EndScene();
  ASSERT_TRUE(canvas.BeginScene());
  (void)canvas.SaveState();
  canvas.Fill().SetColor(4);
  canvas.RestoreState(ofTheScene);
  EXPECT_EQ(canvas.Fill().Color(), 4U);
}

TEST(Canvas, AGuardRestoresAtTheEndOfItsScope) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  {
    const fmx::TCanvasStateGuard guard(canvas);
    canvas.SetMatrix(TMatrix::Translation(1, 1));
  }
  EXPECT_EQ(canvas.Matrix(), TMatrix{});
}

TEST(Canvas, APainterThatNeverRestoresDoesNotEatTheMemory) {
  TRecordingCanvas canvas(100, 100);
  canvas.Fill().SetColor(1);
  const auto first = canvas.SaveState();
  canvas.Fill().SetColor(2);
  for (std::size_t i = 2; i < fmx::MaxSavedStates; ++i) (void)canvas.SaveState();
  const auto last = canvas.SaveState();
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(canvas.SaveState(), last);
  canvas.RestoreState(first);
  EXPECT_EQ(canvas.Fill().Color(), 1U);
}

TEST(Canvas, MatricesComposeAndMustBeFinite) {
  TRecordingCanvas canvas(100, 100);
  canvas.SetMatrix(TMatrix::Translation(10, 0));
  canvas.MultiplyMatrix(TMatrix::Scaling(2, 2));
  EXPECT_EQ(canvas.Matrix().Apply({1, 1}), (fmx::TPointF{12, 2}));
  canvas.SetMatrix(TMatrix::Translation(Infinity, 0));
  EXPECT_EQ(canvas.Matrix().Apply({1, 1}), (fmx::TPointF{12, 2}));
  canvas.MultiplyMatrix(TMatrix::Scaling(1e38F, 1e38F));
  canvas.MultiplyMatrix(TMatrix::Scaling(1e38F, 1e38F));
  EXPECT_TRUE(canvas.Matrix().IsFinite());
}

TEST(Canvas, AMatrixThatTheScaleMakesInfiniteIsNotTaken) {
  TRecordingCanvas canvas(100, 100, 2);
  canvas.SetMatrix(TMatrix::Translation(3e38F, 0));
  EXPECT_EQ(canvas.Matrix(), TMatrix{});
  canvas.SetMatrix(TMatrix::Translation(1e38F, 0));
  EXPECT_EQ(canvas.Matrix(), TMatrix::Translation(1e38F, 0));
  EXPECT_TRUE(canvas.DeviceMatrix().IsFinite());
}

TEST(Canvas, APathThatAMatrixMadeInfiniteOrNoNumberIsNotDrawn) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Forget();
  for (const TMatrix& matrix : {TMatrix::Scaling(1e30F, 1e30F), TMatrix{1e38F, 0, -1e38F, 1, 0, 0}}) {
    fmx::TPathData path;
    path.MoveTo({0, 0});
    path.LineTo({1e30F, 1e30F});
    path.LineTo({5, 5});
    path.ClosePath();
    EXPECT_TRUE(path.IsFinite());
    path.ApplyMatrix(matrix);
    EXPECT_FALSE(path.IsFinite());
    canvas.FillPath(path, 1);
    canvas.DrawPath(path, 1);
  }
  EXPECT_TRUE(canvas.Calls().empty());
}

TEST(Canvas, ReversedRectanglesAreFilledLikeOthers) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.FillRect({30, 20, 10, 5}, 1);
  canvas.FillEllipse({30, 20, 10, 5}, 1);
  canvas.FillRect({30, 20, 10, 5}, 3, 3, fmx::AllCorners, 1);
  canvas.Forget();
  canvas.FillRect({30, 20, 10, 5}, 1);
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{10, 5, 30, 20}));
  canvas.FillEllipse({30, 20, 10, 5}, 1);
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{10, 5, 30, 20}));
  canvas.FillRect({30, 20, 10, 5}, 3, 3, fmx::AllCorners, 1);
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{10, 5, 30, 20}));
}

TEST(Canvas, WhatCannotBeSeenDoesNotReachTheBackEnd) {
  const fmx::TBitmap bitmap(4, 4);
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Forget();
  for (const float opacity : {0.0F, -1.0F, NaN}) DrawEverything(canvas, bitmap, opacity);
  canvas.FillRect({0, 0, 10, 0}, 1);
  canvas.FillRect({0, 0, 10, 10}, 1, TBrush(0x00FFFFFF));
  canvas.FillRect({0, 0, 10, 10}, 1, TBrush(0xFFFFFFFF, fmx::TBrushKind::None));
  canvas.DrawLine({0, 0}, {1, 1}, 1, TStrokeBrush(0xFF000000, 0));
  canvas.DrawLine({0, 0}, {1, 1}, 1, TStrokeBrush(0xFF000000, NaN));
  canvas.FillPath({}, 1);
  canvas.DrawBitmap(bitmap, {0, 0, 0, 4}, {0, 0, 8, 8}, 1);
  canvas.DrawBitmap(bitmap, {0, 0, 4, 4}, {8, 0, 0, 8}, 1);
  canvas.DrawBitmap(bitmap, {4, 0, 9, 4}, {0, 0, 8, 8}, 1);
  canvas.DrawBitmap(fmx::TBitmap(), {0, 0, 4, 4}, {0, 0, 8, 8}, 1);
  canvas.IntersectClipRect({5, 5, 5, 5});
  DrawEverything(canvas, bitmap);
  EXPECT_TRUE(canvas.Calls().empty());
}

TEST(Canvas, PicturesOutsideOfTheClipDoNotReachTheBackEnd) {
  const fmx::TBitmap bitmap(4, 4);
  for (const float scale : {1.0F, 2.0F}) {
    TRecordingCanvas canvas(200, 200, scale);
    ASSERT_TRUE(canvas.BeginScene());
    canvas.SetMatrix(fmx::TMatrix::Translation(100, 10));
    canvas.IntersectClipRect({0, 0, 20, 20});
    const auto reaches = [&](float left, float top) {
      canvas.Forget();
      canvas.DrawBitmap(bitmap, {0, 0, 4, 4}, fmx::TRectF::FromSize({left, top}, 4, 4), 1);
      return !canvas.Calls().empty();
    };
    EXPECT_TRUE(reaches(8, 8));
    EXPECT_TRUE(reaches(-3, 8));
    EXPECT_TRUE(reaches(19, 19));
    for (const float away : {-6.0F, 22.0F, 1e6F, -1e6F}) {
      EXPECT_FALSE(reaches(away, 8)) << away;
      EXPECT_FALSE(reaches(8, away)) << away;
    }
    canvas.MultiplyMatrix(fmx::TMatrix::Translation(-50, 0));
    EXPECT_TRUE(reaches(58, 8)) << "the clip stays where it is";
    EXPECT_FALSE(reaches(8, 8));
    canvas.MultiplyMatrix(fmx::TMatrix::Rotation(0.1F));
    EXPECT_TRUE(reaches(1000, 8)) << "what is turned is left to the back end";
  }
}

TEST(Canvas, WhatIsNotFiniteDoesNotReachTheBackEnd) {
  const fmx::TBitmap bitmap(4, 4);
  for (const float bad : {NaN, Infinity, -Infinity}) {
    TRecordingCanvas canvas(100, 100);
    ASSERT_TRUE(canvas.BeginScene());
    canvas.Forget();
    canvas.FillRect({0, 0, bad, 10}, 1);
    canvas.FillRect({0, 0, bad, 10}, 1, 1, fmx::AllCorners, 1);
    canvas.DrawRect({0, bad, 1, 10}, 1, 1, fmx::AllCorners, 1);
    canvas.FillEllipse({bad, 0, 1, 10}, 1);
    canvas.DrawEllipse({bad, 0, 1, 10}, 1);
    canvas.DrawLine({0, bad}, {1, 1}, 1);
    canvas.DrawBitmap(bitmap, {0, 0, 4, bad}, {0, 0, 8, 8}, 1);
    canvas.DrawBitmap(bitmap, {0, 0, 4, 4}, {0, 0, 8, bad}, 1);
    canvas.ClearRect({0, 0, bad, 3});
    EXPECT_TRUE(canvas.Calls().empty());
    canvas.FillRect({0, 0, 10, 10}, 1);
    EXPECT_EQ(canvas.Calls().size(), 1U);
  }
}

TEST(Canvas, OpacityIsHeldAtOne) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.FillRect({0, 0, 1, 1}, 7);
  EXPECT_EQ(canvas.Calls().back().Opacity, 1);
  canvas.FillRect({0, 0, 1, 1}, 0.25F);
  EXPECT_EQ(canvas.Calls().back().Opacity, 0.25F);
}

TEST(Canvas, ABitmapsSourceOutsideOfItIsCutOffOnBothSides) {
  const fmx::TBitmap bitmap(10, 10);
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.SetModulateColor(0xFF00FF00);
  canvas.DrawBitmap(bitmap, {-5, 5, 15, 25}, {100, 100, 140, 140}, 0.5F, true);
  const TRecordedCall& call = canvas.Calls().back();
  EXPECT_EQ(call.Source, (TRectF{0, 5, 10, 10}));
  EXPECT_EQ(call.Rect, (TRectF{110, 100, 130, 110}));
  EXPECT_EQ(call.Color, 0xFF00FF00U);
  EXPECT_EQ(call.Opacity, 0.5F);
  EXPECT_TRUE(call.HighSpeed);
  EXPECT_EQ(call.Bitmap, &bitmap);
}

TEST(Canvas, ABitmapIsNotDrawnOntoItself) {
  fmx::TBitmap bitmap(10, 10);
  TRecordingCanvas canvas({fmx::TCanvasTarget::TKind::Bitmap, &bitmap, nullptr, 10, 10, 1});
  ASSERT_TRUE(canvas.BeginScene());
  canvas.DrawBitmap(bitmap, {0, 0, 5, 5}, {5, 5, 10, 10}, 1);
  EXPECT_EQ(KindsOf(canvas), std::vector<TKind>{TKind::BeginScene});
}

TEST(Canvas, ClearingRoundsToWholePixelsInsideTheTarget) {
  TRecordingCanvas canvas(100, 50, 2);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.IntersectClipRect({0, 0, 1, 1});
  canvas.Clear(0x80FFFFFF);
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{0, 0, 100, 50}));
  EXPECT_EQ(canvas.Calls().back().Color, 0x80808080U);
  canvas.ClearRect({1.3F, 2, 1000, 3});
  EXPECT_EQ(canvas.Calls().back().Rect, (TRectF{3, 4, 100, 6}));
  canvas.Forget();
  canvas.ClearRect({200, 0, 300, 10});
  EXPECT_TRUE(canvas.Calls().empty());
}

TEST(Canvas, AlignsToDevicePixelsWithHalvesToEven) {
  const TRecordingCanvas plain(100, 100);
  EXPECT_EQ(plain.AlignToPixelHorizontally(0.5F), 0);
  EXPECT_EQ(plain.AlignToPixelHorizontally(1.5F), 2);
  EXPECT_EQ(plain.AlignToPixelVertically(2.5F), 2);
  TRecordingCanvas scaled(100, 100, 1.5F);
  EXPECT_FLOAT_EQ(scaled.AlignToPixelHorizontally(1.1F), 4.0F / 3);
  scaled.SetMatrix(TMatrix::Translation(0.25F, 0));
  for (float v = -3; v < 3; v += 0.17F) {
    const float device = (scaled.AlignToPixelHorizontally(v) + 0.25F) * 1.5F;
    EXPECT_NEAR(device, std::nearbyint(device), 1e-4);
    EXPECT_NEAR(scaled.AlignToPixelHorizontally(v), v, 1.0 / 3 + 1e-4);
  }
  scaled.SetMatrix(TMatrix::Rotation(1));
  EXPECT_EQ(scaled.AlignToPixelHorizontally(0.37F), 0.37F);
  EXPECT_EQ(plain.AlignToPixelHorizontally(Infinity), Infinity);
}

TEST(Canvas, AnUnusableScaleOrSizeIsMended) {
  for (const float scale : {0.0F, -1.0F, NaN, Infinity}) {
    const TRecordingCanvas canvas(-5, 10, scale);
    EXPECT_EQ(canvas.Scale(), 1);
    EXPECT_EQ(canvas.Width(), 0);
    EXPECT_EQ(canvas.Height(), 10);
  }
}

TEST(Canvas, IsResizedOutsideOfScenesAlone) {
  TRecordingCanvas canvas(100, 100);
  ASSERT_TRUE(canvas.BeginScene());
  canvas.Resize(10, 10, 2);
  EXPECT_EQ(canvas.Width(), 100);
  canvas.EndScene();
  canvas.Resize(10, 20, 2);
  EXPECT_EQ(canvas.Width(), 5);
  EXPECT_EQ(canvas.Height(), 10);
}

// A back end with nothing but what every back end needs.
class TBareCanvas : public TCanvas {
 public:
  static constexpr int SlotCount = TCanvas::SlotCount;
  static orv::TClass Class() { return CompiledCanvas<TBareCanvas, TCanvas>("tests.Canvas", "TBareCanvas"); }
  explicit TBareCanvas(const fmx::TCanvasTarget& target, orv::TClass aClass = Class()) : TCanvas(target, aClass) {}

  void DoSetMatrix(const TMatrix&) { ++MatricesTold; }
  void DoSetClip(const fmx::TClip&) { ++ClipsTold; }
  void DoClearRect(const fmx::TRect&, fmx::TPixel) {}
  void DoFillPath(const fmx::TPathData& path, float, const TBrush&) { Filled = path; }
  void DoDrawPath(const fmx::TPathData& path, float, const TStrokeBrush&) { Drawn = path; }
  void DoDrawBitmap(const fmx::TBitmap&, const TRectF&, const TRectF&, float, bool) {}

  fmx::TPathData Filled;
  fmx::TPathData Drawn;
  int MatricesTold = 0;
  int ClipsTold = 0;
};

TEST(Canvas, ShapesThatABackEndDoesNotKnowBecomePaths) {
  TBareCanvas canvas({});
  ASSERT_TRUE(canvas.BeginScene());
  canvas.FillRect({1, 2, 3, 4}, 1);
  EXPECT_EQ(canvas.Filled, fmx::RectanglePath({1, 2, 3, 4}));
  canvas.FillEllipse({1, 2, 3, 4}, 1);
  EXPECT_EQ(canvas.Filled, fmx::EllipsePath({1, 2, 3, 4}));
  canvas.DrawLine({1, 2}, {3, 4}, 1);
  EXPECT_EQ(canvas.Drawn, fmx::LinePath({1, 2}, {3, 4}));
}

TEST(Canvas, TheBackEndIsToldOfMatrixAndClipOnceForEachChange) {
  TBareCanvas canvas({});
  ASSERT_TRUE(canvas.BeginScene());
  for (int i = 0; i < 5; ++i) canvas.FillRect({1, 2, 3, 4}, 1);
  EXPECT_EQ(canvas.MatricesTold, 1);
  EXPECT_EQ(canvas.ClipsTold, 1);
  canvas.SetMatrix(TMatrix::Translation(1, 1));
  for (int i = 0; i < 5; ++i) canvas.FillRect({1, 2, 3, 4}, 1);
  EXPECT_EQ(canvas.MatricesTold, 2);
  EXPECT_EQ(canvas.ClipsTold, 1);
  canvas.IntersectClipRect({0, 0, 9, 9});
  canvas.ExcludeClipRect({3, 3, 4, 4});
  for (int i = 0; i < 5; ++i) canvas.FillRect({1, 2, 3, 4}, 1);
  EXPECT_EQ(canvas.MatricesTold, 2);
  EXPECT_EQ(canvas.ClipsTold, 2);
}

TEST(Canvas, EveryClassKnowsItsLine) {
  EXPECT_EQ(orv::ClassName(TRecordingCanvas::Class()), "TRecordingCanvas");
  EXPECT_EQ(orv::ClassParent(TRecordingCanvas::Class()), fmx::TCustomCanvasGpu::Class());
  EXPECT_EQ(orv::ClassParent(fmx::TCustomCanvasGpu::Class()), TCanvas::Class());
  EXPECT_EQ(orv::ClassName(fmx::TCustomCanvasGpu::Class()), "TCustomCanvasGpu");
  EXPECT_TRUE(TRecordingCanvas(1, 1).InheritsFrom(TCanvas::Class()));
  EXPECT_FALSE(TBareCanvas({}).InheritsFrom(fmx::TCustomCanvasGpu::Class()));
  EXPECT_THROW(TCanvas::New(TCanvas::Class(), {}), orv::EAbstractError);
  const auto made =
      TCanvas::New(fmx::TNullCanvas::Class(), {fmx::TCanvasTarget::TKind::Measure, nullptr, nullptr, 8, 4, 2});
  EXPECT_EQ(made->ClassName(), "TNullCanvas");
  EXPECT_EQ(made->Width(), 4);
}

TEST(Canvas, TheEndOfASceneIsTheNinthOperation) {
  using TSlots = TCanvas::TSlots;
  EXPECT_EQ(TSlots::DoEndScene::Number, 8);
  EXPECT_EQ(TSlots::DoBeginScene::Number, 7);
}

}  // namespace
