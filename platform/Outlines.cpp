#include "platform/Outlines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace orv::platform {
namespace {

using fmx::TMatrix;
using fmx::TPathData;
using fmx::TPathPoint;
using fmx::TPathPointKind;

// A curve is replaced by lines that lie nearer to it than a tenth of a pixel.
constexpr double Flatness = 0.1;
// Halvings of one curve. 2^20 pieces of a curve of the greatest size are shorter than a pixel.
constexpr int MaxHalvings = 20;

TDevicePoint Middle(TDevicePoint a, TDevicePoint b) {
  return {a.X / 2 + b.X / 2, a.Y / 2 + b.Y / 2};
}

TDevicePoint ToDevice(const TMatrix& m, fmx::TPointF p) {
  const double x{p.X};
  const double y{p.Y};
  return {x * double{m.m11} + y * double{m.m21} + double{m.m31}, x * double{m.m12} + y * double{m.m22} + double{m.m32}};
}

TOutline ToDevice(const TMatrix& matrix, const TPathData& path) {
  TOutline outline;
  outline.reserve(path.Count());
  for (const TPathPoint& step : path.Points()) outline.push_back({step.Kind, ToDevice(matrix, step.Point)});
  return outline;
}

bool IsWithin(const TOutline& outline, double range) {
  return std::all_of(outline.begin(), outline.end(), [range](const TOutlineStep& step) {
    return std::abs(step.Point.X) <= range && std::abs(step.Point.Y) <= range;
  });
}

// --- Straight lines out of curves ---

struct TCurve {
  std::array<TDevicePoint, 4> P;

  bool LiesBeside(double range) const {
    const auto all = [this](auto test) { return std::all_of(P.begin(), P.end(), test); };
    return all([=](TDevicePoint p) { return p.X > range; }) || all([=](TDevicePoint p) { return p.X < -range; }) ||
           all([=](TDevicePoint p) { return p.Y > range; }) || all([=](TDevicePoint p) { return p.Y < -range; });
  }
  // How far the control points lie from where those of the straight line would be bounds how far the curve bends.
  bool IsFlat() const {
    const auto bend = [](double a, double b, double c) { return std::abs(a - 2 * b + c); };
    return bend(P[0].X, P[1].X, P[2].X) <= Flatness && bend(P[1].X, P[2].X, P[3].X) <= Flatness &&
           bend(P[0].Y, P[1].Y, P[2].Y) <= Flatness && bend(P[1].Y, P[2].Y, P[3].Y) <= Flatness;
  }
  std::pair<TCurve, TCurve> Halves() const {
    const TDevicePoint a = Middle(P[0], P[1]);
    const TDevicePoint b = Middle(P[1], P[2]);
    const TDevicePoint c = Middle(P[2], P[3]);
    const TDevicePoint ab = Middle(a, b);
    const TDevicePoint bc = Middle(b, c);
    const TDevicePoint centre = Middle(ab, bc);
    return {{{P[0], a, ab, centre}}, {{centre, bc, c, P[3]}}};
  }
};

using TPolygon = std::vector<TDevicePoint>;

// What lies beside the range on one side cannot come into it, and is one line.
void AddCurve(TPolygon& points, const TCurve& curve, double range, int halvings) {
  if (halvings == 0 || curve.LiesBeside(range) || curve.IsFlat()) {
    points.push_back(curve.P[3]);
    return;
  }
  const auto [first, second] = curve.Halves();
  AddCurve(points, first, range, halvings - 1);
  AddCurve(points, second, range, halvings - 1);
}

struct TFigure {
  TPolygon Points;
  bool Closed = false;
};

std::vector<TFigure> Flattened(const TOutline& outline, double range) {
  std::vector<TFigure> figures;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const TOutlineStep& step = outline[i];
    if (step.Kind == TPathPointKind::MoveTo || figures.empty()) {
      figures.push_back({{step.Point}, false});
    } else if (step.Kind == TPathPointKind::LineTo) {
      figures.back().Points.push_back(step.Point);
    } else if (step.Kind == TPathPointKind::Close) {
      figures.back().Closed = true;
    } else if (i + 2 < outline.size()) {
      TPolygon& points = figures.back().Points;
      const TCurve curve{{points.back(), step.Point, outline[i + 1].Point, outline[i + 2].Point}};
      AddCurve(points, curve, range, MaxHalvings);
      i += 2;
    }
  }
  return figures;
}

// --- Areas ---

// Keeps the side of a line of the grid: sign * p.*axis <= range. The figure's windings within stay as they are.
TPolygon CutSide(const TPolygon& points, double TDevicePoint::*axis, double sign, double range) {
  TPolygon kept;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const TDevicePoint& from = points[i];
    const TDevicePoint& to = points[(i + 1) % points.size()];
    const double a = sign * from.*axis - range;
    const double b = sign * to.*axis - range;
    if (a <= 0) kept.push_back(from);
    if ((a <= 0) == (b <= 0)) continue;
    const double share = a / (a - b);
    TDevicePoint crossing{from.X + (to.X - from.X) * share, from.Y + (to.Y - from.Y) * share};
    crossing.*axis = sign * range;
    kept.push_back(crossing);
  }
  return kept;
}

