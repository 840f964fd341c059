// Dates as text: any format, text and format settings are written, read and located without a crash or an endless walk,
// and what is located lies where it says.
#include <array>

#include "calendar/Orv.Date.Hijri.h"
#include "calendar/Orv.Date.Jalali.h"
#include "calendar/Orv.Date.Julian.h"
#include "fuzz/Input.h"
#include "rtl/Clock.h"
#include "rtl/Exceptions.h"

namespace {

using namespace orv;

// The characters that formats and their texts are made of; a byte above them is any unit.
constexpr std::u16string_view Letters = u"ddddmmmmyyyyhhnnsszzttcaa//ppAMPD'\":.- 0123456789xشنبهمهرصع";

// Texts up to a byte of 255.
std::u16string NextText(fuzz::TInput& input, std::size_t most) {
  std::u16string text;
  while (text.size() < most) {
    const std::uint8_t byte = input.Byte();
    if (byte == 0xFF || byte == 0) break;
    text.push_back(byte < 0xF0 ? Letters[byte % Letters.size()] : static_cast<char16_t>(input.Word()));
  }
  return text;
}

template <typename F>
void Quietly(const F& action) {
  try {
    action();
  } catch (const rtl::Exception&) {
  }
}

std::array<std::unique_ptr<TOrvCalendarCalc>, 3> MakeCalendars() {
  const rtl::TClockScope clock(45737);
  return {MakeCalendar<TOrvJalaliDateCalendarCalc>(), MakeCalendar<TOrvHijriLunarDateCalendarCalc>(),
          MakeCalendar<TOrvJulianDateCalendarCalc>()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto calendars = MakeCalendars();
  static const rtl::TFormatSettings former[] = {calendars[0]->FormatSettings, calendars[1]->FormatSettings,
                                                calendars[2]->FormatSettings};
  const rtl::TClockScope clock(45737);
  fuzz::TInput input(data, size);
  const std::uint8_t choice = input.Byte();
  TOrvCalendarCalc& calendar = *calendars[choice % 3];
  calendar.FormatSettings = former[choice % 3];
  const auto date = static_cast<double>(input.Integer()) / 1000.0;
  const std::int32_t number = input.Byte();
  if ((choice & 0x40) != 0) {
    calendar.FormatSettings.ShortDateFormat = NextText(input, 40);
    calendar.FormatSettings.LongDateFormat = NextText(input, 40);
    calendar.FormatSettings.ShortTimeFormat = NextText(input, 40);
    calendar.FormatSettings.LongTimeFormat = NextText(input, 40);
    calendar.FormatSettings.LongMonthNames.Names[0] = NextText(input, 5);
    calendar.FormatSettings.ShortDayNames.Names[0] = NextText(input, 5);
    calendar.FormatSettings.TimeAMString = NextText(input, 5);
  }
  const std::u16string format = NextText(input, 60);
  const std::u16string text = NextText(input, 200);
  // Behind the end of a text stand zeros without an end, so a zero of a format or name is found there.
  const rtl::TFormatSettings& settings = calendar.FormatSettings;
  const std::u16string searched = format + settings.ShortDateFormat + settings.LongDateFormat +
                                  settings.ShortTimeFormat + settings.LongTimeFormat +
                                  settings.LongMonthNames.Names[0] + settings.TimeAMString;
  const bool mayGoBeyond = searched.find(u'\0') != std::u16string::npos;

  Quietly([&] { calendar.FormatDateTime(format, date, (choice & 0x80) != 0); });
  Quietly([&] {
    const auto value = calendar.FormatStringFullToDateTime(format, text);
    if (value) fuzz::Require(calendar.DecodeDateTime(*value).Time.Hour < 24, "a date read has a time of day");
  });
  Quietly([&] {
    const TLocatedField field = calendar.Parser(number, format, text);
    const auto end = static_cast<std::size_t>(field.Start) - 1 + static_cast<std::size_t>(field.Length);
    const bool located = field.Type != TOrvDateTimeMaskType::hdmtNone;
    fuzz::Require(!located || field.Length == 0 || end <= text.size() || mayGoBeyond,
                  "a field located lies in the text");
  });
  return 0;
}
