// The code pages beside the converter of the C library, byte by byte.
#include "rtl/CodePages.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <cstring>
#include <set>

namespace {

// What one byte alone stands for by iconv; nothing where iconv refuses it.
std::optional<char16_t> ByIconv(std::uint32_t page, std::uint8_t byte) {
  const iconv_t converter = iconv_open("UTF-16LE", ("CP" + std::to_string(page)).c_str());
  EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << page;
  char in = static_cast<char>(byte);
  char out[4] = {};
  char* from = &in;
  char* to = out;
  std::size_t inLeft = 1;
  std::size_t outLeft = sizeof(out);
  const bool converted = iconv(converter, &from, &inLeft, &to, &outLeft) != static_cast<std::size_t>(-1) &&
                         iconv(converter, nullptr, nullptr, &to, &outLeft) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  if (!converted) return std::nullopt;
  EXPECT_EQ(outLeft, 2U) << page << " " << int{byte};
  char16_t unit = 0;
  std::memcpy(&unit, out, sizeof(unit));
  return unit;
}

TEST(CodePages, EveryByteOfEveryPageIsWhatIconvMakesOfItAlone) {
  for (const std::uint32_t number : {874U, 1250U, 1251U, 1252U, 1253U, 1254U, 1255U, 1256U, 1257U, 1258U}) {
    const auto page = rtl::FindCodePage(number);
    ASSERT_TRUE(page) << number;
    for (unsigned byte = 0; byte < 256; ++byte) {
      const auto b = static_cast<std::uint8_t>(byte);
      EXPECT_EQ((*page)[b], ByIconv(number, b).value_or(static_cast<char16_t>(b))) << number << " " << byte;
    }
  }
}

TEST(CodePages, AByteWithoutAMeaningIsTheUnitOfItsValue) {
  const std::set<unsigned> latin = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
  const std::set<unsigned> hebrew = {0x81, 0x8A, 0x8C, 0x8D, 0x8E, 0x8F, 0x90, 0x9A, 0x9C, 0x9D, 0x9E, 0x9F,
                                     0xCA, 0xD9, 0xDA, 0xDB, 0xDC, 0xDD, 0xDE, 0xDF, 0xFB, 0xFC, 0xFF};
  for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
    const auto b = static_cast<std::uint8_t>(byte);
    EXPECT_EQ((*rtl::FindCodePage(1252))[b] == b, latin.contains(byte)) << byte;
    EXPECT_NE((*rtl::FindCodePage(1256))[b], b) << byte;
  }
  for (const unsigned byte : hebrew) {
    const auto b = static_cast<std::uint8_t>(byte);
    EXPECT_EQ((*rtl::FindCodePage(1255))[b], b) << byte;
  }
}

TEST(CodePages, OnlyTheWindowsPagesAreKnown) {
  std::set<std::uint32_t> known;
  for (std::uint32_t number = 0; number <= 0x10000; ++number)
    if (rtl::FindCodePage(number)) known.insert(number);
  EXPECT_EQ(known, (std::set<std::uint32_t>{874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}));
  EXPECT_FALSE(rtl::FindCodePage(0xFFFFFFFF));
}

TEST(CodePages, ALanguageNamesItsPage) {
  EXPECT_EQ(rtl::LanguageCodePage(0x0429), 1256U);
  EXPECT_EQ(rtl::LanguageCodePage(0x040D), 1255U);
  EXPECT_EQ(rtl::LanguageCodePage(0x0409), 1252U);
  EXPECT_EQ(rtl::LanguageCodePage(0x0419), 1251U);
  EXPECT_EQ(rtl::LanguageCodePage(0x041F), 1254U);
  EXPECT_EQ(rtl::LanguageCodePage(0x0408), 1253U);
  EXPECT_EQ(rtl::LanguageCodePage(0x0415), 1250U);
  EXPECT_EQ(rtl::LanguageCodePage(0x0422), 0U);
  EXPECT_EQ(rtl::LanguageCodePage(0x10429), 0U);
}

TEST(CodePages, ThePagesOfAllLanguagesAreKnownOnesAndNineteenAreArabic) {
  int arabic = 0;
  for (std::uint32_t id = 0; id <= 0x10000; ++id) {
    const std::uint32_t page = rtl::LanguageCodePage(id);
    EXPECT_TRUE(page == 0 || rtl::FindCodePage(page)) << id;
    arabic += page == 1256 ? 1 : 0;
  }
  EXPECT_EQ(arabic, 19);  // sixteen countries of Arabic; Persian, Urdu, Kurdish
}

}  // namespace
