// The Unicode property service: what the Unicode Character Database says of a code point.
//
// Every function takes any 32-bit value. A value above U+10FFFF is unassigned (TUnicodeCategory::Cn) and maps to
// itself; a surrogate is Cs, so a lone one is no letter. Pure functions over constant tables: the look-ups raise and
// allocate nothing, any thread may call, and each costs two or three loads and no branch. The properties are those of
// the database and know nothing of a language: ToUpper of "i" is "I" in Turkish too.
//
// Source: Unicode Character Database, version UnicodeDataVersion (UnicodeData.txt, PropList.txt,
// DerivedNumericValues.txt), turned into rtl/UnicodeData.h and rtl/UnicodeMappings.inc by tools/ucd/make_tables.py.
#pragma once

#include <cstdint>
#include <string_view>

namespace rtl {

inline constexpr std::uint32_t MaxCodePoint = 0x10FFFF;
extern const std::string_view UnicodeDataVersion;  // for example "15.0.0"

// General categories by their two-letter Unicode names. The order is this library's own.
// clang-format off
enum class TUnicodeCategory : std::uint8_t {
  Cc, Cf, Cn, Co, Cs, Ll, Lm, Lo, Lt, Lu, Mc, Me, Mn, Nd, Nl, No, Pc, Pd, Pe, Pf, Pi, Po, Ps, Sc, Sk, Sm, So, Zl, Zp, Zs
};
// clang-format on

TUnicodeCategory GetUnicodeCategory(std::uint32_t codePoint);

bool IsLetter(std::uint32_t codePoint);         // Ll, Lm, Lo, Lt, Lu
bool IsLetterOrDigit(std::uint32_t codePoint);  // a letter or Nd
bool IsDigit(std::uint32_t codePoint);          // Nd
bool IsNumber(std::uint32_t codePoint);         // Nd, Nl, No
bool IsLower(std::uint32_t codePoint);          // Ll
bool IsUpper(std::uint32_t codePoint);          // Lu
bool IsControl(std::uint32_t codePoint);        // Cc
bool IsDefined(std::uint32_t codePoint);        // not Cn
bool IsMark(std::uint32_t codePoint);           // Mc, Me, Mn
bool IsPunctuation(std::uint32_t codePoint);    // Pc, Pd, Pe, Pf, Pi, Po, Ps
bool IsSeparator(std::uint32_t codePoint);      // Zl, Zp, Zs
bool IsSymbol(std::uint32_t codePoint);         // Sc, Sk, Sm, So
bool IsWhiteSpace(std::uint32_t codePoint);     // the White_Space property

constexpr bool IsHighSurrogate(std::uint32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLowSurrogate(std::uint32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr bool IsSurrogate(std::uint32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

// The value of a digit, number or fraction (Numeric_Value, ideographs included), as the nearest double; -1 for a code
// point that has none. No value is -1, but one is negative: U+0F33 is -0.5. Example: U+06F5 is 5, U+2153 is 1.0 / 3.
double GetNumericValue(std::uint32_t codePoint);

// Simple (one to one) case mapping; a code point without one maps to itself, as U+00DF does, whose uppercase is two
// letters. The mappings are no inverses of each other: U+0131 goes up to "I", which comes down as "i".
std::uint32_t ToLower(std::uint32_t codePoint);
std::uint32_t ToUpper(std::uint32_t codePoint);

// The code point of a surrogate pair. Both arguments must be surrogates of their kind (assertion); otherwise the answer
// is some code point from U+10000 on.
std::uint32_t ConvertToUtf32(char16_t high, char16_t low);

// The code point that begins at the 0-based index of s; charLength receives the units it takes (1 or 2). A lone
// surrogate answers itself with length 1, and so does a low one that is the second half of a pair when index points at
// it. Any index is allowed: one outside s answers U+0000 with length 1. Example: a walk over s adds charLength to
// index.
std::uint32_t ConvertToUtf32(std::u16string_view s, std::int32_t index, std::int32_t& charLength);

}  // namespace rtl
