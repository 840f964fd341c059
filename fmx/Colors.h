// Colours: 0xAARRGGBB, the colour parts not multiplied by alpha. Pixels of bitmaps are premultiplied.
#pragma once

#include <cstdint>

namespace fmx {

using TAlphaColor = std::uint32_t;
// A pixel 0xAARRGGBB whose colour parts are multiplied by alpha, so that none exceeds it.
using TPixel = std::uint32_t;

namespace TAlphaColors {
inline constexpr TAlphaColor Null = 0;
inline constexpr TAlphaColor Black = 0xFF000000;
inline constexpr TAlphaColor White = 0xFFFFFFFF;
}  // namespace TAlphaColors

constexpr std::uint32_t AlphaOf(std::uint32_t color) {
  return color >> 24;
}
constexpr std::uint32_t RedOf(std::uint32_t color) {
  return color >> 16 & 0xFF;
}
constexpr std::uint32_t GreenOf(std::uint32_t color) {
  return color >> 8 & 0xFF;
}
constexpr std::uint32_t BlueOf(std::uint32_t color) {
  return color & 0xFF;
}

// Parts above 255 lose their upper bits.
constexpr TAlphaColor MakeColor(std::uint32_t red, std::uint32_t green, std::uint32_t blue, std::uint32_t alpha = 255) {
  return (alpha & 0xFF) << 24 | (red & 0xFF) << 16 | (green & 0xFF) << 8 | (blue & 0xFF);
}

// a times b by 255, rounded to nearest; both from 0 to 255. 255 is one: MultiplyByte(a, 255) is a.
constexpr std::uint32_t MultiplyByte(std::uint32_t a, std::uint32_t b) {
  const std::uint32_t product = a * b + 128;
  return (product + (product >> 8)) >> 8;
}

constexpr TPixel Premultiply(TAlphaColor color) {
  const std::uint32_t alpha = AlphaOf(color);
  return MakeColor(MultiplyByte(RedOf(color), alpha), MultiplyByte(GreenOf(color), alpha),
                   MultiplyByte(BlueOf(color), alpha), alpha);
}

// The colour that gives the pixel; transparent black where nothing is left of it. A pixel that is no premultiplied one
// (a part exceeds alpha) gives parts of at most 255.
constexpr TAlphaColor Unpremultiply(TPixel pixel) {
  const std::uint32_t alpha = AlphaOf(pixel);
  if (alpha == 0) return 0;
  const auto part = [alpha](std::uint32_t value) {
    const std::uint32_t whole = (value * 255 + alpha / 2) / alpha;
    return whole > 255 ? 255 : whole;
  };
  return MakeColor(part(RedOf(pixel)), part(GreenOf(pixel)), part(BlueOf(pixel)), alpha);
}

// The colour with its alpha times the opacity, which is held between 0 and 1; what is no number counts as 0.
constexpr TAlphaColor MakeOpacity(TAlphaColor color, float opacity) {
  const float held = opacity > 0 ? (opacity < 1 ? opacity : 1.0F) : 0.0F;
  // Never negative, so adding a half rounds it; std::lround is no constant expression.
  const auto alpha = static_cast<std::uint32_t>(static_cast<float>(AlphaOf(color)) * held +
                                                0.5F);  // NOLINT(bugprone-incorrect-roundings)
  return alpha << 24 | (color & 0xFFFFFF);
}

}  // namespace fmx
