// One picture with everything that a canvas can draw.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "fmx/Bitmap.h"
#include "fmx/Canvas.h"
#include "fmx/CustomCanvasGpu.h"
#include "fmx/GuillotineBinPack.h"
#include "platform/GlyphSource.h"

namespace orv::platform {

// Glyphs of one font and scale in a shared texture, as layouts keep them: premultiplied white, with a gap of a pixel.
class TGlyphTexture {
 public:
  struct TPlace {
    fmx::TRectF Source;   // in the texture, pixels
    fmx::TPointF Origin;  // from the pen on the base line, pixels
    float Advance = 0;    // pixels
  };

  // Code points that are not in a string the texture was made with are blank.
  TGlyphTexture(std::u32string_view letters, double pixelSize);

  const fmx::TBitmap& Bitmap() const { return FBitmap; }
  TPlace Place(char32_t letter) const;

 private:
  fmx::TBitmap FBitmap;
  fmx::TGuillotineBinPack FPack;
  std::unordered_map<char32_t, TPlace> FPlaces;
};

// The card's size in logical units.
inline constexpr std::int32_t TestCardWidth = 480;
inline constexpr std::int32_t TestCardHeight = 360;

// What the card can leave out, to show that its picture tells.
struct TTestCardOptions {
  bool Clips = true;
  bool Modulated = true;
  fmx::TStrokeDash FirstDash = fmx::TStrokeDash::Solid;
};

// The pinned test fonts' glyphs that the card shows, for a canvas of that scale.
TGlyphTexture TestCardGlyphs(float scale);

// Draws the card in a scene of its own; false where the canvas has none. A registered default canvas draws the bitmaps.
bool DrawTestCard(fmx::TCustomCanvasGpu& canvas, const TGlyphTexture& glyphs, const TTestCardOptions& options = {});

}  // namespace orv::platform
