#include "unicode/OrvSystem.SysUtils.h"

#include <cstdlib>
#include <limits>

#include "rtl/DateTime.h"
#include "rtl/Strings.h"

namespace orv {
namespace {

// Whether the first length characters of text are those of subText; the text's end matches nothing.
bool BeginsWith(const char16_t* text, const char16_t* subText, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    if (text[i] == 0 || text[i] != subText[i]) return false;
  return true;
}

#ifdef _WIN32
std::string RootFolder() {
  const char* root = std::getenv("SystemRoot");
  return root != nullptr ? root : "C:\\Windows";
}
#endif

}  // namespace

const char16_t* StrLPos(const char16_t* text, const char16_t* subText, std::size_t length) {
  if (text == nullptr || subText == nullptr) return nullptr;
  for (; *text != 0; ++text)
    if (*text == *subText && BeginsWith(text, subText, length)) return text;
  return nullptr;
}

std::u16string CopyQuotedStr(std::u16string_view s, std::int32_t index, std::int32_t& nextIndex) {
  const std::int64_t behind = std::int64_t{index};  // 1-based opening quote: the 0-based place behind it
  const char16_t quote = rtl::UnitAt(s, behind - 1);
  const bool isInside = index >= 1 && static_cast<std::size_t>(index) <= s.size();
  const std::size_t close = isInside ? s.find(quote, static_cast<std::size_t>(index)) : std::u16string_view::npos;
  if (close == std::u16string_view::npos) {
    nextIndex = index < std::numeric_limits<std::int32_t>::max() ? index + 1 : index;
    return {};
  }
  nextIndex = static_cast<std::int32_t>(close) + 1;
  return std::u16string(s.substr(static_cast<std::size_t>(index), close - static_cast<std::size_t>(index)));
}

std::int64_t DateTimeToMilliseconds(double dateTime) {
  return rtl::DateTimeToMilliseconds(dateTime);
}

#ifdef _WIN32
std::string GetSystemPath() {
  return RootFolder() + "\\System32";
}
std::string GetWindowsPath() {
  return RootFolder();
}
#else
std::string GetSystemPath() {
  return "/usr/bin";
}
std::string GetWindowsPath() {
  return "/";
}
#endif

}  // namespace orv
