// The parts of a style: what each of them does for the box, and the box without it.
#include <gtest/gtest.h>

#include "editing/Orv.Edit.Style.h"
#include "fmx/DefaultStyle.h"
#include "fmx/Form.h"
#include "fmx/Style.h"
#include "tests/editing/LayoutScope.h"

namespace orv::testing {
namespace {

using fmx::TTextAlign;
using TKind = fmx::TRecordedCall::TKind;

constexpr const char* Parts[] = {"buttons",
                                 "leftbuttons",
                                 "prompt",
                                 "content",
                                 "selection",
                                 "foreground",
                                 "selectionfg",
                                 "caretcolor",
                                 "font",
                                 "leftselectionpoint",
                                 "rightselectionpoint"};

// A form that has an opinion of fonts.
class TForm : public fmx::TCustomForm {
 public:
  std::u16string DefaultFontFamily() const override { return Family; }
  std::u16string Family;
};

class EditStyle : public ::testing::Test {
 protected:
  EditStyle() : FCanvas(300, 100) {
    RegisterEditStyle();
    FForm.SetCanvas(&FCanvas);
    FEdit = std::make_unique<fmx::TEdit>();
    FEdit->SetRoot(&FForm);
    FEdit->SetSize({200, 30});
  }
  ~EditStyle() override {
    FEdit = nullptr;
    FForm.SetCanvas(nullptr);
    fmx::TStyleManager::Register("own", nullptr);
  }

  // Shows the edit in a style that comes from the maker.
  void Apply(fmx::TStyleMaker maker) {
    fmx::TStyleManager::Register("own", std::move(maker));
    FEdit->FreePresentation();
    FEdit->SetStyleLookup("");
    FEdit->SetStyleLookup("own");
    ASSERT_NE(FEdit->Presentation(), nullptr);
  }
  // The built-in style, changed.
  template <typename F>
  void ApplyChanged(F change) {
    Apply([change] {
      auto style = fmx::DefaultEditStyle();
      change(*style);
      return style;
    });
  }
  void ApplyWithout(std::string_view part) {
    ApplyChanged([part](fmx::TControl& style) {
      fmx::TComponent* const found = style.FindStyleResource(part);
      ASSERT_NE(found, nullptr) << part;
      static_cast<void>(style.RemoveComponent(*found));
    });
  }
  TOrvStyledEdit& Edit() { return dynamic_cast<TOrvStyledEdit&>(*FEdit->Presentation()); }
  fmx::TCustomEditModel& Model() { return FEdit->Model(); }
  const fmx::TTextSettings& Settings() { return Model().TextSettingsInfo().Resulting(); }
  void Type(std::u16string_view text) {
    for (const char16_t c : text) {
      fmx::TKeyEvent event{fmx::Keys::None, c, {}};
      FEdit->KeyDown(event);
    }
  }
  void Paint() {
    FCanvas.Forget();
    FCanvas.BeginScene();
    TTextLayoutNGOrv::BeginRender();
    const bool populates = !std::exchange(fmx::TGlyphsManager::DisableGlyphPopulation, true);
    FEdit->PaintTo(FCanvas);
    fmx::TGlyphsManager::DisableGlyphPopulation = !populates;
    TTextLayoutNGOrv::EndRender();
    FCanvas.EndScene();
  }
  std::size_t Letters() {
    Paint();
    return FCanvas.CallsOf(TKind::DrawBitmap).size();
  }

