// The presentation transforms of digits and quotes. Shaping has a file of its own.
#include <cstddef>

#include "unicode/OrvSystem.GlobalSettings.h"
#include "unicode/Unicode.Engine.Types.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv {
namespace {

constexpr bool IsAsciiDigit(UCS4Char c) {
  return c - '0' < 10;
}

// The first ASCII digit at or behind index, or the list's end. Blocks are tested whole, without a branch inside, so
// that the compiler can turn the test into vector code: most runs of prose hold no digit.
std::size_t NextDigit(std::span<const UCS4Char> list, std::size_t index) {
  constexpr std::size_t block = 16;
  const UCS4Char* const text = list.data();
  const std::size_t count = list.size();
  for (; index + block <= count; index += block) {
    UCS4Char digits = 0;
    for (std::size_t i = 0; i < block; ++i) digits |= static_cast<UCS4Char>(IsAsciiDigit(text[index + i]));
    if (digits != 0) break;
  }
  while (index < count && !IsAsciiDigit(text[index])) ++index;
  return index;
}

// A run that begins with a word of another script keeps its digits; one without any letter does not.
bool KeepsDigits(std::span<const UCS4Char> list) {
  for (const UCS4Char c : list)
    if (rtl::IsLetter(c)) return c > 0xFFFF || !TDirectiveChars::IsRTL(static_cast<char16_t>(c));
  return false;
}

// The mark right behind a digit; a full stop is a decimal mark only before another digit.
UCS4Char DigitMark(UCS4Char mark, bool beforeDigit) {
  switch (mark) {
    case '\'':
      return 0x66C;
    case '.':
      return beforeDigit ? 0x66B : mark;
    case '%':
      return 0x66A;
    default:
      return 0;
  }
}

}  // namespace

namespace TUCS4ListHelper {

void ChangeToArabicDigits(std::span<UCS4Char> list) {
  using TDigits = TOrvGlobalSettings::TArabicDigitType;
  const TDigits digits = TOrvGlobalSettings::ArabicDigitType;
  if (digits == TDigits::Latin) return;
  std::size_t i = NextDigit(list, 0);
  if (i == list.size() || KeepsDigits(list)) return;
  const UCS4Char zero = digits == TDigits::ArabicDigitType1 ? 0x660 : 0x6F0;
  for (; i < list.size(); i = NextDigit(list, i)) {
    list[i] = zero + (list[i] - '0');
    if (++i == list.size()) break;
    const UCS4Char mark = DigitMark(list[i], i + 1 < list.size() && IsAsciiDigit(list[i + 1]));
    if (mark != 0) list[i++] = mark;
  }
}

void ReplaceQuotesWithPrimes(std::span<UCS4Char> list) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    if (list[i] != '"' && list[i] != '\'') continue;
    if (rtl::IsNumber(list[i - 1])) list[i] = list[i] == '"' ? 0x2033 : 0x2032;
  }
}

void QuoteToReversePrime(UCS4Char& c) {
  if (c == '"')
    c = 0x2036;
  else if (c == '\'')
    c = 0x2035;
}

}  // namespace TUCS4ListHelper

}  // namespace orv
