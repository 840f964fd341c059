// The reference canvas: it draws in memory, the same pixels everywhere.
#pragma once

#include <memory>
#include <span>

#include "fmx/CustomCanvasGpu.h"

namespace orv::platform {

// Draws anti-aliased shapes, lines and clips on the pixels of a bitmap, or on pixels of its own that it presents to a
// TCanvasWindow (platform/CanvasWindow.h) where the outermost scene ends. All is premultiplied, so that pictures on
// transparent bitmaps come out right wherever they are drawn. Equal calls give equal bytes.
//
// A picture that is neither turned nor scaled on the device pixels, as glyphs are, is put there pixel by pixel; so are
// places between pixels. Others are resampled, and their source does not bleed over its edges. highSpeed snaps to whole
// pixels.
//
// BeginScene answers false for a measure or printer canvas, for a bitmap that is empty or mapped, and for a window
// without a size or beyond fmx/Limits.h. The picture of a window stays between scenes; a resize makes it transparent.
// What lies far outside of the target is cut off, and pens beyond 32 times its size are held
// there. Its class name is "TCanvasGpu".
class TSoftwareCanvas : public fmx::TCustomCanvasGpu {
 public:
  static constexpr int SlotCount = fmx::TCustomCanvasGpu::SlotCount;
  static orv::TClass Class();

  explicit TSoftwareCanvas(const fmx::TCanvasTarget& target) : TSoftwareCanvas(target, Class()) {}
  TSoftwareCanvas(const fmx::TCanvasTarget& target, orv::TClass aClass);
  ~TSoftwareCanvas() override;

  void DoSetMatrix(const fmx::TMatrix& deviceMatrix);
  void DoSetClip(const fmx::TClip& clip);
  void DoClearRect(const fmx::TRect& pixels, fmx::TPixel pixel);
  void DoFillRect(const fmx::TRectF& rect, float opacity, const fmx::TBrush& brush);
  void DoFillPath(const fmx::TPathData& path, float opacity, const fmx::TBrush& brush);
  bool DoBeginScene(std::span<const fmx::TRectF> clipRects, void* context);
  void DoEndScene();
  void DoDrawPath(const fmx::TPathData& path, float opacity, const fmx::TStrokeBrush& brush);
  void DoDrawBitmap(const fmx::TBitmap& bitmap, const fmx::TRectF& source, const fmx::TRectF& destination,
                    float opacity, bool highSpeed);
  void DoResize();

 private:
  struct TState;
  std::unique_ptr<TState> FState;
};

}  // namespace orv::platform
