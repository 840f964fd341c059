#include "fmx/Style.h"

#include <map>
#include <utility>

#include "fmx/DefaultStyle.h"

namespace fmx {
namespace {

using TMakers = std::map<std::string, TStyleMaker, std::less<>>;

TMakers& Makers() {
  static TMakers makers{{"editstyle", &DefaultEditStyle}};
  return makers;
}

}  // namespace

void TStyleManager::Register(std::string_view name, TStyleMaker maker) {
  if (maker)
    Makers().insert_or_assign(std::string(name), std::move(maker));
  else if (const auto found = Makers().find(name); found != Makers().end())
    Makers().erase(found);
}

std::unique_ptr<TControl> TStyleManager::CreateStyle(std::string_view name) {
  const auto found = Makers().find(name);
  return found != Makers().end() ? found->second() : nullptr;
}

void TTextObject::SetText(std::u16string_view text) {
  FText = text;
  Repaint();
}

void TTextObject::Paint(TCanvas& canvas) {
  canvas.Font().Assign(FSettings.Font());
  canvas.Fill().SetColor(FSettings.FontColor());
  canvas.FillText(LocalRect(), FText, false, AbsoluteOpacity(), FSettings.HorzAlign(), FSettings.VertAlign());
}

void TRectangle::Paint(TCanvas& canvas) {
  const TRectF rect = LocalRect().Inset(FStroke.Thickness() / 2, FStroke.Thickness() / 2);
  constexpr TCorners all = AllCorners;
  canvas.FillRect(rect, FRadius, FRadius, all, AbsoluteOpacity(), FFill);
  canvas.DrawRect(rect, FRadius, FRadius, all, AbsoluteOpacity(), FStroke);
}

void TSelectionPoint::MouseMove(const TMouseEvent& event) {
  TControl::MouseMove(event);
  if (!Pressed()) return;
  TPointF place = Position() + event.Point;
  if (OnChangePosition) OnChangePosition(*this, place.X, place.Y);
  SetPosition(place);
}

bool TSelectionPoint::PointInObject(TPointF point) const {
  // A finger is broader than what is drawn.
  constexpr float reach = 2;
  return TRectF{}.Touches(point, reach * FGripSize);
}

void TSelectionPoint::Paint(TCanvas& canvas) {
  if (!FFingersSelect) return;
  const TRectF grip{-FGripSize, -FGripSize, FGripSize, FGripSize};
  canvas.FillEllipse(grip, AbsoluteOpacity(), TBrush(FColor));
}

}  // namespace fmx
