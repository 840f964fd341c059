// The operations of the calendars: day arithmetic, and every call of a calculator.
#include <tuple>

#include "calendar/Date.h"
#include "calendar/Orv.Date.Factory.h"
#include "tools/orv/eval/Arguments.h"
#include "tools/orv/eval/Calls.h"

namespace orv::eval {
namespace {

TJson DmyToDay(const TArguments& arguments) {
  return DMYToDay(arguments.Int32("day"), arguments.Int32("month"), arguments.Int32("year"), arguments.Int32("kind"));
}

TJson DayToDmy(const TArguments& arguments) {
  const TDayMonthYear date = DayToDMY(arguments.Int32("jd"), arguments.Int32("kind"));
  return {{"Day", date.Day}, {"Month", date.Month}, {"Year", date.Year}};
}

TJson JalaliJd0(const TArguments& arguments) {
  return JalaliJD0(arguments.Int32("year"));
}

// --- Calls of a calculator ---

using C = TOrvCalendarCalc;

// One form of a call: whether arguments fit it, and the call itself.
struct TCall {
  std::string_view Name;
  bool (*Fits)(TCallArguments);
  TJson (*Run)(const C& calendar, TCallArguments arguments);
};

// Calls function(calendar, parameters...) with the arguments, and makes its answer a result.
template <typename... TParameters, typename TFunction>
TJson RunWith(const TFunction& function, [[maybe_unused]] TCallArguments arguments) {
  // In braces, arguments are taken from left to right.
  std::tuple<typename TParameter<TParameters>::TKept...> taken{TParameter<TParameters>::Take(arguments)...};
  return ResultOf(std::apply(function, taken));
}

template <auto Member>
struct TMember;
template <typename R, typename... A, R (C::*Member)(A...) const>
struct TMember<Member> {
  static bool Fits(TCallArguments arguments) { return FitAll<std::decay_t<A>...>(arguments); }
  static TJson Run(const C& calendar, TCallArguments arguments) {
    return RunWith<std::decay_t<A>...>([&](const auto&... a) { return (calendar.*Member)(a...); }, arguments);
  }
};
template <typename R, typename... A, R (*Function)(A...)>
struct TMember<Function> {
  static bool Fits(TCallArguments arguments) { return FitAll<std::decay_t<A>...>(arguments); }
  static TJson Run(const C&, TCallArguments arguments) {
    return RunWith<std::decay_t<A>...>([](const auto&... a) { return Function(a...); }, arguments);
  }
};

// A row of the table for a member that has one form.
template <auto Member>
constexpr TCall Call(std::string_view name) {
  return {name, TMember<Member>::Fits, TMember<Member>::Run};
}

// The form of an overloaded member that has these parameters.
template <typename... A>
struct TForm {
  template <typename R>
  static constexpr auto Of(R (C::*member)(A...) const) {
    return member;
  }
};

// A row for what is not one member called with its arguments in order. The function takes the calendar and the
// parameters.
template <typename... TParameters, typename TFunction>
constexpr TCall Special(std::string_view name, TFunction) {
  return {name, [](TCallArguments arguments) { return FitAll<TParameters...>(arguments); },
          [](const C& calendar, TCallArguments arguments) {
            std::tuple<typename TParameter<TParameters>::TKept...> taken{TParameter<TParameters>::Take(arguments)...};
            return std::apply([&](const auto&... a) { return TFunction()(calendar, a...); }, taken);
          }};
}

TJson FullDate(const C& calendar, TDateTime value) {
  TDateParts date;
  TDayOfWeek dow = TDayOfWeek::Sunday;
  TJson result = {{"Result", calendar.DecodeDateFully(value, date, dow)}};
  result.update(ResultOf(date));
  result["DOW"] = DayOfWeekValue(dow);
  return result;
}

using W = std::uint16_t;
using Text = std::u16string_view;

constexpr TCall PartCalls[] = {
    Call<&C::CurrentDay>("CurrentDay"),
    Call<&C::CurrentMonth>("CurrentMonth"),
    Call<&C::CurrentYear>("CurrentYear"),
    Call<&C::CalendarType>("CalendarType"),
    Call<&C::MonthsInAYear>("MonthsInAYear"),
    Call<&C::MonthsInYear>("MonthsInYear"),
    Call<&C::DaysInAMonth>("DaysInAMonth"),
    Call<&C::DaysInAYear>("DaysInAYear"),
    Call<&C::IsLeapYear>("IsLeapYear"),
    Call<&C::WeeksInAYear>("WeeksInAYear"),
    Call<&C::DayOf>("DayOf"),
    Call<&C::MonthOf>("MonthOf"),
    Call<&C::YearOf>("YearOf"),
    Call<&C::DayOfTheYear>("DayOfTheYear"),
    Call<&C::DayOfTheMonth>("DayOfTheMonth"),
    Call<&C::MonthOfTheYear>("MonthOfTheYear"),
    Call<&C::WeekOf>("WeekOf"),
    Call<&C::WeekOfTheYear>("WeekOfTheYear"),
    Call<&C::DayOfTheWeek>("DayOfTheWeek"),
    Call<&C::DayOfWeek>("DayOfWeek"),
    Call<&C::LocaleDayOfWeek>("LocaleDayOfWeek"),
    Call<&C::DaysInMonth>("DaysInMonth"),
    Call<&C::DaysInYear>("DaysInYear"),
    Call<&C::WeeksInYear>("WeeksInYear"),
    Call<&C::IsInLeapYear>("IsInLeapYear"),
    Call<&C::IsYearValid>("IsYearValid"),
    Call<TForm<W>::Of(&C::IsMonthValid)>("IsMonthValid"),
    Call<TForm<std::int32_t, W>::Of(&C::IsMonthValid)>("IsMonthValid"),
    Call<&C::IsValidDate>("IsValidDate"),
    Call<&C::IsValidDateDay>("IsValidDateDay"),
    Call<&C::IsValidDateTime>("IsValidDateTime"),
    Call<&C::IsValidDateWeek>("IsValidDateWeek"),
    Call<&C::IsValidDateMonthWeek>("IsValidDateMonthWeek"),
    Call<static_cast<W (*)(W)>(&C::NthDayOfWeek)>("NthDayOfWeek"),
    Call<TForm<TDateTime>::Of(&C::NthDayOfWeek)>("NthDayOfWeek"),
    Call<&C::HourOfTheMonth>("HourOfTheMonth"),
    Call<&C::HourOfTheWeek>("HourOfTheWeek"),
    Call<&C::HourOfTheYear>("HourOfTheYear"),
    Call<&C::MinuteOfTheMonth>("MinuteOfTheMonth"),
    Call<&C::MinuteOfTheWeek>("MinuteOfTheWeek"),
    Call<&C::MinuteOfTheYear>("MinuteOfTheYear"),
    Call<&C::SecondOfTheMonth>("SecondOfTheMonth"),
    Call<&C::SecondOfTheWeek>("SecondOfTheWeek"),
    Call<&C::SecondOfTheYear>("SecondOfTheYear"),
    Call<&C::MilliSecondOfTheMonth>("MilliSecondOfTheMonth"),
    Call<&C::MilliSecondOfTheWeek>("MilliSecondOfTheWeek"),
    Call<&C::MilliSecondOfTheYear>("MilliSecondOfTheYear"),
    Call<&C::WhatDay>("WhatDay"),
    Call<&C::WhatMonth>("WhatMonth"),
    Call<TForm<TDateTime, W, W>::Of(&C::SameDayMonth)>("SameDayMonth"),
    Call<TForm<TDateTime, TDateTime>::Of(&C::SameDayMonth)>("SameDayMonth"),
    Call<TForm<TDateTime, W>::Of(&C::SameDayOfMonth)>("SameDayOfMonth"),
    Call<TForm<TDateTime, TDateTime>::Of(&C::SameDayOfMonth)>("SameDayOfMonth"),
    Call<TForm<TDateTime, W>::Of(&C::SameMonth)>("SameMonth"),
    Call<TForm<TDateTime, TDateTime>::Of(&C::SameMonth)>("SameMonth"),
    Call<TForm<TDateTime, TDayOfWeek>::Of(&C::SameDayOfWeek)>("SameDayOfWeek"),
    Call<TForm<TDateTime, TDateTime>::Of(&C::SameDayOfWeek)>("SameDayOfWeek"),
    Call<TForm<TDateTime, const TDateParts&>::Of(&C::SameDayOfWeek)>("SameDayOfWeek"),
};

constexpr TCall CodingCalls[] = {
    Call<&C::EncodeDate>("EncodeDate"),
    Call<&C::EncodeDateDay>("EncodeDateDay"),
    Call<&C::EncodeDateTime>("EncodeDateTime"),
    Call<&C::EncodeDateWeek>("EncodeDateWeek"),
    Call<&C::EncodeDateMonthWeek>("EncodeDateMonthWeek"),
    Call<&C::EncodeDayOfWeekInMonth>("EncodeDayOfWeekInMonth"),
    Call<TForm<const TDateParts&>::Of(&C::TryEncodeDate)>("TryEncodeDate"),
    Call<TForm<W, W>::Of(&C::TryEncodeDateDay)>("TryEncodeDateDay"),
    Call<&C::TryEncodeDateTime>("TryEncodeDateTime"),
    Call<&C::TryEncodeDateWeek>("TryEncodeDateWeek"),
    Call<&C::TryEncodeDateMonthWeek>("TryEncodeDateMonthWeek"),
    Call<&C::TryEncodeDayOfWeekInMonth>("TryEncodeDayOfWeekInMonth"),
    Call<TForm<TDateTime>::Of(&C::DecodeDate)>("DecodeDate"),
    Call<TForm<TDateTime>::Of(&C::DecodeDateDay)>("DecodeDateDay"),
    Call<&C::DecodeDateTime>("DecodeDateTime"),
    Call<&C::DecodeDateWeek>("DecodeDateWeek"),
    Call<&C::DecodeDateMonthWeek>("DecodeDateMonthWeek"),
    Call<&C::DecodeDayOfWeekInMonth>("DecodeDayOfWeekInMonth"),
    Special<TDateTime>("DecodeDateFully", [](const C& c, TDateTime value) { return FullDate(c, value); }),
    Special<TDateTime, TDateTimeParts>("TryRecodeDateTime",
                                       [](const C& c, TDateTime value, const TDateTimeParts& parts) {
                                         return ResultOf(c.TryRecodeDateTime(value, parts), "AResult");
                                       }),
    Call<&C::RecodeDateTime>("RecodeDateTime"),
    Call<&C::RecodeYear>("RecodeYear"),
    Call<&C::RecodeMonth>("RecodeMonth"),
    Call<&C::RecodeDay>("RecodeDay"),
    Call<&C::RecodeDate>("RecodeDate"),
};

constexpr TCall ReckoningCalls[] = {
    Call<&C::StartOfAYear>("StartOfAYear"),
    Call<&C::StartOfAMonth>("StartOfAMonth"),
    Call<TForm<const TDateParts&>::Of(&C::StartOfADay)>("StartOfADay"),
    Call<TForm<W, W>::Of(&C::StartOfADay)>("StartOfADay"),
    Call<&C::StartOfAWeek>("StartOfAWeek"),
    Call<&C::StartOfTheYear>("StartOfTheYear"),
    Call<&C::StartOfTheMonth>("StartOfTheMonth"),
    Call<&C::StartOfTheWeek>("StartOfTheWeek"),
    Call<&C::EndOfAYear>("EndOfAYear"),
    Call<&C::EndOfAMonth>("EndOfAMonth"),
    Call<TForm<const TDateParts&>::Of(&C::EndOfADay)>("EndOfADay"),
    Call<TForm<W, W>::Of(&C::EndOfADay)>("EndOfADay"),
    Call<&C::EndOfAWeek>("EndOfAWeek"),
    Call<&C::EndOfTheYear>("EndOfTheYear"),
    Call<&C::EndOfTheMonth>("EndOfTheMonth"),
    Call<&C::EndOfTheWeek>("EndOfTheWeek"),
    Call<&C::DaysBetween>("DaysBetween"),
    Call<&C::WeeksBetween>("WeeksBetween"),
    Call<&C::DaySpan>("DaySpan"),
    Call<&C::WeekSpan>("WeekSpan"),
    Call<&C::MonthSpan>("MonthSpan"),
    Call<&C::MonthsBetween>("MonthsBetween"),
    Call<&C::YearsBetween>("YearsBetween"),
    Call<&C::YearSpan>("YearSpan"),
    Call<&C::DateInRange>("DateInRange"),
    Special<TDateTime, TDateTime, TDateTime>(
        "DateInRange",
        [](const C&, TDateTime a, TDateTime b, TDateTime c) { return ResultOf(C::DateInRange(a, b, c)); }),
    Call<&C::DateTimeInRange>("DateTimeInRange"),
    Special<TDateTime, TDateTime, TDateTime>(
        "DateTimeInRange",
        [](const C&, TDateTime a, TDateTime b, TDateTime c) { return ResultOf(C::DateTimeInRange(a, b, c)); }),
    Call<&C::DateTimeToMilliseconds>("DateTimeToMilliseconds"),
    Call<&C::IncDay>("IncDay"),
    Call<&C::IncWeek>("IncWeek"),
    Call<&C::IncMonth>("IncMonth"),
    Call<&C::IncYear>("IncYear"),
    Special<TDateParts, std::int32_t>("IncAMonth",
                                      [](const C& c, TDateParts date, std::int32_t n) {
                                        c.IncAMonth(date, n);
                                        return ResultOf(date);
                                      }),
    Special<TDateParts, std::int32_t>("IncAYear",
                                      [](const C& c, TDateParts date, std::int32_t n) {
                                        c.IncAYear(date, n);
                                        return ResultOf(date);
                                      }),
    Special<TDateParts, std::int32_t>("IncADay",
                                      [](const C& c, TDateParts date, std::int32_t n) {
                                        c.IncADay(date, n);
                                        return ResultOf(date);
                                      }),
    Special<TYearDay, std::int32_t>("IncADay",
                                    [](const C& c, TYearDay date, std::int32_t n) {
                                      c.IncADay(date, n);
                                      return ResultOf(date);
                                    }),
};

constexpr TCall TextCalls[] = {
    Call<&C::DateToStr>("DateToStr"),
    Call<&C::DateTimeToStr>("DateTimeToStr"),
    Call<&C::FormatDateTime>("FormatDateTime"),
    Call<&C::FormatDateTime>("DateTimeToString"),
    Special<Text, TDateTimeParts, TDayOfWeek, bool>(
        "FormatDateTimeFullToString",
        [](const C& c, Text format, const TDateTimeParts& parts, TDayOfWeek dow, bool useSeparators) {
          return ResultOf(c.FormatDateTimeFullToString(format, parts, dow, useSeparators));
        }),
    Call<&C::StrToDate>("StrToDate"),
    Call<&C::StrToDateTime>("StrToDateTime"),
    Call<&C::StrToDateDef>("StrToDateDef"),
    Call<&C::StrToDateTimeDef>("StrToDateTimeDef"),
    Call<&C::TryStrToDate>("TryStrToDate"),
    Call<TForm<Text>::Of(&C::TryStrToDateTime)>("TryStrToDateTime"),
    Call<TForm<Text, Text>::Of(&C::TryStrToDateTime)>("TryStrToDateTime"),
    Call<&C::FormatStringFullToDateTime>("FormatStringFullToDateTime"),
    Special<Text, Text>("StringToDateTime",
                        [](const C& c, Text format, Text text) -> TJson {
                          return {{"ADateTime", c.StringToDateTime(format, text)}};
                        }),
    Call<&C::Parser>("Parser"),
};

constexpr std::span<const TCall> CallTables[] = {PartCalls, CodingCalls, ReckoningCalls, TextCalls};

// The form of the call that the arguments fit; of several, the first.
const TCall& FindCall(std::string_view name, const TCallArguments& arguments) {
  bool known = false;
  for (const auto table : CallTables) {
    for (const TCall& call : table) {
      if (call.Name != name) continue;
      if (call.Fits(arguments)) return call;
      known = true;
    }
  }
  throw BadRequest((known ? "these are no arguments of '" : "there is no call '") + std::string(name) + "'");
}

TJson Calendar(const TArguments& arguments) {
  const TCallArguments callArguments(arguments.At("args"));
  const TCall& call = FindCall(arguments.String("call"), callArguments);
  const std::string name = arguments.String("name");
  const rtl::UnicodeString locale = FromUtf8(arguments.Has("locale") ? arguments.String("locale") : std::string());
  const auto calendar = TOrvCalendarCalcFactory::Current().CreateCalendar(FromUtf8(name), locale);
  if (calendar == nullptr) throw BadRequest("there is no calendar '" + name + "'");
  if (arguments.Has("formatSettings")) LayOver(arguments.At("formatSettings"), calendar->FormatSettings);
  return call.Run(*calendar, callArguments);
}

constexpr TOp Ops[] = {
    {"dmyToDay", "day, month, year, kind: the Julian Day Number of a date", DmyToDay},
    {"dayToDMY", "jd, kind: the date of a Julian Day Number", DayToDmy},
    {"jalaliJD0", "year: the Julian Day Number before 1 Farvardin", JalaliJd0},
    {"calendar", "name, locale, formatSettings, call, args: an operation of a calendar", Calendar},
};

}  // namespace

std::span<const TOp> CalendarOps() {
  return Ops;
}

}  // namespace orv::eval
