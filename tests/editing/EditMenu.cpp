// The menu of the box: its items, when they can be chosen, what they do, and where it opens.
#include <memory>
#include <string>
#include <vector>

#include "fmx/EditServices.h"
#include "fmx/Menu.h"
#include "fmx/ResourceStrings.h"
#include "fmx/Translate.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using TTexts = std::vector<std::u16string>;

class TSpeller : public fmx::IFMXSpellCheckerService {
 public:
  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override {
    if (word == u"teh") return {u"the", u"ten"};
    return {};
  }
};

class TMenus : public fmx::IMenuService {
 public:
  void Popup(fmx::TPopupMenu& menu, std::int32_t x, std::int32_t y) override {
    Shown = &menu;
    Parent = menu.Parent;
    At = {x, y};
    if (Fails) throw rtl::Exception("no menu");
    if (Act) Act(menu);
  }
  fmx::TPopupMenu* Shown = nullptr;
  fmx::TComponent* Parent = nullptr;
  fmx::TPoint At;
  bool Fails = false;
  std::function<void(fmx::TPopupMenu&)> Act;
};

class EditMenu : public EditTest {
 protected:
  EditMenu() : FMenus(std::make_shared<TMenus>()) {
    auto& services = *fmx::TPlatformServices::Current();
    services.AddPlatformService(fmx::IMenuService::Guid, FMenus);
    services.AddPlatformService(fmx::IFMXSpellCheckerService::Guid, std::make_shared<TSpeller>());
  }
  bool Open(fmx::TPointF point = {5, 5}) { return FBox.Edit().ShowContextMenu(point); }
  void Choose(std::string_view name) {
    FMenus->Act = [this, name](fmx::TPopupMenu&) { Edit().FindContextMenuItem(name)->Click(); };
    Open();
    FMenus->Act = nullptr;
  }
  bool IsEnabled(std::string_view name) { return Edit().FindContextMenuItem(name)->Enabled; }
  TTexts Captions() {
    TTexts texts;
    fmx::TPopupMenu& menu = Edit().GetEditPopupMenu();
    for (std::int32_t i = 0; i < menu.ItemCount(); ++i) texts.push_back(menu.Item(i)->Text);
    return texts;
  }
  // A misspelt word between two right ones, found by a paint.
  void ShowMisspelt(fmx::TTextAlign align = fmx::TTextAlign::Leading) {
    Show(u"ab teh cd", align);
    Model().SetCheckSpelling(true);
    FBox.Paint();
  }
  std::shared_ptr<TMenus> FMenus;
};

TEST_F(EditMenu, HasSixItemsInTheirOrderFiveOfThemWithNames) {
  fmx::TPopupMenu& menu = Edit().GetEditPopupMenu();
  EXPECT_EQ(&menu, &Edit().GetEditPopupMenu()) << "made once";
  const std::pair<std::u16string_view, const char*> items[] = {
      {fmx::SEditCut, "cut"},       {fmx::SEditCopy, "copy"},  {fmx::SEditPaste, "paste"},
      {fmx::SEditDelete, "delete"}, {fmx::SMenuSeparator, ""}, {fmx::SEditSelectAll, "selectall"}};
  ASSERT_EQ(menu.ItemCount(), 6);
  for (std::int32_t i = 0; i < 6; ++i) {
    const auto& [text, name] = items[i];
    EXPECT_EQ(menu.Item(i)->Text, text);
    EXPECT_EQ(menu.Item(i)->StyleName(), name);
    EXPECT_EQ(Edit().FindContextMenuItem(name), *name != '\0' ? menu.Item(i) : nullptr);
    EXPECT_EQ(menu.Item(i)->OnClick != nullptr, *name != '\0');
  }
  EXPECT_EQ(Edit().FindContextMenuItem("undo"), nullptr);
}

TEST_F(EditMenu, ItsCaptionsAreTranslated) {
  fmx::SetTranslator([](std::u16string_view text) { return text == u"Cut" ? u"برش" : std::u16string(text); });
  EXPECT_EQ(Captions()[0], u"برش");
  EXPECT_EQ(Captions()[1], u"Copy");
  fmx::SetTranslator(nullptr);
}

// Every state of the box, against the rules of the items.
TEST_F(EditMenu, ItemsCanBeChosenWhereTheyCanDoSomething) {
  for (int state = 0; state < 64; ++state) {
    const bool selected = (state & 1) != 0;
    const bool whole = (state & 2) != 0;
    const bool readOnly = (state & 4) != 0;
    const bool input = (state & 8) != 0;
    const bool password = (state & 16) != 0;
    const bool clipboard = (state & 32) != 0;
    Model().SetReadOnly(false);
    Model().SetInputSupport(true);
    Show(u"abc");
    Model().SetSelStart(0);
    Model().SetSelLength(selected ? (whole ? 3 : 2) : 0);
    Model().SetReadOnly(readOnly);
    Model().SetInputSupport(input);
    Model().SetPassword(password);
    FBox.Clipboard().SetText(clipboard ? u"x" : u"");
    Open();
    const bool editable = !readOnly && input;
    EXPECT_EQ(IsEnabled("cut"), selected && editable && !password) << state;
    EXPECT_EQ(IsEnabled("copy"), selected && !password) << state;
    EXPECT_EQ(IsEnabled("paste"), clipboard && editable) << state;
    EXPECT_EQ(IsEnabled("delete"), selected && editable) << state;
    EXPECT_EQ(IsEnabled("selectall"), !(selected && whole)) << state;
  }
}

