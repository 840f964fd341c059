// Calls by name: an operation of a calendar, its arguments taken from a JSON array by the types of its parameters, and
// its answer made into an object by the type of its result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

#include "calendar/Orv.Date.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::eval {

inline constexpr TNamed<TDayOfWeek> DayOfWeekNames[] = {
    {"Sunday", TDayOfWeek::Sunday},       {"Monday", TDayOfWeek::Monday},      {"Tuesday", TDayOfWeek::Tuesday},
    {"Wednesday", TDayOfWeek::Wednesday}, {"Thursday", TDayOfWeek::Thursday},  {"Friday", TDayOfWeek::Friday},
    {"Saturday", TDayOfWeek::Saturday},   {"Undefined", TDayOfWeek::Undefined}};

// The arguments of a call, taken one after the other. A form of a call first asks whether they fit its parameters.
class TCallArguments {
 public:
  // Raises BadRequest unless values is an array. Borrowed.
  explicit TCallArguments(const TJson& values);

  std::size_t Count() const { return FValues.size(); }
  const TJson& operator[](std::size_t index) const { return FValues[index]; }

  // Whether the next argument is one of that type; moves on.
  template <typename T>
  bool NextFits() {
    return FNext < FValues.size() && Fits<T>(FValues[FNext++]);
  }
  bool AtEnd() const { return FNext == FValues.size(); }
  void Restart() { FNext = 0; }

  // The next argument. It fits.
  template <typename T>
  T Next() {
    return Read<T>(FValues[FNext++]);
  }

 private:
  template <typename T>
  static bool Fits(const TJson& value) {
    if constexpr (std::is_same_v<T, bool>) {
      return value.is_boolean();
    } else if constexpr (std::is_same_v<T, std::uint16_t>) {
      return value.is_number_integer();
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
      return IsInt32(value);
    } else if constexpr (std::is_same_v<T, double>) {
      return value.is_number();
    } else if constexpr (std::is_same_v<T, rtl::UnicodeString>) {
      return value.is_string();
    } else {
      static_assert(std::is_same_v<T, TDayOfWeek>);
      return IsDayOfWeek(value);
    }
  }
  template <typename T>
  static T Read(const TJson& value) {
    if constexpr (std::is_same_v<T, std::uint16_t>) {
      return static_cast<std::uint16_t>(value.get<std::uint64_t>());  // modulo 65536
    } else if constexpr (std::is_same_v<T, rtl::UnicodeString>) {
      return FromUtf8(value.get_ref<const std::string&>());
    } else if constexpr (std::is_same_v<T, TDayOfWeek>) {
      return DayOfWeek(value);
    } else {
      return value.get<T>();
    }
  }
  static bool IsInt32(const TJson& value);
  static bool IsDayOfWeek(const TJson& value);
  static TDayOfWeek DayOfWeek(const TJson& value);

  const TJson& FValues;
  std::size_t FNext = 0;
};

// --- Parameters: how many arguments of which kinds make one ---

// One argument of the type itself. Texts are held while the call lasts.
template <typename T>
struct TParameter {
  using TKept = std::conditional_t<std::is_same_v<T, std::u16string_view>, rtl::UnicodeString, T>;
  static bool Fits(TCallArguments& arguments) { return arguments.NextFits<TKept>(); }
  static TKept Take(TCallArguments& arguments) { return arguments.Next<TKept>(); }
};

// A record of such arguments, in the order of its fields.
template <typename T, typename... TFields>
struct TRecordParameter {
  using TKept = T;
  static bool Fits(TCallArguments& arguments) { return (TParameter<TFields>::Fits(arguments) && ...); }
  static T Take(TCallArguments& arguments) { return T{TParameter<TFields>::Take(arguments)...}; }
};

using TWord = std::uint16_t;
template <>
struct TParameter<TDateParts> : TRecordParameter<TDateParts, TWord, TWord, TWord> {};
template <>
struct TParameter<TTimeParts> : TRecordParameter<TTimeParts, TWord, TWord, TWord, TWord> {};
template <>
struct TParameter<TDateTimeParts> : TRecordParameter<TDateTimeParts, TDateParts, TTimeParts> {};
template <>
struct TParameter<TYearDay> : TRecordParameter<TYearDay, TWord, TWord> {};
template <>
struct TParameter<TDateWeek> : TRecordParameter<TDateWeek, TWord, TWord, TDayOfWeek> {};
template <>
struct TParameter<TDateMonthWeek> : TRecordParameter<TDateMonthWeek, TWord, TWord, TWord, TDayOfWeek> {};
template <>
struct TParameter<TDayOfWeekInMonth> : TRecordParameter<TDayOfWeekInMonth, TWord, TWord, TWord, TDayOfWeek> {};

// Whether the arguments are exactly those of the parameters.
template <typename... TParameters>
bool FitAll(TCallArguments arguments) {
  return (TParameter<TParameters>::Fits(arguments) && ...) && arguments.AtEnd();
}

// --- Results ---

TJson DayOfWeekValue(TDayOfWeek dow);
TJson ResultOf(const TDateParts& date);
TJson ResultOf(const TYearDay& date);
TJson ResultOf(const TDateTimeParts& parts);
TJson ResultOf(const TDateWeek& date);
TJson ResultOf(const TDateMonthWeek& date);
TJson ResultOf(const TDayOfWeekInMonth& date);
TJson ResultOf(const TLocatedField& field);
TJson ResultOf(TDayOfWeek dow);
TJson ResultOf(TOrvCalendarCalc::TCalendarType type);
TJson ResultOf(const rtl::UnicodeString& text);
// What a Try... form answers; a date-time that is not there is written as 0.
TJson ResultOf(const std::optional<rtl::TDateTime>& value, const char* name = "ADateTime");
template <typename T>
requires std::is_arithmetic_v<T> TJson ResultOf(T value) {
  return {{"Result", value}};
}

// Fields of "formatSettings" laid over settings as they stand. Raises BadRequest for what is no such field.
void LayOver(const TJson& fields, rtl::TFormatSettings& settings);

}  // namespace orv::eval
