#include "fmx/Canvas.h"

#include <algorithm>
#include <cmath>

#include "fmx/Limits.h"
#include "fmx/Rounding.h"

namespace fmx {
namespace {

float HeldOpacity(float opacity) {
  return opacity > 0 ? std::min(opacity, 1.0F) : 0.0F;
}

bool CanBeSeen(const TStrokeBrush& pen) {
  return !pen.IsInvisible() && pen.Thickness() > 0 && std::isfinite(pen.Thickness());
}

TCanvasTarget Mended(TCanvasTarget target) {
  if (!(target.Scale > 0) || !std::isfinite(target.Scale)) target.Scale = 1;
  target.PixelWidth = std::max(target.PixelWidth, 0);
  target.PixelHeight = std::max(target.PixelHeight, 0);
  return target;
}

// From whole pixels outside of [0, side] to its ends.
std::int32_t HeldPixel(float v, std::int32_t side) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(Round(v), 0, side));
}

}  // namespace

orv::TClass TCanvas::Class() {
  using orv::Fill;
  using orv::FillAbstract;
  return orv::CompiledClass<TCanvas, orv::TNoParent, FillAbstract<TSlots::Create>, FillAbstract<TSlots::DoSetMatrix>,
                            FillAbstract<TSlots::DoSetClip>, FillAbstract<TSlots::DoClearRect>,
                            Fill<TSlots::DoFillRect, &TCanvas::DoFillRect>,
                            Fill<TSlots::DoFillEllipse, &TCanvas::DoFillEllipse>, FillAbstract<TSlots::DoFillPath>,
                            Fill<TSlots::DoBeginScene, &TCanvas::DoBeginScene>,
                            Fill<TSlots::DoEndScene, &TCanvas::DoEndScene>, FillAbstract<TSlots::DoDrawPath>,
                            Fill<TSlots::DoDrawLine, &TCanvas::DoDrawLine>, FillAbstract<TSlots::DoDrawBitmap>,
                            Fill<TSlots::DoResize, &TCanvas::DoResize>>("fmx.Canvas", "TCanvas");
}

std::unique_ptr<TCanvas> TCanvas::New(orv::TClass aClass, const TCanvasTarget& target) {
  return orv::Record(aClass).Slot<TSlots::Create>()(aClass, target);
}

TCanvas::TCanvas(const TCanvasTarget& target, orv::TClass aClass)
    : orv::TRewritableObject(aClass), FTarget(Mended(target)) {}
TCanvas::~TCanvas() = default;

void TCanvas::Resize(std::int32_t pixelWidth, std::int32_t pixelHeight, float scale) {
  if (FSceneCount > 0) return;
  TCanvasTarget target = FTarget;
  target.PixelWidth = pixelWidth;
  target.PixelHeight = pixelHeight;
  target.Scale = scale;
  FTarget = Mended(target);
  Call<TSlots::DoResize>();
}

// --- Scenes and states ---

bool TCanvas::BeginScene(std::span<const TRectF> clipRects, void* context) {
  if (FSceneCount > 0) {
    ++FSceneCount;
    return true;
  }
  if (!OpenTarget(clipRects, context)) return false;
  FSceneCount = 1;
  FSaved.clear();
  FState.Matrix = {};
  FState.Clip = {};
  if (!clipRects.empty()) FState.Clip.Intersect(DeviceMatrix(), clipRects);
  StateChanged();
  return true;
}

// Each DoBeginScene that comes back has its DoEndScene, one that was refused at once: a class that wraps the two, and
// counts whatever the inner one answers, is at its old count then. One that raises has no end, in the wrapper neither.
bool TCanvas::OpenTarget(std::span<const TRectF> clipRects, void* context) {
  if (Call<TSlots::DoBeginScene>(clipRects, context)) return true;
  Call<TSlots::DoEndScene>();
  return false;
}

void TCanvas::EndScene() {
  if (FSceneCount == 0) return;
  if (--FSceneCount > 0) return;
  FSaved.clear();
  Call<TSlots::DoEndScene>();
}

TCanvas::TSavedState TCanvas::SaveState() {
  if (FSaved.size() < MaxSavedStates) FSaved.push_back({++FLastSerial, FState});
  return FSaved.back().Serial;
}

