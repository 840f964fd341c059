#include "fmx/Caret.h"

#include <gtest/gtest.h>

#include <memory>

#include "fmx/RecordingCanvas.h"

namespace {

using fmx::TCustomCaret;
using fmx::TTimer;

TEST(Timer, FiresAsOftenAsItsIntervalPasses) {
  TTimer timer;
  int fired = 0;
  timer.OnTimer = [&] { ++fired; };
  timer.SetInterval(100);
  TTimer::Advance(1000);
  EXPECT_EQ(fired, 0) << "off at first";
  timer.SetEnabled(true);
  TTimer::Advance(99);
  EXPECT_EQ(fired, 0);
  EXPECT_EQ(TTimer::NextIn(), 1);
  TTimer::Advance(1);
  EXPECT_EQ(fired, 1);
  TTimer::Advance(350);
  EXPECT_EQ(fired, 4);
  timer.SetInterval(0);
  TTimer::Advance(1000);
  EXPECT_EQ(fired, 4);
  EXPECT_EQ(TTimer::NextIn(), -1);
}

TEST(Timer, MayBeMadeAndFreedWhileOthersFire) {
  auto first = std::make_unique<TTimer>();
  auto second = std::make_unique<TTimer>();
  std::unique_ptr<TTimer> third;
  int fired = 0;
  first->SetInterval(10);
  first->SetEnabled(true);
  second->SetInterval(10);
  second->SetEnabled(true);
  second->OnTimer = [&] { ++fired; };
  first->OnTimer = [&] {
    second = nullptr;
    third = std::make_unique<TTimer>();
    third->SetInterval(1);
    third->SetEnabled(true);
    third->OnTimer = [&] { ++fired; };
  };
  TTimer::Advance(10);
  EXPECT_EQ(fired, 0);
  TTimer::Advance(1);
  EXPECT_EQ(fired, 1);
}

TEST(Caret, BlinksWhileItIsShownAndLightsUpWhenItMoves) {
  TCustomCaret caret;
  EXPECT_FALSE(caret.IsSeen());
  caret.SetVisible(true);
  EXPECT_TRUE(caret.IsSeen());
  TTimer::Advance(TCustomCaret::BlinkInterval);
  EXPECT_FALSE(caret.IsSeen());
  TTimer::Advance(TCustomCaret::BlinkInterval);
  EXPECT_TRUE(caret.IsSeen());
  TTimer::Advance(TCustomCaret::BlinkInterval);
  caret.SetPosition({5, 0});
  EXPECT_TRUE(caret.IsSeen());
  caret.SetTemporarilyHidden(true);
  EXPECT_FALSE(caret.IsShown());
  caret.SetTemporarilyHidden(false);
  caret.SetReadOnly(true);
  EXPECT_FALSE(caret.IsShown());
}

TEST(Caret, TellsABracketOfChangesOnce) {
  TCustomCaret caret;
  int repaints = 0;
  caret.OnRepaint = [&] { ++repaints; };
  caret.BeginUpdate();
  caret.SetPosition({1, 2});
  caret.SetSize({1, 20});
  caret.EndUpdate();
  EXPECT_EQ(repaints, 1);
  caret.SetPosition({1, 2});
  EXPECT_EQ(repaints, 1);
}

TEST(Caret, IsDrawnInItsOwnColourOrThatOfItsStyle) {
  TCustomCaret caret;
  EXPECT_EQ(caret.GetFlasher().GetColor(), fmx::TAlphaColors::Black);
  caret.SetDefaultColor(0xFF0000FF);
  EXPECT_EQ(caret.GetFlasher().GetColor(), 0xFF0000FF);
  caret.SetColor(0xFF00FF00);
  caret.SetPosition({3, 4});
  caret.SetSize({1, 20});
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  caret.Paint(canvas, 1);
  EXPECT_TRUE(canvas.CallsOf(fmx::TRecordedCall::TKind::FillRect).empty()) << "not shown";
  caret.SetVisible(true);
  caret.Paint(canvas, 1);
  canvas.EndScene();
  const auto fills = canvas.CallsOf(fmx::TRecordedCall::TKind::FillRect);
  ASSERT_EQ(fills.size(), 1U);
  EXPECT_EQ(fills[0].Rect, (fmx::TRectF{3, 4, 4, 24}));
  EXPECT_EQ(fills[0].Color, 0xFF00FF00);
}

}  // namespace
