// The look-ahead tests of the token reader. Each walks forward from a place behind the unit just read and moves
// nothing. What a walk has found is remembered, so a text full of brackets or digits is still searched once only:
// tokens are read forward, and a question asked from inside a stretch already walked has the answer of that walk.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "unicode/Unicode.Engine.Classes.h"

namespace orv::engine {

// The text under the reader. Reads at and past the end answer U+0000, which matches nothing.
class TText {
 public:
  explicit TText(std::u16string_view s) : FData(s.data()), FLength(static_cast<std::int32_t>(s.size())) {}

  std::int32_t Length() const { return FLength; }
  const char16_t* Data() const { return FData; }
  // A unit inside the text.
  char16_t operator[](std::int32_t index) const { return FData[index]; }
  // A unit at any place from 0 on.
  char16_t At(std::int32_t index) const { return index < FLength ? FData[index] : u'\0'; }

 private:
  const char16_t* FData;
  std::int32_t FLength;
};

// A full stop that ends a sentence: the end of the text or white space stands behind it.
inline bool IsSentenceStop(const TText& text, std::int32_t place) {
  return text.At(place) == u'.' && (place + 1 >= text.Length() || ClassOf(text[place + 1]).IsWhiteSpace());
}

// Whether a quote at the place counts even where none like it is open: two units before it stands a blank or a colon.
inline bool QuoteMayCount(const TText& text, std::int32_t place) {
  if (place < 2) return false;
  const char16_t before = text[place - 2];
  return before == u':' || ClassOf(before).Category() == TCategory::Zs;
}

// The place of the next unit that passes a test, asked from places that never go back. Each stretch is searched once.
class TNextPlace {
 public:
  template <typename TTest>
  std::int32_t From(const TText& text, std::int32_t from, TTest test) {
    if (from < FFrom || from > FFound) {
      FFrom = from;
      FFound = from;
      while (FFound < text.Length() && !test(text[FFound])) ++FFound;
    }
    return FFound;
  }

 private:
  std::int32_t FFrom = 0;
  std::int32_t FFound = -1;
};

// The next place of one closing bracket or quote; the text's length where there is none.
struct TCloserPlace {
  char16_t Closer;
  std::int32_t Place;
};

class TLookAhead {
 public:
  static constexpr std::int32_t Fails = -1;

  // closers is borrowed working storage; what it holds is discarded.
  TLookAhead(TText text, std::vector<TCloserPlace>& closers) : FText(text), FClosers(closers) { FClosers.clear(); }

  // What decides the direction of the inside of a bracket or quote: its first letter, or where the closer comes before
  // any letter its first decimal digit, or U+0000.
  char16_t FindInnerStrong(std::int32_t from, char16_t closer);

  // Digits and their separators that run into a Latin word: the place behind the word.
  std::int32_t IsLatinWordAhead(std::int32_t from);

  bool IsDateAhead(std::int32_t from, char16_t dateSeparator) const;

  // A number with a list mark behind it: a dash, a stop, an opening parenthesis, a middle dot (U+00B7), a line end or
  // right-to-left text.
  bool IsLineIndexAhead(std::int32_t from);

  // A number with a unit, a prime or a percent sign behind it: the place behind the unit; for signs the place asked
  // from.
  std::int32_t IsMeasureAhead(std::int32_t from, bool prime, bool percent);

  // Numbers and operators that run up to a letter: the place where they end.
  std::int32_t IsEquationAhead(std::int32_t from);

  // The place behind digits and apostrophes, and behind a full stop with digits.
  std::int32_t NumberTailEnd(std::int32_t from);

  std::int32_t SkipBlanks(std::int32_t from) const;  // U+0020 alone
  std::int32_t SkipAsciiDigits(std::int32_t from) const;

 private:
  // One walk of an equation: from a place behind a digit to its outcome, or to the next such place.
  struct TEquationStep {
    bool Done;
    std::int32_t Place;  // the outcome (Fails, or where the equation ends) when done, else the next place
  };
  // Walks equations from places that never go back.
  class TEquationWalker {
   public:
    TEquationStep Step(const TLookAhead& ahead, std::int32_t from);

   private:
    TNextPlace FSignsEnd, FBlanksEnd;
  };
  // A walk whose outcome is known, and the first of its places not yet passed.
  struct TEquationWalk {
    std::int32_t Place = -1;
    std::int32_t Outcome = Fails;
    TEquationWalker Walker;
  };

  bool ClosesBefore(std::int32_t from, std::int32_t end, char16_t closer);
  bool WalkLineIndex(std::int32_t& place) const;
  std::int32_t EquationOutcome(std::int32_t from);

  TText FText;
  std::vector<TCloserPlace>& FClosers;
  TNextPlace FLetter, FDigit, FNotDigitOrSeparator, FNotDigitOrApostrophe;
  std::int32_t FTailStop = -1, FTailStopEnd = -1;  // a stop with digits behind it, and their end
  std::int32_t FIndexFrom = 0, FIndexEnd = -1;     // the last walk of IsLineIndexAhead,
  bool FIndexResult = false;                       // and its outcome
  TEquationWalker FEquationStart;
  TEquationWalk FEquations[2];
  unsigned FOlderEquation = 0;
};

}  // namespace orv::engine
