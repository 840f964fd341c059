#include "fmx/EditServices.h"

namespace fmx {

std::optional<TPointF> MousePosition() {
  const auto mouse = FindService<IMouseService>();
  return mouse ? std::optional(mouse->GetMousePos()) : std::nullopt;
}

std::vector<std::u16string> SpellingSuggestions(std::u16string_view word) {
  const auto speller = FindService<IFMXSpellCheckerService>();
  return speller ? speller->CheckSpelling(word) : std::vector<std::u16string>();
}

bool HasTouchScreen() {
  const auto device = FindService<IDeviceService>();
  return device && device->GetFeatures().Contains(TDeviceFeature::TouchScreen);
}

bool NeedSetFocusAfterButtonClick(std::string_view className) {
  const auto hints = FindService<IStyleHintService>();
  return !hints || hints->GetHint(NeedSetFocusAfterButtonClickHint, className).value_or(true);
}

}  // namespace fmx
