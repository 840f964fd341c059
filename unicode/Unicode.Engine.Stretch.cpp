#include "unicode/Unicode.Engine.Stretch.h"

#include "unicode/Unicode.Engine.SkipPlain.h"

namespace orv::engine {
namespace {

// The search for one kind of stretch. A word is a letter of its direction, in left-to-right text a digit too; a mark is
// any other strong unit of right-to-left text. A foreign stretch lies in text of the other direction.
template <bool Rtl, bool Foreign>
class TStretchFinder {
 public:
  TStretchFinder(const TText& text, const TStretchContext& context) : FText(text), FContext(context) {}

  // from holds a plain unit.
  TStretch Find(std::int32_t from) const {
    std::int32_t end = from;
    do {
      end = SkipPlain(FText.Data(), end + 1, FText.Length(), Plain);
    } while (end < FText.Length() && IsPassedHere(from, end));
    if (!Foreign && FText.At(end) == u'.' && IsSentenceStop(FText, end) && IsWordBefore(from, end))
      return {end + 1, end + 1, true};
    return {WordEnd(from, end), end, false};
  }

 private:
  static constexpr TStretchBit Plain = Rtl ? TStretchBit::RTL : Foreign ? TStretchBit::LTRLetters : TStretchBit::LTR;
  static constexpr TUnitClass::TBit Word = Rtl ? TUnitClass::WordRTL : TUnitClass::WordLTR;

  bool IsWord(std::int32_t place) const { return ClassOf(FText[place]).Has(Word); }
  bool IsMark(std::int32_t place) const { return Rtl && ClassOf(FText[place]).IsRTL() && !IsWord(place); }
  bool IsInWord(std::int32_t place) const { return IsWord(place) || (Rtl && ClassOf(FText[place]).IsRTL()); }

  // Whether a unit that is not plain by itself is so where it stands. A stop between two words is a neutral, and so is
  // a quote that does not count. A zero-width blank behind a word is a blank; behind another blank it would be a token
  // of its own.
  bool IsPassedHere(std::int32_t from, std::int32_t place) const {
    const char16_t c = FText[place];
    if (c == u'.') return ClassOf(FText.At(place + 1)).In(LettersAndDigits);
    if (c == u'\'') return !FContext.SingleQuoteOpen && !QuoteMayCount(FText, place);
    if (c == u'"') return !FContext.DoubleQuoteOpen && !QuoteMayCount(FText, place);
    if (!Rtl && Foreign && IsAsciiDigit(c)) return IsDigitInWord(from, place);
    return IsZeroWidthBlank(c) && place > from && IsInWord(place - 1);
  }

  // In right-to-left text a digit has rules of its own, unless a left-to-right word has begun before it. Digits before
  // this one were passed here, so they lie in the word.
  bool IsDigitInWord(std::int32_t from, std::int32_t place) const {
    const char16_t before = FText[place - 1];
    return ClassOf(before).Has(TUnitClass::LetterLTR) || (place - 1 > from && IsAsciiDigit(before));
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
      if (!EndsWord(place)) continue;
      if (IsWordBefore(from, place)) return place;
      while (place - 1 > from && IsMark(place - 2)) --place;
    }
    return from;
  }

  // Whether a word before place would end there: what goes on inside a word must not stand behind it, nor a stop or
  // an apostrophe, which the word's own rule looks at.
  bool EndsWord(std::int32_t place) const {
    if (!IsInWord(place - 1)) return false;
    const char16_t behind = FText.At(place);
    if (behind == u'.') return false;
    return Rtl ? !IsIn(behind, 0x200A, 0x200C) && !ClassOf(behind).IsRTL()
               : behind != u'\'' && !ClassOf(behind).IsLTR();
  }

  const TText& FText;
  const TStretchContext& FContext;
};

}  // namespace

TStretch FindStretch(const TText& text, std::int32_t from, const TStretchContext& context) {
  if (context.Foreign)
    return context.Rtl ? TStretchFinder<true, true>(text, context).Find(from)
                       : TStretchFinder<false, true>(text, context).Find(from);
  return context.Rtl ? TStretchFinder<true, false>(text, context).Find(from)
                     : TStretchFinder<false, false>(text, context).Find(from);
}

}  // namespace orv::engine
