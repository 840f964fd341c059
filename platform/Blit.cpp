#include "platform/Blit.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/PixelPair.h"

namespace orv::platform {
namespace {

using fmx::TBitmapSurface;
using fmx::TPixel;
using fmx::TPoint;
using fmx::TRect;

// Two parts of a pixel side by side, so that both are computed at once without running into each other.
constexpr std::uint32_t EvenParts = 0x00FF00FF;

// MultiplyByte of all four parts by one byte.
constexpr TPixel Faded(TPixel pixel, std::uint32_t by) {
  std::uint32_t even = (pixel & EvenParts) * by + 0x00800080;
  std::uint32_t odd = (pixel >> 8 & EvenParts) * by + 0x00800080;
  even = (even + (even >> 8 & EvenParts)) >> 8 & EvenParts;
  odd = (odd + (odd >> 8 & EvenParts)) & ~EvenParts;
  return even | odd;
}

// The second's share is that many 256ths, rounded to nearest.
constexpr TPixel Mixed(TPixel a, TPixel b, std::uint32_t share) {
  const std::uint32_t rest = 256 - share;
  const std::uint32_t even = ((a & EvenParts) * rest + (b & EvenParts) * share + 0x00800080) >> 8 & EvenParts;
  const std::uint32_t odd = ((a >> 8 & EvenParts) * rest + (b >> 8 & EvenParts) * share + 0x00800080) & ~EvenParts;
  return even | odd;
}

void Over(TPixel& below, TPixel above) {
  below = above + Faded(below, 255 - fmx::AlphaOf(above));
}

TRect Cut(const TRect& a, const TRect& b) {
  return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right), std::min(a.Bottom, b.Bottom)};
}

TRect Whole(const TBitmapSurface& surface) {
  return {0, 0, surface.Width(), surface.Height()};
}

// What of the target is drawn on, and where the source's origin lies there.
struct TOverlap {
  TRect Area;
  TPoint Origin;
};

TOverlap Overlap(const TBitmapSurface& target, const TRect& clip, const TRect& part, TPoint at, int reach) {
  const TRect covered{at.X, at.Y, at.X + part.Width() + reach, at.Y + part.Height() + reach};
  return {Cut(Cut(clip, Whole(target)), covered), {at.X - part.Left, at.Y - part.Top}};
}

// The part inside the source; the place moves along with its corner.
TRect CutPart(const TBitmapSurface& source, const TRect& part, TPoint& at) {
  const TRect cut = Cut(part, Whole(source));
  at.X += cut.Left - part.Left;
  at.Y += cut.Top - part.Top;
  return cut;
}

std::uint64_t Both(const TPixel* pixels) {
  std::uint64_t both = 0;
  std::memcpy(&both, pixels, sizeof both);
  return both;
}

// Most of a glyph's picture is empty.
void BlitRow(TPixel* target, const TPixel* source, std::int32_t count, TPixel tint) {
  const TPixelPair tints = TPixelPair::Twice(tint);
  std::int32_t i = 0;
  for (; i + 1 < count; i += 2) {
    if (Both(source + i) == 0) continue;
    const TPixelPair above = TPixelPair::Load(source + i) * tints;
    (above + TPixelPair::Load(target + i) * above.Transparency()).Store(target + i);
  }
  if (i < count && source[i] != 0) Over(target[i], Tinted(source[i], tint));
}

// One target row between two source rows, either of which may be absent (null).
class TRowBetween {
 public:
  TRowBetween(const TPixel* above, const TPixel* row, const TRect& part, std::uint32_t share)
      : FAbove(above), FRow(row), FPart(part), FShare(share) {}

  TPixel Column(std::int32_t x) const {
    if (x < FPart.Left || x >= FPart.Right) return 0;
    return Mixed(FRow != nullptr ? FRow[x] : 0, FAbove != nullptr ? FAbove[x] : 0, FShare);
  }

 private:
  const TPixel* FAbove;
  const TPixel* FRow;
  const TRect& FPart;
  std::uint32_t FShare;
};

const TPixel* RowIn(const TBitmapSurface& source, const TRect& part, std::int32_t y) {
  return y >= part.Top && y < part.Bottom ? source.Scanline(y).data() : nullptr;
}

}  // namespace

void Blit(TBitmapSurface& target, const TRect& clip, const TBitmapSurface& source, const TRect& part, TPoint at,
          TPixel tint) {
  const TRect inside = CutPart(source, part, at);
  if (inside.IsEmpty()) return;
  const auto [area, origin] = Overlap(target, clip, inside, at, 0);
  if (area.IsEmpty()) return;
  for (std::int32_t y = area.Top; y < area.Bottom; ++y)
    BlitRow(target.Scanline(y).data() + area.Left, source.Scanline(y - origin.Y).data() + (area.Left - origin.X),
            area.Width(), tint);
}

void BlitBetween(TBitmapSurface& target, const TRect& clip, const TBitmapSurface& source, const TRect& part,
                 const TFinePlace& at, TPixel tint) {
  TPoint corner = at.Pixel;
  const TRect inside = CutPart(source, part, corner);
  if (inside.IsEmpty()) return;
  const auto [area, origin] = Overlap(target, clip, inside, corner, 1);
  if (area.IsEmpty()) return;
  for (std::int32_t y = area.Top; y < area.Bottom; ++y) {
    const std::int32_t row = y - origin.Y;
    const TRowBetween between(RowIn(source, inside, row - 1), RowIn(source, inside, row), inside, at.FractionY);
    TPixel* pixel = target.Scanline(y).data() + area.Left;
    TPixel left = between.Column(area.Left - origin.X - 1);
    for (std::int32_t x = area.Left; x < area.Right; ++x, ++pixel) {
      const TPixel here = between.Column(x - origin.X);
      const TPixel mixed = Mixed(here, left, at.FractionX);
      if (mixed != 0) Over(*pixel, Tinted(mixed, tint));
      left = here;
    }
  }
}

}  // namespace orv::platform
