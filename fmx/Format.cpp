#include "fmx/Format.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "rtl/Utf8.h"

namespace fmx {
namespace {

// What stands between a percent sign and its letter.
struct TPlace {
  int Width = 0;
  int Decimals = 2;
  std::size_t Length = 0;  // characters from the percent sign to the letter; 0 where there is no letter
};

constexpr int LargestField = 99;

int ReadNumber(std::string_view format, std::size_t& index) {
  int number = 0;
  while (index < format.size() && format[index] >= '0' && format[index] <= '9') {
    number = std::min(number * 10 + (format[index++] - '0'), LargestField);
  }
  return number;
}

// Reads the place that begins with the percent sign at the front of the format.
TPlace ReadPlace(std::string_view format) {
  TPlace place;
  std::size_t index = 1;
  place.Width = ReadNumber(format, index);
  if (index < format.size() && format[index] == '.') place.Decimals = ReadNumber(format, ++index);
  if (index < format.size() && std::string_view("dfs").find(format[index]) != std::string_view::npos) {
    place.Length = index + 1;
  }
  return place;
}

std::string WriteReal(double value, int decimals) {
  char buffer[512];  // the largest double has 309 digits before the point
  const int length = std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  std::string text(buffer, static_cast<std::size_t>(std::max(length, 0)));
  std::replace(text.begin(), text.end(), ',', '.');  // the C library's locale decides the point
  return text;
}

std::string Write(const TFormatArg& value, const TPlace& place) {
  switch (value.Kind()) {
    case TFormatArg::TKind::Integer:
      return std::to_string(value.Integer());
    case TFormatArg::TKind::Real:
      return WriteReal(value.Real(), place.Decimals);
    case TFormatArg::TKind::Text:
      return std::string(value.Text());
    case TFormatArg::TKind::WideText:
      return rtl::ToUtf8(value.WideText());
  }
  return {};
}

}  // namespace

std::string Format(std::string_view format, std::initializer_list<TFormatArg> values) {
  std::string text;
  const auto* next = values.begin();
  while (!format.empty()) {
    const std::size_t percent = std::min(format.find('%'), format.size());
    text += format.substr(0, percent);
    format.remove_prefix(percent);
    if (format.empty()) break;
    const TPlace place = ReadPlace(format);
    if (format.substr(0, 2) == "%%") {
      text += '%';
      format.remove_prefix(2);
    } else if (place.Length == 0 || next == values.end()) {
      text += '%';
      format.remove_prefix(1);
    } else {
      const std::string written = Write(*next++, place);
      text.append(static_cast<std::size_t>(
                      std::max(place.Width - static_cast<int>(std::min<std::size_t>(written.size(), LargestField)), 0)),
                  ' ');
      text += written;
      format.remove_prefix(place.Length);
    }
  }
  return text;
}

}  // namespace fmx
