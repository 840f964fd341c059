#include "rtl/Utf8.h"

#include <cstddef>
#include <cstdint>

#include "rtl/Unicode.h"

namespace rtl {
namespace {

constexpr std::uint32_t Replacement = 0xFFFD;

void AppendUtf8(std::string& out, std::uint32_t c) {
  const auto byte = [&out](std::uint32_t value) {
    out.push_back(static_cast<char>(static_cast<unsigned char>(value)));
  };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0 | (c >> 6));
    byte(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    byte(0xE0 | (c >> 12));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  } else {
    byte(0xF0 | (c >> 18));
    byte(0x80 | ((c >> 12) & 0x3F));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  }
}

void AppendUnits(UnicodeString& out, std::uint32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<char16_t>(c));
    return;
  }
  out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
  out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

// How many continuation bytes a first byte asks for, and the least code point so long a form may hold; -1 for no first
// byte at all.
struct TLead {
  int Following;
  std::uint32_t Bits;
  std::uint32_t Least;
};

constexpr TLead LeadOf(std::uint32_t byte) {
  if (byte < 0x80) return {0, byte, 0};
  if (byte >= 0xC2 && byte < 0xE0) return {1, byte & 0x1F, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {2, byte & 0x0F, 0x800};
  if (byte >= 0xF0 && byte < 0xF5) return {3, byte & 0x07, 0x10000};
  return {-1, 0, 0};
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint32_t unit = text[i];
    const bool pair = IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
    if (pair) {
      const std::uint32_t low = text[++i];
      AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
    } else {
      AppendUtf8(out, IsSurrogate(unit) ? Replacement : unit);
    }
  }
  return out;
}

TUtf8Char DecodeUtf8(std::string_view utf8, std::size_t index) {
  const auto byteAt = [utf8](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(utf8[i])); };
  const TLead lead = LeadOf(byteAt(index));
  std::uint32_t c = lead.Bits;
  std::size_t next = index + 1;
  int missing = lead.Following;
  while (missing > 0 && next < utf8.size() && (byteAt(next) & 0xC0) == 0x80) {
    c = (c << 6) | (byteAt(next++) & 0x3F);
    --missing;
  }
  const bool good = missing == 0 && c >= lead.Least && c <= MaxCodePoint && !IsSurrogate(c);
  return good ? TUtf8Char{c, next - index} : TUtf8Char{Replacement, 1};
}

void AppendUtf16(UnicodeString& out, std::string_view utf8) {
  // Neither loop over plain ASCII has an early exit, so that the compiler makes them vector loops.
  unsigned char seen = 0;
  for (const char byte : utf8) seen = static_cast<unsigned char>(seen | static_cast<unsigned char>(byte));
  if (seen < 0x80) {
    const std::size_t former = out.size();
    out.resize(former + utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) out[former + i] = static_cast<char16_t>(utf8[i]);
    return;
  }
  for (std::size_t i = 0; i < utf8.size();) {
    const TUtf8Char c = DecodeUtf8(utf8, i);
    AppendUnits(out, c.CodePoint);
    i += c.Length;
  }
}

UnicodeString FromUtf8(std::string_view utf8) {
  UnicodeString out;
  out.reserve(utf8.size());
  AppendUtf16(out, utf8);
  return out;
}

}  // namespace rtl