TEST_F(EditMenu, AnEmptyBoxHasNothingToSelect) {
  Show(u"");
  Open();
  EXPECT_FALSE(IsEnabled("selectall"));
}

TEST_F(EditMenu, WithoutAClipboardNothingCanBePasted) {
  FBox.Clipboard().SetText(u"x");
  fmx::TPlatformServices::Current()->RemovePlatformService(fmx::IFMXClipboardService::Guid);
  fmx::TEdit edit;
  edit.SetPresentationName("BoxOfRequests");
  auto& shown = dynamic_cast<TOrvStyledEdit&>(*edit.Presentation());
  edit.ShowContextMenu({});
  EXPECT_FALSE(shown.FindContextMenuItem("paste")->Enabled);
  EXPECT_TRUE(FMenus->Parent == nullptr) << "nor is there a root that it could open over";
}

TEST_F(EditMenu, ItemsDoWhatTheySay) {
  Show(u"abc");
  Choose("selectall");
  EXPECT_EQ(Seen(), u"^abc|");
  Choose("copy");
  EXPECT_EQ(FBox.Clipboard().GetText(), u"abc");
  Choose("delete");
  EXPECT_EQ(Seen(), u"|");
  Choose("paste");
  EXPECT_EQ(Seen(), u"abc|");
  Key(fmx::Keys::Left, Shift);
  Choose("cut");
  EXPECT_EQ(Seen(), u"ab|");
  EXPECT_EQ(FBox.Clipboard().GetText(), u"c");
}

TEST_F(EditMenu, OpensOverTheFormWhereItIsAskedTo) {
  EXPECT_TRUE(Open({10.5F, 11.5F}));
  EXPECT_EQ(FMenus->At, (fmx::TPoint{10, 12})) << "halves go to the even number";
  EXPECT_EQ(FMenus->Parent, &FBox.Form());
  EXPECT_EQ(FMenus->Shown->PopupComponent, &Edit());
  EXPECT_EQ(FMenus->Shown->Parent, nullptr) << "it has closed";
}

TEST_F(EditMenu, LeavesTheFormAlsoWhenItCannotBeShown) {
  FMenus->Fails = true;
  EXPECT_THROW(Open(), rtl::Exception);
  EXPECT_EQ(Edit().GetEditPopupMenu().Parent, nullptr);
}

TEST_F(EditMenu, AMenuOfTheApplicationsStandsInItsPlace) {
  fmx::TPopupMenu own;
  FBox.Edit().PopupMenu = &own;
  EXPECT_TRUE(Open());
  EXPECT_EQ(FMenus->Shown, &own);
  FBox.Edit().PopupMenu = nullptr;
  EXPECT_TRUE(Open());
  EXPECT_EQ(FMenus->Shown, &Edit().GetEditPopupMenu());
}

TEST_F(EditMenu, SuggestionsAreBoldAndKnowTheirPlace) {
  ShowMisspelt();
  Open({30, 15});
  EXPECT_EQ(Captions(), (TTexts{u"the", u"ten", u"-", u"Cut", u"Copy", u"Paste", u"Delete", u"-", u"Select All"}));
  fmx::TPopupMenu& menu = Edit().GetEditPopupMenu();
  for (std::int32_t i = 0; i < 2; ++i) {
    EXPECT_TRUE(menu.Item(i)->FontStyle.Contains(fmx::TFontStyle::Bold));
    EXPECT_EQ(menu.Item(i)->Tag, 3) << "where the press was";
    EXPECT_EQ(menu.Item(i)->BiDiMode, fmx::TBiDiMode::LeftToRight);
  }
  EXPECT_TRUE(menu.Item(2)->IsSeparator());
  menu.Item(1)->Click();
  EXPECT_EQ(Model().Text(), u"ab ten cd");
}

TEST_F(EditMenu, SuggestionsReadAsTheBoxDoes) {
  ShowMisspelt(fmx::TTextAlign::Trailing);
  const fmx::TRectF word = Edit().SpellingRegions().at(0);
  Open({(word.Left + word.Right) / 2, (word.Top + word.Bottom) / 2});
  ASSERT_EQ(Captions().size(), 9U);
  EXPECT_EQ(Edit().GetEditPopupMenu().Item(0)->BiDiMode, fmx::TBiDiMode::RightToLeft);
}

TEST_F(EditMenu, OnlyAMisspeltWordHasSuggestions) {
  ShowMisspelt();
  for (const float x : {5.0F, 70.0F, 150.0F}) {
    Open({x, 15});
    EXPECT_EQ(Captions().size(), 6U) << x;
  }
  Open({30, 15});
  EXPECT_EQ(Captions().size(), 9U);
  Open({30, 29});
  EXPECT_EQ(Captions().size(), 6U) << "below the line; the former ones have gone";
}

TEST_F(EditMenu, SuggestionsGoWithTheSpelling) {
  ShowMisspelt();
  Open({30, 15});
  Model().SetCheckSpelling(false);
  EXPECT_EQ(Captions().size(), 6U);
  EXPECT_TRUE(Edit().SpellingRegions().empty());
}

TEST_F(EditMenu, AnItemOfAnotherMakeWithoutAPlaceCorrectsNothing) {
  ShowMisspelt();
  Open({30, 15});
  fmx::TMenuItem& item = *Edit().GetEditPopupMenu().Item(0);
  item.Tag = -1;
  item.Click();
  EXPECT_EQ(Model().Text(), u"ab teh cd");
  item.Tag = 99;
  item.Click();
  EXPECT_EQ(Model().Text(), u"ab teh cd");
}

}  // namespace
}  // namespace orv::testing
