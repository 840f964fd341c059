// The letters of a format as the readers take them. The strict reader and the field locator read the same letters but
// for AM/PM and milliseconds. Lower-case letters alone are fields; everything else is literal.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "calendar/Orv.Date.FormatWalk.h"
#include "rtl/Convert.h"
#include "rtl/FormatSettings.h"
#include "rtl/Strings.h"

namespace orv {

enum class TFormatField : std::uint8_t {
  // Nested formats.
  ShortDate,
  LongDate,
  ShortTime,
  LongTime,
  DateAndTime,  // ddddd, dddddd, t, tt, c
  // All others.
  Day,
  ShortDayName,
  LongDayName,  // d dd, ddd, dddd
  Month,
  ShortMonthName,
  LongMonthName,  // m mm, mmm, mmmm
  TwoDigitYear,
  LongYear,  // a run of four y is a long year, any other run of two or more begins a short one
  Hour,
  Minute,
  Second,
  MilliSecond,  // h hh, n nn, s ss, z
  MeridiemVeryShort,
  MeridiemShort,
  MeridiemLong,  // a/p, ampm, am/pm
  Nothing,       // y or a alone
  Quote,
  Literal
};

constexpr bool IsNested(TFormatField field) {
  return field <= TFormatField::DateAndTime;
}

struct TFormatToken {
  TFormatField Field = TFormatField::Literal;
  std::uint8_t Length = 1;  // characters of the format that the step moves over
  bool Doubled = false;     // dd, mm, yy, yyyy, hh, nn, ss, zz
};

namespace tokens {

using TField = TFormatField;

// How often the character at the index stands there, up to most.
constexpr std::uint8_t Run(std::u16string_view format, std::size_t index, std::size_t most) {
  const char16_t* const first = format.data() + index;
  const std::size_t room = std::min(format.size() - index, most);
  std::size_t length = 1;
  while (length < room && first[length] == *first) ++length;
  return static_cast<std::uint8_t>(length);
}

constexpr TFormatToken DayToken(std::uint8_t run) {
  constexpr TField fields[] = {TField::Day,         TField::Day,       TField::ShortDayName,
                               TField::LongDayName, TField::ShortDate, TField::LongDate};
  return {fields[run - 1], run, run == 2};
}

constexpr TFormatToken MonthToken(std::uint8_t run) {
  constexpr TField fields[] = {TField::Month, TField::Month, TField::ShortMonthName, TField::LongMonthName};
  return {fields[run - 1], run, run == 2};
}

constexpr TFormatToken YearToken(std::uint8_t run) {
  if (run == 1) return {TField::Nothing, 1, false};
  return run == 4 ? TFormatToken{TField::LongYear, 4, true} : TFormatToken{TField::TwoDigitYear, 2, true};
}

// A field of one letter or two.
constexpr TFormatToken TimeToken(TField field, std::uint8_t run) {
  return {field, run, run == 2};
}

// The token of a letter by its run; AM/PM forms are not looked for. A walk waits for the length of each token before it
// can look at the next, so there are branches here and no tables: a processor guesses the way and does not wait.
constexpr TFormatToken ByRun(std::u16string_view format, std::size_t i) {
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
    case u'z':
      return TimeToken(TField::MilliSecond, Run(format, i, 2));
    case u't':
      return Run(format, i, 2) == 2 ? TFormatToken{TField::LongTime, 2} : TFormatToken{TField::ShortTime, 1};
    case u'c':
      return {TField::DateAndTime, 1};
    case u'\'':
    case u'"':
      return {TField::Quote, 1};
    default:
      return {};
  }
}

// The AM/PM field that the test finds at an "a".
template <typename TTest>
constexpr TFormatToken MeridiemToken(const TTest& stands) {
  if (stands(u"a/p")) return {TFormatField::MeridiemVeryShort, 3};
  if (stands(u"ampm")) return {TFormatField::MeridiemShort, 4};
  if (stands(u"am/pm")) return {TFormatField::MeridiemLong, 5};
  return {TFormatField::Nothing};
}

}  // namespace tokens

// Whether a character begins a field at all; all others are literal.
inline constexpr auto FieldLetters = [] {
  std::array<bool, 128> letters{};
  for (const char16_t letter : std::u16string_view(u"acdhmnstyz'\"")) letters[letter] = true;
  return letters;
}();
constexpr bool IsFieldLetter(char16_t c) {
  return c < FieldLetters.size() && FieldLetters[c];
}

