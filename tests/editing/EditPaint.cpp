// What the box draws, in the built-in style.
#include <gtest/gtest.h>

#include "editing/Orv.Edit.Style.h"
#include "fmx/DefaultStyle.h"
#include "fmx/Form.h"
#include "tests/editing/LayoutScope.h"

namespace orv::testing {
namespace {

using TKind = fmx::TRecordedCall::TKind;

class EditPaint : public ::testing::Test {
 protected:
  EditPaint() : FCanvas(300, 100) {
    RegisterEditStyle();
    FForm.SetCanvas(&FCanvas);
    FEdit = std::make_unique<fmx::TEdit>();
    FEdit->SetRoot(&FForm);
    FEdit->SetSize({200, 30});
  }
  ~EditPaint() override {
    FEdit = nullptr;
    FForm.SetCanvas(nullptr);
    fmx::TPresentationProxyFactory::Current().Unregister("Edit-style");
    fmx::TPresentationProxyFactory::Current().Unregister("Edit-ide-platform");
    fmx::SetDefaultStylePalette(fmx::TStylePalette::Light);
  }

  void Paint() {
    FCanvas.Forget();
    FCanvas.BeginScene();
    TTextLayoutNGOrv::BeginRender();
    const bool populates = !std::exchange(fmx::TGlyphsManager::DisableGlyphPopulation, true);
    FEdit->PaintTo(FCanvas);
    TTextLayoutNGOrv::EndRender();
    fmx::TGlyphsManager::DisableGlyphPopulation = !populates;
    FCanvas.EndScene();
  }
  std::vector<fmx::TRecordedCall> Fills(fmx::TAlphaColor color) {
    std::vector<fmx::TRecordedCall> found;
    for (const auto& call : FCanvas.Calls())
      if ((call.Kind == TKind::FillRect || call.Kind == TKind::FillEllipse) && call.Color == color)
        found.push_back(call);
    return found;
  }

  TLayoutScope FScope;
  fmx::TRecordingCanvas FCanvas;
  fmx::TCustomForm FForm;
  std::unique_ptr<fmx::TEdit> FEdit;
};

TEST_F(EditPaint, EachLetterIsAGlyphInTheTextsColour) {
  FEdit->SetText(u"ab سل");
  for (const auto palette : {fmx::TStylePalette::Light, fmx::TStylePalette::Dark}) {
    fmx::SetDefaultStylePalette(palette);
    FEdit->FreePresentation();
    Paint();
    std::size_t letters = 0;
    for (const auto& call : FCanvas.CallsOf(TKind::DrawBitmap)) {
      EXPECT_EQ(call.Color, fmx::StyleForegroundColor(palette));
      ++letters;
    }
    EXPECT_GE(letters, 4U);
  }
}

TEST_F(EditPaint, TheSelectionIsFilledAndTheCaretIsHiddenThen) {
  FEdit->SetText(u"abc");
  FEdit->SetFocus();
  const fmx::TAlphaColor selection = FEdit->Model().SelectionFill().Color();
  const fmx::TAlphaColor caret = FEdit->Model().Caret().GetFlasher().GetColor();
  Paint();
  ASSERT_EQ(Fills(selection).size(), 1U);
  EXPECT_EQ(Fills(selection)[0].Rect, (fmx::TRectF{0, 4, 30, 26}));
  EXPECT_EQ(Fills(caret).size(), 2U) << "the stems of the handles";
  FEdit->ResetSelection();
  Paint();
  EXPECT_TRUE(Fills(selection).empty());
  ASSERT_EQ(Fills(caret).size(), 1U);
  EXPECT_EQ(Fills(caret)[0].Rect.Left, 0);
  FForm.SetFocused(nullptr);
  Paint();
  EXPECT_TRUE(Fills(caret).empty());
}

TEST_F(EditPaint, APasswordIsDrawnAsDots) {
  FEdit->SetText(u"abc");
  FEdit->Model().SetPassword(true);
  Paint();
  EXPECT_EQ(FCanvas.CallsOf(TKind::FillEllipse).size(), 3U);
  EXPECT_TRUE(FCanvas.CallsOf(TKind::DrawBitmap).empty());
}

TEST_F(EditPaint, ThePromptStandsInAnEmptyBoxAlone) {
  FEdit->Model().SetPromptText(u"Name");
  Paint();
  EXPECT_EQ(FCanvas.CallsOf(TKind::DrawBitmap).size(), 4U);
  EXPECT_EQ(FCanvas.CallsOf(TKind::DrawBitmap)[0].Opacity, 0.5F);
  FEdit->SetText(u"a");
  Paint();
  EXPECT_EQ(FCanvas.CallsOf(TKind::DrawBitmap).size(), 1U);
  EXPECT_EQ(FCanvas.CallsOf(TKind::DrawBitmap)[0].Opacity, 1);
}

TEST_F(EditPaint, WhatIsComposedIsUnderlined) {
  FEdit->SetText(u"ab");
  auto& presentation = static_cast<TOrvStyledEdit&>(*FEdit->Presentation());
  using fmx::TCompositionAttribute;
  presentation.GetTextService()->SetMarkedText(u"cd", 2,
                                               {TCompositionAttribute::Input, TCompositionAttribute::TargetConverted});
  presentation.IMEStateUpdated();
  Paint();
  const auto lines = FCanvas.CallsOf(TKind::DrawLine);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].Dash, fmx::TStrokeDash::Dash);
  EXPECT_EQ(lines[0].Thickness, 1);
  EXPECT_EQ(lines[1].Dash, fmx::TStrokeDash::Solid);
  EXPECT_EQ(lines[1].Thickness, 2);
  EXPECT_EQ(lines[1].Rect.Right - lines[1].Rect.Left, 10);
}

TEST_F(EditPaint, TheContentKeepsTheMarginsOfTheStyle) {
  const auto& presentation = static_cast<TOrvStyledEdit&>(*FEdit->Presentation());
  EXPECT_EQ(presentation.ContentRect(), (fmx::TRectF{0, 0, 188, 30}));
  EXPECT_EQ(presentation.LineHeight(), 22);
}

TEST_F(EditPaint, AStyleWithoutContentPaintsNothing) {
  fmx::TStyleManager::Register("bare", [] { return std::make_unique<fmx::TControl>(); });
  FEdit->SetStyleLookup("bare");
  FEdit->FreePresentation();
  FEdit->SetText(u"abc");
  auto& presentation = static_cast<TOrvStyledEdit&>(*FEdit->Presentation());
  Paint();
  EXPECT_TRUE(FCanvas.CallsOf(TKind::DrawBitmap).empty());
  EXPECT_EQ(presentation.View().GetCharX(2), 0);
  fmx::TStyleManager::Register("bare", nullptr);
}

}  // namespace
}  // namespace orv::testing
