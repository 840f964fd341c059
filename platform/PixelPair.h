// Two pixels at a time. Built on the compilers' vector extension, which gives SSE2, NEON or WebAssembly SIMD where the
// target has them and plain instructions elsewhere; every way gives the same parts.
#pragma once

#include <cstdint>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "fmx/Colors.h"

namespace orv::platform {

// The parts of two pixels, or of one twice, each in 16 bits.
class TPixelPair {
 public:
  static TPixelPair Load(const fmx::TPixel* pixels) {
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
    return TPixelPair(reinterpret_cast<TParts>(_mm_unpacklo_epi8(bytes, _mm_setzero_si128())));
#else
    TBytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return TPixelPair(__builtin_convertvector(bytes, TParts));
#endif
  }

  static TPixelPair Twice(fmx::TPixel pixel) {
    const fmx::TPixel both[] = {pixel, pixel};
    return Load(both);
  }

  void Store(fmx::TPixel* pixels) const {
#if defined(__SSE2__)
    const auto parts = reinterpret_cast<__m128i>(FParts);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(pixels), _mm_packus_epi16(parts, parts));
#else
    const auto bytes = __builtin_convertvector(FParts, TBytes);
    std::memcpy(pixels, &bytes, sizeof bytes);
#endif
  }

  // Each part as fmx::MultiplyByte says.
  friend TPixelPair operator*(TPixelPair a, TPixelPair b) {
    const TParts product = a.FParts * b.FParts + 128;
    return TPixelPair((product + (product >> 8)) >> 8);
  }
  friend TPixelPair operator+(TPixelPair a, TPixelPair b) {
    return TPixelPair(a.FParts + b.FParts);
  }

  // What alpha lacks to 255, in all parts.
  TPixelPair Transparency() const {
    return TPixelPair(255 - __builtin_shufflevector(FParts, FParts, 3, 3, 3, 3, 7, 7, 7, 7));
  }

 private:
  using TParts = std::uint16_t __attribute__((vector_size(16)));
  using TBytes = std::uint8_t __attribute__((vector_size(8)));

  explicit TPixelPair(TParts parts) : FParts(parts) {}

  TParts FParts;
};

}  // namespace orv::platform
