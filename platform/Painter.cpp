#include "platform/Painter.h"

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "fmx/PathShapes.h"
#include "platform/Blit.h"
#include "platform/Outlines.h"

namespace orv::platform {
namespace {

using fmx::TBitmapSurface;
using fmx::TBrush;
using fmx::TMatrix;
using fmx::TPathData;
using fmx::TPathPointKind;
using fmx::TPixel;
using fmx::TRect;
using fmx::TRectF;
using fmx::TStrokeBrush;

struct TRelease {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using TSurface = std::unique_ptr<cairo_surface_t, TRelease>;
using TContext = std::unique_ptr<cairo_t, TRelease>;

// Cairo takes the pixels of pictures as writable, but only reads them.
TSurface SurfaceOf(const TPixel* pixels, int width, int height, int rowPixels) {
  auto* bytes = reinterpret_cast<unsigned char*>(const_cast<TPixel*>(pixels));  // NOLINT
  return TSurface(cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_ARGB32, width, height, rowPixels * 4));
}

void SetColor(cairo_t* context, const TBrush& brush, float opacity) {
  const auto part = [](std::uint32_t value) { return static_cast<double>(value) / 255; };
  const fmx::TAlphaColor color = brush.Color();
  cairo_set_source_rgba(context, part(fmx::RedOf(color)), part(fmx::GreenOf(color)), part(fmx::BlueOf(color)),
                        part(fmx::AlphaOf(color)) * double{opacity});
}

void AddOutline(cairo_t* context, const TOutline& outline) {
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const auto [x, y] = outline[i].Point;
    switch (outline[i].Kind) {
      case TPathPointKind::MoveTo:
        cairo_move_to(context, x, y);
        break;
      case TPathPointKind::LineTo:
        cairo_line_to(context, x, y);
        break;
      case TPathPointKind::CurveTo:
        if (i + 2 < outline.size())
          cairo_curve_to(context, x, y, outline[i + 1].Point.X, outline[i + 1].Point.Y, outline[i + 2].Point.X,
                         outline[i + 2].Point.Y);
        i += 2;
        break;
      case TPathPointKind::Close:
        cairo_close_path(context);
        break;
    }
  }
}

void AddRect(cairo_t* context, const TRectF& rect, const TMatrix& matrix) {
  AddOutline(context, FillOutline(fmx::RectanglePath(rect), matrix));
}

// --- Transforms ---

double Determinant(const TMatrix& m) {
  return double{m.m11} * double{m.m22} - double{m.m12} * double{m.m21};
}

// No length grows by more than this.
double Growth(const TMatrix& m) {
  return std::hypot(std::hypot(double{m.m11}, double{m.m12}), std::hypot(double{m.m21}, double{m.m22}));
}

// Whether shapes keep an area that a rasteriser can see.
bool IsUsable(const TMatrix& matrix) {
  const double growth = Growth(matrix);
  return matrix.IsFinite() && growth > 1e-9 && growth < 1e12 && std::abs(Determinant(matrix)) > 1e-12 * growth * growth;
}

// --- Pens ---

// Lengths of dashes and gaps in thicknesses; none for an unbroken line.
std::span<const double> DashesOf(fmx::TStrokeDash dash) {
  static constexpr std::array<double, 6> Pattern = {3, 1, 1, 1, 1, 1};
  static constexpr std::array<double, 2> Dots = {1, 1};
  switch (dash) {
    case fmx::TStrokeDash::Dash:
      return std::span(Pattern).first(2);
    case fmx::TStrokeDash::Dot:
      return Dots;
    case fmx::TStrokeDash::DashDot:
      return std::span(Pattern).first(4);
    case fmx::TStrokeDash::DashDotDot:
      return Pattern;
    case fmx::TStrokeDash::Solid:
      break;
  }
  return {};
}

cairo_line_join_t JoinOf(fmx::TStrokeJoin join) {
  switch (join) {
    case fmx::TStrokeJoin::Round:
      return CAIRO_LINE_JOIN_ROUND;
    case fmx::TStrokeJoin::Bevel:
      return CAIRO_LINE_JOIN_BEVEL;
    case fmx::TStrokeJoin::Miter:
      break;
  }
  return CAIRO_LINE_JOIN_MITER;
}

double PeriodOf(std::span<const double> dashes) {
  return std::accumulate(dashes.begin(), dashes.end(), 0.0);
}

// Longer miters are cut to bevels.
constexpr double MiterLimit = 10;
// So many dashes on one line are no longer told apart, but take their time.
constexpr double MaxDashes = 65536;

// What holds for the strokes of one call.
struct TPen {
  const TStrokeBrush& Brush;
  float Opacity;
  double Thickness;
  cairo_matrix_t Matrix;  // round in logical units
};

// Instead of too many dashes there is the line, as pale as they would make it.
void SetDashes(cairo_t* context, const TPen& pen, const TStrokePiece& piece) {
  std::array<double, 6> lengths{};
  const auto pattern = DashesOf(pen.Brush.Dash());
  const double period = PeriodOf(pattern) * pen.Thickness;
  const bool tooMany = piece.Length > period * MaxDashes;
  if (pattern.empty() || tooMany) {
    double drawn = 0;
    for (std::size_t i = 0; i < pattern.size(); i += 2) drawn += pattern[i];
    const double share = pattern.empty() ? 1 : drawn / PeriodOf(pattern);
    SetColor(context, pen.Brush, static_cast<float>(double{pen.Opacity} * share));
    cairo_set_dash(context, nullptr, 0, 0);
    return;
  }
  SetColor(context, pen.Brush, pen.Opacity);
  std::transform(pattern.begin(), pattern.end(), lengths.begin(), [&](double v) { return v * pen.Thickness; });
  cairo_set_dash(context, lengths.data(), static_cast<int>(pattern.size()), std::fmod(piece.Start, period));
}

// The part of the picture in pixels, rounded outward; its tinted copy or, where the tint changes nothing, itself.
class TTintedPart {
 public:
  TTintedPart(const TBitmapSurface& picture, const TRect& pixels, TPixel tint) {
    if (tint == fmx::TAlphaColors::White) {
      FSurface = SurfaceOf(picture.Scanline(pixels.Top).data() + pixels.Left, pixels.Width(), pixels.Height(),
                           picture.Width());
      return;
    }
    FCopy.SetSize(pixels.Width(), pixels.Height());
    Blit(FCopy, {0, 0, pixels.Width(), pixels.Height()}, picture, pixels, {0, 0}, tint);
    FSurface = SurfaceOf(FCopy.Pixels().data(), FCopy.Width(), FCopy.Height(), FCopy.Width());
  }

