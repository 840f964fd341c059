// How the classic units write: what they have of their own in the walk over a format. Inside calendar/classic alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "calendar/Orv.Date.FormatTokens.h"
#include "calendar/Orv.Date.FormatWalk.h"
#include "rtl/FormatSettings.h"

namespace orv::classic {

// The AM/PM texts: the settings' for "ampm", those of the resource strings for "a/p" and "am/pm". A view of settings.
TMeridiemTexts MeridiemTexts(const rtl::TFormatSettings& settings);

// Whether a format makes it a 12-hour clock: by "a/p", "am/pm", "ampm" or "AMPM" anywhere, exactly so.
bool IsTwelveHourFormat(std::u16string_view format);

// The AM/PM fields of one format. Noon is afternoon.
class TClassicMeridiem {
 public:
  TClassicMeridiem(const TMeridiemTexts& texts, bool afternoon) : FTexts(texts), FAfternoon(afternoon) {}

  // "a/p" and "am/pm" exactly, "ampm" in any case; any other "a" or "A" stands for itself.
  TMeridiemField At(std::u16string_view format, std::size_t index) const;

 private:
  const TMeridiemTexts& FTexts;
  bool FAfternoon;
};

// Only lower-case letters are fields. The hour of a 12-hour format counts 12, 1 ... 11, also in the formats inside it.
struct TClassicFormatRules {
  static constexpr bool FoldsCase = false;

  TMeridiemTexts Texts;

  TClassicMeridiem Begin(std::u16string_view format, std::uint16_t& hour) const;
};

// The text of a date and time. The day's number indexes the tables of day names from 1. Raises EConvertError for a
// doubled quote and for formats that nest without end.
rtl::UnicodeString FormatParts(std::u16string_view format, const rtl::TDateTimeParts& parts, std::int32_t dayName,
                               const rtl::TFormatSettings& settings);

}  // namespace orv::classic
