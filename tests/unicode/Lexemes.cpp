// Word walking, in its pointer and its array forms.
#include <gtest/gtest.h>

#include <limits>

#include "rtl/Exceptions.h"
#include "tests/unicode/support/RandomText.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

UCS4String List(std::u32string_view text) {
  return UCS4String(text.begin(), text.end());
}
UCS4String Terminated(std::u32string_view text) {
  UCS4String list = List(text);
  list.push_back(0);
  return list;
}

// ---- What a word is ----

TEST(Lexemes, BracketsStopsCommasAndMathematicalSignsBelongToWords) {
  for (const std::u32string_view word : {U"a,b", U"(x)", U"a.b!", U"1+2=3", U"\u06A9\u062A\u0627\u0628\u060C",
                                         U"\U00010330\U00010331", U"\u0661\u0662"}) {
    const UCS4String text = List(word);
    EXPECT_EQ(GetLexemeEnd(text, 0), static_cast<std::int32_t>(text.size()) - 1);
    EXPECT_EQ(GetNextLexemeBegin(text, 0), static_cast<std::int32_t>(text.size()));
  }
}

TEST(Lexemes, BlanksDashesQuotesSymbolsConnectorsAndMarksSeparateWords) {
  for (const char32_t separator : U" \t-\u00AB\u00BB$\u20AC_^\u2160\u064E\u200C\u00A9") {
    if (separator == 0) continue;
    const UCS4String text = {'a', separator, 'b'};
    EXPECT_EQ(GetLexemeEnd(text, 0), 0) << static_cast<std::uint32_t>(separator);
    EXPECT_EQ(GetNextLexemeBegin(text, 0), 2) << static_cast<std::uint32_t>(separator);
  }
}

// ---- Pointer forms ----

TEST(LexemePointers, FindTheBeginOfTheWordAtOrBefore) {
  const UCS4String text = Terminated(U"ab cd  ");
  const UCS4Char* const start = text.data();
  EXPECT_EQ(GetLexemeBegin(start, start), start);
  EXPECT_EQ(GetLexemeBegin(start, start + 1), start);
  EXPECT_EQ(GetLexemeBegin(start, start + 2), start);
  EXPECT_EQ(GetLexemeBegin(start, start + 4), start + 3);
  EXPECT_EQ(GetLexemeBegin(start, start + 7), start + 3);
}

TEST(LexemePointers, FindTheLastElementOfTheWordOrGap) {
  const UCS4String text = Terminated(U"ab  c");
  const UCS4Char* const start = text.data();
  EXPECT_EQ(GetLexemeEnd(start), start + 1);
  EXPECT_EQ(GetLexemeEnd(start + 1), start + 1);  // at the last character of a word
  EXPECT_EQ(GetLexemeEnd(start + 2), start + 3);
  EXPECT_EQ(GetLexemeEnd(start + 4), start + 4);
  EXPECT_EQ(GetLexemeEnd(start + 5), start + 5);  // at the terminator
}

TEST(LexemePointers, FindTheNextWordOrTheTerminator) {
  const UCS4String text = Terminated(U"ab cd");
  EXPECT_EQ(GetNextLexemeBegin(text.data()), text.data() + 3);
  EXPECT_EQ(GetNextLexemeBegin(text.data() + 2), text.data() + 3);
  const UCS4String last = Terminated(U"ab ");
  EXPECT_EQ(GetNextLexemeBegin(last.data()), last.data() + 3);
  EXPECT_EQ(GetNextLexemeBegin(last.data() + 3), last.data() + 3);
}

TEST(LexemePointers, FindTheWordBeforeAndItsEnd) {
  const UCS4String text = Terminated(U" ab  cd");
  const UCS4Char* const start = text.data();
  EXPECT_EQ(GetPrevLexemeBegin(start, start + 7), start + 5);
  EXPECT_EQ(GetPrevLexemeBegin(start, start + 5), start + 1);
  EXPECT_EQ(GetPrevLexemeBegin(start, start + 1), start);
  EXPECT_EQ(GetPrevLexemeEnd(start, start + 5), start + 3);
  EXPECT_EQ(GetPrevLexemeEnd(start, start + 3), start + 3);
  EXPECT_EQ(GetPrevLexemeEnd(start, start + 1), start);
}

TEST(LexemePointers, ANullPlaceIsReturnedAsItCame) {
  const UCS4Char start[] = {'a', 0};
  EXPECT_EQ(GetLexemeBegin(start, nullptr), nullptr);
  EXPECT_EQ(GetLexemeEnd(nullptr), nullptr);
  EXPECT_EQ(GetNextLexemeBegin(nullptr), nullptr);
  EXPECT_EQ(GetPrevLexemeBegin(start, nullptr), nullptr);
  EXPECT_EQ(GetPrevLexemeEnd(start, nullptr), nullptr);
}

