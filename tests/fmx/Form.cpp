#include "fmx/Form.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fmx/Screen.h"
#include "fmx/Services.h"

namespace {

using fmx::Keys;
using fmx::TBiDiMode;
using fmx::TCustomForm;
using fmx::TKeyEvent;
using fmx::TScreen;

// A control that types what it gets.
class TBox : public fmx::TComponent, public fmx::TFocusable {
 public:
  explicit TBox(std::string name, std::vector<std::string>* notes = nullptr) : FName(std::move(name)), FNotes(notes) {}
  ~TBox() override {
    if (AtEnd) AtEnd();
  }

  void DoEnter() override { Note(IsFocused() ? "in " : "in, unfocused "); }
  void DoExit() override {
    Note(IsFocused() ? "out, focused " : "out ");
    if (AtExit) AtExit();
  }
  void KeyDown(TKeyEvent& event) override {
    Events.push_back(event);
    if (event.KeyChar != 0) event.SetHandled();
  }

  std::vector<TKeyEvent> Events;
  std::function<void()> AtExit, AtEnd;

 private:
  void Note(const std::string& what) {
    if (FNotes != nullptr) FNotes->push_back(what + FName);
  }

  std::string FName;
  std::vector<std::string>* FNotes;
};

using TNotes = std::vector<std::string>;

TEST(Form, ReadsFromLeftToRightUntilToldOtherwise) {
  TCustomForm form;
  fmx::IRoot& root = form;
  EXPECT_EQ(root.GetBiDiMode(), TBiDiMode::LeftToRight);
  form.SetBiDiMode(TBiDiMode::RightToLeft);
  EXPECT_EQ(root.GetBiDiMode(), TBiDiMode::RightToLeft);
  EXPECT_EQ(static_cast<int>(root.GetBiDiMode()), 1);
  EXPECT_EQ(root.GetObject(), &form);
}

TEST(Form, TheActiveOneGivesTheDirection) {
  EXPECT_EQ(TScreen::ActiveForm(), nullptr);
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::LeftToRight);
  TCustomForm other;
  {
    TCustomForm form;
    form.SetBiDiMode(TBiDiMode::RightToLeft);
    EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::LeftToRight);
    form.Activate();
    EXPECT_TRUE(form.IsActive());
    EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::RightToLeft);
    other.Activate();
    EXPECT_FALSE(form.IsActive());
    EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::LeftToRight);
    form.Activate();
  }
  EXPECT_EQ(TScreen::ActiveForm(), nullptr);
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::LeftToRight);
}

class TScaleOnly : public fmx::IScreenService {
 public:
  float GetScreenScale() override { return 2; }
};

class TOwnForms : public TScaleOnly {
 public:
  TBiDiMode GetActiveFormBiDiMode() override { return TBiDiMode::LeftToRight; }
};

TEST(Form, AScreenServiceMayAnswerForFormsOfItsOwn) {
  TCustomForm form;
  form.SetBiDiMode(TBiDiMode::RightToLeft);
  form.Activate();
  fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
  fmx::TPlatformServices& services = *fmx::TPlatformServices::Current();
  services.AddPlatformService(fmx::IScreenService::Guid, std::make_shared<TScaleOnly>());
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::RightToLeft);
  services.AddPlatformService(fmx::IScreenService::Guid, std::make_shared<TOwnForms>());
  EXPECT_EQ(fmx::ActiveFormBiDiMode(), TBiDiMode::LeftToRight);
  fmx::TPlatformServices::SetCurrent(nullptr);
}

// Every set of ten states: settled exactly when nothing but 1, 5 and 9 is in it.
TEST(Form, IsSettledInTheThreeNamedStatesAlone) {
  int settled = 0;
  for (unsigned bits = 0; bits < 1024; ++bits)
    if (fmx::IsSettled(fmx::TFormState::FromBits(static_cast<std::uint16_t>(bits)))) {
      EXPECT_EQ(bits & ~(1U << 1 | 1U << 5 | 1U << 9), 0U);
      ++settled;
    }
  EXPECT_EQ(settled, 8);
  TCustomForm form;
  EXPECT_TRUE(fmx::IsSettled(form.GetFormState()));
  form.SetFormState(fmx::TFormState::FromBits(1));
  EXPECT_FALSE(fmx::IsSettled(form.GetFormState()));
}

