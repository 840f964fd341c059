// A back end that writes down what it is told, for tests of what is drawn.
#pragma once

#include <string>
#include <vector>

#include "fmx/CustomCanvasGpu.h"

namespace fmx {

// One call of a hook, with what held when it came. Members that the hook does not have keep their first value.
struct TRecordedCall {
  enum class TKind : std::uint8_t {
    BeginScene,
    EndScene,
    ClearRect,
    FillRect,
    FillEllipse,
    FillPath,
    DrawPath,
    DrawLine,
    DrawBitmap
  };
  TKind Kind = TKind::BeginScene;
  TRectF Rect;    // the shape's, or the path's bounds; a line goes from its top left to its bottom right corner
  TRectF Source;  // of a bitmap
  float Opacity = 1;
  TAlphaColor Color = 0;  // of the brush; of a bitmap the modulate colour; of ClearRect the pixel
  float Thickness = 0;    // of a pen
  TStrokeDash Dash = TStrokeDash::Solid;
  bool HighSpeed = false;
  const TBitmap* Bitmap = nullptr;  // borrowed
  TPathData Path;
  TMatrix DeviceMatrix;
  TClip Clip;
};

// Draws nothing. Its class name is "TRecordingCanvas". A call that another one leads to is not recorded.
class TRecordingCanvas : public TCustomCanvasGpu {
 public:
  static constexpr int SlotCount = TCustomCanvasGpu::SlotCount;
  static orv::TClass Class();

  explicit TRecordingCanvas(const TCanvasTarget& target, orv::TClass aClass = Class())
      : TCustomCanvasGpu(target, aClass) {}
  // A window canvas without a window.
  TRecordingCanvas(std::int32_t pixelWidth, std::int32_t pixelHeight, float scale = 1);

  // In the order in which they came.
  const std::vector<TRecordedCall>& Calls() const { return FCalls; }
  std::vector<TRecordedCall> CallsOf(TRecordedCall::TKind kind) const;
  void Forget() { FCalls.clear(); }
  // Makes BeginScene fail from now on, or succeed again. A refused scene is recorded, with its end.
  void RefuseScenes(bool refuse) { FRefuses = refuse; }

  void DoSetMatrix(const TMatrix& deviceMatrix) { FDeviceMatrix = deviceMatrix; }
  void DoSetClip(const TClip& clip) { FClip = clip; }
  void DoClearRect(const TRect& pixels, TPixel pixel);
  void DoFillRect(const TRectF& rect, float opacity, const TBrush& brush);
  void DoFillEllipse(const TRectF& rect, float opacity, const TBrush& brush);
  void DoFillPath(const TPathData& path, float opacity, const TBrush& brush);
  bool DoBeginScene(std::span<const TRectF> clipRects, void* context);
  void DoEndScene();
  void DoDrawPath(const TPathData& path, float opacity, const TStrokeBrush& brush);
  void DoDrawLine(TPointF from, TPointF to, float opacity, const TStrokeBrush& brush);
  void DoDrawBitmap(const TBitmap& bitmap, const TRectF& source, const TRectF& destination, float opacity,
                    bool highSpeed);

 private:
  TRecordedCall& Add(TRecordedCall::TKind kind, const TRectF& rect, float opacity, TAlphaColor color);

  std::vector<TRecordedCall> FCalls;
  TMatrix FDeviceMatrix;  // as told
  TClip FClip;
  bool FRefuses = false;
};

}  // namespace fmx
