// The fonts of a page.
#pragma once

#include <string>

#include "platform/FontCatalog.h"
#include "platform/GlyphSource.h"
#include "tools/orv/show/Layout.h"

namespace orv::show {

struct TFontSettings {
  std::string Family;     // empty: a book face for each script
  double PointSize = 18;  // a point is 4/3 of a pixel
};

// The glyphs of a page's two faces. The catalog is borrowed. Raises platform::EFontNotFound for an unknown family.
class TPageFonts {
 public:
  TPageFonts(const platform::TFontCatalog& catalog, const TFontSettings& settings);

  // Borrowed from this object, which must not move meanwhile.
  TFaces Faces() { return {{&FText, FTextSize}, {&FTitle, FTitleSize}}; }

 private:
  double FTextSize;
  double FTitleSize;
  platform::TGlyphSource FText;
  platform::TGlyphSource FTitle;
};

}  // namespace orv::show
