#include "rtl/Convert.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "rtl/Exceptions.h"
#include "rtl/FormatSettings.h"
#include "rtl/Utf8.h"

namespace rtl {
namespace {

constexpr int NoDigit = 99;

constexpr int DigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return NoDigit;
}

constexpr bool IsDecimalDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

constexpr char16_t Folded(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

bool EqualsIgnoringCase(std::u16string_view text, std::u16string_view lowerCase) {
  if (text.size() != lowerCase.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (Folded(text[i]) != lowerCase[i]) return false;
  return true;
}

bool TakeSign(std::u16string_view& text) {
  if (text.empty() || (text[0] != u'+' && text[0] != u'-')) return false;
  const bool negative = text[0] == u'-';
  text.remove_prefix(1);
  return negative;
}

bool TakeHexPrefix(std::u16string_view& text) {
  const std::size_t length = text.substr(0, 1) == u"$"                                  ? 1
                             : text.substr(0, 2) == u"0x" || text.substr(0, 2) == u"0X" ? 2
                                                                                        : 0;
  text.remove_prefix(length);
  return length > 0;
}

std::u16string_view WithoutBlanksBefore(std::u16string_view text) {
  while (!text.empty() && text[0] == u' ') text.remove_prefix(1);
  return text;
}

std::u16string_view WithoutBlanksAround(std::u16string_view text) {
  text = WithoutBlanksBefore(text);
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  return text;
}

// The digits at the front of text, taken off it and appended to value; answers how many there were.
int TakeDigits(std::u16string_view& text, double& value) {
  int count = 0;
  for (; !text.empty() && IsDecimalDigit(text[0]); ++count) {
    value = value * 10 + (text[0] - u'0');
    text.remove_prefix(1);
  }
  return count;
}

// An exponent at the end of a number: nothing where the rest of the text is none, 0 where the text is at its end.
std::optional<int> Exponent(std::u16string_view text) {
  if (text.empty()) return 0;
  if (text[0] != u'e' && text[0] != u'E') return std::nullopt;
  text.remove_prefix(1);
  const bool negative = TakeSign(text);
  double value = 0;
  if (TakeDigits(text, value) == 0 || !text.empty()) return std::nullopt;
  const int magnitude = static_cast<int>(std::fmin(value, 100000));
  return negative ? -magnitude : magnitude;
}

// One directive behind its "%": the precision and the letter, and how many characters they take.
struct TDirective {
  std::size_t Precision = 0;
  char Letter = 0;
  std::size_t Length = 0;
};

TDirective ReadDirective(std::string_view text) {
  constexpr std::size_t mostDigits = 64;
  TDirective directive;
  std::size_t i = 0;
  if (i < text.size() && text[i] == '.')
    for (++i; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
      directive.Precision = std::min(directive.Precision * 10 + static_cast<std::size_t>(text[i] - '0'), mostDigits);
  if (i < text.size()) directive.Letter = text[i++];
  directive.Length = i;
  return directive;
}

std::string WithDigits(std::int64_t number, std::size_t digits) {
  std::string text = std::to_string(number);
  const std::size_t sign = number < 0 ? 1 : 0;
  if (text.size() - sign < digits) text.insert(sign, digits - (text.size() - sign), '0');
  return text;
}

}  // namespace

std::int64_t TFormatArg::Number() const {
  if (const auto* number = std::get_if<std::int64_t>(&FValue)) return *number;
  throw EConvertError("A text stands where the format asks for a number");
}

std::string TFormatArg::Text() const {
  if (const auto* text = std::get_if<std::string_view>(&FValue)) return std::string(*text);
  if (const auto* text = std::get_if<std::u16string_view>(&FValue)) return ToUtf8(*text);
  throw EConvertError("A number stands where the format asks for a text");
}

std::string Format(std::string_view format, std::initializer_list<TFormatArg> arguments) {
  std::string out;
  const TFormatArg* next = arguments.begin();
  while (!format.empty()) {
    const std::size_t plain = std::min(format.find('%'), format.size());
    out += format.substr(0, plain);
    format.remove_prefix(plain);
    if (format.empty()) break;
    const TDirective directive = ReadDirective(format.substr(1));
    format.remove_prefix(1 + directive.Length);
    if (directive.Letter == '%') {
      out += '%';
      continue;
    }
    if (directive.Letter != 'd' && directive.Letter != 's')
      throw EConvertError("The format holds an unknown directive");
    if (next == arguments.end()) throw EConvertError("The format asks for more arguments than there are");
    out += directive.Letter == 'd' ? WithDigits(next->Number(), directive.Precision) : next->Text();
    ++next;
  }
  return out;
}

std::optional<std::int32_t> TryStrToInt(std::u16string_view text) {
  text = WithoutBlanksBefore(text);
  const bool negative = TakeSign(text);
  const bool hex = TakeHexPrefix(text);
  const int base = hex ? 16 : 10;
  if (text.empty()) return std::nullopt;
  std::int64_t value = 0;
  for (const char16_t c : text) {
    const int digit = DigitValue(c);
    if (digit >= base) return std::nullopt;
    value = value * base + digit;
    if (value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
  }
  if (hex) value = static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  if (negative) value = -value;
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
    return std::nullopt;
  return static_cast<std::int32_t>(value);
}

std::int32_t StrToInt(std::u16string_view text) {
  if (const auto value = TryStrToInt(text)) return *value;
  throw EConvertError(Format(SInvalidInteger, {text}));
}

std::int32_t StrToIntDef(std::u16string_view text, std::int32_t other) {
  return TryStrToInt(text).value_or(other);
}

std::optional<double> TryStrToFloat(std::u16string_view text, char16_t decimalSeparator) {
  text = WithoutBlanksAround(text);
  const bool negative = TakeSign(text);
  double value = 0;
  int digits = TakeDigits(text, value);
  int fraction = 0;
  if (!text.empty() && text[0] == decimalSeparator) {
    text.remove_prefix(1);
    fraction = TakeDigits(text, value);
    digits += fraction;
  }
  const auto exponent = Exponent(text);
  if (digits == 0 || !exponent) return std::nullopt;
  if (value != 0) value *= std::pow(10.0, *exponent - fraction);
  if (!std::isfinite(value)) return std::nullopt;
  return negative ? -value : value;
}

std::optional<bool> TryStrToBool(std::u16string_view text) {
  if (EqualsIgnoringCase(text, u"true")) return true;
  if (EqualsIgnoringCase(text, u"false")) return false;
  const auto number = TryStrToFloat(text, FormatSettings().DecimalSeparator);
  if (!number) return std::nullopt;
  return *number != 0;
}

}  // namespace rtl
