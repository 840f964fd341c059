#include "fmx/BitmapSurface.h"

#include <algorithm>
#include <cstddef>

#include "fmx/Exceptions.h"
#include "fmx/Limits.h"

namespace fmx {

void TBitmapSurface::SetSize(std::int32_t width, std::int32_t height) {
  if (width < 1 || height < 1) width = height = 0;
  if (width > MaxBitmapSide || height > MaxBitmapSide || std::int64_t{width} * height > MaxBitmapPixels) {
    throw EBitmapSizeTooBig("Bitmap size too big");
  }
  FPixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  FWidth = width;
  FHeight = height;
}

void TBitmapSurface::Clear(std::uint32_t pixel) {
  std::fill(FPixels.begin(), FPixels.end(), pixel);
}

namespace {

template <typename TPixels>
auto Row(TPixels& pixels, std::int32_t y, std::int32_t width, std::int32_t height) -> decltype(std::span(pixels)) {
  if (y < 0 || y >= height) return {};
  const auto count = static_cast<std::size_t>(width);
  return std::span(pixels).subspan(static_cast<std::size_t>(y) * count, count);
}

}  // namespace

std::span<std::uint32_t> TBitmapSurface::Scanline(std::int32_t y) {
  return Row(FPixels, y, FWidth, FHeight);
}

std::span<const std::uint32_t> TBitmapSurface::Scanline(std::int32_t y) const {
  return Row(FPixels, y, FWidth, FHeight);
}

}  // namespace fmx
