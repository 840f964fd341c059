// Laws that every split keeps, as checks that name what they found.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {

// The law that a result breaks, or an empty text: counts fit; offsets run from 0 to the length and never fall; the
// visual order is a permutation that keeps lines together; directions are the three; ranges lie in the text.
std::string BrokenLaw(std::u16string_view text, const TDirectionalRuns& runs);

// The line ends of a text, as places from and up to. CR LF and LF LF are one.
std::vector<std::pair<std::int32_t, std::int32_t>> LineEnds(std::u16string_view text);

// Whether pieces are the runs, each cut into one piece or more that take consecutive places in the visual order.
bool JoinTo(const TDirectionalRuns& pieces, const TDirectionalRuns& runs);

// The direction of a letter, ParagraphSeparator for anything else.
TBidi LetterDirection(char16_t c);

}  // namespace orv::testing
