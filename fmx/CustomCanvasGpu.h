// Canvases that draw pictures of glyphs out of shared textures.
#pragma once

#include "fmx/Canvas.h"

namespace fmx {

// A canvas whose DrawBitmap multiplies each pixel of the bitmap, part by part, by the modulate colour. Glyphs lie in
// textures as white pixels with their coverage as alpha, premultiplied, so that one texture serves every colour of
// text. The default back end derives from this class and is registered under the name "TCanvasGpu".
class TCustomCanvasGpu : public TCanvas {
 public:
  static constexpr int SlotCount = TCanvas::SlotCount;
  static orv::TClass Class();

  // White, which changes nothing, at first. It is not part of the saved state.
  TAlphaColor ModulateColor() const { return FModulateColor; }
  void SetModulateColor(TAlphaColor color) { FModulateColor = color; }

 protected:
  TCustomCanvasGpu(const TCanvasTarget& target, orv::TClass aClass) : TCanvas(target, aClass) {}

 private:
  TAlphaColor FModulateColor = TAlphaColors::White;
};

}  // namespace fmx
