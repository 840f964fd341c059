// Pictures put on pixels, against the plain rule written part by part.
#include "platform/Blit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace orv::platform {
namespace {

using fmx::TBitmapSurface;
using fmx::TPixel;
using fmx::TRect;

class TRandom {
 public:
  explicit TRandom(std::uint64_t seed) : FState(seed) {}
  std::uint32_t Below(std::uint32_t limit) {
    FState = FState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>((FState >> 33) % limit);
  }
  int Between(int low, int high) { return low + static_cast<int>(Below(static_cast<std::uint32_t>(high - low + 1))); }
  TPixel Pixel() {
    const std::uint32_t color = Below(1U << 30) * 4 + Below(4);
    return fmx::Premultiply(color);
  }

 private:
  std::uint64_t FState;
};

// Empty pixels, greys as glyphs have them, and colours.
TBitmapSurface Picture(TRandom& random, int width, int height) {
  TBitmapSurface surface(width, height);
  for (TPixel& pixel : surface.Pixels()) {
    const auto kind = random.Below(4);
    pixel = kind == 0 ? 0 : kind == 1 ? random.Below(256) * 0x01010101U : kind == 2 ? 0xFFFFFFFF : random.Pixel();
  }
  return surface;
}

int Part(TPixel pixel, int shift) {
  return static_cast<int>(pixel >> shift & 0xFF);
}

TPixel PlainOver(TPixel below, TPixel above, TPixel tint) {
  TPixel result = 0;
  const TPixel tinted = Tinted(above, tint);
  for (const int shift : {24, 16, 8, 0}) {
    const std::uint32_t kept = fmx::MultiplyByte(below >> shift & 0xFF, 255 - fmx::AlphaOf(tinted));
    result |= ((tinted >> shift & 0xFF) + kept) << shift;
  }
  return result;
}

bool Inside(const TRect& r, int x, int y) {
  return x >= r.Left && x < r.Right && y >= r.Top && y < r.Bottom;
}

TRect RandomRect(TRandom& random, int low, int high) {
  const int left = random.Between(low, high);
  const int top = random.Between(low, high);
  return {left, top, random.Between(left, high), random.Between(top, high)};
}

TEST(Blit, TintsAndLaysOverAsThePlainRuleSays) {
  TRandom random(1);
  for (int round = 0; round < 3000; ++round) {
    const TBitmapSurface source = Picture(random, random.Between(1, 12), random.Between(1, 9));
    const TBitmapSurface before = Picture(random, random.Between(1, 14), random.Between(1, 10));
    const TRect part = RandomRect(random, -3, 14);
    const TRect clip = RandomRect(random, -3, 14);
    const fmx::TPoint at{random.Between(-12, 14), random.Between(-12, 14)};
    const TPixel tint = random.Below(3) == 0 ? fmx::TAlphaColors::White : random.Pixel();
    TBitmapSurface target = before;
    Blit(target, clip, source, part, at, tint);
    for (int y = 0; y < target.Height(); ++y)
      for (int x = 0; x < target.Width(); ++x) {
        const int sourceX = x - at.X + part.Left;
        const int sourceY = y - at.Y + part.Top;
        TPixel expected = before.Scanline(y)[static_cast<std::size_t>(x)];
        if (Inside(clip, x, y) && Inside(part, sourceX, sourceY) &&
            Inside({0, 0, source.Width(), source.Height()}, sourceX, sourceY))
          expected = PlainOver(expected, source.Scanline(sourceY)[static_cast<std::size_t>(sourceX)], tint);
        ASSERT_EQ(target.Scanline(y)[static_cast<std::size_t>(x)], expected) << round << ": " << x << ", " << y;
      }
  }
}

TEST(Blit, KeepsPixelsPremultiplied) {
  TRandom random(2);
  for (int round = 0; round < 500; ++round) {
    TBitmapSurface target = Picture(random, 8, 8);
    const TBitmapSurface source = Picture(random, 8, 8);
    if (round % 2 == 0) {
      Blit(target, {0, 0, 8, 8}, source, {0, 0, 8, 8}, {0, 0}, random.Pixel());
    } else {
      BlitBetween(target, {0, 0, 8, 8}, source, {0, 0, 8, 8}, {{0, 0}, random.Below(256), random.Below(256)},
                  random.Pixel());
    }
    for (const TPixel pixel : target.Pixels())
      ASSERT_LE(std::max({fmx::RedOf(pixel), fmx::GreenOf(pixel), fmx::BlueOf(pixel)}), fmx::AlphaOf(pixel));
  }
}

// Every cover of a full glyph pixel with every colour part: white, black and the greys come out exact.
TEST(Blit, AFullPixelOfAGlyphIsTheTintItself) {
  for (std::uint32_t value = 0; value < 256; ++value) {
    TBitmapSurface source(1, 1);
    source.Clear(0xFFFFFFFF);
    TBitmapSurface target(1, 1);
    target.Clear(0xFF808080);
    const TPixel tint = 0xFF000000 | value * 0x010101U;
    Blit(target, {0, 0, 1, 1}, source, {0, 0, 1, 1}, {0, 0}, tint);
    EXPECT_EQ(target.Pixels()[0], tint);
  }
}

TEST(BlitBetween, AtWholePixelsIsTheSameAsBlit) {
  TRandom random(3);
  for (int round = 0; round < 500; ++round) {
    const TBitmapSurface source = Picture(random, 7, 6);
    TBitmapSurface a = Picture(random, 12, 12);
    TBitmapSurface b = a;
    const fmx::TPoint at{random.Between(-4, 10), random.Between(-4, 10)};
    const TPixel tint = random.Pixel();
    Blit(a, {1, 1, 11, 11}, source, {0, 0, 7, 6}, at, tint);
    BlitBetween(b, {1, 1, 11, 11}, source, {0, 0, 7, 6}, {at, 0, 0}, tint);
    ASSERT_EQ(a, b) << round;
  }
}

// The shares by real numbers, on a transparent target, white tint.
TEST(BlitBetween, GivesEachPixelTheSharesThatLieOnIt) {
  TRandom random(4);
  for (int round = 0; round < 500; ++round) {
    const TBitmapSurface source = Picture(random, 5, 5);
    const std::uint32_t fx = random.Below(256);
    const std::uint32_t fy = random.Below(256);
    TBitmapSurface target(8, 8);
    BlitBetween(target, {0, 0, 8, 8}, source, {0, 0, 5, 5}, {{1, 1}, fx, fy}, fmx::TAlphaColors::White);
    const auto at = [&](int x, int y, int shift) {
      return x < 0 || y < 0 || x > 4 || y > 4 ? 0 : Part(source.Scanline(y)[static_cast<std::size_t>(x)], shift);
    };
    const double u = fx / 256.0;
    const double v = fy / 256.0;
    for (int y = 0; y < 8; ++y)
      for (int x = 0; x < 8; ++x)
        for (const int shift : {24, 16, 8, 0}) {
          const double expected = (1 - v) * ((1 - u) * at(x - 1, y - 1, shift) + u * at(x - 2, y - 1, shift)) +
                                  v * ((1 - u) * at(x - 1, y - 2, shift) + u * at(x - 2, y - 2, shift));
          ASSERT_NEAR(Part(target.Scanline(y)[static_cast<std::size_t>(x)], shift), expected, 1.01);
        }
  }
}

// What is outside of the part is not seen, even where the source goes on.
TEST(BlitBetween, DoesNotBleed) {
  TBitmapSurface source(6, 6);
  source.Clear(0xFFFF0000);
  for (int y = 2; y < 4; ++y)
    for (std::size_t x = 2; x < 4; ++x) source.Scanline(y)[x] = 0xFF0000FF;
  TBitmapSurface target(6, 6);
  BlitBetween(target, {0, 0, 6, 6}, source, {2, 2, 4, 4}, {{1, 1}, 128, 128}, fmx::TAlphaColors::White);
  for (const TPixel pixel : target.Pixels()) EXPECT_EQ(fmx::RedOf(pixel), 0U);
}

TEST(BlitBetween, KeepsToItsClip) {
  TRandom random(5);
  for (int round = 0; round < 500; ++round) {
    const TBitmapSurface source = Picture(random, 6, 6);
    const TBitmapSurface before = Picture(random, 10, 10);
    const TRect clip = RandomRect(random, -2, 12);
    const TFinePlace at{{random.Between(-7, 10), random.Between(-7, 10)}, random.Below(256), random.Below(256)};
    TBitmapSurface target = before;
    TBitmapSurface free = before;
    BlitBetween(target, clip, source, {0, 0, 6, 6}, at, 0xFF40C080);
    BlitBetween(free, {0, 0, 10, 10}, source, {0, 0, 6, 6}, at, 0xFF40C080);
    for (int y = 0; y < 10; ++y)
      for (int x = 0; x < 10; ++x) {
        const auto i = static_cast<std::size_t>(x);
        ASSERT_EQ(target.Scanline(y)[i], Inside(clip, x, y) ? free.Scanline(y)[i] : before.Scanline(y)[i]);
      }
  }
}

}  // namespace
}  // namespace orv::platform
