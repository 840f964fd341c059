#include "tools/orv/eval/Calls.h"

#include <limits>
#include <string>

namespace orv::eval {
namespace {

using TMask = TOrvDateTimeMaskType;
constexpr TNamed<TMask> MaskNames[] = {{"hdmtDay", TMask::hdmtDay},
                                       {"hdmtMonth", TMask::hdmtMonth},
                                       {"hdmtLongMonth", TMask::hdmtLongMonth},
                                       {"hdmtGhamariLongMonth", TMask::hdmtGhamariLongMonth},
                                       {"hdmtJulianShortMonth", TMask::hdmtJulianShortMonth},
                                       {"hdmtJulianLongMonth", TMask::hdmtJulianLongMonth},
                                       {"hdmtYear", TMask::hdmtYear},
                                       {"hdmtLongYear", TMask::hdmtLongYear},
                                       {"hdmt12Hour", TMask::hdmt12Hour},
                                       {"hdmt24Hour", TMask::hdmt24Hour},
                                       {"hdmtMinute", TMask::hdmtMinute},
                                       {"hdmtSecond", TMask::hdmtSecond},
                                       {"hdmtMilliSec", TMask::hdmtMilliSec},
                                       {"hdmtAmPmVeryShort", TMask::hdmtAmPmVeryShort},
                                       {"hdmtAmPmShort", TMask::hdmtAmPmShort},
                                       {"hdmtAmPmLong", TMask::hdmtAmPmLong},
                                       {"hdmtAmPm", TMask::hdmtAmPm},
                                       {"hdmtCustom", TMask::hdmtCustom},
                                       {"hdmtNone", TMask::hdmtNone}};

// A field of the settings record under its name, with the way to read it.
using TSettings = rtl::TFormatSettings;
using TReadField = void (*)(const TArguments& fields, std::string_view name, TSettings& settings);

template <auto Field>
void ReadText(const TArguments& fields, std::string_view name, TSettings& settings) {
  settings.*Field = FromUtf8(fields.String(name));
}

template <auto Field>
void ReadUnit(const TArguments& fields, std::string_view name, TSettings& settings) {
  settings.*Field = fields.CodeUnit(name);
}

template <auto Field, std::int64_t Most>
void ReadNumber(const TArguments& fields, std::string_view name, TSettings& settings) {
  using T = std::remove_reference_t<decltype(settings.*Field)>;
  settings.*Field = static_cast<T>(fields.Integer(name, 0, Most));
}

template <auto Field>
void ReadNames(const TArguments& fields, std::string_view name, TSettings& settings) {
  const TJson& texts = fields.At(name);
  auto& names = (settings.*Field).Names;
  if (!texts.is_array() || texts.size() != names.size())
    throw BadRequest("'" + std::string(name) + "' must be an array of " + std::to_string(names.size()) + " strings");
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!texts[i].is_string()) throw BadRequest("'" + std::string(name) + "' must hold strings");
    names[i] = FromUtf8(texts[i].get_ref<const std::string&>());
  }
}

constexpr TNamed<TReadField> SettingsFields[] = {
    {"CurrencyString", ReadText<&TSettings::CurrencyString>},
    {"CurrencyFormat", ReadNumber<&TSettings::CurrencyFormat, 255>},
    {"CurrencyDecimals", ReadNumber<&TSettings::CurrencyDecimals, 255>},
    {"DateSeparator", ReadUnit<&TSettings::DateSeparator>},
    {"TimeSeparator", ReadUnit<&TSettings::TimeSeparator>},
    {"ListSeparator", ReadUnit<&TSettings::ListSeparator>},
    {"ShortDateFormat", ReadText<&TSettings::ShortDateFormat>},
    {"LongDateFormat", ReadText<&TSettings::LongDateFormat>},
    {"TimeAMString", ReadText<&TSettings::TimeAMString>},
    {"TimePMString", ReadText<&TSettings::TimePMString>},
    {"ShortTimeFormat", ReadText<&TSettings::ShortTimeFormat>},
    {"LongTimeFormat", ReadText<&TSettings::LongTimeFormat>},
    {"ShortMonthNames", ReadNames<&TSettings::ShortMonthNames>},
    {"LongMonthNames", ReadNames<&TSettings::LongMonthNames>},
    {"ShortDayNames", ReadNames<&TSettings::ShortDayNames>},
    {"LongDayNames", ReadNames<&TSettings::LongDayNames>},
    {"ThousandSeparator", ReadUnit<&TSettings::ThousandSeparator>},
    {"DecimalSeparator", ReadUnit<&TSettings::DecimalSeparator>},
    {"TwoDigitYearCenturyWindow", ReadNumber<&TSettings::TwoDigitYearCenturyWindow, 65535>},
    {"NegCurrFormat", ReadNumber<&TSettings::NegCurrFormat, 255>}};

}  // namespace

