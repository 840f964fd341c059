// Style, places and painting of the single-line edit.
#include <algorithm>
#include <cmath>

#include "editing/Orv.Edit.Style.h"
#include "fmx/CanvasManager.h"
#include "fmx/PathShapes.h"
#include "fmx/Rounding.h"
#include "textlayout/Orv.TextLayout.GPU.h"

namespace orv {
namespace {

// Tall and deep letters, for the height of a line.
constexpr std::u16string_view SampleLine = u"Lb|y";
constexpr float HighlightOpacity = 0.2F;

// Brackets changes of text settings.
class TSettingsUpdate {
 public:
  explicit TSettingsUpdate(fmx::TTextSettings& settings) : FSettings(settings) { FSettings.BeginUpdate(); }
  ~TSettingsUpdate() { FSettings.EndUpdate(); }
  TSettingsUpdate(const TSettingsUpdate&) = delete;
  TSettingsUpdate& operator=(const TSettingsUpdate&) = delete;

 private:
  fmx::TTextSettings& FSettings;
};

}  // namespace

// --- Style ---

void TOrvStyledEdit::ApplyStyle() {
  TStyledPresentation::ApplyStyle();
  fmx::TTextSettingsInfo& info = Model().TextSettingsInfo();
  {
    const TSettingsUpdate settingsUpdate(info.Defaults());
    const fmx::TModelUpdate modelUpdate(Model());
    info.SetDesign(false);
    TakeStyle(info.Defaults());
    info.Defaults().Change();
  }
  info.SetDesign(IsDesigning());
  UpdateTextLayout();
  UpdatePromptTextSettings();
}

void TOrvStyledEdit::TakeStyle(fmx::TTextSettings& settings) {
  const auto part = [this]<typename T>(std::string_view name, T*& found) {
    found = dynamic_cast<T*>(FindStyleResource(name));
    return found != nullptr;
  };
  part("buttons", FButtonsLayout);
  part("leftbuttons", FLeftLayout);
  if (FButtonsLayout != nullptr || FLeftLayout != nullptr) RealignButtonsContainer();
  if (part("prompt", FPrompt)) {
    PromptTextChanged();
    ShowPrompt();
  }
  if (part("content", FContent)) {
    FContent->SetHitTest(false);
    RealignContent();
    FContent->OnPaint = [this](fmx::TControl&, fmx::TCanvas& canvas, const fmx::TRectF& rect) {
      DoContentPaint(canvas, rect);
    };
  }
  fmx::TBrushObject* brush = nullptr;
  if (part("selection", brush)) Model().SelectionFill() = brush->Brush;
  if (part("foreground", brush)) settings.SetFontColor(brush->Brush.Color());
  if (part("selectionfg", brush)) FSelectionColor = brush->Brush.Color();
  fmx::TColorObject* color = nullptr;
  Model().Caret().SetDefaultColor(part("caretcolor", color) ? color->Color : 0);
  if (const auto* font = dynamic_cast<fmx::IFontObject*>(FindStyleResource("font")))
    settings.Font().Assign(font->GetFont());
  if (part("leftselectionpoint", FLeftSelPt)) {
    FLeftSelPt->SetVisible(false);
    BindSelectionPoint(*FLeftSelPt, TSelectionPointType::Left);
  }
  if (part("rightselectionpoint", FRightSelPt)) {
    FRightSelPt->SetVisible(false);
    BindSelectionPoint(*FRightSelPt, TSelectionPointType::Right);
  }
  FHandlersCrossed = false;
  const fmx::IRoot* const root = Root();
  if (root == nullptr) return;
  if (const std::u16string family = root->DefaultFontFamily(); !family.empty()) settings.Font().SetFamily(family);
}

void TOrvStyledEdit::FreeStyle() {
  FContent = nullptr;
  FLeftLayout = nullptr;
  FButtonsLayout = nullptr;
  FPrompt = nullptr;
  FLeftSelPt = nullptr;
  FRightSelPt = nullptr;
  TStyledPresentation::FreeStyle();
}

// --- Places ---

void TOrvStyledEdit::DoRealign() {
  TStyledPresentation::DoRealign();
  RealignContent();
  RealignButtonsContainer();
  SetCaretPosition(GetOriginCaretPosition());
}

void TOrvStyledEdit::Resize() {
  TStyledPresentation::Resize();
  DropWaitingHalf();
  UpdateSpelling();
}

void TOrvStyledEdit::RealignContent() {
  const bool wasDisabled = DisableAlign();
  SetDisableAlign(true);
  RealignButtonsContainer();
  if (FContent != nullptr) {
    const float leftWidth = FLeftLayout != nullptr ? FLeftLayout->Width() : 0;
    const float rightWidth = FButtonsLayout != nullptr ? FButtonsLayout->Width() : 0;
    if (FTextHeight <= 0) UpdateTextHeight();
    const fmx::TBounds margins = FContent->Margins();
    const float left = std::max(margins.Left, 0.0F);
    const float top = std::max(margins.Top, 0.0F);
    const float width = std::max(Width() - rightWidth - leftWidth - margins.Right - left, 0.0F);
    const float height = std::max(Height() - margins.Bottom - top, 0.0F);
    const float leading = std::max(1.0F, static_cast<float>(fmx::Round(FTextHeight / 10)));
    FLineHeight = std::max(std::min(height, FTextHeight + leading), 0.0F);
    switch (ResultingSettings().VertAlign()) {
      case fmx::TTextAlign::Center:
        FLineTop = std::max((height - FLineHeight) / 2, 0.0F) + top;
        break;
      case fmx::TTextAlign::Leading:
        FLineTop = top;
        break;
      case fmx::TTextAlign::Trailing:
        FLineTop = std::max(height - FLineHeight, 0.0F) + top;
        break;
    }
    FContent->SetBounds(left + leftWidth, top, width, height);
    if (FPrompt != nullptr) FPrompt->SetBounds(left + leftWidth, top, width, height);
    FTextLayout->SetTopLeft(ContentRect().TopLeft());
    View().UpdateLayoutSize();
  }
  SetDisableAlign(wasDisabled);
}

void TOrvStyledEdit::RealignButtonsContainer() {
  if (FButtonsLayout == nullptr) return;
  fmx::TControl& buttons = FEdit.ButtonsContent();
  float width = 0;
  for (const fmx::TControl* button : buttons.Children())
    if (dynamic_cast<const fmx::IEditButton*>(button) != nullptr) width += button->Width();
  // The style leaves the row's place to the box: its right end.
  FButtonsLayout->SetBounds(Width() - width, 0, width, Height());
  const fmx::TPointF origin = FEdit.AbsoluteToLocal(FButtonsLayout->LocalToAbsolute({}));
  buttons.SetBounds(origin.X, origin.Y, width, Height());
}

void TOrvStyledEdit::UpdateTextLayout() {
  UpdatePromptTextSettings();
  FTextLayout->BeginUpdate();
  FTextLayout->SetVerticalAlign(ResultingSettings().VertAlign());
  FTextLayout->SetFont(ResultingSettings().Font());
  FTextLayout->SetTopLeft(ContentRect().TopLeft());
  View().SetUpLayout();
  FTextLayout->EndUpdate();
  UpdateTextHeight();
}

void TOrvStyledEdit::UpdateTextHeight() {
  FTextHeight = 0;
  if (FContent == nullptr || FContent->Canvas() == nullptr) return;
  fmx::TCanvas& canvas = fmx::TCanvasManager::MeasureCanvas();
  canvas.Font().Assign(ResultingSettings().Font());
  FTextHeight = canvas.TextHeight(SampleLine);
}

void TOrvStyledEdit::UpdatePromptTextSettings() {
  if (auto* const prompt = dynamic_cast<fmx::ITextSettingsObject*>(FPrompt))
    prompt->GetTextSettings().Assign(ResultingSettings());
}

// --- Painting ---

void TOrvStyledEdit::Paint(fmx::TCanvas& canvas) {
  TStyledPresentation::Paint(canvas);
  // The first paint is the first time that there is a canvas to measure for.
  if (FContent != nullptr && FTextHeight <= 0) Realign();
}

void TOrvStyledEdit::PaintOver(fmx::TCanvas& canvas) {
  if (FContent == nullptr) return;
  const fmx::TCanvasStateGuard guard(canvas);
  canvas.MultiplyMatrix(fmx::TMatrix::Translation(FContent->Position().X, 0));
  Model().Caret().Paint(canvas, AbsoluteOpacity());
}

void TOrvStyledEdit::DoContentPaint(fmx::TCanvas& canvas, const fmx::TRectF& rect) {
  const fmx::TCanvasStateGuard guard(canvas);
  canvas.IntersectClipRect(rect);
  canvas.Fill().SetColor(ResultingSettings().FontColor());
  if (Model().Password()) {
    for (const fmx::TRectF& dot : PasswordDots()) canvas.FillEllipse(dot, AbsoluteOpacity());
  } else {
    PaintText(canvas);
  }
  PaintSelection(canvas);
  if (Model().CheckSpelling() && FSpellService != nullptr && !FTextService->HasMarkedText() && HasText())
    PaintSpelling(canvas);
}

fmx::TSingleLineDrawing TOrvStyledEdit::SingleLine() {
  fmx::TSingleLineDrawing drawing;
  drawing.Font = &ResultingSettings().Font();
  drawing.Opacity = AbsoluteOpacity();
  if (fmx::GlobalUseGPUCanvas && HorizontalAlignment() == fmx::TTextAlign::Trailing)
    drawing.Flags.Include(fmx::TFillTextFlag::RightToLeft);
  drawing.VertAlign = ResultingSettings().VertAlign();
  View().SetUpDrawing(drawing);
  return drawing;
}

void TOrvStyledEdit::PaintText(fmx::TCanvas& canvas) {
  FillTextFlags();  // the direction follows the alignment at each paint
  if (View().DrawText(*FTextService, canvas, SingleLine())) UpdateCaretPosition();
}

fmx::TRegion TOrvStyledEdit::SelectionFillRects() {
  if (!IsFocused() || !Model().HasSelection()) return {};
  const fmx::TPointF corner = ContentRect().TopLeft();
  const fmx::TRectF whole = GetSelRect().Offset(-corner.X, -corner.Y).Normalized();
  if (Model().Password() || !TOrvGlobalSettings::Corrections.Contains(TOrvCorrection::SelectionRegions)) return {whole};
  fmx::TRegion filled = View().CharacterBoxes(SelectedRange());
  for (fmx::TRectF& box : filled) box = {box.Left - corner.X, whole.Top, box.Right - corner.X, whole.Bottom};
  return filled;
}

void TOrvStyledEdit::PaintSelection(fmx::TCanvas& canvas) {
  const fmx::TRegion filled = SelectionFillRects();
  for (const fmx::TRectF& rect : filled)
    canvas.FillRect(rect, 0, 0, fmx::AllCorners, AbsoluteOpacity(), Model().SelectionFill());
  if (filled.empty() || FLeftSelPt == nullptr || FRightSelPt == nullptr) return;
  FCursorFill.SetColor(Model().Caret().GetFlasher().GetColor());
  const float half = GetFlasherWidth() / 2;
  const fmx::TPointF corner = ContentRect().TopLeft();
  const fmx::TRectF ends = GetSelRect().Offset(-corner.X, -corner.Y).Normalized();
  for (const float x : {ends.Left, ends.Right})
    canvas.FillRect({x - half, ends.Top, x + half, ends.Bottom}, AbsoluteOpacity(), FCursorFill);
}

void TOrvStyledEdit::PaintSpelling(fmx::TCanvas& canvas) {
  if (FUpdateSpelling) FindMisspeltWords();
  if (!FSpellingRegions.empty()) {
    const float shift = View().SpellingShift();
    for (const fmx::TRectF& region : FSpellingRegions)
      canvas.DrawLine({region.Left - shift, region.Bottom}, {region.Right - shift, region.Bottom}, AbsoluteOpacity(),
                      FSpellUnderlineBrush);
  }
  if (!FSpellHightlightRect.IsEmpty())
    canvas.FillRect(FSpellHightlightRect.Offset(-View().LayoutShift(), 0), 0, 0, fmx::AllCorners, HighlightOpacity,
                    FSpellFill);
}

}  // namespace orv
