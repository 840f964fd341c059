// The edit control as an application has it before anything better is installed. A character is 10 wide, a blank 5.
#include "fmx/StyledEdit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "fmx/CanvasManager.h"
#include "fmx/Exceptions.h"
#include "fmx/FixedGlyphs.h"
#include "fmx/Form.h"
#include "fmx/GPUTextLayout.h"
#include "fmx/Menu.h"
#include "fmx/RecordingCanvas.h"
#include "fmx/Services.h"
#include "fmx/Style.h"
#include "fmx/TextLayoutManager.h"

namespace {

using fmx::Keys;
using fmx::TShiftItem;
using fmx::TShiftState;
using TKind = fmx::TRecordedCall::TKind;

constexpr TShiftState None{};
constexpr TShiftState Shift{TShiftItem::Shift};
constexpr TShiftState Ctrl{TShiftItem::Ctrl};
// Of the built-in style.
constexpr float ContentLeft = 6;

class TClipboard : public fmx::IFMXClipboardService {
 public:
  std::u16string GetText() override { return Text; }
  void SetText(std::u16string_view text) override { Text = text; }
  std::u16string Text;
};

class StyledEdit : public testing::Test {
 protected:
  StyledEdit() : FCanvas(300, 100), FClipboard(std::make_shared<TClipboard>()) {
    fmx::TFixedGlyphs::Register();
    fmx::TCanvasManager::RegisterCanvas(fmx::TRecordingCanvas::Class(), true, false);
    fmx::TTextLayoutManager::RegisterTextLayout(fmx::TGPUTextLayout::Class(), fmx::TCanvas::Class());
    fmx::TPlatformServices::SetCurrent(std::make_unique<fmx::TPlatformServices>());
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::IFMXClipboardService::Guid, FClipboard);
    FForm.SetCanvas(&FCanvas);
    FEdit = std::make_unique<fmx::TEdit>();
    FEdit->SetRoot(&FForm);
    FEdit->SetSize({112, 30});  // room for ten characters between the margins
  }
  ~StyledEdit() override {
    FEdit = nullptr;
    FForm.SetCanvas(nullptr);
    fmx::TPlatformServices::SetCurrent(nullptr);
    fmx::TTextLayoutManager::UnInitialize();
    fmx::TCanvasManager::UnInitialize();
    fmx::TFontGlyphManager::RegisterBackEnd({});
  }

  fmx::TCustomEditModel& Model() { return FEdit->Model(); }
  fmx::TStyledEdit& Edit() { return dynamic_cast<fmx::TStyledEdit&>(*FEdit->Presentation()); }

  // A box with the focus, that text, and the caret before that character.
  void Show(std::u16string_view text, std::int32_t caret) {
    FEdit->SetFocus();
    FEdit->SetText(text);
    Model().SetSelLength(0);
    Model().SetCaretPosition(caret);
  }
  bool Key(Keys::TCode key, TShiftState shift = None) {
    fmx::TKeyEvent event{key, 0, shift};
    FForm.KeyDown(event);
    return event.IsHandled();
  }
  void Type(std::u16string_view text) {
    for (const char16_t c : text) {
      fmx::TKeyEvent event{Keys::None, c, None};
      FForm.KeyDown(event);
    }
  }
  void Mouse(void (fmx::TEdit::*tell)(const fmx::TMouseEvent&), float x, TShiftState shift = None, bool twice = false) {
    (FEdit.get()->*tell)({fmx::TMouseButton::Left, shift, {x, 15}, twice});
  }
  // The text with "|" at the caret, and "^" at the other end of a selection.
  std::u16string Seen() {
    std::u16string text = FEdit->Text();
    const auto caret = static_cast<std::size_t>(Model().CaretPosition());
    const auto anchor = static_cast<std::size_t>(Model().SelEnd());
    if (Model().HasSelection() && anchor > caret) text.insert(anchor, u"^");
    text.insert(caret, u"|");
    if (Model().HasSelection() && anchor < caret) text.insert(anchor, u"^");
    return text;
  }
  float CaretX() { return Model().Caret().Position().X - ContentLeft; }
  std::vector<fmx::TRecordedCall> Painted(TKind kind) {
    FCanvas.Forget();
    FCanvas.BeginScene();
    FEdit->PaintTo(FCanvas);
    FCanvas.EndScene();
    return FCanvas.CallsOf(kind);
  }

  fmx::TRecordingCanvas FCanvas;
  std::shared_ptr<TClipboard> FClipboard;
  fmx::TCustomForm FForm;
  std::unique_ptr<fmx::TEdit> FEdit;
};

