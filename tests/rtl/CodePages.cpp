// The code pages beside the converter of the C library, byte by byte.
#include "rtl/CodePages.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <cstring>
#include <map>
#include <set>
#include <string_view>

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

// Letters of each page from the published tables, written out: a witness that shares no source with the tables.
struct TStretch {
  std::uint32_t Page;
  std::uint8_t First;
  std::u16string_view Units;
};
constexpr TStretch KnownLetters[] = {
    {874, 0xA1, u"กขฃคฅฆงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟภมยรฤลฦวศษสหฬอฮฯ"},
    {1250, 0x8A, u"Š‹ŚŤŽŹ"},
    {1250, 0xC0, u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙"},
    {1251, 0xC0, u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя"},
    {1252, 0x91, u"‘’“”•–—˜™š›œ"},
    {1252, 0xC0, u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"},
    {1253, 0xC1, u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡ"},
    {1253, 0xD3, u"ΣΤΥΦΧΨΩΪΫάέήίΰαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώ"},
    {1254, 0xD0, u"ĞÑÒÓÔÕÖ×ØÙÚÛÜİŞß"},
    {1254, 0xF0, u"ğñòóôõö÷øùúûüışÿ"},
    {1255, 0x80, u"€"},
    {1255, 0xA4, u"₪"},
    {1255, 0xC0, u"\u05B0\u05B1\u05B2\u05B3\u05B4\u05B5\u05B6\u05B7\u05B8\u05B9"},
    {1255, 0xE0, u"אבגדהוזחטיךכלםמןנסעףפץצקרשת"},
    {1255, 0xFD, u"\u200E\u200F"},
    {1256, 0x80, u"€پ‚ƒ„…†‡ˆ‰ٹ‹Œچژڈگ‘’“”•–—ک™ڑ›œ\u200C\u200Dں\u00A0،¢£¤¥¦§¨©ھ«¬\u00AD®¯°±²³´µ¶·¸¹؛»¼½¾؟"},
    {1256, 0xC0, u"ہءآأؤإئابةتثجحخدذرزسشصض×طظعغـفقكàلâمنهوçèéêëىيîï"},
    {1256, 0xF0, u"\u064B\u064C\u064D\u064Eô\u064F\u0650÷\u0651ù\u0652ûü\u200E\u200Fے"},
    {1257, 0xC0, u"ĄĮĀĆÄÅĘĒČÉŹĖĢĶĪĻŠŃŅÓŌÕÖ×ŲŁŚŪÜŻŽßąįāćäåęēčéźėģķīļšńņóōõö÷ųłśūüżž˙"},
    {1258, 0xC0, u"ÀÁÂĂÄÅÆÇÈÉÊË\u0300ÍÎÏĐÑ\u0309ÓÔƠÖ×ØÙÚÛÜƯ\u0303ß"},
    {1258, 0xFD, u"ư₫ÿ"},
};

TEST(CodePages, TheLettersOfEveryPageStandWhereThePublishedTablesHaveThem) {
  for (const auto& [number, first, units] : KnownLetters) {
    const auto page = rtl::FindCodePage(number);
    ASSERT_TRUE(page) << number;
    for (std::size_t i = 0; i < units.size(); ++i)
      EXPECT_EQ((*page)[static_cast<std::uint8_t>(first + i)], units[i]) << number << ' ' << first + i;
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
  const std::map<std::uint32_t, std::uint32_t> pages = {
      {0x0429, 1256}, {0x0420, 1256}, {0x0492, 1256},                  // Persian, Urdu, Central Kurdish
      {0x040D, 1255},                                                  // Hebrew
      {0x0409, 1252}, {0x0809, 1252}, {0x0407, 1252}, {0x040C, 1252},  // English of two countries, German, French
      {0x0410, 1252}, {0x0C0A, 1252},                                  // Italian, Spanish
      {0x0419, 1251}, {0x041F, 1254}, {0x0408, 1253},                  // Russian, Turkish, Greek
      {0x0415, 1250}, {0x0405, 1250}, {0x040E, 1250},                  // Polish, Czech, Hungarian
  };
  constexpr std::uint32_t Arabic = 0x01;
  for (std::uint32_t id = 0; id <= 0x10FFFF; ++id) {
    const bool isArabic = (id & 0x3FF) == Arabic && id >= 0x0401 && id <= 0x4001;  // of sixteen countries
    const auto known = pages.find(id);
    const std::uint32_t page = isArabic ? 1256 : known == pages.end() ? 0 : known->second;
    ASSERT_EQ(rtl::LanguageCodePage(id), page) << id;
  }
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
