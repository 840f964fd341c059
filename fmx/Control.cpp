#include "fmx/Control.h"

#include <algorithm>
#include <cmath>

#include "fmx/Exceptions.h"

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

void TControl::SetParent(TControl* parent) {
  if (parent == FParent) return;
  for (const TControl* each = parent; each != nullptr; each = each->FParent)
    if (each == this) throw EInvalidOperation("A control cannot stand in itself");
  if (parent != nullptr) parent->FChildren.push_back(this);
  if (FParent != nullptr) std::erase(FParent->FChildren, this);
  FParent = parent;
}

void TControl::SetSize(TSizeF size) {
  const TSizeF held{HeldSide(size.Width), HeldSide(size.Height)};
  if (held == FSize) return;
  FSize = held;
  Resize();
}

}  // namespace fmx
