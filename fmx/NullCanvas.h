// A back end that draws nothing, for measuring without a platform.
#pragma once

#include "fmx/CustomCanvasGpu.h"

namespace fmx {

// Takes everything and shows none of it. Its class name is "TNullCanvas".
class TNullCanvas : public TCustomCanvasGpu {
 public:
  static constexpr int SlotCount = TCustomCanvasGpu::SlotCount;
  static orv::TClass Class();

  explicit TNullCanvas(const TCanvasTarget& target, orv::TClass aClass = Class()) : TCustomCanvasGpu(target, aClass) {}

  void DoSetMatrix(const TMatrix&) {}
  void DoSetClip(const TClip&) {}
  void DoClearRect(const TRect&, TPixel) {}
  void DoFillPath(const TPathData&, float, const TBrush&) {}
  void DoDrawPath(const TPathData&, float, const TStrokeBrush&) {}
  void DoDrawBitmap(const TBitmap&, const TRectF&, const TRectF&, float, bool) {}
};

}  // namespace fmx
