#include "calendar/Orv.Date.FormatTokens.h"

#include "calendar/DateGlobal.h"
#include "rtl/Unicode.h"

namespace orv {
namespace {

using TField = TFormatField;

// Whether every unit of expected equals its counterpart in the text from the index on.
template <typename TEqual>
bool Matches(std::u16string_view text, std::size_t index, std::u16string_view expected, const TEqual& equal) {
  for (std::size_t i = 0; i < expected.size(); ++i)
    if (!equal(rtl::UnitAt(text, static_cast<std::int64_t>(index + i)), expected[i])) return false;
  return true;
}

}  // namespace

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

bool TTextCursor::Take(std::u16string_view text) {
  if (!Matches(FText, FIndex, text, [](char16_t a, char16_t b) { return a == b; })) return false;
  FIndex += text.size();
  return true;
}

bool TTextCursor::TakeIgnoringCase(std::u16string_view text) {
  const auto equal = [](char16_t a, char16_t b) { return a == b || rtl::ToLower(a) == rtl::ToLower(b); };
  if (!Matches(FText, FIndex, text, equal)) return false;
  FIndex += text.size();
  return true;
}

bool TTextCursor::TakeQuoted(std::u16string_view quoted) {
  for (const char16_t c : quoted) {
    ++FIndex;
    if (Unit() != c) return false;
  }
  return true;
}

bool TFormatStack::Leave() {
  if (!FNesting || FNesting->Outer.empty()) return false;
  FNesting->InnermostOf(FTop.Field) = FTop.Former;
  FTop = FNesting->Outer.back();
  FNesting->Outer.pop_back();
  return true;
}

std::u16string_view TFormatStack::FormatOf(TFormatField field) {
  switch (field) {
    case TField::ShortDate:
      return FSettings.ShortDateFormat;
    case TField::LongDate:
      return FSettings.LongDateFormat;
    case TField::ShortTime:
      return FSettings.ShortTimeFormat;
    case TField::LongTime:
      return FSettings.LongTimeFormat;
    default:
      if (FNesting->DateAndTime.empty())
        FNesting->DateAndTime = FSettings.ShortDateFormat + u' ' + FSettings.LongTimeFormat;
      return FNesting->DateAndTime;
  }
}

void TFormatStack::Enter(TFormatField field, std::int32_t position, std::uint32_t state) {
  if (!FNesting) FNesting = std::make_unique<TNesting>();
  const std::u16string_view format = FormatOf(field);
  const TEntry entry = {true, position, state};
  TEntry& innermost = FNesting->InnermostOf(field);
  FNesting->Characters += format.size() + 1;
  if (innermost == entry || FNesting->Characters > MostNestedFormatCharacters)
    ConvertErrorFmt("The format '%s' nests without end", {format});
  FNesting->Outer.push_back(FTop);
  FTop = {format, 0, field, innermost};
  innermost = entry;
}

}  // namespace orv
