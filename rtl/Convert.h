// Numbers and truth values from text, and texts with values set in. No global locale is read. Any thread, apart from
// TryStrToBool, which reads the process-wide decimal separator.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "rtl/Strings.h"

namespace rtl {

inline constexpr const char* SInvalidInteger = "'%s' is not a valid integer value";

// An argument of Format: a whole number or a text. Texts are borrowed for the call.
class TFormatArg {
 public:
  template <typename T>
  requires std::is_integral_v<T> TFormatArg(T value) : FValue(static_cast<std::int64_t>(value)) {}
  TFormatArg(const char* text) : FValue(std::string_view(text)) {}
  TFormatArg(std::string_view text) : FValue(text) {}
  TFormatArg(const std::string& text) : FValue(std::string_view(text)) {}
  TFormatArg(const char16_t* text) : FValue(std::u16string_view(text)) {}
  TFormatArg(std::u16string_view text) : FValue(text) {}
  TFormatArg(const UnicodeString& text) : FValue(std::u16string_view(text)) {}

  // The argument under %d and under %s; each raises EConvertError for the other kind.
  std::int64_t Number() const;
  std::string Text() const;

 private:
  std::variant<std::int64_t, std::string_view, std::u16string_view> FValue;
};

// The format with each directive replaced by the next argument: %d a whole number, %.Nd one with at least N digits
// (zeros in front), %s a text, %% a percent sign. UTF-8. Raises EConvertError for any other directive, for an argument
// of the other kind and for a missing one; arguments left over are ignored. Format("%.2d/%s", {7, "x"}) is "07/x".
std::string Format(std::string_view format, std::initializer_list<TFormatArg> arguments);

// A whole number: blanks, an optional sign, then decimal digits, or hexadecimal ones behind "$" or "0x". Nothing for
// any other text and for values outside 32 signed bits; a hexadecimal number may use all 32 bits.
std::optional<std::int32_t> TryStrToInt(std::u16string_view text);
std::int32_t StrToInt(std::u16string_view text);  // raises EConvertError with SInvalidInteger
std::int32_t StrToIntDef(std::u16string_view text, std::int32_t other);

// A number with an optional fraction behind the given separator and an optional exponent, blanks around it allowed.
std::optional<double> TryStrToFloat(std::u16string_view text, char16_t decimalSeparator);

// "True" and "False" in any case; otherwise a number, true when it is not zero. Nothing for any other text.
std::optional<bool> TryStrToBool(std::u16string_view text);

}  // namespace rtl
