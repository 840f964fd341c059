// Text on a canvas: a layout for each call.
#include <memory>

#include "fmx/Canvas.h"
#include "fmx/TextLayout.h"
#include "fmx/TextLayoutManager.h"

namespace fmx {
namespace {

std::unique_ptr<TTextLayout> LayoutFor(TCanvas& canvas, std::u16string_view text) {
  auto layout = TTextLayoutManager::CreateLayout(&canvas);
  layout->BeginUpdate();
  layout->SetFont(canvas.Font());
  layout->SetText(text);
  return layout;
}

std::unique_ptr<TTextLayout> Unlimited(TCanvas& canvas, std::u16string_view text) {
  auto layout = LayoutFor(canvas, text);
  layout->EndUpdate();
  return layout;
}

std::unique_ptr<TTextLayout> InRect(TCanvas& canvas, const TRectF& rect, std::u16string_view text, bool wordWrap,
                                    TTextAlign horizontal, TTextAlign vertical) {
  const TRectF r = rect.Normalized();
  auto layout = LayoutFor(canvas, text);
  layout->SetTopLeft(r.TopLeft());
  layout->SetMaxSize({r.Width(), r.Height()});
  layout->SetWordWrap(wordWrap);
  layout->SetHorizontalAlign(horizontal);
  layout->SetVerticalAlign(vertical);
  layout->SetColor(canvas.Fill().Color());
  layout->EndUpdate();
  return layout;
}

}  // namespace

void TCanvas::FillText(const TRectF& rect, std::u16string_view text, bool wordWrap, float opacity,
                       TTextAlign horizontal, TTextAlign vertical) {
  if (!rect.IsFinite() || text.empty() || Fill().IsInvisible() || BeginSceneCount() == 0) return;
  const TCanvasStateGuard guard(*this);
  IntersectClipRect(rect);
  const auto layout = InRect(*this, rect, text, wordWrap, horizontal, vertical);
  layout->SetOpacity(opacity);
  layout->RenderLayout(*this);
}

TRectF TCanvas::MeasureText(const TRectF& rect, std::u16string_view text, bool wordWrap, TTextAlign horizontal,
                            TTextAlign vertical) {
  if (!rect.IsFinite()) return {};
  return InRect(*this, rect, text, wordWrap, horizontal, vertical)->TextRect();
}

float TCanvas::TextWidth(std::u16string_view text) {
  return Unlimited(*this, text)->TextWidth();
}

float TCanvas::TextHeight(std::u16string_view text) {
  return Unlimited(*this, text)->TextHeight();
}

}  // namespace fmx
