#include "fmx/StyledControl.h"

#include <utility>

#include "fmx/Style.h"

namespace fmx {

void TStyledControl::SetStyleLookup(std::string_view lookup) {
  if (lookup == FStyleLookup) return;
  FreeStyleLookup();
  FStyleLookup = lookup;
}

std::string TStyledControl::ResultingStyleLookup() const {
  if (!FStyleLookup.empty()) return FStyleLookup;
  std::string name(StyleClassName());
  if (name.starts_with('T')) name.erase(0, 1);
  for (char& c : name)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return name + "style";
}

void TStyledControl::ApplyStyleLookup() {
  if (FResource != nullptr) return;
  std::unique_ptr<TControl> style = TStyleManager::CreateStyle(ResultingStyleLookup());
  if (style == nullptr) return;
  FResource = &InsertComponent(std::move(style));
  FResource->SetParent(this);
  FResource->SetSize(Size());
  ApplyStyle();
}

void TStyledControl::FreeStyleLookup() {
  if (FResource == nullptr) return;
  FreeStyle();
  static_cast<void>(RemoveComponent(*std::exchange(FResource, nullptr)));
}

void TStyledControl::Resize() {
  if (FResource != nullptr) FResource->SetSize(Size());
  Realign();
}

}  // namespace fmx