TEST_F(StyledEdit, IsTheFrameworksOwnPresentationOfEdits) {
  EXPECT_TRUE(fmx::TPresentationProxyFactory::Current().IsRegistered("Edit-style"));
  EXPECT_EQ(Edit().ClassName(), "TStyledEdit");
  EXPECT_EQ(FEdit->TextContentRect(), (fmx::TRectF{6, 0, 106, 30}));
}

TEST_F(StyledEdit, IsMadeForEditsAlone) {
  class TOther : public fmx::TPresentedControl {
   public:
    fmx::TDataModel& Model() override { return FModel; }
    fmx::TDataModel FModel;
  } other;
  EXPECT_THROW(fmx::TStyledEdit made(other), fmx::EInvalidOperation);
}

TEST_F(StyledEdit, TheCaretStandsBehindWhatWasTypedWhateverItsDirection) {
  Show(u"", 0);
  EXPECT_EQ(CaretX(), 0);
  Type(u"ab");
  EXPECT_EQ(CaretX(), 20);
  Type(u" سل");
  EXPECT_EQ(Seen(), u"ab سل|");
  EXPECT_EQ(CaretX(), 45);
  Key(Keys::Left);
  EXPECT_EQ(CaretX(), 35);
}

TEST_F(StyledEdit, ArrowsWalkByCharactersAndWords) {
  Show(u"ab cd", 2);
  EXPECT_TRUE(Key(Keys::Right));
  EXPECT_EQ(Seen(), u"ab |cd");
  Key(Keys::Right, Ctrl);
  EXPECT_EQ(Seen(), u"ab cd|");
  EXPECT_TRUE(Key(Keys::Right)) << "handled at the end too";
  Key(Keys::Left, Ctrl);
  EXPECT_EQ(Seen(), u"ab |cd");
  Key(Keys::Home);
  EXPECT_EQ(Seen(), u"|ab cd");
  Key(Keys::Left);
  Key(Keys::Left, Ctrl);
  EXPECT_EQ(Seen(), u"|ab cd");
  Key(Keys::End);
  EXPECT_EQ(Seen(), u"ab cd|");
  EXPECT_FALSE(Key(Keys::Up));
}

TEST_F(StyledEdit, ShiftSelectsFromWhereItBegan) {
  Show(u"abcdef", 3);
  Key(Keys::Left, Shift);
  Key(Keys::Left, Shift);
  EXPECT_EQ(Seen(), u"a|bc^def");
  Key(Keys::End, Shift);
  EXPECT_EQ(Seen(), u"abc^def|");
  Key(Keys::Home);
  EXPECT_EQ(Seen(), u"|abcdef");
}

TEST_F(StyledEdit, TypingTakesThePlaceOfTheSelection) {
  Show(u"abcdef", 1);
  Key(Keys::Right, Shift);
  Key(Keys::Right, Shift);
  Type(u"X");
  EXPECT_EQ(Seen(), u"aX|def");
}

TEST_F(StyledEdit, BackspaceAndDeleteTakeACharacterAWordOrTheSelection) {
  Show(u"ab cd ef", 4);
  Key(Keys::Backspace);
  EXPECT_EQ(Seen(), u"ab |d ef");
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"ab | ef");
  Key(Keys::Delete, Ctrl);
  EXPECT_EQ(Seen(), u"ab |ef");
  Key(Keys::Backspace, Ctrl);
  EXPECT_EQ(Seen(), u"|ef");
  EXPECT_TRUE(Key(Keys::Backspace));
  Key(Keys::End, Shift);
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"|");
  EXPECT_TRUE(Key(Keys::Delete));
}

TEST_F(StyledEdit, PairsAreOneCharacter) {
  Show(u"", 0);
  Type(u"a\U0001F600b");
  EXPECT_EQ(Seen(), u"a\U0001F600b|");
  Key(Keys::Left);
  Key(Keys::Left);
  EXPECT_EQ(Seen(), u"a|\U0001F600b");
  Key(Keys::Delete);
  EXPECT_EQ(Seen(), u"a|b");
  Type(u"\xD83D");
  EXPECT_EQ(FEdit->Text(), u"ab") << "half a pair waits";
  Type(u"c");
  EXPECT_EQ(Seen(), u"ac|b") << "and goes when the other half does not come";
  Model().SetText(u"\U0001F600");
  Model().SetCaretPosition(1);
  Type(u"x");
  EXPECT_EQ(Seen(), u"x|\U0001F600");
}

