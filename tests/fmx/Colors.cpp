#include "fmx/Colors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

static_assert(fmx::MakeColor(0x12, 0x34, 0x56, 0x78) == 0x78123456);
static_assert(fmx::MakeColor(1, 2, 3) == 0xFF010203);

TEST(Colors, BytesAreMultipliedAsNumbersFromZeroToOne) {
  for (std::uint32_t a = 0; a < 256; ++a) {
    for (std::uint32_t b = 0; b < 256; ++b) {
      ASSERT_EQ(fmx::MultiplyByte(a, b), static_cast<std::uint32_t>(std::lround(a * b / 255.0))) << a << " " << b;
    }
  }
}

TEST(Colors, PremultipliedPartsNeverExceedAlphaAndGoBackToWhatGivesThem) {
  for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
    for (std::uint32_t part = 0; part < 256; ++part) {
      const fmx::TPixel pixel = fmx::Premultiply(fmx::MakeColor(part, 255 - part, 0, alpha));
      ASSERT_LE(fmx::RedOf(pixel), alpha);
      ASSERT_LE(fmx::GreenOf(pixel), alpha);
      ASSERT_EQ(fmx::AlphaOf(pixel), alpha);
      ASSERT_EQ(fmx::Premultiply(fmx::Unpremultiply(pixel)), pixel);
    }
  }
}

TEST(Colors, APixelThatIsNotPremultipliedGivesNoPartAboveAByte) {
  EXPECT_EQ(fmx::Unpremultiply(0x01FF8000), 0x01FFFF00U);
  EXPECT_EQ(fmx::Unpremultiply(0x00FFFFFF), 0U);
}

TEST(Colors, OpacityScalesAlphaAloneAndIsHeld) {
  EXPECT_EQ(fmx::MakeOpacity(0xFF102030, 0.5F), 0x80102030U);
  EXPECT_EQ(fmx::MakeOpacity(0x80102030, 1), 0x80102030U);
  EXPECT_EQ(fmx::MakeOpacity(0x80102030, 7), 0x80102030U);
  EXPECT_EQ(fmx::MakeOpacity(0x80102030, -1), 0x00102030U);
  EXPECT_EQ(fmx::MakeOpacity(0x80102030, std::numeric_limits<float>::quiet_NaN()), 0x00102030U);
}

}  // namespace
