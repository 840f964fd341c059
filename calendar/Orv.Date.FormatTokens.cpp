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
  if (FOuter.empty()) return false;
  InnermostOf(FTop.Field) = FTop.Former;
  FTop = FOuter.back();
  FOuter.pop_back();
  return true;
}

void TFormatStack::Enter(TFormatField field, std::u16string_view format, std::int32_t position, std::uint32_t state) {
  const TEntry entry = {true, position, state};
  TEntry& innermost = InnermostOf(field);
  FNestedCharacters += format.size() + 1;
  if (innermost == entry || FNestedCharacters > MostNestedFormatCharacters)
    ConvertErrorFmt("The format '%s' nests without end", {format});
  FOuter.push_back(FTop);
  FTop = {format, 0, field, innermost};
  innermost = entry;
}

}  // namespace orv
