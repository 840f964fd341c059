// What the engine's rules ask of one code unit, answered by one load from one flat table.
#pragma once

#include <array>
#include <cstdint>

#include "rtl/Sets.h"
#include "rtl/Unicode.h"

namespace orv::engine {

using TCategory = rtl::TUnicodeCategory;
using TCategories = rtl::TSet<TCategory, std::uint32_t>;

inline constexpr TCategories Letters{TCategory::Ll, TCategory::Lm, TCategory::Lo, TCategory::Lt, TCategory::Lu};
inline constexpr TCategories LettersAndDigits = Letters + TCategories{TCategory::Nd};
inline constexpr TCategories Openers{TCategory::Pi, TCategory::Ps};
inline constexpr TCategories Closers{TCategory::Pe, TCategory::Pf};
inline constexpr TCategories LineSeparators{TCategory::Zl, TCategory::Zp};
inline constexpr TCategories Blanks = LineSeparators + TCategories{TCategory::Zs};

// What ends a stretch of neutrals.
inline constexpr TCategories NeutralStops =
    LettersAndDigits + Openers + Closers + Blanks + TCategories{TCategory::Cc, TCategory::Cf};

// What an equation is made of, blanks aside.
inline constexpr TCategories EquationSigns{TCategory::Nd, TCategory::Nl, TCategory::No, TCategory::Pd, TCategory::Po,
                                           TCategory::Sc, TCategory::Sk, TCategory::Sm, TCategory::So};

// The general category of a code unit and three more bits, in one byte. A surrogate has category Cs.
class TUnitClass {
 public:
  constexpr explicit TUnitClass(std::uint8_t bits) : FBits(bits) {}
  constexpr TUnitClass(TCategory category, bool rtl, bool ltr, bool whiteSpace)
      : FBits(static_cast<std::uint8_t>(static_cast<unsigned>(category) | (rtl ? RTLBit : 0U) | (ltr ? LTRBit : 0U) |
                                        (whiteSpace ? WhiteSpaceBit : 0U))) {}

  constexpr std::uint8_t Bits() const { return FBits; }
  constexpr TCategory Category() const { return static_cast<TCategory>(FBits & CategoryMask); }
  constexpr bool In(TCategories categories) const { return ((categories.Bits() >> (FBits & CategoryMask)) & 1U) != 0; }
  constexpr bool IsLetter() const { return In(Letters); }
  constexpr bool IsRTL() const { return (FBits & RTLBit) != 0; }
  constexpr bool IsLTR() const { return (FBits & LTRBit) != 0; }
  constexpr bool IsWhiteSpace() const { return (FBits & WhiteSpaceBit) != 0; }

 private:
  static constexpr unsigned CategoryMask = 0x1F;
  static constexpr unsigned RTLBit = 0x20;
  static constexpr unsigned LTRBit = 0x40;
  static constexpr unsigned WhiteSpaceBit = 0x80;

  std::uint8_t FBits;
};

// One byte of class bits for each of the 65,536 code units.
extern const std::array<std::uint8_t, 0x10000> UnitClasses;

inline TUnitClass ClassOf(char16_t c) {
  return TUnitClass(UnitClasses[c]);
}

constexpr bool IsIn(char16_t c, char16_t low, char16_t high) {
  return c >= low && c <= high;
}
constexpr bool IsAsciiDigit(char16_t c) {
  return IsIn(c, u'0', u'9');
}
constexpr bool IsAsciiLetter(char16_t c) {
  return IsIn(c, u'A', u'Z') || IsIn(c, u'a', u'z');
}
constexpr bool IsArabicIndicDigit(char16_t c) {
  return IsIn(c, 0x0660, 0x0669) || IsIn(c, 0x06F0, 0x06F9);
}
constexpr bool IsDigitOrSeparator(char16_t c) {
  return IsAsciiDigit(c) || c == u'\'' || c == u'.';
}
constexpr bool IsZeroWidthBlank(char16_t c) {
  return IsIn(c, 0x200B, 0x200D);
}
constexpr bool IsLineFeedOrReturn(char16_t c) {
  return c == u'\n' || c == u'\r';
}

}  // namespace orv::engine
