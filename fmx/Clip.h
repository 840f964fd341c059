// The part of a canvas that drawing may change.
#pragma once

#include <limits>
#include <span>
#include <vector>

#include "fmx/Geometry.h"
#include "fmx/Matrix.h"

namespace fmx {

// A clip step that is more than an upright rectangle of device pixels.
struct TClipStep {
  TMatrix Matrix;  // takes the rectangles to device pixels
  std::vector<TRectF> Rects;
  bool Exclude = false;  // what lies in one of the rectangles goes; otherwise it alone stays
};

// An upright box of device pixels, narrowed by steps. Upright rectangles go into the box, so that in ordinary use
// there are no steps. A value type.
class TClip {
 public:
  // Keeps what lies in the rectangle, which may be reversed, after the matrix took it to device pixels. One that is not
  // finite changes nothing.
  void Intersect(const TMatrix& matrix, const TRectF& rect);
  // Keeps what lies in one of the rectangles. None at all keeps nothing.
  void Intersect(const TMatrix& matrix, std::span<const TRectF> rects);
  // Takes the rectangle away.
  void Exclude(const TMatrix& matrix, const TRectF& rect);

  // Nothing clipped at all.
  bool IsWhole() const { return FBox == Everything && FSteps.empty(); }
  // Whether surely nothing is left.
  bool IsEmpty() const { return FBox.IsEmpty(); }
  // In device pixels; the corners of what is whole lie beyond any canvas.
  const TRectF& Box() const { return FBox; }
  std::span<const TClipStep> Steps() const { return FSteps; }

 private:
  static constexpr float Far = std::numeric_limits<float>::max() / 4;
  static constexpr TRectF Everything{-Far, -Far, Far, Far};

  TRectF FBox = Everything;
  std::vector<TClipStep> FSteps;
};

}  // namespace fmx
