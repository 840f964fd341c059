// Text as it enters the commands: UTF-8, checked.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "rtl/Exceptions.h"
#include "rtl/Strings.h"

namespace orv::command {

// A file that cannot be read, or holds no UTF-8.
class EInputError : public rtl::Exception {
 public:
  using Exception::Exception;
  std::string_view ClassName() const noexcept override { return "EInputError"; }
};

// The 0-based place of the first byte that is no part of a well-formed character; nothing where there is none.
// Surrogates, overlong forms and values above U+10FFFF are not well-formed.
std::optional<std::size_t> FirstMalformedByte(std::string_view utf8);

// The bytes of a file, or of standard input where path is "-". Raises EInputError.
std::string ReadBytes(const std::string& path);

// The bytes without a byte order mark at their start.
std::string_view WithoutByteOrderMark(std::string_view bytes);

// The text of such bytes; a byte order mark at the start is dropped. Raises EInputError, naming the path.
rtl::UnicodeString TextOfBytes(std::string_view bytes, const std::string& path);

// The text of a UTF-8 file, or of standard input where path is "-". A byte order mark at the start is dropped. Raises
// EInputError.
rtl::UnicodeString ReadTextFile(const std::string& path);

// The text with its control, format and other unseen characters written as \n, \t, \r or \u{200F}, and a backslash
// doubled, so that it can stand within one line of a table.
std::string Escaped(std::u16string_view text);

// "U+0628".
std::string CodePointName(std::uint32_t codePoint);

}  // namespace orv::command
