// The category look-ups of rtl/Unicode.h at compile time, for a room that builds a table of its own from them.
//
// Each takes any 32-bit value and costs two dependent loads and no branch; a value above U+10FFFF is unassigned.
// Include it in few files: it carries some 40 kB of constants. Everything else asks rtl/Unicode.h.
#pragma once

#include <algorithm>
#include <cstdint>

#include "rtl/Unicode.h"
#include "rtl/UnicodeData.h"

namespace rtl {

// The category and the White_Space bit of a code point in one byte (data::CategoryMask, data::WhiteSpaceBit).
constexpr std::uint8_t PropertyByteOf(std::uint32_t codePoint) {
  const std::uint32_t c = std::min(codePoint, MaxCodePoint + 1);
  constexpr std::uint32_t within = (1U << data::PropertyShift) - 1;
  return data::Properties[(std::uint32_t{data::PropertyBlocks[c >> data::PropertyShift]} << data::PropertyShift) |
                          (c & within)];
}

constexpr TUnicodeCategory CategoryOf(std::uint32_t codePoint) {
  return static_cast<TUnicodeCategory>(PropertyByteOf(codePoint) & data::CategoryMask);
}

constexpr bool IsWhiteSpaceCodePoint(std::uint32_t codePoint) {
  return (PropertyByteOf(codePoint) & data::WhiteSpaceBit) != 0;
}

// All of White_Space lies in the Basic Multilingual Plane, so a code unit decides alone.
constexpr bool IsWhiteSpaceUnit(char16_t unit) {
  return IsWhiteSpaceCodePoint(unit);
}

// A set of categories in one word, by their numbers.
using TUnicodeCategories = std::uint32_t;

template <typename... Categories>
constexpr TUnicodeCategories CategorySet(Categories... categories) {
  return ((TUnicodeCategories{1} << static_cast<unsigned>(categories)) | ...);
}

constexpr bool IsInCategories(std::uint32_t codePoint, TUnicodeCategories categories) {
  return ((categories >> static_cast<unsigned>(CategoryOf(codePoint))) & 1U) != 0;
}

// The sets that the look-ups of rtl/Unicode.h test.
inline constexpr TUnicodeCategories LetterCategories = CategorySet(
    TUnicodeCategory::Ll, TUnicodeCategory::Lm, TUnicodeCategory::Lo, TUnicodeCategory::Lt, TUnicodeCategory::Lu);
inline constexpr TUnicodeCategories LetterOrDigitCategories = LetterCategories | CategorySet(TUnicodeCategory::Nd);
inline constexpr TUnicodeCategories NumberCategories =
    CategorySet(TUnicodeCategory::Nd, TUnicodeCategory::Nl, TUnicodeCategory::No);
inline constexpr TUnicodeCategories MarkCategories =
    CategorySet(TUnicodeCategory::Mc, TUnicodeCategory::Me, TUnicodeCategory::Mn);
inline constexpr TUnicodeCategories PunctuationCategories =
    CategorySet(TUnicodeCategory::Pc, TUnicodeCategory::Pd, TUnicodeCategory::Pe, TUnicodeCategory::Pf,
                TUnicodeCategory::Pi, TUnicodeCategory::Po, TUnicodeCategory::Ps);
inline constexpr TUnicodeCategories SeparatorCategories =
    CategorySet(TUnicodeCategory::Zl, TUnicodeCategory::Zp, TUnicodeCategory::Zs);
inline constexpr TUnicodeCategories SymbolCategories =
    CategorySet(TUnicodeCategory::Sc, TUnicodeCategory::Sk, TUnicodeCategory::Sm, TUnicodeCategory::So);

}  // namespace rtl
