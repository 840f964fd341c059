// Tests on single bytes and units of texts that come from outside.
#pragma once

#include <cstdint>

namespace orv {

// Whether it is one of 0 to 9, A to F and a to f.
constexpr bool IsHexDigit(std::uint8_t c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}
constexpr bool IsHexDigit(char16_t c) {
  return c <= 0xFF && IsHexDigit(static_cast<std::uint8_t>(c));
}

}  // namespace orv
