// Text services of the editing controls.
#pragma once

#include <cstdint>
#include <string_view>

#include "rtl/Strings.h"

namespace orv {

// The text to show when the first index code units of a line have scrolled out of its box. Where the unit at the cut
// runs against rightToLeft, the far end of its run is what scrolls away, so the run's end is dropped instead of its
// start. index is a 0-based code-unit index, at or past the end for the empty text; a negative one counts as 0. Any
// thread.
rtl::UnicodeString CutTextForView(std::u16string_view text, bool rightToLeft, std::int32_t index);

}  // namespace orv
