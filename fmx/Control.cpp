#include "fmx/Control.h"

#include <algorithm>
#include <cmath>

#include "fmx/Exceptions.h"
#include "fmx/Root.h"

namespace fmx {
namespace {

float HeldSide(float side) {
  return std::isfinite(side) ? std::max(side, 0.0F) : 0.0F;
}

}  // namespace

TControl::~TControl() {
  for (TControl* child : FChildren) child->FParent = nullptr;
  if (FParent != nullptr) std::erase(FParent->FChildren, this);
}

// --- Tree ---

void TControl::SetParent(TControl* parent) {
  if (parent == FParent) return;
  for (const TControl* each = parent; each != nullptr; each = each->FParent)
    if (each == this) throw EInvalidOperation("A control cannot stand in itself");
  if (parent != nullptr) parent->FChildren.push_back(this);
  if (FParent != nullptr) std::erase(FParent->FChildren, this);
  FParent = parent;
}

void TControl::BringToFront() {
  if (FParent == nullptr) return;
  auto& siblings = FParent->FChildren;
  const auto own = std::find(siblings.begin(), siblings.end(), this);
  std::rotate(own, own + 1, siblings.end());
}

IRoot* TControl::Root() const {
  const TControl* outermost = this;
  while (outermost->FParent != nullptr) outermost = outermost->FParent;
  return outermost->FRoot;
}

TCanvas* TControl::Canvas() const {
  const IRoot* const root = Root();
  return root != nullptr ? root->GetCanvas() : nullptr;
}

// --- Place ---

void TControl::SetPosition(TPointF position) {
  const TPointF held = position.IsFinite() ? position : TPointF{};
  if (held == FPosition) return;
  FPosition = held;
  Repaint();
}

void TControl::SetSize(TSizeF size) {
  const TSizeF held{HeldSide(size.Width), HeldSide(size.Height)};
  if (held == FSize) return;
  FSize = held;
  Resize();
  Repaint();
}

void TControl::SetBounds(float left, float top, float width, float height) {
  SetPosition({left, top});
  SetSize({width, height});
}

TPointF TControl::Origin() const {
  TPointF origin;
  for (const TControl* each = this; each != nullptr; each = each->FParent) origin = origin + each->FPosition;
  return origin;
}

TPointF TControl::ScreenToLocal(TPointF point) const {
  const IRoot* const root = Root();
  return AbsoluteToLocal(root != nullptr ? root->ScreenToClient(point) : point);
}

void TControl::Realign() {
  if (!FDisableAlign) DoRealign();
}

// --- Looks ---

void TControl::SetVisible(bool visible) {
  if (visible == FVisible) return;
  FVisible = visible;
  Repaint();
}

void TControl::SetOpacity(float opacity) {
  if (std::isfinite(opacity)) FOpacity = std::clamp(opacity, 0.0F, 1.0F);
}

float TControl::AbsoluteOpacity() const {
  float opacity = 1;
  for (const TControl* each = this; each != nullptr; each = each->FParent) opacity *= each->FOpacity;
  return opacity;
}

void TControl::Repaint() const {
  if (IRoot* const root = Root()) root->Invalidate();
}

void TControl::PaintTo(TCanvas& canvas) {
  if (!FVisible) return;
  const TCanvasStateGuard guard(canvas);
  canvas.MultiplyMatrix(TMatrix::Translation(FPosition.X, FPosition.Y));
  Paint(canvas);
  if (OnPaint) OnPaint(*this, canvas, LocalRect());
  // A paint may add children or take them away.
  for (std::size_t i = 0; i < FChildren.size(); ++i) FChildren[i]->PaintTo(canvas);
  PaintOver(canvas);
}

// --- Pointer ---

void TControl::MouseDown(const TMouseEvent& event) {
  if (event.Button == TMouseButton::Left) FPressed = true;
  if (OnMouseDown) OnMouseDown(*this, event);
}

void TControl::MouseMove(const TMouseEvent& /*event*/) {}

void TControl::MouseUp(const TMouseEvent& event) {
  if (event.Button == TMouseButton::Left) FPressed = false;
  if (OnMouseUp) OnMouseUp(*this, event);
}

}  // namespace fmx
