#include "fmx/Clip.h"

namespace fmx {

void TClip::Intersect(const TMatrix& matrix, const TRectF& rect) {
  if (!rect.IsFinite() || !matrix.IsFinite()) return;
  const TRectF r = rect.Normalized();
  FBox = FBox.Intersect(matrix.BoundsOf(r));
  if (!matrix.KeepsRectangles()) FSteps.push_back({matrix, {r}, false});
}

void TClip::Intersect(const TMatrix& matrix, std::span<const TRectF> rects) {
  if (rects.size() == 1) return Intersect(matrix, rects.front());
  TRectF around;
  TClipStep step{matrix, {}, false};
  for (const TRectF& rect : rects) {
    const TRectF r = rect.Normalized();
    if (!rect.IsFinite() || r.IsEmpty()) continue;
    step.Rects.push_back(r);
    around = around.Union(r);
  }
  FBox = FBox.Intersect(matrix.BoundsOf(around));
  if (!FBox.IsEmpty()) FSteps.push_back(std::move(step));
}

void TClip::Exclude(const TMatrix& matrix, const TRectF& rect) {
  const TRectF r = rect.Normalized();
  if (rect.IsFinite() && matrix.IsFinite() && !r.IsEmpty()) FSteps.push_back({matrix, {r}, true});
}

}  // namespace fmx
