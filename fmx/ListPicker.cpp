#include "fmx/ListPicker.h"

namespace fmx {

void TCustomListPicker::SetValues(std::vector<std::u16string> values) {
  FValues = std::move(values);
  SetItemIndex(FItemIndex);
}

void TCustomListPicker::SetItemIndex(std::int32_t index) {
  FItemIndex = IsItem(index) ? index : -1;
  Changed();
}

void TCustomListPicker::Choose(std::int32_t index) {
  if (!IsItem(index)) return;
  SetItemIndex(index);
  // Copied: the event may set another one, or none.
  const auto event = OnValueChanged;
  if (event) event(*this, index);
}

std::unique_ptr<TCustomListPicker> CreateListPicker() {
  const auto pickers = FindService<IPickerService>();
  return pickers ? pickers->CreateListPicker() : nullptr;
}

}  // namespace fmx
