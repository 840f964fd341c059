#include "fmx/PathShapes.h"

#include <algorithm>

namespace fmx {
namespace {

// The share of the radius by which the control points of a quarter circle stand off its ends.
constexpr float QuarterCircle = 0.5522847498F;

float HeldRadius(float radius, float side) {
  return radius > 0 ? std::min(radius, side / 2) : 0.0F;
}

// One corner: where its cut begins and ends, and the corner itself.
struct TCut {
  TPointF From, Corner, To;
};

TPointF Between(TPointF a, TPointF b, float share) {
  return a + (b - a) * share;
}

void AddCut(TPathData& path, const TCut& cut, TCornerType type) {
  if (path.LastPoint() != cut.From) path.LineTo(cut.From);  // cuts that meet need no side between them
  const TPointF inner = cut.From + cut.To - cut.Corner;
  switch (type) {
    case TCornerType::Round:
      path.CurveTo(Between(cut.From, cut.Corner, QuarterCircle), Between(cut.To, cut.Corner, QuarterCircle), cut.To);
      break;
    case TCornerType::Bevel:
      path.LineTo(cut.To);
      break;
    case TCornerType::InnerRound:
      path.CurveTo(Between(cut.From, inner, QuarterCircle), Between(cut.To, inner, QuarterCircle), cut.To);
      break;
    case TCornerType::InnerLine:
      path.LineTo(inner);
      path.LineTo(cut.To);
      break;
  }
}

}  // namespace

TPathData RectanglePath(const TRectF& rect) {
  return RoundRectPath(rect, 0, 0);
}

TPathData RoundRectPath(const TRectF& rect, float xRadius, float yRadius, TCorners corners, TCornerType type) {
  TPathData path;
  if (!rect.IsFinite()) return path;
  const TRectF r = rect.Normalized();
  const float x = HeldRadius(xRadius, r.Width());
  const float y = HeldRadius(yRadius, r.Height());
  const auto corner = [&](TCorner which, const TCut& cut) {
    if (x == 0 || y == 0 || !corners.Contains(which)) {
      path.LineTo(cut.Corner);
    } else {
      AddCut(path, cut, type);
    }
  };
  const bool cutFirst = x > 0 && y > 0 && corners.Contains(TCorner::TopLeft);
  path.MoveTo(cutFirst ? TPointF{r.Left + x, r.Top} : r.TopLeft());
  corner(TCorner::TopRight, {{r.Right - x, r.Top}, {r.Right, r.Top}, {r.Right, r.Top + y}});
  corner(TCorner::BottomRight, {{r.Right, r.Bottom - y}, {r.Right, r.Bottom}, {r.Right - x, r.Bottom}});
  corner(TCorner::BottomLeft, {{r.Left + x, r.Bottom}, {r.Left, r.Bottom}, {r.Left, r.Bottom - y}});
  if (cutFirst) AddCut(path, {{r.Left, r.Top + y}, {r.Left, r.Top}, {r.Left + x, r.Top}}, type);
  path.ClosePath();
  return path;
}

TPathData EllipsePath(const TRectF& rect) {
  TPathData path;
  if (!rect.IsFinite()) return path;
  const TRectF r = rect.Normalized();
  const TPointF c = r.Center();
  path.MoveTo({c.X, r.Top});
  AddCut(path, {{c.X, r.Top}, {r.Right, r.Top}, {r.Right, c.Y}}, TCornerType::Round);
  AddCut(path, {{r.Right, c.Y}, {r.Right, r.Bottom}, {c.X, r.Bottom}}, TCornerType::Round);
  AddCut(path, {{c.X, r.Bottom}, {r.Left, r.Bottom}, {r.Left, c.Y}}, TCornerType::Round);
  AddCut(path, {{r.Left, c.Y}, {r.Left, r.Top}, {c.X, r.Top}}, TCornerType::Round);
  path.ClosePath();
  return path;
}

TPathData LinePath(TPointF from, TPointF to) {
  TPathData path;
  if (!from.IsFinite() || !to.IsFinite()) return path;
  path.MoveTo(from);
  path.LineTo(to);
  return path;
}

}  // namespace fmx
