// The edit control without a presentation of the system's: presentations, focus, styles, menus.
#include "fmx/Edit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fmx/DefaultStyle.h"
#include "fmx/Exceptions.h"
#include "fmx/Form.h"
#include "fmx/Menu.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Style.h"

namespace {

using fmx::TEdit;

std::vector<std::string>& Told() {
  static std::vector<std::string> told;
  return told;
}

class TTelling : public fmx::TStyledPresentation {
 public:
  explicit TTelling(fmx::TPresentedControl& control) : TStyledPresentation(control) {}
  ~TTelling() override {
    FreeStyleLookup();
    Told().push_back("gone");
  }
  void Dispatch(fmx::TMessage& message) override {
    if (message.Id == fmx::PMInit) Told().push_back("init");
    if (message.Id == fmx::PMDoBeforeExit) Told().push_back("before exit");
    if (message.Id == fmx::MMTextChanged) Told().push_back("text");
    if (message.Id == fmx::PMGetTextContentRect) message.Value = fmx::TRectF{1, 2, 3, 4};
  }
  void DoEnter() override { Told().push_back("enter"); }
  void DoExit() override { Told().push_back("exit"); }
  void KeyDown(fmx::TKeyEvent& event) override { event.SetHandled(); }

 protected:
  void ApplyStyle() override { Told().push_back("style"); }
  void FreeStyle() override { Told().push_back("no style"); }
};

class EditControl : public ::testing::Test {
 protected:
  void SetUp() override {
    Told().clear();
    fmx::TPresentationProxyFactory::Current().Replace("Telling", &fmx::TStyledPresentationProxy<TTelling>::Make);
  }
  void TearDown() override { fmx::TPresentationProxyFactory::Current().Unregister("Telling"); }
};

TEST_F(EditControl, MakesItsPresentationWhenItIsNeededAndFreesItWithItself) {
  {
    TEdit edit;
    edit.SetPresentationName("Telling");
    edit.SetSize({100, 30});
    EXPECT_FALSE(edit.HasPresentation());
    ASSERT_NE(edit.Presentation(), nullptr);
    EXPECT_EQ(edit.Presentation()->Size(), edit.Size());
    EXPECT_EQ(edit.Presentation()->Parent(), &edit);
    edit.SetSize({120, 30});
    EXPECT_EQ(edit.Presentation()->Width(), 120);
    edit.SetText(u"a");
    EXPECT_EQ(edit.TextContentRect(), (fmx::TRectF{1, 2, 3, 4}));
  }
  EXPECT_EQ(Told(), (std::vector<std::string>{"style", "init", "text", "no style", "gone"}));
}

TEST_F(EditControl, WorksWithoutAPresentation) {
  TEdit edit;
  edit.SetPresentationName("None of that name");
  EXPECT_EQ(edit.Presentation(), nullptr);
  edit.SetText(u"abc");
  edit.SelectAll();
  EXPECT_EQ(edit.Model().SelectedText(), u"abc");
  edit.DeleteSelection();
  EXPECT_EQ(edit.Text(), u"");
  EXPECT_FALSE(edit.ShowContextMenu({}));
}

TEST_F(EditControl, APresentationIsMadeForPresentedControlsAlone) {
  fmx::TControl plain;
  EXPECT_THROW(fmx::TPresentationProxyFactory::Current().CreatePresentationProxy("Telling", plain),
               fmx::EInvalidOperation);
}

TEST_F(EditControl, ThePresentationHearsOfTheFocusAndOfKeys) {
  fmx::TCustomForm form;
  TEdit edit;
  edit.SetPresentationName("Telling");
  edit.SetRoot(&form);
  edit.SetFocus();
  EXPECT_TRUE(edit.IsFocused());
  fmx::TKeyEvent key{fmx::Keys::Left, 0, {}};
  form.KeyDown(key);
  EXPECT_TRUE(key.IsHandled());
  form.SetFocused(nullptr);
  EXPECT_EQ(Told(), (std::vector<std::string>{"style", "init", "enter", "before exit", "exit"}));
  edit.SetEnabled(false);
  edit.SetFocus();
  EXPECT_FALSE(edit.IsFocused());
}

TEST_F(EditControl, SelectionsLeaveTheCaretAtTheirEnd) {
  TEdit edit;
  edit.SetText(u"abc def");
  edit.SelectAll();
  EXPECT_EQ(edit.Model().CaretPosition(), 7);
  EXPECT_EQ(edit.Model().SelStart(), 7);
  EXPECT_EQ(edit.Model().SelLength(), -7);
  EXPECT_EQ(edit.GetSelStart(), 0);
  EXPECT_EQ(edit.GetSelLength(), 7);
  edit.ResetSelection();
  EXPECT_EQ(edit.Model().CaretPosition(), 0);
  EXPECT_FALSE(edit.Model().HasSelection());
  edit.SelectWord();
  EXPECT_EQ(edit.Model().SelectedText(), u"abc");
  edit.Model().SetReadOnly(true);
  edit.DeleteSelection();
  EXPECT_EQ(edit.Text(), u"abc def");
}

// --- Styles ---

TEST_F(EditControl, TheBuiltInStyleHasEveryPartInBothPalettes) {
  for (const auto palette : {fmx::TStylePalette::Light, fmx::TStylePalette::Dark}) {
    fmx::SetDefaultStylePalette(palette);
    const auto style = fmx::TStyleManager::CreateStyle("editstyle");
    ASSERT_NE(style, nullptr);
    for (const char* name : {"content", "prompt", "buttons", "leftbuttons"})
      EXPECT_NE(dynamic_cast<fmx::TControl*>(style->FindStyleResource(name)), nullptr) << name;
    for (const char* name : {"selection", "foreground", "selectionfg"})
      EXPECT_NE(dynamic_cast<fmx::TBrushObject*>(style->FindStyleResource(name)), nullptr) << name;
    for (const char* name : {"leftselectionpoint", "rightselectionpoint"})
      EXPECT_NE(dynamic_cast<fmx::TSelectionPoint*>(style->FindStyleResource(name)), nullptr) << name;
    EXPECT_NE(dynamic_cast<fmx::TColorObject*>(style->FindStyleResource("caretcolor")), nullptr);
    EXPECT_NE(dynamic_cast<fmx::IFontObject*>(style->FindStyleResource("font")), nullptr);
    EXPECT_EQ(style->FindStyleResource("nothing"), nullptr);
    EXPECT_EQ(style->FindStyleResource(""), nullptr);
  }
  EXPECT_NE(fmx::StyleForegroundColor(fmx::TStylePalette::Light), fmx::StyleForegroundColor(fmx::TStylePalette::Dark));
  fmx::SetDefaultStylePalette(fmx::TStylePalette::Light);
}

TEST_F(EditControl, AStyleIsFoundByTheClassUnlessItIsNamed) {
  TEdit edit;
  EXPECT_EQ(edit.ResultingStyleLookup(), "editstyle");
  edit.SetStyleLookup("own");
  EXPECT_EQ(edit.ResultingStyleLookup(), "own");
  edit.ApplyStyleLookup();
  EXPECT_EQ(edit.ResourceControl(), nullptr);
}

TEST_F(EditControl, PaintingMovesAndHides) {
  fmx::TControl outer;
  fmx::TControl inner;
  inner.SetParent(&outer);
  outer.SetPosition({10, 20});
  inner.SetBounds(1, 2, 30, 40);
  inner.SetOpacity(0.5F);
  outer.SetOpacity(0.5F);
  EXPECT_EQ(inner.AbsoluteOpacity(), 0.25F);
  EXPECT_EQ(inner.LocalToAbsolute({0, 0}), (fmx::TPointF{11, 22}));
  EXPECT_EQ(inner.AbsoluteToLocal({11, 22}), (fmx::TPointF{0, 0}));
  inner.OnPaint = [](fmx::TControl&, fmx::TCanvas& canvas, const fmx::TRectF& rect) { canvas.FillRect(rect, 1); };
  fmx::TRecordingCanvas canvas(100, 100);
  canvas.BeginScene();
  outer.PaintTo(canvas);
  auto fills = canvas.CallsOf(fmx::TRecordedCall::TKind::FillRect);
  ASSERT_EQ(fills.size(), 1U);
  EXPECT_EQ(fills[0].Rect, (fmx::TRectF{0, 0, 30, 40}));
  EXPECT_EQ(fills[0].DeviceMatrix, fmx::TMatrix::Translation(11, 22));
  inner.SetVisible(false);
  canvas.Forget();
  outer.PaintTo(canvas);
  canvas.EndScene();
  EXPECT_TRUE(canvas.CallsOf(fmx::TRecordedCall::TKind::FillRect).empty());
}

// --- Menus ---

TEST_F(EditControl, MenuItemsKeepTheirOrderAndSeparatorsAreNotChosen) {
  fmx::TPopupMenu menu;
  const auto item = [](std::u16string_view text) {
    auto made = std::make_unique<fmx::TMenuItem>();
    made->Text = text;
    return made;
  };
  int clicks = 0;
  auto& last = menu.AddItem(item(u"c"));
  auto& first = menu.InsertItem(0, item(u"-"));
  menu.InsertItem(1, item(u"b"));
  EXPECT_EQ(menu.Item(0), &first);
  EXPECT_EQ(menu.Item(2), &last);
  EXPECT_EQ(menu.Item(3), nullptr);
  for (auto* each : {&first, &last}) each->OnClick = [&](fmx::TMenuItem&) { ++clicks; };
  first.Click();
  EXPECT_EQ(clicks, 0);
  last.Click();
  EXPECT_EQ(clicks, 1);
  last.Enabled = false;
  last.Click();
  EXPECT_EQ(clicks, 1);
  const auto removed = menu.RemoveItem(first);
  EXPECT_EQ(removed->Owner(), nullptr);
  EXPECT_EQ(menu.ItemCount(), 2);
}

}  // namespace
