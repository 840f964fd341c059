// Outlines of straight lines and curves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "fmx/Geometry.h"
#include "fmx/Matrix.h"

namespace fmx {

enum class TPathPointKind : std::uint8_t { MoveTo, LineTo, CurveTo, Close };

// One step. A curve takes three points of kind CurveTo: two that direct it and its end. Close goes back to the start of
// its figure, which its point repeats.
struct TPathPoint {
  TPathPointKind Kind = TPathPointKind::MoveTo;
  TPointF Point;
  friend constexpr bool operator==(const TPathPoint&, const TPathPoint&) = default;
};

// Figures, each of which begins with a move. The path is always well formed: a line or curve without a move before it
// begins at the last point, or at the origin; a point that is not finite is not taken. A value type.
class TPathData {
 public:
  void MoveTo(TPointF p);
  void LineTo(TPointF p);
  // A cubic curve to end.
  void CurveTo(TPointF control1, TPointF control2, TPointF end);
  // Ends the figure with a line to its start. Does nothing where no figure is open.
  void ClosePath();

  // Puts the figures of the other path behind these.
  void AddPath(const TPathData& path);
  void Clear() { FPoints.clear(); }

  void Translate(float x, float y);
  void Translate(TPointF by) { Translate(by.X, by.Y); }
  // A matrix that is not finite changes nothing. Far points may become infinite, and canvases then draw nothing.
  void ApplyMatrix(const TMatrix& matrix);

  bool IsEmpty() const { return FPoints.empty(); }
  bool IsFinite() const;
  std::size_t Count() const { return FPoints.size(); }
  std::span<const TPathPoint> Points() const { return FPoints; }
  // Where the next line would begin; the origin in an empty path.
  TPointF LastPoint() const { return IsEmpty() ? TPointF{} : FPoints.back().Point; }

  // The smallest rectangle around the figures, their curves followed exactly; (0, 0, 0, 0) for an empty path.
  TRectF GetBounds() const;

  friend bool operator==(const TPathData&, const TPathData&) = default;

 private:
  void BeginFigure();

  std::vector<TPathPoint> FPoints;
};

}  // namespace fmx
