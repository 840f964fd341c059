// The caret of the box and its flasher, the focus, what an input method is told, and the marks of spelling.
#include <memory>

#include "fmx/EditServices.h"
#include "fmx/RecordingCanvas.h"
#include "tests/editing/EditFixture.h"

namespace orv::testing {
namespace {

using fmx::Keys;
using fmx::TTextAlign;
using TKind = fmx::TRecordedCall::TKind;

class EditCaret : public EditTest {
 protected:
  fmx::TCustomCaret& Caret() { return Model().Caret(); }
  void Compose(std::u16string_view marked, std::int32_t caret) {
    Edit().GetTextService()->SetMarkedText(marked, caret);
    Edit().IMEStateUpdated();
  }
};

TEST_F(EditCaret, IsAsHighAsTheLineAndAsWideAsItsFlasher) {
  Show(u"abc", TTextAlign::Leading, 200, 31);
  At(2);
  EXPECT_EQ(Caret().Position(), (fmx::TPointF{20, 4})) << "the line begins at 4.5, the caret at a whole unit";
  EXPECT_EQ(Caret().Size(), (fmx::TSizeF{1, 22}));
  Caret().SetWidth(3);
  At(1);
  EXPECT_EQ(Caret().Size(), (fmx::TSizeF{3, 22}));
  FBox.Edit().SetSize({2, 31});
  EXPECT_EQ(Caret().Size().Width, 2) << "no wider than the content";
}

TEST_F(EditCaret, StaysInTheBox) {
  Show(u"abcde", TTextAlign::Leading, 50);
  At(5);
  EXPECT_EQ(Edit().View().GetCharX(5), 50);
  EXPECT_EQ(Caret().Position().X, 50) << "its width, less one, from the edge";
  Caret().SetWidth(4);
  At(4);
  At(5);
  EXPECT_EQ(Caret().Position().X, 47);
}

TEST_F(EditCaret, AnEmptyTrailingBoxLeavesRoomForItsFlasher) {
  Caret().SetWidth(4);
  Show(u"", TTextAlign::Trailing, 200);
  EXPECT_EQ(Edit().View().GetCharX(0), 195);
}

TEST_F(EditCaret, IsPlacedWhileTheBoxHasTheFocusAlone) {
  Show(u"abc");
  At(3);
  FBox.Form().SetFocused(nullptr);
  At(0);
  EXPECT_EQ(Caret().Position().X, 30);
  EXPECT_EQ(Edit().GetOriginCaretPosition(), 0);
}

TEST_F(EditCaret, BlinksAndLightsUpWithEveryMove) {
  Show(u"abc");
  At(1);
  EXPECT_TRUE(Caret().IsSeen());
  fmx::TTimer::Advance(fmx::TCustomCaret::BlinkInterval);
  EXPECT_FALSE(Caret().IsSeen());
  Key(Keys::Right);
  EXPECT_TRUE(Caret().IsSeen());
  FBox.Form().SetFocused(nullptr);
  EXPECT_FALSE(Caret().IsSeen());
  EXPECT_EQ(fmx::TTimer::NextIn(), -1) << "nothing blinks without the focus";
}

TEST_F(EditCaret, HidesBehindASelectionAndInAReadOnlyBox) {
  Show(u"abc");
  Key(Keys::End, Shift);
  EXPECT_TRUE(Caret().TemporarilyHidden());
  Key(Keys::Home);
  EXPECT_TRUE(Caret().IsShown());
  Model().SetReadOnly(true);
  EXPECT_FALSE(Caret().IsShown());
  Model().SetReadOnly(false);
  EXPECT_TRUE(Caret().IsShown());
}

TEST_F(EditCaret, RepaintsTheControlThatItStandsIn) {
  class TForm : public fmx::TCustomForm {
   public:
    void Invalidate() override { ++Invalidations; }
    int Invalidations = 0;
  } form;
  FBox.Edit().SetRoot(&form);
  Show(u"abc");
  Caret().SetVisible(true);
  form.Invalidations = 0;
  fmx::TTimer::Advance(fmx::TCustomCaret::BlinkInterval);
  EXPECT_EQ(form.Invalidations, 1);
  FBox.Edit().SetRoot(&FBox.Form());
}

// --- Focus ---

TEST_F(EditCaret, EnteringSelectsAllInAFormAtRest) {
  using fmx::TFormStateItem;
  Show(u"abc");
  for (int item = 0; item < 16; ++item) {
    FBox.Form().SetFocused(nullptr);
    Key(Keys::Home);
    FBox.Form().SetFormState(fmx::TFormState{static_cast<TFormStateItem>(item)});
    FBox.Edit().SetFocus();
    const bool atRest = item == 1 || item == 5 || item == 9;
    EXPECT_EQ(Seen(), atRest ? u"^abc|" : u"|abc") << item;
  }
  FBox.Form().SetFormState({});
}

TEST_F(EditCaret, EnteringSelectsNothingWhereNothingCanBeTyped) {
  const auto entered = [&] {
    FBox.Form().SetFocused(nullptr);
    Model().SetSelLength(0);
    At(1);
    FBox.Edit().SetFocus();
    return Seen();
  };
  Show(u"abc");
  Model().SetReadOnly(true);
  EXPECT_EQ(entered(), u"a|bc");
  Model().SetReadOnly(false);
  Model().SetInputSupport(false);
  EXPECT_EQ(entered(), u"a|bc");
  Model().SetInputSupport(true);
  EXPECT_EQ(entered(), u"^abc|");
}

TEST_F(EditCaret, EnteringKeepsWhatIsBeingComposed) {
  Show(u"abc");
  At(1);
  Compose(u"XY", 2);
  FBox.Form().SetFocused(nullptr);
  FBox.Edit().SetFocus();
  EXPECT_FALSE(Model().HasSelection());
  EXPECT_EQ(Caret().Position().X, 30);
}

TEST_F(EditCaret, LeavingKeepsTheSelectionButHidesIt) {
  Show(u"abc");
  At(3);
  Key(Keys::Home, Shift);
  EXPECT_EQ(Edit().SelectionFillRects().size(), 1U);
  FBox.Form().SetFocused(nullptr);
  EXPECT_EQ(Seen(), u"|abc^");
  EXPECT_TRUE(Edit().SelectionFillRects().empty());
  EXPECT_FALSE(Caret().TemporarilyHidden());
  EXPECT_FALSE(Caret().Visible());
}

// --- Input methods ---

TEST_F(EditCaret, ACompositionMovesTheSelectionBehindIt) {
  Show(u"abcd");
  Model().SetSelStart(2);
  Model().SetSelLength(1);
  Edit().GetTextService()->SetCaretPosition({1, 0});
  Compose(u"XY", 2);
  bool swapped = false;
  EXPECT_EQ(Edit().GetSelRect(swapped).Left, 50);
  EXPECT_EQ(Edit().GetSelRect(swapped).Right, 40);
  Edit().GetTextService()->SetCaretPosition({3, 0});
  EXPECT_EQ(Edit().GetSelRect(swapped).Left, 30) << "before it the selection stays";
  Edit().GetTextService()->SetMarkedText(u"", 0);
}

TEST_F(EditCaret, TheInputMethodsWindowIsPlacedByWhatIsShown) {
  FBox.Edit().SetPosition({20, 40});
  Show(u"abcdefgh", TTextAlign::Leading, 50);
  Model().TextSettings().Font().SetSize(16);
  At(8);
  ASSERT_EQ(Edit().View().FirstVisibleChar(), 4);
  EXPECT_EQ(Edit().GetTargetClausePointF(), (fmx::TPointF{20 + 50, 40 + 15 + 8 + 2}));
  At(6);
  EXPECT_EQ(Edit().GetTargetClausePointF().X, 20 + 30) << "three characters are shown before it";
  At(2);
  EXPECT_EQ(Edit().GetTargetClausePointF().X, 20 + 10);
}

TEST_F(EditCaret, AnInputMethodSeesTextAndSelection) {
  Show(u"abcd");
  EXPECT_TRUE(Edit().HasText());
  Model().SetSelStart(3);
  Model().SetSelLength(-2);
  EXPECT_EQ(Edit().GetSelText(), u"bc");
  EXPECT_EQ(Edit().GetSelectionBounds(), (fmx::TRect{3, 0, 1, 0}));
  Show(u"");
  EXPECT_FALSE(Edit().HasText());
}

TEST_F(EditCaret, EachStateOfACompositionIsTyping) {
  Show(u"abc");
  const std::int32_t before = FBox.Typings();
  Edit().StartIMEInput();
  Compose(u"X", 1);
  Compose(u"XY", 2);
  EXPECT_EQ(FBox.Typings(), before + 2);
  EXPECT_EQ(Model().Text(), u"XYabc");
  Compose(u"", 0);
  Edit().EndIMEInput();
  EXPECT_EQ(Model().Text(), u"abc");
  EXPECT_EQ(Caret().Position().X, 0);
}

TEST_F(EditCaret, ACompositionIsNotFiltered) {
  Model().SetFilterChar(u"0123456789");
  Compose(u"abc", 3);
  EXPECT_EQ(Model().Text(), u"abc");
}

// --- Spelling ---

class TSpeller : public fmx::IFMXSpellCheckerService {
 public:
  std::vector<std::u16string> CheckSpelling(std::u16string_view word) override {
    ++Asked;
    if (word.starts_with(u'x')) return {u"y" + std::u16string(word.substr(1)), u"zz"};
    return {};
  }
  int Asked = 0;
};

class EditMarks : public EditCaret {
 protected:
  EditMarks() : FSpeller(std::make_shared<TSpeller>()), FCanvas(64, 64) {
    fmx::TPlatformServices::Current()->AddPlatformService(fmx::IFMXSpellCheckerService::Guid, FSpeller);
  }
  std::vector<fmx::TRecordedCall> Painted(TKind kind) {
    FCanvas.Forget();
    FCanvas.BeginScene();
    FBox.Edit().PaintTo(FCanvas);
    FCanvas.EndScene();
    return FCanvas.CallsOf(kind);
  }
  std::shared_ptr<TSpeller> FSpeller;
  fmx::TRecordingCanvas FCanvas;
};

TEST_F(EditMarks, AMisspeltWordIsUnderlinedInRedDots) {
  Show(u"ab xcd");
  Model().SetCheckSpelling(true);
  const auto lines = Painted(TKind::DrawLine);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].Rect, (fmx::TRectF{25, 25, 55, 25})) << "at the bottom of the line";
  EXPECT_EQ(lines[0].Color, 0xFFFF0000);
  EXPECT_EQ(lines[0].Thickness, 1);
  EXPECT_EQ(lines[0].Dash, fmx::TStrokeDash::Dot);
}

