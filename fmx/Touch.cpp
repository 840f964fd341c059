#include "fmx/Touch.h"

#include <cmath>
#include <utility>

namespace fmx {
namespace {

TMouseEvent At(TPointF point) {
  TMouseEvent event;
  event.Point = point;
  return event;
}

}  // namespace

TTouch::TTouch(TForm& form) : FForm(form) {
  FLongTap.SetInterval(LongTapTime);
  FLongTap.OnTimer = [this] { Rested(); };
  FTogether.SetInterval(DoubleTapTime);
  FTogether.OnTimer = [this] { FTogether.SetEnabled(false); };
}

bool TTouch::IsNear(TPointF a, TPointF b) const {
  return std::abs(a.X - b.X) <= Slop && std::abs(a.Y - b.Y) <= Slop;
}

void TTouch::Down(TPointF point) {
  if (FState != TState::Away) return;
  FState = TState::Resting;
  FStart = FPlace = point;
  FLongTap.SetEnabled(false);
  FLongTap.SetEnabled(true);
}

void TTouch::Move(TPointF point) {
  if (FState == TState::Away) return;
  FPlace = point;
  if (FState == TState::Resting && !IsNear(point, FStart)) {
    FLongTap.SetEnabled(false);
    FState = TState::Dragging;
    FForm.MouseDown(At(FStart));
  }
  if (FState != TState::Resting) FForm.MouseMove(At(point));
}

void TTouch::Rested() {
  FLongTap.SetEnabled(false);
  if (FState != TState::Resting) return;
  FState = TState::LongTapping;
  FForm.Gesture({LongTapGesture, FPlace, {TGestureFlag::Begin}});
  FForm.MouseMove(At(FPlace));  // the caret goes there
}

void TTouch::Up(TPointF point) {
  FPlace = point;
  FLongTap.SetEnabled(false);
  switch (std::exchange(FState, TState::Away)) {
    case TState::Away:
      return;
    case TState::Resting:
      return Tap();
    case TState::Dragging:
      return FForm.MouseUp(At(point));
    case TState::LongTapping:
      FForm.Gesture({LongTapGesture, point, {TGestureFlag::End}});
      if (TControl* const control = FForm.ControlAt(FStart)) {
        TMouseEvent event = At(control->AbsoluteToLocal(point));
        control->MouseUp(event);
      }
  }
}

void TTouch::Tap() {
  const bool second = FTogether.Enabled() && IsNear(FStart, FLastTap);
  FTogether.SetEnabled(false);
  FForm.MouseDown(At(FStart));
  FForm.MouseUp(At(FStart));
  if (second) return FForm.Gesture({DoubleTapGesture, FStart, {}});
  FLastTap = FStart;
  FTogether.SetEnabled(true);
}

}  // namespace fmx
