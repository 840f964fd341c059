// What stands for a character that no font has: a hollow box.
#pragma once

#include "fmx/PathData.h"
#include "platform/GlyphSource.h"

namespace orv::platform {

// With its pen at that many sixteenths of a pixel.
TGlyph MissingGlyph(double pixelSize, int phase = 0);
fmx::TPathData OutlineOfMissingGlyph(double pixelSize);

}  // namespace orv::platform
