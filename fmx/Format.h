// Fixed format strings with values of any type: the form in which the system writes its log lines and messages.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

namespace fmx {

// One value; made by the compiler from a number, a text or an enumeration. Holds no copy of a text: it lives for the
// call.
class TFormatArg {
 public:
  enum class TKind : std::uint8_t { Integer, Real, Text, WideText };

  template <std::integral T>
  constexpr TFormatArg(T value) : FKind(TKind::Integer), FInteger(static_cast<std::int64_t>(value)) {}
  template <typename T>
  requires std::is_enum_v<T>
  constexpr TFormatArg(T value) : FKind(TKind::Integer), FInteger(static_cast<std::int64_t>(value)) {}
  template <std::floating_point T>
  constexpr TFormatArg(T value) : FKind(TKind::Real), FReal(static_cast<double>(value)) {}
  constexpr TFormatArg(std::string_view text) : FKind(TKind::Text), FText(text) {}
  constexpr TFormatArg(const char* text) : TFormatArg(std::string_view(text)) {}
  TFormatArg(const std::string& text) : TFormatArg(std::string_view(text)) {}
  constexpr TFormatArg(std::u16string_view text) : FKind(TKind::WideText), FWideText(text) {}
  constexpr TFormatArg(const char16_t* text) : TFormatArg(std::u16string_view(text)) {}
  TFormatArg(const std::u16string& text) : TFormatArg(std::u16string_view(text)) {}

  constexpr TKind Kind() const { return FKind; }
  constexpr std::int64_t Integer() const { return FInteger; }
  constexpr double Real() const { return FReal; }
  constexpr std::string_view Text() const { return FText; }
  constexpr std::u16string_view WideText() const { return FWideText; }

 private:
  TKind FKind;
  std::int64_t FInteger = 0;
  double FReal = 0;
  std::string_view FText;
  std::u16string_view FWideText;
};

// The format with each %d, %f and %s replaced by the next value, and %% by a percent sign. A width and, for %f, a count
// of decimals may stand between ("%2.2f"); without it %f writes two decimals. The value's type decides how it is
// written, whatever the letter; a place without a value stays as it is, and values left over are dropped. UTF-16 text
// becomes UTF-8, lone surrogates U+FFFD. Example: Format("Run: %d.%d, %f", {1, 2, 0.5}) is "Run: 1.2, 0.50".
std::string Format(std::string_view format, std::initializer_list<TFormatArg> values);

}  // namespace fmx
