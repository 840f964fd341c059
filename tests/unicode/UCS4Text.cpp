// Code points, blocks of them, and their conversions.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/unicode/support/RandomText.h"
#include "unicode/Unicode.Text.UCS4.h"

namespace orv::testing {
namespace {

UCS4String Block(std::u32string_view text) {
  return UCS4String(text.begin(), text.end());
}

TEST(UCS4StringHelper, ReadsAnArray) {
  const UCS4String text = Block(U"ab\U0001F600");
  EXPECT_EQ(TUCS4StringHelper::Length(text), 3);
  EXPECT_EQ(TUCS4StringHelper::GetChars(text, 2), 0x1F600U);
  EXPECT_FALSE(TUCS4StringHelper::IsEmpty(text));
  EXPECT_TRUE(TUCS4StringHelper::IsEmpty({}));
}

TEST(UCS4CharHelper, ForwardsToThePropertyService) {
  using namespace TUCS4CharHelper;
  EXPECT_EQ(MaxCodePoint, 0x10FFFFU);
  EXPECT_FALSE(UnicodeDataVersion.empty());
  EXPECT_TRUE(IsLetter(0x628) && IsLetterOrDigit('5') && IsDigit(0x661) && IsNumber(0xBD) && IsControl(9));
  EXPECT_TRUE(IsLower('a') && IsUpper('A') && IsPunctuation('!') && IsSymbol('+') && IsSeparator(' ') &&
              IsWhiteSpace('\t'));
  EXPECT_TRUE(IsHighSurrogate(0xD800) && IsLowSurrogate(0xDC00) && IsSurrogate(0xDFFF) && IsDefined('a'));
  EXPECT_FALSE(IsDefined(0x10FFFF) || IsLetter(0x110628));
  EXPECT_EQ(GetUnicodeCategory('('), rtl::TUnicodeCategory::Ps);
  EXPECT_EQ(GetNumericValue(0x667), 7);
  EXPECT_EQ(ToLower('A'), static_cast<UCS4Char>('a'));
  EXPECT_EQ(ToUpper(0x10428), 0x10400U);
}

TEST(UCS4CharHelper, ConvertsFromUtf16) {
  using TUCS4CharHelper::ConvertFromUtf16;
  std::int32_t length = 0;
  EXPECT_EQ(ConvertFromUtf16(u"a\U0001F600", 1), 0x1F600U);
  EXPECT_EQ(ConvertFromUtf16(u"a\U0001F600", 1, length), 0x1F600U);
  EXPECT_EQ(length, 2);
  EXPECT_EQ(ConvertFromUtf16(u"a\U0001F600", 2, length), 0xDE00U);  // inside a pair: its half
  EXPECT_EQ(length, 1);
  EXPECT_EQ(ConvertFromUtf16(u'\xD83D', u'\xDE00'), 0x1F600U);
}

TEST(UCS4CharHelper, ConvertsToUtf16) {
  using namespace TUCS4CharHelper;
  EXPECT_EQ(ConvertToUtf16('a'), u"a");
  EXPECT_EQ(ConvertToUtf16(0xFFFF), u"\uFFFF");
  EXPECT_EQ(ConvertToUtf16(0x10000), u"\U00010000");
  EXPECT_EQ(ConvertToUtf16(0x10FFFF), u"\U0010FFFF");
  EXPECT_EQ(ConvertToUtf16(0xD800), std::u16string(1, u'\xD800'));
  EXPECT_EQ(ConvertToUtf16(0x110000), u"\uFFFD");
  EXPECT_EQ(ToWideChar(0x1F600), u'\xF600');  // a plain truncation
}

TEST(UCS4CharHelper, FindsAValueInAnArray) {
  const UCS4Char values[] = {5, 7, 0x1F600};
  EXPECT_TRUE(TUCS4CharHelper::IsInArray(7, values));
  EXPECT_FALSE(TUCS4CharHelper::IsInArray(6, values));
  EXPECT_FALSE(TUCS4CharHelper::IsInArray(6, {}));
}

TEST(UCS4CharPtrHelper, LengthOfNothingIsZero) {
  EXPECT_EQ(TUCS4CharPtrHelper::Length(nullptr), 0);
  const UCS4Char empty[] = {0, 7};
  EXPECT_EQ(TUCS4CharPtrHelper::Length(empty), 0);
}

TEST(UCS4CharPtrHelper, CopiesATextAndItsTerminatorIntoABlock) {
  UCS4Char block[8];
  std::memset(block, 0xEE, sizeof block);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u"a\U0001F600b"), 4);
  EXPECT_EQ(UCS4String(block, block + 5), (UCS4String{'a', 0x1F600, 'b', 0, 0xEEEEEEEE}));
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u""), 1);
  EXPECT_EQ(block[0], 0U);
}

