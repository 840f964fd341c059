// Keys as SDL tells of them, as controls know them.
#pragma once

#include <SDL_keyboard.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "fmx/Keys.h"

namespace orv::platform {

// The code of a key. Letters and digits go by what the layout types with them; where it types no Latin letters at all,
// as Persian and Hebrew ones, by their place on a keyboard that does, so that Ctrl+C is where it always is. Keys of the
// number pad without the number lock are arrows and the like. Others have codes of their own, but 0.
fmx::Keys::TCode KeyCodeOf(const SDL_Keysym& key, bool layoutIsLatin);

// Whether the present layout types Latin letters without modifiers.
bool LayoutIsLatin();

// The modifiers in force for a key that types the text ("" for none). The right Alt is AltGr, which counts as Ctrl with
// Alt, where it makes the key type something else than by itself; otherwise it is an Alt.
fmx::TPlatformModifiers ModifiersOf(const SDL_Keysym& key, std::u16string_view text);
// The same without a key.
fmx::TPlatformModifiers ModifiersOf(std::uint16_t modifiers);

// Whether the text that a key typed counts: not with Ctrl and the left Alt.
bool TypesText(std::uint16_t modifiers);

// The text that a keyboard has typed. The lam-alef of Arabic keyboards, which comes as the presentation form of the
// ligature, is the two letters that are written.
std::u16string TypedText(const char* utf8);

// The character of a key by itself, in ASCII; U+0000 for none. For a window in which nobody waits for text.
char16_t PlainCharacterOf(const SDL_Keysym& key);

}  // namespace orv::platform
