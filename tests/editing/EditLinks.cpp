// What the box asks of those who bind it to data, and tells them.
#include <string>
#include <vector>

#include "fmx/Observers.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using TTold = std::vector<std::string>;

// Both links to a field and an expression of it; each writes down what it hears.
class TLink : public fmx::IEditLinkObserver {
 public:
  explicit TLink(TTold& told) : FTold(told) {}
  bool Edit() override {
    FTold.emplace_back(Allows ? "edit" : "refused");
    return Allows;
  }
  bool IsEditing() const override { return Editing; }
  bool IsReadOnly() const override { return !Allows; }
  bool IsValidChar(char16_t c) const override { return c != u'!'; }
  void Modified() override { FTold.emplace_back("modified"); }
  void Update() override { FTold.emplace_back("update"); }
  void Reset() override { FTold.emplace_back("reset"); }

  bool Allows = true;
  bool Editing = true;

 private:
  TTold& FTold;
};

class TValue : public fmx::IControlValueObserver {
 public:
  explicit TValue(TTold& told) : FTold(told) {}
  void Modified() override { FTold.emplace_back("value modified"); }
  void Update() override { FTold.emplace_back("value update"); }

 private:
  TTold& FTold;
};

class EditLinks : public EditTest {
 protected:
  EditLinks() {
    Show(u"abc");
    FBox.Edit().Observers().EditLink = &FLink;
  }
  ~EditLinks() override { FBox.Edit().Observers() = {}; }

  void BindValue() { FBox.Edit().Observers().ControlValue = &FValue; }
  void BindValueAlone() { FBox.Edit().Observers() = {nullptr, &FValue}; }
  void Character(char16_t c) { FBox.Key({Keys::None, c, {}}); }
  TTold Told() { return std::exchange(FTold, {}); }

  TTold FTold;
  TLink FLink{FTold};
  TValue FValue{FTold};
};

TEST_F(EditLinks, KeysThatDeleteOrPasteAskFirst) {
  At(1);
  Key(Keys::Backspace);
  EXPECT_EQ(Told(), (TTold{"edit", "modified"}));
  Key(Keys::Delete);
  EXPECT_EQ(Told(), (TTold{"edit", "modified"}));
  EXPECT_EQ(Seen(), u"|c");
  FBox.Clipboard().SetText(u"x");
  Key(Keys::Insert, Shift);
  EXPECT_EQ(Told(), (TTold{"edit", "modified"}));
  EXPECT_EQ(Seen(), u"x|c");
}

TEST_F(EditLinks, ARefusalTakesTheKeyAndChangesNothing) {
  FLink.Allows = false;
  FLink.Editing = false;
  FBox.Clipboard().SetText(u"x");
  At(1);
  const auto refused = [&](const std::string& what) {
    EXPECT_EQ(Told(), (TTold{"refused", "reset"})) << what;
    EXPECT_TRUE(FBox.LastKeyHandled()) << what;
    EXPECT_EQ(Seen(), u"a|bc") << what;
  };
  Key(Keys::Backspace);
  refused("Backspace");
  Key(Keys::Delete);
  refused("Delete");
  Key(Keys::Insert, Shift);
  refused("Shift+Insert");
  for (const char16_t c : {u'\x8', u'\x16', u'\x18', u' ', u'x', u'س', u'\xFFFF'}) {
    Character(c);
    refused("character " + std::to_string(c));
  }
}

TEST_F(EditLinks, KeysThatChangeNothingDoNotAsk) {
  FLink.Allows = false;
  FLink.Editing = false;
  for (const Keys::TCode key : {Keys::Left, Keys::Right, Keys::Home, Keys::End, Keys::Up, Keys::Tab, Keys::Insert}) {
    Key(key);
    EXPECT_EQ(Told(), TTold{}) << key;
  }
  Key(Keys::Insert, Ctrl);
  Key('C', Ctrl);
  Character(9);
  EXPECT_EQ(Told(), TTold{});
  FLink.Editing = true;
  Key(Keys::Left);
  EXPECT_EQ(Told(), TTold{"modified"}) << "any key counts while the field is edited";
}

TEST_F(EditLinks, ACharacterThatTheFieldCannotTakeIsSwallowed) {
  Character(u'!');
  EXPECT_EQ(Told(), TTold{});
  EXPECT_TRUE(FBox.LastKeyHandled());
  EXPECT_EQ(Seen(), u"|abc");
}

