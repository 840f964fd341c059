#include "examples/gallery/Text.h"

#include "fmx/TextLayoutManager.h"

namespace gallery {

std::unique_ptr<fmx::TTextLayout> Lay(fmx::TCanvas& canvas, const fmx::TRectF& box, std::u16string_view text,
                                      const TTextStyle& style) {
  auto layout = fmx::TTextLayoutManager::CreateLayout(&canvas);
  layout->BeginUpdate();
  layout->Font().SetSize(style.Size);
  layout->Font().SetFamily(style.Family);
  layout->SetColor(style.Color);
  layout->SetHorizontalAlign(style.Horizontal);
  layout->SetVerticalAlign(style.Vertical);
  layout->SetWordWrap(style.Wrap);
  layout->SetTrimming(style.Trimming);
  layout->SetTopLeft(canvas.AlignToPixel(box.TopLeft()));  // where glyphs are sharp
  layout->SetMaxSize({box.Width(), box.Height()});
  layout->SetText(text);
  layout->EndUpdate();
  return layout;
}

void DrawText(fmx::TCanvas& canvas, const fmx::TRectF& box, std::u16string_view text, const TTextStyle& style) {
  Lay(canvas, box, text, style)->RenderLayout(canvas);
}

float DrawParagraph(fmx::TCanvas& canvas, fmx::TRectF box, std::u16string_view text, TTextStyle style) {
  style.Wrap = true;
  style.Vertical = fmx::TTextAlign::Leading;
  box.Bottom = box.Top + fmx::MaxLayoutSize.Y;
  const auto layout = Lay(canvas, box, text, style);
  layout->RenderLayout(canvas);
  return layout->TextHeight();
}

void FillRound(fmx::TCanvas& canvas, const fmx::TRectF& box, float radius, fmx::TAlphaColor color) {
  canvas.FillRect(box, radius, radius, fmx::AllCorners, 1, fmx::TBrush(color));
}

void OutlineRound(fmx::TCanvas& canvas, const fmx::TRectF& box, float radius, fmx::TAlphaColor color) {
  fmx::TStrokeBrush pen(color);
  pen.SetThickness(1);
  canvas.DrawRect(box.Inset(0.5F, 0.5F), radius, radius, fmx::AllCorners, 1, pen);
}

void DrawCard(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& card, std::u16string_view caption) {
  DrawText(canvas, {card.Left + 2, card.Top - CardCaptionHeight, card.Right, card.Top - 4}, caption, {12, theme.Faint});
  FillRound(canvas, card, 10, theme.Card);
  OutlineRound(canvas, card, 10, theme.Line);
}

}  // namespace gallery
