#include "unicode/Unicode.Engine.Stretch.h"

namespace orv::engine {
namespace {

// How a unit stands in a stretch of one direction, by its class byte.
enum TPlainKind : std::uint8_t { Exception, Word, Mark, Blank, Neutral, CheckUnit };

constexpr TPlainKind KindOf(TUnitClass kind, bool rtl) {
  if (kind.IsLetter()) return kind.IsRTL() == rtl ? Word : Exception;
  if (rtl && kind.IsRTL()) return Mark;
  if (kind.Category() == TCategory::Nd) return rtl ? Exception : Word;
  if (kind.Category() == TCategory::Zs) return Blank;
  if (kind.IsRTL()) return Exception;
  if (kind.Category() == TCategory::Po || kind.Category() == TCategory::Cc || kind.Category() == TCategory::Cf)
    return CheckUnit;
  return kind.In(NeutralStops) ? Exception : Neutral;
}

constexpr std::array<std::uint8_t, 256> MakeKinds(bool rtl) {
  std::array<std::uint8_t, 256> kinds{};
  for (unsigned bits = 0; bits < 256; ++bits) kinds[bits] = KindOf(TUnitClass(static_cast<std::uint8_t>(bits)), rtl);
  return kinds;
}

constexpr std::array<std::array<std::uint8_t, 256>, 2> Kinds{MakeKinds(false), MakeKinds(true)};

class TStretchFinder {
 public:
  TStretchFinder(const TText& text, bool rtl) : FText(text), FKinds(Kinds[rtl ? 1 : 0]), FRtl(rtl) {}

  TStretch Find(std::int32_t from) const {
    std::int32_t end = from;
    while (end < FText.Length() && IsPlain(from, end)) ++end;
    return {WordEnd(from, end), end};
  }

 private:
  std::uint8_t KindAt(std::int32_t place) const { return FKinds[ClassOf(FText[place]).Bits()]; }

  bool IsPlain(std::int32_t from, std::int32_t place) const {
    const std::uint8_t kind = KindAt(place);
    if (kind == CheckUnit) return IsPlainSign(from, place);
    return kind != Exception;
  }

  bool IsPlainSign(std::int32_t from, std::int32_t place) const {
    const char16_t c = FText[place];
    if (c == u'"' || c == u'\'') return false;
    // A stop between two words is a neutral.
    if (c == u'.') return ClassOf(FText.At(place + 1)).In(LettersAndDigits);
    const TCategory category = ClassOf(c).Category();
    if (category == TCategory::Po) return true;
    if (category == TCategory::Cc) return !IsLineFeedOrReturn(c);
    // A zero-width blank is plain behind a word only: behind another blank it is a token of its own.
    return IsZeroWidthBlank(c) && place > from && IsInWord(KindAt(place - 1));
  }

  static bool IsInWord(std::uint8_t kind) { return kind == Word || kind == Mark; }

  // The last place up to end at which a word ends for certain. A mark counts only behind a letter, since a neutral
  // before it would take it along.
  std::int32_t WordEnd(std::int32_t from, std::int32_t end) const {
    for (std::int32_t place = end; place > from; --place) {
      if (!EndsWord(place, end)) continue;
      std::int32_t letter = place - 1;
      while (letter > from && KindAt(letter) == Mark) --letter;
      if (KindAt(letter) == Word) return place;
      place = letter + 1;
    }
    return from;
  }

  // Whether a word before place would end there: what goes on inside a word must not stand behind it, nor a stop or
  // an apostrophe, which the word's own rule looks at.
  bool EndsWord(std::int32_t place, std::int32_t end) const {
    if (!IsInWord(KindAt(place - 1))) return false;
    const char16_t behind = FText.At(place);
    if (place < end) return behind == u' ';
    if (behind == u'.') return false;
    return FRtl ? !IsIn(behind, 0x200A, 0x200C) : behind != u'\'' && !ClassOf(behind).IsLTR();
  }

  const TText& FText;
  const std::array<std::uint8_t, 256>& FKinds;
  const bool FRtl;
};

}  // namespace

TStretch FindStretch(const TText& text, std::int32_t from, bool rtl) {
  return TStretchFinder(text, rtl).Find(from);
}

}  // namespace orv::engine