TEST_F(EditLinks, AFieldThatIsNotBeingEditedIsNotModified) {
  FLink.Editing = false;
  Type(u"x");
  EXPECT_EQ(Told(), TTold{"edit"});
  EXPECT_EQ(Seen(), u"x|abc");
}

TEST_F(EditLinks, EscResetsAndSelectsAll) {
  BindValue();
  Character(27);
  EXPECT_EQ(Told(), TTold{"reset"}) << "and is no change of the value";
  EXPECT_EQ(Seen(), u"^abc|");
  EXPECT_TRUE(FBox.LastKeyHandled());
  FBox.Edit().Observers() = {};
  Key(Keys::Home);
  Character(27);
  EXPECT_EQ(Seen(), u"|abc");
  EXPECT_FALSE(FBox.LastKeyHandled()) << "without a link it goes on";
}

TEST_F(EditLinks, TheValueHearsOfEveryKey) {
  BindValueAlone();
  Key(Keys::Left);
  EXPECT_EQ(Told(), TTold{"value modified"});
  Type(u"x");
  EXPECT_EQ(Told(), TTold{"value modified"});
  Model().SetInputSupport(false);
  Key(Keys::Left);
  EXPECT_EQ(Told(), TTold{}) << "a box without input does nothing";
}

TEST_F(EditLinks, ACutIsToldTwiceBesideItsKey) {
  BindValueAlone();
  FBox.Edit().SelectAll();
  Key('X', Ctrl);
  EXPECT_EQ(Told(), (TTold{"value modified", "value modified", "value modified"}));
  EXPECT_EQ(Seen(), u"|");
  Show(u"abc");
  FBox.Edit().SelectAll();
  Key(Keys::Delete);
  EXPECT_EQ(Told(), (TTold{"value modified", "value modified"}));
}

TEST_F(EditLinks, ReturnAndLeavingUpdate) {
  BindValue();
  FLink.Editing = false;
  Key(Keys::Return);
  EXPECT_EQ(Told(), (TTold{"value modified", "update", "value update"}));
  EXPECT_FALSE(FBox.LastKeyHandled());
  FBox.Form().SetFocused(nullptr);
  EXPECT_EQ(Told(), (TTold{"update", "value update"}));
}

TEST_F(EditLinks, WithoutARootLeavingUpdatesNothing) {
  BindValue();
  int changes = 0;
  Model().OnChange = [&] { ++changes; };
  FBox.Edit().SetRoot(nullptr);
  FBox.Edit().SendToPresentation(fmx::PMDoBeforeExit);
  EXPECT_EQ(Told(), TTold{});
  EXPECT_EQ(changes, 0);
  FBox.Edit().SetRoot(&FBox.Form());
}

TEST_F(EditLinks, CtrlZTakesTheFieldsValueBack) {
  BindValue();
  FLink.Editing = false;
  Key('Z', Ctrl);
  EXPECT_EQ(Told(), (TTold{"value modified", "reset", "value update"}));
  EXPECT_TRUE(FBox.LastKeyHandled());
}

TEST_F(EditLinks, ACompositionAsksAndTells) {
  BindValue();
  Edit().GetTextService()->SetMarkedText(u"X", 1);
  Edit().IMEStateUpdated();
  EXPECT_EQ(Told(), (TTold{"edit", "modified", "value modified"}));
  FLink.Allows = false;
  Edit().GetTextService()->SetMarkedText(u"XY", 2);
  Edit().IMEStateUpdated();
  EXPECT_EQ(Told(), TTold{"refused"}) << "the value does not hear of it";
  BindValueAlone();
  Edit().GetTextService()->SetMarkedText(u"", 0);
  Edit().IMEStateUpdated();
  EXPECT_EQ(Told(), TTold{"value modified"});
}

TEST_F(EditLinks, TheMenusDeleteAsksToo) {
  BindValue();
  FBox.Edit().SelectAll();
  FLink.Allows = false;
  Edit().DoDelete();
  EXPECT_EQ(Told(), (TTold{"refused", "reset"}));
  EXPECT_EQ(Seen(), u"^abc|");
  FLink.Allows = true;
  Edit().DoDelete();
  EXPECT_EQ(Told(), (TTold{"edit", "modified", "value modified"}));
  EXPECT_EQ(Seen(), u"|");
}

}  // namespace
}  // namespace orv::testing
