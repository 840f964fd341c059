// Text that a platform's own text engine has shaped as a whole, for fonts whose letters depend on more than their
// neighbours' kind.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "fmx/BitmapSurface.h"
#include "fmx/FontGlyph.h"
#include "fmx/Geometry.h"

namespace fmx {

// Units of one text, in one direction. The text around them decides how their ends are joined.
struct TShapeRequest {
  std::u16string_view Text;  // borrowed for the call
  std::int32_t Start = 0;    // held within the text, with the length
  std::int32_t Length = 0;
  bool RightToLeft = false;
  TFontSettings Font;
  bool WantsPicture = false;
};

// Units that are drawn together. Lengths are device pixels.
struct TShapedCluster {
  std::int32_t Start = 0;  // of the text
  std::int32_t Length = 0;
  float Left = 0;  // from the left end of the shaped text
  float Width = 0;
};

struct TShapedText {
  std::vector<TShapedCluster> Clusters;  // in the order of the text; they hold every unit that was asked for
  float Width = 0;
  float Height = 0;  // of the line, which the font decides
  float Baseline = 0;
  // The coverage in all four parts; empty where it was not wanted, where nothing is drawn, or beyond fmx/Limits.h.
  TBitmapSurface Picture;
  TPoint PictureOrigin;  // its corner, from the left end on the top of the line
};

}  // namespace fmx