TCallArguments::TCallArguments(const TJson& values) : FValues(values) {
  if (!values.is_array()) throw BadRequest("'args' must be an array");
}

bool TCallArguments::IsInt32(const TJson& value) {
  if (!value.is_number_integer()) return false;
  using TLimits = std::numeric_limits<std::int32_t>;
  if (value.is_number_unsigned()) return value.get<std::uint64_t>() <= static_cast<std::uint64_t>(TLimits::max());
  return value.get<std::int64_t>() >= TLimits::min();
}

bool TCallArguments::IsDayOfWeek(const TJson& value) {
  if (!value.is_string()) return false;
  for (const auto& [name, dow] : DayOfWeekNames)
    if (value == name) return true;
  return false;
}

TDayOfWeek TCallArguments::DayOfWeek(const TJson& value) {
  for (const auto& [name, dow] : DayOfWeekNames)
    if (value == name) return dow;
  throw BadRequest("no day of the week");
}

TJson DayOfWeekValue(TDayOfWeek dow) {
  const std::string_view name = NameOf(dow, DayOfWeekNames);
  if (name.empty()) return static_cast<int>(dow);
  return name;
}

TJson ResultOf(const TDateParts& date) {
  return {{"Year", date.Year}, {"Month", date.Month}, {"Day", date.Day}};
}

TJson ResultOf(const TYearDay& date) {
  return {{"Year", date.Year}, {"DayOfYear", date.DayOfYear}};
}

TJson ResultOf(const TDateTimeParts& parts) {
  TJson result = ResultOf(parts.Date);
  result["Hour"] = parts.Time.Hour;
  result["Minute"] = parts.Time.Minute;
  result["Second"] = parts.Time.Second;
  result["MilliSecond"] = parts.Time.MilliSecond;
  return result;
}

TJson ResultOf(const TDateWeek& date) {
  return {{"Year", date.Year}, {"WeekOfYear", date.WeekOfYear}, {"DOW", DayOfWeekValue(date.DOW)}};
}

TJson ResultOf(const TDateMonthWeek& date) {
  return {
      {"Year", date.Year}, {"Month", date.Month}, {"WeekOfMonth", date.WeekOfMonth}, {"DOW", DayOfWeekValue(date.DOW)}};
}

TJson ResultOf(const TDayOfWeekInMonth& date) {
  return {{"Year", date.Year},
          {"Month", date.Month},
          {"NthDayOfWeek", date.NthDayOfWeek},
          {"DOW", DayOfWeekValue(date.DOW)}};
}

TJson ResultOf(const TLocatedField& field) {
  return {{"Result", NameOf(field.Type, MaskNames)},
          {"AStart", field.Start},
          {"ALength", field.Length},
          {"AVariable", field.Variable}};
}

TJson ResultOf(TDayOfWeek dow) {
  return {{"Result", DayOfWeekValue(dow)}};
}

TJson ResultOf(TOrvCalendarCalc::TCalendarType type) {
  return {{"Result", type == TOrvCalendarCalc::TCalendarType::SolarCalendar ? "SolarCalendar" : "LunarCalendar"}};
}

TJson ResultOf(const rtl::UnicodeString& text) {
  return {{"Result", TextValue(text)}};
}

TJson ResultOf(const std::optional<rtl::TDateTime>& value, const char* name) {
  return {{"Result", value.has_value()}, {name, value.value_or(0)}};
}

void LayOver(const TJson& fields, rtl::TFormatSettings& settings) {
  if (!fields.is_object()) throw BadRequest("'formatSettings' must be an object");
  const TArguments arguments(fields);
  for (const auto& [name, value] : fields.items()) {
    const TJson one = {{"formatSettings", name}};
    TArguments(one).Enum("formatSettings", SettingsFields)(arguments, name, settings);
  }
}

}  // namespace orv::eval
