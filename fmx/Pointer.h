// The pointer and gestures, on their way from a platform to a control.
#pragma once

#include <cstdint>

#include "fmx/Geometry.h"
#include "fmx/Keys.h"
#include "rtl/Sets.h"

namespace fmx {

enum class TMouseButton : std::uint8_t { Left, Right, Middle };

// A press, a move or a release. For a move the button says nothing.
struct TMouseEvent {
  TMouseButton Button = TMouseButton::Left;
  TShiftState Shift;
  TPointF Point;             // in the control's coordinates
  bool DoubleClick = false;  // the second press of two in short time
};

// A turn of the wheel.
struct TWheelEvent {
  TShiftState Shift;
  TPointF Point;    // in the control's coordinates
  float Steps = 0;  // away from the person is positive
};

// What the pointer looks like over a control, by the numbers of the shapes. Default: that of the control behind it.
enum class TCursor : std::int16_t { Default = 0, Arrow = -2, IBeam = -4, HandPoint = -21 };

// Gestures that controls know, by their numbers.
using TGestureId = std::uint16_t;
inline constexpr TGestureId PanGesture = 260;
inline constexpr TGestureId LongTapGesture = 264;
inline constexpr TGestureId DoubleTapGesture = 265;

enum class TGestureFlag : std::uint8_t { Begin, Inertia, End };
using TGestureFlags = rtl::TSet<TGestureFlag, std::uint8_t>;

struct TGestureEvent {
  TGestureId Id = 0;
  TPointF Location;  // in the coordinates of the root
  TGestureFlags Flags;
};

enum class TInteractiveGesture : std::uint8_t { Pan, LongTap, DoubleTap };
using TInteractiveGestures = rtl::TSet<TInteractiveGesture, std::uint8_t>;

}  // namespace fmx
