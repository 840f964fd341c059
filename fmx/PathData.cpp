#include "fmx/PathData.h"

#include <algorithm>
#include <cmath>

namespace fmx {
namespace {

// The bounds of points seen so far, along both axes.
class TExtent {
 public:
  void Add(TPointF p) {
    if (!FHasPoint) FBounds = {p.X, p.Y, p.X, p.Y};
    FHasPoint = true;
    FBounds = {std::min(FBounds.Left, p.X), std::min(FBounds.Top, p.Y), std::max(FBounds.Right, p.X),
               std::max(FBounds.Bottom, p.Y)};
  }
  const TRectF& Bounds() const { return FBounds; }

 private:
  TRectF FBounds;
  bool FHasPoint = false;
};

struct TCurve {
  TPointF Start, Control1, Control2, End;
};

TPointF PointAt(const TCurve& c, double t) {
  const double u = 1 - t;
  const double a = u * u * u;
  const double b = 3 * u * u * t;
  const double d = 3 * u * t * t;
  const double e = t * t * t;
  return {static_cast<float>(a * c.Start.X + b * c.Control1.X + d * c.Control2.X + e * c.End.X),
          static_cast<float>(a * c.Start.Y + b * c.Control1.Y + d * c.Control2.Y + e * c.End.Y)};
}

// Adds the points where the curve turns back along one axis: the roots of its derivative between start and end.
void AddTurns(TExtent& extent, const TCurve& curve, double p0, double p1, double p2, double p3) {
  const double a = p3 - 3 * p2 + 3 * p1 - p0;
  const double b = 2 * (p2 - 2 * p1 + p0);
  const double c = p1 - p0;
  const auto add = [&](double t) {
    if (t > 0 && t < 1) extent.Add(PointAt(curve, t));
  };
  if (a == 0) {
    if (b != 0) add(-c / b);
    return;
  }
  const double discriminant = b * b - 4 * a * c;
  if (discriminant < 0) return;
  // The larger root in absolute value first, the other from their product: neither loses digits to cancellation.
  const double q = -(b + std::copysign(std::sqrt(discriminant), b)) / 2;
  add(q / a);
  if (q != 0) add(c / q);
}

void AddCurve(TExtent& extent, const TCurve& c) {
  extent.Add(c.End);
  AddTurns(extent, c, c.Start.X, c.Control1.X, c.Control2.X, c.End.X);
  AddTurns(extent, c, c.Start.Y, c.Control1.Y, c.Control2.Y, c.End.Y);
}

}  // namespace

void TPathData::MoveTo(TPointF p) {
  if (p.IsFinite()) FPoints.push_back({TPathPointKind::MoveTo, p});
}

void TPathData::BeginFigure() {
  if (IsEmpty() || FPoints.back().Kind == TPathPointKind::Close) MoveTo(LastPoint());
}

void TPathData::LineTo(TPointF p) {
  if (!p.IsFinite()) return;
  BeginFigure();
  FPoints.push_back({TPathPointKind::LineTo, p});
}

void TPathData::CurveTo(TPointF control1, TPointF control2, TPointF end) {
  if (!control1.IsFinite() || !control2.IsFinite() || !end.IsFinite()) return;
  BeginFigure();
  for (const TPointF p : {control1, control2, end}) FPoints.push_back({TPathPointKind::CurveTo, p});
}

void TPathData::ClosePath() {
  if (IsEmpty() || FPoints.back().Kind == TPathPointKind::Close) return;
  const auto start = std::find_if(FPoints.rbegin(), FPoints.rend(),
                                  [](const TPathPoint& p) { return p.Kind == TPathPointKind::MoveTo; });
  FPoints.push_back({TPathPointKind::Close, start->Point});
}

void TPathData::AddPath(const TPathData& path) {
  const auto count = static_cast<std::ptrdiff_t>(path.FPoints.size());
  FPoints.reserve(FPoints.size() + path.FPoints.size());  // so that a path can be added to itself
  std::copy_n(path.FPoints.begin(), count, std::back_inserter(FPoints));
}

void TPathData::Translate(float x, float y) {
  ApplyMatrix(TMatrix::Translation(x, y));
}

void TPathData::ApplyMatrix(const TMatrix& matrix) {
  if (!matrix.IsFinite()) return;
  for (TPathPoint& p : FPoints) p.Point = matrix.Apply(p.Point);
}

bool TPathData::IsFinite() const {
  return std::all_of(FPoints.begin(), FPoints.end(), [](const TPathPoint& p) { return p.Point.IsFinite(); });
}

TRectF TPathData::GetBounds() const {
  TExtent extent;
  for (std::size_t i = 0; i < FPoints.size(); ++i) {
    if (FPoints[i].Kind == TPathPointKind::CurveTo) {
      AddCurve(extent, {FPoints[i - 1].Point, FPoints[i].Point, FPoints[i + 1].Point, FPoints[i + 2].Point});
      i += 2;
    } else {
      extent.Add(FPoints[i].Point);
    }
  }
  return extent.Bounds();
}

}  // namespace fmx
