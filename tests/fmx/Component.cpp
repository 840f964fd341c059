#include "fmx/Component.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fmx/Exceptions.h"

namespace {

using fmx::TComponent;

// Writes down when it goes and what it is told.
class TNoted : public TComponent {
 public:
  TNoted(std::string name, std::vector<std::string>& notes) : FName(std::move(name)), FNotes(notes) {}
  ~TNoted() override {
    const std::string owned = Owner() != nullptr ? "owned " : "";
    FNotes.push_back(owned + FName + (IsDestroying() ? " destroyed" : " gone"));
    if (AtEnd) AtEnd();
  }
  void Loaded() override {
    TComponent::Loaded();
    FNotes.push_back(FName + (IsLoading() ? " loads" : " loaded"));
  }

  std::function<void()> AtEnd;

 protected:
  void DoEndUpdate() override { FNotes.push_back(FName + (IsUpdating() ? " updates" : " updated")); }

 private:
  std::string FName;
  std::vector<std::string>& FNotes;
};

class Component : public testing::Test {
 protected:
  std::unique_ptr<TNoted> Make(const std::string& name) { return std::make_unique<TNoted>(name, Notes); }

  std::vector<std::string> Notes;
  using TNotes = std::vector<std::string>;
};

static_assert(!std::is_copy_constructible_v<TComponent> && !std::is_move_constructible_v<TComponent>);

TEST_F(Component, HasNoOwnerAndNoStateAtFirst) {
  const TComponent component;
  EXPECT_EQ(component.Owner(), nullptr);
  EXPECT_EQ(component.ComponentCount(), 0);
  EXPECT_EQ(component.Component(0), nullptr);
  EXPECT_TRUE(component.ComponentState().IsEmpty());
  EXPECT_FALSE(component.IsUpdating());
}

TEST_F(Component, IsFreedWithItsOwnerTheLastFirst) {
  {
    TComponent owner;
    TNoted& a = owner.InsertComponent(Make("a"));
    a.InsertComponent(Make("inner"));
    const TNoted& b = owner.InsertComponent(Make("b"));
    EXPECT_EQ(a.Owner(), &owner);
    EXPECT_EQ(owner.ComponentCount(), 2);
    EXPECT_EQ(owner.Component(0), &a);
    EXPECT_EQ(owner.Component(1), &b);
    EXPECT_EQ(owner.Component(2), nullptr);
    EXPECT_EQ(owner.Component(-1), nullptr);
    EXPECT_EQ(Notes, TNotes{});
  }
  EXPECT_EQ(Notes, (TNotes{"b destroyed", "a destroyed", "inner destroyed"}));
}

TEST_F(Component, CanBeTakenFromItsOwner) {
  std::unique_ptr<TComponent> taken;
  {
    TComponent owner;
    TNoted& a = owner.InsertComponent(Make("a"));
    owner.InsertComponent(Make("b"));
    taken = owner.RemoveComponent(a);
    EXPECT_EQ(taken.get(), &a);
    EXPECT_EQ(a.Owner(), nullptr);
    EXPECT_EQ(owner.ComponentCount(), 1);
    EXPECT_EQ(owner.RemoveComponent(a), nullptr);
  }
  EXPECT_EQ(Notes, TNotes{"b destroyed"});
  EXPECT_FALSE(taken->IsDestroying());
}

TEST_F(Component, FreedBeforeItsOwnerLeavesIt) {
  TComponent owner;
  TComponent* a = &owner.InsertComponent(Make("a"));
  const TComponent& b = owner.InsertComponent(Make("b"));
  delete a;
  EXPECT_EQ(Notes, TNotes{"owned a gone"});
  ASSERT_EQ(owner.ComponentCount(), 1);
  EXPECT_EQ(owner.Component(0), &b);
}

TEST_F(Component, MayChangeTheListOfAnOwnerThatGoes) {
  {
    TComponent owner;
    owner.InsertComponent(Make("a"));
    TNoted& b = owner.InsertComponent(Make("b"));
    b.AtEnd = [&] {
      EXPECT_EQ(owner.ComponentCount(), 1);
      owner.InsertComponent(Make("late"));
    };
  }
  EXPECT_EQ(Notes, (TNotes{"b destroyed", "late gone", "a destroyed"}));
}

TEST_F(Component, CannotOwnItsOwnerOrNothing) {
  auto outer = Make("outer");
  TNoted& inner = outer->InsertComponent(Make("inner"));
  EXPECT_THROW(inner.InsertComponent(std::move(outer)), fmx::EInvalidOperation);
  ASSERT_NE(outer, nullptr);  // it was not taken
  auto self = outer->RemoveComponent(inner);
  EXPECT_THROW(inner.InsertComponent(std::move(self)), fmx::EInvalidOperation);
  ASSERT_NE(self, nullptr);
  EXPECT_THROW(outer->InsertComponent(std::unique_ptr<TComponent>()), fmx::EArgumentNilException);
  EXPECT_EQ(outer->ComponentCount(), 0);
}

TEST_F(Component, IsLoadingUntilItIsLoaded) {
  TNoted component("a", Notes);
  component.BeginLoading();
  EXPECT_TRUE(component.IsLoading());
  component.Loaded();
  EXPECT_FALSE(component.IsLoading());
  EXPECT_EQ(Notes, TNotes{"a loaded"});
}

TEST_F(Component, DesigningHoldsForAllThatIsOwnedNowAndLater) {
  TComponent form;
  TNoted& before = form.InsertComponent(Make("before"));
  form.SetDesigning(true);
  const TNoted& after = form.InsertComponent(Make("after"));
  const TNoted& inner = before.InsertComponent(Make("inner"));
  EXPECT_TRUE(form.IsDesigning() && before.IsDesigning() && after.IsDesigning() && inner.IsDesigning());
  EXPECT_FALSE(form.IsLoading() || form.IsDestroying());
  form.SetDesigning(false);
  EXPECT_FALSE(form.IsDesigning() || before.IsDesigning() || after.IsDesigning() || inner.IsDesigning());
}

TEST_F(Component, DestroyingHoldsForAllThatIsOwned) {
  TComponent form;
  TNoted& child = form.InsertComponent(Make("child"));
  const TNoted& inner = child.InsertComponent(Make("inner"));
  child.Destroying();
  EXPECT_FALSE(form.IsDestroying());
  EXPECT_TRUE(child.IsDestroying() && inner.IsDestroying());
}

TEST_F(Component, OnlyTheOutermostEndOfUpdatesCounts) {
  TNoted component("a", Notes);
  component.BeginUpdate();
  component.BeginUpdate();
  component.EndUpdate();
  EXPECT_TRUE(component.IsUpdating());
  EXPECT_EQ(Notes, TNotes{});
  component.EndUpdate();
  EXPECT_FALSE(component.IsUpdating());
  EXPECT_EQ(Notes, TNotes{"a updated"});
  component.EndUpdate();
  EXPECT_EQ(Notes, TNotes{"a updated"});
  component.BeginUpdate();
  component.EndUpdate();
  EXPECT_EQ(Notes, (TNotes{"a updated", "a updated"}));
}

}  // namespace
