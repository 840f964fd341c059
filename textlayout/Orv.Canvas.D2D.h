// The system under a canvas whose texts the operating system's engine lays out in device-independent units: the
// framework's layout stays, but takes its direction from the text, and clicks by rules that suit text of both
// directions.
#pragma once

#include <cstdint>

#include "fmx/TextLayout.h"
#include "runtime/RewritableClass.h"

namespace orv {

// The replacements; no object is made of it.
class TTextLayoutD2DOrvFake : public fmx::TTextLayout {
 public:
  TTextLayoutD2DOrvFake() = delete;
  static constexpr int SlotCount = fmx::TTextLayout::SlotCount;
  static TClass Class();

  // Sets the direction (Orv.TextLayout.h), and renders as the wrapped class does.
  static void DoRenderLayout(fmx::TTextLayout& self);

  // The position at the point: what the native layout finds there, or the next one from three fifths of the character
  // on, seen in its direction; never inside a surrogate pair. 0 just left of the text, at the height of its lines; -1
  // elsewhere outside, and while there is no native layout. A layout that is no fmx::TNativeTextLayout answers as its
  // own class does.
  static std::int32_t DoPositionAtPoint(fmx::TTextLayout& self, fmx::TPointF point);
};

namespace d2d {

// Makes the patched class out of the layout class and registers it for the canvas class: see RegisterPatchedLayout.
void RegisterTextLayout(TClass canvasClass, TClass layoutClass);

}  // namespace d2d
}  // namespace orv
