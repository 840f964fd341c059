// Stretches of one direction, found without reading tokens.
//
// Tokens of the direction in force, blanks and neutrals all lie in one run as long as the last of them is of that
// direction: the first such token begins the run, or extends the open one, and only the stretch's end matters. So units
// are searched for the next exception, which is whatever could be or begin anything else: a letter or digit of another
// kind, a bracket, a quote, a stop that is not between two words, a line end, a format character.
#pragma once

#include <cstdint>

#include "unicode/Unicode.Engine.LookAhead.h"

namespace orv::engine {

// Whether a search is worth its cost: a word of the direction stands here, or behind one blank.
inline bool MayBeginStretch(const TText& text, std::int32_t from, bool rtl) {
  const TUnitClass::TBit word = rtl ? TUnitClass::WordRTL : TUnitClass::WordLTR;
  return ClassOf(text[from]).Has(word) || (text[from] == u' ' && ClassOf(text.At(from + 1)).Has(word));
}

struct TStretch {
  std::int32_t End;  // the place behind the last word that lies in the run for certain; the start when there is none
  std::int32_t SeenEnd;  // up to here there is no exception, so asking again from before it finds nothing new
  bool SentenceEnded;    // the stretch ends in a stop that ends its sentence
};

// What a stretch depends on besides the text.
struct TStretchContext {
  bool Rtl;
  bool SingleQuoteOpen;
  bool DoubleQuoteOpen;
};

// from is the place of a token that a main step is about to read, and MayBeginStretch has said yes to it.
TStretch FindStretch(const TText& text, std::int32_t from, TStretchContext context);

}  // namespace orv::engine
