// Rounding of coordinates to whole numbers. All functions take any value: what does not fit saturates, and what is no
// number answers 0.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace fmx {

// Toward zero. Example: Trunc(-1.9) is -1.
inline std::int64_t Trunc(double value) {
  constexpr double limit = 9223372036854775808.0;  // 2 to the 63rd
  if (std::isnan(value)) return 0;
  if (value >= limit) return std::numeric_limits<std::int64_t>::max();
  if (value < -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

// To the nearest whole number, halves to the even one, whatever rounding mode the thread is in. Examples: Round(0.5) is
// 0, Round(1.5) and Round(2.5) are 2, Round(-0.5) is 0.
inline std::int64_t Round(double value) {
  constexpr double allWhole = 4503599627370496.0;  // 2 to the 52nd: from there on there are no fractions
  if (!(std::fabs(value) < allWhole)) return Trunc(value);
  const auto whole = static_cast<std::int64_t>(value);
  const double rest = value - static_cast<double>(whole);  // of the value's sign
  const bool isOdd = (whole & 1) != 0;
  if (rest > 0.5 || (rest == 0.5 && isOdd)) return whole + 1;
  if (rest < -0.5 || (rest == -0.5 && isOdd)) return whole - 1;
  return whole;
}

// Whole numbers that do not fit stay at the end of what does.
constexpr std::int32_t Saturated(std::int64_t value) {
  constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t greatest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(value < least ? least : value > greatest ? greatest : value);
}
constexpr std::int32_t SaturatedSum(std::int32_t a, std::int32_t b) {
  return Saturated(std::int64_t{a} + b);
}
constexpr std::int32_t SaturatedDifference(std::int32_t a, std::int32_t b) {
  return Saturated(std::int64_t{a} - b);
}

// The least whole number that is not below the value.
inline std::int64_t Ceil(double value) {
  return Trunc(std::ceil(value));
}

// Whether the two differ by no more than the tolerance. Infinities are never the same as anything.
inline bool SameValue(float a, float b, float tolerance) {
  return std::fabs(a - b) <= tolerance;
}

}  // namespace fmx
