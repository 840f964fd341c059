// Menus that open over a control.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fmx/Component.h"
#include "fmx/Font.h"
#include "fmx/PlatformServices.h"
#include "fmx/TextTypes.h"

namespace fmx {

class TMenuItem : public TComponent {
 public:
  std::u16string Text;
  bool Enabled = true;
  TFontStyles FontStyle;
  TBiDiMode BiDiMode = TBiDiMode::LeftToRight;
  std::function<void(TMenuItem& sender)> OnClick;

  // For what made it; 0 at first.
  std::int64_t Tag = 0;

  // SMenuSeparator: a line between the items, which cannot be chosen.
  bool IsSeparator() const;
  // Calls OnClick, unless it cannot be chosen.
  void Click();
};

// Owns its items, which stand in their own order. Main thread.
class TPopupMenu : public TComponent {
 public:
  std::int32_t ItemCount() const { return static_cast<std::int32_t>(FItems.size()); }
  // Null outside 0 to ItemCount() - 1. Borrowed.
  TMenuItem* Item(std::int32_t index) const;
  // Adds an item at the end, or before the one of that number.
  TMenuItem& AddItem(std::unique_ptr<TMenuItem> item);
  TMenuItem& InsertItem(std::int32_t index, std::unique_ptr<TMenuItem> item);
  // Gives an item back; null where it is not the menu's.
  std::unique_ptr<TMenuItem> RemoveItem(TMenuItem& item);

  // What it opens over: the object of a root while it is open, null otherwise. Borrowed.
  TComponent* Parent = nullptr;
  // For whom it opens. Borrowed.
  TComponent* PopupComponent = nullptr;

  // Shows it at that place of the screen, and comes back when it has closed; the chosen item has been clicked by then.
  // Without a menu service nothing happens.
  void Popup(std::int32_t x, std::int32_t y);

 private:
  std::vector<TMenuItem*> FItems;
};

class IMenuService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{8338A5E1-0D5F-4B51-9D5D-6A0B7E4B2C90}");
  // Shows the menu, and calls Click of the item that is chosen. Comes back when it has closed.
  virtual void Popup(TPopupMenu& menu, std::int32_t x, std::int32_t y) = 0;
};

}  // namespace fmx
