#include "calendar/classic/ClassicFormat.h"

#include "calendar/locale/OrvConsts.ResourceStrings.h"

namespace orv::classic {

TMeridiemTexts MeridiemTexts(const rtl::TFormatSettings& settings) {
  return {rscVeryShortMorning.Text, rscVeryShortAfternoon.Text, settings.TimeAMString,
          settings.TimePMString,    rscShortMorning.Text,       rscShortAfternoon.Text};
}

bool IsTwelveHourFormat(std::u16string_view format) {
  for (const std::u16string_view form : {u"a/p", u"am/pm", u"ampm", u"AMPM"})
    if (format.find(form) != format.npos) return true;
  return false;
}

TMeridiemField TClassicMeridiem::At(std::u16string_view format, std::size_t index) const {
  const std::u16string_view rest = format.substr(index);
  if (rest.starts_with(u"a/p")) return {3, FAfternoon ? FTexts.VeryShortPM : FTexts.VeryShortAM};
  if (FoldedAt(format, index, u"ampm")) return {4, FAfternoon ? FTexts.ShortPM : FTexts.ShortAM};
  if (rest.starts_with(u"am/pm")) return {5, FAfternoon ? FTexts.LongPM : FTexts.LongAM};
  return {};
}

TClassicMeridiem TClassicFormatRules::Begin(std::u16string_view format, std::uint16_t& hour) const {
  const TClassicMeridiem meridiem(Texts, hour >= 12);
  if (IsTwelveHourFormat(format)) {
    if (hour == 0)
      hour = 12;
    else if (hour >= 13)
      hour = static_cast<std::uint16_t>(hour - 12);
  }
  return meridiem;
}

rtl::UnicodeString FormatParts(std::u16string_view format, const rtl::TDateTimeParts& parts, std::int32_t dayName,
                               const rtl::TFormatSettings& settings) {
  const TClassicFormatRules rules = {MeridiemTexts(settings)};
  rtl::UnicodeString text;
  TFormatWalk<TClassicFormatRules>(settings, rules, text).Write(format, {parts, dayName}, true);
  return text;
}

}  // namespace orv::classic
