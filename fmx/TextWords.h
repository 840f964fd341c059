// Words of a text, as editing controls walk and select them. A word is a stretch of letters, decimal digits and
// characters of the categories Pe, Po, Ps and Sm; everything else separates words. Positions are 0-based UTF-16 code
// units; a surrogate pair is one character, and a position inside of one counts as its beginning. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace fmx {

// Whether what a reader takes for a part of the letter before it is a part of the word.
enum class TWordRule : std::uint8_t {
  ByCharacter,  // each character counts by itself, so that a vowel mark ends a word
  WithMarks     // marks (Mn, Me, Mc), U+200C and U+200D belong to the character before them
};

// Where the word before the position begins, or the one that the position lies in; -1 at 0 and outside the text. Blanks
// at the start of a text end the walk at 0. Example: ("abc def", 7) is 4.
std::int32_t GetPrevLexemeBegin(std::u16string_view text, std::int32_t pos, TWordRule rule = TWordRule::ByCharacter);

// Where the next word begins; the length where there is none; -1 for an empty text and a position outside of it.
// Example: ("abc def", 1) is 4.
std::int32_t GetNextLexemeBegin(std::u16string_view text, std::int32_t pos, TWordRule rule = TWordRule::ByCharacter);

// Both ends inclusive.
struct TWordBound {
  std::int32_t Begin = 0;
  std::int32_t End = 0;
};
// The stretch of word characters, or of others, around the position; at the end of the text the one that ends there.
// Nothing for an empty text and a position outside of it. Example: ("abc def", 5) is 4 to 6.
std::optional<TWordBound> FindWordBound(std::u16string_view text, std::int32_t pos,
                                        TWordRule rule = TWordRule::ByCharacter);

// A test of characters by code point, for walks by other words than those above.
using TIsWordCharacter = bool (*)(std::uint32_t codePoint);
bool IsWordCharacter(std::uint32_t codePoint);

}  // namespace fmx
