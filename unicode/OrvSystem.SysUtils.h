// Small string and path functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

// The first place in the zero-terminated text at which length characters equal those of subText; null when there is
// none. A length of 0 matches at the first place where the first character of subText stands.
const char16_t* StrLPos(const char16_t* text, const char16_t* subText, std::size_t length);

// index is the 1-based place of an opening quote in s. Answers the text up to the next such character and sets
// nextIndex to that character's place; without one answers the empty text and sets nextIndex to the place behind the
// opening quote. A doubled quote is two quotes.
std::u16string CopyQuotedStr(std::u16string_view s, std::int32_t index, std::int32_t& nextIndex);

// A day-count date (days since 30 December 1899) in milliseconds, as rtl::DateTimeToMilliseconds counts them.
std::int64_t DateTimeToMilliseconds(double dateTime);

// The folder of the operating system's programs and the operating system's root folder.
std::string GetSystemPath();
std::string GetWindowsPath();

}  // namespace orv
