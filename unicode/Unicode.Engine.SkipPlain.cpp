#include "unicode/Unicode.Engine.SkipPlain.h"

#include <algorithm>
#include <bit>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace orv::engine {
namespace {

// Sixteen units by the class table.
struct TTableGroup {
  static constexpr std::int32_t Count = 16;

  // Which of the units have the bit: the lowest answers for the first.
  static std::uint32_t Plain(const char16_t* units, TStretchBit stretch) {
    const TUnitClass::TBit bit = StretchBits[static_cast<std::size_t>(stretch)];
    const TLanes low = Classes(units), high = Classes(units + Count / 2);
#if defined(__x86_64__)
    const int toSign = std::countl_zero(static_cast<std::uint16_t>(bit));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(
        _mm_packs_epi16(reinterpret_cast<__m128i>(low << toSign), reinterpret_cast<__m128i>(high << toSign))));
#else
    std::uint32_t plain = 0;
    for (int i = 0; i < Count / 2; ++i) {
      plain |= ((low[i] & bit) != 0 ? 1U : 0U) << i;
      plain |= ((high[i] & bit) != 0 ? 1U : 0U) << (i + Count / 2);
    }
    return plain;
#endif
  }

 private:
  using TLanes = std::uint16_t __attribute__((vector_size(16)));

  static TLanes Classes(const char16_t* units) {
    const auto word = [&](int i) { return UnitClasses[units[i]]; };
    return TLanes{word(0), word(1), word(2), word(3), word(4), word(5), word(6), word(7)};
  }
};

std::int32_t SkipOneByOne(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit stretch) {
  const TUnitClass::TBit bit = StretchBits[static_cast<std::size_t>(stretch)];
  while (from < end && ClassOf(text[from]).Has(bit)) ++from;
  return from;
}

}  // namespace

// Units at the end of the text are asked together with some before them.
std::int32_t SkipPlainPortable(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit) {
  constexpr std::int32_t count = TTableGroup::Count;
  for (; end - from >= count; from += count) {
    const int plain = std::countr_one(TTableGroup::Plain(text + from, bit));
    if (plain < count) return from + plain;
  }
  const std::int32_t last = end - count;
  if (last < 0) return SkipOneByOne(text, from, end, bit);
  const std::uint32_t before = (std::uint32_t{1} << (from - last)) - 1;
  return last + std::countr_one(TTableGroup::Plain(text + last, bit) | before);
}

#if defined(__x86_64__)

namespace {

// Thirty-two units by the first page tables. A unit of another page is not plain here.
template <std::size_t PageCount>
struct TPageGroup {
  static constexpr std::int32_t Count = 32;

  [[gnu::target("avx2")]] static std::uint32_t Plain(const char16_t* units, const std::array<TPageBits, 4>& pages) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(units));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(units + Count / 2));
    const __m256i lowBytes = _mm256_set1_epi16(0xFF);
    const __m256i low = _mm256_packus_epi16(_mm256_and_si256(a, lowBytes), _mm256_and_si256(b, lowBytes));
    const __m256i page = _mm256_packus_epi16(_mm256_srli_epi16(a, 8), _mm256_srli_epi16(b, 8));

    const __m256i nibble = _mm256_set1_epi8(0x0F);
    const __m256i column = _mm256_and_si256(low, nibble);
    const __m256i row = _mm256_and_si256(_mm256_srli_epi16(low, 4), nibble);
    const __m256i rowBits = _mm256_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128,  //
                                             1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128);
    const __m256i rowBit = _mm256_shuffle_epi8(rowBits, row);
    __m256i answers = _mm256_setzero_si256();
    for (std::size_t i = 0; i < PageCount; ++i) {
      const __m256i lower = _mm256_shuffle_epi8(Table(pages[i].Lower), column);
      const __m256i upper = _mm256_shuffle_epi8(Table(pages[i].Upper), column);
      const __m256i onPage = _mm256_cmpeq_epi8(page, _mm256_set1_epi8(static_cast<char>(TablePages[i])));
      answers = _mm256_or_si256(answers, _mm256_and_si256(onPage, _mm256_blendv_epi8(lower, upper, low)));
    }
    const __m256i plain = _mm256_cmpeq_epi8(_mm256_and_si256(answers, rowBit), rowBit);
    // Packing took the halves of the two loads in turn.
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_permute4x64_epi64(plain, 0b11011000)));
  }

 private:
  [[gnu::target("avx2")]] static __m256i Table(const std::array<std::uint8_t, 16>& bytes) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data())));
  }
};

template <std::size_t PageCount>
[[gnu::target("avx2")]] std::int32_t SkipByPages(const char16_t* text, std::int32_t from, std::int32_t end,
                                                 TStretchBit bit) {
  using TGroup = TPageGroup<PageCount>;
  const auto& pages = StretchPages[static_cast<std::size_t>(bit)];
  for (; end - from >= TGroup::Count; from += TGroup::Count) {
    const int plain = std::countr_one(TGroup::Plain(text + from, pages));
    if (plain == TGroup::Count) continue;
    from += plain;
    if (!ClassOf(text[from]).Has(StretchBits[static_cast<std::size_t>(bit)])) return from;
    break;  // a unit of another page, which is rarely a single one
  }
  return SkipPlainPortable(text, from, end, bit);
}

}  // namespace

std::int32_t SkipPlainFast(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit) {
  return bit == TStretchBit::RTL ? SkipByPages<4>(text, from, end, bit) : SkipByPages<2>(text, from, end, bit);
}

bool HasFastSkip() {
  static const bool has = __builtin_cpu_supports("avx2") != 0;
  return has;
}

std::int32_t SkipPlain(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit) {
  return HasFastSkip() ? SkipPlainFast(text, from, end, bit) : SkipPlainPortable(text, from, end, bit);
}

#else

bool HasFastSkip() {
  return false;
}

std::int32_t SkipPlainFast(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit) {
  return SkipPlainPortable(text, from, end, bit);
}

std::int32_t SkipPlain(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit) {
  return SkipPlainPortable(text, from, end, bit);
}

#endif

}  // namespace orv::engine
