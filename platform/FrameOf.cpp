#include "platform/FrameOf.h"

#include <algorithm>

#include "fmx/Colors.h"

namespace orv::platform {

TFrame FrameOf(const fmx::TBitmapSurface& premultiplied) {
  TFrame frame(premultiplied.Width(), premultiplied.Height());
  const auto pixels = premultiplied.Pixels();
  std::transform(pixels.begin(), pixels.end(), frame.Pixels.begin(), fmx::Unpremultiply);
  return frame;
}

fmx::TBitmapSurface SurfaceOf(const TFrame& frame) {
  fmx::TBitmapSurface surface(frame.Width, frame.Height);
  std::transform(frame.Pixels.begin(), frame.Pixels.end(), surface.Pixels().begin(), fmx::Premultiply);
  return surface;
}

}  // namespace orv::platform
