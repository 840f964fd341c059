// The system under a canvas whose texts the operating system's older engine lays out: the framework's layout stays, but
// takes its direction from the text.
#pragma once

#include "fmx/TextLayout.h"
#include "runtime/RewritableClass.h"
#include "textlayout/Orv.TextLayout.h"

namespace orv {

// The replacements; no object is made of it.
class TTextLayoutGDIPlusOrvFake : public fmx::TTextLayout {
 public:
  TTextLayoutGDIPlusOrvFake() = delete;
  static constexpr int SlotCount = fmx::TTextLayout::SlotCount;
  static TClass Class();

  // Sets the direction (Orv.TextLayout.h), and renders as the wrapped class does.
  static void DoRenderLayout(fmx::TTextLayout& self);

  // Takes the added fields back to zeros. For those who look at them in a debugger; nothing calls it.
  static void Dummy(TPatchedLayoutFields& fields) { fields = {}; }
};

namespace gdip {

// Makes the patched class out of the layout class and registers it for the canvas class: see RegisterPatchedLayout.
void RegisterTextLayout(TClass canvasClass, TClass layoutClass);

}  // namespace gdip
}  // namespace orv
