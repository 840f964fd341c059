#include "fmx/EditText.h"

#include <algorithm>

#include "rtl/Strings.h"
#include "rtl/Unicode.h"

namespace fmx {
namespace {

using rtl::LengthOf;

constexpr bool IsLineEnd(char16_t c) {
  return (c >= u'\n' && c <= u'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Calls use with each character.
template <typename TUse>
void ForEachCharacter(std::u16string_view text, TUse use) {
  for (std::int32_t at = 0; at < LengthOf(text);) {
    const std::int32_t end = CharacterBehind(text, at);
    use(text.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(end - at)));
    at = end;
  }
}

}  // namespace

// --- Characters ---

bool IsInsidePair(std::u16string_view text, std::int32_t position) {
  return rtl::IsLowSurrogate(rtl::UnitAt(text, position)) &&
         rtl::IsHighSurrogate(rtl::UnitAt(text, std::int64_t{position} - 1));
}

std::int32_t HeldAtCharacter(std::u16string_view text, std::int32_t position) {
  const std::int32_t held = std::clamp(position, 0, LengthOf(text));
  return IsInsidePair(text, held) ? held - 1 : held;
}

std::int32_t CharacterBefore(std::u16string_view text, std::int32_t position) {
  const std::int32_t held = std::clamp(position, 0, LengthOf(text));
  return held == 0 ? 0 : HeldAtCharacter(text, held - 1);
}

std::int32_t CharacterBehind(std::u16string_view text, std::int32_t position) {
  const std::int32_t next = std::clamp(position, -1, LengthOf(text) - 1) + 1;
  return IsInsidePair(text, next) ? next + 1 : next;
}

std::u16string_view CutAtCharacter(std::u16string_view text, std::int32_t units) {
  return text.substr(0, static_cast<std::size_t>(HeldAtCharacter(text, units)));
}

// --- Texts ---

std::u16string InOneLine(std::u16string_view text) {
  std::u16string line;
  line.reserve(text.size());
  char16_t before = 0;
  for (const char16_t c : text) {
    const bool endsTheSame = before == u'\r' && c == u'\n';
    if (!endsTheSame) line.push_back(IsLineEnd(c) ? u' ' : c);
    before = c;
  }
  return line;
}

std::u16string WithoutHalves(std::u16string_view text) {
  std::u16string whole;
  whole.reserve(text.size());
  ForEachCharacter(text, [&](std::u16string_view character) {
    if (character.size() == 2 || !rtl::IsSurrogate(character.front())) whole += character;
  });
  return whole;
}

std::u16string FilteredCharacters(std::u16string_view text, std::u16string_view filter) {
  std::u16string filtered;
  ForEachCharacter(text, [&](std::u16string_view character) {
    const bool isHalf = character.size() == 1 && rtl::IsSurrogate(character.front());
    const bool isHeld = !isHalf && filter.find(character) != std::u16string_view::npos;
    if (filter.empty() || isHeld) filtered += character;
  });
  return filtered;
}

}  // namespace fmx
