#include "fmx/ListPicker.h"

#include <gtest/gtest.h>

namespace {

class TPicker : public fmx::TCustomListPicker {
 public:
  void Show() override { FShown = true; }
  void Hide() override { FShown = false; }
  bool IsShown() const override { return FShown; }
  using TCustomListPicker::Choose;

  int Changes = 0;

 protected:
  void Changed() override { ++Changes; }

 private:
  bool FShown = false;
};

class TPickers : public fmx::IPickerService {
 public:
  std::unique_ptr<fmx::TCustomListPicker> CreateListPicker() override { return std::make_unique<TPicker>(); }
};

TEST(ListPicker, KeepsAnItemOfItsListOrNone) {
  TPicker picker;
  EXPECT_EQ(picker.ItemIndex(), -1);
  EXPECT_EQ(picker.PreferredDisplayIndex, -1);
  picker.SetItemIndex(0);
  EXPECT_EQ(picker.ItemIndex(), -1);
  picker.SetValues({u"one", u"two", u"three"});
  picker.SetItemIndex(2);
  EXPECT_EQ(picker.ItemIndex(), 2);
  picker.SetValues({u"one", u"two", u"four"});
  EXPECT_EQ(picker.ItemIndex(), 2);
  picker.SetValues({u"one"});
  EXPECT_EQ(picker.Values().size(), 1U);
  EXPECT_EQ(picker.ItemIndex(), -1);
  picker.SetItemIndex(0);
  picker.SetItemIndex(-5);
  EXPECT_EQ(picker.ItemIndex(), -1);
  EXPECT_EQ(picker.Changes, 7);
}

TEST(ListPicker, TellsOfThePersonsChoiceAlone) {
  TPicker picker;
  picker.SetValues({u"one", u"two"});
  std::vector<int> chosen;
  picker.OnValueChanged = [&](fmx::TCustomListPicker& sender, int index) {
    EXPECT_EQ(&sender, &picker);
    EXPECT_EQ(sender.ItemIndex(), index);
    chosen.push_back(index);
    sender.OnValueChanged = nullptr;
  };
  picker.SetItemIndex(0);
  EXPECT_TRUE(chosen.empty());
  picker.Choose(2);
  picker.Choose(-1);
  EXPECT_EQ(picker.ItemIndex(), 0);
  EXPECT_TRUE(chosen.empty());
  picker.Choose(1);
  picker.Choose(0);
  EXPECT_EQ(chosen, std::vector<int>{1});
  EXPECT_EQ(picker.ItemIndex(), 0);
}

TEST(ListPicker, ComesFromThePlatform) {
  EXPECT_EQ(fmx::CreateListPicker(), nullptr);
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  EXPECT_EQ(fmx::CreateListPicker(), nullptr);
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::IPickerService::Guid, std::make_shared<TPickers>());
  const auto picker = fmx::CreateListPicker();
  fmx::TPlatformServices::SetCurrent(nullptr);
  ASSERT_NE(picker, nullptr);
  EXPECT_FALSE(picker->IsShown());
  picker->Show();
  EXPECT_TRUE(picker->IsShown());
}

}  // namespace
