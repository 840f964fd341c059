// The property service outside the range of code points, by examples, and its decoding of UTF-16.
#include "rtl/Unicode.h"

#include <gtest/gtest.h>
#include <unicode/utf16.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "rtl/Exceptions.h"
#include "rtl/UnicodeTables.h"

namespace {

using rtl::TUnicodeCategory;

// What other rooms build their own tables from has to be known to the compiler.
static_assert(rtl::CategoryOf(u'a') == TUnicodeCategory::Ll);
static_assert(rtl::CategoryOf(0x0627) == TUnicodeCategory::Lo);
static_assert(rtl::CategoryOf(0x10FFFF) == TUnicodeCategory::Cn);
static_assert(rtl::CategoryOf(0xFFFFFFFF) == TUnicodeCategory::Cn);
static_assert(rtl::IsWhiteSpaceUnit(u'\u2028') && !rtl::IsWhiteSpaceUnit(u'\u200B'));
static_assert(rtl::IsInCategories(u'5', rtl::LetterOrDigitCategories) &&
              !rtl::IsInCategories(u'5', rtl::LetterCategories));

void ExpectUnassigned(std::uint32_t c) {
  ASSERT_EQ(rtl::GetUnicodeCategory(c), TUnicodeCategory::Cn) << std::hex << c;
  ASSERT_FALSE(rtl::IsLetterOrDigit(c) || rtl::IsLetter(c) || rtl::IsDigit(c) || rtl::IsNumber(c) || rtl::IsLower(c) ||
               rtl::IsUpper(c) || rtl::IsControl(c) || rtl::IsDefined(c) || rtl::IsMark(c) || rtl::IsPunctuation(c) ||
               rtl::IsSeparator(c) || rtl::IsSymbol(c) || rtl::IsWhiteSpace(c) || rtl::IsSurrogate(c))
      << std::hex << c;
  ASSERT_EQ(rtl::GetNumericValue(c), -1.0) << std::hex << c;
  ASSERT_EQ(rtl::ToLower(c), c);
  ASSERT_EQ(rtl::ToUpper(c), c);
}

TEST(Unicode, ValuesAboveTheRangeAreUnassignedAndMapToThemselves) {
  for (std::uint32_t c = rtl::MaxCodePoint + 1; c < 0x130000; ++c) ExpectUnassigned(c);
  // Values whose low 21 bits are those of a letter, a digit or white space are none the less outside.
  for (std::uint32_t high = 0x00200000; high != 0; high <<= 1) {
    for (const std::uint32_t low : {0x20U, 0x35U, 0x41U, 0x61U, 0x627U, 0xD800U, 0x1D7CEU, 0x10FFFFU}) {
      ExpectUnassigned(high | low);
    }
  }
  ExpectUnassigned(0x7FFFFFFF);
  ExpectUnassigned(0xFFFFFFFF);
}

TEST(Unicode, FractionsAreExactAndNegativesAndLargeNumbersWork) {
  EXPECT_EQ(rtl::GetNumericValue(0x2153), 1.0 / 3.0);
  EXPECT_EQ(rtl::GetNumericValue(0x0F33), -0.5);
  EXPECT_EQ(rtl::GetNumericValue(0x5146), 1e12);
  EXPECT_EQ(rtl::GetNumericValue(0x0669), 9.0);
  EXPECT_EQ(rtl::GetNumericValue(u'A'), -1.0);
}

TEST(Unicode, TitleCaseAndOneWayMappings) {
  EXPECT_EQ(rtl::ToLower(0x01C5), 0x01C6U);
  EXPECT_EQ(rtl::ToUpper(0x01C5), 0x01C4U);
  EXPECT_EQ(rtl::ToUpper(0x0131), u'I');       // dotless i
  EXPECT_EQ(rtl::ToLower(0x212A), u'k');       // the Kelvin sign
  EXPECT_EQ(rtl::ToUpper(0x00DF), 0x00DFU);    // sharp s has no simple uppercase
  EXPECT_EQ(rtl::ToLower(0x1E921), 0x1E943U);  // Adlam, a cased right-to-left script
}

TEST(Unicode, EachPairOfSurrogatesMakesItsOwnCodePoint) {
  std::uint32_t expected = 0x10000;
  for (std::uint32_t high = 0xD800; high <= 0xDBFF; ++high) {
    for (std::uint32_t low = 0xDC00; low <= 0xDFFF; ++low) {
      ASSERT_EQ(rtl::ConvertToUtf32(static_cast<char16_t>(high), static_cast<char16_t>(low)), expected++);
    }
  }
  EXPECT_EQ(expected, 0x110000U);
}

// A pair of wrong units is the caller's mistake: an assertion where they are on, and elsewhere some code point.
TEST(Unicode, WrongUnitsOfAPairAreAnAssertion) {
  for (const auto& [high, low] :
       {std::pair{u'a', u'\xDC00'}, std::pair{u'\xD800', u'b'}, std::pair{u'\xDC00', u'\xD800'},
        std::pair{u'\xFFFF', u'\xFFFF'}, std::pair{u'\0', u'\0'}}) {
#ifdef ORV_ASSERTIONS
    EXPECT_THROW(rtl::ConvertToUtf32(high, low), rtl::EAssertionFailed);
#else
    EXPECT_LE(rtl::ConvertToUtf32(high, low), rtl::MaxCodePoint);
#endif
  }
}

TEST(Unicode, EveryCodePointIsReadBackFromItsUtf16) {
  for (std::uint32_t c = 0; c <= rtl::MaxCodePoint; ++c) {
    std::array<char16_t, 2> units{};
    std::int32_t length = 0;
    U16_APPEND_UNSAFE(units, length, c);
    std::int32_t charLength = 0;
    ASSERT_EQ(rtl::ConvertToUtf32(std::u16string_view(units.data(), static_cast<std::size_t>(length)), 0, charLength),
              c);
    ASSERT_EQ(charLength, length);
  }
}

// The text of `length` units that is number `number` in the counting over `alphabet`.
std::vector<char16_t> TextOf(const std::vector<char16_t>& alphabet, std::size_t number, std::size_t length) {
  std::vector<char16_t> text(length);
  for (char16_t& unit : text) {
    unit = alphabet[number % alphabet.size()];
    number /= alphabet.size();
  }
  return text;
}

void ExpectReadsLikeIcu(const std::vector<char16_t>& text) {
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::int32_t index = 0; index < length; ++index) {
    std::int32_t next = index;
    UChar32 expected = 0;
    U16_NEXT(text.data(), next, length, expected);
    std::int32_t charLength = 0;
    ASSERT_EQ(rtl::ConvertToUtf32({text.data(), text.size()}, index, charLength), static_cast<std::uint32_t>(expected));
    ASSERT_EQ(charLength, next - index);
  }
}

