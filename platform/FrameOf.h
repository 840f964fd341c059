// Pictures out of pixels.
#pragma once

#include "fmx/BitmapSurface.h"
#include "platform/Frame.h"

namespace orv::platform {

// The colours that premultiplied pixels stand for, as picture files hold them. Empty for an empty surface.
TFrame FrameOf(const fmx::TBitmapSurface& premultiplied);

// Premultiplied pixels of a picture. Raises fmx::EBitmapSizeTooBig beyond fmx/Limits.h.
fmx::TBitmapSurface SurfaceOf(const TFrame& frame);

}  // namespace orv::platform
