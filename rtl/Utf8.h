// UTF-8, the form in which messages travel, to and from UTF-16.
#pragma once

#include <string>
#include <string_view>

#include "rtl/Strings.h"

namespace rtl {

// The UTF-8 form of text. A lone surrogate becomes U+FFFD. Any thread.
std::string ToUtf8(std::u16string_view text);

// The UTF-16 form of utf8. Every byte that belongs to no well-formed sequence becomes U+FFFD. Any thread.
UnicodeString FromUtf8(std::string_view utf8);

}  // namespace rtl
