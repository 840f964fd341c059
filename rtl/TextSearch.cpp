#include "rtl/TextSearch.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace rtl {
namespace {

// Where a search by whole vectors ended: at the first match, or at the first unit it has not looked at.
struct TScan {
  std::size_t Index;
  bool Found;
};

#ifdef __x86_64__

// Vectors of one width: how to load one, to fill one with a unit, to compare (each bit of the answer is one byte).
struct TSse2 {
  using TVector = __m128i;
  static constexpr std::size_t Bytes = 16;
  static TVector Load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
  static TVector Fill(char16_t unit) { return _mm_set1_epi16(static_cast<short>(unit)); }
  static TVector Fill(char unit) { return _mm_set1_epi8(unit); }
  static TVector Equal(TVector a, TVector b, char16_t) { return _mm_cmpeq_epi16(a, b); }
  static TVector Equal(TVector a, TVector b, char) { return _mm_cmpeq_epi8(a, b); }
  static TVector Or(TVector a, TVector b) { return _mm_or_si128(a, b); }
  static std::uint32_t Mask(TVector v) { return static_cast<std::uint32_t>(_mm_movemask_epi8(v)); }
};

TScan ScanNarrow(std::u16string_view text, std::size_t i, std::size_t end, char16_t unit) {
  constexpr std::size_t Width = TSse2::Bytes / sizeof(char16_t);
  const auto wanted = TSse2::Fill(unit);
  for (; i + Width <= end; i += Width) {
    const std::uint32_t mask = TSse2::Mask(TSse2::Equal(TSse2::Load(text.data() + i), wanted, unit));
    if (mask != 0) return {i + static_cast<std::size_t>(std::countr_zero(mask)) / sizeof(char16_t), true};
  }
  return {i, false};
}

template <typename TUnit>
TScan ScanAny(std::basic_string_view<TUnit> text, const TFourUnits<TUnit>& units) {
  constexpr std::size_t Width = TSse2::Bytes / sizeof(TUnit);
  const TSse2::TVector wanted[] = {TSse2::Fill(units[0]), TSse2::Fill(units[1]), TSse2::Fill(units[2]),
                                   TSse2::Fill(units[3])};
  std::size_t i = 0;
  for (; i + Width <= text.size(); i += Width) {
    const auto block = TSse2::Load(text.data() + i);
    const auto hits =
        TSse2::Or(TSse2::Or(TSse2::Equal(block, wanted[0], TUnit{}), TSse2::Equal(block, wanted[1], TUnit{})),
                  TSse2::Or(TSse2::Equal(block, wanted[2], TUnit{}), TSse2::Equal(block, wanted[3], TUnit{})));
    const std::uint32_t mask = TSse2::Mask(hits);
    if (mask != 0) return {i + static_cast<std::size_t>(std::countr_zero(mask)) / sizeof(TUnit), true};
  }
  return {i, false};
}

__attribute__((target("avx2"))) TScan ScanWide(std::u16string_view text, std::size_t i, char16_t unit) {
  constexpr std::size_t Width = sizeof(__m256i) / sizeof(char16_t);
  const __m256i wanted = _mm256_set1_epi16(static_cast<short>(unit));
  for (; i + Width <= text.size(); i += Width) {
    const __m256i block = _mm256_loadu_si256(static_cast<const __m256i*>(static_cast<const void*>(text.data() + i)));
    const auto mask = static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi16(block, wanted)));
    if (mask != 0) return {i + static_cast<std::size_t>(std::countr_zero(mask)) / sizeof(char16_t), true};
  }
  return {i, false};
}

TScan ScanOne(std::u16string_view text, char16_t unit) {
  // In a shorter stretch the wide vectors do not pay for the question whether the processor has them.
  constexpr std::size_t LongStretch = 128;
  const TScan scan = ScanNarrow(text, 0, std::min(text.size(), LongStretch), unit);
  if (scan.Found || scan.Index < LongStretch) return scan;
  return __builtin_cpu_supports("avx2") != 0 ? ScanWide(text, scan.Index, unit)
                                             : ScanNarrow(text, scan.Index, text.size(), unit);
}

#else

TScan ScanOne(std::u16string_view, char16_t) {
  return {0, false};
}

template <typename TUnit>
TScan ScanAny(std::basic_string_view<TUnit>, const TFourUnits<TUnit>&) {
  return {0, false};
}

#endif

template <typename TUnit>
std::size_t FindAny(std::basic_string_view<TUnit> text, const TFourUnits<TUnit>& units) {
  const TScan scan = ScanAny(text, units);
  return scan.Found ? scan.Index : scan.Index + scalar::FindAnyUnit(text.substr(scan.Index), units);
}

}  // namespace

std::size_t FindUnit(std::u16string_view text, char16_t unit) {
  const TScan scan = ScanOne(text, unit);
  return scan.Found ? scan.Index : scan.Index + scalar::FindUnit(text.substr(scan.Index), unit);
}

std::size_t FindUnit(std::string_view text, char unit) {
  // The C library's search is a vector search already.
  const void* found = text.empty() ? nullptr : std::memchr(text.data(), unit, text.size());
  return found == nullptr ? text.size() : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

std::size_t FindAnyUnit(std::u16string_view text, const TFourUnits<char16_t>& units) {
  return FindAny(text, units);
}

std::size_t FindAnyUnit(std::string_view text, const TFourUnits<char>& units) {
  return FindAny(text, units);
}

}  // namespace rtl
