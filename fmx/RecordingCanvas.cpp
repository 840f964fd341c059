#include "fmx/RecordingCanvas.h"

#include <algorithm>
#include <iterator>

namespace fmx {

using TKind = TRecordedCall::TKind;

orv::TClass TRecordingCanvas::Class() {
  return CompiledCanvas<TRecordingCanvas, TCustomCanvasGpu>("fmx.RecordingCanvas", "TRecordingCanvas");
}

TRecordingCanvas::TRecordingCanvas(std::int32_t pixelWidth, std::int32_t pixelHeight, float scale)
    : TRecordingCanvas(TCanvasTarget{TCanvasTarget::TKind::Window, nullptr, nullptr, pixelWidth, pixelHeight, scale}) {}

std::vector<TRecordedCall> TRecordingCanvas::CallsOf(TKind kind) const {
  std::vector<TRecordedCall> calls;
  std::copy_if(FCalls.begin(), FCalls.end(), std::back_inserter(calls),
               [kind](const TRecordedCall& call) { return call.Kind == kind; });
  return calls;
}

TRecordedCall& TRecordingCanvas::Add(TKind kind, const TRectF& rect, float opacity, TAlphaColor color) {
  TRecordedCall& call = FCalls.emplace_back();
  call.Kind = kind;
  call.Rect = rect;
  call.Opacity = opacity;
  call.Color = color;
  call.DeviceMatrix = FDeviceMatrix;
  call.Clip = FClip;
  return call;
}

void TRecordingCanvas::DoClearRect(const TRect& pixels, TPixel pixel) {
  Add(TKind::ClearRect, TRectF::From(pixels), 1, pixel);
}

void TRecordingCanvas::DoFillRect(const TRectF& rect, float opacity, const TBrush& brush) {
  Add(TKind::FillRect, rect, opacity, brush.Color());
}

void TRecordingCanvas::DoFillEllipse(const TRectF& rect, float opacity, const TBrush& brush) {
  Add(TKind::FillEllipse, rect, opacity, brush.Color());
}

void TRecordingCanvas::DoFillPath(const TPathData& path, float opacity, const TBrush& brush) {
  Add(TKind::FillPath, path.GetBounds(), opacity, brush.Color()).Path = path;
}

bool TRecordingCanvas::DoBeginScene(std::span<const TRectF>, void*) {
  Add(TKind::BeginScene, {}, 1, 0);
  return !FRefuses;
}

void TRecordingCanvas::DoEndScene() {
  Add(TKind::EndScene, {}, 1, 0);
}

void TRecordingCanvas::DoDrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush) {
  TRecordedCall& call = Add(TKind::DrawPath, path.GetBounds(), opacity, brush.Color());
  call.Path = path;
  call.Thickness = brush.Thickness();
  call.Dash = brush.Dash();
}

void TRecordingCanvas::DoDrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush) {
  TRecordedCall& call = Add(TKind::DrawLine, {from.X, from.Y, to.X, to.Y}, opacity, brush.Color());
  call.Thickness = brush.Thickness();
  call.Dash = brush.Dash();
}

void TRecordingCanvas::DoDrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination,
                                    float opacity, bool highSpeed) {
  TRecordedCall& call = Add(TKind::DrawBitmap, destination, opacity, ModulateColor());
  call.Source = source;
  call.Bitmap = &bitmap;
  call.HighSpeed = highSpeed;
}

}  // namespace fmx
