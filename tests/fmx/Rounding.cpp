#include "fmx/Rounding.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Least = std::numeric_limits<std::int64_t>::min();

TEST(Rounding, HalvesGoToTheEvenNumber) {
  for (std::int64_t whole = -1000; whole <= 1000; ++whole) {
    const auto base = static_cast<double>(whole);
    const std::int64_t even = whole % 2 == 0 ? whole : whole + 1;
    EXPECT_EQ(fmx::Round(base + 0.5), even);
    EXPECT_EQ(fmx::Round(base), whole);
    EXPECT_EQ(fmx::Round(base + 0.49), whole);
    EXPECT_EQ(fmx::Round(base + 0.51), whole + 1);
  }
  EXPECT_EQ(fmx::Round(std::nextafter(0.5, 0)), 0);
  EXPECT_EQ(fmx::Round(std::nextafter(0.5, 1)), 1);
}

TEST(Rounding, AgreesWithTheCLibraryInItsDefaultModeAndKeepsItsAnswerInOthers) {
  std::uint64_t state = 1;
  for (int i = 0; i < 100000; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    const double value = static_cast<double>(static_cast<std::int64_t>(state) >> 40) / 4;
    const std::int64_t expected = std::llrint(value);
    EXPECT_EQ(fmx::Round(value), expected);
    std::fesetround(FE_UPWARD);
    EXPECT_EQ(fmx::Round(value), expected);
    std::fesetround(FE_TONEAREST);
  }
}

TEST(Rounding, TruncGoesTowardZeroAndCeilUp) {
  EXPECT_EQ(fmx::Trunc(1.9), 1);
  EXPECT_EQ(fmx::Trunc(-1.9), -1);
  EXPECT_EQ(fmx::Ceil(1.1), 2);
  EXPECT_EQ(fmx::Ceil(-1.9), -1);
  EXPECT_EQ(fmx::Ceil(3), 3);
}

TEST(Rounding, WhatDoesNotFitSaturatesAndNoNumberIsZero) {
  for (const auto function : {fmx::Round, fmx::Trunc, fmx::Ceil}) {
    EXPECT_EQ(function(Infinity), Largest);
    EXPECT_EQ(function(-Infinity), Least);
    EXPECT_EQ(function(1e300), Largest);
    EXPECT_EQ(function(-1e300), Least);
    EXPECT_EQ(function(9223372036854775808.0), Largest);
    EXPECT_EQ(function(-9223372036854775808.0), Least);
    EXPECT_EQ(function(std::nan("")), 0);
  }
}

TEST(Rounding, SameValueCountsTheToleranceIn) {
  EXPECT_TRUE(fmx::SameValue(1, 1.25F, 0.25F));
  EXPECT_FALSE(fmx::SameValue(1, 1.26F, 0.25F));
  EXPECT_FALSE(fmx::SameValue(std::nanf(""), 1, 10));
}

}  // namespace
