#include "tools/orv/eval/Arguments.h"

#include <limits>

#include "rtl/Unicode.h"

namespace orv::eval {
namespace {

std::string Quoted(std::string_view name) {
  return std::string(1, '\'').append(name).append(1, '\'');
}

bool IsIntegerIn(const TJson& value, std::int64_t low, std::int64_t high) {
  if (value.is_number_unsigned()) {
    const auto number = value.get<std::uint64_t>();
    return high >= 0 && number <= static_cast<std::uint64_t>(high) &&
           (low <= 0 || number >= static_cast<std::uint64_t>(low));
  }
  if (!value.is_number_integer()) return false;
  const auto number = value.get<std::int64_t>();
  return number >= low && number <= high;
}

}  // namespace

const TJson& TArguments::At(std::string_view name) const {
  const auto found = FRequest.find(name);
  if (found == FRequest.end()) throw BadRequest(Quoted(name) + " is missing");
  return *found;
}

std::int64_t TArguments::Integer(std::string_view name, std::int64_t low, std::int64_t high) const {
  const TJson& value = At(name);
  if (!IsIntegerIn(value, low, high))
    throw BadRequest(Quoted(name) + " must be an integer from " + std::to_string(low) + " to " + std::to_string(high));
  return value.get<std::int64_t>();
}

std::int32_t TArguments::Int32(std::string_view name) const {
  using TLimits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(Integer(name, TLimits::min(), TLimits::max()));
}

double TArguments::Number(std::string_view name) const {
  const TJson& value = At(name);
  if (!value.is_number()) throw BadRequest(Quoted(name) + " must be a number");
  return value.get<double>();
}

bool TArguments::Bool(std::string_view name) const {
  const TJson& value = At(name);
  if (!value.is_boolean()) throw BadRequest(Quoted(name) + " must be true or false");
  return value.get<bool>();
}

std::string TArguments::String(std::string_view name) const {
  const TJson& value = At(name);
  if (!value.is_string()) throw BadRequest(Quoted(name) + " must be a string");
  return value.get<std::string>();
}

char16_t TArguments::CodeUnit(std::string_view name) const {
  const rtl::UnicodeString text = FromUtf8(String(name));
  if (text.size() != 1) throw BadRequest(Quoted(name) + " must be one character");
  return text.front();
}

rtl::UnicodeString TArguments::Text() const {
  if (Has("text")) return FromUtf8(String("text"));
  if (!Has("units")) throw BadRequest("'text' or 'units' is missing");
  const TJson& units = At("units");
  if (!units.is_array()) throw BadRequest("'units' must be an array of code units");
  rtl::UnicodeString text;
  text.reserve(units.size());
  for (const TJson& unit : units) {
    if (!IsIntegerIn(unit, 0, 0xFFFF)) throw BadRequest("'units' must be code units, 0 to 65535");
    text.push_back(static_cast<char16_t>(unit.get<std::uint32_t>()));
  }
  return text;
}

std::vector<std::uint32_t> TArguments::CodePoints(std::string_view name) const {
  const TJson& values = At(name);
  if (!values.is_array()) throw BadRequest(Quoted(name) + " must be an array of code points");
  std::vector<std::uint32_t> codePoints;
  codePoints.reserve(values.size());
  for (const TJson& value : values) {
    if (!IsIntegerIn(value, 0, 0xFFFFFFFF)) throw BadRequest(Quoted(name) + " must be code points, 0 to 4294967295");
    codePoints.push_back(value.get<std::uint32_t>());
  }
  return codePoints;
}

rtl::UnicodeString FromUtf8(std::string_view utf8) {
  rtl::UnicodeString text;
  text.reserve(utf8.size());
  // The reader has checked the encoding, so each lead byte tells how many bytes follow.
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t c = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length && i + k < utf8.size(); ++k)
      c = (c << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3FU);
    i += length;
    if (c >= 0x10000) {
      text.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
      text.push_back(static_cast<char16_t>(0xDC00 | (c & 0x3FF)));
    } else {
      text.push_back(static_cast<char16_t>(c));
    }
  }
  return text;
}

std::optional<std::string> ToUtf8(std::u16string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::int32_t length = 1;
    const std::uint32_t c = rtl::ConvertToUtf32(text, static_cast<std::int32_t>(i), length);
    if (rtl::IsSurrogate(c)) return std::nullopt;
    i += static_cast<std::size_t>(length - 1);
    const auto tail = [&](int shift) { utf8.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
    if (c < 0x80) {
      utf8.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      utf8.push_back(static_cast<char>(0xC0 | (c >> 6)));
      tail(0);
    } else if (c < 0x10000) {
      utf8.push_back(static_cast<char>(0xE0 | (c >> 12)));
      tail(6);
      tail(0);
    } else {
      utf8.push_back(static_cast<char>(0xF0 | (c >> 18)));
      tail(12);
      tail(6);
      tail(0);
    }
  }
  return utf8;
}

TJson TextValue(std::u16string_view text) {
  if (const auto utf8 = ToUtf8(text)) return *utf8;
  TJson units = TJson::array();
  for (const char16_t unit : text) units.push_back(static_cast<unsigned>(unit));
  return {{"units", std::move(units)}};
}

}  // namespace orv::eval