  TLayoutScope FScope;
  fmx::TRecordingCanvas FCanvas;
  TForm FForm;
  std::unique_ptr<fmx::TEdit> FEdit;
};

TEST_F(EditStyle, TheBoxWorksWithoutAnyOneOfTheParts) {
  for (const char* part : Parts) {
    FEdit->SetText(u"");
    ApplyWithout(part);
    FEdit->SetFocus();
    Type(u"ab سل");
    EXPECT_EQ(FEdit->Text(), u"ab سل") << part;
    EXPECT_EQ(Edit().GetCaretPosition(), 5) << part;
    EXPECT_EQ(Letters(), std::string_view(part) == "content" ? 0U : 5U) << part << ", the blank included";
    FEdit->SelectAll();
    Paint();
    FEdit->MouseDown({fmx::TMouseButton::Left, {}, {20, 15}});
    FEdit->MouseUp({fmx::TMouseButton::Left, {}, {20, 15}});
    EXPECT_FALSE(Model().HasSelection()) << part;
    FForm.SetFocused(nullptr);
  }
}

TEST_F(EditStyle, APartOfAnotherKindCountsAsMissing) {
  for (const char* part : Parts) {
    ApplyChanged([part](fmx::TControl& style) {
      static_cast<void>(style.RemoveComponent(*style.FindStyleResource(part)));
      auto other = std::make_unique<fmx::TComponent>();
      other->SetStyleName(part);
      style.InsertComponent(std::move(other));
    });
    FEdit->SetText(u"ab");
    EXPECT_EQ(Letters(), std::string_view(part) == "content" ? 0U : 2U) << part;
  }
}

TEST_F(EditStyle, WithoutContentThereIsNoPlaceForACaret) {
  ApplyWithout("content");
  FEdit->SetText(u"abc");
  for (std::int32_t i = 0; i <= 3; ++i) EXPECT_EQ(Edit().View().GetCharX(i), 0);
  EXPECT_EQ(Edit().ContentRect(), (fmx::TRectF{0, 0, 200, 30})) << "the control's";
  EXPECT_EQ(Letters(), 0U);
}

TEST_F(EditStyle, SelectionForegroundAndCaretTakeTheColoursOfTheStyle) {
  ApplyChanged([](fmx::TControl& style) {
    dynamic_cast<fmx::TBrushObject*>(style.FindStyleResource("selection"))->Brush.SetColor(0xFF010203);
    dynamic_cast<fmx::TBrushObject*>(style.FindStyleResource("foreground"))->Brush.SetColor(0xFF040506);
    dynamic_cast<fmx::TColorObject*>(style.FindStyleResource("caretcolor"))->Color = 0xFF070809;
  });
  EXPECT_EQ(Model().SelectionFill().Color(), 0xFF010203);
  EXPECT_EQ(Settings().FontColor(), 0xFF040506);
  EXPECT_EQ(Model().Caret().GetFlasher().GetColor(), 0xFF070809);
}

TEST_F(EditStyle, WithoutItsColourTheCaretIsBlackAgain) {
  FEdit->Presentation();
  EXPECT_NE(Model().Caret().GetFlasher().GetColor(), fmx::TAlphaColors::Black);
  ApplyWithout("caretcolor");
  EXPECT_EQ(Model().Caret().GetFlasher().GetColor(), fmx::TAlphaColors::Black);
  ApplyWithout("selection");
  ApplyWithout("foreground");
  EXPECT_EQ(Settings().FontColor(), fmx::StyleForegroundColor(fmx::TStylePalette::Light)) << "the former style's stays";
}

TEST_F(EditStyle, TheFontIsTheStylesUnlessTheFormHasAnOpinion) {
  const auto other = [](fmx::TControl& style) {
    static_cast<void>(style.RemoveComponent(*style.FindStyleResource("font")));
    auto font = std::make_unique<fmx::TFontObject>(fmx::TFont(u"Style", 19));
    font->SetStyleName("font");
    style.InsertComponent(std::move(font));
  };
  ApplyChanged(other);
  EXPECT_EQ(Settings().Font().Family(), u"Style");
  EXPECT_EQ(Settings().Font().Size(), 19);
  FForm.Family = u"Form";
  ApplyChanged(other);
  EXPECT_EQ(Settings().Font().Family(), u"Form");
  EXPECT_EQ(Settings().Font().Size(), 19);
  Model().TextSettings().Font().SetSize(30);
  EXPECT_EQ(Settings().Font().Size(), 19) << "the style decides";
  Model().TextSettingsInfo().SetStyledSettings({});
  EXPECT_EQ(Settings().Font().Size(), 30);
}

TEST_F(EditStyle, SelectedTextKeepsItsColour) {
  ApplyChanged([](fmx::TControl& style) {
    dynamic_cast<fmx::TBrushObject*>(style.FindStyleResource("selectionfg"))->Brush.SetColor(0xFFABCDEF);
  });
  FEdit->SetText(u"abc");
  FEdit->SetFocus();
  Paint();
  EXPECT_EQ(FCanvas.CallsOf(TKind::DrawBitmap).size(), 3U);
  for (const auto& call : FCanvas.CallsOf(TKind::DrawBitmap)) EXPECT_NE(call.Color, 0xFFABCDEF);
}

TEST_F(EditStyle, WithoutBothHandlesThereAreNoStems) {
  const auto stems = [&](std::string_view missing) {
    if (missing.empty())
      ApplyChanged([](fmx::TControl&) {});
    else
      ApplyWithout(missing);
    FEdit->SetText(u"abc");
    FForm.SetFocused(nullptr);
    FEdit->SetFocus();
    Paint();
    const fmx::TAlphaColor color = Model().Caret().GetFlasher().GetColor();
    const auto fills = FCanvas.CallsOf(TKind::FillRect);
    return std::count_if(fills.begin(), fills.end(), [color](const auto& call) { return call.Color == color; });
  };
  EXPECT_EQ(stems(""), 2);
  EXPECT_EQ(stems("leftselectionpoint"), 0);
  EXPECT_EQ(stems("rightselectionpoint"), 0);
}

TEST_F(EditStyle, HandlesAreHiddenWithoutASelection) {
  FEdit->SetText(u"abc");
  FEdit->SetFocus();
  fmx::TSelectionPoint* const left = Edit().SelectionPoint(TSelectionPointType::Left);
  fmx::TSelectionPoint* const right = Edit().SelectionPoint(TSelectionPointType::Right);
  const auto select = [&](std::int32_t start, std::int32_t length) {
    Model().SetSelLength(0);
    Model().SetSelStart(start);
    Model().SetSelLength(length);
  };
  select(1, 2);
  EXPECT_TRUE(left->Visible());
  EXPECT_TRUE(right->Visible());
  select(3, -2);
  EXPECT_FALSE(left->Visible()) << "not while the caret is behind the other end";
  EXPECT_FALSE(right->Visible());
  select(1, 2);
  FForm.SetFocused(nullptr);
  EXPECT_FALSE(left->Visible());
  EXPECT_FALSE(right->Visible());
}

TEST_F(EditStyle, HandlesStandTwiceTheirGripBeyondTheLine) {
  FEdit->SetText(u"abc");
  FEdit->SetFocus();
  Edit().SelectionPoint(TSelectionPointType::Left)->SetGripSize(5);
  Edit().SelectionPoint(TSelectionPointType::Right)->SetGripSize(9);
  FEdit->SelectAll();
  const float bottom = Edit().GetSelRect().Bottom;
  EXPECT_EQ(Edit().SelectionPoint(TSelectionPointType::Left)->Position().Y, bottom - 10);
  EXPECT_EQ(Edit().SelectionPoint(TSelectionPointType::Right)->Position().Y, bottom + 10);
  EXPECT_EQ(Edit().GetSelectionPointSize(), (fmx::TSizeF{10, 10}));
}

TEST_F(EditStyle, ButtonsOfTheEditTakeRoomFromTheContent) {
  class TButton : public fmx::TControl, public fmx::IEditButton {};
  TButton first;
  TButton second;
  fmx::TControl label;
  for (fmx::TControl* each : std::initializer_list<fmx::TControl*>{&first, &second, &label}) {
    each->SetSize({20, 30});
    each->SetParent(&FEdit->ButtonsContent());
  }
  Edit();
  EXPECT_EQ(FEdit->ButtonsContent().Size(), (fmx::TSizeF{40, 30})) << "what is no button has no place";
  EXPECT_EQ(FEdit->ButtonsContent().Position(), (fmx::TPointF{160, 0}));
  EXPECT_EQ(Edit().ContentRect().Width(), 188 - 40);
  ApplyWithout("buttons");
  EXPECT_EQ(Edit().ContentRect().Width(), 188);
  for (fmx::TControl* each : std::initializer_list<fmx::TControl*>{&first, &second, &label}) each->SetParent(nullptr);
}

TEST_F(EditStyle, WhatStandsAtTheLeftMovesTheContent) {
  ApplyChanged([](fmx::TControl& style) {
    dynamic_cast<fmx::TControl*>(style.FindStyleResource("leftbuttons"))->SetSize({30, 30});
  });
  const auto* content = dynamic_cast<fmx::TControl*>(Edit().FindStyleResource("content"));
  const auto* prompt = dynamic_cast<fmx::TControl*>(Edit().FindStyleResource("prompt"));
  EXPECT_EQ(content->Position(), (fmx::TPointF{36, 0}));
  EXPECT_EQ(content->Width(), 200 - 30 - 12);
  EXPECT_EQ(prompt->Position(), content->Position());
  EXPECT_EQ(prompt->Size(), content->Size());
  EXPECT_FALSE(content->HitTest());
}

TEST_F(EditStyle, MarginsBelowNothingAreNothingAtTheLeftAndTop) {
  const auto contentOf = [&](const fmx::TBounds& margins) {
    ApplyChanged([margins](fmx::TControl& style) {
      dynamic_cast<fmx::TControl*>(style.FindStyleResource("content"))->SetMargins(margins);
    });
    const auto* content = dynamic_cast<fmx::TControl*>(Edit().FindStyleResource("content"));
    return fmx::TRectF::FromSize(content->Position(), content->Width(), content->Height());
  };
  EXPECT_EQ(contentOf({10, 3, 20, 5}), (fmx::TRectF{10, 3, 180, 25}));
  EXPECT_EQ(contentOf({-10, -3, 20, 5}), (fmx::TRectF{0, 0, 180, 25}));
  EXPECT_EQ(contentOf({0, 0, -20, -5}), (fmx::TRectF{0, 0, 220, 35}));
  EXPECT_EQ(contentOf({150, 20, 150, 20}).Width(), 0);
}

TEST_F(EditStyle, TheLineStandsWhereItsAlignmentSays) {
  const auto top = [&](TTextAlign align) {
    Model().TextSettings().SetVertAlign(align);
    return Edit().LineTop();
  };
  FEdit->SetSize({200, 50});
  EXPECT_EQ(top(TTextAlign::Center), 14);
  EXPECT_EQ(top(TTextAlign::Leading), 0);
  EXPECT_EQ(top(TTextAlign::Trailing), 28);
  FEdit->SetSize({200, 10});
  EXPECT_EQ(top(TTextAlign::Trailing), 0);
  EXPECT_EQ(top(TTextAlign::Center), 0);
}

// Glyphs of a height of the test's own.
class TGlyphsOfHeight : public fmx::TFixedGlyphs {
 public:
  explicit TGlyphsOfHeight(float height) : FHeight(height) {}
  fmx::TFontGlyph DoGetGlyph(std::span<const std::uint32_t> chars, fmx::TFontGlyphSettings settings,
                             bool colorful) override {
    fmx::TFontGlyph glyph = TFixedGlyphs::DoGetGlyph(chars, settings, colorful);
    glyph.VerticalAdvance = FHeight;
    return glyph;
  }

