// The first page of the gallery: what the text layout does.
#pragma once

#include "examples/gallery/Theme.h"
#include "fmx/Canvas.h"

namespace gallery {

// Specimens in two columns, or in one where the page is narrow: alignments, trimmings, a text with attributes, lines
// that show the switches, and prose that takes the width there is.
class TPage {
 public:
  // Paints it into the rectangle.
  void Paint(fmx::TCanvas& canvas, const TTheme& theme, const fmx::TRectF& rect);

  // Moves the content up by that much, within the bounds of the last painting.
  void Scroll(float by);

 private:
  float FScrolled = 0;
  float FHeight = 0;      // of the content
  float FViewHeight = 0;  // of the rectangle
};

}  // namespace gallery
