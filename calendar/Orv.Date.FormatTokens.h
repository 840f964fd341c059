// The letters of a format as the readers take them. The strict reader and the field locator read the same letters but
// for AM/PM and milliseconds. Lower-case letters alone are fields; everything else is literal.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "calendar/Orv.Date.FormatWalk.h"
#include "rtl/Convert.h"
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

// Whether a character begins a field at all; all others are literal.
constexpr bool IsFieldLetter(char16_t c) {
  constexpr auto bits = [] {
    std::array<std::uint64_t, 2> words{};
    for (const char16_t letter : std::u16string_view(u"acdhmnstyz'\""))
      words[letter / 64] |= std::uint64_t{1} << letter % 64;
    return words;
  }();
  return c < 128 && (bits[c / 64] >> c % 64 & 1) != 0;
}

namespace tokens {

using TField = TFormatField;

// How often the character at the index stands there, up to most.
constexpr std::int32_t Run(std::u16string_view format, std::size_t index, std::int32_t most) {
  std::int32_t length = 1;
  while (length < most && rtl::UnitAt(format, static_cast<std::int64_t>(index) + length) == format[index]) ++length;
  return length;
}

constexpr TFormatToken DayToken(std::int32_t run) {
  constexpr TField fields[] = {TField::Day,         TField::Day,       TField::ShortDayName,
                               TField::LongDayName, TField::ShortDate, TField::LongDate};
  return {fields[run - 1], run, run == 2};
}

constexpr TFormatToken MonthToken(std::int32_t run) {
  constexpr TField fields[] = {TField::Month, TField::Month, TField::ShortMonthName, TField::LongMonthName};
  return {fields[run - 1], run, run == 2};
}

constexpr TFormatToken YearToken(std::int32_t run) {
  if (run == 1) return {TField::Nothing, 1, false};
  return run == 4 ? TFormatToken{TField::LongYear, 4, true} : TFormatToken{TField::TwoDigitYear, 2, true};
}

// A field of one letter or two.
constexpr TFormatToken TimeToken(TField field, std::int32_t run) {
  return {field, run, run == 2};
}

// The tokens that both readers share. AM/PM and milliseconds are literals here.
constexpr TFormatToken CommonToken(std::u16string_view format, std::size_t i) {
  switch (format[i]) {
    case u'd':
      return DayToken(Run(format, i, 6));
    case u'm':
      return MonthToken(Run(format, i, 4));
    case u'y':
      return YearToken(Run(format, i, 5));
    case u'h':
      return TimeToken(TField::Hour, Run(format, i, 2));
    case u'n':
      return TimeToken(TField::Minute, Run(format, i, 2));
    case u's':
      return TimeToken(TField::Second, Run(format, i, 2));
    case u't':
      return Run(format, i, 2) == 2 ? TFormatToken{TField::LongTime, 2, false}
                                    : TFormatToken{TField::ShortTime, 1, false};
    case u'c':
      return {TField::DateAndTime, 1, false};
    case u'\'':
    case u'"':
      return {TField::Quote, 1, false};
    default:
      return {TField::Literal, 1, false};
  }
}

// The AM/PM field that the test finds at an "a".
template <typename TTest>
constexpr TFormatToken MeridiemToken(const TTest& stands) {
  if (stands(u"a/p")) return {TField::MeridiemVeryShort, 3, false};
  if (stands(u"ampm")) return {TField::MeridiemShort, 4, false};
  if (stands(u"am/pm")) return {TField::MeridiemLong, 5, false};
  return {TField::Nothing, 1, false};
}

}  // namespace tokens

// The token at the 0-based index, which lies inside the format. The strict reader knows AM/PM in any case, and takes an
// "s" behind a "z" away.
constexpr TFormatToken ReaderToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return tokens::MeridiemToken([&](std::u16string_view pattern) { return FoldedAt(format, index, pattern); });
  if (format[index] == u'z') {
    const bool beforeSecond = rtl::UnitAt(format, static_cast<std::int64_t>(index) + 1) == u's';
    return {TFormatField::MilliSecond, beforeSecond ? 2 : 1, false};
  }
  return tokens::CommonToken(format, index);
}

// The same for the field locator, which knows AM/PM as written and z and zz.
constexpr TFormatToken LocatorToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return tokens::MeridiemToken(
        [&](std::u16string_view pattern) { return format.substr(index, pattern.size()) == pattern; });
  if (format[index] == u'z') return tokens::TimeToken(TFormatField::MilliSecond, tokens::Run(format, index, 2));
  return tokens::CommonToken(format, index);
}

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

// The text read by a walk, and the place in it. Positions count from 1, and every place behind the text holds a zero
// character.
class TTextCursor {
 public:
  explicit TTextCursor(std::u16string_view text) : FText(text) {}

  std::int32_t Position() const { return static_cast<std::int32_t>(FIndex) + 1; }
  char16_t Unit() const { return FIndex < FText.size() ? FText[FIndex] : u'\0'; }

  // Moves over one character if it is c.
  bool TakeUnit(char16_t c) {
    if (Unit() != c) return false;
    ++FIndex;
    return true;
  }

  // Moves over all digits 0 to 9 that stand here; a view of them.
  std::u16string_view TakeDigits() {
    const std::size_t first = FIndex;
    while (IsDigit(Unit())) ++FIndex;
    return first == FIndex ? std::u16string_view() : FText.substr(first, FIndex - first);
  }

  // The number that the digits standing here form. Raises EConvertError where there are none, or too many.
  std::int32_t TakeNumber() {
    const std::u16string_view digits = TakeDigits();
    if (digits.empty() || digits.size() > 9) return rtl::StrToInt(digits);
    std::int32_t value = 0;
    for (const char16_t digit : digits) value = value * 10 + (digit - u'0');
    return value;
  }

  // Moves over the text if it stands here.
  bool Take(std::u16string_view text);
  bool TakeIgnoringCase(std::u16string_view text);

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
  static constexpr bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

  std::u16string_view FText;
  std::size_t FIndex = 0;
};

// The formats that a walk is inside of. Nesting goes as deep as the text read allows; where a format comes round again
// with nothing read and nothing learnt in between, it would do so for ever, and EConvertError is raised.
class TFormatStack {
 public:
  explicit TFormatStack(std::u16string_view outermost) { FTop.Format = outermost; }

  // Where the walk stands; false when every format has come to its end.
  bool Current(std::u16string_view& format, std::size_t& index) {
    while (FTop.Index >= FTop.Format.size())
      if (!Leave()) return false;
    format = FTop.Format;
    index = FTop.Index;
    return true;
  }

  // Moves the innermost format on.
  void Advance(std::int32_t count) { FTop.Index += static_cast<std::size_t>(count); }

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

  // Back to the format around the innermost one; false when there is none.
  bool Leave();
  bool ComesRound(TFormatField field, std::int32_t position, std::uint32_t state) const;

  TFrame FTop;
  std::vector<TFrame> FOuter;  // the outermost first
  std::size_t FNestedCharacters = 0;
};

}  // namespace orv
