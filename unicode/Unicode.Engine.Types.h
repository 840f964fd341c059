// The bidirectional text engine: its vocabulary, its character tests, and the splitting of a text into directional
// runs. The engine follows rules of its own, not the Unicode Bidirectional Algorithm; docs/engine.md tells them.
//
// All positions are 0-based UTF-16 code-unit indices; all ranges are inclusive at both ends.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "unicode/OrvSystem.GlobalSettings.h"

namespace orv {

// The direction of one resolved run, or the entry that stands for a paragraph's end.
enum class TBidi : std::uint8_t { LeftToRight, RightToLeft, ParagraphSeparator };

namespace TBidiHelper {
constexpr bool IsLeftToRight(TBidi bidi) {
  return bidi == TBidi::LeftToRight;
}
constexpr bool IsRightToLeft(TBidi bidi) {
  return bidi == TBidi::RightToLeft;
}
constexpr void SetRTL(TBidi& bidi, bool value) {
  bidi = value ? TBidi::RightToLeft : TBidi::LeftToRight;
}
// RightToLeft becomes LeftToRight; anything else, ParagraphSeparator too, becomes RightToLeft.
constexpr void Toggle(TBidi& bidi) {
  SetRTL(bidi, bidi != TBidi::RightToLeft);
}
}  // namespace TBidiHelper

// The direction that a caller asks of a paragraph. The byte is read as three flags (TParagraphBidiHelper), so values up
// to 7 occur.
enum class TParagraphBidi : std::uint8_t { LeftToRight, RightToLeft, AutoLeftToRight, AutoRightToLeft, Neutral };

// The setters only ever switch on, and RightToLeft reads as automatic: callers build their paragraph kind on that.
namespace TParagraphBidiHelper {
enum class TBitValue : std::uint8_t { RTLDirection, AutoDirection, Neutral };

constexpr unsigned Bits(TParagraphBidi bidi) {
  return static_cast<unsigned>(bidi);
}
constexpr unsigned Bit(TBitValue value) {
  return 1U << static_cast<unsigned>(value);
}

constexpr bool GetIsAuto(TParagraphBidi bidi) {
  return bidi != TParagraphBidi::LeftToRight;
}
constexpr bool IsLeftToRight(TParagraphBidi bidi) {
  return (Bits(bidi) & (Bit(TBitValue::RTLDirection) | Bit(TBitValue::Neutral))) == 0;
}
constexpr bool IsRightToLeft(TParagraphBidi bidi) {
  return (Bits(bidi) & (Bit(TBitValue::RTLDirection) | Bit(TBitValue::Neutral))) == Bit(TBitValue::RTLDirection);
}
constexpr void SetIsAuto(TParagraphBidi& bidi, bool /*value*/) {
  bidi = static_cast<TParagraphBidi>(Bits(bidi) | Bit(TBitValue::AutoDirection));
}
constexpr void SetRTL(TParagraphBidi& bidi, bool /*value*/) {
  bidi = static_cast<TParagraphBidi>(Bits(bidi) | Bit(TBitValue::RTLDirection));
}
constexpr void Toggle(TParagraphBidi& bidi) {
  bidi = static_cast<TParagraphBidi>(Bits(bidi) ^ Bit(TBitValue::RTLDirection));
}
}  // namespace TParagraphBidiHelper

// A stretch of text, inclusive at both ends.
struct TRange {
  std::int32_t LowIndex = 0;
  std::int32_t HighIndex = 0;

  friend constexpr bool operator==(TRange, TRange) = default;
};
constexpr TRange Range(std::int32_t low, std::int32_t high) {
  return {low, high};
}

// The result of a split. Run I covers Offsets[I] up to but not including Offsets[I + 1]; runs may be empty.
struct TDirectionalRuns {
  std::vector<std::int32_t> Offsets;      // run count + 1 elements, never falling, from 0 to the text's length
  std::vector<std::int32_t> VisualOrder;  // a permutation of the run indices: the order in a left-to-right reading
  std::vector<TBidi> Bidi;                // one per run; ParagraphSeparator starts a new line
  std::vector<TRange> Ranges;             // numbers, brackets and quotes that were resolved to right-to-left

  friend bool operator==(const TDirectionalRuns&, const TDirectionalRuns&) = default;
};

// Holder of the character tests and of the splitter; no instance is made. The tests take one UTF-16 code unit (a
// surrogate passes none), are pure apart from reading EquationOrder where said, and may be called from any thread.
class TDirectiveChars {
 public:
  TDirectiveChars() = delete;