void TCanvas::RestoreState(TSavedState state) {
  const auto saved = std::lower_bound(FSaved.begin(), FSaved.end(), state,
                                      [](const TSaved& each, TSavedState wanted) { return each.Serial < wanted; });
  if (saved == FSaved.end() || saved->Serial != state) return;
  FState = saved->State;
  FSaved.erase(saved, FSaved.end());
  StateChanged();
}

void TCanvas::StateChanged() {
  FMatrixTold = false;
  FClipTold = false;
}

void TCanvas::SetMatrix(const TMatrix& matrix) {
  if (!(matrix * TMatrix::Scaling(Scale(), Scale())).IsFinite()) return;
  FState.Matrix = matrix;
  FMatrixTold = false;
}

void TCanvas::IntersectClipRect(const TRectF& rect) {
  FState.Clip.Intersect(DeviceMatrix(), rect);
  FClipTold = false;
}

void TCanvas::ExcludeClipRect(const TRectF& rect) {
  FState.Clip.Exclude(DeviceMatrix(), rect);
  FClipTold = false;
}

bool TCanvas::Prepare(float opacity) {
  if (FSceneCount == 0 || HeldOpacity(opacity) == 0 || FState.Clip.IsEmpty()) return false;
  if (!FMatrixTold) Call<TSlots::DoSetMatrix>(DeviceMatrix());
  FMatrixTold = true;
  if (!FClipTold) Call<TSlots::DoSetClip>(FState.Clip);
  FClipTold = true;
  return true;
}

// Asked for each of the pictures that a long line has outside of its box. A pixel more is for what bleeds over an edge.
bool TCanvas::IsClippedAway(const TRectF& rect) const {
  const TMatrix& matrix = FState.Matrix;
  if (!matrix.IsTranslation()) return false;
  const TRectF& clip = FState.Clip.Box();
  const float scale = Scale();
  return (rect.Right + matrix.m31) * scale < clip.Left - 1 || (rect.Left + matrix.m31) * scale > clip.Right + 1 ||
         (rect.Bottom + matrix.m32) * scale < clip.Top - 1 || (rect.Top + matrix.m32) * scale > clip.Bottom + 1;
}

// --- Alignment ---

float TCanvas::Align(float v, float translation) const {
  if (!FState.Matrix.IsTranslation() || !std::isfinite(v)) return v;
  // In single precision: what is a half there is one, and goes to the even pixel.
  const float device = (v + translation) * Scale();
  const double aligned = static_cast<double>(Round(double{device})) / double{Scale()};
  return static_cast<float>(aligned - double{translation});
}

float TCanvas::AlignToPixelHorizontally(float v) const {
  return Align(v, FState.Matrix.m31);
}

float TCanvas::AlignToPixelVertically(float v) const {
  return Align(v, FState.Matrix.m32);
}

TRectF TCanvas::AlignToPixel(const TRectF& r) const {
  return {AlignToPixelHorizontally(r.Left), AlignToPixelVertically(r.Top), AlignToPixelHorizontally(r.Right),
          AlignToPixelVertically(r.Bottom)};
}

// --- Drawing ---

void TCanvas::Clear(TAlphaColor color) {
  const TRect all{0, 0, FTarget.PixelWidth, FTarget.PixelHeight};
  if (FSceneCount > 0 && !all.IsEmpty()) Call<TSlots::DoClearRect>(all, Premultiply(color));
}

void TCanvas::ClearRect(const TRectF& rect, TAlphaColor color) {
  if (FSceneCount == 0 || !rect.IsFinite()) return;
  const TRectF box = DeviceMatrix().BoundsOf(rect);
  const TRect pixels{HeldPixel(box.Left, FTarget.PixelWidth), HeldPixel(box.Top, FTarget.PixelHeight),
                     HeldPixel(box.Right, FTarget.PixelWidth), HeldPixel(box.Bottom, FTarget.PixelHeight)};
  if (!pixels.IsEmpty()) Call<TSlots::DoClearRect>(pixels, Premultiply(color));
}

