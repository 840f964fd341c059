// What may be written into a single-line text. Positions and lengths are UTF-16 code units, a character is one unit or
// a surrogate pair. Any text is taken, lone surrogates included. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "rtl/Sets.h"

namespace fmx {

// Where the presentation of an edit departs from the plain rules of its text; empty: nowhere.
enum class TEditRule : std::uint8_t {
  WholeWords,       // a mark or joiner belongs to the word before it
  WholeCharacters,  // filter and limit take pairs whole, and hold for what is written, not for what is there already
  OneLine,          // a line end becomes a blank
  KeepsPasswords    // nothing is cut out of a password box
};
using TEditRules = rtl::TSet<TEditRule, std::uint8_t>;

// Whether the position lies between the halves of a pair. Any position.
bool IsInsidePair(std::u16string_view text, std::int32_t position);
// The position held in the text; one inside of a pair counts as its beginning.
std::int32_t HeldAtCharacter(std::u16string_view text, std::int32_t position);
// Where the character before the position, held in the text, begins, and where the one behind it ends.
std::int32_t CharacterBefore(std::u16string_view text, std::int32_t position);
std::int32_t CharacterBehind(std::u16string_view text, std::int32_t position);

// The first characters of the text that take no more than so many units.
std::u16string_view CutAtCharacter(std::u16string_view text, std::int32_t units);

// A blank in the place of each line end: CR LF, and LF, VT, FF, CR, U+0085, U+2028 and U+2029 alone, which are the line
// ends that Unicode knows.
std::u16string InOneLine(std::u16string_view text);
// Without the surrogates that have no other half.
std::u16string WithoutHalves(std::u16string_view text);
// The characters that the filter, a list of them, holds; an empty one holds all, another one no half of a pair.
std::u16string FilteredCharacters(std::u16string_view text, std::u16string_view filter);

}  // namespace fmx
