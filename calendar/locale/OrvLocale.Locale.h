// Look-ups in the table of languages.
#pragma once

#include <cstdint>
#include <string>

namespace orv {

// The ANSI code page of a locale, for example 1256 for 0x0429 (Persian, Iran). Neutral identifiers such as 0x0029
// answer for the first region of their language. 0 where the locale has none or is unknown. Any thread.
int LCIDToCodePage(std::uint32_t lcid);

// A locale name for a language identifier, of which only the low byte counts.
//
// Only the language with number 146 is ever named: a smaller number answers the empty text, as does every number that
// the table does not hold. Example: 0x0492 gives "ku", 0x0429 gives "". Any thread.
std::string LCIDToLocaleName(std::uint32_t lcid);

}  // namespace orv
