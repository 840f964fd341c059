// Stretches of one direction, found without reading tokens.
//
// Tokens of the direction in force, blanks and neutrals all lie in one run as long as the last of them is of that
// direction: the first such token begins the run, or extends the open one, and only the stretch's end matters. The same
// holds for the other direction behind an open run of it. So units are searched for the next exception, which is
// whatever could be or begin anything else: a letter or digit of another kind, a bracket, a quote, a stop that is not
// between two words, a line end, a format character.
#pragma once

#include <cstdint>

#include "unicode/Unicode.Engine.LookAhead.h"

namespace orv::engine {

// The word that stands here, or behind one blank or neutral. A stretch is worth a search only there.
struct TWordAhead {
  TUnitClass First;    // the class of its first unit
  std::int32_t Place;  // where it begins
};

inline TWordAhead WordAhead(const TText& text, std::int32_t from) {
  constexpr unsigned neutral = TUnitClass::PlainLTR | TUnitClass::PlainRTL;
  const TUnitClass here = ClassOf(text[from]);
  const TUnitClass behind = ClassOf(text.At(from + 1));
  return (here.Bits() & neutral) == neutral ? TWordAhead{behind, from + 1} : TWordAhead{here, from};
}

struct TStretch {
  std::int32_t End;  // the place behind the last word that lies in the run for certain; the start when there is none
  std::int32_t SeenEnd;  // up to here there is no exception, so asking again from before it finds nothing new
  bool SentenceEnded;    // the stretch ends in a stop that ends its sentence
};

// What a stretch depends on besides the text.
struct TStretchContext {
  bool Rtl;
  bool Foreign;  // the direction in force is the other one
  bool SingleQuoteOpen;
  bool DoubleQuoteOpen;
};

// from is the place of a token that a main step is about to read, with a word of the direction ahead; in a foreign
// left-to-right stretch the word begins with a letter.
TStretch FindStretch(const TText& text, std::int32_t from, const TStretchContext& context);

}  // namespace orv::engine
