// UTF-16 text, the form in which all text enters and leaves the system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace rtl {

// Owned text: UTF-16 code units, lone surrogates allowed. Functions that only read take std::u16string_view.
using UnicodeString = std::u16string;

// The code unit of s at the 0-based index, and U+0000 before the start and at or past the end. Scanners that look ahead
// for a terminating zero read through it, so no text makes them read outside it. Any index is allowed, and s need not
// be zero-terminated. A U+0000 inside s reads the same as its end. Example: UnitAt(u"ab", 1) is 'b', UnitAt(u"ab", 2)
// 0.
constexpr char16_t UnitAt(std::u16string_view s, std::int64_t index) {
  return index >= 0 && index < static_cast<std::int64_t>(s.size()) ? s[static_cast<std::size_t>(index)] : u'\0';
}

// How many code units s has, as positions are counted.
constexpr std::int32_t LengthOf(std::u16string_view s) {
  return static_cast<std::int32_t>(s.size());
}

}  // namespace rtl
