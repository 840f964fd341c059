#include "unicode/Unicode.Engine.LookAhead.h"

#include <limits>

#include "unicode/Unicode.Engine.Vectors.h"

namespace orv::engine {
namespace {

// Superscript two and three, one quarter, one half, three quarters: what may stand behind a unit's letters.
constexpr bool IsPowerOrFraction(char16_t c) {
  return c == 0xB2 || c == 0xB3 || IsIn(c, 0xBC, 0xBE);
}

constexpr bool EndsUnit(char16_t c) {
  return c == u' ' || c == u')';
}

// The list-index test looks at low bytes, so a letter whose low byte is that of a digit passes for one.
constexpr char16_t LowByte(char16_t c) {
  return static_cast<char16_t>(c & 0xFF);
}

}  // namespace

std::int32_t TLookAhead::SkipBlanks(std::int32_t from) const {
  while (FText.At(from) == u' ') ++from;
  return from;
}

std::int32_t TLookAhead::SkipAsciiDigits(std::int32_t from) const {
  while (IsAsciiDigit(FText.At(from))) ++from;
  return from;
}

// Whether the closer stands from from on and before end, which is the end of the text or a place from which nothing is
// asked again. A short way is simply walked; how far a long one reaches is remembered.
bool TLookAhead::ClosesBefore(std::int32_t from, std::int32_t end, char16_t closer) {
  constexpr std::int32_t shortWay = 16;
  if (end - from <= shortWay) return FindUnit(FText.Data(), from, end, closer) < end;
  for (TCloserPlace& known : FClosers) {
    if (known.Closer != closer) continue;
    if (known.Place < from) known.Place = FindUnit(FText.Data(), from, FText.Length(), closer);
    return known.Place < end;
  }
  FClosers.push_back({closer, FindUnit(FText.Data(), from, FText.Length(), closer)});
  return FClosers.back().Place < end;
}

char16_t TLookAhead::FindInnerStrong(std::int32_t from, char16_t closer) {
  const std::int32_t letter = FLetter.From(FText, from, [](char16_t c) { return ClassOf(c).IsLetter(); });
  const bool closes = letter > from && ClosesBefore(from, letter, closer);
  if (!closes && letter < FText.Length()) return FText[letter];
  const std::int32_t digit =
      FDigit.From(FText, from, [](char16_t c) { return ClassOf(c).Category() == TCategory::Nd; });
  if (digit >= letter) return u'\0';
  return closes && ClosesBefore(from, digit, closer) ? u'\0' : FText[digit];
}

std::int32_t TLookAhead::IsLatinWordAhead(std::int32_t from) {
  std::int32_t place = from;
  if (IsDigitOrSeparator(FText.At(from)))
    place = FNotDigitOrSeparator.From(FText, from, [](char16_t c) { return !IsDigitOrSeparator(c); });
  if (!IsAsciiLetter(FText.At(place))) return Fails;
  while (IsAsciiLetter(FText.At(place)) || IsDigitOrSeparator(FText.At(place))) ++place;
  return place;
}

bool TLookAhead::IsDateAhead(std::int32_t from, char16_t dateSeparator) const {
  std::int32_t place = from;
  if (IsAsciiDigit(FText.At(place))) ++place;
  if (IsAsciiDigit(FText.At(place))) return false;
  const char16_t separator = FText.At(place);
  if (place >= FText.Length() || (separator != u'/' && separator != u'-' && separator != dateSeparator)) return false;
  ++place;
  const char16_t first = FText.At(place);
  if (!IsAsciiDigit(first)) return false;
  ++place;
  if (IsAsciiDigit(FText.At(place))) {
    if (first > u'1' || FText[place] > u'3') return false;
    ++place;
  }
  if (FText.At(place) != separator) return false;
  // Dates are meant to fall through to the number rules: an ordinary separator is no digit.
  if (!IsAsciiDigit(FText.At(place))) return false;
  ++place;
  if (IsAsciiDigit(FText.At(place))) ++place;
  return !IsAsciiDigit(FText.At(place));
}

bool TLookAhead::IsLineIndexAhead(std::int32_t from) {
  if (from < FIndexFrom || from > FIndexEnd) {
    FIndexFrom = from;
    FIndexEnd = from;
    FIndexResult = WalkLineIndex(FIndexEnd);
  }
  return FIndexResult;
}

// Leaves place behind the digits and marks that were walked. A later walk that starts behind one of those digits takes
// the same road.
bool TLookAhead::WalkLineIndex(std::int32_t& place) const {
  const auto low = [&] { return LowByte(FText.At(place)); };
  for (;;) {
    while (IsAsciiDigit(low())) ++place;
    std::int32_t mark = place;
    if (LowByte(FText.At(mark)) == u' ') ++mark;
    const char16_t lowMark = LowByte(FText.At(mark));
    if (lowMark != u'-' && lowMark != u'.') {
      const char16_t unit = FText.At(mark);
      return lowMark == u'\n' || lowMark == u'\r' || lowMark == u'(' || lowMark == 0xB7 || unit == 0x2028 ||
             unit == 0x2029 || ClassOf(unit).IsRTL();
    }
    ++mark;
    if (LowByte(FText.At(mark)) == u' ') ++mark;
    if (!IsAsciiDigit(LowByte(FText.At(mark)))) return true;
    place = mark;
  }
}

std::int32_t TLookAhead::NumberTailEnd(std::int32_t from) {
  const std::int32_t stop =
      FNotDigitOrApostrophe.From(FText, from, [](char16_t c) { return !IsAsciiDigit(c) && c != u'\''; });
  if (FText.At(stop) != u'.' || !IsAsciiDigit(FText.At(stop + 1))) return stop;
  if (stop != FTailStop) {
    FTailStop = stop;
    FTailStopEnd = SkipAsciiDigits(stop + 1);
  }
  return FTailStopEnd;
}

std::int32_t TLookAhead::IsMeasureAhead(std::int32_t from, bool prime, bool percent) {
  const std::int32_t tail = NumberTailEnd(from);
  const char16_t sign = FText.At(tail);
  if (sign == u'"' || sign == u'\'') return prime ? from : Fails;
  if (sign == u'%') return percent ? from : Fails;
  if (sign != u' ') return Fails;

  const char16_t first = FText.At(tail + 1);
  const char16_t second = FText.At(tail + 2);
  const char16_t third = FText.At(tail + 3);
  if (!IsAsciiLetter(first) && first != 0xB0 && first != 0xB5) return Fails;
  if (IsPowerOrFraction(second)) return EndsUnit(third) ? tail + 3 : Fails;
  if (!IsAsciiLetter(second)) return Fails;
  if (EndsUnit(third)) return tail + 3;
  return IsPowerOrFraction(third) && EndsUnit(FText.At(tail + 4)) ? tail + 4 : Fails;
}

TLookAhead::TEquationStep TLookAhead::TEquationWalker::Step(const TLookAhead& ahead, std::int32_t from) {
  const TText& text = ahead.FText;
  const std::int32_t signs = ahead.SkipBlanks(from);
  const TUnitClass first = ClassOf(text.At(signs));
  // A letter right here: the number tail before it is empty, so it ends where the walk began.
  if (first.IsLetter()) return {true, ClassOf(text.At(from)).IsRTL() ? Fails : from};
  if (!first.In(EquationSigns)) return {true, Fails};
  const std::int32_t end = FSignsEnd.From(text, signs, [](char16_t c) { return !ClassOf(c).In(EquationSigns); });
  const std::int32_t next = FBlanksEnd.From(text, end, [](char16_t c) { return c != u' '; });
  if (ClassOf(text.At(next)).IsLetter() && !ClassOf(text.At(end)).IsRTL()) return {true, end};
  if (!IsAsciiDigit(text.At(next))) return {true, Fails};
  return {false, next + 1};
}

std::int32_t TLookAhead::IsEquationAhead(std::int32_t from) {
  const TEquationStep start = FEquationStart.Step(*this, from);
  return start.Done ? start.Place : EquationOutcome(start.Place);
}

// The places of a walk depend only on where it stands, and each lies in one of the next two stretches of signs; so
// beyond any place at most two walks go on, and remembering two keeps a long equation linear.
std::int32_t TLookAhead::EquationOutcome(std::int32_t from) {
  constexpr std::int32_t ended = std::numeric_limits<std::int32_t>::max();
  for (TEquationWalk& walk : FEquations) {
    while (walk.Place >= 0 && walk.Place < from) {
      const TEquationStep step = walk.Walker.Step(*this, walk.Place);
      walk.Place = step.Done ? ended : step.Place;
    }
    if (walk.Place == from) return walk.Outcome;
  }
  TEquationWalker walker;
  TEquationStep step{false, from};
  while (!step.Done) step = walker.Step(*this, step.Place);
  TEquationWalk& oldest = FEquations[FOlderEquation ^= 1];
  oldest = {from, step.Place, {}};
  return step.Place;
}

}  // namespace orv::engine