TEST(UCS4CharPtrHelper, CopiesACutPrefixAndAnswersTheFullCount) {
  UCS4Char block[4];
  std::memset(block, 0xEE, sizeof block);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u"abc", 6), 4);
  EXPECT_EQ(block[0], static_cast<UCS4Char>('a'));
  EXPECT_EQ(block[1] & 0xFFFF, static_cast<UCS4Char>('b'));
  EXPECT_EQ(block[1] >> 16, 0xEEEEU);  // the seventh byte was not written
  EXPECT_EQ(block[2], 0xEEEEEEEEU);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u"abc", 1000), 4);
  EXPECT_EQ(block[3], 0U);
  std::memset(block, 0xEE, sizeof block);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u"abc", 0), 4);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertFromUtf16(block, u"abc", -1), 4);
  EXPECT_EQ(block[0], 0xEEEEEEEEU);
}

TEST(UCS4CharPtrHelper, ReallocatesABlockAndFreesItForAnEmptyText) {
  PUCS4Char block = nullptr;
  TUCS4CharPtrHelper::ConvertFromUtf16(u"ab", block);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(TUCS4CharPtrHelper::ConvertToUtf16(block), u"ab");
  TUCS4CharPtrHelper::ConvertFromUtf16(std::u16string(5000, u'x'), block);
  EXPECT_EQ(TUCS4CharPtrHelper::Length(block), 5000);
  TUCS4CharPtrHelper::ConvertFromUtf16(u"", block);
  EXPECT_EQ(block, nullptr);
  TUCS4CharPtrHelper::ConvertFromUtf16(u"", block);
  EXPECT_EQ(block, nullptr);
}

TEST(UCS4CharPtrHelper, FreeSetsThePointerToNull) {
  PUCS4Char block = nullptr;
  TUCS4CharPtrHelper::ConvertFromUtf16(u"ab", block);
  TUCS4CharPtrHelper::Free(block);
  EXPECT_EQ(block, nullptr);
  TUCS4CharPtrHelper::Free(block);
}

TEST(UCS4CharPtrHelper, AnArrayOfABlockHasNoTerminator) {
  const UCS4Char block[] = {'a', 'b', 'c', 0};
  EXPECT_EQ(TUCS4CharPtrHelper::ToUCS4String(block), Block(U"abc"));
  EXPECT_EQ(TUCS4CharPtrHelper::ToUCS4String(nullptr), UCS4String());
  const UCS4String text = Block(U"xy");
  EXPECT_EQ(TUCS4CharPtrHelper::PUCS4Chars(text), text.data());
}

TEST(Utf16Conversion, KeepsPairsTogetherAndLoneSurrogatesAsTheyAre) {
  EXPECT_EQ(ToUCS4String(u"a\xD83D\xDE00\xDE00\xD83D"), (UCS4String{'a', 0x1F600, 0xDE00, 0xD83D}));
  EXPECT_EQ(ToUCS4String(u"\xD83D\xD83D\xDE00z"), (UCS4String{0xD83D, 0x1F600, 'z'}));
  EXPECT_EQ(ToUCS4String(u""), UCS4String());
  TUCS4List list{1, 2};
  AppendUtf16(u"\U0001F600x", list);
  EXPECT_EQ(list, (TUCS4List{1, 2, 0x1F600, 'x'}));
}

TEST(Utf16Conversion, MeetsASurrogateAtEveryPlaceOfALongText) {
  for (std::size_t length = 0; length < 70; ++length)
    for (std::size_t place = 0; place < length; ++place) {
      std::u16string text(length, u'\u0628');
      text[place] = u'\xD83D';
      UCS4String expected(text.begin(), text.end());
      ASSERT_EQ(ToUCS4String(text), expected);
      if (place + 1 == length) continue;
      text[place + 1] = u'\xDE00';
      expected[place] = 0x1F600;
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(place) + 1);
      ASSERT_EQ(ToUCS4String(text), expected);
    }
}

TEST(Utf16Conversion, ThereAndBackAgainIsTheText) {
  TRandom random(51);
  for (int trial = 0; trial < Trials(200000); ++trial) {
    const std::u16string text = RandomText(random);
    ASSERT_EQ(ToUtf16(ToUCS4String(text)), text) << Shown(text);
  }
}

}  // namespace
}  // namespace orv::testing
