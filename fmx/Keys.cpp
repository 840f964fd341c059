#include "fmx/Keys.h"

#include <algorithm>

namespace fmx {
namespace {

constexpr TShiftState AltGr{TShiftItem::Alt, TShiftItem::Ctrl};
constexpr TShiftState Commands{TShiftItem::Alt, TShiftItem::Ctrl, TShiftItem::Command};

constexpr bool IsText(char16_t unit) {
  return unit >= u' ';
}

// The keys whose characters are control characters have these as codes.
Keys::TCode KeyOfControl(std::u16string_view text) {
  constexpr std::u16string_view controls = u"\b\t\r\x1B";
  return text.size() == 1 && controls.find(text[0]) != controls.npos ? static_cast<Keys::TCode>(text[0]) : Keys::None;
}

TShiftState WithoutAltGr(TShiftState shift) {
  return (AltGr - shift).IsEmpty() ? shift - AltGr : shift;
}

bool HoldsCommand(TShiftState shift) {
  return !(shift * Commands).IsEmpty();
}

}  // namespace

TShiftState ShiftStateOf(TPlatformModifiers modifiers) {
  TShiftState shift;
  if (modifiers.Contains(TPlatformModifier::Shift)) shift.Include(TShiftItem::Shift);
  if (modifiers.Contains(TPlatformModifier::Alt)) shift.Include(TShiftItem::Alt);
  if (modifiers.Contains(TPlatformModifier::Ctrl)) shift.Include(TShiftItem::Ctrl);
  if (modifiers.Contains(TPlatformModifier::Command)) shift.Include(TShiftItem::Command);
  return shift;
}

std::vector<TKeyEvent> NormalizeKey(Keys::TCode key, std::u16string_view text, TPlatformModifiers modifiers) {
  TShiftState shift = ShiftStateOf(modifiers);
  const bool hasText = std::any_of(text.begin(), text.end(), IsText);
  if (hasText) shift = WithoutAltGr(shift);

  std::vector<TKeyEvent> events;
  if (hasText && !HoldsCommand(shift)) {
    for (const char16_t unit : text)
      if (IsText(unit)) events.push_back({Keys::None, unit, shift});
    return events;
  }
  if (key == Keys::None && !HoldsCommand(shift)) key = KeyOfControl(text);
  if (key != Keys::None) events.push_back({key, 0, shift});
  return events;
}

}  // namespace fmx