// Each text lives in a block of its very length, so that a look behind its end is caught.
TEST(Unicode, LoneSurrogatesAtEveryPlaceAnswerThemselves) {
  const std::vector<char16_t> alphabet{u'a', 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000};
  std::size_t texts = 1;
  for (std::size_t length = 1; length <= 4; ++length) {
    texts *= alphabet.size();
    for (std::size_t number = 0; number < texts; ++number) ExpectReadsLikeIcu(TextOf(alphabet, number, length));
  }
}

TEST(Unicode, AnIndexOutsideTheTextReadsZero) {
  constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
  constexpr auto highest = std::numeric_limits<std::int32_t>::max();
  // A high surrogate in front of the start or a low one behind the end may not make a pair with what is not there.
  for (const std::u16string_view text :
       {std::u16string_view(), std::u16string_view(u"\xDC00"), std::u16string_view(u"\xD800")}) {
    const auto end = static_cast<std::int32_t>(text.size());
    for (const std::int32_t index : {lowest, lowest + 1, -2, -1, end, end + 1, highest - 1, highest}) {
      std::int32_t charLength = 7;
      EXPECT_EQ(rtl::ConvertToUtf32(text, index, charLength), 0U) << index;
      EXPECT_EQ(charLength, 1) << index;
    }
  }
}

}  // namespace
