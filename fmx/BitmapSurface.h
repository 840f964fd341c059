// Pixels in memory, for makers and readers of pictures.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "fmx/Colors.h"

namespace fmx {

// A grid of 32-bit pixels, 0xAARRGGBB, rows from the top without padding. It does not say whether its pixels are
// premultiplied: who makes one tells what it holds. A value type.
class TBitmapSurface {
 public:
  TBitmapSurface() = default;
  TBitmapSurface(std::int32_t width, std::int32_t height) { SetSize(width, height); }

  // All pixels become 0. A side below 1 makes it empty, 0 by 0. Raises EBitmapSizeTooBig, leaving it as it was, where
  // the size is beyond fmx/Limits.h.
  void SetSize(std::int32_t width, std::int32_t height);

  std::int32_t Width() const { return FWidth; }
  std::int32_t Height() const { return FHeight; }
  bool IsEmpty() const { return FPixels.empty(); }
  void Clear(std::uint32_t pixel);

  // The row at y; empty where there is none.
  std::span<std::uint32_t> Scanline(std::int32_t y);
  std::span<const std::uint32_t> Scanline(std::int32_t y) const;

  // All pixels, row by row.
  std::span<std::uint32_t> Pixels() { return FPixels; }
  std::span<const std::uint32_t> Pixels() const { return FPixels; }

  friend bool operator==(const TBitmapSurface&, const TBitmapSurface&) = default;

 private:
  std::int32_t FWidth = 0;
  std::int32_t FHeight = 0;
  std::vector<std::uint32_t> FPixels;
};

}  // namespace fmx
