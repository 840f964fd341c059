#include "calendar/classic/ClassicUnit.h"

#include <type_traits>

#include "calendar/DateGlobal.h"
#include "calendar/Orv.Date.Reader.h"
#include "calendar/classic/ClassicFormat.h"
#include "rtl/DateErrors.h"
#include "rtl/DateTimeText.h"

namespace orv::classic {
namespace {

// The names and formats of the platform's Gregorian functions are read and written by the platform.
template <typename TCore>
constexpr bool IsPlatform = std::is_same_v<TCore, TGregorianCore>;

template <typename TNames>
std::int32_t NumberOf(std::u16string_view name, const TNames& longNames, const TNames& shortNames) {
  const std::int32_t number = longNames.IndexOf(name);
  return number > 0 ? number : shortNames.IndexOf(name);
}

constexpr std::int32_t MinYearRead = 1;  // both excluded
constexpr std::int32_t MaxYearRead = 9999;

}  // namespace

template <typename TCore>
const TCore& TClassicUnit<TCore>::Core() {
  static const TCore core;
  return core;
}

// --- Encoding and decoding ---

template <typename TCore>
TDateTime TClassicUnit<TCore>::EncodeDateWeek(const TYearWeek& date) {
  if (const auto value = TryEncodeDateWeek(date)) return *value;
  rtl::InvalidDateWeekError(date.Year, date.Week, date.DayOfWeek);
}

template <typename TCore>
TDateTime TClassicUnit<TCore>::EncodeDateMonthWeek(const TMonthWeek& date) {
  if (const auto value = TryEncodeDateMonthWeek(date)) return *value;
  rtl::InvalidDateMonthWeekError(date.Year, date.Month, date.Week, date.DayOfWeek);
}

template <typename TCore>
TDateTime TClassicUnit<TCore>::EncodeDayOfWeekInMonth(const TNthWeekDay& date) {
  if (const auto value = TryEncodeDayOfWeekInMonth(date)) return *value;
  rtl::InvalidDayOfWeekInMonthError(date.Year, date.Month, date.Nth, date.DayOfWeek);
}

template <typename TCore>
std::optional<TDateTime> TClassicUnit<TCore>::TryEncodeDayOfWeekInMonth(const TNthWeekDay& date) {
  const std::uint16_t first = DayOfTheWeek(StartOfAMonth(date.Year, date.Month));
  return TryEncodeDate({date.Year, date.Month, rtl::DayOfNthWeekDay(first, date.Nth, date.DayOfWeek)});
}

template <typename TCore>
bool TClassicUnit<TCore>::DecodeDateFully(TDateTime v, TDateParts& date, std::uint16_t& dayOfWeek) {
  TDayOfWeek unused = TDayOfWeek::Undefined;
  const bool leap = Core().DecodeDateFully(v, date, unused);
  dayOfWeek = Core().WeekDayInFull(v);
  return leap;
}

template <typename TCore>
TNthWeekDay TClassicUnit<TCore>::DecodeDayOfWeekInMonth(TDateTime v) {
  const TDateParts date = DecodeDate(v);
  return {date.Year, date.Month, NthDayOfWeek(date.Day), DayOfTheWeek(v)};
}

// --- Names ---

template <typename TCore>
std::int32_t TClassicUnit<TCore>::WhatDay(std::u16string_view name, const TSettings& settings) {
  return NumberOf(name, settings.LongDayNames, settings.ShortDayNames);
}

template <typename TCore>
std::int32_t TClassicUnit<TCore>::WhatMonth(std::u16string_view name, const TSettings& settings) {
  return NumberOf(name, settings.LongMonthNames, settings.ShortMonthNames);
}

// --- Writing ---

template <typename TCore>
UnicodeString TClassicUnit<TCore>::FormatDateTimeFullToString(std::u16string_view format, const TDateTimeParts& parts,
                                                              std::uint16_t dayOfWeek, const TSettings& settings) {
  return FormatParts(format, parts, dayOfWeek, settings);
}

template <typename TCore>
UnicodeString TClassicUnit<TCore>::FormatDateTime(std::u16string_view format, TDateTime v, const TSettings& settings) {
  if constexpr (IsPlatform<TCore>)
    return rtl::FormatDateTime(format, v, settings);
  else
    return FormatParts(format, DecodeDateTime(v), Core().NameNumber(v), settings);
}

template <typename TCore>
UnicodeString TClassicUnit<TCore>::DateToStr(TDateTime v, const TSettings& settings) {
  return FormatDateTime(settings.ShortDateFormat, v, settings);
}

template <typename TCore>
UnicodeString TClassicUnit<TCore>::DateTimeToStr(TDateTime v, const TSettings& settings) {
  if constexpr (IsPlatform<TCore>)
    return rtl::DateTimeToStr(v, settings);
  else
    return DateToStr(v, settings) + u' ' + rtl::TimeToStr(v, settings);
}

// --- Reading ---

template <typename TCore>
std::optional<TDateTime> TClassicUnit<TCore>::FormatStringFullToDateTime(std::u16string_view format,
                                                                         std::u16string_view text,
                                                                         const TSettings& settings) {
  const TReaderRules rules = {settings,
                              MeridiemTexts(settings),
                              MinYearRead,
                              MaxYearRead,
                              TOrvCalendarCalc::CenturyStartIn(CurrentYear()),
                              settings.TwoDigitYearCenturyWindow};
  const auto parts = ReadByFormat(rules, format, text);
  TDateTime value = 0;
  if (!parts || !Core().TryEncodeRead(*parts, value)) return std::nullopt;
  const bool holds = !parts->Has(TReadField::DayName) || Core().NameNumber(value) == parts->Value(TReadField::DayName);
  return holds ? std::optional(value) : std::nullopt;
}

template <typename TCore>
TDateTime TClassicUnit<TCore>::StringToDateTime(std::u16string_view format, std::u16string_view text,
                                                const TSettings& settings) {
  if (const auto value = FormatStringFullToDateTime(format, text, settings)) return *value;
  ConvertErrorFmt(rtl::SInvalidDateTime, {text});
}

template <typename TCore>
std::optional<TDateTime> TClassicUnit<TCore>::TryStrToDate(std::u16string_view text, const TSettings& settings) {
  if constexpr (IsPlatform<TCore>)
    return rtl::TryStrToDate(text, settings);
  else
    return FormatStringFullToDateTime(settings.ShortDateFormat, text, settings);
}

template <typename TCore>
std::optional<TDateTime> TClassicUnit<TCore>::TryStrToDateTime(std::u16string_view text, const TSettings& settings) {
  if constexpr (IsPlatform<TCore>)
    return rtl::TryStrToDateTime(text, settings);
  else
    return FormatStringFullToDateTime(settings.ShortDateFormat + u' ' + settings.LongTimeFormat, text, settings);
}

template <typename TCore>
TDateTime TClassicUnit<TCore>::StrToDate(std::u16string_view text, const TSettings& settings) {
  if (const auto value = TryStrToDate(text, settings)) return *value;
  ConvertErrorFmt(rtl::SInvalidDate, {text});
}

template <typename TCore>
TDateTime TClassicUnit<TCore>::StrToDateTime(std::u16string_view text, const TSettings& settings) {
  if (const auto value = TryStrToDateTime(text, settings)) return *value;
  ConvertErrorFmt(rtl::SInvalidDateTime, {text});
}

template <typename TCore>
TLocatedField TClassicUnit<TCore>::Parser(const TSettings& settings, std::int32_t fieldNumber,
                                          std::u16string_view format, std::u16string_view text) {
  return LocateField({settings, MeridiemTexts(settings)}, fieldNumber, format, text);
}

template class TClassicUnit<TPersianCore>;
template class TClassicUnit<TIslamicCore>;
template class TClassicUnit<TGregorianCore>;

}  // namespace orv::classic
