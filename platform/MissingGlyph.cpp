#include "platform/MissingGlyph.h"

#include <algorithm>
#include <cmath>

#include "fmx/PathShapes.h"

namespace orv::platform {
namespace {

int BoxStroke(double pixelSize) {
  return std::max(1, static_cast<int>(pixelSize / 16));
}

}  // namespace

TGlyph MissingGlyph(double pixelSize, int phase) {
  TGlyph box;
  box.Missing = true;
  box.Advance = static_cast<float>(pixelSize * 0.6);
  const int stroke = BoxStroke(pixelSize);
  box.Width = std::max(3, static_cast<int>(pixelSize * 0.5));
  box.Height = std::max(4, static_cast<int>(pixelSize * 0.7));
  box.Left = static_cast<int>(std::floor((static_cast<double>(box.Advance) - box.Width) / 2 +
                                         static_cast<double>(phase) / TGlyphSource::PhaseCount + 0.5));
  box.Top = box.Height;
  box.Coverage.assign(static_cast<std::size_t>(box.Width) * static_cast<std::size_t>(box.Height), 0);
  for (int y = 0; y < box.Height; ++y)
    for (int x = 0; x < box.Width; ++x)
      if (std::min({x, y, box.Width - 1 - x, box.Height - 1 - y}) < stroke)
        box.Coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(box.Width) + static_cast<std::size_t>(x)] =
            255;
  return box;
}

// A box's picture as outline: a frame, its inner edge the other way round.
fmx::TPathData OutlineOfMissingGlyph(double pixelSize) {
  const TGlyph box = MissingGlyph(pixelSize);
  const int stroke = BoxStroke(pixelSize);
  const auto outer = fmx::TRectF::FromSize({static_cast<float>(box.Left), static_cast<float>(-box.Top)},
                                           static_cast<float>(box.Width), static_cast<float>(box.Height));
  const auto inner = outer.Inset(static_cast<float>(stroke), static_cast<float>(stroke));
  fmx::TPathData path = fmx::RectanglePath(outer);
  path.MoveTo({inner.Left, inner.Top});
  path.LineTo({inner.Left, inner.Bottom});
  path.LineTo({inner.Right, inner.Bottom});
  path.LineTo({inner.Right, inner.Top});
  path.ClosePath();
  return path;
}

}  // namespace orv::platform