#ifdef ORV_ASSERTIONS
TEST(LexemePointers, APlaceBeforeTheStartAndANullStartAreAssertions) {
  const UCS4Char text[] = {'a', 'b', 0};
  for (const auto walk : {static_cast<const UCS4Char* (*)(const UCS4Char*, const UCS4Char*)>(GetLexemeBegin),
                          static_cast<const UCS4Char* (*)(const UCS4Char*, const UCS4Char*)>(GetPrevLexemeBegin),
                          static_cast<const UCS4Char* (*)(const UCS4Char*, const UCS4Char*)>(GetPrevLexemeEnd)}) {
    EXPECT_THROW(walk(text + 1, text), rtl::EAssertionFailed);
    EXPECT_THROW(walk(nullptr, text), rtl::EAssertionFailed);
    EXPECT_THROW(walk(nullptr, nullptr), rtl::EAssertionFailed);
  }
}
#endif

// ---- Array forms ----

TEST(LexemeIndices, AtTheLastCharacterOfAWordTheEndIsThere) {
  EXPECT_EQ(GetLexemeEnd(List(U"ab cd"), 1), 1);
}

TEST(LexemeIndices, TheNextWordOrTheLength) {
  EXPECT_EQ(GetNextLexemeBegin(List(U"ab cd"), 0), 3);
  EXPECT_EQ(GetNextLexemeBegin(List(U"ab "), 0), 3);
}

TEST(LexemeIndices, BehindAWordItsEndIsThePlaceItself) {
  EXPECT_EQ(GetPrevLexemeEnd(List(U"ab cd"), 2), 2);
  EXPECT_EQ(GetPrevLexemeEnd(List(U"ab cd"), 3), 2);
  EXPECT_EQ(GetPrevLexemeEnd(List(U"ab cd"), 5), 5);
}

TEST(LexemeIndices, OfSeparatorsOnly) {
  const UCS4String text = List(U"- - ");
  EXPECT_EQ(GetNextLexemeBegin(text, 0), 4);
  EXPECT_EQ(GetLexemeBegin(text, 4), 0);
  EXPECT_EQ(GetLexemeBegin(text, 3), 0);
}

TEST(LexemeIndices, AZeroInsideEndsAWalkForward) {
  const UCS4String text = {'a', 0, 'b', 0, ' ', 'c'};
  EXPECT_EQ(GetLexemeEnd(text, 0), 0);
  EXPECT_EQ(GetNextLexemeBegin(text, 0), 1);
  EXPECT_EQ(GetNextLexemeBegin(text, 1), 1);
  EXPECT_EQ(GetLexemeEnd(text, 1), 1);
  EXPECT_EQ(GetPrevLexemeBegin(text, 5), 2);
}

TEST(LexemeIndices, WhereAFormDoesNothingTheIndexIsTheResultWithinItsClamp) {
  const UCS4String empty, text = List(U"ab");
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                         most = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(GetLexemeBegin(empty, 5), 5);
  EXPECT_EQ(GetLexemeBegin(text, least), 0);
  EXPECT_EQ(GetLexemeEnd(empty, 5), 0);
  EXPECT_EQ(GetLexemeEnd(empty, -5), -5);
  EXPECT_EQ(GetLexemeEnd(text, most), 2);
  EXPECT_EQ(GetLexemeEnd(text, least), least);
  EXPECT_EQ(GetNextLexemeBegin(empty, 5), 5);
  EXPECT_EQ(GetNextLexemeBegin(text, -1), 0);
  EXPECT_EQ(GetNextLexemeBegin(text, most), most);
  EXPECT_EQ(GetPrevLexemeBegin(empty, 5), 0);
  EXPECT_EQ(GetPrevLexemeBegin(text, 0), 0);
  EXPECT_EQ(GetPrevLexemeBegin(text, least), 0);
  EXPECT_EQ(GetPrevLexemeEnd(empty, 5), 0);
  EXPECT_EQ(GetPrevLexemeEnd(text, least), 0);
}

TEST(LexemeIndices, FarBehindTheEndTheWalkBackFindsTheLastWord) {
  const UCS4String text = List(U"ab cd ");
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(GetLexemeBegin(text, most), 3);
  EXPECT_EQ(GetPrevLexemeBegin(text, most), 3);
  EXPECT_EQ(GetPrevLexemeEnd(text, most), 5);
}

