#include "unicode/Unicode.Engine.Stretch.h"

#include <cstddef>

namespace orv::engine {
namespace {

// The search for one direction. A word is a letter of it, in left-to-right text a digit too; a mark is any other strong
// unit of right-to-left text.
template <bool Rtl>
class TStretchFinder {
 public:
  TStretchFinder(const TText& text, TStretchContext context) : FText(text), FContext(context) {}

  // from holds a plain unit.
  TStretch Find(std::int32_t from) const {
    std::int32_t end = from;
    do {
      end = SkipPlain(end + 1);
    } while (end < FText.Length() && IsPassedHere(from, end));
    if (FText.At(end) == u'.' && IsSentenceStop(FText, end) && IsWordBefore(from, end)) return {end + 1, end + 1, true};
    return {WordEnd(from, end), end, false};
  }

 private:
  static constexpr TUnitClass::TBit Plain = Rtl ? TUnitClass::PlainRTL : TUnitClass::PlainLTR;
  static constexpr TUnitClass::TBit Word = Rtl ? TUnitClass::WordRTL : TUnitClass::WordLTR;

  bool IsWord(std::int32_t place) const { return ClassOf(FText[place]).Has(Word); }
  bool IsMark(std::int32_t place) const { return Rtl && ClassOf(FText[place]).IsRTL() && !IsWord(place); }
  bool IsInWord(std::int32_t place) const { return IsWord(place) || (Rtl && ClassOf(FText[place]).IsRTL()); }

  // Eight units share one branch.
  std::int32_t SkipPlain(std::int32_t from) const {
    constexpr std::ptrdiff_t group = 8;
    const char16_t* const end = FText.Data() + FText.Length();
    const char16_t* unit = FText.Data() + from;
    for (; end - unit >= group; unit += group) {
      unsigned all = Plain;
      for (std::ptrdiff_t i = 0; i < group; ++i) all &= ClassOf(unit[i]).Bits();
      if (all == 0) break;
    }
    while (unit < end && ClassOf(*unit).Has(Plain)) ++unit;
    return static_cast<std::int32_t>(unit - FText.Data());
  }

  // Whether a unit that is not plain by itself is so where it stands. A stop between two words is a neutral, and so is
  // a quote that does not count. A zero-width blank behind a word is a blank; behind another blank it would be a token
  // of its own.
  bool IsPassedHere(std::int32_t from, std::int32_t place) const {
    const char16_t c = FText[place];
    if (c == u'.') return ClassOf(FText.At(place + 1)).In(LettersAndDigits);
    if (c == u'\'') return !FContext.SingleQuoteOpen && !QuoteMayCount(FText, place);
    if (c == u'"') return !FContext.DoubleQuoteOpen && !QuoteMayCount(FText, place);
    return IsZeroWidthBlank(c) && place > from && IsInWord(place - 1);
  }

  // Whether a word of this direction ends at the place. A mark counts only behind a letter, since a neutral before it
  // would take it along.
  bool IsWordBefore(std::int32_t from, std::int32_t place) const {
    while (place > from && IsMark(place - 1)) --place;
    return place > from && IsWord(place - 1);
  }

  // The last place up to end at which a word ends for certain.
  std::int32_t WordEnd(std::int32_t from, std::int32_t end) const {
    for (std::int32_t place = end; place > from; --place) {
      if (!EndsWord(place, end)) continue;
      if (IsWordBefore(from, place)) return place;
      while (place - 1 > from && IsMark(place - 2)) --place;
    }
    return from;
  }

  // Whether a word before place would end there: what goes on inside a word must not stand behind it, nor a stop or
  // an apostrophe, which the word's own rule looks at.
  bool EndsWord(std::int32_t place, std::int32_t end) const {
    if (!IsInWord(place - 1)) return false;
    const char16_t behind = FText.At(place);
    if (place < end) return behind == u' ';
    if (behind == u'.') return false;
    return Rtl ? !IsIn(behind, 0x200A, 0x200C) : behind != u'\'' && !ClassOf(behind).IsLTR();
  }

  const TText& FText;
  const TStretchContext FContext;
};

}  // namespace

TStretch FindStretch(const TText& text, std::int32_t from, TStretchContext context) {
  return context.Rtl ? TStretchFinder<true>(text, context).Find(from) : TStretchFinder<false>(text, context).Find(from);
}

}  // namespace orv::engine
