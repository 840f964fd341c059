#include "platform/SoftwareCanvas.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "fmx/Exceptions.h"
#include "platform/Blit.h"
#include "platform/CanvasWindow.h"
#include "platform/Painter.h"

namespace orv::platform {
namespace {

using fmx::TBitmap;
using fmx::TBitmapSurface;
using fmx::TBrush;
using fmx::TCanvasTarget;
using fmx::TClip;
using fmx::TMatrix;
using fmx::TPathData;
using fmx::TPixel;
using fmx::TRect;
using fmx::TRectF;

// Coordinates so near to a whole pixel are meant to lie on it: scales like 1.5 do not divide floats evenly.
constexpr double Nearness = 1.0 / 128;
// Pictures that begin further out are left to the rasteriser.
constexpr double FarOut = 1 << 24;

bool IsWhole(double v) {
  return std::abs(v - std::round(v)) <= Nearness;
}

std::int32_t Pixel(double v) {
  return static_cast<std::int32_t>(std::round(v));
}

// Whole pixels of a source rectangle; nothing where its edges lie between them.
std::optional<TRect> WholePixels(const TRectF& r) {
  const double edges[] = {double{r.Left}, double{r.Top}, double{r.Right}, double{r.Bottom}};
  if (!std::all_of(std::begin(edges), std::end(edges), IsWhole)) return std::nullopt;
  return TRect{Pixel(edges[0]), Pixel(edges[1]), Pixel(edges[2]), Pixel(edges[3])};
}

// Where a picture lies on the device, or what it is the size of, in doubles: floats of a far place lack the fractions.
struct TPlaced {
  double Left;
  double Top;
  double Width;
  double Height;
};

TPlaced OnDevice(const TMatrix& m, const TRectF& r) {
  const double x{m.m11};
  const double y{m.m22};
  return {double{r.Left} * x + double{m.m31}, double{r.Top} * y + double{m.m32}, (double{r.Right} - double{r.Left}) * x,
          (double{r.Bottom} - double{r.Top}) * y};
}

TFinePlace PlaceOf(double left, double top) {
  const auto fine = [](double v) { return static_cast<std::int64_t>(std::floor(v * 256 + 0.5)); };
  const std::int64_t x = fine(left);
  const std::int64_t y = fine(top);
  return {{static_cast<std::int32_t>(x >> 8), static_cast<std::int32_t>(y >> 8)},
          static_cast<std::uint32_t>(x & 255),
          static_cast<std::uint32_t>(y & 255)};
}

// The texel in which a pixel's centre lies.
TFinePlace NearestPlace(double left, double top) {
  return {{static_cast<std::int32_t>(std::ceil(left - 0.5)), static_cast<std::int32_t>(std::ceil(top - 0.5))}, 0, 0};
}

bool Meet(const TRect& a, const TRect& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

bool Holds(const TRect& outer, const TRect& inner) {
  return inner.Left >= outer.Left && inner.Top >= outer.Top && inner.Right <= outer.Right &&
         inner.Bottom <= outer.Bottom;
}

TRect Cut(const TRect& a, const TRect& b) {
  return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right), std::min(a.Bottom, b.Bottom)};
}

// A clip in whole pixels.
struct TPixelClip {
  TRect Outer;         // nothing beyond it is drawn
  TRect Inner;         // everything within it is drawn in full, unless there are steps
  bool Plain = false;  // there are none
};

TPixelClip PixelClip(const TClip& clip, const TBitmapSurface& surface) {
  const TRectF all{0, 0, static_cast<float>(surface.Width()), static_cast<float>(surface.Height())};
  const TRectF box = clip.Box().Intersect(all);
  TPixelClip result;
  if (box.IsEmpty()) return result;
  const auto down = [](float v) { return static_cast<std::int32_t>(std::floor(v)); };
  const auto up = [](float v) { return static_cast<std::int32_t>(std::ceil(v)); };
  result.Outer = {down(box.Left), down(box.Top), up(box.Right), up(box.Bottom)};
  result.Inner = {up(box.Left), up(box.Top), down(box.Right), down(box.Bottom)};
  result.Plain = clip.Steps().empty();
  return result;
}

// Of a scene's rectangles, for the window.
TRect Around(std::span<const TRectF> rects, float scale, const TBitmapSurface& surface) {
  const TRect whole{0, 0, surface.Width(), surface.Height()};
  if (rects.empty()) return whole;
  TClip clip;
  clip.Intersect(TMatrix::Scaling(scale, scale), rects);
  return PixelClip(clip, surface).Outer;
}

}  // namespace

struct TSoftwareCanvas::TState {
  TBitmapSurface Own;  // of a window
  TBitmapSurface* Surface = nullptr;
  std::unique_ptr<TPainter> Painter;  // within a scene
  TMatrix Matrix;
  TPixelClip Clip;
  TRect Changed;

  bool DrawUnscaled(const TBitmapSurface& picture, const TRectF& source, const TRectF& destination, TPixel tint,
                    bool highSpeed);
};

orv::TClass TSoftwareCanvas::Class() {
  return CompiledCanvas<TSoftwareCanvas, fmx::TCustomCanvasGpu>("platform.SoftwareCanvas", "TCanvasGpu");
}

TSoftwareCanvas::TSoftwareCanvas(const TCanvasTarget& target, orv::TClass aClass)
    : TCustomCanvasGpu(target, aClass), FState(std::make_unique<TState>()) {}

TSoftwareCanvas::~TSoftwareCanvas() = default;

// --- Scenes ---

