// Code points, blocks of them, and their conversions.
#include "unicode/Unicode.Text.UCS4.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace orv {
namespace {

constexpr bool IsSurrogateUnit(char16_t unit) {
  return (unit & 0xF800) == 0xD800;
}

// Widens the units from read on until the first surrogate; answers where it stopped. The blocks hold no branch, so that
// the compiler can turn them into vector code.
std::size_t WidenUntilSurrogate(std::u16string_view s, std::size_t read, UCS4Char* out) {
  constexpr std::size_t block = 16;
  for (; read + block <= s.size(); read += block, out += block) {
    std::uint16_t surrogates = 0;  // as wide as a unit, so that a vector holds as many of both
    for (std::size_t i = 0; i < block; ++i)
      surrogates = static_cast<std::uint16_t>(surrogates | static_cast<std::uint16_t>(IsSurrogateUnit(s[read + i])));
    if (surrogates != 0) break;
    for (std::size_t i = 0; i < block; ++i) out[i] = s[read + i];
  }
  for (; read < s.size() && !IsSurrogateUnit(s[read]); ++read) *out++ = s[read];
  return read;
}

// The code points of s and a terminating 0.
UCS4String Terminated(std::u16string_view s) {
  UCS4String text = ToUCS4String(s);
  text.push_back(0);
  return text;
}

void AppendCodePoint(rtl::UnicodeString& text, UCS4Char c) {
  if (c < 0x10000) {
    text.push_back(static_cast<char16_t>(c));
  } else if (c <= rtl::MaxCodePoint) {
    text.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
  } else {
    text.push_back(u'\uFFFD');
  }
}

}  // namespace

namespace TUCS4CharHelper {

UCS4Char ConvertFromUtf16(std::u16string_view s, std::int32_t index, std::int32_t& charLength) {
  return rtl::ConvertToUtf32(s, index, charLength);
}

UCS4Char ConvertFromUtf16(std::u16string_view s, std::int32_t index) {
  std::int32_t charLength = 0;
  return ConvertFromUtf16(s, index, charLength);
}

UCS4Char ConvertFromUtf16(char16_t highSurrogate, char16_t lowSurrogate) {
  return rtl::ConvertToUtf32(highSurrogate, lowSurrogate);
}

rtl::UnicodeString ConvertToUtf16(UCS4Char c) {
  rtl::UnicodeString text;
  AppendCodePoint(text, c);
  return text;
}

bool IsInArray(UCS4Char c, std::span<const UCS4Char> values) {
  return std::find(values.begin(), values.end(), c) != values.end();
}

}  // namespace TUCS4CharHelper

namespace TUCS4CharPtrHelper {

std::int32_t ConvertFromUtf16(PUCS4Char block, std::u16string_view s) {
  const UCS4String text = Terminated(s);
  std::copy(text.begin(), text.end(), block);
  return static_cast<std::int32_t>(text.size());
}

std::int32_t ConvertFromUtf16(PUCS4Char block, std::u16string_view s, std::int32_t maxBytes) {
  const UCS4String text = Terminated(s);
  const std::size_t room = maxBytes > 0 ? static_cast<std::size_t>(maxBytes) : 0;
  const std::size_t bytes = std::min(room, text.size() * sizeof(UCS4Char));
  if (bytes > 0) std::memcpy(block, text.data(), bytes);  // the last element may be cut
  return static_cast<std::int32_t>(text.size());
}

void ConvertFromUtf16(std::u16string_view s, PUCS4Char& block) {
  if (s.empty()) {
    Free(block);
    return;
  }
  const UCS4String text = Terminated(s);
  void* grown = std::realloc(block, text.size() * sizeof(UCS4Char));
  if (grown == nullptr) throw std::bad_alloc();
  block = static_cast<PUCS4Char>(grown);
  std::copy(text.begin(), text.end(), block);
}

rtl::UnicodeString ConvertToUtf16(const UCS4Char* block) {
  return ToUtf16(ToUCS4String(block));
}

void Free(PUCS4Char& block) {
  std::free(block);
  block = nullptr;
}

std::int32_t Length(const UCS4Char* block) {
  if (block == nullptr) return 0;
  const UCS4Char* end = block;
  while (*end != 0) ++end;
  return static_cast<std::int32_t>(end - block);
}

const UCS4Char* PUCS4Chars(const UCS4String& s) {
  return s.data();
}

UCS4String ToUCS4String(const UCS4Char* block) {
  return UCS4String(block, block + Length(block));
}

}  // namespace TUCS4CharPtrHelper

UCS4String ToUCS4String(std::u16string_view s) {
  UCS4String text;
  AppendUtf16(s, text);
  return text;
}

void AppendUtf16(std::u16string_view s, TUCS4List& list) {
  std::size_t count = list.size();
  list.resize(count + s.size());  // room for one element per unit; what pairs leave over goes at the end
  for (std::size_t read = 0; read < s.size();) {
    const std::size_t stop = WidenUntilSurrogate(s, read, list.data() + count);
    count += stop - read;
    read = stop;
    if (read == s.size()) break;
    const char16_t high = s[read];
    const char16_t low = rtl::UnitAt(s, static_cast<std::int64_t>(read) + 1);
    const bool isPair = rtl::IsHighSurrogate(high) && rtl::IsLowSurrogate(low);
    list[count++] = isPair ? rtl::ConvertToUtf32(high, low) : high;
    read += isPair ? 2 : 1;
  }
  list.resize(count);
}

rtl::UnicodeString ToUtf16(std::span<const UCS4Char> s) {
  rtl::UnicodeString text;
  text.reserve(s.size());
  for (const UCS4Char c : s) AppendCodePoint(text, c);
  return text;
}

}  // namespace orv
