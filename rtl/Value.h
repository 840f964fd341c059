// A value that carries its type with it, as the binding layer hands values over.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>

#include "rtl/DateTime.h"
#include "rtl/Exceptions.h"
#include "rtl/Strings.h"

namespace rtl {

// A value asked for as a type that it cannot be read as.
class EInvalidCast : public Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EInvalidCast"; }
};

inline constexpr const char* SInvalidCast = "The value cannot be read as the type asked for";

// The types that TValue tells apart. Date, Time and DateTime are numbers of days under the names TDate, TTime and
// TDateTime.
enum class TValueType : std::uint8_t { Empty, Boolean, Integer, Double, Date, Time, DateTime, String };

// Empty, or one value of one type. Reading it as another type follows the assignments of the type system: a whole
// number reads as a number with a fraction and as a date-time, all numbers with fractions read as each other; nothing
// else converts, and EInvalidCast is raised.
class TValue {
 public:
  TValue() = default;
  static TValue FromBoolean(bool value) { return {TValueType::Boolean, value}; }
  static TValue FromInteger(std::int64_t value) { return {TValueType::Integer, value}; }
  static TValue FromDouble(double value) { return {TValueType::Double, value}; }
  static TValue FromDate(TDateTime value) { return {TValueType::Date, value}; }
  static TValue FromTime(TDateTime value) { return {TValueType::Time, value}; }
  static TValue FromDateTime(TDateTime value) { return {TValueType::DateTime, value}; }
  static TValue FromString(UnicodeString value) { return {TValueType::String, std::move(value)}; }

  bool IsEmpty() const { return FType == TValueType::Empty; }
  TValueType Type() const { return FType; }
  std::string_view TypeName() const;  // "Boolean", "Integer", ...; empty for the empty value

  bool AsBoolean() const;
  std::int64_t AsInteger() const;
  double AsDouble() const;
  TDateTime AsDateTime() const { return AsDouble(); }
  const UnicodeString& AsString() const;

  friend bool operator==(const TValue&, const TValue&) = default;

 private:
  using TData = std::variant<std::monostate, bool, std::int64_t, double, UnicodeString>;
  TValue(TValueType type, TData data) : FType(type), FData(std::move(data)) {}

  TValueType FType = TValueType::Empty;
  TData FData;
};

}  // namespace rtl
