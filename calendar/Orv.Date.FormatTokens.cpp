#include "calendar/Orv.Date.FormatTokens.h"

#include <algorithm>

#include "calendar/DateGlobal.h"
#include "calendar/Orv.Date.FormatWalk.h"
#include "rtl/Unicode.h"

namespace orv {
namespace {

using TField = TFormatField;

std::int32_t Run(std::u16string_view format, std::size_t index, std::int32_t most) {
  std::int32_t length = 1;
  while (length < most && rtl::UnitAt(format, static_cast<std::int64_t>(index) + length) == format[index]) ++length;
  return length;
}

TFormatToken DayToken(std::int32_t run) {
  constexpr TField fields[] = {TField::Day,         TField::Day,       TField::ShortDayName,
                               TField::LongDayName, TField::ShortDate, TField::LongDate};
  return {fields[run - 1], run, run == 2};
}

TFormatToken MonthToken(std::int32_t run) {
  constexpr TField fields[] = {TField::Month, TField::Month, TField::ShortMonthName, TField::LongMonthName};
  return {fields[run - 1], run, run == 2};
}

TFormatToken YearToken(std::int32_t run) {
  if (run == 1) return {TField::Nothing, 1, false};
  return run == 4 ? TFormatToken{TField::LongYear, 4, true} : TFormatToken{TField::TwoDigitYear, 2, true};
}

// The tokens that both readers share. AM/PM and milliseconds are literals here.
TFormatToken CommonToken(std::u16string_view format, std::size_t i) {
  switch (format[i]) {
    case u'd':
      return DayToken(Run(format, i, 6));
    case u'm':
      return MonthToken(Run(format, i, 4));
    case u'y':
      return YearToken(Run(format, i, 5));
    case u'h':
      return {TField::Hour, Run(format, i, 2), Run(format, i, 2) == 2};
    case u'n':
      return {TField::Minute, Run(format, i, 2), Run(format, i, 2) == 2};
    case u's':
      return {TField::Second, Run(format, i, 2), Run(format, i, 2) == 2};
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

// The AM/PM field that the test finds behind an "a".
template <typename TTest>
TFormatToken MeridiemToken(const TTest& stands) {
  if (stands(u"a/p")) return {TField::MeridiemVeryShort, 3, false};
  if (stands(u"ampm")) return {TField::MeridiemShort, 4, false};
  if (stands(u"am/pm")) return {TField::MeridiemLong, 5, false};
  return {TField::Nothing, 1, false};
}

}  // namespace

TFormatToken ReaderToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return MeridiemToken([&](std::u16string_view pattern) { return FoldedAt(format, index, pattern); });
  if (format[index] == u'z') {
    const bool beforeSecond = rtl::UnitAt(format, static_cast<std::int64_t>(index) + 1) == u's';
    return {TField::MilliSecond, beforeSecond ? 2 : 1, false};
  }
  return CommonToken(format, index);
}

TFormatToken LocatorToken(std::u16string_view format, std::size_t index) {
  if (format[index] == u'a')
    return MeridiemToken([&](std::u16string_view pattern) { return format.substr(index, pattern.size()) == pattern; });
  if (format[index] == u'z') {
    const std::int32_t run = Run(format, index, 2);
    return {TField::MilliSecond, run, run == 2};
  }
  return CommonToken(format, index);
}

std::u16string_view NestedFormat(TFormatField field, const rtl::TFormatSettings& settings) {
  switch (field) {
    case TField::ShortDate:
      return settings.ShortDateFormat;
    case TField::LongDate:
      return settings.LongDateFormat;
    case TField::ShortTime:
      return settings.ShortTimeFormat;
    case TField::LongTime:
      return settings.LongTimeFormat;
    default:
      return u"ddddd tt";
  }
}

TMeridiemPair MeridiemPair(TFormatField field, const TMeridiemTexts& texts) {
  switch (field) {
    case TField::MeridiemVeryShort:
      return {texts.VeryShortAM, texts.VeryShortPM};
    case TField::MeridiemLong:
      return {texts.LongAM, texts.LongPM};
    default:
      return {texts.ShortAM, texts.ShortPM};
  }
}

bool TTextCursor::TakeUnit(char16_t c) {
  if (Unit() != c) return false;
  Skip(1);
  return true;
}

namespace {

// Whether every unit of expected equals its counterpart in the text from the position on.
template <typename TEqual>
bool Matches(std::u16string_view text, std::int64_t position, std::u16string_view expected, const TEqual& equal) {
  for (std::size_t i = 0; i < expected.size(); ++i)
    if (!equal(rtl::UnitAt(text, position - 1 + static_cast<std::int64_t>(i)), expected[i])) return false;
  return true;
}

}  // namespace

bool TTextCursor::Take(std::u16string_view text) {
  if (!Matches(FText, FPosition, text, [](char16_t a, char16_t b) { return a == b; })) return false;
  Skip(static_cast<std::int32_t>(text.size()));
  return true;
}

bool TTextCursor::TakeIgnoringCase(std::u16string_view text) {
  if (!Matches(FText, FPosition, text,
               [](char16_t a, char16_t b) { return a == b || rtl::ToLower(a) == rtl::ToLower(b); }))
    return false;
  Skip(static_cast<std::int32_t>(text.size()));
  return true;
}

std::u16string_view TTextCursor::TakeDigits() {
  const std::int32_t first = FPosition;
  while (Unit() >= u'0' && Unit() <= u'9') ++FPosition;
  if (first == FPosition) return {};
  return FText.substr(static_cast<std::size_t>(first) - 1, static_cast<std::size_t>(FPosition - first));
}

bool TTextCursor::TakeQuoted(std::u16string_view quoted) {
  for (const char16_t c : quoted) {
    ++FPosition;
    if (Unit() != c) return false;
  }
  return true;
}

bool TFormatStack::Current(std::u16string_view& format, std::size_t& index) {
  while (FDepth > 0 && Top().Index >= Top().Format.size()) --FDepth;
  if (FDepth == 0) return false;
  format = Top().Format;
  index = Top().Index;
  return true;
}

void TFormatStack::Enter(TFormatField field, std::u16string_view format, std::int32_t position, std::uint32_t state) {
  FNestedCharacters += format.size() + 1;
  bool comesRound = FNestedCharacters > MostNestedFormatCharacters;
  for (std::size_t depth = FDepth; depth-- > 1;) {
    const TFrame& frame = At(depth);
    if (frame.Field != field) continue;
    comesRound = comesRound || (frame.Position == position && frame.State == state);
    break;
  }
  if (comesRound) ConvertErrorFmt("The format '%s' nests without end", {format});
  const TFrame frame = {format, 0, position, state, field};
  if (FDepth < FInline.size()) {
    FInline[FDepth] = frame;
  } else {
    FDeep.resize(FDepth - FInline.size());
    FDeep.push_back(frame);
  }
  ++FDepth;
}

}  // namespace orv
