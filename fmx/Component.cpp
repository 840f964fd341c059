#include "fmx/Component.h"

#include <algorithm>

#include "fmx/Exceptions.h"
#include "fmx/ResourceStrings.h"

namespace fmx {

TComponent::~TComponent() {
  Destroying();
  DestroyComponents();
  // Whoever frees an owned component directly has taken it out of its owner's hands.
  if (FOwner != nullptr) static_cast<void>(FOwner->RemoveComponent(*this).release());
}

void TComponent::DestroyComponents() {
  while (!FComponents.empty()) {
    // Out of the list first: the component's destructor may look at its owner's list, or change it.
    const std::unique_ptr<TComponent> last = std::move(FComponents.back());
    FComponents.pop_back();
    last->FOwner = nullptr;
  }
}

std::unique_ptr<TComponent> TComponent::RemoveComponent(TComponent& component) {
  const auto found = std::find_if(FComponents.begin(), FComponents.end(),
                                  [&](const auto& owned) { return owned.get() == &component; });
  if (found == FComponents.end()) return nullptr;
  std::unique_ptr<TComponent> removed = std::move(*found);
  FComponents.erase(found);
  removed->FOwner = nullptr;
  return removed;
}

TComponent* TComponent::Component(std::int32_t index) const {
  return index >= 0 && index < ComponentCount() ? FComponents[static_cast<std::size_t>(index)].get() : nullptr;
}

void TComponent::SetDesigning(bool value) {
  Include(TComponentStateItem::Designing, value);
}

void TComponent::Destroying() {
  Include(TComponentStateItem::Destroying, true);
}

void TComponent::EndUpdate() {
  if (FUpdating == 0 || --FUpdating > 0) return;
  DoEndUpdate();
}

void TComponent::CheckInsert(const TComponent* component) const {
  if (component == nullptr) throw EArgumentNilException(std::string(SArgumentCanNotBeNil));
  for (const TComponent* above = this; above != nullptr; above = above->FOwner)
    if (above == component) throw EInvalidOperation(std::string(SCircularOwnership));
}

void TComponent::Adopt(TComponent& component) {
  component.FOwner = this;
  if (IsDesigning()) component.SetDesigning(true);
}

void TComponent::Include(TComponentStateItem item, bool value) {
  if (value)
    FState.Include(item);
  else
    FState.Exclude(item);
  for (const auto& owned : FComponents) owned->Include(item, value);
}

TComponent* TComponent::FindStyleResource(std::string_view name) const {
  if (name.empty()) return nullptr;
  for (const auto& each : FComponents) {
    if (each->FStyleName == name) return each.get();
    if (TComponent* const found = each->FindStyleResource(name)) return found;
  }
  return nullptr;
}

}  // namespace fmx
