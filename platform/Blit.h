// Pictures put on pixels without turning or scaling them: how glyphs are drawn.
#pragma once

#include <cstdint>

#include "fmx/BitmapSurface.h"
#include "fmx/Colors.h"
#include "fmx/Geometry.h"

namespace orv::platform {

// A place in 256ths of a pixel, in each way; the fractions are from 0 to 255.
struct TFinePlace {
  fmx::TPoint Pixel;
  std::uint32_t FractionX = 0;
  std::uint32_t FractionY = 0;
};

// The pixel's parts each times that of the tint by 255, rounded to nearest.
constexpr fmx::TPixel Tinted(fmx::TPixel pixel, fmx::TPixel tint) {
  const auto part = [&](int shift) { return fmx::MultiplyByte(pixel >> shift & 0xFF, tint >> shift & 0xFF) << shift; };
  return part(24) | part(16) | part(8) | part(0);
}

// Draws the part of the source over the target, its upper left corner at the place, each pixel tinted; nothing outside
// of the clip changes. All pixels and the tint are premultiplied; others give wrong colours. The part is cut to the
// source and the clip to the target. Surfaces are different ones. Coordinates are pixels, held between -2^29 and 2^29
// by the caller.
void Blit(fmx::TBitmapSurface& target, const fmx::TRect& clip, const fmx::TBitmapSurface& source,
          const fmx::TRect& part, fmx::TPoint at, fmx::TPixel tint);

// The same between the pixels: a target pixel takes the shares of the four that lie on it, and what surrounds the part
// is transparent. The picture so reaches one pixel further to the right and down.
void BlitBetween(fmx::TBitmapSurface& target, const fmx::TRect& clip, const fmx::TBitmapSurface& source,
                 const fmx::TRect& part, const TFinePlace& at, fmx::TPixel tint);

}  // namespace orv::platform