TEST_F(EditMarks, TheUnderlineStaysWithItsWordWhenTheTextScrolls) {
  Show(u"ab cd ef xg hi", TTextAlign::Leading, 60);
  Model().SetCheckSpelling(true);
  for (const std::int32_t caret : {0, 14, 9, 14, 3, 0}) {
    At(caret);
    const auto lines = Painted(TKind::DrawLine);
    ASSERT_EQ(lines.size(), 1U);
    const float word = Edit().SpellingRegions().at(0).Left - Edit().View().InvisibleTextWidth();
    EXPECT_EQ(lines[0].Rect.Left, word) << caret;
    EXPECT_EQ(lines[0].Rect.Width(), 20);
  }
  EXPECT_EQ(FSpeller->Asked, 9) << "words, and what is between them, were asked for once";
}

TEST_F(EditMarks, WhatIsComposedIsNotChecked) {
  Show(u"xab");
  Model().SetCheckSpelling(true);
  Compose(u"Z", 1);
  EXPECT_TRUE(Painted(TKind::DrawLine).empty());
  EXPECT_EQ(FSpeller->Asked, 0);
  Compose(u"", 0);
  EXPECT_EQ(Painted(TKind::DrawLine).size(), 1U);
}

TEST_F(EditMarks, AnotherSizeOrTextIsCheckedAnew) {
  Show(u"xab");
  Model().SetCheckSpelling(true);
  Painted(TKind::DrawLine);
  Painted(TKind::DrawLine);
  EXPECT_EQ(FSpeller->Asked, 1);
  FBox.Edit().SetSize({150, 30});
  Painted(TKind::DrawLine);
  EXPECT_EQ(FSpeller->Asked, 2);
  Key(Keys::Delete);
  EXPECT_TRUE(Painted(TKind::DrawLine).empty());
  EXPECT_EQ(FSpeller->Asked, 3);
}