TEST_F(StyledEdit, TheClipboardIsReachedByBothSetsOfKeys) {
  Show(u"abc", 0);
  Key('A', Ctrl);
  Key('C', Ctrl);
  EXPECT_EQ(FClipboard->Text, u"abc");
  Key('X', Ctrl);
  EXPECT_EQ(Seen(), u"|");
  Key('V', Ctrl);
  Key(Keys::Insert, Shift);
  EXPECT_EQ(Seen(), u"abcabc|");
  Key(Keys::Home, Shift);
  FClipboard->Text.clear();
  Key(Keys::Insert, Ctrl);
  EXPECT_EQ(FClipboard->Text, u"abcabc");
  Key(Keys::Delete, Shift);
  EXPECT_EQ(Seen(), u"|");
}

TEST_F(StyledEdit, NothingIsLostOutOfAPasswordBoxThatCannotBeCopied) {
  Show(u"abc", 0);
  Model().SetPassword(true);
  Key('A', Ctrl);
  Key('X', Ctrl);
  Key(Keys::Delete, Shift);
  EXPECT_EQ(FEdit->Text(), u"abc");
  EXPECT_EQ(FClipboard->Text, u"");
}

TEST_F(StyledEdit, AReadOnlyBoxMovesAndCopiesButDoesNotChange) {
  Show(u"abc", 3);
  Model().SetReadOnly(true);
  Type(u"x");
  EXPECT_FALSE(Key(Keys::Backspace));
  EXPECT_FALSE(Key('X', Ctrl));
  Key('V', Ctrl);
  Key(Keys::Left, Shift);
  Key('C', Ctrl);
  EXPECT_EQ(Seen(), u"ab|c^");
  EXPECT_EQ(FClipboard->Text, u"c");
  Model().SetInputSupport(false);
  EXPECT_FALSE(Key(Keys::Left));
  EXPECT_EQ(Seen(), u"ab|c^");
}

TEST_F(StyledEdit, WhatIsTypedIsFilteredAndCutToTheRoomLeft) {
  Show(u"12", 1);
  Model().SetFilterChar(u"0123456789");
  Model().SetMaxLength(3);
  Type(u"a45");
  EXPECT_EQ(Seen(), u"14|2");
  FClipboard->Text = u"x678";
  Key('A', Ctrl);
  Key('V', Ctrl);
  EXPECT_EQ(Seen(), u"678|");
}

TEST_F(StyledEdit, APressPlacesTheCaretAndADragSelects) {
  Show(u"abcdef", 0);
  Mouse(&fmx::TEdit::MouseDown, ContentLeft + 24);
  EXPECT_EQ(Seen(), u"ab|cdef");
  Mouse(&fmx::TEdit::MouseMove, ContentLeft + 46);
  EXPECT_EQ(Seen(), u"ab^cde|f");
  Mouse(&fmx::TEdit::MouseUp, ContentLeft + 46);
  Mouse(&fmx::TEdit::MouseMove, ContentLeft);
  EXPECT_EQ(Seen(), u"ab^cde|f");
  Mouse(&fmx::TEdit::MouseDown, ContentLeft - 3, Shift);
  EXPECT_EQ(Seen(), u"|ab^cdef");
  Mouse(&fmx::TEdit::MouseUp, 0);
  Mouse(&fmx::TEdit::MouseDown, ContentLeft + 14, None, true);
  EXPECT_EQ(Seen(), u"^abcdef|");
}

TEST_F(StyledEdit, EveryCaretIsHitByAPressOnIt) {
  for (const auto align : {fmx::TTextAlign::Leading, fmx::TTextAlign::Center, fmx::TTextAlign::Trailing}) {
    Model().TextSettings().SetHorzAlign(align);
    for (const std::u16string_view text : {u"ab cd", u"سلام دنیا", u"a longer text than its box has room for"}) {
      Show(text, 0);
      for (std::int32_t i = 0; i <= static_cast<std::int32_t>(text.size()); ++i) {
        Model().SetCaretPosition(i);
        EXPECT_EQ(Edit().GetCaretPosition(Edit().GetCharX(i)), i);
        EXPECT_GE(CaretX(), 0);
        EXPECT_LE(CaretX(), 100 - Model().Caret().Width()) << "in the box";
      }
    }
  }
}

TEST_F(StyledEdit, AShortTextStandsWhereItsAlignmentSays) {
  Show(u"ab", 0);
  Model().TextSettings().SetHorzAlign(fmx::TTextAlign::Center);
  EXPECT_EQ(CaretX(), 39.5F);
  Model().TextSettings().SetHorzAlign(fmx::TTextAlign::Trailing);
  EXPECT_EQ(CaretX(), 79);
}