// The token at the 0-based index, which lies inside the format. The strict reader knows AM/PM in any case, and takes an
// "s" behind a "z" away.
constexpr TFormatToken ReaderToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return tokens::MeridiemToken([&](std::u16string_view pattern) { return FoldedAt(format, index, pattern); });
  if (format[index] == u'z') {
    const bool beforeSecond = rtl::UnitAt(format, static_cast<std::int64_t>(index) + 1) == u's';
    return {TFormatField::MilliSecond, static_cast<std::uint8_t>(beforeSecond ? 2 : 1)};
  }
  return tokens::ByRun(format, index);
}

// The same for the field locator, which knows AM/PM as written and z and zz.
constexpr TFormatToken LocatorToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return tokens::MeridiemToken(
        [&](std::u16string_view pattern) { return format.substr(index, pattern.size()) == pattern; });
  return tokens::ByRun(format, index);
}

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
  [[gnu::always_inline]] std::int32_t TakeNumber() {
    const char16_t* const first = FText.data() + std::min(FIndex, FText.size());
    const char16_t* const end = FText.data() + FText.size();
    const char16_t* at = first;
    std::uint32_t value = 0;
    for (std::uint32_t digit = 0; at != end && (digit = *at - std::uint32_t{u'0'}) <= 9; ++at)
      value = value * 10 + digit;
    const auto digits = static_cast<std::size_t>(at - first);
    FIndex += digits;
    if (digits == 0 || digits > MostSafeDigits) return rtl::StrToInt({first, digits});
    return static_cast<std::int32_t>(value);
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
  static constexpr std::size_t MostSafeDigits = 9;  // that fit into 32 bits whatever they are

  static constexpr bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

  std::u16string_view FText;
  std::size_t FIndex = 0;
};

// The formats that a walk is inside of. Nesting goes as deep as the text read allows; where a format comes round again
// with nothing read and nothing learnt in between, it would do so for ever, and EConvertError is raised.
class TFormatStack {
 public:
  // Format and settings are borrowed.
  TFormatStack(std::u16string_view outermost, const rtl::TFormatSettings& settings) : FSettings(settings) {
    FTop.Format = outermost;
  }

  // Where the walk stands; false when every format has come to its end.
  bool Current(std::u16string_view& format, std::size_t& index) {
    while (FTop.Index >= FTop.Format.size())
      if (!Leave()) return false;
    format = FTop.Format;
    index = FTop.Index;
    return true;
  }

  // Whether the innermost format has steps, of which none is taken.
  bool AtFirstStep() const { return FTop.Index == 0 && !FTop.Format.empty(); }

  // Moves the innermost format on.
  void Advance(std::size_t count) { FTop.Index += count; }

  // Goes into the format that a nested field stands for. State is what besides the place in the text may change the
  // course of the walk.
  void Enter(TFormatField field, std::int32_t position, std::uint32_t state);

 private:
  // Where a nested format was entered.
  struct TEntry {
    bool IsInside = false;
    std::int32_t Position = 0;
    std::uint32_t State = 0;
    friend constexpr bool operator==(const TEntry&, const TEntry&) = default;
  };

  struct TFrame {
    std::u16string_view Format;
    std::size_t Index = 0;
    TFormatField Field = TFormatField::Literal;
    TEntry Former;  // into the same field, further out
  };

  // What only a walk with nested formats needs.
  struct TNesting {
    std::vector<TFrame> Outer;  // the outermost first
    // The innermost entry into each field that has not been left again. It is enough to look at that one: what was the
    // same further out is the same there.
    std::array<TEntry, static_cast<std::size_t>(TFormatField::DateAndTime) + 1> Innermost{};
    std::size_t Characters = 0;
    rtl::UnicodeString DateAndTime;  // made where it is first asked for

    TEntry& InnermostOf(TFormatField field) { return Innermost[static_cast<std::size_t>(field)]; }
  };

  // Back to the format around the innermost one; false when there is none.
  bool Leave();
  // The format of a nested field. The date and time are one format: the short date, a blank and the long time, so that
  // a quote reaches over the blank.
  std::u16string_view FormatOf(TFormatField field);

  const rtl::TFormatSettings& FSettings;
  TFrame FTop;
  std::unique_ptr<TNesting> FNesting;
};

}  // namespace orv
