// Spelling and the menu of the box.
#include <memory>

#include "fmx/EditServices.h"
#include "fmx/Menu.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

// Has something against every word that begins with "x".
class TSpeller : public fmx::IFMXSpellCheckerService {
 public:
  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override {
    ++Asked;
    if (!word.starts_with(u'x')) return {};
    return {u"y" + std::u16string(word.substr(1)), u"zz"};
  }
  int Asked = 0;
};

class TMenus : public fmx::IMenuService {
 public:
  void Popup(fmx::TPopupMenu& menu, std::int32_t, std::int32_t) override {
    Texts.clear();
    Enabled.clear();
    Parent = menu.Parent;
    for (std::int32_t i = 0; i < menu.ItemCount(); ++i) {
      Texts.push_back(menu.Item(i)->Text);
      Enabled.push_back(menu.Item(i)->Enabled);
    }
    if (Choice >= 0 && menu.Item(Choice) != nullptr) menu.Item(Choice)->Click();
  }
  std::vector<std::u16string> Texts;
  std::vector<bool> Enabled;
  fmx::TComponent* Parent = nullptr;
  std::int32_t Choice = -1;
};

class EditSpelling : public EditTest {
 protected:
  EditSpelling() : FSpeller(std::make_shared<TSpeller>()), FMenus(std::make_shared<TMenus>()) {
    auto& services = *fmx::TPlatformServices::Current();
    services.AddPlatformService(fmx::IFMXSpellCheckerService::Guid, FSpeller);
    services.AddPlatformService(fmx::IMenuService::Guid, FMenus);
  }
  std::shared_ptr<TSpeller> FSpeller;
  std::shared_ptr<TMenus> FMenus;
};

TEST_F(EditSpelling, MisspeltWordsAreFoundOnceByAPaint) {
  Show(u"ab xc d");
  Model().SetCheckSpelling(true);
  EXPECT_TRUE(Edit().SpellingRegions().empty());
  FBox.Paint();
  ASSERT_EQ(Edit().SpellingRegions().size(), 1U);
  EXPECT_EQ(Edit().SpellingRegions()[0].Left, 25);
  EXPECT_EQ(Edit().SpellingRegions()[0].Right, 45);
  const int asked = FSpeller->Asked;
  FBox.Paint();
  EXPECT_EQ(FSpeller->Asked, asked);
  At(4);
  EXPECT_TRUE(Edit().IsCurrentWordWrong());
  At(0);
  EXPECT_FALSE(Edit().IsCurrentWordWrong());
  Model().SetCheckSpelling(false);
  EXPECT_TRUE(Edit().SpellingRegions().empty());
}

TEST_F(EditSpelling, AWordIsPutInThePlaceOfTheOneAtTheCaret) {
  Show(u"ab xc d");
  Model().SetCheckSpelling(true);
  At(4);
  EXPECT_EQ(Edit().GetListOfPrepositions(), (std::vector<std::u16string>{u"yc", u"zz"}));
  Edit().HighlightSpell();
  EXPECT_TRUE(Model().Caret().TemporarilyHidden());
  Edit().Spell(u"word");
  EXPECT_EQ(Seen(), u"ab word| d");
  EXPECT_FALSE(Model().Caret().TemporarilyHidden());
}

TEST_F(EditSpelling, TheMenuOffersWhatCanBeDone) {
  Show(u"abc");
  EXPECT_TRUE(FBox.Edit().ShowContextMenu({5, 5}));
  EXPECT_EQ(FMenus->Texts, (std::vector<std::u16string>{u"Cut", u"Copy", u"Paste", u"Delete", u"-", u"Select All"}));
  EXPECT_EQ(FMenus->Enabled, (std::vector<bool>{false, false, false, false, true, true}));
  EXPECT_EQ(FMenus->Parent, &FBox.Form());
  EXPECT_EQ(Edit().GetEditPopupMenu().Parent, nullptr);
  FBox.Edit().SelectAll();
  FBox.Clipboard().SetText(u"x");
  FBox.Edit().ShowContextMenu({5, 5});
  EXPECT_EQ(FMenus->Enabled, (std::vector<bool>{true, true, true, true, true, false}));
  Model().SetPassword(true);
  FBox.Edit().ShowContextMenu({5, 5});
  EXPECT_EQ(FMenus->Enabled, (std::vector<bool>{false, false, true, true, true, false}));
  Model().SetPassword(false);
  Model().SetReadOnly(true);
  FBox.Edit().ShowContextMenu({5, 5});
  EXPECT_EQ(FMenus->Enabled, (std::vector<bool>{false, true, false, false, true, false}));
  Model().SetReadOnly(false);
  FMenus->Choice = 0;
  FBox.Edit().ShowContextMenu({5, 5});
  EXPECT_EQ(Model().Text(), u"");
  EXPECT_EQ(FBox.Clipboard().GetText(), u"abc");
}

TEST_F(EditSpelling, SuggestionsStandOnTopAndReplaceTheWord) {
  Show(u"ab xc xd");
  Model().SetCheckSpelling(true);
  FBox.Paint();
  FMenus->Choice = 1;
  FBox.Edit().ShowContextMenu({30, 15});
  ASSERT_EQ(FMenus->Texts.size(), 9U);
  EXPECT_EQ(FMenus->Texts[0], u"yc");
  EXPECT_EQ(FMenus->Texts[2], u"-");
  EXPECT_EQ(FMenus->Texts[3], u"Cut");
  EXPECT_EQ(Model().Text(), u"ab zz xd");
  FMenus->Choice = -1;
  FBox.Paint();
  FBox.Edit().ShowContextMenu({5, 15});
  EXPECT_EQ(FMenus->Texts.size(), 6U) << "the former suggestions have gone";
}

}  // namespace
}  // namespace orv::testing