  cairo_surface_t* Surface() const { return FSurface.get(); }

 private:
  TBitmapSurface FCopy;
  TSurface FSurface;
};

}  // namespace

struct TPainter::TCairo {
  const TPixel* Pixels;
  int Width;
  int Height;
  TSurface Surface;
  TContext Context;

  explicit TCairo(TBitmapSurface& surface)
      : Pixels(surface.Pixels().data()),
        Width(surface.Width()),
        Height(surface.Height()),
        Surface(SurfaceOf(Pixels, Width, Height, Width)),
        Context(cairo_create(Surface.get())) {}

  // A context that met an error draws nothing more; and a bitmap may be given another size meanwhile.
  bool Serves(const TBitmapSurface& surface) const {
    return cairo_status(Context.get()) == CAIRO_STATUS_SUCCESS && surface.Pixels().data() == Pixels &&
           surface.Width() == Width && surface.Height() == Height;
  }
};

TPainter::TPainter(TBitmapSurface& surface) : FSurface(surface), FCairo(std::make_unique<TCairo>(surface)) {}
TPainter::~TPainter() = default;

void TPainter::SetClip(const fmx::TClip& clip) {
  FClip = clip;
  FClipApplied = false;
}

TPainter::TCairo& TPainter::Ready() {
  if (!FCairo->Serves(FSurface)) {
    FCairo = std::make_unique<TCairo>(FSurface);
    FClipApplied = false;
  }
  if (FTouched) cairo_surface_mark_dirty(FCairo->Surface.get());
  FTouched = false;
  if (!FClipApplied) ApplyClip();
  FClipApplied = true;
  cairo_new_path(FCairo->Context.get());
  return *FCairo;
}

