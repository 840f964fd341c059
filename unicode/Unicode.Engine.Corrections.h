// The corrections that stand over the run assembly. Each works on the finished runs.
#pragma once

#include <string_view>

#include "unicode/Unicode.Engine.TokenReader.h"

namespace orv::engine {

// LineEnds: a separator entry holds its line end and nothing else, and every line end is in one. What stood before the
// line end joins the run before it, or where the line has none is a run of the paragraph's direction. swallowed tells
// that some blank has taken a line end with it.
void SeparateLineEnds(std::u16string_view s, TBidi paragraph, bool swallowed, TRecutStorage& storage,
                      TDirectionalRuns& runs);

// OwnDirection: a run that holds a letter of the other direction is cut, so that each letter stands in a run of its own
// direction. What stands between two letters of different direction goes with the one whose direction is the
// paragraph's; what stands before the first letter stays in the run's own direction. The pieces take consecutive places
// in the visual order.
void CutToOwnDirection(std::u16string_view s, TBidi paragraph, TRecutStorage& storage, TDirectionalRuns& runs);

// Whether some run holds a letter of the other direction.
bool HoldsForeignLetter(std::u16string_view s, const TDirectionalRuns& runs);

}  // namespace orv::engine