void TCanvas::FillRect(const TRectF& rect, float opacity, const TBrush& brush) {
  const TRectF r = rect.Normalized();
  if (!rect.IsFinite() || r.IsEmpty() || brush.IsInvisible() || !Prepare(opacity)) return;
  Call<TSlots::DoFillRect>(r, HeldOpacity(opacity), brush);
}

void TCanvas::FillRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity,
                       const TBrush& brush, TCornerType type) {
  if (!(xRadius > 0 && yRadius > 0) || corners.IsEmpty()) {
    FillRect(rect, opacity, brush);
  } else {
    FillPath(RoundRectPath(rect, xRadius, yRadius, corners, type), opacity, brush);
  }
}

void TCanvas::DrawRect(const TRectF& rect, float xRadius, float yRadius, TCorners corners, float opacity,
                       const TStrokeBrush& brush, TCornerType type) {
  DrawPath(RoundRectPath(rect, xRadius, yRadius, corners, type), opacity, brush);
}

void TCanvas::FillEllipse(const TRectF& rect, float opacity, const TBrush& brush) {
  const TRectF r = rect.Normalized();
  if (!rect.IsFinite() || r.IsEmpty() || brush.IsInvisible() || !Prepare(opacity)) return;
  Call<TSlots::DoFillEllipse>(r, HeldOpacity(opacity), brush);
}

void TCanvas::DrawEllipse(const TRectF& rect, float opacity, const TStrokeBrush& brush) {
  DrawPath(EllipsePath(rect), opacity, brush);
}

void TCanvas::DrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush) {
  if (!from.IsFinite() || !to.IsFinite() || !CanBeSeen(brush) || !Prepare(opacity)) return;
  Call<TSlots::DoDrawLine>(from, to, HeldOpacity(opacity), brush);
}

void TCanvas::FillPath(const TPathData& path, float opacity, const TBrush& brush) {
  if (path.IsEmpty() || !path.IsFinite() || brush.IsInvisible() || !Prepare(opacity)) return;
  Call<TSlots::DoFillPath>(path, HeldOpacity(opacity), brush);
}

void TCanvas::DrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush) {
  if (path.IsEmpty() || !path.IsFinite() || !CanBeSeen(brush) || !Prepare(opacity)) return;
  Call<TSlots::DoDrawPath>(path, HeldOpacity(opacity), brush);
}

void TCanvas::DrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination, float opacity,
                         bool highSpeed) {
  if (source.IsEmpty() || destination.IsEmpty() || !source.IsFinite() || !destination.IsFinite()) return;
  if (&bitmap == FTarget.Bitmap || IsClippedAway(destination) || !Prepare(opacity)) return;
  const TRectF whole{0, 0, static_cast<float>(bitmap.Width()), static_cast<float>(bitmap.Height())};
  const TRectF inside = source.Intersect(whole);
  if (inside.IsEmpty()) return;
  const float x = destination.Width() / source.Width();
  const float y = destination.Height() / source.Height();
  const TRectF shown{
      destination.Left + (inside.Left - source.Left) * x, destination.Top + (inside.Top - source.Top) * y,
      destination.Right - (source.Right - inside.Right) * x, destination.Bottom - (source.Bottom - inside.Bottom) * y};
  if (shown.IsEmpty() || !shown.IsFinite()) return;
  Call<TSlots::DoDrawBitmap>(bitmap, inside, shown, HeldOpacity(opacity), highSpeed);
}

// --- Hooks ---

void TCanvas::DoFillRect(const TRectF& rect, float opacity, const TBrush& brush) {
  Call<TSlots::DoFillPath>(RectanglePath(rect), opacity, brush);
}

void TCanvas::DoFillEllipse(const TRectF& rect, float opacity, const TBrush& brush) {
  Call<TSlots::DoFillPath>(EllipsePath(rect), opacity, brush);
}

void TCanvas::DoDrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush) {
  Call<TSlots::DoDrawPath>(LinePath(from, to), opacity, brush);
}

bool TCanvas::DoBeginScene(std::span<const TRectF>, void*) {
  return true;
}

void TCanvas::DoEndScene() {}
void TCanvas::DoResize() {}

}  // namespace fmx
