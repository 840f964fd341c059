#include "unicode/Unicode.Engine.Classes.h"

#include "rtl/UnicodeTables.h"

namespace orv::engine {
namespace {

constexpr bool IsStrongRTL(char16_t c) {
  return IsIn(c, 0x0591, 0x065F) || IsIn(c, 0x066E, 0x06EF) || IsIn(c, 0x06FA, 0x06FF) || c == 0x200F ||
         IsIn(c, 0x2035, 0x2037) || c == 0x2E2E;
}

constexpr bool IsStrongLTR(char16_t c, bool letterOrDigit) {
  if (c == 0x200E || c == u'?' || c == u';' || c == u',' || IsIn(c, 0x2032, 0x2034)) return true;
  return letterOrDigit && !IsStrongRTL(c) && !IsIn(c, 0xFB1D, 0xFEFE);
}

// The class without the stretch bits.
constexpr TUnitClass RuleClassOf(char16_t c) {
  const TCategory category = rtl::CategoryOf(c);
  const TUnitClass plain(static_cast<std::uint16_t>(category));
  unsigned bits = plain.Bits();
  if (IsStrongRTL(c)) bits |= TUnitClass::RTL;
  if (IsStrongLTR(c, plain.In(LettersAndDigits))) bits |= TUnitClass::LTR;
  if (rtl::IsWhiteSpaceUnit(c)) bits |= TUnitClass::WhiteSpace;
  return TUnitClass(static_cast<std::uint16_t>(bits));
}

// Whether a unit that is no word of the stretch's direction can be passed over in it: it is a blank or a neutral, and
// no rule of its own begins with it.
constexpr bool IsPassedOver(char16_t c, TUnitClass kind) {
  if (kind.IsRTL() || c == u'.' || c == u'"' || c == u'\'' || IsLineFeedOrReturn(c)) return false;
  const bool control = kind.Category() == TCategory::Cc;
  return kind.Category() == TCategory::Zs || control || !kind.In(NeutralStops);
}

constexpr std::uint16_t ClassWordOf(char16_t c) {
  const TUnitClass kind = RuleClassOf(c);
  unsigned bits = kind.Bits();
  const bool wordLTR = !kind.IsRTL() && kind.In(LettersAndDigits);
  if (wordLTR) bits |= TUnitClass::WordLTR;
  if (kind.IsRTL() && kind.IsLetter()) bits |= TUnitClass::WordRTL;
  if (wordLTR || IsPassedOver(c, kind)) bits |= TUnitClass::PlainLTR;
  if (kind.IsRTL() || IsPassedOver(c, kind)) bits |= TUnitClass::PlainRTL;
  if (kind.IsLTR() && kind.IsLetter()) bits |= TUnitClass::LetterLTR;
  if ((bits & TUnitClass::PlainLTR) != 0 && kind.Category() != TCategory::Nd) bits |= TUnitClass::PlainLTRLetters;
  return static_cast<std::uint16_t>(bits);
}

constexpr std::array<std::uint16_t, 0x10000> MakeUnitClasses() {
  std::array<std::uint16_t, 0x10000> classes{};
  for (std::uint32_t unit = 0; unit < classes.size(); ++unit) classes[unit] = ClassWordOf(static_cast<char16_t>(unit));
  return classes;
}

constexpr TPageBits MakePageBits(unsigned page, TUnitClass::TBit bit) {
  TPageBits bits{};
  for (unsigned low = 0; low < 0x100; ++low) {
    if ((ClassWordOf(static_cast<char16_t>(page * 0x100 + low)) & bit) == 0) continue;
    auto& half = low < 0x80 ? bits.Lower : bits.Upper;
    half[low % 16] = static_cast<std::uint8_t>(half[low % 16] | 1U << (low / 16 % 8));
  }
  return bits;
}

constexpr std::array<std::array<TPageBits, 4>, 3> MakeStretchPages() {
  std::array<std::array<TPageBits, 4>, 3> pages{};
  for (std::size_t bit = 0; bit < StretchBits.size(); ++bit)
    for (std::size_t page = 0; page < TablePages.size(); ++page)
      pages[bit][page] = MakePageBits(TablePages[page], StretchBits[bit]);
  return pages;
}

}  // namespace

constinit const std::array<std::array<TPageBits, 4>, 3> StretchPages = MakeStretchPages();
constinit const std::array<std::uint16_t, 0x10000> UnitClasses = MakeUnitClasses();

}  // namespace orv::engine
