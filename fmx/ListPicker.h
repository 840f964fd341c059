// The platform's own way to choose from a list.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fmx/PlatformServices.h"

namespace fmx {

// One list to choose from. Sizes are logical units. Main thread.
class TCustomListPicker {
 public:
  TCustomListPicker() = default;
  virtual ~TCustomListPicker() = default;
  TCustomListPicker(const TCustomListPicker&) = delete;
  TCustomListPicker& operator=(const TCustomListPicker&) = delete;

  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual bool IsShown() const = 0;

  // Replaces the list; the chosen item is kept where there still is one of its number.
  void SetValues(std::vector<std::u16string> values);
  const std::vector<std::u16string>& Values() const { return FValues; }

  // 0-based; -1 for none, which any number outside the list becomes. Setting it calls no event.
  std::int32_t ItemIndex() const { return FItemIndex; }
  void SetItemIndex(std::int32_t index);

  // How the list is shown; 0 leaves a size to the platform.
  float ItemHeight = 0;
  float ItemWidth = 0;
  // How many items are seen at once.
  std::int32_t DropDownCount = 8;
  // The display it opens on; -1 for the one the platform would take.
  std::int32_t PreferredDisplayIndex = -1;

  // Called with the number of an item once a person has chosen it.
  std::function<void(TCustomListPicker& sender, std::int32_t index)> OnValueChanged;

 protected:
  // A platform calls it for the choice of a person. An item outside the list is no choice.
  void Choose(std::int32_t index);
  // The list or the chosen item changed; a picker that is shown shows it.
  virtual void Changed() {}

 private:
  bool IsItem(std::int32_t index) const { return index >= 0 && std::cmp_less(index, FValues.size()); }

  std::vector<std::u16string> FValues;
  std::int32_t FItemIndex = -1;
};

class IPickerService : public IPlatformService {
 public:
  static constexpr TGuid Guid = TGuid::Of("{2F3123F7-9393-4F5F-9F28-F5B141E25393}");
  // Null where the platform has pickers, but none for lists.
  virtual std::unique_ptr<TCustomListPicker> CreateListPicker() = 0;
};

// A new picker; null without the service.
std::unique_ptr<TCustomListPicker> CreateListPicker();

}  // namespace fmx