void TPainter::ApplyClip() {
  cairo_t* context = FCairo->Context.get();
  cairo_reset_clip(context);
  if (FClip.IsWhole()) return;
  const TRectF all{0, 0, static_cast<float>(FSurface.Width()), static_cast<float>(FSurface.Height())};
  const TRectF box = FClip.Box().Intersect(all);
  cairo_new_path(context);
  if (!box.IsEmpty()) AddRect(context, box, {});
  cairo_clip(context);
  for (const fmx::TClipStep& step : FClip.Steps()) {
    cairo_new_path(context);
    for (const TRectF& rect : step.Rects) AddRect(context, rect, step.Matrix);
    if (step.Exclude) AddRect(context, all, {});
    cairo_set_fill_rule(context, step.Exclude ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_clip(context);
  }
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

void TPainter::FillRect(const TRectF& rect, float opacity, const TBrush& brush) {
  FillPath(fmx::RectanglePath(rect), opacity, brush);
}

void TPainter::FillPath(const TPathData& path, float opacity, const TBrush& brush) {
  if (!FMatrix.IsFinite()) return;
  const TOutline outline = FillOutline(path, FMatrix);
  cairo_t* context = Ready().Context.get();
  SetColor(context, brush, opacity);
  AddOutline(context, outline);
  cairo_fill(context);
}

// Lines far outside of the surface are cut off, and pens many times its size are held there: both would take long for
// nothing.
void TPainter::DrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush) {
  if (!IsUsable(FMatrix)) return;
  const double side = std::max(FSurface.Width(), FSurface.Height());
  const double far = side * 32;
  const double growth = Growth(FMatrix);
  const double thickness = std::min(double{brush.Thickness()}, far / growth);
  const double miter = thickness * growth * MiterLimit / 2;
  const auto pieces = StrokeOutlines(path, FMatrix, side + std::min(miter, far));

  TPen pen{brush, opacity, thickness, {}};
  cairo_matrix_init(&pen.Matrix, double{FMatrix.m11}, double{FMatrix.m12}, double{FMatrix.m21}, double{FMatrix.m22}, 0,
                    0);
  cairo_t* context = Ready().Context.get();
  cairo_set_line_width(context, thickness);
  cairo_set_miter_limit(context, MiterLimit);
  cairo_set_line_cap(context, brush.Cap() == fmx::TStrokeCap::Round ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(context, JoinOf(brush.Join()));
  for (const TStrokePiece& piece : pieces) {
    AddOutline(context, piece.Steps);
    SetDashes(context, pen, piece);
    cairo_set_matrix(context, &pen.Matrix);
    cairo_stroke(context);
    cairo_identity_matrix(context);
  }
}

void TPainter::DrawPicture(const TBitmapSurface& picture, const TRectF& part, const TRectF& destination, TPixel tint,
                           bool smooth) {
  const double x = double{destination.Width()} / double{part.Width()};
  const double y = double{destination.Height()} / double{part.Height()};
  if (!IsUsable(FMatrix)) return;
  const TRect pixels{static_cast<std::int32_t>(std::floor(part.Left)), static_cast<std::int32_t>(std::floor(part.Top)),
                     static_cast<std::int32_t>(std::ceil(part.Right)),
                     static_cast<std::int32_t>(std::ceil(part.Bottom))};
  cairo_matrix_t toDevice;
  cairo_matrix_init(&toDevice, double{FMatrix.m11}, double{FMatrix.m12}, double{FMatrix.m21}, double{FMatrix.m22},
                    double{FMatrix.m31}, double{FMatrix.m32});
  cairo_matrix_translate(&toDevice, double{destination.Left}, double{destination.Top});
  cairo_matrix_scale(&toDevice, x, y);
  cairo_matrix_translate(&toDevice, pixels.Left - double{part.Left}, pixels.Top - double{part.Top});
  cairo_matrix_t fromDevice = toDevice;
  if (cairo_matrix_invert(&fromDevice) != CAIRO_STATUS_SUCCESS) return;

  const TTintedPart tinted(picture, pixels, tint);
  cairo_t* context = Ready().Context.get();
  cairo_save(context);
  AddRect(context, destination, FMatrix);
  cairo_clip(context);
  cairo_set_source_surface(context, tinted.Surface(), 0, 0);
  cairo_pattern_t* pattern = cairo_get_source(context);
  cairo_pattern_set_matrix(pattern, &fromDevice);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  cairo_pattern_set_filter(pattern, smooth ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
  cairo_paint(context);
  cairo_restore(context);
}

}  // namespace orv::platform
