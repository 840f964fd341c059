// What the engine's rules ask of one code unit, answered by one load from one flat table made at compile time.
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

// What is known of a code unit, in one word. The low byte is the general category and three more bits; a surrogate has
// category Cs. The high byte tells how the unit stands in a stretch of one direction (Unicode.Engine.Stretch.h).
class TUnitClass {
 public:
  enum TBit : std::uint16_t {
    RTL = 0x20,  // strong right-to-left
    LTR = 0x40,  // strong left-to-right
    WhiteSpace = 0x80,
    PlainLTR = 0x100,    // neither ends a left-to-right stretch nor needs a look at its neighbours
    PlainRTL = 0x200,    // the same in a right-to-left stretch
    WordLTR = 0x400,     // a letter or digit of a left-to-right stretch
    WordRTL = 0x800,     // a letter of a right-to-left stretch
    LetterLTR = 0x1000,  // strong left-to-right and a letter
    PlainLTRLetters =
        0x2000  // PlainLTR but for digits, which are exceptions to a left-to-right stretch in right-to-left text
  };

  constexpr explicit TUnitClass(std::uint16_t bits) : FBits(bits) {}

  constexpr std::uint16_t Bits() const { return FBits; }
  constexpr std::uint8_t LowByte() const { return static_cast<std::uint8_t>(FBits); }
  constexpr bool Has(TBit bit) const { return (FBits & bit) != 0; }
  constexpr TCategory Category() const { return static_cast<TCategory>(FBits & CategoryMask); }
  constexpr bool In(TCategories categories) const { return ((categories.Bits() >> (FBits & CategoryMask)) & 1U) != 0; }
  constexpr bool IsLetter() const { return In(Letters); }
  constexpr bool IsRTL() const { return Has(RTL); }
  constexpr bool IsLTR() const { return Has(LTR); }
  constexpr bool IsWhiteSpace() const { return Has(WhiteSpace); }

 private:
  static constexpr unsigned CategoryMask = 0x1F;

  std::uint16_t FBits;
};

// The class bits that stretches are searched by.
enum class TStretchBit : std::uint8_t { LTR, RTL, LTRLetters };
inline constexpr std::array<TUnitClass::TBit, 3> StretchBits{TUnitClass::PlainLTR, TUnitClass::PlainRTL,
                                                             TUnitClass::PlainLTRLetters};

// Those bits of the units of four pages of 256: by the low four bits of a unit, eight answers for the lower half of the
// page and eight for the upper half, the lowest for the lowest of the next four bits. Left-to-right text has need of
// the first two pages only.
struct TPageBits {
  std::array<std::uint8_t, 16> Lower, Upper;
};
inline constexpr std::array<std::uint8_t, 4> TablePages{0x00, 0x20, 0x05, 0x06};
extern const std::array<std::array<TPageBits, 4>, 3> StretchPages;

// The class word of each of the 65,536 code units.
extern const std::array<std::uint16_t, 0x10000> UnitClasses;

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