TEST_F(StyledEdit, ALongTextMovesNoFurtherThanTheCaretNeeds) {
  Show(u"0123456789abcdef", 16);
  EXPECT_EQ(CaretX(), 99);
  Model().SetCaretPosition(7);
  EXPECT_EQ(CaretX(), 9) << "still in view";
  Model().SetCaretPosition(2);
  EXPECT_EQ(CaretX(), 0);
  Key(Keys::End);
  for (int i = 0; i < 4; ++i) Key(Keys::Backspace);
  EXPECT_EQ(CaretX(), 99) << "no free room behind the text";
}

TEST_F(StyledEdit, PaintsSelectionTextAndCaret) {
  Show(u"abc", 0);
  EXPECT_EQ(Painted(TKind::DrawBitmap).size(), 3U);
  EXPECT_EQ(Painted(TKind::DrawBitmap)[0].DeviceMatrix, fmx::TMatrix::Translation(ContentLeft, 0));
  const auto fillsOf = [this](fmx::TAlphaColor color) {
    auto fills = Painted(TKind::FillRect);
    std::erase_if(fills, [color](const auto& call) { return call.Color != color; });
    return fills;
  };
  const fmx::TAlphaColor caret = Model().Caret().GetFlasher().GetColor();
  ASSERT_EQ(fillsOf(caret).size(), 1U);
  EXPECT_EQ(fillsOf(caret)[0].Rect, (fmx::TRectF{6, 5, 7, 25}));
  Key('A', Ctrl);
  EXPECT_TRUE(fillsOf(caret).empty()) << "a selection shows no caret";
  const fmx::TAlphaColor selection = Model().SelectionFill().Color();
  ASSERT_EQ(fillsOf(selection).size(), 1U);
  EXPECT_EQ(fillsOf(selection)[0].Rect, (fmx::TRectF{0, 5, 30, 25}));
  FForm.SetFocused(nullptr);
  EXPECT_TRUE(fillsOf(selection).empty());
}

TEST_F(StyledEdit, APasswordIsADotForEachUnit) {
  Show(u"سلام", 4);
  Model().SetPassword(true);
  EXPECT_EQ(Painted(TKind::DrawBitmap).size(), 4U);
  EXPECT_EQ(CaretX(), 40);
  Type(u"x");
  EXPECT_EQ(Painted(TKind::DrawBitmap).size(), 5U);
  EXPECT_EQ(FEdit->Text(), u"سلامx");
}

TEST_F(StyledEdit, ThePromptStandsInAnEmptyBoxAlone) {
  Model().SetPromptText(u"Name");
  EXPECT_EQ(Painted(TKind::DrawBitmap).size(), 4U);
  FEdit->SetText(u"a");
  EXPECT_EQ(Painted(TKind::DrawBitmap).size(), 1U);
}

TEST_F(StyledEdit, TheOwnerHearsOfTypingAndOfTheEnd) {
  int typings = 0;
  int changes = 0;
  Show(u"", 0);
  Model().OnTyping = [&] { ++typings; };
  Model().OnChange = [&] { ++changes; };
  Type(u"ab");
  Key(Keys::Backspace);
  EXPECT_EQ(typings, 3);
  EXPECT_EQ(changes, 0);
  Model().SetKillFocusByReturn(true);
  EXPECT_FALSE(Key(Keys::Return));
  EXPECT_FALSE(FEdit->IsFocused());
  EXPECT_EQ(changes, 2) << "Return, and leaving";
  EXPECT_FALSE(Model().Caret().IsShown());
  FEdit->SetFocus();
  EXPECT_EQ(Seen(), u"^a|") << "entering selects all";
}

TEST_F(StyledEdit, AMenuOfTheApplicationsOpensOverIt) {
  class TMenus : public fmx::IMenuService {
   public:
    void Popup(fmx::TPopupMenu& menu, std::int32_t x, std::int32_t y) override {
      Shown = &menu;
      At = {x, y};
    }
    fmx::TPopupMenu* Shown = nullptr;
    fmx::TPoint At;
  };
  const auto menus = std::make_shared<TMenus>();
  fmx::TPlatformServices::Current()->AddPlatformService(fmx::IMenuService::Guid, menus);
  EXPECT_FALSE(FEdit->ShowContextMenu({5, 5})) << "it has none of its own";
  fmx::TPopupMenu own;
  FEdit->PopupMenu = &own;
  EXPECT_TRUE(FEdit->ShowContextMenu({4.6F, 1e30F}));
  EXPECT_EQ(menus->Shown, &own);
  EXPECT_EQ(menus->At, (fmx::TPoint{5, std::numeric_limits<std::int32_t>::max()}));
}

