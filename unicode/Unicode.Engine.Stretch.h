// Stretches of one direction, found without reading tokens.
//
// While a run of the direction in force is open, tokens of that direction, blanks and neutrals all extend it as long as
// the last of them is of that direction: only the stretch's end matters. So units are searched for the next exception,
// which is whatever could be or begin anything else: a letter or digit of another kind, a bracket, a quote, a stop that
// is not between two words, a line end, a format character.
#pragma once

#include <cstdint>

#include "unicode/Unicode.Engine.LookAhead.h"

namespace orv::engine {

struct TStretch {
  std::int32_t End;  // up to here the units extend the open run: the place behind a word; the start when there is none
  std::int32_t SeenEnd;  // up to here there is no exception, so asking again from before it finds nothing new
};

// from is the place of a token that a main step is about to read.
TStretch FindStretch(const TText& text, std::int32_t from, bool rtl);

}  // namespace orv::engine