  using TMathOrder = TOrvGlobalSettings::TMathOrder;
  using TArabicDigitType = TOrvGlobalSettings::TArabicDigitType;

  enum class TCharDirection : std::uint8_t { LeftToRight, RightToLeft, Undefined };

  // The kinds of token and of run. Each unmergable kind is its plain kind plus 3.
  enum class TBidiType : std::uint8_t {
    Neutral,
    LTR,
    RTL,
    ArabicDigit,  // a number that is kept apart inside right-to-left text
    LTRUnmergable,
    RTLUnmergable,
    ArabicDigitUnmergable,
    SpaceSeparator,
    LineParagraphSeparator,
    OpenOrInitialPunctuation,  // vocabulary only: never returned
    CloseOrFinalPunctuation,   // vocabulary only: never returned
    DirectionalFormatting,
    NotExists,  // no run yet
  };

  // One saved state of a bracket or quote. The stack is counted at every step, which a power of two makes cheap.
  struct alignas(16) TBidiStackData {
    TBidiType Bidi;
    std::int32_t TurnIndex;
    std::int32_t EndOfLine;
  };

  static bool IsDigit(char16_t c);                       // 0 to 9
  static bool IsArabicDigit(char16_t c);                 // U+0660 to U+0669, U+06F0 to U+06F9
  static bool CanBeConsideredAsArabicDigit(char16_t c);  // IsArabicDigit; IsDigit too when equations run right to left
  static bool IsDigitOrDigitSeparator(char16_t c);       // 0 to 9, apostrophe, full stop
  static bool IsDigitOrComma(char16_t c);                // 0 to 9, apostrophe: the thousands mark of this engine
  static bool IsLatinLetter(char16_t c);                 // A to Z, a to z, and 0 to 9
  static bool IsLatinLetterOrDigit(char16_t c);          // the same set
  static bool IsLatinLetterOrDigitOrDigitSeparator(char16_t c);  // that set, apostrophe, full stop
  static bool IsParagraphSeparator(char16_t c);                  // categories Zl and Zp

  // Strong right-to-left: U+0591 to U+065F, U+066E to U+06EF, U+06FA to U+06FF, U+200F, U+2035 to U+2037, U+2E2E.
  // Digits and presentation forms are not in it.
  static bool IsRTL(char16_t c);

  // Strong left-to-right: U+200E, "?", ";", ",", U+2032 to U+2034, and every letter or decimal digit that is not IsRTL
  // and lies outside U+FB1D to U+FEFE.
  static bool IsLTR(char16_t c);

  // The direction of one character on its own: ArabicDigit, LTR, RTL or Neutral.
  static TBidiType ClassifyChar(char16_t c);

  static TCharDirection CharDirection(char16_t c, TCharDirection defaultDirection);
  static bool CharDirectionRTL(char16_t c, bool defaultRTL);  // true means right-to-left

  // Whether the first strong character of the text is right-to-left. Letters and U+200E decide for left-to-right;
  // digits and punctuation never decide. defaultRTL is the answer for a text without a strong character.
  static bool IsRTLText(std::u16string_view s, bool defaultRTL);

  // How many letters a presentation form stands for (1, 2 or 3), and the same in UTF-16 units (2 from U+10000 on).
  static int CharactersCount(std::uint32_t c);
  static int CharactersCountEx(std::uint32_t c);

  // Splits one text into runs of one direction and says in which order they are shown. The text is read during the call
  // and not kept. A lone surrogate is a neutral. A text of more than 2^31 - 17 units raises std::length_error; no other
  // input makes the call fail. Cost is linear in the length. May be called from any thread at once; reads the global
  // settings without a lock.
  // Example: "abc " and three Arabic letters, LeftToRight, give two runs, 0 to 4 and 4 to 7.
  static TDirectionalRuns SplitByDirection(std::u16string_view s, TParagraphBidi paragraphBidi);

  // The same into the caller's arrays, whose storage is reused: for a short line nothing else is allocated.
  static void SplitByDirection(std::u16string_view s, TParagraphBidi paragraphBidi, TDirectionalRuns& runs);
};

namespace TCharDirectionHelper {
constexpr TDirectiveChars::TCharDirection Direction(bool rightToLeft) {
  return rightToLeft ? TDirectiveChars::TCharDirection::RightToLeft : TDirectiveChars::TCharDirection::LeftToRight;
}
constexpr bool IsRightToLeft(TDirectiveChars::TCharDirection direction) {
  return direction == TDirectiveChars::TCharDirection::RightToLeft;
}
}  // namespace TCharDirectionHelper

}  // namespace orv