TPolygon CutToRange(TPolygon points) {
  for (const double sign : {1.0, -1.0}) {
    points = CutSide(points, &TDevicePoint::X, sign, OutlineRange);
    points = CutSide(points, &TDevicePoint::Y, sign, OutlineRange);
  }
  return points;
}

void AddPolygon(TOutline& outline, const TPolygon& points) {
  if (points.size() < 3) return;
  for (const TDevicePoint& point : points)
    outline.push_back(
        {outline.empty() || &point == points.data() ? TPathPointKind::MoveTo : TPathPointKind::LineTo, point});
  outline.push_back({TPathPointKind::Close, points.front()});
}

// --- Lines ---

// Where a line enters and leaves the square around the origin, as shares of it; nothing where it passes by.
std::optional<std::pair<double, double>> Within(TDevicePoint from, TDevicePoint to, double range) {
  double enter = 0;
  double leave = 1;
  const auto cut = [&](double start, double delta) {
    for (const double sign : {1.0, -1.0}) {
      const double room = range - sign * start;
      const double step = sign * delta;
      if (step == 0) {
        if (room < 0) leave = -1;
      } else if (step > 0) {
        leave = std::min(leave, room / step);
      } else {
        enter = std::max(enter, room / step);
      }
    }
  };
  cut(from.X, to.X - from.X);
  cut(from.Y, to.Y - from.Y);
  if (!(enter <= leave)) return std::nullopt;
  return std::pair(enter, leave);
}

// Measures device distances in logical units.
class TRuler {
 public:
  explicit TRuler(const TMatrix& m)
      : FM(m), FDeterminant(double{m.m11} * double{m.m22} - double{m.m12} * double{m.m21}) {}

  double Length(TDevicePoint from, TDevicePoint to) const {
    if (FDeterminant == 0) return 0;
    const double x = to.X - from.X;
    const double y = to.Y - from.Y;
    return std::hypot((x * double{FM.m22} - y * double{FM.m21}) / FDeterminant,
                      (y * double{FM.m11} - x * double{FM.m12}) / FDeterminant);
  }

 private:
  const TMatrix& FM;
  double FDeterminant;
};

void AddLines(std::vector<TStrokePiece>& pieces, TFigure figure, double range, const TRuler& ruler) {
  if (figure.Closed) figure.Points.push_back(figure.Points.front());
  double length = 0;
  bool open = false;
  for (std::size_t i = 0; i + 1 < figure.Points.size(); ++i) {
    const TDevicePoint from = figure.Points[i];
    const TDevicePoint to = figure.Points[i + 1];
    const double own = ruler.Length(from, to);
    // Held, since the rounding of far ends is larger than the range.
    const auto at = [&](double share) {
      return TDevicePoint{std::clamp(from.X + (to.X - from.X) * share, -range, range),
                          std::clamp(from.Y + (to.Y - from.Y) * share, -range, range)};
    };
    if (const auto part = Within(from, to, range)) {
      const auto [enter, leave] = *part;
      if (!open || enter > 0) {
        pieces.push_back({{{TPathPointKind::MoveTo, at(enter)}}, length + own * enter, 0});
        open = true;
      }
      pieces.back().Steps.push_back({TPathPointKind::LineTo, at(leave)});
      pieces.back().Length += own * (leave - enter);
      if (leave < 1) open = false;
    } else {
      open = false;
    }
    length += own;
  }
}

}  // namespace

TOutline FillOutline(const TPathData& path, const TMatrix& deviceMatrix) {
  TOutline outline = ToDevice(deviceMatrix, path);
  if (IsWithin(outline, OutlineRange)) return outline;
  TOutline cut;
  for (TFigure& figure : Flattened(outline, OutlineRange)) AddPolygon(cut, CutToRange(std::move(figure.Points)));
  return cut;
}

std::vector<TStrokePiece> StrokeOutlines(const TPathData& path, const TMatrix& deviceMatrix, double range) {
  TOutline outline = ToDevice(deviceMatrix, path);
  const TRuler ruler(deviceMatrix);
  if (IsWithin(outline, range)) {
    double length = 0;
    for (std::size_t i = 1; i < outline.size(); ++i) length += ruler.Length(outline[i - 1].Point, outline[i].Point);
    return {{std::move(outline), 0, length}};
  }
  std::vector<TStrokePiece> pieces;
  for (TFigure& figure : Flattened(outline, range)) AddLines(pieces, std::move(figure), range, ruler);
  return pieces;
}

}  // namespace orv::platform
