// The innermost loop of the splitter: the search for the next unit that is not plain in a stretch.
#pragma once

#include <cstdint>

#include "unicode/Unicode.Engine.Classes.h"

namespace orv::engine {

// The first place from from up to end whose unit does not have the stretch's class bit, or end. The fastest
// way that the processor has is taken. Only units of the text before end are read.
std::int32_t SkipPlain(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit);

// Its two ways, which always agree: sixteen units at a time by the class table, and thirty-two at a time where
// HasFastSkip says that the processor can.
std::int32_t SkipPlainPortable(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit);
std::int32_t SkipPlainFast(const char16_t* text, std::int32_t from, std::int32_t end, TStretchBit bit);
bool HasFastSkip();

}  // namespace orv::engine