TEST_F(StyledEdit, ButtonsTakeRoomFromTheRightEnd) {
  class TButton : public fmx::TControl, public fmx::IEditButton {
  } button;
  button.SetSize({20, 30});
  Edit();
  button.SetParent(&FEdit->ButtonsContent());
  Model().EditButtonsChanged();
  EXPECT_EQ(FEdit->TextContentRect(), (fmx::TRectF{6, 0, 86, 30}));
  EXPECT_EQ(FEdit->ButtonsContent().Position(), (fmx::TPointF{92, 0}));
  button.SetParent(nullptr);
}

TEST_F(StyledEdit, AStyleWithoutPartsIsABareBox) {
  fmx::TStyleManager::Register("bare", [] { return std::make_unique<fmx::TControl>(); });
  FEdit->SetStyleLookup("bare");
  Show(u"abc", 3);
  EXPECT_TRUE(Painted(TKind::DrawBitmap).empty());
  Key(Keys::Left);
  EXPECT_EQ(Seen(), u"ab|c");
  fmx::TStyleManager::Register("bare", nullptr);
}

TEST_F(StyledEdit, NumbersOutsideOfTheTextAreHeldWhereTheyAreUsed) {
  constexpr std::int32_t numbers[] = {std::numeric_limits<std::int32_t>::min(), -1, 0, 2, 99,
                                      std::numeric_limits<std::int32_t>::max()};
  for (const std::u16string_view text : {u"", u"abc", u"a\nb\r\n\xDC00\xD800\xD800\xDC00"})
    for (const std::int32_t start : numbers)
      for (const std::int32_t length : numbers) {
        Show(text, start);
        Model().SetSelStart(start);
        Model().SetSelLength(length);
        Painted(TKind::FillRect);
        Key(Keys::Right, Shift);
        Mouse(&fmx::TEdit::MouseDown, 1e30F, Shift);
        Mouse(&fmx::TEdit::MouseMove, std::numeric_limits<float>::quiet_NaN());
        Mouse(&fmx::TEdit::MouseUp, 0);
        Type(u"x");
        EXPECT_EQ(FEdit->Text().substr(static_cast<std::size_t>(Model().CaretPosition()) - 1, 1), u"x");
        Key(Keys::Backspace, Ctrl);
        EXPECT_GE(Model().CaretPosition(), 0);
        EXPECT_LE(Model().CaretPosition(), static_cast<std::int32_t>(FEdit->Text().size()));
      }
}

// Whatever is done to it, the caret stays in the text and out of pairs, and the text is what a plain string would be.
TEST_F(StyledEdit, AMonkeyLeavesTheTextAsAPlainModelHasIt) {
  std::mt19937 random(7);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  Show(u"", 0);
  std::u16string plain;
  for (int step = 0; step < 3000; ++step) {
    const fmx::TTextRange taken =
        Model().HasSelection() ? Model().Selection() : fmx::TTextRange{Model().CaretPosition(), 0};
    switch (below(6)) {
      case 0:
      case 1: {
        const std::u16string typed = below(4) == 0 ? u"\U0001F600" : std::u16string(1, u"ab سل1"[below(6)]);
        Type(typed);
        plain.replace(static_cast<std::size_t>(taken.Pos), static_cast<std::size_t>(taken.Length), typed);
        break;
      }
      case 2:
        Key(below(2) == 0 ? Keys::Left : Keys::Right, below(2) == 0 ? Shift : None);
        break;
      case 3:
        Mouse(&fmx::TEdit::MouseDown, static_cast<float>(below(150) - 20), below(2) == 0 ? Shift : None);
        Mouse(&fmx::TEdit::MouseUp, 0);
        break;
      case 4:
        if (taken.Length == 0) break;
        Key(Keys::Delete);
        plain.erase(static_cast<std::size_t>(taken.Pos), static_cast<std::size_t>(taken.Length));
        break;
      default:
        FEdit->SetSize({static_cast<float>(below(200)), 30});
    }
    ASSERT_EQ(FEdit->Text(), plain) << step;
    const std::int32_t caret = Model().CaretPosition();
    ASSERT_TRUE(caret >= 0 && caret <= static_cast<std::int32_t>(plain.size()));
    if (caret > 0 && caret < static_cast<std::int32_t>(plain.size())) {
      ASSERT_FALSE((plain[static_cast<std::size_t>(caret)] & 0xFC00) == 0xDC00) << step;
    }
  }
}

}  // namespace
