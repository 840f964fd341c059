#include "fmx/Caret.h"

namespace fmx {

TCustomCaret::TCustomCaret() {
  FTimer.SetInterval(BlinkInterval);
  FTimer.OnTimer = [this] {
    FLit = !FLit;
    if (OnRepaint) OnRepaint();
  };
}

void TCustomCaret::EndUpdate() {
  if (FUpdating == 0 || --FUpdating > 0) return;
  if (FChanged) Changed();
}

void TCustomCaret::Changed() {
  FChanged = false;
  FLit = true;
  FTimer.SetEnabled(false);
  FTimer.SetEnabled(IsShown());
  if (OnRepaint) OnRepaint();
}

TAlphaColor TCustomCaret::GetColor() const {
  if (FColor != 0) return FColor;
  return FDefaultColor != 0 ? FDefaultColor : TAlphaColors::Black;
}

void TCustomCaret::Paint(TCanvas& canvas, float opacity) const {
  if (!IsSeen()) return;
  canvas.FillRect(canvas.AlignToPixel(TRectF::FromSize(FPosition, FSize.Width, FSize.Height)), opacity,
                  TBrush(GetColor()));
}

}  // namespace fmx
