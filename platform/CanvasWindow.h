// Where the picture of a window canvas goes.
#pragma once

#include "fmx/Bitmap.h"
#include "fmx/BitmapSurface.h"
#include "fmx/Canvas.h"

namespace orv::platform {

// What this platform's window layer hands to canvases: the Window of their target points to one. A canvas that draws in
// memory presents its pixels; one that draws by the graphics card asks by dynamic_cast for the derived class that has
// what it needs, and refuses scenes where it is another one.
class TCanvasWindow {
 public:
  virtual ~TCanvasWindow() = default;

  // Shows the pixels, premultiplied and seen before black, at the window's upper left corner. Only those in the changed
  // rectangle, which lies inside and is not empty, differ from the last ones shown. The pixels are read during the
  // call alone. May raise EWindowError.
  virtual void Present(const fmx::TBitmapSurface& pixels, const fmx::TRect& changed) = 0;

  // A target for TCanvas::New or TCanvasManager. The window is borrowed and outlives the canvas.
  fmx::TCanvasTarget Target(std::int32_t pixelWidth, std::int32_t pixelHeight, float scale) {
    return {fmx::TCanvasTarget::TKind::Window, nullptr, this, pixelWidth, pixelHeight, scale};
  }

 protected:
  TCanvasWindow() = default;
  TCanvasWindow(const TCanvasWindow&) = default;
  TCanvasWindow& operator=(const TCanvasWindow&) = default;
};

// A window that nobody sees: keeps what was presented.
class THeadlessWindow : public TCanvasWindow {
 public:
  void Present(const fmx::TBitmapSurface& pixels, const fmx::TRect& changed) override {
    FShown = pixels;
    FChanged = changed;
    ++FCount;
  }

  const fmx::TBitmapSurface& Shown() const { return FShown; }  // empty at first
  const fmx::TRect& Changed() const { return FChanged; }       // of the last call
  int Count() const { return FCount; }                         // of the calls

 private:
  fmx::TBitmapSurface FShown;
  fmx::TRect FChanged;
  int FCount = 0;
};

}  // namespace orv::platform
