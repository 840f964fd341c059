// Shapes, lines and pictures drawn by Cairo on pixels in memory; for the software canvas.
#pragma once

#include <memory>
#include <span>

#include "fmx/BitmapSurface.h"
#include "fmx/Brush.h"
#include "fmx/Clip.h"
#include "fmx/Colors.h"
#include "fmx/Geometry.h"
#include "fmx/Matrix.h"
#include "fmx/PathData.h"

namespace orv::platform {

// The surface is borrowed and outlives the object. Others may write to it, if they say so by Touched.
// A matrix that flattens everything draws nothing. Opacities are from 0 to 1.
class TPainter {
 public:
  explicit TPainter(fmx::TBitmapSurface& surface);
  ~TPainter();
  TPainter(const TPainter&) = delete;
  TPainter& operator=(const TPainter&) = delete;

  void SetMatrix(const fmx::TMatrix& deviceMatrix) { FMatrix = deviceMatrix; }
  void SetClip(const fmx::TClip& clip);
  void Touched() { FTouched = true; }

  void FillRect(const fmx::TRectF& rect, float opacity, const fmx::TBrush& brush);
  void FillPath(const fmx::TPathData& path, float opacity, const fmx::TBrush& brush);
  void DrawPath(const fmx::TPathData& path, float opacity, const fmx::TStrokeBrush& brush);
  // The part of the picture, which lies inside it, over the destination, tinted as in platform/Blit.h; smooth mixes
  // neighbours.
  void DrawPicture(const fmx::TBitmapSurface& picture, const fmx::TRectF& part, const fmx::TRectF& destination,
                   fmx::TPixel tint, bool smooth);

 private:
  struct TCairo;

  // Ready for drawing, the clip in force.
  TCairo& Ready();
  void ApplyClip();

  fmx::TBitmapSurface& FSurface;
  std::unique_ptr<TCairo> FCairo;
  fmx::TMatrix FMatrix;
  fmx::TClip FClip;
  bool FClipApplied = false;
  bool FTouched = false;
};

}  // namespace orv::platform
