// Fast searches in text, for readers that step from one sign to the next.
//
// Each function answers the index of the first match, or the size of the text when there is none. They read the text
// alone, keep nothing, and may be called from any thread. Cost: linear in the answer. Where the processor has vector
// instructions they are used: SSE2 always on x86-64, AVX2 for the rest of a long stretch where it is found at run time.
// The functions in namespace scalar do the same one unit at a time.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace rtl {

// Four units to look for. Repeat one to look for fewer.
template <typename TUnit>
using TFourUnits = std::array<TUnit, 4>;

std::size_t FindUnit(std::u16string_view text, char16_t unit);
std::size_t FindUnit(std::string_view text, char unit);

std::size_t FindAnyUnit(std::u16string_view text, const TFourUnits<char16_t>& units);
std::size_t FindAnyUnit(std::string_view text, const TFourUnits<char>& units);

namespace scalar {

template <typename TUnit>
constexpr std::size_t FindUnit(std::basic_string_view<TUnit> text, TUnit unit) {
  std::size_t i = 0;
  while (i < text.size() && text[i] != unit) ++i;
  return i;
}

template <typename TUnit>
constexpr std::size_t FindAnyUnit(std::basic_string_view<TUnit> text, const TFourUnits<TUnit>& units) {
  const auto isOne = [&units](TUnit c) { return c == units[0] || c == units[1] || c == units[2] || c == units[3]; };
  std::size_t i = 0;
  while (i < text.size() && !isOne(text[i])) ++i;
  return i;
}

}  // namespace scalar
}  // namespace rtl
