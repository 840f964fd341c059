#include "rtl/CodePages.h"

namespace rtl {
namespace {

struct TUpperHalf {
  std::uint32_t Page;
  TCodePage::TUpperHalf Units;
};

#include "rtl/CodePages.inc"

struct TLanguage {
  std::uint16_t Id;
  std::uint16_t Page;
};

constexpr TLanguage Languages[] = {
    {0x0429, 1256},  // Persian
    {0x0420, 1256},  // Urdu
    {0x0492, 1256},  // Central Kurdish
    // Arabic: Saudi Arabia, Iraq, Egypt, Libya, Algeria, Morocco, Tunisia, Oman, Yemen, Syria, Jordan, Lebanon, Kuwait,
    // the Emirates, Bahrain, Qatar
    {0x0401, 1256},
    {0x0801, 1256},
    {0x0C01, 1256},
    {0x1001, 1256},
    {0x1401, 1256},
    {0x1801, 1256},
    {0x1C01, 1256},
    {0x2001, 1256},
    {0x2401, 1256},
    {0x2801, 1256},
    {0x2C01, 1256},
    {0x3001, 1256},
    {0x3401, 1256},
    {0x3801, 1256},
    {0x3C01, 1256},
    {0x4001, 1256},
    {0x040D, 1255},  // Hebrew
    {0x0409, 1252},  // English, United States
    {0x0809, 1252},  // English, United Kingdom
    {0x0407, 1252},  // German
    {0x040C, 1252},  // French
    {0x0410, 1252},  // Italian
    {0x0C0A, 1252},  // Spanish
    {0x0419, 1251},  // Russian
    {0x041F, 1254},  // Turkish
    {0x0408, 1253},  // Greek
    {0x0415, 1250},  // Polish
    {0x0405, 1250},  // Czech
    {0x040E, 1250},  // Hungarian
};

}  // namespace

std::optional<TCodePage> FindCodePage(std::uint32_t number) {
  for (const TUpperHalf& half : UpperHalves)
    if (half.Page == number) return TCodePage(half.Units);
  return std::nullopt;
}

std::uint32_t LanguageCodePage(std::uint32_t languageId) {
  for (const TLanguage& language : Languages)
    if (language.Id == languageId) return language.Page;
  return 0;
}

}  // namespace rtl
