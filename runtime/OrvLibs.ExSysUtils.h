// Small arithmetic and memory helpers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace orv {

// The remainder of a by b that has no sign: from 0 to the size of b, which it does not reach. 0 for a b of 0. Example:
// PosMod(-1, 7) is 6.
constexpr std::int32_t PosMod(std::int32_t a, std::int32_t b) {
  if (b == 0) return 0;
  const std::int64_t modulus = b < 0 ? -std::int64_t{b} : std::int64_t{b};
  const std::int64_t rest = std::int64_t{a} % modulus;
  return static_cast<std::int32_t>(rest < 0 ? rest + modulus : rest);
}

// Exchanges the two.
constexpr void Switch(std::int32_t& a, std::int32_t& b) {
  std::swap(a, b);
}

// Makes the first count bytes 0. Never goes beyond the buffer; a negative count is none.
constexpr void FillZero(std::span<std::byte> buffer, std::int64_t count) {
  const auto size = static_cast<std::int64_t>(buffer.size());
  std::fill_n(buffer.begin(), std::clamp<std::int64_t>(count, 0, size), std::byte{0});
}

// Makes the first count words the value, likewise.
constexpr void FillWord(std::span<std::uint16_t> buffer, std::uint16_t value, std::int64_t count) {
  const auto size = static_cast<std::int64_t>(buffer.size());
  std::fill_n(buffer.begin(), std::clamp<std::int64_t>(count, 0, size), value);
}

}  // namespace orv
