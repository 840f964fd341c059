// UTF-8, the form in which messages travel, to and from UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "rtl/Strings.h"

namespace rtl {

// The UTF-8 form of text. A lone surrogate becomes U+FFFD. Any thread.
std::string ToUtf8(std::u16string_view text);

// One character of a UTF-8 text and the bytes it takes.
struct TUtf8Char {
  std::uint32_t CodePoint;
  std::size_t Length;  // 1 to 4
};

// The character that begins at the 0-based index, which lies inside utf8. A byte that belongs to no well-formed
// sequence is U+FFFD by itself. Any thread.
TUtf8Char DecodeUtf8(std::string_view utf8, std::size_t index);

// The UTF-16 form of utf8. Every byte that belongs to no well-formed sequence becomes U+FFFD. Any thread.
UnicodeString FromUtf8(std::string_view utf8);
// The same behind what out holds already. ASCII is widened whole.
void AppendUtf16(UnicodeString& out, std::string_view utf8);

}  // namespace rtl
