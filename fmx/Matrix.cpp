#include "fmx/Matrix.h"

#include <algorithm>
#include <cmath>

namespace fmx {

TMatrix TMatrix::Rotation(float angle) {
  const float sine = std::sin(angle);
  const float cosine = std::cos(angle);
  return {cosine, sine, -sine, cosine, 0, 0};
}

TRectF TMatrix::BoundsOf(const TRectF& r) const {
  const TPointF corners[] = {Apply({r.Left, r.Top}), Apply({r.Right, r.Top}), Apply({r.Right, r.Bottom}),
                             Apply({r.Left, r.Bottom})};
  TRectF bounds{corners[0].X, corners[0].Y, corners[0].X, corners[0].Y};
  for (const TPointF p : corners) {
    bounds = {std::min(bounds.Left, p.X), std::min(bounds.Top, p.Y), std::max(bounds.Right, p.X),
              std::max(bounds.Bottom, p.Y)};
  }
  return bounds;
}

bool TMatrix::IsFinite() const {
  const float parts[] = {m11, m12, m21, m22, m31, m32};
  return std::all_of(std::begin(parts), std::end(parts), [](float part) { return std::isfinite(part); });
}

TMatrix TMatrix::Inverse() const {
  const double determinant = double{m11} * m22 - double{m12} * m21;
  if (determinant == 0 || !std::isfinite(determinant)) return {};
  const auto part = [determinant](double value) { return static_cast<float>(value / determinant); };
  const TMatrix inverse{part(m22),
                        part(-double{m12}),
                        part(-double{m21}),
                        part(m11),
                        part(double{m21} * m32 - double{m22} * m31),
                        part(double{m12} * m31 - double{m11} * m32)};
  return inverse.IsFinite() ? inverse : TMatrix{};
}

}  // namespace fmx
