// The single-byte Windows code pages, and which of them a Windows language identifier names.
//
// Source of the tables: iconv of the GNU C library, byte by byte, turned into rtl/CodePages.inc by
// tools/codepages/make_tables.py. Source of the identifiers: the published list of Windows language identifiers.
// Pure functions over constant tables; any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace rtl {

inline constexpr std::uint32_t LatinCodePage = 1252;

// One code page. A light value that points at a constant table: 256 bytes, each of which stands for exactly one UTF-16
// code unit. A byte that the page does not define stands for the unit of the same value.
class TCodePage {
 public:
  using TUpperHalf = std::array<char16_t, 128>;

  explicit constexpr TCodePage(const TUpperHalf& units) : FUnits(&units) {}

  // Example: in page 1256 the byte 0xD3 stands for U+0633.
  constexpr char16_t operator[](std::uint8_t byte) const {
    return byte < 0x80 ? char16_t{byte} : (*FUnits)[byte - 0x80U];
  }

 private:
  const TUpperHalf* FUnits;
};

// The page of that number: 874 or 1250 to 1258; nothing for any other number.
std::optional<TCodePage> FindCodePage(std::uint32_t number);

// The number of the code page that text in that language is kept in; 0 where the language is not known here.
// Example: 0x0429 (Persian) answers 1256.
std::uint32_t LanguageCodePage(std::uint32_t languageId);

}  // namespace rtl