bool TSoftwareCanvas::DoBeginScene(std::span<const TRectF> clipRects, void*) {
  const TCanvasTarget& target = Target();
  if (target.Kind == TCanvasTarget::TKind::Bitmap && target.Bitmap != nullptr) {
    if (target.Bitmap->IsEmpty() || target.Bitmap->IsMapped()) return false;
    FState->Surface = &target.Bitmap->Surface();
  } else if (target.Kind == TCanvasTarget::TKind::Window && target.Window != nullptr) {
    if (target.PixelWidth < 1 || target.PixelHeight < 1) return false;
    TBitmapSurface& own = FState->Own;
    try {
      if (own.Width() != target.PixelWidth || own.Height() != target.PixelHeight)
        own.SetSize(target.PixelWidth, target.PixelHeight);
    } catch (const fmx::EBitmapSizeTooBig&) {
      return false;
    }
    FState->Surface = &own;
  } else {
    return false;
  }
  FState->Changed = Around(clipRects, Scale(), *FState->Surface);
  FState->Painter = std::make_unique<TPainter>(*FState->Surface);
  return true;
}

void TSoftwareCanvas::DoEndScene() {
  if (!FState->Painter) return;  // the scene was refused
  FState->Painter.reset();
  const TCanvasTarget& target = Target();
  if (target.Kind == TCanvasTarget::TKind::Bitmap) {
    target.Bitmap->Touch();
  } else if (!FState->Changed.IsEmpty()) {
    static_cast<TCanvasWindow*>(target.Window)->Present(*FState->Surface, FState->Changed);
  }
}

void TSoftwareCanvas::DoResize() {
  FState->Own.SetSize(0, 0);
}

void TSoftwareCanvas::DoSetMatrix(const TMatrix& deviceMatrix) {
  FState->Matrix = deviceMatrix;
  FState->Painter->SetMatrix(deviceMatrix);
}

void TSoftwareCanvas::DoSetClip(const TClip& clip) {
  FState->Clip = PixelClip(clip, *FState->Surface);
  FState->Painter->SetClip(clip);
}

// --- Shapes ---

void TSoftwareCanvas::DoClearRect(const TRect& pixels, TPixel pixel) {
  const TRect all{0, 0, FState->Surface->Width(), FState->Surface->Height()};
  const TRect area = Cut(pixels, all);
  for (std::int32_t y = area.Top; y < area.Bottom; ++y) {
    const auto row = FState->Surface->Scanline(y);
    std::fill(row.begin() + area.Left, row.begin() + area.Right, pixel);
  }
  // Clearing knows no clips.
  TRect& changed = FState->Changed;
  changed = changed.IsEmpty() ? area
                              : TRect{std::min(changed.Left, area.Left), std::min(changed.Top, area.Top),
                                      std::max(changed.Right, area.Right), std::max(changed.Bottom, area.Bottom)};
  FState->Painter->Touched();
}

void TSoftwareCanvas::DoFillRect(const TRectF& rect, float opacity, const TBrush& brush) {
  FState->Painter->FillRect(rect, opacity, brush);
}

void TSoftwareCanvas::DoFillPath(const TPathData& path, float opacity, const TBrush& brush) {
  FState->Painter->FillPath(path, opacity, brush);
}

void TSoftwareCanvas::DoDrawPath(const TPathData& path, float opacity, const fmx::TStrokeBrush& brush) {
  FState->Painter->DrawPath(path, opacity, brush);
}

// --- Pictures ---

// Answers false where the picture is turned, scaled, cut between its pixels, or lies on an edge of the clip that the
// blit does not know.
bool TSoftwareCanvas::TState::DrawUnscaled(const TBitmapSurface& picture, const TRectF& source,
                                           const TRectF& destination, TPixel tint, bool highSpeed) {
  if (!Matrix.KeepsRectangles()) return false;
  const auto part = WholePixels(source);
  const TPlaced placed = OnDevice(Matrix, destination);
  if (!part || !(std::abs(placed.Width - part->Width()) <= Nearness) ||
      !(std::abs(placed.Height - part->Height()) <= Nearness) || !(std::abs(placed.Left) < FarOut) ||
      !(std::abs(placed.Top) < FarOut))
    return false;
  const TFinePlace at = highSpeed ? NearestPlace(placed.Left, placed.Top) : PlaceOf(placed.Left, placed.Top);
  const bool between = at.FractionX != 0 || at.FractionY != 0;
  const std::int32_t reach = between ? 1 : 0;
  const TRect covered{at.Pixel.X, at.Pixel.Y, at.Pixel.X + part->Width() + reach, at.Pixel.Y + part->Height() + reach};
  if (!Meet(covered, Clip.Outer)) return true;
  if (!Clip.Plain || !Holds(Clip.Inner, Cut(covered, Clip.Outer))) return false;
  if (between) {
    BlitBetween(*Surface, Clip.Inner, picture, *part, at, tint);
  } else {
    Blit(*Surface, Clip.Inner, picture, *part, at.Pixel, tint);
  }
  Painter->Touched();
  return true;
}

void TSoftwareCanvas::DoDrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination,
                                   float opacity, bool highSpeed) {
  const TPixel tint = fmx::Premultiply(fmx::MakeOpacity(ModulateColor(), opacity));
  if (fmx::AlphaOf(tint) == 0) return;
  const TBitmapSurface& picture = bitmap.Surface();
  if (!FState->DrawUnscaled(picture, source, destination, tint, highSpeed))
    FState->Painter->DrawPicture(picture, source, destination, tint, !highSpeed);
}

}  // namespace orv::platform
