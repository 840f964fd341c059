// Locale settings from ICU: the Unicode Common Locale Data Repository put into the letters of the settings record.
#pragma once

#include <optional>
#include <string_view>

#include "rtl/FormatSettings.h"

namespace orv::platform {

// Knows every locale whose language ICU has data for, by names such as "fa-IR", "en-US" or "de". Names of months and
// days are the standalone ones of the Gregorian calendar; years are written with four digits, since two could not be
// read back; direction marks are taken out of the formats. The century window of two-digit years and the list separator
// are not in the data: 50, and "؛" or ";" where "," is taken or foreign. Callable from any thread; one call reads
// all of a locale's data (about a millisecond), so keep what it answers.
//
// Example: static const TIcuLocaleSource source; rtl::SetLocaleSource(&source);
class TIcuLocaleSource final : public rtl::ILocaleSource {
 public:
  std::optional<rtl::TFormatSettings> FindLocale(std::u16string_view localeName) const override;
};

}  // namespace orv::platform
