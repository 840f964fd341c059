// Draws a page.
#pragma once

#include <cstdint>

#include "platform/Frame.h"
#include "tools/orv/show/Layout.h"

namespace orv::show {

// Opaque colours, 0xAARRGGBB.
struct TColors {
  std::uint32_t Paper = 0xFFFCFBF8;
  std::uint32_t Ink = 0xFF24272B;
  std::uint32_t Title = 0xFF1D4D6B;
  std::uint32_t Rule = 0xFFD9D5CB;
};

// The part of the page that begins top pixels below its upper edge, with the page's left edge left pixels right of the
// frame's, into a frame of that size. What lies beside the page is paper.
platform::TFrame Paint(const TPage& page, const TFaces& faces, const TColors& colors, int left, int top, int width,
                       int height);

}  // namespace orv::show
