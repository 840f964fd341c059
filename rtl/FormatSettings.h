// How a locale writes dates, times, numbers and money: the record that all text operations read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "rtl/DateTime.h"
#include "rtl/Strings.h"

namespace rtl {

// Names numbered from 1 to N.
template <std::size_t N>
struct TNames {
  std::array<UnicodeString, N> Names;

  static constexpr int Count = static_cast<int>(N);

  // The name of that number; empty for a number outside 1 to N.
  std::u16string_view operator[](int number) const {
    return number >= 1 && number <= Count ? std::u16string_view(Names[static_cast<std::size_t>(number) - 1])
                                          : std::u16string_view();
  }
  // The number of the first name that equals text exactly, or -1.
  int IndexOf(std::u16string_view text) const {
    for (int number = 1; number <= Count; ++number)
      if ((*this)[number] == text) return number;
    return -1;
  }
  friend bool operator==(const TNames&, const TNames&) = default;
};

using TMonthNames = TNames<12>;  // 1 is the first month of the calendar
using TDayNames = TNames<7>;     // 1 is Sunday

// An era that a locale counts years in.
struct TEraInfo {
  UnicodeString EraName;
  std::int32_t EraOffset = 0;
  TDateTime EraStart = 0;
  TDateTime EraEnd = 0;
  friend bool operator==(const TEraInfo&, const TEraInfo&) = default;
};

// A value type. The start values are those of the invariant locale: English names, formats that do not depend on a
// country. In formats "/" stands for DateSeparator and ":" for TimeSeparator.
struct TFormatSettings {
  UnicodeString CurrencyString = u"\u00A4";
  std::uint8_t CurrencyFormat = 0;  // 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $"
  std::uint8_t CurrencyDecimals = 2;
  char16_t DateSeparator = u'/';
  char16_t TimeSeparator = u':';
  char16_t ListSeparator = u',';
  UnicodeString ShortDateFormat = u"MM/dd/yyyy";
  UnicodeString LongDateFormat = u"dddd, dd MMMMM yyyy HH:mm:ss";
  UnicodeString TimeAMString = u"AM";
  UnicodeString TimePMString = u"PM";
  UnicodeString ShortTimeFormat = u"HH:mm";
  UnicodeString LongTimeFormat = u"HH:mm:ss";
  TMonthNames ShortMonthNames = {
      {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"}};
  TMonthNames LongMonthNames = {{u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August",
                                 u"September", u"October", u"November", u"December"}};
  TDayNames ShortDayNames = {{u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"}};
  TDayNames LongDayNames = {{u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"}};
  std::vector<TEraInfo> EraInfo;
  char16_t ThousandSeparator = u',';
  char16_t DecimalSeparator = u'.';
  std::uint16_t TwoDigitYearCenturyWindow = 50;
  std::uint8_t NegCurrFormat = 0;

  // The settings that belong to no country.
  static TFormatSettings Invariant() { return {}; }

  // The settings of a locale such as "fa-Ir" (case does not matter, "_" is read as "-"): what the locale source says,
  // else the built-in row of that name, else of its language alone, else the invariant settings. Never fails. The
  // names of months are those of the Gregorian calendar.
  static TFormatSettings Create(std::u16string_view localeName);

  friend bool operator==(const TFormatSettings&, const TFormatSettings&) = default;
};

// Where the settings of locales come from. The library brings rows of its own for the invariant locale, "fa", "fa-Ir",
// "ar", "he" and "en-US"; an application that has a whole locale data base puts it in front.
class ILocaleSource {
 public:
  virtual ~ILocaleSource() = default;
  // The settings of a locale, or nothing where the source does not know it.
  virtual std::optional<TFormatSettings> FindLocale(std::u16string_view localeName) const = 0;
};

// Puts a source in front of the built-in rows and answers the former one; null takes it away. The source is borrowed
// and must outlive its use. Main thread.
const ILocaleSource* SetLocaleSource(const ILocaleSource* source);

// The built-in row of a locale, with the same reading of names as Create; nothing where there is none. Any thread.
std::optional<TFormatSettings> BuiltInLocale(std::u16string_view localeName);

// The settings in force for the whole process, at start the invariant ones. Main thread; change them between calls
// only.
TFormatSettings& FormatSettings();

}  // namespace rtl