TEST(Focus, GoesFromOneControlToTheNext) {
  TNotes notes;
  TCustomForm form;
  TBox a("a", &notes), b("b", &notes);
  EXPECT_EQ(form.GetFocused(), nullptr);
  form.SetFocused(&a);
  form.SetFocused(&a);
  EXPECT_TRUE(a.IsFocused());
  form.SetFocused(&b);
  EXPECT_EQ(form.GetFocused(), &b);
  EXPECT_FALSE(a.IsFocused());
  form.SetFocused(nullptr);
  EXPECT_EQ(form.GetFocused(), nullptr);
  EXPECT_EQ(notes, (TNotes{"in a", "out a", "in b", "out b"}));
}

TEST(Focus, MovedOnByAControlThatLosesItStaysThere) {
  TNotes notes;
  TCustomForm form;
  TBox a("a", &notes), b("b", &notes), c("c", &notes);
  form.SetFocused(&a);
  a.AtExit = [&] { form.SetFocused(&c); };
  form.SetFocused(&b);
  EXPECT_EQ(form.GetFocused(), &c);
  EXPECT_FALSE(b.IsFocused());
  EXPECT_EQ(notes, (TNotes{"in a", "out a", "out b", "in c"}));
}

TEST(Focus, OutlivesNoControl) {
  TCustomForm form;
  {
    TBox box("a");
    form.SetFocused(&box);
  }
  EXPECT_EQ(form.GetFocused(), nullptr);

  TBox last("last");
  auto next = std::make_unique<TBox>("next");
  form.SetFocused(&last);
  last.AtExit = [&] { next.reset(); };
  form.SetFocused(next.get());
  EXPECT_EQ(form.GetFocused(), nullptr);
}

TEST(Focus, OutlivesNoRoot) {
  TBox box("a");
  {
    TCustomForm form;
    form.SetFocused(&box);
  }
  EXPECT_FALSE(box.IsFocused());
}

TEST(Focus, IsInOneRootAtATime) {
  TCustomForm first, second;
  TBox box("a");
  first.SetFocused(&box);
  second.SetFocused(&box);
  EXPECT_EQ(first.GetFocused(), nullptr);
  EXPECT_EQ(second.GetFocused(), &box);
  EXPECT_TRUE(box.IsFocused());
}

TEST(Focus, OwnedControlsFindTheirFormWhole) {
  int asked = 0;
  {
    TCustomForm form;
    TBox& box = form.InsertComponent(std::make_unique<TBox>("a"));
    form.SetFocused(&box);
    box.AtEnd = [&] {
      const fmx::IRoot& root = form;
      EXPECT_EQ(root.GetFocused(), &box);
      EXPECT_TRUE(form.IsDestroying() && box.IsDestroying());
      ++asked;
    };
  }
  EXPECT_EQ(asked, 1);
}

TEST(KeyDelivery, AKeyGoesToTheFocusedControl) {
  TCustomForm form;
  TBox a("a"), b("b");
  form.SetFocused(&b);
  EXPECT_TRUE(fmx::DeliverKey(form, 65, u"a", {}));
  EXPECT_FALSE(fmx::DeliverKey(form, Keys::Left, u"", {}));
  EXPECT_TRUE(a.Events.empty());
  EXPECT_EQ(b.Events, (std::vector<TKeyEvent>{{Keys::None, u'a', {}}, {Keys::Left, 0, {}}}));
}

TEST(KeyDelivery, ACharacterOfTwoUnitsIsTwoCalls) {
  TCustomForm form;
  TBox box("a");
  form.SetFocused(&box);
  EXPECT_TRUE(fmx::DeliverKey(form, Keys::None, u"\U0001F600", {}));
  EXPECT_EQ(box.Events, (std::vector<TKeyEvent>{{Keys::None, 0xD83D, {}}, {Keys::None, 0xDE00, {}}}));
}

TEST(KeyDelivery, WithoutAFocusedControlNothingIsHandled) {
  TCustomForm form;
  EXPECT_FALSE(fmx::DeliverKey(form, 65, u"a", {}));
  EXPECT_FALSE(fmx::DeliverKey(form, Keys::None, u"", {}));
}

TEST(KeyDelivery, WhatHasNeitherFormGoesNowhere) {
  TCustomForm form;
  TBox box("a");
  form.SetFocused(&box);
  for (TKeyEvent event :
       {TKeyEvent{Keys::Backspace, u'\b', {}}, TKeyEvent{Keys::None, u'\b', {}}, TKeyEvent{65, u'a', {}}, TKeyEvent{}})
    form.KeyDown(event);
  EXPECT_TRUE(box.Events.empty());
}

}  // namespace
