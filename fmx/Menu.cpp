#include "fmx/Menu.h"

#include <algorithm>
#include <utility>

#include "fmx/ResourceStrings.h"

namespace fmx {

bool TMenuItem::IsSeparator() const {
  return Text == SMenuSeparator;
}

void TMenuItem::Click() {
  if (!Enabled || IsSeparator()) return;
  if (const auto event = OnClick) event(*this);
}

TMenuItem* TPopupMenu::Item(std::int32_t index) const {
  return index >= 0 && index < ItemCount() ? FItems[static_cast<std::size_t>(index)] : nullptr;
}

TMenuItem& TPopupMenu::AddItem(std::unique_ptr<TMenuItem> item) {
  return InsertItem(ItemCount(), std::move(item));
}

TMenuItem& TPopupMenu::InsertItem(std::int32_t index, std::unique_ptr<TMenuItem> item) {
  TMenuItem& added = InsertComponent(std::move(item));
  FItems.insert(FItems.begin() + std::clamp(index, 0, ItemCount()), &added);
  return added;
}

std::unique_ptr<TMenuItem> TPopupMenu::RemoveItem(TMenuItem& item) {
  std::erase(FItems, &item);
  auto removed = RemoveComponent(item);
  return std::unique_ptr<TMenuItem>(static_cast<TMenuItem*>(removed.release()));
}

void TPopupMenu::Popup(std::int32_t x, std::int32_t y) {
  if (const auto service = FindService<IMenuService>()) service->Popup(*this, x, y);
}

}  // namespace fmx
