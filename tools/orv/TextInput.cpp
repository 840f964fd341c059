#include "tools/orv/TextInput.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>

#include "rtl/Unicode.h"
#include "tools/orv/eval/Arguments.h"

namespace orv::command {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// Positions are 32-bit.
constexpr std::size_t MaxFileSize = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void FailReading(const std::string& path, const std::string& why) {
  throw EInputError("cannot read " + (path == "-" ? "standard input" : path) + ": " + why);
}

std::string ReadAll(std::FILE* file, const std::string& path) {
  std::string bytes;
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file)) {
    bytes.append(block, count);
    if (bytes.size() > MaxFileSize) FailReading(path, "it is larger than 2 GB");
  }
  if (std::ferror(file) != 0) FailReading(path, std::generic_category().message(errno));
  return bytes;
}

bool IsTail(std::string_view utf8, std::size_t index, unsigned low, unsigned high) {
  if (index >= utf8.size()) return false;
  const auto byte = static_cast<unsigned char>(utf8[index]);
  return byte >= low && byte <= high;
}

// The bytes of the character that begins at index; 0 where none well-formed does. The second byte's range shuts out
// overlong forms, surrogates and what lies above U+10FFFF.
std::size_t CharacterLength(std::string_view utf8, std::size_t index) {
  const auto lead = static_cast<unsigned char>(utf8[index]);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (!IsTail(utf8, index + 1, low, high)) return 0;
  for (std::size_t k = 2; k < length; ++k)
    if (!IsTail(utf8, index + k, 0x80, 0xBF)) return 0;
  return length;
}

std::string Hex(std::uint32_t value) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(value));
  return digits;
}

bool IsUnseen(std::uint32_t c) {
  using enum rtl::TUnicodeCategory;
  const auto category = rtl::GetUnicodeCategory(c);
  return category == Cc || category == Cf || category == Cs || category == Zl || category == Zp;
}

std::string EscapeOf(std::uint32_t c) {
  if (c == '\n') return "\\n";
  if (c == '\r') return "\\r";
  if (c == '\t') return "\\t";
  return "\\u{" + Hex(c) + "}";
}

}  // namespace

std::optional<std::size_t> FirstMalformedByte(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t length = CharacterLength(utf8, i);
    if (length == 0) return i;
    i += length;
  }
  return std::nullopt;
}

std::string ReadBytes(const std::string& path) {
  if (path == "-") return ReadAll(stdin, path);
  const auto close = [](std::FILE* file) { std::fclose(file); };
  const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
  if (file == nullptr) FailReading(path, std::generic_category().message(errno));
  return ReadAll(file.get(), path);
}

std::string_view WithoutByteOrderMark(std::string_view bytes) {
  if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
  return bytes;
}

rtl::UnicodeString TextOfBytes(std::string_view bytes, const std::string& path) {
  if (const auto place = FirstMalformedByte(bytes))
    FailReading(path, "it is not UTF-8 (byte " + std::to_string(*place + 1) + ")");
  return orv::eval::FromUtf8(WithoutByteOrderMark(bytes));
}

rtl::UnicodeString ReadTextFile(const std::string& path) {
  return TextOfBytes(ReadBytes(path), path);
}

std::string Escaped(std::u16string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size();) {
    std::int32_t length = 1;
    const std::uint32_t c = rtl::ConvertToUtf32(text, static_cast<std::int32_t>(i), length);
    const std::u16string_view units = text.substr(i, static_cast<std::size_t>(length));
    if (c == '\\')
      result += "\\\\";
    else
      result += IsUnseen(c) ? EscapeOf(c) : orv::eval::ToUtf8(units).value_or(EscapeOf(c));
    i += units.size();
  }
  return result;
}

std::string CodePointName(std::uint32_t codePoint) {
  return "U+" + Hex(codePoint);
}

}  // namespace orv::command
