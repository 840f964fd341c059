// UTF-8 to UTF-16 and back.
#include "rtl/Utf8.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// Every code point but the surrogates, and its length.
TEST(Utf8, EveryCodePointReturns) {
  for (std::uint32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::u16string units;
    if (c < 0x10000) {
      units = {static_cast<char16_t>(c)};
    } else {
      units = {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
    }
    const std::string bytes = rtl::ToUtf8(units);
    ASSERT_EQ(bytes.size(), c < 0x80 ? 1U : c < 0x800 ? 2U : c < 0x10000 ? 3U : 4U);
    ASSERT_EQ(rtl::FromUtf8(bytes), units);
    const rtl::TUtf8Char decoded = rtl::DecodeUtf8(bytes, 0);
    ASSERT_EQ(decoded.CodePoint, c);
    ASSERT_EQ(decoded.Length, bytes.size());
  }
}

TEST(Utf8, ALoneSurrogateIsReplaced) {
  EXPECT_EQ(rtl::ToUtf8(u"a\xD800\xDC00\xDC00\xD800"), "a\xF0\x90\x80\x80\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, EveryByteOfABrokenSequenceIsReplaced) {
  EXPECT_EQ(rtl::FromUtf8("\x80"sv), u"\uFFFD");
  EXPECT_EQ(rtl::FromUtf8("\xC0\x80"sv), u"\uFFFD\uFFFD");  // longer than it needs to be
  EXPECT_EQ(rtl::FromUtf8("\xE0\x80\x80"sv), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(rtl::FromUtf8("\xED\xA0\x80"sv), u"\uFFFD\uFFFD\uFFFD");  // a surrogate
  EXPECT_EQ(rtl::FromUtf8("\xF4\x90\x80\x80"sv), u"\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(rtl::FromUtf8("\xE2\x82"sv), u"\uFFFD\uFFFD");
  EXPECT_EQ(rtl::FromUtf8("\xE2\x82z"sv), u"\uFFFD\uFFFDz");
}

TEST(Utf8, AppendingKeepsWhatIsThere) {
  for (const auto& bytes :
       {""s, "plain ascii of more than sixteen bytes"s, "\xD8\xB3"s, "ascii and \xD8\xB3"s, "\0a"s}) {
    std::u16string text = u"front";
    rtl::AppendUtf16(text, bytes);
    EXPECT_EQ(text, u"front" + rtl::FromUtf8(bytes));
    EXPECT_EQ(rtl::ToUtf8(text), "front" + bytes);
  }
}

TEST(Utf8, AnyBytesGiveWellFormedTextOfAtMostOneUnitAByte) {
  std::mt19937 random(3);
  constexpr unsigned char bytes[] = {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC2, 0xD8,
                                     0xE0, 0xED, 0xEF, 0xF0, 0xF4, 0xF5, 0xFF};
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (auto left = random() % 9; left > 0; --left) text += static_cast<char>(bytes[random() % std::size(bytes)]);
    const std::u16string units = rtl::FromUtf8(text);
    ASSERT_LE(units.size(), text.size());
    ASSERT_EQ(rtl::FromUtf8(rtl::ToUtf8(units)), units);
  }
}

}  // namespace