TEST_F(EditMarks, TheWordAtTheCaretIsHighlighted) {
  Show(u"ab xcd");
  At(4);
  const auto red = [&] {
    auto fills = Painted(TKind::FillRect);
    std::erase_if(fills, [](const auto& call) { return call.Color != 0xFFFF0000; });
    return fills;
  };
  Model().SetCheckSpelling(true);
  EXPECT_TRUE(red().empty());
  Edit().HighlightSpell();
  ASSERT_EQ(red().size(), 1U);
  EXPECT_EQ(red()[0].Rect, (fmx::TRectF{25, 5, 55, 25}));
  EXPECT_EQ(red()[0].Opacity, 0.2F);
  EXPECT_TRUE(Caret().TemporarilyHidden());
  Edit().HideHighlightSpell();
  EXPECT_TRUE(red().empty());
  EXPECT_FALSE(Caret().TemporarilyHidden());
  Edit().HighlightSpell();
  Model().SetCheckSpelling(false);
  Model().SetCheckSpelling(true);
  EXPECT_TRUE(red().empty()) << "the highlight went with the spelling";
}

TEST_F(EditMarks, TheWordAtTheCaretIsKnownToBeWrong) {
  Show(u"ab xcd");
  Model().SetCheckSpelling(true);
  Painted(TKind::DrawLine);
  At(4);
  EXPECT_TRUE(Edit().IsCurrentWordWrong());
  EXPECT_EQ(Edit().GetListOfPrepositions(), (std::vector<std::u16string>{u"ycd", u"zz"}));
  At(1);
  EXPECT_FALSE(Edit().IsCurrentWordWrong());
  EXPECT_TRUE(Edit().GetListOfPrepositions().empty());
  Edit().Spell(u"longer");
  EXPECT_EQ(Seen(), u"longer| xcd");
}

