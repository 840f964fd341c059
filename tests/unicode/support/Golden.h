// Goldens of splits as text: capital letters stand for right-to-left letters, each run is shown with its direction.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::testing {

inline constexpr TParagraphBidi LTR = TParagraphBidi::LeftToRight;
inline constexpr TParagraphBidi RTL = TParagraphBidi::RightToLeft;

// The text with every capital A to Z replaced by a Hebrew letter, from U+05D0 on. Everything else stays.
std::u16string Text(std::u16string_view marked);

// Splits Text(marked) by the settings in force and shows the runs: "R<ABC > L<123> P<\n>", and behind them, where the
// visual order is not the logical one, "order 1 0 2". In the runs capitals stand for the Hebrew letters again, and
// other units outside ASCII show as \uXXXX.
std::string Split(std::u16string_view marked, TParagraphBidi paragraph);

// The ranges of that split: "0-2 4-4", or nothing.
std::string Ranges(std::u16string_view marked, TParagraphBidi paragraph);

std::string ShownRuns(std::u16string_view text, const TDirectionalRuns& runs);

}  // namespace orv::testing
