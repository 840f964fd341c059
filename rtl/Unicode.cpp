#include "rtl/Unicode.h"

#include <algorithm>

#include "rtl/Assertions.h"
#include "rtl/Strings.h"
#include "rtl/UnicodeMappings.inc"
#include "rtl/UnicodeTables.h"

namespace rtl {

constinit const std::string_view UnicodeDataVersion = data::Version;

namespace {

// The entry of a two-stage table that has a block of nothing at its limit.
template <typename Blocks, typename Entries>
std::uint8_t LookUp(const Blocks& blocks, const Entries& entries, unsigned shift, std::uint32_t limit,
                    std::uint32_t codePoint) {
  const std::uint32_t c = std::min(codePoint, limit);
  return entries[(std::uint32_t{blocks[c >> shift]} << shift) | (c & ((1U << shift) - 1))];
}

const data::TCaseDistances& CaseDistancesOf(std::uint32_t codePoint) {
  return data::CaseDistances[LookUp(data::CaseBlocks, data::CaseRecords, data::CaseShift, data::CaseLimit, codePoint)];
}

// Distances may be negative: the sum wraps to the right value.
std::uint32_t Moved(std::uint32_t codePoint, std::int32_t distance) {
  return codePoint + static_cast<std::uint32_t>(distance);
}

}  // namespace

TUnicodeCategory GetUnicodeCategory(std::uint32_t codePoint) {
  return CategoryOf(codePoint);
}

bool IsLetter(std::uint32_t codePoint) {
  return IsInCategories(codePoint, LetterCategories);
}
bool IsLetterOrDigit(std::uint32_t codePoint) {
  return IsInCategories(codePoint, LetterOrDigitCategories);
}
bool IsDigit(std::uint32_t codePoint) {
  return CategoryOf(codePoint) == TUnicodeCategory::Nd;
}
bool IsNumber(std::uint32_t codePoint) {
  return IsInCategories(codePoint, NumberCategories);
}
bool IsLower(std::uint32_t codePoint) {
  return CategoryOf(codePoint) == TUnicodeCategory::Ll;
}
bool IsUpper(std::uint32_t codePoint) {
  return CategoryOf(codePoint) == TUnicodeCategory::Lu;
}
bool IsControl(std::uint32_t codePoint) {
  return CategoryOf(codePoint) == TUnicodeCategory::Cc;
}
bool IsDefined(std::uint32_t codePoint) {
  return CategoryOf(codePoint) != TUnicodeCategory::Cn;
}
bool IsMark(std::uint32_t codePoint) {
  return IsInCategories(codePoint, MarkCategories);
}
bool IsPunctuation(std::uint32_t codePoint) {
  return IsInCategories(codePoint, PunctuationCategories);
}
bool IsSeparator(std::uint32_t codePoint) {
  return IsInCategories(codePoint, SeparatorCategories);
}
bool IsSymbol(std::uint32_t codePoint) {
  return IsInCategories(codePoint, SymbolCategories);
}
bool IsWhiteSpace(std::uint32_t codePoint) {
  return IsWhiteSpaceCodePoint(codePoint);
}

double GetNumericValue(std::uint32_t codePoint) {
  return data::NumericValues[LookUp(data::NumericBlocks, data::NumericRecords, data::NumericShift, data::NumericLimit,
                                    codePoint)];
}

std::uint32_t ToLower(std::uint32_t codePoint) {
  return Moved(codePoint, CaseDistancesOf(codePoint).ToLower);
}
std::uint32_t ToUpper(std::uint32_t codePoint) {
  return Moved(codePoint, CaseDistancesOf(codePoint).ToUpper);
}

std::uint32_t ConvertToUtf32(char16_t high, char16_t low) {
  ORV_ASSERT(IsHighSurrogate(high), "The first unit of a pair must be a high surrogate");
  ORV_ASSERT(IsLowSurrogate(low), "The second unit of a pair must be a low surrogate");
  // Ten bits of each, so that no argument makes a value above U+10FFFF.
  return 0x10000 + ((std::uint32_t{high} & 0x3FF) << 10) + (std::uint32_t{low} & 0x3FF);
}

std::uint32_t ConvertToUtf32(std::u16string_view s, std::int32_t index, std::int32_t& charLength) {
  const char16_t first = UnitAt(s, index);
  const char16_t second = UnitAt(s, std::int64_t{index} + 1);
  const bool isPair = IsHighSurrogate(first) && IsLowSurrogate(second);
  charLength = isPair ? 2 : 1;
  return isPair ? ConvertToUtf32(first, second) : first;
}

}  // namespace rtl
