// Walks every code point of the property service against ICU, which reads the same database in its own way.
#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <array>
#include <string>

#include "rtl/Unicode.h"
#include "rtl/UnicodeTables.h"

namespace {

using rtl::TUnicodeCategory;

// rtl's category of each UCharCategory, in ICU's order.
constexpr std::array<TUnicodeCategory, U_CHAR_CATEGORY_COUNT> CategoryOfIcu{
    TUnicodeCategory::Cn, TUnicodeCategory::Lu, TUnicodeCategory::Ll, TUnicodeCategory::Lt, TUnicodeCategory::Lm,
    TUnicodeCategory::Lo, TUnicodeCategory::Mn, TUnicodeCategory::Me, TUnicodeCategory::Mc, TUnicodeCategory::Nd,
    TUnicodeCategory::Nl, TUnicodeCategory::No, TUnicodeCategory::Zs, TUnicodeCategory::Zl, TUnicodeCategory::Zp,
    TUnicodeCategory::Cc, TUnicodeCategory::Cf, TUnicodeCategory::Co, TUnicodeCategory::Cs, TUnicodeCategory::Pd,
    TUnicodeCategory::Ps, TUnicodeCategory::Pe, TUnicodeCategory::Pc, TUnicodeCategory::Po, TUnicodeCategory::Sm,
    TUnicodeCategory::Sc, TUnicodeCategory::Sk, TUnicodeCategory::So, TUnicodeCategory::Pi, TUnicodeCategory::Pf};

// Calls check for every code point, and stops at the first that fails, naming it.
template <typename Check>
void ForEveryCodePoint(Check check) {
  for (std::uint32_t c = 0; c <= rtl::MaxCodePoint; ++c) {
    ASSERT_TRUE(check(c)) << "code point " << std::hex << c;
  }
}

UChar32 Icu(std::uint32_t c) {
  return static_cast<UChar32>(c);
}
bool IsOneOf(std::uint32_t c, std::uint32_t mask) {
  return (U_GET_GC_MASK(Icu(c)) & mask) != 0;
}

TEST(UnicodeOracle, SpeaksOfTheSameUnicodeVersion) {
  EXPECT_EQ(std::string(rtl::UnicodeDataVersion), std::string(U_UNICODE_VERSION) + ".0");
}

TEST(UnicodeOracle, GeneralCategoryOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    const TUnicodeCategory expected = CategoryOfIcu[static_cast<std::size_t>(u_charType(Icu(c)))];
    return rtl::GetUnicodeCategory(c) == expected && rtl::CategoryOf(c) == expected;
  });
}

TEST(UnicodeOracle, LettersDigitsAndNumbersOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    return rtl::IsLetter(c) == IsOneOf(c, U_GC_L_MASK) &&
           rtl::IsLetterOrDigit(c) == IsOneOf(c, U_GC_L_MASK | U_GC_ND_MASK) &&
           rtl::IsDigit(c) == IsOneOf(c, U_GC_ND_MASK) && rtl::IsNumber(c) == IsOneOf(c, U_GC_N_MASK) &&
           rtl::IsLower(c) == IsOneOf(c, U_GC_LL_MASK) && rtl::IsUpper(c) == IsOneOf(c, U_GC_LU_MASK);
  });
}

TEST(UnicodeOracle, MarksPunctuationSymbolsAndControlsOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    return rtl::IsMark(c) == IsOneOf(c, U_GC_M_MASK) && rtl::IsPunctuation(c) == IsOneOf(c, U_GC_P_MASK) &&
           rtl::IsSeparator(c) == IsOneOf(c, U_GC_Z_MASK) && rtl::IsSymbol(c) == IsOneOf(c, U_GC_S_MASK) &&
           rtl::IsControl(c) == IsOneOf(c, U_GC_CC_MASK) && rtl::IsDefined(c) == (u_isdefined(Icu(c)) != 0);
  });
}

TEST(UnicodeOracle, WhiteSpaceOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    const bool expected = u_isUWhiteSpace(Icu(c)) != 0;
    // The look-up by code unit is complete only if no white space lies above the Basic Multilingual Plane.
    return rtl::IsWhiteSpace(c) == expected &&
           (c > 0xFFFF ? !expected : rtl::IsWhiteSpaceUnit(static_cast<char16_t>(c)) == expected);
  });
}

TEST(UnicodeOracle, NumericValueOfEveryCodePointToTheLastBit) {
  ForEveryCodePoint([](std::uint32_t c) {
    const double expected = u_getNumericValue(Icu(c));
    return rtl::GetNumericValue(c) == (expected == U_NO_NUMERIC_VALUE ? -1.0 : expected);
  });
}

TEST(UnicodeOracle, SimpleCaseMappingsOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    return rtl::ToLower(c) == static_cast<std::uint32_t>(u_tolower(Icu(c))) &&
           rtl::ToUpper(c) == static_cast<std::uint32_t>(u_toupper(Icu(c)));
  });
}

TEST(UnicodeOracle, SurrogateTestsOfEveryCodePoint) {
  ForEveryCodePoint([](std::uint32_t c) {
    const bool isSurrogate = U_IS_SURROGATE(c);
    return rtl::IsSurrogate(c) == isSurrogate && rtl::IsHighSurrogate(c) == (isSurrogate && U16_IS_SURROGATE_LEAD(c)) &&
           rtl::IsLowSurrogate(c) == (isSurrogate && U16_IS_SURROGATE_TRAIL(c));
  });
}

}  // namespace