// ---- The walks written out, with every element outside the array a 0 ----

class TPlainWalk {
 public:
  explicit TPlainWalk(const UCS4String& s) : S(s) {}

  std::int32_t Begin(std::int32_t i) const {
    if (S.empty() || i < 0) return std::max(i, 0);
    if (!IsLexeme(i))
      while (i > 0 && !IsLexeme(i - 1)) --i;
    while (i > 0 && IsLexeme(i - 1)) --i;
    return i;
  }
  std::int32_t End(std::int32_t i) const {
    if (S.empty() || i >= Length()) return std::min(i, Length());
    if (At(i) == 0) return i;
    const bool lexeme = IsLexeme(i);
    while (i + 1 < Length() && At(i + 1) != 0 && IsLexeme(i + 1) == lexeme) ++i;
    return i;
  }
  std::int32_t Next(std::int32_t i) const {
    if (S.empty() || i < 0) return std::max(i, 0);
    while (At(i) != 0 && IsLexeme(i)) ++i;
    while (At(i) != 0 && !IsLexeme(i)) ++i;
    return i;
  }
  std::int32_t PrevBegin(std::int32_t i) const {
    if (S.empty() || i < 1) return 0;
    while (i > 0 && !IsLexeme(i - 1)) --i;
    while (i > 0 && IsLexeme(i - 1)) --i;
    return i;
  }
  std::int32_t PrevEnd(std::int32_t i) const {
    if (S.empty() || i < 1) return 0;
    while (i > 0 && !IsLexeme(i - 1)) --i;
    return i;
  }

 private:
  std::int32_t Length() const { return static_cast<std::int32_t>(S.size()); }
  UCS4Char At(std::int32_t i) const { return i >= 0 && i < Length() ? S[static_cast<std::size_t>(i)] : 0; }
  bool IsLexeme(std::int32_t i) const {
    using C = rtl::TUnicodeCategory;
    const C category = rtl::GetUnicodeCategory(At(i));
    for (const C one : {C::Ll, C::Lm, C::Lo, C::Lt, C::Lu, C::Nd, C::Pe, C::Po, C::Ps, C::Sm})
      if (category == one) return true;
    return false;
  }

  const UCS4String& S;
};

// Every string of up to seven elements over a word, a separator and a zero, at every index in and beside it; and the
// pointer forms wherever they may stand.
TEST(LexemeWalks, AgreeOnEveryShortString) {
  constexpr UCS4Char alphabet[] = {'a', ' ', 0};
  for (std::size_t length = 0; length <= 7; ++length) {
    std::size_t count = 1;
    for (std::size_t i = 0; i < length; ++i) count *= 3;
    for (std::size_t code = 0; code < count; ++code) {
      UCS4String text;
      for (std::size_t rest = code, i = 0; i < length; ++i, rest /= 3) text.push_back(alphabet[rest % 3]);
      const TPlainWalk plain(text);
      for (std::int32_t index = -3; index <= static_cast<std::int32_t>(length) + 3; ++index) {
        ASSERT_EQ(GetLexemeBegin(text, index), plain.Begin(index)) << ::testing::PrintToString(text) << index;
        ASSERT_EQ(GetLexemeEnd(text, index), plain.End(index)) << ::testing::PrintToString(text) << index;
        ASSERT_EQ(GetNextLexemeBegin(text, index), plain.Next(index)) << ::testing::PrintToString(text) << index;
        ASSERT_EQ(GetPrevLexemeBegin(text, index), plain.PrevBegin(index)) << ::testing::PrintToString(text) << index;
        ASSERT_EQ(GetPrevLexemeEnd(text, index), plain.PrevEnd(index)) << ::testing::PrintToString(text) << index;
      }
      UCS4String block = text;
      block.push_back(0);
      const UCS4Char* const start = block.data();
      for (std::int32_t index = 0; index <= static_cast<std::int32_t>(length) && !text.empty(); ++index) {
        ASSERT_EQ(GetLexemeBegin(start, start + index) - start, plain.Begin(index));
        ASSERT_EQ(GetNextLexemeBegin(start + index) - start, plain.Next(index));
        if (index < static_cast<std::int32_t>(length)) {
          ASSERT_EQ(GetLexemeEnd(start + index) - start, plain.End(index));
        }
        if (index > 0) {
          ASSERT_EQ(GetPrevLexemeBegin(start, start + index) - start, plain.PrevBegin(index));
          ASSERT_EQ(GetPrevLexemeEnd(start, start + index) - start, plain.PrevEnd(index));
        }
      }
    }
  }
}

}  // namespace
}  // namespace orv::testing
