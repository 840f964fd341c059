// Shapes text by HarfBuzz. For files of this folder alone.
#pragma once

#include <memory>

#include "fmx/ShapedText.h"
#include "platform/Faces.h"
#include "platform/FontGlyphs.h"

namespace orv::platform {

// One font with those that help it out, at one size.
class TShaper {
 public:
  TShaper(const TFontCatalog& catalog, const fmx::TFontWanted& font, const TFontChain& chain);
  ~TShaper();

  fmx::TShapedText Shape(const fmx::TShapeRequest& request);

 private:
  struct TState;
  std::unique_ptr<TState> FState;
};

}  // namespace orv::platform
