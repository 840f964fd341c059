#include "tests/unicode/support/PlainChars.h"

#include "rtl/Unicode.h"

namespace orv::plain {
namespace {

using rtl::TUnicodeCategory;

bool IsIn(std::uint32_t c, std::uint32_t low, std::uint32_t high) {
  return c >= low && c <= high;
}

}  // namespace

bool IsAsciiDigit(char16_t c) {
  return IsIn(c, '0', '9');
}

bool IsAsciiLetter(char16_t c) {
  return IsIn(c, 'A', 'Z') || IsIn(c, 'a', 'z');
}

bool IsLetter(char16_t c) {
  switch (rtl::GetUnicodeCategory(c)) {
    case TUnicodeCategory::Ll:
    case TUnicodeCategory::Lm:
    case TUnicodeCategory::Lo:
    case TUnicodeCategory::Lt:
    case TUnicodeCategory::Lu:
      return true;
    default:
      return false;
  }
}

bool IsLetterOrDecimal(char16_t c) {
  return IsLetter(c) || rtl::GetUnicodeCategory(c) == TUnicodeCategory::Nd;
}

bool IsArabicDigit(char16_t c) {
  return IsIn(c, 0x660, 0x669) || IsIn(c, 0x6F0, 0x6F9);
}

bool CanBeConsideredAsArabicDigit(char16_t c) {
  const bool rightToLeft = TOrvGlobalSettings::EquationOrder == TOrvGlobalSettings::TMathOrder::ArabicRightToLeft;
  return IsArabicDigit(c) || (rightToLeft && IsAsciiDigit(c));
}

bool IsRTL(char16_t c) {
  return c == 0x200F || c == 0x2E2E || IsIn(c, 0x2035, 0x2037) || IsIn(c, 0x591, 0x65F) || IsIn(c, 0x66E, 0x6EF) ||
         IsIn(c, 0x6FA, 0x6FF);
}

bool IsLTR(char16_t c) {
  if (c == 0x200E || c == '?' || c == ';' || c == ',' || IsIn(c, 0x2032, 0x2034)) return true;
  return IsLetterOrDecimal(c) && !IsRTL(c) && !IsIn(c, 0xFB1D, 0xFEFE);
}

bool IsRTLText(std::u16string_view s, bool defaultRTL) {
  for (const char16_t c : s) {
    if (IsRTL(c)) return true;
    if (IsLetter(c) || c == 0x200E) return false;
  }
  return defaultRTL;
}

TDirectiveChars::TBidiType ClassifyChar(char16_t c) {
  using TBidiType = TDirectiveChars::TBidiType;
  if (CanBeConsideredAsArabicDigit(c)) return TBidiType::ArabicDigit;
  if (c == ',' || c == ';' || c == '?' || c == 0x200E || IsIn(c, 0x2032, 0x2034)) return TBidiType::LTR;
  if (IsLetterOrDecimal(c) && !IsRTL(c) && !IsIn(c, 0xFB1D, 0xFEFE)) return TBidiType::LTR;
  if (IsRTL(c)) return TBidiType::RTL;
  return TBidiType::Neutral;
}

int CharactersCount(std::uint32_t c) {
  if (IsIn(c, 0xFEF5, 0xFEFC)) return 2;
  if (IsIn(c, 0xFC5E, 0xFD3D)) return 2;
  if (c == 0xFDF2) return 3;
  if (c == 0xFB2C || c == 0xFB2D) return 3;
  if (IsIn(c, 0xFB2A, 0xFB4F)) return 2;
  return 1;
}

}  // namespace orv::plain
