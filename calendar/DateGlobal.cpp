#include "calendar/DateGlobal.h"

#include <cstddef>

#include "rtl/Exceptions.h"
#include "rtl/Strings.h"

namespace orv {

void ConvertError(std::string_view text) {
  throw rtl::EConvertError(std::string(text));
}

void ConvertErrorFmt(std::string_view format, std::initializer_list<rtl::TFormatArg> arguments) {
  throw rtl::EConvertError(rtl::Format(format, arguments));
}

TQuotedText CopyQuotedStr(std::u16string_view text, std::int32_t position) {
  const char16_t quote = rtl::UnitAt(text, position - 1);
  const auto first = static_cast<std::size_t>(position < 0 ? 0 : position);  // 0-based index behind the quote
  const std::size_t end = text.find(quote, first);
  if (end == std::u16string_view::npos) return {{}, position + 1};
  if (rtl::UnitAt(text, static_cast<std::int64_t>(end) + 1) == quote)
    ConvertErrorFmt("The quoted text in '%s' holds a doubled quote", {text});
  return {text.substr(first, end - first), static_cast<std::int32_t>(end) + 1};
}

}  // namespace orv