TEST_F(EditMarks, WithoutASpellerNothingIsMarked) {
  fmx::TPlatformServices::Current()->RemovePlatformService(fmx::IFMXSpellCheckerService::Guid);
  Show(u"xab");
  Model().SetCheckSpelling(true);
  EXPECT_TRUE(Painted(TKind::DrawLine).empty());
  EXPECT_TRUE(Edit().GetListOfPrepositions().empty());
}

// --- Password ---

TEST_F(EditMarks, DotsOfALongPasswordBeginAtTheFirstVisibleOne) {
  for (const auto align : {TTextAlign::Leading, TTextAlign::Center, TTextAlign::Trailing}) {
    Show(u"", align, 60);
    Model().SetPassword(true);
    Model().SetText(u"0123456789abcde");
    At(15);
    const std::int32_t first = Edit().View().FirstVisibleChar();
    EXPECT_GT(first, 1);
    const auto dots = Painted(TKind::FillEllipse);
    ASSERT_EQ(dots.size(), static_cast<std::size_t>(15 - first + 1));
    EXPECT_EQ(dots[0].Rect.Left, 0) << "the alignment has no room to shift them";
    EXPECT_EQ(dots[0].Rect.Width(), 5) << "half the font, less one";
    EXPECT_EQ(dots[1].Rect.Left, 6);
    Model().SetPassword(false);
  }
}

}  // namespace
}  // namespace orv::testing
