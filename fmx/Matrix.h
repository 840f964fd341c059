// Affine transforms of the plane.
#pragma once

#include "fmx/Geometry.h"

namespace fmx {

// Takes (x, y) to (x m11 + y m21 + m31, x m12 + y m22 + m32). A value type.
struct TMatrix {
  float m11 = 1;
  float m12 = 0;
  float m21 = 0;
  float m22 = 1;
  float m31 = 0;
  float m32 = 0;

  static constexpr TMatrix Translation(float x, float y) { return {1, 0, 0, 1, x, y}; }
  static constexpr TMatrix Scaling(float x, float y) { return {x, 0, 0, y, 0, 0}; }
  // By that many radians, from the X axis toward the Y axis: clockwise on the screen.
  static TMatrix Rotation(float angle);

  // First this, then the other.
  constexpr TMatrix operator*(const TMatrix& b) const {
    return {m11 * b.m11 + m12 * b.m21, m11 * b.m12 + m12 * b.m22,         m21 * b.m11 + m22 * b.m21,
            m21 * b.m12 + m22 * b.m22, m31 * b.m11 + m32 * b.m21 + b.m31, m31 * b.m12 + m32 * b.m22 + b.m32};
  }

  constexpr TPointF Apply(TPointF p) const { return {p.X * m11 + p.Y * m21 + m31, p.X * m12 + p.Y * m22 + m32}; }
  // The smallest upright rectangle around what the rectangle becomes.
  TRectF BoundsOf(const TRectF& r) const;

  // Whether every upright rectangle becomes an upright one: no turn and no shear.
  constexpr bool KeepsRectangles() const { return m12 == 0 && m21 == 0; }
  constexpr bool IsTranslation() const { return KeepsRectangles() && m11 == 1 && m22 == 1; }
  constexpr float Determinant() const { return m11 * m22 - m12 * m21; }
  bool IsFinite() const;

  // The transform that undoes this one; the identity where there is none.
  TMatrix Inverse() const;

  friend constexpr bool operator==(const TMatrix&, const TMatrix&) = default;
};

}  // namespace fmx
