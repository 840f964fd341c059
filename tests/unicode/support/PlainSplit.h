// The splitter by its rules alone: one plain function a rule, each look-ahead done as often as it is asked for, no fast
// road, no corrections apart from LineIndex, which sits inside a rule. It is written apart from the library's splitter
// and is what that is held against. Quadratic on hostile text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "unicode/Unicode.Engine.Types.h"

namespace orv::plain {

struct TPlainResult {
  TDirectionalRuns Runs;
  std::vector<std::string> Broken;  // the invariants that the rules did not keep, by name
};

// Splits by the settings in force.
TPlainResult Split(std::u16string_view s, TParagraphBidi paragraphBidi);

}  // namespace orv::plain
