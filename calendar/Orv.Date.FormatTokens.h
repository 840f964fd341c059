// The letters of a format as the readers take them. The strict reader and the field locator read the same letters but
// for AM/PM and milliseconds. Lower-case letters alone are fields; everything else is literal.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv {

enum class TFormatField : std::uint8_t {
  Day,
  ShortDayName,
  LongDayName,  // d dd, ddd, dddd
  ShortDate,
  LongDate,  // ddddd, dddddd
  Month,
  ShortMonthName,
  LongMonthName,  // m mm, mmm, mmmm
  TwoDigitYear,
  LongYear,  // a run of four y is a long year, any other run of two or more begins a short one
  Hour,
  Minute,
  Second,
  MilliSecond,  // h hh, n nn, s ss, z
  ShortTime,
  LongTime,
  DateAndTime,  // t, tt, c
  MeridiemVeryShort,
  MeridiemShort,
  MeridiemLong,  // a/p, ampm, am/pm
  Nothing,       // y or a alone
  Quote,
  Literal
};

struct TFormatToken {
  TFormatField Field = TFormatField::Literal;
  std::int32_t Length = 1;  // characters of the format that the step moves over
  bool Doubled = false;     // dd, mm, yy, yyyy, hh, nn, ss, zz
};

// The token at the 0-based index, which lies inside the format.
TFormatToken ReaderToken(std::u16string_view format, std::size_t index);   // AM/PM in any case; z, and z before s
TFormatToken LocatorToken(std::u16string_view format, std::size_t index);  // AM/PM as written; z and zz

constexpr bool IsNested(TFormatField field) {
  return field == TFormatField::ShortDate || field == TFormatField::LongDate || field == TFormatField::ShortTime ||
         field == TFormatField::LongTime || field == TFormatField::DateAndTime;
}

// The format that a nested field stands for; the date and time are the short date, a blank and the long time.
std::u16string_view NestedFormat(TFormatField field, const rtl::TFormatSettings& settings);

// The AM/PM texts that a unit reads and writes.
struct TMeridiemTexts {
  std::u16string_view VeryShortAM, VeryShortPM;  // for a/p
  std::u16string_view ShortAM, ShortPM;          // for ampm
  std::u16string_view LongAM, LongPM;            // for am/pm
};

// The two texts of an AM/PM field.
struct TMeridiemPair {
  std::u16string_view AM, PM;
};
TMeridiemPair MeridiemPair(TFormatField field, const TMeridiemTexts& texts);

// The text read by a walk, and the place in it. Positions count from 1, and every place outside the text holds a zero
// character.
class TTextCursor {
 public:
  explicit TTextCursor(std::u16string_view text) : FText(text) {}

  std::int32_t Position() const { return FPosition; }
  void Skip(std::int32_t count) { FPosition += count; }
  char16_t Unit() const { return rtl::UnitAt(FText, std::int64_t{FPosition} - 1); }

  // Moves over one character if it is c.
  bool TakeUnit(char16_t c);
  // Moves over the text if it stands here.
  bool Take(std::u16string_view text);
  bool TakeIgnoringCase(std::u16string_view text);
  // Moves over all digits 0 to 9 that stand here; a view of them.
  std::u16string_view TakeDigits();
  // Moves over the first of the names, from number 1 on, that stands here; its number, or 0.
  template <std::size_t N>
  std::int32_t TakeName(const rtl::TNames<N>& names) {
    for (std::int32_t number = 1; number <= rtl::TNames<N>::Count; ++number)
      if (Take(names[number])) return number;
    return 0;
  }
  // The quote rule of both readers: before each quoted character the place moves on by one, and that character must
  // stand there.
  bool TakeQuoted(std::u16string_view quoted);

 private:
  std::u16string_view FText;
  std::int32_t FPosition = 1;
};

// The formats that a walk is inside of, the innermost last. Nesting goes as deep as the text read allows; where a
// format comes round again with nothing read and nothing learnt in between, it would do so for ever, and EConvertError
// is raised.
class TFormatStack {
 public:
  explicit TFormatStack(std::u16string_view outermost) { FInline[0] = {outermost, 0, 0, 0, TFormatField::Literal}; }

  // Where the walk stands; false when every format has come to its end.
  bool Current(std::u16string_view& format, std::size_t& index);
  // Moves the innermost format on.
  void Advance(std::int32_t count) { Top().Index += static_cast<std::size_t>(count); }
  // Goes into a nested format. State is what besides the place in the text may change the course of the walk.
  void Enter(TFormatField field, std::u16string_view format, std::int32_t position, std::uint32_t state);

 private:
  struct TFrame {
    std::u16string_view Format;
    std::size_t Index = 0;
    std::int32_t Position = 0;
    std::uint32_t State = 0;
    TFormatField Field = TFormatField::Literal;
  };
  TFrame& At(std::size_t depth) { return depth < FInline.size() ? FInline[depth] : FDeep[depth - FInline.size()]; }
  TFrame& Top() { return At(FDepth - 1); }

  std::array<TFrame, 6> FInline;  // what any sensible nesting needs, without an allocation
  std::vector<TFrame> FDeep;
  std::size_t FDepth = 1;
  std::size_t FNestedCharacters = 0;
};

}  // namespace orv
