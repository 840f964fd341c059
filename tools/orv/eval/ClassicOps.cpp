// The operations of the classic date units, of the table of languages, and of the binding converters.
#include <tuple>

#include "binding/OrvSystem.Bindings.Outputs.h"
#include "calendar/classic/IDateTime.h"
#include "calendar/locale/OrvLocale.Locale.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/Calls.h"

namespace orv::eval {

template <>
struct TParameter<TYearWeek> : TRecordParameter<TYearWeek, TWord, TWord, TWord> {};
template <>
struct TParameter<TMonthWeek> : TRecordParameter<TMonthWeek, TWord, TWord, TWord, TWord> {};
template <>
struct TParameter<TNthWeekDay> : TRecordParameter<TNthWeekDay, TWord, TWord, TWord, TWord> {};

static TJson ResultOf(const TYearWeek& date) {
  return {{"Year", date.Year}, {"WeekOfYear", date.Week}, {"DOW", date.DayOfWeek}};
}

static TJson ResultOf(const TMonthWeek& date) {
  return {{"Year", date.Year}, {"Month", date.Month}, {"WeekOfMonth", date.Week}, {"DOW", date.DayOfWeek}};
}

static TJson ResultOf(const TNthWeekDay& date) {
  return {{"Year", date.Year}, {"Month", date.Month}, {"NthDayOfWeek", date.Nth}, {"DOW", date.DayOfWeek}};
}

namespace {

// --- Calls of the classic units ---

using I = IDateTime;
using T = TJhCalendarType;
using W = TWord;
using D = TDateTime;
using Text = std::u16string_view;

// One form of a call: whether arguments fit it, and the call itself.
struct TCall {
  std::string_view Name;
  bool (*Fits)(TCallArguments);
  TJson (*Run)(T type, TCallArguments arguments);
};

// Takes the parameters in order and calls function(type, parameters...).
template <typename... TParameters, typename TFunction>
TJson RunWith(const TFunction& function, T type, [[maybe_unused]] TCallArguments arguments) {
  // In braces, arguments are taken from left to right.
  std::tuple<typename TParameter<TParameters>::TKept...> taken{TParameter<TParameters>::Take(arguments)...};
  return std::apply([&](const auto&... a) { return function(type, a...); }, taken);
}

// A row for a function with these parameters.
template <auto Function>
struct TRow;
template <typename R, typename... A, R (*Function)(T, A...)>
struct TRow<Function> {
  static bool Fits(TCallArguments arguments) { return FitAll<std::decay_t<A>...>(arguments); }
  static TJson Run(T type, TCallArguments arguments) {
    const auto call = [](T t, const auto&... a) { return ResultOf(Function(t, a...)); };
    return RunWith<std::decay_t<A>...>(call, type, arguments);
  }
};

template <auto Function>
constexpr TCall Call(std::string_view name) {
  return {name, TRow<Function>::Fits, TRow<Function>::Run};
}

// The form of an overloaded function that has these parameters.
template <typename... A>
struct TForm {
  template <typename R>
  static constexpr auto Of(R (*function)(T, A...)) {
    return function;
  }
};

// A row for what makes its result itself. The function takes the type of the calendar and the parameters.
template <typename... TParameters, typename TFunction>
constexpr TCall Special(std::string_view name, TFunction) {
  return {name, [](TCallArguments arguments) { return FitAll<TParameters...>(arguments); },
          [](T type, TCallArguments arguments) { return RunWith<TParameters...>(TFunction(), type, arguments); }};
}

TJson FullDate(T type, D value) {
  TDateParts date;
  std::uint16_t dayOfWeek = 0;
  TJson result = {{"Result", I::DecodeDateFully(type, value, date, dayOfWeek)}};
  result.update(ResultOf(date));
  result["DOW"] = dayOfWeek;
  return result;
}

constexpr TCall PartCalls[] = {
    Call<&I::CurrentDay>("CurrentDay"),
    Call<&I::CurrentMonth>("CurrentMonth"),
    Call<&I::CurrentYear>("CurrentYear"),
    Call<&I::CalendarType>("CalendarType"),
    Call<&I::EnsureYearLowRange>("EnsureYearLowRange"),
    Call<&I::EnsureYearHighRange>("EnsureYearHighRange"),
    Call<&I::MonthsInAYear>("MonthsInAYear"),
    Call<&I::MonthsInYear>("MonthsInYear"),
    Call<&I::DaysInAMonth>("DaysInAMonth"),
    Call<&I::DaysInAYear>("DaysInAYear"),
    Call<&I::IsLeapYear>("IsLeapYear"),
    Call<&I::WeeksInAYear>("WeeksInAYear"),
    Call<&I::DayOf>("DayOf"),
    Call<&I::MonthOf>("MonthOf"),
    Call<&I::YearOf>("YearOf"),
    Call<&I::DayOfTheYear>("DayOfTheYear"),
    Call<&I::DayOfTheMonth>("DayOfTheMonth"),
    Call<&I::MonthOfTheYear>("MonthOfTheYear"),
    Call<&I::WeekOf>("WeekOf"),
    Call<&I::WeekOfTheYear>("WeekOfTheYear"),
    Call<&I::DayOfTheWeek>("DayOfTheWeek"),
    Call<&I::DayOfWeek>("DayOfWeek"),
    Call<&I::DaysInMonth>("DaysInMonth"),
    Call<&I::DaysInYear>("DaysInYear"),
    Call<&I::WeeksInYear>("WeeksInYear"),
    Call<&I::IsInLeapYear>("IsInLeapYear"),
    Call<&I::IsYearValid>("IsYearValid"),
    Call<TForm<W>::Of(&I::IsMonthValid)>("IsMonthValid"),
    Call<TForm<std::int32_t, W>::Of(&I::IsMonthValid)>("IsMonthValid"),
    Call<&I::IsValidDate>("IsValidDate"),
    Call<&I::IsValidDateDay>("IsValidDateDay"),
    Call<&I::IsValidDateTime>("IsValidDateTime"),
    Call<&I::IsValidDateWeek>("IsValidDateWeek"),
    Call<&I::IsValidDateMonthWeek>("IsValidDateMonthWeek"),
    Call<TForm<W>::Of(&I::NthDayOfWeek)>("NthDayOfWeek"),
    Call<TForm<D>::Of(&I::NthDayOfWeek)>("NthDayOfWeek"),
    Call<&I::HourOfTheMonth>("HourOfTheMonth"),
    Call<&I::HourOfTheWeek>("HourOfTheWeek"),
    Call<&I::HourOfTheYear>("HourOfTheYear"),
    Call<&I::MinuteOfTheMonth>("MinuteOfTheMonth"),
    Call<&I::MinuteOfTheWeek>("MinuteOfTheWeek"),
    Call<&I::MinuteOfTheYear>("MinuteOfTheYear"),
    Call<&I::SecondOfTheMonth>("SecondOfTheMonth"),
    Call<&I::SecondOfTheWeek>("SecondOfTheWeek"),
    Call<&I::SecondOfTheYear>("SecondOfTheYear"),
    Call<&I::MilliSecondOfTheMonth>("MilliSecondOfTheMonth"),
    Call<&I::MilliSecondOfTheWeek>("MilliSecondOfTheWeek"),
    Call<&I::MilliSecondOfTheYear>("MilliSecondOfTheYear"),
    Call<TForm<D, W, W>::Of(&I::SameDayMonth)>("SameDayMonth"),
    Call<TForm<D, D>::Of(&I::SameDayMonth)>("SameDayMonth"),
    Call<TForm<D, W>::Of(&I::SameDayOfMonth)>("SameDayOfMonth"),
    Call<TForm<D, D>::Of(&I::SameDayOfMonth)>("SameDayOfMonth"),
    Call<TForm<D, W>::Of(&I::SameMonth)>("SameMonth"),
    Call<TForm<D, D>::Of(&I::SameMonth)>("SameMonth"),
    Call<TForm<D, W>::Of(&I::SameDayOfWeek)>("SameDayOfWeek"),
    Call<TForm<D, D>::Of(&I::SameDayOfWeek)>("SameDayOfWeek"),
    Call<TForm<D, const TDateParts&>::Of(&I::SameDayOfWeek)>("SameDayOfWeek"),
};

constexpr TCall CodingCalls[] = {
    Call<&I::EncodeDate>("EncodeDate"),
    Call<&I::EncodeDateDay>("EncodeDateDay"),
    Call<&I::EncodeDateTime>("EncodeDateTime"),
    Call<&I::EncodeDateWeek>("EncodeDateWeek"),
    Call<&I::EncodeDateMonthWeek>("EncodeDateMonthWeek"),
    Call<&I::EncodeDayOfWeekInMonth>("EncodeDayOfWeekInMonth"),
    Call<&I::TryEncodeDate>("TryEncodeDate"),
    Call<&I::TryEncodeDateDay>("TryEncodeDateDay"),
    Call<&I::TryEncodeDateTime>("TryEncodeDateTime"),
    Call<&I::TryEncodeDateWeek>("TryEncodeDateWeek"),
    Call<&I::TryEncodeDateMonthWeek>("TryEncodeDateMonthWeek"),
    Call<&I::TryEncodeDayOfWeekInMonth>("TryEncodeDayOfWeekInMonth"),
    Call<TForm<D>::Of(&I::DecodeDate)>("DecodeDate"),
    Call<TForm<D>::Of(&I::DecodeDateDay)>("DecodeDateDay"),
    Call<&I::DecodeDateTime>("DecodeDateTime"),
    Call<&I::DecodeDateWeek>("DecodeDateWeek"),
    Call<&I::DecodeDateMonthWeek>("DecodeDateMonthWeek"),
    Call<&I::DecodeDayOfWeekInMonth>("DecodeDayOfWeekInMonth"),
    Special<D>("DecodeDateFully", [](T t, D value) { return FullDate(t, value); }),
    Special<D, TDateTimeParts>("TryRecodeDateTime",
                               [](T t, D value, const TDateTimeParts& parts) {
                                 return ResultOf(I::TryRecodeDateTime(t, value, parts), "AResult");
                               }),
    Call<&I::RecodeDateTime>("RecodeDateTime"),
    Call<&I::RecodeYear>("RecodeYear"),
    Call<&I::RecodeMonth>("RecodeMonth"),
    Call<&I::RecodeDay>("RecodeDay"),
    Call<&I::RecodeDate>("RecodeDate"),
};

// A row for a function that steps the parts it is given.
template <typename TParts, auto Function>
constexpr TCall Step(std::string_view name) {
  return Special<TParts, std::int32_t>(name, [](T t, TParts date, std::int32_t n) {
    Function(t, date, n);
    return ResultOf(date);
  });
}

constexpr TCall ReckoningCalls[] = {
    Call<&I::StartOfAYear>("StartOfAYear"),
    Call<&I::StartOfAMonth>("StartOfAMonth"),
    Call<TForm<const TDateParts&>::Of(&I::StartOfADay)>("StartOfADay"),
    Call<TForm<W, W>::Of(&I::StartOfADay)>("StartOfADay"),
    Call<&I::StartOfAWeek>("StartOfAWeek"),
    Call<&I::StartOfTheYear>("StartOfTheYear"),
    Call<&I::StartOfTheMonth>("StartOfTheMonth"),
    Call<&I::StartOfTheWeek>("StartOfTheWeek"),
    Call<&I::EndOfAYear>("EndOfAYear"),
    Call<&I::EndOfAMonth>("EndOfAMonth"),
    Call<TForm<const TDateParts&>::Of(&I::EndOfADay)>("EndOfADay"),
    Call<TForm<W, W>::Of(&I::EndOfADay)>("EndOfADay"),
    Call<&I::EndOfAWeek>("EndOfAWeek"),
    Call<&I::EndOfTheYear>("EndOfTheYear"),
    Call<&I::EndOfTheMonth>("EndOfTheMonth"),
    Call<&I::EndOfTheWeek>("EndOfTheWeek"),
    Call<&I::DaysBetween>("DaysBetween"),
    Call<&I::WeeksBetween>("WeeksBetween"),
    Call<&I::MonthsBetween>("MonthsBetween"),
    Call<&I::YearsBetween>("YearsBetween"),
    Call<&I::DaySpan>("DaySpan"),
    Call<&I::WeekSpan>("WeekSpan"),
    Call<&I::MonthSpan>("MonthSpan"),
    Call<&I::YearSpan>("YearSpan"),
    Call<&I::DateInRange>("DateInRange"),
    Special<D, D, D>("DateInRange", [](T t, D v, D a, D b) { return ResultOf(I::DateInRange(t, v, a, b)); }),
    Call<&I::DateTimeInRange>("DateTimeInRange"),
    Special<D, D, D>("DateTimeInRange", [](T t, D v, D a, D b) { return ResultOf(I::DateTimeInRange(t, v, a, b)); }),
    Call<&I::DateTimeToMilliseconds>("DateTimeToMilliseconds"),
    Call<&I::IncDay>("IncDay"),
    Call<&I::IncWeek>("IncWeek"),
    Call<&I::IncMonth>("IncMonth"),
    Call<&I::IncYear>("IncYear"),
    Step<TDateParts, static_cast<void (*)(T, TDateParts&, std::int32_t)>(&I::IncADay)>("IncADay"),
    Step<TYearDay, static_cast<void (*)(T, TYearDay&, std::int32_t)>(&I::IncADay)>("IncADay"),
    Step<TDateParts, &I::IncAMonth>("IncAMonth"),
    Step<TDateParts, &I::IncAYear>("IncAYear"),
};

// These read the process-wide settings.
constexpr TCall TextCalls[] = {
    Special<Text>("WhatDay", [](T t, Text name) { return ResultOf(I::WhatDay(t, name)); }),
    Special<Text>("WhatMonth", [](T t, Text name) { return ResultOf(I::WhatMonth(t, name)); }),
    Special<D>("DateToStr", [](T t, D value) { return ResultOf(I::DateToStr(t, value)); }),
    Special<D>("DateTimeToStr", [](T t, D value) { return ResultOf(I::DateTimeToStr(t, value)); }),
    Special<Text, D>("FormatDateTime",
                     [](T t, Text format, D value) { return ResultOf(I::FormatDateTime(t, format, value)); }),
    Special<Text, D>("DateTimeToString",
                     [](T t, Text format, D value) { return ResultOf(I::DateTimeToString(t, format, value)); }),
    Special<Text, TDateTimeParts, W>("FormatDateTimeFullToString",
                                     [](T t, Text format, const TDateTimeParts& parts, W dayOfWeek) {
                                       return ResultOf(I::FormatDateTimeFullToString(t, format, parts, dayOfWeek));
                                     }),
    Special<Text>("StrToDate", [](T t, Text text) { return ResultOf(I::StrToDate(t, text)); }),
    Special<Text>("StrToDateTime", [](T t, Text text) { return ResultOf(I::StrToDateTime(t, text)); }),
    Special<Text, D>("StrToDateDef", [](T t, Text text, D other) { return ResultOf(I::StrToDateDef(t, text, other)); }),
    Special<Text, D>("StrToDateTimeDef",
                     [](T t, Text text, D other) { return ResultOf(I::StrToDateTimeDef(t, text, other)); }),
    Special<Text>("TryStrToDate", [](T t, Text text) { return ResultOf(I::TryStrToDate(t, text)); }),
    Special<Text>("TryStrToDateTime", [](T t, Text text) { return ResultOf(I::TryStrToDateTime(t, text)); }),
    Special<Text, Text>("TryStrToDateTime",
                        [](T t, Text text, Text format) { return ResultOf(I::TryStrToDateTime(t, text, format)); }),
    Special<Text, Text>(
        "FormatStringFullToDateTime",
        [](T t, Text format, Text text) { return ResultOf(I::FormatStringFullToDateTime(t, format, text)); }),
    Special<Text, Text>("StringToDateTime",
                        [](T t, Text format, Text text) -> TJson {
                          return {{"ADateTime", I::StringToDateTime(t, format, text)}};
                        }),
    Special<std::int32_t, Text, Text>("Parser", [](T t, std::int32_t field, Text format,
                                                   Text text) { return ResultOf(I::Parser(t, field, format, text)); }),
};

constexpr std::span<const TCall> CallTables[] = {PartCalls, CodingCalls, ReckoningCalls, TextCalls};

bool IsForAllUnits(std::string_view call) {
  return !call.starts_with("EnsureYear");
}

// The form of the call that the arguments fit; of several, the first.
const TCall& FindCall(std::string_view name, const TCallArguments& arguments) {
  bool known = false;
  for (const auto table : CallTables)
    for (const TCall& call : table) {
      if (call.Name != name) continue;
      if (call.Fits(arguments)) return call;
      known = true;
    }
  throw BadRequest((known ? "these are no arguments of '" : "there is no call '") + std::string(name) + "'");
}

enum class TUnit : std::uint8_t { Persian, Arabic, Any };
constexpr TNamed<TUnit> UnitNames[] = {
    {"PDateTime", TUnit::Persian}, {"ADateTime", TUnit::Arabic}, {"IDateTime", TUnit::Any}};
constexpr TNamed<T> TypeNames[] = {{"ctPersian", ctPersian}, {"ctIslamic", ctIslamic}, {"ctJulian", ctJulian}};

// The units of one calendar are what the general unit asks for that calendar.
T TypeOf(const TArguments& arguments) {
  switch (arguments.Enum("unit", UnitNames)) {
    case TUnit::Persian:
      return ctPersian;
    case TUnit::Arabic:
      return ctIslamic;
    case TUnit::Any:
      break;
  }
  return arguments.Enum("type", TypeNames);
}

TJson Classic(const TArguments& arguments) {
  const T type = TypeOf(arguments);
  const std::string name = arguments.String("call");
  if (arguments.String("unit") != "IDateTime" && !IsForAllUnits(name))
    throw BadRequest("there is no call '" + name + "' in this unit");
  const TCallArguments callArguments(arguments.At("args"));
  const TCall& call = FindCall(name, callArguments);
  // The process-wide settings go back to their former values behind every request.
  if (arguments.Has("formatSettings")) LayOver(arguments.At("formatSettings"), rtl::FormatSettings());
  return call.Run(type, callArguments);
}

// --- The table of languages ---

using TLocaleFunction = TJson (*)(std::uint32_t);
constexpr TNamed<TLocaleFunction> LocaleFunctions[] = {
    {"LCIDToCodePage", [](std::uint32_t lcid) -> TJson { return LCIDToCodePage(lcid); }},
    {"LCIDToLocaleName", [](std::uint32_t lcid) -> TJson { return LCIDToLocaleName(lcid); }}};

TJson Lcid(const TArguments& arguments) {
  const TLocaleFunction function = arguments.Enum("fn", LocaleFunctions);
  return function(static_cast<std::uint32_t>(arguments.Integer("lcid", 0, 0xFFFFFFFF)));
}

// --- The binding converters ---

using rtl::TValue;

TValue Converted(void (*convert)(const TValue&, TValue&), const TValue& in) {
  TValue out;
  convert(in, out);
  return out;
}

TValue TextIn(const TArguments& arguments) {
  return TValue::FromString(FromUtf8(arguments.String("value")));
}

TValue DateTimeIn(const TArguments& arguments) {
  const double value = arguments.Number("value");
  const std::string type = arguments.Has("valueType") ? arguments.String("valueType") : std::string();
  if (type == "TDate") return TValue::FromDate(value);
  if (type == "TDateTime") return TValue::FromDateTime(value);
  return TValue::FromDouble(value);
}

TJson DateTimeOut(const TValue& value) {
  if (value.IsEmpty()) return nullptr;
  return value.AsDateTime();
}

using TConverter = TJson (*)(const TArguments&);
using U = TOrvConverterUtils;
constexpr TNamed<TConverter> Converters[] = {
    {"BoolToString",
     [](const TArguments& a) {
       return TextValue(Converted(U::BoolToString, TValue::FromBoolean(a.Bool("value"))).AsString());
     }},
    {"StringToBool", [](const TArguments& a) -> TJson { return Converted(U::StringToBool, TextIn(a)).AsBoolean(); }},
    {"StringToDateTime", [](const TArguments& a) { return DateTimeOut(Converted(U::StringToDateTime, TextIn(a))); }},
    {"StringToDate", [](const TArguments& a) { return DateTimeOut(Converted(U::StringToDate, TextIn(a))); }},
    {"DateTimeToString",
     [](const TArguments& a) { return TextValue(Converted(U::DateTimeToString, DateTimeIn(a)).AsString()); }},
};

TJson Bind(const TArguments& arguments) {
  return arguments.Enum("call", Converters)(arguments);
}

constexpr TOp Ops[] = {
    {"classic", "unit, type, formatSettings, call, args: an operation of a classic date unit", Classic},
    {"lcid", "fn, lcid: the code page or the name of a Windows language identifier", Lcid},
    {"bind", "call, value, valueType: a binding converter", Bind},
};

}  // namespace

std::span<const TOp> ClassicOps() {
  return Ops;
}

}  // namespace orv::eval
