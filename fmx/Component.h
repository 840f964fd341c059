// The base of the framework's long-lived objects: forms, controls, menus.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "rtl/Sets.h"

namespace fmx {

// Loading: its values still come from a stream. Destroying: it is on its way out, so nothing should be computed for it
// any more. Designing: it is shown in a designer and not in a running application.
enum class TComponentStateItem : std::uint8_t { Loading, Destroying, Designing };
using TComponentState = rtl::TSet<TComponentStateItem, std::uint8_t>;

// Has an owner, which frees it, a state, and brackets that hold back its updates. Neither copied nor moved, for its
// owner and what it owns hold its address. Main thread.
class TComponent {
 public:
  TComponent() = default;
  // Frees what it owns, what came last first. Also leaves the owner, so a component may be freed before it.
  virtual ~TComponent();
  TComponent(const TComponent&) = delete;
  TComponent& operator=(const TComponent&) = delete;

  // --- Owner ---

  // Null for one that belongs to no other component. Borrowed.
  TComponent* Owner() const { return FOwner; }

  // Takes the component into its care, behind those it owns already, and hands it back; a designing owner makes it
  // designing. Raises EArgumentNilException for none and EInvalidOperation where it owns this one, directly or not; the
  // caller keeps it then. Example: TComponent& menu = form.InsertComponent(std::make_unique<TComponent>()).
  template <typename T>
  T& InsertComponent(std::unique_ptr<T>&& component) {
    static_assert(std::is_base_of_v<TComponent, T>);
    CheckInsert(component.get());
    T& inserted = *component;
    FComponents.push_back(std::move(component));
    Adopt(inserted);
    return inserted;
  }

  // Gives a component back, which then has no owner. Null where this one does not own it.
  std::unique_ptr<TComponent> RemoveComponent(TComponent& component);

  // Those it owns itself, 0-based; null outside 0 to ComponentCount() - 1.
  std::int32_t ComponentCount() const { return static_cast<std::int32_t>(FComponents.size()); }
  TComponent* Component(std::int32_t index) const;

  // --- Style ---

  // The name under which a part of a style is looked up; empty for what is no such part. ASCII.
  const std::string& StyleName() const { return FStyleName; }
  void SetStyleName(std::string_view name) { FStyleName = name; }
  // The part of that name among all that it owns, directly or not, depth first; null where there is none, or for "".
  // Borrowed.
  TComponent* FindStyleResource(std::string_view name) const;

  // --- State ---

  TComponentState ComponentState() const { return FState; }
  bool IsLoading() const { return FState.Contains(TComponentStateItem::Loading); }
  bool IsDestroying() const { return FState.Contains(TComponentStateItem::Destroying); }
  bool IsDesigning() const { return FState.Contains(TComponentStateItem::Designing); }

  // A reader of streams brackets its work with these, for each component it fills. A class overrides Loaded to compute
  // what it held back, and calls the base first.
  void BeginLoading() { FState.Include(TComponentStateItem::Loading); }
  virtual void Loaded() { FState.Exclude(TComponentStateItem::Loading); }

  // Of this component and of all that it owns.
  void SetDesigning(bool value);

  // Marks this component, and all that it owns, as being destroyed; there is no way back. Owners call it before they
  // free. A class whose own destructor changes things that would update it calls it there first.
  void Destroying();

  // --- Updates ---

  // Between these, which nest, a component holds back what its changes would make it do. EndUpdate without BeginUpdate
  // does nothing.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate();
  bool IsUpdating() const { return FUpdating > 0; }

 protected:
  // Frees what it owns, what came last first. For a class whose owned components need it whole while they go: its
  // destructor calls Destroying and then this.
  void DestroyComponents();

  // Called by the EndUpdate that closes the outermost bracket, with IsUpdating() false: makes up for what was held
  // back. Also while the component loads or is destroyed, so ask for these. Must not bracket this component itself.
  virtual void DoEndUpdate() {}

 private:
  void CheckInsert(const TComponent* component) const;
  void Adopt(TComponent& component);
  void Include(TComponentStateItem item, bool value);

  TComponent* FOwner = nullptr;
  std::string FStyleName;
  std::vector<std::unique_ptr<TComponent>> FComponents;
  TComponentState FState;
  std::int64_t FUpdating = 0;
};

}  // namespace fmx