 private:
  float FHeight;
};

TEST_F(EditStyle, ALineIsATenthHigherThanItsTextAndAtLeastOne) {
  const auto lineHeight = [&](float textHeight, float boxHeight) {
    TFontGlyphManagerOrv::SetCurrent(
        std::make_unique<TBackEndFontGlyphManager>(std::make_unique<TGlyphsOfHeight>(textHeight)));
    fmx::TCanvasManager::UnInitialize();
    fmx::TCanvasManager::RegisterCanvas(fmx::TRecordingCanvas::Class(), true, false);
    FEdit->SetSize({200, boxHeight});
    FEdit->FreePresentation();
    return Edit().LineHeight();
  };
  EXPECT_EQ(lineHeight(20, 100), 22);
  EXPECT_EQ(lineHeight(4, 100), 5);
  EXPECT_EQ(lineHeight(25, 100), 27) << "halves go to the even number";
  EXPECT_EQ(lineHeight(35, 100), 39);
  EXPECT_EQ(lineHeight(20, 21), 21) << "no higher than the content";
  EXPECT_EQ(lineHeight(20, 0), 0);
}

TEST_F(EditStyle, AnotherStyleKeepsTextCaretAndSelection) {
  FEdit->SetText(u"abcdef");
  FEdit->SetFocus();
  Model().SetSelLength(0);
  Model().SetCaretPosition(4);
  Edit().FreeStyleLookup();
  EXPECT_EQ(Letters(), 0U);
  Type(u"X");
  Edit().ApplyStyleLookup();
  EXPECT_EQ(FEdit->Text(), u"abcdXef");
  EXPECT_EQ(Edit().GetCaretPosition(), 5);
  EXPECT_EQ(Letters(), 7U);
}

TEST_F(EditStyle, InADesignerTheStylesSettingsAreKeptApartAndThereIsNoMenu) {
  Edit();
  EXPECT_FALSE(Model().TextSettingsInfo().Design());
  EXPECT_TRUE(FEdit->ShowContextMenu({}));
  Edit().SetDesigning(true);
  Edit().FreeStyleLookup();
  Edit().ApplyStyleLookup();
  EXPECT_TRUE(Model().TextSettingsInfo().Design());
  EXPECT_FALSE(FEdit->ShowContextMenu({}));
}

TEST_F(EditStyle, ThePromptLooksAsTheTextDoes) {
  Model().SetPromptText(u"Name");
  Edit();
  auto* const prompt = dynamic_cast<fmx::TTextObject*>(Edit().FindStyleResource("prompt"));
  ASSERT_NE(prompt, nullptr);
  EXPECT_EQ(prompt->GetText(), u"Name");
  Model().TextSettings().SetHorzAlign(TTextAlign::Trailing);
  EXPECT_EQ(prompt->GetTextSettings().HorzAlign(), TTextAlign::Trailing);
  EXPECT_EQ(prompt->GetTextSettings().FontColor(), Settings().FontColor());
  EXPECT_TRUE(prompt->Visible());
  Type(u"a");
  EXPECT_FALSE(prompt->Visible());
  Model().SetPromptText(u"Other");
  EXPECT_EQ(prompt->GetText(), u"Other");
  FEdit->SetText(u"");
  EXPECT_TRUE(prompt->Visible());
}

}  // namespace
}  // namespace orv::testing
